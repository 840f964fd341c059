// Points, sizes and rectangles. Coordinates are 32-bit floats in logical units unless a function says pixels; Y grows
// downward. Plain values without invariants: a rectangle may be reversed (Right < Left or Bottom < Top).
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "fmx/Limits.h"

namespace fmx {

// Whole pixels.
struct TPoint {
  std::int32_t X = 0;
  std::int32_t Y = 0;
  friend constexpr bool operator==(const TPoint&, const TPoint&) = default;
};

struct TPointF {
  float X = 0;
  float Y = 0;

  constexpr TPointF operator+(TPointF b) const { return {X + b.X, Y + b.Y}; }
  constexpr TPointF operator-(TPointF b) const { return {X - b.X, Y - b.Y}; }
  constexpr TPointF operator*(float factor) const { return {X * factor, Y * factor}; }
  bool IsFinite() const { return std::isfinite(X) && std::isfinite(Y); }
  friend constexpr bool operator==(const TPointF&, const TPointF&) = default;
};

struct TSizeF {
  float Width = 0;
  float Height = 0;
  friend constexpr bool operator==(const TSizeF&, const TSizeF&) = default;
};

// A size that stands for "not measured yet".
inline constexpr TSizeF InvalidSize{-1, -1};

// The distances kept free inside a box, or the sides of a margin.
struct TBounds {
  float Left = 0;
  float Top = 0;
  float Right = 0;
  float Bottom = 0;
  friend constexpr bool operator==(const TBounds&, const TBounds&) = default;
};

// A rectangle of whole pixels; Right and Bottom are just outside it.
struct TRect {
  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t Right = 0;
  std::int32_t Bottom = 0;

  constexpr std::int32_t Width() const { return Right - Left; }
  constexpr std::int32_t Height() const { return Bottom - Top; }
  constexpr bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
  friend constexpr bool operator==(const TRect&, const TRect&) = default;
};

struct TRectF {
  float Left = 0;
  float Top = 0;
  float Right = 0;
  float Bottom = 0;

  static constexpr TRectF FromSize(TPointF topLeft, float width, float height) {
    return {topLeft.X, topLeft.Y, topLeft.X + width, topLeft.Y + height};
  }
  static constexpr TRectF From(const TRect& r) {
    return {static_cast<float>(r.Left), static_cast<float>(r.Top), static_cast<float>(r.Right),
            static_cast<float>(r.Bottom)};
  }

  constexpr float Width() const { return Right - Left; }
  constexpr float Height() const { return Bottom - Top; }
  constexpr TPointF TopLeft() const { return {Left, Top}; }
  constexpr TPointF Center() const { return {(Left + Right) / 2, (Top + Bottom) / 2}; }

  // Without area: also when reversed, or when a side is no number.
  constexpr bool IsEmpty() const { return !(Right > Left && Bottom > Top); }
  bool IsFinite() const { return TopLeft().IsFinite() && TPointF{Right, Bottom}.IsFinite(); }

  // Inside, the left and top edges included, the right and bottom ones not: the points of adjoining rectangles are in
  // one of them.
  constexpr bool Contains(TPointF p) const { return p.X >= Left && p.X < Right && p.Y >= Top && p.Y < Bottom; }

  // Inside or so near to it, all four edges included.
  constexpr bool Touches(TPointF p, float tolerance = 0) const {
    return p.X >= Left - tolerance && p.X <= Right + tolerance && p.Y >= Top - tolerance && p.Y <= Bottom + tolerance;
  }

  constexpr TRectF Offset(float x, float y) const { return {Left + x, Top + y, Right + x, Bottom + y}; }
  constexpr TRectF Offset(TPointF by) const { return Offset(by.X, by.Y); }
  // Smaller by that much on each side.
  constexpr TRectF Inset(float x, float y) const { return {Left + x, Top + y, Right - x, Bottom - y}; }
  // Smaller by the padding.
  constexpr TRectF Inset(const TBounds& by) const {
    return {Left + by.Left, Top + by.Top, Right - by.Right, Bottom - by.Bottom};
  }
  // The same rectangle, not reversed.
  constexpr TRectF Normalized() const {
    return {std::min(Left, Right), std::min(Top, Bottom), std::max(Left, Right), std::max(Top, Bottom)};
  }

  // What both cover; empty, and perhaps reversed, where they do not meet.
  constexpr TRectF Intersect(const TRectF& b) const {
    return {std::max(Left, b.Left), std::max(Top, b.Top), std::min(Right, b.Right), std::min(Bottom, b.Bottom)};
  }

  // The smallest rectangle around both. One that is empty takes the other whole, be that one empty too: so a sum that
  // starts empty keeps a first part of width 0, such as a caret. An empty part adds nothing to a sum that is not.
  constexpr TRectF Union(const TRectF& b) const {
    if (IsEmpty()) return b;
    if (b.IsEmpty()) return *this;
    return {std::min(Left, b.Left), std::min(Top, b.Top), std::max(Right, b.Right), std::max(Bottom, b.Bottom)};
  }

  friend constexpr bool operator==(const TRectF&, const TRectF&) = default;
};

// The rectangles that cover a range of text, line by line.
using TRegion = std::vector<TRectF>;

}  // namespace fmx
