#include "tests/unicode/support/PlainSplit.h"

#include <algorithm>

#include "tests/unicode/support/PlainChars.h"
#include "tests/unicode/support/PlainTokens.h"

namespace orv::plain {
namespace {

class TAssembler {
 public:
  TAssembler(std::u16string_view s, TParagraphBidi paragraphBidi) {
    St.S = s;
    St.ParagraphBidi = paragraphBidi;
    St.BaseBidi = ResolveBaseBidi();
    St.CurrentBidi = St.PreviousBidi = St.BaseBidi;
    St.Runs.Offsets.push_back(0);
    St.HasArabicDigits = !s.empty() && IsArabicDigit(s[0]);
  }

  TPlainResult Run() {
    while (!St.AtEnd()) {
      const TNext next = Step();
      if (next == TNext::StepEnd) StepEnd();
      if (next == TNext::Leave) break;
    }
    Finish();
    return {std::move(St.Runs), std::move(Broken)};
  }

 private:
  // Where a branch of the loop goes on: at the step's end, behind it, or out of the loop.
  enum class TNext { StepEnd, NextStep, Leave };

  TToken ResolveBaseBidi() const {
    if (St.ParagraphBidi == TParagraphBidi::LeftToRight) return TToken::LTR;
    if (St.ParagraphBidi == TParagraphBidi::RightToLeft) return TToken::RTL;
    return IsRTLText(St.S, St.ParagraphBidi == TParagraphBidi::AutoRightToLeft) ? TToken::RTL : TToken::LTR;
  }

  // ---- Main loop ----

  TNext Step() {
    StackCountBefore = St.Stack.size();
    St.LastToken = Read();
    switch (St.LastToken) {
      case TToken::LTR:
      case TToken::RTL:
      case TToken::ArabicDigit:
        ExtendOrStart(St.LastToken);
        return TNext::StepEnd;
      case TToken::DirectionalFormatting:
        if (St.At(St.Position) == 0x202B || St.At(St.Position) == 0x202A) ExtendOrStart(St.LastToken);
        return TNext::StepEnd;
      case TToken::LineParagraphSeparator:
        EndParagraph();
        return TNext::StepEnd;
      case TToken::Neutral:
        return NeutralBranch();
      case TToken::SpaceSeparator:
        return BlankBranch();
      default:
        Fail("token that can not be placed");
        return TNext::StepEnd;
    }
  }

  void StepEnd() {
    if (St.SentenceEnded &&
        (St.LastToken != TToken::SpaceSeparator || St.NextToken == TToken::LineParagraphSeparator)) {
      St.RunKind = TToken::NotExists;
      St.TurnIndex = St.OrderCount();
    } else if (St.Stack.size() < StackCountBefore) {
      if (St.CurrentBidi != TToken::LTR && St.CurrentBidi != TToken::RTL) Fail("direction behind a closed bracket");
      St.RunKind = St.CurrentBidi == TToken::LTR ? TToken::LTRUnmergable : TToken::RTLUnmergable;
      St.TurnIndex = St.OrderCount();
    }
  }

  TNext NeutralBranch() {
    std::int32_t mark = St.Position;
    StackCountBefore = St.Stack.size();
    for (;;) {
      if (St.AtEnd()) {
        CloseAtEnd();
        St.NextToken = TToken::NotExists;
        mark = St.Position;
        break;
      }
      if (St.CurrentBidi == St.RunKind) mark = St.Position;
      St.NextToken = Read();
      if (St.NextToken != TToken::Neutral && St.NextToken != TToken::SpaceSeparator) break;
    }
    if (St.NextToken == TToken::LineParagraphSeparator) {
      if (St.RunKind != TToken::NotExists)
        CloseRun(mark, St.Position, TToken::NotExists);
      else
        AppendHere(St.PreviousBidi, St.Position);
      EndParagraph();
    } else {
      ResolveBoundary(St.PreviousBidi, St.LastToken, mark, St.Position, St.NextToken);
    }
    St.LastToken = St.NextToken;
    return TNext::StepEnd;
  }

  TNext BlankBranch() {
    if (St.AtEnd()) {
      CloseAtEnd();
      return TNext::Leave;
    }
    RunStart = St.Position;
    StackCountBefore = St.Stack.size();
    St.NextToken = Read();
    FirstEnd = TokenEnd = St.Position;
    if (St.NextToken != TToken::Neutral && St.NextToken != TToken::LineParagraphSeparator) {
      const bool closedNone = StackCountBefore <= St.Stack.size();
      if (St.NextToken == TToken::ArabicDigit && !(St.RunKind == TToken::RTL && closedNone))
        TurnToDigits(RunStart);
      else if (St.Stack.size() > StackCountBefore)
        St.PreviousBidi = St.Stack.back().Bidi;
      return PlaceLookAhead();
    }
    if (St.NextToken == TToken::Neutral) SkipNeutrals();
    if (St.AtEnd() || St.NextToken == TToken::LineParagraphSeparator) return BlanksBeforeEnd();
    return BlanksInside();
  }

