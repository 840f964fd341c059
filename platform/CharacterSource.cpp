#include "platform/CharacterSource.h"

#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "fmx/Exceptions.h"
#include "fmx/Limits.h"
#include "platform/MissingGlyph.h"
#include "rtl/Utf8.h"

namespace orv::platform {
namespace {

// FreeType draws no picture beyond some 32,000 pixels, and coordinates of larger ones do not fit its numbers.
constexpr double MostStretch = 8;
// Heights that no honest font has, in ems.
constexpr double MostHeight = 8;
constexpr double MostPixels = 1 << 29;

std::int32_t WholePixels(double v) {
  return static_cast<std::int32_t>(std::clamp(v, -MostPixels, MostPixels));
}

struct THeights {
  double Ascent;
  double Descent;
};

// The heights within which the font's designer keeps the letters of all its scripts; those between its lines are less.
THeights HeightsOf(const TOpenFace& open) {
  FT_Face face = open.Face.get();
  const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
  const double em = std::max<double>(face->units_per_EM, 1);
  if (os2 != nullptr && os2->usWinAscent + os2->usWinDescent > 0)
    return {os2->usWinAscent / em * open.PixelSize, os2->usWinDescent / em * open.PixelSize};
  return {face->ascender / em * open.PixelSize, -face->descender / em * open.PixelSize};
}

void RequireSize(double width, double height) {
  if (width > fmx::MaxBitmapSide || height > fmx::MaxBitmapSide ||
      width * height > static_cast<double>(fmx::MaxBitmapPixels))
    throw fmx::EBitmapSizeTooBig("A glyph of that size has no picture");
}

void Stretch(FT_GlyphSlot slot, double factor) {
  if (factor == 1) return;
  const auto scale = static_cast<FT_Fixed>(std::lround(factor * 65536.0));
  const FT_Matrix matrix{scale, 0, 0, scale};
  FT_Outline_Transform(&slot->outline, &matrix);
}

// The box of the ink as FreeType rounds it, at a size that may be beyond what it can draw.
void PlaceInk(const FT_Outline& outline, double stretch, fmx::TCharacterInk& ink) {
  FT_BBox box;
  FT_Outline_Get_CBox(&outline, &box);
  const auto down = [&](FT_Pos v) { return WholePixels(std::floor(static_cast<double>(v) / 64 * stretch)); };
  const auto up = [&](FT_Pos v) { return WholePixels(std::ceil(static_cast<double>(v) / 64 * stretch)); };
  ink.Left = down(box.xMin);
  ink.Top = up(box.yMax);
  ink.Width = up(box.xMax) - ink.Left;
  ink.Height = ink.Top - down(box.yMin);
}

}  // namespace

fmx::TLineMetrics LineMetricsOf(const TOpenFace& face, double stretch) {
  const double limit = MostHeight * face.PixelSize;
  THeights heights = HeightsOf(face);
  heights.Ascent = std::clamp(heights.Ascent, 0.0, limit);
  heights.Descent = std::clamp(heights.Descent, 0.0, limit);
  if (heights.Ascent + heights.Descent < 1) heights = {0.8 * face.PixelSize, 0.2 * face.PixelSize};
  return {WholePixels(std::ceil(heights.Ascent * stretch)), WholePixels(std::ceil(heights.Descent * stretch))};
}

const TFontCatalog& SharedCatalog() {
  static const TFontCatalog catalog;
  return catalog;
}

TFontRequest RequestFor(const fmx::TFontWanted& font, const TFontChain& chain) {
  TFontRequest request;
  request.Family = rtl::ToUtf8(font.Family);
  request.File = rtl::ToUtf8(font.File);
  request.Fallbacks.push_back(chain.Family);
  request.Fallbacks.insert(request.Fallbacks.end(), chain.Fallbacks.begin(), chain.Fallbacks.end());
  request.PixelSize = std::clamp<double>(font.PixelSize, 1, MaxPixelSize);
  request.Weight = font.Weight;
  request.Slant = font.Slant;
  request.AnyFamily = true;
  request.WholeJoins = true;
  return request;
}

TCharacterSource::TCharacterSource(const TFontCatalog& catalog, const fmx::TFontWanted& font, const TFontChain& chain)
    : FFaces(catalog, RequestFor(font, chain)),
      FStretch(std::max(1.0, font.PixelSize / MaxPixelSize)),
      FMetrics(LineMetricsOf(FFaces.First(), FStretch)) {}

bool TCharacterSource::NeedsShaping() const {
  // Beh and meem, and all four forms of beh.
  constexpr FT_ULong letters[] = {0x0628, 0x0645};
  constexpr FT_ULong forms[] = {0xFE8F, 0xFE90, 0xFE91, 0xFE92};
  const auto has = [&](FT_ULong c) { return FT_Get_Char_Index(FFaces.First().Face.get(), c) != 0; };
  return std::all_of(std::begin(letters), std::end(letters), has) &&
         !std::all_of(std::begin(forms), std::end(forms), has);
}

fmx::TCharacterInk TCharacterSource::Ink(std::uint32_t c, bool wantsPicture, bool colorful) {
  const TFaces::TPlace place = FFaces.Find(c);
  if (place.Face == nullptr) return MissingInk();
  if (colorful && FStretch == 1 && FT_HAS_COLOR(place.Face->Face.get())) {
    fmx::TCharacterInk ink = ColorsOf(place);
    if (!ink.Colors.empty()) return ink;
  }
  return InkOf(place, c, wantsPicture);
}

fmx::TCharacterInk TCharacterSource::InkOf(const TFaces::TPlace& place, std::uint32_t c, bool wantsPicture) const {
  const FT_GlyphSlot slot = LoadGlyph(*place.Face, c, place.Index);
  if (slot == nullptr) return MissingInk();
  fmx::TCharacterInk ink;
  ink.Advance = static_cast<float>(static_cast<double>(AdvanceOf(*place.Face, slot)) * FStretch);
  PlaceInk(slot->outline, FStretch, ink);
  if (!wantsPicture) return ink;
  RequireSize(ink.Width, ink.Height);
  if (FStretch > MostStretch) throw fmx::EBitmapSizeTooBig("A glyph of that size has no picture");
  Stretch(slot, FStretch);
  if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0) return MissingInk();
  ink.Left = slot->bitmap_left;
  ink.Top = slot->bitmap_top;
  ink.Width = static_cast<std::int32_t>(slot->bitmap.width);
  ink.Height = static_cast<std::int32_t>(slot->bitmap.rows);
  ink.Coverage = CoverageOf(slot->bitmap);
  return ink;
}

