#include "fmx/MenuPanel.h"

#include <algorithm>

#include "fmx/CanvasManager.h"
#include "fmx/DefaultStyle.h"

namespace fmx {
namespace {

constexpr float RowHeight = 28;
constexpr float SeparatorHeight = 9;
constexpr float Frame = 5;      // above the first row and below the last
constexpr float SideRoom = 14;  // beside the captions
constexpr float LeastWidth = 150;
constexpr float FontSize = 13;
constexpr float Radius = 6;
constexpr float RowRadius = 4;
constexpr float WheelRows = 2;
constexpr float DisabledOpacity = 0.4F;
constexpr float HighlightOpacity = 0.16F;
constexpr float ShadowReach = 4;
constexpr float ShadowOpacity = 0.05F;

void TakeFont(TCanvas& canvas, const TMenuItem& item, const std::u16string& family) {
  canvas.Font().SetFamily(family);
  canvas.Font().SetSize(FontSize);
  canvas.Font().SetStyle(item.FontStyle);
}

}  // namespace

void TMenuPanel::Open(TPopupMenu& menu, TPointF place, TSizeF formSize) {
  FMenu = &menu;
  FChosen = nullptr;
  FHighlighted = -1;
  FScrolled = 0;
  FFormSize = formSize;
  FRows.clear();
  float width = LeastWidth;
  float top = Frame;
  TCanvas& measure = TCanvasManager::MeasureCanvas();
  for (std::int32_t i = 0; i < menu.ItemCount(); ++i) {
    const TMenuItem& item = *menu.Item(i);
    const float height = item.IsSeparator() ? SeparatorHeight : RowHeight;
    if (!item.IsSeparator()) {
      TakeFont(measure, item, FFontFamily);
      width = std::max(width, measure.TextWidth(item.Text) + 2 * SideRoom);
    }
    FRows.push_back({0, top, 0, top + height});
    top += height;
  }
  width = std::min(width, formSize.Width);
  for (TRectF& row : FRows) row.Right = width;
  FContentHeight = top + Frame;
  const float height = std::min(FContentHeight, formSize.Height);
  FBox = TRectF::FromSize(
      {std::clamp(place.X, 0.0F, formSize.Width - width), std::clamp(place.Y, 0.0F, formSize.Height - height)}, width,
      height);
}

void TMenuPanel::Resize(TSizeF formSize) {
  if (formSize != FFormSize) Close();
}

// --- Items ---

bool TMenuPanel::CanBeChosen(std::int32_t index) const {
  const TMenuItem* const item = FMenu != nullptr ? FMenu->Item(index) : nullptr;
  return item != nullptr && item->Enabled && !item->IsSeparator();
}

TRectF TMenuPanel::ItemBox(std::int32_t index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= FRows.size()) return {};
  return FRows[static_cast<std::size_t>(index)].Offset(FBox.Left, FBox.Top - FScrolled);
}

std::int32_t TMenuPanel::ItemAt(TPointF point) const {
  if (!FBox.Contains(point)) return -1;
  for (std::int32_t i = 0; i < static_cast<std::int32_t>(FRows.size()); ++i)
    if (ItemBox(i).Contains(point)) return i;
  return -1;
}

bool TMenuPanel::Highlight(std::int32_t index) {
  const std::int32_t shown = CanBeChosen(index) ? index : -1;
  return std::exchange(FHighlighted, shown) != shown;
}

// To the next item that can be chosen, round and round.
void TMenuPanel::Walk(std::int32_t from, std::int32_t step) {
  const auto count = static_cast<std::int32_t>(FRows.size());
  for (std::int32_t tried = 0, i = from; tried < count; ++tried, i += step) {
    i = (i % count + count) % count;
    if (!CanBeChosen(i)) continue;
    Highlight(i);
    const TRectF row = FRows[static_cast<std::size_t>(i)];
    if (row.Top - Frame < FScrolled) ScrollTo(row.Top - Frame);
    if (row.Bottom + Frame > FScrolled + FBox.Height()) ScrollTo(row.Bottom + Frame - FBox.Height());
    return;
  }
}

