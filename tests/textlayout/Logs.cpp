// The log of layouts and drawings: every line, in order, with its values.
#include "fmx/Log.h"
#include "fmx/RecordingCanvas.h"
#include "tests/textlayout/support/Engines.h"
#include "textlayout/Orv.TextLayout.Internal.Win.h"

namespace orv {
namespace {

using namespace testing;

class Logs : public TFixedTest {};
class EngineLogs : public ::testing::Test {};

// What the work logs.
template <typename TWork>
TTexts Logged(TWork work) {
  TTexts lines;
  fmx::Log::SetSink([&](std::string_view line) { lines.emplace_back(line); });
  work();
  fmx::Log::SetSink({});
  return lines;
}

TTexts Rendered(TTextLayoutNGOrv& layout) {
  return Logged([&] { layout.DoRenderLayout(); });
}

TTexts Drawn(TTextLayoutNGOrv& layout, float scale = 1) {
  fmx::TRecordingCanvas canvas(400, 400, scale);
  canvas.BeginScene();
  TTexts lines = Logged([&] { layout.RenderLayout(canvas); });
  canvas.EndScene();
  return lines;
}

TEST_F(Logs, LineOfTwoRuns) {
  const auto layout = Laid(u"ab " + Salam, 200, [](auto& l) { l.SetTopLeft({7, 8}); });
  EXPECT_EQ(Rendered(*layout),
            (TTexts{"DoRenderLayout:Start", "DoRenderLayout: -- LineIndex: 0", "DoRenderLayout: ---- RunIndex: 0:0",
                    "DoRenderLayout: ---- RunIndex: 0:0(0,3)", "DoRenderLayout: ---- RunIndex: 0:1",
                    "DoRenderLayout: ---- RunIndex: 0:1(3,4)", "DoRenderLayout:End"}));
  EXPECT_EQ(Drawn(*layout),
            (TTexts{"DoDrawLayout", "DoDrawLayout line 0 IsTrimmed",
                    "DoDrawLayout Run:(0, 3) at:(0.00, 0.00, 25.00, 20.00) line(0.00, 0.00, 55.00, 20.00)",
                    "DoDrawLayout Run:(3, 4) at:(25.00, 0.00, 55.00, 20.00) line(0.00, 0.00, 55.00, 20.00)",
                    "DoDrawLayout End"}));
}

// Without word wrap the runs are picked from where the reading begins; they are drawn from the left.
TEST_F(Logs, RightToLeftLine) {
  const auto layout = Laid(Salam + u" ab", 200);
  EXPECT_EQ(Rendered(*layout),
            (TTexts{"DoRenderLayout:Start", "DoRenderLayout: -- LineIndex: 0", "DoRenderLayout: ---- RunIndex: 0:0",
                    "DoRenderLayout: ---- RunIndex: 0:0(0,5)", "DoRenderLayout: ---- RunIndex: 0:1",
                    "DoRenderLayout: ---- RunIndex: 0:1(5,2)", "DoRenderLayout:End"}));
  EXPECT_EQ(Drawn(*layout),
            (TTexts{"DoDrawLayout", "DoDrawLayout line 0 IsTrimmed",
                    "DoDrawLayout Run:(5, 2) at:(0.00, 0.00, 20.00, 20.00) line(0.00, 0.00, 55.00, 20.00)",
                    "DoDrawLayout Run:(0, 5) at:(20.00, 0.00, 55.00, 20.00) line(0.00, 0.00, 55.00, 20.00)",
                    "DoDrawLayout End"}));
}

TEST_F(Logs, WrappedLines) {
  const auto layout = Laid(u"ab cd", 30, Wrapped);
  EXPECT_EQ(Rendered(*layout), (TTexts{"DoRenderLayout:Start", "DoRenderLayout: -- LineIndex: 0",
                                       "DoRenderLayout: ---- RunIndex: 0:0", "DoRenderLayout: ---- RunIndex: 0:0(0,5)",
                                       "DoRenderLayout: -- LineIndex: 1", "DoRenderLayout: ---- RunIndex: 1:0",
                                       "DoRenderLayout: ---- RunIndex: 1:0(3,2)", "DoRenderLayout:End"}));
  EXPECT_EQ(Drawn(*layout),
            (TTexts{"DoDrawLayout", "DoDrawLayout line 0 IsTrimmed",
                    "DoDrawLayout Run:(0, 2) at:(0.00, 0.00, 20.00, 20.00) line(0.00, 0.00, 20.00, 20.00)",
                    "DoDrawLayout line 1 IsTrimmed",
                    "DoDrawLayout Run:(3, 2) at:(0.00, 0.00, 20.00, 20.00) line(0.00, 20.00, 20.00, 20.00)",
                    "DoDrawLayout End"}));
}

// The rest behind a leading tab is a run that the loop meets next.
TEST_F(Logs, LeadingTab) {
  EXPECT_EQ(Rendered(*Laid(u"\tab", 200)),
            (TTexts{"DoRenderLayout:Start", "DoRenderLayout: -- LineIndex: 0", "DoRenderLayout: ---- RunIndex: 0:0",
                    "DoRenderLayout: ---- RunIndex: 0:0(0,3)", "DoRenderLayout: ---- RunIndex: 0:1",
                    "DoRenderLayout: ---- RunIndex: 0:1(1,2)", "DoRenderLayout:End"}));
}

TEST_F(Logs, EllipsisInFront) {
  const auto layout = Laid(u"abcdefgh", 55, [](auto& l) {
    l.SetTrimming(fmx::TTextTrimming::Character);
    l.SetHorizontalAlign(fmx::TTextAlign::Trailing);
  });
  EXPECT_EQ(Drawn(*layout),
            (TTexts{"DoDrawLayout", "DoDrawLayout line 0 IsTrimmed", "DoDrawLayout line 0 ellipsis",
                    "DoDrawLayout Run:(0, 3) at:(0.00, 0.00, 40.00, 20.00) line(15.00, 0.00, 40.00, 20.00)",
                    "DoDrawLayout End"}));
}

TEST_F(Logs, CanvasOfAnotherScaleRendersOnceAndTakesOtherGlyphs) {
  const auto layout = Laid(u"a", 200);
  const TTexts lines = Drawn(*layout, 2);
  EXPECT_EQ(lines, (TTexts{"DoDrawLayout", "DoRenderLayout:Start", "DoRenderLayout: -- LineIndex: 0",
                           "DoRenderLayout: ---- RunIndex: 0:0", "DoRenderLayout: ---- RunIndex: 0:0(0,1)",
                           "DoRenderLayout:End", "DoDrawLayout line 0 IsTrimmed",
                           "DoDrawLayout Run:(0, 1) at:(0.00, 0.00, 10.00, 20.00) line(0.00, 0.00, 10.00, 20.00)",
                           "DoDrawLayout End"}));
  EXPECT_EQ(Drawn(*layout, 2).size(), 4U);  // no render
  EXPECT_NE(&TGlyphAtlas::GetAtomDictionary(layout->Font(), 1), &TGlyphAtlas::GetAtomDictionary(layout->Font(), 2));
}

TEST_F(Logs, EmptyTextIsRenderedAndNotDrawn) {
  const auto layout = Laid(u"", 200);
  EXPECT_EQ(Rendered(*layout),
            (TTexts{"DoRenderLayout:Start", "DoRenderLayout: -- LineIndex: 0", "DoRenderLayout: ---- RunIndex: 0:0",
                    "DoRenderLayout: ---- RunIndex: 0:0(0,0)", "DoRenderLayout:End"}));
  EXPECT_EQ(Drawn(*layout), TTexts{});
}

// --- Runs of an engine ---

TEST_F(EngineLogs, WrappedRun) {
  const TEngineScope engine(TTenWide::Make);
  const auto layout = Laid(u"ab cde", 45, Wrapped);
  EXPECT_EQ(
      Rendered(*layout),
      (TTexts{"DoRenderLayout:Start", "DoRenderLayout: -- LineIndex: 0", "DoRenderLayout: ---- RunIndex: 0:0",
              "DoRenderLayout: ---- RunIndex: 0:0(0,6)", "DoRenderLayout: ---- >BreakingText(0:0(0,6))<",
              "DoRenderLayout: InternalTextLayout->TextBreakResult Run: 0.0(0, 6), offset: 4, width:40.00, char:d",
              "DoRenderLayout: InternalTextLayout->TextBreaked Run: 0.0(0, 6), offset: 4, width:40.00, char:d",
              "DoRenderLayout: InternalTextLayout->Text to break 'ab cde'",
              "DoRenderLayout: InternalTextLayout->SplitIndex: 0.0(2, 2)",
              "DoRenderLayout: InternalTextLayout->Text breaked 'ab'",
              "DoRenderLayout: ---- <BreakingText(0:1(0,2)-rect(0.00,0.00,20.00,20.00))>",
              "DoRenderLayout: -- LineIndex: 1", "DoRenderLayout: ---- RunIndex: 1:0",
              "DoRenderLayout: ---- RunIndex: 1:0(2,4)", "DoRenderLayout: ---- >BreakingText(1:0(2,4))<",
              "DoRenderLayout: InternalTextLayout->TextBreakResult Run: 1.0(2, 4), offset: 6, width:40.00, char:",
              "DoRenderLayout: ---- <BreakingText(1:0(2,4)-rect(0.00,0.00,40.00,20.00))>", "DoRenderLayout:End"}));
  EXPECT_EQ(Drawn(*layout),
            (TTexts{"DoDrawLayout", "DoDrawLayout line 0 IsTrimmed",
                    "DoDrawLayout Run:(0, 2) at:(0.00, 0.00, 20.00, 20.00) line(0.00, 0.00, 20.00, 20.00)",
                    "DoDrawLayout <InternalRenderer> ",
                    "DoDrawLayout >InternalRenderer< Pos:(20.00, 0.00) baseline: 16.00; Advance(20.00, 0))",
                    "DoDrawLayout >InternalRenderer< trimmed:0", "DoDrawLayout line 1 IsTrimmed",
                    "DoDrawLayout Run:(2, 4) at:(0.00, 0.00, 40.00, 20.00) line(0.00, 20.00, 40.00, 20.00)",
                    "DoDrawLayout <InternalRenderer> ",
                    "DoDrawLayout >InternalRenderer< Pos:(40.00, 20.00) baseline: 16.00; Advance(40.00, 0))",
                    "DoDrawLayout >InternalRenderer< trimmed:0", "DoDrawLayout End"}));
}

TEST_F(EngineLogs, TrimmedRun) {
  const TEngineScope engine(TTenWide::Make);
  const auto layout = Laid(u"abcdefgh", 55, [](auto& l) { l.SetTrimming(fmx::TTextTrimming::Character); });
  EXPECT_EQ(
      Rendered(*layout),
      (TTexts{"DoRenderLayout:Start", "DoRenderLayout: -- LineIndex: 0", "DoRenderLayout: ---- RunIndex: 0:0",
              "DoRenderLayout: ---- RunIndex: 0:0(0,8)", "DoRenderLayout: ---- >BreakingText(0:0(0,8))<",
              "DoRenderLayout: InternalTextLayout->TextBreakResult Run: 0.0(0, 8), offset: 5, width:50.00, char:f",
              "DoRenderLayout: InternalTextLayout->TextBreaked Run: 0.0(0, 8), offset: 5, width:50.00, char:f",
              "DoRenderLayout: InternalTextLayout->Text to break 'abcdefgh'",
              "DoRenderLayout: InternalTextLayout->Text breaked 'abcd'",
              "DoRenderLayout: ---- <BreakingText(0:0(0,4)-rect(0.00,0.00,50.00,20.00))>", "DoRenderLayout:End"}));
  EXPECT_EQ(Drawn(*layout).back(), "DoDrawLayout End");
  EXPECT_EQ(Drawn(*layout)[5], "DoDrawLayout >InternalRenderer< trimmed:1");
}

TEST_F(EngineLogs, ClippedOnTheLeft) {
  const TEngineScope engine(TUnbroken::Make);
  const auto layout = Laid(u"abcdefgh", 55, [](auto& l) { l.SetHorizontalAlign(fmx::TTextAlign::Trailing); });
  const TTexts lines = Rendered(*layout);
  ASSERT_EQ(lines.size(), 10U);
  EXPECT_EQ(lines[7],
            "DoRenderLayout: InternalTextLayout->GetOffsetForAdvance Run: 0.0(0, 8), X: 25.00, offserforAdvance:2, "
            "char:c");
  EXPECT_EQ(lines[8], "DoRenderLayout: InternalTextLayout->RightClipping RunPosition: (-25.00,0.00), ClipSize:60.00");
  EXPECT_EQ(lines[9], "DoRenderLayout:End");
}

TEST_F(EngineLogs, ClippedOnTheRight) {
  const TEngineScope engine(TUnbroken::Make);
  TUnbroken::Offset = 3;
  const auto layout = Laid(u"abcdefgh", 55);
  const TTexts lines = Rendered(*layout);
  ASSERT_EQ(lines.size(), 10U);
  EXPECT_EQ(lines[7],
            "DoRenderLayout: InternalTextLayout->GetOffsetForAdvance Run: 0.0(0, 8), X: -25.00(0.00), "
            "offserforAdvance:3, char:d");
  EXPECT_EQ(lines[8], "DoRenderLayout: InternalTextLayout->RightClipping RunPosition: (0.00,0.00), ClipSize:80.00");
}

TEST_F(EngineLogs, BoundsOfAPicture) {
  const TEngineScope engine(TInternalTextLayoutWin::Make);
  const auto layout = Laid(u"abcd", 500, [](auto& l) { l.SetTopLeft({7, 8}); });
  EXPECT_EQ(Drawn(*layout),
            (TTexts{"DoDrawLayout", "DoDrawLayout line 0 IsTrimmed",
                    "DoDrawLayout Run:(0, 4) at:(0.00, 0.00, 324.23, 12.00) line(0.00, 0.00, 324.23, 12.00)",
                    "DoDrawLayout <InternalRenderer> ", ">GetTextBounds< src(0.00, 0.00), dest(7.00, 8.00)",
                    "<GetTextBounds> SrcRect(0.00, 0.00, 0.00, 0.00)-DestRect(7.00, 8.00, 7.00, 8.00)",
                    "DoDrawLayout >InternalRenderer< Pos:(7.00, 8.00) baseline: 16.00; Advance(0.00, 0))",
                    "DoDrawLayout >InternalRenderer< trimmed:0", "DoDrawLayout End"}));
}

TEST_F(EngineLogs, BoundsOfAClippedPicture) {
  const TEngineScope engine(TTenWide::Make);
  const auto layout = Laid(u"ab", 50, [](auto& l) {
    l.SetScale(2);
    l.SetMaxSize({10, 10});
    l.SetTopLeft({5, 5});
  });
  TGPURun& run = layout->Frame().Line(0).Item(0);
  run.Clip();
  fmx::TRectF src, dest;
  EXPECT_EQ(Logged([&] {
              run.InternalRenderer()->GetTextBounds(40, 40, {0, 0}, src, dest);
            }),
            (TTexts{">GetTextBounds< src(40.00, 40.00), dest(0.00, 0.00)",
                    "<GetTextBounds> SrcRect(10.00, 10.00, 30.00, 30.00)-DestRect(5.00, 5.00, 15.00, 15.00)"}));
}

}  // namespace
}  // namespace orv
