// Outlines in device pixels, cut to where a rasteriser with 24.8-bit fixed-point numbers keeps them exact.
#pragma once

#include <cstddef>
#include <vector>

#include "fmx/Matrix.h"
#include "fmx/PathData.h"

namespace orv::platform {

// Device pixels; doubles, since a matrix of floats can take a float beyond its range.
struct TDevicePoint {
  double X = 0;
  double Y = 0;
};

struct TOutlineStep {
  fmx::TPathPointKind Kind = fmx::TPathPointKind::MoveTo;
  TDevicePoint Point;
};
using TOutline = std::vector<TOutlineStep>;

// Areas are cut to this square around the origin; a bitmap has at most 32767 pixels on a side.
inline constexpr double OutlineRange = 65536;

// The path's area within OutlineRange. Steps are as in TPathData. The matrix is finite.
TOutline FillOutline(const fmx::TPathData& path, const fmx::TMatrix& deviceMatrix);

// A connected piece of a line. Lengths are logical units.
struct TStrokePiece {
  TOutline Steps;
  double Start = 0;   // how far along its figure it begins: where a dash pattern has got to
  double Length = 0;  // along its points, which for curves is an upper bound
};

// The path's lines within the square of that half side around the origin, in device pixels. The matrix is finite.
std::vector<TStrokePiece> StrokeOutlines(const fmx::TPathData& path, const fmx::TMatrix& deviceMatrix, double range);

}  // namespace orv::platform
