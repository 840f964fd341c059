#include "tests/platform/TestCard.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numbers>

#include "platform/FontCatalog.h"

namespace orv::platform {
namespace {

using namespace fmx;

constexpr std::int32_t TextureSide = 512;
constexpr TAlphaColor Blue = 0xFF2060C0;
constexpr TAlphaColor Red = 0xFFC03030;
constexpr TAlphaColor Green = 0xFF208040;
constexpr TAlphaColor Gold = 0xFFE0A020;
constexpr TAlphaColor HalfRed = 0x80FF0000;
constexpr TAlphaColor HalfGreen = 0x8000C000;
constexpr TAlphaColor HalfBlue = 0x800000FF;

// "salam" and "shalom" as they are joined, from left to right.
constexpr std::u32string_view Salam = U"\uFEE1\uFEFC\uFEB3";
constexpr std::u32string_view Shalom = U"\u05DD\u05D5\u05DC\u05E9";
constexpr std::u32string_view Latin = U"Quads";
constexpr float PointSize = 24;

void DrawText(TCustomCanvasGpu& canvas, const TGlyphTexture& glyphs, std::u32string_view text, TPointF pen,
              std::span<const TAlphaColor> colors, float opacity = 1) {
  const float unit = 1 / canvas.Scale();
  std::size_t next = 0;
  for (const char32_t letter : text) {
    const auto place = glyphs.Place(letter);
    const TRectF to =
        TRectF::FromSize(pen + place.Origin * unit, place.Source.Width() * unit, place.Source.Height() * unit);
    canvas.SetModulateColor(colors[next++ % colors.size()]);
    canvas.DrawBitmap(glyphs.Bitmap(), place.Source, to, opacity);
    pen.X += place.Advance * unit;
  }
  canvas.SetModulateColor(TAlphaColors::White);
}

void DrawShapes(TCanvas& canvas) {
  canvas.FillRect({10, 10, 50, 40}, 1, TBrush(Blue));
  canvas.FillRect({100, 40, 60, 10}, 1, TBrush(Green));  // reversed
  canvas.FillRect({110.3F, 10.3F, 149.7F, 39.6F}, 1, TBrush(Red));
  const TCornerType types[] = {TCornerType::Round, TCornerType::Bevel, TCornerType::InnerRound, TCornerType::InnerLine};
  float left = 10;
  for (const TCornerType type : types) {
    canvas.FillRect(TRectF::FromSize({left, 50}, 30, 30), 9, 9, AllCorners, 1, TBrush(Gold), type);
    canvas.DrawRect(TRectF::FromSize({left, 50}, 30, 30), 9, 9, AllCorners, 1, TStrokeBrush(Blue, 1.5F), type);
    left += 37;
  }
  canvas.FillRect({10, 90, 75, 110}, 30, 30, {TCorner::TopLeft, TCorner::BottomRight}, 1, TBrush(Blue));
  canvas.FillEllipse({85, 88, 150, 112}, 1, TBrush(Green));
  canvas.DrawEllipse({85, 88, 150, 112}, 1, TStrokeBrush(TAlphaColors::Black, 2, TStrokeDash::Dash));
}

void DrawLines(TCanvas& canvas, TStrokeDash first) {
  const std::array dashes = {first, TStrokeDash::Dash, TStrokeDash::Dot, TStrokeDash::DashDot, TStrokeDash::DashDotDot};
  float y = 14;
  for (const TStrokeDash dash : dashes) {
    canvas.DrawLine({170, y}, {310, y}, 1, TStrokeBrush(TAlphaColors::Black, 3, dash));
    y += 9;
  }
  TPathData corner;
  corner.MoveTo({0, 22});
  corner.LineTo({14, 0});
  corner.LineTo({28, 22});
  float x = 172;
  for (const TStrokeJoin join : {TStrokeJoin::Miter, TStrokeJoin::Round, TStrokeJoin::Bevel}) {
    TStrokeBrush pen(Red, 7);
    pen.SetJoin(join);
    pen.SetCap(join == TStrokeJoin::Round ? TStrokeCap::Round : TStrokeCap::Flat);
    TPathData moved = corner;
    moved.Translate(x, 64);
    canvas.DrawPath(moved, 1, pen);
    x += 38;
  }
  TPathData wave;
  wave.MoveTo({172, 104});
  wave.CurveTo({210, 70}, {250, 138}, {300, 100});
  canvas.DrawPath(wave, 1, TStrokeBrush(Blue, 2.5F, TStrokeDash::DashDot));
  for (int i = 0; i < 7; ++i) {
    const float edge = 285 + static_cast<float>(i) * 4;
    canvas.DrawLine({edge, 62}, {edge + 10, 92}, 1, TStrokeBrush(Green, 0.5F + static_cast<float>(i) * 0.25F));
  }
}

void Stripes(TCanvas& canvas, const TRectF& area) {
  for (float y = area.Top; y < area.Bottom; y += 8) canvas.FillRect({area.Left, y, area.Right, y + 4}, 1, TBrush(Blue));
  canvas.FillEllipse(area.Inset(6, 6), 0.5F, TBrush(Gold));
}

void DrawClips(TCanvas& canvas, bool clipped) {
  const auto panel = [&](TPointF at, auto clip) {
    const TCanvasStateGuard kept(canvas);
    canvas.MultiplyMatrix(TMatrix::Translation(at.X, at.Y));
    if (clipped) clip();
    Stripes(canvas, {0, 0, 60, 50});
  };
  panel({330, 10}, [&] { canvas.IntersectClipRect({5, 5, 55, 45}); });
  panel({400, 10}, [&] { canvas.IntersectClipRect({5.4F, 5.4F, 54.6F, 44.6F}); });
  panel({330, 66}, [&] {
    const TMatrix before = canvas.Matrix();
    canvas.MultiplyMatrix(TMatrix::Translation(-30, -25) * TMatrix::Rotation(0.5F) * TMatrix::Translation(30, 25));
    canvas.IntersectClipRect({10, 8, 50, 42});
    canvas.SetMatrix(before);
  });
  panel({400, 66}, [&] {
    canvas.ExcludeClipRect({20, 15, 40, 35});
    canvas.IntersectClipRect({0, 4, 60, 46});
  });
}

void DrawTransforms(TCanvas& canvas) {
  const TRectF box{-20, -12, 20, 12};
  const std::array matrices = {TMatrix::Rotation(std::numbers::pi_v<float> / 6), TMatrix::Scaling(1.2F, 0.5F),
                               TMatrix{1, 0, 0.6F, 1, 0, 0}, TMatrix::Scaling(-0.8F, 1.4F)};
  float x = 40;
  for (const TMatrix& matrix : matrices) {
    const TCanvasStateGuard kept(canvas);
    canvas.SetMatrix(matrix * TMatrix::Translation(x, 145));
    canvas.FillRect(box, 6, 6, {TCorner::TopLeft, TCorner::BottomRight}, 1, TBrush(Gold));
    canvas.DrawRect(box, 0, 0, {}, 1, TStrokeBrush(TAlphaColors::Black, 3, TStrokeDash::Dot));
    x += 62;
  }
}

void DrawAlpha(TCanvas& canvas) {
  canvas.FillEllipse({270, 125, 310, 165}, 1, TBrush(HalfRed));
  canvas.FillEllipse({290, 125, 330, 165}, 1, TBrush(HalfGreen));
  canvas.FillEllipse({280, 142, 320, 182}, 1, TBrush(HalfBlue));
  for (int i = 1; i <= 5; ++i) {
    const float left = 335 + static_cast<float>(i) * 22;
    canvas.FillRect({left, 130, left + 18, 175}, static_cast<float>(i) / 5, TBrush(TAlphaColors::Black));
  }
}

// A transparent bitmap with translucent shapes, drawn plain, faded, tinted, enlarged, and turned.
void DrawBitmaps(TCustomCanvasGpu& canvas) {
  TBitmap bitmap(40, 40);
  TCanvas& own = bitmap.Canvas();
  if (own.BeginScene()) {
    own.FillEllipse({2, 2, 38, 38}, 1, TBrush(HalfRed));
    own.FillRect({10, 10, 30, 30}, 1, TBrush(HalfBlue));
    own.DrawLine({0, 40}, {40, 0}, 1, TStrokeBrush(Green, 2));
    own.EndScene();
  }
  const TRectF all{0, 0, 40, 40};
  canvas.DrawBitmap(bitmap, all, all.Offset(10, 185), 1);
  canvas.DrawBitmap(bitmap, all, all.Offset(55, 185), 0.4F);
  canvas.SetModulateColor(0xFF00FFFF);
  canvas.DrawBitmap(bitmap, all, all.Offset(100, 185), 1);
  canvas.SetModulateColor(TAlphaColors::White);
  canvas.DrawBitmap(bitmap, {8, 8, 24, 24}, {145, 185, 185, 225}, 1);
  canvas.DrawBitmap(bitmap, {8, 8, 24, 24}, {190, 185, 230, 225}, 1, true);
  canvas.DrawBitmap(bitmap, all, {235, 185, 250, 200}, 1);
  canvas.DrawBitmap(bitmap, all, all.Offset(255.5F, 185.25F), 1);
  const TCanvasStateGuard kept(canvas);
  canvas.SetMatrix(TMatrix::Rotation(0.4F) * TMatrix::Translation(330, 182));
  canvas.DrawBitmap(bitmap, all, all, 1);
}

void DrawGlyphs(TCustomCanvasGpu& canvas, const TGlyphTexture& glyphs, bool modulated) {
  const std::array tints = {Blue, Red, Green, Gold, TAlphaColor{0xFF8020A0}};
  const std::array black = {TAlphaColors::Black};
  const std::array translucent = {HalfRed, HalfGreen, HalfBlue};
  const std::span<const TAlphaColor> colors = modulated ? std::span<const TAlphaColor>(tints) : black;
  DrawText(canvas, glyphs, Latin, {10, 262}, colors);
  DrawText(canvas, glyphs, Salam, {95, 262}, colors);
  DrawText(canvas, glyphs, Shalom, {165, 262}, colors);
  DrawText(canvas, glyphs, Latin, {250.4F, 262.3F}, colors);  // between pixels
  DrawText(canvas, glyphs, Latin, {335, 262}, colors, 0.35F);
  DrawText(canvas, glyphs, Salam, {422, 262}, translucent);
  {
    const TCanvasStateGuard kept(canvas);
    canvas.IntersectClipRect({10, 278.5F, 90, 289.5F});
    DrawText(canvas, glyphs, Latin, {10, 295}, colors);
  }
  {
    const TCanvasStateGuard kept(canvas);
    canvas.SetMatrix(TMatrix::Rotation(-0.2F) * TMatrix::Translation(100, 310));
    DrawText(canvas, glyphs, Latin, {0, 0}, colors);
  }
  const TCanvasStateGuard kept(canvas);
  canvas.SetMatrix(TMatrix::Scaling(2, 2) * TMatrix::Translation(185, 325));
  DrawText(canvas, glyphs, Latin, {0, 0}, colors);
  canvas.SetMatrix(TMatrix::Translation(355, 310));
  DrawText(canvas, glyphs, Salam, {0, 0}, colors);
}

void DrawRuler(TCanvas& canvas) {
  for (int x = 10; x < TestCardWidth; x += 10)
    canvas.DrawLine({static_cast<float>(x) + 0.5F, 340}, {static_cast<float>(x) + 0.5F, x % 50 == 0 ? 355.0F : 348.0F},
                    1, TStrokeBrush(TAlphaColors::Black));
}

}  // namespace

TGlyphTexture::TGlyphTexture(std::u32string_view letters, double pixelSize)
    : FBitmap(TextureSide, TextureSide), FPack(TextureSide, TextureSide) {
  static const TFontCatalog catalog;
  TGlyphSource source(catalog, {"DejaVu Sans", {"FreeSerif"}, pixelSize});
  for (const char32_t letter : letters) {
    if (FPlaces.contains(letter)) continue;
    const TGlyph& glyph = source.Glyph(letter);
    TPlace place;
    place.Advance = glyph.Advance;
    place.Origin = {static_cast<float>(glyph.Left), static_cast<float>(-glyph.Top)};
    const TRect room = FPack.Insert(glyph.Width + 2, glyph.Height + 2, false, TFreeRectChoice::BestAreaFit,
                                    TGuillotineSplit::MinimizeArea);
    if (!room.IsEmpty()) {
      place.Source = TRectF::From({room.Left + 1, room.Top + 1, room.Right - 1, room.Bottom - 1});
      for (int y = 0; y < glyph.Height; ++y)
        for (int x = 0; x < glyph.Width; ++x)
          FBitmap.Surface().Scanline(room.Top + 1 + y)[static_cast<std::size_t>(room.Left + 1 + x)] =
              glyph.Coverage[static_cast<std::size_t>(y * glyph.Width + x)] * 0x01010101U;
    }
    FPlaces.emplace(letter, place);
  }
}

TGlyphTexture::TPlace TGlyphTexture::Place(char32_t letter) const {
  const auto found = FPlaces.find(letter);
  return found != FPlaces.end() ? found->second : TPlace{};
}

TGlyphTexture TestCardGlyphs(float scale) {
  return {std::u32string(Salam) + std::u32string(Shalom) + std::u32string(Latin), double{PointSize} * double{scale}};
}

bool DrawTestCard(TCustomCanvasGpu& canvas, const TGlyphTexture& glyphs, const TTestCardOptions& options) {
  if (!canvas.BeginScene()) return false;
  canvas.Clear(TAlphaColors::White);
  DrawShapes(canvas);
  DrawLines(canvas, options.FirstDash);
  DrawClips(canvas, options.Clips);
  DrawTransforms(canvas);
  DrawAlpha(canvas);
  DrawBitmaps(canvas);
  DrawGlyphs(canvas, glyphs, options.Modulated);
  DrawRuler(canvas);
  canvas.EndScene();
  return true;
}

}  // namespace orv::platform
