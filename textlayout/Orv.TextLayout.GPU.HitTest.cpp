// The text position at a point.
#include <algorithm>
#include <optional>

#include "fmx/Limits.h"
#include "rtl/Strings.h"
#include "rtl/Unicode.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "textlayout/Orv.TextLayout.Internal.h"

namespace orv {
namespace {

// An atom under a point: its box in the line, and the units of the run before it.
struct THitAtom {
  fmx::TRectF Box;
  UCS4Char Atom;
  std::int32_t Offset;
};

std::optional<THitAtom> AtomAt(const TTextLayoutNGOrv& layout, const TGPULine& line, const TGPURun& run,
                               fmx::TPointF p) {
  const std::span<const TAtomPlace> places = layout.PlacesOf(run);
  const float x = p.X - line.TopLeft().X;
  // The first atom whose far edge lies beyond the point.
  const auto liesBefore = [&](const TAtomPlace& place) {
    return run.RightToLeft() ? place.Edge - fmx::HitTolerance > x : place.Edge + fmx::HitTolerance < x;
  };
  const auto found = std::partition_point(places.begin(), places.end(), liesBefore);
  if (found == places.end()) return std::nullopt;
  const auto index = static_cast<std::int32_t>(found - places.begin());
  const float begin = run.RightToLeft() ? run.ImageRect().Right : run.ImageRect().Left;
  const TAtomPlace before = index > 0 ? *(found - 1) : TAtomPlace{begin, 0};
  const fmx::TRectF box{std::min(before.Edge, found->Edge) + line.TopLeft().X, 0,
                        std::max(before.Edge, found->Edge) + line.TopLeft().X, line.Height()};
  if (!box.Touches(p, fmx::HitTolerance)) return std::nullopt;
  return THitAtom{box, run.Atom(index), before.Offset};
}

// The units behind the start of a ligature: its slices lie beside each other behind the first two fifths of its box.
std::int32_t LigatureSlice(const fmx::TRectF& box, std::int32_t parts, bool rightToLeft, bool corrected, float x) {
  const float left = box.Left + box.Width() * 2 / 5;
  if (!(x > left)) return rightToLeft && corrected ? parts : 0;
  const float slice = (box.Right - left) / static_cast<float>(parts);
  for (std::int32_t k = 0; k < parts; ++k) {
    // From right to left the slice that holds the point counts; from left to right the one that begins behind it.
    const auto edge = static_cast<float>(rightToLeft ? k + 1 : k);
    if (left + slice * edge > x) return rightToLeft ? parts - k - 1 : k;
  }
  return 0;
}

// A letter's far side begins behind three fifths of its way in the reading direction.
bool IsOnFarSide(const fmx::TRectF& box, bool rightToLeft, float x) {
  return rightToLeft ? box.Left + box.Width() * 2 / 5 > x : x > box.Left + box.Width() * 3 / 5;
}

// No caret stands between a letter and its marks.
std::int32_t BehindMarks(std::u16string_view text, std::int32_t position) {
  const auto length = static_cast<std::int32_t>(text.size());
  while (position < length && rtl::IsMark(rtl::UnitAt(text, position))) ++position;
  return std::min(position, length);
}

std::int32_t PositionIn(const TTextLayoutNGOrv& layout, const TGPURun& run, const THitAtom& hit, float x) {
  std::int32_t position = run.StartIndex() + hit.Offset;
  const std::int32_t parts = AtomParts(hit.Atom);
  if (parts >= 2)
    position += LigatureSlice(hit.Box, parts, run.RightToLeft(), run.Corrects(TOrvCorrection::LigatureHit), x);
  else if (IsOnFarSide(hit.Box, run.RightToLeft(), x))
    position += run.Corrects(TOrvCorrection::SourceUnits) ? OwnUnits(hit.Atom) : 1;
  return BehindMarks(layout.Text(), position);
}

std::int32_t StartOfReading(const TGPULine& line, bool rightToLeft) {
  return (rightToLeft ? line.VisualLast() : line.VisualFirst()).StartIndex();
}

std::int32_t EndOfReading(const TGPULine& line, bool rightToLeft) {
  return (rightToLeft ? line.VisualFirst() : line.VisualLast()).EndIndex();
}

// The run that the ellipsis of the line follows, where the point is on that ellipsis; null where it is not. By the
// rules the ellipsis is a part of the run's own box (TrimLine).
const TGPURun* RunBeforeEllipsis(const TGPULine& line, bool rightToLeft, float x) {
  const TGPURun& last = rightToLeft ? line.VisualFirst() : line.VisualLast();
  if (!last.Trimmed() || last.HasInternalRenderer() || !last.Corrects(TOrvCorrection::TrimLine)) return nullptr;
  const bool isBehind = rightToLeft ? x < last.ImageRect().Left : x >= last.ImageRect().Right;
  return isBehind ? &last : nullptr;
}

// As a run without atoms does; with EmptyRun only where it stands alone.
bool TakesEveryClick(const TGPULine& line, const TGPURun& run) {
  return line.Count() == 1 || !run.Corrects(TOrvCorrection::EmptyRun);
}

// Whether the runs stand side by side in their visual order, and no empty one takes the clicks of others.
bool IsTiled(const TGPULine& line) {
  const TGPURun& run = line.Item(0);
  return run.Corrects(TOrvCorrection::VisualOrders) && run.Corrects(TOrvCorrection::EmptyRun);
}

// The run that x of the line lies in, or null.
const TGPURun* RunAt(const TGPULine& line, float x) {
  const auto order = line.VisualOrderList();
  const auto beginsBefore = [&](std::int32_t item) { return line.Item(item).ImageRect().Left <= x; };
  const auto behind = std::partition_point(order.begin(), order.end(), beginsBefore);
  if (behind == order.begin()) return nullptr;
  const TGPURun& run = line.Item(*(behind - 1));
  return x < run.ImageRect().Right ? &run : nullptr;
}

std::optional<std::int32_t> PositionInRun(const TTextLayoutNGOrv& layout, const TGPULine& line, const TGPURun& run,
                                          fmx::TPointF p) {
  if (run.UCS4Length() == 0) return run.StartIndex();
  if (auto* renderer = run.InternalRenderer())
    return renderer->GetOffsetForAdvance(p.X - line.TopLeft().X) + run.StartIndex();
  if (const auto hit = AtomAt(layout, line, run, p)) return PositionIn(layout, run, *hit, p.X);
  return std::nullopt;
}

std::optional<std::int32_t> PositionInLine(const TTextLayoutNGOrv& layout, const TGPULine& line, fmx::TPointF p) {
  if (line.IsEmpty()) return std::nullopt;
  const bool rightToLeft = layout.RightToLeft();
  const float left = line.TopLeft().X;
  if (p.X < left) return rightToLeft ? EndOfReading(line, true) : StartOfReading(line, false);
  if (p.X >= left + line.Width()) return rightToLeft ? StartOfReading(line, true) : EndOfReading(line, false);
  const float x = p.X - left;
  if (const TGPURun* run = RunBeforeEllipsis(line, rightToLeft, x)) return run->EndIndex();
  if (line.Count() > 1 && IsTiled(line)) {
    const TGPURun* run = RunAt(line, x);
    return run != nullptr ? PositionInRun(layout, line, *run, p) : std::nullopt;
  }
  for (std::int32_t i = 0; i < line.Count(); ++i) {
    const TGPURun& run = line.Item(i);
    if (run.UCS4Length() == 0 && TakesEveryClick(line, run)) return run.StartIndex();
    if (x < run.ImageRect().Left || x >= run.ImageRect().Right) continue;
    if (const auto position = PositionInRun(layout, line, run, p)) return position;
  }
  return std::nullopt;
}

// Looks where the lines are drawn (HitPlace): for the first one that does not end above the point.
std::int32_t PositionAtPlace(const TTextLayoutNGOrv& layout, fmx::TPointF p) {
  const TGPUFrame& frame = layout.Frame();
  std::int32_t low = 0;
  for (std::int32_t high = frame.Count(); low < high;) {
    const std::int32_t middle = (low + high) / 2;
    if (frame.Line(middle).Bottom() < p.Y)
      low = middle + 1;
    else
      high = middle;
  }
  for (; low < frame.Count() && frame.Line(low).TopLeft().Y <= p.Y; ++low) {
    const TGPULine& line = frame.Line(low);
    if (const auto position = PositionInLine(layout, line, {p.X, p.Y - line.TopLeft().Y})) return *position;
  }
  return -1;
}

}  // namespace

// By the rules only the heights of the lines count: a line is as far down as those before it are high.
std::int32_t TTextLayoutNGOrv::DoPositionAtPoint(fmx::TPointF point) {
  if (FFrame->Store().Corrects(TOrvCorrection::HitPlace)) return PositionAtPlace(*this, point - TopLeft());
  fmx::TPointF p = point - TopLeft() - fmx::TPointF{Padding().Left, Padding().Top};
  for (std::int32_t i = 0; i < FFrame->Count(); ++i) {
    const TGPULine& line = FFrame->Line(i);
    if (p.Y > line.Height()) {
      p.Y -= line.Height();
      continue;
    }
    if (const auto position = PositionInLine(*this, line, p)) return *position;
  }
  return -1;
}

}  // namespace orv
