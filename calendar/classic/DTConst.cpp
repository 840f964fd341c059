#include "calendar/classic/DTConst.h"

#include "calendar/locale/OrvConsts.ResourceStrings.h"

namespace orv {
namespace {

template <typename... TStrings>
auto NamesOf(const TStrings&... strings) {
  return rtl::TNames<sizeof...(TStrings)>{{rtl::UnicodeString(strings.Text)...}};
}

}  // namespace

const rtl::TMonthNames& PersianMonths() {
  static const rtl::TMonthNames names = NamesOf(rscFarvardin, rscOrdibehesht, rscKhordad, rscTeer, rscMordad,
                                                rscShahrivar, rscMehr, rscAban, rscAzar, rscDey, rscBahman, rscEsfand);
  return names;
}

const rtl::TMonthNames& GhamariMonths() {
  static const rtl::TMonthNames names =
      NamesOf(rscMoharam, rscSafar, rscRabiOlAwal, rscRabiOsSani, rscJamadiOlAwal, rscJamadiOsSani, rscRajab,
              rscShaeban, rscRamazan, rscShawwal, rscZiGhaedah, rscZiHadjah);
  return names;
}

const rtl::TDayNames& WeekDays() {
  static const rtl::TDayNames names = NamesOf(rscSat, rscSun, rscMon, rscTue, rscWed, rscThu, rscFri);
  return names;
}

const rtl::TDayNames& ShortWeekDays() {
  static const rtl::TDayNames names = NamesOf(rscSSat, rscSSun, rscSMon, rscSTue, rscSWed, rscSThu, rscSFri);
  return names;
}

}  // namespace orv
