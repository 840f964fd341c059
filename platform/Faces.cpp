#include "platform/Faces.h"

#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "platform/Exceptions.h"

namespace orv::platform {
namespace {

constexpr FT_Int32 LoadMode = FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP;
// Rightward for each pixel upward, as 16.16 numbers: some twelve degrees, as slanted faces have.
constexpr FT_Matrix SlantMatrix{0x10000, 0x3600, 0, 0x10000};
// How much of the em a stroke gains where a heavy face is wanted and there is none.
constexpr double BoldGain = 1.0 / 24;
// The widest signs of honest fonts, whole phrases in one, are some twenty ems wide.
constexpr double MostEms = 40;

// Letters that join reach to both ends of their advance.
constexpr bool Joins(std::uint32_t c) {
  return (c >= 0x0620 && c <= 0x06FF) || (c >= 0x0750 && c <= 0x077F) || (c >= 0xFB50 && c <= 0xFDFF) ||
         (c >= 0xFE70 && c <= 0xFEFC);
}

// Widens or narrows the glyph so that it ends on a whole pixel where the next one begins: nothing shows between them.
void EndOnAWholePixel(FT_GlyphSlot slot) {
  const double advance = static_cast<double>(slot->linearHoriAdvance) / 65536.0;
  const double whole = std::round(advance);
  if (whole < 1) return;
  const FT_Matrix stretch{static_cast<FT_Fixed>(std::lround(whole / advance * 65536.0)), 0, 0, 0x10000};
  FT_Outline_Transform(&slot->outline, &stretch);
  slot->linearHoriAdvance = static_cast<FT_Fixed>(whole * 65536.0);
}

void Embolden(FT_GlyphSlot slot, double pixelSize) {
  const auto strength = static_cast<FT_Pos>(std::lround(pixelSize * 64 * BoldGain));
  FT_Outline_EmboldenXY(&slot->outline, strength, 0);
  if (slot->linearHoriAdvance > 0) slot->linearHoriAdvance += strength * 1024;
}

fmx::TPointF PointOf(const FT_Vector* v) {
  return {static_cast<float>(v->x) / 64, -static_cast<float>(v->y) / 64};
}

}  // namespace

// --- Opening ---

TFaces::TFaces(const TFontCatalog& catalog, TFontRequest request) : FCatalog(catalog), FRequest(std::move(request)) {
  if (!(FRequest.PixelSize >= 1 && FRequest.PixelSize <= MaxPixelSize))
    throw EFontError("a font size must be from 1 to 2048 pixels");
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) != 0) throw EFontError("FreeType cannot start");
  FLibrary.reset(library);
  OpenChosen();
}

// False where the file cannot be used. Faces without outlines cannot.
bool TFaces::Open(const TFontFile& file) {
  for (const auto& face : FFaces)
    if (face->File.Path == file.Path && face->File.Index == file.Index) return true;
  FT_Face opened = nullptr;
  if (FT_New_Face(FLibrary.get(), file.Path.c_str(), file.Index, &opened) != 0) return false;
  auto face = std::make_unique<TOpenFace>();
  face->Face.reset(opened);
  if (!FT_IS_SCALABLE(opened)) return false;
  // At 72 dots per inch a point is a pixel; sizes are in 64ths.
  if (FT_Set_Char_Size(opened, 0, static_cast<FT_F26Dot6>(std::lround(FRequest.PixelSize * 64)), 72, 72) != 0)
    return false;
  face->File = file;
  face->PixelSize = FRequest.PixelSize;
  face->Slanted = FRequest.Slant != fmx::TFontSlant::Regular && (opened->style_flags & FT_STYLE_FLAG_ITALIC) == 0;
  const bool heavy = file.Heavy || (opened->style_flags & FT_STYLE_FLAG_BOLD) != 0;
  face->Emboldened = FRequest.Weight >= fmx::TFontWeight::SemiBold && !heavy;
  face->WholeJoins = FRequest.WholeJoins;
  FFaces.push_back(std::move(face));
  return true;
}

// The slanted face, and behind it the upright one, which is slanted here. False where there is no such family.
bool TFaces::OpenFamily(const std::string& family, fmx::TFontWeight weight) {
  const auto upright = FCatalog.Find(family, weight);
  if (!upright) return false;
  if (FRequest.Slant != fmx::TFontSlant::Regular)
    if (const auto slanted = FCatalog.Find(family, weight, FRequest.Slant)) Open(*slanted);
  Open(*upright);
  return true;
}

// What the faces of the wanted weight lack, such as rare forms in a bold one, those of regular weight may have.
void TFaces::OpenRegularOnes() {
  if (FRequest.Weight == fmx::TFontWeight::Regular) return;
  if (!FRequest.Family.empty()) OpenFamily(FRequest.Family, fmx::TFontWeight::Regular);
  for (const std::string& family : FRequest.Fallbacks) OpenFamily(family, fmx::TFontWeight::Regular);
}

void TFaces::OpenChosen() {
  if (!FRequest.File.empty()) Open({FRequest.File, 0, FRequest.Family});
  if (FFaces.empty() && !FRequest.Family.empty()) {
    const bool known = OpenFamily(FRequest.Family, FRequest.Weight);
    if (!known && !FRequest.AnyFamily)
      throw EFontNotFound("no font family named '" + FRequest.Family + "' is installed");
    if (FFaces.empty() && !FRequest.AnyFamily)
      throw EFontError("the files of the font '" + FRequest.Family + "' cannot be used");
  }
  for (const std::string& family : FRequest.Fallbacks) OpenFamily(family, FRequest.Weight);
  OpenRegularOnes();
  if (!FFaces.empty()) return;
  OpenFamily("sans-serif", FRequest.Weight);
  if (FFaces.empty()) throw EFontError("no usable font is installed");
}

