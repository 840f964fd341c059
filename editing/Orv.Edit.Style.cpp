// The control's state, its text and caret, and the messages of its model.
#include "editing/Orv.Edit.Style.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "editing/Orv.Edit.Corrections.h"
#include "fmx/CanvasManager.h"
#include "fmx/Exceptions.h"
#include "fmx/TextLayoutManager.h"
#include "rtl/Strings.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv {
namespace {

fmx::TCustomEdit& AsEdit(fmx::TPresentedControl& control) {
  auto* const edit = dynamic_cast<fmx::TCustomEdit*>(&control);
  if (edit == nullptr) throw fmx::EInvalidOperation("The control is no edit");
  return *edit;
}

std::unique_ptr<fmx::TTextLayout> NewDefaultLayout() {
  const TClass registered = fmx::TTextLayoutManager::GetDefaultLayout();
  return fmx::TTextLayout::New(registered != nullptr ? registered : TTextLayoutNGOrv::Class());
}

using rtl::LengthOf;

// Messages that ask and change nothing.
constexpr bool IsQuestion(fmx::TMessageId id) {
  return id == fmx::MMGetCaretPositionByPoint || id == fmx::PMGetTextContentRect;
}

}  // namespace

TOrvStyledEdit::TOrvStyledEdit(fmx::TPresentedControl& control)
    : TStyledPresentation(control),
      FEdit(AsEdit(control)),
      FTextService(fmx::TTextService::NewDefault(false)),
      FTextLayout(NewDefaultLayout()),
      FLoupeService(fmx::FindService<fmx::ILoupeService>()),
      FClipboardSvc(fmx::FindService<fmx::IFMXClipboardService>()) {
  SetInteractiveGestures(InteractiveGestures() + fmx::TInteractiveGestures{fmx::TInteractiveGesture::LongTap,
                                                                           fmx::TInteractiveGesture::DoubleTap});
  Model().SetRules(&RulesInForce);
}

TOrvStyledEdit::~TOrvStyledEdit() {
  Model().SetRules(nullptr);
  FreeStyleLookup();
}

void RegisterEditStyle() {
  auto& factory = fmx::TPresentationProxyFactory::Current();
  const auto make = &fmx::TStyledPresentationProxy<TOrvStyledEdit>::Make;
  factory.Replace("TEdit", fmx::TControlType::Styled, make);
  factory.Replace("Edit-ide-platform", make);
}

// --- Direction ---

bool TOrvStyledEdit::IsRightToLeft() const {
  return fmx::GlobalUseGPUCanvas && FBidiMode == fmx::TBiDiMode::RightToLeft;
}

void TOrvStyledEdit::SetBidiMode(fmx::TBiDiMode mode) {
  if (mode == FBidiMode) return;
  FBidiMode = mode;
  UpdateTextLayout();
}

void TOrvStyledEdit::ToggleBidiMode() {
  using fmx::TBiDiMode;
  SetBidiMode(FBidiMode == TBiDiMode::LeftToRight ? TBiDiMode::RightToLeft : TBiDiMode::LeftToRight);
}

fmx::TFillTextFlags TOrvStyledEdit::FillTextFlags() {
  FBidiMode =
      HorizontalAlignment() == fmx::TTextAlign::Trailing ? fmx::TBiDiMode::RightToLeft : fmx::TBiDiMode::LeftToRight;
  return IsRightToLeft() ? fmx::TFillTextFlags{fmx::TFillTextFlag::RightToLeft} : fmx::TFillTextFlags{};
}

bool TOrvStyledEdit::IsFormRightToLeft() const {
  const fmx::IRoot* const root = Root();
  return root != nullptr && root->GetBiDiMode() != fmx::TBiDiMode::LeftToRight;
}

void TOrvStyledEdit::UpdateDirection(std::u16string_view text) {
  fmx::TTextSettings& settings = Model().TextSettings();
  if (!FAutoDirection || settings.HorzAlign() == fmx::TTextAlign::Center) return;
  const bool rightToLeft = TDirectiveChars::IsRTLText(text, IsFormRightToLeft());
  settings.SetHorzAlign(rightToLeft ? fmx::TTextAlign::Trailing : fmx::TTextAlign::Leading);
}

// --- Places ---

TOrvEditView& TOrvStyledEdit::View() {
  if (FView == nullptr || FViewCorrections != TOrvGlobalSettings::Corrections) PickView();
  return *FView;
}

// The layout was made by the corrections that were in force.
void TOrvStyledEdit::PickView() {
  const bool isFirst = FView == nullptr;
  FViewCorrections = TOrvGlobalSettings::Corrections;
  FView = TOrvEditView::For(*this);
  if (isFirst) return;
  FTextLayout = NewDefaultLayout();
  FTextLayout->SetText(GetText());
  UpdateTextLayout();
  FView->UpdateFirstVisibleChar();
  UpdateSpelling();
}

