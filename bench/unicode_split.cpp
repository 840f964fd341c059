// Splitting into directional runs, beside ICU and FriBidi: paragraph by paragraph, one paragraph of 1 and of 10 MB,
// and the first-strong test alone. All decide the paragraph's direction by its first strong character.
#include <string>

#include "bench/Rooms.h"
#include "bench/support/Corpus.h"
#include "bench/support/Measure.h"
#include "bench/support/Peers.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv::bench {

namespace {

// The result arrays are reused, as the peers' objects are.
void Split(benchmark::State& state, const TCorpus& corpus, TOrvCorrections corrections) {
  const TCorrectionsInForce inForce(corrections);
  TDirectionalRuns runs;
  for (auto iteration : state) {
    for (const std::u16string_view paragraph : corpus.Paragraphs()) {
      TDirectiveChars::SplitByDirection(paragraph, TParagraphBidi::AutoLeftToRight, runs);
      benchmark::DoNotOptimize(runs.Offsets.data());
      benchmark::ClobberMemory();
    }
  }
}

void SplitIntoNew(benchmark::State& state, const TCorpus& corpus) {
  for (auto iteration : state) {
    for (const std::u16string_view paragraph : corpus.Paragraphs()) {
      benchmark::DoNotOptimize(TDirectiveChars::SplitByDirection(paragraph, TParagraphBidi::AutoLeftToRight));
    }
  }
}

void SplitWithIcu(benchmark::State& state, const TCorpus& corpus, TIcuBidi::TLogicalRuns logicalRuns) {
  TIcuBidi icu(logicalRuns);
  for (auto iteration : state) {
    for (const std::u16string_view paragraph : corpus.Paragraphs()) {
      benchmark::DoNotOptimize(icu.Split(paragraph, TBase::FirstStrong));
    }
  }
}

void SplitWithFriBidi(benchmark::State& state, const TCorpus& corpus) {
  TFriBidi friBidi(corpus.Longest());
  for (auto iteration : state) {
    for (const std::u32string_view paragraph : corpus.Paragraphs32()) {
      benchmark::DoNotOptimize(friBidi.Split(paragraph, TBase::FirstStrong));
    }
  }
}

void FirstStrong(benchmark::State& state, const TCorpus& corpus) {
  for (auto iteration : state) {
    for (const std::u16string_view paragraph : corpus.Paragraphs()) {
      benchmark::DoNotOptimize(TDirectiveChars::IsRTLText(paragraph, false));
    }
  }
}

void FirstStrongWithIcu(benchmark::State& state, const TCorpus& corpus) {
  for (auto iteration : state) {
    for (const std::u16string_view paragraph : corpus.Paragraphs()) {
      benchmark::DoNotOptimize(ubidi_getBaseDirection(paragraph.data(), static_cast<std::int32_t>(paragraph.size())));
    }
  }
}

void AddSplitRows(const std::string& name, const TCorpus& corpus) {
  const std::string prefix = "split/" + name + "/";
  for (const TWay& way : Ways) {
    AddRow(prefix + way.Name, corpus.Units(),
           [&corpus, way](benchmark::State& state) { Split(state, corpus, way.Corrections); });
  }
  AddRow(prefix + "new-arrays", corpus.Units(), [&corpus](benchmark::State& state) { SplitIntoNew(state, corpus); });
  AddRow(prefix + "icu", corpus.Units(),
         [&corpus](benchmark::State& state) { SplitWithIcu(state, corpus, TIcuBidi::TLogicalRuns::ByCall); });
  AddRow(prefix + "fribidi", corpus.Units(), [&corpus](benchmark::State& state) { SplitWithFriBidi(state, corpus); });
}

// One long paragraph. Its text is made when its first row runs.
void AddLongRows(const std::string& name, const std::string& prefix, std::int64_t units) {
  for (const TWay& way : Ways) {
    AddRow(prefix + way.Name, units,
           [name, way, units](benchmark::State& state) { Split(state, *OneParagraph(name, units), way.Corrections); });
  }
}

void AddLongPeerRows(const std::string& name, const std::string& prefix, std::int64_t units) {
  AddRow(prefix + "icu", units, [name, units](benchmark::State& state) {
    SplitWithIcu(state, *OneParagraph(name, units), TIcuBidi::TLogicalRuns::ByLevels);
  });
  AddRow(prefix + "fribidi", units,
         [name, units](benchmark::State& state) { SplitWithFriBidi(state, *OneParagraph(name, units)); });
}

void AddFirstStrongRows(const std::string& prefix, const TCorpus& corpus) {
  // Only a few units of each paragraph are read, so a row counts paragraphs.
  const auto paragraphs = static_cast<std::int64_t>(corpus.Paragraphs().size());
  AddRow(prefix + "orv", paragraphs, [&corpus](benchmark::State& state) { FirstStrong(state, corpus); });
  AddRow(prefix + "icu", paragraphs, [&corpus](benchmark::State& state) { FirstStrongWithIcu(state, corpus); });
}

}  // namespace

void RegisterSplit() {
  for (const std::string_view view : CorpusNames()) {
    const std::string name(view);
    const TCorpus* corpus = Corpus(name);
    if (corpus == nullptr) continue;
    AddSplitRows(name, *corpus);
    AddLongRows(name, "split-1MB/" + name + "/", MegabyteUnits);
    AddLongRows(name, "split-10MB/" + name + "/", 10 * MegabyteUnits);
    // Without its paragraph ends the synthetic text leaves thousands of brackets and isolates open, on which one peer
    // takes minutes and the other one crashes.
    if (name != "synth") AddLongPeerRows(name, "split-10MB/" + name + "/", 10 * MegabyteUnits);
    AddFirstStrongRows("first-strong/" + name + "/", *corpus);
  }
}

}  // namespace orv::bench
