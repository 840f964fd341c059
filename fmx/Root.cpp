#include "fmx/Root.h"

#include "fmx/Screen.h"

namespace fmx {

IRoot::~IRoot() {
  if (TScreen::ActiveForm() == this) TScreen::SetActiveForm(nullptr);
}

TFocusable::~TFocusable() {
  if (FFocus != nullptr) FFocus->Point(nullptr);
}

void TRootFocus::Point(TFocusable* control) {
  if (FControl != nullptr) FControl->FFocus = nullptr;
  FControl = control;
  if (FControl == nullptr) return;
  if (FControl->FFocus != nullptr) FControl->FFocus->FControl = nullptr;
  FControl->FFocus = this;
}

void TRootFocus::Set(TFocusable* control) {
  if (control == FControl) return;
  TFocusable* const former = FControl;
  Point(control);
  if (former != nullptr) former->DoExit();
  // DoExit may have moved the focus on, or destroyed the control, which then has it no longer.
  if (control != nullptr && FControl == control) control->DoEnter();
}

void TRootFocus::KeyDown(TKeyEvent& event) {
  if (FControl != nullptr && event.IsDeliverable()) FControl->KeyDown(event);
}

bool DeliverKey(IRoot& root, Keys::TCode key, std::u16string_view text, TPlatformModifiers modifiers) {
  std::vector<TKeyEvent> events = NormalizeKey(key, text, modifiers);
  bool handled = !events.empty();
  for (TKeyEvent& event : events) {
    root.KeyDown(event);
    handled = handled && event.IsHandled();
  }
  return handled;
}

}  // namespace fmx
