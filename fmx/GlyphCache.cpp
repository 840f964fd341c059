#include "fmx/GlyphCache.h"

#include <algorithm>
#include <memory>
#include <tuple>

#include "fmx/Exceptions.h"
#include "fmx/FontGlyphManager.h"

namespace fmx {
namespace {

using TKey = std::tuple<std::u16string, float, std::uint8_t, TFontWeight, TFontSlant, float>;

struct TCache {
  std::map<TKey, TFontGlyphs> Fonts;
  std::uint64_t Generation = 0;
};

TCache& Cache() {
  static TCache cache;
  return cache;
}

// The surface as a bitmap; null where there is nothing in it.
std::unique_ptr<TBitmap> BitmapOf(const TBitmapSurface& surface, float scale) {
  if (surface.IsEmpty()) return nullptr;
  auto bitmap = std::make_unique<TBitmap>(surface.Width(), surface.Height(), scale);
  TBitmapData data;
  if (!bitmap->Map(TMapAccess::Write, data)) return nullptr;
  for (std::int32_t y = 0; y < surface.Height(); ++y) {
    const auto row = surface.Scanline(y);
    std::copy(row.begin(), row.end(), data.Scanline(y).begin());
  }
  return bitmap;
}

constexpr TFontGlyphSettings PictureSettings{TFontGlyphSetting::Bitmap, TFontGlyphSetting::BitmapAsGrey};

// Without its picture where that would be too large.
TFontGlyph MadeGlyph(std::uint32_t character, const TFont& font, float scale, TFontGlyphSettings wanted) {
  try {
    return TFontGlyphManager::Current().GetGlyph(character, font, scale, wanted);
  } catch (const EBitmapSizeTooBig&) {
    return TFontGlyphManager::Current().GetGlyph(character, font, scale, wanted - PictureSettings);
  }
}

}  // namespace

TFontGlyphs::TFontGlyphs(const TFont& font, float scale)
    : FFont(font), FScale(scale), FBaseline(TFontGlyphManager::Current().GetBaseline(font, scale)) {}

const TCharRec& TFontGlyphs::Record(std::uint32_t character, TFontGlyphSettings wanted) {
  const auto found = FGlyphs.find(character);
  if (found != FGlyphs.end() && (wanted - found->second.Settings).IsEmpty()) return found->second.Rec;
  const TFontGlyphSettings all = found == FGlyphs.end() ? wanted : wanted + found->second.Settings;
  TMade made;
  made.Settings = all;
  made.Rec.Glyph = MadeGlyph(character, FFont, FScale, all);
  const TBitmapSurface& surface = made.Rec.Glyph.Bitmap;
  made.Rec.SrcRect = TRectF::From(TRect{0, 0, surface.Width(), surface.Height()});
  made.Rec.SetOwn(BitmapOf(surface, FScale));
  TMade& kept = FGlyphs[character];
  kept = std::move(made);
  return kept.Rec;
}

TFontGlyphs& TGlyphCache::Of(const TFont& font, float scale) {
  TCache& cache = Cache();
  if (cache.Generation != TFontGlyphManager::Generation()) {
    cache.Fonts.clear();
    cache.Generation = TFontGlyphManager::Generation();
  }
  const TKey key{font.Family(), font.Size(), font.Style().Bits(), font.Weight(), font.Slant(), scale};
  const auto found = cache.Fonts.find(key);
  return found != cache.Fonts.end() ? found->second : cache.Fonts.emplace(key, TFontGlyphs(font, scale)).first->second;
}

}  // namespace fmx
