// A stretch of text of one direction, one colour and one font, as the layout measures and draws it.
//
// Positions here are of two kinds. Units are UTF-16 code units of the source text. Atoms are the code points that are
// drawn: shaping folds several letters into one form, so a run has at most as many atoms as units, and positions of one
// kind are converted to the other.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "fmx/Colors.h"
#include "fmx/Font.h"
#include "fmx/Geometry.h"
#include "textlayout/Orv.TextLayout.GPU.Store.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace fmx {
class TCanvas;
class TCharRec;
}  // namespace fmx

namespace orv {

class TAtomDic;
class TInternalTextLayout;
class TTextLayoutNGOrv;

// How many letters the atom stands for: 1, or 2 and 3 for ligatures. The same in units: 2 from U+10000 on.
constexpr std::int32_t AtomParts(UCS4Char atom) {
  if (atom < 0xFB2A || atom > 0xFEFC) return 1;
  if (atom <= 0xFB4F) return atom == 0xFB2C || atom == 0xFB2D ? 3 : 2;
  if (atom >= 0xFEF5 || (atom >= 0xFC5E && atom <= 0xFD3D)) return 2;
  return atom == 0xFDF2 ? 3 : 1;
}
constexpr std::int32_t AtomUnits(UCS4Char atom) {
  return atom >= 0x10000 ? 2 : AtomParts(atom);
}
// The units of the atom's own code point: 1 or 2.
constexpr std::int32_t OwnUnits(UCS4Char atom) {
  return atom >= 0x10000 ? 2 : 1;
}

// Where a run is split, in both kinds of positions within it.
struct TSplitIndex {
  std::int16_t Utf32Index = 0;
  std::int16_t Utf16Index = 0;

  // The positions bound a run to 32,767 of each: one beyond is a broken invariant, and is held at that.
  static TSplitIndex Of(std::int32_t utf32Index, std::int32_t utf16Index);
  friend constexpr bool operator==(const TSplitIndex&, const TSplitIndex&) = default;
};

// What an atom needs besides its glyph.
struct TDrawTagRec {
  enum class TTagType : std::uint8_t { None = 0, TabAdvance = 1, Hidden = 2, Transparent = 3 };

  TTagType TagType = TTagType::None;
  float Value = 0;  // the advance of a tab in device pixels, or an opacity

  static TDrawTagRec CreateTabAdvance(float advance) { return {TTagType::TabAdvance, advance}; }
  // Raises rtl::Exception "Internal Error" for a tag of another type.
  float TabAdvance() const;
};

class TGPURun {
 public:
  using TInternalTextLayout = orv::TInternalTextLayout;

  // Of the frame with that store, which it borrows.
  explicit TGPURun(TFrameStore& store);
  ~TGPURun();
  TGPURun(const TGPURun&) = delete;
  TGPURun& operator=(const TGPURun&) = delete;

  // --- Text ---

  // Takes the units from start on, which are held within the text; a surrogate pair makes one atom.
  void SetText(std::u16string_view text, std::int32_t start, std::int32_t length, bool rightToLeft);
  // The same where the store has the atoms of the whole text already, one for each unit. No unit is a form of several
  // letters by itself where isPlain says so.
  void TakeText(std::int32_t start, std::int32_t length, bool rightToLeft, bool isPlain) {
    FFirstAtom = FStartIndex = start;
    FAtomCount = FLength = length;
    FRightToLeft = rightToLeft;
    FIsOneToOne = isPlain;
  }
  void SetStartIndex(std::int32_t start) { FStartIndex = start; }
  void SetLength(std::int32_t length) { FLength = length; }

  // Of the layout's text, in units.
  std::int32_t StartIndex() const { return FStartIndex; }
  std::int32_t Length() const { return FLength; }
  std::int32_t EndIndex() const { return FStartIndex + FLength; }
  bool RightToLeft() const { return FRightToLeft; }
  const TFrameStore& Store() const { return *FStore; }
  bool Corrects(TOrvCorrection correction) const { return FStore->Corrects(correction); }

  // In logical order. The view holds until the run changes or another run of the frame takes a text.
  std::span<const UCS4Char> Atoms() const;
  std::int32_t UCS4Length() const { return FAtomCount; }
  // 0 where there is none.
  UCS4Char Atom(std::int32_t index) const {
    return index >= 0 && index < FAtomCount ? FStore->Atoms[static_cast<std::size_t>(FFirstAtom + index)] : 0;
  }
  // The atom that is drawn at that place, counted from the left.
  std::int32_t DrawnAtomIndex(std::int32_t place) const { return FRightToLeft ? FAtomCount - 1 - place : place; }

  // Source position of an atom, and atom of a source position, within the run; see AtomUnits. With SourceUnits these
  // are the units of the atoms before it, and the atom that holds the unit; behind the run both count on by ones. By
  // the rules both are estimates: the first counts the atom's own folded units with those before it, and the second may
  // be -1.
  std::int32_t UCS4IndexToUTF16Index(std::int32_t index) const;
  std::int32_t UTF16IndexToUCS4Index(std::int32_t index) const;

  // The part from the split on, as a run of its own with the same direction, colour and font, and without draw tags
  // but for TabTags.
  TStored<TGPURun> Split(TSplitIndex at);
  // As Split, but the unit at the split belongs to neither run.
  TStored<TGPURun> SplitAndSkipSpace(TSplitIndex at);
  // Drops atoms with the units that they stand for; by the rules with their own units alone, so that what folded atoms
  // stand for beyond that stays in the length (DeleteUnits).
  void DeleteTextFromEnd(std::int32_t count);
  void DeleteTextFromStart(std::int32_t count);

