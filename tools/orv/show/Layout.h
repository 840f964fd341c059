// Fills the lines of a page: words in reading order until a line is full, then each line's runs in their visual order.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/GlyphSource.h"
#include "tools/orv/show/Paragraphs.h"

namespace orv::show {

// The fonts of a page: one for its text, one for its titles. Both are borrowed.
struct TFace {
  platform::TGlyphSource* Glyphs = nullptr;
  double PixelSize = 0;
};
struct TFaces {
  TFace Text;
  TFace Title;
};

// A stretch of one run within a line; the last atom is not included.
struct TPiece {
  const TRun* Run = nullptr;
  std::size_t First = 0;
  std::size_t Last = 0;
  float Width = 0;
};

struct TLine {
  std::vector<TPiece> Pieces;  // from left to right
  float Left = 0;              // of the first piece, from the page's left edge
  int BaseLine = 0;            // from the page's top
  bool Title = false;
};

struct TPage {
  std::vector<TLine> Lines;  // from the top
  std::vector<int> Rules;    // places of the thin lines between two texts, from the page's top
  int Width = 0;
  int Height = 0;
};

// The paragraphs are borrowed: the page's lines point to their runs. Widths are pixels; a width that leaves no room for
// text still gives every letter a line.
TPage LayOut(std::span<const std::vector<TParagraph>> texts, const TFaces& faces, int width);

// The room that lines keep above and below their base line.
int LineHeight(double pixelSize);

}  // namespace orv::show
