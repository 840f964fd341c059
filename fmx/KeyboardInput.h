// Keys, typed text and what an input method composes, put in their order and given to a root.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fmx/Keys.h"
#include "fmx/Root.h"
#include "fmx/TextInput.h"

namespace fmx {

// The text input of the control with the focus; null where it has none, or no control has the focus. Borrowed.
ITextInput* FocusedTextInput(const IRoot& root);

// Platforms tell of a key that an input method lets through before they tell of the text that this key made the method
// commit. While something is being composed, keys therefore wait until all that the platform has is told; the
// composition, if it ends, ends before them.
//
// Example: a method composes "dan", the blank makes it commit. Told are the key with " ", Compose(""), Text("dan");
// typed are "dan", then " ". Main thread.
class TKeyboardInput {
 public:
  // Borrows the root.
  explicit TKeyboardInput(IRoot& root) : FRoot(root) {}

  // A key went down that types the text, "" for none.
  void Key(Keys::TCode key, std::u16string_view text, TPlatformModifiers modifiers);
  // A text without a key: an input method commits it, or the key is one that the platform has no name for. The
  // modifiers count outside of compositions alone.
  void Text(std::u16string_view text, TPlatformModifiers modifiers);
  // What an input method composes now, with its caret in it; "" is nothing, and may come at any time. Nothing happens
  // without a text input.
  void Compose(std::u16string_view text, std::int32_t caret);
  // Everything that the platform has is told.
  void Settle();
  // What is being composed is typed as it stands: the focus, or the caret, is about to move by other means.
  void Finish();

  bool IsComposing() const { return FIsComposing; }

 private:
  struct TKey {
    Keys::TCode Key;
    std::u16string Text;
    TPlatformModifiers Modifiers;
  };
  void Deliver(const TKey& key);
  // Takes the marked text away and tells the control.
  void End();

  IRoot& FRoot;
  bool FIsComposing = false;
  bool FMayEnd = false;  // the method composes nothing; it often says so between two steps of one composition
  std::vector<TKey> FWaiting;
};

}  // namespace fmx
