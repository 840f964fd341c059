#include <algorithm>
#include <cmath>
#include <utility>

#include "editing/Orv.Text.h"
#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv {
namespace {

using fmx::TRectF;
using fmx::TRegion;
using fmx::TTextAlign;

constexpr float NeighbourTolerance = 0.5F;
constexpr float BoxTolerance = 1.5F;

bool Differ(float a, float b, float tolerance) {
  return std::fabs(a - b) > tolerance;
}

// The line's start lies on the right.
bool IsTextRight(const fmx::TTextLayout& layout) {
  return (layout.HorizontalAlign() == TTextAlign::Trailing) != layout.RightToLeft();
}

TRectF FirstOf(const TRegion& region) {
  return region.empty() ? TRectF{} : region.front();
}

// One position of a layout with a text, on its way to its carets.
class TCaretPlaces {
 public:
  TCaretPlaces(fmx::TTextLayout& layout, const TRectF& box, std::int32_t position)
      : FLayout(layout), FBox(box), FTextRight(IsTextRight(layout)) {
    const auto length = static_cast<std::int32_t>(layout.Text().size());
    FAtEnd = position >= length;
    FPos = std::clamp(position, 0, length - 1);
    FRect = FirstOf(layout.RegionForRange({FPos, 1}));
    if (FAtEnd)
      FOthers = layout.RegionForRange({0, length});
    else if (FPos > 0)
      FOthers = layout.RegionForRange({FPos - 1, 1});
    Main = Second = Reads(Unit(FPos)) ? FRect.Right : FRect.Left;
  }

  void PlaceOne() {
    const bool natural = TOrvGlobalSettings::NaturalCaretPositioning();
    if (!FAtEnd) {
      if (FPos == 0 && natural) Main = FTextRight ? FBox.Right : FBox.Left;
    } else if (natural) {
      Main = FTextRight ? SmallestLeft() : GreatestRight();
    } else {
      Main = Reads(Unit(FPos)) ? FRect.Left : FRect.Right;
    }
    Second = Main;
  }

  void PlaceBetween() {
    const char16_t own = Unit(FPos);
    const char16_t previous = Unit(FPos - 1);
    if (TDirectiveChars::IsLTR(own) == TDirectiveChars::IsLTR(previous) &&
        TDirectiveChars::IsRTL(own) == TDirectiveChars::IsRTL(previous))
      return;
    const TRectF other = FirstOf(FOthers);
    if (!Differ(FRect.Left, other.Right, NeighbourTolerance)) {
      Main = Second = FRect.Left;
    } else if (!Differ(FRect.Right, other.Left, NeighbourTolerance)) {
      Main = Second = FRect.Right;
    } else {
      Second = Reads(previous) ? other.Left : other.Right;
      IsDouble = Differ(Main, Second, NeighbourTolerance);
    }
  }

  void PlaceAtStart() {
    const char16_t own = Unit(0);
    const bool suits = FTextRight ? TDirectiveChars::IsRTL(own) : TDirectiveChars::IsLTR(own);
    if (!suits) return;
    Second = Reads(own) ? FBox.Right : FBox.Left;
    IsDouble = Differ(Main, Second, BoxTolerance);
  }

  std::int32_t Pos() const { return FPos; }
  float Top() const { return FRect.Top; }

  float Main = 0;
  float Second = 0;
  bool IsDouble = false;

 private:
  char16_t Unit(std::int32_t index) const { return FLayout.Text()[static_cast<std::size_t>(index)]; }
  // Whether the character reads from the right.
  bool Reads(char16_t c) const { return TDirectiveChars::CharDirectionRTL(c, FLayout.RightToLeft()); }
  float SmallestLeft() const {
    float left = FirstOf(FOthers).Left;
    for (const TRectF& rect : FOthers) left = std::min(left, rect.Left);
    return left;
  }
  float GreatestRight() const {
    float right = FirstOf(FOthers).Right;
    for (const TRectF& rect : FOthers) right = std::max(right, rect.Right);
    return right;
  }

  fmx::TTextLayout& FLayout;
  TRectF FBox;
  bool FTextRight;
  bool FAtEnd = false;
  std::int32_t FPos = 0;
  TRectF FRect;     // of the character
  TRegion FOthers;  // of the one before it; at the end of the whole text
};

}  // namespace

void TTextServiceHelper::GetCaretInfo(fmx::TTextLayout& layout, const TRectF& rect, std::int32_t position,
                                      TCaretInfo& info) {
  info.CharIndex = position;
  if (layout.Text().empty()) {
    info.DoubleFlasher = false;
    info.MainFlasherPosition = {IsTextRight(layout) ? rect.Right : rect.Left, rect.Top};
    return;
  }
  TCaretPlaces places(layout, rect, position);
  if (!TOrvGlobalSettings::DoubleFlasher())
    places.PlaceOne();
  else if (places.Pos() != 0)
    places.PlaceBetween();
  else
    places.PlaceAtStart();
  info.MainFlasherPosition = {places.Main, places.Top()};
  info.SecondFlasherPosition = {places.Second, places.Top()};
  info.DoubleFlasher = places.IsDouble;
}

void TTextServiceHelper::DrawSingleLine(const fmx::TTextService& service, fmx::TTextLayout& layout,
                                        fmx::TCanvas& canvas, const TRectF& rect) {
  const fmx::TCanvasStateGuard guard(canvas);
  canvas.IntersectClipRect(rect);
  layout.RenderLayout(canvas);
  const std::vector<fmx::TCompositionAttribute> attributes = service.MarkedTextAttributes();
  if (!service.HasMarkedText() || attributes.empty()) return;
  const auto marked = static_cast<std::int32_t>(service.MarkedText().size());
  const auto length = static_cast<std::int32_t>(layout.Text().size());
  fmx::DrawCompositionLines(canvas, layout, std::min(service.CaretPosition().X, length - marked), attributes);
}

}  // namespace orv
