// A single-line box for tests, by the rules where no correction is named.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "tools/orv/eval/EditBox.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv::testing {

// A box, and the corrections while it lives. There is one at a time.
class TBoxInUse {
 public:
  explicit TBoxInUse(TOrvCorrections corrections = {}) : FCorrections(TOrvGlobalSettings::Corrections) {
    TOrvGlobalSettings::Corrections = corrections;
  }
  ~TBoxInUse() { TOrvGlobalSettings::Corrections = FCorrections; }
  TBoxInUse(const TBoxInUse&) = delete;
  TBoxInUse& operator=(const TBoxInUse&) = delete;

  fmx::TCustomEditModel& Model() { return FBox.Edit().Model(); }
  TOrvStyledEdit& Edit() { return FBox.Presentation(); }
  void Show(std::u16string_view text, fmx::TTextAlign align = fmx::TTextAlign::Leading, float width = 200,
            float height = 30) {
    FBox.Edit().SetSize({width, height});
    Model().TextSettings().SetHorzAlign(align);
    Model().SetText(text);
  }
  void At(std::int32_t caret) { Model().SetCaretPosition(caret); }
  void Key(fmx::Keys::TCode key, fmx::TShiftState shift = {}) { FBox.Key({key, 0, shift}); }
  void Type(std::u16string_view text) { FBox.Type(text); }
  void Press(float x, fmx::TShiftState shift = {}, bool isDouble = false) {
    FBox.Edit().MouseDown({fmx::TMouseButton::Left, shift, {x, 10}, isDouble});
  }
  void Move(float x) { FBox.Edit().MouseMove({fmx::TMouseButton::Left, {}, {x, 10}}); }
  void Release(float x) { FBox.Edit().MouseUp({fmx::TMouseButton::Left, {}, {x, 10}}); }
  void LongTap(float x) { FBox.Edit().CMGesture({fmx::LongTapGesture, {x, 10}, {}}); }
  void Paste(std::u16string_view text) {
    FBox.Clipboard().SetText(text);
    Edit().DoPaste();
  }
  void Compose(std::u16string_view marked, std::int32_t caret) {
    Edit().GetTextService()->SetMarkedText(marked, caret);
    Edit().IMEStateUpdated();
  }

  // The text with "|" at the caret, and "^" at the other end of a selection.
  std::u16string Seen() {
    std::u16string text = Model().Text();
    const auto hold = [&](std::int32_t at) {
      return static_cast<std::size_t>(std::clamp(at, 0, static_cast<std::int32_t>(text.size())));
    };
    const std::size_t caret = hold(Edit().GetOriginCaretPosition());
    const std::size_t anchor = hold(Model().SelStart() + Model().SelLength());
    const bool selected = Model().SelLength() != 0;
    if (selected && anchor > caret) text.insert(anchor, u"^");
    text.insert(caret, u"|");
    if (selected && anchor <= caret) text.insert(anchor, u"^");
    return text;
  }

  static constexpr fmx::TShiftState None{};
  static constexpr fmx::TShiftState Shift{fmx::TShiftItem::Shift};
  static constexpr fmx::TShiftState Ctrl{fmx::TShiftItem::Ctrl};
  static constexpr fmx::TShiftState Alt{fmx::TShiftItem::Alt};
  static constexpr fmx::TShiftState Command{fmx::TShiftItem::Command};

 private:
  TOrvCorrections FCorrections;

 public:
  eval::TEditBox FBox{true};
};

class EditTest : public ::testing::Test, protected TBoxInUse {};

}  // namespace orv::testing
