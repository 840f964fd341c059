#include "fmx/GlyphCells.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

#include "fmx/Limits.h"
#include "fmx/Rounding.h"

namespace fmx {
namespace {

// Inclusive ranges, in order.
constexpr std::pair<std::uint32_t, std::uint32_t> SilentRanges[] = {
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

// A glyph's widths in device pixels: left bearing, ink, right bearing. Their sum moves the pen.
struct TBearings {
  float A = 0;
  float B = 0;
  float C = 0;
  float Sum = 0;  // without the rounding that adding up would bring
};

// The shadda and vowel forms stand on the letter before them.
constexpr bool StandsOnTheLetterBefore(std::uint32_t c) {
  return (c >= 0xFC5E && c <= 0xFC62) || (c >= 0xFE70 && c <= 0xFE7D);
}

constexpr bool IsPlacedMark(std::uint32_t c) {
  return (c >= 0xFE70 && c <= 0xFE7E) || (c >= 0xFC5E && c <= 0xFC63);
}

constexpr bool IsKasra(std::uint32_t c) {
  return c == 0xFE74 || c == 0xFE7A;
}

// How far the ink of a mark moves down so that it is clear of the dots of letters of common height: some fonts have it
// as low as a letter without dots would let it be.
std::int32_t Clearance(std::uint32_t c, const TCharacterInk& ink, ICharacterSource& source, std::int32_t height) {
  constexpr std::uint32_t DotsAbove = 0xFE98;  // teh within a word
  constexpr std::uint32_t DotBelow = 0xFE92;   // beh within a word
  const std::int32_t gap = std::max(1, height / 40);
  const TCharacterInk letter = source.Ink(IsKasra(c) ? DotBelow : DotsAbove, false, false);
  if (IsKasra(c)) return std::max(0, ink.Top - (letter.Top - letter.Height - gap));
  return std::min(0, ink.Top - ink.Height - (letter.Top + gap));
}

// Layouts draw the cell of a mark that stands above its letter a third of its height higher, and that of a kasra a
// fifth lower. The ink lies as much lower or higher in these cells, so that it comes out by its letter.
std::int32_t InkShift(std::uint32_t c, const TCharacterInk& ink, ICharacterSource& source, std::int32_t height) {
  if (!IsPlacedMark(c)) return 0;
  const std::int64_t drawn = IsKasra(c) ? -Round(height / 5.0) : Round(height / 3.0);
  return static_cast<std::int32_t>(drawn) + Clearance(c, ink, source, height);
}

// The room that the characters take, in whole pixels.
std::int32_t Extent(float advance) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(Ceil(advance), 0, MaxBitmapSide + 1));
}

TBearings BearingsOf(std::span<const std::uint32_t> chars, const TCharacterInk& ink) {
  const std::uint32_t c = chars.front();
  if (chars.size() > 1 || c >= 0x10000) {
    const auto extent = static_cast<float>(Extent(ink.Advance));
    return {0, extent, 0, extent};
  }
  const auto left = static_cast<float>(ink.Left);
  const auto width = static_cast<float>(ink.Width);
  const float sum = StandsOnTheLetterBefore(c) ? 0 : ink.Advance;
  return {left, width, sum - left - width, sum};
}

std::int32_t CellWidth(const TBearings& bearings, float advance) {
  const float reach = std::fabs(bearings.A) + std::fabs(bearings.B) + std::fabs(bearings.C);
  return std::max(Extent(reach), Extent(advance));
}

// Where the cell begins and ends, from the top of the line: with the line, but for ink that leaves it.
struct TCellReach {
  std::int32_t Top = 0;
  std::int32_t Bottom = 0;
};

TCellReach ReachOf(const TCharacterInk& ink, std::int32_t base, std::int32_t lineHeight) {
  if (ink.Width == 0 || ink.Height == 0) return {0, lineHeight};
  const std::int32_t top = base - ink.Top;
  return {std::min(0, top), std::max(lineHeight, top + ink.Height)};
}

// Draws the ink in the cell, its pen at x and its base line at y. What does not fit is cut off.
class TCellPen {
 public:
  TCellPen(TBitmapSurface& cell, bool asGrey, std::int32_t x, std::int32_t y)
      : FCell(cell), FAsGrey(asGrey), FX(x), FY(y) {}

