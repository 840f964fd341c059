// The character tests of the engine, written as plainly as they can be told: the oracle for the tables of the library.
#pragma once

#include <cstdint>

#include "unicode/Unicode.Engine.Types.h"

namespace orv::plain {

bool IsAsciiDigit(char16_t c);
bool IsAsciiLetter(char16_t c);
bool IsLetter(char16_t c);           // categories Ll, Lm, Lo, Lt, Lu
bool IsLetterOrDecimal(char16_t c);  // and Nd
bool IsArabicDigit(char16_t c);
bool CanBeConsideredAsArabicDigit(char16_t c);  // reads EquationOrder
bool IsRTL(char16_t c);
bool IsLTR(char16_t c);
bool IsRTLText(std::u16string_view s, bool defaultRTL);
TDirectiveChars::TBidiType ClassifyChar(char16_t c);
int CharactersCount(std::uint32_t c);

}  // namespace orv::plain
