// Glyph cells out of the installed fonts: DejaVu Sans, then FreeSerif.
#include "platform/FontGlyphs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <limits>
#include <numeric>
#include <random>

#include "fmx/CanvasManager.h"
#include "fmx/Exceptions.h"
#include "fmx/Limits.h"
#include "fmx/TextLayoutManager.h"
#include "platform/FontCatalog.h"
#include "platform/SoftwareCanvas.h"
#include "textlayout/Orv.FontGlyphs.h"
#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv::platform {
namespace {

using fmx::TFontGlyphSetting;
using fmx::TFontGlyphStyle;

constexpr fmx::TFontGlyphSettings Picture{TFontGlyphSetting::Bitmap, TFontGlyphSetting::BitmapAsGrey};

// The installed fonts are the glyphs of the process while it lives.
class FontGlyphs : public ::testing::Test {
 protected:
  FontGlyphs() { RegisterFontGlyphs(); }
  ~FontGlyphs() override {
    TFontGlyphManagerOrv::FontsList().clear();
    fmx::TFontGlyphManager::RegisterBackEnd({});
  }

  static fmx::TFontGlyph Glyph(UCS4Char c, const fmx::TFont& font, float scale = 1,
                               fmx::TFontGlyphSettings settings = Picture) {
    const UCS4Char chars[] = {c, 0};
    return TFontGlyphManagerOrv::Current().GetGlyph(chars, font, scale, settings);
  }
  static float Baseline(const fmx::TFont& font, float scale = 1) {
    return TFontGlyphManagerOrv::Current().GetBaseline(font, scale);
  }
};

const fmx::TFont DejaVu(u"DejaVu Sans", 20);

std::uint64_t Ink(const fmx::TFontGlyph& glyph) {
  std::uint64_t ink = 0;
  for (const auto pixel : glyph.Bitmap.Pixels()) ink += fmx::AlphaOf(pixel);
  return ink;
}

// --- Cells ---

TEST_F(FontGlyphs, CellIsAsHighAsTheLineAndItsTopIsTheLines) {
  for (const UCS4Char c : {U'a', U'H', U'g', char32_t{0xFEB3}, char32_t{0x05E9}, char32_t{0xFE76}, U' '}) {
    const auto glyph = Glyph(c, DejaVu);
    EXPECT_EQ(glyph.VerticalAdvance, 24) << c;
    EXPECT_EQ(glyph.Bitmap.Height(), 24) << c;
    EXPECT_GT(glyph.Bitmap.Width(), 0) << c;
    EXPECT_EQ(glyph.Origin.Y, 0) << c;
    EXPECT_FALSE(glyph.Style.Contains(TFontGlyphStyle::NoGlyph)) << c;
  }
  EXPECT_EQ(Baseline(DejaVu), 19);
}

// An alef with hamza is higher than the line of DejaVu Sans, and FreeSerif's meem has a tail below that of a low line.
TEST_F(FontGlyphs, InkThatLeavesTheLineIsNotCut) {
  const auto tall = Glyph(0xFE83, DejaVu);
  EXPECT_EQ(tall.Origin.Y, -2);
  EXPECT_EQ(tall.Bitmap.Height(), 26);
  EXPECT_EQ(tall.VerticalAdvance, 24);
  const auto top = tall.Bitmap.Scanline(0);
  EXPECT_TRUE(std::any_of(top.begin(), top.end(), [](auto pixel) { return pixel != 0; }));
}

TEST_F(FontGlyphs, LettersStandOnTheBaseLine) {
  const auto glyph = Glyph(U'H', DejaVu);
  const auto hasInk = [&](std::int32_t y) {
    const auto row = glyph.Bitmap.Scanline(y);
    return std::any_of(row.begin(), row.end(), [](auto pixel) { return pixel != 0; });
  };
  EXPECT_TRUE(hasInk(18));
  EXPECT_FALSE(hasInk(19));
  EXPECT_FALSE(hasInk(0));
}

TEST_F(FontGlyphs, CellBeginsAtTheInk) {
  const auto glyph = Glyph(U'H', DejaVu);  // its bearing is 2 pixels wide
  EXPECT_EQ(glyph.Origin.X, 1);
  bool first = false;
  for (std::int32_t y = 0; y < glyph.Bitmap.Height(); ++y) first = first || glyph.Bitmap.Scanline(y)[0] != 0;
  EXPECT_TRUE(first);
  EXPECT_LT(Glyph(U'j', DejaVu).Origin.X, 0);
}

TEST_F(FontGlyphs, BlankHasAnEmptyPicture) {
  const auto glyph = Glyph(U' ', DejaVu);
  EXPECT_EQ(Ink(glyph), 0U);
  EXPECT_NEAR(glyph.Advance, 6.36, 0.01);
  EXPECT_EQ(glyph.Bitmap.Width(), 7);
}

TEST_F(FontGlyphs, GreyIsCoverageInAllPartsAndOtherwiseWhiteWithAlpha) {
  const auto grey = Glyph(U'o', DejaVu);
  const auto white = Glyph(U'o', DejaVu, 1, {TFontGlyphSetting::Bitmap});
  ASSERT_EQ(grey.Bitmap.Pixels().size(), white.Bitmap.Pixels().size());
  std::size_t partial = 0;
  for (std::size_t i = 0; i < grey.Bitmap.Pixels().size(); ++i) {
    const std::uint32_t a = grey.Bitmap.Pixels()[i] & 0xFF;
    EXPECT_EQ(grey.Bitmap.Pixels()[i], a * 0x01010101U);
    EXPECT_EQ(white.Bitmap.Pixels()[i], a == 0 ? 0 : (a << 24 | 0xFFFFFF));
    if (a > 0 && a < 255) ++partial;
  }
  EXPECT_GT(partial, 10U);
}

TEST_F(FontGlyphs, MetricsAloneMakeNoPicture) {
  const auto metrics = Glyph(U'H', DejaVu, 1, {});
  const auto whole = Glyph(U'H', DejaVu, 1, {TFontGlyphSetting::Bitmap, TFontGlyphSetting::Path});
  EXPECT_TRUE(metrics.Bitmap.IsEmpty());
  EXPECT_TRUE(metrics.Path.IsEmpty());
  EXPECT_EQ(metrics.Advance, whole.Advance);
  EXPECT_EQ(metrics.Origin.X, whole.Origin.X);
  EXPECT_TRUE(whole.Style.Contains(TFontGlyphStyle::HasPath));
  const fmx::TRectF bounds = whole.Path.GetBounds();
  EXPECT_NEAR(bounds.Bottom, 19, 0.1);  // on the base line, from the top of the cell
  EXPECT_NEAR(bounds.Height(), 14.6, 0.2);
}

// --- Advances ---

TEST_F(FontGlyphs, ShaddaAndVowelFormsHaveNoAdvance) {
  for (UCS4Char c = 0xFC5E; c <= 0xFC62; ++c) EXPECT_EQ(Glyph(c, DejaVu).Advance, 0) << c;
  for (UCS4Char c = 0xFE70; c <= 0xFE7D; ++c) EXPECT_EQ(Glyph(c, DejaVu).Advance, 0) << c;
  for (const UCS4Char c : {0xFE7EU, 0xFC63U}) EXPECT_GT(Glyph(c, DejaVu).Advance, 0) << c;
  EXPECT_GT(Ink(Glyph(0xFE76, DejaVu)), 0U);
}

TEST_F(FontGlyphs, CharacterOfTwoUnitsHasItsExtentAndNoBearing) {
  const auto glyph = Glyph(0x1D400, DejaVu);  // a mathematical letter
  EXPECT_EQ(glyph.Advance, std::trunc(glyph.Advance));
  EXPECT_EQ(glyph.Origin.X, 0);
  EXPECT_GT(glyph.Advance, 0);
  EXPECT_EQ(glyph.Bitmap.Width(), static_cast<std::int32_t>(glyph.Advance));
}

TEST_F(FontGlyphs, SilentCharactersDrawNothingAndDoNotMoveThePen) {
  const auto check = [](UCS4Char c) {
    for (const char16_t* family : {u"DejaVu Sans", u"Noto Naskh Arabic"}) {
      const auto glyph = Glyph(c, fmx::TFont(family, 20));
      EXPECT_EQ(glyph.Advance, 0) << c;
      EXPECT_TRUE(glyph.Bitmap.IsEmpty()) << c;
      EXPECT_GT(glyph.VerticalAdvance, 0) << c;
    }
  };
  for (UCS4Char c = 0; c < 0x20; ++c)
    if (c != U'\t') check(c);
  for (UCS4Char c = 0x7F; c <= 0x9F; ++c) check(c);
  for (UCS4Char c = 0x200B; c <= 0x200F; ++c) check(c);
  for (UCS4Char c = 0x202A; c <= 0x202E; ++c) check(c);
  for (UCS4Char c = 0x2060; c <= 0x206F; ++c) check(c);
  EXPECT_GT(Glyph(U'\t', DejaVu).Advance, 0);
}

// Where one letter's stroke ends the next one's begins, on a whole pixel: no gap, and no double ink.
TEST_F(FontGlyphs, JoinedLettersMeetOnWholePixels) {
  for (const float size : {9.0F, 12.0F, 13.0F, 16.0F, 20.0F, 27.0F, 40.0F}) {
    const fmx::TFont font(u"DejaVu Sans", size);
    for (const UCS4Char c : {0xFE92U, 0xFEB4U, 0xFEE0U, 0xFEE4U, 0xFBFFU, 0x0640U}) {  // medial forms
      const auto glyph = Glyph(c, font);
      EXPECT_EQ(glyph.Advance, std::trunc(glyph.Advance)) << c << " at " << size;
      const auto row = [&](std::int32_t x) {  // the strongest coverage in a column of the pen's coordinates
        std::uint32_t most = 0;
        for (std::int32_t y = 0; y < glyph.Bitmap.Height(); ++y)
          if (x - glyph.Origin.X >= 0 && x - glyph.Origin.X < glyph.Bitmap.Width())
            most = std::max(most, fmx::AlphaOf(glyph.Bitmap.Scanline(y)[static_cast<std::size_t>(x - glyph.Origin.X)]));
        return most;
      };
      const auto last = static_cast<std::int32_t>(glyph.Advance) - 1;
      EXPECT_NEAR(row(0), row(last), 60) << c << " at " << size;
      EXPECT_GT(row(0), 90U) << c << " at " << size;
    }
  }
}

// --- Fonts ---

TEST_F(FontGlyphs, LackingFormsComeFromTheNextFontInTheChosenLine) {
  const auto glyph = Glyph(0xFDF2, DejaVu);  // FreeSerif has it
  EXPECT_GT(Ink(glyph), 1000U);
  EXPECT_EQ(glyph.VerticalAdvance, 24);
  EXPECT_EQ(glyph.Bitmap.Height(), 24);
  const auto pixels = glyph.Bitmap.Pixels();
  const auto box = Glyph(0x10FFFE, DejaVu);
  EXPECT_FALSE(std::equal(pixels.begin(), pixels.end(), box.Bitmap.Pixels().begin(), box.Bitmap.Pixels().end()));
}

TEST_F(FontGlyphs, WhatNoFontHasIsABox) {
  const auto a = Glyph(0x10FFFE, DejaVu);
  const auto b = Glyph(0x10FFFF, DejaVu);
  EXPECT_EQ(a.Bitmap, b.Bitmap);
  EXPECT_GT(Ink(a), 0U);
}

TEST_F(FontGlyphs, UnknownFamilyFallsBack) {
  EXPECT_EQ(Glyph(U'a', fmx::TFont(u"No Such Family", 20)).Bitmap, Glyph(U'a', DejaVu).Bitmap);
  EXPECT_EQ(Glyph(U'a', fmx::TFont(u"", 20)).Bitmap, Glyph(U'a', DejaVu).Bitmap);
  EXPECT_EQ(Glyph(U'a', fmx::TFont(u"dejavu SANS", 20)).Bitmap, Glyph(U'a', DejaVu).Bitmap);
}

// The ink's lean: how far its upper half lies right of its lower one.
double Lean(const fmx::TFontGlyph& glyph) {
  const std::int32_t height = glyph.Bitmap.Height();
  std::int32_t top = height, bottom = 0;
  for (std::int32_t y = 0; y < height; ++y)
    for (const auto pixel : glyph.Bitmap.Scanline(y))
      if (pixel != 0) top = std::min(top, y), bottom = std::max(bottom, y);
  const auto centre = [&](std::int32_t from, std::int32_t to) {
    double sum = 0, weight = 0;
    for (std::int32_t y = from; y < to; ++y)
      for (std::int32_t x = 0; x < glyph.Bitmap.Width(); ++x) {
        const double a = fmx::AlphaOf(glyph.Bitmap.Scanline(y)[static_cast<std::size_t>(x)]);
        sum += a * x;
        weight += a;
      }
    return weight > 0 ? sum / weight : 0;
  };
  const std::int32_t middle = (top + bottom + 1) / 2;
  return centre(top, middle) - centre(middle, bottom + 1);
}

TEST_F(FontGlyphs, BoldAndItalicWhereAFaceHasThemAndWhereNone) {
  using enum fmx::TFontStyle;
  const fmx::TFont plain(u"DejaVu Sans", 60);
  const fmx::TFont bold(u"DejaVu Sans", 60, {Bold});
  const fmx::TFont italic(u"DejaVu Sans", 60, {Italic});
  EXPECT_GT(Ink(Glyph(U'l', bold)), Ink(Glyph(U'l', plain)) * 5 / 4);
  EXPECT_GT(Lean(Glyph(U'l', italic)), 3);
  EXPECT_GT(Lean(Glyph(0xFE8D, italic)), 3);  // no slanted face has an alef
  const fmx::TFont nastaliq(u"Noto Nastaliq Urdu", 60);
  fmx::TFont black = nastaliq;
  black.SetWeight(fmx::TFontWeight::Bold);
  EXPECT_GT(Ink(Glyph(0x0628, black)), Ink(Glyph(0x0628, nastaliq)));
  const fmx::TFont arabic(u"FreeMono", 60);
  const fmx::TFont arabicBold(u"FreeMono", 60, {Bold});  // its bold face has no Arabic
  EXPECT_GT(Ink(Glyph(0xFE8D, arabicBold)), Ink(Glyph(0xFE8D, arabic)));
}

TEST_F(FontGlyphs, WeightsAndSlantsHaveDictionariesOfTheirOwn) {
  fmx::TFont plain(u"DejaVu Sans", 20);
  fmx::TFont light = plain;
  light.SetWeight(fmx::TFontWeight::Light);
  fmx::TFont heavy(u"DejaVu Sans", 20, {fmx::TFontStyle::Bold});
  fmx::TFont heavier = heavy;
  heavier.SetWeight(fmx::TFontWeight::UltraBold);
  fmx::TFont italic(u"DejaVu Sans", 20, {fmx::TFontStyle::Italic});
  fmx::TFont oblique = italic;
  oblique.SetSlant(fmx::TFontSlant::Oblique);
  std::vector<TFontKey> keys;
  for (const auto* font : {&plain, &light, &heavy, &heavier, &italic, &oblique}) keys.push_back(FontKeyOf(*font, 1));
  std::sort(keys.begin(), keys.end());
  EXPECT_EQ(std::adjacent_find(keys.begin(), keys.end()), keys.end());
  EXPECT_EQ(FontKeyOf(fmx::TFont(u"A", 12), 1), 1 + 65 + 0xF00000U + 12000 + 0xFF000000U);
}

TEST_F(FontGlyphs, FontThatTheApplicationBroughtIsFoundByItsFamily) {
  const auto file = TFontCatalog().Find("FreeSerif");
  ASSERT_TRUE(file);
  TFontGlyphManagerOrv::FontsList()[u"Brought Along"] = {TOrvResourceType::File,
                                                         std::u16string(file->Path.begin(), file->Path.end()), false};
  const auto serif = Glyph(U'a', fmx::TFont(u"FreeSerif", 20));
  EXPECT_EQ(Glyph(U'a', fmx::TFont(u"Brought Along", 20)).Bitmap, serif.Bitmap);
  EXPECT_EQ(Glyph(U'a', fmx::TFont(u"brought along", 20)).Bitmap, serif.Bitmap);
  TFontGlyphManagerOrv::FontsList()[u"Lost"] = {TOrvResourceType::File, u"/no/such/file.ttf", false};
  EXPECT_EQ(Glyph(U'a', fmx::TFont(u"Lost", 20)).Bitmap, Glyph(U'a', DejaVu).Bitmap);
}

TEST_F(FontGlyphs, RegisteredFontMayAskForItsRenderer) {
  const auto required = [](const char16_t* family) {
    return TFontGlyphManagerOrv::Current().FontRendererRequired(fmx::TFont(family, 12));
  };
  for (const char16_t* family : {u"DejaVu Sans", u"FreeSerif", u"Noto Sans Hebrew", u"Noto Naskh Arabic", u"", u"None"})
    EXPECT_FALSE(required(family));
  EXPECT_TRUE(required(u"Noto Nastaliq Urdu"));  // letters, and none of their forms
  const auto file = TFontCatalog().Find("DejaVu Sans");
  ASSERT_TRUE(file);
  const std::u16string path(file->Path.begin(), file->Path.end());
  TFontGlyphManagerOrv::FontsList()[u"Own"] = {TOrvResourceType::File, path, true};
  TFontGlyphManagerOrv::FontsList()[u"Plain"] = {TOrvResourceType::File, path, false};
  EXPECT_TRUE(required(u"own"));
  EXPECT_FALSE(required(u"Plain"));
}

// Open font files are mapped into memory.
int MappedFonts() {
  std::ifstream maps("/proc/self/maps");
  int fonts = 0;
  for (std::string line; std::getline(maps, line);)
    if (line.ends_with(".ttf") || line.ends_with(".otf") || line.ends_with(".ttc")) ++fonts;
  return fonts;
}

TEST_F(FontGlyphs, NoFileIsOpenBeforeTheFirstText) {
  fmx::TFontGlyphManager::RegisterBackEnd({});  // what other tests opened is closed
  TGlyphAtlas::Clear();
  RegisterFontGlyphs();
  TFontGlyphManagerOrv::Current();
  const int before = MappedFonts();
  TTextLayoutNGOrv layout;
  EXPECT_EQ(MappedFonts(), before);
  layout.SetText(u"a");
  EXPECT_GT(MappedFonts(), before);
}

TEST_F(FontGlyphs, CanvasFillsTextByTheSystemsLayout) {
  fmx::TCanvasManager::RegisterCanvas(TSoftwareCanvas::Class(), true, false);
  fmx::TTextLayoutManager::RegisterTextLayout(TTextLayoutNGOrv::Class(), TSoftwareCanvas::Class());
  fmx::TBitmap bitmap(200, 40);
  fmx::TCanvas& canvas = bitmap.Canvas();
  canvas.Font().Assign(DejaVu);
  canvas.Fill().SetColor(0xFF0000C0);
  ASSERT_TRUE(canvas.BeginScene());
  canvas.FillText({0, 0, 200, 40}, u"سلام abc", false, 1, fmx::TTextAlign::Leading);
  canvas.EndScene();
  EXPECT_NE(dynamic_cast<TTextLayoutNGOrv*>(fmx::TTextLayoutManager::CreateLayout(&canvas).get()), nullptr);
  std::size_t blue = 0;
  for (const auto pixel : bitmap.Surface().Pixels()) {
    EXPECT_EQ(pixel & 0xFFFF00, 0U);
    blue += pixel == 0xFF0000C0 ? 1 : 0;
  }
  EXPECT_GT(blue, 50U);
  EXPECT_NEAR(canvas.TextWidth(u"سلام"), 50, 10);
}

// --- Sizes and files that make no sense ---

TEST_F(FontGlyphs, StrangeSizesGiveFiniteNumbers) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  const auto backEnd = MakeFontGlyphs();
  for (const float size : {0.0F, -1.0F, 0.2F, 1.0F, 3000.0F, 1e6F, 1e9F, 3e38F, infinity, -infinity, std::nanf("")})
    for (const float scale : {1.0F, 0.0F, -2.0F, 1e30F, infinity, std::nanf("")}) {
      backEnd->LoadResource({u"DejaVu Sans", {}, size, scale});
      EXPECT_TRUE(std::isfinite(backEnd->DoGetBaseline()));
      for (const std::uint32_t c : {0x61U, 0xFEB3U, 0x10FFFEU, 0x200DU}) {
        const auto metrics = backEnd->DoGetGlyph(std::span(&c, 1), {TFontGlyphSetting::Path}, true);
        EXPECT_TRUE(std::isfinite(metrics.Advance)) << size << " " << scale;
        EXPECT_TRUE(std::isfinite(metrics.VerticalAdvance)) << size << " " << scale;
        EXPECT_GE(metrics.Advance, 0);
        try {
          const auto glyph = backEnd->DoGetGlyph(std::span(&c, 1), Picture, false);
          EXPECT_LE(glyph.Bitmap.Width(), fmx::MaxBitmapSide);
        } catch (const fmx::EBitmapSizeTooBig&) {
          EXPECT_GT(size * scale, 4000) << size;
        }
      }
      backEnd->FreeResource();
    }
}

