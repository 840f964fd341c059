// Marks over, under and within their letters.
//
// Presentation forms are single pictures, so nothing in a font tells where a mark goes: it is set by the picture of
// its letter. A mark above stands over the highest ink in the columns it covers, a mark below under the lowest.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/GlyphSource.h"

namespace orv::show {

// Whether the code point is drawn over the one before it, taking no room: a combining mark, or the isolated form of an
// Arabic one.
bool IsMark(std::uint32_t codePoint);

// The place of one glyph's picture: its upper left corner right of the pen and above the base line, whole pixels.
struct TPlacedGlyph {
  const platform::TGlyph* Glyph = nullptr;
  int Left = 0;
  int Top = 0;
};

// A letter's picture with its pen at 0 and its marks around it, letter first. All glyphs are borrowed.
struct TMark {
  std::uint32_t CodePoint = 0;
  const platform::TGlyph* Glyph = nullptr;
};
std::vector<TPlacedGlyph> PlaceMarks(std::uint32_t letter, const platform::TGlyph& glyph, std::span<const TMark> marks,
                                     double pixelSize);

}  // namespace orv::show
