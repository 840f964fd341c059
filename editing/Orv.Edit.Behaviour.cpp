// Where the single-line edit departs from its plain rules, one function for each departure (docs/quirks.md).
#include <algorithm>
#include <utility>

#include "editing/Orv.Edit.Corrections.h"
#include "editing/Orv.Edit.Style.h"
#include "fmx/EditText.h"
#include "rtl/Strings.h"
#include "rtl/Unicode.h"

namespace orv {
using rtl::LengthOf;

fmx::TEditRules TOrvStyledEdit::RulesInForce() {
  using fmx::TEditRule;
  constexpr std::pair<TOrvCorrection, TEditRule> departures[] = {
      {TOrvCorrection::Words, TEditRule::WholeWords},
      {TOrvCorrection::InsertRoom, TEditRule::WholeCharacters},
      {TOrvCorrection::LineBreaks, TEditRule::OneLine},
      {TOrvCorrection::PasswordKeys, TEditRule::KeepsPasswords},
  };
  fmx::TEditRules rules;
  for (const auto& [correction, rule] : departures)
    if (Corrects(correction)) rules.Include(rule);
  return rules;
}

// --- InsertRoom ---

// By the rules one half tells of a pair.
bool TOrvStyledEdit::IsBehindPair(std::u16string_view text, std::int32_t position) {
  if (Corrects(TOrvCorrection::InsertRoom)) return fmx::IsInsidePair(text, position - 1);
  return rtl::IsLowSurrogate(rtl::UnitAt(text, std::int64_t{position} - 1));
}

bool TOrvStyledEdit::IsBeforePair(std::u16string_view text, std::int32_t position) {
  if (Corrects(TOrvCorrection::InsertRoom)) return fmx::IsInsidePair(text, fmx::SaturatedSum(position, 1));
  return rtl::IsHighSurrogate(rtl::UnitAt(text, position));
}

// A caret stands at the border of a character, and in no text that may still go away.
std::int32_t TOrvStyledEdit::Held(std::int32_t position) const {
  const std::u16string text = Corrects(TOrvCorrection::Composition) ? FTextService->Text() : GetText();
  if (Corrects(TOrvCorrection::InsertRoom)) return fmx::HeldAtCharacter(text, position);
  return std::clamp(position, 0, LengthOf(text));
}

std::int32_t TOrvStyledEdit::HitPosition(float x) {
  const std::int32_t hit = View().GetCaretPosition(x);
  return Corrects(TOrvCorrection::InsertRoom) ? fmx::HeldAtCharacter(GetText(), hit) : hit;
}

// What of the text is written beside so many units that stay.
std::u16string TOrvStyledEdit::Insertable(std::u16string_view text, std::int32_t staying) const {
  const std::u16string line = Corrects(TOrvCorrection::LineBreaks) ? fmx::InOneLine(text) : std::u16string(text);
  if (!Corrects(TOrvCorrection::InsertRoom)) return line;
  return Model().Admitted(fmx::WithoutHalves(line), staying);
}

void TOrvStyledEdit::DropWaitingHalf() {
  if (Corrects(TOrvCorrection::InsertRoom)) FCharsBuffer.clear();
}

// --- FreshCaret ---

void TOrvStyledEdit::PlaceCaretAnew() {
  if (!Corrects(TOrvCorrection::FreshCaret)) return;
  View().UpdateFirstVisibleChar();
  UpdateSelectionPointPositions();
  UpdateCaretPosition();
  RepaintEdit();
}

void TOrvStyledEdit::SelectNothingAt(std::int32_t caret) {
  {
    const fmx::TModelUpdate update(Model());
    Model().SetSelLength(0);
  }
  SetCaretPosition(caret);
}

// The selection that the application has set, held in the text, and the caret at its start.
void TOrvStyledEdit::TakeSelection() {
  const std::int32_t start = Held(Model().SelStart());
  const std::int32_t end = Held(Model().SelEnd());
  {
    const fmx::TModelUpdate update(Model());
    Model().SetSelStart(start);
    Model().SetSelLength(end - start);
  }
  SetCaretPosition(start);
}

void TOrvStyledEdit::CaretPositionChanged(std::int32_t position) {
  LeaveComposition();
  if (Corrects(TOrvCorrection::FreshCaret)) return SelectNothingAt(position);
  SetCaretPosition(position);
}

void TOrvStyledEdit::SelectionChanged() {
  LeaveComposition();
  if (Corrects(TOrvCorrection::FreshCaret)) return TakeSelection();
  UpdateSelectionPointPositions();
  RepaintEdit();
}

// --- Texts that were there first ---

void TOrvStyledEdit::TakeFormerText() {
  const std::u16string text = Model().Text();
  if (Corrects(TOrvCorrection::LineBreaks)) StoreText(fmx::InOneLine(text), TStoring::AsItComes);
  if (Corrects(TOrvCorrection::AutoDirectionAlways) && !text.empty()) UpdateDirection(text);
}

void TOrvStyledEdit::TakeFormerCaret() {
  if (!Corrects(TOrvCorrection::FreshCaret)) return;
  if (Model().HasSelection() || Model().SelStart() != 0) return TakeSelection();
  SetCaretPosition(Model().CaretPosition());
}

void TOrvStyledEdit::SetAutoDirection(bool automatic) {
  FAutoDirection = automatic;
  if (Corrects(TOrvCorrection::AutoDirectionAlways) && HasText()) UpdateDirection(GetText());
}

// --- LongPress, PasswordKeys ---

void TOrvStyledEdit::DropSelectionForLongPress() {
  if (Corrects(TOrvCorrection::LongPress) && Model().HasSelection()) SelectNothingAt(GetOriginCaretPosition());
}

bool TOrvStyledEdit::KeepsPassword() const {
  return Model().Password() && Corrects(TOrvCorrection::PasswordKeys);
}

// --- Handles ---

// The left handle is the one of the selection's start in the text, whichever side that is on.
void TOrvStyledEdit::PlaceHandles() {
  const fmx::TTextRange selection = Model().Selection();
  const fmx::TRectF content = ContentRect();
  const float bottom = GetSelRect().Bottom;
  const float reach = 2 * FLeftSelPt->GripSize();
  const auto place = [&](fmx::TSelectionPoint& point, std::int32_t position, float y) {
    const float x = View().GetCharX(position);
    const bool isInView = View().HasPlaceFor(position) && x >= content.Left && x <= content.Right;
    point.SetVisible(selection.Length > 0 && IsFocused() && isInView);
    point.SetPosition({View().ToBox(x), y});
  };
  place(*FLeftSelPt, selection.Pos, bottom - reach);
  place(*FRightSelPt, selection.Pos + selection.Length, bottom + reach);
  CrossHandles(false);
}

// The dragged end, which is the caret, stops one character before the other.
void TOrvStyledEdit::DragEnd(float& x, float& y, TSelectionPointType type) {
  const fmx::TTextRange selection = Model().Selection();
  if (selection.Length == 0) return;
  const bool isLeft = type == TSelectionPointType::Left;
  const std::u16string text = GetText();
  const std::int32_t start = selection.Pos;
  const std::int32_t end = start + selection.Length;
  const std::int32_t pressed = Held(HitPosition(x));
  const std::int32_t caret = isLeft ? std::min(pressed, fmx::CharacterBefore(text, end))
                                    : std::max(pressed, fmx::CharacterBehind(text, start));
  {
    const fmx::TModelUpdate update(Model());
    SetCaretPosition(caret);
    Model().SetSelStart(caret);
    Model().SetSelLength((isLeft ? end : start) - caret);
  }
  x = View().ToBox(View().GetCharX(caret));
  y = (isLeft ? FLeftSelPt : FRightSelPt)->Position().Y;
  UpdateSelectionPointPositions();
  SetLoupePosition(type);
}

// --- Composition ---

void TOrvStyledEdit::SettleText() {
  const std::u16string text = GetText();
  View().TakeText(text);
  StoreText(text, TStoring::AsItComes);
  View().UpdateFirstVisibleChar();
  ShowPrompt();
  // Where the composition began by the rules, the caret may stand in it.
  if (GetOriginCaretPosition() > LengthOf(text))
    SetCaretPosition(LengthOf(text));
  else
    UpdateCaretPosition();
  RepaintEdit();
}

// What else happens to the box takes what is being composed out of the text: the input method, which still has it, puts
// it where the caret is by then. Answers whether there was something.
bool TOrvStyledEdit::LeaveComposition() {
  if (!Corrects(TOrvCorrection::Composition) || !FTextService->HasMarkedText()) return false;
  FTextService->SetMarkedText({}, 0);
  SettleText();
  return true;
}

bool TOrvStyledEdit::RefusesComposition() {
  if (!Corrects(TOrvCorrection::Composition) || IsEditable()) return false;
  FTextService->SetMarkedText({}, 0);
  SettleText();
  return true;
}

void TOrvStyledEdit::MakeRoomForComposition() {
  if (!Corrects(TOrvCorrection::Composition) || !IsEditable() || !Model().HasSelection()) return;
  const fmx::TObservers& observers = FEdit.Observers();
  const bool isLinked = observers.IsObserving(fmx::TObserverKind::EditLink);
  if (!isLinked || observers.EditLinkEdit()) DeleteSelectedText();
}

// Where a press takes the caret once nothing is composed any more.
std::int32_t TOrvStyledEdit::PressedPosition(float x) {
  const std::int32_t position = HitPosition(x);
  const std::int32_t from = GetOriginCaretPosition();
  const std::int32_t marked = LengthOf(FTextService->MarkedText());
  const bool isBehind = LeaveComposition() && position > from;
  return isBehind ? std::max(from, position - marked) : position;
}

// --- Texts of the presentation's own doing ---

void TOrvStyledEdit::StoreText(std::u16string_view text, TStoring storing) {
  struct TWriting {
    bool& Writes;
    const bool Did;
    ~TWriting() { Writes = Did; }
  } const writing{FWritesText, std::exchange(FWritesText, true)};
  if (storing == TStoring::AsItComes)
    Model().SetTextWithoutValidation(text);
  else
    Model().SetRest(text);
}

}  // namespace orv
