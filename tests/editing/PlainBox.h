// A single-line box as a person would describe it: a text, a caret and the other end of the selection. Written from the
// description alone, to be compared with the real one; where a press lands it is told. All corrections are in force.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fmx/Keys.h"
#include "fmx/TextService.h"

namespace orv::testing {

class TPlainBox {
 public:
  enum class TMode : std::uint8_t { None, Selecting, Placing };

  // What is committed, and what is being composed at the caret.
  std::u16string Text;
  std::u16string Marked;
  std::int32_t Caret = 0;
  std::int32_t Anchor = 0;
  std::u16string Clipboard;

  // Settings.
  std::u16string Filter;
  fmx::TCharCase CharCase = fmx::TCharCase::Normal;
  std::int32_t MaxLength = 0;
  bool ReadOnly = false;
  bool InputSupport = true;
  bool Password = false;
  bool Focused = true;
  TMode Mode = TMode::None;
  char16_t Waiting = 0;  // a high surrogate

  std::u16string Shown() const { return Text.substr(0, Index(Caret)) + Marked + Text.substr(Index(Caret)); }
  bool IsEditable() const { return !ReadOnly && InputSupport; }
  std::int32_t Length() const { return static_cast<std::int32_t>(Text.size()); }
  // Held in the text, and before a pair that it lies in.
  std::int32_t Held(std::int64_t position) const;
  std::int32_t Before(std::int32_t position) const { return position > 0 ? Held(position - 1) : 0; }
  std::int32_t Behind(std::int32_t position) const;

  // A key without a character, arrows as they act, and a character without a key.
  void Key(fmx::Keys::TCode key, fmx::TShiftState shift);
  void Type(char16_t unit, fmx::TShiftState shift);

  // The application.
  void SetText(std::u16string_view text);
  void SetCaret(std::int32_t value);
  void SetSelStart(std::int32_t value);
  void SetSelLength(std::int32_t value);
  void Spell(std::u16string_view word);

  // The menu.
  void Cut();
  void Copy();
  void Paste();
  void Delete();
  void SelectAll();
  void SelectWord();

  // The pointer; the position is where the press lands in what is shown.
  void Press(std::int32_t position, bool shift, bool isDouble);
  void Drag(std::int32_t position);
  void LongTap();
  void DragHandle(bool isLeft, std::int32_t position);

  void Enter();
  void Leave();
  void StartComposition();
  void Compose(std::u16string_view marked);
  void LeaveComposition() { Marked.clear(); }

 private:
  static std::size_t Index(std::int32_t position) { return static_cast<std::size_t>(position); }
  bool IsSelected() const { return Caret != Anchor; }
  std::int32_t Low() const { return std::min(Caret, Anchor); }
  std::int32_t High() const { return std::max(Caret, Anchor); }
  void Place(std::int64_t position) { Caret = Anchor = Held(position); }
  void Select(std::int32_t anchor, std::int32_t caret);
  void Replace(std::int32_t from, std::int32_t to, std::u16string_view text);
  void RemoveSelection();
  void Insert(std::u16string_view text);
  std::u16string Allowed(std::u16string_view text, std::int32_t room) const;
  std::u16string Written(std::u16string_view text, std::int32_t from, std::int32_t to) const;
  // Whether each unit belongs to a word.
  std::vector<bool> Words() const;
  std::int32_t WordBefore(std::int32_t position) const;
  std::int32_t WordBehind(std::int32_t position) const;
  bool Move(fmx::Keys::TCode key, bool byWords, std::int32_t& target) const;
};

}  // namespace orv::testing