fmx::TRectF TOrvStyledEdit::ContentRect() const {
  return FContent != nullptr ? FContent->LocalRect() : LocalRect();
}

fmx::TBounds TOrvStyledEdit::ContentPadding() const {
  return FContent != nullptr ? FContent->Padding() : fmx::TBounds{};
}

fmx::TTextAlign TOrvStyledEdit::HorizontalAlignment() const {
  return ResultingSettings().HorzAlign();
}

float TOrvStyledEdit::GetPasswordCharWidth() const {
  return ResultingSettings().Font().Size() / 2;
}

float TOrvStyledEdit::GetFlasherWidth() const {
  return Model().Caret().GetFlasher().GetWidth();
}

// --- Caret ---

void TOrvStyledEdit::SetCaretPosition(std::int32_t value) {
  const std::int32_t position = Held(value);
  FTextService->SetMarkedTextPosition({position, 0});
  FTextService->SetCaretPosition({position, 0});
  View().UpdateFirstVisibleChar();
  {
    const fmx::TModelUpdate update(Model());
    Model().SetCaretPosition(position);
    if (Model().SelLength() == 0) Model().SetSelStart(Corrects(TOrvCorrection::FreshCaret) ? position : value);
  }
  UpdateSelectionPointPositions();
  RepaintEdit();
  UpdateCaretPosition();
}

// Within the content.
float TOrvStyledEdit::CaretPlace() {
  const float place = View().GetCharX(FTextService->HasMarkedText() ? GetCaretPosition() : GetOriginCaretPosition());
  return std::max(0.0F, std::min(place, ContentRect().Right - Model().Caret().Width() + 1));
}

void TOrvStyledEdit::UpdateCaretPosition() {
  if (!IsFocused()) return;
  fmx::TCustomCaret& caret = Model().Caret();
  caret.BeginUpdate();
  caret.SetPosition({CaretPlace(), std::trunc(FLineTop)});
  caret.SetSize({std::min(caret.Width(), ContentRect().Width()), std::trunc(FLineHeight)});
  caret.EndUpdate();
}

void TOrvStyledEdit::RepaintEdit() {
  if (FContent != nullptr) FContent->Repaint();
}

void TOrvStyledEdit::ShowPrompt() {
  if (FPrompt != nullptr) FPrompt->SetVisible(Model().Text().empty());
}

// --- Text ---

void TOrvStyledEdit::SetTextInternal(std::u16string_view text) {
  UpdateDirection(text);
  StoreText(text, TStoring::AsRest);
  // The model may have left some of it out.
  FTextService->SetText(Model().Text());
  View().TakeText(Model().Text());
  if (FPrompt != nullptr)
    ShowPrompt();
  else
    UpdateCaretPosition();
}

void TOrvStyledEdit::SetText(std::u16string_view text) {
  LeaveComposition();
  if (text == GetText()) return;
  ReplaceText(Corrects(TOrvCorrection::InsertRoom) ? Model().Validated(text) : std::u16string(text));
}

void TOrvStyledEdit::ReplaceText(std::u16string_view text) {
  if (text == GetText()) return;
  SetTextInternal(text);
  SetCaretPosition(std::min(LengthOf(GetText()), GetOriginCaretPosition()));
  {
    const fmx::TModelUpdate update(Model());
    Model().SetSelStart(Corrects(TOrvCorrection::FreshCaret) ? GetOriginCaretPosition() : 0);
    Model().SetSelLength(0);
  }
  Model().Change();
  RepaintEdit();
}

void TOrvStyledEdit::InsertText(std::u16string_view insertion) {
  if (Model().ReadOnly() && !Model().InputSupport()) return;
  LeaveComposition();
  std::u16string text = GetText();
  const std::int64_t start = Model().SelStart();
  const std::int64_t length = Model().SelLength();
  // A selection that lies outside of the text would leave the caret where nothing was inserted.
  const auto position = std::clamp<std::int64_t>(std::min(start, start + length), 0, LengthOf(text));
  const auto count = std::min<std::int64_t>(std::abs(length), LengthOf(text) - position);
  const std::u16string inserted = Insertable(insertion, static_cast<std::int32_t>(LengthOf(text) - count));
  text.replace(static_cast<std::size_t>(position), static_cast<std::size_t>(count), inserted);
  {
    const fmx::TModelUpdate update(Model());
    Model().SetSelLength(0);
  }
  SetTextInternal(text);
  SetCaretPosition(static_cast<std::int32_t>(position) + LengthOf(inserted));
}

