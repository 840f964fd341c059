// The boxes of a range of the text.
#include <algorithm>
#include <limits>
#include <utility>

#include "rtl/Strings.h"
#include "rtl/Unicode.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "textlayout/Orv.TextLayout.Internal.h"

namespace orv {
namespace {

// Walks a frame for the boxes of the units from FPos on; FLength of them are still to be found. A ligature may take
// more than was left.
class TRangeWalk {
 public:
  TRangeWalk(const TTextLayoutNGOrv& layout, std::int32_t pos, std::int64_t length)
      : FLayout(layout), FTextLength(static_cast<std::int32_t>(layout.Text().size())), FPos(pos), FLength(length) {}

  fmx::TRegion Run(const TGPUFrame& frame) {
    for (std::int32_t i = 0; i < frame.Count(); ++i) {
      TGPULine& line = frame.Line(i);
      if (i > 0) TakeOffGap(frame.Line(i - 1), line);
      WalkLine(line);
      if (FLength == 0) break;
    }
    return std::move(FRegion);
  }

 private:
  // What lies between two lines, such as a line end, has no box.
  void TakeOffGap(const TGPULine& previous, const TGPULine& line) {
    if (FRegion.empty() || previous.IsEmpty() || line.IsEmpty()) return;
    FLength -= line.Item(0).StartIndex() - previous.Item(previous.Count() - 1).EndIndex();
  }

  void WalkLine(TGPULine& line) {
    for (std::int32_t i = 0; i < line.Count(); ++i) {
      TGPURun& run = line.Item(i);
      if (FPos > run.EndIndex()) continue;
      fmx::TRectF box;
      if (FPos < run.EndIndex())
        box = run.HasInternalRenderer() ? RenderedBox(run) : AtomsBox(line, run);
      else if (FPos == FTextLength)
        box = EndBox(run);
      else if (FLength < 1)
        return;
      if (box.Bottom > 0) FRegion.push_back(box.Offset(line.TopLeft()));
    }
  }

  fmx::TRectF RenderedBox(TGPURun& run) {
    const auto end = static_cast<std::int32_t>(std::min<std::int64_t>(FPos + FLength, run.EndIndex()));
    const fmx::TRectF box = run.InternalRenderer()->MeasureText(FPos, end);
    FLength -= end - FPos;
    FPos = end;
    return box;
  }

  // The end of the text: the run's far edge.
  fmx::TRectF EndBox(const TGPURun& run) {
    --FLength;
    fmx::TRectF box = run.ImageRect();
    (run.RightToLeft() ? box.Right : box.Left) = run.RightToLeft() ? box.Left : box.Right;
    return box;
  }

  fmx::TRectF AtomsBox(const TGPULine& line, TGPURun& run) {
    fmx::TRectF box;
    if (FLength <= 0) return box;
    TAtomDic& dic = FLayout.DictionaryOf(run);
    float x = run.RightToLeft() ? run.ImageRect().Right : run.ImageRect().Left;
    std::int32_t atomPos = run.StartIndex();
    for (std::int32_t i = 0; i < run.UCS4Length(); ++i) {
      const float advance = Advance(line, run, i, dic);
      const std::int32_t own = OwnUnits(run.Atom(i));
      std::int32_t folded = AtomParts(run.Atom(i)) - 1;
      if (atomPos + folded >= FPos) {
        // A range that starts within a ligature takes its whole box: no letter of it has one of its own.
        if (atomPos < FPos) folded = 0;
        const float other = x + advance;
        box = box.Union({std::min(x, other), 0, std::max(x, other), line.Height()});
        FLength -= folded + own;
        if (FLength <= 0) break;
      }
      x += advance;
      atomPos += folded + own;
    }
    return box;
  }

  // Device pixels. By the rules a tab is measured from the end of the line, and keeps that as its advance; with
  // TabMeasure it is what it was laid out as.
  float TabAdvance(const TGPULine& line, TGPURun& run, std::int32_t index) const {
    if (run.Corrects(TOrvCorrection::TabMeasure)) return FLayout.GetTabAdvance(run, index);
    return FLayout.GetNextTab(run, index, line.Width());
  }

