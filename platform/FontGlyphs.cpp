#include "platform/FontGlyphs.h"

#include <algorithm>
#include <list>
#include <utility>

#include "platform/CharacterSource.h"
#include "platform/Shaper.h"

namespace orv::platform {
namespace {

// Attributed texts go back and forth between a few fonts.
constexpr std::size_t OpenFonts = 8;

bool IsSame(const fmx::TFontWanted& a, const fmx::TFontWanted& b) {
  return a.PixelSize == b.PixelSize && a.Weight == b.Weight && a.Slant == b.Slant && a.Family == b.Family &&
         a.File == b.File;
}

class TFontSources : public fmx::IFontSources {
 public:
  explicit TFontSources(TFontChain chain) : FChain(std::move(chain)) {}

  fmx::ICharacterSource& Open(const fmx::TFontWanted& font) override { return Opened(FSources, font); }
  bool NeedsShaping(const fmx::TFontWanted& font) override {
    return !(font.Family.empty() && font.File.empty()) && Opened(FSources, font).NeedsShaping();
  }
  bool CanShape() const override { return true; }
  fmx::TShapedText Shape(const fmx::TFontWanted& font, const fmx::TShapeRequest& request) override {
    return Opened(FShapers, font).Shape(request);
  }

 private:
  // The last one used first.
  template <typename T>
  using TOpen = std::list<std::pair<fmx::TFontWanted, std::unique_ptr<T>>>;

  template <typename T>
  T& Opened(TOpen<T>& open, const fmx::TFontWanted& font) const {
    const auto found =
        std::find_if(open.begin(), open.end(), [&](const auto& each) { return IsSame(each.first, font); });
    if (found != open.end()) {
      open.splice(open.begin(), open, found);
    } else {
      open.emplace_front(font, std::make_unique<T>(SharedCatalog(), font, FChain));
      if (open.size() > OpenFonts) open.pop_back();
    }
    return *open.front().second;
  }

  TFontChain FChain;
  TOpen<TCharacterSource> FSources;
  TOpen<TShaper> FShapers;
};

}  // namespace

TFontChain TFontChain::Plain() {
  return {"DejaVu Sans", {"FreeSerif"}};
}

TFontChain TFontChain::Naskh() {
  return {"Noto Naskh Arabic", {"Noto Serif", "Noto Serif Hebrew", "DejaVu Sans", "FreeSerif"}};
}

TFontChain TFontChain::Sans() {
  return {"Noto Sans Arabic", {"Noto Sans", "Noto Sans Hebrew", "DejaVu Sans", "FreeSerif"}};
}

std::unique_ptr<fmx::IFontSources> MakeFontSources(TFontChain chain) {
  return std::make_unique<TFontSources>(std::move(chain));
}

std::unique_ptr<fmx::TFontGlyphBackEnd> MakeFontGlyphs(TFontChain chain) {
  return std::make_unique<fmx::TCellGlyphs>(MakeFontSources(std::move(chain)));
}

void RegisterFontGlyphs(const TFontChain& chain) {
  fmx::TFontGlyphManager::RegisterBackEnd([chain] { return MakeFontGlyphs(chain); });
}

}  // namespace orv::platform
