// What reaches the canvas, and the glyph textures.
#include "fmx/GlyphsManager.h"
#include "fmx/RecordingCanvas.h"
#include "tests/textlayout/support/Layouts.h"

namespace orv {
namespace {

using namespace testing;
using TKind = fmx::TRecordedCall::TKind;

class Drawing : public TFixedTest {};
class Atlas : public TFixedTest {};

struct TDrawnGlyph {
  UCS4Char Atom;
  fmx::TRectF Dest;
  fmx::TAlphaColor Color;
};

std::vector<fmx::TRecordedCall> Calls(TTextLayoutNGOrv& layout, fmx::TRecordingCanvas& canvas, TKind kind) {
  canvas.Forget();
  canvas.BeginScene();
  layout.RenderLayout(canvas);
  canvas.EndScene();
  return canvas.CallsOf(kind);
}

std::vector<TDrawnGlyph> Drawn(TTextLayoutNGOrv& layout) {
  fmx::TRecordingCanvas canvas(400, 400, layout.Scale());
  std::vector<TDrawnGlyph> glyphs;
  for (const fmx::TRecordedCall& call : Calls(layout, canvas, TKind::DrawBitmap)) {
    fmx::TRectF picture;
    glyphs.push_back({TGlyphAtlas::AtomOf(*call.Bitmap, call.Source, picture), call.Rect, call.Color});
  }
  return glyphs;
}

TUCS4List Atoms(const std::vector<TDrawnGlyph>& glyphs) {
  TUCS4List atoms;
  for (const TDrawnGlyph& glyph : glyphs) atoms.push_back(glyph.Atom);
  return atoms;
}

TEST_F(Drawing, RightToLeftRunIsDrawnFromItsLastAtom) {
  const auto glyphs = Drawn(*Laid(Salam, 200));
  EXPECT_EQ(Atoms(glyphs), (TUCS4List{0xFEE1, 0xFEFC, 0xFEB3}));
  EXPECT_EQ(glyphs[0].Dest, (fmx::TRectF{0, 0, 10, 20}));
  EXPECT_EQ(glyphs[2].Dest, (fmx::TRectF{20, 0, 30, 20}));
}

TEST_F(Drawing, LeftToRightRunIsDrawnFromItsFirstAtom) {
  EXPECT_EQ(Atoms(Drawn(*Laid(u"abc", 200))), (TUCS4List{U'a', U'b', U'c'}));
}

TEST_F(Drawing, TabMovesThePenAlone) {
  const auto glyphs = Drawn(*Laid(u"a\tb", 200));
  ASSERT_EQ(Atoms(glyphs), (TUCS4List{U'a', U'b'}));
  EXPECT_EQ(glyphs[1].Dest.Left, 40);
}

TEST_F(Drawing, MarkAboveItsLetterStandsAThirdOfItsHeightHigher) {
  // A left-to-right run keeps the forms as they are typed: the mark comes behind its letter.
  const auto glyphs = Drawn(*Laid(u"a\uFE76", 200));
  ASSERT_EQ(Atoms(glyphs), (TUCS4List{U'a', 0xFE76}));
  EXPECT_EQ(glyphs[1].Dest.Top, -7);  // 20 / 3, rounded
}

TEST_F(Drawing, KasraStandsAFifthOfItsLettersHeightLower) {
  const auto glyphs = Drawn(*Laid(u"a\uFE7A", 200));
  ASSERT_EQ(glyphs.size(), 2U);
  EXPECT_EQ(glyphs[1].Dest.Top, 4);
}

TEST_F(Drawing, MarkAtTheStartOfARunStandsWhereItsGlyphDoes) {
  const auto glyphs = Drawn(*Laid(u"\uFE76", 200));
  ASSERT_EQ(glyphs.size(), 1U);
  EXPECT_EQ(glyphs[0].Dest.Top, 0);
}

TEST_F(Drawing, ColourReachesRunsWithoutAttributes) {
  const auto layout = Laid(u"ab", 200, [](auto& l) {
    l.AddAttribute(fmx::TTextRange{1, 1}, fmx::TTextAttribute{nullptr, 0xFFFF0000});
  });
  layout->SetColor(0xFF00FF00);
  const auto glyphs = Drawn(*layout);
  ASSERT_EQ(glyphs.size(), 2U);
  EXPECT_EQ(glyphs[0].Color, 0xFF00FF00);
  EXPECT_EQ(glyphs[1].Color, 0xFFFF0000);
}

TEST_F(Drawing, ModulateColourIsWhiteAgainBehindIt) {
  const auto layout = Laid(u"ab", 200, [](auto& l) { l.SetColor(0xFF00FF00); });
  fmx::TRecordingCanvas canvas(100, 100);
  Calls(*layout, canvas, TKind::DrawBitmap);
  EXPECT_EQ(canvas.ModulateColor(), fmx::TAlphaColors::White);
}

TEST_F(Drawing, EllipsisFollowsTheTrimmedRun) {
  const auto glyphs = Drawn(*Laid(u"abcdefgh", 55, [](auto& l) { l.SetTrimming(fmx::TTextTrimming::Character); }));
  ASSERT_EQ(Atoms(glyphs), (TUCS4List{U'a', U'b', U'c', 0x2026}));
  EXPECT_EQ(glyphs[3].Dest.Left, 30);
}

TEST_F(Drawing, TrailingLineIsDrawnBehindItsEllipsis) {
  const auto layout = Laid(u"abcdefgh", 55, [](auto& l) {
    l.SetTrimming(fmx::TTextTrimming::Character);
    l.SetHorizontalAlign(fmx::TTextAlign::Trailing);
  });
  const auto glyphs = Drawn(*layout);
  ASSERT_EQ(Atoms(glyphs), (TUCS4List{0x2026, U'a', U'b', U'c'}));
  EXPECT_EQ(glyphs[0].Dest.Left, 15);
  EXPECT_EQ(glyphs[1].Dest.Left, 25);
}

TEST_F(Drawing, ClippedGlyphsAreCutAtTheBox) {
  const auto glyphs = Drawn(*Laid(u"abcdefghij", 55));
  ASSERT_EQ(glyphs.size(), 6U);  // what lies wholly outside is not drawn
  EXPECT_EQ(glyphs[5].Dest, (fmx::TRectF{50, 0, 55, 20}));
}

TEST_F(Drawing, CutTakesPixelsOffTheSource) {
  const auto layout = Laid(u"a", 200, [](auto& l) {
    l.SetMaxSize({4, 15});
    l.SetScale(2);
  });
  fmx::TRectF src{0, 0, 20, 40}, dest{-1, -2, 9, 18};
  CutToBox(*layout, src, dest);
  EXPECT_EQ(dest, (fmx::TRectF{0, 0, 4, 15}));
  EXPECT_EQ(src, (fmx::TRectF{2, 4, 10, 34}));
}

TEST_F(Drawing, UnderlineAndStrikeOut) {
  const auto layout = Laid(u"ab", 200, [](auto& l) {
    l.SetFont(fmx::TFont(u"", 30, {fmx::TFontStyle::Underline, fmx::TFontStyle::StrikeOut}));
  });
  fmx::TRecordingCanvas canvas(400, 400);
  const auto lines = Calls(*layout, canvas, TKind::DrawLine);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].Rect, (fmx::TRectF{0, 10, 20, 10}));
  EXPECT_EQ(lines[1].Rect, (fmx::TRectF{0, 19, 20, 19}));
  EXPECT_EQ(lines[0].Thickness, 2);
}

