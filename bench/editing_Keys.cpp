// From a key to the picture: a letter, a Backspace or an arrow in a single-line box, and the paint that shows it,
// beside Qt's line edit.
#include <ctime>
#include <string>

#include "bench/Rooms.h"
#include "bench/support/Corpus.h"
#include "bench/support/EditBoxes.h"
#include "bench/support/Layouts.h"
#include "bench/support/Measure.h"

namespace orv::bench {

namespace {

// What is measured, and what takes it back meanwhile.
struct TStroke {
  const char* Name;
  TEditKey Key;
  TEditKey Back;
};
constexpr TStroke Strokes[] = {{"type", TEditKey::Letter, TEditKey::Backspace},
                               {"backspace", TEditKey::Backspace, TEditKey::Letter},
                               {"arrow", TEditKey::Left, TEditKey::Right}};

struct TCaretPlace {
  const char* Name;
  std::int64_t Half;  // of the text, counted in halves
};
constexpr TCaretPlace CaretPlaces[] = {{"start", 0}, {"middle", 1}, {"end", 2}};

struct TScript {
  TStroke Stroke;
  TCaretPlace Place;
  std::int64_t Units;

  std::u16string_view Text() const { return OneParagraph("mixed", Units)->Paragraphs().front(); }
  // There is a character before it.
  std::int32_t Caret() const { return static_cast<std::int32_t>(std::max<std::int64_t>(Units * Place.Half / 2, 1)); }
};

double ProcessorSeconds() {
  std::timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

template <typename TBox>
void Stroke(benchmark::State& state, const TScript& script) {
  TBox box(script.Text(), script.Caret());
  const auto press = [&box](TEditKey key) {
    box.Press(key);
    box.Paint();
  };
  press(script.Stroke.Key);
  press(script.Stroke.Back);
  if (box.Units() != script.Units) return state.SkipWithError("a key that did not do its work");
  if (!box.ShowsText()) return state.SkipWithError("a picture without text");
  for (auto iteration : state) {
    const double start = ProcessorSeconds();
    press(script.Stroke.Key);
    state.SetIterationTime(ProcessorSeconds() - start);
    press(script.Stroke.Back);
  }
  ReportPerUnit(state, 1);
}

// A row counts keys.
template <typename F>
void AddKeyRow(const std::string& name, F run) {
  benchmark::RegisterBenchmark(name.c_str(), run)->UseManualTime()->Unit(benchmark::kMillisecond);
}

void AddRows(const TScript& script) {
  const std::string name =
      "edit-" + std::to_string(script.Units) + "/" + script.Stroke.Name + "-" + script.Place.Name + "/";
  for (const TWay& way : Ways) {
    AddKeyRow(name + way.Name, [script, corrections = way.Corrections](benchmark::State& state) {
      const TCorrectionsInForce inForce(corrections);
      Stroke<TOrvBox>(state, script);
    });
  }
  AddKeyRow(name + "qt", [script](benchmark::State& state) {
    if (!TQtLayout::HasFont()) return state.SkipWithError("no DejaVu Sans");
    Stroke<TQtBox>(state, script);
  });
}

}  // namespace

void RegisterEditKeys() {
  if (Corpus("mixed") == nullptr) return;
  for (const std::int64_t units : {100, 10'000, 100'000})
    for (const TStroke& stroke : Strokes)
      for (const TCaretPlace& place : CaretPlaces) AddRows({stroke, place, units});
}

}  // namespace orv::bench
