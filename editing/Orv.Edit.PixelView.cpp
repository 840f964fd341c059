#include "editing/Orv.Edit.PixelView.h"

#include <algorithm>
#include <cmath>

#include "editing/Orv.Edit.Direction.h"
#include "rtl/Strings.h"

namespace orv {
namespace {

using fmx::TRectF;
using fmx::TRegion;
using fmx::TTextAlign;

using rtl::LengthOf;

}  // namespace

// --- The layout ---

void TOrvPixelEditView::TakeText(std::u16string_view text) {
  fmx::TTextLayout& layout = Layout();
  layout.BeginUpdate();
  SetDirection(layout, DirectionOf(Box(), text));
  if (text != layout.Text()) {
    layout.SetText(text);
    FIsTextNew = true;
    FIsHit = false;
  }
  layout.EndUpdate();
}

// The view itself aligns the text.
void TOrvPixelEditView::SetUpLayout() {
  Layout().SetHorizontalAlign(TTextAlign::Leading);
  Layout().SetRightToLeft(Box().IsRightToLeft());
  SetDirection(Layout(), DirectionOf(Box(), Layout().Text()));
  UpdateLayoutSize();
}

void TOrvPixelEditView::UpdateLayoutSize() {
  fmx::TPointF size = fmx::TTextLayout::MaxLayoutSize;
  if (Box().VerticalAlignment() != TTextAlign::Leading) size.Y = PaddedRect().Height();
  Layout().SetMaxSize(size);
}

// --- Scrolling ---

float TOrvPixelEditView::TPlacing::Reach() const {
  return std::max(std::ceil(Width - Room), 0.0F);
}

TOrvPixelEditView::TPlacing TOrvPixelEditView::Placing() const {
  TPlacing placing;
  placing.IsPassword = Box().IsPassword();
  placing.Width = placing.IsPassword ? PasswordWidth(LengthOf(Layout().Text())) : Layout().TextWidth();
  placing.Room = std::max(PaddedWidth(), 0.0F);
  placing.RightToLeft = !placing.IsPassword && Layout().RightToLeft();
  placing.Align = Box().HorizontalAlignment();
  placing.Caret = std::clamp(Box().GetCaretPosition(), 0, LengthOf(Layout().Text()));
  return placing;
}

void TOrvPixelEditView::Place() {
  const TPlacing placing = Placing();
  if (placing == FPlaced && !FIsTextNew) return;
  const bool isCaretNew = placing.Caret != FPlaced.Caret || FIsTextNew;
  if (placing.RightToLeft != FPlaced.RightToLeft || placing.IsPassword != FPlaced.IsPassword) FScroll = 0;
  FPlaced = placing;
  FIsTextNew = false;
  ScrollTo(placing.Caret, isCaretNew && !(FIsHit && Box().IsPointed()));
}

void TOrvPixelEditView::UpdateFirstVisibleChar() {
  if (!Box().HasContent()) return;
  TakeText(Box().GetText());
  Place();
}

// What is seen stays whole units away from the text's left edge, since glyphs are sharp only there.
void TOrvPixelEditView::ScrollTo(std::int32_t caret, bool shows) {
  const float reach = FPlaced.Reach();
  FScroll = std::clamp(FScroll, 0.0F, reach);
  if (FPlaced.Fits()) {
    FScroll = 0;
    return;
  }
  float seen = FPlaced.RightToLeft ? reach - FScroll : FScroll;
  const auto show = [&](float x) {
    if (x < seen) seen = std::floor(x);
    if (x > seen + FPlaced.Room) seen = std::ceil(x - FPlaced.Room);
  };
  if (shows) {
    const TSpan before = SpanBefore(caret);
    show(before.Left);
    show(before.Right);
  }
  show(CaretEdge(caret).value_or(0));
  seen = std::clamp(seen, 0.0F, reach);
  FScroll = FPlaced.RightToLeft ? reach - seen : seen;
}

float TOrvPixelEditView::Offset() const {
  if (!FPlaced.Fits()) return FPlaced.RightToLeft ? FScroll - FPlaced.Reach() : -FScroll;
  const float room = FPlaced.Room - FPlaced.Width;
  switch (FPlaced.Align) {
    case TTextAlign::Center:
      return std::floor(room / 2);
    case TTextAlign::Trailing:
      return std::floor(room);
    case TTextAlign::Leading:
      break;
  }
  return 0;
}

float TOrvPixelEditView::TextLeft() {
  Place();
  return PaddedRect().Left + Offset();
}

std::int32_t TOrvPixelEditView::FirstVisibleChar() {
  Place();
  if (FPlaced.Fits() || !(FPlaced.Room > 0)) return 1;
  const float left = -Offset();
  if (FPlaced.IsPassword) {
    const float cells = std::trunc(left / Box().GetPasswordCharWidth());
    return std::isfinite(cells) ? static_cast<std::int32_t>(cells) + 1 : 1;
  }
  const float origin = Layout().TopLeft().X;
  return std::max(FirstCharacterBetween(Layout(), origin + left, origin + left + FPlaced.Room), 0) + 1;
}

float TOrvPixelEditView::InvisibleTextWidth() {
  Place();
  return FScroll;
}

// --- Places ---

std::optional<float> TOrvPixelEditView::CaretEdge(std::int32_t index) {
  const std::int32_t held = std::clamp(index, 0, LengthOf(Layout().Text()));
  if (FPlaced.IsPassword) return PasswordWidth(held);
  const float origin = Layout().TopLeft().X;
  if (const auto before = CharacterBefore(Layout(), held)) return before->TrailingEdge() - origin;
  if (const auto first = FirstCharacter(Layout())) return first->LeadingEdge() - origin;
  return std::nullopt;
}

TOrvPixelEditView::TSpan TOrvPixelEditView::SpanBefore(std::int32_t caret) {
  if (FPlaced.IsPassword) return {PasswordWidth(std::max(caret - 1, 0)), PasswordWidth(caret)};
  const float origin = Layout().TopLeft().X;
  if (const auto before = CharacterBefore(Layout(), caret))
    return {before->Box.Left - origin, before->Box.Right - origin};
  const float edge = CaretEdge(caret).value_or(0);
  return {edge, edge};
}

float TOrvPixelEditView::GetCharX(std::int32_t index) {
  if (!Box().HasContent()) return 0;
  const float left = TextLeft();
  const auto edge = CaretEdge(index);
  if (edge && !Layout().Text().empty()) return left + *edge;
  return std::max(EmptyTextX(), Box().ContentRect().Left) + Box().ContentPadding().Left;
}

std::int32_t TOrvPixelEditView::GetCaretPosition(float x) {
  const std::int32_t length = LengthOf(Layout().Text());
  if (length == 0) return 0;
  const float within = x - Box().ContentLeft() - TextLeft();
  FIsHit = Box().IsPointed();
  if (FPlaced.IsPassword) {
    const float cells = std::trunc(within / Box().GetPasswordCharWidth());
    if (!std::isfinite(cells)) return 0;
    return static_cast<std::int32_t>(std::clamp(cells, 0.0F, static_cast<float>(length)));
  }
  const std::int32_t position = Layout().PositionAtPoint({Layout().TopLeft().X + within, LineMiddle(Layout())}, false);
  if (position >= 0) return std::min(position, length);
  return (within < FPlaced.Width / 2) == FPlaced.RightToLeft ? length : 0;
}

TRegion TOrvPixelEditView::CharacterBoxes(fmx::TTextRange range) {
  TRegion boxes = CharacterBoxesOf(Layout(), range);
  const float shift = TextLeft() - Layout().TopLeft().X;
  for (TRectF& box : boxes) box = box.Offset(shift, 0);
  return boxes;
}

float TOrvPixelEditView::TargetClauseX() {
  return GetCharX(Box().GetCaretPosition()) - Box().ContentRect().Left;
}

float TOrvPixelEditView::FirstDotX() {
  return TextLeft() - Box().ContentRect().Left + PasswordWidth(FirstVisibleChar() - 1);
}

// --- Drawing ---

// Whoever draws it by a layout of his own finds the text at the same place.
void TOrvPixelEditView::SetUpDrawing(fmx::TSingleLineDrawing& drawing) {
  const TRectF content = Box().ContentRect();
  drawing.Rect = PaddedRect().Offset(-content.Left, -content.Top);
  drawing.Rect.Left = TextLeft() - content.Left;
  drawing.Rect.Right = std::max(drawing.Rect.Right, drawing.Rect.Left + std::ceil(FPlaced.Width));
  drawing.FirstVisibleChar = 1;
  drawing.HorzAlign = TTextAlign::Leading;
  drawing.Flags = {};
  if (Layout().RightToLeft()) drawing.Flags.Include(fmx::TFillTextFlag::RightToLeft);
  const TTextDirection direction = DirectionOf(Box(), Layout().Text());
  drawing.SetUp = [direction](fmx::TTextLayout& layout) { SetDirection(layout, direction); };
  drawing.Layout = &Layout();
}

bool TOrvPixelEditView::DrawText(fmx::TTextService& service, fmx::TCanvas& canvas, fmx::TSingleLineDrawing drawing) {
  const float before = TextLeft();
  const TPlacing placed = FPlaced;
  TakeScale(Layout(), canvas);
  SetDirection(Layout(), DirectionOf(Box(), Layout().Text()));
  SetUpDrawing(drawing);
  const fmx::TCanvasStateGuard guard(canvas);
  const TRectF content = Box().ContentRect();
  canvas.IntersectClipRect(PaddedRect().Offset(-content.Left, -content.Top));
  service.DrawSingleLine(canvas, drawing);
  return before != TextLeft() || placed != FPlaced;
}

float TOrvPixelEditView::LayoutShift() {
  return Layout().TopLeft().X - TextLeft();
}

fmx::TPointF TOrvPixelEditView::ToLayout(fmx::TPointF point) {
  return {point.X - Box().ContentLeft() + LayoutShift(), point.Y};
}

}  // namespace orv
