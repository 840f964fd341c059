// Styles by name, and the kinds of objects that they are made of.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "fmx/Brush.h"
#include "fmx/Control.h"
#include "fmx/TextSettings.h"

namespace fmx {

// Makes the objects of one style anew: the outermost, which owns the others and is their parent.
using TStyleMaker = std::function<std::unique_ptr<TControl>()>;

// A holder of process-wide state without instances; main thread. It knows the built-in styles (fmx/DefaultStyle.h) from
// the start.
class TStyleManager {
 public:
  // Takes the place of the one of that name, or is added. An empty maker takes the name away.
  static void Register(std::string_view name, TStyleMaker maker);
  // Null where there is none of that name.
  static std::unique_ptr<TControl> CreateStyle(std::string_view name);
};

// --- Parts ---

class TBrushObject : public TComponent {
 public:
  explicit TBrushObject(const TBrush& brush) : Brush(brush) {}
  TBrush Brush;
};

class TColorObject : public TComponent {
 public:
  explicit TColorObject(TAlphaColor color) : Color(color) {}
  TAlphaColor Color;
};

// A part that brings a font.
class IFontObject {
 public:
  virtual ~IFontObject() = default;
  virtual const TFont& GetFont() const = 0;
};

class TFontObject : public TComponent, public IFontObject {
 public:
  explicit TFontObject(TFont font) : FFont(std::move(font)) {}
  const TFont& GetFont() const override { return FFont; }

 private:
  TFont FFont;
};

// A part that shows a text.
class ITextObject {
 public:
  virtual ~ITextObject() = default;
  virtual void SetText(std::u16string_view text) = 0;
  virtual std::u16string GetText() const = 0;
};

// A part whose text looks as its control says.
class ITextSettingsObject {
 public:
  virtual ~ITextSettingsObject() = default;
  virtual TTextSettings& GetTextSettings() = 0;
};

// A text in the middle of its height. Its colour is that of its settings, thinned by its opacity.
class TTextObject : public TControl, public ITextObject, public ITextSettingsObject {
 public:
  std::string_view ClassName() const override { return "TText"; }
  void SetText(std::u16string_view text) override;
  std::u16string GetText() const override { return FText; }
  TTextSettings& GetTextSettings() override { return FSettings; }

 protected:
  void Paint(TCanvas& canvas) override;

 private:
  std::u16string FText;
  TTextSettings FSettings;
};

// A box with round corners.
class TRectangle : public TControl {
 public:
  TRectangle(const TBrush& fill, const TStrokeBrush& stroke, float radius)
      : FFill(fill), FStroke(stroke), FRadius(radius) {}
  std::string_view ClassName() const override { return "TRectangle"; }
  void SetStroke(const TStrokeBrush& stroke) { FStroke = stroke; }

 protected:
  void Paint(TCanvas& canvas) override;

 private:
  TBrush FFill;
  TStrokeBrush FStroke;
  float FRadius;
};

// A handle at one end of a selection, to be dragged. Its place is that of its middle.
class TSelectionPoint : public TControl {
 public:
  std::string_view ClassName() const override { return "TSelectionPoint"; }

  // Half its width and height; 6 at first.
  float GripSize() const { return FGripSize; }
  void SetGripSize(float size) { FGripSize = size; }
  void SetColor(TAlphaColor color) { FColor = color; }

  // Called while it is dragged, with the place in its parent's coordinates where it is to go, which may be changed.
  std::function<void(TSelectionPoint& sender, float& x, float& y)> OnChangePosition;

  // Whether such handles are drawn and taken at all: while fingers select. True at first; main thread.
  static bool FingersSelect() { return FFingersSelect; }
  static void SetFingersSelect(bool fingers) { FFingersSelect = fingers; }

  void MouseMove(const TMouseEvent& event) override;
  bool TakesPointer() const override { return FFingersSelect; }
  bool PointInObject(TPointF point) const override;

 protected:
  void Paint(TCanvas& canvas) override;

 private:
  static inline bool FFingersSelect = true;

  float FGripSize = 6;
  TAlphaColor FColor = TAlphaColors::Black;
};

}  // namespace fmx
