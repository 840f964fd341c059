// A million units of what makes a scanner look ahead, look back or insert: the cost of a unit must not grow with the
// length. Each text is split as left-to-right and as right-to-left paragraph.
#include <string>

#include "bench/Rooms.h"
#include "bench/support/Measure.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv::bench {

namespace {

constexpr std::size_t Million = 1'000'000;

std::u16string Repeated(std::u16string_view head, std::u16string_view part) {
  std::u16string text(head);
  text.reserve(Million + part.size());
  while (text.size() < Million) text.append(part);
  return text;
}

struct THostileText {
  const char* Name;
  std::u16string_view Head;
  std::u16string_view Part;
};

constexpr THostileText HostileTexts[] = {
    {"brackets-open", u"", u"("},
    {"brackets-close", u"", u")"},
    {"brackets-pairs", u"", u"()"},
    {"brackets-kinds", u"", u"([{«‹"},
    {"brackets-letter", u"", u"(ב"},
    {"quotes", u"", u"\""},
    {"quotes-single", u"", u"'"},
    {"quotes-counted", u"", u": \""},
    {"digits", u"", u"1"},
    {"digits-behind-arabic-digit", u"۱", u"1"},
    {"digits-behind-latin", u"a", u"1"},
    {"digits-marked", u"", u"1.1'"},
    {"digits-blanks", u"", u"1 "},
    {"digits-dashes", u"", u"1-"},
    {"digits-equations", u"", u"1+1 = "},
    {"blanks", u"", u" "},
    {"blanks-behind-stop", u"", u". \t"},
    {"stops", u"", u"."},
    {"neutrals", u"", u"*"},
    {"separators", u"", u"\u2028"},
    {"alternating", u"", u"aב"},
    {"alternating-blanks", u"", u"a ב "},
    {"surrogates", u"", u"\U0001F600"},
};

void SplitHostile(benchmark::State& state, std::u16string_view text, TParagraphBidi base, TOrvCorrections corrections) {
  const TCorrectionsInForce inForce(corrections);
  TDirectionalRuns runs;
  for (auto iteration : state) {
    TDirectiveChars::SplitByDirection(text, base, runs);
    benchmark::DoNotOptimize(runs.Offsets.data());
    benchmark::ClobberMemory();
  }
}

struct TBaseName {
  const char* Name;
  TParagraphBidi Bidi;
};
constexpr TBaseName Bases[] = {{"ltr", TParagraphBidi::LeftToRight}, {"rtl", TParagraphBidi::RightToLeft}};

}  // namespace

void RegisterAdversarial() {
  for (const THostileText& hostile : HostileTexts) {
    for (const TBaseName& base : Bases) {
      for (const TWay& way : Ways) {
        AddRow(std::string("hostile/") + hostile.Name + "-" + base.Name + "/" + way.Name, Million,
               [hostile, base, way](benchmark::State& state) {
                 SplitHostile(state, Repeated(hostile.Head, hostile.Part), base.Bidi, way.Corrections);
               });
      }
    }
  }
}

}  // namespace orv::bench
