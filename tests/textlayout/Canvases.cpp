// The canvases and layouts that are generated out of a host's.
#include <gtest/gtest.h>

#include "fmx/Form.h"
#include "fmx/Screen.h"
#include "runtime/VirtualClassGenerator.h"
#include "tests/support/Hosts.h"
#include "tests/textlayout/support/Layouts.h"
#include "textlayout/Orv.Canvas.D2D.h"
#include "textlayout/Orv.Canvas.GDIP.h"
#include "textlayout/Orv.Canvas.GPU.h"

namespace orv::testing {
namespace {

using TStrings = std::vector<std::string>;

class Canvases : public ::testing::Test {
 protected:
  void SetUp() override { ForgetHost(); }
  void TearDown() override { ForgetHost(); }

  // The plain canvas of the host, and one of the class in force, over bitmaps of their own.
  std::unique_ptr<fmx::TCanvas> OnBitmap() { return fmx::TCanvasManager::CreateFromBitmap(FBitmap); }

 private:
  fmx::TBitmap FBitmap{8, 8};
};

// --- The canvas that draws pictures of glyphs ---

class GpuCanvas : public Canvases {
 protected:
  void SetUp() override {
    Canvases::SetUp();
    gpu::RegisterCanvasClasses(THostGpu::Class());
    FCanvas = OnBitmap();
  }
  void TearDown() override {
    THostGpu::Refuses = false;
    THostGpu::Fails = false;
    FCanvas.reset();
    Canvases::TearDown();
    EXPECT_EQ(TCanvasGpu::SceneDepth(), 0);
    EXPECT_FALSE(TGlyphAtlas::IsRendering());
  }
  std::unique_ptr<fmx::TCanvas> FCanvas;
};

TEST_F(GpuCanvas, TheGeneratedClassBearsTheNameAndUnitOfItsParent) {
  const TClass made = fmx::TCanvasManager::DefaultCanvas();
  EXPECT_NE(made, THostGpu::Class());
  EXPECT_EQ(ClassParent(made), THostGpu::Class());
  EXPECT_EQ(ClassName(made), "TCanvasGpu");
  EXPECT_EQ(UnitName(made), "Host.Canvas");
  EXPECT_EQ(InstanceSize(made), InstanceSize(THostGpu::Class()));
}

TEST_F(GpuCanvas, TwoSlotsDifferFromTheParents) {
  const TClass made = fmx::TCanvasManager::DefaultCanvas();
  std::vector<int> replaced;
  for (int i = 0; i < fmx::TCanvas::SlotCount; ++i)
    if (made[i].Method != THostGpu::Class()[i].Method) replaced.push_back(i);
  EXPECT_EQ(replaced, (std::vector<int>{7, 8}));
}

TEST_F(GpuCanvas, ItIsTheDefaultButNoPrinter) {
  EXPECT_EQ(fmx::TCanvasManager::DefaultPrinterCanvas(), nullptr);
  EXPECT_EQ(FCanvas->ClassType(), fmx::TCanvasManager::DefaultCanvas());
}

TEST_F(GpuCanvas, ItsLayoutIsTheSystemsOwn) {
  EXPECT_EQ(fmx::TTextLayoutManager::CreateLayout()->ClassName(), "TTextLayoutNGOrv");
  EXPECT_TRUE(fmx::TTextLayoutManager::CreateLayout(FCanvas.get())->InheritsFrom(TTextLayoutNGOrv::Class()));
  EXPECT_EQ(fmx::TTextLayoutManager::TextLayoutByCanvas(THostGpu::Class()), nullptr) << "the host's canvas has none";
}

TEST_F(GpuCanvas, ASceneOpensTheBracketOfTheTextures) {
  ASSERT_TRUE(FCanvas->BeginScene());
  EXPECT_TRUE(TGlyphAtlas::IsRendering());
  FCanvas->EndScene();
  EXPECT_FALSE(TGlyphAtlas::IsRendering());
  EXPECT_EQ(Told(), (TStrings{"begin", "end"}));
}

TEST_F(GpuCanvas, ASceneWithinASceneOpensAndClosesItOnce) {
  fmx::TBitmap other(8, 8);
  const auto inner = fmx::TCanvasManager::CreateFromBitmap(other);
  ASSERT_TRUE(FCanvas->BeginScene());
  ASSERT_TRUE(FCanvas->BeginScene());
  ASSERT_TRUE(inner->BeginScene());
  EXPECT_EQ(TCanvasGpu::SceneDepth(), 2) << "a canvas opens itself once";
  // The bracket was opened once, so that one EndRender closes it.
  TTextLayoutNGOrv::EndRender();
  EXPECT_FALSE(TGlyphAtlas::IsRendering());
  TTextLayoutNGOrv::BeginRender();
  inner->EndScene();
  EXPECT_TRUE(TGlyphAtlas::IsRendering()) << "the outer scene is open";
  FCanvas->EndScene();
  FCanvas->EndScene();
  EXPECT_FALSE(TGlyphAtlas::IsRendering());
}

TEST_F(GpuCanvas, ARefusedSceneLeavesNothingOpen) {
  THostGpu::Refuses = true;
  EXPECT_FALSE(FCanvas->BeginScene());
  EXPECT_EQ(TCanvasGpu::SceneDepth(), 0);
}

TEST_F(GpuCanvas, ASceneWhoseEndFailsIsOverAllTheSame) {
  THostGpu::Fails = true;
  ASSERT_TRUE(FCanvas->BeginScene());
  EXPECT_THROW(FCanvas->EndScene(), rtl::Exception);
  EXPECT_EQ(TCanvasGpu::SceneDepth(), 0);
  EXPECT_FALSE(TGlyphAtlas::IsRendering());
}

TEST_F(GpuCanvas, AClassGeneratedOutOfAGeneratedOneCountsAScenesOnce) {
  const TClass once = fmx::TCanvasManager::DefaultCanvas();
  fmx::TCanvasManager::UnInitialize();
  gpu::RegisterCanvasClasses(once);
  const auto canvas = OnBitmap();
  EXPECT_EQ(ClassParent(canvas->ClassType()), once);
  ASSERT_TRUE(canvas->BeginScene());
  EXPECT_EQ(TCanvasGpu::SceneDepth(), 1);
  canvas->EndScene();
  EXPECT_EQ(Told(), (TStrings{"begin", "end"}));
}

TEST_F(GpuCanvas, TwoHostsCanvasesKeepTheirOwnScenes) {
  fmx::TCanvasManager::UnInitialize();
  gpu::RegisterCanvasClasses(THostOther::Class());
  const auto other = OnBitmap();
  THostOther::Refuses = true;
  EXPECT_FALSE(other->BeginScene()) << "the other host's operation was called";
  THostOther::Refuses = false;
  ASSERT_TRUE(FCanvas->BeginScene());
  FCanvas->EndScene();
}

TEST_F(GpuCanvas, OnlyCanvasesAreTaken) {
  EXPECT_THROW(gpu::RegisterCanvasClasses(nullptr), rtl::EAssertionFailed);
  EXPECT_THROW(gpu::RegisterCanvasClasses(fmx::TGPUTextLayout::Class()), rtl::EAssertionFailed);
}

TEST_F(GpuCanvas, UnregisteringDoesNothing) {
  const TClass made = fmx::TCanvasManager::DefaultCanvas();
  gpu::UnregisterCanvasClasses();
  EXPECT_EQ(fmx::TCanvasManager::DefaultCanvas(), made);
}

TEST_F(GpuCanvas, AGlyphFirstMetWithinASceneMovesToTheTexturesAfterIt) {
  TFixedScope fixed;
  TGlyphAtlas::Clear();
  TTextLayoutNGOrv layout(FCanvas.get());
  layout.SetText(u"a");
  const auto pictureIsShared = [&] {
    return TGPURun::AddOrGetCharGlyph(FCanvas.get(), U'a',
                                      TGlyphAtlas::GetAtomDictionary(layout.Font(), layout.Scale()), layout.Font(),
                                      layout.Scale())
        .SharedBitmap();
  };
  ASSERT_TRUE(FCanvas->BeginScene());
  layout.RenderLayout(*FCanvas);
  EXPECT_FALSE(pictureIsShared());
  EXPECT_TRUE(TGlyphAtlas::CharMaps().empty());
  fmx::TBitmap other(8, 8);
  const auto inner = fmx::TCanvasManager::CreateFromBitmap(other);
  ASSERT_TRUE(inner->BeginScene());
  inner->EndScene();
  EXPECT_FALSE(pictureIsShared()) << "the scene of a bitmap within it does not end it";
  FCanvas->EndScene();
  EXPECT_EQ(TGlyphAtlas::CharMaps().size(), 1U);
  EXPECT_TRUE(pictureIsShared());
}

// --- Patched layouts ---

class PatchedLayout : public Canvases {
 protected:
  // A layout of the class registered for the canvas class.
  template <typename TCanvasClass>
  std::unique_ptr<fmx::TTextLayout> Make() {
    return fmx::TTextLayout::New(fmx::TTextLayoutManager::TextLayoutByCanvas(TCanvasClass::Class()));
  }
};

TEST_F(PatchedLayout, OfD2DInheritsFromTheHostsAndEndsInOrv) {
  d2d::RegisterTextLayout(THostD2D::Class(), THostD2DLayout::Class());
  const auto layout = Make<THostD2D>();
  EXPECT_EQ(layout->ClassName(), "TTextLayoutD2DOrv");
  EXPECT_EQ(UnitName(layout->ClassType()), "Orv.Canvas.D2D");
  EXPECT_EQ(ClassParent(layout->ClassType()), THostD2DLayout::Class());
  EXPECT_FALSE(layout->InheritsFrom(TTextLayoutNGOrv::Class()));
  EXPECT_EQ(InstanceSize(layout->ClassType()), GrownInstanceSize<TPatchedLayoutFields>(THostD2DLayout::Class()));
}

TEST_F(PatchedLayout, ReplacesTwoSlotsOfD2DAndOneOfGdiPlus) {
  d2d::RegisterTextLayout(THostD2D::Class(), THostD2DLayout::Class());
  gdip::RegisterTextLayout(THostGdiPlus::Class(), THostGdiPlusLayout::Class());
  const auto replaced = [](TClass made, TClass parent) {
    std::vector<int> slots;
    for (int i = 0; i < fmx::TTextLayout::SlotCount; ++i)
      if (made[i].Method != parent[i].Method) slots.push_back(i);
    return slots;
  };
  using TSlots = fmx::TTextLayout::TSlots;
  EXPECT_EQ(replaced(fmx::TTextLayoutManager::TextLayoutByCanvas(THostD2D::Class()), THostD2DLayout::Class()),
            (std::vector<int>{TSlots::DoRenderLayout::Number, TSlots::DoPositionAtPoint::Number}));
  EXPECT_EQ(replaced(fmx::TTextLayoutManager::TextLayoutByCanvas(THostGdiPlus::Class()), THostGdiPlusLayout::Class()),
            (std::vector<int>{TSlots::DoRenderLayout::Number}));
}

TEST_F(PatchedLayout, OfD2DHasATabSizeAndThatOfGdiPlusRaises) {
  d2d::RegisterTextLayout(THostD2D::Class(), THostD2DLayout::Class());
  gdip::RegisterTextLayout(THostGdiPlus::Class(), THostGdiPlusLayout::Class());
  const auto d2dLayout = Make<THostD2D>();
  const TOrvTextLayoutHelper helper(*d2dLayout);
  EXPECT_EQ(helper.GetTabSize(), 0);
  helper.SetTabSize(12.5F);
  EXPECT_EQ(helper.GetTabSize(), 12.5F);
  const auto gdipLayout = Make<THostGdiPlus>();
  EXPECT_EQ(gdipLayout->ClassName(), "TTextLayoutGDIPlusOrv");
  TOrvTextLayoutHelper(*gdipLayout).SetTabSize(12.5F);
  try {
    TOrvTextLayoutHelper(*gdipLayout).GetTabSize();
    FAIL();
  } catch (const rtl::Exception& error) {
    EXPECT_STREQ(error.what(), "TabSize for TTextLayoutGDIPlusOrv layout is not defined");
  }
}

TEST_F(PatchedLayout, LeavesTheDirectionToTheCallerUntilToldOtherwise) {
  d2d::RegisterTextLayout(THostD2D::Class(), THostD2DLayout::Class());
  const auto layout = Make<THostD2D>();
  EXPECT_EQ(TOrvTextLayoutHelper(*layout).GetManualBidi(), TBidiSelectionType::btManual);
  layout->SetText(u"\u0633");
  EXPECT_EQ(Told(), (TStrings{"render left to right"}));
}

TEST_F(PatchedLayout, OfD2DTakesItsDirectionFromTheTextBeforeItRenders) {
  d2d::RegisterTextLayout(THostD2D::Class(), THostD2DLayout::Class());
  const auto layout = Make<THostD2D>();
  TOrvTextLayoutHelper(*layout).SetManualBidi(TBidiSelectionType::btContext);
  layout->SetText(u"\u0633 a");
  layout->SetText(u"a \u0633");
  EXPECT_EQ(Told(), (TStrings{"render right to left", "render left to right"}));
}

TEST_F(PatchedLayout, OfGdiPlusTakesItsDirectionFromTheTextBeforeItRenders) {
  gdip::RegisterTextLayout(THostGdiPlus::Class(), THostGdiPlusLayout::Class());
  const auto layout = Make<THostGdiPlus>();
  FieldsOf<TPatchedLayoutFields>(*layout, THostGdiPlusLayout::Class()).FBidiSelectionType = TBidiSelectionType::btForm;
  layout->SetText(u"\u0633");
  EXPECT_EQ(Told(), (TStrings{"render right to left"}));
}

TEST_F(PatchedLayout, TakesTheDirectionOfTheActiveFormForDigits) {
  d2d::RegisterTextLayout(THostD2D::Class(), THostD2DLayout::Class());
  fmx::TCustomForm form;
  form.SetBiDiMode(fmx::TBiDiMode::RightToLeft);
  form.Activate();
  const auto layout = Make<THostD2D>();
  TOrvTextLayoutHelper(*layout).SetManualBidi(TBidiSelectionType::btContext);
  layout->SetText(u"123");
  EXPECT_EQ(Told(), (TStrings{"render right to left"}));
}

TEST_F(PatchedLayout, IsRegisteredAsItStandsTheSecondTime) {
  d2d::RegisterTextLayout(THostD2D::Class(), THostD2DLayout::Class());
  const TClass once = fmx::TTextLayoutManager::TextLayoutByCanvas(THostD2D::Class());
  fmx::TTextLayoutManager::UnInitialize();
  d2d::RegisterTextLayout(THostD2D::Class(), once);
  EXPECT_EQ(fmx::TTextLayoutManager::TextLayoutByCanvas(THostD2D::Class()), once);
}

TEST_F(PatchedLayout, OnlyLayoutsAreTaken) {
  EXPECT_THROW(d2d::RegisterTextLayout(THostD2D::Class(), nullptr), rtl::EAssertionFailed);
  EXPECT_THROW(gdip::RegisterTextLayout(THostGdiPlus::Class(), THostGdiPlus::Class()), rtl::EAssertionFailed);
}

TEST_F(PatchedLayout, DummyTakesTheFieldsBackToZeros) {
  TPatchedLayoutFields fields{12, TBidiSelectionType::btForm, TTextResizeMode::bmScaleDown, 1, 2, 3};
  TTextLayoutGDIPlusOrvFake::Dummy(fields);
  EXPECT_EQ(fields.FTabSize, 0);
  EXPECT_EQ(fields.FBidiSelectionType, TBidiSelectionType::btManual);
  EXPECT_EQ(fields.FLineDistance, 0);
}

// --- Clicks in a layout of D2D. The box of the text is 10 to 110, 5 to 25. ---

class PatchedClicks : public PatchedLayout {
 protected:
  void SetUp() override {
    PatchedLayout::SetUp();
    d2d::RegisterTextLayout(THostD2D::Class(), THostD2DLayout::Class());
    FLayout = Make<THostD2D>();
    Host().Engine = &FEngine;
    FLayout->SetText(u"abcdefghij");
    FLayout->SetMaxSize({50, 50});  // narrower than the text
    FEngine.Hit = {3, 1, 30, 0, 10, 20, 0};
    FEngine.Stretch = {3, 1, 30, 0, 10, 20, 0};
  }
  THostD2DLayout& Host() { return static_cast<THostD2DLayout&>(*FLayout); }
  std::int32_t At(float x, float y = 10) { return FLayout->PositionAtPoint({x, y}); }

