// The vocabulary of layouts and the accessors of their extra state.
#include <limits>

#include "fmx/PlatformServices.h"
#include "fmx/RecordingCanvas.h"
#include "fmx/Services.h"
#include "rtl/Unicode.h"
#include "runtime/VirtualClassGenerator.h"
#include "tests/textlayout/support/Layouts.h"
#include "textlayout/Orv.TextLayout.h"

namespace orv {
namespace {

using namespace testing;

class LayoutAttributes : public TFixedTest {};

TDirectionContext Context(std::u16string_view text) {
  return TOrvTextLayoutHelper::GetDirectionContext(text);
}

TEST_F(LayoutAttributes, TextWithoutALetterReadsFromLeftToRight) {
  for (const char16_t* text : {u"", u"123", u"...", u"   ", u"\u0661", u"\u06F1", u"\U0001F600"})
    EXPECT_EQ(Context(text), TDirectionContext::LeftToRight);
}

TEST_F(LayoutAttributes, FirstLetterDecides) {
  EXPECT_EQ(Context(u"12 \u0627"), TDirectionContext::RightToLeft);
  EXPECT_EQ(Context(u"ab \u0627"), TDirectionContext::LeftToRight);
  EXPECT_EQ(Context(u"\u05D0 ab"), TDirectionContext::RightToLeft);
}

TEST_F(LayoutAttributes, MarksOfDirectionDecide) {
  EXPECT_EQ(Context(u"\u200F"), TDirectionContext::RightToLeft);
  EXPECT_EQ(Context(u"\u200E"), TDirectionContext::LeftToRight);
  EXPECT_EQ(Context(u"\u200E\u0627"), TDirectionContext::LeftToRight);
}

// Every unit by itself, against the ranges written out once more.
TEST_F(LayoutAttributes, EveryUnitByItself) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const bool rightToLeft = unit == 0x200F || unit == 0x2E2E || (unit >= 0x2035 && unit <= 0x2037) ||
                             (unit >= 0x0591 && unit <= 0x065F) || (unit >= 0x066E && unit <= 0x06EF) ||
                             (unit >= 0x06FA && unit <= 0x06FF);
    const char16_t text[] = {static_cast<char16_t>(unit)};
    ASSERT_EQ(Context({text, 1}) == TDirectionContext::RightToLeft, rightToLeft) << unit;
  }
}

// Which units keep what follows from deciding: letters that are no right-to-left ones, and U+200E.
TEST_F(LayoutAttributes, EveryUnitBeforeAnArabicLetter) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const char16_t text[] = {static_cast<char16_t>(unit), u'\u0627'};
    const bool alone = Context({text, 1}) == TDirectionContext::RightToLeft;
    const bool decides = !alone && (unit == 0x200E || rtl::IsLetter(static_cast<char16_t>(unit)));
    ASSERT_EQ(Context({text, 2}) == TDirectionContext::LeftToRight, decides) << unit;
  }
  EXPECT_EQ(Context(u"\U00010400\u0627"), TDirectionContext::RightToLeft);  // a letter, but of two units
}

// An active form of that direction, while it lives.
class TFormScope {
 public:
  explicit TFormScope(fmx::TBiDiMode mode) {
    struct TScreen : fmx::IScreenService {
      explicit TScreen(fmx::TBiDiMode formMode) : Mode(formMode) {}
      float GetScreenScale() override { return 1; }
      fmx::TBiDiMode GetActiveFormBiDiMode() override { return Mode; }
      fmx::TBiDiMode Mode;
    };
    auto services = std::make_unique<fmx::TPlatformServices>();
    services->AddPlatformService(fmx::IScreenService::Guid, std::make_shared<TScreen>(mode));
    fmx::TPlatformServices::SetCurrent(std::move(services));
  }
  ~TFormScope() { fmx::TPlatformServices::SetCurrent(nullptr); }
};

