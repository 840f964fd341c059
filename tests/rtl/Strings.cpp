#include "rtl/Strings.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace {

static_assert(rtl::UnitAt(u"ab", 0) == u'a' && rtl::UnitAt(u"ab", 1) == u'b');
static_assert(rtl::LengthOf(u"") == 0 && rtl::LengthOf(u"a\U0001F600") == 3);
static_assert(rtl::UnitAt(u"ab", 2) == 0 && rtl::UnitAt(u"ab", -1) == 0);
static_assert(rtl::UnitAt({}, 0) == 0);
static_assert(rtl::UnitAt(u"ab", std::numeric_limits<std::int64_t>::min()) == 0);
static_assert(rtl::UnitAt(u"ab", std::numeric_limits<std::int64_t>::max()) == 0);

// Each text lives in a block of its very length, without a terminating zero, so that a read outside it is caught.
TEST(Strings, UnitAtReadsTheTextAndZeroAroundIt) {
  for (std::int64_t length = 0; length <= 70; ++length) {
    std::vector<char16_t> text;
    for (std::int64_t unit = 1; unit <= length; ++unit) text.push_back(static_cast<char16_t>(unit));
    for (std::int64_t index = -70; index <= 140; ++index) {
      const bool isInside = index >= 0 && index < length;
      ASSERT_EQ(rtl::UnitAt({text.data(), text.size()}, index), isInside ? index + 1 : 0);
    }
  }
}

TEST(Strings, UnitAtTakesIndicesFarOutside) {
  const std::vector<char16_t> text(3, u'x');
  constexpr auto wide = std::int64_t{1} << 32;
  for (const std::int64_t index : {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(),
                                   -wide, wide, wide + 1, std::int64_t{std::numeric_limits<std::int32_t>::min()},
                                   std::int64_t{std::numeric_limits<std::int32_t>::max()}}) {
    EXPECT_EQ(rtl::UnitAt({text.data(), text.size()}, index), 0) << index;
  }
}

TEST(Strings, AZeroInsideTheTextDoesNotEndIt) {
  using namespace std::string_view_literals;
  EXPECT_EQ(rtl::UnitAt(u"a\0b"sv, 1), 0);
  EXPECT_EQ(rtl::UnitAt(u"a\0b"sv, 2), u'b');
}

}  // namespace