  // Step 4.
  void SkipNeutrals() {
    while (!St.AtEnd()) {
      TokenEnd = St.Position;
      TToken copy = St.PreviousBidi;
      St.NextToken = ReadNextToken(St, copy);
      if (St.NextToken != TToken::Neutral && St.NextToken != TToken::SpaceSeparator) return;
    }
  }

  // Step 5.
  TNext BlanksBeforeEnd() {
    const bool isOpen =
        St.NextToken == TToken::Neutral || St.NextToken == TToken::SpaceSeparator || St.NextToken == TToken::NotExists;
    if (St.NextToken != St.RunKind && isOpen) {
      if (St.RunKind != St.PreviousBidi)
        AppendHere(St.PreviousBidi, St.Position);
      else
        CloseRun(St.Position, St.Position, TToken::NotExists);
    } else {
      ResolveBoundary(St.PreviousBidi, St.LastToken, RunStart, St.Position, St.NextToken);
    }
    if (St.NextToken != TToken::LineParagraphSeparator) return TNext::Leave;
    EndParagraph();
    St.LastToken = St.NextToken;
    return TNext::StepEnd;
  }

  // Step 6.
  TNext BlanksInside() {
    if (St.NextToken != St.RunKind && St.RunKind == St.PreviousBidi) {
      ResolveBoundary(St.PreviousBidi, St.LastToken, TokenEnd, St.Position, St.NextToken);
      St.LastToken = St.NextToken;
      return TNext::NextStep;
    }
    if (St.NextToken == TToken::SpaceSeparator) {
      if (St.RunKind == TToken::NotExists)
        AppendHere(St.CurrentBidi, St.Position);
      else
        CloseRun(St.Position, St.Position, TToken::SpaceSeparator);
      St.LastToken = St.NextToken;
      return TNext::NextStep;
    }
    if (St.NextToken == TToken::ArabicDigit && (St.RunKind == TToken::LTR || St.RunKind == TToken::ArabicDigit)) {
      TurnToDigits(FirstEnd);
      St.Runs.Bidi.back() = TBidi::RightToLeft;
    }
    return PlaceLookAhead();
  }

  // Steps 7 and 8.
  TNext PlaceLookAhead() {
    if (St.NextToken != TToken::LineParagraphSeparator) {
      if (St.NextToken == TToken::LTR && St.RunKind == TToken::ArabicDigit &&
          St.ParagraphBidi == TParagraphBidi::RightToLeft) {
        AppendHere(St.PreviousBidi, RunStart);
        AppendHere(TToken::LTR, St.Position);
      } else {
        ResolveBoundary(St.PreviousBidi, St.LastToken, RunStart, St.Position, St.NextToken);
      }
    }
    St.LastToken = St.NextToken;
    return TNext::StepEnd;
  }

  // ---- Run operations ----

  static bool IsUnmergable(TToken kind) {
    return kind == TToken::LTRUnmergable || kind == TToken::RTLUnmergable || kind == TToken::ArabicDigitUnmergable;
  }

  static TToken PlainKind(TToken kind) {
    return IsUnmergable(kind) ? static_cast<TToken>(static_cast<int>(kind) - 3) : kind;
  }

  static bool MayStartRun(TToken kind) {
    return kind == TToken::LTR || kind == TToken::RTL || kind == TToken::ArabicDigit ||
           kind == TToken::DirectionalFormatting;
  }

  void AppendRun(TToken kind, bool atTurn, std::int32_t end, std::int32_t turn, std::int32_t line) {
    kind = PlainKind(kind);
    if (!MayStartRun(kind)) Fail("run of a kind that may not start one");
    if (line != -1) Fail("a place at the end of a line is set");
    TDirectionalRuns& runs = St.Runs;
    runs.Bidi.push_back(kind == TToken::RTL ? TBidi::RightToLeft : TBidi::LeftToRight);
    const auto index = static_cast<std::int32_t>(runs.Offsets.size()) - 1;
    if (atTurn)
      runs.VisualOrder.insert(runs.VisualOrder.begin() + turn, index);
    else if (line >= 1)
      runs.VisualOrder.insert(runs.VisualOrder.begin() + (line - 1), index);
    else
      runs.VisualOrder.push_back(index);
    runs.Offsets.push_back(end);
  }

  void AppendHere(TToken kind, std::int32_t end) { AppendRun(kind, false, end, St.TurnIndex, St.SavedEndOfLine); }

  void ExtendRun(std::int32_t end) {
    if (St.Runs.Offsets.size() == 1) Fail("no run to extend");
    if (end < St.Runs.Offsets.back()) Fail("offsets fall");
    if (!St.Runs.Bidi.empty() && St.Runs.Bidi.back() == TBidi::ParagraphSeparator && end != St.Runs.Offsets.back())
      Fail("a separator entry is extended");
    St.Runs.Offsets.back() = end;
  }

  void StartRun(TToken kind, std::int32_t end) {
    AppendHere(kind, end);
    St.RunKind = kind;
  }

