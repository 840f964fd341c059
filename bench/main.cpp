// Runs every benchmark. By default each row is measured five times, in random order among the others, so that a busy
// moment of the machine hits no row alone; bench/report takes the least of the five.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/Rooms.h"

int main(int argc, char** argv) {
  std::string defaults[] = {"--benchmark_min_time=0.1", "--benchmark_repetitions=5",
                            "--benchmark_enable_random_interleaving=true"};
  std::vector<char*> arguments{argv[0]};
  for (std::string& option : defaults) arguments.push_back(option.data());
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  int count = static_cast<int>(arguments.size());
  arguments.push_back(nullptr);

  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
  orv::bench::RegisterProperties();
  orv::bench::RegisterSplit();
  orv::bench::RegisterAdversarial();
  orv::bench::RegisterShape();
  orv::bench::RegisterDays();
  orv::bench::RegisterDateText();
  orv::bench::RegisterBinPack();
  orv::bench::RegisterHtml();
  orv::bench::RegisterRtf();
  orv::bench::RegisterDispatch();
  orv::bench::RegisterQuads();
  orv::bench::RegisterLayouts();
  orv::bench::RegisterHitTests();
  orv::bench::RegisterDrawing();
  orv::bench::RegisterEditKeys();
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