TEST_F(Drawing, OtherScaleRendersOnceMore) {
  const auto layout = Laid(u"ab", 200);
  fmx::TRecordingCanvas canvas(400, 400, 2);
  const auto calls = Calls(*layout, canvas, TKind::DrawBitmap);
  EXPECT_EQ(layout->Scale(), 2);
  ASSERT_EQ(calls.size(), 2U);
  EXPECT_EQ(calls[0].Source.Width(), 20);
  EXPECT_EQ(calls[0].Rect.Width(), 10);
  const TGPUFrame* frame = &layout->Frame();
  Calls(*layout, canvas, TKind::DrawBitmap);
  EXPECT_EQ(&layout->Frame(), frame);
}

TEST_F(Drawing, ColourGlyphsAreNotTinted) {
  TFontGlyphManagerOrv::RegisterCharacterHandleMethod([](TGlyphChars chars) { return GetAsChar(chars) == U'b'; },
                                                      false);
  const auto glyphs = Drawn(*Laid(u"abc", 200, [](auto& l) { l.SetColor(0xFF0000FF); }));
  TFontGlyphManagerOrv::UnRegisterCharacterHandleMethod(nullptr);
  ASSERT_EQ(glyphs.size(), 3U);
  EXPECT_EQ(glyphs[0].Color, 0xFF0000FF);
  EXPECT_EQ(glyphs[1].Color, fmx::TAlphaColors::White);
  EXPECT_EQ(glyphs[2].Color, 0xFF0000FF);
}