  void ExtendOrStart(TToken token) {
    if (token == St.RunKind)
      ExtendRun(St.Position);
    else
      StartRun(token, St.Position);
  }

  void CloseRun(std::int32_t start, std::int32_t end, TToken next) {
    ExtendRun(start);
    if (MayStartRun(next))
      StartRun(next, end);
    else if (next != TToken::SpaceSeparator && next != TToken::LineParagraphSeparator && next != TToken::NotExists)
      Fail("run closed before a token that can not follow");
  }

  void StartRunChecked(std::int32_t end, TToken next) {
    if (!MayStartRun(next)) Fail("run started by a token that can not");
    StartRun(next, end);
  }

  void TurnToDigits(std::int32_t at) {
    AppendHere(TToken::RTL, at);
    St.RunKind = TToken::RTL;
    St.LastToken = TToken::ArabicDigit;
    RunStart = at;
    St.TurnIndex = St.OrderCount();
  }

  void EndParagraph() {
    St.TurnIndex = St.OrderCount();
    AppendRun(St.CurrentBidi, false, St.Position, St.TurnIndex, -1);
    St.Runs.Bidi[static_cast<std::size_t>(St.TurnIndex)] = TBidi::ParagraphSeparator;
    St.SentenceEnded = true;
    St.SavedEndOfLine = -1;
    St.TurnIndex = St.OrderCount() - 1;
    St.CurrentBidi = St.BaseBidi;
    St.PreviousBidi = St.CurrentBidi;
    St.EndOfLine = -1;
    St.Stack.clear();
  }

  // The closing step, which the neutral branch takes at the end of the text too.
  void CloseAtEnd() {
    if (St.RunKind != TToken::NotExists)
      CloseRun(St.Position, St.Position, TToken::NotExists);
    else
      AppendHere(St.PreviousBidi, St.Position);
  }

  void ResolveBoundary(TToken dir, TToken token, std::int32_t start, std::int32_t end, TToken next) {
    const bool isNeutralOrBlank = token == TToken::Neutral || token == TToken::SpaceSeparator;
    if ((next == TToken::ArabicDigit && St.RunKind != TToken::RTL) || token == TToken::ArabicDigit) {
      const TToken kind = isNeutralOrBlank || token == TToken::LineParagraphSeparator ? TToken::RTL : token;
      AppendHere(kind, end);
      St.RunKind = kind == TToken::ArabicDigit ? TToken::ArabicDigit : TToken::RTL;
      if (kind == TToken::ArabicDigit) St.TurnIndex = St.OrderCount();
    } else if (!IsUnmergable(St.RunKind)) {
      if (next == St.RunKind && next != TToken::ArabicDigit)
        ExtendRun(end);
      else if (isNeutralOrBlank && St.RunKind == dir)
        CloseRun(start, end, next);
      else if (token == TToken::SpaceSeparator && next == dir)
        StartRunChecked(end, next);
      else if (next == TToken::LTR || next == TToken::RTL || next == TToken::DirectionalFormatting)
        StartRunChecked(end, next);
      else if (St.RunKind == TToken::ArabicDigit || St.RunKind == TToken::NotExists)
        AppendHere(dir, end);
      else
        CloseRun(start, end, next);
    } else {
      if (next != dir && dir == PlainKind(St.RunKind) && token == TToken::SpaceSeparator)
        CloseRun(start, end, next);
      else if (next == dir && isNeutralOrBlank)
        StartRunChecked(end, next);
      else
        AppendRun(dir, true, end, St.TurnIndex, St.SavedEndOfLine);
    }
  }

  // ---- Finish ----

  void Finish() {
    if (St.Runs.Offsets.back() < St.Length()) CoverTheRest();
    if (St.Runs.Offsets.size() != St.Runs.VisualOrder.size() + 1) Fail("count of offsets");
    if (St.Runs.Offsets.back() != St.Length()) Fail("last offset");
    if (St.Runs.Bidi.size() != St.Runs.VisualOrder.size()) Fail("count of directions");
  }

  // What no rule covered joins the last run, or is a run of its own where it can not.
  void CoverTheRest() {
    if (St.Runs.Bidi.empty() || St.Runs.Bidi.back() == TBidi::ParagraphSeparator)
      AppendHere(St.CurrentBidi, St.Length());
    else
      ExtendRun(St.Length());
  }

  TToken Read() { return ReadNextToken(St, St.PreviousBidi); }

  void Fail(const char* invariant) {
    if (std::find(Broken.begin(), Broken.end(), invariant) == Broken.end()) Broken.emplace_back(invariant);
  }

  TState St;
  std::size_t StackCountBefore = 0;
  std::int32_t RunStart = 0, TokenEnd = 0, FirstEnd = 0;
  std::vector<std::string> Broken;
};

}  // namespace

TPlainResult Split(std::u16string_view s, TParagraphBidi paragraphBidi) {
  return TAssembler(s, paragraphBidi).Run();
}

}  // namespace orv::plain
