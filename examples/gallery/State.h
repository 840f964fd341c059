// What an edit box is doing, in numbers.
#pragma once

#include <cstdint>
#include <string>

#include "fmx/Edit.h"
#include "fmx/Geometry.h"

namespace gallery {

struct TBoxState {
  std::u16string Text;  // with what is being composed
  std::u16string Composing;
  std::u16string Selected;
  std::int32_t Caret = 0;  // in the text with what is being composed
  std::int32_t SelStart = 0;
  std::int32_t SelLength = 0;
  std::int32_t FirstVisible = 1;  // 1-based
  bool RightToLeft = false;
  fmx::TPointF CaretPlace;  // the middle of the caret, in the window

  // The ends of the selection, in the text with what is being composed.
  std::int32_t Begin() const;
  std::int32_t End() const;

  friend bool operator==(const TBoxState&, const TBoxState&) = default;
};

// The edit has its presentation.
TBoxState StateOf(fmx::TCustomEdit& edit);

// In quotes, as JSON has it.
std::string Quoted(std::u16string_view text);

}  // namespace gallery
