// Glyphs out of what a rasteriser gives: the rules by which a character of a font becomes a cell, whatever library
// draws it. A platform supplies the characters of its fonts and has a back end for the glyph manager.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "fmx/FontGlyphManager.h"
#include "fmx/PathData.h"

namespace fmx {

// Characters that draw nothing and have no advance, whatever a font shows for them: controls but the tab, joiners,
// direction marks, isolates, line separators, variation selectors, tags, the soft hyphen and the byte order mark.
bool IsSilent(std::uint32_t c);

// What a font has of one character. Lengths are device pixels.
struct TCharacterInk {
  float Advance = 0;  // to the next character's pen; finite
  // The ink's box in whole pixels: from the pen to its left edge, from the base line up to its upper edge.
  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  std::vector<std::uint8_t> Coverage;  // Width times Height, rows from the top; empty where no picture was wanted
  std::vector<std::uint32_t> Colors;   // likewise, premultiplied: stands in the place of Coverage
};

// Of the line, in whole device pixels, neither below 0.
struct TLineMetrics {
  std::int32_t Ascent = 0;   // above the base line
  std::int32_t Descent = 0;  // below it
};

// The characters of one font at one size. What the font lacks comes from other fonts, and what no font has is a box.
class ICharacterSource {
 public:
  virtual ~ICharacterSource() = default;
  virtual TLineMetrics Metrics() = 0;  // of the font itself, whatever font a character comes from
  // Raises EBitmapSizeTooBig for a picture beyond fmx/Limits.h.
  virtual TCharacterInk Ink(std::uint32_t c, bool wantsPicture, bool colorful) = 0;
  virtual TPathData Outline(std::uint32_t c) = 0;  // the pen on the base line is the origin, y grows downward
};

// A font as it is asked for: a positive whole number of device pixels for the em.
struct TFontWanted {
  std::u16string Family;
  std::u16string File;  // of a font that the application brought along; empty for an installed one
  TFontWeight Weight = TFontWeight::Regular;
  TFontSlant Slant = TFontSlant::Regular;
  std::int32_t PixelSize = 0;
};

// The fonts of a platform.
class IFontSources {
 public:
  virtual ~IFontSources() = default;
  // The reference holds up to the next call. Every request gives some font; raises where there is none at all.
  virtual ICharacterSource& Open(const TFontWanted& font) = 0;
  // Whether the font must be shaped as a whole: it has letters, but not their forms as characters.
  virtual bool NeedsShaping(const TFontWanted& font) = 0;
  // As TFontGlyphBackEnd's; the font stands in the place of the request's.
  virtual bool CanShape() const { return false; }
  virtual TShapedText Shape(const TFontWanted&, const TShapeRequest&) { return {}; }
};

// Sizes of an em are whole device pixels; a size that is below 1, or no number, is 0 and gives glyphs of nothing.
std::int32_t PixelSizeOf(float size, float scale);

// The font that a setting of the framework stands for.
TFontWanted FontWantedOf(const TFontSettings& settings);

// The back end of a platform's fonts. Nothing is asked of them before a glyph or a base line is.
class TCellGlyphs : public TFontGlyphBackEnd {
 public:
  explicit TCellGlyphs(std::unique_ptr<IFontSources> sources) : FSources(std::move(sources)) {}

  void LoadResource(const TFontSettings& settings) override;
  void FreeResource() override { FWanted = {}; }
  TFontGlyph DoGetGlyph(std::span<const std::uint32_t> chars, TFontGlyphSettings settings, bool colorful) override;
  float DoGetBaseline() override;
  bool FontRendererRequired(const TFontSettings& font) override;
  bool CanShape() const override { return FSources->CanShape(); }
  TShapedText Shape(const TShapeRequest& request) override;

 private:
  std::unique_ptr<IFontSources> FSources;
  TFontWanted FWanted;
};

}  // namespace fmx
