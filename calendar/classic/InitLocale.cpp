#include "calendar/classic/InitLocale.h"

#include <algorithm>

#include "calendar/classic/DTConst.h"
#include "calendar/locale/OrvConsts.ResourceStrings.h"

namespace orv {
namespace {

template <typename... TStrings>
rtl::TMonthNames MonthsOf(const TStrings&... strings) {
  return {{rtl::UnicodeString(strings.Text)...}};
}

rtl::TFormatSettings& Copy() {
  static rtl::TFormatSettings settings;
  return settings;
}

rtl::TFormatSettings& CopyFromSunday() {
  static rtl::TFormatSettings settings;
  return settings;
}

// Saturday, the first name, becomes the last one.
void BeginOnSunday(rtl::TDayNames& names) {
  std::rotate(names.Names.begin(), names.Names.begin() + 1, names.Names.end());
}

}  // namespace

const rtl::TMonthNames& JulianShortMonthNames() {
  static const rtl::TMonthNames names =
      MonthsOf(rscJan, rscFeb, rscMar, rscApr, rscMay, rscJun, rscJul, rscAug, rscSep, rscOct, rscNov, rscDec);
  return names;
}

const rtl::TMonthNames& JulianLongMonthNames() {
  static const rtl::TMonthNames names = MonthsOf(rscJanuary, rscFebruary, rscMarch, rscApril, rscMay, rscJun, rscJuly,
                                                 rscAugest, rscSeptember, rscOctober, rscNovember, rscDecember);
  return names;
}

void MakePersian(rtl::TFormatSettings& settings) {
  settings.CurrencyString = rscRial.Text;
  settings.CurrencyFormat = 2;
  settings.NegCurrFormat = 2;
  settings.ThousandSeparator = u'\u066C';
  settings.DecimalSeparator = u'.';
  settings.CurrencyDecimals = 1;
  settings.DateSeparator = u'/';
  settings.TimeSeparator = u':';
  settings.ShortDateFormat = u"yy/m/d";
  settings.LongDateFormat = u"yyyy/mmmm/d-dddd";
  settings.TimeAMString = rscMorning.Text;
  settings.TimePMString = rscAfterNoon.Text;
  settings.ShortTimeFormat = u"h:nn";
  settings.LongTimeFormat = u"h:nn ampm";
  settings.ShortMonthNames = PersianMonths();
  settings.LongMonthNames = PersianMonths();
  settings.ShortDayNames = ShortWeekDays();
  settings.LongDayNames = WeekDays();
}

void InitLocale() {
  rtl::TFormatSettings& settings = rtl::FormatSettings();
  MakePersian(settings);
  Copy() = settings;
  Copy().ThousandSeparator = u',';
  CopyFromSunday() = Copy();
  BeginOnSunday(CopyFromSunday().ShortDayNames);
  BeginOnSunday(CopyFromSunday().LongDayNames);
}

const rtl::TFormatSettings& PersianFormatSettings() {
  return Copy();
}
const rtl::TFormatSettings& PersianFormatSettingsFromSunday() {
  return CopyFromSunday();
}

}  // namespace orv
