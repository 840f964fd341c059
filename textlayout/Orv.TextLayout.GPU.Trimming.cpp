// The layout pass: where a line is cut that is too wide, without word wrap.
#include <algorithm>

#include "rtl/Assertions.h"
#include "rtl/Unicode.h"
#include "textlayout/Orv.TextLayout.GPU.Pass.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv {
namespace {

// Behind the last letter or digit that has another one before it.
std::int32_t CutAtCharacter(const TGPURun& run, std::int32_t next) {
  if (next < 1) return 0;
  if (!rtl::IsLetterOrDigit(run.Atom(next - 1))) return GetPrevLexemeEnd(run.Atoms(), next);
  std::int32_t cut = next - 1;
  while (cut > 0 && !rtl::IsLetterOrDigit(run.Atom(cut - 1))) --cut;
  return cut;
}

std::int32_t CutAtWord(const TGPURun& run, std::int32_t next) {
  const std::int32_t cut = GetLexemeBegin(run.Atoms(), next) + 1;
  return cut == next + 1 ? GetPrevLexemeEnd(run.Atoms(), next) : cut;
}

}  // namespace

TLayoutPass::TBreak TLayoutPass::Trim(const TMeasured& m, std::int32_t overflow) {
  TBreak made;
  made.Next = overflow;
  const bool trims = FTrimming != fmx::TTextTrimming::None;
  if (trims) {
    if (FEllipsis == nullptr) BeginTrimming(AdvanceOf(m, overflow));
    FitBefore(m, made);
  }
  const std::int32_t count = m.Run.UCS4Length();
  const std::int32_t cut = std::clamp(CutFor(m.Run, made.Next), 0, count);
  if (trims || FRightToLeft == m.Run.RightToLeft()) {
    made.Removed = Scaled(SumOfAdvances(m, m.Run, cut, made.Next));
    m.Run.DeleteTextFromEnd(count - cut);
  } else {
    made.Removed = Scaled(SumOfAdvances(m, m.Run, 0, made.Next - cut));
    m.Run.DeleteTextFromStart(count - cut);
  }
  m.Run.SetTrimmed(trims);
  return made;
}

// The room that the first overflow of a render leaves serves all its lines.
void TLayoutPass::BeginTrimming(float overflowAdvance) {
  FEllipsis = &FLayout.LayoutGlyph(FLayout.EllipsisChar());
  FTrimEnd = FMaxWidth - Scaled(overflowAdvance);
}

// Goes back until the line leaves room for the ellipsis.
void TLayoutPass::FitBefore(const TMeasured& m, TBreak& made) const {
  ORV_ASSERT(FTrimEnd != TrimEndUnset, "No room for the ellipsis was worked out");
  float fit = m.Line.Width();
  while (made.Next >= 0 && fit > FTrimEnd) {
    const float advance = Scaled(AdvanceOf(m, made.Next));
    fit -= advance;
    made.Excess += advance;
    --made.Next;
  }
}

std::int32_t TLayoutPass::CutFor(const TGPURun& run, std::int32_t next) const {
  switch (FTrimming) {
    case fmx::TTextTrimming::Character:
      return CutAtCharacter(run, next);
    case fmx::TTextTrimming::Word:
      return CutAtWord(run, next);
    case fmx::TTextTrimming::None:
      break;
  }
  return next;
}

}  // namespace orv
