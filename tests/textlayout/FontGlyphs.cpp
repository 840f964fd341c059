// The manager of glyphs: its current font, its handlers, and the metrics of the fixed glyphs through it.
#include "textlayout/Orv.FontGlyphs.h"

#include "tests/textlayout/support/Layouts.h"

namespace orv {
namespace {

using namespace testing;

// Counts what it is asked to load.
class TCountingManager : public TFontGlyphManagerOrv {
 public:
  ~TCountingManager() override { FreeLoaded(); }
  int Loads = 0;
  int Frees = 0;
  bool Colorful = false;  // of the last glyph
  float LoadedSize = 0;

 protected:
  void LoadResource() override {
    ++Loads;
    LoadedSize = CurrentSettings().Size;
  }
  void FreeResource() override { ++Frees; }
  fmx::TFontGlyph DoGetGlyph(TGlyphChars, fmx::TFontGlyphSettings, bool colorful) override {
    Colorful = colorful;
    return {};
  }
  float DoGetBaseline() override { return 7; }
};

constexpr UCS4Char Letter[] = {U'a', 0};

TEST(FontGlyphs, FontIsLoadedAnewOnlyWhereItDiffers) {
  TCountingManager manager;
  const auto loadsAfter = [&](const fmx::TFont& font, float scale) {
    EXPECT_EQ(manager.GetBaseline(font, scale), 7);
    return manager.Loads;
  };
  EXPECT_EQ(loadsAfter(fmx::TFont(u"Sans", 12), 1), 1);
  EXPECT_EQ(loadsAfter(fmx::TFont(u"sANS", 12), 1), 1);
  EXPECT_EQ(loadsAfter(fmx::TFont(u"Sans", 12.005F), 1), 1);
  EXPECT_EQ(loadsAfter(fmx::TFont(u"Sans", 12), 1.00005F), 1);
  EXPECT_EQ(loadsAfter(fmx::TFont(u"Sans", 12.02F), 1), 2);
  EXPECT_EQ(manager.LoadedSize, 12.02F);
  EXPECT_EQ(loadsAfter(fmx::TFont(u"Sans", 12.02F), 1.5F), 3);
  EXPECT_EQ(loadsAfter(fmx::TFont(u"Sans", 12.02F, {fmx::TFontStyle::Bold}), 1.5F), 4);
  EXPECT_EQ(loadsAfter(fmx::TFont(u"Serif", 12.02F, {fmx::TFontStyle::Bold}), 1.5F), 5);
  EXPECT_EQ(manager.Frees, 4);
}

bool Yes(TGlyphChars) {
  return true;
}
bool No(TGlyphChars) {
  return false;
}
bool IsA(TGlyphChars chars) {
  return IsChar(chars) && GetAsChar(chars) == U'a';
}

class GlyphHandlers : public ::testing::Test {
 protected:
  ~GlyphHandlers() override {
    while (!TFontGlyphManagerOrv::Methods().empty()) TFontGlyphManagerOrv::UnRegisterCharacterHandleMethod(nullptr);
  }
  bool IsColorful(UCS4Char c = U'a') {
    const UCS4Char chars[] = {c, 0};
    FManager.GetGlyph(chars, fmx::TFont(), 1, {});
    return FManager.Colorful;
  }
  static void Register(TFontGlyphManagerOrv::TCharacterHandleFunction method, bool overrides) {
    TFontGlyphManagerOrv::RegisterCharacterHandleMethod(method, overrides);
  }

