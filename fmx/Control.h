// What is seen in a form: a component with a place among other controls, a size and, perhaps, a font.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "fmx/Canvas.h"
#include "fmx/Component.h"
#include "fmx/Font.h"
#include "fmx/Geometry.h"
#include "fmx/Pointer.h"

namespace fmx {

class IRoot;

// How a control is shown: by the framework's styles, or by a control of the platform.
enum class TControlType : std::uint8_t { Styled = 0, Platform = 1 };

// Its parent is the control it stands in, which need not be its owner. Lengths are logical units; a place is relative
// to the parent's upper left corner, and to the root's for a control without a parent. Main thread.
class TControl : public TComponent {
 public:
  TControl() = default;
  // Leaves its parent; its children have none then.
  ~TControl() override;

  // The name of the most derived class. Static storage.
  virtual std::string_view ClassName() const { return "TControl"; }

  // --- Tree ---

  // Borrowed; null for one that stands in no other.
  TControl* Parent() const { return FParent; }
  // Raises EInvalidOperation for the control itself and what stands in it.
  void SetParent(TControl* parent);
  // What stands in it, the rearmost first. Borrowed.
  const std::vector<TControl*>& Children() const { return FChildren; }
  // In front of what else stands in its parent.
  void BringToFront();

  // That of the outermost control it stands in; null without one. Borrowed: take it away before the root goes.
  IRoot* Root() const;
  void SetRoot(IRoot* root) { FRoot = root; }
  // That of the root; null without one.
  TCanvas* Canvas() const;

  // --- Place ---

  // The origin at first. Values that are not finite become 0.
  TPointF Position() const { return FPosition; }
  void SetPosition(TPointF position);
  // (0, 0) at first. A side below 0 or no finite number becomes 0. A change calls Resize.
  TSizeF Size() const { return FSize; }
  void SetSize(TSizeF size);
  void SetBounds(float left, float top, float width, float height);

  float Width() const { return FSize.Width; }
  float Height() const { return FSize.Height; }
  TRectF LocalRect() const { return {0, 0, FSize.Width, FSize.Height}; }
  // Its room inside, and the room it keeps around itself. For those who lay it out.
  const TBounds& Padding() const { return FPadding; }
  void SetPadding(const TBounds& padding) { FPadding = padding; }
  const TBounds& Margins() const { return FMargins; }
  void SetMargins(const TBounds& margins) { FMargins = margins; }

  // Between the control's coordinates and those of its root.
  TPointF LocalToAbsolute(TPointF point) const { return point + Origin(); }
  TPointF AbsoluteToLocal(TPointF point) const { return point - Origin(); }
  TPointF ScreenToLocal(TPointF point) const;

  // Places what stands in it anew, unless that is disabled. Calls DoRealign.
  void Realign();
  bool DisableAlign() const { return FDisableAlign; }
  void SetDisableAlign(bool disable) { FDisableAlign = disable; }

  // --- Looks ---

  bool Visible() const { return FVisible; }
  void SetVisible(bool visible);
  // Whether the pointer finds it.
  bool HitTest() const { return FHitTest; }
  void SetHitTest(bool hitTest) { FHitTest = hitTest; }
  // From 0 to 1, and held there; 1 at first.
  float Opacity() const { return FOpacity; }
  void SetOpacity(float opacity);
  // Its own by those of all it stands in.
  float AbsoluteOpacity() const;

  // That of its own texts; null for a control without one.
  virtual TFont* OwnFont() { return nullptr; }

  // What it shows is out of date.
  void Repaint() const;
  // Draws it and what stands in it, within a scene of the canvas, whose matrix is that of its parent. Nothing while it
  // is not visible.
  void PaintTo(TCanvas& canvas);
  // Called by PaintTo behind the control's own Paint, before its children.
  using TPaintEvent = std::function<void(TControl& sender, TCanvas& canvas, const TRectF& rect)>;
  TPaintEvent OnPaint;

  // --- Pointer ---

  // What the platform tells the control under the pointer, or the one that took the press, until the release. A class
  // that overrides them calls the base, which calls the events.
  virtual void MouseDown(const TMouseEvent& event);
  virtual void MouseMove(const TMouseEvent& event);
  virtual void MouseUp(const TMouseEvent& event);
  virtual void CMGesture(const TGestureEvent& /*event*/) {}
  // Whether it has acted on it; what it stands in is asked otherwise.
  virtual bool MouseWheel(const TWheelEvent& /*event*/) { return false; }
  using TPointerEvent = std::function<void(TControl& sender, const TMouseEvent& event)>;
  TPointerEvent OnMouseDown;
  TPointerEvent OnMouseUp;
  // Whether the pointer stops at it; otherwise it goes through to what the control stands in. At first where one of
  // the events is set.
  virtual bool TakesPointer() const { return OnMouseDown || OnMouseUp; }
  // Whether a point in the control's coordinates is on it: inside, at first.
  virtual bool PointInObject(TPointF point) const { return LocalRect().Contains(point); }
  TCursor Cursor() const { return FCursor; }
  void SetCursor(TCursor cursor) { FCursor = cursor; }
  // Whether the left button went down on it and has not gone up since.
  bool Pressed() const { return FPressed; }
  // The gestures that it wants to be told of.
  TInteractiveGestures InteractiveGestures() const { return FInteractiveGestures; }
  void SetInteractiveGestures(TInteractiveGestures gestures) { FInteractiveGestures = gestures; }

 protected:
  // The size is another one.
  virtual void Resize() {}
  virtual void DoRealign() {}
  // In the control's coordinates.
  virtual void Paint(TCanvas& /*canvas*/) {}
  // Behind its children.
  virtual void PaintOver(TCanvas& /*canvas*/) {}

 private:
  TPointF Origin() const;

  TControl* FParent = nullptr;
  std::vector<TControl*> FChildren;
  IRoot* FRoot = nullptr;
  TPointF FPosition;
  TSizeF FSize;
  TBounds FPadding;
  TBounds FMargins;
  float FOpacity = 1;
  bool FVisible = true;
  bool FHitTest = true;
  bool FDisableAlign = false;
  bool FPressed = false;
  TCursor FCursor = TCursor::Default;
  TInteractiveGestures FInteractiveGestures;
};

}  // namespace fmx
