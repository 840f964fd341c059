// What loading the shared library of the host framework does. In that library alone, as its last object, so that
// everything it uses is made before it runs.
#include "platform/Host.h"

namespace {

[[gnu::constructor]] void Load() {
  orv::platform::StartPlatform();
}

}  // namespace
