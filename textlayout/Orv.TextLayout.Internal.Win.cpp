#include "textlayout/Orv.TextLayout.Internal.Win.h"

#include <algorithm>
#include <iterator>

#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv {
namespace {

struct TFixedBreak {
  std::int32_t Start;
  float Width;
  std::int32_t Offset;
};
constexpr TFixedBreak FixedBreaks[] = {{0, 324.23F, 73},    {70, 356.93F, 138},  {130, 358.13F, 196},
                                       {196, 357.57F, 262}, {262, 357.61F, 329}, {329, 354.37F, 394},
                                       {394, 112.0F, 416},  {416, 22.0F, 417}};

}  // namespace

std::int32_t TGDITextPaint::BreakText(std::int32_t textLength, std::int32_t start, std::int32_t length, float fontSize,
                                      float& width, float& height) {
  height = fontSize;
  const auto* found = std::find_if(std::begin(FixedBreaks), std::end(FixedBreaks),
                                   [start](const TFixedBreak& each) { return each.Start == start; });
  width = found != std::end(FixedBreaks) ? found->Width : 4.3F * static_cast<float>(length);
  return found != std::end(FixedBreaks) ? found->Offset : textLength;
}

std::int32_t TInternalTextLayoutWin::DoGetOffsetForAdvance(std::u16string_view, float, float) {
  return TGDITextPaint::GetOffsetForAdvance();
}

std::int32_t TInternalTextLayoutWin::DoBreakText(std::u16string_view text, float, float& width, float& height, float) {
  return TGDITextPaint::BreakText(static_cast<std::int32_t>(text.size()), Run().StartIndex(), Run().Length(),
                                  Layout().GetFontFor(Run()).Size(), width, height);
}

fmx::TRectF TInternalTextLayoutWin::DoMeasureText(std::u16string_view, std::int32_t, std::int32_t, float) {
  return TGDITextPaint::GetTextBounds(Layout().GetFontFor(Run()).Size());
}

fmx::TBitmap& TInternalTextLayoutWin::GetBitmap(bool& cached) {
  cached = FCachedBitmap != nullptr && FCachedBitmap->Width() != 0 && FCachedBitmap->Height() != 0;
  if (FCachedBitmap == nullptr) FCachedBitmap = std::make_unique<fmx::TBitmap>();
  return *FCachedBitmap;
}

float TInternalTextLayoutWin::DoDrawText(std::u16string_view, fmx::TCanvas& canvas, fmx::TPointF position) {
  bool cached = false;
  const fmx::TBitmap& bitmap = GetBitmap(cached);
  fmx::TRectF src;
  fmx::TRectF dest;
  GetTextBounds(static_cast<float>(bitmap.Width()), static_cast<float>(bitmap.Height()), position, src, dest);
  canvas.DrawBitmap(bitmap, src, dest, Layout().Opacity(), false);
  return dest.Width();
}

}  // namespace orv
