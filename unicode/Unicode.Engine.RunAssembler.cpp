#include "unicode/Unicode.Engine.RunAssembler.h"

#include <array>
#include <string>

#include "rtl/Assertions.h"
#include "rtl/Utf8.h"
#include "unicode/Unicode.Engine.Stretch.h"

namespace orv::engine {
namespace {

constexpr bool StartsRun(TBidiType kind) {
  return kind == TBidiType::LTR || kind == TBidiType::RTL || kind == TBidiType::ArabicDigit ||
         kind == TBidiType::DirectionalFormatting;
}

constexpr bool IsNeutralOrBlank(TBidiType token) {
  return token == TBidiType::Neutral || token == TBidiType::SpaceSeparator;
}

// What becomes of the stretch up to a boundary.
enum class TBoundary : std::uint8_t {
  DigitsRun,        // it is a run of digits, and the order turns behind it
  RunBeforeDigits,  // it is a right-to-left run, with digits to follow
  Extend,           // the open run goes on to the boundary's end
  Close,            // the open run ends where the neutrals began; a run starts there when the next token can start one
  Start,            // a run of the next token's kind starts
  Append,           // a run of the direction before stands by itself
  AppendAtTurn,     // the same, in front of what was laid out since the turn
};

// The stretch that ends at a boundary lies behind an open run of kind run. direction held before, token is the kind of
// the stretch, next the kind of the token that follows.
constexpr TBoundary BoundaryBehind(TBidiType run, TBidiType direction, TBidiType token, TBidiType next) {
  const bool blank = token == TBidiType::SpaceSeparator;
  if ((next == TBidiType::ArabicDigit && run != TBidiType::RTL) || token == TBidiType::ArabicDigit) {
    const bool nothingStrong = IsNeutralOrBlank(token) || token == TBidiType::LineParagraphSeparator;
    return nothingStrong ? TBoundary::RunBeforeDigits : TBoundary::DigitsRun;
  }
  if (IsUnmergable(run)) {
    if (next != direction && direction == PlainKind(run) && blank) return TBoundary::Close;
    if (next == direction && IsNeutralOrBlank(token)) return TBoundary::Start;
    return TBoundary::AppendAtTurn;
  }
  if (next == run && next != TBidiType::ArabicDigit) return TBoundary::Extend;
  if (IsNeutralOrBlank(token) && run == direction) return TBoundary::Close;
  if (blank && next == direction) return TBoundary::Start;
  if (next == TBidiType::LTR || next == TBidiType::RTL || next == TBidiType::DirectionalFormatting)
    return TBoundary::Start;
  if (run == TBidiType::ArabicDigit || run == TBidiType::NotExists) return TBoundary::Append;
  return TBoundary::Close;
}

// The same as a table, since a mixed text takes all its ways in turn.
class TBoundaryTable {
 public:
  constexpr TBoundaryTable() {
    for (std::size_t run = 0; run < Kinds; ++run)
      for (std::size_t token = 0; token < Kinds; ++token)
        for (std::size_t next = 0; next < Kinds; ++next)
          for (const TBidiType direction : {TBidiType::LTR, TBidiType::RTL})
            FActions[Index(Kind(run), direction, Kind(token), Kind(next))] =
                BoundaryBehind(Kind(run), direction, Kind(token), Kind(next));
  }

  TBoundary At(TBidiType run, TBidiType direction, TBidiType token, TBidiType next) const {
    return FActions[Index(run, direction, token, next)];
  }

 private:
  static constexpr std::size_t Kinds = static_cast<std::size_t>(TBidiType::NotExists) + 1;

  static constexpr TBidiType Kind(std::size_t value) { return static_cast<TBidiType>(value); }
  static constexpr std::size_t Index(TBidiType run, TBidiType direction, TBidiType token, TBidiType next) {
    const auto value = [](TBidiType kind) { return static_cast<std::size_t>(kind); };
    return ((value(run) * Kinds + value(token)) * Kinds + value(next)) * 2 + (direction == TBidiType::RTL ? 1 : 0);
  }