TEST_F(LayoutAttributes, ManualDirectionStays) {
  const auto layout = Laid(u"abc", 200, [](auto& l) {
    l.SetBidiSelectionType(TBidiSelectionType::btManual);
    l.SetRightToLeft(true);
  });
  TOrvTextLayoutHelper(*layout).UpdateRightToLeft(TBidiSelectionType::btManual);
  EXPECT_TRUE(layout->RightToLeft());
  TOrvTextLayoutHelper(*layout).UpdateRightToLeft(TBidiSelectionType::btForm);
  EXPECT_FALSE(layout->RightToLeft());
}

TEST_F(LayoutAttributes, TextOfDigitsTakesTheFormsDirection) {
  const auto layout = Laid(u"123", 200);
  for (const auto type : {TBidiSelectionType::btForm, TBidiSelectionType::btContext}) {
    layout->StoreRightToLeft(true);
    TOrvTextLayoutHelper(*layout).UpdateRightToLeft(type);
    EXPECT_FALSE(layout->RightToLeft());
    const TFormScope form(fmx::TBiDiMode::RightToLeft);
    TOrvTextLayoutHelper(*layout).UpdateRightToLeft(type);
    EXPECT_TRUE(layout->RightToLeft());
  }
}

TEST_F(LayoutAttributes, AccessorsReachTheSystemsLayout) {
  TTextLayoutNGOrv own;
  const TOrvTextLayoutHelper helper(own);
  EXPECT_EQ(helper.GetManualBidi(), TBidiSelectionType::btContext);
  helper.SetManualBidi(TBidiSelectionType::btManual);
  helper.SetTabSize(33);
  EXPECT_EQ(own.BidiSelectionType(), TBidiSelectionType::btManual);
  EXPECT_EQ(helper.GetTabSize(), 33);
}

TEST_F(LayoutAttributes, StoredValuesWaitForARender) {
  const auto layout = Laid(u"a\tb", 200);
  const TOrvTextLayoutHelper helper(*layout);
  helper.SetTabSize(60);
  helper.SetManualBidi(TBidiSelectionType::btManual);
  EXPECT_EQ(layout->TextWidth(), 50);
  layout->SetText(u"a\t\u0627");
  EXPECT_EQ(layout->TextWidth(), 70);
  EXPECT_FALSE(layout->RightToLeft());
}

TEST_F(LayoutAttributes, NewLayoutTakesTheScaleOfTheScreen) {
  struct TScreen : fmx::IScreenService {
    float GetScreenScale() override { return 1.5F; }
  };
  EXPECT_EQ(TTextLayoutNGOrv().Scale(), 1);
  auto services = std::make_unique<fmx::TPlatformServices>();
  services->AddPlatformService(fmx::IScreenService::Guid, std::make_shared<TScreen>());
  fmx::TPlatformServices::SetCurrent(std::move(services));
  const TTextLayoutNGOrv layout;
  fmx::TPlatformServices::SetCurrent(nullptr);
  EXPECT_EQ(layout.Scale(), 1.5F);
  EXPECT_FLOAT_EQ(layout.ScaleFactor(), 1 / 1.5F);
  EXPECT_EQ(layout.EllipsisChar(), 0x2026U);
  EXPECT_EQ(layout.BidiSelectionType(), TBidiSelectionType::btContext);
  EXPECT_EQ(layout.TabSize(), 0);
  EXPECT_FALSE(layout.MeasuringText());
}

TEST_F(LayoutAttributes, CanvasOfTheLayoutGivesItsScale) {
  fmx::TRecordingCanvas canvas(100, 100, 2);
  const auto layout = Laid(u"a", 200, [&](auto& l) { l.SetCanvas(&canvas); });
  EXPECT_EQ(layout->Scale(), 2);
  EXPECT_EQ(layout->TextWidth(), 10);
  layout->SetCanvas(nullptr);
}

TEST_F(LayoutAttributes, SystemsLayoutHasNoResizeModeAndNoDefaultSize) {
  TTextLayoutNGOrv own;
  const TOrvTextLayoutHelper helper(own);
  EXPECT_THROW(helper.GetResizeMode(), rtl::Exception);
  EXPECT_THROW(helper.SetResizeMode(TTextResizeMode::bmScale), rtl::Exception);
  EXPECT_THROW(helper.GetDefaultSize(), rtl::Exception);
  EXPECT_THROW(helper.SetDefaultSize({1, 2}), rtl::Exception);
}

