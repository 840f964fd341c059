// The text service under the system.
#include "editing/Orv.Platform.h"

#include <gtest/gtest.h>

#include "editing/Orv.Text.h"
#include "fmx/RecordingCanvas.h"
#include "fmx/Services.h"
#include "rtl/Assertions.h"
#include "tests/editing/LayoutScope.h"

namespace orv::testing {
namespace {

class TTelling : public fmx::TTextService {
 public:
  static constexpr int SlotCount = fmx::TTextService::SlotCount;
  static TClass Class() {
    return CompiledClass<TTelling, fmx::TTextService, FillNew<TSlots::Create, TTelling>,
                         Fill<TSlots::DrawSingleLineText, &TTelling::Tell>>("Test", "TTelling");
  }
  explicit TTelling(bool multiLine, TClass aClass = Class()) : TTextService(multiLine, aClass) {}
  void Tell(fmx::TCanvas&, std::u16string_view text, const fmx::TSingleLineDrawing&) { Told = text; }
  static inline std::u16string Told;
};

class PlatformPieces : public ::testing::Test {
 private:
  TLayoutScope FScope;
};

TEST_F(PlatformPieces, AScrolledLineLosesTheFarEndOfATextAgainstItsView) {
  const auto service = fmx::TTextService::New(GenerateTextServiceClass(TTelling::Class()), false);
  EXPECT_EQ(service->ClassName(), "TTellingOrv");
  EXPECT_TRUE(service->InheritsFrom(TTelling::Class()));
  service->SetText(u"سلام");
  fmx::TRecordingCanvas canvas(10, 10);
  fmx::TSingleLineDrawing drawing;
  drawing.FirstVisibleChar = 2;
  service->DrawSingleLine(canvas, drawing);
  const std::u16string againstView = TTelling::Told;
  drawing.Flags.Include(fmx::TFillTextFlag::RightToLeft);
  service->DrawSingleLine(canvas, drawing);
  EXPECT_EQ(TTelling::Told, u"لام");
  EXPECT_EQ(againstView, u"لام") << "a text of one direction is cut plainly";
  service->SetText(u"ab سلام");
  drawing.Flags = {};
  drawing.FirstVisibleChar = 5;
  service->DrawSingleLine(canvas, drawing);
  EXPECT_EQ(TTelling::Told, u" سل") << "the end of the run scrolled away, to which the blank belongs";
}

TEST_F(PlatformPieces, TheReplacementIsAMethodOfTheTwentyFirstSlot) {
  TMethodAddress method = nullptr;
  const TClass fake = GetPlatformFakeTextServiceClass(method);
  EXPECT_EQ(ClassName(fake), "TTextServiceOrvFake");
  EXPECT_EQ(TVmt::GetVMT(fake)->GetMethodIndex(method), 20);
  EXPECT_EQ(fmx::TTextService::TSlots::DrawSingleLine::Number, 20);
}

TEST_F(PlatformPieces, AllElseOfTheHostsServiceStaysTheHosts) {
  const TClass host = TTelling::Class();
  const TClass made = GenerateTextServiceClass(host);
  ASSERT_EQ(TVmt::GetUserMethodCount(made), TVmt::GetUserMethodCount(host));
  for (std::int32_t i = 0; i < TVmt::GetUserMethodCount(host); ++i)
    EXPECT_EQ(made[i].Method == host[i].Method, i != 20) << i;
}

TEST_F(PlatformPieces, EachStateOfACompositionHasALineOfItsOwn) {
  using enum fmx::TCompositionAttribute;
  const auto service = fmx::TTextService::New(fmx::TTextService::Class(), false);
  service->SetText(u"ab");
  service->SetCaretPosition({1, 0});
  service->SetMarkedTextPosition({1, 0});
  service->SetMarkedText(u"VWXYZ", 5, {Input, TargetConverted, Converted, TargetNotConverted, InputError});
  TTextLayoutNGOrv layout;
  layout.SetText(service->CombinedText());
  layout.SetOpacity(0.5F);
  fmx::TRecordingCanvas canvas(200, 50);
  canvas.BeginScene();
  canvas.Fill().SetColor(0xFF123456);
  const auto lines = [&] {
    canvas.Forget();
    TTextServiceHelper::DrawSingleLine(*service, layout, canvas, {0, 0, 45, 30});
    return canvas.CallsOf(fmx::TRecordedCall::TKind::DrawLine);
  };
  const auto drawn = lines();
  ASSERT_EQ(drawn.size(), 5U);
  constexpr std::pair<float, fmx::TStrokeDash> pens[] = {{1, fmx::TStrokeDash::Dash},
                                                         {2, fmx::TStrokeDash::Solid},
                                                         {1, fmx::TStrokeDash::Solid},
                                                         {4, fmx::TStrokeDash::Solid},
                                                         {1, fmx::TStrokeDash::Dot}};
  for (std::size_t i = 0; i < 5; ++i) {
    const auto& [thickness, dash] = pens[i];
    EXPECT_EQ(drawn[i].Thickness, thickness) << i;
    EXPECT_EQ(drawn[i].Dash, dash) << i;
    EXPECT_EQ(drawn[i].Color, 0xFF123456);
    EXPECT_EQ(drawn[i].Opacity, 0.5F);
    const float left = 10 + 10 * static_cast<float>(i) - thickness / 2;
    EXPECT_EQ(drawn[i].Rect, (fmx::TRectF{left, 20 - thickness / 2, left + 10, 20 - thickness / 2})) << i;
  }
  service->SetCaretPosition({99, 0});
  EXPECT_EQ(lines()[0].Rect.Left, 20 - 0.5F) << "no further than the end of the text lets it";
  service->SetMarkedText(u"VWXYZ", 5);
  EXPECT_TRUE(lines().empty()) << "nothing is known of how it is composed";
  service->SetMarkedText(u"VW", 2, {Converted});
  EXPECT_EQ(lines().size(), 2U);
  service->SetMarkedText(u"V", 1, {Converted, Input, Input});
  EXPECT_EQ(lines().size(), 1U);
  service->SetMarkedText(u"", 0, {Converted});
  EXPECT_TRUE(lines().empty());
  canvas.EndScene();
}

TEST_F(PlatformPieces, OnlyATextServiceCanBeSwapped) {
  EXPECT_THROW(GenerateTextServiceClass(fmx::TRecordingCanvas::Class()), rtl::EAssertionFailed);
  EXPECT_THROW(GenerateTextServiceClass(nullptr), rtl::EAssertionFailed);
}

TEST_F(PlatformPieces, WithoutPlatformServicesNothingIsSwapped) {
  ASSERT_EQ(fmx::TPlatformServices::Current(), nullptr);
  SwapTextService();
  EXPECT_EQ(fmx::TTextService::NewDefault(false)->ClassType(), fmx::TTextService::Class());
}

}  // namespace
}  // namespace orv::testing
