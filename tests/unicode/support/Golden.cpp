#include "tests/unicode/support/Golden.h"

#include <cstdio>

namespace orv::testing {
namespace {

constexpr char16_t FirstHebrewLetter = 0x5D0;

std::string ShownUnit(char16_t c) {
  if (c >= FirstHebrewLetter && c < FirstHebrewLetter + 26) return {static_cast<char>('A' + (c - FirstHebrewLetter))};
  if (c == '\n') return "\\n";
  if (c == '\r') return "\\r";
  if (c == '\t') return "\\t";
  if (c >= 0x20 && c < 0x7F) return {static_cast<char>(c)};
  char escape[8];
  std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned>(c));
  return escape;
}

}  // namespace

std::u16string Text(std::u16string_view marked) {
  std::u16string text(marked);
  for (char16_t& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char16_t>(FirstHebrewLetter + (c - 'A'));
  return text;
}

std::string ShownRuns(std::u16string_view text, const TDirectionalRuns& runs) {
  std::string shown;
  bool isLogical = true;
  for (std::size_t i = 0; i < runs.Bidi.size(); ++i) {
    if (i > 0) shown += ' ';
    shown += "LRP"[static_cast<int>(runs.Bidi[i])];
    shown += '<';
    for (std::int32_t place = runs.Offsets[i]; place < runs.Offsets[i + 1]; ++place)
      shown += ShownUnit(text[static_cast<std::size_t>(place)]);
    shown += '>';
    isLogical = isLogical && runs.VisualOrder[i] == static_cast<std::int32_t>(i);
  }
  if (isLogical) return shown;
  shown += " order";
  for (const std::int32_t index : runs.VisualOrder) shown += ' ' + std::to_string(index);
  return shown;
}

std::string Split(std::u16string_view marked, TParagraphBidi paragraph) {
  const std::u16string text = Text(marked);
  return ShownRuns(text, TDirectiveChars::SplitByDirection(text, paragraph));
}

std::string Ranges(std::u16string_view marked, TParagraphBidi paragraph) {
  std::string shown;
  for (const TRange range : TDirectiveChars::SplitByDirection(Text(marked), paragraph).Ranges) {
    if (!shown.empty()) shown += ' ';
    shown += std::to_string(range.LowIndex) + '-' + std::to_string(range.HighIndex);
  }
  return shown;
}

}  // namespace orv::testing