TEST_F(Drawing, GlyphsStandOnPixelsWhereTheTextDoes) {
  const auto corner = [](fmx::TPointF topLeft, fmx::TPointF translation) {
    const auto layout = Laid(u"a", 101, [=](auto& l) {  // in the middle: 45.5, 15.5
      l.SetMaxSize({101, 51});
      l.SetHorizontalAlign(fmx::TTextAlign::Center);
      l.SetVerticalAlign(fmx::TTextAlign::Center);
      l.SetTopLeft(topLeft);
    });
    fmx::TRecordingCanvas canvas(400, 400);
    canvas.BeginScene();
    canvas.SetMatrix(fmx::TMatrix::Translation(translation.X, translation.Y));
    layout->RenderLayout(canvas);
    canvas.EndScene();
    return canvas.CallsOf(TKind::DrawBitmap)[0].Rect.TopLeft();
  };
  EXPECT_EQ(corner({0, 0}, {0, 0}), (fmx::TPointF{46, 16}));  // halves go to the even pixel
  EXPECT_EQ(corner({0.25F, 0}, {0, 0}), (fmx::TPointF{45.75F, 16}));
  EXPECT_EQ(corner({0, 0.25F}, {0, 0}), (fmx::TPointF{46, 15.75F}));
  EXPECT_EQ(corner({0, 0}, {0.25F, 0}), (fmx::TPointF{45.5F, 16}));
  EXPECT_EQ(corner({0, 0}, {0, 0.25F}), (fmx::TPointF{46, 15.5F}));
  EXPECT_EQ(corner({0.0005F, 0}, {3, 0}), (fmx::TPointF{46, 16}));  // a fraction too small to count
}

// The base line of every font is as far down as its size.
class TSizedGlyphs : public fmx::TFixedGlyphs {
 public:
  void LoadResource(const fmx::TFontSettings& settings) override {
    TFixedGlyphs::LoadResource(settings);
    FSize = settings.Size;
  }
  float DoGetBaseline() override { return FSize; }

 private:
  float FSize = 0;
};

