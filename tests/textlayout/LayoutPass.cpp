// Measuring, wrapping, trimming, aligning and clipping.
#include "tests/textlayout/support/Layouts.h"

namespace orv {
namespace {

using namespace testing;
using fmx::TTextAlign;
using fmx::TTextTrimming;

class Direction : public TFixedTest {};
class Tabs : public TFixedTest {};
class LayoutPass : public TFixedTest {};

bool ReadsRightToLeft(std::u16string_view text, TTextAlign align = TTextAlign::Leading) {
  return Laid(text, 200, [align](auto& l) { l.SetHorizontalAlign(align); })->RightToLeft();
}

TEST_F(Direction, FirstThatDecides) {
  EXPECT_FALSE(ReadsRightToLeft(u"abc \u0627"));
  EXPECT_TRUE(ReadsRightToLeft(u". \u0627 abc"));
  EXPECT_FALSE(ReadsRightToLeft(u"?\u0627"));
  EXPECT_FALSE(ReadsRightToLeft(u",\u0627"));
  EXPECT_FALSE(ReadsRightToLeft(u"\u2032\u0627"));
  EXPECT_FALSE(ReadsRightToLeft(u"\uFEFB"));  // a form decides nothing itself
  EXPECT_TRUE(ReadsRightToLeft(u"\uFEFB\u0627"));
  EXPECT_TRUE(ReadsRightToLeft(u"\u0661"));
}

TEST_F(Direction, DigitsCountWhereTheTextIsNotLeading) {
  EXPECT_FALSE(ReadsRightToLeft(u"12"));
  EXPECT_TRUE(ReadsRightToLeft(u"12", TTextAlign::Trailing));
  EXPECT_TRUE(ReadsRightToLeft(u"12", TTextAlign::Center));
  EXPECT_FALSE(ReadsRightToLeft(u"\u0967", TTextAlign::Trailing));  // a digit, but no ASCII one
  EXPECT_TRUE(ReadsRightToLeft(u"1,2", TTextAlign::Trailing));
  EXPECT_FALSE(ReadsRightToLeft(u"1,2"));
}

TEST_F(Direction, OnceSetItStays) {
  const auto layout = Laid(Salam, 200);
  layout->SetText(u"abc");
  EXPECT_TRUE(layout->RightToLeft());
  EXPECT_TRUE(Laid(u"abc", 200, [](auto& l) { l.SetRightToLeft(true); })->RightToLeft());
  layout->SetRightToLeft(false);
  EXPECT_FALSE(layout->RightToLeft());
}

TEST_F(Direction, ManualIsNeverAsked) {
  EXPECT_FALSE(Laid(Salam, 200, [](auto& l) { l.SetBidiSelectionType(TBidiSelectionType::btManual); })->RightToLeft());
}

// --- Tabs ---

TEST_F(Tabs, TabWithinARunGoesToTheNextStop) {
  const auto layout = Laid(u"ab\tc", 200);
  EXPECT_EQ(layout->TabSize(), 40);
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w50: 0+4 L 0-50"});
  EXPECT_EQ(layout->GetTabAdvance(layout->Frame().Line(0).Item(0), 2), 20);
  EXPECT_THROW(layout->GetTabAdvance(layout->Frame().Line(0).Item(0), 0), rtl::Exception);
  EXPECT_EQ(Extents(layout->RegionForRange({3, 1})), "50-60");  // measuring takes tabs from the line's end
}

TEST_F(Tabs, PositionOnAStopGoesToTheNext) {
  EXPECT_EQ(Laid(u"abcd\te", 200)->TextWidth(), 90);
}

TEST_F(Tabs, SizeStaysWhenTheFontChanges) {
  const auto layout = Laid(u"\ta", 200, [](auto& l) { l.SetTabSize(24); });
  EXPECT_EQ(layout->TextWidth(), 34);
  layout->Font().SetSize(40);
  EXPECT_EQ(layout->TabSize(), 24);
}

TEST_F(Tabs, StopsAreDevicePixels) {
  const auto layout = Laid(u"a\tb", 200, [](auto& l) {
    l.SetScale(2);
    l.SetTabSize(30);
  });
  EXPECT_EQ(layout->TextWidth(), 25);
}

TEST_F(Tabs, LeadingTabIsARunOfItsOwn) {
  EXPECT_EQ(Lines(*Laid(u"\tab", 200)), TTexts{"0,0 w60: 0+1 L 0-40 | 1+2 L 40-60"});
}

TEST_F(Tabs, TextBehindALeadingTabStandsLeftOfIt) {
  const auto layout = Laid(u"\t" + Salam, 200);
  EXPECT_EQ(OrderOf(layout->Frame().Line(0)), (TList{1, 0}));
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w70: 0+1 R 30-70 | 1+4 R 0-30"});
}

TEST_F(Tabs, TabAtTheEndStandsAloneOnceItLeadsARun) {
  const auto layout = Laid(u"ab\t", 200, [](auto& l) {
    l.AddAttribute(fmx::TTextRange{2, 1}, fmx::TTextAttribute{nullptr, 1});
  });
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w40: 0+2 L 0-20 | 2+1 L 20-40"});
  EXPECT_EQ(layout->GetTabAdvance(layout->Frame().Line(0).Item(1), 0), 20);
}

// --- The pass ---

TEST_F(LayoutPass, BlankAtTheOverflowBelongsToNeitherLine) {
  EXPECT_EQ(Lines(*Laid(u"abc def", 30, Wrapped)), (TTexts{"0,0 w30: 0+3 L 0-30", "0,20 w30: 4+3 L 0-30"}));
}

// A mark behind a letter that is too wide begins the next line, whose letter is not asked then: a run of no width keeps
// taking glyphs.
TEST_F(LayoutPass, MarkOfNoWidthBehindALetterTooWide) {
  const auto layout = Laid(u"\u0628\u064E\u0628\u064E", 5, [](auto& l) {
    l.SetWordWrap(true);
    l.SetMeasuringText(true);
  });
  EXPECT_EQ(Lines(*layout), (TTexts{"0,0 w10: 0+1 R 0-10", "0,20 w10: 1+2 R 0-10", "0,40 w0: 3+1 R 0-0"}));
}

TEST_F(LayoutPass, LargeBoxClipsNothingAndChainsTheRuns) {
  const auto layout = Laid(u"ab " + Salam, 200);
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w55: 0+3 L 0-25 | 3+4 R 25-55"});
}

TEST_F(LayoutPass, OverflowGoesOffTheLeftOfTrailingText) {
  const auto layout = Laid(u"abcdefghij", 55, [](auto& l) { l.SetHorizontalAlign(TTextAlign::Trailing); });
  EXPECT_EQ(Lines(*layout), TTexts{"-5,0 w60: 4+6 L 0-60 clipped"});
}

TEST_F(LayoutPass, RunsBehindAShortenedOneMoveWithIt) {
  const auto layout = Laid(u"abcdef " + Salam, 50, [](auto& l) { l.SetHorizontalAlign(TTextAlign::Trailing); });
  EXPECT_EQ(Lines(*layout), TTexts{"-5,0 w55: 4+3 L 0-25 clipped | 7+4 R 25-55"});
}

TEST_F(LayoutPass, WholeRunsGoOffTheLeft) {
  const auto layout = Laid(u"abcdef " + Salam, 25, [](auto& l) { l.SetHorizontalAlign(TTextAlign::Trailing); });
  EXPECT_EQ(Lines(*layout), TTexts{"-5,0 w30: 7+4 R 0-30 clipped"});
}

TEST_F(LayoutPass, TrimmingOfAMarkedLineDecidesForTheNext) {
  std::u16string text;
  for (int i = 0; i < 6; ++i) text += u"\u0628\u064E";
  const auto layout = Laid(text + u"\nabcdefgh", 55, [](auto& l) { l.SetTrimming(TTextTrimming::Character); });
  const TGPULine& line = layout->Frame().Line(1);
  EXPECT_EQ(line.Item(0).Length(), 3);
  EXPECT_EQ(line.Width(), 60);
}

TEST_F(LayoutPass, LinesBelowTheBoxGo) {
  const auto layout = Laid(u"a\nb\nc", 200, [](auto& l) { l.SetMaxSize({200, 30}); });
  EXPECT_EQ(Lines(*layout), (TTexts{"0,0 w10: 0+1 L 0-10", "0,20 w10: 2+1 L 0-10 clipped"}));
  EXPECT_EQ(layout->TextHeight(), 30);
}

TEST_F(LayoutPass, LinesAboveTheBoxGo) {
  const auto layout = Laid(u"a\nb\nc", 200, [](auto& l) {
    l.SetMaxSize({200, 30});
    l.SetVerticalAlign(TTextAlign::Trailing);
  });
  EXPECT_EQ(Lines(*layout), (TTexts{"0,-10 w10: 2+1 L 0-10 clipped", "0,10 w10: 4+1 L 0-10"}));
  EXPECT_EQ(layout->Frame().TopLeft().Y, -10);
}

TEST_F(LayoutPass, PaddingNarrowsTheBox) {
  const auto layout = Laid(u"ab cd", 40, [](auto& l) {
    l.SetWordWrap(true);
    l.SetPadding({5, 3, 5, 0});
  });
  EXPECT_EQ(Lines(*layout), (TTexts{"0,3 w20: 0+2 L 0-20", "0,23 w20: 3+2 L 0-20"}));
  EXPECT_EQ(layout->Frame().TopLeft(), (fmx::TPointF{5, 3}));
}

TEST_F(LayoutPass, ScaleChangesNoLogicalWidth) {
  for (const float scale : {1.0F, 1.25F, 2.0F, 3.0F}) {
    TGlyphAtlas::Clear();  // all scales but 1 share one dictionary
    EXPECT_EQ(Lines(*Laid(u"ab cd", 30,
                          [scale](auto& l) {
                            l.SetWordWrap(true);
                            l.SetScale(scale);
                          })),
              (TTexts{"0,0 w20: 0+2 L 0-20", "0,20 w20: 3+2 L 0-20"}))
        << scale;
  }
}

TEST_F(LayoutPass, MeasuringClipsNoSide) {
  const auto layout = Laid(u"abcdefghij", 55);
  layout->SetMeasuringText(true);
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w100: 0+10 L 0-100"});
  layout->SetMeasuringText(false);
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w60: 0+9 L 0-60 clipped"});
}

}  // namespace
}  // namespace orv
