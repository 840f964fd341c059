// The locales that the library knows by itself. Names, patterns and signs: Unicode Common Locale Data Repository,
// release 42, Gregorian calendar, patterns in the letters of the format record.
#include <algorithm>

#include "rtl/FormatSettings.h"

namespace rtl {
namespace {

TFormatSettings EnglishUnitedStates() {
  TFormatSettings s;
  s.CurrencyString = u"$";
  s.ShortDateFormat = u"m/d/yyyy";
  s.LongDateFormat = u"dddd, mmmm d, yyyy";
  s.ShortTimeFormat = u"h:nn ampm";
  s.LongTimeFormat = u"h:nn:ss ampm";
  s.NegCurrFormat = 1;
  return s;
}

TFormatSettings Persian() {
  TFormatSettings s;
  s.CurrencyString = u"ریال";
  s.CurrencyDecimals = 0;
  s.ListSeparator = u'؛';
  s.ShortDateFormat = u"yyyy/m/d";
  s.LongDateFormat = u"dddd d mmmm yyyy";
  s.TimeAMString = u"قبل\u200Cازظهر";
  s.TimePMString = u"بعدازظهر";
  s.ShortTimeFormat = u"h:nn";
  s.LongTimeFormat = u"h:nn:ss";
  s.LongMonthNames = {{u"ژانویه", u"فوریه", u"مارس", u"آوریل", u"مه", u"ژوئن", u"ژوئیه", u"اوت", u"سپتامبر", u"اکتبر",
                       u"نوامبر", u"دسامبر"}};
  s.ShortMonthNames = s.LongMonthNames;
  s.LongDayNames = {{u"یکشنبه", u"دوشنبه", u"سه\u200Cشنبه", u"چهارشنبه", u"پنجشنبه", u"جمعه", u"شنبه"}};
  s.ShortDayNames = s.LongDayNames;
  s.ThousandSeparator = u'\u066C';
  s.DecimalSeparator = u'\u066B';
  s.NegCurrFormat = 1;
  return s;
}

TFormatSettings Arabic() {
  TFormatSettings s;
  s.CurrencyFormat = 3;
  s.ListSeparator = u'؛';
  s.ShortDateFormat = u"d/m/yyyy";
  s.LongDateFormat = u"dddd، d mmmm yyyy";
  s.TimeAMString = u"ص";
  s.TimePMString = u"م";
  s.ShortTimeFormat = u"h:nn ampm";
  s.LongTimeFormat = u"h:nn:ss ampm";
  s.LongMonthNames = {{u"يناير", u"فبراير", u"مارس", u"أبريل", u"مايو", u"يونيو", u"يوليو", u"أغسطس", u"سبتمبر",
                       u"أكتوبر", u"نوفمبر", u"ديسمبر"}};
  s.ShortMonthNames = s.LongMonthNames;
  s.LongDayNames = {{u"الأحد", u"الاثنين", u"الثلاثاء", u"الأربعاء", u"الخميس", u"الجمعة", u"السبت"}};
  s.ShortDayNames = s.LongDayNames;
  s.ThousandSeparator = u'\u066C';
  s.DecimalSeparator = u'\u066B';
  s.NegCurrFormat = 8;
  return s;
}

TFormatSettings Hebrew() {
  TFormatSettings s;
  s.CurrencyString = u"₪";
  s.CurrencyFormat = 3;
  s.DateSeparator = u'.';
  s.ShortDateFormat = u"d/m/yyyy";
  s.LongDateFormat = u"dddd, d בmmmm yyyy";
  s.TimeAMString = u"לפנה״צ";
  s.TimePMString = u"אחה״צ";
  s.ShortTimeFormat = u"h:nn";
  s.LongTimeFormat = u"h:nn:ss";
  s.LongMonthNames = {{u"ינואר", u"פברואר", u"מרץ", u"אפריל", u"מאי", u"יוני", u"יולי", u"אוגוסט", u"ספטמבר",
                       u"אוקטובר", u"נובמבר", u"דצמבר"}};
  s.ShortMonthNames = {
      {u"ינו׳", u"פבר׳", u"מרץ", u"אפר׳", u"מאי", u"יוני", u"יולי", u"אוג׳", u"ספט׳", u"אוק׳", u"נוב׳", u"דצמ׳"}};
  s.LongDayNames = {{u"יום ראשון", u"יום שני", u"יום שלישי", u"יום רביעי", u"יום חמישי", u"יום שישי", u"יום שבת"}};
  s.ShortDayNames = {{u"יום א׳", u"יום ב׳", u"יום ג׳", u"יום ד׳", u"יום ה׳", u"יום ו׳", u"שבת"}};
  s.NegCurrFormat = 8;
  return s;
}

struct TRow {
  std::u16string_view Name;  // lower case
  TFormatSettings (*Make)();
};

constexpr TRow Rows[] = {{u"", TFormatSettings::Invariant},
                         {u"en", EnglishUnitedStates},
                         {u"en-us", EnglishUnitedStates},
                         {u"fa", Persian},
                         {u"fa-ir", Persian},
                         {u"ar", Arabic},
                         {u"he", Hebrew}};

UnicodeString Normalized(std::u16string_view name) {
  UnicodeString out(name);
  for (char16_t& c : out) {
    if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c + 32);
    if (c == u'_') c = u'-';
  }
  return out;
}

const TRow* FindRow(std::u16string_view name) {
  const auto row = std::find_if(std::begin(Rows), std::end(Rows), [name](const TRow& r) { return r.Name == name; });
  return row == std::end(Rows) ? nullptr : row;
}

}  // namespace

std::optional<TFormatSettings> BuiltInLocale(std::u16string_view localeName) {
  const UnicodeString name = Normalized(localeName);
  const TRow* row = FindRow(name);
  if (row == nullptr) row = FindRow(std::u16string_view(name).substr(0, name.find(u'-')));
  if (row == nullptr) return std::nullopt;
  return row->Make();
}

}  // namespace rtl
