// Glyphs of fixed sizes, for layouts whose numbers anyone can work out by hand.
#pragma once

#include <string>
#include <utility>

#include "fmx/FontGlyphManager.h"
#include "fmx/Rounding.h"

namespace fmx {

// In device pixels, at scale S, whatever the font: an advance of 5 S for the blank, 0 for the marks U+FC5E to U+FC62
// and U+FE70 to U+FE7D, 10 S for everything else; a line height of 20 S, a base line at 16 S rounded to a whole number
// (halves to the even one), the origin (0, 0). Every character has a bitmap, as wide as its advance (a mark's is 10 S)
// and as high as the line, rounded up: full coverage, but none in the blank's. The outline is the rectangle of the
// bitmap; the blank has none.
class TFixedGlyphs : public TFontGlyphBackEnd {
 public:
  struct TOptions {
    bool HasPixels = true;    // otherwise no character has a bitmap, as without a screen
    std::u32string NoGlyphs;  // these have no glyph: metrics alone, with the style that says so
  };

  TFixedGlyphs() = default;
  explicit TFixedGlyphs(TOptions options) : FOptions(std::move(options)) {}

  void LoadResource(const TFontSettings& settings) override { FScale = settings.Scale; }
  void FreeResource() override {}
  TFontGlyph DoGetGlyph(std::span<const std::uint32_t> chars, TFontGlyphSettings settings, bool colorful) override;
  float DoGetBaseline() override { return static_cast<float>(Round(16 * FScale)); }

  // Makes these the glyphs of the process.
  static void Register();
  static void Register(const TOptions& options);

 private:
  TOptions FOptions;
  float FScale = 1;
};

}  // namespace fmx
