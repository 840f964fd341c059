#include "tools/orv/date/Months.h"

#include "rtl/Utf8.h"

namespace orv::date {
namespace {

constexpr std::int32_t MostMonths = 13;
constexpr char16_t LeftToRightMark = u'\u200E';

std::vector<const TCalendar*> OtherChiefs(const TCalendar& calendar) {
  std::vector<const TCalendar*> others;
  for (const TCalendar& other : Calendars().first(ChiefCalendarCount))
    if (&other != &calendar) others.push_back(&other);
  return others;
}

int DaysFrom(const TCalendar& calendar, std::int32_t first, std::int32_t month) {
  int days = 1;
  for (auto date = DateOfDay(calendar, first + days); date && date->Month == month;
       date = DateOfDay(calendar, first + days))
    ++days;
  return days;
}

// "12 = April 2025": on the twelfth of the page, April begins. The name stands last, so that its direction moves
// nothing.
rtl::UnicodeString NoteOf(const TCalendar& calendar, std::int32_t day, int number) {
  rtl::UnicodeString note;
  for (const TCalendar* other : OtherChiefs(calendar)) {
    const auto date = DateOfDay(*other, day);
    if (!date || date->Day != 1) continue;
    if (!note.empty()) note += u"   ";
    note += LeftToRightMark + Digits(number, calendar.ZeroDigit) + u" = " + MonthName(*other, date->Year, date->Month) +
            u' ' + Digits(date->Year, other->ZeroDigit);
  }
  return note;
}

TMonthPage BarePage(const TCalendar& calendar, const TDayDate& first, std::int32_t day, std::int32_t today) {
  TMonthPage page;
  page.Title = MonthName(calendar, first.Year, first.Month) + u' ' + Digits(first.Year, calendar.ZeroDigit);
  for (std::size_t i = 0; i < page.DayInitials.size(); ++i)
    page.DayInitials[i] = calendar.DayInitials[(i + static_cast<std::size_t>(calendar.FirstDayOfWeek)) % 7];
  page.FirstColumn = (WeekDayOfDay(day) - calendar.FirstDayOfWeek + 7) % 7;
  page.Days = DaysFrom(calendar, day, first.Month);
  if (today >= day && today < day + page.Days) page.Today = today - day + 1;
  page.RightToLeft = calendar.RightToLeft;
  page.ZeroDigit = calendar.ZeroDigit;
  return page;
}

}  // namespace

std::optional<TMonthPage> PageOfMonth(const TCalendar& calendar, std::int32_t year, std::int32_t month,
                                      std::int32_t today) {
  const TDayDate first = {year, month, 1};
  const auto day = DayOfDate(calendar, first);
  if (!day) return std::nullopt;
  TMonthPage page = BarePage(calendar, first, *day, today);
  for (int number = 1; number <= page.Days; ++number) page.Notes.push_back(NoteOf(calendar, *day + number - 1, number));
  return page;
}

std::vector<TMonthPage> PagesOfYear(const TCalendar& calendar, std::int32_t year, std::int32_t today) {
  std::vector<TMonthPage> pages;
  for (std::int32_t month = 1; month <= MostMonths; ++month) {
    const TDayDate first = {year, month, 1};
    const auto day = DayOfDate(calendar, first);
    if (!day) continue;
    TMonthPage page = BarePage(calendar, first, *day, today);
    page.Title = MonthName(calendar, year, month);
    for (const TCalendar* other : OtherChiefs(calendar))
      if (const auto date = DateOfDay(*other, *day)) page.Subtitles.push_back(rtl::FromUtf8(Numbers(*date)));
    pages.push_back(std::move(page));
  }
  return pages;
}

}  // namespace orv::date
