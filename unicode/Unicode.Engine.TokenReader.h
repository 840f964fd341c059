// The token reader: walks a text once and answers one token at a time. One function for each rule, named as in
// docs/engine.md: R, L, S, P, Q, B-open, B-close, N, and D1 to D10 for an ASCII digit in right-to-left text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "unicode/Unicode.Engine.LookAhead.h"
#include "unicode/Unicode.Engine.Types.h"
#include "unicode/Unicode.Engine.VisualOrder.h"

namespace orv::engine {

using TBidiType = TDirectiveChars::TBidiType;
using TBidiStackData = TDirectiveChars::TBidiStackData;

// The settings as they were when the split began.
struct TSplitSettings {
  TParagraphBidi ParagraphBidi;
  bool RTLMath;
  TOrvGlobalOptions Options;
  TOrvCorrections Corrections;
  char16_t DateSeparator;  // read only with RTLDate

  static TSplitSettings Current(TParagraphBidi paragraphBidi);
};

// A part of a run that a correction makes a run of its own.
struct TRunPiece {
  std::int32_t End;
  TBidi Bidi;
};

// What cutting runs needs.
struct TRecutStorage {
  std::vector<TRunPiece> Pieces;
  std::vector<std::size_t> FirstPieces;  // by former run
  std::vector<std::int32_t> VisualOrder;
};

// Working storage that a thread keeps from call to call, so that a usual call allocates its results and nothing else.
struct TWorkspace {
  static constexpr std::size_t RunCapacity = 2048;
  static constexpr std::size_t RangeCapacity = 64;

  TWorkspace();

  TDirectionalRuns Runs;
  std::vector<TBidiStackData> Stack;
  std::vector<TCloserPlace> Closers;
  std::vector<std::int32_t> LatePlaces;
  TRecutStorage Recut;
};

constexpr bool IsUnmergable(TBidiType kind) {
  return kind >= TBidiType::LTRUnmergable && kind <= TBidiType::ArabicDigitUnmergable;
}
constexpr TBidiType PlainKind(TBidiType kind) {
  return IsUnmergable(kind) ? static_cast<TBidiType>(static_cast<int>(kind) - 3) : kind;
}
constexpr TBidiType UnmergableKind(TBidiType kind) {
  return static_cast<TBidiType>(static_cast<int>(kind) + 3);
}

TBidiType ClassifyChar(char16_t c, bool rtlMath);

// The state is open to the run assembler, which drives the reader and shares it.
class TTokenReader {
 public:
  // All are borrowed for the reader's life.
  TTokenReader(std::u16string_view s, const TSplitSettings& settings, TWorkspace& workspace, TDirectionalRuns& runs);
  TTokenReader(std::u16string_view s, const TSplitSettings&& settings, TWorkspace& workspace,
               TDirectionalRuns& runs) = delete;

  // Reads the token at Position, which must be inside the text, and moves Position behind it.
  TBidiType ReadNextToken();

  bool AtEnd() const { return Position >= Text.Length(); }
  std::int32_t OrderCount() const { return Order.Count(); }

  const TText Text;
  const TSplitSettings& Settings;
  const bool HasArabicDigits;  // looks at the first unit alone, however long the text is
  TDirectionalRuns& Runs;
  TVisualOrder Order;
  std::vector<TBidiStackData>& Stack;

  std::int32_t Position = 0;  // the next unit to read
  const TBidiType BaseBidi;   // the paragraph's direction, LTR or RTL
  TBidiType CurrentBidi;      // the direction in force
  TBidiType PreviousBidi;     // the same when the last token began
  TBidiType RunKind = TBidiType::NotExists;
  std::int32_t TurnIndex = 0;        // the place in the visual order at which a direction turned
  std::int32_t EndOfLine = -1;       // the place in the visual order before which new runs go, plus one; -1 for none.
  std::int32_t SavedEndOfLine = -1;  // The rules as they stand never set it to anything else.
  bool SentenceEnded = false;        // the last token closed a sentence or paragraph
  bool DoubleQuoteOpen = false;
  bool SingleQuoteOpen = false;
  bool ParagraphEnded = false;    // some paragraph has ended
  bool LineEndSwallowed = false;  // a blank has taken a line or paragraph separator with it

 private:
  TBidiType RuleR();
  TBidiType RuleL();
  TBidiType RuleLineEnd();
  TBidiType RuleS();
  TBidiType RulePunctuation(char16_t c);
  std::optional<TBidiType> RuleP();
  std::optional<TBidiType> RuleQ(char16_t quote);
  TBidiType RuleBOpen(char16_t opener);
  TBidiType RuleBClose();
  TBidiType RuleN();

  // What the rules for a digit have settled: the token's kind, and how far it goes on behind the digit.
  enum class TExtent : std::uint8_t { OneDigit, Digits, Tail };
  struct TNumber {
    TBidiType Token;
    TExtent Extent;
  };

  TBidiType RuleD();
  bool RuleD1LatinWord(std::int32_t here);
  bool RuleD2Date(std::int32_t here);
  bool RuleD3ArabicDigits() const;
  bool RuleD4BehindLatin(std::int32_t here);
  bool RuleD5Measure(std::int32_t here);
  TNumber RuleD6RTLEquations() const;
  bool RuleD7ListIndex(std::int32_t here, TNumber& number);
  bool RuleD8BeforeLatin(std::int32_t here);
  bool RuleD9Equation(std::int32_t here, TNumber& number);
  TBidiType RuleD10Rest(std::int32_t here, TNumber number);

  bool Has(TOrvGlobalOption option) const { return Settings.Options.Contains(option); }
  std::int32_t SkipBlanksBehindStop(std::int32_t place) const;
  TBidiType Classify(char16_t c) const { return ClassifyChar(c, Settings.RTLMath); }
  TBidiType ClassifyInside(char16_t closer) { return Classify(Ahead().FindInnerStrong(Position, closer)); }
  void PushDirection(TBidiType inside, TBidiType comparison);
  void PopDirection(TBidiType comparison);
  void AddRange(std::int32_t low, std::int32_t high) { Runs.Ranges.push_back({low, high}); }

  TLookAhead& Ahead();

  TWorkspace& FWorkspace;
  std::optional<TLookAhead> FAhead;  // most texts need none
  std::int32_t FBracketDepth = 0;    // open brackets and quotes
};

}  // namespace orv::engine
