// Placing small rectangles into a large one.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "fmx/Geometry.h"

namespace fmx {

// Which free rectangle takes a new one: the one with the least area to spare, the least room left on its shorter or its
// longer side, or the most of these. Of equals the one that became free first.
enum class TFreeRectChoice : std::uint8_t {
  BestAreaFit = 0,
  BestShortSideFit = 1,
  BestLongSideFit = 2,
  WorstAreaFit = 3,
  WorstShortSideFit = 4,
  WorstLongSideFit = 5
};

// How the rest of that free rectangle, an L of a strip on the right and a strip below, is cut in two: the whole lower
// edge, or the whole right edge, goes with one piece. By the sides of what is left or of the free rectangle, or so that
// the smaller piece is as small (MinimizeArea) or as large (MaximizeArea) as can be.
enum class TGuillotineSplit : std::uint8_t {
  ShorterLeftoverAxis = 0,
  LongerLeftoverAxis = 1,
  MinimizeArea = 2,
  MaximizeArea = 3,
  ShorterAxis = 4,
  LongerAxis = 5
};

// A bin whose free room is a list of rectangles that never overlap. Rectangles are not turned, and never taken out
// again. Insert looks at every free rectangle once; there are at most as many as rectangles were placed, and one.
class TGuillotineBinPack {
 public:
  // Whole pixels; a side below 1 makes a bin that takes nothing, one above MaxBitmapSide is held at it.
  TGuillotineBinPack(std::int32_t width, std::int32_t height);

  // The place of a new rectangle of that size; an empty rectangle where none fits or a side is below 1. With merge,
  // free rectangles that share a whole side become one afterwards, at a cost of their number squared.
  TRect Insert(std::int32_t width, std::int32_t height, bool merge, TFreeRectChoice choice, TGuillotineSplit split);

  // The share of the bin that is taken, from 0 to 1; a bin that takes nothing is full.
  float Occupancy() const;

  std::int32_t Width() const { return FWidth; }
  std::int32_t Height() const { return FHeight; }
  std::span<const TRect> FreeRectangles() const { return FFree; }

 private:
  template <typename TScore>
  std::size_t BestFree(std::int32_t width, std::int32_t height, TScore score) const;
  std::size_t ChooseFree(std::int32_t width, std::int32_t height, TFreeRectChoice choice) const;
  void SplitFree(std::size_t index, std::int32_t width, std::int32_t height, TGuillotineSplit split);
  void MergeFree();

  std::int32_t FWidth;
  std::int32_t FHeight;
  std::int64_t FUsed = 0;  // pixels
  std::vector<TRect> FFree;
};

}  // namespace fmx
