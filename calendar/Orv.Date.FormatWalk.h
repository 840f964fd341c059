// Writing a date and time by a format: the walk over the format's letters, which is the same for all date units. What
// the units differ in, case and AM/PM, is a rules type. Inside calendar/ alone.
//
// Letters: d dd day, ddd dddd its name, ddddd dddddd the short and long date format; m mm month, mmm mmmm its name;
// yy the third and fourth digit of the year, yyyy the year; h n s and hh nn ss hour, minute, second; z millisecond (in
// a run of three, with three digits and then again as it is); t the short time format (of tt, the long one and then
// again the short one); c the short date and long time format; ":" and "/" the separators; a quote copies the text up
// to the next like one, and the walk then goes on behind the opening quote; anything else stands for itself.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "calendar/DateGlobal.h"
#include "calendar/Orv.Date.TextWriter.h"
#include "rtl/DateTime.h"
#include "rtl/FormatSettings.h"
#include "rtl/Strings.h"

namespace orv {

// What a format can write; the parts are borrowed. DayName is the day's number in the tables of day names, from 1;
// names with a number outside their table are empty.
struct TFormatFields {
  const rtl::TDateTimeParts& Parts;
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

// What a character of a format is.
enum class TWriteField : std::uint8_t {
  Literal,
  TimeSeparator,
  DateSeparator,
  Day,
  Month,
  Year,
  Hour,
  Minute,
  Second,
  MilliSecond,
  Time,
  DateAndTime,
  Quote,
  Meridiem
};

using TWriteFields = std::array<TWriteField, 128>;

// The fields of the characters below 128; all others are literal.
constexpr TWriteFields MakeWriteFields(bool foldsCase) {
  using F = TWriteField;
  constexpr std::pair<char16_t, F> letters[] = {{u'd', F::Day},         {u'm', F::Month},  {u'y', F::Year},
                                                {u'h', F::Hour},        {u'n', F::Minute}, {u's', F::Second},
                                                {u'z', F::MilliSecond}, {u't', F::Time},   {u'c', F::DateAndTime}};
  TWriteFields fields{};
  for (const auto& [letter, field] : letters) {
    fields[letter] = field;
    if (foldsCase) fields[static_cast<std::size_t>(letter - 32)] = field;
  }
  fields[u':'] = F::TimeSeparator;
  fields[u'/'] = F::DateSeparator;
  fields[u'\''] = fields[u'"'] = F::Quote;
  fields[u'a'] = fields[u'A'] = F::Meridiem;
  return fields;
}

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

  // Appends the fields as the format says. Raises EConvertError, the text then being unfinished, where a format of the
  // settings nests in itself, and at a doubled quote.
  void Write(std::u16string_view format, const TFormatFields& fields, bool useSeparators) {
    Walk(format, fields, fields.Parts.Time.Hour, useSeparators);
    FOut.Flush();
  }

 private:
  using TText = rtl::UnicodeString rtl::TFormatSettings::*;

  static constexpr TWriteFields Fields = MakeWriteFields(TRules::FoldsCase);

  // One format, outermost or nested. The hour is what AM/PM has made of it so far.
  void Walk(std::u16string_view format, const TFormatFields& fields, std::uint16_t hour, bool useSeparators) {
    const auto meridiem = FRules.Begin(format, hour);
    for (std::size_t i = 0; i < format.size();) {
      const char16_t c = format[i];
      const TWriteField field = c < Fields.size() ? Fields[c] : TWriteField::Literal;
      if (field <= TWriteField::DateSeparator) {
        FOut.Put(field == TWriteField::Literal || !useSeparators ? c : Separator(field));
        ++i;
      } else if (field == TWriteField::Meridiem) {
        i += WriteMeridiem(meridiem.At(format, i), c);
      } else {
        i += WriteField(field, format, i, fields, hour);
      }
    }
  }

  char16_t Separator(TWriteField field) const {
    return field == TWriteField::TimeSeparator ? FSettings.TimeSeparator : FSettings.DateSeparator;
  }

  // How often the letter stands from the index on, up to most; the character at the index itself is known to be it.
  static std::size_t Run(std::u16string_view format, std::size_t index, char16_t letter, std::size_t most) {
    std::size_t length = 1;
    while (length < most && index + length < format.size() && format[index + length] == letter) ++length;
    return length;
  }

  // The same for months, whose letters may stand in either case where case is folded at all.
  static std::size_t MonthRun(std::u16string_view format, std::size_t index) {
    const auto isMonth = [](char16_t c) { return c == u'm' || (TRules::FoldsCase && c == u'M'); };
    std::size_t length = 1;
    while (length < 4 && index + length < format.size() && isMonth(format[index + length])) ++length;
    return length;
  }

  // Each writes the field that begins at the index and answers how many characters of the format it takes.

  std::size_t WriteMeridiem(const TMeridiemField& field, char16_t written) {
    if (field.Length == 0) {
      FOut.Put(written);
      return 1;
    }
    FOut.Put(field.Text);
    return field.Length;
  }

