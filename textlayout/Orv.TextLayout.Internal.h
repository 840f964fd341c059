// The internal text layout of a run: what breaks, measures and draws a run whose font only the platform's own text
// engine can shape.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "fmx/Canvas.h"
#include "fmx/Geometry.h"

namespace orv {

class TGPURun;
class TTextLayoutNGOrv;

// The logic that is the same for every engine, over four operations that the engine supplies. Text is the whole text of
// the layout; positions are units of it unless they are said to be within the run. Lengths are logical units, the scale
// is device pixels of such a unit. One thread.
class TInternalTextLayout {
 public:
  using TFactory = std::unique_ptr<TInternalTextLayout> (*)();

  // The class that CreateInternalTextLayout makes. Without one registered, or with null, it is the
  // platform's text engine where there is one, else that of the fixed answers.
  static void RegisterDefaultInternalTextLayout(TFactory factory);
  static std::unique_ptr<TInternalTextLayout> CreateInternalTextLayout();

  virtual ~TInternalTextLayout() = default;
  TInternalTextLayout(const TInternalTextLayout&) = delete;
  TInternalTextLayout& operator=(const TInternalTextLayout&) = delete;

  // Borrows the layout and the run that it serves. The line is its index in the frame.
  void Attach(TTextLayoutNGOrv& layout, std::int32_t line, TGPURun& run);
  std::int32_t Line() const { return FLine; }
  void MoveOneLineDown() { ++FLine; }
  // The unit there, as a text; empty outside of the text.
  std::u16string CharAt(std::int32_t offset) const;

  // The position within the run at that place of the line.
  std::int32_t GetOffsetForAdvance(float x);
  fmx::TRectF MeasureText(std::int32_t from, std::int32_t to);
  // Answers the advance.
  float DrawText(fmx::TCanvas& canvas, fmx::TPointF position);

  // Cuts the run where the box ends, and gives it its size: with word wrap the rest goes to a new line of the frame,
  // and runIndex becomes the count of this line's runs; without it the rest goes, and with trimming there is room for
  // the ellipsis. Answers whether the run was cut.
  bool BreakText(std::int32_t& runIndex, bool trimming);

  // What to draw of a picture of the run, in its pixels, and where. A clipped run is cut to the layout's box.
  void GetTextBounds(float srcWidth, float srcHeight, fmx::TPointF position, fmx::TRectF& src, fmx::TRectF& dest) const;

 protected:
  TInternalTextLayout() = default;

  TGPURun& Run() const { return *FRun; }
  TTextLayoutNGOrv& Layout() const { return *FLayout; }

 private:
  // The position within the run at that advance from its left edge.
  virtual std::int32_t DoGetOffsetForAdvance(std::u16string_view text, float x, float scale) = 0;
  // The position within the run at which it must break, and the size of what fits.
  virtual std::int32_t DoBreakText(std::u16string_view text, float maxWidth, float& width, float& height,
                                   float scale) = 0;
  virtual fmx::TRectF DoMeasureText(std::u16string_view text, std::int32_t from, std::int32_t to, float scale) = 0;
  virtual float DoDrawText(std::u16string_view text, fmx::TCanvas& canvas, fmx::TPointF position) = 0;

  void BreakForWrapping(std::int32_t offset, std::int32_t& runIndex, float& width);
  void BreakForTrimming(std::int32_t offset, bool trimming, float& width);

  TGPURun* FRun = nullptr;
  TTextLayoutNGOrv* FLayout = nullptr;
  std::int32_t FLine = 0;
};

}  // namespace orv
