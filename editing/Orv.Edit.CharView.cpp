#include "editing/Orv.Edit.CharView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "editing/Orv.Edit.Direction.h"
#include "rtl/Strings.h"
#include "rtl/Unicode.h"
#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv {
namespace {

using fmx::TRectF;
using fmx::TRegion;
using fmx::TTextAlign;

// The view never moves for a text that leaves this much room.
constexpr float ScrollMargin = 15;

using rtl::LengthOf;

TRectF FirstOf(const TRegion& region) {
  return region.empty() ? TRectF{} : region.front();
}

}  // namespace

// --- The layout ---

void TOrvCharEditView::TakeText(std::u16string_view text) {
  Layout().BeginUpdate();
  SetDirection(Layout(), DirectionOf(Box(), text));
  Layout().SetText(text);
  Layout().EndUpdate();
}

void TOrvCharEditView::SetUpLayout() {
  Layout().SetHorizontalAlign(Box().HorizontalAlignment());
  Layout().SetRightToLeft(Box().IsRightToLeft());
  SetDirection(Layout(), DirectionOf(Box(), Layout().Text()));
  UpdateLayoutSize();
}

// Leading text is never limited in width, so that the layout gives the whole line.
void TOrvCharEditView::UpdateLayoutSize() {
  fmx::TPointF size = fmx::TTextLayout::MaxLayoutSize;
  const TRectF content = Box().ContentRect();
  if (Box().HorizontalAlignment() != TTextAlign::Leading) size.X = content.Width();
  if (Box().VerticalAlignment() != TTextAlign::Leading) size.Y = content.Height();
  Layout().SetMaxSize(size);
}

// --- Password ---

float TOrvCharEditView::PasswordShift() const {
  const float room = PaddedWidth() - PasswordWidth(LengthOf(Box().GetText()));
  if (!(room > 0)) return 0;
  switch (Box().HorizontalAlignment()) {
    case TTextAlign::Center:
      return room / 2;
    case TTextAlign::Trailing:
      return room;
    case TTextAlign::Leading:
      break;
  }
  return 0;
}

float TOrvCharEditView::PasswordCharX(std::int32_t index) const {
  float x = Box().ContentRect().Left;
  if (index > 0) x += PasswordWidth(std::min(index, LengthOf(Box().GetText())) - FFirstVisibleChar + 1);
  return x + PasswordShift();
}

float TOrvCharEditView::FirstDotX() {
  return PaddedRect().Left - Box().ContentRect().Left + PasswordShift();
}

// --- Carets ---

// How far the content sticks out of its padded width, by the alignment.
float TOrvCharEditView::Overhang() const {
  const float overhang = PaddedWidth() - Box().ContentRect().Width();
  if (!(overhang > 0)) return 0;
  if (Box().HorizontalAlignment() == TTextAlign::Center) return overhang / 2;
  return Box().HorizontalAlignment() == TTextAlign::Trailing ? overhang : 0;
}

float TOrvCharEditView::GetCharX(std::int32_t index) {
  if (!Box().HasContent()) return 0;
  const float paddingLeft = Box().ContentPadding().Left;
  if (Box().IsPassword()) return PasswordCharX(index) + paddingLeft;
  const std::u16string text = Box().GetText();
  float x = 0;
  if (text.empty())
    x = EmptyTextX();
  else if (!TextCharX(text, index, x))
    return 0;
  return x + Overhang() + paddingLeft;
}

struct TOrvCharEditView::TStart {
  TRectF Box;
  bool TextRightToLeft = false;
  bool EditRightToLeft = false;
  bool IsFound = false;
  float X = 0;  // of a caret at the start

  // Where the scrolled text shows what stands at x; base is the edge of its first visible character.
  float Scrolled(float x, float base) const {
    if (!TextRightToLeft && !EditRightToLeft) return Box.Left + (x - base);
    return TextRightToLeft && EditRightToLeft ? Box.Right - (base - x) : x;
  }
  float Base(const TRectF& firstVisible, const TRectF& box) const {
    return Box.Right <= box.Right ? firstVisible.Left : firstVisible.Right;
  }
};

// The first character's, or, where the text begins at the other side, the whole text's.
TOrvCharEditView::TStart TOrvCharEditView::StartOf(std::u16string_view text, std::int32_t index) {
  TStart start;
  start.EditRightToLeft = IsEditDirectiveRTL();
  start.TextRightToLeft = TDirectiveChars::IsRTLText(text, start.EditRightToLeft);
  const bool agree = start.EditRightToLeft == start.TextRightToLeft;
  const TRegion region = Layout().RegionForRange({0, agree ? 1 : LengthOf(text)});
  start.IsFound = !region.empty();
  start.Box = FirstOf(region);
  if (!start.IsFound) return start;
  const bool atRight = index == 0 && !agree ? start.TextRightToLeft : start.EditRightToLeft;
  start.X = atRight ? start.Box.Right : start.Box.Left;
  return start;
}

bool TOrvCharEditView::TextCharX(std::u16string_view text, std::int32_t index, float& x) {
  fmx::TTextLayout& layout = Layout();
  const TStart start = StartOf(text, index);
  x = start.X;
  if (index <= FFirstVisibleChar - 1) return true;

  const TRectF firstVisible = FirstOf(layout.RegionForRange({FFirstVisibleChar - 1, 1}));
  index = std::min(index, LengthOf(text) + 2);  // there are no boxes beyond
  TRegion before = layout.RegionForRange({index - 1, 1});
  while (before.empty()) {
    if (--index <= 0) return false;
    before = layout.RegionForRange({index - 1, 1});
  }
  const TRectF box = before.front();
  x = start.Scrolled(StandsBehind(text, index, start) ? box.Right : box.Left, start.Base(firstVisible, box));
  return true;
}

