// The glyphs of the installed fonts, for the text layouts of an application.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "fmx/GlyphCells.h"

namespace orv::platform {

// Which fonts serve where a text names none, or the named one lacks a character. Behind these come all installed fonts,
// nearest to the named one first, and then a hollow box.
struct TFontChain {
  std::string Family;                  // of texts that name none, or one that is not installed
  std::vector<std::string> Fallbacks;  // asked in this order, those that are not installed being passed over

  // The same everywhere and complete: two fonts that between them have every presentation form.
  static TFontChain Plain();
  // Book faces, each for its script. The Arabic one comes first: its lines have room for the others.
  static TFontChain Naskh();
  // The same with sans faces.
  static TFontChain Sans();
};

// Fonts from fontconfig and FreeType. Files are opened when the first glyph is asked for; fonts installed later are not
// seen. Pictures are made without hinting, Arabic letters with whole advances, so that they join without a seam.
std::unique_ptr<fmx::IFontSources> MakeFontSources(TFontChain chain = TFontChain::Plain());

// The back end of these. One thread.
std::unique_ptr<fmx::TFontGlyphBackEnd> MakeFontGlyphs(TFontChain chain = TFontChain::Plain());

// Makes them the glyphs of the process.
void RegisterFontGlyphs(const TFontChain& chain = TFontChain::Plain());

}  // namespace orv::platform
