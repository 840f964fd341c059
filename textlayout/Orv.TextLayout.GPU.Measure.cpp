// The boxes of a range of the text.
#include <algorithm>
#include <span>
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
      : FLayout(layout),
        FTextLength(static_cast<std::int32_t>(layout.Text().size())),
        FIsOrdered(layout.Frame().Store().Corrects(TOrvCorrection::TabSplit)),
        FPos(pos),
        FLength(length) {}

  fmx::TRegion Run(const TGPUFrame& frame) {
    for (std::int32_t i = FirstLine(frame); i < frame.Count(); ++i) {
      TGPULine& line = frame.Line(i);
      if (i > 0) TakeOffGap(frame.Line(i - 1), line);
      WalkLine(line);
      if (FLength == 0 || IsDone(frame.Store())) break;
    }
    return std::move(FRegion);
  }

 private:
  // What lies between two lines, such as a line end, has no box.
  void TakeOffGap(const TGPULine& previous, const TGPULine& line) {
    if (FRegion.empty() || previous.IsEmpty() || line.IsEmpty()) return;
    FLength -= line.Item(0).StartIndex() - previous.Item(previous.Count() - 1).EndIndex();
  }

  // The first index from 0 to count for which the predicate, which stays true once it is, holds.
  template <typename TPredicate>
  static std::int32_t FirstOf(std::int32_t count, TPredicate holds) {
    std::int32_t low = 0;
    while (low < count) {
      const std::int32_t middle = (low + count) / 2;
      if (holds(middle))
        count = middle;
      else
        low = middle + 1;
    }
    return low;
  }

  // Lines that end before the range have no part in it; but a range of no units is looked for in the first line alone.
  std::int32_t FirstLine(const TGPUFrame& frame) const {
    if (FLength == 0 || !FIsOrdered) return 0;
    return FirstOf(frame.Count(), [&](std::int32_t i) {
      const TGPULine& line = frame.Line(i);
      return line.IsEmpty() || FPos <= line.Item(line.Count() - 1).EndIndex();
    });
  }

  // Nothing can follow but the box of the text's end, and what an internal text layout measures.
  bool IsDone(const TFrameStore& store) const {
    return FIsOrdered && FLength <= 0 && FPos < FTextLength && !store.HasRenderers;
  }

  void WalkLine(TGPULine& line) {
    const auto isReached = [&](std::int32_t i) { return FPos <= line.Item(i).EndIndex(); };
    for (std::int32_t i = FIsOrdered ? FirstOf(line.Count(), isReached) : 0; i < line.Count(); ++i) {
      TGPURun& run = line.Item(i);
      if (FPos > run.EndIndex()) continue;
      if (IsDone(run.Store())) return;
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
    if (FLength <= 0) return {};
    return run.Corrects(TOrvCorrection::TabMeasure) ? PlacedBox(line, run) : WalkedBox(line, run);
  }

  // Of atoms whose places stay.
  fmx::TRectF PlacedBox(const TGPULine& line, const TGPURun& run) {
    const std::span<const TAtomPlace> places = FLayout.PlacesOf(run);
    const auto endsBefore = [&](const TAtomPlace& place) { return run.StartIndex() + place.Offset <= FPos; };
    auto place = std::partition_point(places.begin(), places.end(), endsBefore);
    const float begin = run.RightToLeft() ? run.ImageRect().Right : run.ImageRect().Left;
    fmx::TRectF box;
    std::int32_t uncounted = 0;  // of the ligature that the range starts within
    for (; place != places.end() && FLength > 0; ++place) {
      const TAtomPlace before = place == places.begin() ? TAtomPlace{begin, 0} : *(place - 1);
      const std::int32_t start = run.StartIndex() + before.Offset - uncounted;
      const UCS4Char atom = run.Atom(static_cast<std::int32_t>(place - places.begin()));
      // A range that starts within a ligature takes its whole box: no letter of it has one of its own. The second unit
      // of a pair is no place to start.
      if (start + AtomParts(atom) - 1 < FPos) continue;
      box = box.Union({std::min(before.Edge, place->Edge), 0, std::max(before.Edge, place->Edge), line.Height()});
      const std::int32_t counted = start < FPos ? OwnUnits(atom) : AtomUnits(atom);
      FLength -= counted;
      uncounted += AtomUnits(atom) - counted;
    }
    return box;
  }

  // By the rules the atoms are walked up to the end of the range, and a tab among them is measured anew.
  fmx::TRectF WalkedBox(const TGPULine& line, TGPURun& run) {
    fmx::TRectF box;
    TAtomDic& dic = FLayout.DictionaryOf(run);
    float x = run.RightToLeft() ? run.ImageRect().Right : run.ImageRect().Left;
    std::int32_t start = run.StartIndex();
    for (std::int32_t i = 0; i < run.UCS4Length() && FLength > 0; ++i) {
      const float other = x + Advance(line, run, i, dic);
      const UCS4Char atom = run.Atom(i);
      std::int32_t counted = AtomUnits(atom);
      if (start + AtomParts(atom) - 1 >= FPos) {
        if (start < FPos) counted = OwnUnits(atom);
        box = box.Union({std::min(x, other), 0, std::max(x, other), line.Height()});
        FLength -= counted;
      }
      x = other;
      start += counted;
    }
    return box;
  }

  // Logical units, below 0 in a run that goes to the left. A tab is measured from the end of the line, and keeps that
  // as its advance.
  float Advance(const TGPULine& line, TGPURun& run, std::int32_t index, TAtomDic& dic) const {
    const float advance =
        run.Atom(index) == U'\t'
            ? FLayout.GetNextTab(run, index, line.Width())
            : run.AddOrGetAtomGlyph(nullptr, index, dic, FLayout.GetFontFor(run), FLayout.Scale()).Glyph.Advance;
    return advance * FLayout.ScaleFactor() * (run.RightToLeft() ? -1.0F : 1.0F);
  }

  const TTextLayoutNGOrv& FLayout;
  std::int32_t FTextLength;
  bool FIsOrdered;  // the runs follow each other as the text does, which what follows a tab may not (TabSplit)
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
bool TTextLayoutNGOrv::FrameLacksText() {
  if (!FLacksText)
    FLacksText = !WordWrap() && FFrame->Count() == 1 && FFrame->TextLength() < static_cast<std::int64_t>(Text().size());
  return *FLacksText;
}

// One render without clipping serves all queries until the next. The frame that is shown stays what it is, with the
// colours of its own render, also where this one raises.
void TTextLayoutNGOrv::MakeUnclippedFrame() {
  if (CanvasHasOtherScale()) Call<TSlots::DoRenderLayout>();  // both frames are of one scale
  auto shown = std::exchange(FFrame, std::make_unique<TGPUFrame>(std::make_unique<TFrameStore>()));
  const fmx::TAlphaColor shownColor = FOldColor;
  const auto showAgain = [&] {
    FMeasuringText = false;
    FOldColor = shownColor;
    return std::exchange(FFrame, std::move(shown));
  };
  FMeasuringText = true;
  try {
    Call<TSlots::DoRenderLayout>();
  } catch (...) {
    showAgain();
    throw;
  }
  FUnclippedFrame = showAgain();
}

// That of the whole text.
const TGPUFrame& TTextLayoutNGOrv::MeasuredFrame() {
  if (!FMeasuringText && FrameLacksText() && !FUnclippedFrame) MakeUnclippedFrame();
  return FUnclippedFrame ? *FUnclippedFrame : *FFrame;
}

fmx::TRegion TTextLayoutNGOrv::MeasureRange(std::int32_t pos, std::int32_t length) {
  LayoutGlyph(U' ');
  std::int64_t units = length;
  while (rtl::IsMark(rtl::UnitAt(Text(), pos + units))) ++units;
  // Half a pair is measured whole; a lone one stands for itself.
  if (pos > 0 && rtl::IsLowSurrogate(rtl::UnitAt(Text(), pos)) && rtl::IsHighSurrogate(rtl::UnitAt(Text(), pos - 1))) {
    --pos;
    ++units;
  }
  fmx::TRegion region = TRangeWalk(*this, pos, units).Run(MeasuredFrame());
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
