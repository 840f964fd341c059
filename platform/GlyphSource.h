// Glyph pictures and metrics of single code points, made by FreeType from the installed fonts.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "fmx/PathData.h"
#include "platform/FontCatalog.h"

namespace orv::platform {

// Pictures are made without hinting, so that a glyph looks the same at every place and on every machine.
struct TFontRequest {
  std::string Family;                  // the family to be used first; empty for none in particular
  std::vector<std::string> Fallbacks;  // then these in order, those that are not installed being passed over
  double PixelSize = 16;               // device pixels per em, from 1 to MaxPixelSize
  fmx::TFontWeight Weight = fmx::TFontWeight::Regular;  // faces that are not heavy are emboldened from SemiBold on
  fmx::TFontSlant Slant = fmx::TFontSlant::Regular;     // faces that have no slant of their own are slanted
  std::string File = {};    // a font file to be used before the family; one that cannot be used is passed over
  bool AnyFamily = false;   // a family that is not there is passed over, too
  bool WholeJoins = false;  // Arabic letters are made to end on whole pixels, and have whole advances
};

// A larger em makes single glyph pictures of tens of megabytes.
inline constexpr double MaxPixelSize = 2048;

// All lengths are device pixels.
struct TGlyph {
  int Left = 0;  // from the pen to the picture's left edge
  int Top = 0;   // from the base line up to the picture's top edge
  int Width = 0;
  int Height = 0;
  float Advance = 0;                   // to the next glyph's pen, not rounded
  bool Missing = false;                // no font has it: the picture is a hollow box
  std::vector<std::uint8_t> Coverage;  // Width times Height, rows from the top; 0 is empty, 255 is full

  int Bottom() const { return Top - Height; }  // from the base line up to the picture's lower edge
};

struct TFontMetrics {
  float Ascent = 0;      // above the base line
  float Descent = 0;     // below the base line, positive
  float LineHeight = 0;  // from base line to base line; need not be the sum of the two
};

// The glyphs of one font request. A code point is taken from the first font that has it: the chosen family, then the
// fallbacks, then all installed fonts, nearest to the chosen family first. What no font has is a hollow box. Of an
// italic family the slanted face comes before the upright one, which most often is the one that has Arabic letters.
//
// Tab is as wide as four blanks. Other control characters, joiners, direction marks, variation selectors and the like
// draw nothing and have no advance, whatever the fonts show for them.
//
// One object belongs to one thread at a time. Glyphs are kept as long as the object.
class TGlyphSource {
 public:
  // The pictures of a glyph can begin at so many places within a pixel. Joined letters need the fine steps: where one
  // letter's stroke ends off by a part of a pixel, the gap to the next shows.
  static constexpr int PhaseCount = 16;

  // The catalog is borrowed and must outlive the object. Raises EFontNotFound where the chosen family is not
  // installed, EFontError where no font can be opened or the size is out of range.
  TGlyphSource(const TFontCatalog& catalog, TFontRequest request);
  ~TGlyphSource();
  TGlyphSource(TGlyphSource&&) noexcept;
  TGlyphSource& operator=(TGlyphSource&&) noexcept;

  // The glyph with its pen at that many sixteenths of a pixel (0 to 15) right of a whole pixel. Any 32-bit value may be
  // asked for. The reference holds as long as the object.
  const TGlyph& Glyph(std::uint32_t codePoint, int phase = 0);

  // The glyph's outline in pixels, to be filled by the non-zero winding rule; the pen is at the origin and Y grows
  // downward. Empty for one that draws nothing.
  fmx::TPathData Outline(std::uint32_t codePoint);

  // The family that the code point's picture comes from; empty for one that draws nothing or is missing.
  std::string FamilyOf(std::uint32_t codePoint);

  // Those of the first font.
  TFontMetrics Metrics() const;

 private:
  struct TState;
  std::unique_ptr<TState> FState;
};

// Whether the code point draws nothing and takes no room, whatever the fonts show for it.
bool IsInvisible(std::uint32_t codePoint);

}  // namespace orv::platform
