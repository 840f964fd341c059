#include "textlayout/Orv.TextLayout.Internal.Shaped.h"

#include <algorithm>
#include <utility>

#include "fmx/Colors.h"
#include "rtl/Strings.h"
#include "textlayout/Orv.FontGlyphs.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv {
namespace {

using fmx::TShapedCluster;
using fmx::TShapedText;

// A line is not longer, in ordinary use: shaping the whole rest of a long text for each of its lines would take the
// square of its length.
constexpr std::int32_t FirstTry = 256;

// Units around a run that may decide how its ends are joined.
constexpr std::int32_t Context = 16;

bool IsBlankAt(std::u16string_view text, std::int32_t index) {
  const char16_t unit = rtl::UnitAt(text, index);
  return unit == u' ' || unit == u'\t';
}

// The text with the digits of that part as they are drawn. Nothing else of a run's forms is the
// layout's affair here.
std::u16string WithDigits(std::u16string_view text, std::int32_t start, std::int32_t length) {
  std::u16string shown(text);
  std::replace(shown.begin(), shown.end(), u'\t', u' ');
  if (TOrvGlobalSettings::ArabicDigitType == TOrvGlobalSettings::TArabicDigitType::Latin) return shown;
  const auto from = static_cast<std::size_t>(start);
  const auto count = static_cast<std::size_t>(length);
  TUCS4List list;
  AppendUtf16(text.substr(from, count), list);
  TUCS4ListHelper::ChangeToArabicDigits(list);
  const std::u16string changed = ToUtf16(list);
  if (changed.size() == count) shown.replace(from, count, changed);
  return shown;
}

// Where a position stands, from the left end; letters of a cluster share its width.
float PlaceOf(const TShapedText& shaped, std::int32_t position, bool rightToLeft) {
  const auto cluster = std::find_if(shaped.Clusters.begin(), shaped.Clusters.end(),
                                    [&](const TShapedCluster& each) { return position < each.Start + each.Length; });
  if (cluster == shaped.Clusters.end()) return rightToLeft ? 0 : shaped.Width;
  const auto units = static_cast<float>(std::max(cluster->Length, 1));
  const float part = cluster->Width * static_cast<float>(std::max(position - cluster->Start, 0)) / units;
  return rightToLeft ? cluster->Left + cluster->Width - part : cluster->Left + part;
}

// How much of the shaped text, from its start on, is not wider.
struct TFit {
  std::int32_t End = 0;  // a position of the text
  float Width = 0;
};

TFit FitOf(const TShapedText& shaped, std::u16string_view text, std::int32_t start, float maxWidth) {
  TFit letters{start, 0};
  TFit words{start, 0};
  float width = 0;
  for (const TShapedCluster& each : shaped.Clusters) {
    width += each.Width;
    const bool isBlank = IsBlankAt(text, each.Start);
    // Blanks hang over the end of the line.
    if (width > maxWidth && !isBlank) return words.End > start ? words : letters;
    letters = {each.Start + each.Length, width};
    if (isBlank) words = letters;
  }
  return letters;
}

}  // namespace

TShapedText TInternalTextLayoutShaped::Shape(std::u16string_view text, std::int32_t length, float scale,
                                             bool wantsPicture) const {
  const auto size = static_cast<std::int32_t>(text.size());
  const std::int32_t start = std::clamp(Run().StartIndex(), 0, size);
  length = std::clamp(length, 0, size - start);
  // No more of a long text is handed on than what can have a say.
  const std::int32_t first = std::max(start - Context, 0);
  const std::int32_t end = length > size - start - Context ? size : start + length + Context;
  const auto window = text.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(end - first));
  const std::u16string shown = WithDigits(window, start - first, length);
  fmx::TShapeRequest request;
  request.Text = shown;
  request.Start = start - first;
  request.Length = length;
  request.RightToLeft = Run().RightToLeft();
  request.WantsPicture = wantsPicture;
  TShapedText shaped = TFontGlyphManagerOrv::Current().Shape(std::move(request), Layout().GetFontFor(Run()), scale);
  for (TShapedCluster& cluster : shaped.Clusters) cluster.Start += first;
  return shaped;
}

const TShapedText& TInternalTextLayoutShaped::Shaped(std::u16string_view text, std::int32_t length, float scale) {
  const std::int32_t start = Run().StartIndex();
  if (FShapedStart != start || FShapedLength != length || FShapedScale != scale) {
    FShaped = Shape(text, length, scale, false);
    FShapedStart = start;
    FShapedLength = length;
    FShapedScale = scale;
  }
  return FShaped;
}

// As many units of the run as are surely wider than that, or all of them. Device pixels.
const TShapedText& TInternalTextLayoutShaped::Fitting(std::u16string_view text, float maxWidth, float scale) {
  const std::int32_t all = Run().Length();
  for (std::int32_t length = std::min(FirstTry, all);; length = length > all / 2 ? all : length * 2) {
    const TShapedText& shaped = Shaped(text, length, scale);
    if (length >= all || shaped.Width > maxWidth) return shaped;
  }
}

