// Writing dates and times.
#include <algorithm>
#include <cstddef>
#include <utility>

#include "rtl/DateTimeText.h"

namespace rtl {
namespace {

constexpr int MostNestedFormats = 2;
// Formats that multiply by naming each other are entered no more once a text has taken this many steps.
constexpr std::size_t MostStepsBeforeNesting = 100000;

constexpr char16_t Lower(char16_t c) {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}

bool StartsWith(std::u16string_view text, std::u16string_view lowerCase) {
  if (text.size() < lowerCase.size()) return false;
  return std::equal(lowerCase.begin(), lowerCase.end(), text.begin(),
                    [](char16_t wanted, char16_t c) { return wanted == Lower(c); });
}

void AppendNumber(UnicodeString& out, unsigned number, std::size_t digits) {
  char16_t buffer[10];
  std::size_t length = 0;
  do {
    buffer[length++] = static_cast<char16_t>(u'0' + number % 10);
    number /= 10;
  } while (number != 0);
  if (length < digits) out.append(digits - length, u'0');
  while (length > 0) out += buffer[--length];
}

// The AM/PM field at the front of a format.
enum class TAmPm : std::uint8_t { None, Slash, Letters, Names };

TAmPm AmPmAt(std::u16string_view format) {
  if (StartsWith(format, u"am/pm")) return TAmPm::Slash;
  if (StartsWith(format, u"a/p")) return TAmPm::Letters;
  if (StartsWith(format, u"ampm")) return TAmPm::Names;
  return TAmPm::None;
}

std::size_t QuotedLength(std::u16string_view format) {
  const std::size_t end = format.find(format[0], 1);
  return end == format.npos ? format.size() : end + 1;
}

// Whether an hour is followed by an AM/PM field before the next hour; rest begins behind the hour.
bool OnTwelveHourClock(std::u16string_view rest) {
  while (!rest.empty()) {
    if (rest[0] == u'\'' || rest[0] == u'"') {
      rest.remove_prefix(QuotedLength(rest));
      continue;
    }
    if (Lower(rest[0]) == u'h') return false;
    if (AmPmAt(rest) != TAmPm::None) return true;
    rest.remove_prefix(1);
  }
  return false;
}

class TWriter {
 public:
  TWriter(TDateTime value, const TFormatSettings& settings)
      : FParts(DecodeDateTime(value)), FDayOfWeek(DayOfWeek(value)), FSettings(settings) {}

  void Write(std::u16string_view format, int depth) {
    if (depth > MostNestedFormats || (depth > 0 && FSteps > MostStepsBeforeNesting)) return;
    char16_t lastField = 0;
    while (!format.empty()) {
      ++FSteps;
      const char16_t c = Lower(format[0]);
      const bool isLetter = c >= u'a' && c <= u'z';
      const bool isMinute = c == u'm' && lastField == u'h';
      if (isLetter) lastField = c;
      format.remove_prefix(isMinute ? Minutes(format) : Element(c, format, depth));
    }
  }

  UnicodeString Text() && { return std::move(FText); }

 private:
  static std::size_t Run(std::u16string_view format) {
    std::size_t length = 1;
    while (length < format.size() && Lower(format[length]) == Lower(format[0])) ++length;
    return length;
  }

  // Each writes the element at the front of the format and answers how many characters it takes.
  std::size_t Element(char16_t c, std::u16string_view format, int depth) {
    switch (c) {
      case u'd':
        return Day(format, depth);
      case u'm':
        return Month(format);
      case u'y':
        return Year(format);
      case u'h':
        return Hour(format);
      case u'n':
        return Minutes(format);
      case u's':
        return Padded(FParts.Time.Second, Run(format));
      case u'z':
        return MilliSecond(format);
      case u't':
        return Time(format, depth);
      case u'c':
        return DateAndTime(depth);
      case u'a':
        return AmPm(format);
      case u'/':
        return Plain(FSettings.DateSeparator);
      case u':':
        return Plain(FSettings.TimeSeparator);
      case u'\'':
      case u'"':
        return Quoted(format);
      default:
        return Plain(format[0]);
    }
  }

  std::size_t Padded(unsigned number, std::size_t run) {
    AppendNumber(FText, number, run == 1 ? 1 : 2);
    return run;
  }

  std::size_t Plain(char16_t c) {
    FText += c;
    return 1;
  }

