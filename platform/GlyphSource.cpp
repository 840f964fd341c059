#include "platform/GlyphSource.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <unordered_map>
#include <utility>

#include "fmx/PathShapes.h"
#include "platform/Exceptions.h"

namespace orv::platform {
namespace {

struct TRelease {
  void operator()(FT_Library library) const { FT_Done_FreeType(library); }
  void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using TLibrary = std::unique_ptr<FT_LibraryRec_, TRelease>;
using TFace = std::unique_ptr<FT_FaceRec_, TRelease>;

constexpr FT_Int32 LoadMode = FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP;
constexpr int TabBlanks = 4;
// Rightward for each pixel upward, as 16.16 numbers: some twelve degrees, as slanted faces have.
constexpr FT_Matrix Slant{0x10000, 0x3600, 0, 0x10000};

// Inclusive ranges, in order.
constexpr std::pair<std::uint32_t, std::uint32_t> InvisibleRanges[] = {
    {0x0000, 0x0008},                                        // controls but tab
    {0x000A, 0x001F},   {0x007F, 0x009F}, {0x00AD, 0x00AD},  // soft hyphen
    {0x061C, 0x061C},                                        // Arabic letter mark
    {0x200B, 0x200F},                                        // zero-width space, joiners, direction marks
    {0x2028, 0x202E},                                        // line ends, embeddings
    {0x2060, 0x206F},                                        // word joiner, isolates
    {0xFE00, 0xFE0F},                                        // variation selectors
    {0xFEFF, 0xFEFF},                                        // byte order mark
    {0xE0000, 0xE0FFF},                                      // tags, further variation selectors
};

struct TFont {
  TFontFile File;
  TFace Face;
  bool Slanted = false;  // it has no slant of its own
};

std::optional<TFont> OpenFont(FT_Library library, const TFontFile& file, const TFontRequest& request) {
  FT_Face opened = nullptr;
  if (FT_New_Face(library, file.Path.c_str(), file.Index, &opened) != 0) return std::nullopt;
  TFont font{file, TFace(opened), request.Italic && (opened->style_flags & FT_STYLE_FLAG_ITALIC) == 0};
  // At 72 dots per inch a point is a pixel; sizes are in 64ths.
  if (FT_Set_Char_Size(opened, 0, static_cast<FT_F26Dot6>(std::lround(request.PixelSize * 64)), 72, 72) != 0)
    return std::nullopt;
  return font;
}

int BoxStroke(double pixelSize) {
  return std::max(1, static_cast<int>(pixelSize / 16));
}

TGlyph Box(double pixelSize, int phase) {
  TGlyph box;
  box.Missing = true;
  box.Advance = static_cast<float>(pixelSize * 0.6);
  const int stroke = BoxStroke(pixelSize);
  box.Width = std::max(3, static_cast<int>(pixelSize * 0.5));
  box.Height = std::max(4, static_cast<int>(pixelSize * 0.7));
  box.Left = static_cast<int>(std::floor((static_cast<double>(box.Advance) - box.Width) / 2 +
                                         static_cast<double>(phase) / TGlyphSource::PhaseCount + 0.5));
  box.Top = box.Height;
  box.Coverage.assign(static_cast<std::size_t>(box.Width) * static_cast<std::size_t>(box.Height), 0);
  for (int y = 0; y < box.Height; ++y)
    for (int x = 0; x < box.Width; ++x)
      if (std::min({x, y, box.Width - 1 - x, box.Height - 1 - y}) < stroke)
        box.Coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(box.Width) + static_cast<std::size_t>(x)] =
            255;
  return box;
}

void CopyCoverage(const FT_Bitmap& bitmap, TGlyph& glyph) {
  glyph.Width = static_cast<int>(bitmap.width);
  glyph.Height = static_cast<int>(bitmap.rows);
  glyph.Coverage.reserve(static_cast<std::size_t>(bitmap.width) * bitmap.rows);
  for (unsigned row = 0; row < bitmap.rows; ++row) {
    const unsigned char* line = bitmap.buffer + static_cast<std::ptrdiff_t>(row) * bitmap.pitch;
    std::copy_n(line, bitmap.width, std::back_inserter(glyph.Coverage));
  }
}

// The glyph with its outline, in the face's only slot; null where the font's data for it cannot be used.
FT_GlyphSlot Load(const TFont& font, FT_UInt index) {
  FT_Face face = font.Face.get();
  if (FT_Load_Glyph(face, index, LoadMode) != 0 || face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return nullptr;
  if (font.Slanted) FT_Outline_Transform(&face->glyph->outline, &Slant);
  return face->glyph;
}

std::optional<TGlyph> Render(const TFont& font, FT_UInt index, int phase) {
  const FT_GlyphSlot slot = Load(font, index);
  if (slot == nullptr) return std::nullopt;
  TGlyph glyph;
  glyph.Advance = static_cast<float>(static_cast<double>(slot->linearHoriAdvance) / 65536.0);
  FT_Outline_Translate(&slot->outline, FT_Pos{phase} * (64 / TGlyphSource::PhaseCount), 0);
  if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0) return std::nullopt;
  glyph.Left = slot->bitmap_left;
  glyph.Top = slot->bitmap_top;
  CopyCoverage(slot->bitmap, glyph);
  return glyph;
}

// --- Outlines ---

fmx::TPointF PointOf(const FT_Vector* v) {
  return {static_cast<float>(v->x) / 64, -static_cast<float>(v->y) / 64};
}

// The figures of an outline are closed without saying so.
fmx::TPathData PathOf(FT_Outline& outline) {
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
  FT_Outline_Decompose(&outline, &steps, &path);
  path.ClosePath();
  return path;
}

// A box's picture as outline: a frame, its inner edge the other way round.
fmx::TPathData PathOf(const TGlyph& box, int stroke) {
  const auto outer = fmx::TRectF::FromSize({static_cast<float>(box.Left), static_cast<float>(-box.Top)},
                                           static_cast<float>(box.Width), static_cast<float>(box.Height));
  const auto inner = outer.Inset(static_cast<float>(stroke), static_cast<float>(stroke));
  fmx::TPathData path = fmx::RectanglePath(outer);
  path.MoveTo({inner.Left, inner.Top});
  path.LineTo({inner.Left, inner.Bottom});
  path.LineTo({inner.Right, inner.Bottom});
  path.LineTo({inner.Right, inner.Top});
  path.ClosePath();
  return path;
}

}  // namespace

struct TGlyphSource::TState {
  // Where a code point's picture comes from.
  struct TPlace {
    const TFont* Font = nullptr;  // null: no font has it
    FT_UInt Index = 0;
  };