 private:
  TCountingManager FManager;
};

TEST_F(GlyphHandlers, WithoutAnyNothingIsColourful) {
  EXPECT_FALSE(IsColorful());
}

TEST_F(GlyphHandlers, LastOverridingOneClears) {
  Register(Yes, false);
  EXPECT_TRUE(IsColorful());
  Register(No, true);
  EXPECT_FALSE(IsColorful());
}

TEST_F(GlyphHandlers, LaterNoWithoutOverrideChangesNothing) {
  Register(Yes, true);
  Register(No, false);
  EXPECT_TRUE(IsColorful());
}

TEST_F(GlyphHandlers, HandlersSeeTheCharacter) {
  Register(IsA, false);
  EXPECT_TRUE(IsColorful(U'a'));
  EXPECT_FALSE(IsColorful(U'b'));
}

TEST_F(GlyphHandlers, UnregisteringTakesTheFirstOther) {
  Register(Yes, false);
  Register(No, false);
  TFontGlyphManagerOrv::UnRegisterCharacterHandleMethod(Yes);
  ASSERT_EQ(TFontGlyphManagerOrv::Methods().size(), 1U);
  EXPECT_EQ(TFontGlyphManagerOrv::Methods()[0].Method, &Yes);
  TFontGlyphManagerOrv::UnRegisterCharacterHandleMethod(Yes);
  EXPECT_EQ(TFontGlyphManagerOrv::Methods().size(), 1U);
}

TEST(FontGlyphs, CharactersCarryATerminator) {
  EXPECT_TRUE(IsChar(Letter));
  EXPECT_EQ(GetAsChar(Letter), U'a');
  EXPECT_FALSE(IsChar({}));
  EXPECT_EQ(GetAsChar({}), 0U);
}

TEST(FontGlyphs, WhiteSpaceAloneHasNoGlyph) {
  const UCS4Char blank[] = {U' ', 0};
  const UCS4Char blankWithMark[] = {U' ', 0x301, 0};
  EXPECT_FALSE(TFontGlyphManagerOrv::HasGlyph(blank));
  EXPECT_TRUE(TFontGlyphManagerOrv::HasGlyph(blankWithMark));
  EXPECT_TRUE(TFontGlyphManagerOrv::HasGlyph(Letter));
  EXPECT_TRUE(TFontGlyphManagerOrv::HasGlyph({}));
}

class FixedGlyphs : public TFixedTest {
 protected:
  static fmx::TFontGlyph Glyph(UCS4Char c, float scale = 1, fmx::TFontGlyphSettings settings = {}) {
    const UCS4Char chars[] = {c, 0};
    return TFontGlyphManagerOrv::Current().GetGlyph(chars, fmx::TFont(u"Any", 30), scale, settings);
  }
};

TEST_F(FixedGlyphs, Advances) {
  EXPECT_EQ(Glyph(U'a').Advance, 10);
  EXPECT_EQ(Glyph(U' ').Advance, 5);
  EXPECT_EQ(Glyph(0xFE76).Advance, 0);
  EXPECT_EQ(Glyph(0xFC5E).Advance, 0);
  EXPECT_EQ(Glyph(0xFC62).Advance, 0);
  EXPECT_EQ(Glyph(0xFC63).Advance, 10);
  EXPECT_EQ(Glyph(0xFE7D).Advance, 0);
  EXPECT_EQ(Glyph(0xFE7E).Advance, 10);
  EXPECT_EQ(Glyph(0x1F600).Advance, 10);
  EXPECT_EQ(Glyph(U'a', 1.5F).Advance, 15);
  EXPECT_EQ(Glyph(U'a').VerticalAdvance, 20);
  EXPECT_EQ(TFontGlyphManagerOrv::Current().GetBaseline(fmx::TFont(), 2), 32);
}

TEST_F(FixedGlyphs, MetricsAloneMakeNoPicture) {
  EXPECT_TRUE(Glyph(U'a').Bitmap.IsEmpty());
  EXPECT_TRUE(Glyph(U'a').Path.IsEmpty());
  const fmx::TFontGlyph drawn = Glyph(U'a', 1.25F, {fmx::TFontGlyphSetting::Bitmap});
  EXPECT_EQ(drawn.Bitmap.Width(), 13);
  EXPECT_EQ(drawn.Bitmap.Height(), 25);
}

TEST_F(FixedGlyphs, AdvanceInfoOutlivesTheGlyph) {
  const TFontGlyphAdvanceInfo info(Glyph(U' '));
  EXPECT_EQ(info.FAdvance, 5);
  EXPECT_EQ(info.FVerticalAdvance, 20);
  EXPECT_EQ(info.FOrigin, fmx::TPoint{});
}

TEST(FontGlyphs, RegisteredBackEndServesWhereNoManagerIsSet) {
  TFontGlyphManagerOrv::SetCurrent(nullptr);
  fmx::TFixedGlyphs::Register();
  const std::uint64_t before = TFontGlyphManagerOrv::Generation();
  EXPECT_EQ(TFontGlyphManagerOrv::Current().GetBaseline(fmx::TFont(), 1), 16);
  fmx::TFixedGlyphs::Register();
  EXPECT_GT(TFontGlyphManagerOrv::Generation(), before);
  fmx::TFontGlyphManager::RegisterBackEnd({});
}

TEST(FontGlyphs, FontKeyIsASum) {
  const auto key = [](const char16_t* family, float size, float scale = 1, fmx::TFontStyles style = {}) {
    return FontKeyOf(fmx::TFont(family, size, style), scale);
  };
  EXPECT_EQ(key(u"ab", 12), 2U + 97 + 98 + 0xF00000 + 12000 + 0xFF000000ULL);
  EXPECT_EQ(key(u"ab", 12), key(u"ba", 12));
  EXPECT_EQ(key(u"ab", 12.2F), key(u"ab", 12.9F));
  EXPECT_NE(key(u"ab", 12), key(u"ab", 13));
  EXPECT_EQ(key(u"ab", 12, 1.5F), key(u"ab", 12, 2));
  EXPECT_NE(key(u"ab", 12, 1), key(u"ab", 12, 2));
  EXPECT_EQ(key(u"", 0, 1, {fmx::TFontStyle::Bold}) - key(u"", 0), 0x10000U);
  EXPECT_EQ(key(u"", 0, 1, {fmx::TFontStyle::Italic}) - key(u"", 0), 0x20000U);
  EXPECT_EQ(key(u"", 0, 1, {fmx::TFontStyle::Bold, fmx::TFontStyle::Italic}) - key(u"", 0), 0x30000U);
  EXPECT_EQ(key(u"", 0, 1, {fmx::TFontStyle::Underline}), key(u"", 0));
  EXPECT_GT(key(std::u16string(1000, u'z').c_str(), 2000), 0xFFFFFFFFULL);  // more than 32 bits
}

}  // namespace
}  // namespace orv
