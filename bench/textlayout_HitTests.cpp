// From a point to a position and from a position to its box, at scattered places of a short and of a long paragraph,
// beside Qt. Positions are found by search: on the long one a query may cost little more.
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "bench/Rooms.h"
#include "bench/support/Layouts.h"
#include "bench/support/Measure.h"

namespace orv::bench {

namespace {

constexpr int Queries = 1000;
constexpr std::int64_t ShortUnits = 200;
constexpr std::int64_t LongUnits = 4000;

struct TPlace {
  const char* Corpus;
  std::int64_t Units;
  TLines Lines;

  std::u16string_view Text() const { return OneParagraph(Corpus, Units)->Paragraphs().front(); }
};

std::vector<fmx::TPointF> ScatteredPoints(float width, float height) {
  TScattered scattered;
  std::vector<fmx::TPointF> points;
  for (int i = 0; i < Queries; ++i) {
    const float x = scattered.Within(width);
    points.push_back({x, scattered.Within(height)});
  }
  return points;
}

std::vector<std::int32_t> ScatteredPositions(std::int64_t units) {
  TScattered scattered;
  std::vector<std::int32_t> positions;
  for (int i = 0; i < Queries; ++i)
    positions.push_back(static_cast<std::int32_t>(scattered.Below(static_cast<std::size_t>(units))));
  return positions;
}

void Hit(benchmark::State& state, const TPlace& place) {
  const auto layout = MakeLayout(place.Lines);
  layout->SetText(place.Text());
  const auto points = ScatteredPoints(layout->Frame().Width(), layout->Frame().Height());
  for (const fmx::TPointF point : points)
    if (layout->PositionAtPoint(point) < 0) return state.SkipWithError("a point without a position");
  for (auto iteration : state) {
    for (const fmx::TPointF point : points) benchmark::DoNotOptimize(layout->PositionAtPoint(point));
  }
}

void HitWithQt(benchmark::State& state, const TPlace& place) {
  if (!TQtLayout::HasFont()) return state.SkipWithError("no DejaVu Sans");
  TQtLayout layout(place.Lines);
  layout.SetText(ToQt(place.Text()));
  const auto points = ScatteredPoints(static_cast<float>(layout.Width()), static_cast<float>(layout.Height()));
  for (const fmx::TPointF point : points) layout.PositionAtPoint(point.X, point.Y);
  for (auto iteration : state) {
    for (const fmx::TPointF point : points) benchmark::DoNotOptimize(layout.PositionAtPoint(point.X, point.Y));
  }
}

void Region(benchmark::State& state, const TPlace& place) {
  const auto layout = MakeLayout(place.Lines);
  layout->SetText(place.Text());
  const auto positions = ScatteredPositions(place.Units);
  for (const std::int32_t position : positions)
    if (layout->RegionForRange({position, 1}).empty()) return state.SkipWithError("a position without a box");
  for (auto iteration : state) {
    for (const std::int32_t position : positions) benchmark::DoNotOptimize(layout->RegionForRange({position, 1}));
  }
}

void RegionWithQt(benchmark::State& state, const TPlace& place) {
  if (!TQtLayout::HasFont()) return state.SkipWithError("no DejaVu Sans");
  TQtLayout layout(place.Lines);
  layout.SetText(ToQt(place.Text()));
  const auto positions = ScatteredPositions(place.Units);
  for (const std::int32_t position : positions) layout.RegionOf(position);
  for (auto iteration : state) {
    for (const std::int32_t position : positions) benchmark::DoNotOptimize(layout.RegionOf(position));
  }
}

// A row counts queries.
void AddRows(const TPlace& place) {
  const std::string suffix =
      "-" + std::to_string(place.Units) + "/" + place.Corpus + (place.Lines == TLines::One ? "-one-line/" : "/");
  AddRow("layout-hit" + suffix + "orv", Queries, [place](benchmark::State& state) { Hit(state, place); });
  AddRow("layout-hit" + suffix + "qt", Queries, [place](benchmark::State& state) { HitWithQt(state, place); });
  AddRow("layout-region" + suffix + "orv", Queries, [place](benchmark::State& state) { Region(state, place); });
  AddRow("layout-region" + suffix + "qt", Queries, [place](benchmark::State& state) { RegionWithQt(state, place); });
}

}  // namespace

void RegisterHitTests() {
  for (const char* corpus : {"fa", "mixed"}) {
    if (Corpus(corpus) == nullptr) continue;
    for (const TLines lines : {TLines::Wrapped, TLines::One}) {
      AddRows({corpus, ShortUnits, lines});
      AddRows({corpus, LongUnits, lines});
    }
  }
}

}  // namespace orv::bench
