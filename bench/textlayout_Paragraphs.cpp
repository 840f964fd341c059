// Laying out paragraphs, wrapped, in a layout that is used again: beside Qt, and beside what HarfBuzz takes for shaping
// alone. And very long paragraphs, whose cost for a unit must not grow.
#include <string>
#include <utility>
#include <vector>

#include "bench/Rooms.h"
#include "bench/support/Layouts.h"
#include "bench/support/Measure.h"

namespace orv::bench {

namespace {

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

}  // namespace

void RegisterLayouts() {
  for (const std::string_view view : CorpusNames()) {
    const std::string name(view);
    const TCorpus* corpus = Corpus(name);
    if (corpus != nullptr && name != "synth") AddParagraphRows(name, *corpus);
  }
}

}  // namespace orv::bench
