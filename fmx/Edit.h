// The single-line edit control.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "fmx/EditModel.h"
#include "fmx/PresentedControl.h"

namespace fmx {

inline constexpr TMessageId PMGetTextContentRect = PMLastControlMessage + 1;  // answered by a rectangle of the control
inline constexpr TMessageId PMInsertText = PMLastControlMessage + 2;          // a text for the place of the selection

// A child of an edit's buttons that takes part in their row.
class IEditButton {
 public:
  virtual ~IEditButton() = default;
};

// Its text, caret and selection are those of its model. Main thread.
class TCustomEdit : public TPresentedControl {
 public:
  TCustomEdit();
  ~TCustomEdit() override;
  std::string_view ClassName() const override { return "TCustomEdit"; }

  TCustomEditModel& Model() override { return FModel; }
  const TCustomEditModel& Model() const { return FModel; }

  const std::u16string& Text() const { return FModel.Text(); }
  void SetText(std::u16string_view text) { FModel.SetText(text); }
  bool GetReadOnly() const { return FModel.ReadOnly(); }

  // The left end and the length of what is selected.
  std::int32_t GetSelStart() const { return FModel.Selection().Pos; }
  std::int32_t GetSelLength() const { return FModel.Selection().Length; }

  // --- What a menu offers ---

  // They leave the caret at the end of what they select. SelectWord takes the word around the caret, or what is
  // between words (TEditRule::WholeWords tells what a word is).
  void SelectAll();
  void SelectWord();
  // Nothing out of a password box, and nothing where nothing is selected.
  void CopyToClipboard() const;
  // Copies, and deletes. Nothing in a password box that keeps its text to itself (TEditRule::KeepsPasswords).
  void CutToClipboard();
  // In the place of the selection, as it is, by the presentation. Nothing in a read-only box, or with an empty
  // clipboard.
  void PasteFromClipboard();
  // The caret goes where the selection began. Nothing in a read-only box.
  void DeleteSelection();
  // Selects nothing; the caret goes where the selection began, be that outside of the text.
  void ResetSelection();

  // Where its buttons stand; each child that is an IEditButton has a place in the row. Borrowed.
  TControl& ButtonsContent() { return *FButtonsContent; }
  // The room of the text, in the control's coordinates.
  TRectF TextContentRect();

 private:
  void Select(std::int32_t from, std::int32_t to);
  void SelectNothingAt(std::int32_t caret);

  TCustomEditModel FModel;
  TControl* FButtonsContent;
};

// Raises EInvalidOperation for a control that is no edit.
TCustomEdit& AsCustomEdit(TPresentedControl& control);

// Has a presentation from the start: text that reads from left to right (fmx/StyledEdit.h).
class TEdit final : public TCustomEdit {
 public:
  ~TEdit() override { FreePresentation(); }
  std::string_view ClassName() const override { return "TEdit"; }
};

}  // namespace fmx
