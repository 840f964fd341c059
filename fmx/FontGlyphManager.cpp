#include "fmx/FontGlyphManager.h"

#include <algorithm>
#include <cmath>

#include "fmx/Exceptions.h"
#include "fmx/Limits.h"
#include "rtl/Unicode.h"

namespace fmx {
namespace {

constexpr float SizeTolerance = 0.01F;

struct TGlyphState {
  TFontGlyphBackEndFactory Factory;
  std::unique_ptr<TFontGlyphManager> Current;
  std::uint64_t Generation = 0;
};

TGlyphState& State() {
  static TGlyphState state;
  return state;
}

}  // namespace

bool TFontSettings::IsSameAs(const TFontSettings& other) const {
  const auto sameLetter = [](char16_t a, char16_t b) { return a == b || rtl::ToLower(a) == rtl::ToLower(b); };
  return Style == other.Style && Weight == other.Weight && Slant == other.Slant && File == other.File &&
         std::fabs(Size - other.Size) <= SizeTolerance && std::fabs(Scale - other.Scale) <= ScaleTolerance &&
         std::equal(Family.begin(), Family.end(), other.Family.begin(), other.Family.end(), sameLetter);
}

void TFontGlyphManager::RegisterBackEnd(TFontGlyphBackEndFactory factory) {
  State().Current.reset();
  State().Factory = std::move(factory);
  ++State().Generation;
}

std::unique_ptr<TFontGlyphBackEnd> TFontGlyphManager::MakeBackEnd() {
  auto backEnd = State().Factory ? State().Factory() : nullptr;
  if (!backEnd) throw ENotRegistered("No maker of glyphs is registered");
  return backEnd;
}

TFontGlyphManager& TFontGlyphManager::Current() {
  auto& current = State().Current;
  if (!current) current = std::make_unique<TFontGlyphManager>(MakeBackEnd());
  return *current;
}

std::uint64_t TFontGlyphManager::Generation() {
  return State().Generation;
}

TFontGlyphManager::~TFontGlyphManager() {
  if (FLoaded) FBackEnd->FreeResource();
}

void TFontGlyphManager::Load(const TFont& font, float scale) {
  const TFontSettings wanted = TFontSettings::Of(font, scale);
  if (FLoaded && FSettings.IsSameAs(wanted)) return;
  if (FLoaded) FBackEnd->FreeResource();
  FLoaded = false;
  FSettings = wanted;
  FBackEnd->LoadResource(wanted);
  FLoaded = true;
}

TFontGlyph TFontGlyphManager::GetGlyph(std::uint32_t character, const TFont& font, float scale,
                                       TFontGlyphSettings settings) {
  Load(font, scale);
  return FBackEnd->DoGetGlyph(std::span(&character, 1), settings, false);
}

float TFontGlyphManager::GetBaseline(const TFont& font, float scale) {
  Load(font, scale);
  return FBackEnd->DoGetBaseline();
}

}  // namespace fmx