template <typename TCall>
std::string MessageOf(TCall call) {
  try {
    call();
  } catch (const rtl::Exception& error) {
    return error.what();
  }
  return {};
}

TEST_F(LayoutAttributes, OtherLayoutsAreLeftAlone) {
  fmx::TGPUTextLayout other;
  const TOrvTextLayoutHelper helper(other);
  helper.SetTabSize(5);
  helper.SetManualBidi(TBidiSelectionType::btManual);
  helper.SetResizeMode(TTextResizeMode::bmIncreaseWidth);
  helper.SetDefaultSize({3, 4});
  EXPECT_EQ(MessageOf([&] { helper.GetTabSize(); }), "TabSize for TGPUTextLayout layout is not defined");
  EXPECT_EQ(MessageOf([&] { helper.GetManualBidi(); }), "BidiSelectionType for TGPUTextLayout layout is not defined");
  EXPECT_EQ(MessageOf([&] { helper.GetResizeMode(); }), "ResizeMode for TGPUTextLayout layout is not defined");
  EXPECT_EQ(helper.GetDefaultSize(), fmx::TSizeF{});
}

TEST_F(LayoutAttributes, GeneratedLayoutCarriesFieldsOfItsOwn) {
  const TClass parent = fmx::TGPUTextLayout::Class();
  const TClass patched = TVirtualClassGenerator::CreateNewClass(
      parent, u"Orv.Patched", u"TTextLayoutD2DOrv", {}, {}, {},
      static_cast<std::int32_t>(GrownInstanceSize<TPatchedLayoutFields>(parent)));
  const auto layout = fmx::TTextLayout::New(patched);
  const TOrvTextLayoutHelper helper(*layout);
  EXPECT_EQ(helper.GetTabSize(), 0);
  helper.SetTabSize(12);
  helper.SetManualBidi(TBidiSelectionType::btForm);
  helper.SetResizeMode(TTextResizeMode::bmIncreaseHeight);
  helper.SetDefaultSize({3, 4});
  EXPECT_EQ(helper.GetTabSize(), 12);
  EXPECT_EQ(helper.GetManualBidi(), TBidiSelectionType::btForm);
  EXPECT_EQ(helper.GetResizeMode(), TTextResizeMode::bmIncreaseHeight);
  EXPECT_EQ(helper.GetDefaultSize(), (fmx::TSizeF{3, 4}));
  EXPECT_THROW(helper.SetTabSize(std::numeric_limits<float>::infinity()), ENotFinite);
}

// A class of that name without the fields is as good as any other.
TEST_F(LayoutAttributes, NameAloneGivesNoFields) {
  const TClass parent = fmx::TGPUTextLayout::Class();
  const TClass bare = TVirtualClassGenerator::CreateNewClass(parent, u"Orv.Bare", u"TTextLayoutD2DOrv", {}, {}, {},
                                                             static_cast<std::int32_t>(InstanceSize(parent)));
  const auto layout = fmx::TTextLayout::New(bare);
  EXPECT_THROW(TOrvTextLayoutHelper(*layout).GetTabSize(), rtl::Exception);
}

TEST_F(LayoutAttributes, NumbersThatAreNotFiniteAreRefused) {
  TTextLayoutNGOrv layout;
  for (const float wrong : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
    EXPECT_THROW(layout.SetScale(wrong), ENotFinite);
    EXPECT_THROW(layout.SetTabSize(wrong), ENotFinite);
  }
  EXPECT_EQ(layout.Scale(), 1);
  layout.SetScale(0);
  EXPECT_EQ(layout.Scale(), 1);
}

TEST_F(LayoutAttributes, DecorationColourTravelsWithTheRange) {
  const TOrvTextAttributedRange range({1, 2}, {nullptr, 5}, 0xFF123456);
  EXPECT_EQ(range.DecorationColor, 0xFF123456);
  EXPECT_EQ(range.ClassName(), "TOrvTextAttributedRange");
}

}  // namespace
}  // namespace orv
