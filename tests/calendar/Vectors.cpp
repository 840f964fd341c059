// The vectors of the calendars, one test an op.
#include <gtest/gtest.h>

#include "tests/support/VectorFiles.h"

namespace orv {
namespace {

class CalendarVectors : public ::testing::TestWithParam<std::string> {};

TEST_P(CalendarVectors, Hold) {
  testing::ExpectVectorsHold("calendar/calendar", GetParam());
}

INSTANTIATE_TEST_SUITE_P(Op, CalendarVectors,
                         ::testing::Values("dmyToDay", "dayToDMY", "jalaliJD0", "calendar", "classic", "lcid", "bind"),
                         [](const auto& op) { return op.param; });

}  // namespace
}  // namespace orv
