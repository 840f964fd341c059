// The glyphs that layouts have met, and the textures that hold their pictures. Shared by all layouts of the process.
// One thread: the one that lays out and paints.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <unordered_map>
#include <vector>

#include "fmx/Bitmap.h"
#include "fmx/Canvas.h"
#include "fmx/Font.h"
#include "fmx/FontGlyph.h"
#include "fmx/GuillotineBinPack.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv {

// What tells the dictionaries of fonts and scales apart: a sum of the family's units, the style, the weight and slant
// where they are finer than the style, the whole part of the size and whether the scale is 1. Fonts with the same sum
// share a dictionary, and all other scales count as one.
using TFontKey = std::uint64_t;
TFontKey FontKeyOf(const fmx::TFont& font, float scale);

// The glyphs of one font and scale by their atoms.
class TAtomDic {
 public:
  // Null where the atom was not met yet. The look-up of a code point is two steps through pages of 256.
  fmx::TCharRec* Find(UCS4Char atom) const {
    const TPage* page = atom < CodePoints ? FPages[atom >> 8].get() : nullptr;
    return page != nullptr ? (*page)[atom & 0xFF].get() : FindBeyond(atom);
  }
  fmx::TCharRec& Add(UCS4Char atom);

  // For loops that add up glyphs: the advance of a known glyph that is as high as PlainHeight, in device pixels; NaN
  // for any other atom, and for the tab. Most glyphs of a font are as high as the first one met.
  float PlainAdvance(UCS4Char atom) const {
    return atom < CodePoints ? (*FAdvances[atom >> 8])[atom & 0xFF] : std::numeric_limits<float>::quiet_NaN();
  }
  float PlainHeight() const { return FPlainHeight; }
  // The metrics of the atom's glyph are new.
  void TellMetrics(UCS4Char atom, const fmx::TFontGlyph& glyph);

  // Of the font of its last glyph made, in device pixels.
  float FBaseline = 0;

  // Calls visit(atom, record) for every glyph.
  template <typename TVisit>
  void ForEach(TVisit visit) const {
    for (UCS4Char page = 0; page < FPages.size(); ++page)
      if (FPages[page])
        for (UCS4Char i = 0; i < 256; ++i)
          if (const auto& record = (*FPages[page])[i]) visit(page * 256 + i, *record);
    for (const auto& [atom, record] : FBeyond) visit(atom, *record);
  }

 private:
  static constexpr UCS4Char CodePoints = 0x110000;
  using TPage = std::array<std::unique_ptr<fmx::TCharRec>, 256>;
  fmx::TCharRec* FindBeyond(UCS4Char atom) const;

  using TAdvances = std::array<float, 256>;
  static const TAdvances UnknownAdvances;

  std::vector<std::unique_ptr<TPage>> FPages = std::vector<std::unique_ptr<TPage>>(CodePoints >> 8);
  std::vector<std::unique_ptr<TAdvances>> FOwnAdvances = std::vector<std::unique_ptr<TAdvances>>(CodePoints >> 8);
  std::vector<const TAdvances*> FAdvances = std::vector<const TAdvances*>(CodePoints >> 8, &UnknownAdvances);
  float FPlainHeight = 0;                                                // 0 as long as no glyph is known
  std::unordered_map<UCS4Char, std::unique_ptr<fmx::TCharRec>> FBeyond;  // values that are no code points
};

// A texture and what is free of it.
struct TCharMap {
  std::unique_ptr<fmx::TBitmap> Texture;
  fmx::TGuillotineBinPack BinPack;
};

// Holder of the process-wide state; no instance is made.
class TGlyphAtlas {
 public:
  TGlyphAtlas() = delete;

  static constexpr std::int32_t TextureSide = 1024;
  static constexpr float FullOccupancy = 0.95F;  // no place is looked for in a texture filled so far

  // The dictionary of the font at that scale, made where there is none. It holds until another glyph manager is the
  // current one: glyphs of the one before are thrown away then.
  static TAtomDic& GetAtomDictionary(const fmx::TFont& font, float scale);

  // A scene is open between these, which nest. Textures stay untouched in the meantime: glyphs met within it have
  // bitmaps of their own, and move to the textures at the end of the outermost.
  static void BeginRender() { ++FRendering; }
  static void EndRender();
  static bool IsRendering() { return FRendering > 0; }

  // Makes the glyph of the record anew, or of a new record. A picture that no texture takes is drawn within scenes
  // alone; one that is larger than a bitmap can be is left out.
  static fmx::TCharRec& UpdateCharRec(bool needBitmap, fmx::TCharRec* existing, TAtomDic& dic, const fmx::TFont& font,
                                      UCS4Char character, float scale, bool path);

  static const std::vector<TCharMap>& CharMaps() { return State().CharMaps; }
  // Forgets all glyphs and textures. No scene is open.
  static void Clear();

  // The atom with that picture, 0 where none has: for tests and recordings of what was drawn. Looks at every glyph.
  static UCS4Char AtomOf(const fmx::TBitmap& bitmap, const fmx::TRectF& source, fmx::TRectF& srcRect);

 private:
  struct TState {
    std::unordered_map<TFontKey, std::unique_ptr<TAtomDic>> FamilyDic;
    std::vector<TCharMap> CharMaps;
    std::vector<fmx::TCharRec*> NewGlyphList;
    std::uint64_t Generation = 0;
  };
  static TState& State();
  static void GiveOwnBitmap(fmx::TCharRec& record, float scale);
  static void MapGlyphToCache(fmx::TCharRec& record);
  static TCharMap* FindPlace(std::int32_t width, std::int32_t height, float bitmapScale, fmx::TRect& place);

  static inline std::int32_t FRendering = 0;
};

}  // namespace orv
