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

// Device pixels.
float AtomAdvance(const TTextLayoutNGOrv& layout, const TGPURun& run, std::int32_t index, TAtomDic& dic) {
  if (run.Atom(index) == U'\t') return layout.GetTabAdvance(run, index);
  return run.AddOrGetAtomGlyph(nullptr, index, dic, layout.GetFontFor(run), layout.Scale()).Glyph.Advance;
}

// The units that a walk over the atoms counts for one.
constexpr std::int32_t UnitsBehind(UCS4Char atom) {
  return AtomParts(atom) >= 2 ? AtomParts(atom) : OwnUnits(atom);
}

std::optional<THitAtom> AtomAt(const TTextLayoutNGOrv& layout, const TGPULine& line, const TGPURun& run,
                               fmx::TPointF p) {
  TAtomDic& dic = layout.DictionaryOf(run);
  const fmx::TRectF& rect = run.ImageRect();
  float cursor = (run.RightToLeft() ? rect.Right : rect.Left) + line.TopLeft().X;
  std::int32_t offset = 0;
  for (std::int32_t i = 0; i < run.UCS4Length(); ++i) {
    const float width = AtomAdvance(layout, run, i, dic) * layout.ScaleFactor();
    const float other = run.RightToLeft() ? cursor - width : cursor + width;
    const fmx::TRectF box{std::min(cursor, other), 0, std::max(cursor, other), line.Height()};
    if (box.Touches(p, fmx::HitTolerance)) return THitAtom{box, run.Atom(i), offset};
    offset += UnitsBehind(run.Atom(i));
    cursor = other;
  }
  return std::nullopt;
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

std::optional<std::int32_t> PositionInLine(const TTextLayoutNGOrv& layout, const TGPULine& line, fmx::TPointF p) {
  if (line.IsEmpty()) return std::nullopt;
  const bool rightToLeft = layout.RightToLeft();
  const float left = line.TopLeft().X;
  if (p.X < left) return rightToLeft ? EndOfReading(line, true) : StartOfReading(line, false);
  if (p.X >= left + line.Width()) return rightToLeft ? StartOfReading(line, true) : EndOfReading(line, false);
  const float x = p.X - left;
  if (const TGPURun* run = RunBeforeEllipsis(line, rightToLeft, x)) return run->EndIndex();
  for (std::int32_t i = 0; i < line.Count(); ++i) {
    const TGPURun& run = line.Item(i);
    if (run.UCS4Length() == 0 && TakesEveryClick(line, run)) return run.StartIndex();
    if (x < run.ImageRect().Left || x >= run.ImageRect().Right) continue;
    if (run.UCS4Length() == 0) return run.StartIndex();
    if (auto* renderer = run.InternalRenderer()) return renderer->GetOffsetForAdvance(x) + run.StartIndex();
    if (const auto hit = AtomAt(layout, line, run, p)) return PositionIn(layout, run, *hit, p.X);
  }
  return std::nullopt;
}

// Looks where the lines are drawn (HitPlace).
std::int32_t PositionAtPlace(const TTextLayoutNGOrv& layout, fmx::TPointF p) {
  const TGPUFrame& frame = layout.Frame();
  for (std::int32_t i = 0; i < frame.Count(); ++i) {
    const TGPULine& line = frame.Line(i);
    if (p.Y < line.TopLeft().Y || p.Y > line.Bottom()) continue;
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
