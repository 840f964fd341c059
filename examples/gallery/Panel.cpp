#include "examples/gallery/Panel.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>

#include "examples/gallery/Text.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace gallery {
namespace {

using fmx::TRectF;
using fmx::TTextAlign;

constexpr float FactHeight = 44;
constexpr float CellWidth = 42;
constexpr float CellHeight = 52;
constexpr float RowGap = 8;
constexpr int Rows = 2;

std::u16string Number(std::int32_t value) {
  const std::string digits = std::to_string(value);
  return {digits.begin(), digits.end()};
}

std::u16string Hex(char16_t unit) {
  char digits[5];
  std::snprintf(digits, sizeof digits, "%04X", static_cast<unsigned>(unit));
  return {digits, digits + 4};
}

// What has no picture of its own.
std::u16string_view NameOf(char16_t unit) {
  switch (unit) {
    case u' ':
      return u"blank";
    case 0x200C:
      return u"ZWNJ";
    case 0x200D:
      return u"ZWJ";
    case 0x200E:
      return u"LRM";
    case 0x200F:
      return u"RLM";
    default:
      break;
  }
  if ((unit & 0xFC00) == 0xD800) return u"high";
  if ((unit & 0xFC00) == 0xDC00) return u"low";
  return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) ? u"control" : std::u16string_view();
}

void PaintFact(fmx::TCanvas& canvas, const TTheme& theme, const TRectF& box, std::u16string_view name,
               std::u16string_view value) {
  DrawText(canvas, {box.Left, box.Top, box.Right, box.Top + 16}, name, {10, theme.Faint});
  DrawText(canvas, {box.Left, box.Top + 16, box.Right, box.Top + 40}, value, {15, theme.Ink});
}

void PaintFacts(fmx::TCanvas& canvas, const TTheme& theme, const TRectF& row, const TBoxState& state) {
  const std::u16string selection =
      state.SelLength == 0 ? u"none" : Number(state.Begin()) + u" to " + Number(state.End());
  const struct {
    const char16_t* Name;
    std::u16string Value;
  } facts[] = {{u"Caret", Number(state.Caret)},
               {u"Selection", selection},
               {u"First visible character", Number(state.FirstVisible)},
               {u"Direction", state.RightToLeft ? u"right to left" : u"left to right"},
               {u"Units", Number(static_cast<std::int32_t>(state.Text.size()))},
               {u"Composing", state.Composing.empty() ? u"nothing" : state.Composing}};
  const float width = row.Width() / static_cast<float>(std::size(facts));
  float left = row.Left;
  for (const auto& fact : facts) {
    PaintFact(canvas, theme, {left, row.Top, left + width - 8, row.Bottom}, fact.Name, fact.Value);
    left += width;
  }
}

void PaintUnit(fmx::TCanvas& canvas, const TTheme& theme, const TRectF& cell, char16_t unit, bool isSelected) {
  const TRectF tile = cell.Inset(1.5F, 0);
  FillRound(canvas, tile, 5, isSelected ? theme.Accent : theme.Page);
  const fmx::TAlphaColor ink = isSelected ? theme.Knob : theme.Ink;
  const TRectF upper{tile.Left, tile.Top + 2, tile.Right, tile.Top + 34};
  if (const auto name = NameOf(unit); !name.empty())
    DrawText(canvas, upper, name, {9, ink, TTextAlign::Center});
  else  // behind a mark of direction, so that a bracket is not turned
    DrawText(canvas, upper, std::u16string{u'\u200E', unit}, {18, ink, TTextAlign::Center});
  DrawText(canvas, {tile.Left, tile.Top + 34, tile.Right, tile.Bottom - 3}, Hex(unit),
           {9, isSelected ? theme.Knob : theme.Faint, TTextAlign::Center});
}

void PaintUnits(fmx::TCanvas& canvas, const TTheme& theme, const TRectF& box, const TBoxState& state) {
  const auto length = static_cast<std::int32_t>(state.Text.size());
  const std::int32_t inRow = std::max(static_cast<std::int32_t>(box.Width() / CellWidth), 1);
  const std::int32_t shown = inRow * Rows;
  const std::int32_t first = std::clamp(state.Caret - shown / 2, 0, std::max(length - shown, 0));
  const auto place = [&](std::int32_t i) {
    const std::int32_t row = std::min((i - first) / inRow, Rows - 1);
    const std::int32_t column = i - first - row * inRow;
    return fmx::TPointF{box.Left + static_cast<float>(column) * CellWidth,
                        box.Top + static_cast<float>(row) * (CellHeight + RowGap)};
  };
  for (std::int32_t i = first; i < std::min(length, first + shown); ++i)
    PaintUnit(canvas, theme, TRectF::FromSize(place(i), CellWidth, CellHeight), state.Text[static_cast<std::size_t>(i)],
              i >= state.Begin() && i < state.End());
  const fmx::TPointF caret = canvas.AlignToPixel(place(std::clamp(state.Caret, first, first + shown)));
  FillRound(canvas, {caret.X - 1, caret.Y - 3, caret.X + 1, caret.Y + CellHeight + 3}, 1, theme.Second);
}

// Numbers of units are no numbers of a text: they keep their digits whatever the switches say.
class TPlainDigits {
 public:
  TPlainDigits() { FType = std::exchange(TSettings::ArabicDigitType, TSettings::TArabicDigitType::Latin); }
  ~TPlainDigits() { TSettings::ArabicDigitType = FType; }
  TPlainDigits(const TPlainDigits&) = delete;
  TPlainDigits& operator=(const TPlainDigits&) = delete;

 private:
  using TSettings = orv::TOrvGlobalSettings;
  TSettings::TArabicDigitType FType;
};

}  // namespace

void PaintPanel(fmx::TCanvas& canvas, const TTheme& theme, const TRectF& box, std::u16string_view caption,
                const TBoxState& state) {
  const TPlainDigits digits;
  DrawCard(canvas, theme, box, caption);
  const TRectF inside = box.Inset(18, 14);
  PaintFacts(canvas, theme, {inside.Left, inside.Top, inside.Right, inside.Top + FactHeight}, state);
  PaintUnits(canvas, theme, {inside.Left, inside.Top + FactHeight + 6, inside.Right, inside.Bottom}, state);
}

}  // namespace gallery
