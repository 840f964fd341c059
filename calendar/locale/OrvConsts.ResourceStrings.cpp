#include "calendar/locale/OrvConsts.ResourceStrings.h"

#include <algorithm>

namespace orv {
namespace {

constexpr TResourceString Table[] = {rscSWed,
                                     rscSThu,
                                     rscSFri,
                                     SDateOutOfRange,
                                     SEventNotSet,
                                     SIncompleteHTMLTag,
                                     SBadRTFFormat,
                                     SUnexpectedEndOfRTFData,
                                     SExpectationErrOr,
                                     SUnexpectedEnd,
                                     SInteger,
                                     SCharCode,
                                     rscAugest,
                                     rscSeptember,
                                     rscOctober,
                                     rscNovember,
                                     rscDecember,
                                     rscSat,
                                     rscSun,
                                     rscMon,
                                     rscTue,
                                     rscWed,
                                     rscThu,
                                     rscFri,
                                     rscSSat,
                                     rscSSun,
                                     rscSMon,
                                     rscSTue,
                                     rscFeb,
                                     rscMar,
                                     rscApr,
                                     rscMay,
                                     rscJun,
                                     rscJul,
                                     rscAug,
                                     rscSep,
                                     rscOct,
                                     rscNov,
                                     rscDec,
                                     rscJanuary,
                                     rscFebruary,
                                     rscMarch,
                                     rscApril,
                                     rscJuly,
                                     rscDey,
                                     rscBahman,
                                     rscEsfand,
                                     rscMoharam,
                                     rscSafar,
                                     rscRabiOlAwal,
                                     rscRabiOsSani,
                                     rscJamadiOlAwal,
                                     rscJamadiOsSani,
                                     rscRajab,
                                     rscShaeban,
                                     rscRamazan,
                                     rscShawwal,
                                     rscZiGhaedah,
                                     rscZiHadjah,
                                     rscJan,
                                     rscRial,
                                     rscShortMorning,
                                     rscVeryShortMorning,
                                     rscMorning,
                                     rscShortAfternoon,
                                     rscVeryShortAfternoon,
                                     rscAfterNoon,
                                     rscFarvardin,
                                     rscOrdibehesht,
                                     rscKhordad,
                                     rscTeer,
                                     rscMordad,
                                     rscShahrivar,
                                     rscMehr,
                                     rscAban,
                                     rscAzar};

}  // namespace

std::span<const TResourceString> ResourceStrings() {
  return Table;
}

std::u16string_view LoadResourceString(std::uint16_t id) {
  const auto found = std::ranges::lower_bound(Table, id, {}, &TResourceString::Id);
  return found != std::end(Table) && found->Id == id ? found->Text : std::u16string_view();
}

}  // namespace orv
