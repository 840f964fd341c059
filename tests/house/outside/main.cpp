// A product of somebody else: it sees the installed headers and libraries and nothing of the source tree.
#include <cstdio>
#include <string_view>

#include "rtl/Unicode.h"
#include "unicode/Unicode.Engine.Types.h"

int main() {
  // "abc " and three Arabic letters: two runs, 0 to 4 and 4 to 7, shown in this order.
  const std::u16string_view text = u"abc \u0627\u0628\u062C";
  const orv::TDirectionalRuns runs = orv::TDirectiveChars::SplitByDirection(text, orv::TParagraphBidi::LeftToRight);
  const bool isRight = runs.Offsets == std::vector<std::int32_t>{0, 4, 7} && rtl::IsLetter(text[4]);
  std::printf("Unicode %s, %zu runs\n", rtl::UnicodeDataVersion.data(), runs.VisualOrder.size());
  return isRight ? 0 : 1;
}
