// ORV_ASSERT as it is in builds without assertions, whatever this build has.
#undef ORV_ASSERTIONS
#include <gtest/gtest.h>

#include <string_view>

#include "rtl/Assertions.h"

namespace {

int evaluations = 0;
[[maybe_unused]] bool Evaluated(bool answer) {
  ++evaluations;
  return answer;
}

TEST(AssertionsOff, NothingIsRaisedAndNothingEvaluated) {
  evaluations = 0;
  EXPECT_NO_THROW(ORV_ASSERT(Evaluated(false), "Never told"));
  EXPECT_EQ(evaluations, 0);
}

TEST(AssertionsOff, AVariableOnlyAssertedOnIsNotUnused) {
  const bool isAsserted = false;
  EXPECT_NO_THROW(ORV_ASSERT(isAsserted, "Never told"));
}

}  // namespace
