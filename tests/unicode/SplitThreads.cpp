// The splitter on many threads at once: each gets what a lone thread gets.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "tests/unicode/support/RandomText.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv::testing {
namespace {

constexpr int ThreadCount = 8;

struct TCase {
  std::u16string Text;
  TParagraphBidi Paragraph;
  TDirectionalRuns Expected;
};

std::vector<TCase> Cases(std::uint64_t seed, int count) {
  TRandom random(seed);
  std::vector<TCase> cases;
  for (int i = 0; i < count; ++i) {
    TCase one{RandomText(random), RandomParagraph(random), {}};
    one.Expected = TDirectiveChars::SplitByDirection(one.Text, one.Paragraph);
    cases.push_back(std::move(one));
  }
  return cases;
}

// Splits the cases over and over and counts the results that differ from those of a lone thread.
int CountDifferences(const std::vector<TCase>& cases, std::size_t first, int rounds) {
  int differences = 0;
  TDirectionalRuns reused;
  for (int round = 0; round < rounds; ++round)
    for (std::size_t i = 0; i < cases.size(); ++i) {
      const TCase& one = cases[(first + i) % cases.size()];
      if (TDirectiveChars::SplitByDirection(one.Text, one.Paragraph) != one.Expected) ++differences;
      TDirectiveChars::SplitByDirection(one.Text, one.Paragraph, reused);
      if (reused != one.Expected) ++differences;
    }
  return differences;
}

// Runs the work on eight threads and on this one at once.
template <typename TWork>
int OnAllThreads(TWork work) {
  std::atomic<int> differences{0};
  std::atomic<int> ready{0};
  const auto begin = [&](int thread) {
    ++ready;
    while (ready <= ThreadCount) std::this_thread::yield();
    differences += work(thread);
  };
  std::vector<std::thread> threads;
  for (int thread = 1; thread <= ThreadCount; ++thread) threads.emplace_back(begin, thread);
  begin(0);
  for (std::thread& thread : threads) thread.join();
  return differences;
}

TEST(SplitThreads, EqualTextsGiveEqualResultsOnEveryThread) {
  const TSettingsGuard guard;
  const std::vector<TCase> cases = Cases(91, 300);
  EXPECT_EQ(OnAllThreads([&](int) { return CountDifferences(cases, 0, 10); }), 0);
}

TEST(SplitThreads, DifferentTextsDoNotDisturbEachOther) {
  const TSettingsGuard guard;
  std::vector<std::vector<TCase>> cases;
  for (int thread = 0; thread <= ThreadCount; ++thread)
    cases.push_back(Cases(100 + static_cast<std::uint64_t>(thread), 200));
  EXPECT_EQ(OnAllThreads([&](int thread) { return CountDifferences(cases[static_cast<std::size_t>(thread)], 0, 10); }),
            0);
}

TEST(SplitThreads, WithEveryCorrectionToo) {
  TSettings settings;
  settings.Corrections = AllCorrections;
  settings.Options = {TOrvGlobalOption::MeasureSignsInRightSideOfDigits, TOrvGlobalOption::RTLLineIndexOrder};
  const TSettingsGuard guard(settings);
  const std::vector<TCase> cases = Cases(92, 300);
  EXPECT_EQ(
      OnAllThreads([&](int thread) { return CountDifferences(cases, static_cast<std::size_t>(thread) * 37, 10); }), 0);
}

TEST(SplitThreads, ThreadsThatComeAndGoLeaveNothingBehind) {
  const TSettingsGuard guard;
  const std::vector<TCase> cases = Cases(93, 20);
  int differences = 0;
  for (int i = 0; i < 100; ++i) std::thread([&] { differences += CountDifferences(cases, 0, 1); }).join();
  EXPECT_EQ(differences, 0);
}

}  // namespace
}  // namespace orv::testing
