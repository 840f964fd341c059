// The layout pass: what sticks out of the box. Lines and runs that lie wholly outside go; of those on its edge, runs at
// the sides lose whole atoms, and what is left is marked, for the draw pass to cut.
#include <algorithm>
#include <span>

#include "fmx/Log.h"
#include "textlayout/Orv.TextLayout.GPU.Pass.h"
#include "textlayout/Orv.TextLayout.Internal.h"

namespace orv {
namespace {

using fmx::Log;
using fmx::TTextAlign;

// A run that lost every atom may have a length left of what its folded atoms stood for.
bool IsEmpty(const TGPURun& run) {
  return run.Length() <= 0 || (run.UCS4Length() == 0 && !run.HasInternalRenderer());
}

void Narrow(TGPULine& line, float width) {
  line.SetWidth(std::max(line.Width() - width, 0.0F));
}

void MoveRight(TGPULine& line, float width) {
  line.SetTopLeft({line.TopLeft().X + width, line.TopLeft().Y});
  Narrow(line, width);
}

// The position of the text. An internal text layout answers within its run, as hits have it.
std::int32_t OffsetAt(const TGPURun& run, float x) {
  return run.StartIndex() + run.InternalRenderer()->GetOffsetForAdvance(x);
}

}  // namespace

void TLayoutPass::Clip() {
  ChainRuns();
  if (FMaxSize.X > FFrame.Width() && FMaxSize.Y > FFrame.Height()) return;
  if (FLayout.VerticalAlign() != TTextAlign::Leading) ClipTop();
  if (FLayout.VerticalAlign() != TTextAlign::Trailing) ClipBottom();
  for (std::int32_t i = 0; i < FFrame.Count(); ++i) ClipSides(FFrame.Line(i));
}

// Puts the runs of each line side by side.
void TLayoutPass::ChainRuns() const {
  for (std::int32_t i = 0; i < FFrame.Count(); ++i) {
    const TGPULine& line = FFrame.Line(i);
    if (line.Count() < 2) continue;
    const std::span<const std::int32_t> order = line.VisualOrderList();
    float left = line.Item(order[0]).ImageRect().Right;
    for (const std::int32_t item : order.subspan(1)) {
      line.Item(item).MoveTo(left);
      left = line.Item(item).ImageRect().Right;
    }
  }
}

float TLayoutPass::LargestLineWidth() const {
  float width = 0;
  for (std::int32_t i = 0; i < FFrame.Count(); ++i) width = std::max(width, FFrame.Line(i).Width());
  return width;
}

// --- Lines ---

void TLayoutPass::ClipTop() const {
  while (!FFrame.IsEmpty() && FFrame.Line(0).TopLeft().Y < 0) {
    TGPULine& line = FFrame.Line(0);
    if (line.Bottom() >= 0) {
      for (std::int32_t i = 0; i < line.Count(); ++i)
        if (line.Item(i).ImageRect().Height() + line.TopLeft().Y > 0) line.Item(i).Clip();
      return;
    }
    if (KeepsLast(FFrame.Count())) return;
    FFrame.SetTopLeft({FFrame.TopLeft().X, FFrame.TopLeft().Y + line.Height()});
    FFrame.SetHeight(FFrame.Height() - line.Height());
    FFrame.Delete(0);
  }
}

void TLayoutPass::ClipBottom() const {
  while (!FFrame.IsEmpty() && FFrame.Line(FFrame.Count() - 1).Bottom() > FMaxSize.Y) {
    TGPULine& line = FFrame.Line(FFrame.Count() - 1);
    if (line.TopLeft().Y <= FMaxSize.Y) {
      for (std::int32_t i = 0; i < line.Count(); ++i)
        if (line.Item(i).ImageRect().Height() + line.TopLeft().Y > FMaxSize.Y) line.Item(i).Clip();
      return;
    }
    if (KeepsLast(FFrame.Count())) return;
    FFrame.SetHeight(FFrame.Height() - line.Height());
    FFrame.Delete(FFrame.Count() - 1);
  }
}

void TLayoutPass::ClipSides(TGPULine& line) const {
  if (!(line.Width() > FMaxSize.X) || FLayout.MeasuringText()) return;
  if (FLayout.RealHorizontalAlign() != TTextAlign::Leading) ClipLeft(line);
  if (FLayout.RealHorizontalAlign() == TTextAlign::Trailing) return;
  ClipRight(line);
}

// Each is the visually first or last atoms of the run.
void TLayoutPass::DeleteFromVisualStart(TGPURun& run, std::int32_t count) const {
  run.RightToLeft() ? run.DeleteTextFromEnd(count) : run.DeleteTextFromStart(count);
}

void TLayoutPass::DeleteFromVisualEnd(TGPURun& run, std::int32_t count) const {
  run.RightToLeft() ? run.DeleteTextFromStart(count) : run.DeleteTextFromEnd(count);
}

// --- The left side ---

// The left edge is the line's own, but for an atom that stands on the box's edge: it moves the edge, not the line.
void TLayoutPass::ClipLeft(TGPULine& line) const {
  float left = line.TopLeft().X;
  if (!(left < 0)) return;
  while (!line.IsEmpty()) {
    TGPURun& run = line.VisualFirst();
    if (run.ImageRect().Left + left >= 0) return;
    if (run.Length() > 0 && run.ImageRect().Right + left < 0) {
      if (KeepsLast(line.Count())) return;
      left += run.GetWidth();
      DeleteOutsideLeft(line);
      continue;
    }
    const float before = left;
    if (!IsEmpty(run)) ClipFirstRun(line, run, left);
    if (!IsEmpty(run) && left == before) return;
    if (!IsEmpty(run)) continue;
    if (KeepsLast(line.Count())) return;
    line.DeleteByVisualOrderIndex(0);
  }
}

void TLayoutPass::DeleteOutsideLeft(TGPULine& line) const {
  const float width = line.VisualFirst().GetWidth();
  line.DeleteByVisualOrderIndex(0);
  MoveRight(line, width);
  line.OffsetEachRunXPosition(-width);
}

void TLayoutPass::ClipFirstRun(TGPULine& line, TGPURun& run, float& left) const {
  const float before = line.TopLeft().X;
  if (run.HasInternalRenderer()) {
    ClipFirstPart(line, run);
    left = 0;
  } else {
    ClipFirstAtoms(line, run, left);
  }
  // The run is as much shorter as the line, and those behind it move with its end.
  const float width = line.TopLeft().X - before;
  run.Widen(-width);
  run.HoldWidth();
  line.RepositionFrom(1, -width);
}

// Whole atoms go until one stands on the edge; that one stays.
void TLayoutPass::ClipFirstAtoms(TGPULine& line, TGPURun& run, float& left) const {
  while (run.UCS4Length() > 0 && left < 0) {
    run.Clip();
    const float advance = Scaled(AdvanceOf(run, run.DrawnAtomIndex(0)));
    left += advance;
    if (!(left < 0)) return;
    DeleteFromVisualStart(run, 1);
    MoveRight(line, advance);
  }
}

void TLayoutPass::ClipFirstPart(TGPULine& line, TGPURun& run) const {
  TInternalTextLayout& renderer = *run.InternalRenderer();
  const float left = line.TopLeft().X;
  const std::int32_t offset = OffsetAt(run, -left);
  Log::d(
      "DoRenderLayout: InternalTextLayout->GetOffsetForAdvance Run: %d.%d(%d, %d), X: %f, offserforAdvance:%d, char:%s",
      renderer.Line(), line.IndexOf(run), run.StartIndex(), run.Length(), -left, offset, renderer.CharAt(offset));
  const float width = renderer.MeasureText(offset, run.EndIndex()).Width();
  Log::d("DoRenderLayout: InternalTextLayout->RightClipping RunPosition: (%2.2f,%2.2f), ClipSize:%2.2f", left,
         line.TopLeft().Y, width);
  run.Clip();
  if (offset < run.EndIndex()) DeleteFromVisualStart(run, offset - run.StartIndex() + 1);
  MoveRight(line, width);
}

// --- The right side ---

// Atoms that begin at the edge or beyond it go; the one that stands on it stays. The box is what is left (RightClip).
void TLayoutPass::ClipLastAtomsWhole(TGPULine& line, TGPURun& run) const {
  run.Clip();
  while (run.UCS4Length() > 1) {
    const float advance = Scaled(AdvanceOf(run, run.DrawnAtomIndex(run.UCS4Length() - 1)));
    if (run.ImageRect().Right + line.TopLeft().X - advance < FMaxSize.X) return;
    DeleteFromVisualEnd(run, 1);
    run.Widen(-advance);
    run.HoldWidth();
    Narrow(line, advance);
  }
}

void TLayoutPass::ClipRight(TGPULine& line) const {
  const float left = line.TopLeft().X;
  if (!(FMaxSize.X > left) || line.IsEmpty()) return;
  TGPURun& run = line.VisualLast();
  if (run.Length() > 0 && run.ImageRect().Right + left > FMaxSize.X) {
    if (run.ImageRect().Left + left > FMaxSize.X) {
      if (KeepsLast(line.Count())) return;
      Narrow(line, run.GetWidth());
      line.DeleteByVisualOrderIndex(line.Count() - 1);
      return;
    }
    if (run.HasInternalRenderer())
      ClipLastPart(line, run);
    else
      Corrects(TOrvCorrection::RightClip) ? ClipLastAtomsWhole(line, run) : ClipLastAtoms(line, run);
  }
  // Also a run that was empty before.
  if (run.Length() <= 0 && !KeepsLast(line.Count())) line.DeleteByVisualOrderIndex(line.Count() - 1);
}

// Where the box ends within the run: one atom goes at most, and the line ends behind the atom that crosses the edge.
// The atoms are counted from the far end of the drawing.
void TLayoutPass::ClipLastAtoms(TGPULine& line, TGPURun& run) const {
  const float lineLeft = line.TopLeft().X;
  float x = lineLeft + run.ImageRect().Left;
  const std::int32_t count = run.UCS4Length();
  for (std::int32_t n = 0; FMaxSize.X > x && n < count; ++n) {
    x += Scaled(AdvanceOf(run, run.RightToLeft() ? n : count - n - 1));
    if (!(x > FMaxSize.X)) continue;
    if (n != 0) DeleteFromVisualEnd(run, 1);
    run.Clip();
    line.SetWidth(x - lineLeft);
    fmx::TRectF rect = run.ImageRect();
    rect.Right = x - lineLeft;
    run.SetImageRect(rect);
    return;
  }
}

void TLayoutPass::ClipLastPart(TGPULine& line, TGPURun& run) const {
  TInternalTextLayout& renderer = *run.InternalRenderer();
  const float left = line.TopLeft().X;
  const float room = FMaxSize.X - run.GetWidth() - left;
  const std::int32_t offset = OffsetAt(run, room);
  Log::d(
      "DoRenderLayout: InternalTextLayout->GetOffsetForAdvance Run: %d.%d(%d, %d), X: %f(%f), offserforAdvance:%d, "
      "char:%s",
      renderer.Line(), line.IndexOf(run), run.StartIndex(), run.Length(), room, left, offset, renderer.CharAt(offset));
  const float width = renderer.MeasureText(offset, offset + run.Length()).Width();
  Log::d("DoRenderLayout: InternalTextLayout->RightClipping RunPosition: (%2.2f,%2.2f), ClipSize:%2.2f", left,
         line.TopLeft().Y, width);
  if (offset + 1 < run.EndIndex()) {
    DeleteFromVisualEnd(run, offset - run.StartIndex() + 1);
    line.SetWidth(left + width - line.TopLeft().X);
  }
  run.Clip();
}

}  // namespace orv
