// orv date: a day in every calendar.
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "rtl/Utf8.h"
#include "tools/orv/Commands.h"
#include "tools/orv/date/Arguments.h"

namespace orv::command {
namespace {

using date::TCalendar;

struct TArguments {
  std::string Date;
  std::string From;
  std::string To;
  std::string Format;
  bool HasFormat = false;
  std::string Locale;
  std::string Today;
};

// What is asked, with every argument understood.
struct TQuestion {
  std::int32_t Day = 0;
  std::vector<const TCalendar*> Calendars;
  bool All = false;
  std::optional<rtl::UnicodeString> Format;
  rtl::UnicodeString Locale;
};

std::vector<const TCalendar*> AllCalendars(bool withFormatOnly) {
  std::vector<const TCalendar*> calendars;
  for (const TCalendar& calendar : date::Calendars())
    if (!withFormatOnly || date::HasFormat(calendar)) calendars.push_back(&calendar);
  return calendars;
}

TQuestion Understand(const TArguments& arguments) {
  TQuestion question;
  const TCalendar* from = arguments.From.empty() ? nullptr : &date::CalendarOf("--from", arguments.From);
  question.All = arguments.To.empty();
  if (arguments.HasFormat) question.Format = date::TextOf("--format", arguments.Format);
  question.Calendars = question.All ? AllCalendars(arguments.HasFormat) : date::CalendarsOf("--to", arguments.To);
  for (const TCalendar* calendar : question.Calendars)
    if (arguments.HasFormat && !date::HasFormat(*calendar))
      throw CLI::ValidationError("--format", "the " + std::string(calendar->Name) + " calendar has no formats");
  question.Locale = date::LocaleOf("--locale", arguments.Locale);
  const std::int32_t today = date::TodayOf("--today", arguments.Today);
  question.Day = arguments.Date.empty() ? today : date::DayOf("DATE", arguments.Date, from);
  return question;
}

constexpr std::size_t NameColumns = 12;
constexpr std::size_t NumberColumns = 13;

std::string Padded(std::string_view text, std::size_t columns) {
  std::string padded(text);
  padded.resize(std::max(columns, padded.size() + 1), ' ');
  return padded;
}

std::string LineOf(const TQuestion& question, const TCalendar& calendar) {
  const bool named = question.All || question.Calendars.size() > 1;
  std::string line = named ? Padded(calendar.Name, NameColumns) : std::string();
  if (question.Format)
    return line + rtl::ToUtf8(date::FormattedText(calendar, question.Day, *question.Format, question.Locale));
  const auto numbers = date::DateOfDay(calendar, question.Day);
  if (!numbers) return line + "(outside its years)";
  return line + Padded(date::Numbers(*numbers), NumberColumns) +
         rtl::ToUtf8(date::LongText(calendar, question.Day, question.Locale));
}

void Run(const TArguments& arguments) {
  const TQuestion question = Understand(arguments);
  std::string output;
  for (const TCalendar* calendar : question.Calendars) output += LineOf(question, *calendar) + '\n';
  if (question.All && !question.Format) output += Padded("day", NameColumns) + std::to_string(question.Day) + '\n';
  std::cout << output;
}

}  // namespace

void AddDateCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("date", "Show a day in every calendar");
  command->footer("Calendars: " + date::CalendarNames() +
                  "\n"
                  "(also persian, islamic, jewish). hijri is the tabular Islamic calendar, day the Julian Day Number.\n"
                  "\n"
                  "Examples:\n"
                  "  orv date\n"
                  "  orv date 1404/1/1\n"
                  "  orv date 2025-03-21 --to jalali --format yyyy/mm/dd\n"
                  "  orv date 1446/9/1 --from hijri --to gregorian,jalali --locale de");
  const auto arguments = std::make_shared<TArguments>();
  command->add_option("DATE", arguments->Date, "Year, month and day, as in 1404/1/1 or 2025-03-21; today by default")
      ->type_name("");
  command
      ->add_option("--from", arguments->From,
                   "Calendar of DATE; by default gregorian from year 1700 on, and jalali before")
      ->type_name("CAL");
  command->add_option("--to", arguments->To, "Calendars to show, with commas between them; all by default")
      ->type_name("CAL,...");
  CLI::Option* format =
      command->add_option("--format", arguments->Format, "Format to write by, as in dddd d mmmm yyyy")->type_name("F");
  command->add_option("--locale", arguments->Locale, "Language of the Gregorian names, as in fr-CA")->type_name("L");
  command->add_option("--today", arguments->Today, "Gregorian date to take for today")->type_name("DATE");
  command->callback([arguments, format] {
    arguments->HasFormat = format->count() > 0;
    Run(*arguments);
  });
}

}  // namespace orv::command
