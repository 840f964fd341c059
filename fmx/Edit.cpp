#include "fmx/Edit.h"

#include <algorithm>
#include <utility>

#include "fmx/Exceptions.h"
#include "fmx/Services.h"
#include "fmx/TextWords.h"

namespace fmx {

TCustomEdit& AsCustomEdit(TPresentedControl& control) {
  auto* const edit = dynamic_cast<TCustomEdit*>(&control);
  if (edit == nullptr) throw EInvalidOperation("The control is no edit");
  return *edit;
}

TCustomEdit::TCustomEdit() : FButtonsContent(&InsertComponent(std::make_unique<TControl>())) {
  FButtonsContent->SetParent(this);
  SetCursor(TCursor::IBeam);
  FModel.Caret().OnRepaint = [this] { Repaint(); };
}

TCustomEdit::~TCustomEdit() {
  Destroying();
  FreePresentation();
}

// --- Selection ---

void TCustomEdit::Select(std::int32_t from, std::int32_t to) {
  FModel.PlaceCaret(to);
  FModel.SetSelStart(to);
  FModel.SetSelLength(from - to);
}

void TCustomEdit::SelectAll() {
  Select(0, static_cast<std::int32_t>(Text().size()));
}

void TCustomEdit::SelectWord() {
  if (const auto word = FindWordBound(Text(), FModel.CaretPosition(), FModel.WordRule()))
    Select(word->Begin, word->End + 1);
}

void TCustomEdit::ResetSelection() {
  SelectNothingAt(std::min(FModel.SelStart(), FModel.SelEnd()));
}

void TCustomEdit::SelectNothingAt(std::int32_t caret) {
  FModel.SetSelLength(0);
  FModel.PlaceCaret(caret);
  FModel.SetSelStart(caret);
}

// --- Clipboard ---

void TCustomEdit::CopyToClipboard() const {
  if (FModel.Password() || GetSelLength() == 0) return;
  if (const auto clipboard = FindService<IFMXClipboardService>()) clipboard->SetText(FModel.SelectedText());
}

void TCustomEdit::CutToClipboard() {
  if (FModel.Password() && FModel.Rules().Contains(TEditRule::KeepsPasswords)) return;
  CopyToClipboard();
  DeleteSelection();
}

void TCustomEdit::PasteFromClipboard() {
  const auto clipboard = FindService<IFMXClipboardService>();
  if (clipboard == nullptr || FModel.ReadOnly() || !FModel.InputSupport()) return;
  if (std::u16string pasted = clipboard->GetText(); !pasted.empty())
    SendToPresentation(PMInsertText, std::move(pasted));
}

void TCustomEdit::DeleteSelection() {
  if (FModel.ReadOnly() || !FModel.InputSupport() || !FModel.HasSelection()) return;
  const TTextRange selection = FModel.Selection();
  std::u16string text = Text();
  text.erase(static_cast<std::size_t>(selection.Pos), static_cast<std::size_t>(selection.Length));
  // A presentation may follow the new text with the selection.
  const std::int32_t start = std::min(FModel.SelStart(), FModel.SelEnd());
  FModel.SetRest(text);
  SelectNothingAt(start);
}

TRectF TCustomEdit::TextContentRect() {
  const TMessageValue answer = SendToPresentation(PMGetTextContentRect);
  const auto* rect = std::get_if<TRectF>(&answer);
  return rect != nullptr ? *rect : LocalRect();
}

}  // namespace fmx
