#include "fmx/PresentedControl.h"

#include "fmx/Exceptions.h"
#include "fmx/Menu.h"

namespace fmx {

std::string_view TStyledPresentation::StyleClassName() const {
  return FPresentedControl.ClassName();
}

TPresentedControl& AsPresentedControl(TControl& control) {
  auto* const presented = dynamic_cast<TPresentedControl*>(&control);
  if (presented == nullptr) throw EInvalidOperation("The control has no presentation");
  return *presented;
}

TPresentedControl::TPresentedControl() = default;
TPresentedControl::~TPresentedControl() {
  FreePresentation();
}

// --- Presentation ---

void TPresentedControl::SetPresentationName(std::string_view name) {
  FreePresentation();
  FPresentationName = name;
}

TStyledPresentation* TPresentedControl::Presentation() {
  if (FProxy != nullptr || IsDestroying()) return FPresentation;
  const std::string name = FPresentationName.empty()
                               ? TPresentationProxyFactory::NameOf(ClassName(), TControlType::Styled)
                               : FPresentationName;
  const auto& factory = TPresentationProxyFactory::Current();
  if (!factory.IsRegistered(name)) return nullptr;
  FProxy = factory.CreatePresentationProxy(name, *this);
  FPresentation = FProxy->Presentation();
  if (FPresentation == nullptr) return nullptr;
  FPresentation->SetParent(this);
  FPresentation->SetStyleLookup(StyleLookup());
  FPresentation->SetSize(Size());
  Model().SetReceiver(FPresentation);
  FPresentation->ApplyStyleLookup();
  SendToPresentation(PMInit);
  return FPresentation;
}

void TPresentedControl::FreePresentation() {
  if (FProxy == nullptr) return;
  if (FPresentation != nullptr) Model().SetReceiver(nullptr);
  FPresentation = nullptr;
  const auto freed = std::move(FProxy);
}

TMessageValue TPresentedControl::SendToPresentation(TMessageId id, TMessageValue value) {
  TMessage message{id, std::move(value)};
  if (TStyledPresentation* const presentation = Presentation()) presentation->Dispatch(message);
  return std::move(message.Value);
}

// --- Focus and keys ---

void TPresentedControl::SetFocus() {
  IRoot* const root = Root();
  if (root != nullptr && FEnabled) root->SetFocused(this);
}

void TPresentedControl::DoEnter() {
  if (TStyledPresentation* const presentation = Presentation()) presentation->DoEnter();
}

void TPresentedControl::DoExit() {
  SendToPresentation(PMDoBeforeExit);
  if (TStyledPresentation* const presentation = Presentation()) presentation->DoExit();
}

void TPresentedControl::KeyDown(TKeyEvent& event) {
  if (TStyledPresentation* const presentation = Presentation()) presentation->KeyDown(event);
}

// --- Pointer ---

void TPresentedControl::MouseDown(const TMouseEvent& event) {
  TStyledControl::MouseDown(event);
  SetFocus();
  if (TStyledPresentation* const presentation = Presentation()) presentation->MouseDown(event);
}

void TPresentedControl::MouseMove(const TMouseEvent& event) {
  TStyledControl::MouseMove(event);
  if (TStyledPresentation* const presentation = Presentation()) presentation->MouseMove(event);
}

void TPresentedControl::MouseUp(const TMouseEvent& event) {
  TStyledControl::MouseUp(event);
  if (TStyledPresentation* const presentation = Presentation()) presentation->MouseUp(event);
}

void TPresentedControl::CMGesture(const TGestureEvent& event) {
  if (TStyledPresentation* const presentation = Presentation()) presentation->CMGesture(event);
}

bool TPresentedControl::ShowContextMenu(TPointF point) {
  TStyledPresentation* const presentation = Presentation();
  return presentation != nullptr && presentation->ShowContextMenu(point);
}

// --- Looks ---

void TPresentedControl::Resize() {
  TStyledControl::Resize();
  if (FPresentation != nullptr) FPresentation->SetSize(Size());
}

void TPresentedControl::Paint(TCanvas& /*canvas*/) {
  Presentation();  // made in time to be painted as what stands in it
}

}  // namespace fmx
