// The draw pass: puts the glyphs of a frame on a canvas.
#include <algorithm>
#include <cmath>

#include "fmx/CustomCanvasGpu.h"
#include "fmx/Limits.h"
#include "fmx/Log.h"
#include "fmx/Rounding.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "textlayout/Orv.TextLayout.Internal.h"

namespace orv {
namespace {

using fmx::Log;
using fmx::TTextAlign;

// U+FE70 to U+FE7E and U+FC5E to U+FC63 stand above or below the letter before them.
constexpr bool IsPlacedMark(UCS4Char atom) {
  return (atom >= 0xFE70 && atom <= 0xFE7E) || (atom >= 0xFC5E && atom <= 0xFC63);
}

constexpr bool IsKasra(UCS4Char atom) {
  return atom == 0xFE74 || atom == 0xFE7A;
}

bool IsWhole(float value) {
  return std::fabs(value - std::trunc(value)) <= fmx::PixelTolerance;
}

float WholeUnits(float value) {
  return static_cast<float>(fmx::Round(value));
}

// Draws one frame on one canvas.
class TDrawPass {
 public:
  TDrawPass(TTextLayoutNGOrv& layout, fmx::TCanvas& canvas, fmx::TStrokeBrush& stroke)
      : FLayout(layout),
        FCanvas(canvas),
        FGpu(dynamic_cast<fmx::TCustomCanvasGpu*>(&canvas)),
        FStroke(stroke),
        FScaleFactor(layout.ScaleFactor()),
        FAlignX(IsWhole(layout.TopLeft().X) && IsWhole(canvas.Matrix().m31)),
        FAlignY(IsWhole(layout.TopLeft().Y) && IsWhole(canvas.Matrix().m32)),
        FBase(TGlyphAtlas::GetAtomDictionary(layout.Font(), layout.Scale()).FBaseline) {}

  void Run() {
    for (std::int32_t i = 0; i < FLayout.Frame().Count(); ++i) DrawLine(FLayout.Frame().Line(i), i);
    Modulate(fmx::TAlphaColors::White);
  }

 private:
  struct TRunGlyphs {
    TAtomDic& Dic;
    const fmx::TFont& Font;
  };

  void Modulate(fmx::TAlphaColor color) {
    if (FGpu != nullptr) FGpu->SetModulateColor(color);
  }

  void DrawLine(const TGPULine& line, std::int32_t index) {
    FPos = line.TopLeft() + FLayout.TopLeft();
    if (FLayout.AttributesCount() > 0) RaiseBase(line);
    const bool trimmed = HasTrimmedRun(line);
    Log::d("DoDrawLayout line %d IsTrimmed", index);
    FEllipsisFirst = trimmed && StandsBeforeText();
    if (FEllipsisFirst) {
      Log::d("DoDrawLayout line %d ellipsis", index);
      FPos.X += DrawEllipsis() * FScaleFactor;
    }
    for (std::int32_t i = 0; i < line.Count(); ++i) DrawRun(line, line.GetItemByVisualOrder(i));
  }

  // Bigger and smaller fonts share the lowest base line, for this line and those after it.
  void RaiseBase(const TGPULine& line) {
    for (std::int32_t i = 0; i < line.Count(); ++i)
      FBase = std::max(FBase, FLayout.DictionaryOf(line.Item(i)).FBaseline);
  }

  // Whether the ellipsis of the line is on its left: in a trailing text, or where the text reads from right to left if
  // lines are trimmed as a whole (TrimLine).
  bool StandsBeforeText() const {
    const bool isWhole =
        FLayout.Frame().Store().Corrects(TOrvCorrection::TrimLine) && !FLayout.Frame().Store().HasRenderers;
    return isWhole ? FLayout.RightToLeft() : FLayout.RealHorizontalAlign() == TTextAlign::Trailing;
  }

  static bool HasTrimmedRun(const TGPULine& line) {
    for (std::int32_t i = 0; i < line.Count(); ++i)
      if (line.Item(i).Trimmed()) return true;
    return false;
  }

