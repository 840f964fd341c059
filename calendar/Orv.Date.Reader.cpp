#include "calendar/Orv.Date.Reader.h"

#include "calendar/DateGlobal.h"

namespace orv {
namespace {

using TField = TFormatField;

class TReader {
 public:
  TReader(const TReaderRules& rules, std::u16string_view format, std::u16string_view text)
      : FRules(rules), FText(text), FFormats(format) {}

  std::optional<TReadParts> Read() {
    std::u16string_view format;
    std::size_t index = 0;
    while (FFormats.Current(format, index)) {
      if (!IsFieldLetter(format[index])) {
        FFormats.Advance(1);
        if (!FText.TakeUnit(format[index])) return std::nullopt;
        continue;
      }
      const TFormatToken token = ReaderToken(format, index);
      FFormats.Advance(token.Length);
      if (!Step(token.Field, format, index)) return std::nullopt;
    }
    return FParts;
  }

 private:
  bool Step(TField field, std::u16string_view format, std::size_t index) {
    switch (field) {
      case TField::Day:
        return ReadNumber(TReadField::Day, 1, 31, FParts.Day);
      case TField::Month:
        return ReadNumber(TReadField::Month, 1, 12, FParts.Month);
      case TField::ShortDayName:
        return ReadDayName(FRules.Settings.ShortDayNames);
      case TField::LongDayName:
        return ReadDayName(FRules.Settings.LongDayNames);
      case TField::ShortMonthName:
        return ReadMonthName(FRules.Settings.ShortMonthNames);
      case TField::LongMonthName:
        return ReadMonthName(FRules.Settings.LongMonthNames);
      case TField::LongYear:
        return ReadYear(0, 0);
      case TField::TwoDigitYear:
        return ReadYear(FRules.CenturyBase, FRules.CenturyWindow);
      case TField::Hour:
        return ReadTimePart(TReadField::Hour, 24, FParts.Time.Hour);
      case TField::Minute:
        return ReadTimePart(TReadField::Minute, 60, FParts.Time.Minute);
      case TField::Second:
        return ReadTimePart(TReadField::Second, 60, FParts.Time.Second);
      case TField::MilliSecond:
        return ReadTimePart(TReadField::MilliSecond, 60, FParts.Time.MilliSecond);
      case TField::MeridiemVeryShort:
      case TField::MeridiemShort:
      case TField::MeridiemLong:
        return ReadMeridiem(MeridiemPair(field, FRules.Meridiem));
      case TField::Nothing:
        return true;
      case TField::Quote:
        return FText.TakeQuoted(CopyQuotedStr(format, static_cast<std::int32_t>(index) + 1).Text);
      default:
        Enter(field);
        return true;
    }
  }

  void Enter(TField field) {
    FFormats.Enter(field, NestedFormat(field, FRules.Settings), FText.Position(), FParts.Seen.Bits());
  }

  // Notes that a field has been read; whether it is the first of its kind.
  bool Mark(TReadField field) {
    const bool first = !FParts.Seen.Contains(field);
    FParts.Seen.Include(field);
    return first;
  }

  // A value read for a field: the first one must lie within the bounds and is kept, a later one must be the same.
  template <typename T>
  bool Accept(TReadField field, std::int64_t value, std::int64_t low, std::int64_t high, T& kept) {
    if (!Mark(field)) return value == kept;
    if (value < low || value > high) return false;
    kept = static_cast<T>(value);
    return true;
  }

  bool ReadNumber(TReadField field, std::int64_t low, std::int64_t high, std::uint16_t& kept) {
    return Accept(field, FText.TakeNumber(), low, high, kept);
  }

  bool ReadTimePart(TReadField field, std::int64_t limit, std::uint16_t& kept) {
    if (FParts.Seen.Contains(field)) return false;
    return Accept(field, FText.TakeNumber(), 0, limit - 1, kept);
  }

  bool ReadYear(std::int64_t centuryBase, std::int64_t window) {
    std::int64_t year = FText.TakeNumber();
    if (year < window) year += 100;
    return Accept(TReadField::Year, year + centuryBase, std::int64_t{FRules.MinYear} + 1,
                  std::int64_t{FRules.MaxYear} - 1, FParts.Year);
  }

  bool ReadDayName(const rtl::TDayNames& names) {
    const std::int32_t number = FText.TakeName(names);
    return number > 0 && Accept(TReadField::DayName, number, 1, rtl::TDayNames::Count, FParts.DayOfWeek);
  }

  bool ReadMonthName(const rtl::TMonthNames& names) {
    const std::int32_t number = FText.TakeName(names);
    return number > 0 && Accept(TReadField::Month, number, 1, rtl::TMonthNames::Count, FParts.Month);
  }

  // An AM text holds only behind an hour up to 12, or before any.
  bool ReadMeridiem(const TMeridiemPair& texts) {
    if (FText.TakeIgnoringCase(texts.AM)) {
      return FParts.Time.Hour - 1 < 12 && AcceptMeridiem(false);
    }
    return FText.TakeIgnoringCase(texts.PM) && AcceptMeridiem(true);
  }

  bool AcceptMeridiem(bool isPM) {
    if (!Mark(TReadField::Meridiem)) return FParts.IsPM == isPM;
    FParts.IsPM = isPM;
    return true;
  }

  const TReaderRules& FRules;
  TTextCursor FText;
  TFormatStack FFormats;
  TReadParts FParts;
};

}  // namespace

std::optional<TReadParts> ReadByFormat(const TReaderRules& rules, std::u16string_view format,
                                       std::u16string_view text) {
  return TReader(rules, format, text).Read();
}

std::optional<rtl::TTimeParts> TimeRead(const TReadParts& parts) {
  rtl::TTimeParts time = parts.Time;
  if (!parts.Seen.Contains(TReadField::Meridiem)) return time;
  if (!parts.IsPM) {
    if (time.Hour - 1 > 12) return std::nullopt;
    return time;
  }
  if (time.Hour == 0) return std::nullopt;
  if (time.Hour < 13) time.Hour = static_cast<std::uint16_t>((time.Hour + 12) % 24);
  return time;
}

}  // namespace orv
