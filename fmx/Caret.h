// The blinking line between two characters.
#pragma once

#include <functional>

#include "fmx/Canvas.h"
#include "fmx/Geometry.h"
#include "fmx/Timer.h"

namespace fmx {

// What the caret looks like.
class IFlasher {
 public:
  virtual ~IFlasher() = default;
  // Logical units.
  virtual float GetWidth() const = 0;
  virtual TAlphaColor GetColor() const = 0;
};

// One caret. It is shown while its control has the focus, is not hidden for a time, and its box can be written in; then
// it blinks. Places are in the coordinates of the control that draws it. Main thread.
class TCustomCaret : private IFlasher {
 public:
  // Milliseconds that it is seen, and then not.
  static constexpr std::int32_t BlinkInterval = 530;

  TCustomCaret();
  TCustomCaret(const TCustomCaret&) = delete;
  TCustomCaret& operator=(const TCustomCaret&) = delete;

  const IFlasher& GetFlasher() const { return *this; }

  TPointF Position() const { return FPosition; }
  void SetPosition(TPointF position) { Take(FPosition, position); }
  TSizeF Size() const { return FSize; }
  void SetSize(TSizeF size) { Take(FSize, size); }
  // 1 at first.
  float Width() const { return FWidth; }
  void SetWidth(float width) { Take(FWidth, width); }

  // Whether the control has the focus.
  bool Visible() const { return FVisible; }
  void SetVisible(bool visible) { Take(FVisible, visible); }
  bool TemporarilyHidden() const { return FTemporarilyHidden; }
  void SetTemporarilyHidden(bool hidden) { Take(FTemporarilyHidden, hidden); }
  bool ReadOnly() const { return FReadOnly; }
  void SetReadOnly(bool readOnly) { Take(FReadOnly, readOnly); }

  // That of its style; 0 for none. The caret's own colour stands over it where it is not 0; black holds without both.
  void SetDefaultColor(TAlphaColor color) { Take(FDefaultColor, color); }
  void SetColor(TAlphaColor color) { Take(FColor, color); }

  // Between these, which nest, changes are told once, at the end.
  void BeginUpdate() { ++FUpdating; }
  void EndUpdate();

  bool IsShown() const { return FVisible && !FTemporarilyHidden && !FReadOnly; }
  // Shown, and in the half of the blinking in which it is seen.
  bool IsSeen() const { return IsShown() && FLit; }

  void Paint(TCanvas& canvas, float opacity) const;

  // What it shows is out of date.
  std::function<void()> OnRepaint;

 private:
  float GetWidth() const override { return FWidth; }
  TAlphaColor GetColor() const override;

  template <typename T>
  void Take(T& property, T value) {
    if (property == value) return;
    property = value;
    FChanged = true;
    if (FUpdating == 0) Changed();
  }
  // Lights it, and begins to blink anew.
  void Changed();

  TPointF FPosition;
  TSizeF FSize;
  float FWidth = 1;
  TAlphaColor FDefaultColor = 0;
  TAlphaColor FColor = 0;
  bool FVisible = false;
  bool FTemporarilyHidden = false;
  bool FReadOnly = false;
  bool FLit = true;
  bool FChanged = false;
  int FUpdating = 0;
  TTimer FTimer;
};

}  // namespace fmx
