#include "textlayout/Orv.Canvas.GPU.h"

#include <string>

#include "fmx/CanvasManager.h"
#include "fmx/TextLayoutManager.h"
#include "rtl/Assertions.h"
#include "rtl/Utf8.h"
#include "runtime/VirtualClassGenerator.h"
#include "textlayout/Orv.Canvas.Wrapped.h"
#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv {
namespace {

using TSlots = fmx::TCanvas::TSlots;
using TBegin = Fill<TSlots::DoBeginScene, &TCanvasGpu::DoBeginScene>;
using TEnd = Fill<TSlots::DoEndScene, &TCanvasGpu::DoEndScene>;

// Where hosts that are compiled against the framework have it.
constexpr std::int32_t DoEndSceneIndex = 8;

}  // namespace

TClass TCanvasGpu::Class() {
  return CompiledClass<TCanvasGpu, fmx::TCustomCanvasGpu, TBegin, TEnd>("Orv.Canvas.GPU", "TCanvasGpu");
}

bool TCanvasGpu::DoBeginScene(fmx::TCanvas& self, std::span<const fmx::TRectF> clipRects, void* context) {
  const TClass wrapped = WrappedClass<TSlots::DoBeginScene>(self.ClassType(), &TCanvasGpu::DoBeginScene);
  const bool opened = Record(wrapped).Slot<TSlots::DoBeginScene>()(self, clipRects, context);
  if (FSceneDepth == 0) TTextLayoutNGOrv::BeginRender();
  ++FSceneDepth;
  return opened;
}

void TCanvasGpu::DoEndScene(fmx::TCanvas& self) {
  const TClass wrapped = WrappedClass<TSlots::DoEndScene>(self.ClassType(), &TCanvasGpu::DoEndScene);
  try {
    Record(wrapped).Slot<TSlots::DoEndScene>()(self);
  } catch (...) {
    SceneEnded();  // as when a window is gone: the scene is over all the same
    throw;
  }
  SceneEnded();
}

void TCanvasGpu::SceneEnded() {
  if (FSceneDepth > 0 && --FSceneDepth == 0) TTextLayoutNGOrv::EndRender();
}

namespace gpu {

void RegisterCanvasClasses(TClass canvasClass) {
  if (canvasClass == nullptr || !InheritsFrom(canvasClass, fmx::TCanvas::Class()))
    throw rtl::EAssertionFailed("RegisterCanvasClasses: the class is no canvas");
  const TVmt* fake = TVmt::GetVMT(TCanvasGpu::Class());
  const std::int32_t end = fake->GetMethodIndex(TEnd::Address());
  ORV_ASSERT(end == DoEndSceneIndex, "DoEndScene is virtual " + std::to_string(end));
  const TVirtualClassGenerator::TOverrideMethodInfo overrides[] = {
      {fake->GetMethodIndex(TBegin::Address()), TBegin::Address()}, {end, TEnd::Address()}};
  const TClass made = TVirtualClassGenerator::CreateNewClass(canvasClass, rtl::FromUtf8(UnitName(canvasClass)),
                                                             rtl::FromUtf8(ClassName(canvasClass)), overrides);
  fmx::TCanvasManager::RegisterCanvas(made, true, false);
  fmx::TTextLayoutManager::RegisterTextLayout(TTextLayoutNGOrv::Class(), made);
}

}  // namespace gpu
}  // namespace orv