TEST_F(FontGlyphs, NoCharacterAtAllIsNoGlyph) {
  const auto backEnd = MakeFontGlyphs();
  backEnd->LoadResource({u"", {}, 20, 1});
  const auto glyph = backEnd->DoGetGlyph({}, Picture, false);
  EXPECT_TRUE(glyph.Style.Contains(TFontGlyphStyle::NoGlyph));
  EXPECT_EQ(glyph.Advance, 0);
}

TEST_F(FontGlyphs, GlyphBeyondTheTexturesIsDrawnFromItsOwnBitmap) {
  fmx::TBitmap bitmap(600, 600);
  TSoftwareCanvas canvas({fmx::TCanvasTarget::TKind::Bitmap, &bitmap, nullptr, 600, 600, 1});
  TGlyphAtlas::Clear();
  TTextLayoutNGOrv layout;
  layout.SetFont(fmx::TFont(u"DejaVu Sans", 2000));
  layout.SetText(u"H");
  layout.SetTopLeft({0, -1400});
  for (const bool again : {false, true}) {
    bitmap.Clear(0);
    ASSERT_TRUE(canvas.BeginScene());
    TTextLayoutNGOrv::BeginRender();
    layout.RenderLayout(canvas);
    TTextLayoutNGOrv::EndRender();
    canvas.EndScene();
    const auto pixels = bitmap.Surface().Pixels();
    EXPECT_GT(std::count_if(pixels.begin(), pixels.end(), [](auto pixel) { return pixel != 0; }), 10000) << again;
  }
}

