// Controls that leave their looks and their answers to keys and clicks to a presentation.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "fmx/Messages.h"
#include "fmx/Observers.h"
#include "fmx/Presentation.h"
#include "fmx/Root.h"
#include "fmx/StyledControl.h"

namespace fmx {

class TPresentedControl;
class TPopupMenu;

// Messages of every presented control.
inline constexpr TMessageId PMInit = FirstControlMessage;              // the presentation has been made
inline constexpr TMessageId PMDoBeforeExit = FirstControlMessage + 1;  // the focus goes
inline constexpr TMessageId PMLastControlMessage = FirstControlMessage + 15;

// A presentation made of framework controls: stands in its control, as large as it is. Its style is the control's.
class TStyledPresentation : public TStyledControl, public IMessageReceiver {
 public:
  explicit TStyledPresentation(TPresentedControl& control) : FPresentedControl(control) {}
  std::string_view ClassName() const override { return "TStyledPresentation"; }

  TPresentedControl& PresentedControl() const { return FPresentedControl; }
  // Messages that a class does not know are none of its business.
  void Dispatch(TMessage& /*message*/) override {}

  // What the control is told; see fmx/Root.h.
  virtual void DoEnter() {}
  virtual void DoExit() {}
  virtual void KeyDown(TKeyEvent& /*event*/) {}
  // A menu for this place of the screen; whether one was shown.
  virtual bool ShowContextMenu(TPointF /*point*/) { return false; }

 protected:
  std::string_view StyleClassName() const override;

 private:
  TPresentedControl& FPresentedControl;
};

// Raises EInvalidOperation for a control that is none.
TPresentedControl& AsPresentedControl(TControl& control);

// The proxy that holds a presentation of class T.
template <typename T>
class TStyledPresentationProxy : public TPresentationProxy {
 public:
  explicit TStyledPresentationProxy(TPresentedControl& control) : FPresentation(control) {}
  std::string_view ClassName() const override { return "TStyledPresentationProxy"; }
  TStyledPresentation* Presentation() override { return &FPresentation; }

  // For the factory. Raises EInvalidOperation for a control that is not a presented one.
  static std::unique_ptr<TPresentationProxy> Make(TControl& control) {
    return std::make_unique<TStyledPresentationProxy>(AsPresentedControl(control));
  }

 private:
  T FPresentation;
};

// Makes its presentation when it is asked for it. Its class is final or calls FreePresentation in its destructor, for a
// presentation knows its control whole.
class TPresentedControl : public TStyledControl, public TFocusable {
 public:
  TPresentedControl();
  ~TPresentedControl() override;
  std::string_view ClassName() const override { return "TPresentedControl"; }

  virtual TDataModel& Model() = 0;

  // "" for the one of its class and type (TPresentationProxyFactory::NameOf). Takes the present one away.
  void SetPresentationName(std::string_view name);
  // Made at the first call; null where the factory has none. Borrowed.
  TStyledPresentation* Presentation();
  bool HasPresentation() const { return FPresentation != nullptr; }
  void FreePresentation();

  // To the presentation; the answer, or the value itself where there is none.
  TMessageValue SendToPresentation(TMessageId id, TMessageValue value = {});

  TObservers& Observers() { return FObservers; }

  // What is shown instead of the presentation's own menu. Borrowed.
  TPopupMenu* PopupMenu = nullptr;

  // Takes the focus of its root, where it has one and is enabled.
  void SetFocus();
  bool Enabled() const { return FEnabled; }
  void SetEnabled(bool enabled) { FEnabled = enabled; }

  void DoEnter() override;
  void DoExit() override;
  void KeyDown(TKeyEvent& event) override;
  void MouseDown(const TMouseEvent& event) override;
  void MouseMove(const TMouseEvent& event) override;
  void MouseUp(const TMouseEvent& event) override;
  void CMGesture(const TGestureEvent& event) override;
  bool TakesPointer() const override { return true; }
  bool ShowContextMenu(TPointF point);

 protected:
  void Resize() override;
  void Paint(TCanvas& canvas) override;

 private:
  std::string FPresentationName;
  std::unique_ptr<TPresentationProxy> FProxy;
  TStyledPresentation* FPresentation = nullptr;
  TObservers FObservers;
  bool FEnabled = true;
};

}  // namespace fmx
