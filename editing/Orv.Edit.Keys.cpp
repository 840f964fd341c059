// Keys of the single-line edit.
#include <algorithm>
#include <utility>

#include "editing/Orv.Edit.Corrections.h"
#include "editing/Orv.Edit.Style.h"
#include "fmx/CanvasManager.h"
#include "fmx/TextWords.h"
#include "rtl/Strings.h"
#include "rtl/Unicode.h"

namespace orv {
namespace {

using fmx::Keys;
using fmx::TShiftItem;
using fmx::TShiftState;

constexpr TShiftState ShiftAlone{TShiftItem::Shift};
constexpr TShiftState DirectionKeys{TShiftItem::Shift, TShiftItem::Ctrl};

using rtl::LengthOf;

constexpr bool MovesCaret(Keys::TCode key) {
  return key == Keys::End || key == Keys::Home || key == Keys::Left || key == Keys::Right;
}

// Characters that change the text: Backspace, paste and cut as characters, and what is typed.
constexpr bool ChangesText(char16_t c) {
  return c == 8 || c == 22 || c == 24 || c >= 32;
}

// Keys that move in the text or change it; the others leave a composition alone.
constexpr bool ActsOnText(const fmx::TKeyEvent& event) {
  switch (event.Key) {
    case Keys::None:
      return event.KeyChar >= 32;
    case Keys::Insert:
    case Keys::Home:
    case Keys::End:
    case Keys::Left:
    case Keys::Right:
    case Keys::Backspace:
    case Keys::Delete:
    case Keys::Return:
      return true;
    case 'A':
    case 'V':
    case 'X':
    case 'Z':
      return event.Shift.Contains(TShiftItem::Ctrl) || event.Shift.Contains(TShiftItem::Command);
    default:
      return false;
  }
}

}  // namespace

struct TOrvStyledEdit::TKeyStroke {
  Keys::TCode Key;
  TShiftState Shift;
  bool Ctrl;  // or Command
  bool Handled = false;
  bool Finished = false;  // nothing more is to be done about it

