#include "platform/CanvasService.h"

#include "fmx/CanvasManager.h"
#include "fmx/GPUTextLayout.h"
#include "fmx/TextLayoutManager.h"
#include "platform/SoftwareCanvas.h"

namespace orv::platform {

void TCanvasService::RegisterCanvasClasses() {
  fmx::TCanvasManager::RegisterCanvas(TSoftwareCanvas::Class(), true, false);
  fmx::TTextLayoutManager::RegisterTextLayout(fmx::TGPUTextLayout::Class(), TSoftwareCanvas::Class());
}

}  // namespace orv::platform
