// Writing a date and time by a format: the walk over the format's letters, which is the same for all date units. What
// the units differ in, case and AM/PM, is a rules type. Inside calendar/ alone.
//
// Letters: d dd day, ddd dddd its name, ddddd dddddd the short and long date format; m mm month, mmm mmmm its name;
// yy the third and fourth digit of the year, yyyy the year; h n s and hh nn ss hour, minute, second; z millisecond (in
// a run of three, with three digits and then again as it is); t the short time format (of tt, the long one and then
// again the short one); c the short date and long time format; ":" and "/" the separators; a quote copies the text up
// to the next like one, and the walk then goes on behind the opening quote; anything else stands for itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "calendar/DateGlobal.h"
#include "rtl/DateTime.h"
#include "rtl/FormatSettings.h"
#include "rtl/Strings.h"

namespace orv {

// What a format can write. DayName is the day's number in the tables of day names, from 1; names with a number outside
// their table are empty.
struct TFormatFields {
  rtl::TDateTimeParts Parts;
  std::int32_t DayName = 0;
};

// An AM/PM field at some place of a format: how many letters it takes and what it writes. Length 0: none stands there.
struct TMeridiemField {
  std::size_t Length = 0;
  std::u16string_view Text;
};

constexpr char16_t FoldedLetter(char16_t c) {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}

// Whether the format at the 0-based index reads as the lower-case pattern, in any case.
constexpr bool FoldedAt(std::u16string_view format, std::size_t index, std::u16string_view pattern) {
  for (std::size_t i = 0; i < pattern.size(); ++i)
    if (FoldedLetter(rtl::UnitAt(format, static_cast<std::int64_t>(index + i))) != pattern[i]) return false;
  return true;
}

// How many characters nested formats may add up to in one text. Formats that nest without end raise at once; this
// stops those that only multiply.
inline constexpr std::size_t MostNestedFormatCharacters = std::size_t{1} << 22;

// TRules has
//   static constexpr bool FoldsCase          whether capitals are letters of the format
//   TMeridiem Begin(format, hour) const      looks a format over for AM/PM before it is walked; may change the hour
// and TMeridiem has
//   TMeridiemField At(format, index) const   the AM/PM field at an "a" or "A"
template <typename TRules>
class TFormatWalk {
 public:
  // Everything is borrowed for the walk.
  TFormatWalk(const rtl::TFormatSettings& settings, const TRules& rules, rtl::UnicodeString& out)
      : FSettings(settings), FRules(rules), FOut(out) {}

  // Appends the fields as the format says. Raises EConvertError where a format of the settings nests in itself, and at
  // a doubled quote.
  void Write(std::u16string_view format, TFormatFields fields, bool useSeparators) {
    const auto meridiem = FRules.Begin(format, fields.Parts.Time.Hour);
    for (std::size_t i = 0; i < format.size();) i += WriteAt(format, i, fields, useSeparators, meridiem);
  }

 private:
  using TText = rtl::UnicodeString rtl::TFormatSettings::*;

  static constexpr char16_t LetterOf(char16_t c) { return TRules::FoldsCase ? FoldedLetter(c) : c; }

  // How often the letter stands from the index on, up to most; the character at the index itself is known to be it.
  static std::size_t Run(std::u16string_view format, std::size_t index, char16_t letter, std::size_t most) {
    std::size_t length = 1;
    while (length < most && index + length < format.size() && format[index + length] == letter) ++length;
    return length;
  }

  // The same for months, whose letters may stand in either case where case is folded at all.
  static std::size_t MonthRun(std::u16string_view format, std::size_t index) {
    std::size_t length = 1;
    while (length < 4 && index + length < format.size() && LetterOf(format[index + length]) == u'm') ++length;
    return length;
  }