// Whether the caret is on the right of the character before it.
bool TOrvCharEditView::StandsBehind(std::u16string_view text, std::int32_t index, const TStart& start) {
  if (TOrvGlobalSettings::Corrections.Contains(TOrvCorrection::CaretSide))
    if (const auto before = CharacterBefore(Layout(), index)) return !before->RightToLeft;
  const char16_t behind = rtl::UnitAt(text, index);
  if (TDirectiveChars::IsRTL(behind)) return false;
  return TDirectiveChars::IsLTR(behind) || (start.IsFound && !start.TextRightToLeft);
}

std::int32_t TOrvCharEditView::GetCaretPosition(float x) {
  const std::u16string text = Box().GetText();
  const std::int32_t first = FFirstVisibleChar - 1;
  if (text.empty()) return first;
  if (Box().IsPassword()) {
    const float cells = std::trunc((x - PasswordShift() - Box().ContentRect().Left) / Box().GetPasswordCharWidth());
    if (!std::isfinite(cells)) return std::min(first, LengthOf(text));
    const float length = static_cast<float>(text.size());
    return static_cast<std::int32_t>(std::clamp(static_cast<float>(first) + cells, 0.0F, length));
  }
  return Layout().PositionAtPoint({x + FInvisibleTextWidth, LineMiddle(Layout())}, false);
}

// As far right or left as the carets at its characters.
TRegion TOrvCharEditView::CharacterBoxes(fmx::TTextRange range) {
  TRegion boxes = CharacterBoxesOf(Layout(), range);
  const std::u16string& text = Layout().Text();
  const TStart start = StartOf(text, 1);
  const TRectF firstVisible = FirstOf(Layout().RegionForRange({FFirstVisibleChar - 1, 1}));
  const float base = start.TextRightToLeft ? firstVisible.Right : firstVisible.Left;
  const float aside = Overhang() + Box().ContentPadding().Left;
  for (TRectF& box : boxes) box = box.Offset(start.Scrolled(0, base) + aside, 0);
  return boxes;
}

float TOrvCharEditView::TargetClauseX() {
  const std::int32_t before = std::clamp(Box().GetCaretPosition(), 0, LengthOf(Box().GetText()));
  return TextWidth(0, std::max(before - std::max(FFirstVisibleChar - 1, 0), 0));
}

// --- Scrolling ---

void TOrvCharEditView::UpdateFirstVisibleChar() {
  if (!Box().HasContent()) return;
  fmx::TTextLayout& layout = Layout();
  TakeText(Box().GetText());
  ScrollTo(Box().GetCaretPosition());
  if (FFirstVisibleChar > 0 && !layout.Text().empty()) {
    if (rtl::IsLowSurrogate(rtl::UnitAt(layout.Text(), FFirstVisibleChar - 1))) ++FFirstVisibleChar;
    FInvisibleTextWidth = TextWidth(0, FFirstVisibleChar - 1);
  }
}

void TOrvCharEditView::ScrollTo(std::int32_t caret) {
  if (FFirstVisibleChar >= caret + 1) {
    FFirstVisibleChar = std::max(caret, 1);
    return;
  }
  const float room = PaddedWidth();
  if (Layout().TextWidth() + ScrollMargin <= room) {
    FFirstVisibleChar = 1;
    return;
  }
  // The first character from here on with which the text up to the caret fits. The more is left out, the less room the
  // rest takes, so that it is found by steps that double, and then by halving.
  const std::int32_t last = std::max(LengthOf(Layout().Text()), FFirstVisibleChar);
  const auto fits = [&](std::int32_t first) {
    return first >= last || TextWidth(first - 1, caret - first + 1) <= room;
  };
  std::int32_t low = FFirstVisibleChar;
  if (fits(low)) return;
  std::int32_t step = 1;
  while (!fits(low + std::min(step, last - low))) {
    low += std::min(step, last - low);
    step = std::min(step, last) * 2;
  }
  std::int32_t high = low + std::min(step, last - low);
  while (high - low > 1) {
    const std::int32_t middle = low + (high - low) / 2;
    (fits(middle) ? high : low) = middle;
  }
  FFirstVisibleChar = high;
}

// --- Drawing ---

void TOrvCharEditView::SetUpDrawing(fmx::TSingleLineDrawing& drawing) {
  const TRectF content = Box().ContentRect();
  drawing.Rect = PaddedRect().Offset(-content.Left, -content.Top);
  drawing.FirstVisibleChar = FFirstVisibleChar;
  drawing.HorzAlign = Box().HorizontalAlignment();
  const TTextDirection direction = DirectionOf(Box(), Layout().Text());
  if (direction.IsSettled && direction.RightToLeft) drawing.Flags.Include(fmx::TFillTextFlag::RightToLeft);
  drawing.SetUp = [direction](fmx::TTextLayout& layout) { SetDirection(layout, direction); };
}

bool TOrvCharEditView::DrawText(fmx::TTextService& service, fmx::TCanvas& canvas, fmx::TSingleLineDrawing drawing) {
  SetDirection(Layout(), DirectionOf(Box(), Layout().Text()));
  SetUpDrawing(drawing);
  service.DrawSingleLine(canvas, drawing);
  TakeScale(Layout(), canvas);
  return false;
}

float TOrvCharEditView::SpellingShift() {
  if (FFirstVisibleChar < 2) return 0;
  return FirstOf(Layout().RegionForRange({FFirstVisibleChar - 1, 1})).Left;
}

}  // namespace orv
