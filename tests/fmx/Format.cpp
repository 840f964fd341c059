#include "fmx/Format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "fmx/Log.h"
#include "fmx/ResourceStrings.h"

namespace {

enum class TLetter : std::uint8_t { A = 1 };

TEST(Format, PutsValuesInPlaces) {
  EXPECT_EQ(fmx::Format("Run: %d.%d(%d, %d), X: %f", {1, -2, std::size_t{3}, TLetter::A, 2.5F}),
            "Run: 1.-2(3, 1), X: 2.50");
  EXPECT_EQ(fmx::Format("'%s' %s", {u"سل", "ab"}), "'سل' ab");
  EXPECT_EQ(fmx::Format("%2.2f|%8.1f|%.0f", {3.14159, -2.25, 7.9}), "3.14|    -2.2|8");
  EXPECT_EQ(fmx::Format("100%%, %5d|", {42}), "100%,    42|");
}

TEST(Format, TheTextOfAMissingResultNamesTheFunction) {
  EXPECT_EQ(fmx::Format(fmx::SResultCanNotBeNil, {"CreateListBox"}), "The result of CreateListBox must not be nil");
}

TEST(Format, TheValueDecidesHowItIsWritten) {
  EXPECT_EQ(fmx::Format("%d %s %f", {"text", 5, u"x"}), "text 5 x");
  EXPECT_EQ(fmx::Format("%d", {true}), "1");
}

TEST(Format, TooManyAndTooFewValues) {
  EXPECT_EQ(fmx::Format("%d and %d", {1}), "1 and %d");
  EXPECT_EQ(fmx::Format("%d", {1, 2}), "1");
  EXPECT_EQ(fmx::Format("", {1}), "");
}

TEST(Format, AnyPercentSignIsHarmless) {
  EXPECT_EQ(fmx::Format("%", {1}), "%");
  EXPECT_EQ(fmx::Format("50% of %x %5", {1}), "50% of %x %5");
  EXPECT_EQ(fmx::Format("%99999999999999999999d", {1}), std::string(98, ' ') + "1");
  EXPECT_EQ(fmx::Format("%.99999999f", {std::numeric_limits<double>::max()}).size(), 309 + 1 + 99);
  EXPECT_EQ(fmx::Format("%f", {std::nan("")}), "nan");
  EXPECT_EQ(fmx::Format("%s", {std::u16string_view(u"a\xD800z")}), "a\xEF\xBF\xBDz");
}

class FmxLog : public testing::Test {
 protected:
  ~FmxLog() override { fmx::Log::SetSink({}); }
};

TEST_F(FmxLog, IsOffUntilASinkIsSetAndAfterItIsTaken) {
  std::vector<std::string> lines;
  EXPECT_FALSE(fmx::Log::IsEnabled());
  fmx::Log::d("lost %d", 1);
  fmx::Log::SetSink([&](std::string_view line) { lines.emplace_back(line); });
  EXPECT_TRUE(fmx::Log::IsEnabled());
  fmx::Log::d("DoRenderLayout:Start");
  fmx::Log::d("LineIndex: %d of '%s'", 3, u"متن");
  fmx::Log::SetSink({});
  fmx::Log::d("lost");
  EXPECT_EQ(lines, (std::vector<std::string>{"DoRenderLayout:Start", "LineIndex: 3 of 'متن'"}));
}

}  // namespace
