// What loading the system's shared library does. In that library alone, as its last object, so that everything it uses
// is made before it runs.
#include <cstdio>

#include "rtl/Exceptions.h"
#include "runtime/Marzel.h"

namespace {

// A host of another make than it claims keeps its own text; the application must not end over that.
[[gnu::constructor]] void Load() {
  try {
    orv::Install();
  } catch (const rtl::Exception& error) {
    std::fprintf(stderr, "orv: not installed: %s\n", error.what());
  }
}

}  // namespace
