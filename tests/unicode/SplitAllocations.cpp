// What a split allocates, counted by replacing the global allocation functions of this program.
#include <gtest/gtest.h>

#include "tests/support/Allocations.h"
#include "unicode/Unicode.Engine.Types.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv::testing {
namespace {

// Lines of 40 units with everything in them that has storage of its own: brackets, quotes, numbers, line ends.
constexpr std::u16string_view Lines[] = {
    u"\u0633\u0644\u0627\u0645 \u062F\u0646\u06CC\u0627 (one two) 12/11/1398 \u00AB\u06A9\u062A\u0627\u0628\u00BB .",
    u"plain Latin text of some forty units here",
    u"\u0646\u0633\u062E\u0647 (\u06F2)-Windows \u0648 \"Linux\" 5 km \u0631\u0627\u0647\n\u0628\u0639\u062F",
    u"((((((((((((((((((((\"'\"'\"'\"'\"'\"'\"'\"'\"'\"'",
    u"\u0627 a \u0627 a \u0627 a \u0627 a \u0627 a \u0627 a \u0627 a \u0627 a \u0627 a \u0627 a",
};

TEST(SplitAllocations, IntoReusedArraysAShortLineAllocatesNothing) {
  TDirectionalRuns runs;
  for (const std::u16string_view line : Lines)
    TDirectiveChars::SplitByDirection(line, TParagraphBidi::RightToLeft, runs);  // warm
  for (const std::u16string_view line : Lines)
    for (const TParagraphBidi paragraph : {TParagraphBidi::LeftToRight, TParagraphBidi::RightToLeft})
      EXPECT_EQ(AllocationsOf([&] { TDirectiveChars::SplitByDirection(line, paragraph, runs); }), 0);
}

TEST(SplitAllocations, ByValueALineAllocatesItsResultsAndNothingElse) {
  for (const std::u16string_view line : Lines) TDirectiveChars::SplitByDirection(line, TParagraphBidi::RightToLeft);
  for (const std::u16string_view line : Lines) {
    TDirectionalRuns runs;
    const long made =
        AllocationsOf([&] { runs = TDirectiveChars::SplitByDirection(line, TParagraphBidi::RightToLeft); });
    const long results = (runs.Offsets.empty() ? 0 : 1) + (runs.VisualOrder.empty() ? 0 : 1) +
                         (runs.Bidi.empty() ? 0 : 1) + (runs.Ranges.empty() ? 0 : 1);
    EXPECT_EQ(made, results);
  }
}

TEST(SplitAllocations, TheDirectionTestAllocatesNothing) {
  EXPECT_EQ(AllocationsOf([] { EXPECT_TRUE(TDirectiveChars::IsRTLText(Lines[0], false)); }), 0);
}

TEST(TransformAllocations, WorkInPlace) {
  for (const std::u16string_view line : Lines) {
    TUCS4List list = ToUCS4String(line);
    EXPECT_EQ(AllocationsOf([&] {
                TUCS4ListHelper::ReplaceQuotesWithPrimes(list);
                TUCS4ListHelper::ChangeToComplexCharacters(list);
                TUCS4ListHelper::ChangeToArabicDigits(list);
              }),
              0);
  }
}

TEST(TransformAllocations, AppendingToAListWithRoomAllocatesNothing) {
  TUCS4List list;
  list.reserve(200);
  EXPECT_EQ(AllocationsOf([&] { AppendUtf16(Lines[0], list); }), 0);
  EXPECT_EQ(AllocationsOf([] { ToUCS4String(Lines[0]); }), 1);
}

TEST(AllocationCount, SeesAnAllocation) {
  EXPECT_EQ(AllocationsOf([] { delete new int(7); }), 1);
}

}  // namespace
}  // namespace orv::testing
