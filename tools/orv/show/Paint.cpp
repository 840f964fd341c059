#include "tools/orv/show/Paint.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "tools/orv/show/Marks.h"

namespace orv::show {
namespace {

using platform::TFrame;
using platform::TGlyph;
using platform::TGlyphSource;

std::uint32_t Mix(std::uint32_t under, std::uint32_t over, unsigned coverage) {
  std::uint32_t result = 0xFF000000;
  for (const int shift : {16, 8, 0}) {
    const unsigned a = (under >> shift) & 0xFF;
    const unsigned b = (over >> shift) & 0xFF;
    result |= ((a * (255 - coverage) + b * coverage + 127) / 255) << shift;
  }
  return result;
}

// The ink of one line, gathered before it is coloured: where two letters join, each covers a part of the same pixels,
// and the parts add up to a stroke without a seam.
class TInkBand {
 public:
  TInkBand(int width, int above, int below)
      : FWidth(width),
        FAbove(above),
        FHeight(above + below),
        FCoverage(static_cast<std::size_t>(FWidth) * static_cast<std::size_t>(FHeight)) {}

  // left is from the band's left edge, top above the base line.
  void Add(const TGlyph& glyph, int left, int top) {
    const int first = std::max(0, -left);
    const int last = std::min(glyph.Width, FWidth - left);
    for (int y = 0; y < glyph.Height; ++y) {
      const int row = FAbove - top + y;
      if (row < 0 || row >= FHeight) continue;
      for (int x = first; x < last; ++x) AddTo(At(left + x, row), glyph.Coverage[Index(x, y, glyph.Width)]);
    }
  }

  void Blend(TFrame& frame, int baseLine, std::uint32_t color) const {
    for (int row = 0; row < FHeight; ++row) {
      const int y = baseLine - FAbove + row;
      if (y < 0 || y >= frame.Height) continue;
      const auto pixels = frame.Row(y);
      for (int x = 0; x < std::min(FWidth, frame.Width); ++x)
        if (const unsigned coverage = FCoverage[Index(x, row, FWidth)])
          pixels[static_cast<std::size_t>(x)] = Mix(pixels[static_cast<std::size_t>(x)], color, coverage);
    }
  }

 private:
  static std::size_t Index(int x, int y, int width) {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
  }
  std::uint8_t& At(int x, int y) { return FCoverage[Index(x, y, FWidth)]; }
  static void AddTo(std::uint8_t& sum, unsigned coverage) {
    sum = static_cast<std::uint8_t>(std::min(255U, sum + coverage));
  }

  int FWidth;
  int FAbove;
  int FHeight;
  std::vector<std::uint8_t> FCoverage;
};

// A letter with its marks: atoms first to last - 1 of a run.
struct TCluster {
  std::size_t First = 0;
  std::size_t Last = 0;
};

std::vector<TCluster> Clusters(const TPiece& piece) {
  std::vector<TCluster> clusters;
  for (std::size_t i = piece.First; i < piece.Last;) {
    std::size_t next = i + 1;
    while (next < piece.Last && IsMark(piece.Run->Atoms[next])) ++next;
    clusters.push_back({i, next});
    i = next;
  }
  return clusters;
}

class TLinePainter {
 public:
  TLinePainter(const TFace& face, TInkBand& band) : FFace(face), FBand(band) {}

  // Answers where the next piece begins.
  float Draw(const TPiece& piece, float left) {
    const std::vector<TCluster> clusters = Clusters(piece);
    float pen = piece.Run->RightToLeft ? left + piece.Width : left;
    for (const TCluster& cluster : clusters) {
      const float advance = Advance(piece, cluster);
      if (piece.Run->RightToLeft) pen -= advance;
      Draw(piece, cluster, pen);
      if (!piece.Run->RightToLeft) pen += advance;
    }
    return left + piece.Width;
  }

 private:
  // As the line was filled: a mark has room of its own only at the very start of a run.
  float Advance(const TPiece& piece, const TCluster& cluster) const {
    const UCS4Char c = piece.Run->Atoms[cluster.First];
    return cluster.First > 0 && IsMark(c) ? 0.0F : FFace.Glyphs->Glyph(c).Advance;
  }

  void Draw(const TPiece& piece, const TCluster& cluster, float pen) {
    const float whole = std::floor(pen);
    const int phase = static_cast<int>((pen - whole) * TGlyphSource::PhaseCount);
    const UCS4Char letter = piece.Run->Atoms[cluster.First];
    std::vector<TMark> marks;
    for (std::size_t i = cluster.First + 1; i < cluster.Last; ++i)
      marks.push_back({piece.Run->Atoms[i], &FFace.Glyphs->Glyph(piece.Run->Atoms[i])});
    const TGlyph& glyph = FFace.Glyphs->Glyph(letter, phase);
    for (const TPlacedGlyph& placed : PlaceMarks(letter, glyph, marks, FFace.PixelSize))
      FBand.Add(*placed.Glyph, static_cast<int>(whole) + placed.Left, placed.Top);
  }

  const TFace& FFace;
  TInkBand& FBand;
};

void DrawRule(const TPage& page, std::uint32_t color, int left, int y, TFrame& frame) {
  if (y < 0 || y >= frame.Height) return;
  const int first = std::clamp(left + page.Width * 3 / 8, 0, frame.Width);
  const int last = std::clamp(left + page.Width * 5 / 8, first, frame.Width);
  const auto row = frame.Row(y);
  std::fill(row.begin() + first, row.begin() + last, color);
}

}  // namespace

TFrame Paint(const TPage& page, const TFaces& faces, const TColors& colors, int left, int top, int width, int height) {
  TFrame frame(width, height, colors.Paper);
  for (const int rule : page.Rules) DrawRule(page, colors.Rule, left, rule - top, frame);
  // A line's marks may leave its own height, but not by more than another line.
  const int reach = 2 * LineHeight(faces.Title.PixelSize);
  const auto first = std::partition_point(page.Lines.begin(), page.Lines.end(),
                                          [&](const TLine& line) { return line.BaseLine < top - reach; });
  for (auto line = first; line != page.Lines.end() && line->BaseLine < top + height + reach; ++line) {
    const TFace& face = line->Title ? faces.Title : faces.Text;
    TInkBand band(width, reach, reach);
    TLinePainter painter(face, band);
    float pen = static_cast<float>(left) + line->Left;
    for (const TPiece& piece : line->Pieces) pen = painter.Draw(piece, pen);
    band.Blend(frame, line->BaseLine - top, line->Title ? colors.Title : colors.Ink);
  }
  return frame;
}

}  // namespace orv::show
