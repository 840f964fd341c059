// The characters of one font and those that help it out. For files of this folder alone.
#pragma once

#include "platform/Faces.h"
#include "platform/FontGlyphs.h"

namespace orv::platform {

// The installed fonts as they were at the first call.
const TFontCatalog& SharedCatalog();

// The request for a font at a size that FreeType can load.
TFontRequest RequestFor(const fmx::TFontWanted& font, const TFontChain& chain);

// The heights of the face's line, held within reason: a line has some height.
fmx::TLineMetrics LineMetricsOf(const TOpenFace& face, double stretch);

class TCharacterSource : public fmx::ICharacterSource {
 public:
  TCharacterSource(const TFontCatalog& catalog, const fmx::TFontWanted& font, const TFontChain& chain);

  fmx::TLineMetrics Metrics() override { return FMetrics; }
  fmx::TCharacterInk Ink(std::uint32_t c, bool wantsPicture, bool colorful) override;
  fmx::TPathData Outline(std::uint32_t c) override;

  // Whether the chosen font has Arabic letters, and not their forms.
  bool NeedsShaping() const;

 private:
  fmx::TCharacterInk InkOf(const TFaces::TPlace& place, std::uint32_t c, bool wantsPicture) const;
  fmx::TCharacterInk ColorsOf(const TFaces::TPlace& place) const;
  fmx::TCharacterInk MissingInk() const;

  TFaces FFaces;
  double FStretch = 1;  // of a size that FreeType cannot load
  fmx::TLineMetrics FMetrics;
};

}  // namespace orv::platform
