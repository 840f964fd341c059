#include "fmx/Bitmap.h"

#include <cmath>
#include <cstddef>

#include "fmx/Canvas.h"
#include "fmx/CanvasManager.h"

namespace fmx {

TBitmap::TBitmap() = default;
TBitmap::~TBitmap() = default;

TBitmap::TBitmap(std::int32_t width, std::int32_t height, float bitmapScale) {
  SetSize(width, height);
  SetBitmapScale(bitmapScale);
}

void TBitmap::SetSize(std::int32_t width, std::int32_t height) {
  if (!IsBusy()) Replace(TBitmapSurface(width, height));
}

// The canvas goes first: it draws on the old pixels.
void TBitmap::Replace(TBitmapSurface pixels) {
  FCanvas.reset();
  FHandle.reset();
  FSurface = std::move(pixels);
  Touch();
}

void TBitmap::SetBitmapScale(float scale) {
  if (!(scale > 0) || !std::isfinite(scale) || scale == FBitmapScale || IsBusy()) return;
  FCanvas.reset();
  FBitmapScale = scale;
}

void TBitmap::Clear(TAlphaColor color) {
  FSurface.Clear(Premultiply(color));
  Touch();
}

void TBitmap::Assign(const TBitmap& other) {
  if (&other == this || IsBusy()) return;
  Replace(other.FSurface);
  SetBitmapScale(other.FBitmapScale);
}

bool TBitmap::IsBusy() const {
  return FMapped || (FCanvas && FCanvas->BeginSceneCount() > 0);
}

bool TBitmap::Map(TMapAccess access, TBitmapData& data) {
  if (IsEmpty() || IsBusy() || !data.IsEmpty()) return false;
  FMapped = true;
  data.FBitmap = this;
  data.FAccess = access;
  return true;
}

void TBitmap::Unmap(TBitmapData& data) {
  if (data.FBitmap != this) return;
  data.FBitmap = nullptr;
  Close(data.FAccess);
}

void TBitmap::Close(TMapAccess access) {
  FMapped = false;
  if (access == TMapAccess::Write) Touch();
}

void TBitmap::FreeHandle() {
  SetSize(0, 0);
}

TCanvas& TBitmap::Canvas() {
  if (!FCanvas) FCanvas = TCanvasManager::CreateFromBitmap(*this);
  return *FCanvas;
}

TBitmapData::~TBitmapData() {
  if (FBitmap != nullptr) FBitmap->Unmap(*this);
}

std::span<TPixel> TBitmapData::Scanline(std::int32_t y) const {
  return IsEmpty() ? std::span<TPixel>() : FBitmap->FSurface.Scanline(y);
}

TPixel TBitmapData::GetPixel(std::int32_t x, std::int32_t y) const {
  const auto row = Scanline(y);
  return x >= 0 && static_cast<std::size_t>(x) < row.size() ? row[static_cast<std::size_t>(x)] : 0;
}

}  // namespace fmx
