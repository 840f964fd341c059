// Font files as FreeType opens them, and which of them has a character. For files of this folder alone.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/FontCatalog.h"
#include "platform/GlyphSource.h"

namespace orv::platform {

struct TReleaseFreeType {
  void operator()(FT_Library library) const { FT_Done_FreeType(library); }
  void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using TLibrary = std::unique_ptr<FT_LibraryRec_, TReleaseFreeType>;
using TFace = std::unique_ptr<FT_FaceRec_, TReleaseFreeType>;

// An open face at the size of its request.
struct TOpenFace {
  TFontFile File;
  TFace Face;
  double PixelSize = 0;
  bool Slanted = false;     // here: it has no slant of its own
  bool Emboldened = false;  // here: it is not heavy itself
  bool WholeJoins = false;  // see TFontRequest
};

// The faces of one request, in the order in which they are asked for a character. Opens what it needs when it needs it.
class TFaces {
 public:
  // The catalog is borrowed. Raises as TGlyphSource does.
  TFaces(const TFontCatalog& catalog, TFontRequest request);

  // Where a character's picture comes from.
  struct TPlace {
    const TOpenFace* Face = nullptr;  // null: no font has it
    FT_UInt Index = 0;
  };
  TPlace Find(std::uint32_t codePoint);

  const TOpenFace& First() const { return *FFaces.front(); }
  const TFontRequest& Request() const { return FRequest; }

 private:
  bool Open(const TFontFile& file);
  bool OpenFamily(const std::string& family, fmx::TFontWeight weight);
  void OpenRegularOnes();
  void OpenChosen();
  TPlace FindAmong(std::uint32_t codePoint, std::size_t first) const;

  const TFontCatalog& FCatalog;
  TFontRequest FRequest;
  TLibrary FLibrary;
  std::vector<std::unique_ptr<TOpenFace>> FFaces;
  std::optional<std::vector<TFontFile>> FNearest;  // read when the fonts above lack something for the first time
  std::size_t FNextNearest = 0;                    // the first of them that is not opened yet
};

// The glyph with its outline, in the face's only slot; null where the font's data for it cannot be used, or its picture
// would be larger than any honest font's.
FT_GlyphSlot LoadGlyph(const TOpenFace& face, std::uint32_t codePoint, FT_UInt index);

// Whether the outline in the slot is larger than any honest font's.
bool IsUnbounded(const TOpenFace& face, FT_GlyphSlot slot);

// The coverage of a grey picture, without the padding of its rows.
std::vector<std::uint8_t> CoverageOf(const FT_Bitmap& bitmap);

// Device pixels, held within what a font of the size can mean.
float AdvanceOf(const TOpenFace& face, FT_GlyphSlot slot);

// The picture with its pen at that many sixteenths of a pixel; nothing where the font's data cannot be used.
std::optional<TGlyph> RenderGlyph(const TFaces::TPlace& place, std::uint32_t codePoint, int phase);

// The outline in the slot: y grows downward, figures are closed.
fmx::TPathData OutlineOf(FT_GlyphSlot slot);

}  // namespace orv::platform
