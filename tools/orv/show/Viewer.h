// Shows texts in a window: scrolled with the wheel, the arrows, Page Up, Page Down, Home and End; zoomed with Ctrl and
// the wheel, +, - and 0; closed with Esc or Q.
#pragma once

#include <span>
#include <string>

#include "tools/orv/show/Page.h"

namespace orv::show {

struct TViewerSettings {
  std::string Title;
  TPageSettings Page;
  int Width = 0;  // the page's width at first, in logical units
};

// Returns when the window is closed. Raises platform::ENoDisplay before it opens where there is no display;
// opened is told the display driver's name once the window stands.
void View(std::span<const TText> texts, const TViewerSettings& settings, void (*opened)(const std::string& driver));

}  // namespace orv::show
