// Random keys, presses, pastes, sizes and compositions.
#include <cstdint>
#include <random>

#include "tests/editing/EditFixture.h"

namespace orv::testing {
namespace {

class EditMonkey : public EditTest {};

TEST_F(EditMonkey, LeavesACaretInsideOfTheText) {
  std::mt19937 random(20240320);
  const auto below = [&](std::uint32_t n) { return random() % n; };
  constexpr std::u16string_view alphabet = u"ab سلاא1٢۳ ?.(,\u064E\u200C\xD83D\xDE00";
  constexpr fmx::Keys::TCode keys[] = {35, 36, 37, 39, 8, 46, 45, 65, 67, 86, 88, 13};
  const auto text = [&] {
    std::u16string made;
    for (auto left = below(5); left > 0; --left) made.push_back(alphabet[below(alphabet.size())]);
    return made;
  };
  Edit().SetAutoDirection(true);
  for (int step = 0; step < 20000; ++step) {
    const auto shift = fmx::TShiftState::FromBits(static_cast<std::uint8_t>(below(16)));
    const fmx::TMouseEvent event{
        fmx::TMouseButton::Left, shift, {static_cast<float>(below(250)) - 20, 10}, below(5) == 0};
    switch (below(12)) {
      case 0:
      case 1:
      case 2:
        Key(keys[below(std::size(keys))], shift);
        break;
      case 3:
        Type(text());
        break;
      case 4:
        FBox.Edit().MouseDown(event);
        break;
      case 5:
        FBox.Edit().MouseMove(event);
        break;
      case 6:
        FBox.Edit().MouseUp(event);
        break;
      case 7:
        FBox.Edit().SetSize({static_cast<float>(below(150)), static_cast<float>(below(60))});
        break;
      case 8:
        FBox.Paint();
        break;
      case 9:
        Edit().GetTextService()->SetMarkedText(text(), static_cast<std::int32_t>(below(4)));
        Edit().IMEStateUpdated();
        break;
      case 10:
        Edit().GetTextService()->SetMarkedText(u"", 0);
        Edit().IMEStateUpdated();
        break;
      default:
        Model().SetText(text());
        Model().TextSettings().SetHorzAlign(static_cast<fmx::TTextAlign>(below(3)));
        break;
    }
    const auto length = static_cast<std::int32_t>(Edit().GetText().size());
    ASSERT_GE(Edit().GetOriginCaretPosition(), 0) << step;
    ASSERT_LE(Edit().GetOriginCaretPosition(), length) << step;
    // The application may set a text under a composition.
    if (!Edit().GetTextService()->HasMarkedText()) {
      ASSERT_EQ(Model().Text(), Edit().GetText()) << step;
    }
    ASSERT_GE(Edit().View().FirstVisibleChar(), 1) << step;
    ASSERT_TRUE(Edit().GetSelRect().IsFinite()) << step;
  }
}

}  // namespace
}  // namespace orv::testing