std::int32_t TInternalTextLayoutShaped::DoBreakText(std::u16string_view text, float maxWidth, float& width,
                                                    float& height, float scale) {
  const float factor = Layout().ScaleFactor();
  const bool breaks = Layout().WordWrap() || Layout().Trimming() != fmx::TTextTrimming::None;
  const float lineWidth = Layout().Frame().Line(Line()).Width();
  const float room = std::max(maxWidth - lineWidth, 0.0F) / factor;
  const TShapedText& shaped = breaks ? Fitting(text, room, scale) : Shaped(text, Run().Length(), scale);
  height = shaped.Height * factor;
  const std::int32_t start = Run().StartIndex();
  TFit fit{start + Run().Length(), shaped.Width};
  if (breaks) fit = FitOf(shaped, text, start, room);
  if (fit.End == start && lineWidth == 0 && !shaped.Clusters.empty()) {  // a line has one letter at least
    const TShapedCluster& first = shaped.Clusters.front();
    fit = {first.Start + first.Length, first.Width};
  }
  width = fit.Width * factor;
  return fit.End - start;
}

fmx::TRectF TInternalTextLayoutShaped::DoMeasureText(std::u16string_view text, std::int32_t from, std::int32_t to,
                                                     float scale) {
  const TShapedText& shaped = Shaped(text, Run().Length(), scale);
  const float factor = Layout().ScaleFactor();
  const float a = PlaceOf(shaped, from, Run().RightToLeft()) * factor;
  const float b = PlaceOf(shaped, std::max(from, to), Run().RightToLeft()) * factor;
  const float left = Run().ImageRect().Left;
  return {left + std::min(a, b), 0, left + std::max(a, b), shaped.Height * factor};
}

std::int32_t TInternalTextLayoutShaped::DoGetOffsetForAdvance(std::u16string_view text, float x, float scale) {
  const TShapedText& shaped = Shaped(text, Run().Length(), scale);
  const bool rightToLeft = Run().RightToLeft();
  const float pixels = x / Layout().ScaleFactor();
  const float way = rightToLeft ? shaped.Width - pixels : pixels;  // from where the reading begins
  float start = 0;
  for (const TShapedCluster& each : shaped.Clusters) {
    if (way < start + each.Width) {
      const float slice = each.Width / static_cast<float>(std::max(each.Length, 1));
      const auto whole = static_cast<std::int32_t>(std::max(way - start, 0.0F) / slice);
      const bool isFar = way - start - static_cast<float>(whole) * slice > slice * 3 / 5;
      return each.Start - Run().StartIndex() + std::min(whole + (isFar ? 1 : 0), each.Length);
    }
    start += each.Width;
  }
  return Run().Length();
}

// --- Drawing ---

void TInternalTextLayoutShaped::UpdateBitmap(std::u16string_view text) {
  const float scale = Layout().Scale();
  if (FBitmap && FBitmapStart == Run().StartIndex() && FBitmapLength == Run().Length() && FBitmapScale == scale &&
      FBitmapColor == Run().Color())
    return;
  TShapedText shaped = Shape(text, Run().Length(), scale, true);
  FBitmap = std::make_unique<fmx::TBitmap>();
  FBitmapOrigin = shaped.PictureOrigin;
  FBitmapStart = Run().StartIndex();
  FBitmapLength = Run().Length();
  FBitmapScale = scale;
  FBitmapColor = Run().Color();
  if (shaped.Picture.IsEmpty()) return;
  FBitmap->SetSize(shaped.Picture.Width(), shaped.Picture.Height());
  const auto to = FBitmap->Surface().Pixels();
  std::transform(shaped.Picture.Pixels().begin(), shaped.Picture.Pixels().end(), to.begin(), [this](fmx::TPixel white) {
    return fmx::Premultiply(fmx::MakeOpacity(FBitmapColor, static_cast<float>(fmx::AlphaOf(white)) / 255));
  });
  FBitmap->Touch();
}

float TInternalTextLayoutShaped::DoDrawText(std::u16string_view text, fmx::TCanvas& canvas, fmx::TPointF position) {
  UpdateBitmap(text);
  const float factor = Layout().ScaleFactor();
  const fmx::TPointF corner{canvas.AlignToPixelHorizontally(position.X) + static_cast<float>(FBitmapOrigin.X) * factor,
                            canvas.AlignToPixelVertically(position.Y) + static_cast<float>(FBitmapOrigin.Y) * factor};
  fmx::TRectF src;
  fmx::TRectF dest;
  GetTextBounds(static_cast<float>(FBitmap->Width()), static_cast<float>(FBitmap->Height()), corner, src, dest);
  canvas.DrawBitmap(*FBitmap, src, dest, Layout().Opacity(), false);
  return Shaped(text, Run().Length(), Layout().Scale()).Width * factor;
}

}  // namespace orv