  TState(const TFontCatalog& catalog, TFontRequest request) : Catalog(&catalog), Request(std::move(request)) {}

  void Open(const TFontFile& file);
  bool OpenFamily(const std::string& family);
  void OpenChosen();
  TPlace Find(std::uint32_t codePoint);
  TPlace FindAmong(std::uint32_t codePoint, std::size_t first) const;
  TGlyph Make(std::uint32_t codePoint, int phase);

  const TFontCatalog* Catalog;
  TFontRequest Request;
  TLibrary Library;
  std::vector<std::unique_ptr<TFont>> Fonts;      // in the order in which they are asked
  std::optional<std::vector<TFontFile>> Nearest;  // read when the fonts above lack something for the first time
  std::size_t NextNearest = 0;                    // the first of them that is not opened yet
  std::unordered_map<std::uint64_t, TGlyph> Glyphs;
};

void TGlyphSource::TState::Open(const TFontFile& file) {
  for (const auto& font : Fonts)
    if (font->File == file) return;
  if (auto font = OpenFont(Library.get(), file, Request)) Fonts.push_back(std::make_unique<TFont>(std::move(*font)));
}

// The slanted face, and behind it the upright one, which is slanted here. False where there is no such family.
bool TGlyphSource::TState::OpenFamily(const std::string& family) {
  const auto upright = Catalog->Find(family, Request.Bold);
  if (!upright) return false;
  if (Request.Italic)
    if (const auto slanted = Catalog->Find(family, Request.Bold, true)) Open(*slanted);
  Open(*upright);
  return true;
}

void TGlyphSource::TState::OpenChosen() {
  if (!Request.Family.empty()) {
    if (!OpenFamily(Request.Family)) throw EFontNotFound("no font family named '" + Request.Family + "' is installed");
    if (Fonts.empty()) throw EFontError("the files of the font '" + Request.Family + "' cannot be used");
  }
  for (const std::string& family : Request.Fallbacks) OpenFamily(family);
  if (!Fonts.empty()) return;
  OpenFamily("sans-serif");
  if (Fonts.empty()) throw EFontError("no usable font is installed");
}

TGlyphSource::TState::TPlace TGlyphSource::TState::FindAmong(std::uint32_t codePoint, std::size_t first) const {
  for (std::size_t i = first; i < Fonts.size(); ++i)
    if (const FT_UInt index = FT_Get_Char_Index(Fonts[i]->Face.get(), codePoint)) return {Fonts[i].get(), index};
  return {};
}

TGlyphSource::TState::TPlace TGlyphSource::TState::Find(std::uint32_t codePoint) {
  TPlace place = FindAmong(codePoint, 0);
  if (place.Font != nullptr) return place;
  if (!Nearest) {
    const std::string family = Request.Family.empty() ? "sans-serif" : Request.Family;
    Nearest = Catalog->Nearest(family, Request.Bold);
  }
  while (place.Font == nullptr && NextNearest < Nearest->size()) {
    const std::size_t before = Fonts.size();
    Open((*Nearest)[NextNearest++]);
    place = FindAmong(codePoint, before);
  }
  return place;
}

TGlyph TGlyphSource::TState::Make(std::uint32_t codePoint, int phase) {
  if (IsInvisible(codePoint)) return {};
  if (codePoint == u'\t') {
    TGlyph tab;
    tab.Advance = TabBlanks * Make(U' ', 0).Advance;
    return tab;
  }
  const TPlace place = Find(codePoint);
  if (place.Font != nullptr)
    if (auto glyph = Render(*place.Font, place.Index, phase)) return std::move(*glyph);
  return Box(Request.PixelSize, phase);
}

TGlyphSource::TGlyphSource(const TFontCatalog& catalog, TFontRequest request)
    : FState(std::make_unique<TState>(catalog, std::move(request))) {
  if (!(FState->Request.PixelSize >= 1 && FState->Request.PixelSize <= MaxPixelSize))
    throw EFontError("a font size must be from 1 to 2048 pixels");
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) != 0) throw EFontError("FreeType cannot start");
  FState->Library.reset(library);
  FState->OpenChosen();
}

