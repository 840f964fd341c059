// The built-in styles: plain boxes on paper, in two palettes.
#pragma once

#include <cstdint>
#include <memory>

#include "fmx/Colors.h"
#include "fmx/Control.h"

namespace fmx {

enum class TStylePalette : std::uint8_t { Light, Dark };

// Which of the two styles made from now on take; Light at first. Main thread.
TStylePalette DefaultStylePalette();
void SetDefaultStylePalette(TStylePalette palette);

// What stands behind all controls, and text on it.
TAlphaColor StyleBackgroundColor(TStylePalette palette);
TAlphaColor StyleForegroundColor(TStylePalette palette);
// Of boxes and what opens over them: the paper, the line around it, and what shows where the focus is.
TAlphaColor StylePaperColor(TStylePalette palette);
TAlphaColor StyleBorderColor(TStylePalette palette);
TAlphaColor StyleAccentColor(TStylePalette palette);

// A single-line box: "background", "content", "prompt", "buttons", "leftbuttons", "selection", "foreground",
// "selectionfg", "caretcolor", "font", "leftselectionpoint", "rightselectionpoint".
std::unique_ptr<TControl> DefaultEditStyle();

}  // namespace fmx
