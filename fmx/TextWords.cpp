#include "fmx/TextWords.h"

#include "rtl/Unicode.h"

namespace fmx {
namespace {

// A text walked by code points.
class TWalk {
 public:
  explicit TWalk(std::u16string_view text) : FText(text) {}

  std::int32_t Length() const { return static_cast<std::int32_t>(FText.size()); }
  bool IsWord(std::int32_t pos) const { return IsWordCharacter(CodePoint(pos)); }
  std::int32_t Next(std::int32_t pos) const { return pos + (IsPair(pos) ? 2 : 1); }
  std::int32_t Prev(std::int32_t pos) const { return pos >= 2 && IsPair(pos - 2) ? pos - 2 : pos - 1; }
  // The position, or the beginning of the pair that it lies in.
  std::int32_t Begin(std::int32_t pos) const { return pos >= 1 && IsPair(pos - 1) ? pos - 1 : pos; }

 private:
  char16_t Unit(std::int32_t pos) const { return FText[static_cast<std::size_t>(pos)]; }
  bool IsPair(std::int32_t pos) const {
    return pos + 1 < Length() && rtl::IsHighSurrogate(Unit(pos)) && rtl::IsLowSurrogate(Unit(pos + 1));
  }
  std::uint32_t CodePoint(std::int32_t pos) const {
    if (!IsPair(pos)) return Unit(pos);
    return 0x10000 + ((Unit(pos) - 0xD800U) << 10) + (Unit(pos + 1) - 0xDC00U);
  }

  std::u16string_view FText;
};

}  // namespace

bool IsWordCharacter(std::uint32_t codePoint) {
  using rtl::TUnicodeCategory;
  if (rtl::IsLetterOrDigit(codePoint)) return true;
  const TUnicodeCategory category = rtl::GetUnicodeCategory(codePoint);
  return category == TUnicodeCategory::Pe || category == TUnicodeCategory::Po || category == TUnicodeCategory::Ps ||
         category == TUnicodeCategory::Sm;
}

std::int32_t GetPrevLexemeBegin(std::u16string_view text, std::int32_t pos) {
  const TWalk walk(text);
  if (pos <= 0 || pos > walk.Length()) return -1;
  std::int32_t at = walk.Begin(pos);
  while (at > 0 && !walk.IsWord(walk.Prev(at))) at = walk.Prev(at);
  while (at > 0 && walk.IsWord(walk.Prev(at))) at = walk.Prev(at);
  return at;
}

std::int32_t GetNextLexemeBegin(std::u16string_view text, std::int32_t pos) {
  const TWalk walk(text);
  if (text.empty() || pos < 0 || pos > walk.Length()) return -1;
  std::int32_t at = walk.Begin(pos);
  while (at < walk.Length() && walk.IsWord(at)) at = walk.Next(at);
  while (at < walk.Length() && !walk.IsWord(at)) at = walk.Next(at);
  return at;
}

std::optional<TWordBound> FindWordBound(std::u16string_view text, std::int32_t pos) {
  const TWalk walk(text);
  if (text.empty() || pos < 0 || pos > walk.Length()) return std::nullopt;
  const std::int32_t at = pos == walk.Length() ? walk.Prev(pos) : walk.Begin(pos);
  const bool isWord = walk.IsWord(at);
  std::int32_t begin = at;
  while (begin > 0 && walk.IsWord(walk.Prev(begin)) == isWord) begin = walk.Prev(begin);
  std::int32_t end = walk.Next(at);
  while (end < walk.Length() && walk.IsWord(end) == isWord) end = walk.Next(end);
  return TWordBound{begin, end - 1};
}

}  // namespace fmx
