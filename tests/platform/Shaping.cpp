// Runs in a font without presentation forms, shaped as a whole: Noto Nastaliq Urdu.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "fmx/Log.h"
#include "platform/FontCatalog.h"
#include "platform/FontGlyphs.h"
#include "platform/SoftwareCanvas.h"
#include "textlayout/Orv.FontGlyphs.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "textlayout/Orv.TextLayout.Internal.Shaped.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv::platform {
namespace {

const fmx::TFont Nastaliq(u"Noto Nastaliq Urdu", 20);
const std::u16string Urdu = u"یہ اردو زبان میں ایک جملہ ہے";

class Shaping : public ::testing::Test {
 protected:
  Shaping() {
    RegisterFontGlyphs();
    TGlyphAtlas::Clear();
  }
  ~Shaping() override { fmx::TFontGlyphManager::RegisterBackEnd({}); }

  static fmx::TShapedText Shaped(std::u16string_view text, std::int32_t start, std::int32_t length, bool rightToLeft,
                                 const fmx::TFont& font = Nastaliq, bool wantsPicture = false) {
    fmx::TShapeRequest request;
    request.Text = text;
    request.Start = start;
    request.Length = length;
    request.RightToLeft = rightToLeft;
    request.WantsPicture = wantsPicture;
    return TFontGlyphManagerOrv::Current().Shape(request, font, 1);
  }

  static std::unique_ptr<TTextLayoutNGOrv> Laid(std::u16string_view text, float width, bool wrap = false,
                                                float scale = 1) {
    auto layout = std::make_unique<TTextLayoutNGOrv>();
    layout->BeginUpdate();
    layout->SetScale(scale);
    layout->SetFont(Nastaliq);
    layout->SetWordWrap(wrap);
    layout->SetMaxSize({width, 10000});
    layout->SetText(text);
    layout->EndUpdate();
    return layout;
  }

  static void Draw(TTextLayoutNGOrv& layout, fmx::TBitmap& bitmap) {
    TSoftwareCanvas canvas({fmx::TCanvasTarget::TKind::Bitmap, &bitmap, nullptr, bitmap.Width(), bitmap.Height(), 1});
    ASSERT_TRUE(canvas.BeginScene());
    layout.RenderLayout(canvas);
    canvas.EndScene();
  }

