// The colours of the gallery, by what they are for.
#pragma once

#include "fmx/Colors.h"

namespace gallery {

struct TTheme {
  fmx::TAlphaColor Page;    // behind everything
  fmx::TAlphaColor Panel;   // the switches
  fmx::TAlphaColor Card;    // specimens
  fmx::TAlphaColor Line;    // hair lines and the outlines of boxes
  fmx::TAlphaColor Ink;     // text
  fmx::TAlphaColor Faint;   // captions
  fmx::TAlphaColor Accent;  // what is on
  fmx::TAlphaColor Second;  // another colour of text
  fmx::TAlphaColor Knob;    // on the accent
};

inline constexpr TTheme Light{0xFFF4F2EE, 0xFFFBFAF7, 0xFFFFFFFF, 0xFFE2DED6, 0xFF2B2A28,
                              0xFF8B867C, 0xFF2F7A6B, 0xFFB4532A, 0xFFFFFFFF};
inline constexpr TTheme Dark{0xFF1B1D20, 0xFF202327, 0xFF26292E, 0xFF373B42, 0xFFE6E3DC,
                             0xFF8F938F, 0xFF5FB8A4, 0xFFE39A6B, 0xFF16181A};

}  // namespace gallery
