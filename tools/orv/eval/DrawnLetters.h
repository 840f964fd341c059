// The letters of a single-line box as a paint draws them: out of the pictures that the canvas is handed.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "fmx/RecordingCanvas.h"
#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv::eval {

// In the coordinates of the canvas. A letter that a ligature stands for has the ligature's box, and a mark without an
// advance a box without width.
struct TDrawnLetter {
  std::int32_t Unit = 0;
  fmx::TRectF Box;
  bool IsSeen = false;  // some of it is inside the clip
  bool RightToLeft = false;
};

// What the layout drew, at that corner, with those calls; units of the layout's text, in that order. A letter without a
// picture among the calls was not drawn. The calls that were not clipped away tell of the clip: without any, nothing is
// seen.
std::vector<TDrawnLetter> LettersDrawn(const TTextLayoutNGOrv& layout, fmx::TPointF corner,
                                       std::span<const fmx::TRecordedCall> calls,
                                       std::span<const fmx::TRecordedCall> clipped);

// The dots of a password from a first unit on, each with the room of its cell.
std::vector<TDrawnLetter> DotsDrawn(std::int32_t first, float cell, std::span<const fmx::TRecordedCall> calls);

}  // namespace orv::eval
