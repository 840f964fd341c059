#include "textlayout/Orv.TextLayout.Internal.h"

#include <algorithm>
#include <utility>

#include "fmx/Exceptions.h"
#include "fmx/Log.h"
#include "rtl/Strings.h"
#include "textlayout/Orv.FontGlyphs.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "textlayout/Orv.TextLayout.Internal.Shaped.h"
#include "textlayout/Orv.TextLayout.Internal.Win.h"

namespace orv {
namespace {

using fmx::Log;

bool PlatformCanShape() {
  try {
    return TFontGlyphManagerOrv::Current().CanShape();
  } catch (const fmx::ENotRegistered&) {
    return false;
  }
}

std::unique_ptr<TInternalTextLayout> MakeForPlatform() {
  return PlatformCanShape() ? TInternalTextLayoutShaped::Make() : TInternalTextLayoutWin::Make();
}

TInternalTextLayout::TFactory& DefaultClass() {
  static TInternalTextLayout::TFactory factory = MakeForPlatform;
  return factory;
}

bool IsSpaceAt(std::u16string_view text, std::int32_t index) {
  return rtl::UnitAt(text, index) == u' ';
}

std::u16string Part(std::u16string_view text, std::int32_t start, std::int32_t length) {
  const auto size = static_cast<std::int32_t>(text.size());
  start = std::clamp(start, 0, size);
  return std::u16string(text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(std::max(length, 0))));
}

// Where the word begins in which the offset lies, not before the run; a word that begins with the text is cut where the
// offset is.
std::int32_t WordStart(std::u16string_view text, std::int32_t start, std::int32_t offset) {
  if (IsSpaceAt(text, offset) || (offset > 1 && IsSpaceAt(text, offset - 1))) return offset;
  std::int32_t wordStart = offset;
  while (wordStart > start && !IsSpaceAt(text, wordStart)) --wordStart;
  return wordStart == 0 ? offset : wordStart;
}

}  // namespace

void TInternalTextLayout::RegisterDefaultInternalTextLayout(TFactory factory) {
  DefaultClass() = factory != nullptr ? factory : MakeForPlatform;
}

std::unique_ptr<TInternalTextLayout> TInternalTextLayout::CreateInternalTextLayout() {
  return DefaultClass()();
}

void TInternalTextLayout::Attach(TTextLayoutNGOrv& layout, std::int32_t line, TGPURun& run) {
  FLayout = &layout;
  FLine = line;
  FRun = &run;
}

std::u16string TInternalTextLayout::CharAt(std::int32_t offset) const {
  return Part(FLayout->CharSequence(), offset, offset < 0 ? 0 : 1);
}

std::int32_t TInternalTextLayout::GetOffsetForAdvance(float x) {
  return DoGetOffsetForAdvance(FLayout->CharSequence(), x - FRun->ImageRect().Left, FLayout->Scale());
}

fmx::TRectF TInternalTextLayout::MeasureText(std::int32_t from, std::int32_t to) {
  return DoMeasureText(FLayout->CharSequence(), from, to, FLayout->Scale());
}

float TInternalTextLayout::DrawText(fmx::TCanvas& canvas, fmx::TPointF position) {
  return DoDrawText(FLayout->CharSequence(), canvas, position);
}

// --- Breaking ---

bool TInternalTextLayout::BreakText(std::int32_t& runIndex, bool trimming) {
  const std::u16string_view text = FLayout->CharSequence();
  const std::int32_t start = FRun->StartIndex();
  const std::int32_t end = FRun->EndIndex();
  float width = 0;
  float height = 0;
  const std::int32_t offset =
      start + DoBreakText(text, FLayout->MaxSize().X - FRun->ImageRect().Left, width, height, FLayout->Scale());
  const bool broken = start <= offset && offset < end;
  const auto log = [&](std::string_view format) {
    Log::d(format, FLine, runIndex, start, end - start, offset, width, CharAt(offset));
  };
  log("DoRenderLayout: InternalTextLayout->TextBreakResult Run: %d.%d(%d, %d), offset: %d, width:%f, char:%s");
  if (broken) {
    log("DoRenderLayout: InternalTextLayout->TextBreaked Run: %d.%d(%d, %d), offset: %d, width:%f, char:%s");
    Log::d("DoRenderLayout: InternalTextLayout->Text to break '%s'", Part(text, start, end - start));
    if (FLayout->WordWrap())
      BreakForWrapping(offset, runIndex, width);
    else
      BreakForTrimming(offset, trimming, width);
    Log::d("DoRenderLayout: InternalTextLayout->Text breaked '%s'", Part(text, start, FRun->Length()));
  }
  FRun->SetImageRect({0, 0, width, height});
  return broken;
}