  void Draw(const TCharacterInk& ink) {
    const std::int64_t left = std::int64_t{FX} + ink.Left;
    const std::int64_t top = std::int64_t{FY} - ink.Top;
    const std::int64_t firstX = std::max<std::int64_t>(0, -left);
    const std::int64_t lastX = std::min<std::int64_t>(ink.Width, FCell.Width() - left);
    const std::int64_t firstY = std::max<std::int64_t>(0, -top);
    const std::int64_t lastY = std::min<std::int64_t>(ink.Height, FCell.Height() - top);
    for (std::int64_t y = firstY; y < lastY; ++y) {
      const auto row = FCell.Scanline(static_cast<std::int32_t>(top + y));
      for (std::int64_t x = firstX; x < lastX; ++x) {
        const auto from = static_cast<std::size_t>(y * ink.Width + x);
        if (const std::uint32_t pixel = PixelOf(ink, from)) row[static_cast<std::size_t>(left + x)] = pixel;
      }
    }
  }

 private:
  std::uint32_t PixelOf(const TCharacterInk& ink, std::size_t at) const {
    if (at < ink.Colors.size()) return ink.Colors[at];
    const std::uint32_t a = at < ink.Coverage.size() ? ink.Coverage[at] : 0;
    if (a == 0) return 0;
    return FAsGrey ? a * 0x01010101U : a << 24 | 0xFFFFFFU;
  }

  TBitmapSurface& FCell;
  bool FAsGrey;
  std::int32_t FX;
  std::int32_t FY;
};

}  // namespace

bool IsSilent(std::uint32_t c) {
  return std::any_of(std::begin(SilentRanges), std::end(SilentRanges),
                     [c](const auto& range) { return c >= range.first && c <= range.second; });
}

std::int32_t PixelSizeOf(float size, float scale) {
  const float pixels = size * scale;
  if (!(pixels > 0)) return 0;
  return static_cast<std::int32_t>(std::min<std::int64_t>(Round(pixels), std::numeric_limits<std::int32_t>::max()));
}

TFontWanted FontWantedOf(const TFontSettings& settings) {
  return {settings.Family, settings.File, settings.Weight, settings.Slant, PixelSizeOf(settings.Size, settings.Scale)};
}

// --- The back end ---

void TCellGlyphs::LoadResource(const TFontSettings& settings) {
  FWanted = FontWantedOf(settings);
}

float TCellGlyphs::DoGetBaseline() {
  if (FWanted.PixelSize < 1) return 0;
  return static_cast<float>(FSources->Open(FWanted).Metrics().Ascent);
}

TFontGlyph TCellGlyphs::DoGetGlyph(std::span<const std::uint32_t> chars, TFontGlyphSettings settings, bool colorful) {
  TFontGlyph glyph;
  const bool wantsPath = settings.Contains(TFontGlyphSetting::Path);
  if (wantsPath) glyph.Style.Include(TFontGlyphStyle::HasPath);
  if (colorful) glyph.Style.Include(TFontGlyphStyle::ColorGlyph);
  if (chars.empty() || FWanted.PixelSize < 1) {
    glyph.Style.Include(TFontGlyphStyle::NoGlyph);
    return glyph;
  }
  ICharacterSource& source = FSources->Open(FWanted);
  const TLineMetrics line = source.Metrics();
  const std::int32_t height = line.Ascent + line.Descent;
  glyph.VerticalAdvance = static_cast<float>(height);
  const std::uint32_t c = chars.front();
  if (IsSilent(c)) {
    glyph.Style.Include(TFontGlyphStyle::NoGlyph);
    return glyph;
  }
  const bool wantsPicture = settings.Contains(TFontGlyphSetting::Bitmap);
  const TCharacterInk ink = source.Ink(c, wantsPicture, colorful);
  const TBearings bearings = BearingsOf(chars, ink);
  const auto shift = static_cast<std::int32_t>(Trunc(bearings.A));
  const std::int32_t base = line.Ascent + InkShift(c, ink, source, height);
  const TCellReach reach = ReachOf(ink, base, height);
  glyph.Origin = {shift, reach.Top};
  glyph.Advance = bearings.Sum;
  if (wantsPicture) {
    glyph.Bitmap.SetSize(CellWidth(bearings, ink.Advance), reach.Bottom - reach.Top);
    TCellPen(glyph.Bitmap, settings.Contains(TFontGlyphSetting::BitmapAsGrey), -shift, base - reach.Top).Draw(ink);
  }
  if (wantsPath) {
    glyph.Path = source.Outline(c);
    glyph.Path.Translate(0, static_cast<float>(line.Ascent));
  }
  return glyph;
}

TShapedText TCellGlyphs::Shape(const TShapeRequest& request) {
  const TFontWanted wanted = FontWantedOf(request.Font);
  return wanted.PixelSize < 1 ? TShapedText{} : FSources->Shape(wanted, request);
}

bool TCellGlyphs::FontRendererRequired(const TFontSettings& font) {
  TFontWanted wanted = FontWantedOf(font);
  wanted.PixelSize = 16;  // any
  return FSources->NeedsShaping(wanted);
}

}  // namespace fmx
