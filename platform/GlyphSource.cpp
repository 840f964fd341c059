#include "platform/GlyphSource.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "fmx/GlyphCells.h"
#include "platform/Faces.h"
#include "platform/MissingGlyph.h"

namespace orv::platform {
namespace {

constexpr int TabBlanks = 4;

}  // namespace

struct TGlyphSource::TState {
  TState(const TFontCatalog& catalog, TFontRequest request) : Faces(catalog, std::move(request)) {}

  TGlyph Make(std::uint32_t codePoint, int phase);

  TFaces Faces;
  std::unordered_map<std::uint64_t, TGlyph> Glyphs;
};

TGlyph TGlyphSource::TState::Make(std::uint32_t codePoint, int phase) {
  if (IsInvisible(codePoint)) return {};
  if (codePoint == u'\t') {
    TGlyph tab;
    tab.Advance = TabBlanks * Make(U' ', 0).Advance;
    return tab;
  }
  const TFaces::TPlace place = Faces.Find(codePoint);
  if (place.Face != nullptr)
    if (auto glyph = RenderGlyph(place, codePoint, phase)) return std::move(*glyph);
  return MissingGlyph(Faces.Request().PixelSize, phase);
}

TGlyphSource::TGlyphSource(const TFontCatalog& catalog, TFontRequest request)
    : FState(std::make_unique<TState>(catalog, std::move(request))) {}

TGlyphSource::~TGlyphSource() = default;
TGlyphSource::TGlyphSource(TGlyphSource&&) noexcept = default;
TGlyphSource& TGlyphSource::operator=(TGlyphSource&&) noexcept = default;

const TGlyph& TGlyphSource::Glyph(std::uint32_t codePoint, int phase) {
  const int place = std::clamp(phase, 0, PhaseCount - 1);
  const std::uint64_t key = std::uint64_t{codePoint} * PhaseCount + static_cast<unsigned>(place);
  const auto found = FState->Glyphs.find(key);
  if (found != FState->Glyphs.end()) return found->second;
  return FState->Glyphs.emplace(key, FState->Make(codePoint, place)).first->second;
}

fmx::TPathData TGlyphSource::Outline(std::uint32_t codePoint) {
  if (IsInvisible(codePoint) || codePoint == u'\t') return {};
  const TFaces::TPlace place = FState->Faces.Find(codePoint);
  if (place.Face != nullptr)
    if (const FT_GlyphSlot slot = LoadGlyph(*place.Face, codePoint, place.Index)) return OutlineOf(slot);
  const double size = FState->Faces.Request().PixelSize;
  return OutlineOfMissingGlyph(size);
}

std::string TGlyphSource::FamilyOf(std::uint32_t codePoint) {
  if (IsInvisible(codePoint) || codePoint == u'\t') return {};
  const TFaces::TPlace place = FState->Faces.Find(codePoint);
  return place.Face != nullptr ? place.Face->File.Family : std::string();
}

TFontMetrics TGlyphSource::Metrics() const {
  const FT_Size_Metrics& size = FState->Faces.First().Face->size->metrics;
  const auto pixels = [](FT_Pos value) { return static_cast<float>(value) / 64.0F; };
  return {pixels(size.ascender), pixels(-size.descender), pixels(size.height)};
}

bool IsInvisible(std::uint32_t codePoint) {
  return fmx::IsSilent(codePoint);
}

}  // namespace orv::platform
