// Placing a glyph in a texture that is 95 % full: a layout must not stall when it meets a new character.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>

#include "bench/Rooms.h"
#include "fmx/GuillotineBinPack.h"

namespace orv::bench {
namespace {

using fmx::TFreeRectChoice;
using fmx::TGuillotineBinPack;
using fmx::TGuillotineSplit;

constexpr std::int32_t Side = 1024;
constexpr int Placed = 64;  // glyphs of one measurement

class TGlyphSizes {
 public:
  fmx::TRect Insert(TGuillotineBinPack& pack, std::int32_t width, std::int32_t height) {
    FState = FState * 6364136223846793005U + 1442695040888963407U;
    const auto random = static_cast<std::int32_t>(FState >> 40);
    return pack.Insert(width + random % width, height + random / width % 3, false, TFreeRectChoice::BestAreaFit,
                       TGuillotineSplit::MinimizeArea);
  }

 private:
  std::uint64_t FState = 11;
};

// Letters until hardly any fits, then marks and stops.
TGuillotineBinPack NearlyFull(TGlyphSizes& sizes) {
  TGuillotineBinPack pack(Side, Side);
  const auto fill = [&](std::int32_t width, std::int32_t height) {
    for (int refused = 0; refused < 200 && pack.Occupancy() < 0.95F;) {
      if (sizes.Insert(pack, width, height).IsEmpty()) ++refused;
    }
  };
  fill(7, 20);
  fill(4, 10);
  fill(2, 5);
  return pack;
}

// Every free rectangle is looked at, and none is large enough.
void Refused(benchmark::State& state) {
  TGlyphSizes sizes;
  TGuillotineBinPack pack = NearlyFull(sizes);
  for (auto iteration : state) {
    benchmark::DoNotOptimize(pack.Insert(40, 40, false, TFreeRectChoice::BestAreaFit, TGuillotineSplit::MinimizeArea));
  }
  state.counters["occupancy"] = static_cast<double>(pack.Occupancy());
  state.counters["free"] = static_cast<double>(pack.FreeRectangles().size());
}

// Every free rectangle is looked at, and the best is taken and cut; each measurement begins anew.
void Taken(benchmark::State& state) {
  TGlyphSizes sizes;
  const TGuillotineBinPack full = NearlyFull(sizes);
  int placed = 0;
  for (auto iteration : state) {
    TGuillotineBinPack pack = full;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < Placed; ++i) placed += sizes.Insert(pack, 2, 3).IsEmpty() ? 0 : 1;
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    state.SetIterationTime(taken.count() / Placed);
  }
  state.counters["placed"] =
      benchmark::Counter(static_cast<double>(placed) / Placed, benchmark::Counter::kAvgIterations);
}

}  // namespace

void RegisterBinPack() {
  benchmark::RegisterBenchmark("binpack/nearly-full-refused/orv", Refused)->Unit(benchmark::kMicrosecond);
  benchmark::RegisterBenchmark("binpack/nearly-full-taken/orv", Taken)->Unit(benchmark::kMicrosecond)->UseManualTime();
}

}  // namespace orv::bench
