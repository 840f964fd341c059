// Settings of glyph textures that hold for the process.
#pragma once

namespace fmx {

// A holder without instances. With the flag set, glyphs that were met within a scene keep bitmaps of their own instead
// of moving to a shared texture at its end.
struct TGlyphsManager {
  static inline bool DisableGlyphPopulation = false;
};

}  // namespace fmx