  std::size_t WriteField(TWriteField field, std::u16string_view format, std::size_t i, const TFormatFields& fields,
                         std::uint16_t hour) {
    const rtl::TDateParts& date = fields.Parts.Date;
    const rtl::TTimeParts& time = fields.Parts.Time;
    switch (field) {
      case TWriteField::Day:
        return WriteDay(Run(format, i, u'd', 6), fields, hour);
      case TWriteField::Month:
        return WriteMonth(MonthRun(format, i), date.Month);
      case TWriteField::Year:
        return WriteYear(Run(format, i, u'y', 4), date.Year, format[i]);
      case TWriteField::Hour:
        return WriteNumber(Run(format, i, u'h', 2), hour);
      case TWriteField::Minute:
        return WriteNumber(Run(format, i, u'n', 2), time.Minute);
      case TWriteField::Second:
        return WriteNumber(Run(format, i, u's', 2), time.Second);
      case TWriteField::MilliSecond:
        return WriteMilliSecond(Run(format, i, u'z', 3), time.MilliSecond);
      case TWriteField::Time:
        WriteNested(Run(format, i, u't', 2) == 2 ? &rtl::TFormatSettings::LongTimeFormat
                                                 : &rtl::TFormatSettings::ShortTimeFormat,
                    fields, hour);
        return 1;
      case TWriteField::DateAndTime:
        WriteNested(&rtl::TFormatSettings::ShortDateFormat, fields, hour);
        WriteNested(&rtl::TFormatSettings::LongTimeFormat, fields, hour);
        return 1;
      default:
        FOut.Put(CopyQuotedStr(format, static_cast<std::int32_t>(i) + 1).Text);
        return 1;
    }
  }

  std::size_t WriteDay(std::size_t run, const TFormatFields& fields, std::uint16_t hour) {
    switch (run) {
      case 3:
        FOut.Put(FSettings.ShortDayNames[fields.DayName]);
        break;
      case 4:
        FOut.Put(FSettings.LongDayNames[fields.DayName]);
        break;
      case 5:
        WriteNested(&rtl::TFormatSettings::ShortDateFormat, fields, hour);
        break;
      case 6:
        WriteNested(&rtl::TFormatSettings::LongDateFormat, fields, hour);
        break;
      default:
        FOut.PutNumber(fields.Parts.Date.Day, run);
    }
    return run;
  }

  std::size_t WriteMonth(std::size_t run, std::uint16_t month) {
    switch (run) {
      case 3:
        FOut.Put(FSettings.ShortMonthNames[month]);
        break;
      case 4:
        FOut.Put(FSettings.LongMonthNames[month]);
        break;
      default:
        FOut.PutNumber(month, run);
    }
    return run;
  }

  // A run of four is the year. One of two or three is its third and fourth digit: nothing of a year below 100, and one
  // digit of a year below 1000.
  std::size_t WriteYear(std::size_t run, std::uint16_t year, char16_t written) {
    if (run == 1) {
      FOut.Put(written);
      return 1;
    }
    if (run == 4) {
      FOut.PutNumber(year, 1);
      return 4;
    }
    if (year >= 10000) {
      FOut.PutNumber(year / 10u % 100u, 2);
    } else if (year >= 1000) {
      FOut.PutNumber(year % 100u, 2);
    } else if (year >= 100) {
      FOut.PutNumber(year % 10u, 1);
    }
    return 2;
  }

  // A run of three: the number with three digits for the first two letters; the third is then a number of its own.
  std::size_t WriteMilliSecond(std::size_t run, std::uint16_t value) {
    if (run == 3 && value < 100) FOut.Put(u'0');
    FOut.PutNumber(value, run == 3 ? 2 : 1);
    return run == 3 ? 2 : 1;
  }

  // The number, with at least as many digits as the field has letters, one or two.
  std::size_t WriteNumber(std::size_t run, std::uint16_t value) {
    FOut.PutNumber(value, run);
    return run;
  }

  void WriteNested(TText nested, const TFormatFields& fields, std::uint16_t hour) {
    const std::uint8_t bit = BitOf(nested);
    const rtl::UnicodeString& format = FSettings.*nested;
    FNestedCharacters += format.size() + 1;
    if ((FInProgress & bit) != 0 || FNestedCharacters > MostNestedFormatCharacters)
      ConvertErrorFmt("The format '%s' nests without end", {format});
    FInProgress = static_cast<std::uint8_t>(FInProgress | bit);
    Walk(format, fields, hour, true);
    FInProgress = static_cast<std::uint8_t>(FInProgress & ~bit);
  }

  static constexpr std::uint8_t BitOf(TText nested) {
    if (nested == &rtl::TFormatSettings::ShortDateFormat) return 1;
    if (nested == &rtl::TFormatSettings::LongDateFormat) return 2;
    if (nested == &rtl::TFormatSettings::ShortTimeFormat) return 4;
    return 8;
  }

  const rtl::TFormatSettings& FSettings;
  const TRules& FRules;
  TTextWriter FOut;
  std::uint8_t FInProgress = 0;
  std::size_t FNestedCharacters = 0;
};

}  // namespace orv
