// The names of service contracts.
#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fmx {

// 16 bytes, told apart by all of them. Example: TGuid::Of("{476E5E53-A77A-4ADA-93E3-CA66A8956059}").
struct TGuid {
  std::array<std::uint8_t, 16> Bytes{};

  // Takes exactly the form of the example, letters of either case; anything else does not compile.
  static consteval TGuid Of(std::string_view text) {
    constexpr std::string_view form = "{00000000-0000-0000-0000-000000000000}";
    if (text.size() != form.size()) throw "not a GUID";
    TGuid guid;
    std::size_t digits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (form[i] != '0') {
        if (text[i] != form[i]) throw "not a GUID";
        continue;
      }
      auto& byte = guid.Bytes[digits / 2];
      byte = static_cast<std::uint8_t>(byte * 16 + DigitOf(text[i]));
      ++digits;
    }
    return guid;
  }

  friend constexpr auto operator<=>(const TGuid&, const TGuid&) = default;  // NOLINT(modernize-use-nullptr)

 private:
  static consteval std::uint8_t DigitOf(char c) {
    if (c >= '0' && c <= '9') return static_cast<std::uint8_t>(c - '0');
    if (c >= 'A' && c <= 'F') return static_cast<std::uint8_t>(c - 'A' + 10);
    if (c >= 'a' && c <= 'f') return static_cast<std::uint8_t>(c - 'a' + 10);
    throw "not a GUID";
  }
};

}  // namespace fmx
