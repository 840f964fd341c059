// Text layouts of the house and of those that people use today, in the same font and box, and the texts they lay out.
#pragma once

#include <hb.h>

#include <QFont>
#include <QString>
#include <QTextLayout>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "bench/support/Corpus.h"
#include "fmx/Geometry.h"
#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv::bench {

inline constexpr int FontPixels = 16;  // of DejaVu Sans
inline constexpr float BoxWidth = 400;

enum class TLines : std::uint8_t { Wrapped, One };

// The first paragraphs of a corpus: enough that no branch predictor learns them by heart, few enough that the slowest
// peer takes some hundredths of a second. No two neighbours are alike, since setting the text that a layout has already
// costs a comparison and no more. The corpus must outlive it.
class TParagraphs {
 public:
  static constexpr std::int64_t MostUnits = 60'000;

  explicit TParagraphs(const TCorpus& corpus);

  std::span<const std::u16string_view> Texts() const { return FTexts; }
  std::int64_t Units() const { return FUnits; }

 private:
  std::vector<std::u16string_view> FTexts;
  std::int64_t FUnits = 0;
};

// From now on the glyphs of the house are those of the installed fonts.
void UseGlyphs();

// DejaVu Sans of FontPixels. Starts Qt, which has fonts while its application lives, without a screen.
QFont QtFont();

// An empty layout of the house, its glyphs being those of the benchmarks from now on.
std::unique_ptr<TTextLayoutNGOrv> MakeLayout(TLines lines);

// Qt: beginLayout, a line at a time, endLayout. Glyph caching is off, as it is by default.
class TQtLayout {
 public:
  explicit TQtLayout(TLines lines);
  TQtLayout(const TQtLayout&) = delete;
  TQtLayout& operator=(const TQtLayout&) = delete;

  // False where Qt has another font in its place.
  static bool HasFont();

  // Lays the text out and returns the height of its lines.
  double SetText(const QString& text);

  int LineCount() const { return FLayout.lineCount(); }
  double Height() const { return FHeight; }
  double Width() const;  // of the widest line
  void Draw(QPainter& painter) const { FLayout.draw(&painter, {0, 0}); }

  // The line is found by search over the lines' tops, then QTextLine::xToCursor.
  int PositionAtPoint(double x, double y) const;
  // The box of one unit: lineForTextPosition, then QTextLine::cursorToX of both its ends.
  fmx::TRectF RegionOf(int position) const;

 private:
  QTextLine LineAt(double y) const;

  QTextLayout FLayout;
  double FLineWidth;
  double FHeight = 0;
};

QString ToQt(std::u16string_view text);

// HarfBuzz's hb_shape over a whole paragraph in one buffer that is used again: direction, script and language guessed,
// no lines, no bidirectional order.
class THarfBuzz {
 public:
  THarfBuzz();
  THarfBuzz(const THarfBuzz&) = delete;
  THarfBuzz& operator=(const THarfBuzz&) = delete;

  bool HasFont() const { return FFont != nullptr; }

  // The advance of the whole, in 64ths of a pixel.
  std::int64_t Shape(std::u16string_view paragraph);

 private:
  struct TFree {
    void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
    void operator()(hb_font_t* font) const { hb_font_destroy(font); }
  };
  std::unique_ptr<hb_font_t, TFree> FFont;
  std::unique_ptr<hb_buffer_t, TFree> FBuffer;
};

// Numbers that are the same in every run.
class TScattered {
 public:
  std::size_t Below(std::size_t limit) {
    FState = FState * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::size_t>(FState >> 33) % limit;
  }
  // From 0 to the limit.
  float Within(float limit) { return limit * static_cast<float>(Below(1 << 20)) / (1 << 20); }

 private:
  std::uint64_t FState = 7;
};

}  // namespace orv::bench
