#include "fmx/GPUTextLayout.h"

#include <algorithm>
#include <cmath>

#include "fmx/Limits.h"
#include "fmx/Rounding.h"
#include "fmx/Services.h"

namespace fmx {

orv::TClass TGPUTextLayout::Class() {
  return CompiledLayout<TGPUTextLayout, TTextLayout>("fmx.TextLayout.GPU", "TGPUTextLayout");
}

TGPUTextLayout::TGPUTextLayout(TCanvas* canvas, orv::TClass aClass)
    : TTextLayout(canvas, aClass), FScale(canvas != nullptr ? canvas->Scale() : ScreenScale()) {}

void TGPUTextLayout::DoRenderLayout() {
  LayOut(Canvas() != nullptr ? Canvas()->Scale() : FScale);
}

// --- Formats ---

TGPUTextLayout::TFormat TGPUTextLayout::FormatAt(std::int32_t pos) const {
  for (std::size_t i = AttributesCount(); i > 0; --i) {
    const TTextRange range = Attribute(i - 1).Range();
    if (pos >= range.Pos && std::int64_t{pos} < std::int64_t{range.Pos} + range.Length) return i;
  }
  return 0;
}

void TGPUTextLayout::KeepFormats() {
  FFormats.clear();
  FFormats.push_back({Font(), std::nullopt});
  for (std::size_t i = 0; i < AttributesCount(); ++i) {
    const TTextAttribute& attribute = Attribute(i).Attribute();
    FFormats.push_back({attribute.Font ? *attribute.Font : Font(), attribute.Color});
  }
}

// --- Measuring ---

float TGPUTextLayout::GetTextHeight() {
  return FLines.empty() ? 0 : FLines.back().Box.Bottom - FLines.front().Box.Top;
}

float TGPUTextLayout::GetTextWidth() {
  float width = 0;
  for (const TLine& line : FLines) width = std::max(width, line.Box.Width());
  return width;
}

TRectF TGPUTextLayout::GetTextRect() {
  if (FLines.empty()) return TRectF{}.Offset(TopLeft());
  TRectF rect = FLines.front().Box;
  for (const TLine& line : FLines) {
    rect.Left = std::min(rect.Left, line.Box.Left);
    rect.Right = std::max(rect.Right, line.Box.Right);
  }
  rect.Bottom = FLines.back().Box.Bottom;
  return rect.Offset(TopLeft());
}

// --- Hit testing ---

std::int32_t TGPUTextLayout::DoPositionAtPoint(TPointF point) {
  const TPointF p = point - TopLeft();
  for (const TLine& line : FLines) {
    if (p.Y < line.Box.Top || p.Y >= line.Box.Bottom) continue;
    float x = line.Box.Left;
    for (const TCell& cell : line.Cells) {
      if (p.X < x + cell.Advance / 2) return cell.Pos;
      x += cell.Advance;
    }
    return line.End;
  }
  return -1;
}

const TGPUTextLayout::TLine& TGPUTextLayout::LineOf(std::int32_t pos) const {
  const auto next =
      std::find_if(FLines.begin() + 1, FLines.end(), [pos](const TLine& line) { return line.Start > pos; });
  return *(next - 1);
}

float TGPUTextLayout::XOf(const TLine& line, std::int32_t pos) const {
  float x = line.Box.Left;
  for (const TCell& cell : line.Cells) {
    if (cell.Pos + cell.Units > pos) break;
    x += cell.Advance;
  }
  return x;
}

TRegion TGPUTextLayout::DoRegionForRange(TTextRange range) {
  TRegion region;
  const std::int64_t length = FLines.empty() ? -1 : FLines.back().End;
  if (range.Pos < 0 || range.Length < 0 || range.Pos > length) return region;
  const auto end = static_cast<std::int32_t>(std::min(std::int64_t{range.Pos} + range.Length, length));
  const auto add = [&](const TLine& line, std::int32_t from, std::int32_t to) {
    const TRectF box{XOf(line, from), line.Box.Top, XOf(line, to), line.Box.Bottom};
    region.push_back(box.Offset(TopLeft()));
  };
  if (range.Pos == end) {
    add(LineOf(end), end, end);
    return region;
  }
  for (const TLine& line : FLines) {
    const std::int32_t from = std::max(range.Pos, line.Start);
    const std::int32_t to = std::min(end, line.End);
    if (from < to) add(line, from, to);
  }
  return region;
}

// --- Drawing ---

// Calls visit(cell, place), the place being that of the cell's top left corner in the canvas.
template <typename TVisit>
void TGPUTextLayout::VisitCells(const TLine& line, TVisit visit) const {
  TPointF pen = line.Box.TopLeft() + TopLeft();
  for (const TCell& cell : line.Cells) {
    visit(cell, TPointF{pen.X, pen.Y + line.Baseline - GlyphsOf(cell.Format).Baseline() / FScale});
    pen.X += cell.Advance;
  }
}

void TGPUTextLayout::DrawCell(TCanvas& canvas, TCustomCanvasGpu* gpu, const TCell& cell, TPointF place) const {
  if (cell.Char == '\t') return;
  if (gpu == nullptr) {
    TPathData outline = GlyphsOf(cell.Format).Outline(cell.Char);
    outline.ApplyMatrix(TMatrix::Scaling(1 / FScale, 1 / FScale) * TMatrix::Translation(place.X, place.Y));
    canvas.FillPath(outline, Opacity(), TBrush(ColorOf(cell.Format)));
    return;
  }
  const TCharRec& rec = GlyphsOf(cell.Format).Picture(cell.Char);
  if (rec.Bitmap() == nullptr) return;
  const TPointF corner = canvas.AlignToPixel(place) + TPointF{static_cast<float>(rec.Glyph.Origin.X) / FScale,
                                                              static_cast<float>(rec.Glyph.Origin.Y) / FScale};
  gpu->SetModulateColor(rec.Glyph.Style.Contains(TFontGlyphStyle::ColorGlyph) ? TAlphaColors::White
                                                                              : ColorOf(cell.Format));
  const TRectF shown = TRectF::FromSize(corner, rec.SrcRect.Width() / FScale, rec.SrcRect.Height() / FScale);
  canvas.DrawBitmap(*rec.Bitmap(), rec.SrcRect, shown, Opacity());
}

// Underlines and strike-outs, cell by cell.
void TGPUTextLayout::DrawLines(TCanvas& canvas, const TLine& line, TPointF place) const {
  float x = place.X;
  for (const TCell& cell : line.Cells) {
    const TFont& font = FontOf(cell.Format);
    const TStrokeBrush pen(ColorOf(cell.Format), font.Size() / 15);
    const auto draw = [&](float y) { canvas.DrawLine({x, y}, {x + cell.Advance, y}, Opacity(), pen); };
    if (font.Style().Contains(TFontStyle::StrikeOut)) draw(place.Y + line.Box.Height() / 2);
    if (font.Style().Contains(TFontStyle::Underline)) draw(place.Y + line.Baseline + pen.Thickness() * 1.5F);
    x += cell.Advance;
  }
}

void TGPUTextLayout::DoDrawLayout(TCanvas& canvas) {
  if (FLines.empty()) return;
  // Lines that wait for an update stay those of the other scale: a new layout would show the change.
  if (!IsUpdateWaiting() && !SameValue(canvas.Scale(), FScale, ScaleTolerance)) LayOut(canvas.Scale());
  auto* gpu = dynamic_cast<TCustomCanvasGpu*>(&canvas);
  const TAlphaColor kept = gpu != nullptr ? gpu->ModulateColor() : 0;
  for (const TLine& line : FLines) {
    VisitCells(line, [&](const TCell& cell, TPointF place) { DrawCell(canvas, gpu, cell, place); });
    DrawLines(canvas, line, line.Box.TopLeft() + TopLeft());
  }
  if (gpu != nullptr) gpu->SetModulateColor(kept);
}

void TGPUTextLayout::DoConvertToPath(TPathData& path) {
  for (const TLine& line : FLines) {
    VisitCells(line, [&](const TCell& cell, TPointF place) {
      if (cell.Char == '\t') return;
      TPathData outline = GlyphsOf(cell.Format).Outline(cell.Char);
      outline.ApplyMatrix(TMatrix::Scaling(1 / FScale, 1 / FScale) * TMatrix::Translation(place.X, place.Y));
      path.AddPath(outline);
    });
  }
}

}  // namespace fmx
