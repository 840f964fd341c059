#include "fmx/CustomCanvasGpu.h"

namespace fmx {

orv::TClass TCustomCanvasGpu::Class() {
  return orv::CompiledClass<TCustomCanvasGpu, TCanvas>("fmx.Canvas.GPU", "TCustomCanvasGpu");
}

}  // namespace fmx
