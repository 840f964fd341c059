#include "fmx/TextService.h"

#include <gtest/gtest.h>

#include "fmx/RecordingCanvas.h"

namespace {

using fmx::TTextService;

TEST(TextService, MarkedTextStandsAtItsPlace) {
  TTextService service(false);
  service.SetText(u"abcd");
  service.SetCaretPosition({2, 0});
  service.SetMarkedTextPosition({2, 0});
  EXPECT_EQ(service.CombinedText(), u"abcd");
  EXPECT_EQ(service.TargetClausePosition().X, 2);
  service.SetMarkedText(u"XYZ", 1);
  EXPECT_TRUE(service.HasMarkedText());
  EXPECT_EQ(service.Text(), u"abcd");
  EXPECT_EQ(service.CombinedText(), u"abXYZcd");
  EXPECT_EQ(service.TargetClausePosition().X, 3);
  service.SetMarkedText(u"", 0);
  EXPECT_EQ(service.CombinedText(), u"abcd");
}

TEST(TextService, PlacesOutsideOfTheTextAreHeldInIt) {
  TTextService service(false);
  service.SetText(u"ab");
  service.SetMarkedText(u"X", 99);
  service.SetMarkedTextPosition({99, 0});
  EXPECT_EQ(service.CombinedText(), u"abX");
  EXPECT_EQ(service.TargetClausePosition().X, 1);
  service.SetMarkedTextPosition({-5, 0});
  EXPECT_EQ(service.CombinedText(), u"Xab");
}

// A service with another drawing of given texts.
class TTelling : public TTextService {
 public:
  static constexpr int SlotCount = TTextService::SlotCount;
  static orv::TClass Class() {
    return orv::CompiledClass<TTelling, TTextService, orv::FillNew<TSlots::Create, TTelling>,
                              orv::Fill<TSlots::DrawSingleLineText, &TTelling::Tell>>("Test", "TTelling");
  }
  explicit TTelling(bool multiLine, orv::TClass aClass = Class()) : TTextService(multiLine, aClass) {}
  void Tell(fmx::TCanvas&, std::u16string_view text, const fmx::TSingleLineDrawing&) { Told = text; }
  static inline std::u16string Told;
};

TEST(TextService, ALineIsDrawnWithoutWhatIsBeforeTheFirstVisibleCharacter) {
  const auto service = TTextService::New(TTelling::Class(), false);
  service->SetText(u"abcd");
  fmx::TRecordingCanvas canvas(10, 10);
  const auto drawn = [&](std::int32_t first) {
    fmx::TSingleLineDrawing drawing;
    drawing.FirstVisibleChar = first;
    service->DrawSingleLine(canvas, drawing);
    return TTelling::Told;
  };
  EXPECT_EQ(drawn(1), u"abcd");
  EXPECT_EQ(drawn(3), u"cd");
  EXPECT_EQ(drawn(9), u"");
  EXPECT_EQ(drawn(-1), u"abcd");
}

}  // namespace
