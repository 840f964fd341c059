#include "platform/Shaper.h"

#include <hb-ft.h>
#include <hb.h>

#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "fmx/Limits.h"
#include "platform/CharacterSource.h"
#include "platform/MissingGlyph.h"
#include "rtl/Strings.h"
#include "rtl/Unicode.h"

namespace orv::platform {
namespace {

struct TReleaseHarfBuzz {
  void operator()(hb_font_t* font) const { hb_font_destroy(font); }
  void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
};
using THbFont = std::unique_ptr<hb_font_t, TReleaseHarfBuzz>;
using THbBuffer = std::unique_ptr<hb_buffer_t, TReleaseHarfBuzz>;

// A stretch of the text in one face; null where no font has its characters.
struct TSegment {
  const TOpenFace* Face = nullptr;
  std::int32_t Start = 0;
  std::int32_t End = 0;
};

// A glyph with its pen, from the left end on the base line, in pixels. The y grows upward.
struct TPlacedGlyph {
  const TOpenFace* Face = nullptr;
  FT_UInt Index = 0;
  std::int32_t Unit = 0;
  double X = 0;
  double Y = 0;
  double Advance = 0;
};

struct TCodePoint {
  std::uint32_t Value;
  std::int32_t Units;
};

TCodePoint CodePointAt(std::u16string_view text, std::int32_t index) {
  const char16_t first = rtl::UnitAt(text, index);
  const char16_t second = rtl::UnitAt(text, index + 1);
  if (!rtl::IsHighSurrogate(first) || !rtl::IsLowSurrogate(second)) return {first, 1};
  return {0x10000 + ((std::uint32_t{first} & 0x3FF) << 10) + (std::uint32_t{second} & 0x3FF), 2};
}

// Marks, joiners and blanks stay with what stands before them, if its font has them at all.
bool Follows(std::uint32_t c) {
  return c == U' ' || fmx::IsSilent(c) || rtl::IsMark(c);
}

bool Has(const TOpenFace* face, std::uint32_t c) {
  return face != nullptr && (fmx::IsSilent(c) || FT_Get_Char_Index(face->Face.get(), c) != 0);
}

double Pixels(hb_position_t v, double limit) {
  return std::clamp(static_cast<double>(v) / 64, -limit, limit);
}

}  // namespace

struct TShaper::TState {
  TState(const TFontCatalog& catalog, TFontRequest request, double stretch)
      : Faces(catalog, std::move(request)), Stretch(stretch), Buffer(hb_buffer_create()) {}

  hb_font_t* FontOf(const TOpenFace& face);
  std::vector<TSegment> Segments(const fmx::TShapeRequest& request);
  void Place(const TSegment& segment, const fmx::TShapeRequest& request, double& pen,
             std::vector<TPlacedGlyph>& glyphs);
  void Draw(std::span<const TPlacedGlyph> glyphs, const fmx::TLineMetrics& line, fmx::TShapedText& shaped) const;
  double Limit() const { return 40 * Faces.Request().PixelSize; }  // of an advance or a shift

