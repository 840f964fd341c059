#include "unicode/OrvSystem.SysUtils.h"

#include <gtest/gtest.h>

#include <limits>

namespace orv::testing {
namespace {

TEST(StrLPos, FindsTheFirstPlaceOfSoManyCharacters) {
  const char16_t* text = u"abcabd";
  EXPECT_EQ(StrLPos(text, u"abd", 3), text + 3);
  EXPECT_EQ(StrLPos(text, u"abx", 2), text);
  EXPECT_EQ(StrLPos(text, u"c", 1), text + 2);
  EXPECT_EQ(StrLPos(text, u"abx", 3), nullptr);
}

TEST(StrLPos, ReadsNothingBehindTheTextsEnd) {
  EXPECT_EQ(StrLPos(u"ab", u"abc", 3), nullptr);
  EXPECT_EQ(StrLPos(u"", u"a", 1), nullptr);
  EXPECT_EQ(StrLPos(u"ab", u"b\0c", 3), nullptr);
  EXPECT_EQ(StrLPos(nullptr, u"a", 1), nullptr);
}

TEST(CopyQuotedStr, AnswersTheTextUpToTheSameCharacter) {
  std::int32_t next = 0;
  EXPECT_EQ(CopyQuotedStr(u"a 'bc' d", 3, next), u"bc");
  EXPECT_EQ(next, 6);
  EXPECT_EQ(CopyQuotedStr(u"\"x'y\"", 1, next), u"x'y");
  EXPECT_EQ(next, 5);
  EXPECT_EQ(CopyQuotedStr(u"''", 1, next), u"");
  EXPECT_EQ(next, 2);
}

TEST(CopyQuotedStr, WithoutAClosingCharacterAnswersNothingAndStandsBehindTheOpening) {
  std::int32_t next = 0;
  EXPECT_EQ(CopyQuotedStr(u"a 'bc", 3, next), u"");
  EXPECT_EQ(next, 4);
  EXPECT_EQ(CopyQuotedStr(u"'", 1, next), u"");
  EXPECT_EQ(next, 2);
}

TEST(CopyQuotedStr, IsSafeForEveryIndex) {
  for (const std::int32_t index :
       {std::numeric_limits<std::int32_t>::min(), -1, 0, 4, std::numeric_limits<std::int32_t>::max()}) {
    std::int32_t next = 0;
    EXPECT_EQ(CopyQuotedStr(u"'a'", index, next), u"") << index;
  }
}

TEST(DateTimeToMilliseconds, CountsAsTimeStampsDo) {
  constexpr std::int64_t day = 86400000;
  EXPECT_EQ(DateTimeToMilliseconds(0), 693594 * day);
  EXPECT_EQ(DateTimeToMilliseconds(1.5), 693595 * day + day / 2);
  EXPECT_EQ(DateTimeToMilliseconds(-1.25), 693593 * day + day / 4);
}

TEST(Folders, AreNotEmpty) {
  EXPECT_FALSE(GetSystemPath().empty());
  EXPECT_FALSE(GetWindowsPath().empty());
}

}  // namespace
}  // namespace orv::testing
