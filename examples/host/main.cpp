// Draws a line of text into a raw RGBA buffer, and writes that to the standard output.
#include <cmath>
#include <cstdio>

#include "fmx/CanvasManager.h"
#include "fmx/FontGlyphManager.h"
#include "fmx/GPUTextLayout.h"
#include "fmx/NullCanvas.h"
#include "fmx/TextLayoutManager.h"
#include "platform/GlyphSource.h"

constexpr int Columns = 260, Rows = 40;
std::vector<unsigned char> buffer(4 * Columns * Rows, 255);  // red, green, blue, alpha

// The glyphs of one font: here from FreeType, by way of the platform's source.
struct TGlyphs : fmx::TFontGlyphBackEnd {
  orv::platform::TFontCatalog Catalog;
  std::unique_ptr<orv::platform::TGlyphSource> Source;

  void LoadResource(const fmx::TFontSettings& font) override {
    const orv::platform::TFontRequest request{"DejaVu Sans", {}, font.Size * font.Scale};
    Source = std::make_unique<orv::platform::TGlyphSource>(Catalog, request);
  }
  void FreeResource() override { Source.reset(); }
  float DoGetBaseline() override { return std::ceil(Source->Metrics().Ascent); }
  fmx::TFontGlyph DoGetGlyph(std::span<const std::uint32_t> chars, fmx::TFontGlyphSettings settings, bool) override {
    const orv::platform::TGlyph& from = Source->Glyph(chars[0]);
    fmx::TFontGlyph to;
    to.Origin.X = from.Left;
    const bool mark = (chars[0] >= 0xFC5E && chars[0] <= 0xFC62) || (chars[0] >= 0xFE70 && chars[0] <= 0xFE7D);
    to.Advance = mark ? 0 : from.Advance;
    to.VerticalAdvance = DoGetBaseline() + std::ceil(Source->Metrics().Descent);
    const int width = std::max(from.Width, int(std::ceil(from.Advance)));
    if (settings.Contains(fmx::TFontGlyphSetting::Bitmap)) to.Bitmap.SetSize(width, int(to.VerticalAdvance));
    for (int i = 0; i < from.Width * from.Height; ++i) {
      const auto row = to.Bitmap.Scanline(int(DoGetBaseline()) - from.Top + i / from.Width);
      if (!row.empty()) row[i % from.Width] = 0x01010101U * from.Coverage[i];
    }
    return to;
  }
};

// A canvas that knows glyphs alone, at whole pixels. Everything else it leaves to the canvas that draws nothing.
struct TBufferCanvas : fmx::TNullCanvas {
  static orv::TClass Class() { return CompiledCanvas<TBufferCanvas, TNullCanvas>("example", "TBufferCanvas"); }
  explicit TBufferCanvas(const fmx::TCanvasTarget& to, orv::TClass c = Class()) : TNullCanvas(to, c) {}
  void DoDrawBitmap(const fmx::TBitmap& glyph, const fmx::TRectF& from, const fmx::TRectF& to, float opacity, bool) {
    for (int i = 0; i < int(from.Width()) * int(from.Height()); ++i) {
      const int x = i % int(from.Width()), y = i / int(from.Width());
      const int toX = int(to.Left) + x, toY = int(to.Top) + y;
      if (toX < 0 || toY < 0 || toX >= Columns || toY >= Rows) continue;
      const auto pixel = glyph.Surface().Scanline(int(from.Top) + y)[int(from.Left) + x];
      const float a = opacity * float(fmx::AlphaOf(pixel)) / 255;
      for (int part = 0; part < 3; ++part) {
        unsigned char& value = buffer[(toY * Columns + toX) * 4 + part];
        value = (unsigned char)(float(value) * (1 - a) + float(ModulateColor() >> (16 - 8 * part) & 255) * a);
      }
    }
  }
};

int main() {
  fmx::TFontGlyphManager::RegisterBackEnd([] { return std::make_unique<TGlyphs>(); });
  fmx::TTextLayoutManager::RegisterTextLayout(fmx::TGPUTextLayout::Class(), TBufferCanvas::Class());
  TBufferCanvas canvas({fmx::TCanvasTarget::TKind::Window, nullptr, nullptr, Columns, Rows});
  canvas.Font().SetSize(22);
  canvas.Fill().SetColor(0xFF203080);
  canvas.BeginScene();
  canvas.FillText({10, 0, 250, 40}, u"A line of text", false, 1, fmx::TTextAlign::Leading);
  canvas.EndScene();
  std::fwrite(buffer.data(), 1, buffer.size(), stdout);
}
