// The corrections over the run assembly: each with an example of what the rule does to a reader and what the correction
// does instead, and their laws on random texts.
#include <gtest/gtest.h>

#include "rtl/Unicode.h"
#include "tests/unicode/support/Golden.h"
#include "tests/unicode/support/RandomText.h"
#include "tests/unicode/support/SplitLaws.h"

namespace orv::testing {
namespace {

TSettings With(TOrvCorrections corrections) {
  TSettings settings;
  settings.Corrections = corrections;
  return settings;
}

std::string Corrected(std::u16string_view marked, TParagraphBidi paragraph, TOrvCorrections corrections) {
  const TSettingsGuard guard(With(corrections));
  return Split(marked, paragraph);
}

constexpr TOrvCorrections None{};
constexpr TOrvCorrections OwnDirection{TOrvCorrection::OwnDirection};
constexpr TOrvCorrections LineEndsOwn{TOrvCorrection::LineEnds};

// ---- OwnDirection ----

TEST(OwnDirection, ALatinWordBehindABracketIsNoLongerDrawnBackwards) {
  EXPECT_EQ(Corrected(u"A (\u06F2)-bcd", RTL, None), "R<A (> L<\\u06F2> R<)> R<-bcd>");
  EXPECT_EQ(Corrected(u"A (\u06F2)-bcd", RTL, OwnDirection), "R<A (> L<\\u06F2> R<)> R<-> L<bcd>");
}

TEST(OwnDirection, ARightToLeftWordInLeftToRightTextLikewise) {
  EXPECT_EQ(Corrected(u"(a)-BC d", LTR, None), "L<(a)> L<-BC> L< d>");
  EXPECT_EQ(Corrected(u"(a)-BC d", LTR, OwnDirection), "L<(a)> L<-> R<BC> L< d>");
}

TEST(OwnDirection, NeutralsBetweenLettersGoWithTheParagraphsDirection) {
  EXPECT_EQ(Corrected(u"A 1 b-C", RTL, OwnDirection), "R<A > L<1> R< > L<b> R<-C>");
  // Brackets turn the direction, so that a run of the other direction holds both.
  EXPECT_EQ(Corrected(u"(a)-b- C", RTL, None), "L<(a)> R<-b> R<- C>");
  EXPECT_EQ(Corrected(u"(a)-b- C", RTL, OwnDirection), "L<(a)> R<-> L<b> R<- C>");
}

TEST(OwnDirection, AMarkStaysWithItsLetter) {
  EXPECT_EQ(Corrected(u"(A)-e\u0301", RTL, OwnDirection), "R<(A)> R<-> L<e\\u0301> R<> order 0 3 1 2");
}

TEST(OwnDirection, AUnitOfMeasureThatExtendsABlanksRunIsCut) {
  TSettings settings = With(OwnDirection);
  settings.Options = {TOrvGlobalOption::MeasureSignsInRightSideOfDigits};
  settings.EquationOrder = TOrvGlobalSettings::TMathOrder::ArabicRightToLeft;
  const TSettingsGuard guard(settings);
  EXPECT_EQ(Split(u"7 \u200B8 km ", RTL), "L<7> R< \\u200B8 > L<km >");
}

TEST(OwnDirection, ChangesNothingWhereEveryLetterStandsInItsOwnDirection) {
  for (const std::u16string_view text : {u"ABC abc DEF", u"abc ABC", u"A 12 b (C) d", u"a\nB"})
    for (const TParagraphBidi paragraph : {LTR, RTL})
      EXPECT_EQ(Corrected(text, paragraph, OwnDirection), Corrected(text, paragraph, None));
}

// ---- LineEnds ----

TEST(LineEndsCorrection, AMarkBehindABlankAtALinesEndIsDrawn) {
  EXPECT_EQ(Corrected(u"A !\nB", RTL, None), "R<A > P<!\\n> R<B>");
  EXPECT_EQ(Corrected(u"A !\nB", RTL, LineEndsOwn), "R<A !> P<\\n> R<B>");
}

TEST(LineEndsCorrection, ALineOfBlanksOrNeutralsIsARunOfTheParagraphsDirection) {
  EXPECT_EQ(Corrected(u" \nA", RTL, None), "R< \\n> P<> R<A>");
  EXPECT_EQ(Corrected(u" \nA", RTL, LineEndsOwn), "R< > P<\\n> R<A>");
  EXPECT_EQ(Corrected(u"!\nA", LTR, LineEndsOwn), "L<!> P<\\n> R<A>");
  EXPECT_EQ(Corrected(u"\n - \nA", RTL, LineEndsOwn), "P<\\n> R< - > P<\\n> R<A>");
}

TEST(LineEndsCorrection, ASeparatorSwallowedByABlankEndsItsLine) {
  EXPECT_EQ(Corrected(u"A \u2028 B", RTL, None), "R<A \\u2028 B>");
  EXPECT_EQ(Corrected(u"A \u2028 B", RTL, LineEndsOwn), "R<A > P<\\u2028> R< B>");
}

TEST(LineEndsCorrection, EachLineEndIsAnEntryOfItsOwn) {
  EXPECT_EQ(Corrected(u"a-\r\n\n\n\r", LTR, LineEndsOwn), "L<a-> P<\\r\\n> P<\\n\\n> P<\\r>");
}

TEST(LineEndsCorrection, ChangesNothingWithoutALineEnd) {
  for (const std::u16string_view text : {u"A b - ", u" - ", u"(A)-b", u""})
    EXPECT_EQ(Corrected(text, RTL, LineEndsOwn), Corrected(text, RTL, None));
}

// ---- LineIndex ----

TEST(LineIndexCorrection, AListIndexKeepsItsResult) {
  TSettings settings;
  settings.Options = {TOrvGlobalOption::RTLLineIndexOrder};
  {
    const TSettingsGuard guard(settings);
    EXPECT_EQ(Ranges(u"12- ABC", RTL), "");
  }
  settings.Corrections = {TOrvCorrection::LineIndex};
  const TSettingsGuard guard(settings);
  EXPECT_EQ(Ranges(u"12- ABC", RTL), "0-1");
  EXPECT_EQ(Split(u"12- ABC", RTL), "L<12> R<- ABC>");
}

TEST(LineIndexCorrection, ActsWithItsOptionAlone) {
  TRandom random(81);
  for (int trial = 0; trial < Trials(100000); ++trial) {
    TSettings settings = RandomSettings(random);
    settings.Options.Exclude(TOrvGlobalOption::RTLLineIndexOrder);
    const TSettingsGuard guard(settings);
    const std::u16string text = RandomText(random);
    const TParagraphBidi paragraph = RandomParagraph(random);
    const TDirectionalRuns without = TDirectiveChars::SplitByDirection(text, paragraph);
    TOrvGlobalSettings::Corrections = {TOrvCorrection::LineIndex};
    ASSERT_EQ(TDirectiveChars::SplitByDirection(text, paragraph), without) << Shown(text);
  }
}

// ---- Laws ----

bool IsMark(char16_t c) {
  using C = rtl::TUnicodeCategory;
  const C category = rtl::GetUnicodeCategory(c);
  return category == C::Mc || category == C::Me || category == C::Mn;
}

TBidi ParagraphDirection(std::u16string_view text, TParagraphBidi paragraph) {
  if (paragraph == LTR) return TBidi::LeftToRight;
  if (paragraph == RTL) return TBidi::RightToLeft;
  return TDirectiveChars::IsRTLText(text, paragraph == TParagraphBidi::AutoRightToLeft) ? TBidi::RightToLeft
                                                                                        : TBidi::LeftToRight;
}

std::vector<TBidi> DirectionsOfUnits(const TDirectionalRuns& runs) {
  std::vector<TBidi> directions;
  for (std::size_t run = 0; run < runs.Bidi.size(); ++run)
    directions.insert(directions.end(), static_cast<std::size_t>(runs.Offsets[run + 1] - runs.Offsets[run]),
                      runs.Bidi[run]);
  return directions;
}

// The direction of each unit of a run after OwnDirection: letters have their own, with the marks behind them; what
// stands between two letters has the second's direction or the first's, whichever is the paragraph's, and theirs where
// they agree; before the first letter the run's.
void CutToLetters(std::u16string_view text, std::size_t from, std::size_t end, TBidi paragraph,
                  std::vector<TBidi>& directions) {
  TBidi last = directions[from];
  std::size_t open = from;  // behind the last letter and its marks
  bool met = false;
  for (std::size_t place = from; place < end; ++place) {
    const TBidi letter = LetterDirection(text[place]);
    if (letter == TBidi::ParagraphSeparator) continue;
    if (met) {
      const TBidi between = letter == last ? letter : paragraph;
      for (std::size_t i = open; i < place; ++i) directions[i] = between;
    }
    directions[place] = last = letter;
    met = true;
    for (open = place + 1; open < end && IsMark(text[open]); ++open) directions[open] = letter;
  }
  if (met)
    for (std::size_t i = open; i < end; ++i) directions[i] = last;
}

TEST(OwnDirection, OnRandomTextsNoRunHoldsALetterOfTheOtherDirectionAndThePiecesJoinToTheRules) {
  TRandom random(82);
  int cut = 0;
  for (int trial = 0; trial < Trials(600000); ++trial) {
    TSettings settings = RandomSettings(random);
    const TSettingsGuard guard(settings);
    const std::u16string text = RandomText(random);
    const TParagraphBidi paragraph = RandomParagraph(random);
    const TDirectionalRuns rules = TDirectiveChars::SplitByDirection(text, paragraph);
    TOrvGlobalSettings::Corrections = OwnDirection;
    const TDirectionalRuns runs = TDirectiveChars::SplitByDirection(text, paragraph);

    const std::vector<TBidi> directions = DirectionsOfUnits(runs);
    for (std::size_t i = 0; i < text.size(); ++i)
      if (directions[i] != TBidi::ParagraphSeparator && LetterDirection(text[i]) != TBidi::ParagraphSeparator) {
        ASSERT_EQ(directions[i], LetterDirection(text[i])) << Shown(text) << " at " << i << '\n' << Shown(runs);
      }
    ASSERT_TRUE(JoinTo(runs, rules)) << Shown(text) << '\n' << Shown(rules) << '\n' << Shown(runs);

    std::vector<TBidi> expected = DirectionsOfUnits(rules);
    for (std::size_t run = 0; run < rules.Bidi.size(); ++run)
      if (rules.Bidi[run] != TBidi::ParagraphSeparator && rules.Offsets[run] < rules.Offsets[run + 1])
        CutToLetters(text, static_cast<std::size_t>(rules.Offsets[run]),
                     static_cast<std::size_t>(rules.Offsets[run + 1]), ParagraphDirection(text, paragraph), expected);
    ASSERT_EQ(directions, expected) << Shown(text) << '\n' << Shown(rules) << '\n' << Shown(runs);
    if (runs != rules) ++cut;
  }
  EXPECT_GT(cut, Trials(600000) / 1000);
}

TEST(LineEndsCorrection, OnRandomTextsSeparatorsHoldTheLineEndsAndNothingElse) {
  TRandom random(83);
  for (int trial = 0; trial < Trials(600000); ++trial) {
    TSettings settings = RandomSettings(random);
    const TSettingsGuard guard(settings);
    const std::u16string text = RandomText(random);
    const TParagraphBidi paragraph = RandomParagraph(random);
    const TDirectionalRuns rules = TDirectiveChars::SplitByDirection(text, paragraph);
    TOrvCorrections corrections = RandomCorrections(random);
    corrections.Include(TOrvCorrection::LineEnds);
    TOrvGlobalSettings::Corrections = corrections;
    const TDirectionalRuns runs = TDirectiveChars::SplitByDirection(text, paragraph);
    std::vector<std::pair<std::int32_t, std::int32_t>> separators;
    for (std::size_t run = 0; run < runs.Bidi.size(); ++run)
      if (runs.Bidi[run] == TBidi::ParagraphSeparator)
        separators.emplace_back(runs.Offsets[run], runs.Offsets[run + 1]);
    ASSERT_EQ(separators, LineEnds(text)) << Shown(text) << '\n' << Shown(rules) << '\n' << Shown(runs);

    if (corrections.Contains(TOrvCorrection::OwnDirection) || corrections.Contains(TOrvCorrection::LineIndex)) continue;
    // What stood in a separator entry takes the direction of what stands before it in its line, or the paragraph's.
    std::vector<TBidi> expected = DirectionsOfUnits(rules);
    for (const auto& [from, end] : LineEnds(text))
      for (std::int32_t i = from; i < end; ++i) expected[static_cast<std::size_t>(i)] = TBidi::ParagraphSeparator;
    std::size_t nextEnd = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (nextEnd < separators.size() && static_cast<std::int32_t>(i) == separators[nextEnd].first) {
        i = static_cast<std::size_t>(separators[nextEnd++].second) - 1;
        continue;
      }
      const bool opensLine = i == 0 || expected[i - 1] == TBidi::ParagraphSeparator;
      if (expected[i] == TBidi::ParagraphSeparator)
        expected[i] = opensLine ? ParagraphDirection(text, paragraph) : expected[i - 1];
    }
    ASSERT_EQ(DirectionsOfUnits(runs), expected) << Shown(text) << '\n' << Shown(rules) << '\n' << Shown(runs);
  }
}

TEST(Corrections, AllTogetherDrawEveryUnitThatIsNoLineEndInItsOwnDirection) {
  TRandom random(84);
  for (int trial = 0; trial < Trials(300000); ++trial) {
    TSettings settings = RandomSettings(random);
    settings.Corrections = AllCorrections;
    const TSettingsGuard guard(settings);
    const std::u16string text = RandomText(random);
    const TDirectionalRuns runs = TDirectiveChars::SplitByDirection(text, RandomParagraph(random));
    const std::vector<TBidi> directions = DirectionsOfUnits(runs);
    for (std::size_t i = 0; i < text.size(); ++i) {
      const char16_t c = text[i];
      const bool isLineEnd = c == u'\n' || c == u'\r' || c == 0x2028 || c == 0x2029;
      ASSERT_EQ(directions[i] == TBidi::ParagraphSeparator, isLineEnd) << Shown(text) << " at " << i;
      if (LetterDirection(c) != TBidi::ParagraphSeparator) {
        ASSERT_EQ(directions[i], LetterDirection(c)) << Shown(text) << " at " << i;
      }
    }
  }
}

}  // namespace
}  // namespace orv::testing
