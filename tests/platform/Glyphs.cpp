// The glyph source over the pinned test fonts: DejaVu Sans, then FreeSerif.
#include "platform/GlyphSource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "fmx/Bitmap.h"
#include "platform/Exceptions.h"
#include "platform/SoftwareCanvas.h"

namespace orv::platform {
namespace {

const TFontCatalog& Catalog() {
  static const TFontCatalog catalog;
  return catalog;
}

TGlyphSource Source(double pixelSize = 20, bool bold = false) {
  return {Catalog(),
          {"DejaVu Sans", {"FreeSerif"}, pixelSize, bold ? fmx::TFontWeight::Bold : fmx::TFontWeight::Regular}};
}

int Ink(const TGlyph& glyph) {
  return std::accumulate(glyph.Coverage.begin(), glyph.Coverage.end(), 0);
}

TEST(FontCatalog, FindsAFamilyByItsNameInAnyLetterCase) {
  const auto found = Catalog().Find("dejavu sans");
  ASSERT_TRUE(found);
  EXPECT_EQ(found->Family, "DejaVu Sans");
  EXPECT_TRUE(found->Path.ends_with("DejaVuSans.ttf")) << found->Path;
}

TEST(FontCatalog, TakesTheBoldFaceWhereAsked) {
  const auto found = Catalog().Find("DejaVu Sans", fmx::TFontWeight::Bold);
  ASSERT_TRUE(found);
  EXPECT_TRUE(found->Path.ends_with("DejaVuSans-Bold.ttf")) << found->Path;
}

TEST(FontCatalog, PutsNoOtherFamilyInAnUnknownOnesPlace) {
  EXPECT_FALSE(Catalog().Find("No Such Family"));
  EXPECT_FALSE(Catalog().Find(""));
}

TEST(FontCatalog, KnowsTheGenericNames) {
  EXPECT_TRUE(Catalog().Find("sans-serif"));
  EXPECT_TRUE(Catalog().Find("monospace", fmx::TFontWeight::Bold));
}

TEST(FontCatalog, ListsTheChosenFamilyFirst) {
  const auto fonts = Catalog().Nearest("FreeSerif");
  ASSERT_GT(fonts.size(), 1U);
  EXPECT_EQ(fonts.front().Family, "FreeSerif");
}

TEST(GlyphSource, AnUnknownFamilyIsNamedInTheError) {
  try {
    TGlyphSource(Catalog(), {"No Such Family", {}, 20});
    FAIL();
  } catch (const EFontNotFound& error) {
    EXPECT_NE(std::string(error.what()).find("'No Such Family'"), std::string::npos);
    EXPECT_EQ(error.ClassName(), "EFontNotFound");
  }
}

TEST(GlyphSource, RefusesSizesOutOfRange) {
  for (const double size : {0.0, -1.0, 0.5, 2049.0, std::nan("")})
    EXPECT_THROW(TGlyphSource(Catalog(), {"DejaVu Sans", {}, size}), EFontError) << size;
}

TEST(GlyphSource, FallbacksThatAreNotInstalledArePassedOver) {
  TGlyphSource source(Catalog(), {"", {"No Such Family", "FreeSerif", "DejaVu Sans"}, 20});
  EXPECT_EQ(source.FamilyOf(U'a'), "FreeSerif");
}

TEST(GlyphSource, WithoutAFamilyTheSystemsChoiceServes) {
  TGlyphSource source(Catalog(), {"", {}, 20});
  EXPECT_FALSE(source.Glyph(U'a').Missing);
}

TEST(GlyphSource, ALetterHasItsPictureAndItsFractionalAdvance) {
  TGlyphSource source = Source();
  const TGlyph& glyph = source.Glyph(U'H');
  EXPECT_FALSE(glyph.Missing);
  EXPECT_GT(Ink(glyph), 0);
  EXPECT_EQ(glyph.Coverage.size(), static_cast<std::size_t>(glyph.Width) * static_cast<std::size_t>(glyph.Height));
  EXPECT_EQ(glyph.Bottom(), 0);             // it stands on the base line
  EXPECT_NEAR(glyph.Advance, 15.04, 0.01);  // 1540 of 2048 units at 20 pixels
}

TEST(GlyphSource, PicturesGrowWithTheSizeAndAdvancesInProportion) {
  TGlyphSource small = Source(20);
  TGlyphSource large = Source(80);
  EXPECT_NEAR(large.Glyph(U'H').Advance, 4 * small.Glyph(U'H').Advance, 0.1);
  EXPECT_NEAR(large.Glyph(U'H').Height, 4 * small.Glyph(U'H').Height, 4);
}

TEST(GlyphSource, BoldIsHeavier) {
  TGlyphSource regular = Source(40);
  TGlyphSource bold = Source(40, true);
  EXPECT_GT(Ink(bold.Glyph(U'l')), Ink(regular.Glyph(U'l')));
}

// Unhinted: a part of a pixel moves the ink and changes nothing else.
TEST(GlyphSource, PhasesMoveThePictureWithinThePixel) {
  TGlyphSource source = Source(20);
  const auto centre = [](const TGlyph& glyph) {
    double sum = 0;
    double weight = 0;
    for (std::size_t i = 0; i < glyph.Coverage.size(); ++i) {
      sum += glyph.Coverage[i] * (glyph.Left + static_cast<double>(i % static_cast<std::size_t>(glyph.Width)));
      weight += glyph.Coverage[i];
    }
    return sum / weight;
  };
  const double start = centre(source.Glyph(U'o', 0));
  for (int phase = 1; phase < TGlyphSource::PhaseCount; ++phase) {
    EXPECT_NEAR(centre(source.Glyph(U'o', phase)) - start, static_cast<double>(phase) / TGlyphSource::PhaseCount, 0.03)
        << phase;
    EXPECT_EQ(source.Glyph(U'o', phase).Advance, source.Glyph(U'o', 0).Advance);
  }
}

TEST(GlyphSource, TheSamePictureEveryTime) {
  TGlyphSource one = Source();
  TGlyphSource other = Source();
  for (std::uint32_t c = 0xFE70; c <= 0xFEFC; ++c) EXPECT_EQ(one.Glyph(c).Coverage, other.Glyph(c).Coverage) << c;
}

// DejaVu Sans has no shadda with a vowel: it comes from the second font, and nothing is missing.
TEST(GlyphSource, TheSecondFontHelpsOut) {
  TGlyphSource source = Source();
  EXPECT_EQ(source.FamilyOf(0xFEB3), "DejaVu Sans");
  EXPECT_EQ(source.FamilyOf(0xFC60), "FreeSerif");
  for (const std::uint32_t c :
       {0xFC5EU, 0xFC63U, 0xFDF2U, 0xFB50U, 0xFBAEU, 0x2032U, 0x2036U, 0x2026U, 0x066CU, 0x06F9U})
    EXPECT_FALSE(source.Glyph(c).Missing) << c;
}

// What neither has is looked for among all installed fonts; Noto Kufi Arabic and the like have U+08A0.
TEST(GlyphSource, AllInstalledFontsAreTheLastResort) {
  TGlyphSource source(Catalog(), {"DejaVu Sans", {}, 20});
  EXPECT_FALSE(source.Glyph(0xFC60).Missing);
  EXPECT_NE(source.FamilyOf(0xFC60), "DejaVu Sans");
}

TEST(GlyphSource, WhatNoFontHasIsAHollowBox) {
  TGlyphSource source = Source(32);
  for (const std::uint32_t c : {0xFFFFU, 0x10FFFEU, 0x110000U, 0xFFFFFFFFU, 0xD800U}) {
    const TGlyph& box = source.Glyph(c);
    EXPECT_TRUE(box.Missing) << c;
    EXPECT_EQ(source.FamilyOf(c), "") << c;
    EXPECT_GT(box.Advance, 0) << c;
    ASSERT_FALSE(box.Coverage.empty()) << c;
    EXPECT_EQ(box.Coverage.front(), 255) << c;
    const std::size_t middle = static_cast<std::size_t>(box.Height / 2) * static_cast<std::size_t>(box.Width) +
                               static_cast<std::size_t>(box.Width / 2);
    EXPECT_EQ(box.Coverage[middle], 0) << c;
  }
}

TEST(GlyphSource, ABlankHasRoomButNoPicture) {
  TGlyphSource source = Source();
  EXPECT_EQ(Ink(source.Glyph(U' ')), 0);
  EXPECT_GT(source.Glyph(U' ').Advance, 0);
  EXPECT_FALSE(source.Glyph(U' ').Missing);
}

TEST(GlyphSource, ATabIsFourBlanks) {
  TGlyphSource source = Source();
  EXPECT_FLOAT_EQ(source.Glyph(U'\t').Advance, 4 * source.Glyph(U' ').Advance);
  EXPECT_TRUE(source.Glyph(U'\t').Coverage.empty());
}

// Some fonts have visible outlines for joiners; a control character would be a box.
TEST(GlyphSource, ControlsJoinersAndDirectionMarksDrawNothing) {
  TGlyphSource noto(Catalog(), {"Noto Naskh Arabic", {}, 20});
  TGlyphSource dejaVu = Source();
  std::vector<std::uint32_t> unseen;
  for (std::uint32_t c = 0; c < 0x20; ++c)
    if (c != '\t') unseen.push_back(c);
  for (std::uint32_t c = 0x7F; c <= 0x9F; ++c) unseen.push_back(c);
  for (std::uint32_t c = 0x200B; c <= 0x200F; ++c) unseen.push_back(c);
  for (std::uint32_t c = 0x202A; c <= 0x202E; ++c) unseen.push_back(c);
  for (std::uint32_t c = 0x2060; c <= 0x206F; ++c) unseen.push_back(c);
  for (const std::uint32_t c : unseen)
    for (TGlyphSource* source : {&noto, &dejaVu}) {
      EXPECT_TRUE(source->Glyph(c).Coverage.empty()) << c;
      EXPECT_EQ(source->Glyph(c).Advance, 0) << c;
      EXPECT_FALSE(source->Glyph(c).Missing) << c;
    }
}

TEST(GlyphSource, OnlyTheUnseenIsInvisible) {
  for (const std::uint32_t c : {U'\t', U' ', U'a', char32_t{0xA0}, char32_t{0x200A}, char32_t{0x2010}, char32_t{0x2027},
                                char32_t{0x202F}, char32_t{0x205F}, char32_t{0x2070}, char32_t{0x640}})
    EXPECT_FALSE(IsInvisible(c)) << c;
}

TEST(GlyphSource, MetricsAreThoseOfTheFirstFont) {
  const TFontMetrics metrics = Source(20).Metrics();
  EXPECT_NEAR(metrics.Ascent, 19, 0.6);
  EXPECT_NEAR(metrics.Descent, 5, 0.6);
  EXPECT_NEAR(metrics.LineHeight, 23.3, 0.6);
}

// How far the ink of the upper half lies right of that of the lower half, in pixels.
double Lean(const TGlyph& glyph) {
  const auto centre = [&](int from, int to) {
    double sum = 0;
    double weight = 0;
    for (int y = from; y < to; ++y)
      for (int x = 0; x < glyph.Width; ++x) {
        const double cover = glyph.Coverage[static_cast<std::size_t>(y * glyph.Width + x)];
        sum += cover * x;
        weight += cover;
      }
    return sum / weight;
  };
  return centre(0, glyph.Height / 2) - centre(glyph.Height / 2, glyph.Height);
}

TFontRequest Italic(const char* family) {
  TFontRequest request{family, {}, 60};
  request.Slant = fmx::TFontSlant::Italic;
  return request;
}

TEST(GlyphSource, ItalicTakesTheSlantedFaceOfTheFamily) {
  TGlyphSource upright(Catalog(), {"FreeSerif", {}, 60});
  TGlyphSource italic(Catalog(), Italic("FreeSerif"));
  EXPECT_NEAR(Lean(upright.Glyph(U'l')), 0, 1);
  EXPECT_GT(Lean(italic.Glyph(U'l')), 3);
  EXPECT_NE(upright.Glyph(U'v').Advance, italic.Glyph(U'v').Advance);  // a face of its own, not the same one slanted
}

// The slanted face has no Arabic letters; the upright one of the same family has.
TEST(GlyphSource, ItalicSlantsLettersThatHaveNoSlantedFace) {
  constexpr char32_t Alef = 0xFE8D;
  TGlyphSource upright(Catalog(), {"FreeSerif", {}, 60});
  TGlyphSource italic(Catalog(), Italic("FreeSerif"));
  EXPECT_EQ(italic.FamilyOf(Alef), "FreeSerif");
  const double half = upright.Glyph(Alef).Height / 2.0;
  EXPECT_NEAR(Lean(italic.Glyph(Alef)) - Lean(upright.Glyph(Alef)), half * 0.21, 1.5);
  EXPECT_EQ(italic.Glyph(Alef).Advance, upright.Glyph(Alef).Advance);
}

// The outline of the glyph, its pen at the whole pixel (40, 120), filled by the software canvas.
fmx::TBitmapSurface Filled(const fmx::TPathData& outline) {
  fmx::TBitmap bitmap(200, 160);
  TSoftwareCanvas canvas({fmx::TCanvasTarget::TKind::Bitmap, &bitmap, nullptr, 200, 160, 1});
  EXPECT_TRUE(canvas.BeginScene());
  fmx::TPathData placed = outline;
  placed.Translate(40, 120);
  canvas.FillPath(placed, 1, fmx::TBrush(fmx::TAlphaColors::White));
  canvas.EndScene();
  return bitmap.Surface();
}

// Two rasterisers, one picture.
TEST(GlyphSource, AnOutlineFilledIsThePicture) {
  TGlyphSource source = Source(80);
  for (const std::uint32_t c : {0x48U, 0x40U, 0x67U, 0x5E9U, 0xFEB3U, 0xFEFBU, 0x10FFFEU}) {  // a missing one last
    const TGlyph& glyph = source.Glyph(c);
    const auto filled = Filled(source.Outline(c));
    int ink = 0;
    for (const auto pixel : filled.Pixels()) ink += static_cast<int>(fmx::AlphaOf(pixel));
    EXPECT_NEAR(ink, Ink(glyph), Ink(glyph) * 0.01) << c;
    for (int y = 0; y < glyph.Height; ++y)
      for (int x = 0; x < glyph.Width; ++x) {
        const auto pixel = filled.Scanline(120 - glyph.Top + y)[static_cast<std::size_t>(40 + glyph.Left + x)];
        ASSERT_NEAR(fmx::AlphaOf(pixel), glyph.Coverage[static_cast<std::size_t>(y * glyph.Width + x)], 24) << c;
      }
  }
  for (const std::uint32_t c : {0x20U, 0x9U, 0x200DU}) EXPECT_TRUE(source.Outline(c).IsEmpty()) << c;
}

// References stay good while further glyphs are made.
TEST(GlyphSource, GlyphsStayWhereTheyAre) {
  TGlyphSource source = Source();
  const TGlyph* first = &source.Glyph(U'a');
  const auto copy = first->Coverage;
  for (std::uint32_t c = 0x21; c < 0x700; ++c) source.Glyph(c);
  EXPECT_EQ(first, &source.Glyph(U'a'));
  EXPECT_EQ(first->Coverage, copy);
}

}  // namespace
}  // namespace orv::platform
