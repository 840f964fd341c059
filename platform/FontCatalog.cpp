#include "platform/FontCatalog.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <iterator>
#include <string_view>

#include "platform/Exceptions.h"

namespace orv::platform {
namespace {

struct TRelease {
  void operator()(FcConfig* config) const { FcConfigDestroy(config); }
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
  void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
};
using TPattern = std::unique_ptr<FcPattern, TRelease>;
using TFontSet = std::unique_ptr<FcFontSet, TRelease>;

const FcChar8* Chars(const std::string& s) {
  return reinterpret_cast<const FcChar8*>(s.c_str());
}

int WeightNumber(fmx::TFontWeight weight) {
  constexpr int numbers[] = {FC_WEIGHT_THIN,     FC_WEIGHT_ULTRALIGHT, FC_WEIGHT_LIGHT,
                             FC_WEIGHT_BOOK,     FC_WEIGHT_REGULAR,    FC_WEIGHT_MEDIUM,
                             FC_WEIGHT_DEMIBOLD, FC_WEIGHT_BOLD,       FC_WEIGHT_ULTRABOLD};
  return numbers[std::min(static_cast<std::size_t>(weight), std::size(numbers) - 1)];
}

int SlantNumber(fmx::TFontSlant slant) {
  if (slant == fmx::TFontSlant::Oblique) return FC_SLANT_OBLIQUE;
  return slant == fmx::TFontSlant::Italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN;
}

TPattern Request(FcConfig* config, const std::string& family, fmx::TFontWeight weight, fmx::TFontSlant slant) {
  TPattern pattern(FcPatternCreate());
  if (pattern == nullptr) throw EFontError("fontconfig is out of memory");
  FcPatternAddString(pattern.get(), FC_FAMILY, Chars(family));
  FcPatternAddInteger(pattern.get(), FC_WEIGHT, WeightNumber(weight));
  FcPatternAddInteger(pattern.get(), FC_SLANT, SlantNumber(slant));
  FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
  FcConfigSubstitute(config, pattern.get(), FcMatchPattern);
  FcDefaultSubstitute(pattern.get());
  return pattern;
}

// Some families call all their faces regular in numbers, and tell them apart by name alone.
void NameStyle(FcPattern* request, fmx::TFontWeight weight, fmx::TFontSlant slant) {
  if (slant != fmx::TFontSlant::Regular) return;
  if (weight == fmx::TFontWeight::Regular) FcPatternAddString(request, FC_STYLE, Chars("Regular"));
  if (weight == fmx::TFontWeight::Bold) FcPatternAddString(request, FC_STYLE, Chars("Bold"));
}

bool IsGeneric(std::string_view family) {
  return family == "sans-serif" || family == "serif" || family == "monospace";
}

// A face has a family name for each language it is known in.
bool HasFamily(FcPattern* font, const std::string& family) {
  FcChar8* name = nullptr;
  for (int i = 0; FcPatternGetString(font, FC_FAMILY, i, &name) == FcResultMatch; ++i)
    if (FcStrCmpIgnoreCase(name, Chars(family)) == 0) return true;
  return false;
}

bool IsOutline(FcPattern* font) {
  FcBool outline = FcFalse;
  return FcPatternGetBool(font, FC_OUTLINE, 0, &outline) == FcResultMatch && outline != FcFalse;
}

std::optional<TFontFile> FileOf(FcPattern* font) {
  FcChar8* path = nullptr;
  FcChar8* family = nullptr;
  TFontFile file;
  if (FcPatternGetString(font, FC_FILE, 0, &path) != FcResultMatch) return std::nullopt;
  if (FcPatternGetString(font, FC_FAMILY, 0, &family) != FcResultMatch) return std::nullopt;
  FcPatternGetInteger(font, FC_INDEX, 0, &file.Index);
  int weight = FC_WEIGHT_REGULAR;
  int slant = FC_SLANT_ROMAN;
  FcPatternGetInteger(font, FC_WEIGHT, 0, &weight);
  FcPatternGetInteger(font, FC_SLANT, 0, &slant);
  file.Heavy = weight >= FC_WEIGHT_DEMIBOLD;
  file.Slanted = slant != FC_SLANT_ROMAN;
  file.Path = reinterpret_cast<const char*>(path);
  file.Family = reinterpret_cast<const char*>(family);
  return file;
}

}  // namespace

struct TFontCatalog::TState {
  std::unique_ptr<FcConfig, TRelease> Config;
};

TFontCatalog::TFontCatalog() : FState(std::make_unique<TState>()) {
  FState->Config.reset(FcInitLoadConfigAndFonts());
  if (FState->Config == nullptr) throw EFontError("fontconfig cannot read its configuration");
}

TFontCatalog::~TFontCatalog() = default;
TFontCatalog::TFontCatalog(TFontCatalog&&) noexcept = default;
TFontCatalog& TFontCatalog::operator=(TFontCatalog&&) noexcept = default;

std::optional<TFontFile> TFontCatalog::Find(const std::string& family, fmx::TFontWeight weight,
                                            fmx::TFontSlant slant) const {
  const TPattern request = Request(FState->Config.get(), family, weight, slant);
  NameStyle(request.get(), weight, slant);
  FcResult result = FcResultNoMatch;
  const TPattern found(FcFontMatch(FState->Config.get(), request.get(), &result));
  if (found == nullptr || !IsOutline(found.get())) return std::nullopt;
  if (!IsGeneric(family) && !HasFamily(found.get(), family)) return std::nullopt;
  return FileOf(found.get());
}

std::vector<TFontFile> TFontCatalog::Nearest(const std::string& family, fmx::TFontWeight weight) const {
  const TPattern request = Request(FState->Config.get(), family, weight, fmx::TFontSlant::Regular);
  FcResult result = FcResultNoMatch;
  const TFontSet fonts(FcFontSort(FState->Config.get(), request.get(), FcTrue, nullptr, &result));
  std::vector<TFontFile> files;
  if (fonts == nullptr) return files;
  for (int i = 0; i < fonts->nfont; ++i) {
    if (!IsOutline(fonts->fonts[i])) continue;
    if (auto file = FileOf(fonts->fonts[i])) files.push_back(std::move(*file));
  }
  return files;
}

}  // namespace orv::platform
