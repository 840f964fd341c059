// The system under a canvas that draws pictures of glyphs: a canvas class that tells the glyph textures of its scenes,
// and the system's own layout for it.
#pragma once

#include <cstdint>
#include <span>

#include "fmx/CustomCanvasGpu.h"
#include "runtime/RewritableClass.h"

namespace orv {

// The replacements; no object is made of it. Textures must not change while a scene that may draw from them is open, so
// both operations count the scenes of all canvases: a bitmap drawn within the scene of a window does not end it. The
// thread that paints.
class TCanvasGpu : public fmx::TCustomCanvasGpu {
 public:
  TCanvasGpu() = delete;
  static constexpr int SlotCount = fmx::TCustomCanvasGpu::SlotCount;
  static TClass Class();

  // Opens the scene as the wrapped class does, and the textures' bracket with the outermost one.
  static bool DoBeginScene(fmx::TCanvas& self, std::span<const fmx::TRectF> clipRects, void* context);
  // Closes the scene, and the bracket with the outermost one: glyphs met within it move to the textures.
  static void DoEndScene(fmx::TCanvas& self);

  // How many scenes are open.
  static std::int32_t SceneDepth() { return FSceneDepth; }

 private:
  static void SceneEnded();

  static inline std::int32_t FSceneDepth = 0;
};

namespace gpu {

// Makes a class out of the canvas class, of the same name and unit, and registers it as the default canvas, not for
// printers, with TTextLayoutNGOrv as its layout. Raises EAssertionFailed for a class that is no canvas. Main thread.
void RegisterCanvasClasses(TClass canvasClass);

// Does nothing: canvases stay in force to the end of the process.
inline void UnregisterCanvasClasses() {}

}  // namespace gpu
}  // namespace orv
