#include "calendar/Orv.Date.Reader.h"

#include "calendar/DateGlobal.h"

namespace orv {
namespace {

using TField = TFormatField;

// Whether the letter at first stands more often, from the place-th letter on.
constexpr bool Stands(const char16_t* first, const char16_t* end, std::ptrdiff_t place) {
  return end - first > place && first[place] == *first;
}

class TReader {
 public:
  // The parts are borrowed, and begin empty.
  TReader(const TReaderRules& rules, std::u16string_view format, std::u16string_view text, TReadParts& parts)
      : FRules(rules), FText(text), FFormats(format, rules.Settings), FParts(parts) {}

  // Whether the text follows the format.
  bool Read() {
    std::u16string_view format;
    std::size_t index = 0;
    while (FFormats.Current(format, index))
      if (!Walk(format, index)) return false;
    return true;
  }

 private:
  // One format from a place on, up to its end or into a format nested in it. Literals and numbers, which are most of
  // what stands there, move copies of the cursors, which the compiler can keep in registers; the rules of each number
  // are known at its letter, so that nothing of them is looked up.
  bool Walk(std::u16string_view format, std::size_t first) {
    TTextCursor text = FText;
    const char16_t* const end = format.data() + format.size();
    for (const char16_t* at = format.data() + first; at != end;) {
      std::ptrdiff_t letters = 0;
      bool holds = true;
      switch (*at) {
        case u'd':
          letters = OneOrTwo(at, end);
          if (letters > 0) holds = TakeNumber<TReadField::Day, 1, 31>(text);
          break;
        case u'm':
          letters = OneOrTwo(at, end);
          if (letters > 0) holds = TakeNumber<TReadField::Month, 1, 12>(text);
          break;
        case u'y':
          letters = Four(at, end);
          if (letters > 0) holds = AcceptYear(text.TakeNumber());
          break;
        case u'h':
          letters = Stands(at, end, 1) ? 2 : 1;
          holds = TakeTimePart<TReadField::Hour, 24>(text);
          break;
        case u'n':
          letters = Stands(at, end, 1) ? 2 : 1;
          holds = TakeTimePart<TReadField::Minute, 60>(text);
          break;
        case u's':
          letters = Stands(at, end, 1) ? 2 : 1;
          holds = TakeTimePart<TReadField::Second, 60>(text);
          break;
        default:
          if (IsFieldLetter(*at)) break;
          letters = 1;
          holds = text.TakeUnit(*at);
      }
      if (!holds) return false;
      at += letters;
      if (letters > 0) continue;

      FText = text;
      const auto index = static_cast<std::size_t>(at - format.data());
      const TFormatToken token = ReaderToken(format, index);
      if (IsNested(token.Field)) {
        Enter(token.Field, index + token.Length - first);
        return true;
      }
      if (!Step(token.Field, format, index)) return false;
      text = FText;
      at += token.Length;
    }
    FText = text;
    FFormats.Advance(format.size() - first);
    return true;
  }

  // How many letters a day or month takes that is a number; 0 for names and dates.
  static std::ptrdiff_t OneOrTwo(const char16_t* at, const char16_t* end) {
    if (!Stands(at, end, 1)) return 1;
    return Stands(at, end, 2) ? 0 : 2;
  }

  // 4 where a run of exactly four letters stands.
  static std::ptrdiff_t Four(const char16_t* at, const char16_t* end) {
    const bool four = Stands(at, end, 1) && Stands(at, end, 2) && Stands(at, end, 3) && !Stands(at, end, 4);
    return four ? 4 : 0;
  }

  template <TReadField Part, std::int32_t Low, std::int32_t High>
  [[gnu::always_inline]] bool TakeNumber(TTextCursor& text) {
    const std::int32_t value = text.TakeNumber();
    return Accept<std::int32_t>(Part, value, Low, High);
  }

  template <TReadField Part, std::int32_t Limit>
  [[gnu::always_inline]] bool TakeTimePart(TTextCursor& text) {
    return !FParts.Has(Part) && TakeNumber<Part, 0, Limit - 1>(text);
  }

  // Goes into a nested format, behind which the walk goes on so many characters further in the present one.
  void Enter(TField field, std::size_t advance) {
    FFormats.Advance(advance);
    FFormats.Enter(field, FText.Position(), FParts.Seen.Bits());
  }

  // Fields that the walk itself does not take.
  bool Step(TField field, std::u16string_view format, std::size_t index) {
    switch (field) {
      case TField::ShortDayName:
        return ReadName(TReadField::DayName, FRules.Settings.ShortDayNames);
      case TField::LongDayName:
        return ReadName(TReadField::DayName, FRules.Settings.LongDayNames);
      case TField::ShortMonthName:
        return ReadName(TReadField::Month, FRules.Settings.ShortMonthNames);
      case TField::LongMonthName:
        return ReadName(TReadField::Month, FRules.Settings.LongMonthNames);
      case TField::Quote:
        return FText.TakeQuoted(CopyQuotedStr(format, static_cast<std::int32_t>(index) + 1).Text);
      case TField::TwoDigitYear:
        return ReadYearOfCentury();
      case TField::MilliSecond:
        return TakeTimePart<TReadField::MilliSecond, 60>(FText);
      case TField::Nothing:
        return true;
      default:
        return ReadMeridiem(MeridiemPair(field, FRules.Meridiem));
    }
  }

  // A value read for a part: the first one must lie within the bounds and is kept, a later one must be the same.
  template <typename TNumber>
  bool Accept(TReadField part, TNumber value, TNumber low, TNumber high) {
    std::int32_t& kept = FParts.Values[static_cast<std::size_t>(part)];
    if (FParts.Has(part)) return value == kept;
    if (value < low || value > high) return false;
    FParts.Seen.Include(part);
    kept = static_cast<std::int32_t>(value);
    return true;
  }

  bool AcceptYear(std::int64_t year) {
    return Accept<std::int64_t>(TReadField::Year, year, std::int64_t{FRules.MinYear} + 1,
                                std::int64_t{FRules.MaxYear} - 1);
  }

  bool ReadYearOfCentury() {
    const std::int64_t value = FText.TakeNumber();
    return AcceptYear(value + FRules.CenturyBase + (value < FRules.CenturyWindow ? 100 : 0));
  }

  template <typename TNames>
  bool ReadName(TReadField part, const TNames& names) {
    const std::int32_t number = FText.TakeName(names);
    return number > 0 && Accept(part, number, 1, TNames::Count);
  }

  // An AM text holds only behind an hour up to 12, or before any.
  bool ReadMeridiem(const TMeridiemPair& texts) {
    if (FText.TakeIgnoringCase(texts.AM))
      return FParts.Value(TReadField::Hour) <= 12 && Accept(TReadField::Meridiem, 0, 0, 1);
    return FText.TakeIgnoringCase(texts.PM) && Accept(TReadField::Meridiem, 1, 0, 1);
  }

  const TReaderRules& FRules;
  TTextCursor FText;
  TFormatStack FFormats;
  TReadParts& FParts;
};

}  // namespace

std::optional<TReadParts> ReadByFormat(const TReaderRules& rules, std::u16string_view format,
                                       std::u16string_view text) {
  std::optional<TReadParts> parts(std::in_place);
  if (!TReader(rules, format, text, *parts).Read()) parts.reset();
  return parts;
}

}  // namespace orv
