// Spelling and the menu of the single-line edit.
#include <algorithm>
#include <limits>
#include <utility>

#include "editing/Orv.Edit.Style.h"
#include "fmx/ResourceStrings.h"
#include "fmx/Rounding.h"
#include "fmx/TextWords.h"
#include "fmx/Translate.h"

namespace orv {
namespace {

std::u16string WordOf(std::u16string_view text, const fmx::TWordBound& word) {
  return std::u16string(
      text.substr(static_cast<std::size_t>(word.Begin), static_cast<std::size_t>(word.End - word.Begin + 1)));
}

std::u16string WithWord(std::u16string text, const fmx::TWordBound& word, std::u16string_view replacement) {
  return text.replace(static_cast<std::size_t>(word.Begin), static_cast<std::size_t>(word.End - word.Begin + 1),
                      replacement);
}

std::int32_t WholePixel(float v) {
  using TLimits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(fmx::Round(v), TLimits::min(), TLimits::max()));
}

fmx::TTextRange RangeOf(const fmx::TWordBound& word) {
  return {word.Begin, word.End - word.Begin + 1};
}

struct TEditCommand {
  std::u16string_view Text;
  std::string_view Name;
  void (TOrvStyledEdit::*Do)();
};
constexpr TEditCommand Commands[] = {{fmx::SEditCut, "cut", &TOrvStyledEdit::DoCut},
                                     {fmx::SEditCopy, "copy", &TOrvStyledEdit::DoCopy},
                                     {fmx::SEditPaste, "paste", &TOrvStyledEdit::DoPaste},
                                     {fmx::SEditDelete, "delete", &TOrvStyledEdit::DoDelete},
                                     {fmx::SMenuSeparator, "", nullptr},
                                     {fmx::SEditSelectAll, "selectall", &TOrvStyledEdit::DoSelectAll}};

}  // namespace

// --- Spelling ---

void TOrvStyledEdit::UpdateSpelling() {
  if (!Model().CheckSpelling()) return;
  FUpdateSpelling = true;
  FSpellingRegions.clear();
}

void TOrvStyledEdit::CheckSpellingChanged(bool check) {
  if (check) {
    FSpellService = fmx::FindService<fmx::IFMXSpellCheckerService>();
    FUpdateSpelling = !Model().Text().empty();
    return;
  }
  ForgetSpellMenuItems();
  FUpdateSpelling = false;
  FSpellingRegions.clear();
  FSpellHightlightRect = {};
}

// The words that the service has something against, in the content's coordinates.
void TOrvStyledEdit::FindMisspeltWords() {
  const std::u16string text = GetText();
  std::u16string_view rest = text;
  std::int32_t offset = 0;
  const fmx::TPointF corner = ContentRect().TopLeft();
  const fmx::TWordRule rule = Model().WordRule();
  while (!rest.empty()) {
    const auto word = fmx::FindWordBound(rest, 0, rule);
    if (!word) break;
    if (!FSpellService->CheckSpelling(WordOf(rest, *word)).empty()) {
      const fmx::TTextRange range = RangeOf(*word);
      for (const fmx::TRectF& box : FTextLayout->RegionForRange({offset + range.Pos, range.Length}))
        FSpellingRegions.push_back(box.Offset(-corner.X, -corner.Y));
    }
    rest.remove_prefix(static_cast<std::size_t>(word->End) + 1);
    offset += word->End + 1;
  }
  FUpdateSpelling = false;
}

std::vector<std::u16string> TOrvStyledEdit::GetListOfPrepositions() {
  const std::u16string text = GetText();
  const auto word = fmx::FindWordBound(text, GetOriginCaretPosition(), Model().WordRule());
  if (!word || FSpellService == nullptr) return {};
  return FSpellService->CheckSpelling(WordOf(text, *word));
}