  TFaces Faces;
  double Stretch;
  fmx::TLineMetrics Line;
  THbBuffer Buffer;
  std::unordered_map<const TOpenFace*, THbFont> Fonts;
};

hb_font_t* TShaper::TState::FontOf(const TOpenFace& face) {
  THbFont& font = Fonts[&face];
  if (!font) {
    font.reset(hb_ft_font_create_referenced(face.Face.get()));
    hb_ft_font_set_load_flags(font.get(), FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP);
  }
  return font.get();
}

// In the order of the text.
std::vector<TSegment> TShaper::TState::Segments(const fmx::TShapeRequest& request) {
  std::vector<TSegment> segments;
  const std::int32_t end = request.Start + request.Length;
  for (std::int32_t i = request.Start; i < end;) {
    const TCodePoint c = CodePointAt(request.Text, i);
    const std::int32_t next = std::min(i + c.Units, end);
    const TOpenFace* before = segments.empty() ? nullptr : segments.back().Face;
    const TOpenFace* face = Follows(c.Value) && Has(before, c.Value) ? before : nullptr;
    if (face == nullptr) face = fmx::IsSilent(c.Value) ? &Faces.First() : Faces.Find(c.Value).Face;
    if (segments.empty() || segments.back().Face != face) segments.push_back({face, i, i});
    segments.back().End = next;
    i = next;
  }
  return segments;
}

// From the pen on to the right, which moves behind them.
void TShaper::TState::Place(const TSegment& segment, const fmx::TShapeRequest& request, double& pen,
                            std::vector<TPlacedGlyph>& glyphs) {
  if (segment.Face == nullptr) {
    std::vector<TPlacedGlyph> boxes;
    for (std::int32_t i = segment.Start; i < segment.End; i += CodePointAt(request.Text, i).Units)
      boxes.push_back({nullptr, 0, i, 0, 0, 0.6 * Faces.Request().PixelSize});
    if (request.RightToLeft) std::reverse(boxes.begin(), boxes.end());
    for (TPlacedGlyph& box : boxes) {
      box.X = pen;
      pen += box.Advance;
      glyphs.push_back(box);
    }
    return;
  }
  hb_buffer_t* buffer = Buffer.get();
  hb_buffer_clear_contents(buffer);
  hb_buffer_add_utf16(buffer, reinterpret_cast<const std::uint16_t*>(request.Text.data()),
                      static_cast<int>(request.Text.size()), static_cast<unsigned>(segment.Start),
                      segment.End - segment.Start);
  hb_buffer_set_direction(buffer, request.RightToLeft ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
  hb_buffer_guess_segment_properties(buffer);
  hb_shape(FontOf(*segment.Face), buffer, nullptr, 0);
  unsigned count = 0;
  const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, &count);
  for (unsigned i = 0; i < count; ++i) {
    const double advance = std::max(Pixels(positions[i].x_advance, Limit()), 0.0);
    glyphs.push_back({segment.Face, infos[i].codepoint, static_cast<std::int32_t>(infos[i].cluster),
                      pen + Pixels(positions[i].x_offset, Limit()), Pixels(positions[i].y_offset, Limit()), advance});
    pen += advance;
  }
}

namespace {

// Each unit of the text belongs to the cluster that begins at it or before it.
std::vector<fmx::TShapedCluster> ClustersOf(std::span<const TPlacedGlyph> glyphs, const fmx::TShapeRequest& request,
                                            double stretch) {
  struct TSpan {
    std::int32_t Unit;
    double Left;
    double Right;
  };
  std::vector<TSpan> spans;
  double pen = 0;
  for (const TPlacedGlyph& glyph : glyphs) {
    if (spans.empty() || spans.back().Unit != glyph.Unit) spans.push_back({glyph.Unit, pen, pen});
    pen += glyph.Advance;
    spans.back().Right = pen;
  }
  if (request.RightToLeft) std::reverse(spans.begin(), spans.end());
  std::stable_sort(spans.begin(), spans.end(), [](const TSpan& a, const TSpan& b) { return a.Unit < b.Unit; });
  std::vector<fmx::TShapedCluster> clusters;
  const std::int32_t end = request.Start + request.Length;
  for (std::size_t i = 0; i < spans.size(); ++i) {
    const std::int32_t start = i == 0 ? request.Start : spans[i].Unit;
    const std::int32_t next = i + 1 < spans.size() ? spans[i + 1].Unit : end;
    clusters.push_back({start, next - start, static_cast<float>(spans[i].Left * stretch),
                        static_cast<float>((spans[i].Right - spans[i].Left) * stretch)});
  }
  return clusters;
}

// A part of a picture, its corner from the left end on the base line; y grows downward.
struct TInkPart {
  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  std::vector<std::uint8_t> Coverage;
};

std::optional<TInkPart> InkOf(const TPlacedGlyph& placed, double pixelSize) {
  const double whole = std::floor(placed.X);
  if (placed.Face == nullptr) {
    TGlyph box = MissingGlyph(pixelSize);
    return TInkPart{static_cast<std::int32_t>(whole) + box.Left, -box.Top, box.Width, box.Height,
                    std::move(box.Coverage)};
  }
  const FT_GlyphSlot slot = LoadGlyph(*placed.Face, 0, placed.Index);
  if (slot == nullptr) return std::nullopt;
  FT_Outline_Translate(&slot->outline, static_cast<FT_Pos>(std::lround((placed.X - whole) * 64)),
                       static_cast<FT_Pos>(std::lround(placed.Y * 64)));
  if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0) return std::nullopt;
  return TInkPart{static_cast<std::int32_t>(whole) + slot->bitmap_left, -slot->bitmap_top,
                  static_cast<std::int32_t>(slot->bitmap.width), static_cast<std::int32_t>(slot->bitmap.rows),
                  CoverageOf(slot->bitmap)};
}

// Where strokes meet, each covers a part of the same pixels, and the parts add up.
void Add(const TInkPart& part, std::int32_t left, std::int32_t top, fmx::TBitmapSurface& picture) {
  for (std::int32_t y = 0; y < part.Height; ++y) {
    const auto row = picture.Scanline(part.Top - top + y);
    for (std::int32_t x = 0; x < part.Width; ++x) {
      auto& pixel = row[static_cast<std::size_t>(part.Left - left + x)];
      const std::uint32_t coverage = part.Coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(part.Width) +
                                                   static_cast<std::size_t>(x)];
      pixel = std::min((pixel & 0xFF) + coverage, 255U) * 0x01010101U;
    }
  }
}

}  // namespace

