// What shapes are filled and stroked with.
#pragma once

#include <cstdint>

#include "fmx/Colors.h"

namespace fmx {

enum class TBrushKind : std::uint8_t { None, Solid };

// A fill of one colour, or none at all. A value type.
class TBrush {
 public:
  constexpr TBrush() = default;
  constexpr explicit TBrush(TAlphaColor color, TBrushKind kind = TBrushKind::Solid) : FKind(kind), FColor(color) {}

  constexpr TBrushKind Kind() const { return FKind; }
  constexpr void SetKind(TBrushKind kind) { FKind = kind; }
  constexpr TAlphaColor Color() const { return FColor; }
  constexpr void SetColor(TAlphaColor color) { FColor = color; }

  // Whether nothing of it would be seen.
  constexpr bool IsInvisible() const { return FKind == TBrushKind::None || AlphaOf(FColor) == 0; }

  friend constexpr bool operator==(const TBrush&, const TBrush&) = default;

 private:
  TBrushKind FKind = TBrushKind::Solid;
  TAlphaColor FColor = TAlphaColors::Black;
};

// The lengths of dashes and gaps are multiples of the thickness: Dash 3 1, Dot 1 1, DashDot 3 1 1 1, DashDotDot
// 3 1 1 1 1 1.
enum class TStrokeDash : std::uint8_t { Solid = 0, Dash = 1, Dot = 2, DashDot = 3, DashDotDot = 4 };
enum class TStrokeCap : std::uint8_t { Flat, Round };
enum class TStrokeJoin : std::uint8_t { Miter, Round, Bevel };

// A brush with the form of a pen. A value type.
class TStrokeBrush : public TBrush {
 public:
  constexpr TStrokeBrush() = default;
  constexpr explicit TStrokeBrush(TAlphaColor color, float thickness = 1, TStrokeDash dash = TStrokeDash::Solid)
      : TBrush(color), FThickness(thickness), FDash(dash) {}

  // In logical units, 1 at first. One that is not above 0 draws nothing.
  constexpr float Thickness() const { return FThickness; }
  constexpr void SetThickness(float thickness) { FThickness = thickness; }
  constexpr TStrokeDash Dash() const { return FDash; }
  constexpr void SetDash(TStrokeDash dash) { FDash = dash; }
  constexpr TStrokeCap Cap() const { return FCap; }
  constexpr void SetCap(TStrokeCap cap) { FCap = cap; }
  constexpr TStrokeJoin Join() const { return FJoin; }
  constexpr void SetJoin(TStrokeJoin join) { FJoin = join; }

  friend constexpr bool operator==(const TStrokeBrush&, const TStrokeBrush&) = default;

 private:
  float FThickness = 1;
  TStrokeDash FDash = TStrokeDash::Solid;
  TStrokeCap FCap = TStrokeCap::Flat;
  TStrokeJoin FJoin = TStrokeJoin::Miter;
};

}  // namespace fmx
