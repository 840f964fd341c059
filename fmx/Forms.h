// A form that shows controls and gives them what comes from a window.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "fmx/Control.h"
#include "fmx/Form.h"
#include "fmx/MenuPanel.h"
#include "fmx/PresentedControl.h"

namespace fmx {

// What a form asks of the window that shows it.
class IFormWindow {
 public:
  virtual ~IFormWindow() = default;
  // Where the form's upper left corner is on the screen, in logical units.
  virtual TPointF ScreenPosition() const = 0;
};

// Its controls stand in Content(), which is as large as the form. A window, or a test, tells it of keys and the pointer
// in logical units from the form's upper left corner, and paints it when it is out of date. While a menu is open it
// gets the keys and the pointer. Main thread.
class TForm : public TCustomForm {
 public:
  TForm();
  ~TForm() override;

  TControl& Content() { return FContent; }
  // Adds a control, which the form owns.
  template <typename T>
  T& AddControl(std::unique_ptr<T> control) {
    T& added = InsertComponent(std::move(control));
    added.SetParent(&FContent);
    return added;
  }
  // The title of its window.
  const std::u16string& Caption() const { return FCaption; }
  void SetCaption(std::u16string_view caption) { FCaption = caption; }
  TSizeF Size() const { return FContent.Size(); }
  void SetSize(TSizeF size);
  // The size is another one: places the controls.
  std::function<void()> OnResize;

  // --- Window ---

  // Borrowed; null for none.
  void SetWindow(IFormWindow* window) { FWindow = window; }
  TPointF ScreenToClient(TPointF point) const override;
  TPointF ClientToScreen(TPointF point) const;
  // The window has the keys, or has them no longer. The control with the focus is without it meanwhile, and goes on
  // where it was.
  void Activate();
  void Deactivate();

  // --- Looks ---

  void Invalidate() override { FIsInvalid = true; }
  bool IsInvalid() const { return FIsInvalid; }
  // All of it, within a scene. It is up to date then.
  void Paint(TCanvas& canvas);
  // Behind the controls; transparent at first.
  void SetFill(TAlphaColor color);
  std::u16string DefaultFontFamily() const override { return FFontFamily; }
  // For what is made from then on.
  void SetFontFamily(std::u16string_view family) { FFontFamily = family; }

  // --- Pointer ---

  // The frontmost control that takes the pointer there; null for none.
  TControl* ControlAt(TPointF point);
  void MouseDown(const TMouseEvent& event);
  void MouseMove(const TMouseEvent& event);
  // A right button opens the menu of the control under it.
  void MouseUp(const TMouseEvent& event);
  // True where something acted on it.
  bool MouseWheel(const TWheelEvent& event);
  // To the control at its place, where that or its presentation wants such gestures; it takes the focus.
  void Gesture(const TGestureEvent& event);
  // What the pointer is to look like there.
  TCursor CursorAt(TPointF point);

  // --- Keys ---

  // The control with the focus is asked first. What it leaves moves the focus (Tab), opens its menu (Menu, Shift+F10),
  // or goes to OnKeyDown.
  void KeyDown(TKeyEvent& event) override;
  std::function<void(TKeyEvent& event)> OnKeyDown;
  // Gives the focus to the next control that can have it, or the one before, round and round.
  void MoveFocus(bool backwards);

  // --- Menu ---

  // One at a time. Its answer is there when it is not open any more; see fmx/MenuPanel.h.
  TMenuPanel& MenuPanel() { return FMenuPanel; }
  // Opens it at that place of the form. Borrowed until it is closed.
  void OpenMenu(TPopupMenu& menu, TPointF point);

 private:
  TPresentedControl* FocusedControl() const;
  void ShowMenuOfFocused();
  // The one that took the press, where it still is in the form.
  TControl* Captured();

  std::u16string FCaption;
  TControl FContent;
  TMenuPanel FMenuPanel;
  IFormWindow* FWindow = nullptr;
  TControl* FCaptured = nullptr;
  TFocusable* FAsleep = nullptr;  // had the focus when the window lost the keys
  TAlphaColor FFill = TAlphaColors::Null;
  std::u16string FFontFamily;
  bool FIsInvalid = true;
};

}  // namespace fmx
