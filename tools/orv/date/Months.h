// The pages of a calendar's months.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "tools/orv/date/Calendars.h"
#include "tools/orv/date/Page.h"

namespace orv::date {

// The page of a month; nothing where the calendar has no such month. Days on which a month of another chief calendar
// begins carry a note.
std::optional<TMonthPage> PageOfMonth(const TCalendar& calendar, std::int32_t year, std::int32_t month,
                                      std::int32_t today);

// The pages of all months of a year, each with the dates of its first day in the other chief calendars for subtitles.
std::vector<TMonthPage> PagesOfYear(const TCalendar& calendar, std::int32_t year, std::int32_t today);

}  // namespace orv::date