  // --- Presentation forms of the atoms ---

  void PrepareArabicDigits();
  void PrepareComplexArabicCombinations();
  // Quotes behind numbers become primes. In a right-to-left run a quote at its start may close a measure that ends the
  // run before, which may be null.
  void ReplaceQuoteMeasuresToPrimes(const TGPURun* previous);

  // --- Look ---

  fmx::TAlphaColor Color() const { return FColor; }
  bool IsDefaultColor() const { return FIsDefaultColor; }
  // A default colour never takes the place of an attribute's.
  void SetColor(fmx::TAlphaColor color, bool isDefault);
  // Null for the layout's font. Shared with the attribute that it comes from.
  const std::shared_ptr<fmx::TFont>& Font() const { return FFont; }
  void SetFont(std::shared_ptr<fmx::TFont> font) { FFont = std::move(font); }

  // --- Place ---

  // Within the line, logical units.
  const fmx::TRectF& ImageRect() const { return FImageRect; }
  void SetImageRect(const fmx::TRectF& rect) { FImageRect = rect; }
  float GetWidth() const { return FImageRect.Width(); }
  void Widen(float width) { FImageRect.Right += width; }
  // What was taken off may have been more than there was.
  void HoldWidth() { FImageRect.Right = FImageRect.Right < FImageRect.Left ? FImageRect.Left : FImageRect.Right; }
  // From its left top corner.
  void SetExtent(float width, float height);
  void MoveTo(float left);
  void OffsetX(float delta) { FImageRect = FImageRect.Offset(delta, 0); }

  // An ellipsis follows. The run sticks out of the layout's box.
  bool Trimmed() const { return FTrimmed; }
  void SetTrimmed(bool trimmed) { FTrimmed = trimmed; }
  bool Clipped() const { return FClipped; }
  void Clip() { FClipped = true; }

  // The places of the atoms. They are worked out at the first call, out of their advances in logical units, and again
  // at each call where measuring may change the advance of a tab (see TabMeasure). The view holds until another run of
  // the frame is asked.
  template <typename TAdvanceOf>
  std::span<const TAtomPlace> Places(TAdvanceOf advanceOf) const;

  // --- Draw tags ---

  // One per atom, where there are any. They stay behind when atoms before them go, and with a split; with TabTags they
  // move with their atoms.
  void EnsureDrawTagsPresence();
  void SetDrawTag(std::int32_t index, TDrawTagRec tag);
  // None where there is none.
  TDrawTagRec DrawTag(std::int32_t index) const;

  // --- The internal text layout ---

  bool HasInternalRenderer() const { return FInternalTextLayout != nullptr; }
  TInternalTextLayout* InternalRenderer() const { return FInternalTextLayout.get(); }
  // Makes it where there is none. The font becomes the run's.
  void UpdateTextLayout(std::shared_ptr<fmx::TFont> font, std::int32_t line, TTextLayoutNGOrv& layout);

  // --- Glyphs ---

  // The glyph of the atom, or of a character. With a canvas it has its picture, with path its outline. The scale is
  // device pixels of a logical unit. The record belongs to the dictionary, and holds as long as it keeps it.
  const fmx::TCharRec& AddOrGetAtomGlyph(const fmx::TCanvas* canvas, std::int32_t atomIndex, TAtomDic& dic,
                                         const fmx::TFont& font, float scale, bool path = false) const;
  static const fmx::TCharRec& AddOrGetCharGlyph(const fmx::TCanvas* canvas, UCS4Char character, TAtomDic& dic,
                                                const fmx::TFont& font, float scale, bool path = false);

 private:
  TStored<TGPURun> SplitSkipping(TSplitIndex at, std::int32_t skipped);
  std::int32_t EstimatedUnit(std::int32_t atom) const;
  std::int32_t EstimatedAtom(std::int32_t unit) const;
  std::int32_t UnitOf(std::int32_t atom) const;
  std::int32_t AtomOf(std::int32_t unit) const;
  std::int32_t UnitsOfDeleted(std::int32_t index) const;
  std::span<UCS4Char> MutableAtoms();
  std::span<TAtomPlace> MutablePlaces() const;

  TFrameStore* FStore;
  std::int32_t FFirstAtom = 0;  // of the store's
  std::int32_t FAtomCount = 0;
  std::int32_t FStartIndex = 0;
  std::int32_t FLength = 0;
  fmx::TRectF FImageRect;
  fmx::TAlphaColor FColor = 0;
  bool FIsDefaultColor = true;
  bool FTrimmed = false;
  bool FClipped = false;
  bool FRightToLeft = false;
  bool FIsOneToOne = false;  // it is known that each atom stands for one unit
  mutable bool FHasPlaces = false;
  std::shared_ptr<fmx::TFont> FFont;
  std::vector<TDrawTagRec> FDrawTags;
  std::unique_ptr<TInternalTextLayout> FInternalTextLayout;
};

template <typename TAdvanceOf>
std::span<const TAtomPlace> TGPURun::Places(TAdvanceOf advanceOf) const {
  const std::span<TAtomPlace> places = MutablePlaces();
  if (FHasPlaces) return places;
  FHasPlaces = Corrects(TOrvCorrection::TabMeasure) || FDrawTags.empty();
  float edge = FRightToLeft ? FImageRect.Right : FImageRect.Left;
  std::int32_t offset = 0;
  for (std::int32_t i = 0; i < FAtomCount; ++i) {
    const float advance = advanceOf(i);
    edge = FRightToLeft ? edge - advance : edge + advance;
    offset += AtomUnits(Atom(i));
    places[static_cast<std::size_t>(i)] = {edge, offset};
  }
  return places;
}

}  // namespace orv
