// Layouts over glyphs of fixed sizes, in device pixels at scale 1: a glyph 10 wide, the blank 5, marks 0, lines 20 high
// with the base line at 16.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "fmx/FixedGlyphs.h"
#include "rtl/Strings.h"
#include "textlayout/Orv.FontGlyphs.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv::testing {

// The fixed glyphs and the plain rules, while it lives.
class TFixedScope {
 public:
  TFixedScope() {
    TFontGlyphManagerOrv::SetCurrent(std::make_unique<TBackEndFontGlyphManager>(std::make_unique<fmx::TFixedGlyphs>()));
    TOrvGlobalSettings::Corrections = {};
  }
  ~TFixedScope() {
    TFontGlyphManagerOrv::SetCurrent(nullptr);
    TOrvGlobalSettings::Corrections = AllCorrections;
  }
  TFixedScope(const TFixedScope&) = delete;
  TFixedScope& operator=(const TFixedScope&) = delete;
};

class TFixedTest : public ::testing::Test {
 private:
  TFixedScope FScope;
};

using TSetUp = std::function<void(TTextLayoutNGOrv&)>;

// The rendered layout of a text in a box 100 high.
inline std::unique_ptr<TTextLayoutNGOrv> Laid(std::u16string_view text, float width, const TSetUp& setUp = {}) {
  auto layout = std::make_unique<TTextLayoutNGOrv>();
  layout->BeginUpdate();
  layout->SetMaxSize({width, 100});
  if (setUp) setUp(*layout);
  layout->SetText(text);
  layout->EndUpdate();
  return layout;
}

// Numbers and texts by chance, the same in every run of the program.
class TChance {
 public:
  explicit TChance(std::uint32_t seed) : FRandom(seed) {}

  std::int32_t Below(std::int32_t limit) {
    return static_cast<std::int32_t>(FRandom() % static_cast<std::uint32_t>(limit));
  }
  // Fewer than that many of the pieces, one behind the other.
  std::u16string Text(std::span<const std::u16string> pieces, std::int32_t limit) {
    std::u16string text;
    for (std::int32_t i = Below(limit); i > 0; --i)
      text += pieces[static_cast<std::size_t>(Below(static_cast<std::int32_t>(pieces.size())))];
    return text;
  }

 private:
  std::mt19937 FRandom;
};

inline void Wrapped(TTextLayoutNGOrv& layout) {
  layout.SetWordWrap(true);
}

inline std::string Shown(float number) {
  std::string text = std::to_string(number);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

// "0+2 L 0-20": start, length, direction and extent, and what became of the run.
inline std::string Shown(const TGPURun& run) {
  return std::to_string(run.StartIndex()) + "+" + std::to_string(run.Length()) + (run.RightToLeft() ? " R " : " L ") +
         Shown(run.ImageRect().Left) + "-" + Shown(run.ImageRect().Right) + (run.Trimmed() ? " trimmed" : "") +
         (run.Clipped() ? " clipped" : "");
}

// "0,20 w30: 0+2 L 0-20 | 2+1 R 20-30": the place and width of the line, and its runs in item order.
inline std::string Shown(const TGPULine& line) {
  std::string text = Shown(line.TopLeft().X) + "," + Shown(line.TopLeft().Y) + " w" + Shown(line.Width()) + ":";
  for (std::int32_t i = 0; i < line.Count(); ++i) text += (i == 0 ? " " : " | ") + Shown(line.Item(i));
  return text;
}

inline std::vector<std::string> Lines(const TTextLayoutNGOrv& layout) {
  std::vector<std::string> lines;
  for (std::int32_t i = 0; i < layout.Frame().Count(); ++i) lines.push_back(Shown(layout.Frame().Line(i)));
  return lines;
}

using TTexts = std::vector<std::string>;
using TList = std::vector<std::int32_t>;

inline TList OrderOf(const TGPULine& line) {
  return {line.VisualOrderList().begin(), line.VisualOrderList().end()};
}

// The extents of boxes, "20-30 35-40".
inline std::string Extents(const fmx::TRegion& region) {
  std::string text;
  for (const fmx::TRectF& rect : region) text += (text.empty() ? "" : " ") + Shown(rect.Left) + "-" + Shown(rect.Right);
  return text;
}

inline std::int32_t Hit(TTextLayoutNGOrv& layout, float x, float y = 5) {
  return layout.PositionAtPoint({x, y});
}

// The memory of runs and lines that belong to no layout. By the plain rules.
inline TFrameStore& PlainStore() {
  static TFrameStore store;
  return store;
}

inline TStored<TGPURun> RunOf(std::u16string_view text, bool rightToLeft = true, TFrameStore& store = PlainStore()) {
  auto run = store.New<TGPURun>(store);
  run->SetText(text, 0, static_cast<std::int32_t>(text.size()), rightToLeft);
  run->PrepareComplexArabicCombinations();
  return run;
}

inline const std::u16string Salam = u"\u0633\u0644\u0627\u0645";  // folds to three atoms
inline const std::u16string Donya = u"\u062F\u0646\u06CC\u0627";
inline const std::u16string LamAlef = u"\u0644\u0627";

}  // namespace orv::testing
