// Word walking. The pointer and the array forms differ in their bounds alone, so both walk through TWalk.
#include <algorithm>

#include "rtl/Assertions.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv {

// Brackets, full stops, commas and mathematical signs belong to words, so a word jump does not stop inside "a,b".
bool IsLexemeCharacter(UCS4Char c) {
  using rtl::TUnicodeCategory;
  if (rtl::IsLetterOrDigit(c)) return true;
  const TUnicodeCategory category = rtl::GetUnicodeCategory(c);
  return category == TUnicodeCategory::Pe || category == TUnicodeCategory::Po || category == TUnicodeCategory::Ps ||
         category == TUnicodeCategory::Sm;
}

namespace {

[[maybe_unused]] constexpr std::string_view StandardAssertion = "Assertion failure";

// Walks back over elements of one class, down to the element whose predecessor is of the other class or does not exist.
const UCS4Char* BackOver(bool lexeme, const UCS4Char* start, const UCS4Char* current) {
  while (current > start && IsLexemeCharacter(current[-1]) == lexeme) --current;
  return current;
}

// Walks on over elements of one class, to the first of the other class, the end, or a 0.
const UCS4Char* ForwardOver(bool lexeme, const UCS4Char* current, const UCS4Char* end) {
  while (current != end && *current != 0 && IsLexemeCharacter(*current) == lexeme) ++current;
  return current;
}

// Where a zero-terminated block ends, for walks that stop at the 0 anyway.
constexpr const UCS4Char* NoEnd = nullptr;

bool IsWalkable(const UCS4Char* start, const UCS4Char* current) {
  ORV_ASSERT(start != nullptr && (current == nullptr || current >= start), StandardAssertion);
  return start != nullptr && current != nullptr && current >= start;
}

// The places of an array as pointers. An index past the end stands on a 0 and is brought to the end, which every walk
// back passes through.
const UCS4Char* PlaceOf(std::span<const UCS4Char> s, std::int32_t index) {
  return s.data() + std::min(static_cast<std::size_t>(index), s.size());
}

std::int32_t IndexOf(std::span<const UCS4Char> s, const UCS4Char* place) {
  return static_cast<std::int32_t>(place - s.data());
}

bool IsPast(std::span<const UCS4Char> s, std::int32_t index) {
  return index >= 0 && static_cast<std::size_t>(index) >= s.size();
}

}  // namespace

const UCS4Char* GetLexemeBegin(const UCS4Char* start, const UCS4Char* current) {
  if (!IsWalkable(start, current)) return current;
  if (!IsLexemeCharacter(*current)) current = BackOver(false, start, current);
  return BackOver(true, start, current);
}

const UCS4Char* GetLexemeEnd(const UCS4Char* current) {
  if (current == nullptr || *current == 0) return current;
  return ForwardOver(IsLexemeCharacter(*current), current, NoEnd) - 1;
}

const UCS4Char* GetNextLexemeBegin(const UCS4Char* current) {
  if (current == nullptr) return current;
  return ForwardOver(false, ForwardOver(true, current, NoEnd), NoEnd);
}

const UCS4Char* GetPrevLexemeBegin(const UCS4Char* start, const UCS4Char* current) {
  if (!IsWalkable(start, current)) return current;
  return BackOver(true, start, BackOver(false, start, current));
}

const UCS4Char* GetPrevLexemeEnd(const UCS4Char* start, const UCS4Char* current) {
  if (!IsWalkable(start, current)) return current;
  return BackOver(false, start, current);
}

std::int32_t GetLexemeBegin(std::span<const UCS4Char> s, std::int32_t index) {
  if (s.empty() || index < 0) return std::max(index, 0);
  const UCS4Char* place = PlaceOf(s, index);
  if (IsPast(s, index) || !IsLexemeCharacter(*place)) place = BackOver(false, s.data(), place);
  return IndexOf(s, BackOver(true, s.data(), place));
}

std::int32_t GetLexemeEnd(std::span<const UCS4Char> s, std::int32_t index) {
  const auto length = static_cast<std::int32_t>(s.size());
  if (s.empty() || index >= length) return std::min(index, length);
  if (index < 0) return index;  // stands on a 0
  const UCS4Char* place = PlaceOf(s, index);
  if (*place == 0) return index;
  return IndexOf(s, ForwardOver(IsLexemeCharacter(*place), place, s.data() + s.size()) - 1);
}

std::int32_t GetNextLexemeBegin(std::span<const UCS4Char> s, std::int32_t index) {
  if (s.empty() || index < 0) return std::max(index, 0);
  if (IsPast(s, index)) return index;  // stands on a 0
  const UCS4Char* end = s.data() + s.size();
  return IndexOf(s, ForwardOver(false, ForwardOver(true, PlaceOf(s, index), end), end));
}

std::int32_t GetPrevLexemeBegin(std::span<const UCS4Char> s, std::int32_t index) {
  if (s.empty() || index < 1) return 0;
  return IndexOf(s, BackOver(true, s.data(), BackOver(false, s.data(), PlaceOf(s, index))));
}

std::int32_t GetPrevLexemeEnd(std::span<const UCS4Char> s, std::int32_t index) {
  if (s.empty() || index < 1) return 0;
  return IndexOf(s, BackOver(false, s.data(), PlaceOf(s, index)));
}

}  // namespace orv
