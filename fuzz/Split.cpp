// The splitter: equal to the plain rules without corrections, and lawful with any of them.
#include <algorithm>

#include "fuzz/Input.h"
#include "tests/unicode/support/PlainSplit.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv::fuzz {
namespace {

void RequireLaws(std::u16string_view text, const TDirectionalRuns& runs) {
  const std::size_t count = runs.Bidi.size();
  Require(runs.Offsets.size() == count + 1 && runs.VisualOrder.size() == count, "the arrays fit each other");
  Require(runs.Offsets.front() == 0 && runs.Offsets.back() == static_cast<std::int32_t>(text.size()),
          "the runs cover the text");
  Require(std::is_sorted(runs.Offsets.begin(), runs.Offsets.end()), "offsets never fall");
  std::vector<std::int32_t> order = runs.VisualOrder;
  std::sort(order.begin(), order.end());
  for (std::size_t run = 0; run < count; ++run)
    Require(order[run] == static_cast<std::int32_t>(run), "the visual order is a permutation");
}

}  // namespace
}  // namespace orv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orv;
  fuzz::TInput input(data, size);
  input.Settings();
  const auto paragraph = static_cast<TParagraphBidi>(input.Byte() % 8);
  const std::u16string text = input.Text();

  TDirectionalRuns runs;
  TDirectiveChars::SplitByDirection(text, paragraph, runs);
  fuzz::RequireLaws(text, runs);
  fuzz::Require(runs == TDirectiveChars::SplitByDirection(text, paragraph), "both forms answer alike");

  TOrvGlobalSettings::Corrections = TOrvGlobalSettings::Corrections * TOrvCorrections{TOrvCorrection::LineIndex};
  TDirectiveChars::SplitByDirection(text, paragraph, runs);
  fuzz::Require(runs == plain::Split(text, paragraph).Runs, "the splitter follows the plain rules");
  return 0;
}