TEST_F(Drawing, FontsOfALineShareItsBaseLine) {
  TFontGlyphManagerOrv::SetCurrent(std::make_unique<TBackEndFontGlyphManager>(std::make_unique<TSizedGlyphs>()));
  const auto font = [](float size) { return std::make_shared<fmx::TFont>(u"F", size); };
  const auto layout = Laid(u"abc\nd", 200, [&](auto& l) {
    l.SetFont(*font(20));
    l.AddAttribute(fmx::TTextRange{1, 1}, fmx::TTextAttribute{font(8), 1});
    l.AddAttribute(fmx::TTextRange{2, 1}, fmx::TTextAttribute{font(26), 1});
    l.AddAttribute(fmx::TTextRange{4, 1}, fmx::TTextAttribute{font(8), 1});
  });
  const auto glyphs = Drawn(*layout);
  ASSERT_EQ(glyphs.size(), 4U);
  EXPECT_EQ(glyphs[0].Dest.Top, 6);
  EXPECT_EQ(glyphs[1].Dest.Top, 18);
  EXPECT_EQ(glyphs[2].Dest.Top, 0);
  EXPECT_EQ(glyphs[3].Dest.Top, 20 + 18);  // the lowest base line so far stays
}

// Without attributes no run has a font of its own.
TEST_F(Drawing, PlainTextIsNotMovedToABaseLine) {
  TFontGlyphManagerOrv::SetCurrent(std::make_unique<TBackEndFontGlyphManager>(std::make_unique<TSizedGlyphs>()));
  EXPECT_EQ(Drawn(*Laid(u"a", 200, [](auto& l) { l.SetFont(fmx::TFont(u"F", 20)); }))[0].Dest.Top, 0);
}

TEST_F(Drawing, OpacityReachesGlyphsEllipsisAndLines) {
  const auto layout = Laid(u"abcdefgh", 55, [](auto& l) {
    l.SetOpacity(0.5F);
    l.SetTrimming(fmx::TTextTrimming::Character);
    l.SetFont(fmx::TFont(u"", 30, {fmx::TFontStyle::Underline}));
    l.AddAttribute(fmx::TTextRange{0, 8}, fmx::TTextAttribute{nullptr, 0xFF123456});
  });
  fmx::TRecordingCanvas canvas(400, 400);
  const auto glyphs = Calls(*layout, canvas, TKind::DrawBitmap);
  ASSERT_EQ(glyphs.size(), 4U);
  for (const auto& glyph : glyphs) {
    EXPECT_EQ(glyph.Opacity, 0.5F);
    EXPECT_FALSE(glyph.HighSpeed);
  }
  EXPECT_EQ(glyphs[2].Color, 0xFF123456);
  EXPECT_EQ(glyphs[3].Color, fmx::TAlphaColors::Black);  // the ellipsis has the layout's colour
  const auto lines = canvas.CallsOf(TKind::DrawLine);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].Opacity, 0.5F);
  EXPECT_EQ(lines[0].Color, 0xFF123456);
}

TEST_F(Drawing, EmptyTextDrawsNothing) {
  EXPECT_TRUE(Drawn(*Laid(u"", 200)).empty());
}

TEST_F(Drawing, SecondDrawingIsTheFirstAgain) {
  const auto layout = Laid(u"ab " + Salam, 200);
  const auto first = Drawn(*layout);
  const auto second = Drawn(*layout);
  ASSERT_EQ(first.size(), second.size());
  for (std::size_t i = 0; i < first.size(); ++i) EXPECT_EQ(first[i].Dest, second[i].Dest);
}

// --- Textures ---

TEST_F(Atlas, GlyphMetWithinASceneMovesToATextureBehindIt) {
  const auto layout = Laid(u"a", 200);
  fmx::TRecordingCanvas canvas(100, 100);
  const TAtomDic& dic = TGlyphAtlas::GetAtomDictionary(layout->Font(), 1);
  ASSERT_NE(dic.Find(U'a'), nullptr);
  EXPECT_EQ(dic.Find(U'a')->Bitmap(), nullptr);  // metrics alone so far
  TTextLayoutNGOrv::BeginRender();
  TTextLayoutNGOrv::BeginRender();
  Calls(*layout, canvas, TKind::DrawBitmap);
  EXPECT_NE(dic.Find(U'a')->Bitmap(), nullptr);
  EXPECT_FALSE(dic.Find(U'a')->SharedBitmap());
  EXPECT_EQ(dic.Find(U'a')->SrcRect, (fmx::TRectF{1, 1, 11, 21}));
  TTextLayoutNGOrv::EndRender();
  EXPECT_TRUE(TGlyphAtlas::CharMaps().empty());
  TTextLayoutNGOrv::EndRender();
  EXPECT_TRUE(dic.Find(U'a')->SharedBitmap());
  ASSERT_EQ(TGlyphAtlas::CharMaps().size(), 1U);
  EXPECT_EQ(dic.Find(U'a')->Bitmap(), TGlyphAtlas::CharMaps()[0].Texture.get());
}

