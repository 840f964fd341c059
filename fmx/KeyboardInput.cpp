#include "fmx/KeyboardInput.h"

#include <utility>

#include "fmx/PresentedControl.h"

namespace fmx {
namespace {

// They do nothing to a text, and are held while keys are pressed.
constexpr bool IsModifier(Keys::TCode key) {
  return key == Keys::Shift || key == Keys::Control || key == Keys::Alt;
}

void Mark(ITextInput& input, std::u16string_view text, std::int32_t caret) {
  TTextService* const service = input.GetTextService();
  if (service == nullptr) return;
  service->SetMarkedText(text, caret, std::vector<TCompositionAttribute>(text.size(), TCompositionAttribute::Input));
  input.IMEStateUpdated();
}

}  // namespace

ITextInput* FocusedTextInput(const IRoot& root) {
  auto* const control = dynamic_cast<TPresentedControl*>(root.GetFocused());
  return control != nullptr ? dynamic_cast<ITextInput*>(control->Presentation()) : nullptr;
}

void TKeyboardInput::Key(Keys::TCode key, std::u16string_view text, TPlatformModifiers modifiers) {
  TKey pressed{key, std::u16string(text), modifiers};
  if (FIsComposing && !IsModifier(key))
    FWaiting.push_back(std::move(pressed));
  else
    Deliver(pressed);
}

void TKeyboardInput::Text(std::u16string_view text, TPlatformModifiers modifiers) {
  if (FIsComposing) {
    End();
    modifiers = {};
  }
  Deliver({Keys::None, std::u16string(text), modifiers});
}

void TKeyboardInput::Compose(std::u16string_view text, std::int32_t caret) {
  FMayEnd = text.empty();
  if (FMayEnd) return;
  ITextInput* const input = FocusedTextInput(FRoot);
  if (input == nullptr) return;
  if (!std::exchange(FIsComposing, true)) input->StartIMEInput();
  Mark(*input, text, caret);
}

void TKeyboardInput::Settle() {
  if (FIsComposing && FMayEnd) End();
  for (const TKey& key : std::exchange(FWaiting, {})) {
    if (key.Key == Keys::Tab) Finish();  // what the method left stays in its control
    Deliver(key);
  }
}

void TKeyboardInput::Finish() {
  if (!FIsComposing) return;
  ITextInput* const input = FocusedTextInput(FRoot);
  TTextService* const service = input != nullptr ? input->GetTextService() : nullptr;
  const std::u16string composed = service != nullptr ? service->MarkedText() : std::u16string();
  End();
  Deliver({Keys::None, composed, {}});
}

void TKeyboardInput::End() {
  FIsComposing = false;
  FMayEnd = false;
  ITextInput* const input = FocusedTextInput(FRoot);
  if (input == nullptr) return;
  Mark(*input, {}, 0);
  input->EndIMEInput();
}

void TKeyboardInput::Deliver(const TKey& key) {
  DeliverKey(FRoot, key.Key, key.Text, key.Modifiers);
}

}  // namespace fmx
