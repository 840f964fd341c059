// The vectors of the text engine, one test an op.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/VectorFiles.h"
#include "tests/unicode/support/PlainSplit.h"
#include "tools/orv/eval/Names.h"
#include "tools/orv/eval/Settings.h"

namespace orv {
namespace {

constexpr const char* Engine = "engine/engine";

class EngineVectors : public ::testing::TestWithParam<std::string> {};

TEST_P(EngineVectors, Hold) {
  testing::ExpectVectorsHold(Engine, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Op, EngineVectors, ::testing::ValuesIn(testing::OpsOf(Engine)),
                         [](const auto& op) { return op.param; });

TEST(EngineVectorFile, HoldsAsAWhole) {
  testing::ExpectVectorsHold(Engine);
}

// The oracle stands by itself: it is held against the vectors without the library's splitter.
TEST(PlainSplitOracle, PassesEverySplitVector) {
  std::size_t tried = 0;
  for (const testing::TVector& vector : testing::ReadVectors(Engine)) {
    const eval::TJson expected = eval::TJson::parse(vector.Expected);
    if (vector.Op != "split" || !expected["ok"].get<bool>()) continue;
    ++tried;
    const eval::TJson request = eval::TJson::parse(vector.Request);
    const eval::TArguments arguments(request);
    const eval::TSettingsScope settings(arguments);
    const plain::TPlainResult result =
        plain::Split(arguments.Text(), arguments.Enum("paragraph", eval::ParagraphNames));
    eval::TJson bidi = eval::TJson::array(), ranges = eval::TJson::array();
    for (const TBidi direction : result.Runs.Bidi) bidi.push_back(eval::NameOf(direction, eval::BidiNames));
    for (const TRange range : result.Runs.Ranges) ranges.push_back({range.LowIndex, range.HighIndex});
    const eval::TJson& wanted = expected["result"];
    EXPECT_EQ(wanted["Offsets"], eval::TJson(result.Runs.Offsets)) << vector.Request;
    EXPECT_EQ(wanted["VisualOrder"], eval::TJson(result.Runs.VisualOrder)) << vector.Request;
    EXPECT_EQ(wanted["Bidi"], bidi) << vector.Request;
    EXPECT_EQ(wanted["Ranges"], ranges) << vector.Request;
    for (const std::string& broken : result.Broken) ADD_FAILURE() << broken << ": " << vector.Request;
  }
  EXPECT_GT(tried, 800U);
}

}  // namespace
}  // namespace orv
