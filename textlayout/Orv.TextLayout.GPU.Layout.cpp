// The layout pass: the loops over lines, runs and glyphs.
#include <algorithm>
#include <limits>
#include <utility>

#include "fmx/Log.h"
#include "rtl/Assertions.h"
#include "rtl/Strings.h"
#include "textlayout/Orv.FontGlyphs.h"
#include "textlayout/Orv.TextLayout.GPU.Pass.h"
#include "textlayout/Orv.TextLayout.Internal.h"

namespace orv {

using fmx::Log;

TLayoutPass::TLayoutPass(TTextLayoutNGOrv& layout, TGPUFrame& frame)
    : FLayout(layout),
      FFrame(frame),
      FWordWrap(layout.WordWrap()),
      FTrimming(layout.Trimming()),
      FRightToLeft(layout.RightToLeft()),
      FMaxSize(layout.MaxSize()),
      FTrimsLine(!FWordWrap && FTrimming != fmx::TTextTrimming::None && Corrects(TOrvCorrection::TrimLine)),
      FTestsOverflow(FWordWrap || (FTrimming != fmx::TTextTrimming::None && !FTrimsLine)),
      FScaleFactor(layout.ScaleFactor()),
      FMaxWidth(layout.MaxSize().X - layout.Padding().Left - layout.Padding().Right) {}

// Wrapping puts the rest of a line behind it; a rest waits with the lines below it, so that each line is added once.
void TLayoutPass::Run() {
  TStoredVector<TStored<TGPULine>> waiting{TStoreAllocator<TStored<TGPULine>>(FFrame.Store())};  // the next one last
  while (!FFrame.IsEmpty()) waiting.push_back(FFrame.TakeLast());
  while (!waiting.empty()) {
    FFrame.Add(std::move(waiting.back()));
    waiting.pop_back();
    const std::int32_t index = FFrame.Count() - 1;
    MeasureLine(index);
    const TGPULine& line = FFrame.Line(index);
    FFrame.SetWidth(std::max(FFrame.Width(), line.Width()));
    FFrame.SetHeight(FFrame.Height() + line.Height());
    while (FFrame.Count() > index + 1) waiting.push_back(FFrame.TakeLast());
  }
  Align();
  Clip();
  FFrame.SetWidth(LargestLineWidth());
}

// --- The run loop ---

void TLayoutPass::MeasureLine(std::int32_t lineIndex) {
  Log::d("DoRenderLayout: -- LineIndex: %d", lineIndex);
  TGPULine& line = FFrame.Line(lineIndex);
  line.ResetSize();
  if (Corrects(TOrvCorrection::TabSplit)) line.SplitLeadingTabs(FLayout.Text(), FRightToLeft);
  for (std::int32_t i = 0; i < line.Count(); ++i) {  // splitting adds and takes runs
    Log::d("DoRenderLayout: ---- RunIndex: %d:%d", lineIndex, i);
    TGPURun& run = PickRun(line, i);
    Log::d("DoRenderLayout: ---- RunIndex: %d:%d(%d,%d)", lineIndex, i, run.StartIndex(), run.Length());
    if (!SplitLeadingTab(line, i, run) && MeasureByRenderer(line, lineIndex, i, run)) continue;
    if (run.Length() == 0) {
      MeasureEmptyRun(line, run);
      continue;
    }
    const TMeasured m{line, i, run, DictionaryOf(run), FLayout.GetFontFor(run)};
    if (const auto overflow = MeasureGlyphs(m)) BreakRun(m, *overflow, lineIndex, i);
  }
  if (FTrimsLine) TrimLine(line);
}

// Wrapping breaks the text at its logical end; without it, what does not fit goes from the far side of the reading.
TGPURun& TLayoutPass::PickRun(TGPULine& line, std::int32_t runIndex) const {
  return FWordWrap ? line.Item(runIndex) : line.GetItemByVisualOrderBidi(FRightToLeft, runIndex);
}

// A tab at the start of a run is a run of its own. Answers whether the run is such a tab.
bool TLayoutPass::SplitLeadingTab(TGPULine& line, std::int32_t runIndex, TGPURun& run) const {
  if (run.Length() == 0 || rtl::UnitAt(FLayout.Text(), run.StartIndex()) != u'\t') return false;
  if (run.Length() == 1) return true;
  const std::int32_t itemIndex = line.GetItemIndexByVisualOrderBidi(FRightToLeft, runIndex) + 1;
  const std::int32_t visualIndex = VisualPlaceBehindTab(line, runIndex);
  line.Insert(run.Split(TSplitIndex::Of(1, 1)), itemIndex, visualIndex);
  return true;
}

// What follows the tab takes, where the runs are picked from right to left, the tab's place, so that it is the next one
// to be picked.
std::int32_t TLayoutPass::VisualPlaceBehindTab(const TGPULine& line, std::int32_t runIndex) const {
  return FRightToLeft && !FWordWrap ? line.Count() - runIndex - 1 : runIndex + 1;
}

// Answers whether the run has been measured by its internal text layout.
bool TLayoutPass::MeasureByRenderer(TGPULine& line, std::int32_t lineIndex, std::int32_t& runIndex, TGPURun& run) {
  if (run.Length() == 0) return false;
  if (!NeedsRenderer(run)) return false;
  const std::int32_t itemIndex = line.IndexOf(run);
  line.SplitAtTabs(FLayout, itemIndex, line.FindVisualIndexOf(itemIndex));
  run.UpdateTextLayout(run.Font(), lineIndex, FLayout);
  Log::d("DoRenderLayout: ---- >BreakingText(%d:%d(%d,%d))<", lineIndex, runIndex, run.StartIndex(), run.Length());
  run.InternalRenderer()->BreakText(runIndex, FTrimming != fmx::TTextTrimming::None);
  const fmx::TRectF& rect = run.ImageRect();
  Log::d("DoRenderLayout: ---- <BreakingText(%d:%d(%d,%d)-rect(%f,%f,%f,%f))>", lineIndex, runIndex, run.StartIndex(),
         run.Length(), rect.Left, rect.Top, rect.Right, rect.Bottom);
  if (runIndex - 1 >= line.Count()) return true;
  line.SetWidth(line.Width() + rect.Width());
  line.MakeAtLeastAsHighAs(rect.Height());
  return true;
}

// A run of no text makes its line as high as a bar, and 1 wide; beside other runs it has no width (EmptyRun).
void TLayoutPass::MeasureEmptyRun(TGPULine& line, TGPURun& run) const {
  const fmx::TFont& font = FLayout.GetFontFor(run);
  const fmx::TCharRec& bar = TGPURun::AddOrGetCharGlyph(nullptr, U'|', DictionaryOf(run), font, FLayout.Scale());
  const float height = Scaled(bar.Glyph.VerticalAdvance);
  if (line.Count() > 1 && Corrects(TOrvCorrection::EmptyRun)) {
    line.MakeAtLeastAsHighAs(height);
    run.SetImageRect({0, 0, 0, height});
    return;
  }
  line.SetWidth(1);
  line.SetHeight(height);
  run.SetImageRect({0, 0, line.Width(), line.Height()});
}

// --- The glyph loop ---

// Glyphs as they are added to a run and its line.
struct TLayoutPass::TPen {
  float Width;      // of the run
  float LineWidth;  // of the line
  float Highest;    // of the run's glyphs

