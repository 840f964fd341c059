// The installation on the software canvas.
#include <gtest/gtest.h>

#include "fmx/CanvasManager.h"
#include "fmx/FixedGlyphs.h"
#include "fmx/FontGlyphManager.h"
#include "fmx/TextLayoutManager.h"
#include "platform/CanvasService.h"
#include "platform/CanvasWindow.h"
#include "platform/SoftwareCanvas.h"
#include "runtime/Marzel.h"
#include "textlayout/Orv.Canvas.GPU.h"
#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv::platform {
namespace {

class Installed : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    fmx::TFontGlyphManager::RegisterBackEnd([] { return std::make_unique<fmx::TFixedGlyphs>(); });
    fmx::TPlatformServices::SetCurrent(std::make_unique<fmx::TPlatformServices>());
    fmx::TPlatformServices::Current()->AddPlatformService(fmx::ICanvasService::Guid,
                                                          std::make_shared<TCanvasService>());
    Install();
  }
};

bool HasInk(const fmx::TBitmapSurface& surface) {
  for (std::int32_t y = 0; y < surface.Height(); ++y)
    for (const fmx::TPixel pixel : surface.Scanline(y))
      if (fmx::AlphaOf(pixel) != 0) return true;
  return false;
}

TEST_F(Installed, TheDefaultCanvasIsTheSoftwareCanvasWrapped) {
  EXPECT_EQ(ClassName(fmx::TCanvasManager::DefaultCanvas()), "TCanvasGpu");
  EXPECT_EQ(ClassParent(fmx::TCanvasManager::DefaultCanvas()), TSoftwareCanvas::Class());
  EXPECT_EQ(fmx::TTextLayoutManager::GetDefaultLayout(), TTextLayoutNGOrv::Class());
}

TEST_F(Installed, ItsCanvasesDrawTheSystemsLayoutsOnBitmaps) {
  fmx::TBitmap bitmap(100, 30);
  const auto canvas = fmx::TCanvasManager::CreateFromBitmap(bitmap);
  ASSERT_NE(dynamic_cast<TSoftwareCanvas*>(canvas.get()), nullptr);
  const auto layout = fmx::TTextLayoutManager::CreateLayout(canvas.get());
  layout->SetMaxSize({100, 30});
  layout->SetText(u"سلام");
  EXPECT_TRUE(layout->RightToLeft());
  ASSERT_TRUE(canvas->BeginScene());
  EXPECT_TRUE(TGlyphAtlas::IsRendering());
  layout->RenderLayout(*canvas);
  canvas->EndScene();
  EXPECT_FALSE(TGlyphAtlas::IsRendering());
  EXPECT_TRUE(HasInk(bitmap.Surface()));
}

TEST_F(Installed, TextOfTheCanvasItselfIsLaidOutByTheSystem) {
  fmx::TBitmap bitmap(100, 30);
  const auto canvas = fmx::TCanvasManager::CreateFromBitmap(bitmap);
  TGlyphAtlas::Clear();
  ASSERT_TRUE(canvas->BeginScene());
  canvas->Fill().SetColor(fmx::TAlphaColors::Black);
  canvas->FillText({0, 0, 100, 30}, u"سلام", false, 1, fmx::TTextAlign::Leading);
  canvas->EndScene();
  EXPECT_TRUE(HasInk(bitmap.Surface()));
  EXPECT_EQ(TGlyphAtlas::CharMaps().size(), 1U) << "its glyphs are in the system's textures";
}

TEST_F(Installed, ABitmapDrawnWithinTheSceneOfAWindowKeepsTheTexturesClosed) {
  THeadlessWindow window;
  const auto canvas = fmx::TCanvasManager::CreateFromWindow(&window, 50, 30, 1);
  fmx::TBitmap bitmap(50, 30);
  const auto inner = fmx::TCanvasManager::CreateFromBitmap(bitmap);
  ASSERT_TRUE(canvas->BeginScene());
  ASSERT_TRUE(inner->BeginScene());
  inner->EndScene();
  EXPECT_TRUE(TGlyphAtlas::IsRendering());
  EXPECT_EQ(window.Count(), 0);
  canvas->EndScene();
  EXPECT_FALSE(TGlyphAtlas::IsRendering());
}

class TBrokenWindow : public TCanvasWindow {
 public:
  void Present(const fmx::TBitmapSurface&, const fmx::TRect&) override { throw rtl::Exception("The display is gone"); }
};

TEST_F(Installed, AWindowThatIsGoneEndsItsScene) {
  TBrokenWindow window;
  const auto canvas = fmx::TCanvasManager::CreateFromWindow(&window, 50, 30, 1);
  ASSERT_TRUE(canvas->BeginScene());
  canvas->Clear(fmx::TAlphaColors::White);
  EXPECT_THROW(canvas->EndScene(), rtl::Exception);
  EXPECT_EQ(TCanvasGpu::SceneDepth(), 0);
}

TEST_F(Installed, AMeasureCanvasRefusesScenesAndLeavesNothingOpen) {
  EXPECT_FALSE(fmx::TCanvasManager::MeasureCanvas().BeginScene());
  EXPECT_EQ(TCanvasGpu::SceneDepth(), 0);
}

}  // namespace
}  // namespace orv::platform