  void DrawRun(const TGPULine& line, TGPURun& run) {
    const fmx::TRectF& rect = run.ImageRect();
    Log::d("DoDrawLayout Run:(%d, %d) at:(%f, %f, %f, %f) line(%f, %f, %f, %f)", run.StartIndex(), run.Length(),
           rect.Left, rect.Top, rect.Right, rect.Bottom, line.TopLeft().X, line.TopLeft().Y, line.Width(),
           line.Height());
    const TRunGlyphs glyphs{FLayout.DictionaryOf(run), FLayout.GetFontFor(run)};
    FBaseShift = FLayout.AttributesCount() > 0 ? (FBase - glyphs.Dic.FBaseline) * FScaleFactor : 0;
    if (run.HasInternalRenderer()) {
      DrawByRenderer(run);
      if (!run.Trimmed()) return;
    } else {
      Modulate(run.Color());
      for (std::int32_t i = 0; i < run.UCS4Length(); ++i) DrawAtom(run, run.DrawnAtomIndex(i), glyphs);
    }
    if (run.Trimmed() && !FEllipsisFirst) DrawEllipsis();
    DrawDecorations(run, glyphs);
  }

  void DrawByRenderer(const TGPURun& run) {
    Log::d("DoDrawLayout <InternalRenderer> ");
    Modulate(fmx::TAlphaColors::White);
    const float advance = run.InternalRenderer()->DrawText(FCanvas, {FPos.X, FPos.Y + FBaseShift});
    FPos.X += advance;
    Log::d("DoDrawLayout >InternalRenderer< Pos:(%f, %f) baseline: %f; Advance(%f, 0))", FPos.X, FPos.Y, FBase,
           advance);
    Log::d("DoDrawLayout >InternalRenderer< trimmed:%d", run.Trimmed());
  }

  // --- Glyphs ---

  void DrawAtom(const TGPURun& run, std::int32_t index, const TRunGlyphs& glyphs) {
    if (run.Atom(index) == U'\t') {
      FPos.X += FLayout.GetTabAdvance(run, index) * FScaleFactor;
      return;
    }
    const fmx::TCharRec& record = run.AddOrGetAtomGlyph(&FCanvas, index, glyphs.Dic, glyphs.Font, FLayout.Scale());
    if (record.Bitmap() != nullptr) DrawGlyph(run, index, glyphs, record);
    FPos.X += record.Glyph.Advance * FScaleFactor;
  }

  void DrawGlyph(const TGPURun& run, std::int32_t index, const TRunGlyphs& glyphs, const fmx::TCharRec& record) {
    fmx::TPointF corner = CornerOf(record, FBaseShift);
    if (index > 0 && IsPlacedMark(run.Atom(index))) corner.Y = TopOfMark(run, index, glyphs, record);
    fmx::TRectF dest = DestOf(record, corner);
    fmx::TRectF src = record.SrcRect;
    if (run.Clipped()) CutToBox(FLayout, src, dest);
    if (src.IsEmpty() || dest.IsEmpty()) return;
    const bool colorful = record.Glyph.Style.Contains(fmx::TFontGlyphStyle::ColorGlyph);
    if (colorful) Modulate(fmx::TAlphaColors::White);
    FCanvas.DrawBitmap(*record.Bitmap(), src, dest, FLayout.Opacity(), false);
    if (colorful) Modulate(run.Color());
  }

  fmx::TPointF CornerOf(const fmx::TCharRec& record, float baseShift) const {
    const float left = FAlignX ? FCanvas.AlignToPixelHorizontally(FPos.X) : FPos.X;
    const float top = FPos.Y + baseShift + static_cast<float>(record.Glyph.Origin.Y) * FScaleFactor;
    return {left + static_cast<float>(record.Glyph.Origin.X) * FScaleFactor,
            FAlignY ? FCanvas.AlignToPixelVertically(top) : top};
  }

  fmx::TRectF DestOf(const fmx::TCharRec& record, fmx::TPointF corner) const {
    return fmx::TRectF::FromSize(corner, record.SrcRect.Width() * FScaleFactor, record.SrcRect.Height() * FScaleFactor);
  }

  // Below the letter before it by a fifth of that letter's height, or above it by a third of its own.
  float TopOfMark(const TGPURun& run, std::int32_t index, const TRunGlyphs& glyphs, const fmx::TCharRec& mark) const {
    const fmx::TCharRec& letter = run.AddOrGetAtomGlyph(&FCanvas, index - 1, glyphs.Dic, glyphs.Font, FLayout.Scale());
    const float top = FPos.Y + FBaseShift;
    if (IsKasra(run.Atom(index))) return WholeUnits(top + letter.SrcRect.Height() * FScaleFactor / 5);
    return WholeUnits(top + static_cast<float>(letter.Glyph.Origin.Y) * FScaleFactor -
                      mark.SrcRect.Height() * FScaleFactor / 3);
  }

