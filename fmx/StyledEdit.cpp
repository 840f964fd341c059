#include "fmx/StyledEdit.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "fmx/EditText.h"
#include "fmx/GPUTextLayout.h"
#include "fmx/Menu.h"
#include "fmx/Style.h"
#include "fmx/TextLayoutManager.h"
#include "fmx/TextWords.h"
#include "rtl/Strings.h"
#include "rtl/Unicode.h"

namespace fmx {
namespace {

constexpr char16_t PasswordDot = u'\u2022';
constexpr TShiftState ShiftAlone{TShiftItem::Shift};

using rtl::LengthOf;

std::unique_ptr<TTextLayout> NewLayout() {
  const orv::TClass registered = TTextLayoutManager::GetDefaultLayout();
  return TTextLayout::New(registered != nullptr ? registered : TGPUTextLayout::Class());
}

}  // namespace

TStyledEdit::TStyledEdit(TPresentedControl& control)
    : TStyledPresentation(control), FEdit(AsCustomEdit(control)), FLayout(NewLayout()) {
  FLayout->SetVerticalAlign(TTextAlign::Center);
}

TStyledEdit::~TStyledEdit() {
  FreeStyleLookup();
}

std::int32_t TStyledEdit::Caret() const {
  return HeldAtCharacter(FEdit.Text(), Model().CaretPosition());
}

// --- Messages ---

void TStyledEdit::Dispatch(TMessage& message) {
  switch (message.Id) {
    case MMCaretPositionChanged: {
      const TModelUpdate update(Model());
      if (!Model().HasSelection()) Model().SetSelStart(Caret());
      return ShowCaret();
    }
    case MMSelStartChanged:
    case MMSelLengthChanged:
      return ShowCaret();
    case MMTextChanged:
    case MMPasswordChanged:
      return TakeText();
    case MMTextSettingsChanged:
      return TakeSettings();
    case MMPromptTextChanged:
      return ShowPrompt();
    case MMGetCaretPositionByPoint:
      message.Value = GetCaretPosition(message.As<TPointF>().X);
      return;
    case MMEditButtonsChanged:
      return Realign();
    case PMInit:
      TakeSettings();
      return TakeText();
    case PMDoBeforeExit:
      return BeforeExit();
    case PMInsertText:
      return Insert(message.As<std::u16string>());
    case PMGetTextContentRect:
      message.Value = ContentRect();
      return;
    default:
      return TStyledPresentation::Dispatch(message);
  }
}

void TStyledEdit::TakeText() {
  const std::u16string& text = FEdit.Text();
  FLayout->SetText(Model().Password() ? std::u16string(text.size(), PasswordDot) : text);
  ShowPrompt();
  ShowCaret();
}

void TStyledEdit::TakeSettings() {
  FLayout->SetFont(Settings().Font());
  ShowPrompt();
  ShowCaret();
}

void TStyledEdit::BeforeExit() {
  if (Root() == nullptr) return;
  Model().Change();
  FEdit.Observers().EditLinkUpdate();
  FEdit.Observers().ControlValueUpdate();
}

// --- Style and places ---

void TStyledEdit::ApplyStyle() {
  TStyledPresentation::ApplyStyle();
  FContent = dynamic_cast<TControl*>(FindStyleResource("content"));
  FPrompt = dynamic_cast<TControl*>(FindStyleResource("prompt"));
  if (FContent != nullptr) {
    FContent->SetHitTest(false);
    FContent->OnPaint = [this](TControl&, TCanvas& canvas, const TRectF& rect) { PaintContent(canvas, rect); };
  }
  TTextSettings& settings = Model().TextSettingsInfo().Defaults();
  settings.BeginUpdate();
  if (const auto* brush = dynamic_cast<TBrushObject*>(FindStyleResource("selection")))
    Model().SelectionFill() = brush->Brush;
  if (const auto* brush = dynamic_cast<TBrushObject*>(FindStyleResource("foreground")))
    settings.SetFontColor(brush->Brush.Color());
  if (const auto* font = dynamic_cast<IFontObject*>(FindStyleResource("font"))) settings.Font().Assign(font->GetFont());
  const auto* caret = dynamic_cast<TColorObject*>(FindStyleResource("caretcolor"));
  Model().Caret().SetDefaultColor(caret != nullptr ? caret->Color : 0);
  settings.EndUpdate();
  Realign();
}

void TStyledEdit::FreeStyle() {
  FContent = nullptr;
  FPrompt = nullptr;
  TStyledPresentation::FreeStyle();
}

void TStyledEdit::DoRealign() {
  TStyledPresentation::DoRealign();
  TControl& buttons = FEdit.ButtonsContent();
  float row = 0;
  for (const TControl* button : buttons.Children())
    if (dynamic_cast<const IEditButton*>(button) != nullptr) row += button->Width();
  buttons.SetBounds(Width() - row, 0, row, Height());
  if (FContent == nullptr) return;
  const TBounds margins = FContent->Margins();
  const TRectF room = LocalRect().Inset(margins);
  for (TControl* part : {FContent, FPrompt})
    if (part != nullptr) part->SetBounds(room.Left, room.Top, room.Width() - row, room.Height());
  FLayout->SetMaxSize({TTextLayout::MaxLayoutSize.X, FContent->Height()});
  ShowCaret();
}

TRectF TStyledEdit::ContentRect() const {
  return FContent != nullptr ? FContent->LocalRect().Offset(FContent->Position()) : LocalRect();
}

float TStyledEdit::GetCharX(std::int32_t index) {
  for (std::int32_t i = std::min(index, LengthOf(FLayout->Text())); i > 0; --i)
    if (const TRegion box = FLayout->RegionForRange({i - 1, 1}); !box.empty())
      return ContentRect().Left + box.front().Right;
  return ContentRect().Left + FLayout->TopLeft().X;
}

std::int32_t TStyledEdit::GetCaretPosition(float x) {
  const TRectF rect = FLayout->TextRect();
  const TPointF point{x - ContentRect().Left, (rect.Top + rect.Bottom) / 2};
  return HeldAtCharacter(FEdit.Text(), FLayout->PositionAtPoint(point, false));
}

TRectF TStyledEdit::SelectionRect() {
  if (!FEdit.IsFocused() || !Model().HasSelection()) return {};
  const TTextRange range = Model().Selection();
  const TRectF line = FLayout->TextRect();
  return {GetCharX(range.Pos), ContentRect().Top + line.Top, GetCharX(range.Pos + range.Length),
          ContentRect().Top + line.Bottom};
}

// --- Caret ---

void TStyledEdit::MoveTo(std::int32_t position, bool selects) {
  const std::int32_t anchor = Model().HasSelection() ? Model().SelEnd() : Caret();
  const std::int32_t caret = HeldAtCharacter(FEdit.Text(), position);
  {
    const TModelUpdate update(Model());
    Model().SetCaretPosition(caret);
    Model().SetSelStart(caret);
    Model().SetSelLength(selects ? SaturatedDifference(anchor, caret) : 0);
  }
  ShowCaret();
}

// A text that fits stands where its alignment says; any other is moved no further than the caret needs, with no free
// room behind it.
void TStyledEdit::Scroll() {
  const float room = std::max(ContentRect().Width() - Model().Caret().Width(), 0.0F);
  const float free = room - FLayout->TextWidth();
  FLayout->SetTopLeft({0, 0});
  if (free >= 0) {
    FScrolled = 0;
    const TTextAlign align = Settings().HorzAlign();
    const float shift = align == TTextAlign::Leading ? 0 : align == TTextAlign::Center ? free / 2 : free;
    FLayout->SetTopLeft({shift, 0});
    return;
  }
  const float caret = GetCharX(Caret()) - ContentRect().Left;
  FScrolled = std::min(std::clamp(FScrolled, std::max(caret - room, 0.0F), std::max(caret, 0.0F)), -free);
  FLayout->SetTopLeft({-FScrolled, 0});
}

void TStyledEdit::ShowCaret() {
  Scroll();
  TCustomCaret& caret = Model().Caret();
  const TRectF content = ContentRect();
  const TRectF line = FLayout->TextRect();
  caret.BeginUpdate();
  caret.SetPosition({GetCharX(Caret()), content.Top + line.Top});
  caret.SetSize({std::min(caret.Width(), content.Width()), std::min(line.Height(), content.Height())});
  caret.SetTemporarilyHidden(Model().HasSelection());
  caret.EndUpdate();
  Repaint();
}

// --- Changes ---

void TStyledEdit::Replace(TTextRange range, std::u16string_view inserted) {
  const TObservers& observers = FEdit.Observers();
  if (!IsEditable() || !observers.EditLinkEdit()) return;
  std::u16string text = FEdit.Text();
  std::u16string valid = Model().Validated(inserted);
  if (Model().MaxLength() > 0) {
    const std::int32_t room = Model().MaxLength() - (LengthOf(text) - range.Length);
    valid.resize(CutAtCharacter(valid, room).size());
  }
  text.replace(static_cast<std::size_t>(range.Pos), static_cast<std::size_t>(range.Length), valid);
  {
    const TModelUpdate update(Model());
    Model().SetText(text);
    Model().SetSelLength(0);
  }
  TakeText();
  MoveTo(range.Pos + LengthOf(valid), false);
  observers.EditLinkModified();
  observers.ControlValueModified();
}

void TStyledEdit::Insert(std::u16string_view text) {
  Replace(Model().HasSelection() ? Model().Selection() : TTextRange{Caret(), 0}, text);
}

void TStyledEdit::TypeCharacter(char16_t c) {
  if (rtl::IsHighSurrogate(c)) {
    FHighSurrogate = c;
    return;
  }
  std::u16string typed(1, c);
  if (rtl::IsLowSurrogate(c) && FHighSurrogate != 0) typed.insert(0, 1, FHighSurrogate);
  FHighSurrogate = 0;
  if (FEdit.Observers().EditLinkIsValidChar(c)) Insert(typed);
  Typed();
}

void TStyledEdit::Typed() {
  if (const auto event = Model().OnTyping) event();
}

// --- Keys ---

void TStyledEdit::KeyDown(TKeyEvent& event) {
  if (!Model().InputSupport()) return;
  const bool ctrl = event.Shift.Contains(TShiftItem::Ctrl) || event.Shift.Contains(TShiftItem::Command);
  bool handled = MoveByKey(event, ctrl) || DeleteByKey(event, ctrl) || CommandByKey(event, ctrl);
  if (event.Key == Keys::Return) Return();
  if (event.KeyChar >= u' ' && !Model().ReadOnly()) {
    TypeCharacter(event.KeyChar);
    handled = true;
  }
  if (handled) event.SetHandled();
}

bool TStyledEdit::MoveByKey(const TKeyEvent& event, bool ctrl) {
  const std::u16string& text = FEdit.Text();
  const bool selects = event.Shift.Contains(TShiftItem::Shift);
  switch (event.Key) {
    case Keys::Home:
      MoveTo(0, selects);
      return true;
    case Keys::End:
      MoveTo(LengthOf(text), selects);
      return true;
    case Keys::Left:
      MoveTo(ctrl ? GetPrevLexemeBegin(text, Caret()) : CharacterBefore(text, Caret()), selects);
      return true;
    case Keys::Right:
      MoveTo(ctrl ? GetNextLexemeBegin(text, Caret()) : CharacterBehind(text, Caret()), selects);
      return true;
    default:
      return false;
  }
}

bool TStyledEdit::DeleteByKey(const TKeyEvent& event, bool ctrl) {
  const bool back = event.Key == Keys::Backspace;
  if ((!back && event.Key != Keys::Delete) || Model().ReadOnly()) return false;
  if (!back && event.Shift == ShiftAlone) {
    Cut();
  } else if (Model().HasSelection()) {
    Insert({});
  } else {
    const std::u16string& text = FEdit.Text();
    const std::int32_t caret = Caret();
    std::int32_t other = back ? CharacterBefore(text, caret) : CharacterBehind(text, caret);
    if (ctrl) other = HeldAtCharacter(text, back ? GetPrevLexemeBegin(text, caret) : GetNextLexemeBegin(text, caret));
    Replace({std::min(caret, other), std::abs(caret - other)}, {});
  }
  Typed();
  return true;
}

bool TStyledEdit::CommandByKey(const TKeyEvent& event, bool ctrl) {
  if (event.Key == 'A' && ctrl) {
    FEdit.SelectAll();
  } else if ((event.Key == 'C' || event.Key == Keys::Insert) && ctrl) {
    FEdit.CopyToClipboard();
  } else if ((event.Key == 'V' && ctrl) || (event.Key == Keys::Insert && event.Shift == ShiftAlone)) {
    FEdit.PasteFromClipboard();
    Typed();
  } else if (event.Key == 'X' && ctrl && !Model().ReadOnly()) {
    Cut();
    Typed();
  } else {
    return false;
  }
  return true;
}

// What cannot be copied is not lost by cutting it.
void TStyledEdit::Cut() {
  if (!Model().Password()) FEdit.CutToClipboard();
}

void TStyledEdit::Return() {
  Model().Change();
  FEdit.Observers().EditLinkUpdate();
  FEdit.Observers().ControlValueUpdate();
  IRoot* const root = Root();
  if (Model().KillFocusByReturn() && root != nullptr) root->SetFocused(nullptr);
}

// --- Pointer and focus ---

void TStyledEdit::MouseDown(const TMouseEvent& event) {
  TStyledPresentation::MouseDown(event);
  if (event.Button != TMouseButton::Left || !Model().InputSupport()) return;
  MoveTo(GetCaretPosition(event.Point.X), event.Shift.Contains(TShiftItem::Shift));
  FSelecting = !event.DoubleClick;
  if (event.DoubleClick) FEdit.SelectWord();
}

void TStyledEdit::MouseMove(const TMouseEvent& event) {
  TStyledPresentation::MouseMove(event);
  if (FSelecting) MoveTo(GetCaretPosition(event.Point.X), true);
}

void TStyledEdit::MouseUp(const TMouseEvent& event) {
  TStyledPresentation::MouseUp(event);
  FSelecting = false;
}

bool TStyledEdit::ShowContextMenu(TPointF point) {
  if (FEdit.PopupMenu == nullptr || IsDesigning()) return false;
  FEdit.PopupMenu->Popup(Saturated(Round(point.X)), Saturated(Round(point.Y)));
  return true;
}

void TStyledEdit::DoEnter() {
  TStyledPresentation::DoEnter();
  Model().Caret().SetVisible(true);
  if (IsEditable()) FEdit.SelectAll();
  UpdateEffects();
}

void TStyledEdit::DoExit() {
  TStyledPresentation::DoExit();
  FSelecting = false;
  FHighSurrogate = 0;
  Model().Caret().SetVisible(false);
  UpdateEffects();
}

// --- Painting ---

void TStyledEdit::ShowPrompt() {
  if (FPrompt == nullptr) return;
  FPrompt->SetVisible(FEdit.Text().empty());
  if (auto* const prompt = dynamic_cast<ITextObject*>(FPrompt)) prompt->SetText(Model().PromptText());
  if (auto* const prompt = dynamic_cast<ITextSettingsObject*>(FPrompt)) prompt->GetTextSettings().Assign(Settings());
}

void TStyledEdit::PaintContent(TCanvas& canvas, const TRectF& rect) {
  const TCanvasStateGuard guard(canvas);
  canvas.IntersectClipRect(rect);
  const TPointF corner = FContent->Position();
  if (const TRectF selected = SelectionRect(); !selected.IsEmpty())
    canvas.FillRect(selected.Offset(-corner.X, -corner.Y), AbsoluteOpacity(), Model().SelectionFill());
  FLayout->SetColor(Settings().FontColor());
  FLayout->SetOpacity(AbsoluteOpacity());
  FLayout->RenderLayout(canvas);
}

void TStyledEdit::PaintOver(TCanvas& canvas) {
  Model().Caret().Paint(canvas, AbsoluteOpacity());
}

}  // namespace fmx
