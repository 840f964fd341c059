// Pages of text layouts.
#include "tools/orv/show/Page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "platform/Exceptions.h"

namespace orv::show {
namespace {

class ShowPage : public ::testing::Test {
 protected:
  ShowPage() { SetUpText(); }

  TPage Page(std::u16string_view text, const TPageSettings& settings, int width = 300) {
    FTexts.push_back(ReadParagraphs(text, {}));
    return {std::span(FTexts).last(1), settings, width};
  }
  static TPageSettings DejaVu() {
    TPageSettings settings;
    settings.Family = "DejaVu Sans";
    settings.PointSize = 12;
    return settings;
  }
  static std::size_t CountOf(const platform::TFrame& frame, std::uint32_t color) {
    return static_cast<std::size_t>(std::count(frame.Pixels.begin(), frame.Pixels.end(), color));
  }
  // The first and last column with ink.
  static std::pair<int, int> InkOf(const platform::TFrame& frame) {
    int first = frame.Width, last = -1;
    for (int y = 0; y < frame.Height; ++y)
      for (int x = 0; x < frame.Width; ++x)
        if (frame.Row(y)[static_cast<std::size_t>(x)] != TColors().Paper)
          first = std::min(first, x), last = std::max(last, x);
    return {first, last};
  }

 private:
  std::vector<TText> FTexts;
};

TEST_F(ShowPage, ParagraphsStandOneBelowTheOther) {
  TPage page = Page(u"abc\n\nسلام\nשלום", DejaVu());
  const auto blocks = page.Blocks();
  ASSERT_EQ(blocks.size(), 4U);
  for (std::size_t i = 1; i < blocks.size(); ++i) EXPECT_GE(blocks[i].Top, blocks[i - 1].Top + blocks[i - 1].Height);
  EXPECT_EQ(blocks[1].Layout, nullptr);
  EXPECT_GT(page.Height(), blocks[3].Top + blocks[3].Height);
  EXPECT_EQ(blocks[0].Layout->Font().Style(), fmx::TFontStyles{fmx::TFontStyle::Bold});  // a title
  EXPECT_EQ(blocks[2].Layout->Font().Style(), fmx::TFontStyles{});
}

TEST_F(ShowPage, EachParagraphBeginsOnItsSide) {
  const auto [left, leftEnd] = InkOf(Page(u"abc", DejaVu()).Picture({}));
  const auto [right, rightEnd] = InkOf(Page(u"سلام", DejaVu()).Picture({}));
  EXPECT_LT(left, 60);
  EXPECT_LT(leftEnd, 150);
  EXPECT_GT(right, 150);
  EXPECT_GT(rightEnd, 240);
  TPageSettings centered = DejaVu();
  centered.Align = fmx::TTextAlign::Center;
  const auto [from, to] = InkOf(Page(u"سلام", centered).Picture({}));
  EXPECT_NEAR((from + to) / 2, 150, 4);
}

TEST_F(ShowPage, LinesWrapUnlessToldNotTo) {
  const std::u16string text = u"one two three four five six seven eight nine ten eleven twelve";
  TPageSettings settings = DejaVu();
  EXPECT_GT(Page(text, settings).Blocks()[0].Layout->Frame().Count(), 1);
  settings.WordWrap = false;
  settings.Trimming = fmx::TTextTrimming::Word;
  TPage page = Page(text, settings);
  ASSERT_EQ(page.Blocks()[0].Layout->Frame().Count(), 1);
  EXPECT_TRUE(page.Blocks()[0].Layout->Frame().Line(0).Item(0).Trimmed());
}

TEST_F(ShowPage, AttributesCountTheUnitsOfTheWholeText) {
  TPageSettings settings = DejaVu();
  TAttribute look;
  look.Start = 4;
  look.End = 6;
  look.Color = 0xFFC00000;
  look.Style.Include(fmx::TFontStyle::Underline);
  settings.Attributes = {look};
  TPage page = Page(u"abc\ndef", settings);
  EXPECT_EQ(page.Blocks()[0].Layout->AttributesCount(), 0U);
  ASSERT_EQ(page.Blocks()[1].Layout->AttributesCount(), 1U);
  EXPECT_EQ(page.Blocks()[1].Layout->Attribute(0).Range(), (fmx::TTextRange{0, 2}));
  EXPECT_GT(CountOf(page.Picture({}), 0xFFC00000), 5U);
}

TEST_F(ShowPage, ScaleMakesMorePixelsOfTheSamePage) {
  TPageSettings settings = DejaVu();
  const auto one = Page(u"سلام abc", settings).Picture({});
  settings.Scale = 2;
  TPage page = Page(u"سلام abc", settings);
  const auto two = page.Picture({});
  EXPECT_EQ(page.Width(), 300);
  EXPECT_EQ(two.Width, 600);
  EXPECT_NEAR(InkOf(two).first, 2 * InkOf(one).first, 4);
  EXPECT_NEAR(InkOf(two).second, 2 * InkOf(one).second, 4);
}

TEST_F(ShowPage, BoxesAreDrawnOverTheText) {
  TPageSettings settings = DejaVu();
  const auto plain = Page(u"سلام abc", settings).Picture({});
  settings.Boxes = true;
  const auto boxed = Page(u"سلام abc", settings).Picture({});
  ASSERT_EQ(plain.Pixels.size(), boxed.Pixels.size());
  std::size_t more = 0;
  for (std::size_t i = 0; i < plain.Pixels.size(); ++i) more += plain.Pixels[i] != boxed.Pixels[i] ? 1 : 0;
  EXPECT_GT(more, 100U);
}

TEST_F(ShowPage, PartOfThePageIsThatPartOfThePicture) {
  TPage page = Page(u"abc def ghi\nسلام دنیا\nxyz", DejaVu());
  const auto whole = page.Picture({});
  const auto part = page.Paint({}, 0, 30, 300, 40);
  for (int y = 0; y < 40; ++y) EXPECT_TRUE(std::ranges::equal(part.Row(y), whole.Row(y + 30))) << y;
}

TEST_F(ShowPage, DumpTellsTheFrames) {
  TPage page = Page(u"abc\n\nسلام", DejaVu());
  const auto told = nlohmann::json::parse(Dump(page));
  EXPECT_EQ(told["Width"], 300);
  ASSERT_EQ(told["Paragraphs"].size(), 3U);
  EXPECT_TRUE(told["Paragraphs"][1]["Frame"].is_null());
  EXPECT_EQ(told["Paragraphs"][2]["Start"], 5);
  EXPECT_EQ(told["Paragraphs"][2]["RightToLeft"], true);
  EXPECT_EQ(told["Paragraphs"][2]["Frame"]["Lines"][0]["Runs"][0]["Length"], 4);
}

TEST_F(ShowPage, TheNarrowestPageStillHoldsText) {
  for (const int width : {1, 2, 10}) EXPECT_GT(Page(u"سلام abc\tx", DejaVu(), width).Picture({}).Height, 20);
}

TEST_F(ShowPage, UnknownFamilyIsNamedInTheError) {
  EXPECT_NO_THROW(RequireFamily(""));
  EXPECT_NO_THROW(RequireFamily("dejavu sans"));
  EXPECT_THROW(RequireFamily("No Such Family"), platform::EFontNotFound);
}

}  // namespace
}  // namespace orv::show
