#include "tools/orv/show/Page.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "fmx/CanvasManager.h"
#include "fmx/TextLayoutManager.h"
#include "platform/Exceptions.h"
#include "platform/FontCatalog.h"
#include "platform/FontGlyphs.h"
#include "platform/FrameOf.h"
#include "platform/SoftwareCanvas.h"
#include "rtl/Utf8.h"

namespace orv::show {
namespace {

constexpr double UnitsPerPoint = 96.0 / 72.0;
constexpr double TitleScale = 1.45;

float FontSize(double points) {
  return std::clamp(static_cast<float>(points * UnitsPerPoint), 1.0F, fmx::MaxFontSize);
}

// The margin grows with the page, but a page of one column of letters has none.
int Margin(int width, float size) {
  return std::min(static_cast<int>(std::lround(size * 2.2F)), width / 8);
}

int WholeUnits(float length) {
  return static_cast<int>(std::ceil(std::clamp(length, 0.0F, 1e7F)));
}

}  // namespace

void SetUpText() {
  fmx::TCanvasManager::RegisterCanvas(platform::TSoftwareCanvas::Class(), true, false);
  fmx::TTextLayoutManager::RegisterTextLayout(TTextLayoutNGOrv::Class(), platform::TSoftwareCanvas::Class());
  platform::RegisterFontGlyphs(platform::TFontChain::Naskh());
}

void RequireFamily(const std::string& family) {
  if (!family.empty() && !platform::TFontCatalog().Find(family))
    throw platform::EFontNotFound("no font family named '" + family + "' is installed");
}

TPage::TPage(std::span<const TText> texts, const TPageSettings& settings, int width)
    : FSettings(settings), FWidth(width), FMargin(Margin(width, FontSize(settings.PointSize))) {
  TGlyphAtlas::Clear();  // fonts of nearly one size, and all scales but 1, share their glyphs
  FHeight = FMargin;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i > 0) AddRule();
    for (const TParagraph& paragraph : texts[i]) Add(paragraph);
  }
  FHeight += FMargin;
}

// --- Building ---

void TPage::Add(const TParagraph& paragraph) {
  const float size = FontSize(FSettings.PointSize * (paragraph.Title ? TitleScale : 1));
  TBlock block{&paragraph, nullptr, FHeight, std::max(1, static_cast<int>(size))};
  if (!paragraph.Text.empty()) {
    block.Layout = LayOut(paragraph, size);
    block.Height = std::max(1, WholeUnits(block.Layout->TextHeight()));
    FHeight += static_cast<int>(size * 0.2F);
  }
  FHeight += block.Height;
  FBlocks.push_back(std::move(block));
}

void TPage::AddRule() {
  const int gap = static_cast<int>(FontSize(FSettings.PointSize) * 1.5F);
  FRules.push_back(FHeight + gap);
  FHeight += 2 * gap;
}

std::unique_ptr<TTextLayoutNGOrv> TPage::LayOut(const TParagraph& paragraph, float size) {
  const TDigitsScope digits(paragraph.Digits);
  auto layout = std::make_unique<TTextLayoutNGOrv>();
  layout->BeginUpdate();
  layout->SetScale(static_cast<float>(FSettings.Scale));
  layout->SetFont(fmx::TFont(rtl::FromUtf8(FSettings.Family), size,
                             paragraph.Title ? fmx::TFontStyles{fmx::TFontStyle::Bold} : fmx::TFontStyles{}));
  layout->SetBidiSelectionType(TBidiSelectionType::btManual);
  layout->SetRightToLeft(paragraph.RightToLeft);
  const auto start = paragraph.RightToLeft ? fmx::TTextAlign::Trailing : fmx::TTextAlign::Leading;
  layout->SetHorizontalAlign(FSettings.Align.value_or(start));
  layout->SetWordWrap(FSettings.WordWrap);
  layout->SetTrimming(FSettings.Trimming);
  layout->SetMaxSize({static_cast<float>(FWidth - 2 * FMargin), fmx::MaxLayoutSide});
  AddAttributes(*layout, paragraph);
  layout->SetText(paragraph.Text);
  layout->EndUpdate();
  return layout;
}

void TPage::AddAttributes(TTextLayoutNGOrv& layout, const TParagraph& paragraph) const {
  const auto length = static_cast<std::int32_t>(paragraph.Text.size());
  for (const TAttribute& attribute : FSettings.Attributes) {
    const std::int32_t start = std::clamp(attribute.Start - paragraph.Start, 0, length);
    const std::int32_t end = std::clamp(attribute.End - paragraph.Start, start, length);
    if (start == end) continue;
    const fmx::TAlphaColor ink = paragraph.Title ? TColors().Title : TColors().Ink;
    auto font = std::make_shared<fmx::TFont>(layout.Font());
    font->SetStyle(attribute.Style);
    if (attribute.PointSize > 0) font->SetSize(FontSize(attribute.PointSize));
    layout.AddAttribute({start, end - start}, {std::move(font), attribute.Color.value_or(ink)});
  }
}

// --- Painting ---

void TPage::PaintBlock(TBlock& block, fmx::TCanvas& canvas, const TColors& colors, int left, int top) {
  const TDigitsScope digits(block.Paragraph->Digits);
  TTextLayoutNGOrv& layout = *block.Layout;
  layout.SetTopLeft({static_cast<float>(left + FMargin), static_cast<float>(block.Top - top)});
  layout.SetColor(block.Paragraph->Title ? colors.Title : colors.Ink);
  layout.RenderLayout(canvas);
  if (FSettings.Boxes) DrawBoxes(layout, canvas);
}

platform::TFrame TPage::Paint(const TColors& colors, int left, int top, int pixelWidth, int pixelHeight) {
  fmx::TBitmap bitmap(pixelWidth, pixelHeight);
  bitmap.Clear(colors.Paper);
  const auto scale = static_cast<float>(FSettings.Scale);
  platform::TSoftwareCanvas canvas(
      {fmx::TCanvasTarget::TKind::Bitmap, &bitmap, nullptr, pixelWidth, pixelHeight, scale});
  if (!canvas.BeginScene()) return platform::FrameOf(bitmap.Surface());
  TTextLayoutNGOrv::BeginRender();
  const auto line = [&](int place) {
    const auto y = static_cast<float>(place - top);
    const auto x = static_cast<float>(left);
    const auto width = static_cast<float>(FWidth);
    canvas.FillRect({x + width * 3 / 8, y, x + width * 5 / 8, y + 1}, 1, fmx::TBrush(colors.Rule));
  };
  for (const int rule : FRules) line(rule);
  const double bottom = top + pixelHeight / FSettings.Scale;
  for (TBlock& block : FBlocks) {
    const int reach = block.Height;  // of marks that leave their line
    if (block.Layout && block.Top - reach < bottom && block.Top + block.Height + reach > top)
      PaintBlock(block, canvas, colors, left, top);
  }
  TTextLayoutNGOrv::EndRender();
  canvas.EndScene();
  return platform::FrameOf(bitmap.Surface());
}

platform::TFrame TPage::Picture(const TColors& colors) {
  const auto pixels = [this](int units) { return static_cast<int>(std::ceil(units * FSettings.Scale)); };
  return Paint(colors, 0, 0, pixels(FWidth), pixels(FHeight));
}

}  // namespace orv::show
