#include "fmx/TextLayout.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <stdexcept>
#include <vector>

#include "fmx/CanvasManager.h"
#include "fmx/Exceptions.h"
#include "fmx/NullCanvas.h"
#include "fmx/RecordingCanvas.h"
#include "fmx/TextLayoutManager.h"
#include "runtime/VirtualClassGenerator.h"

namespace {

using fmx::TTextAlign;
using fmx::TTextLayout;

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

// Counts what it is told.
class TCountingLayout : public TTextLayout {
 public:
  static constexpr int SlotCount = TTextLayout::SlotCount;
  static orv::TClass Class() { return CompiledLayout<TCountingLayout, TTextLayout>("tests.Layout", "TCountingLayout"); }
  explicit TCountingLayout(fmx::TCanvas* canvas = nullptr, orv::TClass aClass = Class())
      : TTextLayout(canvas, aClass) {}

  void DoRenderLayout() {
    if (Fails) throw std::runtime_error("no glyphs");
    if (AsksItself) AskedWidth = TextWidth();
    ++Renders;
    if (TurnsRight) StoreRightToLeft(true);
  }
  void DoDrawLayout(fmx::TCanvas&) { ++Draws; }
  void DoColorChanaged() { ++Colors; }
  float GetTextHeight() { return 20; }
  float GetTextWidth() { return 10; }
  fmx::TRectF GetTextRect() { return {1, 2, 11, 22}; }
  std::int32_t DoPositionAtPoint(fmx::TPointF point) { return static_cast<std::int32_t>(point.X); }
  fmx::TRegion DoRegionForRange(fmx::TTextRange range) { return {{0, 0, static_cast<float>(range.Length), 1}}; }

