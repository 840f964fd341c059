// The vectors of the markup readers, one test an op.
#include <gtest/gtest.h>

#include "tests/support/VectorFiles.h"

namespace orv {
namespace {

constexpr const char* Markup = "markup/markup";

class MarkupVectors : public ::testing::TestWithParam<std::string> {};

TEST_P(MarkupVectors, Hold) {
  testing::ExpectVectorsHold(Markup, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Op, MarkupVectors, ::testing::ValuesIn(testing::OpsOf(Markup)),
                         [](const auto& op) { return op.param; });

}  // namespace
}  // namespace orv
