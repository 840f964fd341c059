// The outlines of the canvas's shapes.
#pragma once

#include <cstdint>

#include "fmx/PathData.h"
#include "rtl/Sets.h"

namespace fmx {

enum class TCorner : std::uint8_t { TopLeft, TopRight, BottomLeft, BottomRight };
using TCorners = rtl::TSet<TCorner, std::uint8_t>;
inline constexpr TCorners AllCorners{TCorner::TopLeft, TCorner::TopRight, TCorner::BottomLeft, TCorner::BottomRight};

// Round bulges outward, InnerRound inward; Bevel cuts the corner straight, InnerLine cuts a rectangle out.
enum class TCornerType : std::uint8_t { Round, Bevel, InnerRound, InnerLine };

// All shapes are one closed figure, clockwise from its top left part on the screen, and take reversed rectangles as the
// same ones turned round. A rectangle that is not finite gives an empty path.
TPathData RectanglePath(const TRectF& rect);

// The radii are held between 0 and half the rectangle's width and height. Corners that are not named stay square.
TPathData RoundRectPath(const TRectF& rect, float xRadius, float yRadius, TCorners corners = AllCorners,
                        TCornerType type = TCornerType::Round);

// The ellipse that touches the four sides.
TPathData EllipsePath(const TRectF& rect);

TPathData LinePath(TPointF from, TPointF to);

}  // namespace fmx