  int Renders = 0;
  int Draws = 0;
  int Colors = 0;
  float AskedWidth = 0;
  bool TurnsRight = false;
  bool Fails = false;
  bool AsksItself = false;
};

TEST(TextLayout, RendersOnceForEachChangeOfWhatTheLinesDependOn) {
  TCountingLayout layout;
  EXPECT_EQ(layout.Renders, 0);
  fmx::TNullCanvas canvas({});
  int expected = 0;
  const auto changes = [&](auto change) {
    change();
    EXPECT_EQ(layout.Renders, ++expected);
    change();
    EXPECT_EQ(layout.Renders, expected) << "an equal value is no change";
  };
  changes([&] { layout.SetText(u"abc"); });
  changes([&] { layout.Font().SetSize(30); });
  changes([&] { layout.SetFont(fmx::TFont(u"Serif", 8)); });
  changes([&] { layout.SetWordWrap(true); });
  changes([&] { layout.SetTrimming(fmx::TTextTrimming::Word); });
  changes([&] { layout.SetHorizontalAlign(TTextAlign::Center); });
  changes([&] { layout.SetVerticalAlign(TTextAlign::Trailing); });
  changes([&] { layout.SetPadding({1, 2, 3, 4}); });
  changes([&] { layout.SetMaxSize({50, 60}); });
  changes([&] { layout.SetRightToLeft(true); });
  changes([&] { layout.SetCanvas(&canvas); });
}

TEST(TextLayout, PlaceOpacityAndColourRenderNothing) {
  TCountingLayout layout;
  layout.SetTopLeft({5, 6});
  layout.SetOpacity(0.5F);
  layout.SetColor(0xFF112233);
  layout.SetColor(0xFF112233);
  layout.StoreRightToLeft(true);
  EXPECT_EQ(layout.Renders, 0);
  EXPECT_EQ(layout.Colors, 1);
  EXPECT_EQ(layout.TopLeft(), (fmx::TPointF{5, 6}));
  EXPECT_EQ(layout.Opacity(), 0.5F);
  EXPECT_EQ(layout.Color(), 0xFF112233U);
  EXPECT_TRUE(layout.RightToLeft());
}

TEST(TextLayout, AnUpdateRendersOnceAtItsOuterEnd) {
  TCountingLayout layout;
  layout.EndUpdate();
  layout.BeginUpdate();
  layout.SetText(u"abc");
  layout.SetWordWrap(true);
  layout.BeginUpdate();
  layout.Font().SetSize(44);
  layout.EndUpdate();
  EXPECT_TRUE(layout.IsUpdating());
  EXPECT_EQ(layout.Renders, 0);
  layout.EndUpdate();
  EXPECT_EQ(layout.Renders, 1);
  layout.EndUpdate();
  EXPECT_EQ(layout.Renders, 1);
}

TEST(TextLayout, AnUpdateWithoutAChangeRendersNothing) {
  TCountingLayout layout;
  layout.SetText(u"abc");
  layout.BeginUpdate();
  layout.SetText(u"abc");
  layout.EndUpdate();
  EXPECT_EQ(layout.Renders, 1);
}

TEST(TextLayout, ARenderThatFailedIsMadeUpForByTheNextQueryOrDrawing) {
  fmx::TNullCanvas canvas({});
  fmx::TPathData path;
  const auto afterAFailure = [&](auto ask) {
    TCountingLayout layout;
    layout.Fails = true;
    EXPECT_THROW(layout.SetText(u"abc"), std::runtime_error);
    EXPECT_EQ(layout.Text(), u"abc");
    EXPECT_THROW(ask(layout), std::runtime_error) << "still failing";
    layout.Fails = false;
    layout.SetText(u"abc");  // no change
    EXPECT_EQ(layout.Renders, 0);
    ask(layout);
    EXPECT_EQ(layout.Renders, 1);
    ask(layout);
    EXPECT_EQ(layout.Renders, 1);
  };
  afterAFailure([](TCountingLayout& layout) { layout.TextWidth(); });
  afterAFailure([](TCountingLayout& layout) { layout.TextHeight(); });
  afterAFailure([](TCountingLayout& layout) { layout.TextRect(); });
  afterAFailure([](TCountingLayout& layout) { layout.PositionAtPoint({1, 1}); });
  afterAFailure([](TCountingLayout& layout) { layout.RegionForRange({0, 1}); });
  afterAFailure([&](TCountingLayout& layout) { layout.RenderLayout(canvas); });
}

TEST(TextLayout, AFailureAtTheEndOfAnUpdateIsMadeUpForToo) {
  TCountingLayout layout;
  layout.BeginUpdate();
  layout.SetText(u"abc");
  layout.Fails = true;
  EXPECT_THROW(layout.EndUpdate(), std::runtime_error);
  layout.Fails = false;
  EXPECT_FALSE(layout.IsUpdating());
  EXPECT_EQ(layout.TextWidth(), 10);
  EXPECT_EQ(layout.Renders, 1);
}

TEST(TextLayout, AQueryWithinAnUpdateRendersNothing) {
  TCountingLayout layout;
  layout.BeginUpdate();
  layout.SetText(u"abc");
  layout.TextWidth();
  EXPECT_EQ(layout.Renders, 0);
  layout.EndUpdate();
  EXPECT_EQ(layout.Renders, 1);
}

TEST(TextLayout, ARenderMayAskTheLayoutItself) {
  TCountingLayout layout;
  layout.AsksItself = true;
  layout.SetText(u"abc");
  EXPECT_EQ(layout.AskedWidth, 10);
  EXPECT_EQ(layout.Renders, 1);
}

TEST(TextLayout, ASizeThatIsTheSameButForRoundingIsNoChange) {
  TCountingLayout layout;
  layout.SetMaxSize({50, 60});
  layout.SetMaxSize({50.00005F, 59.99995F});
  EXPECT_EQ(layout.Renders, 1);
  EXPECT_EQ(layout.MaxSize(), (fmx::TPointF{50, 60}));
  layout.SetMaxSize({50.001F, 60});
  EXPECT_EQ(layout.Renders, 2);
  layout.SetMaxSize({50.001F, 60.001F});
  EXPECT_EQ(layout.Renders, 3);
}

TEST(TextLayout, ARenderMayTurnTheDirectionWithoutRenderingAgain) {
  TCountingLayout layout;
  layout.TurnsRight = true;
  layout.SetText(u"سلام");
  EXPECT_TRUE(layout.RightToLeft());
  EXPECT_EQ(layout.Renders, 1);
}

TEST(TextLayout, HasTheDefaultsOfAnEmptyLeftAlignedUnlimitedText) {
  const TCountingLayout layout;
  EXPECT_EQ(layout.Text(), u"");
  EXPECT_EQ(layout.Font(), fmx::TFont());
  EXPECT_EQ(layout.Color(), fmx::TAlphaColors::Black);
  EXPECT_FALSE(layout.WordWrap());
  EXPECT_FALSE(layout.RightToLeft());
  EXPECT_EQ(layout.HorizontalAlign(), TTextAlign::Leading);
  EXPECT_EQ(layout.VerticalAlign(), TTextAlign::Leading);
  EXPECT_EQ(layout.Trimming(), fmx::TTextTrimming::None);
  EXPECT_EQ(layout.MaxSize(), TTextLayout::MaxLayoutSize);
  EXPECT_EQ(layout.Opacity(), 1);
}

TEST(TextLayout, ValuesThatCannotBeAreHeldOrNotTaken) {
  TCountingLayout layout;
  layout.SetMaxSize({-5, 1e30F});
  EXPECT_EQ(layout.MaxSize(), (fmx::TPointF{0, fmx::MaxLayoutSide}));
  layout.SetMaxSize({NaN, 5});
  EXPECT_EQ(layout.MaxSize(), (fmx::TPointF{0, fmx::MaxLayoutSide}));
  layout.SetOpacity(7);
  EXPECT_EQ(layout.Opacity(), 1);
  layout.SetOpacity(NaN);
  EXPECT_EQ(layout.Opacity(), 1);
  layout.SetTopLeft({NaN, 1});
  EXPECT_EQ(layout.TopLeft(), fmx::TPointF{});
  layout.SetPadding({1, 2, NaN, 4});
  EXPECT_EQ(layout.Padding(), fmx::TBounds{});
  EXPECT_EQ(layout.PositionAtPoint({NaN, 0}), -1);
}

TEST(TextLayout, QueriesReachTheLayout) {
  TCountingLayout layout;
  EXPECT_EQ(layout.TextWidth(), 10);
  EXPECT_EQ(layout.TextHeight(), 20);
  EXPECT_EQ(layout.TextRect(), (fmx::TRectF{1, 2, 11, 22}));
  EXPECT_EQ(layout.PositionAtPoint({7, 0}), 7);
  EXPECT_EQ(layout.RegionForRange({0, 3}).front().Right, 3);
  fmx::TPathData path;
  EXPECT_THROW(layout.ConvertToPath(path), fmx::ENotImplemented);
  fmx::TNullCanvas canvas({});
  layout.RenderLayout(canvas);
  EXPECT_EQ(layout.Draws, 1);
}

class TMarkedRange : public fmx::TTextAttributedRange {
 public:
  using TTextAttributedRange::TTextAttributedRange;
  std::string_view ClassName() const override { return "TMarkedRange"; }
};

TEST(TextLayout, KeepsItsAttributesInOrder) {
  TCountingLayout layout;
  const auto font = std::make_shared<fmx::TFont>(u"Serif", 20);
  layout.BeginUpdate();
  layout.AddAttribute({1, 2}, {font, 0xFFFF0000});
  layout.AddAttribute(std::make_unique<TMarkedRange>(fmx::TTextRange{3, 4}, fmx::TTextAttribute{}));
  layout.AddAttribute(nullptr);
  layout.EndUpdate();
  EXPECT_EQ(layout.Renders, 1);
  ASSERT_EQ(layout.AttributesCount(), 2U);
  EXPECT_EQ(layout.Attribute(0).Range(), (fmx::TTextRange{1, 2}));
  EXPECT_EQ(layout.Attribute(0).Attribute().Font, font);
  EXPECT_EQ(layout.Attribute(0).Attribute().Color, 0xFFFF0000U);
  EXPECT_EQ(layout.Attribute(0).ClassName(), "TTextAttributedRange");
  EXPECT_EQ(layout.Attribute(1).ClassName(), "TMarkedRange");
  EXPECT_THROW((void)layout.Attribute(2), std::out_of_range);
  layout.ClearAttributes();
  layout.ClearAttributes();
  EXPECT_EQ(layout.Renders, 2);
  EXPECT_EQ(layout.AttributesCount(), 0U);
}

TEST(TextLayout, TheSlotsStandInTheirOrder) {
  using TSlots = TTextLayout::TSlots;
  const int numbers[] = {
      TSlots::DoRenderLayout::Number,    TSlots::DoDrawLayout::Number,     TSlots::DoColorChanaged::Number,
      TSlots::GetTextHeight::Number,     TSlots::GetTextWidth::Number,     TSlots::GetTextRect::Number,
      TSlots::DoPositionAtPoint::Number, TSlots::DoRegionForRange::Number, TSlots::Create::Number,
      TSlots::ConvertToPath::Number};
  for (int i = 0; i < 10; ++i) EXPECT_EQ(numbers[i], i);
  EXPECT_EQ(orv::ClassName(TTextLayout::Class()), "TTextLayout");
  EXPECT_THROW(TTextLayout::New(TTextLayout::Class()), orv::EAbstractError);
  EXPECT_EQ(TTextLayout::New(TCountingLayout::Class())->ClassName(), "TCountingLayout");
}

// A layout class made at run time, whose render calls the one that stood in the slot.
int wrapped = 0;
orv::TMethodAddress keptRender = nullptr;
using TRender = TTextLayout::TSlots::DoRenderLayout;

void CountAndRender(TTextLayout& layout) {
  ++wrapped;
  layout.StoreRightToLeft(!layout.Text().empty());
  orv::MethodAs<TRender>(keptRender)(layout);
}

orv::TClass WrappedClass() {
  static const orv::TClass made = [] {
    const orv::TClass parent = TCountingLayout::Class();
    keptRender = orv::TVmt::GetVMT(parent)->GetMethod(TRender::Number);
    const std::vector<orv::TVirtualClassGenerator::TOverrideMethodInfo> overrides{
        {TRender::Number, orv::AddressOf<TRender>(&CountAndRender)}};
    return orv::TVirtualClassGenerator::CreateNewClass(parent, u"tests.Layout", u"TCountingLayoutOrv", overrides);
  }();
  return made;
}

TEST(TextLayout, AClassMadeAtRunTimeWrapsTheRenderOfItsObjects) {
  const auto layout = TTextLayout::New(WrappedClass());
  EXPECT_EQ(layout->ClassName(), "TCountingLayoutOrv");
  layout->SetText(u"a");
  EXPECT_EQ(wrapped, 1);
  EXPECT_TRUE(layout->RightToLeft());
  EXPECT_EQ(static_cast<TCountingLayout&>(*layout).Renders, 1);
  TCountingLayout plain;
  plain.SetText(u"a");
  EXPECT_EQ(wrapped, 1);
}

class TextLayoutManager : public testing::Test {
 protected:
  ~TextLayoutManager() override {
    fmx::TTextLayoutManager::UnInitialize();
    fmx::TCanvasManager::UnInitialize();
  }
};

TEST_F(TextLayoutManager, FindsTheLayoutOfTheNearestAncestor) {
  using fmx::TTextLayoutManager;
  EXPECT_EQ(TTextLayoutManager::TextLayoutByCanvas(fmx::TNullCanvas::Class()), nullptr);
  EXPECT_EQ(TTextLayoutManager::TextLayoutByCanvas(nullptr), nullptr);
  TTextLayoutManager::RegisterTextLayout(TCountingLayout::Class(), fmx::TCustomCanvasGpu::Class());
  EXPECT_EQ(TTextLayoutManager::TextLayoutByCanvas(fmx::TNullCanvas::Class()), TCountingLayout::Class());
  TTextLayoutManager::RegisterTextLayout(WrappedClass(), fmx::TNullCanvas::Class());
  EXPECT_EQ(TTextLayoutManager::TextLayoutByCanvas(fmx::TNullCanvas::Class()), WrappedClass());
  EXPECT_EQ(TTextLayoutManager::TextLayoutByCanvas(fmx::TRecordingCanvas::Class()), TCountingLayout::Class());
  TTextLayoutManager::RegisterTextLayout(TCountingLayout::Class(), fmx::TNullCanvas::Class());
  EXPECT_EQ(TTextLayoutManager::TextLayoutByCanvas(fmx::TNullCanvas::Class()), WrappedClass())
      << "the first stays in force";
  TTextLayoutManager::UnInitialize();
  EXPECT_EQ(TTextLayoutManager::TextLayoutByCanvas(fmx::TNullCanvas::Class()), nullptr);
}

TEST_F(TextLayoutManager, MakesLayoutsForACanvasOrTheDefaultOne) {
  using fmx::TTextLayoutManager;
  EXPECT_EQ(TTextLayoutManager::GetDefaultLayout(), nullptr);
  EXPECT_THROW(TTextLayoutManager::CreateLayout(), fmx::ENotRegistered);
  fmx::TCanvasManager::RegisterCanvas(fmx::TNullCanvas::Class(), true, false);
  TTextLayoutManager::RegisterTextLayout(TCountingLayout::Class(), fmx::TNullCanvas::Class());
  EXPECT_EQ(TTextLayoutManager::GetDefaultLayout(), TCountingLayout::Class());
  EXPECT_EQ(TTextLayoutManager::CreateLayout()->Canvas(), nullptr);
  fmx::TNullCanvas canvas({});
  const auto layout = TTextLayoutManager::CreateLayout(&canvas);
  EXPECT_EQ(layout->Canvas(), &canvas);
  EXPECT_EQ(layout->ClassType(), TCountingLayout::Class());
}

}  // namespace
