// The run assembler: merges the reader's tokens into runs, decides on which side of a direction change a blank falls,
// and keeps the visual order. The second layer of the splitter; docs/engine.md tells its branches by their names.
#pragma once

#include <string>

#include "unicode/Unicode.Engine.TokenReader.h"

namespace orv::engine {

class TRunAssembler {
 public:
  // reader is borrowed and must stand at the start of its text.
  explicit TRunAssembler(TTokenReader& reader) : FReader(reader), FRuns(reader.Runs) {}

  // Reads the whole text. The reader's runs then hold the result.
  void Run();

  // Whether a run may hold a letter of the other direction. Where this says no, none does.
  bool MayHoldForeignLetter() const { return FMayHoldForeign; }

 private:
  // What follows a step of the main loop.
  enum class TFlow { StepEnd, NextStep, Leave };

  TFlow Step();
  void EndStep();
  void NeutralBranch();
  TFlow BlankBranch();
  TBidiType ReadOverNeutrals(std::int32_t& tokenEnd);
  void ResolveAtEnd(std::int32_t runStart, TBidiType next);
  void Finish();
  bool SkipStretch();
  TBidiType DirectionOfStretch(TUnitClass word) const;
  bool LeavesNumberRun() const;

  void AppendRun(TBidiType kind, bool atTurn, std::int32_t end);
  void AppendEntry(TBidi bidi, bool atTurn, std::int32_t line, std::int32_t end);
  void ExtendRun(std::int32_t end) { FRuns.Offsets.back() = end; }
  void StartRun(TBidiType kind, std::int32_t end);
  void CloseRun(std::int32_t start, std::int32_t end, TBidiType next);
  void CloseText();
  void TurnToDigits(std::int32_t at);
  void EndParagraph();
  void ResolveBoundary(TBidiType direction, TBidiType token, std::int32_t start, std::int32_t end, TBidiType next);
  std::string Place() const;           // position and text, for messages
  std::string TextForMessage() const;  // in UTF-8

  TTokenReader& FReader;
  TDirectionalRuns& FRuns;
  TBidiType FLastToken = TBidiType::NotExists;
  TBidiType FNextToken = TBidiType::Neutral;
  std::size_t FStackCountBefore = 0;  // a lower count at the step's end: a bracket or quote has closed
  std::int32_t FRunStart = 0;         // in the blank branch: where the blanks end
  bool FMayHoldForeign = false;
  std::int32_t FStretchSeen[2] = {0,
                                  0};  // up to here the text was searched for stretches: left-to-right, right-to-left
};

}  // namespace orv::engine