  TScriptedEngine FEngine;
  std::unique_ptr<fmx::TTextLayout> FLayout;
};

TEST_F(PatchedClicks, WithoutANativeLayoutThereIsNoAnswer) {
  Host().Engine = nullptr;
  EXPECT_EQ(At(31), -1);
  EXPECT_EQ(At(5), -1);
}

TEST_F(PatchedClicks, OutsideOfTheBoxThereIsNoAnswer) {
  EXPECT_EQ(At(110), -1);
  EXPECT_EQ(At(31, 4.9F), -1);
  EXPECT_EQ(At(31, 25), -1);
  EXPECT_EQ(At(31, 26), -1);
  EXPECT_EQ(FEngine.Asked.Pos, -1) << "the engine was not asked";
}

TEST_F(PatchedClicks, LeftOfTheBoxAtTheHeightOfItsLinesIsTheStart) {
  EXPECT_EQ(At(-1000), 0);
  EXPECT_EQ(At(9.9F), 0);
  EXPECT_EQ(At(9, 5), 0);
  EXPECT_EQ(At(9, 4.9995F), 0);
  EXPECT_EQ(At(9, 25.0005F), 0);
  EXPECT_EQ(At(10.0005F, 25.0005F), 0) << "within the tolerance";
  EXPECT_EQ(At(9, 4.99F), -1);
  EXPECT_EQ(At(9, 25.01F), -1);
  EXPECT_EQ(At(10.01F, 25.0005F), -1);
}

TEST_F(PatchedClicks, TheBoxIsAsWideAsTheLayoutAtLeast) {
  EXPECT_EQ(At(150), -1);
  FLayout->SetMaxSize({200, 50});
  EXPECT_EQ(At(150), 4);
  EXPECT_EQ(At(209.5F), 4);
  EXPECT_EQ(At(210.5F), -1);
}

TEST_F(PatchedClicks, TheEngineIsAskedWithoutCornerAndPadding) {
  FLayout->SetTopLeft({4, 2});
  FLayout->SetPadding({3, 1, 0, 0});
  At(31, 12);
  EXPECT_EQ(FEngine.Point, (fmx::TPointF{24, 9}));
  EXPECT_EQ(FEngine.Asked, (fmx::TTextRange{3, 1}));
  EXPECT_EQ(FEngine.Origin, (fmx::TPointF{0, 0}));
  EXPECT_EQ(FEngine.Room, 1U);
}

TEST_F(PatchedClicks, ACharacterThatReadsToTheRightEndsAtThreeFifths) {
  EXPECT_EQ(At(35.9F), 3);
  EXPECT_EQ(At(36), 3);
  EXPECT_EQ(At(36.1F), 4);
  FLayout->SetTopLeft({4, 0});
  EXPECT_EQ(At(39.9F), 3);
  EXPECT_EQ(At(40.1F), 4);
}

TEST_F(PatchedClicks, ACharacterThatReadsToTheLeftEndsAtTwoFifths) {
  FEngine.Stretch.BidiLevel = 1;
  EXPECT_EQ(At(34.1F), 3);
  EXPECT_EQ(At(33.9F), 4);
  FEngine.Stretch.BidiLevel = 2;
  EXPECT_EQ(At(33.9F), 3) << "even levels read to the right";
}

TEST_F(PatchedClicks, AStretchWithoutWidthIsNotDivided) {
  for (const float width : {0.0F, -10.0F}) {
    FEngine.Stretch.Width = width;
    EXPECT_EQ(At(60), 3);
  }
}

TEST_F(PatchedClicks, WhereNoStretchIsFoundTheWholeTextIsMeasured) {
  FEngine.HasStretch = false;
  Host().Metrics.WidthIncludingTrailingWhitespace = 50;
  EXPECT_EQ(At(59.9F), 3);  // 30 and three fifths of 50
  EXPECT_EQ(At(60.1F), 4);
  Host().Metrics.WidthIncludingTrailingWhitespace = 0;
  EXPECT_EQ(At(109), 3);
}

TEST_F(PatchedClicks, AHitThatIsNeitherTrailingNorInsideStands) {
  FEngine.Inside = false;
  EXPECT_EQ(At(39), 3);
  EXPECT_EQ(FEngine.Asked.Pos, -1);
  FEngine.Trailing = true;
  EXPECT_EQ(At(39), 4);
}

TEST_F(PatchedClicks, NeverEndInsideASurrogatePair) {
  FLayout->SetText(u"abc\U0001F600d");
  EXPECT_EQ(At(31), 3);
  EXPECT_EQ(At(39), 5);
  FEngine.Hit.TextPosition = 4;
  EXPECT_EQ(At(31), 5);
}

TEST_F(PatchedClicks, AnEngineThatAnswersBeyondTheTextIsHeldAtItsEnd) {
  FEngine.Hit.TextPosition = 0xFFFFFFFF;
  FEngine.HasStretch = false;
  EXPECT_EQ(At(31), 10);
}

TEST_F(PatchedClicks, ALayoutOfAnotherMakeAnswersAsItsOwnClassDoes) {
  d2d::RegisterTextLayout(THostOther::Class(), THostGdiPlusLayout::Class());
  const auto layout = Make<THostOther>();
  EXPECT_EQ(layout->PositionAtPoint({-5, -5}), fmx::TGPUTextLayout().PositionAtPoint({-5, -5}));
}

}  // namespace
}  // namespace orv::testing
