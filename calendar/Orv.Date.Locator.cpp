#include "calendar/Orv.Date.Locator.h"

#include "calendar/DateGlobal.h"

namespace orv {
namespace {

using TField = TFormatField;
using TMask = TOrvDateTimeMaskType;

// Hours are of twelve where the outermost format has an AM/PM field anywhere.
TMask HourMask(std::u16string_view format) {
  for (const std::u16string_view meridiem : {u"a/p", u"am/pm", u"ampm"})
    if (format.find(meridiem) != std::u16string_view::npos) return TMask::hdmt12Hour;
  return TMask::hdmt24Hour;
}

class TLocator {
 public:
  TLocator(const TLocatorRules& rules, std::int32_t fieldNumber, std::u16string_view format, std::u16string_view text)
      : FRules(rules),
        FWanted(fieldNumber),
        FHourMask(HourMask(format)),
        FText(text),
        FFormats(format, rules.Settings) {}

  TLocatedField Locate() {
    if (!Walk() || FCounter != FWanted) FFound.Type = TMask::hdmtNone;
    return FFound;
  }

 private:
  // Whether every step held, up to the field wanted or the end of the format.
  bool Walk() {
    std::u16string_view format;
    std::size_t index = 0;
    while (FFormats.Current(format, index)) {
      const TFormatToken token = LocatorToken(format, index);
      FFormats.Advance(token.Length);
      if (!Step(token, format, index)) return false;
      if (FCounter >= FWanted && !GoesIn(token.Field)) return true;
    }
    return true;
  }

  // Whether the field is a nested format with steps of its own, behind each of which the walk may end.
  bool GoesIn(TField field) const { return IsNested(field) && FFormats.AtFirstStep(); }

  bool Step(const TFormatToken& token, std::u16string_view format, std::size_t index) {
    const rtl::TFormatSettings& settings = FRules.Settings;
    switch (token.Field) {
      case TField::Day:
        return Number(TMask::hdmtDay, token.Doubled);
      case TField::Month:
        return Number(TMask::hdmtMonth, token.Doubled);
      case TField::TwoDigitYear:
        return Number(TMask::hdmtYear, token.Doubled);
      case TField::LongYear:
        return Number(TMask::hdmtLongYear, token.Doubled);
      case TField::Hour:
        return Number(FHourMask, token.Doubled);
      case TField::Minute:
        return Number(TMask::hdmtMinute, token.Doubled);
      case TField::Second:
        return Number(TMask::hdmtSecond, token.Doubled);
      case TField::MilliSecond:
        return Number(TMask::hdmtMilliSec, token.Doubled);
      case TField::ShortMonthName:
        return Found(TMask::hdmtLongMonth, [&] { return FText.TakeName(settings.ShortMonthNames) > 0; });
      case TField::LongMonthName:
        return Found(TMask::hdmtLongMonth, [&] { return FText.TakeName(settings.LongMonthNames) > 0; });
      case TField::MeridiemVeryShort:
        return Meridiem(TMask::hdmtAmPmVeryShort, token.Field);
      case TField::MeridiemShort:
        return Meridiem(TMask::hdmtAmPm, token.Field);
      case TField::MeridiemLong:
        return Meridiem(TMask::hdmtAmPmShort, token.Field);
      case TField::ShortDayName:
      case TField::LongDayName:
      case TField::Nothing:
        return true;
      case TField::Quote:
        return FText.TakeQuoted(CopyQuotedStr(format, static_cast<std::int32_t>(index) + 1).Text);
      case TField::Literal:
        return FText.TakeUnit(format[index]);
      default:
        FFormats.Enter(token.Field, FText.Position(), static_cast<std::uint32_t>(FCounter));
        return true;
    }
  }

  // A field: counted, and its place noted, whether its text stands there or not.
  template <typename TTake>
  bool Found(TMask mask, const TTake& take) {
    FFound.Type = mask;
    FFound.Start = FText.Position();
    const bool stands = take();
    FFound.Length = FText.Position() - FFound.Start;
    ++FCounter;
    return stands;
  }

  bool Number(TMask mask, bool doubled) {
    const bool stands = Found(mask, [this] { return !FText.TakeDigits().empty(); });
    if (doubled && FCounter == FWanted) FFound.Variable = false;
    return stands;
  }

  bool Meridiem(TMask mask, TField field) {
    const TMeridiemPair texts = MeridiemPair(field, FRules.Meridiem);
    return Found(mask, [&] { return FText.Take(texts.AM) || FText.Take(texts.PM); });
  }

  const TLocatorRules& FRules;
  const std::int32_t FWanted;
  const TMask FHourMask;
  TTextCursor FText;
  TFormatStack FFormats;
  TLocatedField FFound;
  std::int32_t FCounter = 0;
};

}  // namespace

TLocatedField LocateField(const TLocatorRules& rules, std::int32_t fieldNumber, std::u16string_view format,
                          std::u16string_view text) {
  return TLocator(rules, fieldNumber, format, text).Locate();
}

}  // namespace orv
