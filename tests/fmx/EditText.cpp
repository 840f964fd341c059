#include "fmx/EditText.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using fmx::CharacterBefore;
using fmx::CharacterBehind;
using fmx::HeldAtCharacter;

constexpr std::u16string_view Mixed =
    u"a\U0001F600\xDE00"
    u"b\xD83D";  // a pair, a low half, a high half

TEST(EditText, PositionsStandBetweenCharacters) {
  const std::int32_t held[] = {0, 1, 1, 3, 4, 5, 6};
  for (std::int32_t i = 0; i <= 6; ++i) {
    EXPECT_EQ(HeldAtCharacter(Mixed, i), held[i]) << i;
    EXPECT_EQ(fmx::IsInsidePair(Mixed, i), i == 2) << i;
  }
  EXPECT_EQ(HeldAtCharacter(Mixed, std::numeric_limits<std::int32_t>::min()), 0);
  EXPECT_EQ(HeldAtCharacter(Mixed, std::numeric_limits<std::int32_t>::max()), 6);
  EXPECT_FALSE(fmx::IsInsidePair(Mixed, std::numeric_limits<std::int32_t>::min()));
}

TEST(EditText, StepsTakeWholeCharacters) {
  const std::int32_t before[] = {0, 0, 1, 1, 3, 4, 5};
  const std::int32_t behind[] = {1, 3, 3, 4, 5, 6, 6};
  for (std::int32_t i = 0; i <= 6; ++i) {
    EXPECT_EQ(CharacterBefore(Mixed, i), before[i]) << i;
    EXPECT_EQ(CharacterBehind(Mixed, i), behind[i]) << i;
  }
  EXPECT_EQ(CharacterBehind(u"", 0), 0);
  EXPECT_EQ(CharacterBefore(u"", 5), 0);
  EXPECT_EQ(CharacterBehind(u"a", std::numeric_limits<std::int32_t>::max()), 1);
  EXPECT_EQ(CharacterBehind(u"a", std::numeric_limits<std::int32_t>::min()), 0);
}

TEST(EditText, ACutLeavesNoHalf) {
  const std::size_t lengths[] = {0, 1, 1, 3, 4, 5, 6};
  for (std::int32_t i = 0; i <= 6; ++i) EXPECT_EQ(fmx::CutAtCharacter(Mixed, i).size(), lengths[i]) << i;
  EXPECT_EQ(fmx::CutAtCharacter(Mixed, -1), u"");
}

TEST(EditText, EachLineEndIsOneBlank) {
  EXPECT_EQ(fmx::InOneLine(u"a\r\nb\nc\rd\ve\ff\u0085g\u2028h\u2029i"), u"a b c d e f g h i");
  EXPECT_EQ(fmx::InOneLine(u"\r\r\n\n\r"), u"    ");
  EXPECT_EQ(fmx::InOneLine(u"a\tb\u0000c"), std::u16string_view(u"a\tb\u0000c"));
}

TEST(EditText, HalvesAndFilteredCharactersAreLeftOut) {
  EXPECT_EQ(fmx::WithoutHalves(Mixed), u"a\U0001F600b");
  EXPECT_EQ(fmx::FilteredCharacters(Mixed, u""), Mixed);
  EXPECT_EQ(fmx::FilteredCharacters(Mixed, u"\U0001F600"), u"\U0001F600");
  EXPECT_EQ(fmx::FilteredCharacters(Mixed, u"b\U0001F601"), u"b");
}

}  // namespace
