// The table of languages and the resource strings.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "calendar/locale/OrvConsts.ResourceStrings.h"
#include "calendar/locale/OrvLocale.Locale.h"
#include "calendar/locale/OrvSystem.OrvConsts.Locale.h"

namespace orv {
namespace {

constexpr unsigned PrimaryLanguage = 0x3FF;

std::string Codes(unsigned first, unsigned last) {
  std::string codes;
  for (unsigned row = first; row <= last; ++row) {
    const std::string_view code = LCGroups()[row - 1].LangCode;
    if (!codes.empty()) codes += ' ';
    codes += code.empty() ? "-" : code;
  }
  return codes;
}

const TOrvLangGroup& Row(unsigned number) {
  return LCGroups()[number - 1];
}

TEST(LanguageTable, RowsAreNumberedByTheirPrimaryLanguage) {
  for (unsigned row = 1; row <= LangGroupCount; ++row) {
    EXPECT_EQ(Row(row).LCID, row);
    if (row == 2) continue;
    for (const TOrvLCIDRec& locale : Row(row).List) EXPECT_EQ(locale.LCID & PrimaryLanguage, row) << locale.LocaleName;
  }
}

TEST(LanguageTable, EveryRowWithACodeHasLocalesAndOnlySamiHasLocalesWithoutACode) {
  for (const TOrvLangGroup& group : LCGroups()) {
    if (group.LCID == 59)
      EXPECT_TRUE(group.LangCode.empty() && !group.List.empty());
    else
      EXPECT_EQ(group.LangCode.empty(), group.List.empty()) << int(group.LCID);
  }
}

TEST(LanguageTable, CodesStandInTheOrderOfTheLanguageNumbers) {
  EXPECT_EQ(Codes(1, 16), "ar bg ca zh cs da de el en es fi fr he hu is it");
  EXPECT_EQ(Codes(46, 61), "sb mk st ts tn - xh zu af ka fo hi mt - gd yi");
  EXPECT_EQ(Codes(86, 104), "gl kok - sd syr si chr iu am - ks ne fy ps fil dv - - ha");
  EXPECT_EQ(Codes(113, 126), "- om ti gn haw la so ii - arn - moh - br");
  EXPECT_EQ(Codes(136, 146), "wo - - - prs - - - - gd ku");
}

TEST(LanguageTable, TellingRows) {
  ASSERT_EQ(Row(1).ListSize(), 16);
  EXPECT_EQ(Row(1).List[0].LocaleName, "ar-dz");
  EXPECT_EQ(Row(1).List[0].LCID, 0x1401);
  EXPECT_EQ(Row(1).List[15].LocaleName, "ar-ye");
  EXPECT_EQ(Row(1).List[15].LCID, 0x2401);
  for (const TOrvLCIDRec& locale : Row(1).List) EXPECT_EQ(locale.CodePage, 1256);

  const auto only = [](unsigned row) { return Row(row).List.front(); };
  EXPECT_EQ(only(13).LocaleName, "he");
  EXPECT_EQ(only(13).LCID, 0x040D);
  EXPECT_EQ(only(13).CodePage, 1255);
  EXPECT_EQ(only(32).LocaleName, "ur");
  EXPECT_EQ(only(32).LCID, 0x0420);
  EXPECT_EQ(only(32).CodePage, 1256);
  EXPECT_EQ(only(41).LocaleName, "fa-IR");
  EXPECT_EQ(only(41).LCID, 0x0429);
  EXPECT_EQ(only(41).CodePage, 1256);
  EXPECT_EQ(only(99).LocaleName, "ps-AF");
  EXPECT_EQ(only(99).LCID, 0x0463);
  EXPECT_EQ(only(99).CodePage, 0);
  EXPECT_EQ(only(146).LocaleName, "ku-Arab-IQ");
  EXPECT_EQ(only(146).LCID, 0x0492);
  EXPECT_EQ(only(146).CodePage, 1256);
}

TEST(LanguageTable, TheBulgarianRowHoldsTheArabicListAndBulgarianStandsAmongTheLists) {
  EXPECT_EQ(Row(2).LangCode, "bg");
  EXPECT_EQ(Row(2).List.data(), Row(1).List.data());
  EXPECT_EQ(Row(2).List.size(), 16u);
  EXPECT_EQ(LCIDToCodePage(0x0402), 1251);
}

TEST(LanguageTable, NoIdentifierAndNoNameStandsTwice) {
  std::set<unsigned> identifiers;
  std::set<std::string_view> names;
  for (const TLCIDRecs list : LCIDLists())
    for (const TOrvLCIDRec& locale : list) {
      EXPECT_TRUE(identifiers.insert(locale.LCID).second) << locale.LocaleName;
      EXPECT_TRUE(names.insert(locale.LocaleName).second) << locale.LocaleName;
    }
  EXPECT_EQ(LCIDLists().size(), 128u);
}

TEST(LCIDToCodePage, AnswersTheAnsiCodePageOfTheLocale) {
  EXPECT_EQ(LCIDToCodePage(0x0429), 1256);
  EXPECT_EQ(LCIDToCodePage(0x040D), 1255);
  EXPECT_EQ(LCIDToCodePage(0x0409), 1252);
  EXPECT_EQ(LCIDToCodePage(0x0C1A), 1251);  // Serbian in Cyrillic
  EXPECT_EQ(LCIDToCodePage(0x081A), 1250);  // Serbian in Latin
  EXPECT_EQ(LCIDToCodePage(0x0463), 0);     // Pashto has no ANSI code page
}

TEST(LCIDToCodePage, NeutralIdentifiersAnswerForTheFirstRegionAndUnknownOnesZero) {
  EXPECT_EQ(LCIDToCodePage(0x29), 1256);
  EXPECT_EQ(LCIDToCodePage(0x01), 1256);
  EXPECT_EQ(LCIDToCodePage(0), 0);
  EXPECT_EQ(LCIDToCodePage(0x0400), 0);
  EXPECT_EQ(LCIDToCodePage(0xFFFF), 0);
  EXPECT_EQ(LCIDToCodePage(0xFFFFFFFF), 0);
  EXPECT_EQ(LCIDToCodePage(0x10429), 0);
}

TEST(LCIDToLocaleName, NamesTheLastLanguageAloneForEveryLowByte) {
  for (std::uint32_t lcid = 0; lcid <= 0xFFFF; ++lcid)
    ASSERT_EQ(LCIDToLocaleName(lcid), (lcid & 0xFF) == 146 ? "ku" : "") << lcid;
  EXPECT_EQ(LCIDToLocaleName(0x0429), "");
  EXPECT_EQ(LCIDToLocaleName(0), "");
  EXPECT_EQ(LCIDToLocaleName(0xFFFFFFFF), "");
}

TEST(ResourceStrings, IdsRiseAndTheFourAbsentOnesAreEmpty) {
  unsigned expected = 65456;
  for (const TResourceString& entry : ResourceStrings()) {
    if (expected == 65468) expected = 65472;
    EXPECT_EQ(entry.Id, expected++);
    EXPECT_FALSE(entry.Text.empty()) << entry.Name;
    EXPECT_EQ(LoadResourceString(entry.Id), entry.Text);
  }
  EXPECT_EQ(expected, 65536u);
  for (std::uint16_t id = 65468; id <= 65471; ++id) EXPECT_TRUE(LoadResourceString(id).empty());
  EXPECT_TRUE(LoadResourceString(0).empty());
}

TEST(ResourceStrings, TellingTexts) {
  EXPECT_EQ(LoadResourceString(65456), u"چ");
  EXPECT_EQ(LoadResourceString(65459), u"The %d date must be in the range of %d, %d");
  EXPECT_EQ(LoadResourceString(65460), u"Error: Event \"%s\" is not set.");
  EXPECT_EQ(LoadResourceString(65472), u"Augest");
  EXPECT_EQ(LoadResourceString(65481), u"چهار شنبه");
  EXPECT_EQ(LoadResourceString(65517), u"ذوالقعده");
  // The currency's yeh is the Arabic one.
  EXPECT_EQ(LoadResourceString(65520), u"\u0631\u064A\u0627\u0644");
  EXPECT_EQ(LoadResourceString(65535), u"آذر");
}

}  // namespace
}  // namespace orv
