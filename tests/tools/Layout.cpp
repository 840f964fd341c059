// Line filling: nothing lost, nothing too wide, everything on its side.
#include "tools/orv/show/Layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <random>

#include "platform/GlyphSource.h"
#include "tools/orv/show/Marks.h"
#include "tools/orv/show/Paint.h"

namespace orv::show {
namespace {

class ShowLayout : public testing::Test {
 protected:
  TFaces Faces() { return {{&FText, 20}, {&FTitle, 29}}; }
  TFace Face(const TLine& line) { return line.Title ? Faces().Title : Faces().Text; }

  float Width(const TLine& line) const {
    float width = 0;
    for (const TPiece& piece : line.Pieces) width += piece.Width;
    return width;
  }

  std::vector<TParagraph> Read(std::u16string_view text) {
    TTextSettings settings;
    settings.Digits = TOrvGlobalSettings::TArabicDigitType::Latin;
    return ReadParagraphs(text, settings);
  }

  TPage Page(const std::vector<TParagraph>& text, int width) { return LayOut({&text, 1}, Faces(), width); }

 private:
  platform::TFontCatalog FCatalog;
  platform::TGlyphSource FText{FCatalog, {"DejaVu Sans", {"FreeSerif"}, 20}};
  platform::TGlyphSource FTitle{FCatalog, {"DejaVu Sans", {"FreeSerif"}, 29, fmx::TFontWeight::Bold}};
};

bool IsBlank(UCS4Char c) {
  return c == U' ' || c == U'\t';
}

std::u16string RandomText(std::mt19937& random, std::size_t length) {
  constexpr std::u16string_view letters = u"    \tabc(12).\"سلامبچ\u064E\u0651\u200Cשלוםַ\u05BC,-\n";
  std::u16string text;
  for (std::size_t i = 0; i < length; ++i) text.push_back(letters[random() % letters.size()]);
  return text;
}

TEST_F(ShowLayout, EveryAtomIsDrawnOnceButBlanksAtBreaks) {
  std::mt19937 random(3);
  for (int round = 0; round < 300; ++round) {
    const auto text = Read(RandomText(random, 1 + random() % 120));
    const TPage page = Page(text, 40 + static_cast<int>(random() % 500));
    std::map<std::pair<const TRun*, std::size_t>, int> drawn;
    for (const TLine& line : page.Lines)
      for (const TPiece& piece : line.Pieces)
        for (std::size_t i = piece.First; i < piece.Last; ++i) ++drawn[{piece.Run, i}];
    for (const TParagraph& paragraph : text)
      for (const TRun& run : paragraph.Runs)
        for (std::size_t i = 0; i < run.Atoms.size(); ++i) {
          const int count = drawn[{&run, i}];
          EXPECT_LE(count, 1);
          if (!IsBlank(run.Atoms[i])) {
            EXPECT_EQ(count, 1);
          }
        }
  }
}

TEST_F(ShowLayout, NoLineIsWiderThanItsRoomUnlessOneLetterIs) {
  std::mt19937 random(4);
  for (int round = 0; round < 300; ++round) {
    const auto text = Read(RandomText(random, 1 + random() % 120));
    const int width = 40 + static_cast<int>(random() % 500);
    const float margin = std::min(44.0F, static_cast<float>(width / 8));
    for (const TLine& line : Page(text, width).Lines) {
      std::size_t letters = 0;
      for (const TPiece& piece : line.Pieces)
        for (std::size_t i = piece.First; i < piece.Last; ++i)
          if (Face(line).Glyphs->Glyph(piece.Run->Atoms[i]).Advance > 0 && (i == 0 || !IsMark(piece.Run->Atoms[i])))
            ++letters;
      if (letters > 1) {
        EXPECT_LE(Width(line), static_cast<float>(width) - 2 * margin + 0.01F);
      }
    }
  }
}

TEST_F(ShowLayout, LinesStandOneBelowTheOther) {
  std::mt19937 random(5);
  const auto text = Read(RandomText(random, 2000));
  const TPage page = Page(text, 300);
  ASSERT_GT(page.Lines.size(), 20U);
  for (std::size_t i = 1; i < page.Lines.size(); ++i)
    EXPECT_GE(page.Lines[i].BaseLine - page.Lines[i - 1].BaseLine, LineHeight(20));
  EXPECT_GT(page.Height, page.Lines.back().BaseLine);
}

TEST_F(ShowLayout, EachParagraphIsAlignedWithItsDirection) {
  const auto text = Read(u"abc\nسلام");
  const TPage page = Page(text, 600);
  ASSERT_EQ(page.Lines.size(), 2U);
  EXPECT_FLOAT_EQ(page.Lines[0].Left, 44);
  EXPECT_NEAR(page.Lines[1].Left + Width(page.Lines[1]), 600 - 44, 0.01);
}

TEST_F(ShowLayout, WrappedMixedLinesKeepTheVisualOrderOfTheirRuns) {
  const auto text = Read(u"سلام abc def سلام ghi سلام");
  for (int width = 100; width < 600; width += 7)
    for (const TLine& line : Page(text, width).Lines)
      for (std::size_t i = 1; i < line.Pieces.size(); ++i)
        EXPECT_GT(line.Pieces[i - 1].Run, line.Pieces[i].Run);  // from the right: the first run stands last
}

TEST_F(ShowLayout, AnEndlessWordIsCutBetweenLetters) {
  const auto text = Read(std::u16string(500, u'x'));
  const TPage page = Page(text, 200);
  EXPECT_GT(page.Lines.size(), 20U);
}

TEST_F(ShowLayout, NoLineBeginsWithAMark) {
  std::u16string word;
  for (int i = 0; i < 100; ++i) word += u"بَّ";
  const auto text = Read(word);
  for (int width = 40; width < 300; width += 3)
    for (const TLine& line : Page(text, width).Lines) {
      ASSERT_FALSE(line.Pieces.empty());
      const TPiece& first = line.Pieces.back();
      EXPECT_FALSE(IsMark(first.Run->Atoms[first.First]));
    }
}

TEST_F(ShowLayout, TitlesAreLargerAndTextsAreSetApart) {
  const std::array texts = {Read(u"a\n\nb"), Read(u"c")};
  const TPage page = LayOut(texts, Faces(), 300);
  ASSERT_EQ(page.Lines.size(), 3U);
  EXPECT_TRUE(page.Lines[0].Title);
  EXPECT_FALSE(page.Lines[1].Title);
  ASSERT_EQ(page.Rules.size(), 1U);
  EXPECT_GT(page.Rules[0], page.Lines[1].BaseLine);
  EXPECT_LT(page.Rules[0], page.Lines[2].BaseLine);
}

TEST_F(ShowLayout, ATextOfNothingIsAnEmptyPage) {
  EXPECT_TRUE(Page(Read(u""), 300).Lines.empty());
  EXPECT_GT(Page(Read(u""), 300).Height, 0);
  EXPECT_EQ(LayOut({}, Faces(), 300).Rules.size(), 0U);
}

// A part of a page is the same pixels as the whole page has there: what a window shows when it is scrolled.
TEST_F(ShowLayout, APartOfAPageIsPaintedAsInTheWhole) {
  const auto text = Read(u"عنوان\n\nسلام دنیا، abc def שָׁלוֹם بِسْمِ اللَّهِ سلام دنیا\nabc abc سلام abc abc abc abc");
  const TPage page = Page(text, 260);
  const TFaces faces = Faces();
  const platform::TFrame whole = Paint(page, faces, {}, 0, 0, page.Width, page.Height);
  for (int top = 0; top + 60 <= page.Height; top += 13) {
    const platform::TFrame part = Paint(page, faces, {}, 0, top, page.Width, 60);
    for (int y = 0; y < 60; ++y) EXPECT_TRUE(std::ranges::equal(part.Row(y), whole.Row(top + y))) << top << " " << y;
  }
}

// Where two letters join, the stroke has no lighter seam: the row of most ink is of one grey along the word.
TEST_F(ShowLayout, JoinedLettersHaveNoSeam) {
  const auto text = Read(u"\u0628ــــــــــــــــــــ\u0628");
  const TPage page = Page(text, 600);
  const platform::TFrame frame = Paint(page, Faces(), {}, 0, 0, page.Width, page.Height);
  const auto green = [&](int y, std::size_t x) { return static_cast<int>((frame.Row(y)[x] >> 8) & 0xFF); };
  const auto end = static_cast<std::size_t>(page.Width - 44 - 12);  // past the letters at both ends
  const auto start = static_cast<std::size_t>(page.Lines.front().Left) + 22;
  ASSERT_LT(start + 40, end);
  int row = page.Lines.front().BaseLine - 4;
  for (int y = row; y <= page.Lines.front().BaseLine; ++y)
    if (green(y, start) < green(row, start)) row = y;
  EXPECT_LT(green(row, start), 100);
  for (std::size_t x = start; x < end; ++x) EXPECT_NEAR(green(row, x), green(row, start), 16) << x;
}

}  // namespace
}  // namespace orv::show
