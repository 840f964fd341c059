// Cutting the text into lines and directional runs, not measured yet.
#include <algorithm>
#include <array>
#include <utility>

#include "rtl/Assertions.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv {
namespace {

// Whether a unit may be a form of several letters. Without a branch in the loop, for all of a text is looked at.
bool HasForms(std::u16string_view text) {
  unsigned found = 0;
  for (const char16_t unit : text) found |= static_cast<unsigned>(unit - 0xFB2AU <= 0xFEFCU - 0xFB2AU);
  return found != 0;
}

// Builds one frame out of the engine's segments.
class TFrameBuilder {
 public:
  TFrameBuilder(std::unique_ptr<TFrameStore> store, std::u16string_view text, fmx::TAlphaColor color, bool rightToLeft)
      : FText(text),
        FColor(color),
        FRightToLeft(rightToLeft),
        FFrame(std::make_unique<TGPUFrame>(std::move(store))),
        FList(TStoreAllocator<std::int32_t>(FFrame->Store())) {}

  std::unique_ptr<TGPUFrame> EmptyText() {
    StartLine(0);
    AddEmptyRun(0);
    return std::move(FFrame);
  }

  std::unique_ptr<TGPUFrame> Build(const TDirectionalRuns& runs) {
    ORV_ASSERT(runs.Offsets.size() == runs.Bidi.size() + 1 && runs.VisualOrder.size() == runs.Bidi.size(),
               "The engine's lists differ in length");
    AppendUtf16(FText, Store().Atoms);
    FHasPairs = Store().Atoms.size() != FText.size();
    if (FHasPairs) Store().Atoms.clear();
    FHasForms = HasForms(FText);
    StartLine(0);
    for (std::size_t i = 0; i < runs.Bidi.size(); ++i) AddSegment(runs, i);
    if (FLine->IsEmpty()) AddEmptyRun(runs.Offsets.empty() ? 0 : runs.Offsets.back());
    return std::move(FFrame);
  }

 private:
  TFrameStore& Store() const { return FFrame->Store(); }

  void StartLine(std::int32_t start) {
    FLine = &FFrame->Add(Store().New<TGPULine>(Store()));
    FLine->SetStartIndex(start);
  }

  // A run of no text, which gives a line without any its height. It stands behind the separator before it.
  void AddEmptyRun(std::int32_t start) {
    FLine->SetVisualOrderList(std::array{0});
    TGPURun& run = AddRun();
    run.SetStartIndex(start);
  }

  TGPURun& AddRun() {
    TGPURun& run = FLine->Add(Store().New<TGPURun>(Store()));
    run.SetColor(FColor, true);
    return run;
  }

  void AddSegment(const TDirectionalRuns& runs, std::size_t index) {
    if (FLine->IsEmpty()) StartParagraph(runs, index);
    if (runs.Bidi[index] == TBidi::ParagraphSeparator)
      StartLine(runs.Offsets[index]);
    else
      AddTextRun(runs.Offsets[index], runs.Offsets[index + 1], runs.Bidi[index] == TBidi::RightToLeft);
  }

  // The segments up to the next separator stand in their visual order, the whole list reversed where the layout reads
  // from right to left.
  void StartParagraph(const TDirectionalRuns& runs, std::size_t first) {
    const auto begin = runs.Bidi.begin() + static_cast<std::ptrdiff_t>(first);
    const auto count = std::find(begin, runs.Bidi.end(), TBidi::ParagraphSeparator) - begin;
    if (count == 0) {
      AddEmptyRun(runs.Offsets[first]);
      return;
    }
    const auto order = runs.VisualOrder.begin() + static_cast<std::ptrdiff_t>(first);
    FList.assign(order, order + count);
    if (FRightToLeft) std::reverse(FList.begin(), FList.end());
    const std::int32_t least = *std::min_element(FList.begin(), FList.end());
    for (std::int32_t& entry : FList) entry -= least;
    FLine->SetVisualOrderList(FList);
  }

  void AddTextRun(std::int32_t start, std::int32_t end, bool rightToLeft) {
    const TGPURun* previous = FLine->IsEmpty() ? nullptr : &FLine->Item(FLine->Count() - 1);
    TGPURun& run = AddRun();
    if (FHasPairs)
      run.SetText(FText, start, end - start, rightToLeft);
    else
      run.TakeText(start, end - start, rightToLeft, !FHasForms);
    if (TOrvGlobalSettings::ReplaceQuoteWithPrimeInMeasures()) run.ReplaceQuoteMeasuresToPrimes(previous);
    if (rightToLeft)
      run.PrepareComplexArabicCombinations();
    else
      run.PrepareArabicDigits();
  }

  std::u16string_view FText;
  fmx::TAlphaColor FColor;
  bool FRightToLeft;
  bool FHasPairs = false;  // atoms of two units
  bool FHasForms = false;  // units that are forms of several letters
  std::unique_ptr<TGPUFrame> FFrame;
  TStoredVector<std::int32_t> FList;  // the visual order of a paragraph
  TGPULine* FLine = nullptr;          // the one that runs are added to
};

}  // namespace

std::unique_ptr<TGPUFrame> TTextLayoutNGOrv::CreateFrame(std::unique_ptr<TFrameStore> store) {
  if (!store) store = std::make_unique<TFrameStore>();
  store->Reset(TOrvGlobalSettings::Corrections);
  TFrameBuilder builder(std::move(store), Text(), Color(), RightToLeft());
  if (Text().empty()) return builder.EmptyText();
  FCharSequence = Text();
  thread_local TDirectionalRuns runs;  // keeps its memory
  TDirectiveChars::SplitByDirection(
      FCharSequence, FNeutralsRightToLeft ? TParagraphBidi::AutoRightToLeft : TParagraphBidi::AutoLeftToRight, runs);
  return builder.Build(runs);
}

}  // namespace orv
