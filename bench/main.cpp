#include <benchmark/benchmark.h>

#include "bench/Rooms.h"

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  orv::bench::RegisterProperties();
  orv::bench::RegisterSplit();
  orv::bench::RegisterAdversarial();
  orv::bench::RegisterShape();
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