void TMenuPanel::Choose(std::int32_t index) {
  if (!CanBeChosen(index)) return;
  FChosen = FMenu->Item(index);
  Close();
}

void TMenuPanel::ScrollTo(float top) {
  FScrolled = std::clamp(top, 0.0F, FContentHeight - FBox.Height());
}

// --- Pointer and keys ---

void TMenuPanel::MouseDown(TPointF point) {
  if (!FBox.Contains(point)) return Close();
  Highlight(ItemAt(point));
}

bool TMenuPanel::MouseMove(TPointF point) {
  return Highlight(ItemAt(point));
}

void TMenuPanel::MouseUp(TPointF point) {
  Choose(ItemAt(point));
}

bool TMenuPanel::Scroll(float steps) {
  const float before = FScrolled;
  ScrollTo(FScrolled - steps * WheelRows * RowHeight);
  return FScrolled != before;
}

void TMenuPanel::KeyDown(const TKeyEvent& event) {
  const auto last = static_cast<std::int32_t>(FRows.size()) - 1;
  switch (event.Key) {
    case Keys::Escape:
    case Keys::Tab:
    case Keys::Menu:
      return Close();
    case Keys::Down:
      return Walk(FHighlighted + 1, 1);
    case Keys::Up:
      return Walk(FHighlighted < 0 ? last : FHighlighted - 1, -1);
    case Keys::Home:
      return Walk(0, 1);
    case Keys::End:
      return Walk(last, -1);
    case Keys::Return:
      return Choose(FHighlighted);
    default:
      if (event.KeyChar == u' ') Choose(FHighlighted);
  }
}

// --- Looks ---

void TMenuPanel::Paint(TCanvas& canvas) const {
  if (!IsOpen()) return;
  const TStylePalette palette = DefaultStylePalette();
  const TBrush shadow(TAlphaColors::Black);
  for (float reach = ShadowReach; reach > 0; --reach)
    canvas.FillRect(FBox.Offset(0, 2).Inset(-reach, -reach), Radius + reach, Radius + reach, AllCorners, ShadowOpacity,
                    shadow);
  canvas.FillRect(FBox, Radius, Radius, AllCorners, 1, TBrush(StylePaperColor(palette)));
  canvas.DrawRect(FBox.Inset(0.5F, 0.5F), Radius, Radius, AllCorners, 1, TStrokeBrush(StyleBorderColor(palette), 1));
  const TCanvasStateGuard guard(canvas);
  canvas.IntersectClipRect(FBox.Inset(1, 1));
  for (std::int32_t i = 0; i < static_cast<std::int32_t>(FRows.size()); ++i) PaintItem(canvas, i);
}

void TMenuPanel::PaintItem(TCanvas& canvas, std::int32_t index) const {
  const TStylePalette palette = DefaultStylePalette();
  const TMenuItem& item = *FMenu->Item(index);
  const TRectF row = ItemBox(index);
  if (item.IsSeparator()) {
    const float middle = canvas.AlignToPixelVertically(row.Center().Y) + 0.5F;
    canvas.DrawLine({row.Left + SideRoom, middle}, {row.Right - SideRoom, middle}, 1,
                    TStrokeBrush(StyleBorderColor(palette), 1));
    return;
  }
  if (index == FHighlighted)
    canvas.FillRect(row.Inset(Frame, 1), RowRadius, RowRadius, AllCorners, HighlightOpacity,
                    TBrush(StyleAccentColor(palette)));
  TakeFont(canvas, item, FFontFamily);
  canvas.Fill().SetColor(StyleForegroundColor(palette));
  const bool fromRight = item.BiDiMode == TBiDiMode::RightToLeft;
  canvas.FillText(canvas.AlignToPixel(row.Inset(SideRoom, 0)), item.Text, false, item.Enabled ? 1 : DisabledOpacity,
                  fromRight ? TTextAlign::Trailing : TTextAlign::Leading);
}

}  // namespace fmx
