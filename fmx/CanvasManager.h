// Which canvas classes there are, and canvases made by them.
#pragma once

#include <cstdint>
#include <memory>

#include "fmx/Canvas.h"

namespace fmx {

// Whether the default canvas draws glyphs out of shared textures; controls give right-to-left text their own treatment
// only then.
inline bool GlobalUseGPUCanvas = true;

// A holder of process-wide state without instances; main thread. The platform's canvas service (fmx/Services.h)
// registers the classes.
class TCanvasManager {
 public:
  // Adds a class. The first one that was registered as default stays the default, and so for printers: what is
  // registered later serves where nothing was before it. A class registered again keeps its first place.
  static void RegisterCanvas(orv::TClass canvasClass, bool isDefault, bool isPrinter);

  // Forgets all classes, and the measure canvas with them. Canvases made before stay as they are.
  static void UnInitialize();

  // Tells canvas services whether they may register a canvas without hardware where there is one with; true at first.
  static void EnableSoftwareCanvas(bool enable) { FSoftwareEnabled = enable; }
  static bool SoftwareCanvasEnabled() { return FSoftwareEnabled; }

  // The class in force; null where none is registered.
  static orv::TClass DefaultCanvas();
  static orv::TClass DefaultPrinterCanvas();

  // Canvases of the default class. They raise ENotRegistered where there is none.
  static std::unique_ptr<TCanvas> CreateFromBitmap(TBitmap& bitmap);
  // The window is what the back end's window layer hands it; the size is in pixels.
  static std::unique_ptr<TCanvas> CreateFromWindow(void* window, std::int32_t pixelWidth, std::int32_t pixelHeight,
                                                   float scale);
  // A canvas that draws nowhere, for the sizes of texts; made at the first call, with the scale of the screen. The
  // reference holds up to the next UnInitialize.
  static TCanvas& MeasureCanvas();

 private:
  static std::unique_ptr<TCanvas> Create(const TCanvasTarget& target);

  static inline bool FSoftwareEnabled = true;
};

}  // namespace fmx
