// The framework's own text layout: plain, from left to right.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "fmx/CustomCanvasGpu.h"
#include "fmx/GlyphCache.h"
#include "fmx/TextLayout.h"

namespace fmx {

// Puts the characters side by side in the order of the text, whatever their direction: what an application shows before
// anything better is installed. Lines end at line ends and, with WordWrap, behind blanks where the next word does not
// fit, which then stand free beyond the box; a word longer than the box is cut. Tab goes to the next multiple of eight
// blanks. In a box that nothing limits every alignment is Leading. RightToLeft has no effect.
//
// On a TCustomCanvasGpu glyphs are drawn as tinted pictures, on other canvases as filled outlines.
class TGPUTextLayout : public TTextLayout {
 public:
  static constexpr int SlotCount = TTextLayout::SlotCount;
  static orv::TClass Class();

  explicit TGPUTextLayout(TCanvas* canvas = nullptr, orv::TClass aClass = Class());

  void DoRenderLayout();
  void DoDrawLayout(TCanvas& canvas);
  float GetTextHeight();
  float GetTextWidth();
  TRectF GetTextRect();
  // -1 above the first line and below the last.
  std::int32_t DoPositionAtPoint(TPointF point);
  TRegion DoRegionForRange(TTextRange range);
  void DoConvertToPath(TPathData& path);

 private:
  // The font and colour of a cell: that of the last attribute that holds, counted from 1, 0 being the layout's own.
  using TFormat = std::size_t;
  // A format as it was when the lines were made, which may show no later change.
  struct TFormatValues {
    TFont Font;
    std::optional<TAlphaColor> Color;  // without one, the layout's colour of the day
  };
  struct TCell {
    std::int32_t Pos;    // of its first unit
    std::int32_t Units;  // 0 for the ellipsis
    std::uint32_t Char;
    float Advance;
    TFormat Format;
  };
  struct TLine {
    std::int32_t Start;
    std::int32_t End;  // behind its last unit, without the line end
    TRectF Box;        // within the layout's box
    float Baseline;    // from the top of the box
    std::vector<TCell> Cells;
  };

  void KeepFormats();
  const TFont& FontOf(TFormat format) const { return FFormats[format].Font; }
  TAlphaColor ColorOf(TFormat format) const { return FFormats[format].Color.value_or(Color()); }
  TFormat FormatAt(std::int32_t pos) const;
  TFontGlyphs& GlyphsOf(TFormat format) const { return TGlyphCache::Of(FontOf(format), FScale); }

  void LayOut(float scale);
  void MakeLines();
  std::vector<TCell> CellsOf(std::int32_t start, std::int32_t end) const;
  void AddParagraph(std::int32_t start, std::int32_t end, float room);
  void AddLine(std::int32_t start, std::int32_t end, std::span<const TCell> cells);
  void Trim(std::vector<TCell>& cells, float room) const;
  void Align();

  const TLine& LineOf(std::int32_t pos) const;
  float XOf(const TLine& line, std::int32_t pos) const;

  void DrawCell(TCanvas& canvas, TCustomCanvasGpu* gpu, const TCell& cell, TPointF place) const;
  void DrawLines(TCanvas& canvas, const TLine& line, TPointF place) const;
  template <typename TVisit>
  void VisitCells(const TLine& line, TVisit visit) const;

  float FScale;
  std::vector<TFormatValues> FFormats;
  std::vector<TLine> FLines;
};

}  // namespace fmx