bool TOrvStyledEdit::IsCurrentWordWrong() {
  const fmx::TRegion caret = FTextLayout->RegionForRange({GetOriginCaretPosition(), 1});
  if (caret.empty()) return false;
  const fmx::TPointF corner = caret.front().TopLeft();
  return std::any_of(FSpellingRegions.begin(), FSpellingRegions.end(),
                     [&](const fmx::TRectF& region) { return region.Contains(corner); });
}

void TOrvStyledEdit::HighlightSpell() {
  const auto word = fmx::FindWordBound(GetText(), GetOriginCaretPosition(), Model().WordRule());
  const fmx::TRegion region = word ? FTextLayout->RegionForRange(RangeOf(*word)) : fmx::TRegion{};
  const fmx::TPointF corner = ContentRect().TopLeft();
  FSpellHightlightRect = region.empty() ? fmx::TRectF{} : region.front().Offset(-corner.X, -corner.Y);
  Model().Caret().SetTemporarilyHidden(true);
  RepaintEdit();
}

void TOrvStyledEdit::HideHighlightSpell() {
  FSpellHightlightRect = {};
  Model().Caret().SetTemporarilyHidden(Model().SelLength() > 0 && IsFocused());
  RepaintEdit();
}

void TOrvStyledEdit::Spell(std::u16string_view replacement) {
  LeaveComposition();
  const std::u16string text = GetText();
  const auto word = fmx::FindWordBound(text, GetOriginCaretPosition(), Model().WordRule());
  if (!word) return;
  const std::u16string written =
      Insertable(replacement, static_cast<std::int32_t>(text.size()) - RangeOf(*word).Length);
  ReplaceText(WithWord(text, *word, written));
  FUpdateSpelling = true;
  HideHighlightSpell();
  UpdateSpelling();
  CaretPositionChanged(word->Begin + static_cast<std::int32_t>(written.size()));
}

// --- Menu ---

fmx::TPopupMenu& TOrvStyledEdit::GetEditPopupMenu() {
  if (FEditPopupMenu == nullptr) FEditPopupMenu = CreatePopupMenu();
  return *FEditPopupMenu;
}

std::unique_ptr<fmx::TPopupMenu> TOrvStyledEdit::CreatePopupMenu() {
  auto menu = std::make_unique<fmx::TPopupMenu>();
  for (const TEditCommand& command : Commands) {
    auto item = std::make_unique<fmx::TMenuItem>();
    item->Text = fmx::Translate(command.Text);
    item->SetStyleName(command.Name);
    if (command.Do != nullptr) item->OnClick = [this, &command](fmx::TMenuItem&) { (this->*command.Do)(); };
    menu->AddItem(std::move(item));
  }
  return menu;
}

fmx::TMenuItem* TOrvStyledEdit::FindContextMenuItem(std::string_view name) {
  return dynamic_cast<fmx::TMenuItem*>(GetEditPopupMenu().FindStyleResource(name));
}

void TOrvStyledEdit::UpdatePopupMenuItems() {
  const auto enable = [this](std::string_view name, bool enabled) {
    if (fmx::TMenuItem* const item = FindContextMenuItem(name)) item->Enabled = enabled;
  };
  const std::u16string selected = Model().SelectedText();
  const bool isSelected = !selected.empty();
  enable("cut", isSelected && IsEditable() && !Model().Password());
  enable("copy", isSelected && !Model().Password());
  enable("paste", FClipboardSvc != nullptr && !FClipboardSvc->GetText().empty() && IsEditable());
  enable("delete", isSelected && IsEditable());
  enable("selectall", selected != Model().Text());
}

void TOrvStyledEdit::ForgetSpellMenuItems() {
  if (FEditPopupMenu != nullptr)
    for (fmx::TMenuItem* item : FSpellMenuItems) FEditPopupMenu->RemoveItem(*item);
  FSpellMenuItems.clear();
}

