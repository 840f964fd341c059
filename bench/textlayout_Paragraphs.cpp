// Laying out paragraphs, wrapped, in a layout that is used again: beside Qt, and beside what HarfBuzz takes for shaping
// alone. And very long paragraphs, whose cost for a unit must not grow.
#include <ctime>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/Rooms.h"
#include "bench/support/Layouts.h"
#include "bench/support/Measure.h"

namespace orv::bench {

namespace {

// Shows that all wrap alike.
void ReportLines(benchmark::State& state, std::int64_t lines) {
  state.counters["lines"] = static_cast<double>(lines);
}

void LayOut(benchmark::State& state, std::span<const std::u16string_view> texts, TOrvCorrections corrections) {
  const TCorrectionsInForce inForce(corrections);
  const auto layout = MakeLayout(TLines::Wrapped);
  for (const std::u16string_view text : texts) layout->SetText(text);  // meets every glyph
  for (auto iteration : state) {
    for (const std::u16string_view text : texts) {
      layout->SetText(text);
      benchmark::DoNotOptimize(layout->Frame().Height());
    }
  }
  std::int64_t lines = 0;
  for (const std::u16string_view text : texts) {
    layout->SetText(text);
    lines += layout->Frame().Count();
  }
  ReportLines(state, lines);
}

void LayOutWithQt(benchmark::State& state, const TParagraphs& paragraphs) {
  if (!TQtLayout::HasFont()) return state.SkipWithError("no DejaVu Sans");
  std::vector<QString> texts;
  for (const std::u16string_view text : paragraphs.Texts()) texts.push_back(ToQt(text));
  TQtLayout layout(TLines::Wrapped);
  for (const QString& text : texts) layout.SetText(text);
  for (auto iteration : state) {
    for (const QString& text : texts) benchmark::DoNotOptimize(layout.SetText(text));
  }
  std::int64_t lines = 0;
  for (const QString& text : texts) {
    layout.SetText(text);
    lines += layout.LineCount();
  }
  ReportLines(state, lines);
}

void ShapeWithHarfBuzz(benchmark::State& state, const TParagraphs& paragraphs) {
  THarfBuzz harfBuzz;
  if (!harfBuzz.HasFont()) return state.SkipWithError("no DejaVu Sans");
  for (const std::u16string_view text : paragraphs.Texts()) harfBuzz.Shape(text);
  for (auto iteration : state) {
    for (const std::u16string_view text : paragraphs.Texts()) benchmark::DoNotOptimize(harfBuzz.Shape(text));
  }
}

void AddParagraphRows(const std::string& name, const TCorpus& corpus) {
  const auto paragraphs = std::make_shared<const TParagraphs>(corpus);
  const std::string prefix = "layout/" + name + "/";
  for (const TWay& way : Ways) {
    AddRow(prefix + way.Name, paragraphs->Units(),
           [paragraphs, way](benchmark::State& state) { LayOut(state, paragraphs->Texts(), way.Corrections); });
  }
  AddRow(prefix + "qt", paragraphs->Units(),
         [paragraphs](benchmark::State& state) { LayOutWithQt(state, *paragraphs); });
  AddRow(prefix + "hb_shape", paragraphs->Units(),
         [paragraphs](benchmark::State& state) { ShapeWithHarfBuzz(state, *paragraphs); });
}

// --- Long paragraphs ---

constexpr std::int64_t LongUnits = 100'000;
constexpr std::int64_t VeryLongUnits = 1'000'000;
constexpr double Patience = 0.03;  // seconds of the processor

// Two texts of one kind in turn: a layout does nothing for the text that it has.
struct TLongTexts {
  std::u16string First;
  std::u16string Second;

  explicit TLongTexts(std::u16string text) : First(std::move(text)), Second(First) {
    Second.back() = First.back() == u'.' ? u'!' : u'.';
  }
};

std::u16string Repeated(std::u16string_view part, std::int64_t units) {
  std::u16string text;
  while (text.size() < static_cast<std::size_t>(units)) text += part;
  text.resize(static_cast<std::size_t>(units));
  return text;
}

struct TLongKind {
  const char* Name;
  std::u16string_view Part;  // repeated; empty for the corpus of that name
};
constexpr TLongKind LongKinds[] = {{"fa", {}},
                                   {"mixed", {}},
                                   {"alternating", u"abc \u0633\u0644\u0627 de \u0645\u0646 "},
                                   {"alternating-without-blanks", u"abc\u0633\u0644\u0627de\u0645\u0646"},
                                   {"tabs", u"\ta\t\u0628"},
                                   {"blanks", u" "},
                                   {"one-word", u"\u0628"},
                                   {"line-ends", u"a\n"}};

// Made when their first row runs.
const TLongTexts& LongTexts(const TLongKind& kind, std::int64_t units) {
  static std::map<std::pair<std::string, std::int64_t>, TLongTexts> kept;
  const std::pair key(std::string(kind.Name), units);
  const auto found = kept.find(key);
  if (found != kept.end()) return found->second;
  std::u16string text = kind.Part.empty() ? std::u16string(OneParagraph(kind.Name, units)->Paragraphs().front())
                                          : Repeated(kind.Part, units);
  return kept.try_emplace(key, std::move(text)).first->second;
}

// A cost that grows with the square of the length would keep the very long paragraph for hours.
bool IsBearable(TTextLayoutNGOrv& layout, const TLongKind& kind) {
  const TLongTexts& texts = LongTexts(kind, LongUnits);
  layout.SetText(texts.Second);
  const std::clock_t start = std::clock();
  layout.SetText(texts.First);
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC < Patience;
}

void LayOutLong(benchmark::State& state, const TLongKind& kind, std::int64_t units) {
  const auto layout = MakeLayout(TLines::Wrapped);
  if (units > LongUnits && !IsBearable(*layout, kind))
    return state.SkipWithError("100,000 units take too long already");
  const TLongTexts& texts = LongTexts(kind, units);
  layout->SetText(texts.Second);
  bool first = false;
  for (auto iteration : state) {
    layout->SetText((first = !first) ? texts.First : texts.Second);
    benchmark::DoNotOptimize(layout->Frame().Height());
  }
}

void AddLongRows(const TLongKind& kind) {
  if (kind.Part.empty() && Corpus(kind.Name) == nullptr) return;
  for (const auto& [group, units] : {std::pair("layout-100k/", LongUnits), std::pair("layout-1M/", VeryLongUnits)})
    AddRow(std::string(group) + kind.Name + "/orv", units,
           [kind, units = units](benchmark::State& state) { LayOutLong(state, kind, units); });
}

}  // namespace

void RegisterLayouts() {
  for (const std::string_view view : CorpusNames()) {
    const std::string name(view);
    const TCorpus* corpus = Corpus(name);
    if (corpus != nullptr && name != "synth") AddParagraphRows(name, *corpus);
  }
  for (const TLongKind& kind : LongKinds) AddLongRows(kind);
}

}  // namespace orv::bench
