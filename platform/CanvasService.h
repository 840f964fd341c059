// What makes the platform's canvases the application's.
#pragma once

#include "fmx/Services.h"

namespace orv::platform {

// Registers the software canvas as the default, with the framework's plain text layout. As long as there is no canvas
// with hardware it does so whether the software canvas is enabled or not. There is no canvas for printers. Add it to
// TPlatformServices under its Guid, and have it register once at start-up.
class TCanvasService : public fmx::ICanvasService {
 public:
  void RegisterCanvasClasses() override;
  // Does nothing: canvases stay in force to the end of the process.
  void UnregisterCanvasClasses() override {}
};

}  // namespace orv::platform
