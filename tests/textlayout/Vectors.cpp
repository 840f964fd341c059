// Layouts of random texts, with their frames, answers and drawings.
#include <gtest/gtest.h>

#include "tests/support/VectorFiles.h"

namespace orv {
namespace {

// Single precision: sums are compared to a thousandth.
TEST(LayoutVectors, HoldByTheRules) {
  testing::ExpectVectorsHold("layout/layout-rules", "layout", 1e-3);
}

TEST(LayoutVectors, HoldWithTheCorrections) {
  testing::ExpectVectorsHold("layout/layout-corrected", "layout", 1e-3);
}

TEST(LayoutVectors, HostileRequestsAreAnswered) {
  const auto classOf = [](const std::string& members) {
    const eval::TJson answer = eval::TJson::parse(eval::Answer(R"({"op":"layout")" + members + "}"));
    return answer["ok"] == true ? std::string("ok") : answer["error"]["class"].get<std::string>();
  };
  EXPECT_EQ(classOf(R"(,"text":"")"), "ok");
  EXPECT_EQ(classOf(R"(,"text":"a","props":{"Scale":1e30},"draw":true)"), "ok");
  EXPECT_EQ(classOf(R"(,"text":"a","queries":[["MeasureRange",2147483647,2147483647],["MeasureRange",-5,9]])"), "ok");
  EXPECT_EQ(classOf(R"(,"text":"a","queries":[["RegionForRange",-2147483648,-2147483648]])"), "ok");
  EXPECT_EQ(classOf(R"(,"text":"a","attributes":[{"Pos":0,"Length":2147483647},{"Pos":2147483647,"Length":1}])"), "ok");
  for (const char* wrong :
       {"", R"(,"text":1)", R"(,"text":"a","props":{"Nothing":1})", R"(,"text":"a","props":{"Scale":0})",
        R"(,"text":"a","props":{"TabSize":-1})", R"(,"text":"a","props":{"MaxSize":[1]})", R"(,"text":"a","props":[])",
        R"(,"text":"a","font":{"Size":0})", R"(,"text":"a","font":{"Style":["Thin"]})",
        R"(,"text":"a","metrics":"none")", R"(,"text":"a","queries":[["Nothing"]])", R"(,"text":"a","queries":[[]])",
        R"(,"text":"a","queries":[["PositionAtPoint",1]])", R"(,"text":"a","attributes":[{"Pos":0}])"})
    EXPECT_EQ(classOf(wrong), "BadRequest") << wrong;
}

}  // namespace
}  // namespace orv
