#include "tools/orv/show/Fonts.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace orv::show {
namespace {

constexpr double PixelsPerPoint = 96.0 / 72.0;
constexpr double TitleScale = 1.45;

// Book faces first, each for its script (the Latin one has the digits and the marks for all); then the two that between
// them have every presentation form.
const std::vector<std::string>& Families() {
  static const std::vector<std::string> families = {"Noto Serif", "Noto Naskh Arabic", "Noto Serif Hebrew",
                                                    "DejaVu Sans", "FreeSerif"};
  return families;
}

// A face chosen by name is helped out by the sans faces, which are not tied to one script.
std::vector<std::string> FallbacksOf(const std::string& family) {
  if (family.empty()) return Families();
  std::vector<std::string> families = Families();
  std::rotate(families.begin(), families.begin() + 3, families.end());
  return families;
}

platform::TFontRequest Request(const std::string& family, double pixelSize, bool bold) {
  return {family, FallbacksOf(family), std::clamp(pixelSize, 1.0, platform::MaxPixelSize),
          bold ? fmx::TFontWeight::Bold : fmx::TFontWeight::Regular};
}

}  // namespace

TPageFonts::TPageFonts(const platform::TFontCatalog& catalog, const TFontSettings& settings)
    : FTextSize(settings.PointSize * PixelsPerPoint),
      FTitleSize(FTextSize * TitleScale),
      FText(catalog, Request(settings.Family, FTextSize, false)),
      FTitle(catalog, Request(settings.Family, FTitleSize, true)) {}

}  // namespace orv::show
