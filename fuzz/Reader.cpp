// The markup reader: any steps over any text, in bounds, and alike in both readers on ASCII.
#include <algorithm>

#include "fuzz/Markup.h"
#include "tests/formatted/support/ReaderSteps.h"

namespace {

using namespace orv;

constexpr std::size_t StepBytes = 3;

bool IsInside(const TMarkupText::TReaderState& state, std::size_t size) {
  const bool forward = state.Direction == TMarkupText::TDirection::Forward;
  return state.Position >= (forward ? 0 : -1) && state.Position <= static_cast<std::ptrdiff_t>(size);
}

}  // namespace

// The first byte says how many bytes are text; the rest are steps.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::size_t length = std::min<std::size_t>(data[0] % 64U, size - 1);
  const std::string bytes(data + 1, data + 1 + length);
  const std::u16string text = rtl::FromUtf8(bytes);
  const bool isAscii =
      std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  TMarkupText::TMarkupTextReaderUTF8 narrow(std::string_view{bytes});
  TMarkupText::TMarkupTextReaderUnicode wide(std::u16string_view{text});
  for (std::size_t place = 1 + length; place + StepBytes <= size; place += StepBytes) {
    const auto number = static_cast<std::int8_t>(data[place + 1]);
    // The extremes too.
    const std::ptrdiff_t far = number == 127 ? PTRDIFF_MAX : number == -128 ? PTRDIFF_MIN : number;
    const std::uint8_t c = data[place + 2];
    const testing::TReaderStep step = {data[place], far, static_cast<char16_t>(c < 0x80 ? c : 0x600 + c - 0x80)};
    const std::u16string a = testing::Run(narrow, step);
    const std::u16string b = testing::Run(wide, step);
    fuzz::Require(IsInside(narrow.SaveState(), bytes.size()), "out of the bytes", bytes);
    fuzz::Require(IsInside(wide.SaveState(), text.size()), "out of the units", bytes);
    if (!isAscii) continue;
    fuzz::Require(a == b, "two answers", bytes);
    fuzz::Require(narrow.SaveState() == wide.SaveState(), "two places", bytes);
  }
  return 0;
}