  // Logical units, below 0 in a run that goes to the left.
  float Advance(const TGPULine& line, TGPURun& run, std::int32_t index, TAtomDic& dic) const {
    const float advance =
        run.Atom(index) == U'\t'
            ? TabAdvance(line, run, index)
            : run.AddOrGetAtomGlyph(nullptr, index, dic, FLayout.GetFontFor(run), FLayout.Scale()).Glyph.Advance;
    return advance * FLayout.ScaleFactor() * (run.RightToLeft() ? -1.0F : 1.0F);
  }

  const TTextLayoutNGOrv& FLayout;
  std::int32_t FTextLength;
  std::int32_t FPos;
  std::int64_t FLength;
  fmx::TRegion FRegion;
};

void Collapse(fmx::TRectF& rect, bool toTheLeft) {
  (toTheLeft ? rect.Right : rect.Left) = toTheLeft ? rect.Left : rect.Right;
}

// Whether the last unit has a place in the frame: in its last run.
bool HoldsLastUnit(const TGPUFrame& frame, std::int32_t textLength) {
  if (frame.IsEmpty() || frame.Line(frame.Count() - 1).IsEmpty()) return false;
  const TGPULine& line = frame.Line(frame.Count() - 1);
  const TGPURun& run = line.Item(line.Count() - 1);
  return run.StartIndex() < textLength && run.EndIndex() >= textLength;
}

// The reading end of the last line's last run, or the place of an empty one (EndRegion).
fmx::TRegion EndOfLastRun(const TGPUFrame& frame, bool rightToLeft) {
  if (frame.IsEmpty() || frame.Line(frame.Count() - 1).IsEmpty()) return {};
  const TGPULine& line = frame.Line(frame.Count() - 1);
  const TGPURun& run = line.Item(line.Count() - 1);
  const fmx::TRectF& box = run.ImageRect();
  const float x = rightToLeft || run.Length() == 0 ? box.Left : box.Right;
  return {fmx::TRectF{x, 0, x, line.Height()}.Offset(line.TopLeft())};
}

}  // namespace

// Whether lines were cut at the sides of the box.
bool TTextLayoutNGOrv::FrameLacksText() const {
  return !WordWrap() && FFrame->Count() == 1 && FFrame->TextLength() < static_cast<std::int64_t>(Text().size());
}

fmx::TRegion TTextLayoutNGOrv::MeasureRange(std::int32_t pos, std::int32_t length) {
  LayoutGlyph(U' ');
  std::int64_t units = length;
  while (rtl::IsMark(rtl::UnitAt(Text(), pos + units))) ++units;
  if (rtl::IsLowSurrogate(rtl::UnitAt(Text(), pos))) {
    --pos;
    ++units;
  }
  if (!FMeasuringText && FrameLacksText() && !FUnclippedFrame) {
    // One render without clipping serves all queries until the next.
    auto shown = std::move(FFrame);
    FMeasuringText = true;
    Call<TSlots::DoRenderLayout>();
    FMeasuringText = false;
    FUnclippedFrame = std::exchange(FFrame, std::move(shown));
  }
  fmx::TRegion region = TRangeWalk(*this, pos, units).Run(FUnclippedFrame ? *FUnclippedFrame : *FFrame);
  SetMeasuringText(false);
  return region;
}

fmx::TRegion TTextLayoutNGOrv::DoRegionForRange(fmx::TTextRange range) {
  if (range.Pos < 0 || range.Length < 0) return {};
  const auto length = static_cast<std::int32_t>(Text().size());
  const bool isEnd = range.Pos == length && range.Length == 0;
  fmx::TRegion region;
  if (isEnd && length > 0) {
    region = MeasureRange(length - 1, 1);
    for (fmx::TRectF& rect : region) Collapse(rect, RightToLeft());
    const TGPUFrame& measured = FUnclippedFrame ? *FUnclippedFrame : *FFrame;
    if (FFrame->Store().Corrects(TOrvCorrection::EndRegion) && (region.empty() || !HoldsLastUnit(measured, length)))
      region = EndOfLastRun(*FFrame, RightToLeft());
  } else {
    if (!isEnd) region = MeasureRange(range.Pos, range.Length);
    if (region.empty()) return {PlaceOfNothing()};
  }
  for (fmx::TRectF& rect : region) rect = rect.Offset(TopLeft());
  return region;
}

// The left edge of the text, for a range that has no box.
fmx::TRectF TTextLayoutNGOrv::PlaceOfNothing() {
  fmx::TRectF rect = GetTextRect();
  Collapse(rect, true);
  return rect;
}

}  // namespace orv
