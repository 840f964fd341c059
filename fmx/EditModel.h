// The values of a single-line edit control.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "fmx/Brush.h"
#include "fmx/Caret.h"
#include "fmx/EditText.h"
#include "fmx/Messages.h"
#include "fmx/Rounding.h"
#include "fmx/TextService.h"
#include "fmx/TextSettings.h"
#include "fmx/TextWords.h"

namespace fmx {

// Messages of an edit model; the comment names what travels along.
enum TEditModelMessage : TMessageId {
  MMCaretPositionChanged = 1,  // the position
  MMSelStartChanged,           // the position
  MMSelLengthChanged,          // the length
  MMTextChanging,              // the text that is to come
  MMTextChanged,               // the text
  MMTextSettingsChanged,       // whether the size of a line may have changed
  MMMaxLengthChanged,          // the length
  MMCharCaseChanged,           // the case's number
  MMFilterCharChanged,         // the units
  MMImeModeChanged,            // nothing
  MMPasswordChanged,           // whether
  MMPromptTextChanged,         // the text
  MMCheckSpellingChanged,      // whether
  MMReadOnlyChanged,           // whether
  MMEditButtonsChanged,        // nothing
  MMGetCaretPositionByPoint,   // a point of the control, answered by a position
  MMLastEditMessage
};

// Positions are UTF-16 code units and are kept as they come, also outside of the text. While something is selected,
// SelStart is the caret and SelStart + SelLength the other end, so that SelLength may be negative. Main thread.
class TCustomEditModel : public TDataModel {
 public:
  TCustomEditModel();

  // --- Text ---

  const std::u16string& Text() const { return FText; }
  // Keeps the units that the filter allows, maps their case, and cuts the rest off at the limit; selection and caret
  // stay as they are.
  void SetText(std::u16string_view text);
  // As it comes.
  void SetTextWithoutValidation(std::u16string_view text);
  std::u16string Validated(std::u16string_view text) const;
  // What is left of a text when some of it has gone: by the plain rules a text like any other, and as it comes where
  // filter and limit hold for what is written alone (TEditRule::WholeCharacters).
  void SetRest(std::u16string_view text);
  // What of a text may be written beside so many units that stay: whole characters that the filter allows, in their
  // case, as many as the limit leaves room for.
  std::u16string Admitted(std::u16string_view text, std::int32_t staying) const;

  // The presentation's; asked at each use, empty without a source.
  TEditRules Rules() const { return FRules ? FRules() : TEditRules{}; }
  void SetRules(std::function<TEditRules()> source) { FRules = std::move(source); }
  TWordRule WordRule() const {
    return Rules().Contains(TEditRule::WholeWords) ? TWordRule::WithMarks : TWordRule::ByCharacter;
  }

  // The units allowed; empty allows all.
  const std::u16string& FilterChar() const { return FFilterChar; }
  void SetFilterChar(std::u16string_view filter) { Change(FFilterChar, std::u16string(filter), MMFilterCharChanged); }
  TCharCase CharCase() const { return FCharCase; }
  void SetCharCase(TCharCase charCase);
  // 0 and less are no limit.
  std::int32_t MaxLength() const { return FMaxLength; }
  void SetMaxLength(std::int32_t length) { Change(FMaxLength, length, MMMaxLengthChanged); }

  // --- Caret and selection ---

  std::int32_t CaretPosition() const { return FCaretPosition; }
  void SetCaretPosition(std::int32_t position) { Change(FCaretPosition, position, MMCaretPositionChanged); }
  // As SetCaretPosition, and tells the presentation in any case, so that the caret is placed anew.
  void PlaceCaret(std::int32_t position) {
    FCaretPosition = position;
    Send(MMCaretPositionChanged, position);
  }
  std::int32_t SelStart() const { return FSelStart; }
  void SetSelStart(std::int32_t start) { Change(FSelStart, start, MMSelStartChanged); }
  std::int32_t SelLength() const { return FSelLength; }
  void SetSelLength(std::int32_t length) { Change(FSelLength, length, MMSelLengthChanged); }
  // The other end of the selection; the far end of the numbers where it is beyond.
  std::int32_t SelEnd() const { return SaturatedSum(FSelStart, FSelLength); }
  bool HasSelection() const { return FSelLength != 0; }
  // The left end and the length, both held in the text.
  TTextRange Selection() const;
  std::u16string SelectedText() const;
  TCustomCaret& Caret() { return FCaret; }

  // --- Behaviour ---

  bool ReadOnly() const { return FReadOnly; }
  void SetReadOnly(bool readOnly);
  // False: the box takes no input at all. True at first.
  bool InputSupport() const { return FInputSupport; }
  void SetInputSupport(bool inputSupport) { FInputSupport = inputSupport; }
  bool Password() const { return FPassword; }
  void SetPassword(bool password) { Change(FPassword, password, MMPasswordChanged); }
  TImeMode ImeMode() const { return FImeMode; }
  void SetImeMode(TImeMode mode);
  bool KillFocusByReturn() const { return FKillFocusByReturn; }
  void SetKillFocusByReturn(bool kill) { FKillFocusByReturn = kill; }
  bool CheckSpelling() const { return FCheckSpelling; }
  void SetCheckSpelling(bool check) { Change(FCheckSpelling, check, MMCheckSpellingChanged); }

  // --- Looks ---

  // What an empty box shows.
  const std::u16string& PromptText() const { return FPromptText; }
  void SetPromptText(std::u16string_view text) { Change(FPromptText, std::u16string(text), MMPromptTextChanged); }
  TTextSettingsInfo& TextSettingsInfo() { return FTextSettingsInfo; }
  // The application's.
  TTextSettings& TextSettings() { return FTextSettingsInfo.Own(); }
  TBrush& SelectionFill() { return FSelectionFill; }

  // --- Events ---

  // Whether a text is being typed that the owner has not been told of.
  bool Typing() const { return FTyping; }
  void SetTyping(bool typing) { FTyping = typing; }
  // Tells the owner that the text is another one.
  void Change();
  std::function<void()> OnChange;
  // A person has typed.
  std::function<void()> OnTyping;

  // By the presentation; the caret's place without one.
  std::int32_t GetCaretPositionByPoint(TPointF point);
  void EditButtonsChanged() { Send(MMEditButtonsChanged); }

 private:
  using TDataModel::Change;

  std::u16string Cased(std::u16string text) const;

  std::function<TEditRules()> FRules;
  std::u16string FText;
  std::u16string FFilterChar;
  TCharCase FCharCase = TCharCase::Normal;
  std::int32_t FMaxLength = 0;
  std::int32_t FCaretPosition = 0;
  std::int32_t FSelStart = 0;
  std::int32_t FSelLength = 0;
  TCustomCaret FCaret;
  bool FReadOnly = false;
  bool FInputSupport = true;
  bool FPassword = false;
  bool FKillFocusByReturn = false;
  bool FCheckSpelling = false;
  bool FTyping = false;
  TImeMode FImeMode = TImeMode::DontCare;
  std::u16string FPromptText;
  TTextSettingsInfo FTextSettingsInfo;
  TBrush FSelectionFill{0x553B82F6};
};

}  // namespace fmx
