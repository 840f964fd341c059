// ORV_ASSERT as it is in builds with assertions, whatever this build has.
#ifndef ORV_ASSERTIONS
#define ORV_ASSERTIONS
#endif
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "rtl/Assertions.h"
#include "rtl/Exceptions.h"
#include "rtl/Unicode.h"

namespace {

int evaluations = 0;
bool Evaluated(bool answer) {
  ++evaluations;
  return answer;
}

// The text of the assertion that the action breaks; empty when it breaks none.
template <typename Action>
std::string MessageOf(Action action) {
  try {
    action();
  } catch (const rtl::EAssertionFailed& e) {
    return e.what();
  }
  return {};
}

TEST(AssertionsOn, ABrokenOneTellsTheMessageAndThePlaceFromTheRootOfTheTree) {
  const int line = __LINE__ + 1;
  EXPECT_EQ(MessageOf([] { ORV_ASSERT(1 + 1 == 3, "Sums hold"); }),
            "Sums hold (tests/rtl/AssertionsOn.cpp, line " + std::to_string(line) + ")");
}

TEST(AssertionsOn, AKeptOneEvaluatesItsConditionOnceAndNotItsMessage) {
  evaluations = 0;
  bool isMessageMade = false;
  const auto message = [&] {
    isMessageMade = true;
    return std::string_view("unused");
  };
  EXPECT_EQ(MessageOf([&] { ORV_ASSERT(Evaluated(true), message()); }), "");
  EXPECT_EQ(evaluations, 1);
  EXPECT_FALSE(isMessageMade);
}

TEST(AssertionsOn, StandsWhereAnExpressionMay) {
  const auto checked = [](int value) { return ORV_ASSERT(value > 0, "Positive"), value; };
  EXPECT_EQ(checked(5), 5);
  EXPECT_THROW(checked(0), rtl::EAssertionFailed);
}

// Only a library that was built with assertions has them.
TEST(AssertionsOn, ThoseInTheLibraryNameNoFolderOfTheMachine) {
  const std::string message = MessageOf([] { rtl::ConvertToUtf32(u'a', u'b'); });
  const std::string_view place = "(rtl/Unicode.cpp, line ";
#ifdef ORV_LIBRARY_HAS_ASSERTIONS
  EXPECT_NE(message.find(place), std::string::npos) << message;
#else
  EXPECT_EQ(message, "") << place;
#endif
}

}  // namespace
