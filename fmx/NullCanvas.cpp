#include "fmx/NullCanvas.h"

namespace fmx {

orv::TClass TNullCanvas::Class() {
  return CompiledCanvas<TNullCanvas, TCustomCanvasGpu>("fmx.NullCanvas", "TNullCanvas");
}

}  // namespace fmx
