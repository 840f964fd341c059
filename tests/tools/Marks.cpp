// Marks around every letter that shaping can make: by their letter, on their side, and never into ink.
#include "tools/orv/show/Marks.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orv::show {
namespace {

using platform::TGlyph;
using platform::TGlyphSource;

constexpr double PixelSize = 32;

class ShowMarks : public testing::Test {
 protected:
  // Letter first, then the marks in their order.
  std::vector<TPlacedGlyph> Place(std::uint32_t letter, std::vector<std::uint32_t> marks) {
    std::vector<TMark> placed;
    for (const std::uint32_t mark : marks) placed.push_back({mark, &FGlyphs.Glyph(mark)});
    return PlaceMarks(letter, FGlyphs.Glyph(letter), placed, PixelSize);
  }

 private:
  platform::TFontCatalog FCatalog;
  TGlyphSource FGlyphs{FCatalog, {"DejaVu Sans", {"FreeSerif"}, PixelSize}};
};

int Centre(const TPlacedGlyph& placed) {
  return placed.Left + placed.Glyph->Width / 2;
}
int Bottom(const TPlacedGlyph& placed) {
  return placed.Top - placed.Glyph->Height;
}

bool HasInk(const TPlacedGlyph& placed, int x, int y) {
  const TGlyph& glyph = *placed.Glyph;
  const int column = x - placed.Left;
  const int row = placed.Top - y;
  if (column < 0 || column >= glyph.Width || row < 0 || row >= glyph.Height) return false;
  return glyph.Coverage[static_cast<std::size_t>(row * glyph.Width + column)] >= 128;
}

bool Overlap(const TPlacedGlyph& a, const TPlacedGlyph& b) {
  for (int y = Bottom(a); y <= a.Top; ++y)
    for (int x = a.Left; x < a.Left + a.Glyph->Width; ++x)
      if (HasInk(a, x, y) && HasInk(b, x, y)) return true;
  return false;
}

const std::vector<std::uint32_t>& ArabicMarks() {
  static const std::vector<std::uint32_t> marks = {0xFE70, 0xFE72, 0xFE74, 0xFE76, 0xFE78, 0xFE7A, 0xFE7C, 0xFE7E,
                                                   0xFC5E, 0xFC5F, 0xFC60, 0xFC61, 0xFC62, 0xFC63, 0x0653, 0x0670};
  return marks;
}

std::vector<std::uint32_t> ArabicLetters() {
  std::vector<std::uint32_t> letters = {0xFB56, 0xFB57, 0xFB58, 0xFB59, 0xFB7A, 0xFB8A, 0xFB8E, 0xFB92, 0xFBFC};
  for (std::uint32_t c = 0xFE80; c <= 0xFEFC; ++c) letters.push_back(c);
  return letters;
}

TEST_F(ShowMarks, MarksAreCombiningCharactersAndIsolatedForms) {
  for (const std::uint32_t c :
       {0x64BU, 0x65FU, 0x670U, 0x6DCU, 0x5B0U, 0x5BCU, 0x5C7U, 0x301U, 0xFE70U, 0xFE7EU, 0xFC5EU, 0xFC63U})
    EXPECT_TRUE(IsMark(c)) << c;
  for (const std::uint32_t c :
       {0x628U, 0x5D0U, 0x5BEU, 0x5C0U, 0x61U, 0x20U, 0xFE71U, 0xFE77U, 0xFE80U, 0xFC5DU, 0xFC64U, 0x200DU})
    EXPECT_FALSE(IsMark(c)) << c;
}

TEST_F(ShowMarks, ALetterAloneStaysWhereItIs) {
  const auto placed = Place(0xFE91, {});
  ASSERT_EQ(placed.size(), 1U);
  EXPECT_EQ(placed[0].Left, placed[0].Glyph->Left);
  EXPECT_EQ(placed[0].Top, placed[0].Glyph->Top);
}

TEST_F(ShowMarks, NoArabicMarkTouchesItsLetter) {
  for (const std::uint32_t letter : ArabicLetters())
    for (const std::uint32_t mark : ArabicMarks()) {
      const auto placed = Place(letter, {mark});
      ASSERT_EQ(placed.size(), 2U);
      EXPECT_FALSE(Overlap(placed[0], placed[1])) << std::hex << letter << " " << mark;
      EXPECT_GE(Centre(placed[1]), placed[0].Left) << std::hex << letter << " " << mark;
      EXPECT_LE(Centre(placed[1]), placed[0].Left + placed[0].Glyph->Width) << std::hex << letter << " " << mark;
    }
}

TEST_F(ShowMarks, TwoMarksOnOneLetterStandApart) {
  for (const std::uint32_t letter : ArabicLetters())
    for (const std::uint32_t first : ArabicMarks())
      for (const std::uint32_t second : ArabicMarks()) {
        const auto placed = Place(letter, {first, second});
        EXPECT_FALSE(Overlap(placed[1], placed[2])) << std::hex << letter << " " << first << " " << second;
      }
}

TEST_F(ShowMarks, KasraStandsBelowAndFathaAbove) {
  for (const std::uint32_t letter : ArabicLetters()) {
    EXPECT_LT(Place(letter, {0xFE7A})[1].Top, 0) << std::hex << letter;
    EXPECT_GT(Bottom(Place(letter, {0xFE76})[1]), 0) << std::hex << letter;
  }
}

TEST_F(ShowMarks, AMarkRisesWithItsLetter) {
  EXPECT_GT(Bottom(Place(0xFEDF, {0xFE76})[1]), Bottom(Place(0xFEE3, {0xFE76})[1]));  // over lam, over meem
}

TEST_F(ShowMarks, HebrewPointsStandBelowWithinAndAbove) {
  for (std::uint32_t letter = 0x5D0; letter <= 0x5EA; ++letter) {
    EXPECT_LT(Place(letter, {0x5B7})[1].Top, 1) << std::hex << letter;  // patah
    const auto dagesh = Place(letter, {0x5BC})[1];
    EXPECT_GT(Bottom(dagesh), 0) << std::hex << letter;
    EXPECT_LT(dagesh.Top, PixelSize) << std::hex << letter;
    EXPECT_GT(Bottom(Place(letter, {0x5B9})[1]), PixelSize * 0.4) << std::hex << letter;  // holam
  }
}

TEST_F(ShowMarks, ShinAndSinDotsStandOnTheirOwnArm) {
  const auto shin = Place(0x5E9, {0x5C1});
  const auto sin = Place(0x5E9, {0x5C2});
  EXPECT_GT(Centre(shin[1]), Centre(shin[0]));
  EXPECT_LT(Centre(sin[1]), Centre(sin[0]));
}

// Lam is on the right of the ligature, alef on the left.
TEST_F(ShowMarks, TheMarksOfALamAlefStandOverTheirOwnLetters) {
  const auto lam = Place(0xFEFB, {0xFE76});
  EXPECT_GT(Centre(lam[1]), Centre(lam[0]));
  const auto ending = Place(0xFEFB, {0xFE70});
  EXPECT_LT(Centre(ending[1]), Centre(ending[0]));
  const auto hamza = Place(0xFEF7, {0xFE78});
  EXPECT_LT(Centre(hamza[1]), Centre(hamza[0]));
  const auto both = Place(0xFEF7, {0xFE76, 0xFE76});
  EXPECT_GT(Centre(both[1]), Centre(both[0]));
  EXPECT_LT(Centre(both[2]), Centre(both[0]));
}

TEST_F(ShowMarks, ALatinMarkStandsWhereTheFontPutsIt) {
  const auto placed = Place(U'e', {0x301});
  EXPECT_EQ(placed[1].Top, placed[1].Glyph->Top);
  EXPECT_FALSE(Overlap(placed[0], placed[1]));
}

}  // namespace
}  // namespace orv::show