  // Answers its advance in device pixels. It is not cut to the box.
  float DrawEllipsis() {
    const fmx::TFont& font = FLayout.Font();
    const fmx::TCharRec& record = TGPURun::AddOrGetCharGlyph(
        &FCanvas, FLayout.EllipsisChar(), TGlyphAtlas::GetAtomDictionary(font, FLayout.Scale()), font, FLayout.Scale());
    Modulate(FLayout.Color());
    if (record.Bitmap() != nullptr)
      FCanvas.DrawBitmap(*record.Bitmap(), record.SrcRect, DestOf(record, CornerOf(record, FBaseShift)),
                         FLayout.Opacity(), false);
    return record.Glyph.Advance;
  }

  // --- Underline and strike-out ---

  void DrawDecorations(const TGPURun& run, const TRunGlyphs& glyphs) {
    const fmx::TFontStyles style = glyphs.Font.Style();
    const float thickness = glyphs.Font.Size() / 15;
    FStroke.SetColor(run.Color());
    FStroke.SetThickness(thickness);
    if (style.Contains(fmx::TFontStyle::StrikeOut))
      DrawRunLine(run, FPos.Y + FBaseShift + run.ImageRect().Height() / 2);
    if (style.Contains(fmx::TFontStyle::Underline))
      DrawRunLine(run, FPos.Y + FBaseShift + glyphs.Dic.FBaseline * FScaleFactor + thickness * 1.5F);
  }

  // As wide as the run, up to the pen.
  void DrawRunLine(const TGPURun& run, float y) {
    FCanvas.DrawLine({FPos.X - run.GetWidth(), y}, {FPos.X, y}, FLayout.Opacity(), FStroke);
  }

  TTextLayoutNGOrv& FLayout;
  fmx::TCanvas& FCanvas;
  fmx::TCustomCanvasGpu* FGpu;  // null for a canvas that tints nothing
  fmx::TStrokeBrush& FStroke;
  float FScaleFactor;
  bool FAlignX;
  bool FAlignY;
  float FBase;                  // of the line, device pixels
  float FBaseShift = 0;         // of the run
  bool FEllipsisFirst = false;  // in the line
  fmx::TPointF FPos;            // the pen
};

}  // namespace

void CutToBox(const TTextLayoutNGOrv& layout, fmx::TRectF& src, fmx::TRectF& dest) {
  const fmx::TRectF box = fmx::TRectF::FromSize(layout.TopLeft(), layout.MaxSize().X, layout.MaxSize().Y);
  const fmx::TRectF over{std::max(dest.Left, box.Left) - dest.Left, std::max(dest.Top, box.Top) - dest.Top,
                         dest.Right - std::min(dest.Right, box.Right), dest.Bottom - std::min(dest.Bottom, box.Bottom)};
  dest = {dest.Left + over.Left, dest.Top + over.Top, dest.Right - over.Right, dest.Bottom - over.Bottom};
  const float scale = layout.Scale();
  src = {src.Left + over.Left * scale, src.Top + over.Top * scale, src.Right - over.Right * scale,
         src.Bottom - over.Bottom * scale};
}

void TTextLayoutNGOrv::DoDrawLayout(fmx::TCanvas& canvas) {
  if (Text().empty()) return;
  Log::d("DoDrawLayout");
  if (Color() != FOldColor) {
    FOldColor = Color();
    for (std::int32_t i = 0; i < FFrame->Count(); ++i)
      for (std::int32_t k = 0; k < FFrame->Line(i).Count(); ++k) FFrame->Line(i).Item(k).SetColor(Color(), true);
  }
  if (!fmx::SameValue(canvas.Scale(), FScale, fmx::ScaleTolerance)) {
    TakeScale(canvas.Scale());
    Call<TSlots::DoRenderLayout>();
  }
  TDrawPass(*this, canvas, FStrokeBrush).Run();
  Log::d("DoDrawLayout End");
}

}  // namespace orv
