// The font of a text.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "rtl/Sets.h"

namespace fmx {

enum class TFontStyle : std::uint8_t { Bold, Italic, Underline, StrikeOut };
using TFontStyles = rtl::TSet<TFontStyle, std::uint8_t>;

// Nine steps from the thinnest to the heaviest.
enum class TFontWeight : std::uint8_t {
  Thin,
  UltraLight,
  Light,
  SemiLight,
  Regular,
  Medium,
  SemiBold,
  Bold,
  UltraBold
};

enum class TFontSlant : std::uint8_t { Regular, Italic, Oblique };

// The weight and slant that a style asks for: Bold and Italic, or Regular.
constexpr TFontWeight WeightOf(TFontStyles style) {
  return style.Contains(TFontStyle::Bold) ? TFontWeight::Bold : TFontWeight::Regular;
}
constexpr TFontSlant SlantOf(TFontStyles style) {
  return style.Contains(TFontStyle::Italic) ? TFontSlant::Italic : TFontSlant::Regular;
}

// Family, size in logical units, style, weight and slant. Tells one listener of every change; setting an equal value is
// no change. Copies take the values, not the listener. Belongs to the thread of its owner.
class TFont {
 public:
  TFont() = default;
  TFont(std::u16string family, float size, TFontStyles style = {});
  TFont(const TFont& other)
      : FFamily(other.FFamily),
        FSize(other.FSize),
        FStyle(other.FStyle),
        FWeight(other.FWeight),
        FSlant(other.FSlant) {}
  // As Assign: the listener stays, and hears of a change.
  TFont& operator=(const TFont& other);
  ~TFont() = default;

  // Empty for the platform's default family.
  const std::u16string& Family() const { return FFamily; }
  void SetFamily(std::u16string_view family);

  // 12 at first. Held between 0 and MaxFontSize; what is no number changes nothing.
  float Size() const { return FSize; }
  void SetSize(float size);

  // Bold stands in the style exactly where the weight is SemiBold or more, Italic where the slant is not Regular. A
  // style that brings Bold or takes it away sets the weight to Bold or Regular, likewise Italic and the slant; one that
  // leaves them as they are leaves weight and slant.
  TFontStyles Style() const { return FStyle; }
  void SetStyle(TFontStyles style);

  // Regular at first, both. Finer than the style, which follows them.
  TFontWeight Weight() const { return FWeight; }
  void SetWeight(TFontWeight weight);
  TFontSlant Slant() const { return FSlant; }
  void SetSlant(TFontSlant slant);

  // Takes all values of the other font, with one change told at most.
  void Assign(const TFont& other);

  // Called after each change; replaces the listener before it.
  void SetOnChanged(std::function<void()> listener) { FOnChanged = std::move(listener); }

  friend bool operator==(const TFont& a, const TFont& b) {
    return a.FFamily == b.FFamily && a.FSize == b.FSize && a.FStyle == b.FStyle && a.FWeight == b.FWeight &&
           a.FSlant == b.FSlant;
  }

 private:
  void Changed() const {
    if (FOnChanged) FOnChanged();
  }

  std::u16string FFamily;
  float FSize = 12;
  TFontStyles FStyle;
  TFontWeight FWeight = TFontWeight::Regular;
  TFontSlant FSlant = TFontSlant::Regular;
  std::function<void()> FOnChanged;
};

}  // namespace fmx