void TOrvStyledEdit::UpdateSpellPopupMenu(fmx::TPointF point) {
  ForgetSpellMenuItems();
  const fmx::TPointF place = View().ToLayout(point);
  const bool isMarked = std::any_of(FSpellingRegions.begin(), FSpellingRegions.end(),
                                    [&](const fmx::TRectF& region) { return region.Contains(place); });
  if (!isMarked) return;
  const std::u16string text = GetText();
  const std::int32_t position = FTextLayout->PositionAtPoint(place, false);
  const auto word = position >= 0 ? fmx::FindWordBound(text, position, Model().WordRule()) : std::nullopt;
  if (!word) return;
  const auto add = [this](std::u16string_view caption) -> fmx::TMenuItem& {
    auto item = std::make_unique<fmx::TMenuItem>();
    item->Text = caption;
    item->BiDiMode = FBidiMode;
    const auto index = static_cast<std::int32_t>(FSpellMenuItems.size());
    FSpellMenuItems.push_back(&GetEditPopupMenu().InsertItem(index, std::move(item)));
    return *FSpellMenuItems.back();
  };
  for (const std::u16string& suggestion : FSpellService->CheckSpelling(WordOf(text, *word))) {
    fmx::TMenuItem& item = add(suggestion);
    item.FontStyle.Include(fmx::TFontStyle::Bold);
    item.Tag = position;
    item.OnClick = [this](fmx::TMenuItem& sender) { SpellFixContextMenuHandler(sender); };
  }
  if (!FSpellMenuItems.empty()) add(fmx::Translate(fmx::SMenuSeparator));
}

void TOrvStyledEdit::SpellFixContextMenuHandler(fmx::TMenuItem& sender) {
  if (sender.Tag < 0) return;
  LeaveComposition();
  const std::u16string text = GetText();
  const auto word = fmx::FindWordBound(text, static_cast<std::int32_t>(sender.Tag), Model().WordRule());
  if (!word) return;
  const std::int32_t staying = static_cast<std::int32_t>(text.size()) - RangeOf(*word).Length;
  ReplaceText(WithWord(text, *word, Insertable(sender.Text, staying)));
}

bool TOrvStyledEdit::ShowContextMenu(fmx::TPointF point) {
  if (IsDesigning()) return false;
  const auto popup = [&](fmx::TPopupMenu& menu) {
    menu.Popup(WholePixel(point.X), WholePixel(point.Y));
    return true;
  };
  if (FEdit.PopupMenu != nullptr) return popup(*FEdit.PopupMenu);
  fmx::TPopupMenu& menu = GetEditPopupMenu();
  if (fmx::IRoot* const root = Root()) menu.Parent = root->GetObject();
  UpdatePopupMenuItems();
  if (Model().CheckSpelling() && FSpellService != nullptr && !FSpellingRegions.empty())
    UpdateSpellPopupMenu(ScreenToLocal(point));
  menu.PopupComponent = this;
  // Also where the platform fails to show it.
  struct TParentGuard {
    fmx::TPopupMenu& Menu;
    ~TParentGuard() { Menu.Parent = nullptr; }
  } const guard{menu};
  return popup(menu);
}

void TOrvStyledEdit::DoCut() {
  DropWaitingHalf();
  FEdit.CutToClipboard();
}
void TOrvStyledEdit::DoCopy() {
  DropWaitingHalf();
  FEdit.CopyToClipboard();
}
void TOrvStyledEdit::DoPaste() {
  DropWaitingHalf();
  FEdit.PasteFromClipboard();
}
void TOrvStyledEdit::DoSelectAll() {
  DropWaitingHalf();
  FEdit.SelectAll();
}

void TOrvStyledEdit::DoDelete() {
  DropWaitingHalf();
  const fmx::TObservers& observers = FEdit.Observers();
  if (observers.IsObserving(fmx::TObserverKind::EditLink)) {
    if (!observers.EditLinkEdit()) return observers.EditLinkReset();
    observers.EditLinkModified();
  }
  observers.ControlValueModified();
  FEdit.DeleteSelection();
}

}  // namespace orv
