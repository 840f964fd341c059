#include "platform/SourceGlyphs.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "platform/GlyphSource.h"
#include "rtl/Utf8.h"

namespace orv::platform {
namespace {

const TFontCatalog& Catalog() {
  static const TFontCatalog catalog;
  return catalog;
}

bool StandsOnTheLetterBefore(std::uint32_t c) {
  return (c >= 0xFC5E && c <= 0xFC62) || (c >= 0xFE70 && c <= 0xFE7D);
}

class TSourceGlyphs : public fmx::TFontGlyphBackEnd {
 public:
  void LoadResource(const fmx::TFontSettings& settings) override {
    FRequest.Family = rtl::ToUtf8(settings.Family);
    FRequest.Bold = settings.Style.Contains(fmx::TFontStyle::Bold);
    FRequest.Italic = settings.Style.Contains(fmx::TFontStyle::Italic);
    FRequest.PixelSize = std::clamp(double{settings.Size} * double{settings.Scale}, 1.0, MaxPixelSize);
    if (FRequest.Family.empty() || !Catalog().Find(FRequest.Family, false)) FRequest.Family = "DejaVu Sans";
    FRequest.Fallbacks = {"DejaVu Sans", "FreeSerif"};
    FSource.reset();
  }
  void FreeResource() override { FSource.reset(); }

  float DoGetBaseline() override { return std::ceil(Source().Metrics().Ascent); }

  fmx::TFontGlyph DoGetGlyph(std::span<const std::uint32_t> chars, fmx::TFontGlyphSettings settings, bool) override {
    const std::uint32_t c = chars.empty() ? 0 : chars[0];
    const TGlyph& from = Source().Glyph(c);
    fmx::TFontGlyph glyph;
    glyph.Origin = {from.Left, 0};
    glyph.Advance = StandsOnTheLetterBefore(c) ? 0 : from.Advance;
    glyph.VerticalAdvance = DoGetBaseline() + std::ceil(Source().Metrics().Descent);
    if (settings.Contains(fmx::TFontGlyphSetting::Bitmap)) Paint(from, glyph);
    if (settings.Contains(fmx::TFontGlyphSetting::Path)) {
      glyph.Path = Source().Outline(c);
      glyph.Path.Translate(0, DoGetBaseline());
      glyph.Style.Include(fmx::TFontGlyphStyle::HasPath);
    }
    return glyph;
  }

 private:
  TGlyphSource& Source() {
    if (!FSource) FSource.emplace(Catalog(), FRequest);
    return *FSource;
  }

  void Paint(const TGlyph& from, fmx::TFontGlyph& glyph) {
    const auto advance = static_cast<std::int32_t>(std::ceil(from.Advance));
    glyph.Bitmap.SetSize(std::max(from.Width, advance), static_cast<std::int32_t>(glyph.VerticalAdvance));
    const auto top = static_cast<std::int32_t>(DoGetBaseline()) - from.Top;
    for (std::int32_t y = 0; y < from.Height; ++y) {
      const auto row = glyph.Bitmap.Scanline(top + y);
      if (row.empty()) continue;
      for (std::int32_t x = 0; x < from.Width; ++x)
        row[static_cast<std::size_t>(x)] =
            0x01010101U * from.Coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(from.Width) +
                                        static_cast<std::size_t>(x)];
    }
  }

  TFontRequest FRequest;
  std::optional<TGlyphSource> FSource;
};

}  // namespace

std::unique_ptr<fmx::TFontGlyphBackEnd> MakeSourceGlyphs() {
  return std::make_unique<TSourceGlyphs>();
}

}  // namespace orv::platform
