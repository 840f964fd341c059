// Glyphs that the plain layout has met.
#pragma once

#include <cstdint>
#include <map>
#include <unordered_map>

#include "fmx/FontGlyph.h"

namespace fmx {

// The glyphs of one font at one scale.
class TFontGlyphs {
 public:
  TFontGlyphs(const TFont& font, float scale);

  // Metrics alone; raises what making glyphs raises. References hold until the glyph is asked for in another form.
  const TFontGlyph& Metrics(std::uint32_t character) { return Record(character, {}).Glyph; }
  // With the picture in a bitmap of its own; without one where it would be larger than a bitmap can be.
  const TCharRec& Picture(std::uint32_t character) {
    return Record(character, {TFontGlyphSetting::Bitmap, TFontGlyphSetting::BitmapAsGrey});
  }
  const TPathData& Outline(std::uint32_t character) { return Record(character, {TFontGlyphSetting::Path}).Glyph.Path; }
  // From the top of the line to the base line, device pixels.
  float Baseline() const { return FBaseline; }

 private:
  struct TMade {
    TCharRec Rec;
    TFontGlyphSettings Settings;  // what it was made with
  };
  const TCharRec& Record(std::uint32_t character, TFontGlyphSettings wanted);

  TFont FFont;
  float FScale;
  float FBaseline;
  std::unordered_map<std::uint32_t, TMade> FGlyphs;
};

// All of them. Nothing is thrown away until another maker of glyphs is registered. One thread.
class TGlyphCache {
 public:
  static TFontGlyphs& Of(const TFont& font, float scale);
};

}  // namespace fmx