TEST_F(Atlas, NewGlyphIsDrawnFromItsOwnBitmapAndFromTheTextureInTheNextScene) {
  const auto layout = Laid(u"a", 200);
  fmx::TRecordingCanvas canvas(100, 100);
  const auto drawn = [&] {
    TTextLayoutNGOrv::BeginRender();
    const auto calls = Calls(*layout, canvas, TKind::DrawBitmap);
    const bool shared =
        !TGlyphAtlas::CharMaps().empty() && calls.at(0).Bitmap == TGlyphAtlas::CharMaps()[0].Texture.get();
    TTextLayoutNGOrv::EndRender();
    return std::pair(shared, calls.at(0).Source.Width());
  };
  EXPECT_EQ(drawn(), std::pair(false, 10.0F));
  EXPECT_EQ(drawn(), std::pair(true, 10.0F));
}

TEST_F(Atlas, GlyphWithoutAPictureMovesThePenAlone) {
  fmx::TFixedGlyphs::TOptions options;
  options.NoGlyphs = U"a";
  TFontGlyphManagerOrv::SetCurrent(
      std::make_unique<TBackEndFontGlyphManager>(std::make_unique<fmx::TFixedGlyphs>(options)));
  const auto layout = Laid(u"ab", 200);
  const auto glyphs = Drawn(*layout);
  ASSERT_EQ(Atoms(glyphs), TUCS4List{U'b'});
  EXPECT_EQ(glyphs[0].Dest.Left, 10);  // its advance counts
}

TEST_F(Atlas, EndsWithoutABeginDoNothing) {
  TTextLayoutNGOrv::EndRender();
  TTextLayoutNGOrv::BeginRender();
  EXPECT_TRUE(TGlyphAtlas::IsRendering());
  TTextLayoutNGOrv::EndRender();
  EXPECT_FALSE(TGlyphAtlas::IsRendering());
}

// Fixed glyphs that count how often one is asked for.
class TCountedGlyphs : public fmx::TFixedGlyphs {
 public:
  explicit TCountedGlyphs(int& count) : FCount(count) {}
  fmx::TFontGlyph DoGetGlyph(TGlyphChars chars, fmx::TFontGlyphSettings settings, bool colorful) override {
    ++FCount;
    return TFixedGlyphs::DoGetGlyph(chars, settings, colorful);
  }

 private:
  int& FCount;
};

// The writes that each texture has seen.
std::vector<std::uint64_t> TextureVersions() {
  std::vector<std::uint64_t> versions;
  for (const TCharMap& map : TGlyphAtlas::CharMaps()) versions.push_back(map.Texture->Version());
  return versions;
}