// A glyph of coloured layers; without colours where the font has none for it.
fmx::TCharacterInk TCharacterSource::ColorsOf(const TFaces::TPlace& place) const {
  FT_Face face = place.Face->Face.get();
  fmx::TCharacterInk ink;
  if (FT_Load_Glyph(face, place.Index, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP | FT_LOAD_COLOR) != 0) return ink;
  FT_GlyphSlot slot = face->glyph;
  if (slot->format != FT_GLYPH_FORMAT_OUTLINE || IsUnbounded(*place.Face, slot)) return ink;
  if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0 || slot->bitmap.pixel_mode != FT_PIXEL_MODE_BGRA) return ink;
  ink.Advance = AdvanceOf(*place.Face, slot);
  ink.Left = slot->bitmap_left;
  ink.Top = slot->bitmap_top;
  ink.Width = static_cast<std::int32_t>(slot->bitmap.width);
  ink.Height = static_cast<std::int32_t>(slot->bitmap.rows);
  for (unsigned y = 0; y < slot->bitmap.rows; ++y) {
    const unsigned char* row = slot->bitmap.buffer + static_cast<std::ptrdiff_t>(y) * slot->bitmap.pitch;
    for (unsigned x = 0; x < slot->bitmap.width; ++x, row += 4)
      ink.Colors.push_back(std::uint32_t{row[3]} << 24 | std::uint32_t{row[2]} << 16 | std::uint32_t{row[1]} << 8 |
                           row[0]);
  }
  return ink;
}

fmx::TCharacterInk TCharacterSource::MissingInk() const {
  const double pixelSize = FFaces.Request().PixelSize * FStretch;
  if (FStretch > 1) {  // no picture of megabytes for nothing
    fmx::TCharacterInk ink;
    ink.Advance = static_cast<float>(pixelSize * 0.6);
    return ink;
  }
  TGlyph box = MissingGlyph(pixelSize);
  return {box.Advance, box.Left, box.Top, box.Width, box.Height, std::move(box.Coverage), {}};
}

fmx::TPathData TCharacterSource::Outline(std::uint32_t c) {
  const TFaces::TPlace place = FFaces.Find(c);
  const FT_GlyphSlot slot = place.Face != nullptr ? LoadGlyph(*place.Face, c, place.Index) : nullptr;
  fmx::TPathData path = slot != nullptr ? OutlineOf(slot) : OutlineOfMissingGlyph(FFaces.Request().PixelSize);
  if (FStretch != 1) {
    const auto stretch = static_cast<float>(FStretch);
    path.ApplyMatrix(fmx::TMatrix::Scaling(stretch, stretch));
  }
  return path;
}

}  // namespace orv::platform
