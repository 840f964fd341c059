// The layout pass: where a line is cut that is too wide, without word wrap.
#include <algorithm>
#include <vector>

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

// --- A line as a whole ---

namespace {

// The runs of a line in the order in which they are read: from the side where the layout begins.
std::vector<TGPURun*> InReadingOrder(const TGPULine& line, bool rightToLeft) {
  std::vector<TGPURun*> runs;
  for (std::int32_t i = 0; i < line.Count(); ++i) runs.push_back(&line.GetItemByVisualOrderBidi(rightToLeft, i));
  return runs;
}

// The line's first atoms in reading order: those that fit, and the one behind them.
class TFittingAtoms {
 public:
  void Add(TGPURun& run, std::int32_t index) { FPlaces.push_back({&run, index}); }
  std::int32_t Count() const { return static_cast<std::int32_t>(FPlaces.size()); }
  UCS4Char Atom(std::int32_t index) const {
    const TPlace& place = FPlaces[static_cast<std::size_t>(index)];
    return place.Run->Atom(place.Index);
  }
  // The run that the atom belongs to, and its index there.
  struct TPlace {
    TGPURun* Run;
    std::int32_t Index;
  };
  const TPlace& Place(std::int32_t index) const { return FPlaces[static_cast<std::size_t>(index)]; }

 private:
  std::vector<TPlace> FPlaces;
};

// No blank stands before the ellipsis, and no letter loses its marks.
std::int32_t BehindWord(const TFittingAtoms& atoms, std::int32_t cut) {
  while (cut > 0 && !IsLexemeCharacter(atoms.Atom(cut - 1))) --cut;
  while (cut > 0 && cut < atoms.Count() && rtl::IsMark(atoms.Atom(cut))) --cut;
  return cut;
}

// A word that does not fit whole goes whole; 0 where it is the only one.
std::int32_t BehindWholeWord(const TFittingAtoms& atoms, std::int32_t cut) {
  const bool isInWord = cut > 0 && cut < atoms.Count() && IsLexemeCharacter(atoms.Atom(cut));
  while (isInWord && cut > 0 && IsLexemeCharacter(atoms.Atom(cut - 1))) --cut;
  return BehindWord(atoms, cut);
}

bool HasRenderer(const std::vector<TGPURun*>& runs) {
  return std::any_of(runs.begin(), runs.end(), [](const TGPURun* run) { return run->HasInternalRenderer(); });
}

}  // namespace

// A line that is too wide is cut once, where what comes first in the reading fits with one ellipsis, which stands at
// the line's reading end (TrimLine). An internal text layout has cut its run by itself.
void TLayoutPass::TrimLine(TGPULine& line) {
  if (!(line.Width() > FMaxWidth)) return;
  const std::vector<TGPURun*> runs = InReadingOrder(line, FRightToLeft);
  if (HasRenderer(runs)) return;
  const fmx::TFontGlyph& ellipsis = FLayout.LayoutGlyph(FLayout.EllipsisChar()).Glyph;
  const float ellipsisWidth = Scaled(ellipsis.Advance);

  const float room = FMaxWidth - ellipsisWidth;
  TFittingAtoms atoms;
  float width = 0;
  std::int32_t fitting = 0;
  for (std::size_t r = 0; r < runs.size() && fitting == atoms.Count(); ++r) {
    for (std::int32_t k = 0; k < runs[r]->UCS4Length() && fitting == atoms.Count(); ++k) {
      atoms.Add(*runs[r], k);
      width += Scaled(AdvanceOf(*runs[r], k));
      if (width <= room) ++fitting;
    }
  }

  std::int32_t cut = FTrimming == fmx::TTextTrimming::Word ? BehindWholeWord(atoms, fitting) : 0;
  if (cut == 0) cut = BehindWord(atoms, fitting);
  TGPURun& last = cut > 0 ? *atoms.Place(cut - 1).Run : *runs.front();
  CutBehind(line, last, cut > 0 ? atoms.Place(cut - 1).Index + 1 : 0, runs);

  float sum = 0;
  for (std::int32_t i = 0; i < line.Count(); ++i) sum += line.Item(i).GetWidth();
  line.SetWidth(sum + ellipsisWidth);
  line.MakeAtLeastAsHighAs(Scaled(ellipsis.VerticalAdvance));
  if (FRightToLeft) line.VisualFirst().OffsetX(ellipsisWidth);
}

// What the run has from the atom on goes, and so do the runs that are read behind it.
void TLayoutPass::CutBehind(TGPULine& line, TGPURun& run, std::int32_t atom, const std::vector<TGPURun*>& runs) const {
  const auto place = std::find(runs.begin(), runs.end(), &run);
  line.DeleteRuns({place + 1, runs.end()});
  for (std::int32_t k = atom; k < run.UCS4Length(); ++k) run.Widen(-Scaled(AdvanceOf(run, k)));
  run.HoldWidth();
  run.DeleteTextFromEnd(run.UCS4Length() - atom);
  run.SetTrimmed(true);
}

}  // namespace orv
