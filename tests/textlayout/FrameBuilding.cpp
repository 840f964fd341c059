// Lines and runs before they are measured, and the attributes laid over them.
#include "tests/textlayout/support/Layouts.h"

namespace orv {
namespace {

using namespace testing;

class FrameBuilding : public TFixedTest {};
class Attributes : public TFixedTest {};

std::vector<TList> Starts(const TTextLayoutNGOrv& layout) {
  std::vector<TList> lines;
  for (std::int32_t i = 0; i < layout.Frame().Count(); ++i) {
    TList starts;
    for (std::int32_t k = 0; k < layout.Frame().Line(i).Count(); ++k)
      starts.push_back(layout.Frame().Line(i).Item(k).StartIndex());
    lines.push_back(starts);
  }
  return lines;
}

TEST_F(FrameBuilding, EmptyTextIsOneEmptyRun) {
  const auto layout = Laid(u"", 200);
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w1: 0+0 L 0-1"});
  EXPECT_EQ(OrderOf(layout->Frame().Line(0)), TList{0});
  EXPECT_TRUE(layout->Frame().Line(0).Item(0).IsDefaultColor());
}

TEST_F(FrameBuilding, LineEndAtTheEndMakesALastLine) {
  EXPECT_EQ(Lines(*Laid(u"a\n", 200)), (TTexts{"0,0 w10: 0+1 L 0-10", "0,20 w1: 2+0 L 0-1"}));
}

TEST_F(FrameBuilding, TwoLineEndsMakeAnEmptyLineBetweenThem) {
  const auto layout = Laid(u"a\r\n\r\nb", 200);
  EXPECT_EQ(Starts(*layout), (std::vector<TList>{{0}, {3}, {5}}));
  EXPECT_EQ(layout->Frame().Line(1).StartIndex(), 1);
  EXPECT_EQ(layout->Frame().Line(2).StartIndex(), 3);
  EXPECT_EQ(Hit(*layout, 0, 25), 3);
  EXPECT_EQ(Laid(u"a\n\nb", 200)->Frame().Count(), 2);  // two of a kind end one paragraph
}

TEST_F(FrameBuilding, NeutralsAreOneRightToLeftRun) {
  const auto layout = Laid(u"...", 200);
  EXPECT_FALSE(layout->RightToLeft());
  EXPECT_TRUE(layout->Frame().Line(0).Item(0).RightToLeft());
}

TEST_F(FrameBuilding, DigitsFollowTheDigitType) {
  const auto firstAtom = [](std::u16string_view text) { return Laid(text, 200)->Frame().Line(0).Item(0).Atom(0); };
  EXPECT_EQ(firstAtom(u"\u0627"
                      u"1"),
            0xFE8DU);
  TOrvGlobalSettings::ArabicDigitType = TOrvGlobalSettings::TArabicDigitType::Latin;
  EXPECT_EQ(firstAtom(u"1"), U'1');
  TOrvGlobalSettings::ArabicDigitType = TOrvGlobalSettings::TArabicDigitType::ArabicDigitType1;
}

// --- Attributes ---

constexpr fmx::TAlphaColor Red = 0xFFFF0000;

TSetUp Coloured(std::vector<fmx::TTextRange> ranges, bool isSelection = false) {
  return [=](TTextLayoutNGOrv& layout) {
    for (const fmx::TTextRange range : ranges)
      layout.AddAttribute(
          std::make_unique<TTextAttributedRangeBidi>(range, fmx::TTextAttribute{nullptr, Red}, isSelection));
  };
}

// The runs with a colour of their own, "2+3", line by line in item order.
TTexts ColouredRuns(const TTextLayoutNGOrv& layout) {
  TTexts runs;
  for (std::int32_t i = 0; i < layout.Frame().Count(); ++i)
    for (std::int32_t k = 0; k < layout.Frame().Line(i).Count(); ++k) {
      const TGPURun& run = layout.Frame().Line(i).Item(k);
      if (!run.IsDefaultColor()) runs.push_back(std::to_string(run.StartIndex()) + "+" + std::to_string(run.Length()));
    }
  return runs;
}

TEST_F(Attributes, RangeToTheEndOfARunDoesNotSplitThere) {
  const auto layout = Laid(u"abcd", 200, Coloured({{2, 2}}));
  EXPECT_EQ(Starts(*layout), (std::vector<TList>{{0, 2}}));
  EXPECT_EQ(ColouredRuns(*layout), TTexts{"2+2"});
  EXPECT_EQ(Starts(*Laid(u"abcd", 200, Coloured({{0, 4}}))), (std::vector<TList>{{0}}));
}

TEST_F(Attributes, RangeToTheEndOfARunLeavesTheNextOneWhole) {
  const auto layout = Laid(u"abc " + Salam, 200, Coloured({{0, 4}}));
  EXPECT_EQ(Starts(*layout), (std::vector<TList>{{0, 4}}));
  EXPECT_EQ(ColouredRuns(*layout), TTexts{"0+4"});
}

TEST_F(Attributes, RangeOverParagraphsColoursThoseBetween) {
  const auto layout = Laid(u"ab\ncd\nef", 200, Coloured({{1, 6}}));
  EXPECT_EQ(ColouredRuns(*layout), (TTexts{"1+1", "3+2", "6+1"}));
}

TEST_F(Attributes, LineEndsThemselvesColourNothing) {
  EXPECT_EQ(ColouredRuns(*Laid(u"ab\ncd", 200, Coloured({{2, 1}}))), TTexts{});
  EXPECT_EQ(ColouredRuns(*Laid(u"ab\ncd", 200, Coloured({{1, 2}}))), TTexts{"1+1"});
  EXPECT_EQ(ColouredRuns(*Laid(u"ab\ncd", 200, Coloured({{2, 2}}))), TTexts{"3+1"});
}

TEST_F(Attributes, RangesOutsideTheTextDoNothing) {
  constexpr std::int32_t far = std::numeric_limits<std::int32_t>::max();
  const auto layout = Laid(u"abcd", 200, Coloured({{4, 1}, {1, 0}, {-1, 2}, {1, -1}, {far, far}, {0, -far}}));
  EXPECT_EQ(ColouredRuns(*layout), TTexts{});
  EXPECT_EQ(ColouredRuns(*Laid(u"abcd", 200, Coloured({{3, far}}))), TTexts{"3+1"});
}

TEST_F(Attributes, StylesMergeAndFontsAreNotChangedForOthers) {
  const auto font = [](fmx::TFontStyle style) {
    return std::make_shared<fmx::TFont>(u"F", 9.0F, fmx::TFontStyles{style});
  };
  const auto bold = font(fmx::TFontStyle::Bold);
  const auto layout = Laid(u"abcdefghi", 200, [&](auto& l) {
    l.AddAttribute(fmx::TTextRange{0, 9}, fmx::TTextAttribute{bold, Red});
    l.AddAttribute(fmx::TTextRange{3, 3}, fmx::TTextAttribute{font(fmx::TFontStyle::Italic), Red});
  });
  const TGPULine& line = layout->Frame().Line(0);
  ASSERT_EQ(line.Count(), 3);
  EXPECT_EQ(line.Item(0).Font(), bold);
  EXPECT_EQ(line.Item(1).Font()->Style(), (fmx::TFontStyles{fmx::TFontStyle::Bold, fmx::TFontStyle::Italic}));
  EXPECT_EQ(line.Item(2).Font()->Style(), fmx::TFontStyles{fmx::TFontStyle::Bold});
  EXPECT_EQ(bold->Style(), fmx::TFontStyles{fmx::TFontStyle::Bold});
}

TEST_F(Attributes, AttributeWithoutAFontLeavesTheRunsFont) {
  const auto font = std::make_shared<fmx::TFont>(u"F", 9.0F);
  const auto layout = Laid(u"ab", 200, [&](auto& l) {
    l.AddAttribute(fmx::TTextRange{0, 2}, fmx::TTextAttribute{font, Red});
    l.AddAttribute(fmx::TTextRange{0, 2}, fmx::TTextAttribute{nullptr, 5});
  });
  EXPECT_EQ(layout->Frame().Line(0).Item(0).Font(), font);
  EXPECT_EQ(layout->Frame().Line(0).Item(0).Color(), 5U);
}

TEST_F(Attributes, SelectionWithinOneRun) {
  EXPECT_EQ(ColouredRuns(*Laid(u"abcd", 200, Coloured({{1, 2}}, true))), TTexts{"1+2"});
}

TEST_F(Attributes, SelectionTakesWhatIsSeenBetweenItsEnds) {
  // The runs are seen as Donya, abc, Salam: from the middle run to the last one of the text.
  const auto layout = Laid(Salam + u" abc " + Donya, 200, Coloured({{5, 8}}, true));
  EXPECT_EQ(ColouredRuns(*layout), (TTexts{"5+3", "8+5"}));
}

TEST_F(Attributes, SelectionOverTwoLinesReachesTheirFarEnds) {
  EXPECT_EQ(ColouredRuns(*Laid(u"abcd\nefgh", 200, Coloured({{2, 5}}, true))), (TTexts{"2+2", "5+2"}));
}

// The split positions of a run end at 32767; beyond it the run is split there.
TEST_F(Attributes, RangeFarIntoALongRunIsHeldWithinIt) {
  const std::u16string text(50000, u'a');
#ifdef ORV_ASSERTIONS
  EXPECT_THROW(Laid(text, 200, Coloured({{40000, 10}})), rtl::EAssertionFailed);
#else
  EXPECT_FALSE(ColouredRuns(*Laid(text, 200, Coloured({{40000, 10}}))).empty());
#endif
}

}  // namespace
}  // namespace orv