void TInternalTextLayout::BreakForWrapping(std::int32_t offset, std::int32_t& runIndex, float& width) {
  const std::int32_t start = FRun->StartIndex();
  const std::int32_t wordStart = WordStart(FLayout->CharSequence(), start, offset);
  const float cut = wordStart != offset ? MeasureText(wordStart, offset).Width() : 0;
  TGPUFrame& frame = FLayout->Frame();
  TGPULine& line = frame.Line(FLine);
  TStored<TGPULine> rest;
  if (wordStart != start) {
    width -= cut;
    const std::int32_t utf16Index = wordStart - start;
    const std::int32_t utf32Index = FRun->UTF16IndexToUCS4Index(utf16Index);
    Log::d("DoRenderLayout: InternalTextLayout->SplitIndex: %d.%d(%d, %d)", FLine, runIndex, utf32Index, utf16Index);
    rest = line.BreakLine(*FRun, TSplitIndex::Of(utf32Index, utf16Index), false);
  } else {
    rest = line.SplitBeforeRun(*FRun);
  }
  if (!rest) return;
  // A run that went to the new line counts itself there already.
  const std::int32_t lineIndex = line.IndexOf(*FRun) >= 0 ? FLine : FLine - 1;
  frame.Insert(lineIndex + 1, std::move(rest));
  runIndex = line.Count();
}

void TInternalTextLayout::BreakForTrimming(std::int32_t offset, bool trimming, float& width) {
  const std::u16string_view text = FLayout->CharSequence();
  const std::int32_t start = FRun->StartIndex();
  float ellipsis = 0;
  if (trimming) {
    ellipsis = FLayout->LayoutGlyph(FLayout->EllipsisChar()).Glyph.Advance;
    float cut = 0;
    std::int32_t n = 0;
    do cut = MeasureText(offset - ++n, offset).Width();
    while (cut < ellipsis && n < offset);
    width -= cut;
    offset -= n;
  }
  if (FLayout->Trimming() == fmx::TTextTrimming::Word) {
    // The cursor starts with the text's second unit, wherever the offset is, and falls with it.
    const std::int32_t before = offset;
    for (std::int32_t cursor = 1; cursor >= 0 && offset > 0 && !IsSpaceAt(text, cursor); --cursor) --offset;
    width -= MeasureText(offset, before).Width();
  }
  FRun->SetLength(std::max(offset - start, 0));
  FRun->SetTrimmed(FLayout->Trimming() != fmx::TTextTrimming::None);
  if (trimming && FRun->Trimmed()) width += ellipsis;
}

// --- Drawing ---

void TInternalTextLayout::GetTextBounds(float srcWidth, float srcHeight, fmx::TPointF position, fmx::TRectF& src,
                                        fmx::TRectF& dest) const {
  const float factor = FLayout->ScaleFactor();
  Log::d(">GetTextBounds< src(%f, %f), dest(%f, %f)", srcWidth, srcHeight, position.X, position.Y);
  src = {0, 0, srcWidth, srcHeight};
  dest = fmx::TRectF::FromSize(position, srcWidth * factor, srcHeight * factor);
  if (FRun->Clipped()) CutToBox(*FLayout, src, dest);
  Log::d("<GetTextBounds> SrcRect(%f, %f, %f, %f)-DestRect(%f, %f, %f, %f)", src.Left, src.Top, src.Right, src.Bottom,
         dest.Left, dest.Top, dest.Right, dest.Bottom);
}

}  // namespace orv