// --- Finding ---

TFaces::TPlace TFaces::FindAmong(std::uint32_t codePoint, std::size_t first) const {
  for (std::size_t i = first; i < FFaces.size(); ++i)
    if (const FT_UInt index = FT_Get_Char_Index(FFaces[i]->Face.get(), codePoint)) return {FFaces[i].get(), index};
  return {};
}

TFaces::TPlace TFaces::Find(std::uint32_t codePoint) {
  TPlace place = FindAmong(codePoint, 0);
  if (place.Face != nullptr) return place;
  if (!FNearest) FNearest = FCatalog.Nearest(FRequest.Family.empty() ? "sans-serif" : FRequest.Family, FRequest.Weight);
  while (place.Face == nullptr && FNextNearest < FNearest->size()) {
    const std::size_t before = FFaces.size();
    Open((*FNearest)[FNextNearest++]);
    place = FindAmong(codePoint, before);
  }
  return place;
}

// --- Glyphs ---

bool IsUnbounded(const TOpenFace& face, FT_GlyphSlot slot) {
  FT_BBox box;
  FT_Outline_Get_CBox(&slot->outline, &box);
  const double limit = std::min(MostEms * face.PixelSize + 64, 32000.0) * 64;
  const auto beyond = [limit](FT_Pos v) { return std::abs(static_cast<double>(v)) > limit; };
  const double area = static_cast<double>(box.xMax - box.xMin) / 64 * (static_cast<double>(box.yMax - box.yMin) / 64);
  return beyond(box.xMin) || beyond(box.xMax) || beyond(box.yMin) || beyond(box.yMax) || area > (1 << 26);
}

std::vector<std::uint8_t> CoverageOf(const FT_Bitmap& bitmap) {
  std::vector<std::uint8_t> coverage;
  coverage.reserve(static_cast<std::size_t>(bitmap.width) * bitmap.rows);
  for (unsigned row = 0; row < bitmap.rows; ++row) {
    const unsigned char* line = bitmap.buffer + static_cast<std::ptrdiff_t>(row) * bitmap.pitch;
    std::copy_n(line, bitmap.width, std::back_inserter(coverage));
  }
  return coverage;
}

FT_GlyphSlot LoadGlyph(const TOpenFace& face, std::uint32_t codePoint, FT_UInt index) {
  FT_Face opened = face.Face.get();
  if (FT_Load_Glyph(opened, index, LoadMode) != 0) return nullptr;
  FT_GlyphSlot slot = opened->glyph;
  if (slot->format != FT_GLYPH_FORMAT_OUTLINE || IsUnbounded(face, slot)) return nullptr;
  if (face.Emboldened) Embolden(slot, face.PixelSize);
  if (face.WholeJoins && Joins(codePoint)) EndOnAWholePixel(slot);
  if (face.Slanted) FT_Outline_Transform(&slot->outline, &SlantMatrix);
  return slot;
}

float AdvanceOf(const TOpenFace& face, FT_GlyphSlot slot) {
  const double advance = static_cast<double>(slot->linearHoriAdvance) / 65536.0;
  return static_cast<float>(std::clamp(advance, 0.0, MostEms * face.PixelSize));
}

std::optional<TGlyph> RenderGlyph(const TFaces::TPlace& place, std::uint32_t codePoint, int phase) {
  const FT_GlyphSlot slot = LoadGlyph(*place.Face, codePoint, place.Index);
  if (slot == nullptr) return std::nullopt;
  TGlyph glyph;
  glyph.Advance = AdvanceOf(*place.Face, slot);
  FT_Outline_Translate(&slot->outline, FT_Pos{phase} * (64 / TGlyphSource::PhaseCount), 0);
  if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0) return std::nullopt;
  glyph.Left = slot->bitmap_left;
  glyph.Top = slot->bitmap_top;
  glyph.Width = static_cast<int>(slot->bitmap.width);
  glyph.Height = static_cast<int>(slot->bitmap.rows);
  glyph.Coverage = CoverageOf(slot->bitmap);
  return glyph;
}

fmx::TPathData OutlineOf(FT_GlyphSlot slot) {
  FT_Outline_Funcs steps{};
  steps.move_to = [](const FT_Vector* to, void* path) {
    static_cast<fmx::TPathData*>(path)->ClosePath();
    static_cast<fmx::TPathData*>(path)->MoveTo(PointOf(to));
    return 0;
  };
  steps.line_to = [](const FT_Vector* to, void* path) {
    static_cast<fmx::TPathData*>(path)->LineTo(PointOf(to));
    return 0;
  };
  steps.conic_to = [](const FT_Vector* control, const FT_Vector* to, void* path) {
    auto& data = *static_cast<fmx::TPathData*>(path);
    const fmx::TPointF from = data.LastPoint();
    const fmx::TPointF middle = PointOf(control);
    const fmx::TPointF end = PointOf(to);
    data.CurveTo(from + (middle - from) * (2.0F / 3), end + (middle - end) * (2.0F / 3), end);
    return 0;
  };
  steps.cubic_to = [](const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to, void* path) {
    static_cast<fmx::TPathData*>(path)->CurveTo(PointOf(control1), PointOf(control2), PointOf(to));
    return 0;
  };
  fmx::TPathData path;
  FT_Outline_Decompose(&slot->outline, &steps, &path);
  path.ClosePath();
  return path;
}

}  // namespace orv::platform
