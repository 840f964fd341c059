// Shaping from UTF-16 with digits, beside ICU's u_shapeArabic and FriBidi's shaper: each paragraph as one run. A
// left-to-right run gets its digits replaced and nothing else, so the English rows do that alone.
#include <string>

#include "bench/Rooms.h"
#include "bench/support/Corpus.h"
#include "bench/support/Measure.h"
#include "bench/support/Peers.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv::bench {

namespace {

void Shape(benchmark::State& state, const TCorpus& corpus, TShapeWork work, TOrvCorrections corrections) {
  const TCorrectionsInForce inForce(corrections);
  TUCS4List list;
  for (auto iteration : state) {
    for (const std::u16string_view paragraph : corpus.Paragraphs()) {
      list.clear();
      AppendUtf16(paragraph, list);
      if (work == TShapeWork::LettersAndDigits) TUCS4ListHelper::ChangeToComplexCharacters(list);
      TUCS4ListHelper::ChangeToArabicDigits(list);
      benchmark::DoNotOptimize(list.data());
      benchmark::ClobberMemory();
    }
  }
}

void ShapeWithIcu(benchmark::State& state, const TCorpus& corpus, TShapeWork work) {
  TIcuShaper icu(corpus.Longest());
  for (auto iteration : state) {
    for (const std::u16string_view paragraph : corpus.Paragraphs()) {
      benchmark::DoNotOptimize(icu.Shape(paragraph, work));
    }
  }
}

void ShapeWithFriBidi(benchmark::State& state, const TCorpus& corpus) {
  TFriBidiShaper friBidi(corpus.Text32());
  for (auto iteration : state) {
    for (const std::u32string_view paragraph : corpus.Paragraphs32()) {
      benchmark::DoNotOptimize(friBidi.Shape(paragraph));
    }
  }
}

void AddShapeRows(const std::string& prefix, const TCorpus& corpus, TShapeWork ours, TShapeWork icus) {
  for (const TWay& way : Ways) {
    AddRow(prefix + way.Name, corpus.Units(),
           [&corpus, way, ours](benchmark::State& state) { Shape(state, corpus, ours, way.Corrections); });
  }
  AddRow(prefix + "icu", corpus.Units(),
         [&corpus, icus](benchmark::State& state) { ShapeWithIcu(state, corpus, icus); });
}

}  // namespace

void RegisterShape() {
  constexpr TShapeWork both = TShapeWork::LettersAndDigits;
  for (const std::string_view view : CorpusNames()) {
    const std::string name(view);
    const TCorpus* corpus = Corpus(name);
    if (corpus == nullptr) continue;
    AddShapeRows("shape/" + name + "/", *corpus, name == "en" ? TShapeWork::DigitsOnly : both, both);
    AddRow("shape/" + name + "/fribidi", corpus->Units(),
           [corpus](benchmark::State& state) { ShapeWithFriBidi(state, *corpus); });
    AddShapeRows("shape-digits/" + name + "/", *corpus, TShapeWork::DigitsOnly, TShapeWork::DigitsOnly);
  }
}

}  // namespace orv::bench
