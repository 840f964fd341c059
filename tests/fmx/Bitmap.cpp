#include "fmx/Bitmap.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "fmx/CanvasManager.h"
#include "fmx/Exceptions.h"
#include "fmx/Limits.h"
#include "fmx/NullCanvas.h"

namespace {

using fmx::TBitmap;
using fmx::TBitmapData;
using fmx::TBitmapSurface;
using fmx::TMapAccess;

TEST(BitmapSurface, HasRowsOfItsWidth) {
  TBitmapSurface surface(3, 2);
  surface.Scanline(1)[2] = 7;
  EXPECT_EQ(surface.Pixels()[5], 7U);
  EXPECT_EQ(surface.Scanline(0).size(), 3U);
  EXPECT_TRUE(surface.Scanline(-1).empty());
  EXPECT_TRUE(surface.Scanline(2).empty());
  surface.SetSize(3, 2);
  EXPECT_EQ(surface.Pixels()[5], 0U);
  surface.SetSize(0, 5);
  EXPECT_TRUE(surface.IsEmpty());
  EXPECT_EQ(surface.Height(), 0);
}

TEST(BitmapSurface, ASizeBeyondTheLimitsIsRefusedAndChangesNothing) {
  TBitmapSurface surface(3, 2);
  EXPECT_THROW(surface.SetSize(fmx::MaxBitmapSide + 1, 1), fmx::EBitmapSizeTooBig);
  EXPECT_THROW(surface.SetSize(1, std::numeric_limits<std::int32_t>::max()), fmx::EBitmapSizeTooBig);
  EXPECT_THROW(surface.SetSize(fmx::MaxBitmapSide, fmx::MaxBitmapSide), fmx::EBitmapSizeTooBig);
  EXPECT_EQ(surface.Width(), 3);
  EXPECT_EQ(surface.Pixels().size(), 6U);
}

TEST(Bitmap, ARefusedSizeLeavesPixelsCanvasAndHandle) {
  fmx::TCanvasManager::RegisterCanvas(fmx::TNullCanvas::Class(), true, false);
  TBitmap bitmap(4, 3);
  bitmap.Clear(0xFF112233);
  fmx::TCanvas* canvas = &bitmap.Canvas();
  bitmap.SetHandle(std::make_unique<fmx::TBitmapHandle>());
  const fmx::TBitmapHandle* handle = bitmap.Handle();
  const auto version = bitmap.Version();
  EXPECT_THROW(bitmap.SetSize(fmx::MaxBitmapSide + 1, 1), fmx::EBitmapSizeTooBig);
  EXPECT_EQ(bitmap.Width(), 4);
  EXPECT_EQ(bitmap.Surface().Pixels()[11], 0xFF112233U);
  ASSERT_TRUE(bitmap.HasCanvas());
  EXPECT_EQ(&bitmap.Canvas(), canvas);
  EXPECT_EQ(bitmap.Handle(), handle);
  EXPECT_EQ(bitmap.Version(), version);
  bitmap.SetSize(2, 2);
  EXPECT_FALSE(bitmap.HasCanvas());
  EXPECT_EQ(bitmap.Handle(), nullptr);
  fmx::TCanvasManager::UnInitialize();
}

TEST(Bitmap, MapsOnceAtATime) {
  TBitmap bitmap(4, 4);
  TBitmapData first;
  TBitmapData second;
  ASSERT_TRUE(bitmap.Map(TMapAccess::Write, first));
  EXPECT_TRUE(bitmap.IsMapped());
  EXPECT_FALSE(bitmap.Map(TMapAccess::Read, second));
  EXPECT_TRUE(second.IsEmpty());
  first.Scanline(2)[1] = 0xFF112233;
  bitmap.Unmap(second);
  EXPECT_TRUE(bitmap.IsMapped());
  bitmap.Unmap(first);
  EXPECT_FALSE(bitmap.IsMapped());
  EXPECT_TRUE(first.IsEmpty());
  ASSERT_TRUE(bitmap.Map(TMapAccess::Read, second));
  EXPECT_EQ(second.GetPixel(1, 2), 0xFF112233U);
  EXPECT_EQ(second.GetPixel(-1, 2), 0U);
  EXPECT_EQ(second.GetPixel(4, 2), 0U);
  EXPECT_EQ(second.GetPixel(1, 4), 0U);
}

TEST(Bitmap, DataThatGoesOutOfScopeUnmaps) {
  TBitmap bitmap(1, 1);
  {
    TBitmapData data;
    ASSERT_TRUE(bitmap.Map(TMapAccess::Write, data));
  }
  EXPECT_FALSE(bitmap.IsMapped());
}

TEST(Bitmap, OnlyWritingRaisesTheVersion) {
  TBitmap bitmap(1, 1);
  const auto before = bitmap.Version();
  TBitmapData data;
  ASSERT_TRUE(bitmap.Map(TMapAccess::Read, data));
  bitmap.Unmap(data);
  EXPECT_EQ(bitmap.Version(), before);
  ASSERT_TRUE(bitmap.Map(TMapAccess::Write, data));
  bitmap.Unmap(data);
  EXPECT_GT(bitmap.Version(), before);
}

TEST(Bitmap, KeepsItsSizeWhileItIsMapped) {
  TBitmap bitmap(2, 2);
  TBitmapData data;
  ASSERT_TRUE(bitmap.Map(TMapAccess::Write, data));
  bitmap.SetSize(9, 9);
  bitmap.FreeHandle();
  bitmap.Assign(TBitmap(7, 7));
  EXPECT_EQ(data.Width(), 2);
  EXPECT_EQ(data.Scanline(1).size(), 2U);
}

TEST(Bitmap, CannotBeMappedWithoutPixels) {
  TBitmap bitmap;
  TBitmapData data;
  EXPECT_FALSE(bitmap.Map(TMapAccess::Read, data));
  bitmap.SetSize(2, 2);
  bitmap.FreeHandle();
  EXPECT_TRUE(bitmap.IsEmpty());
  EXPECT_FALSE(bitmap.Map(TMapAccess::Read, data));
}

TEST(Bitmap, ClearsToPremultipliedPixels) {
  TBitmap bitmap(1, 1);
  bitmap.Clear(0x80FF0000);
  EXPECT_EQ(bitmap.Surface().Pixels()[0], 0x80800000U);
}

TEST(Bitmap, AssignCopiesPictureAndScale) {
  TBitmap from(2, 1, 1.5F);
  from.Clear(fmx::TAlphaColors::White);
  TBitmap to(9, 9);
  to.Assign(from);
  EXPECT_EQ(to.Surface(), from.Surface());
  EXPECT_EQ(to.BitmapScale(), 1.5F);
  to.SetBitmapScale(0);
  to.SetBitmapScale(std::numeric_limits<float>::quiet_NaN());
  EXPECT_EQ(to.BitmapScale(), 1.5F);
}

class BitmapCanvas : public testing::Test {
 protected:
  ~BitmapCanvas() override { fmx::TCanvasManager::UnInitialize(); }
};

TEST_F(BitmapCanvas, IsMadeByTheDefaultClassForTheBitmapsSizeAndScale) {
  TBitmap bitmap(30, 20, 2);
  EXPECT_THROW(bitmap.Canvas(), fmx::ENotRegistered);
  fmx::TCanvasManager::RegisterCanvas(fmx::TNullCanvas::Class(), true, false);
  fmx::TCanvas& canvas = bitmap.Canvas();
  EXPECT_EQ(&canvas, &bitmap.Canvas());
  EXPECT_EQ(canvas.Target().Bitmap, &bitmap);
  EXPECT_EQ(canvas.Width(), 15);
  EXPECT_EQ(canvas.Height(), 10);
  EXPECT_EQ(canvas.Scale(), 2);
}

TEST_F(BitmapCanvas, AnOpenSceneHoldsThePixels) {
  fmx::TCanvasManager::RegisterCanvas(fmx::TNullCanvas::Class(), true, false);
  TBitmap bitmap(4, 4);
  ASSERT_TRUE(bitmap.Canvas().BeginScene());
  TBitmapData data;
  EXPECT_FALSE(bitmap.Map(TMapAccess::Write, data));
  bitmap.SetSize(9, 9);
  EXPECT_EQ(bitmap.Width(), 4);
  bitmap.Canvas().EndScene();
  EXPECT_TRUE(bitmap.Map(TMapAccess::Write, data));
  bitmap.Unmap(data);
  bitmap.SetSize(9, 9);
  EXPECT_FALSE(bitmap.HasCanvas());
}

class TCountingHandle : public fmx::TBitmapHandle {
 public:
  explicit TCountingHandle(int& count) : FCount(count) { ++FCount; }
  ~TCountingHandle() override { --FCount; }

 private:
  int& FCount;
};

TEST(Bitmap, TheCanvassCopyGoesWithThePixels) {
  int count = 0;
  {
    TBitmap bitmap(2, 2);
    bitmap.SetHandle(std::make_unique<TCountingHandle>(count));
    EXPECT_EQ(count, 1);
    bitmap.FreeHandle();
    EXPECT_EQ(count, 0);
    bitmap.SetHandle(std::make_unique<TCountingHandle>(count));
  }
  EXPECT_EQ(count, 0);
}

}  // namespace
