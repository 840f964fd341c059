#include "editing/Orv.Edit.View.h"

#include <algorithm>
#include <cmath>

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

std::int32_t LengthOf(std::u16string_view text) {
  return static_cast<std::int32_t>(text.size());
}

char16_t UnitOf(std::u16string_view text, std::int32_t index) {
  return index >= 0 && index < LengthOf(text) ? text[static_cast<std::size_t>(index)] : u'\0';
}

// The height at which a layout finds its only line: where it is drawn, or, where it looks for lines as if they stood at
// its top (TOrvCorrection::HitPlace), there.
float LineMiddle(fmx::TTextLayout& layout) {
  const bool asDrawn = TOrvGlobalSettings::Corrections.Contains(TOrvCorrection::HitPlace);
  return (asDrawn ? layout.TextRect().Top : layout.TopLeft().Y) + layout.TextHeight() / 2;
}

TRectF FirstOf(const TRegion& region) {
  return region.empty() ? TRectF{} : region.front();
}

}  // namespace

float TOrvEditView::PaddedWidth() const {
  const fmx::TBounds padding = FBox.ContentPadding();
  return FBox.ContentRect().Width() - padding.Left - padding.Right;
}

// --- Password ---

float TOrvEditView::PasswordWidth(std::int32_t units) const {
  return static_cast<float>(units) * FBox.GetPasswordCharWidth();
}

float TOrvEditView::PasswordShift() const {
  const float room = PaddedWidth() - PasswordWidth(LengthOf(FBox.GetText()));
  if (!(room > 0)) return 0;
  switch (FBox.HorizontalAlignment()) {
    case TTextAlign::Center:
      return room / 2;
    case TTextAlign::Trailing:
      return room;
    case TTextAlign::Leading:
      break;
  }
  return 0;
}

float TOrvEditView::PasswordCharX(std::int32_t index) const {
  float x = FBox.ContentRect().Left;
  if (index > 0) x += PasswordWidth(std::min(index, LengthOf(FBox.GetText())) - FFirstVisibleChar + 1);
  return x + PasswordShift();
}

// --- Carets ---

float TOrvEditView::GetCharX(std::int32_t index) {
  if (!FBox.HasContent()) return 0;
  const float paddingLeft = FBox.ContentPadding().Left;
  if (FBox.IsPassword()) return PasswordCharX(index) + paddingLeft;
  const std::u16string text = FBox.GetText();
  float x = 0;
  if (text.empty())
    x = EmptyTextX();
  else if (!TextCharX(text, index, x))
    return 0;
  const float overhang = PaddedWidth() - FBox.ContentRect().Width();
  if (overhang > 0) {
    if (FBox.HorizontalAlignment() == TTextAlign::Center) x += overhang / 2;
    if (FBox.HorizontalAlignment() == TTextAlign::Trailing) x += overhang;
  }
  return x + paddingLeft;
}

float TOrvEditView::EmptyTextX() {
  const float left = FBox.ContentRect().Left;
  switch (FBox.HorizontalAlignment()) {
    case TTextAlign::Center:
      return PaddedWidth() / 2 + left;
    case TTextAlign::Trailing:
      return PaddedWidth() + left - FBox.GetFlasherWidth() - 1;
    case TTextAlign::Leading:
      break;
  }
  return FBox.TextLayout().TopLeft().X;
}

