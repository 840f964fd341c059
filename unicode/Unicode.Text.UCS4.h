// Text with one code point per element: character operations, conversions and word walking, and the presentation
// transforms of a run's code points (TUCS4ListHelper). All positions are 0-based.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "rtl/Strings.h"
#include "rtl/Unicode.h"

namespace orv {

using UCS4Char = std::uint32_t;
using UCS4String = std::vector<UCS4Char>;  // need not end in 0
using TUCS4List = std::vector<UCS4Char>;   // the text of one run, changed in place by the transforms
using PUCS4Char = UCS4Char*;               // a zero-terminated block, released with TUCS4CharPtrHelper::Free

namespace TUCS4StringHelper {
inline UCS4Char GetChars(const UCS4String& s, std::int32_t index) {
  return s[static_cast<std::size_t>(index)];
}
inline bool IsEmpty(const UCS4String& s) {
  return s.empty();
}
inline std::int32_t Length(const UCS4String& s) {
  return static_cast<std::int32_t>(s.size());
}
}  // namespace TUCS4StringHelper

// Operations on one code point. The tests and mappings of the Unicode property service apply to it as they are.
namespace TUCS4CharHelper {
using rtl::GetNumericValue;
using rtl::GetUnicodeCategory;
using rtl::IsControl;
using rtl::IsDefined;
using rtl::IsDigit;
using rtl::IsHighSurrogate;
using rtl::IsLetter;
using rtl::IsLetterOrDigit;
using rtl::IsLower;
using rtl::IsLowSurrogate;
using rtl::IsNumber;
using rtl::IsPunctuation;
using rtl::IsSeparator;
using rtl::IsSurrogate;
using rtl::IsSymbol;
using rtl::IsUpper;
using rtl::IsWhiteSpace;
using rtl::MaxCodePoint;
using rtl::ToLower;
using rtl::ToUpper;
using rtl::UnicodeDataVersion;

// The code point read at that place (a lone surrogate answers itself); charLength receives its units, 1 or 2.
UCS4Char ConvertFromUtf16(std::u16string_view s, std::int32_t index);
UCS4Char ConvertFromUtf16(std::u16string_view s, std::int32_t index, std::int32_t& charLength);
UCS4Char ConvertFromUtf16(char16_t highSurrogate, char16_t lowSurrogate);

// One or two units. A value above U+10FFFF has no UTF-16 form and gives U+FFFD.
rtl::UnicodeString ConvertToUtf16(UCS4Char c);

// The low 16 bits, a plain truncation.
constexpr char16_t ToWideChar(UCS4Char c) {
  return static_cast<char16_t>(c);
}

bool IsInArray(UCS4Char c, std::span<const UCS4Char> values);
}  // namespace TUCS4CharHelper

// Operations on zero-terminated blocks. A block that these functions make is owned by the caller.
namespace TUCS4CharPtrHelper {
// Copies s and its terminator into block, which must hold enough elements; answers the element count, terminator
// included.
std::int32_t ConvertFromUtf16(PUCS4Char block, std::u16string_view s);

// The same, but copies at most maxBytes bytes. Still answers the full count.
std::int32_t ConvertFromUtf16(PUCS4Char block, std::u16string_view s, std::int32_t maxBytes);

// Reallocates block to hold s and its terminator; an empty s frees it and leaves null. Raises std::bad_alloc, block
// then being as it was.
void ConvertFromUtf16(std::u16string_view s, PUCS4Char& block);

rtl::UnicodeString ConvertToUtf16(const UCS4Char* block);
void Free(PUCS4Char& block);                 // releases the block and sets the pointer to null
std::int32_t Length(const UCS4Char* block);  // elements before the first 0; 0 for null
const UCS4Char* PUCS4Chars(const UCS4String& s);
UCS4String ToUCS4String(const UCS4Char* block);  // no terminator
}  // namespace TUCS4CharPtrHelper

// The code points of s, a lone surrogate standing for itself. Appended to list by the second form.
UCS4String ToUCS4String(std::u16string_view s);
void AppendUtf16(std::u16string_view s, TUCS4List& list);
rtl::UnicodeString ToUtf16(std::span<const UCS4Char> s);

// Word walking. A word is a stretch of letters, decimal digits and characters of the categories Pe, Po, Ps and Sm, so
// "a,b" and "(x)" are one word each; everything else separates words.
bool IsLexemeCharacter(UCS4Char c);

// Pointer forms: start is the first element of a zero-terminated block, current lies in it and not before start
// (assertion). A null current is returned as it came. GetPrevLexemeBegin and GetPrevLexemeEnd read the element before
// current, so current must not be start.
const UCS4Char* GetLexemeBegin(const UCS4Char* start,
                               const UCS4Char* current);      // first element of the word at or before
const UCS4Char* GetLexemeEnd(const UCS4Char* current);        // last element of the word or gap
const UCS4Char* GetNextLexemeBegin(const UCS4Char* current);  // the next word, or the terminator
const UCS4Char* GetPrevLexemeBegin(const UCS4Char* start, const UCS4Char* current);  // the word before
const UCS4Char* GetPrevLexemeEnd(const UCS4Char* start, const UCS4Char* current);    // behind the word before

// Array forms: the same with 0-based indices, for any index whatever; elements outside s read as 0.
std::int32_t GetLexemeBegin(std::span<const UCS4Char> s, std::int32_t index);
std::int32_t GetLexemeEnd(std::span<const UCS4Char> s, std::int32_t index);
std::int32_t GetNextLexemeBegin(std::span<const UCS4Char> s, std::int32_t index);
std::int32_t GetPrevLexemeBegin(std::span<const UCS4Char> s, std::int32_t index);
std::int32_t GetPrevLexemeEnd(std::span<const UCS4Char> s, std::int32_t index);

// The presentation transforms: they turn the logical text of one run into what is drawn. Each works in place and
// allocates nothing; shaping may shorten the list.
namespace TUCS4ListHelper {
// ASCII digits become Arabic-Indic ones as ArabicDigitType says, and an apostrophe or percent sign right behind a digit
// and a full stop between two digits become the Arabic marks. A run whose first letter is not right-to-left keeps all
// of them.
void ChangeToArabicDigits(std::span<UCS4Char> list);

// Contextual Arabic forms, Hebrew letters with their points, mirrored brackets. The flag is not read.
void ChangeToComplexCharacters(TUCS4List& list, bool flag = true);
// The same for a part of a list. Answers how many elements are left; what stands behind them is left over.
std::size_t ShapeInPlace(std::span<UCS4Char> list);

// A quote right behind a number becomes a prime (U+2032) or double prime (U+2033).
void ReplaceQuotesWithPrimes(std::span<UCS4Char> list);

// U+0022 becomes U+2036, U+0027 becomes U+2035, anything else stays.
void QuoteToReversePrime(UCS4Char& c);
}  // namespace TUCS4ListHelper

}  // namespace orv
