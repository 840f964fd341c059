#include "textlayout/Orv.TextLayout.GPU.Glyphs.h"

#include <algorithm>

#include "fmx/Exceptions.h"
#include "fmx/GlyphsManager.h"
#include "fmx/Limits.h"
#include "fmx/Rounding.h"
#include "textlayout/Orv.FontGlyphs.h"
#include "textlayout/Orv.TextLayout.GPU.Run.h"

namespace orv {
namespace {

TFontKey StyleTerm(fmx::TFontStyles style) {
  const bool bold = style.Contains(fmx::TFontStyle::Bold);
  const bool italic = style.Contains(fmx::TFontStyle::Italic);
  return 0xF00000U + (bold ? 0x10000U : 0U) + (italic ? 0x20000U : 0U);
}

// Weights and slants that are finer than the style, far above the other terms; 0 for those that the style asks for.
TFontKey FineTerm(const fmx::TFont& font) {
  if (font.Weight() == fmx::WeightOf(font.Style()) && font.Slant() == fmx::SlantOf(font.Style())) return 0;
  return TFontKey{1} + static_cast<TFontKey>(font.Weight()) * 4 + static_cast<TFontKey>(font.Slant());
}

// A picture larger than a bitmap can be is left out: the character keeps its metrics and is not drawn.
fmx::TFontGlyph MadeGlyph(TFontGlyphManagerOrv& manager, UCS4Char character, const fmx::TFont& font, float scale,
                          fmx::TFontGlyphSettings settings) {
  const UCS4Char chars[] = {character, 0};
  try {
    return manager.GetGlyph(chars, font, scale, settings);
  } catch (const fmx::EBitmapSizeTooBig&) {
    settings.Exclude(fmx::TFontGlyphSetting::Bitmap);
    fmx::TFontGlyph glyph = manager.GetGlyph(chars, font, scale, settings);
    glyph.Style.Include(fmx::TFontGlyphStyle::NoGlyph);
    return glyph;
  }
}

// The rows of the surface, into the target at that corner.
void CopyRows(const fmx::TBitmapSurface& surface, fmx::TBitmapData& target, std::int32_t left, std::int32_t top) {
  for (std::int32_t y = 0; y < surface.Height(); ++y) {
    const auto from = surface.Scanline(y);
    const auto to = target.Scanline(top + y);
    const auto room = static_cast<std::size_t>(std::max<std::int32_t>(target.Width() - left, 0));
    std::copy_n(from.begin(), std::min({from.size(), room, to.size()}), to.begin() + left);
  }
}

fmx::TRectF PictureRect(const fmx::TBitmapSurface& surface, std::int32_t left, std::int32_t top) {
  return fmx::TRectF::From(fmx::TRect{left, top, left + surface.Width(), top + surface.Height()});
}

}  // namespace

TFontKey FontKeyOf(const fmx::TFont& font, float scale) {
  TFontKey key = font.Family().size();
  for (const char16_t unit : font.Family()) key += unit;
  key += StyleTerm(font.Style()) + (FineTerm(font) << 40);
  key += static_cast<TFontKey>(std::max<std::int64_t>(fmx::Trunc(font.Size()), 0)) * 1000;
  return key + (fmx::SameValue(scale, 1, fmx::ScaleTolerance) ? 0xFF000000U : 0xF000000U);
}

// --- The dictionary ---

fmx::TCharRec* TAtomDic::FindBeyond(UCS4Char atom) const {
  if (atom < CodePoints) return nullptr;
  const auto found = FBeyond.find(atom);
  return found == FBeyond.end() ? nullptr : found->second.get();
}

const TAtomDic::TAdvances TAtomDic::UnknownAdvances = [] {
  TAdvances advances;
  advances.fill(std::numeric_limits<float>::quiet_NaN());
  return advances;
}();

void TAtomDic::TellMetrics(UCS4Char atom, const fmx::TFontGlyph& glyph) {
  if (atom >= CodePoints || atom == U'\t') return;
  auto& own = FOwnAdvances[atom >> 8];
  if (!own) {
    own = std::make_unique<TAdvances>(UnknownAdvances);
    FAdvances[atom >> 8] = own.get();
  }
  if (FPlainHeight == 0) FPlainHeight = glyph.VerticalAdvance;
  const bool isPlain = glyph.VerticalAdvance == FPlainHeight;
  (*own)[atom & 0xFF] = isPlain ? glyph.Advance : std::numeric_limits<float>::quiet_NaN();
}

fmx::TCharRec& TAtomDic::Add(UCS4Char atom) {
  auto record = std::make_unique<fmx::TCharRec>();
  fmx::TCharRec& added = *record;
  if (atom >= CodePoints) {
    FBeyond[atom] = std::move(record);
    return added;
  }
  auto& page = FPages[atom >> 8];
  if (!page) page = std::make_unique<TPage>();
  (*page)[atom & 0xFF] = std::move(record);
  return added;
}

TGlyphAtlas::TState& TGlyphAtlas::State() {
  static TState state;
  return state;
}

TAtomDic& TGlyphAtlas::GetAtomDictionary(const fmx::TFont& font, float scale) {
  TFontGlyphManagerOrv& manager = TFontGlyphManagerOrv::Current();
  TState& state = State();
  if (state.Generation != TFontGlyphManagerOrv::Generation()) {
    Clear();
    state.Generation = TFontGlyphManagerOrv::Generation();
  }
  auto& dic = state.FamilyDic[FontKeyOf(font, scale)];
  if (!dic) {
    dic = std::make_unique<TAtomDic>();
    dic->FBaseline = manager.GetBaseline(font, scale);
  }
  return *dic;
}

void TGlyphAtlas::Clear() {
  TState& state = State();
  state.FamilyDic.clear();
  state.NewGlyphList.clear();
  state.CharMaps.clear();
}

// --- Making glyphs ---

const fmx::TCharRec& TGPURun::AddOrGetCharGlyph(const fmx::TCanvas* canvas, UCS4Char character, TAtomDic& dic,
                                                const fmx::TFont& font, float scale, bool path) {
  fmx::TCharRec* found = dic.Find(character);
  const auto lacksPicture = [&] {
    return canvas != nullptr && found->Bitmap() == nullptr &&
           !found->Glyph.Style.Contains(fmx::TFontGlyphStyle::NoGlyph);
  };
  const auto lacksPath = [&] { return path && !found->Glyph.Style.Contains(fmx::TFontGlyphStyle::HasPath); };
  if (found != nullptr && !lacksPicture() && !lacksPath()) return *found;
  return TGlyphAtlas::UpdateCharRec(canvas != nullptr, found, dic, font, character, scale, path);
}

fmx::TCharRec& TGlyphAtlas::UpdateCharRec(bool needBitmap, fmx::TCharRec* existing, TAtomDic& dic,
                                          const fmx::TFont& font, UCS4Char character, float scale, bool path) {
  using fmx::TFontGlyphSetting;
  fmx::TFontGlyphSettings settings;
  if (needBitmap) {
    settings.Include(TFontGlyphSetting::Bitmap);
    settings.Include(TFontGlyphSetting::BitmapAsGrey);
  }
  if (path) settings.Include(TFontGlyphSetting::Path);
  TFontGlyphManagerOrv& manager = TFontGlyphManagerOrv::Current();
  fmx::TFontGlyph glyph = MadeGlyph(manager, character, font, scale, settings);
  dic.FBaseline = manager.GetBaseline(font, scale);

  fmx::TCharRec& record = existing != nullptr ? *existing : dic.Add(character);
  record.Glyph = std::move(glyph);
  dic.TellMetrics(character, record.Glyph);
  record.SetShared(nullptr);
  record.SrcRect = {};
  if (record.Glyph.Style.Contains(fmx::TFontGlyphStyle::NoGlyph) || record.Glyph.Bitmap.IsEmpty()) return record;
  if (IsRendering())
    GiveOwnBitmap(record, scale);
  else
    MapGlyphToCache(record);
  return record;
}

// A picture that leaves no room for a border is not drawn.
void TGlyphAtlas::GiveOwnBitmap(fmx::TCharRec& record, float scale) {
  const fmx::TBitmapSurface& surface = record.Glyph.Bitmap;
  auto bitmap = std::make_unique<fmx::TBitmap>();
  try {
    bitmap->SetSize(surface.Width() + 2, surface.Height() + 2);
  } catch (const fmx::EBitmapSizeTooBig&) {
    record.Glyph.Style.Include(fmx::TFontGlyphStyle::NoGlyph);
    return;
  }
  bitmap->SetBitmapScale(scale);
  fmx::TBitmapData data;
  if (bitmap->Map(fmx::TMapAccess::Write, data)) {
    CopyRows(surface, data, 1, 1);
    bitmap->Unmap(data);
  }
  record.SetOwn(std::move(bitmap));
  record.SrcRect = PictureRect(surface, 1, 1);
  auto& list = State().NewGlyphList;
  if (std::find(list.begin(), list.end(), &record) == list.end()) list.push_back(&record);
}

// --- Textures ---

// A place in the first texture that has one, or in a new texture; null for what no texture takes.
TCharMap* TGlyphAtlas::FindPlace(std::int32_t width, std::int32_t height, float bitmapScale, fmx::TRect& place) {
  const auto insert = [&](TCharMap& map) {
    place = map.BinPack.Insert(width, height, false, fmx::TFreeRectChoice::BestAreaFit,
                               fmx::TGuillotineSplit::MinimizeArea);
    return !place.IsEmpty();
  };
  auto& maps = State().CharMaps;
  for (TCharMap& map : maps)
    if (map.BinPack.Occupancy() < FullOccupancy && insert(map)) return &map;
  if (width > TextureSide || height > TextureSide) return nullptr;
  auto texture = std::make_unique<fmx::TBitmap>(TextureSide, TextureSide, bitmapScale);
  maps.push_back({std::move(texture), fmx::TGuillotineBinPack(TextureSide, TextureSide)});
  return insert(maps.back()) ? &maps.back() : nullptr;
}

void TGlyphAtlas::MapGlyphToCache(fmx::TCharRec& record) {
  const fmx::TBitmapSurface& surface = record.Glyph.Bitmap;
  const fmx::TBitmap* own = record.Bitmap();
  const std::int32_t width = own != nullptr ? own->Width() : surface.Width() + 2;
  const std::int32_t height = own != nullptr ? own->Height() : surface.Height() + 2;
  const float scale = record.SharedBitmap() ? own->BitmapScale() : 1;
  fmx::TRect place;
  const TCharMap* map = FindPlace(width, height, scale, place);
  if (map == nullptr) return;
  fmx::TBitmapData data;
  if (!map->Texture->Map(fmx::TMapAccess::Write, data)) return;
  CopyRows(surface, data, place.Left + 1, place.Top + 1);
  map->Texture->Unmap(data);
  record.SetShared(map->Texture.get());
  record.SrcRect = fmx::TRectF::From(place).Inset(1, 1);
}

void TGlyphAtlas::EndRender() {
  if (FRendering == 0 || --FRendering > 0 || fmx::TGlyphsManager::DisableGlyphPopulation) return;
  auto& list = State().NewGlyphList;
  for (fmx::TCharRec* record : list)
    if (!record->Glyph.Bitmap.IsEmpty()) MapGlyphToCache(*record);
  list.clear();
}

UCS4Char TGlyphAtlas::AtomOf(const fmx::TBitmap& bitmap, const fmx::TRectF& source, fmx::TRectF& srcRect) {
  UCS4Char result = 0;
  for (const auto& [key, dic] : State().FamilyDic)
    dic->ForEach([&](UCS4Char atom, const fmx::TCharRec& record) {
      const fmx::TRectF& own = record.SrcRect;
      if (record.Bitmap() != &bitmap || source.Left < own.Left || source.Right > own.Right || source.Top < own.Top ||
          source.Bottom > own.Bottom)
        return;
      result = atom;
      srcRect = own;
    });
  return result;
}

}  // namespace orv
