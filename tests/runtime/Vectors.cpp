// The vectors of the class generator.
#include <gtest/gtest.h>

#include "tests/support/VectorFiles.h"

namespace orv {
namespace {

TEST(ClassGeneratorVectors, Hold) {
  testing::ExpectVectorsHold("classgen/classgen", "classgen");
}

TEST(ClassGeneratorVectors, HaveNoOtherOp) {
  EXPECT_EQ(testing::OpsOf("classgen/classgen"), std::vector<std::string>{"classgen"});
}

// Requests that make no class: each answers with its error, and the next is read.
TEST(ClassGeneratorVectors, HostileRequestsAreAnswered) {
  const std::string start = R"({"op":"classgen","unit":"U","published":[],"instanceSize":0,)";
  const std::string parent = R"("parent":{"slots":2,"instanceSize":8,"className":"P"},)";
  const auto classOf = [](const std::string& request) {
    const eval::TJson answer = eval::TJson::parse(eval::Answer(request));
    return answer["ok"] == true ? std::string("ok") : answer["error"]["class"].get<std::string>();
  };
  EXPECT_EQ(classOf(start + parent + R"("name":"T","overrides":[[1,"A"]],"newVirtuals":[]})"), "ok");
  EXPECT_EQ(classOf(start + parent + R"("name":"T","overrides":[[2,"A"]],"newVirtuals":["N"]})"), "ok");
  EXPECT_EQ(classOf(start + parent + R"("name":"T","overrides":[[2,"A"]],"newVirtuals":[]})"), "EAssertionFailed");
  EXPECT_EQ(classOf(start + parent + R"("name":"T","overrides":[[-1,"A"]],"newVirtuals":[]})"), "EAssertionFailed");
  EXPECT_EQ(classOf(start + parent + R"("overrides":[],"newVirtuals":[],"name":")" + std::string(256, 'n') + "\"}"),
            "EAssertionFailed");
  for (const char* wrong :
       {R"("name":"T","overrides":[[1]],"newVirtuals":[])", R"("name":"T","overrides":[["A",1]],"newVirtuals":[])",
        R"("name":"T","overrides":{},"newVirtuals":[])", R"("name":"T","overrides":[],"newVirtuals":[1])",
        R"("name":1,"overrides":[],"newVirtuals":[])",
        R"("name":"T","overrides":[[99999999999,"A"]],"newVirtuals":[])"})
    EXPECT_EQ(classOf(start + parent + wrong + "}"), "BadRequest") << wrong;
  for (const char* wrong : {R"({"slots":-1,"instanceSize":8,"className":"P"})", R"({"slots":1})", "[]", "null",
                            R"({"slots":99999999,"instanceSize":8,"className":"P"})"})
    EXPECT_EQ(classOf(start + R"("name":"T","overrides":[],"newVirtuals":[],"parent":)" + wrong + "}"), "BadRequest")
        << wrong;
}

}  // namespace
}  // namespace orv
