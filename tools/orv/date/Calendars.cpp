#include "tools/orv/date/Calendars.h"

#include <cstdio>
#include <memory>

#include "calendar/Orv.Date.Factory.h"
#include "rtl/DateTimeText.h"
#include "tools/orv/date/Page.h"

namespace orv::date {
namespace {

constexpr std::int32_t JulianDayOfDateTime0 = 2415019;
constexpr char16_t PersianZero = u'\u06F0';
constexpr char16_t ArabicZero = u'\u0660';

using TInitials = std::array<std::u16string_view, 7>;
constexpr TInitials EnglishInitials = {u"Su", u"Mo", u"Tu", u"We", u"Th", u"Fr", u"Sa"};
constexpr TInitials PersianInitials = {u"ی", u"د", u"س", u"چ", u"پ", u"ج", u"ش"};
constexpr TInitials ArabicInitials = {u"ح", u"ن", u"ث", u"ر", u"خ", u"ج", u"س"};
constexpr TInitials HebrewInitials = {u"א", u"ב", u"ג", u"ד", u"ה", u"ו", u"ש"};

constexpr int Sunday = 0, Monday = 1, Saturday = 6;

constexpr TCalendar Table[] = {
    {"jalali", " persian shamsi ", ckJalali, u"Jalali", Saturday, true, PersianZero, PersianInitials},
    {"hijri", " islamic ghamari ", ckIslamic, u"IslamicTabular", Saturday, true, ArabicZero, ArabicInitials},
    {"gregorian", " miladi ", ckGregorian, u"Gregorian", Monday, false, u'0', EnglishInitials},
    {"julian", " ", ckJulian, {}, Monday, false, u'0', EnglishInitials},
    {"hebrew", " jewish ", ckHebrew, {}, Sunday, true, u'0', HebrewInitials},
    {"republican", " ", ckThirtyDays, {}, Monday, false, u'0', EnglishInitials}};

// Month 7 is there in leap years alone, and month 6 then has another name.
constexpr std::u16string_view HebrewMonths[] = {u"תשרי", u"חשוון", u"כסלו",  u"טבת",  u"שבט", u"אדר", u"אדר ב׳",
                                                u"ניסן", u"אייר",  u"סיוון", u"תמוז", u"אב",  u"אלול"};
constexpr std::u16string_view FirstAdar = u"אדר א׳";

constexpr std::u16string_view RepublicanMonths[] = {u"Vendémiaire",
                                                    u"Brumaire",
                                                    u"Frimaire",
                                                    u"Nivôse",
                                                    u"Pluviôse",
                                                    u"Ventôse",
                                                    u"Germinal",
                                                    u"Floréal",
                                                    u"Prairial",
                                                    u"Messidor",
                                                    u"Thermidor",
                                                    u"Fructidor",
                                                    u"jours complémentaires"};

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  return lower;
}

// Julian dates use the names of the Gregorian calculator.
std::u16string_view CalculatorFor(const TCalendar& calendar) {
  return calendar.Kind == ckJulian ? u"Gregorian" : calendar.Calculator;
}

std::unique_ptr<TOrvCalendarCalc> MakeCalculator(const TCalendar& calendar, std::u16string_view locale) {
  return TOrvCalendarCalcFactory::Current().CreateCalendar(CalculatorFor(calendar), locale);
}

// The numbers of a date as the calculators take them. Years beyond a word have none.
std::optional<rtl::TDateParts> Words(const TDayDate& date) {
  if (date.Year < 0 || date.Year > 0xFFFF) return std::nullopt;
  return rtl::TDateParts{static_cast<std::uint16_t>(date.Year), static_cast<std::uint16_t>(date.Month),
                         static_cast<std::uint16_t>(date.Day)};
}

rtl::UnicodeString DayMonthYear(const TCalendar& calendar, const TDayDate& date) {
  return Digits(date.Day, calendar.ZeroDigit) + u' ' + MonthName(calendar, date.Year, date.Month) + u' ' +
         Digits(date.Year, calendar.ZeroDigit);
}

rtl::UnicodeString WeekDayName(const TCalendar& calendar, int weekDay) {
  const bool hebrew = calendar.Kind == ckHebrew;
  if (CalculatorFor(calendar).empty()) {
    const rtl::TFormatSettings settings = rtl::TFormatSettings::Create(hebrew ? u"he" : u"");
    return rtl::UnicodeString(settings.LongDayNames[weekDay + 1]);
  }
  return rtl::UnicodeString(MakeCalculator(calendar, {})->FormatSettings.LongDayNames[weekDay + 1]);
}

bool HasMonth(const TCalendar& calendar, std::int32_t year, std::int32_t month) {
  return DayOfDate(calendar, {year, month, 1}).has_value();
}

}  // namespace

