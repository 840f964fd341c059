// The layout pass, for Orv.TextLayout.GPU alone: measures the lines of a frame, wraps or trims those that are too wide,
// aligns them in the layout's box and clips what sticks out of it.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv {

// One render of one frame. Atoms of a run are counted as in the run; everything else is logical units unless it is said
// to be device pixels.
class TLayoutPass {
 public:
  TLayoutPass(TTextLayoutNGOrv& layout, TGPUFrame& frame);
  void Run();

 private:
  // The run that is measured, in its line and its dictionary.
  struct TMeasured {
    TGPULine& Line;
    std::int32_t RunIndex;
    TGPURun& Run;
    TAtomDic& Dic;
    const fmx::TFont& Font;
  };

  // What an overflow leaves to be done.
  struct TBreak {
    std::int32_t Next = 0;
    float Removed = 0;  // of the widths: what had been added for text that moved on or went
    float Excess = 0;   // likewise, where it is above 0
    TStored<TGPULine> SplitLine;
  };

  // --- Measuring ---
  void MeasureLine(std::int32_t lineIndex);
  TGPURun& PickRun(TGPULine& line, std::int32_t runIndex) const;
  bool SplitLeadingTab(TGPULine& line, std::int32_t runIndex, TGPURun& run) const;
  std::int32_t VisualPlaceBehindTab(const TGPULine& line, std::int32_t runIndex) const;
  bool MeasureByRenderer(TGPULine& line, std::int32_t lineIndex, std::int32_t& runIndex, TGPURun& run);
  void MeasureEmptyRun(TGPULine& line, TGPURun& run) const;
  std::optional<std::int32_t> MeasureGlyphs(const TMeasured& m);
  struct TPen;
  std::int32_t AddPlainGlyphs(const TMeasured& m, std::int32_t atom, float limit, TPen& pen) const;
  float TabHeight(const TMeasured& m) const;
  bool TestsFirstGlyph(const TMeasured& m) const;
  void BreakRun(const TMeasured& m, std::int32_t overflow, std::int32_t lineIndex, std::int32_t& runIndex);
  void TakeOff(const TMeasured& m, float width) const;
  void AddEllipsis(const TMeasured& m);

  // --- Wrapping ---
  TBreak Wrap(const TMeasured& m, std::int32_t overflow);
  TBreak WrapAtBlank(const TMeasured& m, std::int32_t blank);
  TBreak WrapBehindBlank(const TMeasured& m, std::int32_t overflow, std::int32_t breakAt);
  TBreak WrapBeforeRun(const TMeasured& m, std::int32_t overflow);
  TBreak WrapInWord(const TMeasured& m, std::int32_t overflow);
  float MovedWidth(const TMeasured& m, const TBreak& made, std::int32_t overflow, bool addSpace) const;

  // --- Trimming ---
  TBreak Trim(const TMeasured& m, std::int32_t overflow);
  void BeginTrimming(float overflowAdvance);
  void FitBefore(const TMeasured& m, TBreak& made) const;
  std::int32_t CutFor(const TGPURun& run, std::int32_t next) const;
  void TrimLine(TGPULine& line);
  void CutBehind(TGPULine& line, TGPURun& run, std::int32_t atom, const std::vector<TGPURun*>& runs) const;

  // --- Alignment ---
  void Align();
  float AlignHorizontally();
  float AlignVertically() const;

  // --- Clipping ---
  void Clip();
  void ChainRuns() const;
  void ClipTop() const;
  void ClipBottom() const;
  void ClipSides(TGPULine& line) const;
  void ClipLeft(TGPULine& line) const;
  void DeleteOutsideLeft(TGPULine& line) const;
  void ClipFirstRun(TGPULine& line, TGPURun& run, float& left) const;
  void ClipFirstAtoms(TGPULine& line, TGPURun& run, float& left) const;
  void ClipFirstPart(TGPULine& line, TGPURun& run) const;
  void ClipRight(TGPULine& line) const;
  bool KeepsLast(std::int32_t count) const { return count == 1 && Corrects(TOrvCorrection::KeepOneRun); }
  void ClipLastAtoms(TGPULine& line, TGPURun& run) const;
  void ClipLastAtomsWhole(TGPULine& line, TGPURun& run) const;
  void ClipLastPart(TGPULine& line, TGPURun& run) const;
  void DeleteFromVisualStart(TGPURun& run, std::int32_t count) const;
  void DeleteFromVisualEnd(TGPURun& run, std::int32_t count) const;
  float LargestLineWidth() const;

  // --- Glyphs; advances in device pixels ---
  TAtomDic& DictionaryOf(const TGPURun& run) const;
  bool NeedsRenderer(const TGPURun& run) const;
  const fmx::TCharRec& CharGlyph(const TMeasured& m, UCS4Char character) const;
  float AdvanceOf(const TMeasured& m, std::int32_t atom) const;
  float AdvanceOf(const TGPURun& run, std::int32_t atom) const;
  // Of the atoms from first up to but not including end, held within the run.
  float SumOfAdvances(const TMeasured& m, const TGPURun& run, std::int32_t first, std::int32_t end) const;
  float Scaled(float devicePixels) const { return devicePixels * FScaleFactor; }

  bool Corrects(TOrvCorrection correction) const { return FFrame.Store().Corrects(correction); }

  static constexpr float TrimEndUnset = -100;

  TTextLayoutNGOrv& FLayout;
  TGPUFrame& FFrame;
  const bool FWordWrap;
  const fmx::TTextTrimming FTrimming;
  const bool FRightToLeft;
  const fmx::TPointF FMaxSize;
  const bool FTrimsLine;      // each line as a whole
  const bool FTestsOverflow;  // of each glyph
  const float FScaleFactor;
  const float FMaxWidth;
  // Kept from one overflow of the render to the next: the room for a trimmed text is that at the first, and the count
  // of atoms kept at an overflow decides at the following one whether widths are taken off.
  const fmx::TCharRec* FEllipsis = nullptr;
  float FTrimEnd = TrimEndUnset;
  std::int32_t FKeep = 0;
  struct TUsedFont {
    const fmx::TFont* Font = nullptr;
    TAtomDic* Dic = nullptr;
    bool NeedsRenderer = false;
  };
  mutable TUsedFont FLastFont;
};

}  // namespace orv
