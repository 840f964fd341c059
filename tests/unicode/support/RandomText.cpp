#include "tests/unicode/support/RandomText.h"

#include <array>
#include <cstdio>
#include <cstdlib>

#include "rtl/FormatSettings.h"

namespace orv::testing {
namespace {

struct TClass {
  std::uint32_t Weight;
  std::u16string_view Units;
};

constexpr std::u16string_view RtlLetters = u"\u05D0\u05D1\u05E9\u0627\u0628\u0644\u0645\u06CC\u067E\u06AF\u06D5\u0640";
constexpr std::u16string_view LtrLetters = u"abkmxyAKMZ\u00E9\u00DF\u0434\u03B1\u4E2D\u0E01\u01C5\u02B0";
constexpr std::u16string_view AsciiDigits = u"0123456789";
constexpr std::u16string_view ArabicDigits = u"\u0660\u0661\u0669\u06F0\u06F1\u06F9";

constexpr TClass Classes[] = {
    {14, RtlLetters},
    {12, LtrLetters},
    {12, AsciiDigits},
    {4, ArabicDigits},
    {1, u"\u0967\uFF15\u0E55"},  // other decimal digits
    {14, u" "},
    {3, u"\u00A0\u2009\u200A\u3000\u1680\u202F"},
    {4, u"\u200B\u200C\u200D\u200A"},
    {9, u"."},
    {8, u"\"'"},
    {8, u"()[]{}"},
    {5,
     u"\u00AB\u00BB\u2039\u203A\u201C\u201D\u2018\u2019\u201A\u201B\u201F\u2045\u2046\u27E8\u27E9\uFD3E\uFD3F\u0F3A"
     u"\u0F3B\u300C\u300D\uFF08\uFF09\u2E02\u2E03\u2E20\u2E21"},
    {5, u"\r\n\n\u2028\u2029"},
    {4, u"\u200E\u200F\u202A\u202B\u202C\u202D\u202E\u2066\u2067\u2069\u00AD\uFEFF\u061C\u0600\u06DD\u2060"},
    {4, u"\u064B\u064E\u0651\u0670\u05B0\u05BC\u05C1\u0300\u0301\u093E\u20DD"},
    {1, u"\xD800\xDBFF\xDC00\xDFFF\xD83D\xDE00"},
    {3, u"\t\u000B\u000C\u001F\u0085\u007F"},
    {2, u"\uFB1D\uFB2A\uFB50\uFDF2\uFE80\uFE8E\uFEFB\uFEFC\uFEFE\uFB00\uFF21"},
    {9, u"-+/%:!@#=*&_^$<>~|\\`"},
    {4, u",;?\u2032\u2033\u2034"},
    {3, u"\u2035\u2036\u2037\u2E2E\u060C\u061B\u061F\u066A\u066B\u066C\u066D\u06D4\u05BE\u05C0"},
    {3, u"\u00B0\u00B5\u00B2\u00B3\u00BC\u00BD\u00BE\u00B7\u20AC\u2116\u2160\u00B9\u2022\u2013\u2014\u2212\u2026"},
};

constexpr std::uint32_t TotalWeight = [] {
  std::uint32_t total = 0;
  for (const TClass& one : Classes) total += one.Weight;
  return total;
}();

// What the number rules know, and what stands beside it. R stands for a right-to-left letter, n for a digit.
constexpr std::u16string_view Phrases[] = {
    u"R",
    u"RRR",
    u"RR RR",
    u"abc",
    u"a",
    u" ",
    u"  ",
    u"n",
    u"nn",
    u"n.n",
    u"n'nnn",
    u"n'nnn.nn",
    u"nn.",
    u"n km",
    u"n m ",
    u"n km ",
    u"n m\u00B2 ",
    u"n km\u00B2)",
    u"n \u00B5m ",
    u"n \u00B0C ",
    u"n\"",
    u"n'",
    u"n%",
    u"nD",
    u"nnd",
    u"n.nx",
    u"nn/nn/nnnn",
    u"n-n-nn",
    u"nn- ",
    u"nn. ",
    u"nn.R",
    u"nn R",
    u"nn)",
    u"nn(",
    u"nn\n",
    u"n + n = n a",
    u"n+R",
    u"n + R",
    u"n=n R",
    u"n * ",
    u"(RR)",
    u"(abc)",
    u"(nn)",
    u"[R a]",
    u"{",
    u"}",
    u"(",
    u")",
    u"\u00ABR\u00BB",
    u"\u00ABa\u00BB",
    u" R\"R R\"",
    u" a\"a a\"",
    u": \"R\"",
    u" x'",
    u"'",
    u"\"",
    u". ",
    u".",
    u"... ",
    u"!. R",
    u"!. a",
    u"! ",
    u", ",
    u": ",
    u"\n",
    u"\r\n",
    u"\n\n",
    u" \n",
    u"!\n",
    u"\u2029",
    u" \u2028",
    u"\u200C",
    u"R\u200CR",
    u"R\u200AR",
    u" \u200B",
    u"\u202AR",
    u"\u2069",
    u"\u00AD",
    u"\u0661\u0662",
    u"\u06F1",
    u"-",
    u"/",
    u"R.",
    u"a.",
    u"R. ",
    u"a. R",
    u"R.a",
    u"\u0651",
};

char16_t OneOf(TRandom& random, std::u16string_view units) {
  return units[random.Below(static_cast<std::uint32_t>(units.size()))];
}

char16_t WeightedUnit(TRandom& random) {
  if (random.OneIn(64)) return random.OneIn(3) ? u'\0' : static_cast<char16_t>(random.Next());
  std::uint32_t place = random.Below(TotalWeight);
  for (const TClass& one : Classes) {
    if (place < one.Weight) return OneOf(random, one.Units);
    place -= one.Weight;
  }
  return u' ';
}

std::u16string FromClasses(TRandom& random, std::size_t length) {
  std::u16string text;
  while (text.size() < length) text.push_back(WeightedUnit(random));
  return text;
}

std::u16string FromFewUnits(TRandom& random, std::size_t length) {
  const std::u16string units = FromClasses(random, 2 + random.Below(5));
  std::u16string text;
  while (text.size() < length) text.push_back(OneOf(random, units));
  return text;
}

std::u16string FromPhrases(TRandom& random, std::size_t length) {
  std::u16string text;
  while (text.size() < length)
    for (const char16_t c : Phrases[random.Below(static_cast<std::uint32_t>(std::size(Phrases)))])
      text.push_back(c == u'R' ? OneOf(random, RtlLetters) : c == u'n' ? OneOf(random, AsciiDigits) : c);
  return text;
}

// Words of one direction with now and then something else: what the fast roads are made for.
std::u16string FromProse(TRandom& random, std::size_t length) {
  const std::u16string_view letters = random.OneIn(2) ? RtlLetters : LtrLetters;
  const std::uint32_t rarity = 5 + random.Below(60);
  std::u16string text;
  while (text.size() < length) {
    if (random.OneIn(rarity))
      text += FromPhrases(random, 1);
    else if (random.OneIn(rarity))
      text.push_back(WeightedUnit(random));
    else
      text.push_back(random.OneIn(6) ? u' ' : OneOf(random, letters));
  }
  return text;
}

}  // namespace

std::uint64_t TRandom::Next() {
  FState += 0x9E3779B97F4A7C15ULL;
  std::uint64_t z = FState;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
  return z ^ (z >> 31);
}

std::uint32_t TRandom::Below(std::uint32_t bound) {
  return static_cast<std::uint32_t>((Next() >> 32) * bound >> 32);
}

std::u16string RandomText(TRandom& random, std::size_t length) {
  switch (random.Below(4)) {
    case 0:
      return FromClasses(random, length);
    case 1:
      return FromFewUnits(random, length);
    case 2:
      return FromPhrases(random, length);
    default:
      return FromProse(random, length);
  }
}

std::u16string RandomText(TRandom& random) {
  const std::uint32_t longest = random.OneIn(100) ? 400 : random.OneIn(4) ? 60 : 14;
  return RandomText(random, random.Below(longest));
}

std::span<const char16_t> ClassRepresentatives() {
  // Digits and the zero separately from letters; each bracket kind; each line end; each reason to be skipped.
  static constexpr char16_t units[] = {u'\u05D0', u'a', u'1',      u'\u0661', u' ',      u'\u200C', u'.',
                                       u'"',      u'(', u')',      u'\n',     u'\u2028', u'\u202A', u'\u00AD',
                                       u'-',      u'%', u'\u0300', u',',      u'\uFE8E', u'\0',     u'\xD800'};
  return units;
}

TParagraphBidi RandomParagraph(TRandom& random) {
  return static_cast<TParagraphBidi>(random.OneIn(10) ? random.Below(8) : random.Below(5));
}

std::string Shown(const TSettings& settings) {
  char line[160];
  std::snprintf(
      line, sizeof line, "EquationOrder %d, ArabicDigitType %d, Options 0x%X, Corrections 0x%llX, separator U+%04X",
      static_cast<int>(settings.EquationOrder), static_cast<int>(settings.ArabicDigitType),
      static_cast<unsigned>(settings.Options.Bits()), static_cast<unsigned long long>(settings.Corrections.Bits()),
      static_cast<unsigned>(settings.DateSeparator));
  return line;
}

TSettings RandomSettings(TRandom& random) {
  TSettings settings;
  if (random.OneIn(3)) return settings;
  settings.EquationOrder = static_cast<TOrvGlobalSettings::TMathOrder>(random.Below(2));
  settings.ArabicDigitType = static_cast<TOrvGlobalSettings::TArabicDigitType>(random.Below(3));
  settings.Options = TOrvGlobalOptions::FromBits(static_cast<std::uint16_t>(random.Below(1 << 11)));
  if (random.OneIn(8)) settings.DateSeparator = OneOf(random, u".1' \u066B");
  return settings;
}

TOrvCorrections RandomCorrections(TRandom& random) {
  if (random.OneIn(4)) return AllCorrections;
  return TOrvCorrections::FromBits(AllCorrections.Bits() & random.Next());
}

TSettingsGuard::TSettingsGuard(const TSettings& settings)
    : FFormer{TOrvGlobalSettings::EquationOrder, TOrvGlobalSettings::ArabicDigitType, TOrvGlobalSettings::Options,
              TOrvGlobalSettings::Corrections, rtl::FormatSettings().DateSeparator} {
  TOrvGlobalSettings::EquationOrder = settings.EquationOrder;
  TOrvGlobalSettings::ArabicDigitType = settings.ArabicDigitType;
  TOrvGlobalSettings::Options = settings.Options;
  TOrvGlobalSettings::Corrections = settings.Corrections;
  rtl::FormatSettings().DateSeparator = settings.DateSeparator;
}

TSettingsGuard::~TSettingsGuard() {
  TOrvGlobalSettings::EquationOrder = FFormer.EquationOrder;
  TOrvGlobalSettings::ArabicDigitType = FFormer.ArabicDigitType;
  TOrvGlobalSettings::Options = FFormer.Options;
  TOrvGlobalSettings::Corrections = FFormer.Corrections;
  rtl::FormatSettings().DateSeparator = FFormer.DateSeparator;
}

std::string Shown(std::u16string_view text) {
  std::string shown;
  for (const char16_t c : text) {
    if (c >= 0x20 && c < 0x7F) {
      shown.push_back(static_cast<char>(c));
    } else {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned>(c));
      shown += escape;
    }
  }
  return shown;
}

