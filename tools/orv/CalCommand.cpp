// orv cal: a month or a year as a calendar page.
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "rtl/Utf8.h"
#include "tools/orv/Commands.h"
#include "tools/orv/date/Arguments.h"
#include "tools/orv/date/Months.h"

namespace orv::command {
namespace {

using date::TCalendar;

constexpr std::int32_t MostMonths = 13;
constexpr std::size_t LeastLettersOfName = 3;

struct TArguments {
  std::string First;   // MONTH, or YEAR where it stands alone
  std::string Second;  // YEAR
  std::string Calendar = "jalali";
  bool WholeYear = false;
  std::string Today;
};

// A month of a year, or the whole of it.
struct TWanted {
  std::optional<std::int32_t> Month;
  std::int32_t Year = 0;
};

rtl::UnicodeString Lower(rtl::UnicodeString text) {
  for (char16_t& c : text)
    if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c + 32);
  return text;
}

// A month by its name in the calendar, or by the first letters of it.
std::optional<std::int32_t> MonthNamed(const TCalendar& calendar, std::int32_t year, const rtl::UnicodeString& text) {
  const rtl::UnicodeString wanted = Lower(text);
  for (std::int32_t month = 1; month <= MostMonths; ++month) {
    const rtl::UnicodeString name = Lower(date::MonthName(calendar, year, month));
    if (!name.empty() && name == wanted) return month;
  }
  for (std::int32_t month = 1; month <= MostMonths && wanted.size() >= LeastLettersOfName; ++month)
    if (Lower(date::MonthName(calendar, year, month)).starts_with(wanted)) return month;
  return std::nullopt;
}

std::int32_t YearOf(const std::string& text) {
  const rtl::UnicodeString written = date::TextOf("YEAR", text);
  const bool negative = written.starts_with(u'-');
  if (const auto year = date::NumberOf(negative ? written.substr(1) : written)) return negative ? -*year : *year;
  throw CLI::ValidationError("YEAR", "'" + text + "' is no year");
}

std::int32_t MonthOf(const TCalendar& calendar, std::int32_t year, const std::string& text) {
  const rtl::UnicodeString written = date::TextOf("MONTH", text);
  const auto number = date::NumberOf(written);
  const auto month = number ? number : MonthNamed(calendar, year, written);
  if (month && *month >= 1 && *month <= MostMonths) return *month;
  throw CLI::ValidationError("MONTH", "'" + text + "' is no month of the " + std::string(calendar.Name) + " calendar");
}

bool IsYearAlone(const std::string& text) {
  const auto number = date::NumberOf(date::TextOf("MONTH", text));
  return number && *number > MostMonths;
}

TWanted Understand(const TArguments& arguments, const TCalendar& calendar, std::int32_t today) {
  const auto present = date::DateOfDay(calendar, today);
  if (!present) throw CLI::ValidationError("--today", "the calendar does not reach that day");
  if (arguments.WholeYear) {
    if (!arguments.Second.empty()) throw CLI::ValidationError("--year", "give the year alone, without a month");
    return {std::nullopt, arguments.First.empty() ? present->Year : YearOf(arguments.First)};
  }
  if (arguments.First.empty()) return {present->Month, present->Year};
  if (arguments.Second.empty() && IsYearAlone(arguments.First)) return {std::nullopt, YearOf(arguments.First)};
  const std::int32_t year = arguments.Second.empty() ? present->Year : YearOf(arguments.Second);
  return {MonthOf(calendar, year, arguments.First), year};
}

[[noreturn]] void RefuseYear(const TCalendar& calendar, std::int32_t year) {
  throw CLI::ValidationError("YEAR",
                             std::to_string(year) + " lies outside the " + std::string(calendar.Name) + " calendar");
}

std::vector<rtl::UnicodeString> LinesOf(const TCalendar& calendar, const TWanted& wanted, std::int32_t today) {
  if (!date::DayOfDate(calendar, {wanted.Year, 1, 1})) RefuseYear(calendar, wanted.Year);
  if (!wanted.Month)
    return date::YearLines(date::Digits(wanted.Year, calendar.ZeroDigit),
                           date::PagesOfYear(calendar, wanted.Year, today));
  const auto page = date::PageOfMonth(calendar, wanted.Year, *wanted.Month, today);
  if (page) return date::MonthLines(*page);
  throw CLI::ValidationError("MONTH", "the " + std::string(calendar.Name) + " year " + std::to_string(wanted.Year) +
                                          " has no month " + std::to_string(*wanted.Month));
}

void Run(const TArguments& arguments) {
  const TCalendar& calendar = date::CalendarOf("--calendar", arguments.Calendar);
  const std::int32_t today = date::TodayOf("--today", arguments.Today);
  std::string output;
  for (const rtl::UnicodeString& line : LinesOf(calendar, Understand(arguments, calendar, today), today))
    output += rtl::ToUtf8(line) + '\n';
  std::cout << output;
}

}  // namespace

void AddCalCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("cal", "Show a month or a year as a calendar page");
  command->footer(
      "Calendars: " + date::CalendarNames() +
      "\n"
      "The margin of a month tells on which days months of the other chief calendars begin; in a year, the lines\n"
      "under a month are its first day in them. Today stands in brackets.\n"
      "\n"
      "Examples:\n"
      "  orv cal\n"
      "  orv cal 7 1404\n"
      "  orv cal مهر\n"
      "  orv cal 2025 -c gregorian\n"
      "  orv cal -y -c hijri");
  const auto arguments = std::make_shared<TArguments>();
  command
      ->add_option("MONTH", arguments->First,
                   "Number or name of a month; this month by default. Alone, a number above 13 is a year")
      ->type_name("");
  command->add_option("YEAR", arguments->Second, "Year of the month; this year by default")->type_name("");
  command->add_option("-c,--calendar", arguments->Calendar, "Calendar of the page")
      ->type_name("CAL")
      ->capture_default_str();
  command->add_flag("-y,--year", arguments->WholeYear, "Show the whole year");
  command->add_option("--today", arguments->Today, "Gregorian date to take for today")->type_name("DATE");
  command->callback([arguments] { Run(*arguments); });
}

}  // namespace orv::command
