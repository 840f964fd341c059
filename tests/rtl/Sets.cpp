#include "rtl/Sets.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>

namespace {

enum class TColour : std::uint8_t { Red, Green, Blue, White = 7 };
enum class TShape : std::int32_t { Round, Last = 63 };
using TColours = rtl::TSet<TColour, std::uint8_t>;
using TShapes = rtl::TSet<TShape, std::uint64_t>;

// Sets are usable in constants, and take no more room than their word.
static_assert(TColours{TColour::Red, TColour::White}.Bits() == 0x81);
static_assert(TColours{}.IsEmpty() && !TColours{TColour::Red}.IsEmpty());
static_assert(sizeof(TColours) == 1 && sizeof(TShapes) == 8);
static_assert(TShapes{TShape::Last}.Bits() == std::uint64_t{1} << 63);

// Sets of different enumerations do not mix, and a word is no set.
template <typename A, typename B>
concept CanBeAdded = requires(A a, B b) {
  a + b;
};
template <typename Set, typename Member>
concept CanHold = requires(Set set, Member member) {
  set.Include(member);
};
static_assert(CanBeAdded<TColours, TColours>);
static_assert(!CanBeAdded<TColours, TShapes> && !CanBeAdded<TColours, std::uint8_t>);
static_assert(CanHold<TColours, TColour> && !CanHold<TColours, TShape> && !CanHold<TColours, int>);

std::set<int> MembersOf(TColours colours) {
  std::set<int> members;
  for (int number = 0; number < 8; ++number) {
    if (colours.Contains(static_cast<TColour>(number))) members.insert(number);
  }
  return members;
}

std::set<int> MembersOf(unsigned word) {
  std::set<int> members;
  for (int number = 0; number < 8; ++number) {
    if (word / (1U << number) % 2 == 1) members.insert(number);
  }
  return members;
}

TColours Of(unsigned word) {
  return TColours::FromBits(static_cast<std::uint8_t>(word));
}

TEST(Sets, EveryWordHoldsTheMembersOfItsBits) {
  for (unsigned word = 0; word < 256; ++word) {
    EXPECT_EQ(MembersOf(Of(word)), MembersOf(word));
    EXPECT_EQ(Of(word).Bits(), word);
    EXPECT_EQ(Of(word).IsEmpty(), word == 0);
  }
}

TEST(Sets, UnionIntersectionAndDifferenceOfEveryTwoWords) {
  for (unsigned a = 0; a < 256; ++a) {
    for (unsigned b = 0; b < 256; ++b) {
      std::set<int> all = MembersOf(a);
      std::set<int> common;
      std::set<int> left;
      for (const int member : MembersOf(a)) (MembersOf(b).contains(member) ? common : left).insert(member);
      all.merge(MembersOf(b));
      ASSERT_EQ(MembersOf(Of(a) + Of(b)), all);
      ASSERT_EQ(MembersOf(Of(a) * Of(b)), common);
      ASSERT_EQ(MembersOf(Of(a) - Of(b)), left);
      ASSERT_EQ(Of(a) == Of(b), a == b);
    }
  }
}

TEST(Sets, IncludeAndExcludeChangeOneMember) {
  for (unsigned word = 0; word < 256; ++word) {
    for (int number = 0; number < 8; ++number) {
      TColours with = Of(word);
      TColours without = Of(word);
      with.Include(static_cast<TColour>(number));
      without.Exclude(static_cast<TColour>(number));
      std::set<int> expected = MembersOf(word);
      expected.insert(number);
      ASSERT_EQ(MembersOf(with), expected);
      expected.erase(number);
      ASSERT_EQ(MembersOf(without), expected);
    }
  }
}

TEST(Sets, AValueOutsideTheWordIsInNoSet) {
  for (int number = 8; number < 256; ++number) {
    const auto stranger = static_cast<TColour>(number);
    TColours colours{TColour::Green};
    EXPECT_FALSE(Of(255).Contains(stranger));
    colours.Include(stranger);
    colours.Exclude(stranger);
    EXPECT_EQ(colours, TColours{TColour::Green});
  }
  for (const std::int32_t number : {64, 1 << 30, -1, INT32_MIN}) {
    EXPECT_FALSE(TShapes::FromBits(~std::uint64_t{0}).Contains(static_cast<TShape>(number)));
  }
}

}  // namespace