  std::array<TBoundary, Kinds * Kinds * Kinds * 2> FActions{};
};

constexpr TBoundaryTable BoundaryTable;

}  // namespace

void TRunAssembler::Run() {
  FRuns.Offsets.push_back(0);
  while (!FReader.AtEnd()) {
    if (SkipStretch()) continue;
    const TFlow flow = Step();
    if (flow == TFlow::Leave) break;
    if (flow == TFlow::StepEnd) EndStep();
  }
  Finish();
}

// Whatever lies between here and the next exception is one run of the direction in force, or extends the open one. The
// units are searched once for each direction; what is left of a stretch goes the ordinary way, token by token.
bool TRunAssembler::SkipStretch() {
  const TWordAhead word = WordAhead(FReader.Text, FReader.Position);
  const TBidiType direction = DirectionOfStretch(word.First);
  const bool rtl = direction == TBidiType::RTL;
  if (direction == TBidiType::NotExists || FReader.Position < FStretchSeen[rtl]) return false;
  const bool foreign = direction != FReader.CurrentBidi;
  const TStretch stretch =
      FindStretch(FReader.Text, FReader.Position, {rtl, foreign, FReader.SingleQuoteOpen, FReader.DoubleQuoteOpen});
  FStretchSeen[rtl] = stretch.SeenEnd;
  if (stretch.End == FReader.Position) return false;
  FReader.SavedEndOfLine = FReader.EndOfLine;
  FReader.SentenceEnded = stretch.SentenceEnded;
  FLastToken = direction;
  FStackCountBefore = FReader.Stack.size();
  if (FReader.RunKind == direction) {
    ExtendRun(stretch.End);
  } else {
    // What stands before a foreign word stays with the run of the direction in force.
    if (foreign && word.Place != FReader.Position) ExtendRun(word.Place);
    StartRun(direction, stretch.End);
  }
  FReader.Position = stretch.End;
  if (stretch.SentenceEnded) EndStep();
  return true;
}

// The direction of the stretch that may begin with this word, LTR or RTL; NotExists where the rules have more to say.
TBidiType TRunAssembler::DirectionOfStretch(TUnitClass word) const {
  const TBidiType direction = FReader.CurrentBidi;
  if (word.Has(direction == TBidiType::RTL ? TUnitClass::WordRTL : TUnitClass::WordLTR))
    return LeavesNumberRun() ? TBidiType::NotExists : direction;
  if (FReader.RunKind != TBidiType::LTR && FReader.RunKind != TBidiType::RTL) return TBidiType::NotExists;
  if (direction == TBidiType::LTR) return word.Has(TUnitClass::WordRTL) ? TBidiType::RTL : TBidiType::NotExists;
  // Where equations run right to left, the digits in a left-to-right word do not go with it.
  return word.Has(TUnitClass::LetterLTR) && !FReader.Settings.RTLMath ? TBidiType::LTR : TBidiType::NotExists;
}

// The one place where left-to-right text behind a blank makes two runs: behind a number in a right-to-left paragraph.
bool TRunAssembler::LeavesNumberRun() const {
  return FReader.RunKind == TBidiType::ArabicDigit && FReader.CurrentBidi == TBidiType::LTR;
}

TRunAssembler::TFlow TRunAssembler::Step() {
  FStackCountBefore = FReader.Stack.size();
  FLastToken = FReader.ReadNextToken();
  switch (FLastToken) {
    case TBidiType::LTR:
    case TBidiType::RTL:
    case TBidiType::ArabicDigit:
      break;
    case TBidiType::DirectionalFormatting: {
      // A format character lies in the run that follows it, unless an embedding stands behind it.
      const char16_t behind = FReader.Text.At(FReader.Position);
      if (behind != 0x202A && behind != 0x202B) return TFlow::StepEnd;
      break;
    }
    case TBidiType::LineParagraphSeparator:
      EndParagraph();
      return TFlow::StepEnd;
    case TBidiType::Neutral:
      NeutralBranch();
      return TFlow::StepEnd;
    case TBidiType::SpaceSeparator:
      return BlankBranch();
    default:
      ORV_ASSERT(false, Place());
      return TFlow::StepEnd;
  }
  if (FLastToken == FReader.RunKind)
    ExtendRun(FReader.Position);
  else
    StartRun(FLastToken, FReader.Position);
  return TFlow::StepEnd;
}

// Nothing merges across the end of a sentence, nor with what stood inside a bracket that has just closed.
void TRunAssembler::EndStep() {
  if (FReader.SentenceEnded &&
      (FLastToken != TBidiType::SpaceSeparator || FNextToken == TBidiType::LineParagraphSeparator)) {
    FReader.RunKind = TBidiType::NotExists;
    FReader.TurnIndex = FReader.OrderCount();
    return;
  }
  if (FReader.Stack.size() < FStackCountBefore) {
    ORV_ASSERT(FReader.CurrentBidi == TBidiType::LTR || FReader.CurrentBidi == TBidiType::RTL, Place());
    FReader.RunKind = UnmergableKind(FReader.CurrentBidi);
    FReader.TurnIndex = FReader.OrderCount();
  }
}

void TRunAssembler::NeutralBranch() {
  std::int32_t mark = FReader.Position;  // the last place at which the run could still end
  FStackCountBefore = FReader.Stack.size();
  do {
    if (FReader.AtEnd()) {
      CloseText();
      FNextToken = TBidiType::NotExists;
      mark = FReader.Position;
      break;
    }
    if (FReader.CurrentBidi == FReader.RunKind) mark = FReader.Position;
    FNextToken = FReader.ReadNextToken();
  } while (IsNeutralOrBlank(FNextToken));

  if (FNextToken == TBidiType::LineParagraphSeparator) {
    if (FReader.RunKind != TBidiType::NotExists)
      CloseRun(mark, FReader.Position, TBidiType::NotExists);
    else
      AppendRun(FReader.PreviousBidi, false, FReader.Position);
    EndParagraph();
  } else {
    ResolveBoundary(FReader.PreviousBidi, FLastToken, mark, FReader.Position, FNextToken);
  }
  FLastToken = FNextToken;
}

TRunAssembler::TFlow TRunAssembler::BlankBranch() {
  if (FReader.AtEnd()) {
    CloseText();
    return TFlow::Leave;
  }
  FRunStart = FReader.Position;
  FStackCountBefore = FReader.Stack.size();
  FNextToken = FReader.ReadNextToken();
  const std::int32_t firstEnd = FReader.Position;
  std::int32_t tokenEnd = firstEnd;

  if (FNextToken != TBidiType::Neutral && FNextToken != TBidiType::LineParagraphSeparator) {
    const bool staysInRun = FReader.RunKind == TBidiType::RTL && FStackCountBefore <= FReader.Stack.size();
    if (FNextToken == TBidiType::ArabicDigit && !staysInRun)
      TurnToDigits(FRunStart);
    else if (FReader.Stack.size() > FStackCountBefore)
      FReader.PreviousBidi = FReader.Stack.back().Bidi;
  } else {
    if (FNextToken == TBidiType::Neutral) FNextToken = ReadOverNeutrals(tokenEnd);

    if (FReader.AtEnd() || FNextToken == TBidiType::LineParagraphSeparator) {
      ResolveAtEnd(FRunStart, FNextToken);
      if (FNextToken != TBidiType::LineParagraphSeparator) return TFlow::Leave;
      EndParagraph();
      FLastToken = FNextToken;
      return TFlow::StepEnd;
    }
    if (FNextToken != FReader.RunKind && FReader.RunKind == FReader.PreviousBidi) {
      ResolveBoundary(FReader.PreviousBidi, FLastToken, tokenEnd, FReader.Position, FNextToken);
      FLastToken = FNextToken;
      return TFlow::NextStep;
    }
    if (FNextToken == TBidiType::SpaceSeparator) {
      if (FReader.RunKind == TBidiType::NotExists)
        AppendRun(FReader.CurrentBidi, false, FReader.Position);
      else
        CloseRun(FReader.Position, FReader.Position, TBidiType::SpaceSeparator);
      FLastToken = FNextToken;
      return TFlow::NextStep;
    }
    if (FNextToken == TBidiType::ArabicDigit &&
        (FReader.RunKind == TBidiType::LTR || FReader.RunKind == TBidiType::ArabicDigit)) {
      TurnToDigits(firstEnd);
      FRuns.Bidi.back() = TBidi::RightToLeft;
    }
  }

  if (FNextToken == TBidiType::LTR && FReader.RunKind == TBidiType::ArabicDigit &&
      FReader.Settings.ParagraphBidi == TParagraphBidi::RightToLeft) {
    AppendRun(FReader.PreviousBidi, false, FRunStart);
    AppendRun(TBidiType::LTR, false, FReader.Position);
  } else {
    ResolveBoundary(FReader.PreviousBidi, FLastToken, FRunStart, FReader.Position, FNextToken);
  }
  FLastToken = FNextToken;
  return TFlow::StepEnd;
}

// Reads on behind a blank and a neutral up to a token of another kind or the end of the text. The direction before the
// blank stays the one that counts.
TBidiType TRunAssembler::ReadOverNeutrals(std::int32_t& tokenEnd) {
  const TBidiType before = FReader.PreviousBidi;
  TBidiType next = TBidiType::Neutral;
  while (!FReader.AtEnd() && IsNeutralOrBlank(next)) {
    tokenEnd = FReader.Position;
    next = FReader.ReadNextToken();
  }
  FReader.PreviousBidi = before;
  return next;
}

// Blanks, perhaps with neutrals behind them, that run up to the end of the text or of the paragraph.
void TRunAssembler::ResolveAtEnd(std::int32_t runStart, TBidiType next) {
  const bool nothingStrong = IsNeutralOrBlank(next) || next == TBidiType::NotExists;
  if (next == FReader.RunKind || !nothingStrong) {
    ResolveBoundary(FReader.PreviousBidi, FLastToken, runStart, FReader.Position, next);
  } else if (FReader.RunKind == FReader.PreviousBidi) {
    CloseRun(FReader.Position, FReader.Position, TBidiType::NotExists);
  } else {
    AppendRun(FReader.PreviousBidi, false, FReader.Position);
  }
}

// What the rules leave uncovered (a last format character, a zero-width blank behind another) joins the last run; where
// there is none in its line it is a run of the direction in force.
void TRunAssembler::Finish() {
  const std::int32_t length = FReader.Text.Length();
  if (FRuns.Offsets.back() < length) {
    if (FRuns.Bidi.empty() || FRuns.Bidi.back() == TBidi::ParagraphSeparator)
      AppendRun(FReader.CurrentBidi, false, length);
    else
      ExtendRun(length);
  }
  FReader.Order.Finish();
  ORV_ASSERT(FRuns.Offsets.size() == FRuns.VisualOrder.size() + 1 && FRuns.Offsets.back() == length,
             "  OffsetsList:" + std::to_string(FRuns.Offsets.back()) + " ,LengthS:" + std::to_string(length));
  ORV_ASSERT(FRuns.Bidi.size() == FRuns.VisualOrder.size(), Place());
}

void TRunAssembler::AppendRun(TBidiType kind, bool atTurn, std::int32_t end) {
  const TBidiType plain = PlainKind(kind);
  ORV_ASSERT(StartsRun(plain), "Error in " + std::to_string(FReader.Position) + " @ " + TextForMessage());
  // A number is a left-to-right run.
  const TBidi bidi = plain == TBidiType::RTL ? TBidi::RightToLeft : TBidi::LeftToRight;
  AppendEntry(bidi, atTurn, FReader.SavedEndOfLine, end);
}

void TRunAssembler::AppendEntry(TBidi bidi, bool atTurn, std::int32_t line, std::int32_t end) {
  FRuns.Bidi.push_back(bidi);
  if (atTurn)
    FReader.Order.Insert(FReader.TurnIndex);
  else if (line >= 1)
    FReader.Order.Insert(line - 1);
  else
    FReader.Order.Append();
  FRuns.Offsets.push_back(end);
}

void TRunAssembler::StartRun(TBidiType kind, std::int32_t end) {
  AppendRun(kind, false, end);
  FReader.RunKind = kind;
}

void TRunAssembler::CloseRun(std::int32_t start, std::int32_t end, TBidiType next) {
  ExtendRun(start);
  if (StartsRun(next)) {
    StartRun(next, end);
    return;
  }
  ORV_ASSERT(
      next == TBidiType::SpaceSeparator || next == TBidiType::LineParagraphSeparator || next == TBidiType::NotExists,
      Place());
}

// What stands at the end of the text goes with the open run, or is one of its own.
void TRunAssembler::CloseText() {
  if (FReader.RunKind != TBidiType::NotExists)
    CloseRun(FReader.Position, FReader.Position, TBidiType::NotExists);
  else
    AppendRun(FReader.PreviousBidi, false, FReader.Position);
}

// The stretch before a number becomes a right-to-left run of its own.
void TRunAssembler::TurnToDigits(std::int32_t at) {
  AppendRun(TBidiType::RTL, false, at);
  FReader.RunKind = TBidiType::RTL;
  FLastToken = TBidiType::ArabicDigit;
  FRunStart = at;
  FReader.TurnIndex = FReader.OrderCount();
}

// Brackets and quotes are forgotten at a paragraph's end; their depth and the open quotes are not.
void TRunAssembler::EndParagraph() {
  AppendEntry(TBidi::ParagraphSeparator, false, -1, FReader.Position);
  FReader.ParagraphEnded = true;
  FReader.SentenceEnded = true;
  FReader.SavedEndOfLine = -1;
  FReader.TurnIndex = FReader.OrderCount() - 1;
  FReader.CurrentBidi = FReader.BaseBidi;
  FReader.PreviousBidi = FReader.CurrentBidi;
  FReader.EndOfLine = -1;
  FReader.Stack.clear();
}

// Places the stretch that ends at end when a token of kind next follows; start is where its neutral part began.
void TRunAssembler::ResolveBoundary(TBidiType direction, TBidiType token, std::int32_t start, std::int32_t end,
                                    TBidiType next) {
  switch (BoundaryTable.At(FReader.RunKind, direction, token, next)) {
    case TBoundary::DigitsRun:
      AppendRun(token, false, end);
      FReader.RunKind = token == TBidiType::ArabicDigit ? TBidiType::ArabicDigit : TBidiType::RTL;
      if (token == TBidiType::ArabicDigit) FReader.TurnIndex = FReader.OrderCount();
      break;
    case TBoundary::RunBeforeDigits:
      StartRun(TBidiType::RTL, end);
      FMayHoldForeign = true;  // a unit of measure lies in the digits' token
      break;
    case TBoundary::Extend:
      ExtendRun(end);
      break;
    case TBoundary::Close:
      CloseRun(start, end, next);
      break;
    case TBoundary::Start:
      ORV_ASSERT(StartsRun(next), Place());
      StartRun(next, end);
      break;
    case TBoundary::Append:
      AppendRun(direction, false, end);
      // RunKind stays, so a further number, a unit of measure in it, extends this run.
      if (FReader.RunKind == TBidiType::ArabicDigit) FMayHoldForeign = true;
      break;
    case TBoundary::AppendAtTurn:
      AppendRun(direction, true, end);
      FMayHoldForeign = true;  // the next token lies in the run, whatever its kind
      break;
  }
}

std::string TRunAssembler::Place() const {
  return std::to_string(FReader.Position) + "@\"" + TextForMessage() + "\"";
}

std::string TRunAssembler::TextForMessage() const {
  return rtl::ToUtf8({FReader.Text.Data(), static_cast<std::size_t>(FReader.Text.Length())});
}

}  // namespace orv::engine
