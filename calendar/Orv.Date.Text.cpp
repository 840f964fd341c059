// The text operations of calculators: what the formatter, the strict reader and the field locator are told by a
// calendar.
#include "calendar/Orv.Date.FormatWalk.h"
#include "calendar/Orv.Date.Reader.h"
#include "calendar/Orv.Date.h"
#include "rtl/Clock.h"
#include "rtl/DateErrors.h"
#include "rtl/DateTimeText.h"

namespace orv {
namespace {

// Whether an "a" or "A" stands in the format. The loop has no way out before its end, so that compilers take several
// characters at once.
bool HasLetterA(std::u16string_view format) {
  std::uint16_t found = 0;
  for (const char16_t c : format) found = static_cast<std::uint16_t>(found | ((c | 32) == u'a' ? 1 : 0));
  return found != 0;
}

// How calculators write AM and PM. The format is looked over once; its last "a" or "A" stays remembered when no AM/PM
// form stands in it, and is then a field without a text.
class TMeridiem {
 public:
  TMeridiem(const TOrvCalendarCalc& calendar, std::u16string_view format, std::uint16_t& hour) {
    if (!HasLetterA(format)) return;
    const std::size_t last = format.find_last_of(u"aA");
    FMark = last;
    for (std::size_t i = 0; i <= last; ++i) {
      if (!FoldedAt(format, i + 1, u"/p") && !FoldedAt(format, i + 1, u"m/pm") && !FoldedAt(format, i + 1, u"mpm"))
        continue;
      FMark = i;
      FText = TextOf(calendar, format.substr(i), hour);
      if (hour > 12) hour = static_cast<std::uint16_t>(hour - 12);
      return;
    }
  }

  TMeridiemField At(std::u16string_view format, std::size_t index) const {
    if (index != FMark) return {};
    const std::size_t length = rtl::UnitAt(format, static_cast<std::int64_t>(index) + 1) == u'/'   ? 3
                               : rtl::UnitAt(format, static_cast<std::int64_t>(index) + 2) == u'/' ? 5
                                                                                                   : 4;
    return {length, FText};
  }

 private:
  // The text of the form that the format begins with. Noon and the hour behind it count as morning.
  static std::u16string_view TextOf(const TOrvCalendarCalc& calendar, std::u16string_view form, std::uint16_t hour) {
    const bool afternoon = hour > 12;
    if (FoldedAt(form, 1, u"/p")) {
      const char16_t& mark = afternoon ? calendar.TimePMVeryShortString : calendar.TimeAMVeryShortString;
      return mark != u'\0' ? std::u16string_view(&mark, 1) : form.substr(afternoon ? 2 : 0, 1);
    }
    if (FoldedAt(form, 1, u"m/pm")) {
      if (calendar.TimeAMLongString.empty() || calendar.TimePMLongString.empty())
        return form.substr(afternoon ? 3 : 0, 2);
      return afternoon ? calendar.TimePMLongString : calendar.TimeAMLongString;
    }
    return afternoon ? calendar.FormatSettings.TimePMString : calendar.FormatSettings.TimeAMString;
  }

