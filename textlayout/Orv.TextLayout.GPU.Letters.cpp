// Where the letters are drawn, for the carets and selections of a box.
#include <algorithm>
#include <span>

#include "textlayout/Orv.TextLayout.GPU.h"
#include "textlayout/Orv.TextLayout.Internal.h"

namespace orv {
namespace {

using TLetter = TTextLayoutNGOrv::TLetter;

bool IsDrawn(const TGPURun& run) {
  return run.Length() > 0 && (run.UCS4Length() > 0 || run.HasInternalRenderer());
}

// The atom of the run that holds the unit; the last one for what no atom counts.
std::int32_t AtomHolding(std::span<const TAtomPlace> places, std::int32_t unit) {
  const auto endsBefore = [&](const TAtomPlace& place) { return place.Offset <= unit; };
  const auto found = std::partition_point(places.begin(), places.end(), endsBefore) - places.begin();
  return static_cast<std::int32_t>(std::min(found, std::ssize(places) - 1));
}

// Of the units from one to another one of the run, which are not none, in the line.
fmx::TRectF BoxOf(const TTextLayoutNGOrv& layout, const TGPULine& line, const TGPURun& run, std::int32_t from,
                  std::int32_t to) {
  if (auto* renderer = run.InternalRenderer()) return renderer->MeasureText(from, to);
  const std::span<const TAtomPlace> places = layout.PlacesOf(run);
  const auto first = static_cast<std::size_t>(AtomHolding(places, from - run.StartIndex()));
  const auto last = static_cast<std::size_t>(AtomHolding(places, to - 1 - run.StartIndex()));
  const float begin = run.RightToLeft() ? run.ImageRect().Right : run.ImageRect().Left;
  const float near = first == 0 ? begin : places[first - 1].Edge;
  const float far = places[last].Edge;
  return {std::min(near, far), 0, std::max(near, far), line.Height()};
}

TLetter LetterAt(const TTextLayoutNGOrv& layout, const TGPULine& line, const TGPURun& run, std::int32_t unit) {
  const fmx::TRectF box = BoxOf(layout, line, run, unit, unit + 1);
  return {box.Offset(line.TopLeft()).Offset(layout.TopLeft()), run.RightToLeft()};
}

// How many of the line's runs may begin before the position: all, where a tab may have changed their order.
std::int32_t RunsBefore(const TGPULine& line, std::int32_t pos) {
  std::int32_t low = 0;
  std::int32_t high = line.Count();
  if (high == 0 || !line.Item(0).Corrects(TOrvCorrection::TabSplit)) return high;
  while (low < high) {
    const std::int32_t middle = (low + high) / 2;
    if (line.Item(middle).StartIndex() < pos)
      low = middle + 1;
    else
      high = middle;
  }
  return low;
}

}  // namespace

std::optional<TLetter> TTextLayoutNGOrv::LetterBefore(std::int32_t pos) {
  const TGPUFrame& frame = MeasuredFrame();
  for (std::int32_t i = frame.Count() - 1; i >= 0; --i) {
    const TGPULine& line = frame.Line(i);
    const TGPURun* found = nullptr;
    for (std::int32_t k = RunsBefore(line, pos) - 1; k >= 0; --k) {
      const TGPURun& run = line.Item(k);
      if (!IsDrawn(run) || run.StartIndex() >= pos) continue;
      if (found == nullptr || run.StartIndex() > found->StartIndex()) found = &run;
      if (run.Corrects(TOrvCorrection::TabSplit)) break;
    }
    if (found != nullptr) return LetterAt(*this, line, *found, std::min(pos, found->EndIndex()) - 1);
  }
  return std::nullopt;
}

std::optional<TLetter> TTextLayoutNGOrv::FirstLetter() {
  const TGPUFrame& frame = MeasuredFrame();
  for (std::int32_t i = 0; i < frame.Count(); ++i) {
    const TGPULine& line = frame.Line(i);
    const TGPURun* found = nullptr;
    for (std::int32_t k = 0; k < line.Count(); ++k) {
      const TGPURun& run = line.Item(k);
      if (!IsDrawn(run)) continue;
      if (found == nullptr || run.StartIndex() < found->StartIndex()) found = &run;
      if (run.Corrects(TOrvCorrection::TabSplit)) break;
    }
    if (found != nullptr) return LetterAt(*this, line, *found, found->StartIndex());
  }
  return std::nullopt;
}

fmx::TRegion TTextLayoutNGOrv::LetterBoxes(fmx::TTextRange range) {
  fmx::TRegion boxes;
  if (range.Length <= 0) return boxes;
  const std::int64_t end = static_cast<std::int64_t>(range.Pos) + range.Length;
  const TGPUFrame& frame = MeasuredFrame();
  for (std::int32_t i = 0; i < frame.Count(); ++i) {
    const TGPULine& line = frame.Line(i);
    const bool isOrdered = !line.IsEmpty() && line.Item(0).Corrects(TOrvCorrection::TabSplit);
    for (std::int32_t k = isOrdered ? std::max(RunsBefore(line, range.Pos) - 1, 0) : 0; k < line.Count(); ++k) {
      const TGPURun& run = line.Item(k);
      if (isOrdered && run.StartIndex() >= end) break;
      const std::int32_t from = std::max(range.Pos, run.StartIndex());
      const auto to = static_cast<std::int32_t>(std::min<std::int64_t>(end, run.EndIndex()));
      if (!IsDrawn(run) || from >= to) continue;
      const fmx::TRectF box = BoxOf(*this, line, run, from, to);
      if (box.Width() > 0) boxes.push_back(box.Offset(line.TopLeft()).Offset(TopLeft()));
    }
  }
  return boxes;
}

std::int32_t TTextLayoutNGOrv::FirstUnitBetween(float left, float right) {
  const TGPUFrame& frame = MeasuredFrame();
  for (std::int32_t i = 0; i < frame.Count(); ++i) {
    const TGPULine& line = frame.Line(i);
    const float low = left - line.TopLeft().X - TopLeft().X;
    const float high = right - line.TopLeft().X - TopLeft().X;
    for (std::int32_t k = 0; k < line.Count(); ++k) {
      const TGPURun& run = line.Item(k);
      if (!IsDrawn(run) || run.ImageRect().Left >= high || run.ImageRect().Right <= low) continue;
      if (run.HasInternalRenderer()) return run.StartIndex();
      const std::span<const TAtomPlace> places = PlacesOf(run);
      const auto isBefore = [&](const TAtomPlace& place) {
        return run.RightToLeft() ? place.Edge >= high : place.Edge <= low;
      };
      const auto found = std::partition_point(places.begin(), places.end(), isBefore);
      if (found == places.end()) continue;
      return run.StartIndex() + (found == places.begin() ? 0 : (found - 1)->Offset);
    }
  }
  return -1;
}

}  // namespace orv
