#include "fmx/Font.h"

#include <algorithm>
#include <cmath>

#include "fmx/Limits.h"

namespace fmx {

TFont::TFont(std::u16string family, float size, TFontStyles style) : FFamily(std::move(family)), FStyle(style) {
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
  FStyle = style;
  Changed();
}

void TFont::Assign(const TFont& other) {
  if (*this == other) return;
  FFamily = other.FFamily;
  FSize = other.FSize;
  FStyle = other.FStyle;
  Changed();
}

}  // namespace fmx
