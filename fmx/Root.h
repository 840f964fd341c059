// What stands at the top of a tree of controls: usually a form. It knows the direction, the control that has the focus
// and where keys go.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "fmx/Geometry.h"
#include "fmx/Keys.h"
#include "fmx/TextTypes.h"
#include "rtl/Sets.h"

namespace fmx {

class TCanvas;
class TComponent;
class TFocusable;

// States of a form, by the numbers that its controls know. In the named ones a control behaves as in a form without
// any: Modal is shown above the others until it is closed, Shown is just appearing, Engaged is at work with its user. A
// form that is being made, changed or closed sets members of other numbers.
enum class TFormStateItem : std::uint8_t { Modal = 1, Shown = 5, Engaged = 9 };
using TFormState = rtl::TSet<TFormStateItem, std::uint16_t>;

// Whether a form in this state lets its controls act on getting the focus: it has no state but the three named ones.
constexpr bool IsSettled(TFormState state) {
  return (state - TFormState{TFormStateItem::Modal, TFormStateItem::Shown, TFormStateItem::Engaged}).IsEmpty();
}

// The contract. A host with forms of its own implements it for them. Main thread.
class IRoot {
 public:
  IRoot() = default;
  // A root that goes is the active form no longer (fmx/Screen.h).
  virtual ~IRoot();
  IRoot(const IRoot&) = delete;
  IRoot& operator=(const IRoot&) = delete;

  // The root as a component; menus that open over it become its children. Never null.
  virtual TComponent* GetObject() = 0;

  virtual TBiDiMode GetBiDiMode() const = 0;

  // Empty for a root that is no form.
  virtual TFormState GetFormState() const { return {}; }

  // What its controls are drawn on; null before there is a window. Borrowed.
  virtual TCanvas* GetCanvas() const { return nullptr; }
  // What it shows is out of date; the platform paints it again soon. Nothing without a window.
  virtual void Invalidate() {}
  // A point of the screen as a point of the root. The same for a root without a window.
  virtual TPointF ScreenToClient(TPointF point) const { return point; }
  // The font family that its controls are to use; empty where it has no opinion.
  virtual std::u16string DefaultFontFamily() const { return {}; }

  // The control that gets the keys; null for none. Borrowed: a root forgets a control that is destroyed.
  virtual TFocusable* GetFocused() const = 0;
  // Nothing for the control that has the focus already. Otherwise that one, which has lost it by then, gets DoExit, and
  // then the new one, which has it by then, gets DoEnter. Null takes the focus away from all. Neither
  // call may destroy the root.
  virtual void SetFocused(TFocusable* control) = 0;

  // Gives the event to the focused control. Events that are not IsDeliverable go nowhere: a control types any character
  // it gets, so a Backspace with its control character would end up in the text.
  virtual void KeyDown(TKeyEvent& event) = 0;
};

// What a root asks of a control that can have the focus.
class TFocusable {
 public:
  TFocusable() = default;
  virtual ~TFocusable();
  TFocusable(const TFocusable&) = delete;
  TFocusable& operator=(const TFocusable&) = delete;

  // Whether this one has the focus of its root.
  bool IsFocused() const { return FFocus != nullptr; }

  virtual void DoEnter() {}
  virtual void DoExit() {}
  // Takes an event it acts on away by SetHandled.
  virtual void KeyDown(TKeyEvent& /*event*/) {}

 private:
  friend class TRootFocus;
  class TRootFocus* FFocus = nullptr;
};

// The focus of one root: the part that implementations of IRoot share. Ends with its root, without a DoExit.
class TRootFocus {
 public:
  TRootFocus() = default;
  ~TRootFocus() { Point(nullptr); }
  TRootFocus(const TRootFocus&) = delete;
  TRootFocus& operator=(const TRootFocus&) = delete;

  TFocusable* Control() const { return FControl; }
  // As IRoot::SetFocused. A control that has the focus of another root loses it there, without a DoExit.
  void Set(TFocusable* control);
  // As IRoot::KeyDown.
  void KeyDown(TKeyEvent& event);

 private:
  friend class TFocusable;
  void Point(TFocusable* control);

  TFocusable* FControl = nullptr;
};

// Sends a platform's key to the root: one KeyDown for each event of NormalizeKey. Returns whether all of them were
// handled, false where there was none.
bool DeliverKey(IRoot& root, Keys::TCode key, std::u16string_view text, TPlatformModifiers modifiers);

}  // namespace fmx
