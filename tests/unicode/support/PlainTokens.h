// The token reader of the plain splitter, with the state that it shares with the assembler.
#pragma once

#include <cstdint>
#include <set>
#include <string_view>
#include <vector>

#include "unicode/Unicode.Engine.Types.h"

namespace orv::plain {

using TToken = TDirectiveChars::TBidiType;

struct TSavedDirection {
  TToken Bidi;
  std::int32_t TurnIndex;
  std::int32_t EndOfLine;
};

// Everything a rule may read or write.
struct TState {
  std::u16string_view S;
  TParagraphBidi ParagraphBidi = TParagraphBidi::LeftToRight;
  TDirectionalRuns Runs;

  std::int32_t Position = 0;
  TToken BaseBidi = TToken::LTR;
  TToken CurrentBidi = TToken::LTR;
  TToken PreviousBidi = TToken::LTR;
  TToken RunKind = TToken::NotExists;
  TToken LastToken = TToken::NotExists;
  TToken NextToken = TToken::Neutral;
  std::int32_t TurnIndex = 0;
  std::int32_t EndOfLine = -1;
  std::int32_t SavedEndOfLine = -1;
  bool SentenceEnded = false;
  std::int32_t BracketDepth = 0;
  std::set<char16_t> QuoteSet;
  bool HasArabicDigits = false;
  std::vector<TSavedDirection> Stack;

  std::int32_t Length() const { return static_cast<std::int32_t>(S.size()); }
  bool AtEnd() const { return Position >= Length(); }
  std::int32_t OrderCount() const { return static_cast<std::int32_t>(Runs.VisualOrder.size()); }
  char16_t At(std::int32_t place) const {  // 0 at and behind the end
    return place >= 0 && place < Length() ? S[static_cast<std::size_t>(place)] : u'\0';
  }
};

// Reads one token, moves Position behind it and answers its kind. previousBidi stands in for PreviousBidi.
TToken ReadNextToken(TState& state, TToken& previousBidi);

}  // namespace orv::plain
