#include "unicode/Unicode.Engine.RunAssembler.h"

#include <string>

#include "rtl/Assertions.h"
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

// With a run open in the direction in force, whatever lies between here and the next exception extends that run. The
// units are searched once; what is left of a stretch goes the ordinary way, token by token.
bool TRunAssembler::SkipStretch() {
  if (FReader.RunKind != FReader.CurrentBidi || FReader.Position < FStretchSeen) return false;
  const TStretch stretch = FindStretch(FReader.Text, FReader.Position, FReader.CurrentBidi == TBidiType::RTL);
  FStretchSeen = stretch.SeenEnd;
  if (stretch.End == FReader.Position) return false;
  ExtendRun(stretch.End);
  FReader.Position = stretch.End;
  FLastToken = FReader.CurrentBidi;
  return true;
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
  const auto index = static_cast<std::int32_t>(FRuns.Offsets.size()) - 1;
  auto& order = FRuns.VisualOrder;
  if (atTurn)
    order.insert(order.begin() + FReader.TurnIndex, index);
  else if (line >= 1)
    order.insert(order.begin() + (line - 1), index);
  else
    order.push_back(index);
  FRuns.Offsets.push_back(end);
}

void TRunAssembler::StartRun(TBidiType kind, std::int32_t end) {
  AppendRun(kind, false, end);
  FReader.RunKind = kind;
}

void TRunAssembler::StartRunChecked(std::int32_t end, TBidiType next) {
  ORV_ASSERT(StartsRun(next), Place());
  StartRun(next, end);
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

// Places the stretch that ends at end when a token of kind next follows. direction held before, token is the kind of
// the stretch behind, start is where its neutral part began.
void TRunAssembler::ResolveBoundary(TBidiType direction, TBidiType token, std::int32_t start, std::int32_t end,
                                    TBidiType next) {
  const TBidiType run = FReader.RunKind;
  if ((next == TBidiType::ArabicDigit && run != TBidiType::RTL) || token == TBidiType::ArabicDigit) {
    const bool digits = !IsNeutralOrBlank(token) && token != TBidiType::LineParagraphSeparator;
    const TBidiType kind = digits ? token : TBidiType::RTL;
    AppendRun(kind, false, end);
    FReader.RunKind = kind == TBidiType::ArabicDigit ? TBidiType::ArabicDigit : TBidiType::RTL;
    if (kind == TBidiType::ArabicDigit) FReader.TurnIndex = FReader.OrderCount();
  } else if (IsUnmergable(run)) {
    ResolveBehindBracket(direction, token, start, end, next);
  } else if (next == run && next != TBidiType::ArabicDigit) {
    ExtendRun(end);
  } else if (IsNeutralOrBlank(token) && run == direction) {
    CloseRun(start, end, next);
  } else if (token == TBidiType::SpaceSeparator && next == direction) {
    StartRunChecked(end, next);
  } else if (next == TBidiType::LTR || next == TBidiType::RTL || next == TBidiType::DirectionalFormatting) {
    StartRunChecked(end, next);
  } else if (run == TBidiType::ArabicDigit || run == TBidiType::NotExists) {
    AppendRun(direction, false, end);
  } else {
    CloseRun(start, end, next);
  }
}

// The open run was closed by a bracket and takes nothing more.
void TRunAssembler::ResolveBehindBracket(TBidiType direction, TBidiType token, std::int32_t start, std::int32_t end,
                                         TBidiType next) {
  if (next != direction && direction == PlainKind(FReader.RunKind) && token == TBidiType::SpaceSeparator)
    CloseRun(start, end, next);
  else if (next == direction && IsNeutralOrBlank(token))
    StartRunChecked(end, next);
  else
    AppendRun(direction, true, end);  // goes in front of what was laid out since the turn
}

std::string TRunAssembler::Place() const {
  return std::to_string(FReader.Position) + "@\"" + TextForMessage() + "\"";
}

std::string TRunAssembler::TextForMessage() const {
  std::string text;
  for (std::int32_t i = 0; i < FReader.Text.Length(); ++i)
    text.push_back(FReader.Text[i] < 0x80 ? static_cast<char>(FReader.Text[i]) : '?');
  return text;
}

}  // namespace orv::engine
