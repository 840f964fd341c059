// What the date commands read from their arguments. Raises CLI::ValidationError, naming the argument.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/orv/date/Calendars.h"

namespace orv::date {

// Text from the command line. Raises for what is not UTF-8.
rtl::UnicodeString TextOf(const std::string& argument, const std::string& text);

const TCalendar& CalendarOf(const std::string& argument, const std::string& name);
// Names with commas between them.
std::vector<const TCalendar*> CalendarsOf(const std::string& argument, const std::string& names);

// A whole number in the digits of any script.
std::optional<std::int32_t> NumberOf(const rtl::UnicodeString& text);

// A day written as year, month and day with "/", "-" or "." between them, in the digits of any script. Without a
// calendar it is a Gregorian one from year 1700 on, and a Jalali one before; calendar receives which.
std::int32_t DayOf(const std::string& argument, const std::string& text, const TCalendar*& calendar);

// The day that counts as today: the Gregorian date given, or the clock's where none is.
std::int32_t TodayOf(const std::string& argument, const std::string& text);

// A locale's name, empty where none is given. Raises for a name that no locale has.
rtl::UnicodeString LocaleOf(const std::string& argument, const std::string& text);

}  // namespace orv::date
