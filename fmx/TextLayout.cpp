#include "fmx/TextLayout.h"

#include <algorithm>
#include <cmath>

#include "fmx/Exceptions.h"
#include "fmx/Limits.h"
#include "fmx/Rounding.h"
#include "fmx/Services.h"

namespace fmx {

orv::TClass TTextLayout::Class() {
  using orv::Fill;
  using orv::FillAbstract;
  return orv::CompiledClass<
      TTextLayout, orv::TNoParent, FillAbstract<TSlots::DoRenderLayout>, FillAbstract<TSlots::DoDrawLayout>,
      Fill<TSlots::DoColorChanaged, &TTextLayout::DoColorChanaged>, FillAbstract<TSlots::GetTextHeight>,
      FillAbstract<TSlots::GetTextWidth>, FillAbstract<TSlots::GetTextRect>, FillAbstract<TSlots::DoPositionAtPoint>,
      FillAbstract<TSlots::DoRegionForRange>, FillAbstract<TSlots::Create>,
      Fill<TSlots::ConvertToPath, &TTextLayout::DoConvertToPath>>("fmx.TextLayout", "TTextLayout");
}

std::unique_ptr<TTextLayout> TTextLayout::New(orv::TClass aClass, TCanvas* canvas) {
  return orv::Record(aClass).Slot<TSlots::Create>()(aClass, canvas);
}

TTextLayout::TTextLayout(TCanvas* canvas, orv::TClass aClass)
    : orv::TRewritableObject(aClass), FFont(DefaultFontFamily(), DefaultFontSize()), FCanvas(canvas) {
  FFont.SetOnChanged([this] { NeedUpdate(); });
}

TTextLayout::~TTextLayout() = default;

// --- Updates ---

void TTextLayout::EndUpdate() {
  if (FUpdating > 0 && --FUpdating == 0) RenderWhatWaits();
}

void TTextLayout::NeedUpdate() {
  FNeedsUpdate = true;
  RenderWhatWaits();
}

// Nothing waits while the render runs, so that it may ask the layout. A render that fails has left the change waiting.
void TTextLayout::RenderWhatWaits() {
  if (!FNeedsUpdate || IsUpdating()) return;
  FNeedsUpdate = false;
  try {
    Call<TSlots::DoRenderLayout>();
  } catch (...) {
    FNeedsUpdate = true;
    throw;
  }
}

// --- Properties ---

void TTextLayout::SetText(std::u16string_view text) {
  if (FText == text) return;
  FText = text;
  NeedUpdate();
}

void TTextLayout::SetColor(TAlphaColor color) {
  if (FColor == color) return;
  FColor = color;
  Call<TSlots::DoColorChanaged>();
}

void TTextLayout::SetPadding(const TBounds& padding) {
  if (TRectF{padding.Left, padding.Top, padding.Right, padding.Bottom}.IsFinite()) Change(FPadding, padding);
}

void TTextLayout::SetMaxSize(TPointF size) {
  if (std::isnan(size.X) || std::isnan(size.Y)) return;
  const TPointF held{std::clamp(size.X, 0.0F, MaxLayoutSize.X), std::clamp(size.Y, 0.0F, MaxLayoutSize.Y)};
  const bool same = SameValue(held.X, FMaxSize.X, ScaleTolerance) && SameValue(held.Y, FMaxSize.Y, ScaleTolerance);
  if (!same) Change(FMaxSize, held);
}

void TTextLayout::SetTopLeft(TPointF topLeft) {
  if (topLeft.IsFinite()) FTopLeft = topLeft;
}

void TTextLayout::SetOpacity(float opacity) {
  if (!std::isnan(opacity)) FOpacity = std::clamp(opacity, 0.0F, 1.0F);
}

// --- Attributes ---

void TTextLayout::AddAttribute(TTextRange range, TTextAttribute attribute) {
  AddAttribute(std::make_unique<TTextAttributedRange>(range, std::move(attribute)));
}

void TTextLayout::AddAttribute(std::unique_ptr<TTextAttributedRange> attribute) {
  if (!attribute) return;
  FAttributes.push_back(std::move(attribute));
  NeedUpdate();
}

void TTextLayout::ClearAttributes() {
  if (FAttributes.empty()) return;
  FAttributes.clear();
  NeedUpdate();
}

const TTextAttributedRange& TTextLayout::Attribute(std::size_t index) const {
  return *FAttributes.at(index);
}

// --- Queries and drawing ---

void TTextLayout::RenderLayout(TCanvas& canvas) {
  RenderWhatWaits();
  Call<TSlots::DoDrawLayout>(canvas);
}

std::int32_t TTextLayout::PositionAtPoint(TPointF point, bool) {
  RenderWhatWaits();
  return point.IsFinite() ? Call<TSlots::DoPositionAtPoint>(point) : -1;
}

TRegion TTextLayout::RegionForRange(TTextRange range, bool) {
  RenderWhatWaits();
  return Call<TSlots::DoRegionForRange>(range);
}

TRectF TTextLayout::TextRect() {
  RenderWhatWaits();
  return Call<TSlots::GetTextRect>();
}

float TTextLayout::TextWidth() {
  RenderWhatWaits();
  return Call<TSlots::GetTextWidth>();
}

float TTextLayout::TextHeight() {
  RenderWhatWaits();
  return Call<TSlots::GetTextHeight>();
}

void TTextLayout::ConvertToPath(TPathData& path) {
  RenderWhatWaits();
  Call<TSlots::ConvertToPath>(path);
}

// --- Hooks ---

void TTextLayout::DoColorChanaged() {}

void TTextLayout::DoConvertToPath(TPathData&) {
  throw ENotImplemented("This layout has no outlines");
}

}  // namespace fmx
