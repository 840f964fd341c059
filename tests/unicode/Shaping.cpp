// Shaping: contextual forms, ligatures, Hebrew points, mirrored brackets, and the two corrections beside the rules.
#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>

#include <algorithm>

#include "tests/unicode/support/PlainTransforms.h"
#include "tests/unicode/support/RandomText.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv::testing {
namespace {

TUCS4List List(std::u32string_view text) {
  return TUCS4List(text.begin(), text.end());
}

TUCS4List ShapedWith(TUCS4List list, TOrvCorrections corrections) {
  TSettings settings;
  settings.Corrections = corrections;
  const TSettingsGuard guard(settings);
  TUCS4ListHelper::ChangeToComplexCharacters(list);
  return list;
}

TUCS4List Shaped(std::u32string_view text) {
  return ShapedWith(List(text), {});
}

TEST(Shaping, JoinsLettersThatJoinOnBothSides) {
  EXPECT_EQ(Shaped(U"\u0628"), List(U"\uFE8F"));
  EXPECT_EQ(Shaped(U"\u0628\u0628"), List(U"\uFE91\uFE90"));
  EXPECT_EQ(Shaped(U"\u0628\u0628\u0628"), List(U"\uFE91\uFE92\uFE90"));
}

TEST(Shaping, AnAlefDoesNotJoinForward) {
  EXPECT_EQ(Shaped(U"\u0627\u0628"), List(U"\uFE8D\uFE8F"));
  EXPECT_EQ(Shaped(U"\u0628\u0627\u0628"), List(U"\uFE91\uFE8E\uFE8F"));
}

TEST(Shaping, FoldsLamAlef) {
  EXPECT_EQ(Shaped(U"\u0644\u0627"), List(U"\uFEFB"));
  EXPECT_EQ(Shaped(U"\u0628\u0644\u0627"), List(U"\uFE91\uFEFC"));
  EXPECT_EQ(Shaped(U"\u0644\u0622\u0644\u0623\u0644\u0625"), List(U"\uFEF5\uFEF7\uFEF9"));
  EXPECT_EQ(Shaped(U"\u0644\u0671"), List(U"\uFEDD\uFB50"));  // this alef has no ligature
  EXPECT_EQ(Shaped(U"\u0644\u0644\u0627\u0628"), List(U"\uFEDF\uFEFC\uFE8F"));
}

TEST(Shaping, AVowelMarkBetweenLamAndAlefMovesBehindThem) {
  EXPECT_EQ(Shaped(U"\u0644\u064E\u0627"), List(U"\uFEFB\uFE76"));
  EXPECT_EQ(Shaped(U"\u0644\u064B\u0627"), List(U"\uFEDF\uFE70\uFE8E"));  // not this mark
  EXPECT_EQ(Shaped(U"\u0644\u0651\u0627"), List(U"\uFEDF\uFE7C\uFE8E"));
}

TEST(Shaping, AMarkBetweenTwoLettersDoesNotBreakTheJoin) {
  EXPECT_EQ(Shaped(U"\u0628\u064E\u0628"), List(U"\uFE91\uFE76\uFE90"));
  EXPECT_EQ(Shaped(U"\u0628\u064E\u0670\u06DF\u0628"), List(U"\uFE91\uFE76\u0670\u06DF\uFE90"));
  EXPECT_EQ(Shaped(U"\u0628 \u0628"), List(U"\uFE8F \uFE8F"));
}

TEST(Shaping, AlefMaksuraTakesItsFormsFromElsewhere) {
  EXPECT_EQ(Shaped(U"\u0628\u0649"), List(U"\uFE91\uFEF0"));
  EXPECT_EQ(Shaped(U"\u0649\u0628"), List(U"\uFBE8\uFE90"));
  EXPECT_EQ(Shaped(U"\u0628\u0649\u0628"), List(U"\uFE91\uFBE9\uFE90"));
  EXPECT_EQ(Shaped(U"\u0649\u0649\u0649"), List(U"\uFBE8\uFBE9\uFEF0"));
  EXPECT_EQ(Shaped(U"\u0649\u064E\u0628"), List(U"\uFBE8\uFE76\uFE90"));
}

TEST(Shaping, FoldsShaddaWithAVowelMarkBesideIt) {
  for (UCS4Char mark = 0x64C; mark <= 0x650; ++mark) {
    const UCS4Char form = 0xFC5E + (mark - 0x64C);
    EXPECT_EQ(ShapedWith({0x628, 0x651, mark}, {}), (TUCS4List{0xFE8F, form}));
    EXPECT_EQ(ShapedWith({0x628, mark, 0x651}, {}), (TUCS4List{0xFE8F, form}));
  }
  EXPECT_EQ(Shaped(U"\u0628\u064B\u0651"), List(U"\uFE8F\uFE70\uFE7C"));
  EXPECT_EQ(Shaped(U"\u0628\u064E\u0651\u0628"), List(U"\uFE91\uFC60\uFE90"));
  EXPECT_EQ(Shaped(U"\u0628\u064E\u0651\u064F"), List(U"\uFE8F\uFE76\uFC61"));  // the one behind it first
}

TEST(Shaping, FoldsShaddaWithASuperscriptAlef) {
  EXPECT_EQ(Shaped(U"\u0628\u0651\u0670"), List(U"\uFE8F\uFC63"));
  EXPECT_EQ(Shaped(U"\u0628\u0670\u0651"), List(U"\uFE8F\uFC63"));
  EXPECT_EQ(Shaped(U"\u0628\u0670\u0651\u0670"), List(U"\uFE8F\u0670\uFC63"));  // between two: the one behind it only
}

TEST(Shaping, AShaddaAtTheStartIsAMarkAlone) {
  EXPECT_EQ(Shaped(U"\u0651\u064E"), List(U"\uFE7C\uFE76"));
  EXPECT_EQ(Shaped(U"\u0651\u0670"), List(U"\uFE7C\u0670"));
  EXPECT_EQ(Shaped(U"\u0628\u0651"), List(U"\uFE8F\uFE7C"));
}

TEST(Shaping, WritesTheNameOfGodAsOne) {
  EXPECT_EQ(Shaped(U"\u0644\u0644\u0651\u0647"), List(U"\uFDF2"));
  EXPECT_EQ(Shaped(U"\u0627\u0644\u0644\u0651\u0647"), List(U"\uFE8D\uFDF2"));
  EXPECT_EQ(Shaped(U"\u0644\u0644\u0651\u0647 \u0628"), List(U"\uFDF2 \uFE8F"));
  EXPECT_EQ(Shaped(U"\u0644\u0644\u0651\u0647\u0621"), List(U"\uFDF2\uFE80"));
  EXPECT_EQ(Shaped(U"\u0628\u0644\u0644\u0651\u0647"), List(U"\uFE8F\uFDF2"));  // does not join back
}

TEST(Shaping, WritesTheNameOfGodInLettersBeforeWhatJoinsOrIsAMark) {
  EXPECT_EQ(Shaped(U"\u0644\u0644\u0651\u0647\u0628"), List(U"\uFEDF\uFEE0\uFE7C\uFEEC\uFE90"));
  EXPECT_EQ(Shaped(U"\u0644\u0644\u0651\u0647\u0640"), List(U"\uFEDF\uFEE0\uFE7C\uFEEC\u0640"));
  EXPECT_EQ(Shaped(U"\u0644\u0644\u0651\u0647\u064E"), List(U"\uFEDF\uFEE0\uFE7C\uFEEA\uFE76"));
  EXPECT_EQ(Shaped(U"\u0644\u0651\u0647"), List(U"\uFEDF\uFE7C\uFEEA"));
  EXPECT_EQ(Shaped(U"\u0644\u0644\u0651"), List(U"\uFEDF\uFEDE\uFE7C"));
}

TEST(Shaping, FoldsHebrewPoints) {
  EXPECT_EQ(Shaped(U"\u05D0\u05B7"), List(U"\uFB2E"));
  EXPECT_EQ(Shaped(U"\u05D0\u05B8\u05D1\u05BF\u05D5\u05B9\u05DB\u05BF\u05E4\u05BF\u05E9\u05C1\u05E9\u05C2"),
            List(U"\uFB2F\uFB4C\uFB4B\uFB4D\uFB4E\uFB2A\uFB2B"));
  EXPECT_EQ(Shaped(U"\u05D1\u05B7\u05D0\u05B6\u05B7"), List(U"\u05D1\u05B7\u05D0\u05B6\u05B7"));
  EXPECT_EQ(Shaped(U"\u05B7"), List(U"\u05B7"));
}

TEST(Shaping, AShinTakesItsDageshAndItsDotInEitherOrder) {
  EXPECT_EQ(Shaped(U"\u05E9\u05BC\u05C1"), List(U"\uFB2C"));
  EXPECT_EQ(Shaped(U"\u05E9\u05BC\u05C2"), List(U"\uFB2D"));
  EXPECT_EQ(Shaped(U"\u05E9\u05C1\u05BC"), List(U"\uFB2C"));
  EXPECT_EQ(Shaped(U"\u05E9\u05C2\u05BC"), List(U"\uFB2D"));
}

TEST(Shaping, AnyOtherLetterIsLostUnderItsDagesh) {
  EXPECT_EQ(Shaped(U"\u05D0\u05BC"), List(U"\u05BC"));
  EXPECT_EQ(Shaped(U"\u05D1\u05D1\u05BC\u05D1"), List(U"\u05D1\u05BC\u05D1"));
  EXPECT_EQ(Shaped(U"a\u05BC\u0628\u05BC\u05E9\u05BC"), List(U"\u05BC\u05BC\u05BC"));
  EXPECT_EQ(Shaped(U"\u0628\u064D\u05BC"), List(U"\uFE8F\u05BC"));
}

TEST(Shaping, ADageshAtTheStartIsKept) {
  EXPECT_EQ(Shaped(U"\u05BC\u05C1"), List(U"\u05BC\u05C1"));
  EXPECT_EQ(Shaped(U"\u05BC\u05BC"), List(U"\u05BC"));
}

TEST(Shaping, MirrorsBrackets) {
  EXPECT_EQ(Shaped(U"("), List(U")"));
  EXPECT_EQ(Shaped(U"()[]{}\u00AB\u00BB\u008B\u009B"), List(U")(][}{\u00BB\u00AB\u009B\u008B"));
  EXPECT_EQ(Shaped(U"\u2039\u203A<>\u27E8"), List(U"\u2039\u203A<>\u27E8"));  // these are left as they are
}

TEST(Shaping, KeepsUnknownCodePoints) {
  EXPECT_EQ(Shaped(U"a\u0620\u063F\u06C2\u06C3\u06FF\u0750\U00010628"),
            List(U"a\u0620\u063F\u06C2\u06C3\u06FF\u0750\U00010628"));
  EXPECT_EQ(ShapedWith({0xFFFFFFFF, 0x80000628, 0, 0x628}, {}), (TUCS4List{0xFFFFFFFF, 0x80000628, 0, 0xFE8F}));
  EXPECT_EQ(Shaped(U""), List(U""));
}

TEST(Shaping, DoesNotReadItsFlag) {
  for (const bool flag : {false, true}) {
    const TSettingsGuard guard;
    TUCS4List list = List(U"\u0628(\u0628\u0628");
    TUCS4ListHelper::ChangeToComplexCharacters(list, flag);
    EXPECT_EQ(list, List(U"\uFE8F)\uFE91\uFE90"));
  }
}

// ---- Tatweel and joiner, by the rules and corrected ----

TEST(Tatweel, ByTheRulesJoinsBackAndLeavesTheNextLetterIsolated) {
  EXPECT_EQ(Shaped(U"\u0628\u0640\u0628"), List(U"\uFE91\u0640\uFE8F"));
  EXPECT_EQ(Shaped(U"\u0627\u0640\u0640"), List(U"\uFE8D\u0640\u0640"));
}

TEST(Tatweel, CorrectedJoinsToBothSidesAndKeepsItsCodePoint) {
  const TOrvCorrections on{TOrvCorrection::TatweelJoins};
  EXPECT_EQ(ShapedWith(List(U"\u0628\u0640\u0628"), on), List(U"\uFE91\u0640\uFE90"));
  EXPECT_EQ(ShapedWith(List(U"\u0640\u0628\u0640\u0640\u0628\u0640"), on),
            List(U"\u0640\uFE92\u0640\u0640\uFE92\u0640"));
  EXPECT_EQ(ShapedWith(List(U"\u0627\u0640\u0627 \u0628"), on), List(U"\uFE8D\u0640\uFE8E \uFE8F"));
  EXPECT_EQ(ShapedWith(List(U"\u0628\u0640\u064E\u0628"), on), List(U"\uFE91\u0640\uFE76\uFE90"));
  EXPECT_EQ(ShapedWith(List(U"\u0628\u0640\u0644\u0627"), on), List(U"\uFE91\u0640\uFEFC"));
  EXPECT_EQ(ShapedWith(List(U"\u0649\u0640\u0649"), on), List(U"\uFBE8\u0640\uFEF0"));
}

TEST(Joiner, ByTheRulesBreaksAJoin) {
  EXPECT_EQ(Shaped(U"\u0628\u200D\u0628"), List(U"\uFE8F\u200D\uFE8F"));
  EXPECT_EQ(Shaped(U"\u0647\u200D"), List(U"\uFEE9\u200D"));
}

TEST(Joiner, CorrectedJoinsLikeALetterThatJoinsOnBothSides) {
  const TOrvCorrections on{TOrvCorrection::ZwjJoins};
  EXPECT_EQ(ShapedWith(List(U"\u0647\u200D"), on), List(U"\uFEEB\u200D"));
  EXPECT_EQ(ShapedWith(List(U"\u200D\u0647\u200D"), on), List(U"\u200D\uFEEC\u200D"));
  EXPECT_EQ(ShapedWith(List(U"\u200D\u0647"), on), List(U"\u200D\uFEEA"));
  EXPECT_EQ(ShapedWith(List(U"\u0627\u200D\u0627"), on), List(U"\uFE8D\u200D\uFE8E"));
  EXPECT_EQ(ShapedWith(List(U"\u0644\u0644\u0651\u0647\u200D"), on), List(U"\uFEDF\uFEE0\uFE7C\uFEEC\u200D"));
}

TEST(Joiner, TheNonJoinerBreaksAJoinEitherWay) {
  EXPECT_EQ(ShapedWith(List(U"\u0628\u200C\u0628"), AllCorrections), List(U"\uFE8F\u200C\uFE8F"));
}

TEST(TatweelAndJoiner, EachCorrectionActsByItself) {
  const TUCS4List text = List(U"\u0628\u0640\u0628 \u0628\u200D\u0628");
  EXPECT_EQ(ShapedWith(text, {TOrvCorrection::TatweelJoins}), List(U"\uFE91\u0640\uFE90 \uFE8F\u200D\uFE8F"));
  EXPECT_EQ(ShapedWith(text, {TOrvCorrection::ZwjJoins}), List(U"\uFE91\u0640\uFE8F \uFE91\u200D\uFE90"));
  EXPECT_EQ(ShapedWith(text, AllCorrections), List(U"\uFE91\u0640\uFE90 \uFE91\u200D\uFE90"));
  EXPECT_EQ(ShapedWith(text, AllCorrections - TOrvCorrections{TOrvCorrection::TatweelJoins, TOrvCorrection::ZwjJoins}),
            ShapedWith(text, {}));
}

// ---- Against the plain rules ----

TUCS4List RandomList(TRandom& random) {
  static constexpr std::u32string_view units =
      U"\u0628\u0644\u0644\u0627\u0622\u0645\u0648\u0649\u0647\u06CC\u06C2\u0640\u0651\u064E\u0650\u064B\u0652\u0670"
      U"\u06DD"
      U"\u0671\u0621\u05D0\u05E9\u05D1\u05BC\u05C1\u05C2\u05B7\u05BF\u05B9\u200C\u200D\u0020()"
      U"\u00ABa7\uFE76\uFE72\uFB2A\uFE73\u0670\u0651";
  TUCS4List list;
  const std::size_t length = random.Below(random.OneIn(20) ? 120 : 14);
  const bool prose = random.OneIn(3);
  while (list.size() < length) {
    if (random.OneIn(20))
      list.insert(list.end(), {0x644, 0x644, 0x651, 0x647});
    else if (random.OneIn(40))
      list.push_back(static_cast<UCS4Char>(random.Next() >> (32 + random.Below(32))));
    else if (random.OneIn(6))
      list.push_back(0x590 + random.Below(0x170));
    else if (prose && !random.OneIn(8))
      list.push_back(0x628 + random.Below(18));
    else
      list.push_back(static_cast<UCS4Char>(units[random.Below(static_cast<std::uint32_t>(units.size()))]));
  }
  return list;
}

TEST(Shaping, AgreesWithThePlainRulesOnRandomLists) {
  TRandom random(31);
  for (int trial = 0; trial < Trials(1000000); ++trial) {
    TSettings settings;
    settings.Corrections = RandomCorrections(random);
    const TSettingsGuard guard(settings);
    const TUCS4List list = RandomList(random);
    TUCS4List shaped = list;
    TUCS4ListHelper::ChangeToComplexCharacters(shaped);
    ASSERT_EQ(shaped, plain::Shaped(list)) << ::testing::PrintToString(list) << "\n" << Shown(settings);
  }
}

TEST(Shaping, AgreesWithThePlainRulesOnEveryCodePointBesideEveryKindOfNeighbour) {
  const TSettingsGuard guard;
  constexpr UCS4Char neighbours[] = {0x628, 0x627, 0x640, 0x649, 0x621, 0x651, 0x64E, 0x644, 0x5E9, 0x5BC, 'a'};
  for (UCS4Char c = 0; c < 0x2100; ++c)
    for (const UCS4Char before : neighbours)
      for (const UCS4Char behind : neighbours) {
        // Long enough that both the block-wise and the single road meet it.
        for (const TUCS4List& list :
             {TUCS4List{before, c, behind}, TUCS4List{0x633, before, c, behind, 0x633, 0x633, 0x633, 0x633}}) {
          TUCS4List shaped = list;
          TUCS4ListHelper::ChangeToComplexCharacters(shaped);
          ASSERT_EQ(shaped, plain::Shaped(list)) << ::testing::PrintToString(list);
        }
      }
}

// ---- Against the Unicode Character Database ----

// What a presentation form stands for, by its compatibility decomposition.
std::u16string Decomposed(UCS4Char form) {
  UErrorCode error = U_ZERO_ERROR;
  UChar buffer[32];
  const std::int32_t length =
      unorm2_getRawDecomposition(unorm2_getNFKCInstance(&error), static_cast<UChar32>(form), buffer, 32, &error);
  return length < 0 ? std::u16string() : std::u16string(buffer, static_cast<std::size_t>(length));
}

int DecompositionType(UCS4Char form) {
  return u_getIntPropertyValue(static_cast<UChar32>(form), UCHAR_DECOMPOSITION_TYPE);
}

TEST(ShapingTable, EveryFormIsTheOneThatTheDatabaseGivesTheLetter) {
  const TSettingsGuard guard;
  for (UCS4Char letter = 0x620; letter <= 0x6ED; ++letter) {
    if (!u_isalpha(static_cast<UChar32>(letter)) || letter == 0x640) continue;
    if (letter == 0x6D5) continue;  // is drawn as a heh, which it looks like
    const TUCS4List isolated = ShapedWith({letter}, {});
    if (isolated[0] == letter) continue;  // the letter has no forms
    const std::u16string own{static_cast<char16_t>(letter)};
    EXPECT_EQ(Decomposed(isolated[0]), own) << std::hex << letter;
    EXPECT_EQ(DecompositionType(isolated[0]), U_DT_ISOLATED) << std::hex << letter;

    const UCS4Char behind = ShapedWith({0x628, letter}, {})[1];
    EXPECT_EQ(Decomposed(behind), own) << std::hex << letter;
    EXPECT_TRUE(behind == isolated[0] || DecompositionType(behind) == U_DT_FINAL) << std::hex << letter;

    const UCS4Char before = ShapedWith({letter, 0x628}, {})[0];
    EXPECT_EQ(Decomposed(before), own) << std::hex << letter;
    EXPECT_TRUE(before == isolated[0] || DecompositionType(before) == U_DT_INITIAL) << std::hex << letter;

    const UCS4Char between = ShapedWith({0x628, letter, 0x628}, {})[1];
    EXPECT_EQ(Decomposed(between), own) << std::hex << letter;
    EXPECT_TRUE(between == behind || DecompositionType(between) == U_DT_MEDIAL) << std::hex << letter;
  }
}

// The database's joining types say which letters may join; the table must not join more than they do.
TEST(ShapingTable, JoinsNoLetterThatTheDatabaseSaysDoesNotJoin) {
  const TSettingsGuard guard;
  for (UCS4Char letter = 0x620; letter <= 0x6ED; ++letter) {
    if (letter == 0x644) continue;
    const int type = u_getIntPropertyValue(static_cast<UChar32>(letter), UCHAR_JOINING_TYPE);
    const bool joinsForward = ShapedWith({letter, 0x628}, {}).back() == 0xFE90;
    const bool joinsBack = ShapedWith({0x628, letter}, {}).front() == 0xFE91;
    const bool mayJoinForward = type == U_JT_DUAL_JOINING || type == U_JT_JOIN_CAUSING;
    EXPECT_TRUE(mayJoinForward || !joinsForward) << std::hex << letter;
    EXPECT_TRUE(mayJoinForward || type == U_JT_RIGHT_JOINING || !joinsBack) << std::hex << letter;
  }
}

// Decomposing the forms again gives the text, as far as nothing was folded or lost.
TEST(Shaping, OfLettersAloneIsUndoneByDecomposition) {
  const TSettingsGuard guard;
  TRandom random(41);
  for (int trial = 0; trial < Trials(50000); ++trial) {
    std::u16string text;
    for (std::uint32_t i = random.Below(30); i > 0; --i) {
      const auto letter = static_cast<char16_t>(0x621 + random.Below(0x64B - 0x621));
      if (letter != 0x644 && u_isalpha(letter)) text.push_back(letter);
    }
    TUCS4List list(text.begin(), text.end());
    TUCS4ListHelper::ChangeToComplexCharacters(list);
    std::u16string back;
    for (const UCS4Char form : list)
      back += Decomposed(form).empty() ? std::u16string{static_cast<char16_t>(form)} : Decomposed(form);
    ASSERT_EQ(back, text) << Shown(text);
  }
}

}  // namespace
}  // namespace orv::testing
