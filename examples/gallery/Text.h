// Texts in boxes.
#pragma once

#include <memory>
#include <string_view>

#include "examples/gallery/Theme.h"
#include "fmx/Canvas.h"
#include "fmx/TextLayout.h"

namespace gallery {

struct TTextStyle {
  float Size = 14;
  fmx::TAlphaColor Color = fmx::TAlphaColors::Black;
  fmx::TTextAlign Horizontal = fmx::TTextAlign::Leading;
  fmx::TTextAlign Vertical = fmx::TTextAlign::Center;
  bool Wrap = false;
  fmx::TTextTrimming Trimming = fmx::TTextTrimming::None;
  std::u16string_view Family = u"DejaVu Sans";
};

// Book faces, each for its script.
inline constexpr std::u16string_view BookFamily = {};

// A layout made anew, by the settings of the moment.
std::unique_ptr<fmx::TTextLayout> Lay(fmx::TCanvas& canvas, const fmx::TRectF& box, std::u16string_view text,
                                      const TTextStyle& style);

void DrawText(fmx::TCanvas& canvas, const fmx::TRectF& box, std::u16string_view text, const TTextStyle& style);

// A paragraph from the top of the box on; answers its height.
float DrawParagraph(fmx::TCanvas& canvas, fmx::TRectF box, std::u16string_view text, TTextStyle style);

void FillRound(fmx::TCanvas& canvas, const fmx::TRectF& box, float radius, fmx::TAlphaColor color);
void OutlineRound(fmx::TCanvas& canvas, const fmx::TRectF& box, float radius, fmx::TAlphaColor color);

// A card with its caption above it, which takes that height.
inline constexpr float CardCaptionHeight = 30;
void DrawCard(fmx::TCanvas& canvas, const TTheme& theme, const fmx::TRectF& card, std::u16string_view caption);

}  // namespace gallery
