// Texts as a page: a text layout for each paragraph, one below the other.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/Frame.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "tools/orv/show/Paragraphs.h"

namespace orv::show {

// A look for the units from Start up to but not including End, of each text.
struct TAttribute {
  std::int32_t Start = 0;
  std::int32_t End = 0;
  std::optional<fmx::TAlphaColor> Color;
  fmx::TFontStyles Style;
  double PointSize = 0;  // 0 for that of the text
};

struct TPageSettings {
  std::string Family;                    // empty: a book face for each script
  double PointSize = 18;                 // a point is 4/3 of a logical unit
  double Scale = 1;                      // device pixels of a logical unit
  std::optional<fmx::TTextAlign> Align;  // nothing: each paragraph to the side where it begins
  fmx::TTextTrimming Trimming = fmx::TTextTrimming::None;
  bool WordWrap = true;
  bool Boxes = false;  // the lines, runs and caret stops over the text
  std::vector<TAttribute> Attributes;
};

struct TColors {
  fmx::TAlphaColor Paper = 0xFFFCFBF8;
  fmx::TAlphaColor Ink = 0xFF24272B;
  fmx::TAlphaColor Title = 0xFF1D4D6B;
  fmx::TAlphaColor Rule = 0xFFD9D5CB;
};

using TText = std::vector<TParagraph>;

// Makes the system's layout that of the software canvas, and the installed fonts its glyphs. Opens no font.
void SetUpText();

// Raises platform::EFontNotFound where no such family is installed.
void RequireFamily(const std::string& family);

class TPage {
 public:
  // The texts are borrowed. A width that leaves no room for text still gives every letter a line.
  TPage(std::span<const TText> texts, const TPageSettings& settings, int width);

  // Logical units.
  int Width() const { return FWidth; }
  int Height() const { return FHeight; }

  struct TBlock {
    const TParagraph* Paragraph = nullptr;
    std::unique_ptr<TTextLayoutNGOrv> Layout;
    int Top = 0;
    int Height = 0;
  };
  std::span<TBlock> Blocks() { return FBlocks; }

  // The part of the page that begins top units below its upper edge, its left edge left units right of the frame's,
  // into a frame of that size in pixels. What lies beside the page is paper.
  platform::TFrame Paint(const TColors& colors, int left, int top, int pixelWidth, int pixelHeight);
  // The whole page.
  platform::TFrame Picture(const TColors& colors);

 private:
  void Add(const TParagraph& paragraph);
  void AddRule();
  std::unique_ptr<TTextLayoutNGOrv> LayOut(const TParagraph& paragraph, float size);
  void AddAttributes(TTextLayoutNGOrv& layout, const TParagraph& paragraph) const;
  void PaintBlock(TBlock& block, fmx::TCanvas& canvas, const TColors& colors, int left, int top);

  const TPageSettings FSettings;
  int FWidth;
  int FHeight = 0;
  int FMargin = 0;
  std::vector<TBlock> FBlocks;
  std::vector<int> FRules;  // places of the thin lines between two texts
};

// Draws the lines, runs and caret stops of a layout, where it stands.
void DrawBoxes(TTextLayoutNGOrv& layout, fmx::TCanvas& canvas);

// The frames of the paragraphs as JSON, an array of them for each text.
std::string Dump(TPage& page);

}  // namespace orv::show
