// The direction of the text in a single-line box.
#pragma once

#include <string_view>

#include "editing/Orv.Edit.View.h"

namespace orv {

struct TTextDirection {
  // Otherwise a layout decides by its text, as it does by the rules.
  bool IsSettled = false;
  bool RightToLeft = false;
  // Of a text without a letter.
  bool NeutralsRightToLeft = true;
};

// Of the text in the box, by the corrections in force (TOrvCorrection::Direction and NeutralDirection): trailing text
// reads from right to left; other text as its first letter does, so that a Persian sentence keeps its order in a leading
// box too. Without a letter leading text reads from left to right, and centred text as the form.
TTextDirection DirectionOf(const IEditBox& box, std::u16string_view text);

// Has the layout lay out its text in that direction.
void SetDirection(fmx::TTextLayout& layout, const TTextDirection& direction);

}  // namespace orv
