// A back end of glyphs over the glyph source.
#pragma once

#include <memory>

#include "fmx/FontGlyphManager.h"

namespace orv::platform {

// Pictures from FreeType, one font request at a time. Fonts are looked for when the first glyph is asked for. One
// thread.
std::unique_ptr<fmx::TFontGlyphBackEnd> MakeSourceGlyphs();

}  // namespace orv::platform