  static constexpr std::size_t None = static_cast<std::size_t>(-1);
  std::size_t FMark = None;
  std::u16string_view FText;
};

struct TCalculatorRules {
  static constexpr bool FoldsCase = true;
  const TOrvCalendarCalc& Calendar;
  TMeridiem Begin(std::u16string_view format, std::uint16_t& hour) const { return {Calendar, format, hour}; }
};

}  // namespace

UnicodeString TOrvCalendarCalc::FormatDateTimeFullToString(std::u16string_view format, const TDateTimeParts& parts,
                                                           TDayOfWeek dow, bool useSeparators) const {
  UnicodeString result;
  WriteTo(result, format, parts, dow, useSeparators);
  return result;
}

void TOrvCalendarCalc::DateTimeToString(UnicodeString& result, std::u16string_view format, TDateTime value,
                                        bool useSeparators) const {
  result.clear();
  WriteTo(result, format, DecodeDateTime(value), DayOfTheWeek(value), useSeparators);
}

UnicodeString TOrvCalendarCalc::FormatDateTime(std::u16string_view format, TDateTime value, bool useSeparators) const {
  UnicodeString result;
  DateTimeToString(result, format, value, useSeparators);
  return result;
}

void TOrvCalendarCalc::WriteTo(UnicodeString& out, std::u16string_view format, const TDateTimeParts& parts,
                               TDayOfWeek dow, bool useSeparators) const {
  const TCalculatorRules rules{*this};
  TFormatWalk<TCalculatorRules>(FormatSettings, rules, out)
      .Write(format, {parts, TDayOfWeekHelper::AsByte(dow)}, useSeparators);
}

UnicodeString TOrvCalendarCalc::DateToStr(TDateTime value) const {
  return FormatDateTime(FormatSettings.ShortDateFormat, value, true);
}

UnicodeString TOrvCalendarCalc::DateTimeToStr(TDateTime value) const {
  return DateToStr(value) + u" " + rtl::TimeToStr(value);
}

TMeridiemTexts TOrvCalendarCalc::MeridiemTexts() const {
  return {{&TimeAMVeryShortString, 1},
          {&TimePMVeryShortString, 1},
          FormatSettings.TimeAMString,
          FormatSettings.TimePMString,
          TimeAMLongString,
          TimePMLongString};
}

std::optional<TDateTime> TOrvCalendarCalc::FormatStringFullToDateTime(std::u16string_view format,
                                                                      std::u16string_view text) const {
  const TReaderRules rules = {FormatSettings, MeridiemTexts(),          MinYear,
                              MaxYear,        ShortYearStartingCentury, FormatSettings.TwoDigitYearCenturyWindow};
  const auto parts = ReadByFormat(rules, format, text);
  TDateTime value = 0;
  if (!parts || !TryEncodeRead(*parts, value)) return std::nullopt;
  // The day's number from 0 against the name's from 1: the name that passes is that of the day before.
  const bool holds = !parts->Has(TReadField::DayName) ||
                     TDayOfWeekHelper::Ordinal(DayOfTheWeek(value)) == parts->Value(TReadField::DayName);
  return holds ? std::optional(value) : std::nullopt;
}

bool TOrvCalendarCalc::TryEncodeRead(const TReadParts& parts, TDateTime& value) const {
  const auto time = TimeRead(parts);
  if (!time) return false;
  const TDateParts date = {parts.Has(TReadField::Year) ? parts.Word(TReadField::Year) : CurrentYear(),
                           parts.Has(TReadField::Month) ? parts.Word(TReadField::Month) : CurrentMonth(),
                           parts.Has(TReadField::Day) ? parts.Word(TReadField::Day) : CurrentDay()};
  return EncodeTo(value, {date, *time});
}

TDateTime TOrvCalendarCalc::StringToDateTime(std::u16string_view format, std::u16string_view text) const {
  if (const auto value = FormatStringFullToDateTime(format, text)) return *value;
  ConvertErrorFmt(rtl::SInvalidDateTime, {text});
}

std::optional<TDateTime> TOrvCalendarCalc::TryStrToDate(std::u16string_view text) const {
  return FormatStringFullToDateTime(FormatSettings.ShortDateFormat, text);
}

std::optional<TDateTime> TOrvCalendarCalc::TryStrToDateTime(std::u16string_view text) const {
  return FormatStringFullToDateTime(FormatSettings.ShortDateFormat + u" " + FormatSettings.LongTimeFormat, text);
}

std::optional<TDateTime> TOrvCalendarCalc::TryStrToDateTime(std::u16string_view text,
                                                            std::u16string_view format) const {
  return FormatStringFullToDateTime(format, text);
}

TDateTime TOrvCalendarCalc::StrToDate(std::u16string_view text) const {
  if (const auto value = TryStrToDate(text)) return *value;
  ConvertErrorFmt(rtl::SInvalidDate, {text});
}

TDateTime TOrvCalendarCalc::StrToDateTime(std::u16string_view text) const {
  if (const auto value = TryStrToDateTime(text)) return *value;
  ConvertErrorFmt(rtl::SInvalidDateTime, {text});
}

TDateTime TOrvCalendarCalc::StrToDateDef(std::u16string_view text, TDateTime other) const {
  return TryStrToDate(text).value_or(other);
}

TDateTime TOrvCalendarCalc::StrToDateTimeDef(std::u16string_view text, TDateTime other) const {
  return TryStrToDateTime(text).value_or(other);
}

TLocatedField TOrvCalendarCalc::Parser(std::int32_t fieldNumber, std::u16string_view format,
                                       std::u16string_view text) const {
  return LocateField({FormatSettings, MeridiemTexts()}, fieldNumber, format, text);
}

}  // namespace orv
