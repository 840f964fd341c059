// The golden pictures: texts through the real layout, the pinned fonts and the software canvas.
#pragma once

#include <functional>
#include <span>
#include <string>

#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv::golden {

struct TScene {
  const char* Name;
  const char16_t* Text;
  std::function<void(TTextLayoutNGOrv&)> SetUp = {};  // of a layout of DejaVu Sans 20 in the whole box
  float Width = 300;                                  // of the box, logical units
  float Height = 40;
  float Scale = 1;
  enum class TWay { Layout, Outline, Answers } Way = TWay::Layout;  // Answers: with the boxes of its units
};

std::span<const TScene> Scenes();

}  // namespace orv::golden
