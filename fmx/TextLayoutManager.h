// Which layout class serves which canvas class.
#pragma once

#include <memory>

#include "fmx/TextLayout.h"

namespace fmx {

// A holder of process-wide state without instances; main thread. The platform's canvas service registers the classes.
class TTextLayoutManager {
 public:
  // Of several layouts for one canvas class the first stays in force.
  static void RegisterTextLayout(orv::TClass layoutClass, orv::TClass canvasClass);
  // Forgets all classes. Layouts made before stay as they are.
  static void UnInitialize();

  // The layout registered for the canvas class, or for the nearest class that it descends from; null where there is
  // none.
  static orv::TClass TextLayoutByCanvas(orv::TClass canvasClass);
  // The layout of the default canvas; null where there is no such canvas or layout.
  static orv::TClass GetDefaultLayout();

  // A layout of the class for the canvas, or, where that is null, for the default canvas class. Raises ENotRegistered
  // where there is none. The canvas is borrowed.
  static std::unique_ptr<TTextLayout> CreateLayout(TCanvas* canvas = nullptr);
};

}  // namespace fmx
