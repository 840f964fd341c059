#include "fmx/FixedGlyphs.h"

#include <algorithm>

#include "fmx/Limits.h"
#include "fmx/PathShapes.h"
#include "fmx/Rounding.h"

namespace fmx {
namespace {

bool StandsOnTheLetterBefore(std::uint32_t c) {
  return (c >= 0xFC5E && c <= 0xFC62) || (c >= 0xFE70 && c <= 0xFE7D);
}

std::int32_t WholePixels(float length) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(Ceil(length), 0, MaxBitmapSide));
}

}  // namespace

void TFixedGlyphs::Register() {
  Register({});
}

void TFixedGlyphs::Register(const TOptions& options) {
  TFontGlyphManager::RegisterBackEnd([options] { return std::make_unique<TFixedGlyphs>(options); });
}

TFontGlyph TFixedGlyphs::DoGetGlyph(std::span<const std::uint32_t> chars, TFontGlyphSettings settings, bool colorful) {
  const std::uint32_t c = chars.empty() ? 0 : chars.front();
  const bool blank = c == U' ';
  const float width = (blank ? 5.0F : 10.0F) * FScale;
  TFontGlyph glyph;
  glyph.Advance = StandsOnTheLetterBefore(c) ? 0 : width;
  glyph.VerticalAdvance = 20 * FScale;
  if (FOptions.NoGlyphs.find(static_cast<char32_t>(c)) != std::u32string::npos) {
    glyph.Style.Include(TFontGlyphStyle::NoGlyph);
    return glyph;
  }
  if (colorful) glyph.Style.Include(TFontGlyphStyle::ColorGlyph);
  const std::int32_t pixelWidth = WholePixels(width);
  const std::int32_t pixelHeight = WholePixels(glyph.VerticalAdvance);
  if (FOptions.HasPixels && settings.Contains(TFontGlyphSetting::Bitmap)) {
    glyph.Bitmap.SetSize(pixelWidth, pixelHeight);
    glyph.Bitmap.Clear(blank ? 0 : 0xFFFFFFFF);
  }
  if (settings.Contains(TFontGlyphSetting::Path)) {
    glyph.Style.Include(TFontGlyphStyle::HasPath);
    if (!blank) glyph.Path = RectanglePath(TRectF::From(TRect{0, 0, pixelWidth, pixelHeight}));
  }
  return glyph;
}

}  // namespace fmx
