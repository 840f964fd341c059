#include "examples/gallery/Page.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "examples/gallery/Text.h"

namespace gallery {
namespace {

using fmx::TRectF;
using fmx::TTextAlign;
using fmx::TTextTrimming;

constexpr float Margin = 28;
constexpr float Gap = 20;
constexpr float Inside = 18;
constexpr float CaptionHeight = CardCaptionHeight;
constexpr float TwoColumnsFrom = 720;

// A column that specimens are put into from top to bottom.
struct TColumn {
  fmx::TCanvas& Canvas;
  const TTheme& Theme;
  float Left;
  float Right;
  float Top;

  // Begins a card of that height below its caption; answers the place inside it.
  TRectF Card(std::u16string_view caption, float height) {
    const TRectF card{Left, Top + CaptionHeight, Right, Top + CaptionHeight + height};
    DrawCard(Canvas, Theme, card, caption);
    Top = card.Bottom + Gap;
    return card.Inset(Inside, Inside);
  }
};

// --- Alignment ---

constexpr TTextAlign Aligns[] = {TTextAlign::Leading, TTextAlign::Center, TTextAlign::Trailing};

void PaintAlignments(TColumn& column) {
  constexpr float boxHeight = 58;
  constexpr float between = 8;
  const TRectF inside = column.Card(u"Alignment", 3 * boxHeight + 2 * between + 2 * Inside);
  const float width = (inside.Width() - 2 * between) / 3;
  for (int row = 0; row < 3; ++row)
    for (int i = 0; i < 3; ++i) {
      const float left = inside.Left + static_cast<float>(i) * (width + between);
      const float top = inside.Top + static_cast<float>(row) * (boxHeight + between);
      const TRectF box{left, top, left + width, top + boxHeight};
      FillRound(column.Canvas, box, 5, column.Theme.Page);
      DrawText(column.Canvas, box.Inset(8, 4), row == 1 ? u"שלום (Hi)" : u"سلام دنیا!",
               {15, column.Theme.Ink, Aligns[i], Aligns[row]});
    }
}

// --- Trimming ---

void PaintTrimmings(TColumn& column) {
  constexpr float rowHeight = 34;
  constexpr std::u16string_view texts[] = {
      u"بنی‌آدم اعضای یکدیگرند که در آفرینش ز یک گوهرند",
      u"The name سعدی شیرازی stands in English prose"};
  constexpr struct {
    TTextTrimming Trimming;
    std::u16string_view Name;
  } rows[] = {{TTextTrimming::None, u"none"}, {TTextTrimming::Character, u"character"}, {TTextTrimming::Word, u"word"}};
  const TRectF inside = column.Card(u"Trimming", 3 * rowHeight + 2 * Inside);
  const float name = 66;
  const float width = (inside.Width() - name - 8) / 2;
  float top = inside.Top;
  for (const auto& row : rows) {
    DrawText(column.Canvas, {inside.Left, top, inside.Left + name, top + rowHeight}, row.Name,
             {11, column.Theme.Faint});
    for (int i = 0; i < 2; ++i) {
      const float left = inside.Left + name + static_cast<float>(i) * (width + 8);
      const TRectF box{left, top + 2, left + width, top + rowHeight - 2};
      FillRound(column.Canvas, box, 5, column.Theme.Page);
      const fmx::TCanvasStateGuard guard(column.Canvas);
      column.Canvas.IntersectClipRect(box);
      DrawText(column.Canvas, box.Inset(8, 0), texts[i],
               {14, column.Theme.Ink, i == 0 ? TTextAlign::Trailing : TTextAlign::Leading, TTextAlign::Center, false,
                row.Trimming});
    }
    top += rowHeight;
  }
}

// --- Attributes ---

void AddRange(fmx::TTextLayout& layout, std::u16string_view part, float size, fmx::TFontStyles style,
              fmx::TAlphaColor color) {
  const std::size_t at = layout.Text().find(part);
  if (at == std::u16string::npos) return;
  auto font = std::make_shared<fmx::TFont>(layout.Font());
  font->SetSize(size);
  font->SetStyle(style);
  layout.AddAttribute({static_cast<std::int32_t>(at), static_cast<std::int32_t>(part.size())}, {font, color});
}

void PaintAttributes(TColumn& column) {
  const TTheme& theme = column.Theme;
  const TRectF inside = column.Card(u"Attributes", 84 + 2 * Inside);
  const auto layout =
      Lay(column.Canvas, inside, u"زبانِ فارسی، خطِ نستعلیق و Typography در یک سطر، با رنگ و اندازه و زیرخط.",
          {16, theme.Ink, TTextAlign::Trailing, TTextAlign::Center, true});
  layout->BeginUpdate();
  AddRange(*layout, u"فارسی", 22, {fmx::TFontStyle::Bold}, theme.Accent);
  AddRange(*layout, u"نستعلیق", 16, {}, theme.Second);
  AddRange(*layout, u"Typography", 18, {fmx::TFontStyle::Italic}, theme.Second);
  AddRange(*layout, u"زیرخط", 16, {fmx::TFontStyle::Underline}, theme.Ink);
  AddRange(*layout, u"رنگ", 16, {fmx::TFontStyle::StrikeOut}, theme.Faint);
  layout->EndUpdate();
  layout->RenderLayout(column.Canvas);
}

// --- Lines that show the switches ---

void PaintLines(TColumn& column) {
  constexpr float rowHeight = 32;
  constexpr std::u16string_view lines[] = {
      u"2 + 3 = 5 و 12 / 4 = 3",
      u"طول میز 12 cm است و پهنای آن 5' است.",
      u"1) نخست 15% و سپس 20% ارزان شد.",
      u"در سال 2023 Linux و 1403/12/30 نوروز",
      u"نسخهٔ (2)-Windows و بـب و ه\u200D است.",
      u"سلام !\nدو سطر، در یک متن.",
  };
  const auto heightOf = [](std::u16string_view line) {
    return line.find(u'\n') == std::u16string_view::npos ? rowHeight : 1.6F * rowHeight;
  };
  float height = 0;
  for (const auto& line : lines) height += heightOf(line);
  const TRectF inside = column.Card(u"Numbers, measures, lists", height + 2 * Inside);
  float top = inside.Top;
  for (const auto& line : lines) {
    const float bottom = top + heightOf(line);
    DrawText(column.Canvas, {inside.Left, top, inside.Right, bottom}, line,
             {16, column.Theme.Ink, TTextAlign::Trailing});
    top = bottom;
  }
}

// --- Prose ---

struct TProse {
  std::u16string_view Text;
  float Size;
  TTextAlign Align;
};
// It counts the columns of such texts anew each time.
// clang-format off
constexpr TProse Prose[] = {
    {u"بنی‌آدم اعضای یکدیگرند", 26, TTextAlign::Trailing},
    {u"حافظه‌ی نهان، یک سیستم ذخیره‌سازی موقت به منظور افزایش سرعت دسترسی به داده است؛ این مفهوم می‌تواند در "
     u"شرایط گوناگون و مقیاس‌های متفاوت مورد استفاده قرار گیرد، از هسته‌ی «ریزپردازنده‌ها» گرفته تا سیستم‌های "
     u"ذخیره‌سازی با قابلیت بالا.",
     16, TTextAlign::Trailing},
    {u"برنامه‌ی SpamAssassin نامه‌های ناخواسته را می‌شناسد و به هر یک امتیازی می‌دهد؛ نامه‌ای با امتیاز بیش از "
     u"5.0 (پیش‌فرض spamassassin 3.4) کنار می‌رود.",
     16, TTextAlign::Trailing},
    {u"تضم الأولى حوالي 150 موظفا؛ أما الثانية (Montpellier) فهي أصغر، فيها حوالي 50 عاملا فقط، وهي تنتج "
     u"مضخمات الصوت.",
     16, TTextAlign::Trailing},
    {u"בכתב העברי 22 אותיות, וחמש מהן (כ, מ, נ, פ, צ) לובשות צורה אחרת בסוף המילה.", 16, TTextAlign::Trailing},
    {u"In English prose a name like سعدی شیرازی, a title like «گلستان» (1258) or a word like שלום stands in its "
     u"place, and the line goes on from left to right.",
     15, TTextAlign::Leading},
};
// clang-format on
// Latin words want the blanks of a Latin face.
constexpr std::u16string_view FamilyOf(const TProse& prose) {
  return prose.Align == TTextAlign::Leading ? u"Noto Serif" : BookFamily;
}
constexpr float ProseGap = 12;

// What the prose takes in that width; a page is measured before its card is drawn.
float ProseHeight(fmx::TCanvas& canvas, float width) {
  float height = -ProseGap;
  for (const TProse& each : Prose) {
    const TTextStyle style{.Size = each.Size,
                           .Horizontal = each.Align,
                           .Vertical = TTextAlign::Leading,
                           .Wrap = true,
                           .Family = FamilyOf(each)};
    height += Lay(canvas, {0, 0, width, fmx::MaxLayoutSize.Y}, each.Text, style)->TextHeight() + ProseGap;
  }
  return height;
}

void PaintProse(TColumn& column) {
  const float width = column.Right - column.Left - 2 * Inside;
  const float height = ProseHeight(column.Canvas, width);
  TRectF inside = column.Card(u"A page", height + 2 * Inside);
  for (const TProse& each : Prose) {
    const fmx::TAlphaColor color = each.Size > 20 ? column.Theme.Accent : column.Theme.Ink;
    inside.Top +=
        DrawParagraph(column.Canvas, inside, each.Text,
                      {.Size = each.Size, .Color = color, .Horizontal = each.Align, .Family = FamilyOf(each)}) +
        ProseGap;
  }
}

}  // namespace

void TPage::Paint(fmx::TCanvas& canvas, const TTheme& theme, const TRectF& rect) {
  FViewHeight = rect.Height();
  Scroll(0);
  const fmx::TCanvasStateGuard guard(canvas);
  canvas.IntersectClipRect(rect);
  const float left = rect.Left + Margin;
  const float right = std::max(rect.Right - Margin, left + 200);
  const float top = rect.Top + Margin - 10 - FScrolled;
  const bool two = right - left >= TwoColumnsFrom;
  const float middle = (left + right) / 2;
  TColumn first{canvas, theme, left, two ? middle - Gap / 2 : right, top};
  PaintAlignments(first);
  PaintTrimmings(first);
  PaintLines(first);
  TColumn second{canvas, theme, two ? middle + Gap / 2 : left, right, two ? top : first.Top};
  PaintProse(second);
  PaintAttributes(second);
  FHeight = std::max(first.Top, second.Top) + FScrolled - rect.Top + Margin - Gap;
}

void TPage::Scroll(float by) {
  FScrolled = std::clamp(FScrolled + by, 0.0F, std::max(FHeight - FViewHeight, 0.0F));
}

}  // namespace gallery