void TOrvStyledEdit::DoTyping() {
  if (const auto event = Model().OnTyping) event();
}

// --- Messages ---

void TOrvStyledEdit::Dispatch(fmx::TMessage& message) {
  using namespace fmx;
  if (!IsQuestion(message.Id)) DropWaitingHalf();
  switch (message.Id) {
    case MMCaretPositionChanged:
      return CaretPositionChanged(message.As<std::int32_t>());
    case MMSelStartChanged:
    case MMSelLengthChanged:
      return SelectionChanged();
    case MMTextChanging:
      return DoChangeTracking();
    case MMTextChanged:
      return TextChanged(message.As<std::u16string>());
    case MMTextSettingsChanged:
      return TextSettingsChanged(message.As<bool>());
    case MMMaxLengthChanged:
      return FTextService->SetMaxLength(Model().MaxLength());
    case MMCharCaseChanged:
      return FTextService->SetCharCase(Model().CharCase());
    case MMFilterCharChanged:
      return FTextService->SetFilterChar(Model().FilterChar());
    case MMImeModeChanged:
      return ImeModeChanged();
    case MMPasswordChanged:
      return PasswordChanged();
    case MMPromptTextChanged:
      return PromptTextChanged();
    case MMCheckSpellingChanged:
      return CheckSpellingChanged(message.As<bool>());
    case MMGetCaretPositionByPoint:
      message.Value = HitPosition(message.As<TPointF>().X);
      return;
    case MMReadOnlyChanged:
      LeaveComposition();
      return;
    case MMEditButtonsChanged:
      return RealignButtonsContainer();
    case PMInit:
      return Init();
    case PMDoBeforeExit:
      return BeforeExit();
    case PMInsertText:
      return InsertText(message.As<std::u16string>());
    case PMGetTextContentRect:
      message.Value = ContentRect();
      return;
    default:
      return TStyledPresentation::Dispatch(message);
  }
}

void TOrvStyledEdit::TextChanged(std::u16string_view text) {
  const bool isApplications = !FWritesText;
  const bool wasKnown = text == GetText();
  const bool leaves = isApplications && Corrects(TOrvCorrection::Composition) && FTextService->HasMarkedText();
  if (leaves) FTextService->SetMarkedText({}, 0);
  if (wasKnown && !leaves) return;
  if (isApplications && Corrects(TOrvCorrection::AutoDirectionAlways)) UpdateDirection(text);
  View().TakeText(text);
  FTextService->SetText(text);
  View().UpdateFirstVisibleChar();
  if (isApplications && Corrects(TOrvCorrection::FreshCaret))
    SelectNothingAt(GetOriginCaretPosition());
  else if (GetOriginCaretPosition() > LengthOf(text))
    SetCaretPosition(LengthOf(text));
  else
    UpdateCaretPosition();
  ShowPrompt();
  RepaintEdit();
}

void TOrvStyledEdit::TextSettingsChanged(bool isSizeChange) {
  if (!IsLoading() && !IsDesigning()) {
    if (isSizeChange) {
      UpdateTextHeight();
      if (!DisableAlign()) RealignContent();
    }
    RepaintEdit();
  }
  UpdateTextLayout();
  PlaceCaretAnew();
}

void TOrvStyledEdit::ImeModeChanged() {
  FTextService->SetImeMode(Model().Password() ? fmx::TImeMode::Disable : Model().ImeMode());
}

void TOrvStyledEdit::PasswordChanged() {
  LeaveComposition();
  ImeModeChanged();
  PlaceCaretAnew();
  UpdateCaretPosition();
  RepaintEdit();
}

void TOrvStyledEdit::PromptTextChanged() {
  if (auto* const prompt = dynamic_cast<fmx::ITextObject*>(FPrompt)) prompt->SetText(Model().PromptText());
}

void TOrvStyledEdit::Init() {
  TakeFormerText();
  const std::u16string& text = Model().Text();
  FTextService->SetMaxLength(Model().MaxLength());
  View().TakeText(text);
  FTextService->SetText(text);
  if (GetOriginCaretPosition() > LengthOf(GetText())) SetCaretPosition(LengthOf(GetText()));
  ShowPrompt();
  RepaintEdit();
  FEdit.ButtonsContent().BringToFront();
  RealignButtonsContainer();
  UpdateTextLayout();
  TakeFormerCaret();
}

void TOrvStyledEdit::BeforeExit() {
  LeaveComposition();
  if (Root() == nullptr) return;
  Model().Change();
  FEdit.Observers().EditLinkUpdate();
  FEdit.Observers().ControlValueUpdate();
  UpdateSelectionPointPositions();
}

}  // namespace orv
