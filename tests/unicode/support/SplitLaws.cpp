#include "tests/unicode/support/SplitLaws.h"

#include <algorithm>

#include "tests/unicode/support/PlainChars.h"

namespace orv::testing {
namespace {

bool IsPermutation(std::vector<std::int32_t> order) {
  std::sort(order.begin(), order.end());
  for (std::size_t i = 0; i < order.size(); ++i)
    if (order[i] != static_cast<std::int32_t>(i)) return false;
  return true;
}

// The number of the line that each entry belongs to; a separator ends its line.
std::vector<int> LinesOf(const TDirectionalRuns& runs) {
  std::vector<int> lines;
  int line = 0;
  for (const TBidi bidi : runs.Bidi) {
    lines.push_back(line);
    if (bidi == TBidi::ParagraphSeparator) ++line;
  }
  return lines;
}

}  // namespace

std::string BrokenLaw(std::u16string_view text, const TDirectionalRuns& runs) {
  const auto length = static_cast<std::int32_t>(text.size());
  if (runs.Offsets.size() != runs.Bidi.size() + 1) return "one offset more than directions";
  if (runs.VisualOrder.size() != runs.Bidi.size()) return "as many places in the order as directions";
  if (runs.Offsets.front() != 0) return "the first offset is 0";
  if (runs.Offsets.back() != length) return "the last offset is the length";
  if (!std::is_sorted(runs.Offsets.begin(), runs.Offsets.end())) return "offsets never fall";
  if (text.empty() && !runs.Bidi.empty()) return "an empty text has no runs";
  if (!IsPermutation(runs.VisualOrder)) return "the visual order is a permutation";
  for (const TBidi bidi : runs.Bidi)
    if (bidi > TBidi::ParagraphSeparator) return "there are three directions";
  const std::vector<int> lines = LinesOf(runs);
  for (std::size_t i = 1; i < runs.VisualOrder.size(); ++i)
    if (lines[static_cast<std::size_t>(runs.VisualOrder[i])] < lines[static_cast<std::size_t>(runs.VisualOrder[i - 1])])
      return "the visual order keeps lines together";
  for (const TRange range : runs.Ranges)
    if (range.LowIndex < 0 || range.LowIndex > range.HighIndex || range.HighIndex >= length)
      return "ranges lie in the text";
  return {};
}

std::vector<std::pair<std::int32_t, std::int32_t>> LineEnds(std::u16string_view text) {
  std::vector<std::pair<std::int32_t, std::int32_t>> ends;
  for (std::size_t place = 0; place < text.size(); ++place) {
    const char16_t c = text[place];
    const std::size_t from = place;
    if (c == u'\r' || c == u'\n') {
      if (place + 1 < text.size() && text[place + 1] == u'\n') ++place;
    } else if (c != 0x2028 && c != 0x2029) {
      continue;
    }
    ends.emplace_back(static_cast<std::int32_t>(from), static_cast<std::int32_t>(place) + 1);
  }
  return ends;
}

bool JoinTo(const TDirectionalRuns& pieces, const TDirectionalRuns& runs) {
  std::vector<std::pair<std::size_t, std::size_t>> piecesOfRun;
  std::size_t piece = 0;
  for (std::size_t run = 0; run < runs.Bidi.size(); ++run) {
    const std::size_t first = piece;
    do {
      if (piece == pieces.Bidi.size()) return false;
      ++piece;
    } while (pieces.Offsets[piece] < runs.Offsets[run + 1]);
    if (pieces.Offsets[piece] != runs.Offsets[run + 1]) return false;
    piecesOfRun.emplace_back(first, piece);
  }
  if (piece != pieces.Bidi.size()) return false;
  std::vector<std::int32_t> order;
  for (const std::int32_t run : runs.VisualOrder)
    for (std::size_t i = piecesOfRun[static_cast<std::size_t>(run)].first;
         i < piecesOfRun[static_cast<std::size_t>(run)].second; ++i)
      order.push_back(static_cast<std::int32_t>(i));
  return order == pieces.VisualOrder && pieces.Ranges == runs.Ranges;
}

TBidi LetterDirection(char16_t c) {
  if (!plain::IsLetter(c)) return TBidi::ParagraphSeparator;
  if (plain::IsRTL(c)) return TBidi::RightToLeft;
  return plain::IsLTR(c) ? TBidi::LeftToRight : TBidi::ParagraphSeparator;
}

}  // namespace orv::testing
