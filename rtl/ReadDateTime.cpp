// Reading dates and times.
#include "rtl/Clock.h"
#include "rtl/DateTimeText.h"

namespace rtl {
namespace {

constexpr char16_t Lower(char16_t c) {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}

struct TNumber {
  std::uint16_t Value = 0;
  int Digits = 0;
};

// Takes pieces off the front of a text.
class TScanner {
 public:
  explicit TScanner(std::u16string_view text) : FRest(text) {}

  bool AtEnd() const { return FRest.empty(); }

  bool Blanks() {
    const std::size_t before = FRest.size();
    while (!FRest.empty() && FRest[0] == u' ') FRest.remove_prefix(1);
    return FRest.size() < before;
  }

  // One to four digits behind blanks; more digits than that are no part of a date.
  std::optional<TNumber> Number() {
    Blanks();
    TNumber number;
    for (; !FRest.empty() && FRest[0] >= u'0' && FRest[0] <= u'9'; ++number.Digits) {
      if (number.Digits == 4) return std::nullopt;
      number.Value = static_cast<std::uint16_t>(number.Value * 10 + (FRest[0] - u'0'));
      FRest.remove_prefix(1);
    }
    if (number.Digits == 0) return std::nullopt;
    return number;
  }

  bool Sign(char16_t c) {
    Blanks();
    if (FRest.empty() || FRest[0] != c) return false;
    FRest.remove_prefix(1);
    return true;
  }

  bool Word(std::u16string_view word) {
    Blanks();
    if (word.empty() || FRest.size() < word.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i)
      if (Lower(FRest[i]) != Lower(word[i])) return false;
    FRest.remove_prefix(word.size());
    return true;
  }

 private:
  std::u16string_view FRest;
};

enum class TDateOrder : std::uint8_t { MonthDayYear, DayMonthYear, YearMonthDay };

TDateOrder OrderOf(std::u16string_view format) {
  for (const char16_t c : format) switch (Lower(c)) {
      case u'y':
        return TDateOrder::YearMonthDay;
      case u'd':
        return TDateOrder::DayMonthYear;
      case u'm':
        return TDateOrder::MonthDayYear;
      default:
        break;
    }
  return TDateOrder::MonthDayYear;
}

std::uint16_t FullYear(const TNumber& year, std::uint16_t window) {
  if (year.Digits > 2) return year.Value;
  const int present = DecodeDate(Today()).Year;
  const int first = window == 0 ? present / 100 * 100 : present - window;
  int full = year.Value + first / 100 * 100;
  if (window > 0 && full < first) full += 100;
  return static_cast<std::uint16_t>(full);
}

std::optional<TDateTime> ScanDate(TScanner& scanner, const TFormatSettings& settings) {
  TNumber numbers[3];
  int count = 0;
  do {
    const auto number = scanner.Number();
    if (!number) return std::nullopt;
    numbers[count++] = *number;
  } while (count < 3 && scanner.Sign(settings.DateSeparator));
  const TDateOrder order = OrderOf(settings.ShortDateFormat);
  if (count == 1) return std::nullopt;
  const auto first = numbers[0].Value;
  const auto second = numbers[1].Value;
  if (count == 2) {
    const std::uint16_t present = DecodeDate(Today()).Year;
    return order == TDateOrder::DayMonthYear ? TryEncodeDate({present, second, first})
                                             : TryEncodeDate({present, first, second});
  }
  const std::uint16_t window = settings.TwoDigitYearCenturyWindow;
  switch (order) {
    case TDateOrder::YearMonthDay:
      return TryEncodeDate({FullYear(numbers[0], window), second, numbers[2].Value});
    case TDateOrder::DayMonthYear:
      return TryEncodeDate({FullYear(numbers[2], window), second, first});
    case TDateOrder::MonthDayYear:
      break;
  }
  return TryEncodeDate({FullYear(numbers[2], window), first, second});
}

enum class THalf : std::uint8_t { None, Morning, Afternoon };

THalf ScanHalf(TScanner& scanner, const TFormatSettings& settings) {
  if (scanner.Word(settings.TimeAMString) || scanner.Word(u"am")) return THalf::Morning;
  if (scanner.Word(settings.TimePMString) || scanner.Word(u"pm")) return THalf::Afternoon;
  return THalf::None;
}

std::optional<TDateTime> ScanTime(TScanner& scanner, const TFormatSettings& settings) {
  THalf half = ScanHalf(scanner, settings);
  const auto hour = scanner.Number();
  if (!hour) return std::nullopt;
  std::uint16_t rest[3] = {};
  for (int i = 0; i < 3 && scanner.Sign(i < 2 ? settings.TimeSeparator : settings.DecimalSeparator); ++i) {
    const auto number = scanner.Number();
    if (!number) return std::nullopt;
    rest[i] = number->Value;
  }
  if (half == THalf::None) half = ScanHalf(scanner, settings);
  TTimeParts time = {hour->Value, rest[0], rest[1], rest[2]};
  if (half != THalf::None) {
    if (time.Hour < 1 || time.Hour > 12) return std::nullopt;
    time.Hour = static_cast<std::uint16_t>(time.Hour % 12 + (half == THalf::Afternoon ? 12 : 0));
  }
  return TryEncodeTime(time);
}

// A value counts only where the scanner has come to the end of the text.
std::optional<TDateTime> Whole(TScanner& scanner, std::optional<TDateTime> value) {
  scanner.Blanks();
  return scanner.AtEnd() ? value : std::nullopt;
}

}  // namespace

std::optional<TDateTime> TryStrToDate(std::u16string_view text, const TFormatSettings& settings) {
  TScanner scanner(text);
  return Whole(scanner, ScanDate(scanner, settings));
}

std::optional<TDateTime> TryStrToTime(std::u16string_view text, const TFormatSettings& settings) {
  TScanner scanner(text);
  return Whole(scanner, ScanTime(scanner, settings));
}

std::optional<TDateTime> TryStrToDateTime(std::u16string_view text, const TFormatSettings& settings) {
  TScanner scanner(text);
  const auto date = ScanDate(scanner, settings);
  const bool apart = scanner.Blanks();
  if (!date || scanner.AtEnd()) return date;
  if (!apart) return std::nullopt;
  const auto time = Whole(scanner, ScanTime(scanner, settings));
  if (!time) return std::nullopt;
  return JoinDateAndTime(*date, *time);
}

}  // namespace rtl
