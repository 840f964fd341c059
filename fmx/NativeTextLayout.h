// A text layout whose lines the operating system's own text engine makes: what is asked of that engine.
#pragma once

#include <cstdint>
#include <span>

#include "fmx/TextLayout.h"

namespace fmx {

// A stretch of text that a native engine found. Lengths are logical units.
struct TNativeHitMetrics {
  std::uint32_t TextPosition = 0;  // UTF-16 code units
  std::uint32_t Length = 0;
  float Left = 0;  // of its box
  float Top = 0;
  float Width = 0;
  float Height = 0;
  std::uint32_t BidiLevel = 0;  // even where it reads from left to right
};

// Of the whole text, in logical units.
struct TNativeTextMetrics {
  float Left = 0;
  float Top = 0;
  float Width = 0;
  float WidthIncludingTrailingWhitespace = 0;
  float Height = 0;
};

// A laid-out text of a native engine.
class INativeTextLayout {
 public:
  virtual ~INativeTextLayout() = default;
  // The stretch nearest to the point, which is seen from the corner of the text; trailing where the point is in its
  // second half, inside where the point is in the text at all.
  virtual TNativeHitMetrics HitTestPoint(float x, float y, bool& trailing, bool& inside) = 0;
  // The stretches of a range, as many as there is room for; answers how many.
  virtual std::size_t HitTestTextRange(std::uint32_t position, std::uint32_t length, float originX, float originY,
                                       std::span<TNativeHitMetrics> stretches) = 0;
};

// The base of layouts of that kind.
class TNativeTextLayout : public TTextLayout {
 public:
  static constexpr int SlotCount = TTextLayout::SlotCount;

  // Null before the first render and where the engine failed. Borrowed.
  virtual INativeTextLayout* NativeLayout() = 0;
  virtual TNativeTextMetrics NativeMetrics() const = 0;

 protected:
  using TTextLayout::TTextLayout;
};

}  // namespace fmx
