// The layout pass: where a line ends that is too wide, with word wrap.
#include <algorithm>

#include "rtl/Assertions.h"
#include "rtl/Unicode.h"
#include "textlayout/Orv.TextLayout.GPU.Pass.h"

namespace orv {
namespace {

bool IsBlank(UCS4Char atom) {
  constexpr UCS4Char noBreakSpace = 0xA0, ideographicSpace = 0x3000;  // no blank lies beyond them but U+0020
  if (atom < noBreakSpace || atom > ideographicSpace) return atom == U' ';
  return rtl::GetUnicodeCategory(atom) == rtl::TUnicodeCategory::Zs;
}

// The place behind the nearest blank before the atom, or 0.
std::int32_t WordStart(const TGPURun& run, std::int32_t atom) {
  while (atom > 0 && !IsBlank(run.Atom(atom - 1))) --atom;
  return atom;
}

}  // namespace

TLayoutPass::TBreak TLayoutPass::Wrap(const TMeasured& m, std::int32_t overflow) {
  if (IsBlank(m.Run.Atom(overflow))) return WrapAtBlank(m, overflow);
  const std::int32_t breakAt = WordStart(m.Run, overflow);
  if (breakAt != 0) return WrapBehindBlank(m, overflow, breakAt);
  return m.RunIndex != 0 ? WrapBeforeRun(m, overflow) : WrapInWord(m, overflow);
}

// The blank that does not fit belongs to neither line.
TLayoutPass::TBreak TLayoutPass::WrapAtBlank(const TMeasured& m, std::int32_t blank) {
  TBreak made;
  made.SplitLine = m.Line.Split(m.Run, blank, true);
  FKeep = blank - 1;
  made.Next = blank;
  made.Removed = MovedWidth(m, made, blank, false);
  return made;
}

// The word that does not fit moves; the blank before it belongs to neither line.
TLayoutPass::TBreak TLayoutPass::WrapBehindBlank(const TMeasured& m, std::int32_t overflow, std::int32_t breakAt) {
  TBreak made;
  FKeep = breakAt - 1;
  made.SplitLine = m.Line.Split(m.Run, std::max(FKeep, 0), true);
  made.Next = breakAt;
  made.Removed = MovedWidth(m, made, overflow, true);
  return made;
}

// The word began in an earlier run: the run moves whole.
TLayoutPass::TBreak TLayoutPass::WrapBeforeRun(const TMeasured& m, std::int32_t overflow) {
  TBreak made;
  made.SplitLine = m.Line.SplitBeforeRun(m.Run);
  FKeep = -1;
  made.Next = overflow;
  made.Removed = MovedWidth(m, made, overflow, false);
  return made;
}

// A word longer than the line.
TLayoutPass::TBreak TLayoutPass::WrapInWord(const TMeasured& m, std::int32_t overflow) {
  TBreak made;
  made.SplitLine = m.Line.Split(m.Run, overflow, false);
  FKeep = std::max(overflow - 1, 0);
  made.Next = overflow;
  made.Removed = MovedWidth(m, made, overflow, false);
  return made;
}

// What had been added to the widths for the text that moved on.
float TLayoutPass::MovedWidth(const TMeasured& m, const TBreak& made, std::int32_t overflow, bool addSpace) const {
  ORV_ASSERT(made.SplitLine != nullptr, "Nothing is left for the next line");
  if (!made.SplitLine || made.SplitLine->Item(0).UCS4Length() == 0) return 0;
  float sum = SumOfAdvances(m, made.SplitLine->Item(0), 0, overflow - FKeep - 1);
  if (addSpace) sum += CharGlyph(m, U' ').Glyph.Advance;
  return Scaled(sum);
}

}  // namespace orv
