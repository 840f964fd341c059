// RTF to text and ranges, beside catdoc, which writes the text alone. catdoc is a program: its rows count the processor
// time of the process, over documents of megabytes, so that its start weighs nothing.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "bench/Rooms.h"
#include "bench/support/Corpus.h"
#include "bench/support/MarkupTexts.h"
#include "bench/support/Measure.h"
#include "formatted/Orv.StdCtrls.RTF.h"

namespace orv::bench {

namespace {

// The document as a file for as long as it is needed.
class TDocumentFile {
 public:
  explicit TDocumentFile(const std::string& bytes) {
    const int file = mkstemp(FPath.data());
    if (file < 0) std::abort();
    close(file);
    std::ofstream(FPath, std::ios::binary) << bytes;
  }
  ~TDocumentFile() { unlink(FPath.c_str()); }
  TDocumentFile(const TDocumentFile&) = delete;
  TDocumentFile& operator=(const TDocumentFile&) = delete;

  const std::string& Path() const { return FPath; }

 private:
  std::string FPath = "/tmp/orv-bench-XXXXXX";
};

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

// The processor time of one run of catdoc; negative when it cannot be run.
double RunCatdoc(const std::string& path) {
  const pid_t child = fork();
  if (child < 0) return -1;
  if (child == 0) {
    if (std::freopen("/dev/null", "w", stdout) == nullptr || std::freopen("/dev/null", "w", stderr) == nullptr)
      _exit(127);
    execlp("catdoc", "catdoc", "-d", "utf-8", path.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) == 127) return -1;
  return Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
}

void TextAndRanges(benchmark::State& state, const std::string& document) {
  for (auto iteration : state) {
    const TRTFText::TRTFData data = TRTFText::ParseRTF(std::string_view(document));
    benchmark::DoNotOptimize(data.FText.data());
    benchmark::ClobberMemory();
  }
  ReportPerUnit(state, static_cast<std::int64_t>(document.size()));
}

void Catdoc(benchmark::State& state, const std::string& document) {
  const TDocumentFile file(document);
  for (auto iteration : state) {
    const double seconds = RunCatdoc(file.Path());
    if (seconds < 0) {
      state.SkipWithError("catdoc cannot be run");
      return;
    }
    state.SetIterationTime(seconds);
  }
  ReportPerUnit(state, static_cast<std::int64_t>(document.size()));
}

void AddRtfRows(const std::string& name, const TCorpus& corpus, std::uint32_t codePage, TDensity density) {
  const TLazy<std::string> document([&corpus, codePage, density] { return RtfOf(corpus, codePage, density); });
  benchmark::RegisterBenchmark(("rtf/" + name + "/orv").c_str(), [document](benchmark::State& state) {
    TextAndRanges(state, *document);
  })->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark(("rtf/" + name + "/catdoc").c_str(),
                               [document](benchmark::State& state) { Catdoc(state, *document); })
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond);
}

}  // namespace

void RegisterRtf() {
  struct TText {
    const char* Name;
    std::uint32_t CodePage;
  };
  for (const TText& text : {TText{"fa", 1256}, TText{"ar", 1256}, TText{"he", 1255}, TText{"en", 1252}}) {
    const TCorpus* corpus = Corpus(text.Name);
    if (corpus == nullptr) continue;
    AddRtfRows(text.Name, *corpus, text.CodePage, TDensity::Sparse);
    AddRtfRows(std::string(text.Name) + "-dense", *corpus, text.CodePage, TDensity::Dense);
  }
}

}  // namespace orv::bench
