#include "tools/orv/date/Page.h"

#include <algorithm>
#include <cstddef>

#include "rtl/Unicode.h"

namespace orv::date {
namespace {

constexpr char16_t LeftToRightMark = u'\u200E';
constexpr int DaysPerWeek = 7;
constexpr std::size_t WideCell = 4;    // of a month alone
constexpr std::size_t NarrowCell = 3;  // of a month in a year
constexpr std::size_t MonthsPerRow = 3;
constexpr std::size_t GapBetweenMonths = 3;

// A line in display order: what stands in each column. A column holds one base character with its marks.
class TLine {
 public:
  explicit TLine(std::size_t columns) : FColumns(columns, u" ") {}

  // Puts a text so that it ends before the column.
  void PutBefore(std::size_t end, std::u16string_view text) {
    std::size_t column = end - std::min(end, ColumnsOf(text));
    for (std::size_t i = 0; i < text.size(); ++i)
      if (ColumnsOf(text.substr(i, 1)) == 0 && column > 0)
        FColumns[column - 1] += text[i];
      else if (column < FColumns.size())
        FColumns[column++] = text.substr(i, 1);
  }

  // A mark behind the column keeps what stands before it in its place.
  void Anchor(std::size_t column) { FColumns[column] += LeftToRightMark; }

  rtl::UnicodeString Text() const {
    rtl::UnicodeString text;
    for (const auto& column : FColumns) text += column;
    return text;
  }

 private:
  std::vector<rtl::UnicodeString> FColumns;
};

void TrimEnd(rtl::UnicodeString& line) {
  while (!line.empty() && (line.back() == u' ' || line.back() == LeftToRightMark)) line.pop_back();
}

rtl::UnicodeString Blanks(std::size_t count) {
  return rtl::UnicodeString(count, u' ');
}

// The text in the middle of so many columns, filled up on both sides.
rtl::UnicodeString Centered(std::u16string_view text, std::size_t columns) {
  const std::size_t taken = std::min(ColumnsOf(text), columns);
  const std::size_t before = (columns - taken) / 2;
  return Blanks(before) + rtl::UnicodeString(text) + Blanks(columns - taken - before);
}

// The grid of one month in cells of one width.
class TGrid {
 public:
  TGrid(const TMonthPage& page, std::size_t cell) : FPage(page), FCell(cell) {}

  // One column more than the cells, for the bracket behind the last one.
  std::size_t Columns() const { return DaysPerWeek * FCell + 1; }
  int Weeks() const { return (FPage.FirstColumn + FPage.Days + DaysPerWeek - 1) / DaysPerWeek; }

  rtl::UnicodeString Title(std::u16string_view text) const { return Marked(Centered(text, Columns())); }

  rtl::UnicodeString Header() const {
    TLine line(Columns());
    for (int column = 0; column < DaysPerWeek; ++column) Put(line, column, FPage.DayInitials[Index(column)]);
    return Marked(line.Text());
  }

  rtl::UnicodeString Week(int week) const {
    TLine line(Columns());
    for (int column = 0; column < DaysPerWeek; ++column)
      if (const int day = DayAt(week, column); day >= 1 && day <= FPage.Days) PutDay(line, column, day);
    return Marked(line.Text());
  }

  // The notes of a week, one behind the other.
  rtl::UnicodeString Notes(int week) const {
    rtl::UnicodeString notes;
    for (int column = 0; column < DaysPerWeek; ++column) {
      const int day = DayAt(week, column);
      if (day < 1 || static_cast<std::size_t>(day) > FPage.Notes.size()) continue;
      const rtl::UnicodeString& note = FPage.Notes[static_cast<std::size_t>(day) - 1];
      if (!note.empty()) notes += u"   " + note;
    }
    return notes;
  }

 private:
  static std::size_t Index(int column) { return static_cast<std::size_t>(column); }

  int DayAt(int week, int column) const { return week * DaysPerWeek + column - FPage.FirstColumn + 1; }

  // The column behind the cell of a day of the week.
  std::size_t EndOf(int column) const {
    return FCell * (FPage.RightToLeft ? DaysPerWeek - Index(column) : Index(column) + 1);
  }

  void Put(TLine& line, int column, std::u16string_view text) const {
    line.PutBefore(EndOf(column), text);
    if (FPage.RightToLeft) line.Anchor(EndOf(column) - 1);
  }

  void PutDay(TLine& line, int column, int day) const {
    Put(line, column, Digits(day, FPage.ZeroDigit));
    if (FPage.Today != day) return;
    line.PutBefore(EndOf(column) - 2, u"[");
    line.PutBefore(EndOf(column) + 1, u"]");
  }