  void Handle() { Handled = true; }
};

void TOrvStyledEdit::KeyDown(fmx::TKeyEvent& event) {
  const std::u16string waiting = FCharsBuffer;
  DropWaitingHalf();
  if (!Model().InputSupport()) return;
  if (!AskEditLink(event)) return event.SetHandled();
  FEdit.Observers().ControlValueModified();
  if (event.KeyChar == 0 && event.Shift == DirectionKeys) return ToggleBidiMode();
  if (ActsOnText(event)) LeaveComposition();
  if (IsRightToLeft() && !KeepsPassword()) {
    if (event.Key == Keys::Left)
      event.Key = Keys::Right;
    else if (event.Key == Keys::Right)
      event.Key = Keys::Left;
  }
  TStyledPresentation::KeyDown(event);
  const std::int32_t old = GetOriginCaretPosition();
  FLastChar = event.KeyChar;
  FLastKey = event.Key;

  TKeyStroke stroke{event.Key, event.Shift,
                    event.Shift.Contains(TShiftItem::Ctrl) || event.Shift.Contains(TShiftItem::Command)};
  ActOnKey(stroke);
  if (!stroke.Finished) {
    const std::u16string& filter = Model().FilterChar();
    if (!filter.empty() && filter.find(event.KeyChar) == std::u16string::npos) event.KeyChar = 0;
    if (MovesCaret(event.Key)) {
      SelectByKey(event.Shift.Contains(TShiftItem::Shift), old);
      stroke.Handle();
    }
    if (event.KeyChar >= 32 && !Model().ReadOnly()) {
      if (rtl::IsLowSurrogate(event.KeyChar)) FCharsBuffer = waiting;
      TypeCharacter(event.KeyChar);
      stroke.Handle();
    }
    if (ResourceControl() != nullptr) UpdateEffects();
  }
  if (stroke.Handled) event.SetHandled();
}

// False where the link refuses the key, or takes it for itself.
bool TOrvStyledEdit::AskEditLink(const fmx::TKeyEvent& event) {
  const fmx::TObservers& observers = FEdit.Observers();
  if (!observers.IsObserving(fmx::TObserverKind::EditLink)) return true;
  const auto edits = [&] {
    if (observers.EditLinkEdit()) return true;
    observers.EditLinkReset();
    return false;
  };
  const bool changes = event.Key == Keys::Backspace || event.Key == Keys::Delete ||
                       (event.Key == Keys::Insert && event.Shift.Contains(TShiftItem::Shift));
  if (changes && !edits()) return false;
  if (event.KeyChar >= 32 && !observers.EditLinkIsValidChar(event.KeyChar)) return false;
  if (event.KeyChar == Keys::Escape) {
    observers.EditLinkReset();
    FEdit.SelectAll();
    return false;
  }
  if (ChangesText(event.KeyChar) && !edits()) return false;
  if (observers.EditLinkIsEditing()) observers.EditLinkModified();
  return true;
}

void TOrvStyledEdit::ActOnKey(TKeyStroke& stroke) {
  const bool editable = !Model().ReadOnly();
  switch (stroke.Key) {
    case Keys::Insert:
      if (stroke.Shift == ShiftAlone) {
        FEdit.PasteFromClipboard();
        DoTyping();
        stroke.Handle();
      } else if (stroke.Ctrl) {
        FEdit.CopyToClipboard();
        stroke.Handle();
      }
      return;
    case Keys::Home:
      SetCaretPosition(0);
      return stroke.Handle();
    case Keys::End:
      SetCaretPosition(LengthOf(GetText()));
      return stroke.Handle();
    case Keys::Left:
      return MoveLeft(stroke);
    case Keys::Right:
      return MoveRight(stroke);
    case Keys::Backspace:
      if (editable) Backspace(stroke);
      return;
    case Keys::Delete:
      if (editable) Delete(stroke);
      return;
    case Keys::Return:
      return Return();
    case 'A':
      if (!stroke.Ctrl || stroke.Shift.Contains(TShiftItem::Shift) || stroke.Shift.Contains(TShiftItem::Alt)) return;
      FEdit.SelectAll();
      return stroke.Handle();
    case 'C':
      if (!stroke.Ctrl) return;
      FEdit.CopyToClipboard();
      return stroke.Handle();
    case 'V':
      if (!stroke.Ctrl) return;
      FEdit.PasteFromClipboard();
      DoTyping();
      return stroke.Handle();
    case 'X':
      if (!stroke.Ctrl || !editable) return;
      if (!KeepsPassword()) {
        CutSelectedText();
        DoTyping();
      }
      return stroke.Handle();
    case 'Z':
      if (!stroke.Ctrl) return;
      FEdit.Observers().EditLinkReset();
      FEdit.Observers().ControlValueUpdate();
      return stroke.Handle();
    default:
      return;
  }
}

// --- Moves ---

void TOrvStyledEdit::MoveLeft(TKeyStroke& stroke) {
  const std::u16string text = GetText();
  const std::int32_t caret = GetCaretPosition();
  if (stroke.Ctrl) {
    SetCaretPosition(fmx::GetPrevLexemeBegin(text, caret, Model().WordRule()));
    stroke.Handle();
  } else if (caret > 0 && !text.empty()) {
    SetCaretPosition(caret - (IsBehindPair(text, caret) ? 2 : 1));
    stroke.Handle();
  }
}

void TOrvStyledEdit::MoveRight(TKeyStroke& stroke) {
  const std::u16string text = GetText();
  const std::int32_t caret = GetCaretPosition();
  if (stroke.Ctrl) {
    SetCaretPosition(fmx::GetNextLexemeBegin(text, caret, Model().WordRule()));
    stroke.Handle();
  } else if (caret < LengthOf(text)) {
    SetCaretPosition(caret + (IsBeforePair(text, caret) ? 2 : 1));
    stroke.Handle();
  }
}

void TOrvStyledEdit::SelectByKey(bool shift, std::int32_t old) {
  {
    const fmx::TModelUpdate update(Model());
    if (shift) {
      const std::int32_t caret = GetOriginCaretPosition();
      Model().SetSelStart(caret);
      Model().SetSelLength(fmx::SaturatedDifference(Model().SelLength(), caret - old));
    } else {
      Model().SetSelStart(GetCaretPosition());
      Model().SetSelLength(0);
    }
  }
  RepaintEdit();
  UpdateSelectionPointPositions();
}

// --- Deletions ---

void TOrvStyledEdit::DeleteSelectedText() {
  if (!IsEditable() || !Model().HasSelection()) return;
  std::u16string text = FEdit.Text();
  text.erase(static_cast<std::size_t>(FEdit.GetSelStart()), static_cast<std::size_t>(FEdit.GetSelLength()));
  const std::int32_t start = std::min(Model().SelStart(), Model().SelEnd());
  SetTextInternal(text);
  SelectNothingAt(start);
  FEdit.Observers().ControlValueModified();
}

void TOrvStyledEdit::CutSelectedText() {
  FEdit.CopyToClipboard();
  DeleteSelectedText();
  FEdit.Observers().ControlValueModified();
}

// The caret goes where count units, if any, have gone.
void TOrvStyledEdit::RemoveTyped(std::int32_t position, std::int32_t count) {
  std::u16string text = GetText();
  if (position >= 0 && position < LengthOf(text) && count > 0)
    text.erase(static_cast<std::size_t>(position), static_cast<std::size_t>(count));
  SetTextInternal(text);
  SetCaretPosition(position);
  DoTyping();
}

void TOrvStyledEdit::RemoveSelection(TKeyStroke& stroke, bool cuts) {
  if (cuts && KeepsPassword()) return stroke.Handle();
  if (cuts)
    CutSelectedText();
  else
    DeleteSelectedText();
  DoTyping();
  stroke.Handle();
}

// Without a word the stroke has nothing to do. Answers whether there was one.
bool TOrvStyledEdit::RemoveToWord(TKeyStroke& stroke, std::int32_t caret, std::int32_t word) {
  stroke.Finished = word < 0;
  if (!stroke.Finished) RemoveTyped(word, caret - word);
  return !stroke.Finished;
}

void TOrvStyledEdit::Backspace(TKeyStroke& stroke) {
  if (Model().HasSelection()) return RemoveSelection(stroke, false);
  const std::u16string text = GetText();
  if (text.empty()) return;
  const std::int32_t caret = GetCaretPosition();
  if (stroke.Ctrl) {
    if (!RemoveToWord(stroke, caret, fmx::GetPrevLexemeBegin(text, caret, Model().WordRule()))) return;
  } else {
    const bool pair = IsBehindPair(text, caret);
    RemoveTyped(caret - (pair ? 2 : 1), pair ? 2 : 1);
  }
  stroke.Handle();
}

void TOrvStyledEdit::Delete(TKeyStroke& stroke) {
  if (Model().HasSelection()) return RemoveSelection(stroke, stroke.Shift == ShiftAlone);
  const std::u16string text = GetText();
  if (text.empty()) return;
  const std::int32_t caret = GetCaretPosition();
  if (stroke.Ctrl) {
    if (!RemoveToWord(stroke, caret, fmx::GetNextLexemeBegin(text, caret, Model().WordRule()))) return;
  } else {
    const bool pair = LengthOf(text) > 1 && IsBeforePair(text, caret);
    RemoveTyped(caret, pair ? 2 : 1);
  }
  stroke.Handle();
}

// --- Others ---

void TOrvStyledEdit::Return() {
  {
    const fmx::TModelUpdate update(Model());
    Model().SetTyping(false);
  }
  Model().Change();
  FEdit.Observers().EditLinkUpdate();
  FEdit.Observers().ControlValueUpdate();
  fmx::IRoot* const root = Root();
  if (Model().KillFocusByReturn() && root != nullptr) root->SetFocused(nullptr);
}

void TOrvStyledEdit::TypeCharacter(char16_t c) {
  FCharsBuffer.push_back(c);
  if (rtl::IsHighSurrogate(c)) return;
  const std::u16string typed = std::exchange(FCharsBuffer, {});
  if (Corrects(TOrvCorrection::InsertRoom) && fmx::WithoutHalves(typed).empty()) return;
  {
    const fmx::TModelUpdate update(Model());
    Model().SetTyping(true);
  }
  InsertText(typed);
  DoTyping();
}

}  // namespace orv
