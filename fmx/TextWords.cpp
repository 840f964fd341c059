#include "fmx/TextWords.h"

#include "rtl/Unicode.h"

namespace fmx {
namespace {

constexpr std::uint32_t ZeroWidthNonJoiner = 0x200C;
constexpr std::uint32_t ZeroWidthJoiner = 0x200D;

bool BelongsToTheOneBefore(std::uint32_t codePoint) {
  return codePoint == ZeroWidthNonJoiner || codePoint == ZeroWidthJoiner || rtl::IsMark(codePoint);
}

// A text walked by code points, or by code points with what belongs to them; such a group is a word character where
// its first code point is one.
class TWalk {
 public:
  TWalk(std::u16string_view text, TWordRule rule) : FText(text), FRule(rule) {}

  std::int32_t Length() const { return static_cast<std::int32_t>(FText.size()); }
  // Of the group that begins there.
  bool IsWord(std::int32_t pos) const { return IsWordCharacter(CodePoint(pos)); }
  std::int32_t Next(std::int32_t pos) const {
    do pos += IsPair(pos) ? 2 : 1;
    while (pos < Length() && Continues(pos));
    return pos;
  }
  // Where the group of the character before begins.
  std::int32_t Prev(std::int32_t pos) const { return GroupBegin(pos - 1); }
  // The position, or the beginning of the pair that it lies in.
  std::int32_t Begin(std::int32_t pos) const { return pos >= 1 && IsPair(pos - 1) ? pos - 1 : pos; }
  // The same for groups.
  std::int32_t GroupBegin(std::int32_t pos) const {
    pos = Begin(pos);
    while (pos > 0 && pos < Length() && Continues(pos)) pos = Begin(pos - 1);
    return pos;
  }

 private:
  char16_t Unit(std::int32_t pos) const { return FText[static_cast<std::size_t>(pos)]; }
  bool IsPair(std::int32_t pos) const {
    return pos + 1 < Length() && rtl::IsHighSurrogate(Unit(pos)) && rtl::IsLowSurrogate(Unit(pos + 1));
  }
  std::uint32_t CodePoint(std::int32_t pos) const {
    if (!IsPair(pos)) return Unit(pos);
    return 0x10000 + ((Unit(pos) - 0xD800U) << 10) + (Unit(pos + 1) - 0xDC00U);
  }
  bool Continues(std::int32_t pos) const {
    return FRule == TWordRule::WithMarks && BelongsToTheOneBefore(CodePoint(pos));
  }

  std::u16string_view FText;
  TWordRule FRule;
};

}  // namespace

bool IsWordCharacter(std::uint32_t codePoint) {
  using rtl::TUnicodeCategory;
  if (rtl::IsLetterOrDigit(codePoint)) return true;
  const TUnicodeCategory category = rtl::GetUnicodeCategory(codePoint);
  return category == TUnicodeCategory::Pe || category == TUnicodeCategory::Po || category == TUnicodeCategory::Ps ||
         category == TUnicodeCategory::Sm;
}

std::int32_t GetPrevLexemeBegin(std::u16string_view text, std::int32_t pos, TWordRule rule) {
  const TWalk walk(text, rule);
  if (pos <= 0 || pos > walk.Length()) return -1;
  std::int32_t at = walk.Begin(pos);
  while (at > 0 && !walk.IsWord(walk.Prev(at))) at = walk.Prev(at);
  while (at > 0 && walk.IsWord(walk.Prev(at))) at = walk.Prev(at);
  return at;
}

std::int32_t GetNextLexemeBegin(std::u16string_view text, std::int32_t pos, TWordRule rule) {
  const TWalk walk(text, rule);
  if (text.empty() || pos < 0 || pos > walk.Length()) return -1;
  std::int32_t at = walk.GroupBegin(pos);
  while (at < walk.Length() && walk.IsWord(at)) at = walk.Next(at);
  while (at < walk.Length() && !walk.IsWord(at)) at = walk.Next(at);
  return at;
}

std::optional<TWordBound> FindWordBound(std::u16string_view text, std::int32_t pos, TWordRule rule) {
  const TWalk walk(text, rule);
  if (text.empty() || pos < 0 || pos > walk.Length()) return std::nullopt;
  const std::int32_t at = pos == walk.Length() ? walk.Prev(pos) : walk.GroupBegin(pos);
  const bool isWord = walk.IsWord(at);
  std::int32_t begin = at;
  while (begin > 0 && walk.IsWord(walk.Prev(begin)) == isWord) begin = walk.Prev(begin);
  std::int32_t end = walk.Next(at);
  while (end < walk.Length() && walk.IsWord(end) == isWord) end = walk.Next(end);
  return TWordBound{begin, end - 1};
}

}  // namespace fmx
