// Pointer, touch, selection and its handles, focus and input methods of the single-line edit.
#include <algorithm>
#include <cmath>
#include <utility>

#include "editing/Orv.Edit.Corrections.h"
#include "editing/Orv.Edit.Style.h"
#include "fmx/EditText.h"
#include "rtl/Strings.h"

namespace orv {
namespace {

// How much larger the magnifier shows the text.
constexpr float LoupeZoom = 1.4F;
// How far it stands above a handle.
constexpr float LoupeDistance = 10;

using rtl::LengthOf;

}  // namespace

// --- Pointer ---

void TOrvStyledEdit::MouseDown(const fmx::TMouseEvent& event) {
  TStyledPresentation::MouseDown(event);
  DropWaitingHalf();
  if (event.Button != fmx::TMouseButton::Left || !Model().InputSupport()) return UpdateCaretPosition();
  const std::int32_t position = PressedPosition(event.Point.X);
  {
    const fmx::TModelUpdate update(Model());
    // The other end of a selection stays where it is.
    const std::int32_t anchor = Model().HasSelection() ? Model().SelEnd() : GetOriginCaretPosition();
    Model().SetSelLength(event.Shift.Contains(fmx::TShiftItem::Shift) ? fmx::SaturatedDifference(anchor, position) : 0);
    SetCaretPosition(position);
    Model().SetSelStart(position);
  }
  if (event.DoubleClick) {
    SetSelectionMode(TSelectionMode::None);
    FEdit.SelectWord();  // the model tells of the caret
  } else {
    BeginSelection();
  }
}

// One further than the press where the pointer is past the right edge, so that the text goes on scrolling.
std::int32_t TOrvStyledEdit::DragPosition(float x) {
  const std::int32_t position = HitPosition(x);
  if (!(x > ContentRect().Right)) return position;
  return Corrects(TOrvCorrection::InsertRoom) ? fmx::CharacterBehind(GetText(), position)
                                              : fmx::SaturatedSum(position, 1);
}

void TOrvStyledEdit::MouseMove(const fmx::TMouseEvent& event) {
  TStyledPresentation::MouseMove(event);
  if (FSelectionMode == TSelectionMode::None) return;
  DropWaitingHalf();
  LeaveComposition();
  if (FSelectionMode == TSelectionMode::PlacingCaret) {
    if (FLoupeService != nullptr) {
      FLoupeService->SetMode(fmx::TLoupeMode::Caret);
      SetLoupePosition(event.Point);
      ShowLoupe();
    }
    DropSelectionForLongPress();
    SetCaretPosition(DragPosition(event.Point.X));
  } else if (FSelectionMode == TSelectionMode::Selecting) {
    const std::int32_t old = GetCaretPosition();
    const fmx::TModelUpdate update(Model());
    SetCaretPosition(DragPosition(event.Point.X));
    Model().SetSelStart(GetCaretPosition());
    Model().SetSelLength(fmx::SaturatedDifference(Model().SelLength(), Model().SelStart() - old));
  }
}

void TOrvStyledEdit::MouseUp(const fmx::TMouseEvent& event) {
  TStyledPresentation::MouseUp(event);
  HideLoupe();
  if (FSelectionMode == TSelectionMode::PlacingCaret) FTextService->EndSelection();
  SetSelectionMode(TSelectionMode::None);
  UpdateSelectionPointPositions();
}

void TOrvStyledEdit::BeginSelection() {
  SetSelectionMode(TSelectionMode::Selecting);
  FTextService->BeginSelection();
}

void TOrvStyledEdit::EndSelection() {
  HideLoupe();
  SetSelectionMode(TSelectionMode::None);
  FTextService->EndSelection();
}

void TOrvStyledEdit::SetSelectionMode(TSelectionMode mode) {
  FSelectionMode = mode;
  if (FLoupeService == nullptr) return;
  if (mode == TSelectionMode::Selecting) FLoupeService->SetMode(fmx::TLoupeMode::Selection);
  if (mode == TSelectionMode::PlacingCaret) FLoupeService->SetMode(fmx::TLoupeMode::Caret);
}

void TOrvStyledEdit::CMGesture(const fmx::TGestureEvent& event) {
  DropWaitingHalf();
  if (event.Id == fmx::LongTapGesture) {
    LongTap(AbsoluteToLocal(event.Location));
    if (event.Flags.Contains(fmx::TGestureFlag::End)) HideLoupe();
  } else if (event.Id == fmx::DoubleTapGesture) {
    LeaveComposition();
    FEdit.SelectWord();
  } else {
    TStyledPresentation::CMGesture(event);
  }
}

void TOrvStyledEdit::LongTap(fmx::TPointF point) {
  if (FSelectionMode == TSelectionMode::Selecting) return;
  DropSelectionForLongPress();
  SetSelectionMode(TSelectionMode::PlacingCaret);
  if (FLoupeService == nullptr) return;
  FLoupeService->SetMode(fmx::TLoupeMode::Caret);
  ShowLoupe();
  SetLoupePosition(point);
}

// --- Focus ---

void TOrvStyledEdit::DoEnter() {
  TStyledPresentation::DoEnter();
  DropWaitingHalf();
  Model().Caret().SetVisible(true);
  const fmx::IRoot* const root = Root();
  const bool settled = root == nullptr || fmx::IsSettled(root->GetFormState());
  if (IsEditable() && !FTextService->HasMarkedText() && settled) {
    FEdit.SelectAll();
  } else {
    UpdateSelectionPointPositions();
    UpdateCaretPosition();
  }
}

void TOrvStyledEdit::DoExit() {
  TStyledPresentation::DoExit();
  Model().Caret().SetVisible(false);
}

// --- Selection ---

fmx::TTextRange TOrvStyledEdit::SelectedRange() const {
  const std::int32_t start = Model().SelStart();
  // Marked text before the selection moves it.
  const std::int32_t shift =
      start < GetOriginCaretPosition() ? 0 : LengthOf(GetText()) - LengthOf(FTextService->Text());
  const std::int32_t a = fmx::SaturatedSum(start, shift);
  const std::int32_t b = fmx::SaturatedSum(Model().SelEnd(), shift);
  return {std::min(a, b), fmx::SaturatedDifference(std::max(a, b), std::min(a, b))};
}

fmx::TRectF TOrvStyledEdit::GetSelRect(bool& swapped) {
  fmx::TRectF rect = ContentRect();
  rect.Top = std::trunc(FLineTop);
  rect.Bottom = rect.Top + FLineHeight;
  const fmx::TTextRange selected = SelectedRange();
  rect.Left = View().GetCharX(selected.Pos);
  rect.Right = View().GetCharX(fmx::SaturatedSum(selected.Pos, selected.Length));
  swapped = rect.Right > rect.Left;
  if (swapped) std::swap(rect.Left, rect.Right);
  return rect;
}

fmx::TRectF TOrvStyledEdit::GetSelRect() {
  bool swapped = false;
  return GetSelRect(swapped);
}

fmx::TRect TOrvStyledEdit::GetSelectionBounds() {
  return {Model().SelStart(), 0, Model().SelEnd(), 0};
}

fmx::TSizeF TOrvStyledEdit::GetSelectionPointSize() {
  if (FLeftSelPt == nullptr) return {};
  return {2 * FLeftSelPt->GripSize(), 2 * FLeftSelPt->GripSize()};
}

void TOrvStyledEdit::UpdateSelectionPointPositions() {
  Model().Caret().SetTemporarilyHidden(Model().HasSelection() && IsFocused());
  if (FLeftSelPt == nullptr || FRightSelPt == nullptr) return;
  if (Corrects(TOrvCorrection::Handles)) return PlaceHandles();
  const std::int32_t start = Model().SelStart();
  const std::int32_t length = Model().SelLength();
  FLeftSelPt->SetVisible(length >= 1 && IsFocused() && start >= View().FirstVisibleChar() - 1);
  FRightSelPt->SetVisible(length > 0 && IsFocused() && View().GetCharX(Model().SelEnd()) < ContentRect().Right);
  bool swapped = false;
  const fmx::TRectF rect = GetSelRect(swapped);
  const float reach = 2 * FLeftSelPt->GripSize();
  FLeftSelPt->SetPosition({swapped ? rect.Right : rect.Left, rect.Bottom - reach});
  FRightSelPt->SetPosition({swapped ? rect.Left : rect.Right, rect.Bottom + reach});
  CrossHandles(swapped);
}

void TOrvStyledEdit::CrossHandles(bool crossed) {
  if (crossed == FHandlersCrossed) return;
  FHandlersCrossed = crossed;
  BindSelectionPoint(*FLeftSelPt, crossed ? TSelectionPointType::Right : TSelectionPointType::Left);
  BindSelectionPoint(*FRightSelPt, crossed ? TSelectionPointType::Left : TSelectionPointType::Right);
}

void TOrvStyledEdit::BindSelectionPoint(fmx::TSelectionPoint& point, TSelectionPointType type) {
  point.OnChangePosition = [this, type](fmx::TSelectionPoint&, float& x, float& y) {
    DoSelPtChangePosition(x, y, type);
  };
  point.OnMouseDown = [this, type](fmx::TControl&, const fmx::TMouseEvent&) { DoSelPtMouseDown(type); };
  point.OnMouseUp = [this](fmx::TControl&, const fmx::TMouseEvent&) { EndSelection(); };
}

void TOrvStyledEdit::DoSelPtChangePosition(float& x, float& y, TSelectionPointType type) {
  if (FLeftSelPt == nullptr || FRightSelPt == nullptr) return;
  DropWaitingHalf();
  LeaveComposition();
  if (Corrects(TOrvCorrection::Handles)) return DragEnd(x, y, type);
  DragEdge(x, y, type);
}

void TOrvStyledEdit::DragEdge(float& x, float& y, TSelectionPointType type) {
  const std::int32_t start = Model().SelStart();
  const std::int32_t end = Model().SelEnd();
  const std::int32_t position = HitPosition(x);
  {
    const fmx::TModelUpdate update(Model());
    if (type == TSelectionPointType::Left) {
      // One character stays selected.
      const std::int32_t last = fmx::SaturatedDifference(end, 1);
      y = FLeftSelPt->Position().Y;
      x = View().GetCharX(std::min(position, last));
      Model().SetSelStart(std::min(position, last));
      Model().SetSelLength(position < last ? fmx::SaturatedDifference(end, position) : 1);
    } else {
      const std::int32_t first = fmx::SaturatedSum(start, 1);
      const std::int32_t reached = fmx::SaturatedDifference(position, start);
      y = FRightSelPt->Position().Y;
      x = View().GetCharX(std::max(position, first));
      Model().SetSelStart(start);
      Model().SetSelLength(first < position ? reached : 1);
    }
    SetLoupePosition(type);
  }
  UpdateSelectionPointPositions();
}

void TOrvStyledEdit::DoSelPtMouseDown(TSelectionPointType type) {
  DropWaitingHalf();
  BeginSelection();
  SetLoupePosition(type);
  ShowLoupe();
}

// --- Magnifier ---

void TOrvStyledEdit::SetLoupePosition(TSelectionPointType type) {
  if (FLoupeService == nullptr) return;
  const fmx::TRectF rect = GetSelRect();
  const bool isLeft = type == TSelectionPointType::Left;
  const fmx::TSelectionPoint* const handle = isLeft ? FLeftSelPt : FRightSelPt;
  const bool asHandle = handle != nullptr && Corrects(TOrvCorrection::Handles);
  const float edge = isLeft ? rect.Left : rect.Right;
  const float x = asHandle ? handle->Position().X : edge;
  const fmx::TSizeF size = FLoupeService->GetSize();
  FLoupeService->SetMagnifiedPoint(LocalToAbsolute({x, (rect.Top + rect.Bottom) / 2}));
  FLoupeService->SetPosition(LocalToAbsolute({x - size.Width / 2, rect.Top - size.Height - LoupeDistance}));
}

void TOrvStyledEdit::SetLoupePosition(fmx::TPointF point) {
  if (FLoupeService == nullptr) return;
  const fmx::TSizeF size = FLoupeService->GetSize();
  FLoupeService->SetMagnifiedPoint(LocalToAbsolute(point));
  FLoupeService->SetPosition(LocalToAbsolute({point.X - size.Width / 2, point.Y - size.Height}));
  ShowLoupe();
}

void TOrvStyledEdit::ShowLoupe() {
  if (FLoupeService == nullptr) return;
  FLoupeService->SetZoom(LoupeZoom);
  FLoupeService->ShowLoupe(FEdit);
}

void TOrvStyledEdit::HideLoupe() {
  if (FLoupeService != nullptr) FLoupeService->HideLoupe();
}

// --- Input methods ---

void TOrvStyledEdit::StartIMEInput() {
  DropWaitingHalf();
  MakeRoomForComposition();
  FTextService->SetCaretPosition({GetOriginCaretPosition(), 0});
}

void TOrvStyledEdit::EndIMEInput() {
  UpdateCaretPosition();
  RepaintEdit();
}

void TOrvStyledEdit::IMEStateUpdated() {
  DropWaitingHalf();
  if (RefusesComposition()) return;
  if (FTextService->HasMarkedText()) MakeRoomForComposition();
  const std::u16string text = GetText();
  View().TakeText(text);
  SetCaretPosition(GetOriginCaretPosition());
  StoreText(text, TStoring::AsItComes);
  ShowPrompt();
  const fmx::TObservers& observers = FEdit.Observers();
  bool edits = true;
  if (observers.IsObserving(fmx::TObserverKind::EditLink)) {
    edits = observers.EditLinkEdit();
    if (edits) observers.EditLinkModified();
  }
  if (edits) observers.ControlValueModified();
  DoChangeTracking();
  DoTyping();
}

fmx::TPointF TOrvStyledEdit::GetTargetClausePointF() {
  const float below = ContentRect().Height() / 2 + ResultingSettings().Font().Size() / 2 + 2;
  if (Corrects(TOrvCorrection::Composition)) {
    const fmx::TPointF corner = FContent != nullptr ? FContent->Position() : fmx::TPointF{};
    return LocalToAbsolute(corner + fmx::TPointF{CaretPlace(), below});
  }
  return LocalToAbsolute(ContentRect().TopLeft() + fmx::TPointF{View().TargetClauseX(), below});
}

}  // namespace orv
