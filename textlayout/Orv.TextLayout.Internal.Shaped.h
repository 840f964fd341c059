// The internal text layout of runs in fonts without presentation forms: the platform's text engine shapes them as a
// whole (TFontGlyphManagerOrv::Shape).
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "fmx/Bitmap.h"
#include "fmx/ShapedText.h"
#include "textlayout/Orv.TextLayout.Internal.h"

namespace orv {

class TInternalTextLayoutShaped : public TInternalTextLayout {
 public:
  static std::unique_ptr<TInternalTextLayout> Make() { return std::make_unique<TInternalTextLayoutShaped>(); }

 private:
  // Of the run; a place behind three fifths of a letter's way belongs to its far side.
  std::int32_t DoGetOffsetForAdvance(std::u16string_view text, float x, float scale) override;
  // Behind the last word that fits on what is left of the line, blanks included; behind the last letter that fits where
  // no word does.
  std::int32_t DoBreakText(std::u16string_view text, float maxWidth, float& width, float& height, float scale) override;
  // Within the line.
  fmx::TRectF DoMeasureText(std::u16string_view text, std::int32_t from, std::int32_t to, float scale) override;
  float DoDrawText(std::u16string_view text, fmx::TCanvas& canvas, fmx::TPointF position) override;

  const fmx::TShapedText& Shaped(std::u16string_view text, std::int32_t length, float scale);
  fmx::TShapedText Shape(std::u16string_view text, std::int32_t length, float scale, bool wantsPicture) const;
  const fmx::TShapedText& Fitting(std::u16string_view text, float maxWidth, float scale);
  void UpdateBitmap(std::u16string_view text);

  // What was shaped last: that many units of the run.
  fmx::TShapedText FShaped;
  std::int32_t FShapedStart = -1;
  std::int32_t FShapedLength = -1;
  float FShapedScale = 0;

  // The picture in the run's colour.
  std::unique_ptr<fmx::TBitmap> FBitmap;
  fmx::TPoint FBitmapOrigin;
  std::int32_t FBitmapStart = -1;
  std::int32_t FBitmapLength = -1;
  float FBitmapScale = 0;
  fmx::TAlphaColor FBitmapColor = 0;
};

}  // namespace orv
