// Keys and typed text on their way from a platform to a control.
//
// A platform reports a key as it comes: a code, the text it would type, whatever its modifiers word holds. What
// controls get is narrower, because they act on a key and type a character by separate rules, and compare modifiers
// whole. NormalizeKey makes the one out of the other; every platform sends its keys through it, or through DeliverKey
// (fmx/Root.h).
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "rtl/Sets.h"

namespace fmx {

// Key codes that controls know. Letters and digits have the code of their capital ASCII character; a platform gives
// any other key a code of its own, but 0.
class Keys {
 public:
  using TCode = std::uint16_t;
  static constexpr TCode None = 0;
  static constexpr TCode Backspace = 8;
  static constexpr TCode Tab = 9;
  static constexpr TCode Return = 13;
  static constexpr TCode Shift = 16;
  static constexpr TCode Control = 17;
  static constexpr TCode Alt = 18;
  static constexpr TCode Escape = 27;
  static constexpr TCode PageUp = 33;
  static constexpr TCode PageDown = 34;
  static constexpr TCode End = 35;
  static constexpr TCode Home = 36;
  static constexpr TCode Left = 37;
  static constexpr TCode Up = 38;
  static constexpr TCode Right = 39;
  static constexpr TCode Down = 40;
  static constexpr TCode Insert = 45;
  static constexpr TCode Delete = 46;
  static constexpr TCode Menu = 93;
  static constexpr TCode F10 = 121;
};

// The modifiers a control can be told of. Lock keys and mouse buttons are not among them, so a control may ask whether
// exactly Shift is held: event.Shift == TShiftState{TShiftItem::Shift}.
enum class TShiftItem : std::uint8_t { Shift, Alt, Ctrl, Command };
using TShiftState = rtl::TSet<TShiftItem, std::uint8_t>;

// What a platform may report as held. Command is the key of that name, or the one with the system's sign.
enum class TPlatformModifier : std::uint8_t {
  Shift,
  Alt,
  Ctrl,
  Command,
  CapsLock,
  NumLock,
  ScrollLock,
  LeftButton,
  RightButton,
  MiddleButton
};
using TPlatformModifiers = rtl::TSet<TPlatformModifier, std::uint16_t>;

// Shift, Alt, Ctrl and Command of them; for mouse events too.
TShiftState ShiftStateOf(TPlatformModifiers modifiers);

// One KeyDown. A control that has acted on it takes it away with SetHandled; the next one then leaves it alone.
struct TKeyEvent {
  Keys::TCode Key = Keys::None;
  char16_t KeyChar = 0;
  TShiftState Shift;

  // Whether it has one of the two forms that controls take: a key without a character, or a character from U+0020 on
  // without a key.
  constexpr bool IsDeliverable() const { return Key != Keys::None ? KeyChar == 0 : KeyChar >= u' '; }

  constexpr bool IsHandled() const { return Key == Keys::None && KeyChar == 0; }
  constexpr void SetHandled() {
    Key = Keys::None;
    KeyChar = 0;
  }
  friend constexpr bool operator==(const TKeyEvent&, const TKeyEvent&) = default;
};

// The KeyDown calls that a platform's key makes, in their order; each IsDeliverable.
//
// - text is what the key types, UTF-16, "" for none; its control characters (below U+0020) do not count as text. It may
//   also come alone (key None), as from an input method.
// - Ctrl and Alt together with a text are AltGr, which has done its work: both are dropped. A platform that has a bit
// of
//   its own for AltGr reports Ctrl and Alt for it.
// - A text with none of Alt, Ctrl and Command held gives an event for each of its code units, without the key. A
//   character beyond U+FFFF is so two events, high half first.
// - Anything else gives the key alone: "a" with Ctrl is the key A, and with no key given it is nothing.
// - Backspace, Tab, Return and Escape that come as characters alone become the keys.
//
// Example: NormalizeKey(65, u"a", {}) is {0, 'a'}; NormalizeKey(65, u"\1", {TPlatformModifier::Ctrl}) is {65, 0, Ctrl}.
std::vector<TKeyEvent> NormalizeKey(Keys::TCode key, std::u16string_view text, TPlatformModifiers modifiers);

}  // namespace fmx
