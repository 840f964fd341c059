#include "textlayout/Orv.Canvas.D2D.h"

#include <algorithm>

#include "fmx/NativeTextLayout.h"
#include "rtl/Strings.h"
#include "rtl/Unicode.h"
#include "textlayout/Orv.Canvas.Patched.h"
#include "textlayout/Orv.Canvas.Wrapped.h"

namespace orv {
namespace {

using TSlots = fmx::TTextLayout::TSlots;
using TRender = Fill<TSlots::DoRenderLayout, &TTextLayoutD2DOrvFake::DoRenderLayout>;
using TPositionAtPoint = Fill<TSlots::DoPositionAtPoint, &TTextLayoutD2DOrvFake::DoPositionAtPoint>;

constexpr float EdgeTolerance = 0.001F;
// A click goes to the position behind a character from this share of its width on.
constexpr float FarPart = 3.0F / 5;

bool IsJustLeftOf(const fmx::TRectF& box, fmx::TPointF point) {
  return point.X <= box.Left + EdgeTolerance && point.Y >= box.Top - EdgeTolerance &&
         point.Y <= box.Bottom + EdgeTolerance;
}

// Whether the point, in units of the stretch's line, lies in the part of the stretch that belongs to the position
// behind it.
bool IsInFarPart(const fmx::TNativeHitMetrics& stretch, float x) {
  if (!(stretch.Width > 0)) return false;
  const bool rightToLeft = stretch.BidiLevel % 2 != 0;
  if (rightToLeft) return x < stretch.Left + (1 - FarPart) * stretch.Width;
  return x > stretch.Left + FarPart * stretch.Width;
}

// Whether the click at x, in units of the line, belongs to the position behind the one that was hit.
bool BelongsBehind(fmx::TNativeTextLayout& layout, const fmx::TNativeHitMetrics& hit, float x) {
  fmx::TNativeHitMetrics stretch[1];
  if (layout.NativeLayout()->HitTestTextRange(hit.TextPosition, 1, 0, 0, stretch) > 0)
    return IsInFarPart(stretch[0], x);
  const float whole = layout.NativeMetrics().WidthIncludingTrailingWhitespace;
  return whole > 0 && x > hit.Left + FarPart * whole;
}

bool IsLowSurrogateAt(std::u16string_view text, std::int32_t index) {
  return rtl::IsLowSurrogate(rtl::UnitAt(text, index));
}

std::int32_t HitTest(fmx::TNativeTextLayout& layout, fmx::TPointF point) {
  bool trailing = false;
  bool inside = false;
  const float x = point.X - layout.TopLeft().X;
  const float y = point.Y - layout.TopLeft().Y;
  const fmx::TNativeHitMetrics hit =
      layout.NativeLayout()->HitTestPoint(x - layout.Padding().Left, y - layout.Padding().Top, trailing, inside);
  auto position = static_cast<std::int32_t>(std::min<std::size_t>(hit.TextPosition, layout.Text().size()));
  if ((trailing || inside) && BelongsBehind(layout, hit, x)) ++position;
  return IsLowSurrogateAt(layout.Text(), position) ? position + 1 : position;
}

}  // namespace

TClass TTextLayoutD2DOrvFake::Class() {
  return CompiledClass<TTextLayoutD2DOrvFake, fmx::TTextLayout, TRender, TPositionAtPoint>("Orv.Canvas.D2D",
                                                                                           "TTextLayoutD2DOrvFake");
}

void TTextLayoutD2DOrvFake::DoRenderLayout(fmx::TTextLayout& self) {
  const TClass wrapped = WrappedClass<TSlots::DoRenderLayout>(self.ClassType(), &DoRenderLayout);
  UpdatePatchedDirection(self, wrapped);
  Record(wrapped).Slot<TSlots::DoRenderLayout>()(self);
}

std::int32_t TTextLayoutD2DOrvFake::DoPositionAtPoint(fmx::TTextLayout& self, fmx::TPointF point) {
  auto* layout = dynamic_cast<fmx::TNativeTextLayout*>(&self);
  if (layout == nullptr) {
    const TClass wrapped = WrappedClass<TSlots::DoPositionAtPoint>(self.ClassType(), &DoPositionAtPoint);
    return Record(wrapped).Slot<TSlots::DoPositionAtPoint>()(self, point);
  }
  if (layout->NativeLayout() == nullptr) return -1;
  fmx::TRectF box = layout->TextRect();
  box.Right = std::max(box.Right, box.Left + layout->MaxSize().X);
  if (!box.Contains(point)) return IsJustLeftOf(box, point) ? 0 : -1;
  return HitTest(*layout, point);
}

namespace d2d {

void RegisterTextLayout(TClass canvasClass, TClass layoutClass) {
  const TFilledSlot replaced[] = {{TSlots::DoRenderLayout::Number, TRender::Address()},
                                  {TSlots::DoPositionAtPoint::Number, TPositionAtPoint::Address()}};
  RegisterPatchedLayout(canvasClass, layoutClass, TTextLayoutD2DOrvFake::Class(), replaced);
}

}  // namespace d2d
}  // namespace orv