bool TOrvEditView::TextCharX(std::u16string_view text, std::int32_t index, float& x) {
  fmx::TTextLayout& layout = FBox.TextLayout();
  const bool editRightToLeft = IsEditDirectiveRTL();
  const bool textRightToLeft = TDirectiveChars::IsRTLText(text, editRightToLeft);
  const bool agree = editRightToLeft == textRightToLeft;

  // The box of the text's start: the first character's, or, where the text begins at the other side, the whole.
  const TRegion startRegion = layout.RegionForRange({0, agree ? 1 : LengthOf(text)});
  const TRectF start = FirstOf(startRegion);
  int sign = 0;
  if (!startRegion.empty()) {
    sign = textRightToLeft ? -1 : 1;
    const bool atRight = index == 0 && !agree ? textRightToLeft : editRightToLeft;
    x = atRight ? start.Right : start.Left;
  }
  if (index <= FFirstVisibleChar - 1) return true;

  const TRectF firstVisible = FirstOf(layout.RegionForRange({FFirstVisibleChar - 1, 1}));
  index = std::min(index, LengthOf(text) + 2);  // there are no boxes beyond
  TRegion before = layout.RegionForRange({index - 1, 1});
  while (before.empty()) {
    if (--index <= 0) return false;
    before = layout.RegionForRange({index - 1, 1});
  }
  const TRectF box = before.front();
  const float base = start.Right <= box.Right ? firstVisible.Left : firstVisible.Right;
  const char16_t behind = UnitOf(text, index);
  if (TDirectiveChars::IsRTL(behind))
    x = box.Left;
  else if (TDirectiveChars::IsLTR(behind) || sign > 0)
    x = box.Right;
  else
    x = box.Left;
  // The scrolled text is seen from its start's side on.
  if (!textRightToLeft && !editRightToLeft) x = start.Left + (x - base);
  if (textRightToLeft && editRightToLeft) x = start.Right - (base - x);
  return true;
}

std::int32_t TOrvEditView::GetCaretPosition(float x) {
  const std::u16string text = FBox.GetText();
  const std::int32_t first = FFirstVisibleChar - 1;
  if (text.empty()) return first;
  if (FBox.IsPassword()) {
    const float cells = std::trunc((x - PasswordShift() - FBox.ContentRect().Left) / FBox.GetPasswordCharWidth());
    if (!std::isfinite(cells)) return std::min(first, LengthOf(text));
    const float length = static_cast<float>(text.size());
    return static_cast<std::int32_t>(std::clamp(static_cast<float>(first) + cells, 0.0F, length));
  }
  return FBox.TextLayout().PositionAtPoint({x + FInvisibleTextWidth, LineMiddle(FBox.TextLayout())}, false);
}

// --- Scrolling ---

float TOrvEditView::TextWidth(std::int32_t start, std::int32_t length) {
  if (FBox.IsPassword()) return PasswordWidth(length);
  fmx::TTextLayout& layout = FBox.TextLayout();
  const std::int32_t end = LengthOf(layout.Text());
  if (start == end) return layout.TextWidth();
  if (start > end) return 0;
  if (rtl::IsLowSurrogate(UnitOf(layout.Text(), start))) {
    ++start;
    --length;
  }
  float width = 0;
  for (const TRectF& box : layout.RegionForRange({start, length})) width += box.Width();
  return width;
}

void TOrvEditView::UpdateFirstVisibleChar() {
  if (!FBox.HasContent()) return;
  fmx::TTextLayout& layout = FBox.TextLayout();
  layout.SetText(FBox.GetText());
  ScrollTo(FBox.GetCaretPosition());
  if (FFirstVisibleChar > 0 && !layout.Text().empty()) {
    if (rtl::IsLowSurrogate(UnitOf(layout.Text(), FFirstVisibleChar - 1))) ++FFirstVisibleChar;
    FInvisibleTextWidth = TextWidth(0, FFirstVisibleChar - 1);
  }
}

void TOrvEditView::ScrollTo(std::int32_t caret) {
  if (FFirstVisibleChar >= caret + 1) {
    FFirstVisibleChar = std::max(caret, 1);
    return;
  }
  const float room = PaddedWidth();
  if (FBox.TextLayout().TextWidth() + ScrollMargin <= room) {
    FFirstVisibleChar = 1;
    return;
  }
  // The first character from here on with which the text up to the caret fits. The more is left out, the less room the
  // rest takes, so that it is found by steps that double, and then by halving.
  const std::int32_t last = std::max(LengthOf(FBox.TextLayout().Text()), FFirstVisibleChar);
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

}  // namespace orv