void TShaper::TState::Draw(std::span<const TPlacedGlyph> glyphs, const fmx::TLineMetrics& line,
                           fmx::TShapedText& shaped) const {
  std::vector<TInkPart> parts;
  std::int64_t left = 0, top = 0, right = 0, bottom = 0;
  for (const TPlacedGlyph& glyph : glyphs) {
    if (std::abs(glyph.X) > fmx::MaxBitmapSide) return;  // no bitmap is as wide
    auto part = InkOf(glyph, Faces.Request().PixelSize);
    if (!part || part->Width == 0 || part->Height == 0) continue;
    left = parts.empty() ? part->Left : std::min<std::int64_t>(left, part->Left);
    top = parts.empty() ? part->Top : std::min<std::int64_t>(top, part->Top);
    right = parts.empty() ? part->Left + part->Width : std::max<std::int64_t>(right, part->Left + part->Width);
    bottom = parts.empty() ? part->Top + part->Height : std::max<std::int64_t>(bottom, part->Top + part->Height);
    parts.push_back(std::move(*part));
  }
  const std::int64_t width = right - left;
  const std::int64_t height = bottom - top;
  if (parts.empty() || width > fmx::MaxBitmapSide || height > fmx::MaxBitmapSide ||
      width * height > fmx::MaxBitmapPixels)
    return;
  shaped.Picture.SetSize(static_cast<std::int32_t>(width), static_cast<std::int32_t>(height));
  for (const TInkPart& part : parts)
    Add(part, static_cast<std::int32_t>(left), static_cast<std::int32_t>(top), shaped.Picture);
  shaped.PictureOrigin = {static_cast<std::int32_t>(left), static_cast<std::int32_t>(top) + line.Ascent};
}

namespace {

// Shaped text is drawn from one picture: nothing has to end on a whole pixel.
TFontRequest ShapingRequest(const fmx::TFontWanted& font, const TFontChain& chain) {
  TFontRequest request = RequestFor(font, chain);
  request.WholeJoins = false;
  return request;
}

}  // namespace

TShaper::TShaper(const TFontCatalog& catalog, const fmx::TFontWanted& font, const TFontChain& chain)
    : FState(std::make_unique<TState>(catalog, ShapingRequest(font, chain),
                                      std::max(1.0, font.PixelSize / MaxPixelSize))) {
  FState->Line = LineMetricsOf(FState->Faces.First(), FState->Stretch);
}

TShaper::~TShaper() = default;

fmx::TShapedText TShaper::Shape(const fmx::TShapeRequest& asked) {
  fmx::TShapeRequest request = asked;
  const auto size = static_cast<std::int32_t>(request.Text.size());
  request.Start = std::clamp(request.Start, 0, size);
  request.Length = std::clamp(request.Length, 0, size - request.Start);
  std::vector<TSegment> segments = FState->Segments(request);
  if (request.RightToLeft) std::reverse(segments.begin(), segments.end());
  std::vector<TPlacedGlyph> glyphs;
  double pen = 0;
  for (const TSegment& segment : segments) FState->Place(segment, request, pen, glyphs);
  fmx::TShapedText shaped;
  shaped.Clusters = ClustersOf(glyphs, request, FState->Stretch);
  shaped.Width = static_cast<float>(pen * FState->Stretch);
  shaped.Height = static_cast<float>(FState->Line.Ascent + FState->Line.Descent);
  shaped.Baseline = static_cast<float>(FState->Line.Ascent);
  if (request.WantsPicture && FState->Stretch == 1) FState->Draw(glyphs, FState->Line, shaped);
  return shaped;
}

}  // namespace orv::platform
