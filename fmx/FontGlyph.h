// One character of a font: its metrics, picture and outline.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "fmx/Bitmap.h"
#include "fmx/BitmapSurface.h"
#include "fmx/Font.h"
#include "fmx/Geometry.h"
#include "fmx/PathData.h"
#include "rtl/Sets.h"

namespace fmx {

// What a glyph is: none at all, one with an outline, one with colours of its own.
enum class TFontGlyphStyle : std::uint8_t { NoGlyph = 0, HasPath = 1, ColorGlyph = 2 };
using TFontGlyphStyles = rtl::TSet<TFontGlyphStyle, std::uint8_t>;

// What is wanted besides the metrics.
enum class TFontGlyphSetting : std::uint8_t { Bitmap = 0, BitmapAsGrey = 1, Path = 2 };
using TFontGlyphSettings = rtl::TSet<TFontGlyphSetting, std::uint8_t>;

// Lengths are device pixels of the scale that was asked for.
struct TFontGlyph {
  // The whole cell of the character, as high as VerticalAdvance, and higher only where its ink leaves the line, in a
  // place that makes the base lines of a font's glyphs agree. White with the coverage as alpha; as grey, the coverage
  // in all four parts, that is premultiplied white. Empty where it was not asked for.
  TBitmapSurface Bitmap;
  TPathData Path;  // y grows downward from the top of the cell; empty where it was not asked for
  TPoint Origin;   // of the bitmap, from the pen on the top edge of the line
  float Advance = 0;
  float VerticalAdvance = 0;  // the height of a line
  TFontGlyphStyles Style;
};

// What tells fonts apart that glyphs are made from.
struct TFontSettings {
  std::u16string Family;
  TFontStyles Style;
  float Size = 0;
  float Scale = 1;
  // Finer than the style; what it asks for, unless they are given.
  TFontWeight Weight = WeightOf(Style);
  TFontSlant Slant = SlantOf(Style);
  std::u16string File = {};  // of a font that the application brought along; empty for an installed one

  static TFontSettings Of(const TFont& font, float scale) {
    return {font.Family(), font.Style(), font.Size(), scale, font.Weight(), font.Slant(), {}};
  }
  // Families are equal without regard to case, sizes within 0.01, scales within ScaleTolerance.
  bool IsSameAs(const TFontSettings& other) const;
};

// A glyph with the place of its picture. The picture is a part of a texture shared with others, or a bitmap of its own.
class TCharRec {
 public:
  TFontGlyph Glyph;
  TRectF SrcRect;  // the picture's place in the bitmap, in pixels

  // Null where there is no picture.
  TBitmap* Bitmap() const { return FShared != nullptr ? FShared : FOwn.get(); }
  bool SharedBitmap() const { return FShared != nullptr; }

  // Each takes the place of the bitmap before; one of its own is destroyed.
  void SetShared(TBitmap* texture) {  // borrowed
    FOwn.reset();
    FShared = texture;
  }
  void SetOwn(std::unique_ptr<TBitmap> bitmap) {
    FShared = nullptr;
    FOwn = std::move(bitmap);
  }

 private:
  TBitmap* FShared = nullptr;
  std::unique_ptr<TBitmap> FOwn;
};

}  // namespace fmx
