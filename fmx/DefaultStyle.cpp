#include "fmx/DefaultStyle.h"

#include <string_view>
#include <utility>

#include "fmx/Root.h"
#include "fmx/Services.h"
#include "fmx/Style.h"

namespace fmx {
namespace {

struct TColors {
  TAlphaColor Background;
  TAlphaColor Paper;
  TAlphaColor Border;
  TAlphaColor Text;
  TAlphaColor Selection;  // the text shines through, for it is painted first
  TAlphaColor SelectedText;
  TAlphaColor Caret;
};

constexpr TColors Light{0xFFF3F4F6, 0xFFFFFFFF, 0xFFB6BCC6, 0xFF1B1F24, 0x553B82F6, 0xFF1B1F24, 0xFF1D4ED8};
constexpr TColors Dark{0xFF16181D, 0xFF22262E, 0xFF4A5260, 0xFFE7EAF0, 0x6660A5FA, 0xFFE7EAF0, 0xFF93C5FD};

TStylePalette Palette = TStylePalette::Light;

const TColors& ColorsOf(TStylePalette palette) {
  return palette == TStylePalette::Dark ? Dark : Light;
}

constexpr float BoxRadius = 4;
constexpr float BoxBorder = 1;
constexpr float FocusBorder = 1.5F;
constexpr TBounds ContentMargins{6, 0, 6, 0};
constexpr float PromptOpacity = 0.5F;

template <typename T>
T& AddPart(TControl& style, std::string_view name, std::unique_ptr<T> part) {
  part->SetStyleName(name);
  T& added = style.InsertComponent(std::move(part));
  if constexpr (std::is_base_of_v<TControl, T>) added.SetParent(&style);
  return added;
}

// Keeps its background as large as itself, and its line in the colour of the caret while the focus is in the box.
class TBoxStyle : public TControl {
 public:
  explicit TBoxStyle(const TColors& colors)
      : FColors(colors),
        FBackground(AddPart(
            *this, "background",
            std::make_unique<TRectangle>(TBrush(colors.Paper), TStrokeBrush(colors.Border, BoxBorder), BoxRadius))) {}

 protected:
  void Resize() override { FBackground.SetSize(Size()); }
  void Paint(TCanvas& /*canvas*/) override {
    FBackground.SetStroke(HasFocus() ? TStrokeBrush(FColors.Caret, FocusBorder)
                                     : TStrokeBrush(FColors.Border, BoxBorder));
  }

 private:
  bool HasFocus() const {
    for (const TControl* each = Parent(); each != nullptr; each = each->Parent())
      if (const auto* const control = dynamic_cast<const TFocusable*>(each)) return control->IsFocused();
    return false;
  }

  const TColors& FColors;
  TRectangle& FBackground;
};

void AddHandle(TControl& style, std::string_view name, TAlphaColor color) {
  auto& handle = AddPart(style, name, std::make_unique<TSelectionPoint>());
  handle.SetColor(color);
  handle.SetVisible(false);
}

}  // namespace

TStylePalette DefaultStylePalette() {
  return Palette;
}
void SetDefaultStylePalette(TStylePalette palette) {
  Palette = palette;
}
TAlphaColor StyleBackgroundColor(TStylePalette palette) {
  return ColorsOf(palette).Background;
}
TAlphaColor StyleForegroundColor(TStylePalette palette) {
  return ColorsOf(palette).Text;
}

TAlphaColor StylePaperColor(TStylePalette palette) {
  return ColorsOf(palette).Paper;
}
TAlphaColor StyleBorderColor(TStylePalette palette) {
  return ColorsOf(palette).Border;
}
TAlphaColor StyleAccentColor(TStylePalette palette) {
  return ColorsOf(palette).Caret;
}

std::unique_ptr<TControl> DefaultEditStyle() {
  const TColors& colors = ColorsOf(Palette);
  auto style = std::make_unique<TBoxStyle>(colors);
  AddPart(*style, "leftbuttons", std::make_unique<TControl>());
  AddPart(*style, "buttons", std::make_unique<TControl>());
  AddPart(*style, "prompt", std::make_unique<TTextObject>()).SetOpacity(PromptOpacity);
  AddPart(*style, "content", std::make_unique<TControl>()).SetMargins(ContentMargins);
  AddPart(*style, "selection", std::make_unique<TBrushObject>(TBrush(colors.Selection)));
  AddPart(*style, "foreground", std::make_unique<TBrushObject>(TBrush(colors.Text)));
  AddPart(*style, "selectionfg", std::make_unique<TBrushObject>(TBrush(colors.SelectedText)));
  AddPart(*style, "caretcolor", std::make_unique<TColorObject>(colors.Caret));
  AddPart(*style, "font", std::make_unique<TFontObject>(TFont(DefaultFontFamily(), DefaultFontSize())));
  AddHandle(*style, "leftselectionpoint", colors.Caret);
  AddHandle(*style, "rightselectionpoint", colors.Caret);
  return style;
}

}  // namespace fmx
