#include "fmx/TextWords.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using fmx::FindWordBound;
using fmx::GetNextLexemeBegin;
using fmx::GetPrevLexemeBegin;

TEST(TextWords, TheWordBeforeBeginsWhereItsLettersDo) {
  EXPECT_EQ(GetPrevLexemeBegin(u"abc def", 7), 4);
  EXPECT_EQ(GetPrevLexemeBegin(u"abc def", 5), 4);
  EXPECT_EQ(GetPrevLexemeBegin(u"abc def", 4), 0);
  EXPECT_EQ(GetPrevLexemeBegin(u"  ", 2), 0);
}

TEST(TextWords, ThereIsNoWordBeforeTheStart) {
  EXPECT_EQ(GetPrevLexemeBegin(u"abc", 0), -1);
  EXPECT_EQ(GetPrevLexemeBegin(u"", 0), -1);
  EXPECT_EQ(GetPrevLexemeBegin(u"abc", 4), -1);
  EXPECT_EQ(GetPrevLexemeBegin(u"abc", -1), -1);
}

TEST(TextWords, BehindTheLastWordComesTheEnd) {
  EXPECT_EQ(GetNextLexemeBegin(u"abc def", 1), 4);
  EXPECT_EQ(GetNextLexemeBegin(u"abc def", 5), 7);
  EXPECT_EQ(GetNextLexemeBegin(u"abc def", 7), 7);
  EXPECT_EQ(GetNextLexemeBegin(u"", 0), -1);
  EXPECT_EQ(GetNextLexemeBegin(u"abc", 4), -1);
}

TEST(TextWords, CommasAndBracketsBelongToWordsAndPairsAreOneCharacter) {
  EXPECT_EQ(GetNextLexemeBegin(u"a,b (c)", 0), 4);
  EXPECT_EQ(GetPrevLexemeBegin(u"x \U00010400\U00010400", 6), 2) << "letters beyond the first plane";
  EXPECT_EQ(GetNextLexemeBegin(u"\U0001F600a", 0), 2) << "a picture is no word";
  EXPECT_EQ(GetNextLexemeBegin(u"\U00010400 a", 1), 3) << "inside of a pair";
}

TEST(TextWords, AWordsBoundsAreInclusive) {
  const auto word = FindWordBound(u"abc def", 5);
  ASSERT_TRUE(word);
  EXPECT_EQ(word->Begin, 4);
  EXPECT_EQ(word->End, 6);
  const auto atEnd = FindWordBound(u"abc def", 7);
  ASSERT_TRUE(atEnd);
  EXPECT_EQ(atEnd->Begin, 4);
  const auto blank = FindWordBound(u"abc  def", 3);
  ASSERT_TRUE(blank);
  EXPECT_EQ(blank->Begin, 3);
  EXPECT_EQ(blank->End, 4);
  EXPECT_FALSE(FindWordBound(u"", 0));
  EXPECT_FALSE(FindWordBound(u"abc", -1));
  EXPECT_FALSE(FindWordBound(u"abc", 4));
}

// Every text of up to five of these: moves make way, and bounds hold the position they were asked for.
TEST(TextWords, MovesAlwaysMakeWay) {
  constexpr std::u16string_view alphabet = u"a \u0628\u064E\xD83D\xDE00";
  std::u16string text;
  for (int code = 0; code < 7776; ++code) {
    text.clear();
    for (int rest = code; rest > 0; rest /= 6) text.push_back(alphabet[static_cast<std::size_t>(rest % 6)]);
    const auto length = static_cast<std::int32_t>(text.size());
    for (std::int32_t at = 0; at <= length && length > 0; ++at) {
      if (at > 0) {
        EXPECT_LT(GetPrevLexemeBegin(text, at), at);
      }
      if (at < length) {
        EXPECT_GT(GetNextLexemeBegin(text, at), at);
      }
      const auto word = FindWordBound(text, at);
      ASSERT_TRUE(word);
      EXPECT_LE(word->Begin, std::min(at, length - 1));
      EXPECT_GE(word->End, std::min(at, length - 1));
      EXPECT_LT(word->End, length);
    }
  }
}

}  // namespace
