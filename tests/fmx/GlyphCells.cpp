// The rules that make glyph cells, over a font of made-up characters.
#include "fmx/GlyphCells.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>

#include "fmx/PathShapes.h"

namespace fmx {
namespace {

// A line of 8 and 2 pixels. Characters are full boxes.
class TBoxes : public ICharacterSource {
 public:
  std::map<std::uint32_t, TCharacterInk> Inks;

  TLineMetrics Metrics() override { return {8, 2}; }
  TCharacterInk Ink(std::uint32_t c, bool wantsPicture, bool colorful) override {
    TCharacterInk ink = Inks.at(c);
    const auto size = static_cast<std::size_t>(ink.Width) * static_cast<std::size_t>(ink.Height);
    if (wantsPicture) ink.Coverage.assign(size, 128);
    if (wantsPicture && colorful) ink.Colors.assign(size, 0xFF00FF00);
    return ink;
  }
  TPathData Outline(std::uint32_t) override { return RectanglePath({0, -5, 3, 0}); }
};

class TBoxFonts : public IFontSources {
 public:
  explicit TBoxFonts(TBoxes& boxes, std::vector<TFontWanted>& opened) : FBoxes(boxes), FOpened(opened) {}
  ICharacterSource& Open(const TFontWanted& font) override {
    FOpened.push_back(font);
    return FBoxes;
  }
  bool NeedsShaping(const TFontWanted& font) override {
    FOpened.push_back(font);
    return font.Family == u"Shaped";
  }

 private:
  TBoxes& FBoxes;
  std::vector<TFontWanted>& FOpened;
};

class GlyphCells : public ::testing::Test {
 protected:
  GlyphCells() : Glyphs(std::make_unique<TBoxFonts>(Boxes, Opened)) {
    Boxes.Inks = {{U'a', {5, 1, 6, 3, 6, {}, {}}},       {U'j', {4, -2, 6, 5, 8, {}, {}}},
                  {U' ', {2.5F, 0, 0, 0, 0, {}, {}}},    {0xFE76, {6, 1, 7, 4, 2, {}, {}}},
                  {0xFE7A, {6, 1, 0, 4, 2, {}, {}}},     {0xFE7E, {6, 1, 7, 4, 2, {}, {}}},
                  {0x1F600, {7.2F, 1, 7, 6, 7, {}, {}}}, {U'T', {5, 0, 12, 4, 15, {}, {}}}};
    Boxes.Inks[0xFE98] = {5, 0, 4, 5, 4, {}, {}};  // the highest and the lowest common letter
    Boxes.Inks[0xFE92] = {5, 0, 4, 5, 4, {}, {}};
    Load(10);
  }

  void Load(float size, float scale = 1) { Glyphs.LoadResource({u"Boxes", {}, size, scale}); }
  TFontGlyph Glyph(std::uint32_t c, TFontGlyphSettings settings = {TFontGlyphSetting::Bitmap}, bool colorful = false) {
    return Glyphs.DoGetGlyph(std::span(&c, 1), settings, colorful);
  }
  // The rows of the cell that have ink, "2-7"; the columns likewise.
  static std::string Rows(const TFontGlyph& glyph) {
    std::int32_t first = -1, last = -1;
    for (std::int32_t y = 0; y < glyph.Bitmap.Height(); ++y)
      for (const auto pixel : glyph.Bitmap.Scanline(y))
        if (pixel != 0) first = first < 0 ? y : first, last = y;
    return std::to_string(first) + "-" + std::to_string(last);
  }

