// The searches beside their scalar twins, at every length, alignment and place of the match.
#include "rtl/TextSearch.h"

#include <gtest/gtest.h>

#include <random>

namespace {

constexpr std::size_t Longest = 300;  // past the place where the wide vectors begin

// Text in a block of exactly its size, so that a read past it is caught by the address checks.
template <typename TUnit>
class TExact {
 public:
  TExact(std::size_t offset, std::size_t length)
      : FUnits(new TUnit[offset + length]), FOffset(offset), FLength(length) {
    std::fill(FUnits.get(), FUnits.get() + offset + length, TUnit{'a'});
  }
  TUnit& operator[](std::size_t i) { return FUnits[FOffset + i]; }
  std::basic_string_view<TUnit> View() const { return {FUnits.get() + FOffset, FLength}; }
  // What stands before the text must not count.
  void Foul(TUnit unit) { std::fill(FUnits.get(), FUnits.get() + FOffset, unit); }

 private:
  std::unique_ptr<TUnit[]> FUnits;
  std::size_t FOffset;
  std::size_t FLength;
};

template <typename TUnit>
void ExpectEveryPlaceIsFound() {
  constexpr rtl::TFourUnits<TUnit> any = {'\\', '{', '}', '\r'};
  for (std::size_t length = 0; length <= Longest; ++length) {
    TExact<TUnit> text(length % 9, length);
    text.Foul('{');
    ASSERT_EQ(rtl::FindUnit(text.View(), TUnit{'{'}), length);
    ASSERT_EQ(rtl::FindAnyUnit(text.View(), any), length);
    for (std::size_t place = 0; place < length; ++place) {
      text[place] = any[place % any.size()];
      ASSERT_EQ(rtl::FindUnit(text.View(), any[place % any.size()]), place) << length;
      ASSERT_EQ(rtl::FindAnyUnit(text.View(), any), place) << length;
      text[place] = 'a';
    }
  }
}

TEST(TextSearch, EveryPlaceInEveryLengthIsFound) {
  ExpectEveryPlaceIsFound<char>();
  ExpectEveryPlaceIsFound<char16_t>();
}

template <typename TUnit>
void ExpectTheFirstOfManyIsFound(std::uint32_t mask) {
  std::mt19937 random(5);
  for (int round = 0; round < 3000; ++round) {
    std::basic_string<TUnit> text(random() % Longest, TUnit{});
    for (TUnit& unit : text) unit = static_cast<TUnit>(random() & mask);
    const std::basic_string_view<TUnit> view(text);
    const auto pick = [&] { return static_cast<TUnit>(random() & mask); };
    const rtl::TFourUnits<TUnit> units = {pick(), pick(), pick(), pick()};
    ASSERT_EQ(rtl::FindUnit(view, units[0]), rtl::scalar::FindUnit(view, units[0]));
    ASSERT_EQ(rtl::FindAnyUnit(view, units), rtl::scalar::FindAnyUnit(view, units));
  }
}

// Few values, so that matches are many; and values whose bytes match while the units do not.
TEST(TextSearch, AgreesWithTheScalarTwin) {
  for (const std::uint32_t mask : {0x3U, 0xFU, 0xFFU}) ExpectTheFirstOfManyIsFound<char>(mask);
  for (const std::uint32_t mask : {0x3U, 0x0101U, 0xF0F0U, 0xFFFFU}) ExpectTheFirstOfManyIsFound<char16_t>(mask);
}

}  // namespace
