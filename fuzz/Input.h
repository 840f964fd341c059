// Fuzzer input as settings, numbers and UTF-16 text of any code units.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <string_view>

#include "rtl/FormatSettings.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv::fuzz {

class TInput {
 public:
  TInput(const std::uint8_t* data, std::size_t size) : FData(data), FSize(size) {}

  std::uint8_t Byte() {
    if (FSize == 0) return 0;
    --FSize;
    return *FData++;
  }
  std::uint16_t Word() {
    const unsigned low = Byte();
    return static_cast<std::uint16_t>(low | (static_cast<unsigned>(Byte()) << 8U));
  }
  std::int32_t Integer() {
    const std::uint32_t low = Word();
    return static_cast<std::int32_t>(low | (static_cast<std::uint32_t>(Word()) << 16U));
  }

  // The rest. Each unit is one byte for the characters that matter to the rules, or two for any unit at all.
  std::u16string Text() {
    static constexpr std::u16string_view common =
        u" .\"'()[]{}«»‹›“”\n\r\t0123456789abcxyzABC,;:?!%-+/*=_אבגשלבְּاببلةيگپچ،؛؟٠١٢۰۱۲"
        u"\u200b\u200c\u200d\u200e\u200f\u202a\u202b\u2028\u2029\u00a0\u2009\u064e\u0651\u0670\u0640²³µ°\u2032\ufb2a";
    std::u16string text;
    while (FSize != 0) {
      const std::uint8_t byte = Byte();
      text.push_back(byte < 0xF0 ? common[byte % common.size()] : static_cast<char16_t>(Word()));
    }
    return text;
  }

  // Any settings of the engine.
  void Settings() {
    using S = TOrvGlobalSettings;
    const std::uint8_t bits = Byte();
    S::EquationOrder = (bits & 1) != 0 ? S::TMathOrder::ArabicRightToLeft : S::TMathOrder::LeftToRight;
    S::ArabicDigitType = static_cast<S::TArabicDigitType>((bits >> 1) % 3);
    S::Options = TOrvGlobalOptions::FromBits(static_cast<std::uint16_t>(Word() & 0x7FF));
    S::Corrections = TOrvCorrections::FromBits(Byte() & 0x1F);
    rtl::FormatSettings().DateSeparator = (bits & 0x80) != 0 ? u'5' : u'/';
  }

 private:
  const std::uint8_t* FData;
  std::size_t FSize;
};

// Ends the run with the law that does not hold.
inline void Require(bool holds, const char* law) {
  if (holds) return;
  std::cerr << "broken: " << law << '\n';
  std::abort();
}

}  // namespace orv::fuzz