  void Add(float advance, float height) {
    Width += advance;
    LineWidth += advance;
    Highest = std::max(Highest, height);
  }
};

// Adds glyphs from the atom on as long as they are plain and fit. Answers the first one that needs more care.
std::int32_t TLayoutPass::AddPlainGlyphs(const TMeasured& m, std::int32_t atom, float limit, TPen& pen) const {
  const std::span<const UCS4Char> atoms = m.Run.Atoms();
  const TAtomDic& dic = m.Dic;
  const float scale = FScaleFactor;
  float width = pen.Width;
  float lineWidth = pen.LineWidth;
  auto k = static_cast<std::size_t>(atom);
  for (; k < atoms.size(); ++k) {
    const float advance = dic.PlainAdvance(atoms[k]) * scale;
    const float next = lineWidth + advance;
    if (!(next <= limit)) break;  // also what is not plain
    width += advance;
    lineWidth = next;
  }
  if (k > static_cast<std::size_t>(atom)) pen.Highest = std::max(pen.Highest, Scaled(dic.PlainHeight()));
  pen.Width = width;
  pen.LineWidth = lineWidth;
  return static_cast<std::int32_t>(k);
}

// Adds the glyphs to the run and its line. Answers the first atom that does not fit.
std::optional<std::int32_t> TLayoutPass::MeasureGlyphs(const TMeasured& m) {
  ORV_ASSERT(m.Run.ImageRect().IsEmpty(), "A run is measured twice");
  constexpr float never = std::numeric_limits<float>::infinity();
  const float limit = FTestsOverflow ? FMaxWidth : never;
  const std::int32_t count = m.Run.UCS4Length();
  TPen pen{m.Run.GetWidth(), m.Line.Width(), m.Run.ImageRect().Height()};
  bool asksFirst = TestsFirstGlyph(m);
  bool isOpen = asksFirst && m.Dic.PlainAdvance(m.Run.Atom(0)) > 0;  // glyphs are asked from here on
  std::int32_t k = 0;
  for (; k < count; ++k) {
    isOpen = isOpen || pen.Width > 0 || limit == never;
    if (isOpen) k = AddPlainGlyphs(m, k, limit, pen);
    if (k == count) break;
    float advance = 0;
    float height = 0;
    if (m.Run.Atom(k) == U'\t') {
      advance = Scaled(FLayout.GetNextTab(m.Run, k, pen.LineWidth));
      height = TabHeight(m);
    } else {
      const fmx::TFontGlyph& glyph = CharGlyph(m, m.Run.Atom(k)).Glyph;
      advance = Scaled(glyph.Advance);
      height = Scaled(glyph.VerticalAdvance);
    }
    if ((asksFirst || isOpen) && pen.LineWidth + advance > limit) break;
    pen.Add(advance, height);
    asksFirst = false;
  }
  m.Run.SetExtent(pen.Width, pen.Highest);
  m.Line.SetWidth(pen.LineWidth);
  m.Line.MakeAtLeastAsHighAs(pen.Highest);
  return k < count ? std::optional(k) : std::nullopt;
}

float TLayoutPass::TabHeight(const TMeasured& m) const {
  return Corrects(TOrvCorrection::TabHeight) ? Scaled(CharGlyph(m, U' ').Glyph.VerticalAdvance) : 0;
}

// A run that has no width yet is not asked whether it overflows, so that every run keeps a glyph on its line. With
// FirstGlyph the first glyph of a run that is not the line's first is, but for a tab.
bool TLayoutPass::TestsFirstGlyph(const TMeasured& m) const {
  return FWordWrap && m.RunIndex > 0 && m.Run.Atom(0) != U'\t' && Corrects(TOrvCorrection::FirstGlyph);
}

// --- Behind an overflow ---

void TLayoutPass::BreakRun(const TMeasured& m, std::int32_t overflow, std::int32_t lineIndex, std::int32_t& runIndex) {
  TBreak made = FWordWrap ? Wrap(m, overflow) : Trim(m, overflow);
  if (overflow >= FKeep) {
    if (made.Excess > 0) TakeOff(m, made.Excess);
    TakeOff(m, made.Removed);
  }
  FKeep = m.Run.UCS4Length();
  if (m.Run.Trimmed()) AddEllipsis(m);
  m.Run.HoldWidth();
  m.Line.SetWidth(std::max(m.Line.Width(), 0.0F));
  if (!made.SplitLine) return;
  FFrame.Insert(lineIndex + 1, std::move(made.SplitLine));
  runIndex = m.Line.Count();
}

void TLayoutPass::TakeOff(const TMeasured& m, float width) const {
  m.Line.SetWidth(m.Line.Width() - width);
  m.Run.Widen(-width);
}

void TLayoutPass::AddEllipsis(const TMeasured& m) {
  if (FEllipsis == nullptr) FEllipsis = &FLayout.LayoutGlyph(FLayout.EllipsisChar());
  const float advance = Scaled(FEllipsis->Glyph.Advance);
  m.Run.Widen(advance);
  m.Line.SetWidth(m.Line.Width() + advance);
  m.Line.MakeAtLeastAsHighAs(Scaled(FEllipsis->Glyph.VerticalAdvance));
}

// --- Glyphs ---

// Most runs have the font of the one before them, which is looked up by its name.
TAtomDic& TLayoutPass::DictionaryOf(const TGPURun& run) const {
  const fmx::TFont& font = FLayout.GetFontFor(run);
  if (&font != FLastFont.Font)
    FLastFont = {&font, &FLayout.DictionaryOf(run), TFontGlyphManagerOrv::Current().FontRendererRequired(font)};
  return *FLastFont.Dic;
}

bool TLayoutPass::NeedsRenderer(const TGPURun& run) const {
  DictionaryOf(run);
  return FLastFont.NeedsRenderer;
}

const fmx::TCharRec& TLayoutPass::CharGlyph(const TMeasured& m, UCS4Char character) const {
  if (const fmx::TCharRec* known = m.Dic.Find(character)) return *known;
  return TGPURun::AddOrGetCharGlyph(nullptr, character, m.Dic, m.Font, FLayout.Scale());
}

float TLayoutPass::AdvanceOf(const TMeasured& m, std::int32_t atom) const {
  return m.Run.Atom(atom) == U'\t' ? FLayout.GetTabAdvance(m.Run, atom) : CharGlyph(m, m.Run.Atom(atom)).Glyph.Advance;
}

float TLayoutPass::AdvanceOf(const TGPURun& run, std::int32_t atom) const {
  if (run.Atom(atom) == U'\t') return FLayout.GetTabAdvance(run, atom);
  return run.AddOrGetAtomGlyph(nullptr, atom, DictionaryOf(run), FLayout.GetFontFor(run), FLayout.Scale())
      .Glyph.Advance;
}

float TLayoutPass::SumOfAdvances(const TMeasured& m, const TGPURun& run, std::int32_t first, std::int32_t end) const {
  float sum = 0;
  for (std::int32_t i = std::max(first, 0); i < std::min(end, run.UCS4Length()); ++i)
    sum += run.Atom(i) == U'\t' ? FLayout.GetTabAdvance(run, i) : CharGlyph(m, run.Atom(i)).Glyph.Advance;
  return sum;
}

}  // namespace orv
