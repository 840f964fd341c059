#include "fmx/Forms.h"

#include <algorithm>
#include <vector>

#include "fmx/TextInput.h"

namespace fmx {
namespace {

// A state in which controls do not select their text when they get the focus.
constexpr TFormState WakingUp{static_cast<TFormStateItem>(0)};

// Behind what is drawn later comes what was drawn before.
TControl* FrontmostAt(TControl& control, TPointF point) {
  if (!control.Visible() || !control.HitTest()) return nullptr;
  const TPointF local = point - control.Position();
  const auto& children = control.Children();
  for (auto each = children.rbegin(); each != children.rend(); ++each)
    if (TControl* const found = FrontmostAt(**each, local)) return found;
  return control.TakesPointer() && control.PointInObject(local) ? &control : nullptr;
}

bool StandsIn(const TControl& tree, const TControl* control) {
  if (&tree == control) return true;
  const auto& children = tree.Children();
  return std::any_of(children.begin(), children.end(),
                     [control](const TControl* child) { return StandsIn(*child, control); });
}

bool IsEnabled(const TControl& control) {
  const auto* const presented = dynamic_cast<const TPresentedControl*>(&control);
  return presented == nullptr || presented->Enabled();
}

void CollectFocusable(TControl& control, std::vector<TPresentedControl*>& found) {
  if (!control.Visible()) return;
  if (auto* const presented = dynamic_cast<TPresentedControl*>(&control); presented != nullptr && presented->Enabled())
    return found.push_back(presented);
  for (TControl* const child : control.Children()) CollectFocusable(*child, found);
}

TInteractiveGestures GesturesOf(TControl& control) {
  auto* const presented = dynamic_cast<TPresentedControl*>(&control);
  const TStyledPresentation* const presentation = presented != nullptr ? presented->Presentation() : nullptr;
  return control.InteractiveGestures() +
         (presentation != nullptr ? presentation->InteractiveGestures() : TInteractiveGestures{});
}

bool Wants(TControl& control, TGestureId id) {
  const TInteractiveGestures wanted = GesturesOf(control);
  if (id == LongTapGesture) return wanted.Contains(TInteractiveGesture::LongTap);
  if (id == DoubleTapGesture) return wanted.Contains(TInteractiveGesture::DoubleTap);
  return id == PanGesture && wanted.Contains(TInteractiveGesture::Pan);
}

TMouseEvent In(const TControl& control, TMouseEvent event) {
  event.Point = control.AbsoluteToLocal(event.Point);
  return event;
}

}  // namespace

TForm::TForm() {
  FContent.SetRoot(this);
}

TForm::~TForm() {
  Destroying();
  DestroyComponents();  // while what they stand in is there
}

void TForm::SetSize(TSizeF size) {
  if (size == Size()) return;
  FContent.SetSize(size);
  FMenuPanel.Resize(size);
  if (OnResize) OnResize();
}

// --- Window ---

TPointF TForm::ScreenToClient(TPointF point) const {
  return FWindow != nullptr ? point - FWindow->ScreenPosition() : point;
}

TPointF TForm::ClientToScreen(TPointF point) const {
  return FWindow != nullptr ? point + FWindow->ScreenPosition() : point;
}

void TForm::Activate() {
  TCustomForm::Activate();
  TFocusable* const asleep = std::exchange(FAsleep, nullptr);
  std::vector<TPresentedControl*> there;
  CollectFocusable(FContent, there);
  if (asleep == nullptr || GetFocused() != nullptr || std::find(there.begin(), there.end(), asleep) == there.end())
    return;
  const TFormState state = GetFormState();
  SetFormState(state + WakingUp);
  SetFocused(asleep);
  SetFormState(state);
}

void TForm::Deactivate() {
  if (GetFocused() == nullptr) return;
  FAsleep = GetFocused();
  SetFocused(nullptr);
}

// --- Looks ---

void TForm::SetFill(TAlphaColor color) {
  FFill = color;
  Invalidate();
}

void TForm::Paint(TCanvas& canvas) {
  FIsInvalid = false;  // a paint may make it out of date again
  canvas.Clear(FFill);
  FContent.PaintTo(canvas);
  FMenuPanel.Paint(canvas);
}

// --- Pointer ---

TControl* TForm::ControlAt(TPointF point) {
  return FrontmostAt(FContent, point);
}

TControl* TForm::Captured() {
  if (FCaptured != nullptr && !StandsIn(FContent, FCaptured)) FCaptured = nullptr;
  return FCaptured;
}

void TForm::MouseDown(const TMouseEvent& event) {
  if (FMenuPanel.IsOpen()) {
    FMenuPanel.MouseDown(event.Point);
    return Invalidate();
  }
  FCaptured = ControlAt(event.Point);
  if (FCaptured == nullptr || !IsEnabled(*FCaptured)) {
    FCaptured = nullptr;
    return;
  }
  FCaptured->MouseDown(In(*FCaptured, event));
}

void TForm::MouseMove(const TMouseEvent& event) {
  if (FMenuPanel.IsOpen()) {
    if (FMenuPanel.MouseMove(event.Point)) Invalidate();
    return;
  }
  TControl* const control = Captured() != nullptr ? FCaptured : ControlAt(event.Point);
  if (control != nullptr && IsEnabled(*control)) control->MouseMove(In(*control, event));
}

void TForm::MouseUp(const TMouseEvent& event) {
  if (FMenuPanel.IsOpen()) {
    FMenuPanel.MouseUp(event.Point);
    return Invalidate();
  }
  TControl* const control = Captured();
  FCaptured = nullptr;
  if (control == nullptr) return;
  control->MouseUp(In(*control, event));
  if (event.Button != TMouseButton::Right || !StandsIn(FContent, control)) return;
  if (auto* const presented = dynamic_cast<TPresentedControl*>(control))
    presented->ShowContextMenu(ClientToScreen(event.Point));  // comes back when the menu has closed
}

bool TForm::MouseWheel(const TWheelEvent& event) {
  if (FMenuPanel.IsOpen()) {
    if (FMenuPanel.Scroll(event.Steps)) Invalidate();
    return true;
  }
  for (TControl* each = ControlAt(event.Point); each != nullptr; each = each->Parent()) {
    TWheelEvent own = event;
    own.Point = each->AbsoluteToLocal(event.Point);
    if (IsEnabled(*each) && each->MouseWheel(own)) return true;
  }
  return false;
}

void TForm::Gesture(const TGestureEvent& event) {
  TControl* const control = ControlAt(event.Location);
  if (FMenuPanel.IsOpen() || control == nullptr || !IsEnabled(*control) || !Wants(*control, event.Id)) return;
  if (auto* const presented = dynamic_cast<TPresentedControl*>(control)) presented->SetFocus();
  control->CMGesture(event);
}

TCursor TForm::CursorAt(TPointF point) {
  if (FMenuPanel.IsOpen()) return TCursor::Arrow;
  for (const TControl* each = ControlAt(point); each != nullptr; each = each->Parent())
    if (each->Cursor() != TCursor::Default) return each->Cursor();
  return TCursor::Arrow;
}

// --- Keys ---

TPresentedControl* TForm::FocusedControl() const {
  return dynamic_cast<TPresentedControl*>(GetFocused());
}

void TForm::KeyDown(TKeyEvent& event) {
  if (!event.IsDeliverable()) return;
  if (FMenuPanel.IsOpen()) {
    FMenuPanel.KeyDown(event);
    event.SetHandled();
    return Invalidate();
  }
  TCustomForm::KeyDown(event);
  if (event.IsHandled()) return;
  const TShiftState shift{TShiftItem::Shift};
  if (event.Key == Keys::Tab && (event.Shift - shift).IsEmpty()) {
    MoveFocus(event.Shift == shift);
    return event.SetHandled();
  }
  if (event.Key == Keys::Menu || (event.Key == Keys::F10 && event.Shift == shift)) {
    event.SetHandled();
    return ShowMenuOfFocused();
  }
  if (OnKeyDown) OnKeyDown(event);
}

void TForm::MoveFocus(bool backwards) {
  std::vector<TPresentedControl*> there;
  CollectFocusable(FContent, there);
  if (there.empty()) return;
  if (backwards) std::reverse(there.begin(), there.end());
  const auto now = std::find(there.begin(), there.end(), FocusedControl());
  there[now == there.end() || now + 1 == there.end() ? 0 : static_cast<std::size_t>(now + 1 - there.begin())]
      ->SetFocus();
}

// --- Menu ---

void TForm::ShowMenuOfFocused() {
  TPresentedControl* const control = FocusedControl();
  if (control == nullptr) return;
  // At the caret of an edit, in the middle of the line.
  TPointF place = control->LocalToAbsolute(control->LocalRect().Center());
  if (auto* const input = dynamic_cast<ITextInput*>(control->Presentation()))
    place.X = input->GetTargetClausePointF().X;
  control->ShowContextMenu(ClientToScreen(place));
}

void TForm::OpenMenu(TPopupMenu& menu, TPointF point) {
  FMenuPanel.Open(menu, point, Size());
  Invalidate();
}

}  // namespace fmx
