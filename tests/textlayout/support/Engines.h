// Internal text layouts of answers that anyone can work out by hand, in place of a platform's text engine.
#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include "fmx/CustomCanvasGpu.h"
#include "tests/textlayout/support/Layouts.h"
#include "textlayout/Orv.TextLayout.Internal.h"

namespace orv::testing {

// Glyphs of fixed sizes in fonts that need an internal text layout.
class TShapedManager : public TBackEndFontGlyphManager {
 public:
  TShapedManager() : TBackEndFontGlyphManager(std::make_unique<fmx::TFixedGlyphs>()) {}
  bool FontRendererRequired(const fmx::TFont&) const override { return true; }
};

// Every unit is 10 wide and the line 20 high.
class TTenWide : public TInternalTextLayout {
 public:
  static std::unique_ptr<TInternalTextLayout> Make() { return std::make_unique<TTenWide>(); }

 private:
  std::int32_t DoGetOffsetForAdvance(std::u16string_view, float x, float) override {
    return static_cast<std::int32_t>(x / 10);
  }
  std::int32_t DoBreakText(std::u16string_view, float maxWidth, float& width, float& height, float) override {
    const std::int32_t fits = std::min(static_cast<std::int32_t>(maxWidth / 10), Run().Length());
    width = static_cast<float>(fits) * 10;
    height = 20;
    return fits;
  }
  fmx::TRectF DoMeasureText(std::u16string_view, std::int32_t from, std::int32_t to, float) override {
    return {0, 0, static_cast<float>(to - from) * 10, 20};
  }
  float DoDrawText(std::u16string_view, fmx::TCanvas&, fmx::TPointF) override { return Run().GetWidth(); }
};

// The same, but no run breaks, so that long ones stick out of the box. It notes how it was asked to draw.
class TUnbroken : public TInternalTextLayout {
 public:
  static std::unique_ptr<TInternalTextLayout> Make() { return std::make_unique<TUnbroken>(); }

  struct TDrawing {
    fmx::TPointF Position;
    fmx::TAlphaColor Modulate;
  };
  static inline std::vector<TDrawing> Drawings;
  // The answer to every place, where there is one.
  static inline std::optional<std::int32_t> Offset;

 private:
  std::int32_t DoGetOffsetForAdvance(std::u16string_view, float x, float) override {
    return Offset ? *Offset : static_cast<std::int32_t>(x / 10);
  }
  std::int32_t DoBreakText(std::u16string_view, float, float& width, float& height, float) override {
    width = static_cast<float>(Run().Length()) * 10;
    height = 20;
    return Run().Length();
  }
  fmx::TRectF DoMeasureText(std::u16string_view, std::int32_t from, std::int32_t to, float) override {
    return {0, 0, static_cast<float>(to - from) * 10, 20};
  }
  float DoDrawText(std::u16string_view, fmx::TCanvas& canvas, fmx::TPointF position) override {
    Drawings.push_back({position, dynamic_cast<fmx::TCustomCanvasGpu&>(canvas).ModulateColor()});
    return Run().GetWidth();
  }
};

// Layouts of such fonts, while it lives.
class TEngineScope {
 public:
  explicit TEngineScope(TInternalTextLayout::TFactory factory) {
    TFontGlyphManagerOrv::SetCurrent(std::make_unique<TShapedManager>());
    TInternalTextLayout::RegisterDefaultInternalTextLayout(factory);
    TUnbroken::Drawings.clear();
    TUnbroken::Offset.reset();
  }
  ~TEngineScope() { TInternalTextLayout::RegisterDefaultInternalTextLayout(nullptr); }
  TEngineScope(const TEngineScope&) = delete;
  TEngineScope& operator=(const TEngineScope&) = delete;

 private:
  TFixedScope FScope;  // made first, so that it goes last
};

// A colour of their own for units of the text, which makes a run of them.
inline TSetUp WithRunOf(fmx::TTextRange range, TSetUp more = {}) {
  return [=](TTextLayoutNGOrv& layout) {
    layout.AddAttribute(range, fmx::TTextAttribute{nullptr, 0xFFFF0000});
    if (more) more(layout);
  };
}

}  // namespace orv::testing
