// A layout's frame as JSON.
#pragma once

#include "textlayout/Orv.TextLayout.GPU.h"
#include "tools/orv/eval/Arguments.h"

namespace orv::eval {

// Its lines and runs, as the op "layout" tells them.
TJson FrameValue(const TGPUFrame& frame);

}  // namespace orv::eval
