// Calendar pages as lines of text.
#include <fribidi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "rtl/Utf8.h"
#include "tools/orv/date/Months.h"

namespace orv::date {
namespace {

constexpr char16_t LeftToRightMark = u'\u200E';
constexpr std::size_t WideCell = 4;
constexpr std::int32_t NoDay = 0;

const TCalendar& Of(std::string_view name) {
  return *FindCalendar(name);
}

rtl::UnicodeString WithoutMarks(rtl::UnicodeString line) {
  std::erase(line, LeftToRightMark);
  return line;
}

// What a terminal that reorders text shows in a left-to-right line, by the Unicode algorithm of another library.
rtl::UnicodeString Reordered(const rtl::UnicodeString& line) {
  std::vector<FriBidiChar> text(line.begin(), line.end());
  const auto length = static_cast<FriBidiStrIndex>(text.size());
  std::vector<FriBidiCharType> types(text.size());
  std::vector<FriBidiBracketType> brackets(text.size());
  std::vector<FriBidiLevel> levels(text.size());
  FriBidiParType direction = FRIBIDI_PAR_LTR;
  fribidi_get_bidi_types(text.data(), length, types.data());
  fribidi_get_bracket_types(text.data(), length, types.data(), brackets.data());
  const FriBidiLevel found =
      fribidi_get_par_embedding_levels_ex(types.data(), brackets.data(), length, &direction, levels.data());
  EXPECT_GT(found, 0);
  fribidi_shape_mirroring(levels.data(), length, text.data());
  EXPECT_GT(fribidi_reorder_line(FRIBIDI_FLAGS_DEFAULT, types.data(), length, 0, direction, levels.data(), text.data(),
                                 nullptr),
            0);
  rtl::UnicodeString shown;
  for (const FriBidiChar c : text) shown += static_cast<char16_t>(c);
  return shown;
}

rtl::UnicodeString GridOf(const rtl::UnicodeString& line) {
  return WithoutMarks(line).substr(0, 7 * WideCell + 1);
}

// The number that stands in the cell of a day of the week, 0 where none does.
int NumberIn(const TCalendar& calendar, const rtl::UnicodeString& grid, int column) {
  const int place = calendar.RightToLeft ? 6 - column : column;
  int number = 0;
  for (std::size_t i = 0; i < WideCell; ++i) {
    const std::size_t at = static_cast<std::size_t>(place) * WideCell + i;
    const char16_t c = at < grid.size() ? grid[at] : u' ';
    if (c >= calendar.ZeroDigit && c <= calendar.ZeroDigit + 9) number = number * 10 + (c - calendar.ZeroDigit);
  }
  return number;
}

TEST(CalendarPages, EveryDayOfAMonthStandsUnderItsDayOfTheWeek) {
  const std::map<std::string_view, std::int32_t> years = {{"jalali", 1403}, {"hijri", 1446},  {"gregorian", 2024},
                                                          {"julian", 2024}, {"hebrew", 5784}, {"republican", 231}};
  for (const TCalendar& calendar : Calendars())
    for (std::int32_t month = 1; month <= 13; ++month) {
      const std::int32_t year = years.at(calendar.Name);
      const auto page = PageOfMonth(calendar, year, month, NoDay);
      if (!page) continue;
      const std::int32_t first = *DayOfDate(calendar, {year, month, 1});
      std::vector<int> seen;
      const auto lines = MonthLines(*page);
      for (std::size_t line = 2; line < lines.size(); ++line)
        for (int column = 0; column < 7; ++column)
          if (const int number = NumberIn(calendar, GridOf(lines[line]), column); number > 0) {
            seen.push_back(number);
            ASSERT_EQ(WeekDayOfDay(first + number - 1), (calendar.FirstDayOfWeek + column) % 7)
                << calendar.Name << " " << month << " " << number;
          }
      std::vector<int> expected;
      for (int day = 1; day <= page->Days; ++day) expected.push_back(day);
      ASSERT_EQ(seen, expected) << calendar.Name << " " << month;
    }
}

TEST(CalendarPages, TerminalsThatReorderTextLeaveTheColumnsAlone) {
  for (const TCalendar& calendar : Calendars()) {
    if (!calendar.RightToLeft) continue;
    const std::int32_t today = *DayOfDate(Of("gregorian"), {2025, 3, 30});
    const TDayDate date = *DateOfDay(calendar, today);
    const auto page = PageOfMonth(calendar, date.Year, date.Month, today);
    ASSERT_TRUE(page && page->Today);
    const auto lines = MonthLines(*page);
    for (std::size_t line = 1; line < lines.size(); ++line)
      EXPECT_EQ(rtl::ToUtf8(GridOf(Reordered(lines[line]))), rtl::ToUtf8(GridOf(lines[line])))
          << calendar.Name << " line " << line;
    const auto year = YearLines(u"", PagesOfYear(calendar, date.Year, today));
    int grids = 0;
    for (const auto& line : year) {
      if (line.find(calendar.ZeroDigit) == line.npos) continue;
      ++grids;
      EXPECT_EQ(rtl::ToUtf8(WithoutMarks(Reordered(line))), rtl::ToUtf8(WithoutMarks(line))) << calendar.Name;
    }
    EXPECT_GT(grids, 4);
  }
}

TEST(CalendarPages, TheOracleDoesReorderALineWithoutMarks) {
  EXPECT_EQ(Reordered(u"ج پ چ"), u"چ پ ج");
  EXPECT_EQ(Reordered(u"٣ ٢ ١"), u"١ ٢ ٣");
}

TEST(CalendarPages, NotesTellTheFirstDaysOfOtherCalendarsAndReadInOrder) {
  const auto page = PageOfMonth(Of("jalali"), 1404, 1, NoDay);
  ASSERT_TRUE(page);
  EXPECT_EQ(WithoutMarks(page->Notes[10]), u"۱۱ = شوال ١٤٤٦");
  EXPECT_EQ(WithoutMarks(page->Notes[11]), u"۱۲ = April 2025");
  int notes = 0;
  for (const auto& note : page->Notes) notes += note.empty() ? 0 : 1;
  EXPECT_EQ(notes, 2);
  // The number stays in front, the name reads from the right.
  EXPECT_EQ(WithoutMarks(Reordered(page->Notes[10])), u"۱۱ = ١٤٤٦ لاوش");
}

TEST(CalendarPages, TodayStandsInBrackets) {
  const std::int32_t today = *DayOfDate(Of("gregorian"), {2025, 3, 30});
  const auto lines = MonthLines(*PageOfMonth(Of("gregorian"), 2025, 3, today));
  EXPECT_EQ(lines[6], u"  24  25  26  27  28  29 [30]");
  EXPECT_EQ(lines[2].find(u'['), lines[2].npos);
  const auto other = PageOfMonth(Of("gregorian"), 2025, 4, today);
  EXPECT_FALSE(other->Today);
}

TEST(CalendarPages, MonthsOfAYearStandThreeInARowFromTheCalendarsSide) {
  const auto lines = YearLines(u"2025", PagesOfYear(Of("gregorian"), 2025, NoDay));
  EXPECT_LT(lines[2].find(u"January"), lines[2].find(u"March"));
  const auto persian = YearLines(u"", PagesOfYear(Of("jalali"), 1404, NoDay));
  EXPECT_GT(persian[2].find(u"فروردین"), persian[2].find(u"خرداد"));
  for (const auto& line : lines) EXPECT_LE(ColumnsOf(line), 80u);
  for (const auto& line : persian) EXPECT_LE(ColumnsOf(line), 80u);
  // A thirteenth month stands alone in its row, at the side where the year begins.
  const auto hebrew = YearLines(u"", PagesOfYear(Of("hebrew"), 5784, NoDay));
  const auto last = std::find_if(hebrew.begin(), hebrew.end(), [](const auto& l) { return l.find(u"אלול") != l.npos; });
  ASSERT_NE(last, hebrew.end());
  EXPECT_GT(last->find(u"אלול"), 50u);
}

TEST(CalendarPages, ColumnsCountWhatATerminalGivesRoomTo) {
  EXPECT_EQ(ColumnsOf(u"محرّم"), 4u);
  EXPECT_EQ(ColumnsOf(u"\u200Eab\u200C"), 2u);
  EXPECT_EQ(Digits(-12, u'۰'), u"-۱۲");
  EXPECT_EQ(AsciiDigits(u"۱۴٠٤/1"), u"1404/1");
}

TEST(CalendarList, DaysAndDatesGoThereAndBack) {
  for (const TCalendar& calendar : Calendars())
    for (std::int32_t day = 2400000; day < 2500000; day += 13) {
      const auto date = DateOfDay(calendar, day);
      if (!date) continue;  // the republican calendar begins later
      ASSERT_EQ(DayOfDate(calendar, *date), day) << calendar.Name;
      ASSERT_FALSE(MonthName(calendar, date->Year, date->Month).empty());
    }
  EXPECT_FALSE(DayOfDate(Of("jalali"), {1404, 12, 30}));
  EXPECT_FALSE(DayOfDate(Of("jalali"), {1404, 13, 1}));
  EXPECT_FALSE(DayOfDate(Of("jalali"), {5000, 1, 1}));
  EXPECT_FALSE(DayOfDate(Of("hebrew"), {5785, 7, 1}));  // no leap year
  EXPECT_TRUE(DayOfDate(Of("hebrew"), {5784, 7, 1}));
}

TEST(CalendarList, NamesInAnyCaseAndTheirOthers) {
  EXPECT_EQ(FindCalendar("Persian"), FindCalendar("jalali"));
  EXPECT_EQ(FindCalendar("ISLAMIC"), FindCalendar("hijri"));
  EXPECT_EQ(FindCalendar(""), nullptr);
  EXPECT_EQ(FindCalendar(" "), nullptr);
  EXPECT_EQ(FindCalendar("persian shamsi"), nullptr);
  EXPECT_EQ(FindCalendar("lunisolar"), nullptr);
}

TEST(CalendarList, LongTexts) {
  constexpr std::int32_t newYear = 2460756;  // 21 March 2025
  EXPECT_EQ(LongText(Of("jalali"), newYear, {}), u"جمعه ۱ فروردین ۱۴۰۴");
  EXPECT_EQ(LongText(Of("hijri"), newYear, {}), u"الجمعة ٢١ رمضان ١٤٤٦");
  EXPECT_EQ(LongText(Of("gregorian"), newYear, {}), u"Friday, 21 March 2025");
  EXPECT_EQ(LongText(Of("gregorian"), newYear, u"fa"), u"جمعه 21 مارس 2025");
  EXPECT_EQ(LongText(Of("julian"), newYear, {}), u"Friday, 8 March 2025");
  EXPECT_EQ(LongText(Of("hebrew"), newYear, {}), u"יום שישי 21 אדר 5785");
  EXPECT_EQ(LongText(Of("republican"), newYear, {}), u"Friday 1 Germinal 233");
  EXPECT_EQ(MonthName(Of("hebrew"), 5784, 6), u"אדר א׳");
  EXPECT_EQ(MonthName(Of("hebrew"), 5784, 7), u"אדר ב׳");
  EXPECT_EQ(MonthName(Of("hebrew"), 5785, 7), u"");
}

}  // namespace
}  // namespace orv::date