  // The units of the text that stand in no run.
  static std::u16string Left(const TTextLayoutNGOrv& layout) {
    std::u16string text = layout.Text();
    for (std::int32_t i = 0; i < layout.Frame().Count(); ++i)
      for (std::int32_t k = 0; k < layout.Frame().Line(i).Count(); ++k) {
        const TGPURun& run = layout.Frame().Line(i).Item(k);
        for (std::int32_t n = run.StartIndex(); n < run.EndIndex(); ++n) text[static_cast<std::size_t>(n)] = u'\0';
      }
    text.erase(std::remove(text.begin(), text.end(), u'\0'), text.end());
    return text;
  }
};

TEST_F(Shaping, ClustersHoldEveryUnitAndTileTheWidth) {
  std::mt19937 random(3);
  const std::u16string letters = u"اردومیںہے پچ123 ab\u064E\u064F\u200C\U0001F600";
  for (int round = 0; round < 300; ++round) {
    std::u16string text;
    for (int i = 0; i < 20; ++i) text += letters[random() % letters.size()];
    const auto start = static_cast<std::int32_t>(random() % 10);
    const auto length = static_cast<std::int32_t>(random() % 11);
    const bool rightToLeft = random() % 2 == 0;
    const auto shaped = Shaped(text, start, length, rightToLeft);
    std::int32_t next = start;
    float width = 0;
    for (const auto& cluster : shaped.Clusters) {
      ASSERT_EQ(cluster.Start, next);
      ASSERT_GT(cluster.Length, 0);
      ASSERT_GE(cluster.Width, 0);
      const float left = rightToLeft ? shaped.Width - width - cluster.Width : width;
      ASSERT_NEAR(cluster.Left, left, 0.01);
      next += cluster.Length;
      width += cluster.Width;
    }
    ASSERT_EQ(next, start + length);
    ASSERT_NEAR(width, shaped.Width, 0.01);
  }
}

// Lam and alef are one sign, and letters join: the word is narrower than its letters alone.
TEST_F(Shaping, LettersAreShapedAsAWhole) {
  const std::u16string word = u"جملہ";
  float alone = 0;
  for (const char16_t letter : word) alone += Shaped(std::u16string(1, letter), 0, 1, true).Width;
  EXPECT_LT(Shaped(word, 0, 4, true).Width, alone * 0.9F);
  // A part of a word keeps the forms that it has in it.
  EXPECT_LT(Shaped(word, 0, 1, true).Width, Shaped(u"ج", 0, 1, true).Width);
}

TEST_F(Shaping, PictureHoldsTheInkAndOnlyWhereItIsWanted) {
  EXPECT_TRUE(Shaped(Urdu, 0, 28, true).Picture.IsEmpty());
  const auto shaped = Shaped(Urdu, 0, 28, true, Nastaliq, true);
  ASSERT_FALSE(shaped.Picture.IsEmpty());
  EXPECT_NEAR(static_cast<float>(shaped.Picture.Width()), shaped.Width, 20);
  EXPECT_GT(shaped.Height, 40);  // two and a half ems
  std::uint64_t ink = 0;
  for (const auto pixel : shaped.Picture.Pixels()) {
    EXPECT_EQ(pixel, (pixel & 0xFF) * 0x01010101U);
    ink += pixel & 0xFF;
  }
  EXPECT_GT(ink, 50000U);
  EXPECT_TRUE(Shaped(u"  ", 0, 2, true, Nastaliq, true).Picture.IsEmpty());
}

TEST_F(Shaping, WhatTheFontLacksComesFromAnotherOne) {
  const auto latin = Shaped(u"abc", 0, 3, false);
  const auto dejaVu = Shaped(u"abc", 0, 3, false, fmx::TFont(u"DejaVu Sans", 20));
  EXPECT_NEAR(latin.Width, dejaVu.Width, 6);
  EXPECT_EQ(latin.Height, Shaped(Urdu, 0, 5, true).Height);
  const auto box = Shaped(u"\uFFFF", 0, 1, false, Nastaliq, true);
  EXPECT_NEAR(box.Width, 12, 0.1);
  EXPECT_FALSE(box.Picture.IsEmpty());
}

TEST_F(Shaping, SizesAndRangesThatMakeNoSenseDoNoHarm) {
  for (const float size : {0.0F, 0.3F, 2048.0F})
    EXPECT_TRUE(std::isfinite(Shaped(Urdu, 0, 5, true, fmx::TFont(u"Noto Nastaliq Urdu", size), true).Width)) << size;
  EXPECT_EQ(Shaped(Urdu, -5, 2, true).Clusters.size(), Shaped(Urdu, 0, 2, true).Clusters.size());
  EXPECT_TRUE(Shaped(Urdu, 100, 5, true).Clusters.empty());
  EXPECT_TRUE(Shaped(u"", 0, 0, true).Clusters.empty());
  for (const std::u16string text : {u"\xD800", u"\xDC00\xD83D", u"\xD83D", u"\u0000\u0001"})
    EXPECT_TRUE(std::isfinite(Shaped(text, 0, static_cast<std::int32_t>(text.size()), false, Nastaliq, true).Width));
}

// Bit-flipped files: the clusters still hold every unit, and nothing is infinite.
TEST_F(Shaping, HostileFilesDoNoHarm) {
  std::mt19937 random(11);
  const auto file = TFontCatalog().Find("Noto Nastaliq Urdu");
  ASSERT_TRUE(file);
  std::ifstream stream(file->Path, std::ios::binary);
  const std::vector<char> good{std::istreambuf_iterator<char>(stream), {}};
  const auto folder = std::filesystem::temp_directory_path() / ("orv-shaping-" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  const std::string name = (folder / "hostile.ttf").string();
  for (int round = 0; round < 30; ++round) {
    std::vector<char> bad = good;
    if (round % 5 == 0) bad.resize(random() % bad.size());
    for (int i = 0; i < 600 && !bad.empty(); ++i)
      bad[random() % (i % 3 == 0 ? std::min<std::size_t>(bad.size(), 4096) : bad.size())] ^=
          static_cast<char>(1 << random() % 8);
    std::ofstream(name, std::ios::binary).write(bad.data(), static_cast<std::streamsize>(bad.size()));
    fmx::TShapeRequest request;
    request.Text = Urdu;
    request.Length = static_cast<std::int32_t>(Urdu.size());
    request.RightToLeft = true;
    request.WantsPicture = true;
    request.Font = {u"Hostile", {}, 24, 1};
    request.Font.File = std::u16string(name.begin(), name.end());
    const auto shaped = MakeFontGlyphs()->Shape(request);
    EXPECT_TRUE(std::isfinite(shaped.Width));
    EXPECT_GT(shaped.Height, 0);
    std::int32_t units = 0;
    for (const auto& cluster : shaped.Clusters) units += cluster.Length;
    EXPECT_EQ(units, request.Length);
  }
  std::filesystem::remove_all(folder);
}

// --- In a layout ---

TEST_F(Shaping, RunsOfSuchFontsAloneHaveAnEngine) {
  const auto layout = Laid(Urdu, 1000);
  ASSERT_TRUE(layout->Frame().Line(0).Item(0).HasInternalRenderer());
  EXPECT_NE(dynamic_cast<TInternalTextLayoutShaped*>(layout->Frame().Line(0).Item(0).InternalRenderer()), nullptr);
  EXPECT_NEAR(layout->TextWidth(), Shaped(Urdu, 0, 28, true).Width, 0.01);
  TTextLayoutNGOrv plain;
  plain.SetText(Urdu);
  EXPECT_FALSE(plain.Frame().Line(0).Item(0).HasInternalRenderer());
}

// The caret stops at every letter, and a click on it gives it back.
TEST_F(Shaping, CaretAndClickAgree) {
  for (const float scale : {1.0F, 1.5F, 2.0F})
    for (const std::u16string& text : {Urdu, std::u16string(u"abc"), std::u16string(u"اردو abc زبان")}) {
      const auto layout = Laid(text, 1000, false, scale);
      for (std::int32_t i = 0; i < static_cast<std::int32_t>(text.size()); ++i) {
        const auto region = layout->RegionForRange({i, 1});
        ASSERT_FALSE(region.empty()) << i;
        const fmx::TRectF& box = region.front();
        if (box.Width() < 0.5F) continue;  // a part of the letter before
        const TGPURun* run = nullptr;
        for (std::int32_t k = 0; k < layout->Frame().Line(0).Count(); ++k) {
          const TGPURun& each = layout->Frame().Line(0).Item(k);
          if (i >= each.StartIndex() && i < each.EndIndex()) run = &each;
        }
        ASSERT_NE(run, nullptr);
        ASSERT_GE(box.Left, run->ImageRect().Left - 0.1F);
        ASSERT_LE(box.Right, run->ImageRect().Right + 0.1F);
        const float near = run->RightToLeft() ? box.Right - box.Width() / 4 : box.Left + box.Width() / 4;
        const float far = run->RightToLeft() ? box.Left + box.Width() / 4 : box.Right - box.Width() / 4;
        EXPECT_EQ(layout->PositionAtPoint({near, 10}), i) << scale;
        EXPECT_EQ(layout->PositionAtPoint({far, 10}), i + 1) << scale;
      }
    }
}

TEST_F(Shaping, LinesBreakBehindBlanks) {
  const float widest = Laid(Urdu, 1000)->TextWidth();
  for (float width = 70; width < widest; width += 13) {
    const auto layout = Laid(Urdu, width, true);
    EXPECT_GT(layout->Frame().Count(), 1) << width;
    EXPECT_EQ(Left(*layout), u"") << width;
    for (std::int32_t i = 0; i < layout->Frame().Count(); ++i) {
      const TGPULine& line = layout->Frame().Line(i);
      EXPECT_LE(line.Width(), width + 6) << width;  // a blank may hang over
      const std::int32_t start = line.Item(0).StartIndex();
      if (start > 0) {
        EXPECT_EQ(Urdu[static_cast<std::size_t>(start) - 1], u' ') << width;
      }
    }
  }
}

TEST_F(Shaping, RunsOfALineShareItsWidth) {
  const auto layout = Laid(u"اردو زبان one two میں ایک", 160, true);
  EXPECT_GT(layout->Frame().Count(), 1);
  EXPECT_EQ(Left(*layout), u"");
  for (std::int32_t i = 0; i < layout->Frame().Count(); ++i) EXPECT_LE(layout->Frame().Line(i).Width(), 166);
}

TEST_F(Shaping, TextIsDrawnInItsColourAtTheSamePlaceEachTime) {
  const auto layout = Laid(Urdu, 1000);
  layout->SetColor(0xFFC00000);
  fmx::TBitmap first(400, 80), second(400, 80);
  Draw(*layout, first);
  Draw(*layout, second);
  EXPECT_EQ(first.Surface(), second.Surface());
  std::size_t red = 0;
  for (const auto pixel : first.Surface().Pixels()) {
    EXPECT_EQ(pixel & 0xFFFF, 0U);
    red += pixel == 0xFFC00000 ? 1 : 0;
  }
  EXPECT_GT(red, 100U);
  layout->SetColor(0xFF00A000);
  Draw(*layout, second);
  EXPECT_NE(first.Surface(), second.Surface());
}

TEST_F(Shaping, DigitsAreThoseOfTheSettings) {
  using TDigits = TOrvGlobalSettings::TArabicDigitType;
  const TDigits before = TOrvGlobalSettings::ArabicDigitType;
  const auto drawn = [](TDigits digits, const std::u16string& text) {
    TOrvGlobalSettings::ArabicDigitType = digits;
    fmx::TBitmap bitmap(200, 80);
    Draw(*Laid(text, 1000), bitmap);
    return bitmap.Surface();
  };
  EXPECT_EQ(drawn(TDigits::ArabicDigitType2, u"سال 123"), drawn(TDigits::Latin, u"سال ۱۲۳"));
  EXPECT_NE(drawn(TDigits::Latin, u"سال 123"), drawn(TDigits::Latin, u"سال ۱۲۳"));
  TOrvGlobalSettings::ArabicDigitType = before;
}

TEST_F(Shaping, StepsAreLogged) {
  std::vector<std::string> lines;
  fmx::Log::SetSink([&](std::string_view line) {
    if (line.find("InternalTextLayout") != std::string_view::npos ||
        line.find("BreakingText") != std::string_view::npos)
      lines.emplace_back(line);
  });
  Laid(u"ab cd", 40, true);
  fmx::Log::SetSink({});
  ASSERT_GE(lines.size(), 7U);
  const char* starts[] = {"DoRenderLayout: ---- >BreakingText(0:0(0,5))<",
                          "DoRenderLayout: InternalTextLayout->TextBreakResult Run: 0.0(0, 5), offset: 3, width:",
                          "DoRenderLayout: InternalTextLayout->TextBreaked Run: 0.0(0, 5), offset: 3, width:",
                          "DoRenderLayout: InternalTextLayout->Text to break 'ab cd'",
                          "DoRenderLayout: InternalTextLayout->SplitIndex: 0.0(3, 3)",
                          "DoRenderLayout: InternalTextLayout->Text breaked 'ab '",
                          "DoRenderLayout: ---- <BreakingText(0:1(0,3)-rect("};
  for (std::size_t i = 0; i < std::size(starts); ++i) EXPECT_TRUE(lines[i].starts_with(starts[i])) << lines[i];
}

// Each line shapes what it needs, not the whole rest.
TEST_F(Shaping, LongTextIsLaidOutInLinearTime) {
  const auto time = [](int times) {
    std::u16string text;
    for (int i = 0; i < times; ++i) text += Urdu + u" ";
    const auto start = std::chrono::steady_clock::now();
    const auto layout = Laid(text, 400, true);
    EXPECT_GT(layout->Frame().Count(), times / 6);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  };
  time(20);
  const double shorter = time(100);
  EXPECT_LT(time(800), 8 * shorter * 3 + 0.2);
}

}  // namespace
}  // namespace orv::platform
