// Pictures that canvases draw, and draw on.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <utility>

#include "fmx/BitmapSurface.h"
#include "fmx/Colors.h"

namespace fmx {

class TCanvas;
class TBitmapData;

// Write leaves the old pixels in place, too; it tells canvases that keep copies that theirs are out of date.
enum class TMapAccess : std::uint8_t { Read, Write };

// What a canvas keeps for a bitmap, for example a texture; made and read by that canvas alone. It is destroyed with the
// bitmap's pixels.
class TBitmapHandle {
 public:
  virtual ~TBitmapHandle() = default;
};

// A picture of premultiplied pixels, its size in pixels. BitmapScale says how many of them make a logical unit. Not
// copyable, since canvases know bitmaps by their place; Assign copies the picture. While it is
// mapped, or a scene of its canvas is open, it keeps its size and scale: what would change them does nothing. Belongs
// to one thread.
class TBitmap {
 public:
  TBitmap();
  // As SetSize.
  TBitmap(std::int32_t width, std::int32_t height, float bitmapScale = 1);
  ~TBitmap();
  TBitmap(const TBitmap&) = delete;
  TBitmap& operator=(const TBitmap&) = delete;

  std::int32_t Width() const { return FSurface.Width(); }
  std::int32_t Height() const { return FSurface.Height(); }
  bool IsEmpty() const { return FSurface.IsEmpty(); }

  // Makes all pixels transparent and drops the canvas. Raises EBitmapSizeTooBig beyond fmx/Limits.h, and leaves the
  // bitmap as it was then.
  void SetSize(std::int32_t width, std::int32_t height);

  // Pixels of a logical unit, 1 at first. A value that is not above 0 changes nothing. Drops the canvas.
  float BitmapScale() const { return FBitmapScale; }
  void SetBitmapScale(float scale);

  void Clear(TAlphaColor color);
  void Assign(const TBitmap& other);

  // Opens the pixels. Answers false, leaving data empty, where the bitmap is empty, is mapped already, or has a scene
  // open. The data may be used up to Unmap, which its destruction calls too; it must not outlive the bitmap.
  bool Map(TMapAccess access, TBitmapData& data);
  void Unmap(TBitmapData& data);
  bool IsMapped() const { return FMapped; }

  // Gives the memory back: the bitmap is then empty, as one just made.
  void FreeHandle();

  // The canvas that draws on the bitmap, made at the first call by the default canvas class and owned by the bitmap.
  // Raises ENotRegistered where there is none.
  TCanvas& Canvas();
  bool HasCanvas() const { return FCanvas != nullptr; }

  // For canvases: the pixels as they are, also within a scene. Written ones are announced by Touch.
  const TBitmapSurface& Surface() const { return FSurface; }
  TBitmapSurface& Surface() { return FSurface; }
  // Raises Version, by which a canvas knows whether its copy is current.
  void Touch() { ++FVersion; }
  std::uint64_t Version() const { return FVersion; }
  TBitmapHandle* Handle() const { return FHandle.get(); }
  void SetHandle(std::unique_ptr<TBitmapHandle> handle) const { FHandle = std::move(handle); }

 private:
  friend class TBitmapData;
  bool IsBusy() const;
  void Close(TMapAccess access);
  void Replace(TBitmapSurface pixels);

  TBitmapSurface FSurface;
  float FBitmapScale = 1;
  bool FMapped = false;
  std::uint64_t FVersion = 0;
  mutable std::unique_ptr<TBitmapHandle> FHandle;  // a copy of the pixels, no part of the picture
  std::unique_ptr<TCanvas> FCanvas;
};

// The pixels of a mapped bitmap; empty before Map and after Unmap.
class TBitmapData {
 public:
  TBitmapData() = default;
  ~TBitmapData();
  TBitmapData(const TBitmapData&) = delete;
  TBitmapData& operator=(const TBitmapData&) = delete;

  bool IsEmpty() const { return FBitmap == nullptr; }
  std::int32_t Width() const { return IsEmpty() ? 0 : FBitmap->Width(); }
  std::int32_t Height() const { return IsEmpty() ? 0 : FBitmap->Height(); }

  // The row at y; empty where there is none. Write to it only after mapping for that.
  std::span<TPixel> Scanline(std::int32_t y) const;
  // 0 outside the picture.
  TPixel GetPixel(std::int32_t x, std::int32_t y) const;

 private:
  friend class TBitmap;
  TBitmap* FBitmap = nullptr;  // borrowed
  TMapAccess FAccess = TMapAccess::Read;
};

}  // namespace fmx
