#include "editing/Orv.Text.h"

#include <algorithm>

#include "rtl/Assertions.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv {
namespace {

// Whether the unit at the cut runs with the view, so that the plain cut shows the right text without a split.
bool RunsWithView(char16_t c, bool rightToLeft) {
  return rightToLeft ? TDirectiveChars::IsRTL(c) : TDirectiveChars::IsLTR(c);
}

// A separator entry runs with any view.
bool IsOpposite(TBidi bidi, bool rightToLeft) {
  return bidi == (rightToLeft ? TBidi::LeftToRight : TBidi::RightToLeft);
}

}  // namespace

TViewCut ViewCutOf(std::u16string_view text, bool rightToLeft, std::int32_t index) {
  const std::size_t cut = index > 0 ? std::min(static_cast<std::size_t>(index), text.size()) : 0;
  const TViewCut plainCut{cut, 0, cut};
  if (cut == 0 || cut == text.size() || RunsWithView(text[cut], rightToLeft)) return plainCut;

  const TDirectionalRuns runs = TDirectiveChars::SplitByDirection(text, TParagraphBidi::RightToLeft);
  if (runs.Bidi.size() == 1) return plainCut;
  ORV_ASSERT(runs.Offsets.size() == runs.Bidi.size() + 1, "The offsets must hold one element more than the segments.");
  const auto end = std::upper_bound(runs.Offsets.begin(), runs.Offsets.end(), static_cast<std::int32_t>(cut));
  ORV_ASSERT(end != runs.Offsets.end() && end != runs.Offsets.begin(),
             "Anything shall be resolved in the for loop statement.");
  if (end == runs.Offsets.end() || end == runs.Offsets.begin()) return plainCut;

  const auto segment = static_cast<std::size_t>(end - runs.Offsets.begin()) - 1;
  if (!IsOpposite(runs.Bidi[segment], rightToLeft)) return plainCut;
  // What scrolls away is the end of the segment, which stands at the side of the view that scrolled.
  const auto segmentEnd = static_cast<std::size_t>(*end);
  return {static_cast<std::size_t>(runs.Offsets[segment]), segmentEnd - cut, segmentEnd};
}

rtl::UnicodeString CutTextForView(std::u16string_view text, bool rightToLeft, std::int32_t index) {
  const TViewCut cut = ViewCutOf(text, rightToLeft, index);
  rtl::UnicodeString shown(text.substr(cut.Start, cut.Length));
  return shown.append(text.substr(cut.Rest));
}

}  // namespace orv
