// What OrvReady puts in the place of what a host has registered, by the name of the host's canvas.
#include <gtest/gtest.h>

#include "runtime/Orv.Controls.h"
#include "tests/support/Hosts.h"
#include "textlayout/Orv.Canvas.GPU.h"
#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv::testing {
namespace {

using fmx::TCanvasManager;
using fmx::TTextLayoutManager;

class Swap : public ::testing::Test {
 protected:
  void SetUp() override { ForgetHost(); }
  void TearDown() override { ForgetHost(); }
};

void RegisterGpu() {
  RegisterDefault<THostGpu>(fmx::TGPUTextLayout::Class());
}

TEST_F(Swap, WithoutAPlatformNothingIsSwapped) {
  RegisterGpu();
  OrvReady();
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), THostGpu::Class());
  EXPECT_EQ(TTextLayoutManager::GetDefaultLayout(), fmx::TGPUTextLayout::Class());
}

TEST_F(Swap, WithoutACanvasServiceNothingIsSwapped) {
  fmx::TPlatformServices::SetCurrent(std::make_unique<fmx::TPlatformServices>());
  RegisterGpu();
  OrvReady();
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), THostGpu::Class());
}

TEST_F(Swap, AServiceThatRegistersNothingIsCalledOnce) {
  const auto service = SetUpHost([] {});
  OrvReady();
  EXPECT_EQ(service->Calls, 1);
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), nullptr);
}

TEST_F(Swap, AGpuCanvasIsWrappedAndGetsTheSystemsLayout) {
  const auto service = SetUpHost(RegisterGpu);
  OrvReady();
  const TClass canvas = TCanvasManager::DefaultCanvas();
  EXPECT_EQ(ClassParent(canvas), THostGpu::Class());
  EXPECT_EQ(TTextLayoutManager::GetDefaultLayout(), TTextLayoutNGOrv::Class());
  EXPECT_EQ(service->Calls, 2);
  EXPECT_FALSE(TCanvasManager::SoftwareCanvasEnabled());
  EXPECT_EQ(TTextLayoutManager::TextLayoutByCanvas(THostGpu::Class()), fmx::TGPUTextLayout::Class())
      << "the second call of the service registers the host's own behind the system's";
}

TEST_F(Swap, ASecondRunChangesNothingForAGpuCanvas) {
  const auto service = SetUpHost(RegisterGpu);
  OrvReady();
  const TClass canvas = TCanvasManager::DefaultCanvas();
  TCanvasManager::EnableSoftwareCanvas(true);
  OrvReady();
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), canvas);
  EXPECT_EQ(TTextLayoutManager::GetDefaultLayout(), TTextLayoutNGOrv::Class());
  EXPECT_TRUE(TCanvasManager::SoftwareCanvasEnabled()) << "nothing was reset";
  EXPECT_EQ(service->Calls, 3) << "the canvases are asked for, and no more";
}

TEST_F(Swap, ACanvasD2DStaysAndItsLayoutIsPatched) {
  const auto service = SetUpHost([] { RegisterDefault<THostD2D>(THostD2DLayout::Class()); });
  OrvReady();
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), THostD2D::Class());
  const TClass layout = TTextLayoutManager::GetDefaultLayout();
  EXPECT_EQ(ClassName(layout), "TTextLayoutD2DOrv");
  EXPECT_EQ(ClassParent(layout), THostD2DLayout::Class());
  EXPECT_EQ(service->Calls, 2);
  EXPECT_FALSE(TCanvasManager::SoftwareCanvasEnabled());
  OrvReady();
  EXPECT_EQ(TTextLayoutManager::GetDefaultLayout(), layout) << "once is enough";
}

TEST_F(Swap, ACanvasGdiPlusStaysAndItsLayoutIsPatched) {
  const auto service = SetUpHost([] { RegisterDefault<THostGdiPlus>(THostGdiPlusLayout::Class()); });
  OrvReady();
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), THostGdiPlus::Class());
  EXPECT_EQ(ClassName(TTextLayoutManager::GetDefaultLayout()), "TTextLayoutGDIPlusOrv");
  EXPECT_EQ(service->Calls, 2);
  EXPECT_FALSE(TCanvasManager::SoftwareCanvasEnabled());
}

TEST_F(Swap, ACanvasOfAnotherNameIsLeftAlone) {
  const auto service = SetUpHost([] { RegisterDefault<THostOther>(fmx::TGPUTextLayout::Class()); });
  OrvReady();
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), THostOther::Class());
  EXPECT_EQ(TTextLayoutManager::GetDefaultLayout(), fmx::TGPUTextLayout::Class());
  EXPECT_EQ(service->Calls, 1);
  EXPECT_TRUE(TCanvasManager::SoftwareCanvasEnabled());
}

TEST_F(Swap, ACanvasWithoutALayoutHasNothingToPatch) {
  SetUpHost([] { TCanvasManager::RegisterCanvas(THostD2D::Class(), true, false); });
  OrvReady();
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), THostD2D::Class());
  EXPECT_TRUE(TCanvasManager::SoftwareCanvasEnabled());
}

// A printer canvas that the application, not the service, has registered.
template <typename TCanvasClass>
class SwapWithPrinter : public Swap {};

using TSwapped = ::testing::Types<THostGpu, THostD2D, THostGdiPlus, THostOther>;
TYPED_TEST_SUITE(SwapWithPrinter, TSwapped);

TYPED_TEST(SwapWithPrinter, APrinterCanvasPresentBeforeTheSwapIsPresentAfterIt) {
  SetUpHost([] { RegisterDefault<TypeParam>(fmx::TGPUTextLayout::Class()); });
  TCanvasManager::RegisterCanvas(THostPrinter::Class(), false, true);
  OrvReady();
  EXPECT_EQ(TCanvasManager::DefaultPrinterCanvas(), THostPrinter::Class());
  EXPECT_NE(TCanvasManager::DefaultCanvas(), THostPrinter::Class());
}

TYPED_TEST(SwapWithPrinter, OneThatTheServiceRegistersStaysTheServices) {
  SetUpHost([] {
    RegisterDefault<TypeParam>(fmx::TGPUTextLayout::Class());
    TCanvasManager::RegisterCanvas(THostPrinter::Class(), false, true);
  });
  OrvReady();
  EXPECT_EQ(TCanvasManager::DefaultPrinterCanvas(), THostPrinter::Class());
}

TEST_F(Swap, WithoutAPrinterThereIsNoneAfterIt) {
  SetUpHost(RegisterGpu);
  OrvReady();
  EXPECT_EQ(TCanvasManager::DefaultPrinterCanvas(), nullptr);
}

TEST_F(Swap, CanvasesAndLayoutsMadeBeforeStayAsTheyAre) {
  SetUpHost(RegisterGpu);
  RegisterGpu();
  fmx::TBitmap bitmap(4, 4);
  const auto canvas = TCanvasManager::CreateFromBitmap(bitmap);
  OrvReady();
  EXPECT_EQ(canvas->ClassType(), THostGpu::Class());
  ASSERT_TRUE(canvas->BeginScene());
  EXPECT_EQ(TCanvasGpu::SceneDepth(), 0);
  canvas->EndScene();
}

}  // namespace
}  // namespace orv::testing