TEST_F(Atlas, SecondDrawingMakesNoGlyphAndWritesNoTexture) {
  int made = 0;
  TFontGlyphManagerOrv::SetCurrent(std::make_unique<TBackEndFontGlyphManager>(std::make_unique<TCountedGlyphs>(made)));
  const auto layout = Laid(u"ab\tc d\u064E " + Salam + u" \u0628\u064E 12 \U0001F600", 60, Wrapped);
  fmx::TRecordingCanvas canvas(100, 100);
  const auto draw = [&] {
    TTextLayoutNGOrv::BeginRender();
    const std::size_t quads = Calls(*layout, canvas, TKind::DrawBitmap).size();
    TTextLayoutNGOrv::EndRender();
    return quads;
  };
  const std::size_t quads = draw();
  const int madeBefore = made;
  const auto versionsBefore = TextureVersions();
  EXPECT_GT(quads, 10U);
  EXPECT_GT(madeBefore, 10);
  ASSERT_EQ(versionsBefore.size(), 1U);
  EXPECT_GT(versionsBefore[0], 10U);
  const TGPUFrame* frame = &layout->Frame();
  EXPECT_EQ(draw(), quads);
  EXPECT_EQ(made, madeBefore);
  EXPECT_EQ(TextureVersions(), versionsBefore);
  EXPECT_EQ(&layout->Frame(), frame);
}

TEST_F(Atlas, PopulationCanBeSwitchedOff) {
  const auto layout = Laid(u"a", 200);
  fmx::TRecordingCanvas canvas(100, 100);
  fmx::TGlyphsManager::DisableGlyphPopulation = true;
  TTextLayoutNGOrv::BeginRender();
  Calls(*layout, canvas, TKind::DrawBitmap);
  TTextLayoutNGOrv::EndRender();
  fmx::TGlyphsManager::DisableGlyphPopulation = false;
  EXPECT_TRUE(TGlyphAtlas::CharMaps().empty());
}

TEST_F(Atlas, TextureHoldsThePixelsWithAGap) {
  const auto layout = Laid(u"ab", 200);
  fmx::TRecordingCanvas canvas(100, 100);
  Calls(*layout, canvas, TKind::DrawBitmap);
  const fmx::TRectF place = TGlyphAtlas::GetAtomDictionary(layout->Font(), 1).Find(U'b')->SrcRect;
  EXPECT_EQ(place.Width(), 10);
  EXPECT_EQ(place.Height(), 20);
  fmx::TBitmapData data;
  ASSERT_TRUE(TGlyphAtlas::CharMaps()[0].Texture->Map(fmx::TMapAccess::Read, data));
  const auto x = static_cast<std::int32_t>(place.Left);
  const auto y = static_cast<std::int32_t>(place.Top);
  EXPECT_EQ(data.GetPixel(x, y), 0xFFFFFFFF);
  EXPECT_EQ(data.GetPixel(x - 1, y), 0U);
  EXPECT_EQ(data.GetPixel(x + 9, y + 19), 0xFFFFFFFF);
  EXPECT_EQ(data.GetPixel(x + 10, y + 19), 0U);
}

// A glyph that no texture takes is drawn within scenes alone, from a bitmap of its own.
TEST_F(Atlas, GlyphLargerThanATexture) {
  const auto layout = Laid(u"a", 10000, [](auto& l) { l.SetScale(60); });
  fmx::TRecordingCanvas canvas(4000, 4000, 60);
  EXPECT_TRUE(Calls(*layout, canvas, TKind::DrawBitmap).empty());
  TTextLayoutNGOrv::BeginRender();
  EXPECT_EQ(Calls(*layout, canvas, TKind::DrawBitmap).size(), 1U);
  TTextLayoutNGOrv::EndRender();
  EXPECT_EQ(Calls(*layout, canvas, TKind::DrawBitmap).size(), 1U);
}

TEST_F(Atlas, ManyGlyphsTakeSeveralTextures) {
  std::u16string text;
  for (char16_t c = 0x4E00; c < 0x4E00 + 400; ++c) text += c;
  const auto layout = Laid(text, 10000000, [](auto& l) { l.SetScale(4); });
  fmx::TRecordingCanvas canvas(4000, 4000, 4);
  EXPECT_EQ(Calls(*layout, canvas, TKind::DrawBitmap).size(), 400U);
  EXPECT_EQ(TGlyphAtlas::CharMaps().size(), 2U);
}

}  // namespace
}  // namespace orv