TGlyphSource::~TGlyphSource() = default;
TGlyphSource::TGlyphSource(TGlyphSource&&) noexcept = default;
TGlyphSource& TGlyphSource::operator=(TGlyphSource&&) noexcept = default;

const TGlyph& TGlyphSource::Glyph(std::uint32_t codePoint, int phase) {
  const int place = std::clamp(phase, 0, PhaseCount - 1);
  const std::uint64_t key = std::uint64_t{codePoint} * PhaseCount + static_cast<unsigned>(place);
  const auto found = FState->Glyphs.find(key);
  if (found != FState->Glyphs.end()) return found->second;
  return FState->Glyphs.emplace(key, FState->Make(codePoint, place)).first->second;
}

fmx::TPathData TGlyphSource::Outline(std::uint32_t codePoint) {
  if (IsInvisible(codePoint) || codePoint == u'\t') return {};
  const TState::TPlace place = FState->Find(codePoint);
  if (place.Font != nullptr)
    if (const FT_GlyphSlot slot = Load(*place.Font, place.Index)) return PathOf(slot->outline);
  const double size = FState->Request.PixelSize;
  return PathOf(Box(size, 0), BoxStroke(size));
}

std::string TGlyphSource::FamilyOf(std::uint32_t codePoint) {
  if (IsInvisible(codePoint) || codePoint == u'\t') return {};
  const TState::TPlace place = FState->Find(codePoint);
  return place.Font != nullptr ? place.Font->File.Family : std::string();
}

TFontMetrics TGlyphSource::Metrics() const {
  const FT_Size_Metrics& size = FState->Fonts.front()->Face->size->metrics;
  const auto pixels = [](FT_Pos value) { return static_cast<float>(value) / 64.0F; };
  return {pixels(size.ascender), pixels(-size.descender), pixels(size.height)};
}

bool IsInvisible(std::uint32_t codePoint) {
  return std::any_of(std::begin(InvisibleRanges), std::end(InvisibleRanges),
                     [&](const auto& range) { return codePoint >= range.first && codePoint <= range.second; });
}

}  // namespace orv::platform
