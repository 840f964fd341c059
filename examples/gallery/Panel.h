// The panel that tells what the box with the focus is doing.
#pragma once

#include <string_view>

#include "examples/gallery/State.h"
#include "examples/gallery/Theme.h"
#include "fmx/Canvas.h"

namespace gallery {

// Its facts in a row, and below them the text unit by unit, in the order in which it is stored: the caret stands
// between two of them, and the selection behind. Of a long text the part around the caret is shown.
void PaintPanel(fmx::TCanvas& canvas, const TTheme& theme, const fmx::TRectF& box, std::u16string_view caption,
                const TBoxState& state);

// Its height, whatever the width.
inline constexpr float PanelHeight = 190;

}  // namespace gallery
