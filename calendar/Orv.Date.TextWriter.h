// Appending characters and numbers to a text through a small buffer, so that a single character costs no call. Inside
// calendar/ alone.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "rtl/Strings.h"

namespace orv {

class TTextWriter {
 public:
  // The text is borrowed, and has what was put only after Flush.
  explicit TTextWriter(rtl::UnicodeString& out) : FOut(out) {}

  void Put(char16_t c) {
    if (FUsed == Size) Flush();
    FBuffer[FUsed++] = c;
  }

  void Put(std::u16string_view text) {
    if (text.size() > Size - FUsed) return PutLongText(text);
    for (const char16_t c : text) FBuffer[FUsed++] = c;
  }

  // A number in decimal digits, with a zero in front when it has fewer digits than least, 1 or 2.
  void PutNumber(std::uint32_t word, std::size_t least) {
    if (word < 10 && least < 2) {
      Put(static_cast<char16_t>(u'0' + word));
    } else if (word < 100) {
      PutPair(word);
    } else {
      PutLongNumber(word);
    }
  }

  void Flush();

 private:
  static constexpr std::size_t Size = 128;
  static constexpr std::size_t LongestNumber = 5;

  // The pairs of digits from 00 to 99.
  static constexpr auto Pairs = [] {
    std::array<std::array<char16_t, 2>, 100> pairs{};
    for (std::size_t i = 0; i < pairs.size(); ++i)
      pairs[i] = {static_cast<char16_t>(u'0' + i / 10), static_cast<char16_t>(u'0' + i % 10)};
    return pairs;
  }();

  void PutLongText(std::u16string_view text);

  void PutPair(std::uint32_t below100) {
    if (FUsed + 2 > Size) Flush();
    FBuffer[FUsed] = Pairs[below100][0];
    FBuffer[FUsed + 1] = Pairs[below100][1];
    FUsed += 2;
  }

  void PutLongNumber(std::uint32_t word) {
    if (FUsed + LongestNumber > Size) Flush();
    const std::uint32_t hundreds = word / 100;
    if (hundreds < 10) {
      Put(static_cast<char16_t>(u'0' + hundreds));
    } else {
      if (hundreds >= 100) Put(static_cast<char16_t>(u'0' + hundreds / 100));
      PutPair(hundreds % 100);
    }
    PutPair(word % 100);
  }

  rtl::UnicodeString& FOut;
  std::size_t FUsed = 0;
  char16_t FBuffer[Size];
};

}  // namespace orv
