// What the benchmark programs share: the counter that all rows report, and switches held for one measurement.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <utility>

#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv::bench {

// Reports "ns/unit": processor time for each of the units that one iteration works on.
inline void ReportPerUnit(benchmark::State& state, std::int64_t units) {
  state.counters["ns/unit"] = benchmark::Counter(
      static_cast<double>(units) * 1e-9, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Registers run(state), which does its own loop, as a row of that name.
template <typename F>
void AddRow(const std::string& name, std::int64_t units, F run) {
  benchmark::RegisterBenchmark(name.c_str(), [units, run = std::move(run)](benchmark::State& state) {
    run(state);
    ReportPerUnit(state, units);
  })->Unit(benchmark::kMillisecond);
}

// Holds a set of corrections while it lives.
class TCorrectionsInForce {
 public:
  explicit TCorrectionsInForce(TOrvCorrections corrections) : FBefore(TOrvGlobalSettings::Corrections) {
    TOrvGlobalSettings::Corrections = corrections;
  }
  ~TCorrectionsInForce() { TOrvGlobalSettings::Corrections = FBefore; }
  TCorrectionsInForce(const TCorrectionsInForce&) = delete;
  TCorrectionsInForce& operator=(const TCorrectionsInForce&) = delete;

 private:
  TOrvCorrections FBefore;
};

// The two ways in which every operation of the system is measured: "orv" with every correction, as it is by default,
// and "rules" with none.
struct TWay {
  const char* Name;
  TOrvCorrections Corrections;
};
inline constexpr TWay Ways[] = {{"orv", AllCorrections}, {"rules", {}}};

}  // namespace orv::bench
