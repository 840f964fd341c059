#include <iostream>
#include "unicode/Unicode.Engine.Types.h"

int main() {
  const std::u16string_view line = u"سلام (Hello) دنیا";
  const auto runs = orv::TDirectiveChars::SplitByDirection(line, orv::TParagraphBidi::AutoLeftToRight);
  for (const std::int32_t run : runs.VisualOrder)
    std::cout << runs.Offsets[run] << " to " << runs.Offsets[run + 1]
              << (runs.Bidi[run] == orv::TBidi::RightToLeft ? " right to left\n" : " left to right\n");
}
