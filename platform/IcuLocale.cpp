#include "platform/IcuLocale.h"

#include <unicode/calendar.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/dtfmtsym.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <memory>
#include <string>

#include "platform/IcuPatterns.h"

namespace orv::platform {
namespace {

constexpr std::size_t LongestName = 32;

rtl::UnicodeString TextOf(const icu::UnicodeString& text) {
  return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

// The locale of a name in ASCII letters, digits, "-" and "_", if ICU has data for its language.
std::optional<icu::Locale> LocaleOf(std::u16string_view name) {
  if (name.empty() || name.size() > LongestName) return std::nullopt;
  std::string ascii;
  for (const char16_t c : name) {
    if (c > 0x7F || !(std::isalnum(c) || c == u'-' || c == u'_')) return std::nullopt;
    ascii += c == u'_' ? '-' : static_cast<char>(c);
  }
  UErrorCode status = U_ZERO_ERROR;
  const icu::Locale locale = icu::Locale::forLanguageTag(ascii, status);
  if (U_FAILURE(status) || locale.isBogus()) return std::nullopt;
  int32_t count = 0;
  const icu::Locale* known = icu::Locale::getAvailableLocales(count);
  const std::string_view language = locale.getLanguage();
  const bool available =
      std::any_of(known, known + count, [language](const icu::Locale& l) { return language == l.getLanguage(); });
  return available ? std::optional(locale) : std::nullopt;
}

// The same locale with the Gregorian calendar: some count in another one by default.
icu::Locale Gregorian(icu::Locale locale) {
  UErrorCode status = U_ZERO_ERROR;
  locale.setKeywordValue("calendar", "gregorian", status);
  return locale;
}

template <std::size_t N>
void FillNames(rtl::TNames<N>& names, const icu::UnicodeString* source, int32_t count, int32_t first) {
  for (std::size_t i = 0; i < N && static_cast<int32_t>(i) + first < count; ++i)
    names.Names[i] = TextOf(source[static_cast<int32_t>(i) + first]);
}

void FillNames(rtl::TFormatSettings& settings, const icu::Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::DateFormatSymbols symbols(locale, status);
  if (U_FAILURE(status)) return;
  using S = icu::DateFormatSymbols;
  constexpr int32_t sunday = UCAL_SUNDAY;
  int32_t count = 0;
  const icu::UnicodeString* names = symbols.getMonths(count, S::STANDALONE, S::ABBREVIATED);
  FillNames(settings.ShortMonthNames, names, count, 0);
  names = symbols.getMonths(count, S::STANDALONE, S::WIDE);
  FillNames(settings.LongMonthNames, names, count, 0);
  names = symbols.getWeekdays(count, S::STANDALONE, S::ABBREVIATED);
  FillNames(settings.ShortDayNames, names, count, sunday);
  names = symbols.getWeekdays(count, S::STANDALONE, S::WIDE);
  FillNames(settings.LongDayNames, names, count, sunday);
  names = symbols.getAmPmStrings(count);
  if (count < 2) return;
  settings.TimeAMString = TextOf(names[0]);
  settings.TimePMString = TextOf(names[1]);
}

rtl::UnicodeString PatternOf(icu::DateFormat* format) {
  const std::unique_ptr<icu::DateFormat> owned(format);
  const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format);
  if (simple == nullptr) return {};
  icu::UnicodeString pattern;
  return TextOf(simple->toPattern(pattern));
}

void FillFormats(rtl::TFormatSettings& settings, const icu::Locale& locale) {
  using D = icu::DateFormat;
  const rtl::UnicodeString shortDate = PatternOf(D::createDateInstance(D::SHORT, locale));
  const rtl::UnicodeString longDate = PatternOf(D::createDateInstance(D::FULL, locale));
  const rtl::UnicodeString shortTime = PatternOf(D::createTimeInstance(D::SHORT, locale));
  const rtl::UnicodeString longTime = PatternOf(D::createTimeInstance(D::MEDIUM, locale));
  if (shortDate.empty() || longDate.empty() || shortTime.empty() || longTime.empty()) return;
  settings.DateSeparator = SeparatorOf(shortDate, settings.DateSeparator);
  settings.TimeSeparator = SeparatorOf(shortTime, settings.TimeSeparator);
  settings.ShortDateFormat = FormatOfDatePattern(shortDate, settings.DateSeparator);
  settings.LongDateFormat = FormatOfDatePattern(longDate, settings.DateSeparator);
  settings.ShortTimeFormat = FormatOfTimePattern(shortTime, settings.TimeSeparator);
  settings.LongTimeFormat = FormatOfTimePattern(longTime, settings.TimeSeparator);
}

// The first sign of a symbol that is no direction mark.
char16_t SignOf(const icu::UnicodeString& symbol, char16_t other) {
  for (int32_t i = 0; i < symbol.length(); ++i)
    if (!IsDirectionMark(symbol[i])) return symbol[i];
  return other;
}

// Where the currency stands to the number in a pattern.
struct TCurrencyPlace {
  bool Behind = false;
  bool Apart = false;
  bool InParentheses = false;  // negative amounts
};

TCurrencyPlace PlaceOf(const rtl::UnicodeString& pattern) {
  const std::u16string_view positive = std::u16string_view(pattern).substr(0, pattern.find(u';'));
  const std::size_t currency = positive.find(u'\u00A4');
  if (currency == positive.npos) return {};
  const std::size_t number = positive.find_first_of(u"#0");
  TCurrencyPlace place;
  place.Behind = number != positive.npos && number < currency;
  place.Apart = positive.find_first_of(u" \u00A0\u202F") != positive.npos;
  place.InParentheses = pattern.find(u'(', positive.size()) != pattern.npos;
  return place;
}

std::uint8_t CurrencyFormatOf(TCurrencyPlace place) {
  return static_cast<std::uint8_t>((place.Behind ? 1 : 0) + (place.Apart ? 2 : 0));
}

// In the record's numbering: 0 "($1)", 4 "(1$)", 14 "($ 1)", 15 "(1 $)", 1 "-$1", 5 "-1$", 9 "-$ 1", 8 "-1 $".
std::uint8_t NegCurrFormatOf(TCurrencyPlace place) {
  if (place.InParentheses) return place.Apart ? (place.Behind ? 15 : 14) : (place.Behind ? 4 : 0);
  return place.Apart ? (place.Behind ? 8 : 9) : (place.Behind ? 5 : 1);
}

void FillMoney(rtl::TFormatSettings& settings, const icu::Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::NumberFormat> format(icu::NumberFormat::createCurrencyInstance(locale, status));
  const auto* decimal = dynamic_cast<const icu::DecimalFormat*>(format.get());
  if (U_FAILURE(status) || decimal == nullptr) return;
  const icu::DecimalFormatSymbols* symbols = decimal->getDecimalFormatSymbols();
  using S = icu::DecimalFormatSymbols;
  settings.CurrencyString.clear();
  for (const char16_t c : TextOf(symbols->getSymbol(S::kCurrencySymbol)))
    if (!IsDirectionMark(c)) settings.CurrencyString += c;
  settings.CurrencyDecimals = static_cast<std::uint8_t>(decimal->getMinimumFractionDigits());
  icu::UnicodeString pattern;
  const TCurrencyPlace place = PlaceOf(TextOf(decimal->toPattern(pattern)));
  settings.CurrencyFormat = CurrencyFormatOf(place);
  settings.NegCurrFormat = NegCurrFormatOf(place);
  settings.DecimalSeparator = SignOf(symbols->getSymbol(S::kDecimalSeparatorSymbol), settings.DecimalSeparator);
  settings.ThousandSeparator = SignOf(symbols->getSymbol(S::kGroupingSeparatorSymbol), settings.ThousandSeparator);
}

bool IsInArabicScript(const rtl::TFormatSettings& settings) {
  const std::u16string_view name = settings.LongDayNames[1];
  UErrorCode status = U_ZERO_ERROR;
  return !name.empty() && uscript_getScript(static_cast<UChar32>(name[0]), &status) == USCRIPT_ARABIC;
}

char16_t ListSeparatorOf(const rtl::TFormatSettings& settings) {
  if (IsInArabicScript(settings)) return u'؛';
  return settings.DecimalSeparator == u',' ? u';' : u',';
}

}  // namespace

std::optional<rtl::TFormatSettings> TIcuLocaleSource::FindLocale(std::u16string_view localeName) const {
  const std::optional<icu::Locale> locale = LocaleOf(localeName);
  if (!locale) return std::nullopt;
  const icu::Locale gregorian = Gregorian(*locale);
  rtl::TFormatSettings settings;
  FillNames(settings, gregorian);
  FillFormats(settings, gregorian);
  FillMoney(settings, *locale);
  settings.ListSeparator = ListSeparatorOf(settings);
  return settings;
}

}  // namespace orv::platform