TEST_F(FontGlyphs, TextAtAnAbsurdScaleIsMeasuredAndNotDrawn) {
  fmx::TBitmap bitmap(50, 50);
  TSoftwareCanvas canvas({fmx::TCanvasTarget::TKind::Bitmap, &bitmap, nullptr, 50, 50, 1e6F});
  TTextLayoutNGOrv layout;
  layout.SetScale(1e6F);
  layout.SetText(u"سلام abc");
  EXPECT_GT(layout.TextWidth(), 0);
  EXPECT_TRUE(std::isfinite(layout.TextWidth()));
  ASSERT_TRUE(canvas.BeginScene());
  layout.RenderLayout(canvas);
  layout.RenderLayout(canvas);
  canvas.EndScene();
  for (const auto pixel : bitmap.Surface().Pixels()) EXPECT_EQ(pixel, 0U);
}

std::vector<char> Bytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Truncated and bit-flipped files: whatever they give is finite, and lines have a height.
TEST_F(FontGlyphs, HostileFilesDoNoHarm) {
  std::mt19937 random(5);
  const auto folder = std::filesystem::temp_directory_path() / ("orv-fonts-" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  const std::string name = (folder / "hostile.ttf").string();
  fmx::TFontSettings hostile{u"Hostile", {}, 24, 1};
  hostile.File = std::u16string(name.begin(), name.end());
  int usable = 0;
  for (const char* family : {"DejaVu Sans", "FreeSerif", "Noto Sans Hebrew"}) {
    const auto file = TFontCatalog().Find(family);
    ASSERT_TRUE(file);
    const std::vector<char> good = Bytes(file->Path);
    for (int round = 0; round < 40; ++round) {
      std::vector<char> bad = good;
      if (round % 4 == 0) bad.resize(random() % bad.size());
      // The tables' heads and the metrics lie near the start; the rest anywhere.
      const int flips = 1 + static_cast<int>(random() % 400);
      for (int i = 0; i < flips && !bad.empty(); ++i) {
        const std::size_t reach = i % 2 == 0 ? std::min<std::size_t>(bad.size(), 4096) : bad.size();
        bad[random() % reach] ^= static_cast<char>(1 << random() % 8);
      }
      std::ofstream(name, std::ios::binary).write(bad.data(), static_cast<std::streamsize>(bad.size()));
      const auto backEnd = MakeFontGlyphs();  // knows nothing of the file before
      backEnd->LoadResource(hostile);
      EXPECT_TRUE(std::isfinite(backEnd->DoGetBaseline()));
      backEnd->FontRendererRequired(hostile);
      for (const std::uint32_t c : {0x20U, 0x41U, 0x67U, 0x5D0U, 0x5E9U, 0x628U, 0xFE91U, 0xFEFBU, 0xFE76U, 0x2026U}) {
        const auto glyph =
            backEnd->DoGetGlyph(std::span(&c, 1), {TFontGlyphSetting::Bitmap, TFontGlyphSetting::Path}, c % 2 == 0);
        EXPECT_TRUE(std::isfinite(glyph.Advance));
        EXPECT_GE(glyph.Advance, 0);
        EXPECT_GT(glyph.VerticalAdvance, 0);
        EXPECT_LT(glyph.VerticalAdvance, 24 * 17);
        usable += Ink(glyph) > 0 ? 1 : 0;
      }
    }
  }
  EXPECT_GT(usable, 100);
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace orv::platform
