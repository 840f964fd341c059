// What both views of a single-line box share.
#include "editing/Orv.Edit.View.h"

#include <algorithm>

#include "editing/Orv.Edit.CharView.h"
#include "editing/Orv.Edit.PixelView.h"
#include "rtl/Strings.h"
#include "rtl/Unicode.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv {
namespace {

using fmx::TRectF;
using fmx::TTextAlign;
using TLetter = TTextLayoutNGOrv::TLetter;

TTextLayoutNGOrv* AsOwn(fmx::TTextLayout& layout) {
  return dynamic_cast<TTextLayoutNGOrv*>(&layout);
}

std::optional<TDrawnCharacter> CharacterOf(const std::optional<TLetter>& letter) {
  if (!letter) return std::nullopt;
  return TDrawnCharacter{letter->Box, letter->RightToLeft};
}

// In a layout of another make, which tells of no runs.
std::optional<TDrawnCharacter> MeasuredCharacter(fmx::TTextLayout& layout, std::int32_t unit) {
  const fmx::TRegion region = layout.RegionForRange({unit, 1});
  if (region.empty()) return std::nullopt;
  return TDrawnCharacter{region.front(),
                         TDirectiveChars::CharDirectionRTL(rtl::UnitAt(layout.Text(), unit), layout.RightToLeft())};
}

}  // namespace

std::unique_ptr<TOrvEditView> TOrvEditView::For(IEditBox& box) {
  if (TOrvGlobalSettings::Corrections.Contains(TOrvCorrection::PixelScroll))
    return std::make_unique<TOrvPixelEditView>(box);
  return std::make_unique<TOrvCharEditView>(box);
}

TRectF TOrvEditView::PaddedRect() const {
  return FBox.ContentRect().Inset(FBox.ContentPadding());
}

float TOrvEditView::PaddedWidth() const {
  const fmx::TBounds padding = FBox.ContentPadding();
  return FBox.ContentRect().Width() - padding.Left - padding.Right;
}

float TOrvEditView::PasswordWidth(std::int32_t units) const {
  return static_cast<float>(units) * FBox.GetPasswordCharWidth();
}

float TOrvEditView::EmptyTextX() const {
  const float left = FBox.ContentRect().Left;
  switch (FBox.HorizontalAlignment()) {
    case TTextAlign::Center:
      return PaddedWidth() / 2 + left;
    case TTextAlign::Trailing:
      return PaddedWidth() + left - FBox.GetFlasherWidth() - 1;
    case TTextAlign::Leading:
      break;
  }
  return Layout().TopLeft().X;
}

float TOrvEditView::TextWidth(std::int32_t start, std::int32_t length) {
  if (FBox.IsPassword()) return PasswordWidth(length);
  fmx::TTextLayout& layout = Layout();
  const auto end = static_cast<std::int32_t>(layout.Text().size());
  if (start == end) return layout.TextWidth();
  if (start > end) return 0;
  if (rtl::IsLowSurrogate(rtl::UnitAt(layout.Text(), start))) {
    ++start;
    --length;
  }
  float width = 0;
  for (const TRectF& box : layout.RegionForRange({start, length})) width += box.Width();
  return width;
}

std::vector<TRectF> TOrvEditView::PasswordDots() {
  std::vector<TRectF> dots;
  if (!FBox.IsPassword()) return dots;
  const float cell = FBox.GetPasswordCharWidth();
  const float left = FirstDotX();
  TRectF dot{left, 0, left + cell - 1, 0};
  dot.Top = FBox.LineTop() - FBox.ContentRect().Top + (FBox.LineHeight() - dot.Width()) / 2;
  dot.Bottom = dot.Top + dot.Width();
  const auto length = static_cast<std::int32_t>(FBox.GetText().size());
  for (std::int32_t i = FirstVisibleChar(); i <= length; ++i) {
    dots.push_back(dot);
    dot = dot.Offset(dot.Width() + 1, 0);
  }
  return dots;
}

// Where it is drawn, or, where a layout looks for lines as if they stood at its top (TOrvCorrection::HitPlace), there.
float LineMiddle(fmx::TTextLayout& layout) {
  const bool asDrawn = TOrvGlobalSettings::Corrections.Contains(TOrvCorrection::HitPlace);
  return (asDrawn ? layout.TextRect().Top : layout.TopLeft().Y) + layout.TextHeight() / 2;
}

bool TakeScale(fmx::TTextLayout& layout, const fmx::TCanvas& canvas) {
  if (layout.ClassName() != "TTextLayoutNGOrv") return false;
  auto& own = static_cast<TTextLayoutNGOrv&>(layout);
  if (own.Scale() == canvas.Scale()) return false;
  own.SetScale(canvas.Scale());
  return true;
}

std::optional<TDrawnCharacter> CharacterBefore(fmx::TTextLayout& layout, std::int32_t pos) {
  if (auto* const own = AsOwn(layout)) return CharacterOf(own->LetterBefore(pos));
  return pos > 0 ? MeasuredCharacter(layout, pos - 1) : std::nullopt;
}

std::optional<TDrawnCharacter> FirstCharacter(fmx::TTextLayout& layout) {
  if (auto* const own = AsOwn(layout)) return CharacterOf(own->FirstLetter());
  return layout.Text().empty() ? std::nullopt : MeasuredCharacter(layout, 0);
}

fmx::TRegion CharacterBoxesOf(fmx::TTextLayout& layout, fmx::TTextRange range) {
  if (auto* const own = AsOwn(layout)) return own->LetterBoxes(range);
  return range.Length > 0 ? layout.RegionForRange(range) : fmx::TRegion{};
}

std::int32_t FirstCharacterBetween(fmx::TTextLayout& layout, float left, float right) {
  if (auto* const own = AsOwn(layout)) return own->FirstUnitBetween(left, right);
  return layout.PositionAtPoint({left, LineMiddle(layout)}, false);
}

}  // namespace orv
