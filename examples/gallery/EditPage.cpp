#include "examples/gallery/EditPage.h"

#include <algorithm>
#include <memory>

#include "editing/Orv.Edit.Style.h"
#include "examples/gallery/Panel.h"
#include "examples/gallery/Text.h"

namespace gallery {
namespace {

using fmx::TRectF;
using fmx::TTextAlign;

constexpr float Margin = 28;
constexpr float Top = 18;
constexpr float Gap = 20;
constexpr float Inside = 18;
constexpr float LabelHeight = 20;
constexpr float BoxHeight = 36;
constexpr float RowGap = 10;
constexpr float ColumnGap = 16;
constexpr float RowHeight = LabelHeight + BoxHeight + RowGap;
constexpr int AlignmentRows = 2;
constexpr int KindRows = 4;
constexpr float LeastWidth = 420;
constexpr float FontSize = 16;

constexpr float CardHeight(int rows) {
  return static_cast<float>(rows) * RowHeight - RowGap + 2 * Inside;
}
constexpr float KindsTop = Top + CardCaptionHeight + CardHeight(AlignmentRows) + Gap;
constexpr float PanelTop = KindsTop + CardCaptionHeight + CardHeight(KindRows) + Gap + CardCaptionHeight;
constexpr float WholeHeight = PanelTop + PanelHeight + Gap;

constexpr TTextAlign Aligns[] = {TTextAlign::Leading, TTextAlign::Center, TTextAlign::Trailing};

// It counts the columns of such texts anew each time.
// clang-format off
constexpr std::u16string_view LongText =
    u"حافظه‌ی نهان (cache) یک سیستم ذخیره‌سازی موقت است و سرعت دسترسی به داده را 10 تا 100 برابر می‌کند.";
// clang-format on

}  // namespace

TEditPage::TEditPage() {
  AddAlignments();
  AddKinds();
}

TEditPage::~TEditPage() {
  Destroying();
  DestroyComponents();
}

// --- Boxes ---

fmx::TEdit& TEditPage::Add(const TBox& box, std::u16string_view text) {
  auto& edit = InsertComponent(std::make_unique<fmx::TEdit>());
  edit.SetParent(this);
  fmx::TTextSettingsInfo& info = edit.Model().TextSettingsInfo();
  info.SetStyledSettings(info.StyledSettings() - fmx::TStyledSettings{fmx::TStyledSetting::Size});
  edit.Model().TextSettings().Font().SetSize(FontSize);
  edit.Presentation();  // a presentation hears of what is set from now on
  edit.SetText(text);
  FBoxes.push_back(box);
  FBoxes.back().Edit = &edit;
  return edit;
}

void TEditPage::AddAlignments() {
  constexpr struct {
    std::string_view Names[2];
    std::u16string_view Captions[2];
  } columns[] = {{{"leading", "leading-latin"}, {u"Leading: from left to right", u"Leading, Latin"}},
                 {{"center", "center-latin"}, {u"Center", u"Center, Latin"}},
                 {{"trailing", "trailing-latin"}, {u"Trailing: from right to left", u"Trailing, Latin"}}};
  constexpr std::u16string_view texts[] = {u"Orv 2: سلام دنیا", u"The name سعدی, 1258"};
  for (int row = 0; row < AlignmentRows; ++row)
    for (int column = 0; column < 3; ++column)
      Add({columns[column].Names[row], columns[column].Captions[row], nullptr, row, column, 3}, texts[row])
          .Model()
          .TextSettings()
          .SetHorzAlign(Aligns[column]);
}

void TEditPage::AddKinds() {
  const auto add = [this](std::string_view name, std::u16string_view caption, int place, std::u16string_view text,
                          TTextAlign align = TTextAlign::Leading) -> fmx::TCustomEditModel& {
    fmx::TEdit& edit = Add({name, caption, nullptr, AlignmentRows + place / 2, place % 2, 2}, text);
    edit.Model().TextSettings().SetHorzAlign(align);
    return edit.Model();
  };
  add("spelling", u"With spelling: a right click on a marked word offers others", 0, u"a sentense with بادابم",
      TTextAlign::Leading)
      .SetCheckSpelling(true);
  add("prompt", u"With a prompt", 1, {}, TTextAlign::Trailing).SetPromptText(u"نام خود را بنویسید");
  add("long", u"Longer than its box", 2, LongText, TTextAlign::Trailing);
  add("auto", u"The direction of what is typed", 3, {}).SetPromptText(u"Type in any language");
  dynamic_cast<orv::TOrvStyledEdit&>(*FBoxes.back().Edit->Presentation()).SetAutoDirection(true);
  add("password", u"A password", 4, u"کلید1234").SetPassword(true);
  add("read-only", u"To be read alone", 5, u"תיבה לקריאה בלבד (read only)", TTextAlign::Trailing).SetReadOnly(true);
  add("digits", u"Digits alone", 6, u"1403").SetFilterChar(u"0123456789۰۱۲۳۴۵۶۷۸۹");
  add("length", u"At most 8 characters", 7, u"فروردین", TTextAlign::Trailing).SetMaxLength(8);
}

// --- Places ---

TRectF TEditPage::Place(const TBox& box) const {
  const float left = Margin + Inside;
  const float right = std::max(Width(), LeastWidth) - Margin - Inside;
  const auto columns = static_cast<float>(box.Columns);
  const float width = (right - left - (columns - 1) * ColumnGap) / columns;
  const bool isKind = box.Row >= AlignmentRows;
  const float top = (isKind ? KindsTop : Top) + CardCaptionHeight + Inside - FScrolled +
                    static_cast<float>(isKind ? box.Row - AlignmentRows : box.Row) * RowHeight + LabelHeight;
  const float x = left + static_cast<float>(box.Column) * (width + ColumnGap);
  return {x, top, x + width, top + BoxHeight};
}

void TEditPage::Arrange() {
  for (const TBox& box : FBoxes) {
    const TRectF place = Place(box);
    box.Edit->SetBounds(place.Left, place.Top, place.Width(), place.Height());
  }
}

void TEditPage::Resize() {
  ScrollBy(0);
}

void TEditPage::ScrollBy(float by) {
  FScrolled = std::clamp(FScrolled + by, 0.0F, std::max(WholeHeight - Height(), 0.0F));
  Arrange();
  Repaint();
}

bool TEditPage::MouseWheel(const fmx::TWheelEvent& event) {
  constexpr float step = 48;
  ScrollBy(-event.Steps * step);
  return true;
}

// --- Looks ---

void TEditPage::SetTheme(const TTheme& theme) {
  FTheme = &theme;
  Restyle();
}

void TEditPage::Restyle() {
  for (const TBox& box : FBoxes)
    if (fmx::TStyledPresentation* const presentation = box.Edit->Presentation()) {
      presentation->FreeStyleLookup();
      presentation->ApplyStyleLookup();
      presentation->Realign();
    }
  Repaint();
}

void TEditPage::Refresh() {
  for (const TBox& box : FBoxes)
    if (fmx::TStyledPresentation* const presentation = box.Edit->Presentation()) presentation->Realign();
  Repaint();
}

void TEditPage::FocusFirst() {
  constexpr std::int32_t word = 3;
  fmx::TEdit& first = *FBoxes.front().Edit;
  first.SetFocus();
  first.Model().PlaceCaret(word);
  first.Model().SetSelStart(word);
  first.Model().SetSelLength(-word);
}

std::string_view TEditPage::Current() {
  for (std::size_t i = 0; i < FBoxes.size(); ++i)
    if (FBoxes[i].Edit->IsFocused()) FCurrent = i;
  return FBoxes[FCurrent].Name;
}

TBoxState TEditPage::CurrentState() {
  Current();
  return StateOf(*FBoxes[FCurrent].Edit);
}

void TEditPage::Paint(fmx::TCanvas& canvas) {
  const float right = std::max(Width(), LeastWidth) - Margin;
  const auto card = [&](float top, int rows, std::u16string_view caption) {
    const float upper = top + CardCaptionHeight - FScrolled;
    DrawCard(canvas, *FTheme, {Margin, upper, right, upper + CardHeight(rows)}, caption);
  };
  card(Top, AlignmentRows, u"Alignment and direction");
  card(KindsTop, KindRows, u"Kinds of boxes");
  for (const TBox& box : FBoxes) {
    const TRectF place = Place(box);
    DrawText(canvas, {place.Left + 2, place.Top - LabelHeight, place.Right, place.Top - 3}, box.Caption,
             {11, FTheme->Faint});
  }
  const TBoxState state = CurrentState();
  std::u16string caption = u"The box with the focus: ";
  for (const char c : Current()) caption += static_cast<char16_t>(c);
  PaintPanel(canvas, *FTheme, {Margin, PanelTop - FScrolled, right, PanelTop + PanelHeight - FScrolled}, caption,
             state);
}

}  // namespace gallery
