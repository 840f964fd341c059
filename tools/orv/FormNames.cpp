#include "tools/orv/FormNames.h"

#include <algorithm>
#include <iterator>

namespace orv::command {
namespace {

struct TFormName {
  std::uint32_t CodePoint;
  std::string_view Name;
};

constexpr TFormName Names[] = {
#include "tools/orv/FormNames.inc"
};

}  // namespace

std::string_view FormName(std::uint32_t codePoint) {
  const auto* const found =
      std::lower_bound(std::begin(Names), std::end(Names), codePoint,
                       [](const TFormName& entry, std::uint32_t value) { return entry.CodePoint < value; });
  return found != std::end(Names) && found->CodePoint == codePoint ? found->Name : std::string_view();
}

}  // namespace orv::command