  std::size_t Quoted(std::u16string_view format) {
    const std::size_t length = QuotedLength(format);
    const bool closed = length > 1 && format[length - 1] == format[0];
    FText += format.substr(1, length - (closed ? 2 : 1));
    return length;
  }

  std::size_t Day(std::u16string_view format, int depth) {
    const std::size_t run = Run(format);
    if (run <= 2) return Padded(FParts.Date.Day, run);
    if (run == 3) FText += FSettings.ShortDayNames[FDayOfWeek];
    if (run == 4) FText += FSettings.LongDayNames[FDayOfWeek];
    if (run == 5) Write(FSettings.ShortDateFormat, depth + 1);
    if (run >= 6) Write(FSettings.LongDateFormat, depth + 1);
    return run;
  }

  std::size_t Month(std::u16string_view format) {
    const std::size_t run = Run(format);
    if (run <= 2) return Padded(FParts.Date.Month, run);
    FText += (run == 3 ? FSettings.ShortMonthNames : FSettings.LongMonthNames)[FParts.Date.Month];
    return run;
  }

  std::size_t Year(std::u16string_view format) {
    const std::size_t run = Run(format);
    if (run <= 2)
      AppendNumber(FText, FParts.Date.Year % 100u, 2);
    else
      AppendNumber(FText, FParts.Date.Year, 4);
    return run;
  }

  std::size_t Hour(std::u16string_view format) {
    const std::size_t run = Run(format);
    const unsigned hour = FParts.Time.Hour;
    const unsigned onHalf = hour % 12 == 0 ? 12 : hour % 12;
    return Padded(OnTwelveHourClock(format.substr(run)) ? onHalf : hour, run);
  }

  std::size_t Minutes(std::u16string_view format) { return Padded(FParts.Time.Minute, Run(format)); }

  std::size_t MilliSecond(std::u16string_view format) {
    const std::size_t run = Run(format);
    AppendNumber(FText, FParts.Time.MilliSecond, run < 3 ? 1 : 3);
    return run;
  }

  std::size_t Time(std::u16string_view format, int depth) {
    const std::size_t run = Run(format);
    Write(run == 1 ? FSettings.ShortTimeFormat : FSettings.LongTimeFormat, depth + 1);
    return run;
  }

  std::size_t DateAndTime(int depth) {
    Write(FSettings.ShortDateFormat, depth + 1);
    if (FParts.Time != TTimeParts()) {
      FText += u' ';
      Write(FSettings.LongTimeFormat, depth + 1);
    }
    return 1;
  }

  std::size_t AmPm(std::u16string_view format) {
    const bool afternoon = FParts.Time.Hour >= 12;
    switch (AmPmAt(format)) {
      case TAmPm::Slash:
        FText += format.substr(afternoon ? 3 : 0, 2);
        return 5;
      case TAmPm::Letters:
        FText += format[afternoon ? 2 : 0];
        return 3;
      case TAmPm::Names:
        FText += afternoon ? FSettings.TimePMString : FSettings.TimeAMString;
        return 4;
      case TAmPm::None:
        break;
    }
    return Plain(format[0]);
  }

  TDateTimeParts FParts;
  std::uint16_t FDayOfWeek;
  const TFormatSettings& FSettings;
  std::size_t FSteps = 0;
  UnicodeString FText;
};

}  // namespace

UnicodeString FormatDateTime(std::u16string_view format, TDateTime value, const TFormatSettings& settings) {
  TWriter writer(value, settings);
  writer.Write(format.empty() ? std::u16string_view(u"c") : format, 0);
  return std::move(writer).Text();
}

UnicodeString FormatDateTime(std::u16string_view format, TDateTime value) {
  return FormatDateTime(format, value, FormatSettings());
}

UnicodeString DateToStr(TDateTime value, const TFormatSettings& settings) {
  return FormatDateTime(settings.ShortDateFormat, value, settings);
}

UnicodeString TimeToStr(TDateTime value, const TFormatSettings& settings) {
  return FormatDateTime(settings.LongTimeFormat, value, settings);
}

UnicodeString DateTimeToStr(TDateTime value, const TFormatSettings& settings) {
  return FormatDateTime(u"c", value, settings);
}

UnicodeString TimeToStr(TDateTime value) {
  return TimeToStr(value, FormatSettings());
}

}  // namespace rtl
