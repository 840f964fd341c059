// Calendar pages as lines of text for a terminal with fixed columns.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rtl/Strings.h"

namespace orv::date {

// One month, ready to be laid out.
struct TMonthPage {
  rtl::UnicodeString Title;                       // "فروردین ۱۴۰۴"
  std::vector<rtl::UnicodeString> Subtitles;      // short lines under the title of a month in a year's page
  std::array<rtl::UnicodeString, 7> DayInitials;  // in week order, at most two columns each
  int FirstColumn = 0;                            // where day 1 stands in the week, from 0
  int Days = 0;
  std::optional<int> Today;
  std::vector<rtl::UnicodeString> Notes;  // Notes[d - 1]: what the margin says beside the week of day d; may be empty
  bool RightToLeft = false;               // the week begins at the right
  char16_t ZeroDigit = u'0';
};

// The number in the digits that begin at zero.
rtl::UnicodeString Digits(std::int64_t number, char16_t zero);

// The text with every decimal digit of any script turned into an ASCII one.
rtl::UnicodeString AsciiDigits(std::u16string_view text);

// Columns that a text takes in a terminal: one for each code point that is no mark and no control.
std::size_t ColumnsOf(std::u16string_view text);

// A month with its notes in the margin: title, names of the days, one line a week. Lines carry no trailing blanks.
// Lines of a right-to-left page hold left-to-right marks, so that a terminal that reorders text leaves the columns
// alone.
std::vector<rtl::UnicodeString> MonthLines(const TMonthPage& page);

// The months of a year, three in a row, from the right in right-to-left pages; under the given title.
std::vector<rtl::UnicodeString> YearLines(const rtl::UnicodeString& title, const std::vector<TMonthPage>& months);

}  // namespace orv::date
