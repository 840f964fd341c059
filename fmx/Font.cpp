#include "fmx/Font.h"

#include <algorithm>
#include <cmath>

#include "fmx/Limits.h"

namespace fmx {

TFont::TFont(std::u16string family, float size, TFontStyles style)
    : FFamily(std::move(family)), FStyle(style), FWeight(WeightOf(style)), FSlant(SlantOf(style)) {
  SetSize(size);
}

TFont& TFont::operator=(const TFont& other) {
  Assign(other);
  return *this;
}

void TFont::SetFamily(std::u16string_view family) {
  if (FFamily == family) return;
  FFamily = family;
  Changed();
}

void TFont::SetSize(float size) {
  if (std::isnan(size)) return;
  const float held = std::clamp(size, 0.0F, MaxFontSize);
  if (held == FSize) return;
  FSize = held;
  Changed();
}

void TFont::SetStyle(TFontStyles style) {
  if (style == FStyle) return;
  if (style.Contains(TFontStyle::Bold) != FStyle.Contains(TFontStyle::Bold)) FWeight = WeightOf(style);
  if (style.Contains(TFontStyle::Italic) != FStyle.Contains(TFontStyle::Italic)) FSlant = SlantOf(style);
  FStyle = style;
  Changed();
}

void TFont::SetWeight(TFontWeight weight) {
  if (weight == FWeight) return;
  FWeight = weight;
  FStyle.Exclude(TFontStyle::Bold);
  if (weight >= TFontWeight::SemiBold) FStyle.Include(TFontStyle::Bold);
  Changed();
}

void TFont::SetSlant(TFontSlant slant) {
  if (slant == FSlant) return;
  FSlant = slant;
  FStyle.Exclude(TFontStyle::Italic);
  if (slant != TFontSlant::Regular) FStyle.Include(TFontStyle::Italic);
  Changed();
}

void TFont::Assign(const TFont& other) {
  if (*this == other) return;
  FFamily = other.FFamily;
  FSize = other.FSize;
  FStyle = other.FStyle;
  FWeight = other.FWeight;
  FSlant = other.FSlant;
  Changed();
}

}  // namespace fmx