  TBoxes Boxes;
  std::vector<TFontWanted> Opened;
  TCellGlyphs Glyphs;
};

TEST_F(GlyphCells, BearingsAndInkMakeTheAdvanceAndTheCell) {
  const auto a = Glyph(U'a');
  EXPECT_EQ(a.Advance, 5);
  EXPECT_EQ(a.Origin, (TPoint{1, 0}));
  EXPECT_EQ(a.Bitmap.Width(), 5);  // 1 + 3 + 1
  EXPECT_EQ(a.Bitmap.Height(), 10);
  EXPECT_EQ(a.VerticalAdvance, 10);
  EXPECT_EQ(Rows(a), "2-7");
  EXPECT_EQ(a.Bitmap.Scanline(4)[0], 0x80FFFFFFU);  // the cell begins at the ink
  EXPECT_EQ(a.Bitmap.Scanline(4)[3], 0U);
  EXPECT_EQ(Glyphs.DoGetBaseline(), 8);
}

TEST_F(GlyphCells, InkLeftOfThePenIsKept) {
  const auto j = Glyph(U'j');
  EXPECT_EQ(j.Origin.X, -2);
  EXPECT_EQ(j.Bitmap.Width(), 8);  // 2 + 5 + 1
  EXPECT_NE(j.Bitmap.Scanline(4)[0], 0U);
  EXPECT_EQ(j.Advance, 4);
  EXPECT_EQ(Rows(j), "2-9");
}

TEST_F(GlyphCells, BlankHasACell) {
  const auto blank = Glyph(U' ');
  EXPECT_EQ(blank.Bitmap.Width(), 3);
  EXPECT_EQ(blank.Bitmap.Height(), 10);
  EXPECT_EQ(Rows(blank), "-1--1");
  EXPECT_EQ(blank.Advance, 2.5F);
}

TEST_F(GlyphCells, VowelFormsStandOnTheLetterBefore) {
  EXPECT_EQ(Glyph(0xFE76).Advance, 0);
  EXPECT_EQ(Glyph(0xFE76).Bitmap.Width(), 10);  // 1 + 4 + 5
  EXPECT_EQ(Glyph(0xFE7E).Advance, 6);
  Boxes.Inks[0xFC5E] = Boxes.Inks[0xFC62] = Boxes.Inks[0xFE70] = Boxes.Inks[0xFE7D] = Boxes.Inks[0xFE76];
  Boxes.Inks[0xFC5D] = Boxes.Inks[0xFC63] = Boxes.Inks[0xFE6F] = Boxes.Inks[0xFE76];
  for (const std::uint32_t c : {0xFC5EU, 0xFC62U, 0xFE70U, 0xFE7DU}) EXPECT_EQ(Glyph(c).Advance, 0) << c;
  for (const std::uint32_t c : {0xFC5DU, 0xFC63U, 0xFE6FU}) EXPECT_EQ(Glyph(c).Advance, 6) << c;
}

// A layout draws the cell of a mark a third of its height higher, and that of a kasra a fifth lower.
TEST_F(GlyphCells, MarksComeOutWhereTheFontHasThem) {
  EXPECT_EQ(Rows(Glyph(0xFE76)), "4-5");  // rows 1 and 2 of the line
  EXPECT_EQ(Rows(Glyph(0xFE7A)), "7-8");  // rows 8 and 9, and one further from the letters on the base line
}

TEST_F(GlyphCells, MarksAreClearOfTheDotsOfLetters) {
  Boxes.Inks[0xFE98] = {5, 0, 6, 5, 6, {}, {}};
  EXPECT_EQ(Rows(Glyph(0xFE76)), "2-3");  // its lower edge was 5 above the base line, and is 7
  Boxes.Inks[0xFE92] = {5, 0, 4, 5, 6, {}, {}};
  EXPECT_EQ(Rows(Glyph(0xFE7A)), "9-10");
}

TEST_F(GlyphCells, CharacterOfTwoUnitsHasItsExtent) {
  const auto face = Glyph(0x1F600);
  EXPECT_EQ(face.Advance, 8);
  EXPECT_EQ(face.Origin.X, 0);
  EXPECT_EQ(face.Bitmap.Width(), 8);
  EXPECT_EQ(face.Bitmap.Scanline(4)[0], 0U);  // its bearing lies in the cell
  EXPECT_NE(face.Bitmap.Scanline(4)[1], 0U);
}

TEST_F(GlyphCells, CellGrowsForInkThatLeavesTheLine) {
  const auto tall = Glyph(U'T');
  EXPECT_EQ(tall.Origin.Y, -4);
  EXPECT_EQ(tall.Bitmap.Height(), 15);
  EXPECT_EQ(Rows(tall), "0-14");
  EXPECT_EQ(tall.VerticalAdvance, 10);
}

TEST_F(GlyphCells, PixelsAreGreyOrWhiteWithAlphaOrTheirOwn) {
  EXPECT_EQ(Glyph(U'a', {TFontGlyphSetting::Bitmap, TFontGlyphSetting::BitmapAsGrey}).Bitmap.Scanline(4)[0],
            0x80808080U);
  const auto colored = Glyph(U'a', {TFontGlyphSetting::Bitmap}, true);
  EXPECT_EQ(colored.Bitmap.Scanline(4)[0], 0xFF00FF00U);
  EXPECT_TRUE(colored.Style.Contains(TFontGlyphStyle::ColorGlyph));
  EXPECT_FALSE(Glyph(U'a').Style.Contains(TFontGlyphStyle::ColorGlyph));
}

TEST_F(GlyphCells, OutlinesHangFromTheTopOfTheLine) {
  const auto a = Glyph(U'a', {TFontGlyphSetting::Path});
  EXPECT_TRUE(a.Bitmap.IsEmpty());
  EXPECT_TRUE(a.Style.Contains(TFontGlyphStyle::HasPath));
  EXPECT_EQ(a.Path.GetBounds(), (TRectF{0, 3, 3, 8}));
}

TEST_F(GlyphCells, SilentCharactersAreNotAskedFor) {
  for (const std::uint32_t c :
       {0x0U, 0x1FU, 0x7FU, 0x9FU, 0xADU, 0x200BU, 0x200FU, 0x202AU, 0x202EU, 0x2060U, 0x206FU}) {
    const auto glyph = Glyph(c);  // the font would raise
    EXPECT_EQ(glyph.Advance, 0);
    EXPECT_TRUE(glyph.Style.Contains(TFontGlyphStyle::NoGlyph));
    EXPECT_EQ(glyph.VerticalAdvance, 10);
  }
  for (const std::uint32_t c :
       {U'\t', U' ', U'a', char32_t{0xA0}, char32_t{0x200A}, char32_t{0x2010}, char32_t{0x202F}})
    EXPECT_FALSE(IsSilent(c)) << c;
}

TEST_F(GlyphCells, SizesAreWholePixels) {
  EXPECT_EQ(PixelSizeOf(12, 1.5F), 18);
  EXPECT_EQ(PixelSizeOf(12.2F, 1), 12);
  EXPECT_EQ(PixelSizeOf(12.9F, 1), 13);
  EXPECT_EQ(PixelSizeOf(12.5F, 1), 12);
  EXPECT_EQ(PixelSizeOf(0.4F, 1), 0);
  EXPECT_EQ(PixelSizeOf(-5, 1), 0);
  EXPECT_EQ(PixelSizeOf(std::nanf(""), 1), 0);
  EXPECT_EQ(PixelSizeOf(3e38F, 3e38F), std::numeric_limits<std::int32_t>::max());
}

TEST_F(GlyphCells, FontOfNoSizeIsNotOpened) {
  Opened.clear();
  Load(0);
  EXPECT_TRUE(Glyph(U'a').Style.Contains(TFontGlyphStyle::NoGlyph));
  EXPECT_EQ(Glyphs.DoGetBaseline(), 0);
  EXPECT_TRUE(Opened.empty());
}

TEST_F(GlyphCells, LoadingAsksForNothing) {
  EXPECT_TRUE(Opened.empty());
  Glyphs.DoGetBaseline();
  ASSERT_EQ(Opened.size(), 1U);
  EXPECT_EQ(Opened[0].Family, u"Boxes");
  EXPECT_EQ(Opened[0].PixelSize, 10);
  EXPECT_EQ(Opened[0].File, u"");
}

TEST_F(GlyphCells, FileOfTheSettingsIsAskedFor) {
  Glyphs.LoadResource({u"Boxes", {}, 10, 1, TFontWeight::Bold, TFontSlant::Oblique, u"/fonts/b.ttf"});
  Glyphs.DoGetBaseline();
  EXPECT_EQ(Opened.back().File, u"/fonts/b.ttf");
  EXPECT_EQ(Opened.back().Weight, TFontWeight::Bold);
  EXPECT_EQ(Opened.back().Slant, TFontSlant::Oblique);
}

TEST_F(GlyphCells, FontsThatNeedShapingSaySo) {
  EXPECT_TRUE(Glyphs.FontRendererRequired({u"Shaped", {}, 12, 1}));
  EXPECT_FALSE(Glyphs.FontRendererRequired({u"Boxes", {}, 12, 1}));
}

}  // namespace
}  // namespace fmx
