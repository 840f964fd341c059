// Scripts of keys, clicks, compositions and paints with the state after each step.
#include <gtest/gtest.h>

#include "tests/support/VectorFiles.h"

namespace orv {
namespace {

TEST(EditVectors, HoldByTheRules) {
  testing::ExpectVectorsHold("edit/edit-rules", "edit");
}

TEST(EditVectors, HostileRequestsAreAnswered) {
  const auto classOf = [](const std::string& members) {
    const eval::TJson answer = eval::TJson::parse(eval::Answer(R"({"op":"edit")" + members + "}"));
    return answer["ok"] == true ? std::string("ok") : answer["error"]["class"].get<std::string>();
  };
  EXPECT_EQ(classOf(""), "ok");
  EXPECT_EQ(classOf(R"(,"setup":{"Text":"ab","Size":[0,0]},"steps":[{"type":"x"},{"paint":true},{"key":"Left"}])"),
            "ok");
  EXPECT_EQ(classOf(R"(,"setup":{"Text":"ab"},"steps":[{"set":{"SelStart":2147483647,"SelLength":2147483647}},)"
                    R"({"query":"SelRect"},{"key":"Left","shift":["Shift"]},{"key":"Delete"},{"type":"x"}])"),
            "ok");
  EXPECT_EQ(classOf(R"(,"steps":[{"query":"GetCharX","args":[2147483647]},{"query":"TextWidth","args":[-5,-5]}])"),
            "ok");
  EXPECT_EQ(classOf(R"(,"setup":{"Password":true,"Text":"ab"},"steps":[{"query":"HitTest","args":[1e30]}])"), "ok");
  for (const char* wrong :
       {R"(,"setup":[])", R"(,"setup":{"Nothing":1})", R"(,"steps":{})", R"(,"steps":[1])", R"(,"steps":[{}])",
        R"(,"steps":[{"key":"Nothing"}])", R"(,"steps":[{"key":"Left","mouse":"down"}])",
        R"(,"steps":[{"mouse":"down"}])", R"(,"steps":[{"query":"GetCharX"}])", R"(,"steps":[{"query":"Nothing"}])",
        R"(,"steps":[{"set":{"Handles":true}}])", R"(,"steps":[{"paint":false}])"})
    EXPECT_EQ(classOf(wrong), "BadRequest") << wrong;
}

}  // namespace
}  // namespace orv
