#include "tests/editing/PlainBox.h"

#include <algorithm>
#include <utility>

namespace orv::testing {
namespace {

using fmx::Keys;
using fmx::TShiftItem;
using fmx::TShiftState;

bool IsHigh(char16_t c) {
  return (c & 0xFC00) == 0xD800;
}
bool IsLow(char16_t c) {
  return (c & 0xFC00) == 0xDC00;
}

// A text as its characters: pairs, and units alone.
std::vector<std::u16string> Characters(std::u16string_view text) {
  std::vector<std::u16string> characters;
  for (const char16_t c : text) {
    const bool completes =
        IsLow(c) && !characters.empty() && characters.back().size() == 1 && IsHigh(characters.back()[0]);
    if (completes)
      characters.back().push_back(c);
    else
      characters.emplace_back(1, c);
  }
  return characters;
}

bool IsHalf(const std::u16string& character) {
  return character.size() == 1 && (IsHigh(character[0]) || IsLow(character[0]));
}

std::u16string OneLine(std::u16string_view text) {
  std::u16string line(text);
  for (std::size_t at = line.find(u"\r\n"); at != std::u16string::npos; at = line.find(u"\r\n"))
    line.replace(at, 2, u" ");
  for (char16_t& c : line)
    if (std::u16string_view(u"\n\v\f\r\u0085\u2028\u2029").find(c) != std::u16string_view::npos) c = u' ';
  return line;
}

// Of the characters that the tests use.
constexpr std::u16string_view WordCharacters = u"abcABCسلامב19٢۳?.,()+";
constexpr std::u16string_view Continuing = u"\u064E\u0301\u200C\u200D";

}  // namespace

std::int32_t TPlainBox::Held(std::int64_t position) const {
  const auto held = static_cast<std::int32_t>(std::clamp<std::int64_t>(position, 0, Length()));
  const bool isInside = held > 0 && held < Length() && IsHigh(Text[Index(held - 1)]) && IsLow(Text[Index(held)]);
  return isInside ? held - 1 : held;
}

std::int32_t TPlainBox::Behind(std::int32_t position) const {
  if (position >= Length()) return Length();
  const std::int32_t next = position + 1;
  return Held(next) == next ? next : next + 1;
}

// --- Words ---

std::vector<bool> TPlainBox::Words() const {
  std::vector<bool> words;
  for (const char16_t c : Text) {
    const bool before = !words.empty() && words.back();
    const bool continues = Continuing.find(c) != std::u16string_view::npos;
    words.push_back(continues ? before : WordCharacters.find(c) != std::u16string_view::npos);
  }
  return words;
}

std::int32_t TPlainBox::WordBefore(std::int32_t position) const {
  const std::vector<bool> words = Words();
  while (position > 0 && !words[Index(position - 1)]) --position;
  while (position > 0 && words[Index(position - 1)]) --position;
  return position;
}

std::int32_t TPlainBox::WordBehind(std::int32_t position) const {
  const std::vector<bool> words = Words();
  while (position < Length() && words[Index(position)]) ++position;
  while (position < Length() && !words[Index(position)]) ++position;
  return position;
}

void TPlainBox::SelectWord() {
  LeaveComposition();
  if (Text.empty()) return;
  const std::vector<bool> words = Words();
  const std::int32_t at = std::min(Caret, Length() - 1);
  std::int32_t from = at;
  std::int32_t to = at;
  while (from > 0 && words[Index(from - 1)] == words[Index(at)]) --from;
  while (to < Length() && words[Index(to)] == words[Index(at)]) ++to;
  Select(from, to);
}

// --- Texts ---

void TPlainBox::Select(std::int32_t anchor, std::int32_t caret) {
  Anchor = anchor;
  Caret = caret;
}

void TPlainBox::Replace(std::int32_t from, std::int32_t to, std::u16string_view text) {
  Text.replace(Index(from), Index(to - from), text);
  Place(from + static_cast<std::int64_t>(text.size()));
}

void TPlainBox::RemoveSelection() {
  Replace(Low(), High(), u"");
}

std::u16string TPlainBox::Allowed(std::u16string_view text, std::int32_t room) const {
  std::u16string allowed;
  for (std::u16string character : Characters(text)) {
    if (!Filter.empty() && (IsHalf(character) || Filter.find(character) == std::u16string::npos)) continue;
    for (char16_t& c : character) {
      if (CharCase == fmx::TCharCase::UpperCase && c >= 'a' && c <= 'z') c = static_cast<char16_t>(c - 32);
      if (CharCase == fmx::TCharCase::LowerCase && c >= 'A' && c <= 'Z') c = static_cast<char16_t>(c + 32);
    }
    const bool fits = static_cast<std::int64_t>(allowed.size() + character.size()) <= room;
    if (MaxLength > 0 && !fits) break;
    allowed += character;
  }
  return allowed;
}

std::u16string TPlainBox::Written(std::u16string_view text, std::int32_t from, std::int32_t to) const {
  std::u16string whole;
  for (const std::u16string& character : Characters(OneLine(text)))
    if (!IsHalf(character)) whole += character;
  return Allowed(whole, MaxLength - (Length() - (to - from)));
}

void TPlainBox::Insert(std::u16string_view text) {
  LeaveComposition();
  Replace(Low(), High(), Written(text, Low(), High()));
}

// --- Keys ---

bool TPlainBox::Move(Keys::TCode key, bool byWords, std::int32_t& target) const {
  switch (key) {
    case Keys::Home:
      target = 0;
      return true;
    case Keys::End:
      target = Length();
      return true;
    case Keys::Left:
      target = byWords ? WordBefore(Caret) : Before(Caret);
      return true;
    case Keys::Right:
      target = byWords ? WordBehind(Caret) : Behind(Caret);
      return true;
    default:
      return false;
  }
}

void TPlainBox::Key(Keys::TCode key, TShiftState shift) {
  Waiting = 0;
  if (!InputSupport || shift == TShiftState{TShiftItem::Shift, TShiftItem::Ctrl}) return;
  const bool isShift = shift.Contains(TShiftItem::Shift);
  const bool isShiftAlone = shift == TShiftState{TShiftItem::Shift};
  const bool isCtrl = shift.Contains(TShiftItem::Ctrl) || shift.Contains(TShiftItem::Command);
  const bool isCommand = isCtrl && (key == 'A' || key == 'V' || key == 'X' || key == 'Z');
  const bool isEditing = key == Keys::Backspace || key == Keys::Delete || key == Keys::Insert || key == Keys::Return;
  std::int32_t target = 0;
  const bool moves = Move(key, isCtrl, target);
  if (isCommand || isEditing || moves) LeaveComposition();
  if (moves) {
    Caret = target;
    if (!isShift) Anchor = Caret;
    return;
  }
  if (key == Keys::Insert && isShiftAlone) return Paste();
  if (key == Keys::Insert && isCtrl) return Copy();
  if (key == 'A' && isCtrl && !isShift && !shift.Contains(TShiftItem::Alt)) return SelectAll();
  if (key == 'C' && isCtrl) return Copy();
  if (key == 'V' && isCtrl) return Paste();
  if (ReadOnly) return;
  if (key == 'X' && isCtrl) return Cut();
  if (key == Keys::Delete && isShiftAlone && IsSelected()) return Cut();
  if (key != Keys::Backspace && key != Keys::Delete) return;
  if (IsSelected()) return RemoveSelection();
  if (key == Keys::Backspace)
    Replace(isCtrl ? WordBefore(Caret) : Before(Caret), Caret, u"");
  else if (isCtrl)
    Place(WordBehind(Caret));
  else
    Replace(Caret, Behind(Caret), u"");
}

void TPlainBox::Type(char16_t unit, TShiftState shift) {
  const char16_t waiting = std::exchange(Waiting, u'\0');
  if (unit == 0) return Key(Keys::None, shift);
  if (!InputSupport || unit < 32) return;
  LeaveComposition();
  const bool isAllowed = Filter.empty() || Filter.find(unit) != std::u16string::npos;
  if (!isAllowed || ReadOnly) return;
  if (IsHigh(unit)) {
    Waiting = unit;
  } else if (!IsLow(unit)) {
    Insert({&unit, 1});
  } else if (waiting != 0) {
    const char16_t pair[] = {waiting, unit};
    Insert({pair, 2});
  }
}

// --- The application ---

void TPlainBox::SetText(std::u16string_view text) {
  const std::u16string given = Allowed(OneLine(text), MaxLength);
  if (given == Shown()) return;
  Waiting = 0;
  LeaveComposition();
  Text = given;
  Place(Caret);
}

void TPlainBox::SetCaret(std::int32_t value) {
  if (value == Caret) return;
  Waiting = 0;
  LeaveComposition();
  Place(value);
}

void TPlainBox::SetSelStart(std::int32_t value) {
  if (value == Caret) return;
  Waiting = 0;
  LeaveComposition();
  const std::int32_t length = Anchor - Caret;
  Select(Held(std::int64_t{value} + length), Held(value));
}

void TPlainBox::SetSelLength(std::int32_t value) {
  if (value == Anchor - Caret) return;
  Waiting = 0;
  LeaveComposition();
  Anchor = Held(std::int64_t{Caret} + value);
}

void TPlainBox::Spell(std::u16string_view word) {
  SelectWord();
  if (Text.empty()) return;
  const std::int32_t from = Low();
  const std::u16string written = Written(word, from, High());
  Replace(from, High(), written);
}

// --- The menu ---

void TPlainBox::Copy() {
  if (!Password && IsSelected()) Clipboard = Text.substr(Index(Low()), Index(High() - Low()));
}

void TPlainBox::Cut() {
  if (Password) return;
  Copy();
  Delete();
}

void TPlainBox::Delete() {
  if (IsEditable() && IsSelected()) RemoveSelection();
}

void TPlainBox::Paste() {
  if (IsEditable() && !Clipboard.empty()) Insert(Clipboard);
}

void TPlainBox::SelectAll() {
  LeaveComposition();
  Select(0, Length());
}

// --- The pointer ---

void TPlainBox::Press(std::int32_t position, bool shift, bool isDouble) {
  Waiting = 0;
  if (!InputSupport) return;
  const auto marked = static_cast<std::int32_t>(Marked.size());
  if (position > Caret) position = std::max(Caret, position - marked);
  LeaveComposition();
  Caret = Held(position);
  if (!shift) Anchor = Caret;
  Mode = isDouble ? TMode::None : TMode::Selecting;
  if (isDouble) SelectWord();
}

void TPlainBox::Drag(std::int32_t position) {
  if (Mode == TMode::None) return;
  Waiting = 0;
  LeaveComposition();
  Caret = Held(position);
  if (Mode == TMode::Placing) Anchor = Caret;
}

void TPlainBox::LongTap() {
  Waiting = 0;
  if (Mode == TMode::Selecting) return;
  Anchor = Caret;
  Mode = TMode::Placing;
}

void TPlainBox::DragHandle(bool isLeft, std::int32_t position) {
  Waiting = 0;
  if (!IsSelected()) return;
  const std::int32_t from = Low();
  const std::int32_t to = High();
  if (isLeft)
    Select(to, std::min(Held(position), Before(to)));
  else
    Select(from, std::max(Held(position), Behind(from)));
}

// --- Focus and compositions ---

void TPlainBox::Enter() {
  if (Focused) return;
  Waiting = 0;
  Focused = true;
  if (IsEditable() && Marked.empty()) SelectAll();
}

void TPlainBox::Leave() {
  if (!Focused) return;
  Waiting = 0;
  LeaveComposition();
  Focused = false;
}

void TPlainBox::StartComposition() {
  Waiting = 0;
  if (IsEditable() && IsSelected()) RemoveSelection();
}

void TPlainBox::Compose(std::u16string_view marked) {
  Waiting = 0;
  LeaveComposition();
  if (!IsEditable()) return;
  if (!marked.empty() && IsSelected()) RemoveSelection();
  Marked = marked;
}

}  // namespace orv::testing
