// The vector code of the engine, held against the class table unit by unit.
#include "unicode/Unicode.Engine.Vectors.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "unicode/Unicode.Engine.SkipPlain.h"

namespace orv::engine {
namespace {

constexpr TStretchBit AllStretchBits[] = {TStretchBit::LTR, TStretchBit::RTL, TStretchBit::LTRLetters};

std::int32_t SkipByTable(const std::u16string& text, std::int32_t from, std::int32_t end, TStretchBit stretch) {
  const TUnitClass::TBit bit = StretchBits[static_cast<std::size_t>(stretch)];
  while (from < end && ClassOf(text[static_cast<std::size_t>(from)]).Has(bit)) ++from;
  return from;
}

void ExpectSkipsByTable(const std::u16string& text, std::int32_t from, std::int32_t end) {
  for (const TStretchBit bit : AllStretchBits) {
    const std::int32_t expected = SkipByTable(text, from, end, bit);
    ASSERT_EQ(SkipPlainPortable(text.data(), from, end, bit), expected) << from << " " << end;
    ASSERT_EQ(SkipPlain(text.data(), from, end, bit), expected) << from << " " << end;
    if (HasFastSkip()) {
      ASSERT_EQ(SkipPlainFast(text.data(), from, end, bit), expected) << from << " " << end;
    }
  }
}

// A blank is plain in every stretch.
TEST(SkipPlain, KnowsEveryUnitAtEveryPlaceOfAGroup) {
  std::u16string text(80, u' ');
  const auto length = static_cast<std::int32_t>(text.size());
  for (std::uint32_t unit = 0; unit < 0x10000; ++unit) {
    const std::size_t place = unit * 7 % text.size();
    text[place] = static_cast<char16_t>(unit);
    ExpectSkipsByTable(text, 0, length);
    text[place] = u' ';
  }
}

TEST(SkipPlain, TakesAnyPartOfAText) {
  constexpr char16_t alphabet[] = {u' ',   u'a',   u'7',   u'(',   u'.',   u'-',   0x05D0, 0x05B0, 0x0628,
                                   0x064B, 0x0661, 0x200C, 0x2019, 0x2029, 0x4E00, 0xD800, 0xFEFF, 0x00E9};
  std::mt19937 random(7);
  for (int round = 0; round < 2000; ++round) {
    std::u16string text(random() % 140, u' ');
    for (char16_t& unit : text)
      if (random() % 12 == 0) unit = alphabet[random() % std::size(alphabet)];
    const auto length = static_cast<std::int32_t>(text.size());
    for (std::int32_t from = 0; from <= length; ++from) ExpectSkipsByTable(text, from, length);
    for (std::int32_t end = 0; end <= length; ++end) ExpectSkipsByTable(text, 0, end);
  }
}

// A test may pass over no letter that it looks for; other units it may stop at.
template <typename TTest>
void ExpectNeverPasses(TUnitClass::TBit letter) {
  int passed = 0;
  for (std::uint32_t unit = 0; unit < 0x10000; ++unit) {
    const std::u16string text(TUnits::Count, static_cast<char16_t>(unit));
    if (TTest::Units(TUnits::Load(text.data())).LeadingYes() == 0) continue;
    ++passed;
    EXPECT_FALSE(ClassOf(static_cast<char16_t>(unit)).Has(letter)) << unit;
  }
  EXPECT_GT(passed, 0);
}

TEST(LetterSearch, NeverPassesALetterOfItsDirection) {
  ExpectNeverPasses<TNoLTRLetter>(TUnitClass::LetterLTR);
  ExpectNeverPasses<TNoRTLLetter>(TUnitClass::WordRTL);
}

TEST(LetterSearch, FindsAUnitWhereverItStands) {
  for (std::int32_t length = 0; length < 40; ++length) {
    for (std::int32_t place = 0; place <= length; ++place) {
      std::u16string text(static_cast<std::size_t>(length), u'a');
      if (place < length) text[static_cast<std::size_t>(place)] = u')';
      for (std::int32_t from = 0; from <= place; ++from) EXPECT_EQ(FindUnit(text.data(), from, length, u')'), place);
    }
  }
}

}  // namespace
}  // namespace orv::engine
