#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

#include "fmx/Exceptions.h"
#include "fmx/FixedGlyphs.h"
#include "fmx/FontGlyphManager.h"
#include "fmx/GlyphCache.h"

namespace {

using fmx::TFont;
using fmx::TFontGlyph;
using fmx::TFontGlyphManager;
using fmx::TFontGlyphSetting;
using fmx::TFontGlyphSettings;
using fmx::TFontSettings;

struct TLog {
  int Loads = 0;
  int Frees = 0;
  int Glyphs = 0;
};

// Counts what it is asked.
class TCountingGlyphs : public fmx::TFixedGlyphs {
 public:
  explicit TCountingGlyphs(TLog& log) : FLog(log) {}
  void LoadResource(const TFontSettings& settings) override {
    ++FLog.Loads;
    TFixedGlyphs::LoadResource(settings);
  }
  void FreeResource() override { ++FLog.Frees; }
  TFontGlyph DoGetGlyph(std::span<const std::uint32_t> chars, TFontGlyphSettings settings, bool colorful) override {
    ++FLog.Glyphs;
    return TFixedGlyphs::DoGetGlyph(chars, settings, colorful);
  }

 private:
  TLog& FLog;
};

class FontGlyphs : public testing::Test {
 protected:
  ~FontGlyphs() override { TFontGlyphManager::RegisterBackEnd({}); }
  void Register() {
    TFontGlyphManager::RegisterBackEnd([this] { return std::make_unique<TCountingGlyphs>(Log); });
  }
  TLog Log;
};

TEST_F(FontGlyphs, WithoutABackEndThereAreNone) {
  EXPECT_THROW(TFontGlyphManager::Current(), fmx::ENotRegistered);
  EXPECT_THROW(TFontGlyphManager::MakeBackEnd(), fmx::ENotRegistered);
  TFontGlyphManager::RegisterBackEnd([] { return nullptr; });
  EXPECT_THROW(TFontGlyphManager::Current(), fmx::ENotRegistered);
}

TEST_F(FontGlyphs, AFontStaysLoadedWhileItIsTheSame) {
  Register();
  TFontGlyphManager& manager = TFontGlyphManager::Current();
  const auto ask = [&](const TFont& font, float scale) { (void)manager.GetBaseline(font, scale); };
  ask(TFont(u"Sans", 12), 1);
  ask(TFont(u"SANS", 12.005F), 1.00005F);
  EXPECT_EQ(Log.Loads, 1);
  ask(TFont(u"Sans", 12.02F), 1);
  EXPECT_EQ(Log.Loads, 2);
  ask(TFont(u"Sans", 12.02F), 1.001F);
  EXPECT_EQ(Log.Loads, 3);
  ask(TFont(u"Sans", 12.02F, {fmx::TFontStyle::Bold}), 1.001F);
  EXPECT_EQ(Log.Loads, 4);
  ask(TFont(u"Serif", 12.02F, {fmx::TFontStyle::Bold}), 1.001F);
  EXPECT_EQ(Log.Loads, 5);
  TFont heavier(u"Serif", 12.02F, {fmx::TFontStyle::Bold});
  heavier.SetWeight(fmx::TFontWeight::UltraBold);
  ask(heavier, 1.001F);
  EXPECT_EQ(Log.Loads, 6);
  heavier.SetSlant(fmx::TFontSlant::Oblique);
  ask(heavier, 1.001F);
  EXPECT_EQ(Log.Loads, 7);
  EXPECT_EQ(Log.Frees, 6);
  TFontGlyphManager::RegisterBackEnd({});
  EXPECT_EQ(Log.Frees, 7);
}

TEST_F(FontGlyphs, AManagerThatLoadedNothingFreesNothing) {
  Register();
  (void)TFontGlyphManager::Current();
  TFontGlyphManager::RegisterBackEnd({});
  EXPECT_EQ(Log.Frees, 0);
}

TEST_F(FontGlyphs, FixedGlyphsHaveTheSizesTheyPromise) {
  fmx::TFixedGlyphs::Register();
  auto& manager = TFontGlyphManager::Current();
  const TFont font;
  for (const float scale : {1.0F, 1.5F, 2.0F}) {
    for (std::uint32_t c = 0; c < 0x11000; ++c) {
      const bool mark = (c >= 0xFC5E && c <= 0xFC62) || (c >= 0xFE70 && c <= 0xFE7D);
      const TFontGlyph glyph = manager.GetGlyph(c, font, scale, {});
      ASSERT_EQ(glyph.Advance, mark ? 0 : c == ' ' ? 5 * scale : 10 * scale) << c;
      ASSERT_EQ(glyph.VerticalAdvance, 20 * scale);
      ASSERT_TRUE(glyph.Bitmap.IsEmpty() && glyph.Path.IsEmpty() && glyph.Style.IsEmpty());
    }
    EXPECT_EQ(manager.GetBaseline(font, scale), 16 * scale);
  }
  const TFontGlyph blank = manager.GetGlyph(
      ' ', font, 1.5F, {TFontGlyphSetting::Bitmap, TFontGlyphSetting::BitmapAsGrey, TFontGlyphSetting::Path});
  EXPECT_EQ(blank.Bitmap.Width(), 8);
  EXPECT_EQ(blank.Bitmap.Height(), 30);
  EXPECT_EQ(blank.Bitmap.Pixels()[0], 0U);
  EXPECT_TRUE(blank.Path.IsEmpty());
  const TFontGlyph letter = manager.GetGlyph('a', font, 1, {TFontGlyphSetting::Bitmap, TFontGlyphSetting::Path});
  EXPECT_EQ(letter.Bitmap.Pixels()[0], 0xFFFFFFFFU);
  EXPECT_EQ(letter.Path.GetBounds(), (fmx::TRectF{0, 0, 10, 20}));
  EXPECT_TRUE(letter.Style.Contains(fmx::TFontGlyphStyle::HasPath));
}

TEST_F(FontGlyphs, TheBaseLineOfFixedGlyphsIsWhole) {
  fmx::TFixedGlyphs::Register();
  for (int i = 0; i < 400; ++i) {
    const float scale = 0.5F + static_cast<float>(i) / 100;
    const float baseline = TFontGlyphManager::Current().GetBaseline(TFont(), scale);
    EXPECT_EQ(baseline, std::nearbyint(16 * scale)) << scale;
  }
}

TEST_F(FontGlyphs, FixedGlyphsMayHaveNoPixelsAndCharactersWithoutAGlyph) {
  const TFontGlyphSettings all{TFontGlyphSetting::Bitmap, TFontGlyphSetting::BitmapAsGrey, TFontGlyphSetting::Path};
  fmx::TFixedGlyphs::Register({.HasPixels = false, .NoGlyphs = U"😀x"});
  auto& manager = TFontGlyphManager::Current();
  const TFontGlyph letter = manager.GetGlyph('a', TFont(), 1, all);
  EXPECT_TRUE(letter.Bitmap.IsEmpty());
  EXPECT_FALSE(letter.Path.IsEmpty());
  EXPECT_FALSE(letter.Style.Contains(fmx::TFontGlyphStyle::NoGlyph));
  for (const std::uint32_t missing : {std::uint32_t{'x'}, std::uint32_t{0x1F600}}) {
    const TFontGlyph none = manager.GetGlyph(missing, TFont(), 1, all);
    EXPECT_TRUE(none.Style.Contains(fmx::TFontGlyphStyle::NoGlyph));
    EXPECT_TRUE(none.Bitmap.IsEmpty() && none.Path.IsEmpty());
    EXPECT_EQ(none.Advance, 10);
  }
}

TEST_F(FontGlyphs, SettingsWithoutAWeightHaveThatOfTheirStyle) {
  const TFontSettings plain{u"Sans", {}, 12, 1};
  EXPECT_EQ(plain.Weight, fmx::TFontWeight::Regular);
  const TFontSettings bold{u"Sans", {fmx::TFontStyle::Bold, fmx::TFontStyle::Italic}, 12, 1};
  EXPECT_EQ(bold.Weight, fmx::TFontWeight::Bold);
  EXPECT_EQ(bold.Slant, fmx::TFontSlant::Italic);
  EXPECT_TRUE(bold.IsSameAs(TFontSettings::Of(TFont(u"Sans", 12, bold.Style), 1)));
}

TEST_F(FontGlyphs, AGlyphTooLargeForABitmapHasNoPicture) {
  Register();
  fmx::TFontGlyphs& glyphs = fmx::TGlyphCache::Of(TFont(u"Sans", 12), 3000);
  EXPECT_EQ(glyphs.Picture('a').Bitmap(), nullptr);
  EXPECT_EQ(glyphs.Metrics('a').Advance, 30000);
  const int made = Log.Glyphs;
  (void)glyphs.Picture('a');
  EXPECT_EQ(Log.Glyphs, made);
}

TEST_F(FontGlyphs, TheCacheTellsWeightsAndSlantsApart) {
  Register();
  TFont font(u"Sans", 12, {fmx::TFontStyle::Bold, fmx::TFontStyle::Italic});
  fmx::TFontGlyphs* bold = &fmx::TGlyphCache::Of(font, 1);
  font.SetWeight(fmx::TFontWeight::SemiBold);
  fmx::TFontGlyphs* semiBold = &fmx::TGlyphCache::Of(font, 1);
  EXPECT_NE(bold, semiBold);
  font.SetSlant(fmx::TFontSlant::Oblique);
  EXPECT_NE(semiBold, &fmx::TGlyphCache::Of(font, 1));
}

TEST_F(FontGlyphs, TheCacheMakesAGlyphOnceForEachForm) {
  Register();
  fmx::TFontGlyphs& glyphs = fmx::TGlyphCache::Of(TFont(u"Sans", 12), 1);
  EXPECT_EQ(&glyphs, &fmx::TGlyphCache::Of(TFont(u"Sans", 12), 1));
  EXPECT_NE(&glyphs, &fmx::TGlyphCache::Of(TFont(u"Sans", 13), 1));
  (void)glyphs.Metrics('a');
  (void)glyphs.Metrics('a');
  EXPECT_EQ(Log.Glyphs, 1);
  EXPECT_NE(glyphs.Picture('a').Bitmap(), nullptr);
  EXPECT_FALSE(glyphs.Picture('a').SharedBitmap());
  (void)glyphs.Metrics('a');
  EXPECT_EQ(Log.Glyphs, 2);
  EXPECT_FALSE(glyphs.Outline('a').IsEmpty());
  EXPECT_NE(glyphs.Picture('a').Bitmap(), nullptr);
  EXPECT_EQ(Log.Glyphs, 3);
}

TEST_F(FontGlyphs, AnotherBackEndEmptiesTheCache) {
  Register();
  (void)fmx::TGlyphCache::Of(TFont(u"Sans", 12), 1).Metrics('a');
  Register();
  (void)fmx::TGlyphCache::Of(TFont(u"Sans", 12), 1).Metrics('a');
  EXPECT_EQ(Log.Glyphs, 2);
}

TEST(CharRec, AGlyphHasEitherASharedBitmapOrItsOwn) {
  fmx::TBitmap texture(4, 4);
  fmx::TCharRec rec;
  EXPECT_EQ(rec.Bitmap(), nullptr);
  rec.SetOwn(std::make_unique<fmx::TBitmap>(2, 2));
  EXPECT_FALSE(rec.SharedBitmap());
  EXPECT_EQ(rec.Bitmap()->Width(), 2);
  rec.SetShared(&texture);
  EXPECT_TRUE(rec.SharedBitmap());
  EXPECT_EQ(rec.Bitmap(), &texture);
  rec.SetOwn(nullptr);
  EXPECT_EQ(rec.Bitmap(), nullptr);
}

}  // namespace
