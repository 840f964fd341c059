// Cutting a line for view: the answer has the length that is left.
#include <algorithm>

#include "editing/Orv.Text.h"
#include "fuzz/Input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orv;
  fuzz::TInput input(data, size);
  input.Settings();
  const bool rightToLeft = (input.Byte() & 1) != 0;
  const std::int32_t any = input.Integer();
  const std::int32_t near = input.Byte();
  const std::u16string text = input.Text();
  for (const std::int32_t index : {any, near}) {
    const std::int64_t left = static_cast<std::int64_t>(text.size()) - std::max(index, 0);
    const auto cut = CutTextForView(text, rightToLeft, index);
    fuzz::Require(static_cast<std::int64_t>(cut.size()) == std::max<std::int64_t>(left, 0),
                  "the cut text has its length");
  }
  return 0;
}
