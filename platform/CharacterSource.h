// The characters of one font and those that help it out. For files of this folder alone.
#pragma once

#include "platform/Faces.h"
#include "platform/FontGlyphs.h"

namespace orv::platform {

// The installed fonts as they were at the first call.
const TFontCatalog& SharedCatalog();

// The request for a font at a size that FreeType can load.
TFontRequest RequestFor(const TFontWanted& font, const TFontChain& chain);

class TCharacterSource : public ICharacterSource {
 public:
  TCharacterSource(const TFontCatalog& catalog, const TFontWanted& font, const TFontChain& chain);

  TLineMetrics Metrics() override { return FMetrics; }
  TCharacterInk Ink(UCS4Char c, bool wantsPicture, bool colorful) override;
  fmx::TPathData Outline(UCS4Char c) override;

  // Whether the chosen font has Arabic letters, and not their forms.
  bool NeedsShaping() const;

 private:
  TCharacterInk InkOf(const TFaces::TPlace& place, UCS4Char c, bool wantsPicture) const;
  TCharacterInk ColorsOf(const TFaces::TPlace& place) const;
  TCharacterInk MissingInk() const;

  TFaces FFaces;
  double FStretch = 1;  // of a size that FreeType cannot load
  TLineMetrics FMetrics;
};

}  // namespace orv::platform
