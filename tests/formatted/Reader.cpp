// The markup reader over UTF-16, member by member, in both directions.
#include "formatted/Orv.StdCtrls.Markup.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>

namespace orv {
namespace {

using TDirection = TMarkupText::TDirection;
using TUnicode = TMarkupText::TMarkupTextReaderUnicode;
using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr std::ptrdiff_t Huge = std::numeric_limits<std::ptrdiff_t>::max();

// The message of the EParseError that the action raises; fails the test when it raises none.
template <typename TAction>
std::string ErrorOf(TAction action) {
  try {
    action();
  } catch (const EParseError& error) {
    EXPECT_EQ(error.ClassName(), "EParseError");
    return error.what();
  }
  ADD_FAILURE() << "no EParseError";
  return {};
}

// --- Fixed text ---

TEST(MarkupReader, ReadMovesBehindTheTextItFinds) {
  TUnicode reader(u"abc"sv);
  EXPECT_TRUE(reader.Read(u"ab"));
  EXPECT_EQ(reader.Position(), 2);
  EXPECT_FALSE(reader.Read(u"d"));
  EXPECT_EQ(reader.Position(), 2);
}

TEST(MarkupReader, ReadOfATextThatWouldEndExactlyAtTheLimitFails) {
  TUnicode reader(u"ab"sv);
  EXPECT_FALSE(reader.Read(u"ab"));
  EXPECT_FALSE(reader.ReadStill(u"ab"));
  EXPECT_EQ(reader.Position(), 0);
  EXPECT_TRUE(reader.Read(u"a"));
  EXPECT_FALSE(reader.Read(u"b"));

  TUnicode longer(u"abc"sv);
  longer.SetEnd(2);
  EXPECT_FALSE(longer.Read(u"ab"));
  longer.SetEnd(3);
  EXPECT_TRUE(longer.Read(u"ab"));
}

TEST(MarkupReader, ReadStillTestsWithoutMoving) {
  TUnicode reader(u"abc"sv);
  EXPECT_TRUE(reader.ReadStill(u"ab"));
  EXPECT_EQ(reader.Position(), 0);
}

TEST(MarkupReader, AnEmptyTextIsFoundAnywhereBeforeTheLimit) {
  TUnicode reader(u"a"sv);
  EXPECT_TRUE(reader.Read(u""));
  reader.Skip(1);
  EXPECT_FALSE(reader.Read(u""));
}

TEST(MarkupReader, CheckNamesWhatItWantedAndWhatItFound) {
  TUnicode reader(u"word_1 x"sv);
  EXPECT_EQ(ErrorOf([&] { reader.Check(u"BR"); }), "'BR' expected but 'word_1' found");
  reader.SetPos(6);
  EXPECT_EQ(ErrorOf([&] { reader.Check(u"BR"); }), "'BR' expected but '' found");
  reader.SetPos(8);
  EXPECT_EQ(ErrorOf([&] { reader.Check(u"BR"); }), "'BR' expected but 'unexpected end' found");
  reader.SetPos(0);
  reader.Check(u"word");
  EXPECT_EQ(reader.Position(), 4);
}

TEST(MarkupReader, AMessageKeepsPercentSignsAndOtherScripts) {
  TUnicode reader(u"%s"sv);
  EXPECT_EQ(ErrorOf([&] { reader.Check(u"%s\u0633"); }), "'%s\xD8\xB3' expected but '' found");
}

TEST(MarkupReader, BackwardsTheTextBeforeTheCursorIsCompared) {
  TUnicode reader(u"abcd"sv);
  reader.SetPos(3);
  reader.SetDirection(TDirection::Backward);
  EXPECT_FALSE(reader.Read(u"cb"));
  EXPECT_TRUE(reader.Read(u"bc"));
  EXPECT_EQ(reader.Position(), 1);
  EXPECT_FALSE(reader.Read(u"xa"));  // the text before is too short
  EXPECT_TRUE(reader.Read(u"a"));    // up to the very start of the text
  EXPECT_EQ(reader.Position(), 0);
}

// --- Single characters ---

TEST(MarkupReader, ATokenIsReadUpToTheLimit) {
  TUnicode reader(u"ab"sv);
  EXPECT_TRUE(reader.ReadToken(u'a'));
  EXPECT_TRUE(reader.ReadToken(u'b'));
  EXPECT_TRUE(reader.Eof());
}

TEST(MarkupReader, NothingMatchesAtOrPastTheLimit) {
  TUnicode reader(u"ab"sv);
  reader.SetEnd(1);
  for (const std::ptrdiff_t place : {1, 2}) {
    reader.SetPos(place);
    EXPECT_EQ(reader.Token(), u'\0');
    EXPECT_FALSE(reader.ReadToken(u'b'));
    EXPECT_FALSE(reader.ReadToken(u'\0'));
    EXPECT_FALSE(reader.ReadTokenStill(u"b\0"sv));
    EXPECT_EQ(ErrorOf([&] { reader.CheckToken(u'b'); }), "'b' expected but 'unexpected end' found");
    EXPECT_EQ(reader.Position(), place);
  }
}

TEST(MarkupReader, AZeroInTheTextIsAnOrdinaryCharacter) {
  TUnicode reader(u"\0a"sv);
  EXPECT_FALSE(reader.Eof());
  EXPECT_EQ(reader.Token(), u'\0');
  EXPECT_TRUE(reader.ReadToken(u'\0'));
  EXPECT_TRUE(reader.ReadToken(u'a'));
}

TEST(MarkupReader, ATokenOfASetTellsWhichOneItIs) {
  TUnicode reader(u"ab"sv);
  EXPECT_EQ(reader.ReadTokenStill(u"xa"), u'a');
  EXPECT_EQ(reader.ReadTokenStill(u"xy"), std::nullopt);
  EXPECT_EQ(reader.Position(), 0);
  EXPECT_TRUE(reader.ReadToken(u"xa"sv));
  EXPECT_FALSE(reader.ReadToken(u"xa"sv));
  EXPECT_EQ(reader.Position(), 1);
}

TEST(MarkupReader, BackwardsATokenIsTheUnitAtTheCursor) {
  TUnicode reader(u"ab"sv);
  reader.SetDirection(TDirection::Backward);
  EXPECT_FALSE(reader.Eof());
  EXPECT_TRUE(reader.ReadToken(u'a'));
  EXPECT_TRUE(reader.Eof());
  EXPECT_EQ(reader.Position(), -1);
  EXPECT_EQ(reader.Token(), u'\0');
}

TEST(MarkupReader, FindCharGoesToTheCharacterOrBehindIt) {
  TUnicode reader(u"a=b;c"sv);
  EXPECT_TRUE(reader.FindChar(u';', false));
  EXPECT_EQ(reader.Position(), 3);
  EXPECT_TRUE(reader.FindChar(u';', true));
  EXPECT_EQ(reader.Position(), 4);
  EXPECT_FALSE(reader.FindChar(u'=', false));
  EXPECT_EQ(reader.Position(), 4);
}

TEST(MarkupReader, FindCharStopsAtANarrowedLimit) {
  TUnicode reader(u"a=b;c"sv);
  reader.SetEnd(3);
  EXPECT_FALSE(reader.FindChar(u';', false));
  EXPECT_TRUE(reader.FindChar(u'b', true));
  EXPECT_EQ(reader.Position(), 3);
}

TEST(MarkupReader, BackwardsFindGoesDownToTheStart) {
  TUnicode reader(u"a=b;c"sv);
  reader.SetPos(4);
  reader.SetDirection(TDirection::Backward);
  EXPECT_EQ(reader.FindAny(u"=;", false), u';');
  EXPECT_EQ(reader.Position(), 3);
  EXPECT_TRUE(reader.FindChar(u'=', true));
  EXPECT_EQ(reader.Position(), 0);
  EXPECT_FALSE(reader.FindChar(u'x', false));
  EXPECT_EQ(reader.Position(), 0);
}

TEST(MarkupReader, FindAnyTellsWhichOneItFound) {
  TUnicode reader(u"a=b;c"sv);
  EXPECT_EQ(reader.FindAny(u";=", true), u'=');
  EXPECT_EQ(reader.FindAny(u";=", true), u';');
  EXPECT_EQ(reader.FindAny(u";=", true), std::nullopt);
  EXPECT_EQ(reader.Position(), 4);
}

// --- Position ---

TEST(MarkupReader, RestorePositionReturnsToTheSamePlaceInEitherDirection) {
  for (const TDirection direction : {TDirection::Forward, TDirection::Backward}) {
    TUnicode reader(u"abcdef"sv);
    reader.SetPos(3);
    reader.SetDirection(direction);
    const std::ptrdiff_t place = reader.SavePosition();
    reader.Skip(2);
    EXPECT_EQ(reader.Position(), direction == TDirection::Forward ? 5 : 1);
    reader.RestorePosition(place);
    EXPECT_EQ(reader.Position(), 3);
    EXPECT_EQ(reader.SaveState().Direction, direction);
  }
}

TEST(MarkupReader, RestorePositionKeepsTheDirectionAndRestoreStateBringsItBack) {
  TUnicode reader(u"abc"sv);
  const TMarkupText::TReaderState state = reader.SaveState();
  const std::ptrdiff_t place = reader.SavePosition();
  reader.SetPos(2);
  reader.SetDirection(TDirection::Backward);
  reader.RestorePosition(place);
  EXPECT_EQ(reader.SaveState(), (TMarkupText::TReaderState{0, TDirection::Backward}));
  reader.RestoreState(state);
  EXPECT_EQ(reader.SaveState(), (TMarkupText::TReaderState{0, TDirection::Forward}));
}

TEST(MarkupReader, SetEndAnswersTheOldLimitAndStaysInsideTheText) {
  TUnicode reader(u"abc"sv);
  EXPECT_EQ(reader.SetEnd(1), 3);
  EXPECT_EQ(reader.SetEnd(Huge), 1);
  EXPECT_EQ(reader.SetEnd(-5), 3);
  EXPECT_EQ(reader.SetEnd(3), 0);
}

TEST(MarkupReader, SkipAndStepBackStopAtTheTextsEnds) {
  TUnicode reader(u"abc"sv);
  reader.Skip(2147483647);
  EXPECT_EQ(reader.Position(), 3);
  reader.StepBack(2147483647);
  EXPECT_EQ(reader.Position(), 0);
  reader.StepBack(1);
  EXPECT_EQ(reader.Position(), 0);
  for (const std::ptrdiff_t count : {Huge, -Huge, std::numeric_limits<std::ptrdiff_t>::min()}) {
    reader.Skip(count);
    EXPECT_EQ(reader.Position(), count > 0 ? 3 : 0);
    reader.StepBack(count);
    EXPECT_EQ(reader.Position(), count > 0 ? 0 : 3);
  }
}

TEST(MarkupReader, SkipStopsAtANarrowedLimit) {
  TUnicode reader(u"abc"sv);
  reader.SetEnd(1);
  reader.Skip(5);
  EXPECT_EQ(reader.Position(), 1);
}

TEST(MarkupReader, BackwardsSkipEndsOneBeforeTheFirstUnit) {
  TUnicode reader(u"abc"sv);
  reader.SetDirection(TDirection::Backward);
  reader.Skip(7);
  EXPECT_EQ(reader.Position(), -1);
  reader.StepBack(2);
  EXPECT_EQ(reader.Position(), 1);
  reader.StepBack(7);
  EXPECT_EQ(reader.Position(), 3);
}

TEST(MarkupReader, SkipSpacesPassesBlanksAndOnlyOnRequestLineBreaks) {
  TUnicode reader(u" \t\r\n \n\rx"sv);
  reader.SkipSpaces(false);
  EXPECT_EQ(reader.Position(), 2);
  reader.SkipSpaces(true);
  EXPECT_EQ(reader.Position(), 7);
  reader.SkipSpaces(true);
  EXPECT_EQ(reader.Position(), 7);
}

TEST(MarkupReader, SkipSpacesPassesNoOtherBlank) {
  for (const char16_t c : {u'\u00A0', u'\u2003', u'\u200B', u'\v', u'\f', u'\0', u'\u0085'}) {
    const std::u16string text = {c, u'x'};
    TUnicode reader(std::u16string_view{text});
    reader.SkipSpaces(true);
    EXPECT_EQ(reader.Position(), 0) << static_cast<int>(c);
  }
}

TEST(MarkupReader, SkipSpacesAtTheEndLeavesTheCursorOnTheLastCharacter) {
  TUnicode reader(u"a  "sv);
  reader.Skip(1);
  reader.SkipSpaces(false);
  EXPECT_EQ(reader.Position(), 2);
  EXPECT_FALSE(reader.Eof());
  EXPECT_TRUE(reader.ReadToken(u' '));
  EXPECT_TRUE(reader.Eof());
  reader.SkipSpaces(false);
  EXPECT_EQ(reader.Position(), 2);
}

TEST(MarkupReader, SkipSpacesInAnEmptyTextEndsAtItsStart) {
  TUnicode reader(u""sv);
  reader.SkipSpaces(true);
  EXPECT_EQ(reader.Position(), 0);
  EXPECT_TRUE(reader.Eof());
}

TEST(MarkupReader, SkipSpacesBeforeALimitThatTheCursorHasPassedGoesBackInsideIt) {
  TUnicode reader(u"a    b"sv);
  reader.SetPos(5);
  reader.SetEnd(3);
  reader.SkipSpaces(false);
  EXPECT_EQ(reader.Position(), 2);
  reader.SetPos(5);
  reader.SetEnd(0);
  reader.SkipSpaces(true);
  EXPECT_EQ(reader.Position(), 0);
  EXPECT_TRUE(reader.Eof());
}

TEST(MarkupReader, BackwardsSkipSpacesStopsOnTheFirstCharacter) {
  TUnicode reader(u"a  b  "sv);
  reader.SetPos(5);
  reader.SetDirection(TDirection::Backward);
  reader.SkipSpaces(false);
  EXPECT_EQ(reader.Position(), 3);

  TUnicode blanks(u"   "sv);
  blanks.SetPos(2);
  blanks.SetDirection(TDirection::Backward);
  blanks.SkipSpaces(false);
  EXPECT_EQ(blanks.Position(), 0);
  EXPECT_FALSE(blanks.Eof());
}

// --- Numbers ---

TEST(MarkupReader, AnIntegerHasOneDigitAtLeastAndNoSign) {
  TUnicode reader(u"007x-5"sv);
  EXPECT_EQ(reader.ReadIntegerStill(), 7);
  EXPECT_EQ(reader.Position(), 0);
  EXPECT_EQ(reader.ReadInteger(), 7);
  EXPECT_EQ(reader.Position(), 3);
  EXPECT_EQ(reader.ReadInteger(), std::nullopt);
  EXPECT_EQ(ErrorOf([&] { reader.Integer(); }), "'an Integer' expected but 'x' found");
  reader.SetPos(4);
  EXPECT_EQ(ErrorOf([&] { reader.Integer(); }), "'an Integer' expected but '' found");
  reader.SetPos(5);
  EXPECT_EQ(reader.Integer(), 5);
}

TEST(MarkupReader, AnIntegerTooLargeIsNoneAndLeavesTheCursor) {
  TUnicode largest(u"2147483647"sv);
  EXPECT_EQ(largest.Integer(), 2147483647);
  for (const auto text : {u"2147483648"sv, u"99999999999"sv, u"99999999999999999999999999999999"sv}) {
    TUnicode reader(text);
    EXPECT_EQ(reader.ReadInteger(), std::nullopt);
    EXPECT_EQ(reader.Position(), 0);
    EXPECT_EQ(ErrorOf([&] { reader.Integer(); }), "'an Integer' expected but '' found");
  }
}

TEST(MarkupReader, DigitsAreReadAndSkippedWithoutABound) {
  const std::u16string digits(10000, u'9');
  TUnicode reader(std::u16string_view{digits});
  EXPECT_EQ(reader.ReadDigitsStill(), digits);
  EXPECT_EQ(reader.Position(), 0);
  EXPECT_EQ(reader.ReadDigits(), digits);
  EXPECT_EQ(reader.ReadDigits(), u"");
  reader.SetPos(0);
  reader.SkipDigits();
  EXPECT_TRUE(reader.Eof());
}

TEST(MarkupReader, DigitsOfOtherScriptsAreNone) {
  TUnicode reader(u"\u0661\u06F1\uFF11"sv);
  EXPECT_EQ(reader.ReadInteger(), std::nullopt);
  EXPECT_EQ(reader.ReadDigits(), u"");
}

TEST(MarkupReader, BackwardsANumberKeepsTheOrderOfItsText) {
  TUnicode reader(u"x123"sv);
  reader.SetPos(3);
  reader.SetDirection(TDirection::Backward);
  EXPECT_EQ(reader.ReadIntegerStill(), 123);
  EXPECT_EQ(reader.ReadDigits(), u"123");
  EXPECT_EQ(reader.Position(), 0);
}

TEST(MarkupReader, HexadecimalDigitsAreOfEitherCaseAndOfAsciiAlone) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const auto c = static_cast<char16_t>(unit);
    const std::u16string text(1, c);
    TUnicode reader(std::u16string_view{text});
    const bool isDigit = (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F') || (c >= u'a' && c <= u'f');
    ASSERT_EQ(reader.ReadHexDigits(), isDigit ? text : u"") << unit;
  }
}

TEST(MarkupReader, HexBytesAndWordsHaveTwoAndFourDigits) {
  TUnicode reader(u"4f00Fg"sv);
  EXPECT_EQ(reader.ReadHexByte(), 0x4F);
  EXPECT_EQ(reader.ReadHexWord(), std::nullopt);
  EXPECT_EQ(ErrorOf([&] { reader.HexWord(); }), "'Character code' expected but '' found");
  EXPECT_EQ(reader.HexByte(), 0);
  EXPECT_EQ(ErrorOf([&] { reader.HexByte(); }), "'Character code' expected but 'Fg' found");
  EXPECT_EQ(reader.Position(), 4);

  TUnicode words(u"FFfe12"sv);
  EXPECT_EQ(words.ReadHexWord(), 0xFFFE);
  EXPECT_EQ(words.HexByte(), 0x12);
  EXPECT_TRUE(words.Eof());
}

TEST(MarkupReader, AHexNumberHasThirtyTwoBits) {
  TUnicode reader(u"0000000FFFFFFFFx1FFFFFFFF"sv);
  EXPECT_EQ(reader.ReadHexStill(), 0xFFFFFFFF);
  EXPECT_EQ(reader.Position(), 0);
  EXPECT_EQ(reader.ReadHex(), 0xFFFFFFFF);
  EXPECT_EQ(reader.ReadHex(), std::nullopt);
  reader.Skip(1);
  EXPECT_EQ(reader.ReadHex(), std::nullopt);
  EXPECT_EQ(reader.Position(), 16);

  TUnicode zeros(u"0000"sv);
  EXPECT_EQ(zeros.ReadHex(), 0U);
}

// --- Words, strings, names ---

TEST(MarkupReader, AnIdentifierBeginsWithALetterOrLowLine) {
  TUnicode reader(u"_x1 1x"sv);
  EXPECT_EQ(reader.ReadIdent(), u"_x1");
  EXPECT_EQ(reader.ReadIdent(), std::nullopt);
  EXPECT_EQ(ErrorOf([&] { reader.Ident(); }), "'identifier' expected but '' found");
  reader.Skip(1);
  EXPECT_EQ(reader.ReadIdent(), std::nullopt);
  reader.Skip(1);
  EXPECT_EQ(reader.Ident(), u"x");
}

TEST(MarkupReader, LettersOfOtherScriptsAreNoIdentifier) {
  TUnicode reader(u"\u0633\u0644\u0627\u0645"sv);
  EXPECT_EQ(reader.ReadIdent(), std::nullopt);
}

TEST(MarkupReader, ReadIdentAfterTheDirectionWasSetBackwardsFailsItsAssertion) {
  TUnicode reader(u"abc"sv);
  reader.SetPos(2);
  reader.SetDirection(TDirection::Backward);
  constexpr std::array<std::u16string_view, 1> names = {u"c"};
#ifdef ORV_ASSERTIONS
  for (const bool enumerate : {false, true}) {
    try {
      enumerate ? static_cast<void>(reader.ReadEnumIndex(names)) : static_cast<void>(reader.ReadIdent());
      ADD_FAILURE() << "no assertion";
    } catch (const rtl::EAssertionFailed& error) {
      EXPECT_EQ(std::string(error.what()).find("ReadIdent doesn't work in backward direction."), 0U);
    }
  }
#else
  EXPECT_EQ(reader.ReadIdent(), std::nullopt);
  EXPECT_EQ(reader.ReadEnumIndex(names), std::nullopt);
#endif
  EXPECT_EQ(reader.Position(), 2);
}

TEST(MarkupReader, AQuotedStringEndsAtTheNextQuote) {
  TUnicode reader(u"\"a\"\"b\" \"open"sv);
  EXPECT_EQ(reader.ReadQuotedString(), u"a");
  EXPECT_EQ(reader.QuotedString(), u"b");
  EXPECT_EQ(reader.ReadQuotedString(), std::nullopt);
  EXPECT_EQ(ErrorOf([&] { reader.QuotedString(); }), "'\"' expected but '' found");
  reader.Skip(1);
  EXPECT_EQ(reader.ReadQuotedString(), std::nullopt);
  EXPECT_EQ(reader.Position(), 7);
  EXPECT_EQ(ErrorOf([&] { reader.QuotedString(); }), "'\"' expected but 'unexpected end' found");
}

TEST(MarkupReader, BackwardsAQuotedStringIsReadFromItsClosingQuote) {
  TUnicode reader(u"x\"ab\""sv);
  reader.SetPos(4);
  reader.SetDirection(TDirection::Backward);
  EXPECT_EQ(reader.ReadQuotedString(), u"ab");
  EXPECT_EQ(reader.Position(), 0);
}

TEST(MarkupReader, TextIsCopiedUpToACharacterOrToTheLimit) {
  TUnicode reader(u"ab;cd=e"sv);
  EXPECT_EQ(reader.CopyTextTill(u';'), u"ab");
  EXPECT_EQ(reader.Token(), u';');
  EXPECT_EQ(reader.CopyTextTill(u';'), u"");
  EXPECT_EQ(reader.CopyText(u"<="), u";cd");
  EXPECT_EQ(reader.CopyText(u""), u"=e");
  EXPECT_TRUE(reader.Eof());
}

TEST(MarkupReader, BackwardsTextIsCopiedInItsOwnOrder) {
  TUnicode reader(u"ab;cd=e"sv);
  reader.SetPos(6);
  reader.SetDirection(TDirection::Backward);
  EXPECT_EQ(reader.CopyText(u"=;"), u"e");
  EXPECT_EQ(reader.Token(), u'=');
  EXPECT_EQ(reader.CopyTextTill(u';'), u"cd=");
  EXPECT_EQ(reader.CopyText(u""), u"ab;");
  EXPECT_TRUE(reader.Eof());
}

TEST(MarkupReader, ABufferTakesNoMoreThanFitsIt) {
  TUnicode reader(u"abcdef;g"sv);
  std::array<char16_t, 4> buffer{};
  EXPECT_EQ(reader.CopyTextTill(buffer, u";"), 4U);
  EXPECT_EQ(std::u16string_view(buffer.data(), 4), u"abcd");
  EXPECT_EQ(reader.CopyTextTill(buffer, u";"), 2U);
  EXPECT_EQ(std::u16string_view(buffer.data(), 2), u"ef");
  EXPECT_EQ(reader.Token(), u';');
  EXPECT_FALSE(reader.ReadBuffer(buffer));
  EXPECT_EQ(reader.Position(), 6);
  EXPECT_TRUE(reader.ReadBuffer(std::span(buffer).first(2)));
  EXPECT_EQ(std::u16string_view(buffer.data(), 2), u";g");

  reader.SetPos(5);
  reader.SetDirection(TDirection::Backward);
  EXPECT_TRUE(reader.ReadBuffer(buffer));
  EXPECT_EQ(std::u16string_view(buffer.data(), 4), u"cdef");
  EXPECT_FALSE(reader.ReadBuffer(buffer));
  EXPECT_EQ(reader.CopyTextTill(buffer, u""), 2U);
  EXPECT_EQ(std::u16string_view(buffer.data(), 2), u"ab");
}

TEST(MarkupReader, ReadEnumIndexTakesTheFirstNameThatBeginsTheText) {
  constexpr std::array<std::u16string_view, 2> names = {u"B", u"BR"};
  TUnicode reader(u"BR"sv);
  EXPECT_EQ(reader.ReadEnumIndexStill(names), 0);
  EXPECT_EQ(reader.Position(), 0);
  EXPECT_EQ(reader.ReadEnumIndex(names), 0);
  EXPECT_EQ(reader.Token(), u'R');
  EXPECT_EQ(reader.ReadEnumIndex(names), std::nullopt);
  EXPECT_EQ(ErrorOf([&] { reader.EnumIndex(names); }), "'identifier' expected but 'R' found");
}

TEST(MarkupReader, ReadEnumIndexPassesOverEmptyNamesAndMindsCase) {
  constexpr std::array<std::u16string_view, 4> names = {u"", u"body", u"", u"BODY"};
  TUnicode reader(u"BODY"sv);
  EXPECT_EQ(reader.EnumIndex(names), 3);  // a name may end at the limit
  EXPECT_TRUE(reader.Eof());
  EXPECT_EQ(reader.ReadEnumIndex(names), std::nullopt);
}

TEST(MarkupReader, AFailingReadLeavesTheCursorWhateverItWants) {
  const std::u16string alphabet = u"aZ_09 \t\r\n<>/=\"\\{}';\0\u0633\xD800";
  std::mt19937 random(7);
  constexpr std::array<std::u16string_view, 3> names = {u"aZ", u"", u"_0"};
  for (int round = 0; round < 20000; ++round) {
    std::u16string text;
    for (auto left = random() % 6; left > 0; --left) text += alphabet[random() % alphabet.size()];
    TUnicode reader(std::u16string_view{text});
    reader.SetEnd(static_cast<std::ptrdiff_t>(random() % 7));
    const auto place = static_cast<std::ptrdiff_t>(random() % 7);
    reader.SetPos(place);
    const std::ptrdiff_t start = reader.Position();
    const std::array<bool, 9> done = {reader.Read(u"aZ"),
                                      reader.ReadToken(u'<'),
                                      reader.ReadInteger().has_value(),
                                      reader.ReadHex().has_value(),
                                      reader.ReadHexByte().has_value(),
                                      reader.ReadIdent().has_value(),
                                      reader.ReadQuotedString().has_value(),
                                      reader.ReadEnumIndex(names).has_value(),
                                      reader.FindChar(u';', true)};
    const bool any = std::any_of(done.begin(), done.end(), [](bool one) { return one; });
    ASSERT_EQ(any, reader.Position() > start);
  }
}

}  // namespace
}  // namespace orv
