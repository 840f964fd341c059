#include "fmx/CanvasManager.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "fmx/Exceptions.h"
#include "fmx/NullCanvas.h"
#include "fmx/RecordingCanvas.h"
#include "fmx/Services.h"
#include "runtime/VirtualClassGenerator.h"

namespace {

using fmx::TCanvasManager;
using fmx::TNullCanvas;
using fmx::TRecordingCanvas;

class CanvasManager : public testing::Test {
 protected:
  ~CanvasManager() override {
    TCanvasManager::UnInitialize();
    TCanvasManager::EnableSoftwareCanvas(true);
    fmx::TPlatformServices::SetCurrent(nullptr);
  }
};

TEST_F(CanvasManager, WithoutClassesThereAreNoCanvases) {
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), nullptr);
  EXPECT_EQ(TCanvasManager::DefaultPrinterCanvas(), nullptr);
  EXPECT_THROW(TCanvasManager::MeasureCanvas(), fmx::ENotRegistered);
  EXPECT_THROW(TCanvasManager::CreateFromWindow(nullptr, 1, 1, 1), fmx::ENotRegistered);
  TCanvasManager::RegisterCanvas(nullptr, true, true);
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), nullptr);
}

TEST_F(CanvasManager, TheFirstDefaultStays) {
  TCanvasManager::RegisterCanvas(fmx::TCustomCanvasGpu::Class(), false, false);
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), nullptr);
  TCanvasManager::RegisterCanvas(TNullCanvas::Class(), true, false);
  TCanvasManager::RegisterCanvas(TRecordingCanvas::Class(), true, false);
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), TNullCanvas::Class());
}

TEST_F(CanvasManager, PrintersHaveADefaultOfTheirOwn) {
  TCanvasManager::RegisterCanvas(TNullCanvas::Class(), true, true);
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), nullptr);
  TCanvasManager::RegisterCanvas(TRecordingCanvas::Class(), true, false);
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), TRecordingCanvas::Class());
  EXPECT_EQ(TCanvasManager::DefaultPrinterCanvas(), TNullCanvas::Class());
}

TEST_F(CanvasManager, UnInitializeForgetsClassesAndTheMeasureCanvas) {
  TCanvasManager::RegisterCanvas(TNullCanvas::Class(), true, false);
  TCanvasManager::RegisterCanvas(TNullCanvas::Class(), false, true);
  EXPECT_EQ(TCanvasManager::MeasureCanvas().ClassName(), "TNullCanvas");
  TCanvasManager::UnInitialize();
  EXPECT_EQ(TCanvasManager::DefaultPrinterCanvas(), nullptr);
  TCanvasManager::RegisterCanvas(TRecordingCanvas::Class(), true, false);
  EXPECT_EQ(TCanvasManager::MeasureCanvas().ClassName(), "TRecordingCanvas");
}

class TScreen : public fmx::IScreenService {
 public:
  float GetScreenScale() override { return 1.5F; }
  fmx::TBiDiMode GetActiveFormBiDiMode() override { return fmx::TBiDiMode::LeftToRight; }
};

TEST_F(CanvasManager, TheMeasureCanvasHasTheScreensScaleAndIsMadeOnce) {
  fmx::TPlatformServices::SetCurrent(std::make_unique<fmx::TPlatformServices>());
  fmx::TPlatformServices::Current()->AddPlatformService(fmx::IScreenService::Guid, std::make_shared<TScreen>());
  TCanvasManager::RegisterCanvas(TNullCanvas::Class(), true, false);
  EXPECT_EQ(TCanvasManager::MeasureCanvas().Scale(), 1.5F);
  EXPECT_EQ(&TCanvasManager::MeasureCanvas(), &TCanvasManager::MeasureCanvas());
  EXPECT_EQ(TCanvasManager::MeasureCanvas().Target().Kind, fmx::TCanvasTarget::TKind::Measure);
}

TEST_F(CanvasManager, MakesWindowCanvasesOfTheDefaultClass) {
  TCanvasManager::RegisterCanvas(TNullCanvas::Class(), true, false);
  int window = 0;
  const auto canvas = TCanvasManager::CreateFromWindow(&window, 200, 100, 2);
  EXPECT_EQ(canvas->Target().Window, &window);
  EXPECT_EQ(canvas->Width(), 100);
  EXPECT_EQ(canvas->ClassType(), TNullCanvas::Class());
}

TEST_F(CanvasManager, SoftwareCanvasesAreAllowedUntilTheyAreNot) {
  EXPECT_TRUE(TCanvasManager::SoftwareCanvasEnabled());
  TCanvasManager::EnableSoftwareCanvas(false);
  EXPECT_FALSE(TCanvasManager::SoftwareCanvasEnabled());
  EXPECT_TRUE(fmx::GlobalUseGPUCanvas);
}

// Scenes counted over all canvases of a class that wraps its parent's.
int depth = 0;
int outermost = 0;
orv::TMethodAddress keptBegin = nullptr;
orv::TMethodAddress keptEnd = nullptr;
using TSlots = fmx::TCanvas::TSlots;

bool CountingBegin(fmx::TCanvas& canvas, std::span<const fmx::TRectF> rects, void* context) {
  const bool opened = orv::MethodAs<TSlots::DoBeginScene>(keptBegin)(canvas, rects, context);
  if (depth++ == 0) ++outermost;
  return opened;
}

void CountingEnd(fmx::TCanvas& canvas) {
  orv::MethodAs<TSlots::DoEndScene>(keptEnd)(canvas);
  --depth;
}

TEST_F(CanvasManager, AClassMadeAtRunTimeBracketsTheScenesOfEveryCanvas) {
  const orv::TClass parent = TRecordingCanvas::Class();
  keptBegin = orv::TVmt::GetVMT(parent)->GetMethod(TSlots::DoBeginScene::Number);
  keptEnd = orv::TVmt::GetVMT(parent)->GetMethod(TSlots::DoEndScene::Number);
  const std::vector<orv::TVirtualClassGenerator::TOverrideMethodInfo> overrides{
      {TSlots::DoBeginScene::Number, orv::AddressOf<TSlots::DoBeginScene>(&CountingBegin)},
      {TSlots::DoEndScene::Number, orv::AddressOf<TSlots::DoEndScene>(&CountingEnd)}};
  const orv::TClass made =
      orv::TVirtualClassGenerator::CreateNewClass(parent, u"tests.Canvas", u"TRecordingCanvas", overrides);
  TCanvasManager::RegisterCanvas(made, true, false);
  fmx::TBitmap first(4, 4);
  fmx::TBitmap second(4, 4);
  for (int frame = 1; frame <= 3; ++frame) {
    ASSERT_TRUE(first.Canvas().BeginScene());
    ASSERT_TRUE(first.Canvas().BeginScene());
    ASSERT_TRUE(second.Canvas().BeginScene());
    EXPECT_EQ(depth, 2);
    second.Canvas().EndScene();
    first.Canvas().EndScene();
    EXPECT_EQ(depth, 1);
    first.Canvas().EndScene();
    EXPECT_EQ(depth, 0);
    EXPECT_EQ(outermost, frame);
  }
  EXPECT_EQ(first.Canvas().ClassType(), made);
  EXPECT_TRUE(first.Canvas().InheritsFrom(parent));
  const auto& calls = static_cast<TRecordingCanvas&>(first.Canvas()).Calls();
  EXPECT_EQ(calls.size(), 6U);  // the kept entries were called, too
}

}  // namespace