  rtl::UnicodeString Marked(const rtl::UnicodeString& line) const {
    return FPage.RightToLeft ? LeftToRightMark + line : line;
  }

  const TMonthPage& FPage;
  std::size_t FCell;
};

rtl::UnicodeString Trimmed(rtl::UnicodeString line) {
  TrimEnd(line);
  return line;
}

// The lines of a month inside a year, as many as its row needs.
std::vector<rtl::UnicodeString> BlockLines(const TMonthPage& page, std::size_t subtitles, int weeks) {
  const TGrid grid(page, NarrowCell);
  std::vector<rtl::UnicodeString> lines = {grid.Title(page.Title)};
  for (std::size_t i = 0; i < subtitles; ++i)
    lines.push_back(grid.Title(i < page.Subtitles.size() ? page.Subtitles[i] : rtl::UnicodeString()));
  lines.push_back(grid.Header());
  for (int week = 0; week < weeks; ++week) lines.push_back(grid.Week(week));
  return lines;
}

void AppendRow(std::vector<rtl::UnicodeString>& lines, const TMonthPage* first, const TMonthPage* last) {
  std::size_t subtitles = 0;
  int weeks = 0;
  for (const TMonthPage* page = first; page != last; ++page) {
    subtitles = std::max(subtitles, page->Subtitles.size());
    weeks = std::max(weeks, TGrid(*page, NarrowCell).Weeks());
  }
  std::vector<rtl::UnicodeString> row(1 + subtitles + 1 + static_cast<std::size_t>(weeks));
  // A row that is not full begins at the right as well: blank blocks stand before it.
  const bool rightToLeft = first->RightToLeft;
  std::vector<const TMonthPage*> order;
  for (const TMonthPage* page = first; page != last; ++page) order.push_back(page);
  order.resize(MonthsPerRow, nullptr);
  if (rightToLeft) std::reverse(order.begin(), order.end());
  const std::size_t columns = TGrid(*first, NarrowCell).Columns();
  for (std::size_t place = 0; place < order.size(); ++place) {
    const auto block = order[place] != nullptr ? BlockLines(*order[place], subtitles, weeks)
                                               : std::vector<rtl::UnicodeString>(row.size(), Blanks(columns));
    for (std::size_t i = 0; i < row.size(); ++i) row[i] += (place == 0 ? u"" : Blanks(GapBetweenMonths)) + block[i];
  }
  for (rtl::UnicodeString& line : row) lines.push_back(Trimmed(std::move(line)));
}

}  // namespace

rtl::UnicodeString Digits(std::int64_t number, char16_t zero) {
  rtl::UnicodeString text;
  for (const char c : std::to_string(number)) text += c == '-' ? u'-' : static_cast<char16_t>(zero + (c - '0'));
  return text;
}

rtl::UnicodeString AsciiDigits(std::u16string_view text) {
  rtl::UnicodeString ascii(text);
  for (char16_t& c : ascii)
    if (rtl::IsDigit(c)) c = static_cast<char16_t>(u'0' + static_cast<int>(rtl::GetNumericValue(c)));
  return ascii;
}

std::size_t ColumnsOf(std::u16string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char16_t c) {
    const bool formatSign = rtl::GetUnicodeCategory(c) == rtl::TUnicodeCategory::Cf;
    return !rtl::IsMark(c) && !rtl::IsLowSurrogate(c) && !formatSign;
  }));
}

std::vector<rtl::UnicodeString> MonthLines(const TMonthPage& page) {
  const TGrid grid(page, WideCell);
  std::vector<rtl::UnicodeString> lines = {Trimmed(grid.Title(page.Title)), Trimmed(grid.Header())};
  for (int week = 0; week < grid.Weeks(); ++week) lines.push_back(Trimmed(grid.Week(week) + grid.Notes(week)));
  return lines;
}

std::vector<rtl::UnicodeString> YearLines(const rtl::UnicodeString& title, const std::vector<TMonthPage>& months) {
  if (months.empty()) return {};
  const std::size_t block = TGrid(months.front(), NarrowCell).Columns();
  const std::size_t columns = MonthsPerRow * block + (MonthsPerRow - 1) * GapBetweenMonths;
  rtl::UnicodeString heading = Trimmed(Centered(title, columns));
  if (months.front().RightToLeft) heading.insert(heading.begin(), LeftToRightMark);
  std::vector<rtl::UnicodeString> lines = {std::move(heading)};
  for (std::size_t first = 0; first < months.size(); first += MonthsPerRow) {
    lines.emplace_back();
    const std::size_t last = std::min(first + MonthsPerRow, months.size());
    AppendRow(lines, months.data() + first, months.data() + last);
  }
  return lines;
}

}  // namespace orv::date
