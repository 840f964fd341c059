#include "rtl/Assertions.h"

#include <string>

#include "rtl/Exceptions.h"

namespace rtl {

void AssertionFailed(std::string_view message, const char* file, int line) {
  throw EAssertionFailed(std::string(message) + " (" + file + ", line " + std::to_string(line) + ")");
}

}  // namespace rtl