std::string Shown(const TDirectionalRuns& runs) {
  std::string shown = "offsets";
  for (const std::int32_t offset : runs.Offsets) shown += ' ' + std::to_string(offset);
  shown += " order";
  for (const std::int32_t index : runs.VisualOrder) shown += ' ' + std::to_string(index);
  shown += " bidi ";
  for (const TBidi bidi : runs.Bidi) shown += "LRP?"[bidi > TBidi::ParagraphSeparator ? 3 : static_cast<int>(bidi)];
  shown += " ranges";
  for (const TRange range : runs.Ranges)
    shown += ' ' + std::to_string(range.LowIndex) + '-' + std::to_string(range.HighIndex);
  return shown;
}

std::u16string Shrink(std::u16string text, const std::function<bool(std::u16string_view)>& fails) {
  for (std::size_t width = text.size(); width > 0; width = width > 1 ? width / 2 : 0) {
    for (std::size_t place = 0; place + width <= text.size();) {
      std::u16string shorter = text;
      shorter.erase(place, width);
      if (fails(shorter))
        text = shorter;
      else
        ++place;
    }
  }
  return text;
}

int Trials(int atFullSpeed) {
#ifdef ORV_SLOW_BUILD
  return atFullSpeed / 8;
#else
  return atFullSpeed;
#endif
}

}  // namespace orv::testing
