#include "tools/orv/eval/DrawnLetters.h"

#include <algorithm>

namespace orv::eval {
namespace {

using TKind = fmx::TRecordedCall::TKind;

// Glyphs stand on whole pixels.
constexpr float PixelSlack = 1;

bool IsSeen(const fmx::TRectF& box, const fmx::TRectF& clip) {
  const bool isAcross = box.Width() > 0 ? box.Right > clip.Left && box.Left < clip.Right
                                        : box.Left >= clip.Left && box.Left <= clip.Right;
  return isAcross && box.Bottom > clip.Top && box.Top < clip.Bottom;
}

// Walks the atoms in the order in which they are drawn, with the pictures that there are for them.
class TWalk {
 public:
  TWalk(const TTextLayoutNGOrv& layout, std::span<const fmx::TRecordedCall> calls,
        std::span<const fmx::TRecordedCall> clipped)
      : FLayout(layout), FCalls(calls) {
    for (const fmx::TRecordedCall& call : clipped) {
      if (call.Kind != TKind::DrawBitmap) continue;
      FClip = call.Clip.Box();
      FMatrix = call.DeviceMatrix;
    }
  }

  std::vector<TDrawnLetter> Run(fmx::TPointF corner) {
    for (std::int32_t i = 0; i < FLayout.Frame().Count(); ++i) {
      const TGPULine& line = FLayout.Frame().Line(i);
      FPen = corner.X + line.TopLeft().X;
      FTop = corner.Y + line.TopLeft().Y;
      for (std::int32_t v = 0; v < line.Count(); ++v) WalkRun(line, line.GetItemByVisualOrder(v));
    }
    std::stable_sort(FLetters.begin(), FLetters.end(), [](const auto& a, const auto& b) { return a.Unit < b.Unit; });
    return std::move(FLetters);
  }

 private:
  void WalkRun(const TGPULine& line, const TGPURun& run) {
    std::vector<std::int32_t> starts;
    std::int32_t unit = run.StartIndex();
    for (std::int32_t i = 0; i < run.UCS4Length(); ++i) {
      starts.push_back(unit);
      unit += AtomUnits(run.Atom(i));
    }
    for (std::int32_t place = 0; place < run.UCS4Length(); ++place) {
      const std::int32_t index = run.DrawnAtomIndex(place);
      const UCS4Char atom = run.Atom(index);
      const bool isTab = atom == U'\t';
      const float advance = AdvanceOf(run, index) * FLayout.ScaleFactor();
      const std::int32_t first = starts[static_cast<std::size_t>(index)];
      if (isTab)
        AddTab(first, run, {FPen, FTop, FPen + advance, FTop + line.Height()});
      else if (const fmx::TRecordedCall* call = PictureOf(atom, advance))
        AddLetters(run, first, atom, advance, *call);
      FPen += advance;
    }
  }

  // A tab that lost its tag has no width.
  float AdvanceOf(const TGPURun& run, std::int32_t index) const {
    const TDrawTagRec tag = run.DrawTag(index);
    if (run.Atom(index) != U'\t') return FLayout.LayoutGlyph(run.Atom(index)).Glyph.Advance;
    return tag.TagType == TDrawTagRec::TTagType::TabAdvance ? tag.Value : 0;
  }

  // The next picture, if it is one of the atom where the pen is.
  const fmx::TRecordedCall* PictureOf(UCS4Char atom, float advance) {
    while (FNext < FCalls.size() && FCalls[FNext].Kind != TKind::DrawBitmap) ++FNext;
    if (FNext == FCalls.size()) return nullptr;
    const fmx::TRecordedCall& call = FCalls[FNext];
    fmx::TRectF picture;
    if (TGlyphAtlas::AtomOf(*call.Bitmap, call.Source, picture) != atom) return nullptr;
    if (call.Rect.Left < FPen - PixelSlack || call.Rect.Left > FPen + advance + PixelSlack) return nullptr;
    ++FNext;
    return &call;
  }

  void AddLetters(const TGPURun& run, std::int32_t unit, UCS4Char atom, float advance, const fmx::TRecordedCall& call) {
    fmx::TRectF box = FMatrix.BoundsOf(call.Rect);
    if (!(advance > 0)) box.Right = box.Left;
    const bool isSeen = IsSeen(box, FClip);
    for (std::int32_t i = 0; i < AtomParts(atom) && unit + i < run.EndIndex(); ++i)
      FLetters.push_back({unit + i, box, isSeen, run.RightToLeft()});
  }

  // Drawing one moves the pen and leaves no picture.
  void AddTab(std::int32_t unit, const TGPURun& run, const fmx::TRectF& place) {
    const fmx::TRectF box = FMatrix.BoundsOf(place);
    FLetters.push_back({unit, box, IsSeen(box, FClip), run.RightToLeft()});
  }

  const TTextLayoutNGOrv& FLayout;
  std::span<const fmx::TRecordedCall> FCalls;
  fmx::TRectF FClip;
  fmx::TMatrix FMatrix;
  std::size_t FNext = 0;
  float FPen = 0;
  float FTop = 0;
  std::vector<TDrawnLetter> FLetters;
};

}  // namespace

std::vector<TDrawnLetter> LettersDrawn(const TTextLayoutNGOrv& layout, fmx::TPointF corner,
                                       std::span<const fmx::TRecordedCall> calls,
                                       std::span<const fmx::TRecordedCall> clipped) {
  return TWalk(layout, calls, clipped).Run(corner);
}

std::vector<TDrawnLetter> DotsDrawn(std::int32_t first, float cell, std::span<const fmx::TRecordedCall> calls) {
  std::vector<TDrawnLetter> dots;
  for (const fmx::TRecordedCall& call : calls) {
    if (call.Kind != TKind::FillEllipse) continue;
    fmx::TRectF box = call.DeviceMatrix.BoundsOf(call.Rect);
    box.Right = box.Left + cell;
    dots.push_back({first + static_cast<std::int32_t>(dots.size()), box, IsSeen(box, call.Clip.Box()), false});
  }
  return dots;
}

}  // namespace orv::eval
