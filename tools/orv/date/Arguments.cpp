#include "tools/orv/date/Arguments.h"

#include <CLI/CLI.hpp>

#include "platform/IcuLocale.h"
#include "rtl/Clock.h"
#include "rtl/Utf8.h"
#include "tools/orv/date/Page.h"

namespace orv::date {
namespace {

constexpr std::int32_t FirstGregorianYear = 1700;  // of dates that do not say their calendar
constexpr std::int32_t LastYear = 99999;

[[noreturn]] void Refuse(const std::string& argument, const std::string& message) {
  throw CLI::ValidationError(argument, message);
}

std::string Quoted(const std::string& text) {
  return "'" + text + "'";
}

// Year, month and day; nothing where the text is written in another way.
std::optional<TDayDate> DateWritten(const rtl::UnicodeString& text) {
  const rtl::UnicodeString ascii = AsciiDigits(text);
  const bool negative = !ascii.empty() && ascii[0] == u'-';
  std::array<std::int32_t, 3> numbers = {};
  std::size_t at = negative ? 1 : 0;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const std::size_t end = i < 2 ? ascii.find_first_of(u"/-.", at) : ascii.size();
    if (end == ascii.npos) return std::nullopt;
    const auto number = NumberOf(ascii.substr(at, end - at));
    if (!number) return std::nullopt;
    numbers[i] = *number;
    at = end + 1;
  }
  return TDayDate{negative ? -numbers[0] : numbers[0], numbers[1], numbers[2]};
}

const TCalendar& ByYear(std::int32_t year) {
  return *FindCalendar(year >= FirstGregorianYear ? "gregorian" : "jalali");
}

}  // namespace

rtl::UnicodeString TextOf(const std::string& argument, const std::string& text) {
  rtl::UnicodeString converted = rtl::FromUtf8(text);
  if (rtl::ToUtf8(converted) != text) Refuse(argument, "it is not UTF-8");
  return converted;
}

const TCalendar& CalendarOf(const std::string& argument, const std::string& name) {
  if (const TCalendar* calendar = FindCalendar(name)) return *calendar;
  Refuse(argument, "there is no calendar " + Quoted(name) + "; known are " + CalendarNames());
}

std::vector<const TCalendar*> CalendarsOf(const std::string& argument, const std::string& names) {
  std::vector<const TCalendar*> calendars;
  std::size_t at = 0;
  while (at <= names.size()) {
    const std::size_t end = std::min(names.find(',', at), names.size());
    calendars.push_back(&CalendarOf(argument, names.substr(at, end - at)));
    at = end + 1;
  }
  return calendars;
}

std::optional<std::int32_t> NumberOf(const rtl::UnicodeString& text) {
  const rtl::UnicodeString ascii = AsciiDigits(text);
  std::int32_t number = 0;
  for (const char16_t c : ascii) {
    if (c < u'0' || c > u'9') return std::nullopt;
    number = number * 10 + (c - u'0');
    if (number > LastYear) return std::nullopt;
  }
  return ascii.empty() ? std::nullopt : std::optional(number);
}

std::int32_t DayOf(const std::string& argument, const std::string& text, const TCalendar*& calendar) {
  const auto date = DateWritten(TextOf(argument, text));
  if (!date) Refuse(argument, Quoted(text) + " is no date; write year/month/day, as in 1404/1/1");
  if (calendar == nullptr) calendar = &ByYear(date->Year);
  if (const auto day = DayOfDate(*calendar, *date)) return *day;
  Refuse(argument, "the " + std::string(calendar->Name) + " calendar has no day " + Quoted(text));
}

std::int32_t TodayOf(const std::string& argument, const std::string& text) {
  if (text.empty()) return DayOfDateTime(rtl::Today());
  const TCalendar* gregorian = FindCalendar("gregorian");
  return DayOf(argument, text, gregorian);
}

rtl::UnicodeString LocaleOf(const std::string& argument, const std::string& text) {
  if (text.empty()) return {};
  static const platform::TIcuLocaleSource source;
  rtl::SetLocaleSource(&source);
  rtl::UnicodeString name = TextOf(argument, text);
  if (!source.FindLocale(name)) Refuse(argument, "there is no locale " + Quoted(text));
  return name;
}

}  // namespace orv::date
