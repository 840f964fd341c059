// Laying the attributes over the runs of a frame, which are split at the ends of each range.
#include <algorithm>
#include <utility>

#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv {
namespace {

// A place within a run in both kinds of positions; both zero where nothing is to be split.
struct TSplitPlace {
  std::int32_t Utf32Index = 0;
  std::int32_t Utf16Index = 0;
  bool IsNone() const { return Utf32Index == 0 && Utf16Index == 0; }
};

// Where a range begins and ends in the frame.
struct TPlace {
  std::int32_t FirstLine = 0;
  std::int32_t FirstRun = 0;
  TSplitPlace StartSplit;
  std::int32_t LastLine = 0;
  std::int32_t LastRun = 0;
  TSplitPlace EndSplit;
};

// Before the atom that holds the unit.
TSplitPlace PlaceBefore(const TGPURun& run, std::int32_t position) {
  const std::int32_t unit = position - run.StartIndex();
  const std::int32_t atom = run.UTF16IndexToUCS4Index(unit);
  return {atom, run.Corrects(TOrvCorrection::SourceUnits) ? run.UCS4IndexToUTF16Index(atom) : unit};
}

// Behind it.
TSplitPlace PlaceBehind(const TGPURun& run, std::int32_t position) {
  const std::int32_t unit = position - run.StartIndex();
  const std::int32_t atom = run.UTF16IndexToUCS4Index(unit) + 1;
  return {atom, run.Corrects(TOrvCorrection::SourceUnits) ? run.UCS4IndexToUTF16Index(atom) : unit + 1};
}

// The last of the lines whose paragraph begins at the position or before.
std::int32_t LineOf(const TGPUFrame& frame, std::int32_t position) {
  std::int32_t low = 0;
  std::int32_t high = frame.Count();
  while (high - low > 1) {
    const std::int32_t middle = (low + high) / 2;
    (frame.Line(middle).StartIndex() <= position ? low : high) = middle;
  }
  return low;
}

// The last run of the line that begins at the position or before; -1 where all begin later.
std::int32_t RunOf(const TGPULine& line, std::int32_t position) {
  std::int32_t index = line.Count() - 1;
  while (index >= 0 && line.Item(index).StartIndex() > position) --index;
  return index;
}

void LocateStart(const TGPUFrame& frame, std::int32_t first, TPlace& place) {
  place.FirstLine = LineOf(frame, first);
  const TGPULine& line = frame.Line(place.FirstLine);
  const std::int32_t run = RunOf(line, first);
  // A range that starts on a line end starts with what follows it.
  if (run < 0) return;
  place.FirstRun = run;
  place.StartSplit = PlaceBefore(line.Item(run), first);
}

void LocateEnd(const TGPUFrame& frame, std::int32_t last, TPlace& place) {
  place.LastLine = std::max(LineOf(frame, last), place.FirstLine);
  // A range that ends on a line end leaves the line behind it alone.
  while (place.LastLine > place.FirstLine && RunOf(frame.Line(place.LastLine), last) < 0) --place.LastLine;
  const TGPULine& line = frame.Line(place.LastLine);
  place.LastRun = std::max(RunOf(line, last), place.LastLine == place.FirstLine ? place.FirstRun : 0);
  place.EndSplit = PlaceBehind(line.Item(place.LastRun), last);
}

// Splits the run of the line; a right-to-left run's second part is seen before the first.
void SplitRun(TGPULine& line, std::int32_t index, TSplitPlace at) {
  TGPURun& run = line.Item(index);
  auto rest = run.Split(TSplitIndex::Of(at.Utf32Index, at.Utf16Index));
  const std::int32_t visual = line.FindVisualIndexOf(index) + (run.RightToLeft() ? 0 : 1);
  line.Insert(std::move(rest), index + 1, visual);
}

// Splits at both ends, the later one first, so that the earlier index stays what it is.
void SplitAtEnds(TGPULine& line, std::int32_t& firstRun, TSplitPlace startSplit, std::int32_t& lastRun,
                 TSplitPlace endSplit) {
  if (!endSplit.IsNone() && line.Item(lastRun).UCS4Length() > endSplit.Utf32Index) SplitRun(line, lastRun, endSplit);
  if (startSplit.Utf32Index <= 0) return;
  SplitRun(line, firstRun, startSplit);
  ++firstRun;
  ++lastRun;
}

// A run that shares an attribute's font gets one of its own before it is changed.
void MergeFont(TGPURun& run, const std::shared_ptr<fmx::TFont>& font) {
  if (!run.Font()) {
    run.SetFont(font);
    return;
  }
  if (!font) return;
  auto merged = std::make_shared<fmx::TFont>(*run.Font());
  merged->SetFamily(font->Family());
  merged->SetSize(font->Size());
  merged->SetStyle(merged->Style() + font->Style());
  run.SetFont(std::move(merged));
}

void ApplyTo(TGPURun& run, const fmx::TTextAttribute& attribute) {
  run.SetColor(attribute.Color, false);
  MergeFont(run, attribute.Font);
}

void ApplyToItems(TGPULine& line, std::int32_t first, std::int32_t last, const fmx::TTextAttribute& attribute) {
  for (std::int32_t i = first; i <= last && i < line.Count(); ++i) ApplyTo(line.Item(i), attribute);
}

void ApplyToVisual(TGPULine& line, std::int32_t first, std::int32_t last, const fmx::TTextAttribute& attribute) {
  for (std::int32_t i = first; i <= last && i < line.Count(); ++i) ApplyTo(line.GetItemByVisualOrder(i), attribute);
}

// --- In item order ---

void ApplyInItemOrder(TGPUFrame& frame, TPlace place, const fmx::TTextAttribute& attribute) {
  TGPULine& first = frame.Line(place.FirstLine);
  if (place.FirstLine == place.LastLine) {
    SplitAtEnds(first, place.FirstRun, place.StartSplit, place.LastRun, place.EndSplit);
    ApplyToItems(first, place.FirstRun, place.LastRun, attribute);
    return;
  }
  std::int32_t lineEnd = first.Count() - 1;
  SplitAtEnds(first, place.FirstRun, place.StartSplit, lineEnd, {});
  ApplyToItems(first, place.FirstRun, lineEnd, attribute);
  TGPULine& last = frame.Line(place.LastLine);
  std::int32_t lineStart = 0;
  SplitAtEnds(last, lineStart, {}, place.LastRun, place.EndSplit);
  ApplyToItems(last, lineStart, place.LastRun, attribute);
}

// --- In visual order ---

void SelectWithin(TGPULine& line, TPlace place, const fmx::TTextAttribute& attribute) {
  if (line.VisualEntry(place.FirstRun) > line.VisualEntry(place.LastRun)) std::swap(place.FirstRun, place.LastRun);
  SplitAtEnds(line, place.FirstRun, place.StartSplit, place.LastRun, place.EndSplit);
  ApplyToVisual(line, line.VisualEntry(place.FirstRun), line.VisualEntry(place.LastRun), attribute);
}

void SelectTowardsStart(TGPULine& line, std::int32_t run, TSplitPlace split, const fmx::TTextAttribute& attribute) {
  std::int32_t start = 0;
  SplitAtEnds(line, start, {}, run, split);
  ApplyToVisual(line, line.VisualEntry(start), line.VisualEntry(run), attribute);
}

void SelectTowardsEnd(TGPULine& line, std::int32_t run, TSplitPlace split, const fmx::TTextAttribute& attribute) {
  std::int32_t end = line.Count() - 1;
  SplitAtEnds(line, run, split, end, {});
  ApplyToVisual(line, line.VisualEntry(run), line.VisualEntry(end), attribute);
}

void ApplyAsSelection(TGPUFrame& frame, const TPlace& place, bool rightToLeft, const fmx::TTextAttribute& attribute) {
  TGPULine& first = frame.Line(place.FirstLine);
  TGPULine& last = frame.Line(place.LastLine);
  if (place.FirstLine == place.LastLine) {
    SelectWithin(first, place, attribute);
  } else if (rightToLeft) {
    SelectTowardsStart(first, place.FirstRun, place.StartSplit, attribute);
    SelectTowardsEnd(last, place.LastRun, place.EndSplit, attribute);
  } else {
    SelectTowardsEnd(first, place.FirstRun, place.StartSplit, attribute);
    SelectTowardsStart(last, place.LastRun, place.EndSplit, attribute);
  }
}

// A selection goes by what is seen; with SelectionOrder it is an attribute like any other.
bool IsSelection(const TGPUFrame& frame, const fmx::TTextAttributedRange& range) {
  if (frame.Store().Corrects(TOrvCorrection::SelectionOrder)) return false;
  const auto* bidi = dynamic_cast<const TTextAttributedRangeBidi*>(&range);
  return bidi != nullptr && range.ClassName() == "TTextAttributedRangeBidi" && bidi->IsSelection;
}

void ApplyRange(TGPUFrame& frame, const fmx::TTextAttributedRange& range, std::int32_t textLength, bool rightToLeft) {
  const auto [first, length] = range.Range();
  // A range without length or outside the text does nothing.
  if (first < 0 || length <= 0 || first >= textLength) return;
  const auto last = static_cast<std::int32_t>(std::min<std::int64_t>(std::int64_t{first} + length, textLength) - 1);
  TPlace place;
  LocateStart(frame, first, place);
  // Nothing but a line end.
  if (frame.Line(place.FirstLine).Item(place.FirstRun).StartIndex() > last) return;
  LocateEnd(frame, last, place);
  if (IsSelection(frame, range))
    ApplyAsSelection(frame, place, rightToLeft, range.Attribute());
  else
    ApplyInItemOrder(frame, place, range.Attribute());
  for (std::int32_t i = place.FirstLine + 1; i < place.LastLine; ++i)
    ApplyToItems(frame.Line(i), 0, frame.Line(i).Count() - 1, range.Attribute());
}

}  // namespace

void TTextLayoutNGOrv::ApplyAttributes(TGPUFrame& frame) const {
  const auto textLength = static_cast<std::int32_t>(Text().size());
  for (std::size_t i = 0; i < AttributesCount(); ++i) ApplyRange(frame, Attribute(i), textLength, RightToLeft());
}

}  // namespace orv
