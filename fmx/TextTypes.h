// The small words of text: ranges, caret positions, alignment. Positions are 0-based UTF-16 code units.
#pragma once

#include <cstdint>

#include "fmx/Geometry.h"

namespace fmx {

// Length code units from Pos on.
struct TTextRange {
  std::int32_t Pos = 0;
  std::int32_t Length = 0;
  friend constexpr bool operator==(const TTextRange&, const TTextRange&) = default;
};

// A place in a text of several lines: the line and the code unit within it, both 0-based.
struct TCaretPosition {
  std::int32_t Line = 0;
  std::int32_t Pos = 0;

  constexpr bool IsInvalid() const { return Line < 0 || Pos < 0; }
  friend constexpr bool operator==(const TCaretPosition&, const TCaretPosition&) = default;
};
inline constexpr TCaretPosition InvalidCaretPosition{-1, -1};
inline constexpr TCaretPosition ZeroCaretPosition{0, 0};

// Where a text stands in its box. Leading is the left side, or the top one.
enum class TTextAlign : std::uint8_t { Center = 0, Leading = 1, Trailing = 2 };

// What becomes of a line that does not fit.
enum class TTextTrimming : std::uint8_t { None, Character, Word };

// The direction of a form or control.
enum class TBiDiMode : std::uint8_t { LeftToRight = 0, RightToLeft = 1 };

// The box of a layout that nothing limits.
inline constexpr TPointF MaxLayoutSize{MaxLayoutSide, MaxLayoutSide};

}  // namespace fmx