std::span<const TCalendar> Calendars() {
  return Table;
}

const TCalendar* FindCalendar(std::string_view name) {
  const std::string wanted = Lower(name);
  if (wanted.empty() || wanted.find(' ') != wanted.npos) return nullptr;
  for (const TCalendar& calendar : Table)
    if (calendar.Name == wanted || calendar.OtherNames.find(" " + wanted + " ") != std::string_view::npos)
      return &calendar;
  return nullptr;
}

std::string CalendarNames() {
  std::string names;
  for (const TCalendar& calendar : Table) names.append(names.empty() ? "" : ", ").append(calendar.Name);
  return names;
}

std::optional<std::int32_t> DayOfDate(const TCalendar& calendar, const TDayDate& date) {
  const std::int32_t day = DMYToDay(date.Day, date.Month, date.Year, calendar.Kind);
  if (day == 0 || DateOfDay(calendar, day) != date) return std::nullopt;
  return day;
}

std::optional<TDayDate> DateOfDay(const TCalendar& calendar, std::int32_t day) {
  const TDayMonthYear date = DayToDMY(day, calendar.Kind);
  if (date.Day < 1 || date.Month < 1) return std::nullopt;
  return TDayDate{date.Year, date.Month, date.Day};
}

int WeekDayOfDay(std::int32_t day) {
  return static_cast<int>(((std::int64_t{day} + 1) % 7 + 7) % 7);
}

rtl::TDateTime DateTimeOfDay(std::int32_t day) {
  return static_cast<rtl::TDateTime>(day) - JulianDayOfDateTime0;
}

std::int32_t DayOfDateTime(rtl::TDateTime value) {
  return rtl::DayNumberOf(value) - rtl::DateDelta + JulianDayOfDateTime0;
}

rtl::UnicodeString MonthName(const TCalendar& calendar, std::int32_t year, std::int32_t month) {
  if (!HasMonth(calendar, year, month)) return {};
  const auto index = static_cast<std::size_t>(month) - 1;
  if (calendar.Kind == ckHebrew)
    return rtl::UnicodeString(month == 6 && HasMonth(calendar, year, 7) ? FirstAdar : HebrewMonths[index]);
  if (calendar.Kind == ckThirtyDays) return rtl::UnicodeString(RepublicanMonths[index]);
  return rtl::UnicodeString(MakeCalculator(calendar, {})->FormatSettings.LongMonthNames[month]);
}

rtl::UnicodeString LongText(const TCalendar& calendar, std::int32_t day, std::u16string_view locale) {
  const auto date = DateOfDay(calendar, day);
  if (!date) return {};
  const bool gregorian = calendar.Kind == ckGregorian;
  if (gregorian && !locale.empty()) {
    const rtl::TFormatSettings settings = rtl::TFormatSettings::Create(locale);
    return rtl::FormatDateTime(settings.LongDateFormat, DateTimeOfDay(day), settings);
  }
  const bool english = gregorian || calendar.Kind == ckJulian;
  return WeekDayName(calendar, WeekDayOfDay(day)) + (english ? u", " : u" ") + DayMonthYear(calendar, *date);
}

bool HasFormat(const TCalendar& calendar) {
  return !CalculatorFor(calendar).empty();
}

rtl::UnicodeString FormattedText(const TCalendar& calendar, std::int32_t day, std::u16string_view format,
                                 std::u16string_view locale) {
  const auto date = DateOfDay(calendar, day);
  const auto words = date ? Words(*date) : std::nullopt;
  if (!words || !HasFormat(calendar)) return {};
  const auto dow = static_cast<TDayOfWeek>(WeekDayOfDay(day));
  return MakeCalculator(calendar, locale)->FormatDateTimeFullToString(format, {*words, {}}, dow, true);
}

std::string Numbers(const TDayDate& date) {
  char text[48];
  std::snprintf(text, sizeof text, "%04d/%02d/%02d", date.Year, date.Month, date.Day);
  return text;
}

}  // namespace orv::date