  // Writes the field that begins at the index and answers how many characters it takes.
  template <typename TMeridiem>
  std::size_t WriteAt(std::u16string_view format, std::size_t i, const TFormatFields& fields, bool useSeparators,
                      const TMeridiem& meridiem) {
    const rtl::TDateParts& date = fields.Parts.Date;
    const rtl::TTimeParts& time = fields.Parts.Time;
    const char16_t written = format[i];
    switch (LetterOf(written)) {
      case u'd':
        return WriteDay(Run(format, i, u'd', 6), fields);
      case u'm':
        return WriteMonth(MonthRun(format, i), date.Month);
      case u'y':
        return WriteYear(Run(format, i, u'y', 4), date.Year, written);
      case u'h':
        return WriteNumber(Run(format, i, u'h', 2), time.Hour);
      case u'n':
        return WriteNumber(Run(format, i, u'n', 2), time.Minute);
      case u's':
        return WriteNumber(Run(format, i, u's', 2), time.Second);
      case u'z':
        return WriteMilliSecond(Run(format, i, u'z', 3), time.MilliSecond);
      case u't':
        WriteNested(Run(format, i, u't', 2) == 2 ? &rtl::TFormatSettings::LongTimeFormat
                                                 : &rtl::TFormatSettings::ShortTimeFormat,
                    fields);
        return 1;
      case u'c':
        WriteNested(&rtl::TFormatSettings::ShortDateFormat, fields);
        WriteNested(&rtl::TFormatSettings::LongTimeFormat, fields);
        return 1;
      case u':':
        FOut += useSeparators ? FSettings.TimeSeparator : u':';
        return 1;
      case u'/':
        FOut += useSeparators ? FSettings.DateSeparator : u'/';
        return 1;
      case u'\'':
      case u'"':
        FOut += CopyQuotedStr(format, static_cast<std::int32_t>(i) + 1).Text;
        return 1;
      case u'A':
      case u'a':
        if (const TMeridiemField field = meridiem.At(format, i); field.Length > 0) {
          FOut += field.Text;
          return field.Length;
        }
        break;
      default:
        break;
    }
    FOut += written;
    return 1;
  }

  std::size_t WriteDay(std::size_t run, const TFormatFields& fields) {
    switch (run) {
      case 3:
        FOut += FSettings.ShortDayNames[fields.DayName];
        break;
      case 4:
        FOut += FSettings.LongDayNames[fields.DayName];
        break;
      case 5:
        WriteNested(&rtl::TFormatSettings::ShortDateFormat, fields);
        break;
      case 6:
        WriteNested(&rtl::TFormatSettings::LongDateFormat, fields);
        break;
      default:
        WriteNumber(run, fields.Parts.Date.Day);
    }
    return run;
  }

  std::size_t WriteMonth(std::size_t run, std::uint16_t month) {
    switch (run) {
      case 3:
        FOut += FSettings.ShortMonthNames[month];
        break;
      case 4:
        FOut += FSettings.LongMonthNames[month];
        break;
      default:
        WriteNumber(run, month);
    }
    return run;
  }

  std::size_t WriteYear(std::size_t run, std::uint16_t year, char16_t written) {
    if (run == 1) {
      FOut += written;
      return 1;
    }
    TDigits digits(year);
    if (run == 4) {
      FOut.append(digits.First(), digits.Length());
      return 4;
    }
    if (digits.Length() > 2) FOut.append(digits.First() + 2, digits.Length() > 3 ? 2 : 1);
    return 2;
  }

  // A run of three: the number with three digits for the first two letters; the third is then a number of its own.
  std::size_t WriteMilliSecond(std::size_t run, std::uint16_t value) {
    if (run < 3) return WriteNumber(1, value);
    WritePadded(value, 3);
    return 2;
  }

  // The number, with at least as many digits as the field has letters, one or two.
  std::size_t WriteNumber(std::size_t run, std::uint16_t value) {
    WritePadded(value, run);
    return run;
  }

  void WritePadded(std::uint16_t value, std::size_t least) {
    TDigits digits(value);
    for (std::size_t length = digits.Length(); length < least; ++length) FOut += u'0';
    FOut.append(digits.First(), digits.Length());
  }

  void WriteNested(TText nested, const TFormatFields& fields) {
    const std::uint8_t bit = BitOf(nested);
    const rtl::UnicodeString& format = FSettings.*nested;
    FNestedCharacters += format.size() + 1;
    if ((FInProgress & bit) != 0 || FNestedCharacters > MostNestedFormatCharacters)
      ConvertErrorFmt("The format '%s' nests without end", {format});
    FInProgress = static_cast<std::uint8_t>(FInProgress | bit);
    Write(format, fields, true);
    FInProgress = static_cast<std::uint8_t>(FInProgress & ~bit);
  }

  static constexpr std::uint8_t BitOf(TText nested) {
    if (nested == &rtl::TFormatSettings::ShortDateFormat) return 1;
    if (nested == &rtl::TFormatSettings::LongDateFormat) return 2;
    if (nested == &rtl::TFormatSettings::ShortTimeFormat) return 4;
    return 8;
  }

  // The decimal digits of a word.
  class TDigits {
   public:
    explicit TDigits(std::uint16_t value) {
      std::uint32_t rest = value;
      do {
        FUnits[--FFirst] = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
      } while (rest != 0);
    }
    const char16_t* First() const { return FUnits + FFirst; }
    std::size_t Length() const { return 5 - FFirst; }

   private:
    char16_t FUnits[5];
    std::size_t FFirst = 5;
  };

  const rtl::TFormatSettings& FSettings;
  const TRules& FRules;
  rtl::UnicodeString& FOut;
  std::uint8_t FInProgress = 0;
  std::size_t FNestedCharacters = 0;
};

}  // namespace orv
