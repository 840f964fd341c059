// The table of languages held against ICU's.
#include <gtest/gtest.h>
#include <unicode/uloc.h>

#include <cctype>
#include <map>
#include <string>

#include "calendar/locale/OrvSystem.OrvConsts.Locale.h"

namespace orv {
namespace {

// Names that the published list writes in another way than ICU, or with a script or region that ICU adds.
const std::map<std::string_view, std::string_view> OtherNames = {{"zh-HK", "zh_Hant_HK"},
                                                                 {"zh-MO", "zh_Hant_MO"},
                                                                 {"zh-SG", "zh_Hans_SG"},
                                                                 {"zh-TW", "zh_Hant_TW"},
                                                                 {"he", "he_IL"},
                                                                 {"ks-Arab", "ks_Arab_IN"},
                                                                 {"la-VA", "la_001"},
                                                                 {"ur", "ur_PK"},
                                                                 {"es-ES_tradnl", "es_ES@collation=traditional"},
                                                                 {"quz-BO", "qu_BO"},
                                                                 {"quz-EC", "qu_EC"},
                                                                 {"quz-PE", "qu_PE"},
                                                                 {"prs-AF", "fa_AF"},
                                                                 {"ku-Arab-IQ", "ckb_Arab_IQ"}};

std::string LowerWithUnderscores(std::string_view name) {
  std::string out(name);
  for (char& c : out) c = c == '-' ? '_' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

std::string NameFromIcu(std::uint32_t lcid) {
  char name[ULOC_FULLNAME_CAPACITY] = {};
  UErrorCode status = U_ZERO_ERROR;
  uloc_getLocaleForLCID(lcid, name, sizeof name, &status);
  return U_SUCCESS(status) ? name : "";
}

TEST(LanguageTableOracle, EveryIdentifierNamesTheSameLocaleInIcu) {
  int compared = 0;
  for (const TLCIDRecs list : LCIDLists())
    for (const TOrvLCIDRec& locale : list) {
      const auto other = OtherNames.find(locale.LocaleName);
      const std::string_view expected = other == OtherNames.end() ? locale.LocaleName : other->second;
      EXPECT_EQ(LowerWithUnderscores(NameFromIcu(locale.LCID)), LowerWithUnderscores(expected)) << locale.LCID;
      ++compared;
    }
  EXPECT_GT(compared, 200);
}

}  // namespace
}  // namespace orv
