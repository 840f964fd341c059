// What the fuzzers of the markup readers share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

namespace orv::fuzz {

// Each byte below 0x80 is itself; the others stand for the pieces of a document, so that whole ones come about.
inline std::string Document(const std::uint8_t* data, std::size_t size, std::span<const std::string_view> pieces) {
  std::string text;
  for (std::size_t i = 0; i < size; ++i) {
    if (data[i] < 0x80)
      text += static_cast<char>(data[i]);
    else
      text += pieces[(data[i] - 0x80U) % pieces.size()];
  }
  return text;
}

// Ends the run with what is wrong and with what document.
inline void Require(bool holds, std::string_view law, std::string_view document) {
  if (holds) return;
  std::fprintf(stderr, "%.*s\n%.*s\n", static_cast<int>(law.size()), law.data(), static_cast<int>(document.size()),
               document.data());
  std::abort();
}

}  // namespace orv::fuzz
