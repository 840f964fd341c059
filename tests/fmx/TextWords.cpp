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

// --- Marks and joiners ---

constexpr auto WithMarks = fmx::TWordRule::WithMarks;

TEST(TextWords, WithMarksALetterIsWalkedWithWhatBelongsToIt) {
  EXPECT_EQ(GetNextLexemeBegin(u"a\u0301b c", 0), 2);
  EXPECT_EQ(GetNextLexemeBegin(u"a\u0301b c", 0, WithMarks), 4);
  EXPECT_EQ(GetNextLexemeBegin(u"a\u0301b c", 1, WithMarks), 4) << "between a letter and its mark";
  EXPECT_EQ(GetPrevLexemeBegin(u"c a\u200Cb", 5), 4);
  EXPECT_EQ(GetPrevLexemeBegin(u"c a\u200Cb", 5, WithMarks), 2);
  EXPECT_EQ(GetPrevLexemeBegin(u"c a\u0301", 3, WithMarks), 2) << "the word that the position lies in";
  EXPECT_EQ(GetPrevLexemeBegin(u"a \u0301b", 4, WithMarks), 3) << "a mark behind a blank is of no word";
  EXPECT_EQ(GetNextLexemeBegin(u"\u0301ab", 0, WithMarks), 1) << "nor is one at the start";
  EXPECT_EQ(GetNextLexemeBegin(u"\U00010400\U0001D165x b", 0, WithMarks), 6) << "pairs, the second one a mark";
}

TEST(TextWords, WithMarksAWordsBoundsHoldItsMarks) {
  for (const std::int32_t pos : {3, 4, 5, 6}) {
    const auto word = FindWordBound(u"ab c\u0301\u200Dd", pos, WithMarks);
    ASSERT_TRUE(word);
    EXPECT_EQ(word->Begin, 3);
    EXPECT_EQ(word->End, 6);
  }
  const auto plain = FindWordBound(u"ab c\u0301\u200Dd", 4);
  ASSERT_TRUE(plain);
  EXPECT_EQ(plain->Begin, 4);
  EXPECT_EQ(plain->End, 5);
}

// Where a mark counts as what stands before it, unit by unit, words are the same.
TEST(TextWords, WithMarksWordsAreThoseOfATextWithoutMarks) {
  constexpr std::u16string_view alphabet = u"a \u0301\u200D-";
  for (std::size_t number = 0; number < 5 * 5 * 5 * 5 * 5; ++number) {
    std::u16string text;
    std::u16string flat;
    for (std::size_t i = 0, rest = number; i < 5; ++i, rest /= 5) {
      const char16_t c = alphabet[rest % 5];
      const bool belongs = c == 0x301 || c == 0x200D;
      text.push_back(c);
      flat.push_back(!belongs ? c : flat.empty() ? u' ' : flat.back());
    }
    for (std::int32_t pos = 0; pos <= 5; ++pos) {
      EXPECT_EQ(GetPrevLexemeBegin(text, pos, WithMarks), GetPrevLexemeBegin(flat, pos)) << number << " at " << pos;
      EXPECT_EQ(GetNextLexemeBegin(text, pos, WithMarks), GetNextLexemeBegin(flat, pos)) << number << " at " << pos;
      const auto found = FindWordBound(text, pos, WithMarks);
      const auto expected = FindWordBound(flat, pos);
      ASSERT_TRUE(found && expected);
      EXPECT_EQ(found->Begin, expected->Begin) << number << " at " << pos;
      EXPECT_EQ(found->End, expected->End) << number << " at " << pos;
    }
  }
}

TEST(TextWords, ALongRunOfMarksIsWalkedOnce) {
  const std::u16string text = u"a" + std::u16string(200000, u'\u0301') + u" b";
  EXPECT_EQ(GetNextLexemeBegin(text, 0, WithMarks), 200002);
  EXPECT_EQ(GetPrevLexemeBegin(text, 200001, WithMarks), 0);
  EXPECT_EQ(FindWordBound(text, 1000, WithMarks)->End, 200000);
}

}  // namespace
