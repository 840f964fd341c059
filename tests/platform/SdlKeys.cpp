// Keys of the window library, and the clipboard without a window.
#include "platform/SdlKeys.h"

#include <gtest/gtest.h>

#include "platform/Clipboard.h"

namespace orv::platform {
namespace {

using fmx::Keys;
using fmx::TPlatformModifier;

SDL_Keysym Sym(SDL_Keycode sym, SDL_Scancode scancode = SDL_SCANCODE_UNKNOWN, std::uint16_t mod = 0) {
  SDL_Keysym key{};
  key.sym = sym;
  key.scancode = scancode;
  key.mod = mod;
  return key;
}

TEST(SdlKeys, NamedKeysHaveTheirCodes) {
  EXPECT_EQ(KeyCodeOf(Sym(SDLK_LEFT), true), Keys::Left);
  EXPECT_EQ(KeyCodeOf(Sym(SDLK_KP_ENTER), true), Keys::Return);
  EXPECT_EQ(KeyCodeOf(Sym(SDLK_RCTRL), true), Keys::Control);
  EXPECT_EQ(KeyCodeOf(Sym(SDLK_APPLICATION), true), Keys::Menu);
  EXPECT_EQ(KeyCodeOf(Sym(SDLK_BACKSPACE), true), Keys::Backspace);
}

TEST(SdlKeys, TheNumberPadMovesWithoutTheNumberLock) {
  EXPECT_EQ(KeyCodeOf(Sym(SDLK_KP_4, SDL_SCANCODE_KP_4), true), Keys::Left);
  EXPECT_EQ(KeyCodeOf(Sym(SDLK_KP_PERIOD, SDL_SCANCODE_KP_PERIOD), true), Keys::Delete);
  EXPECT_GE(KeyCodeOf(Sym(SDLK_KP_4, SDL_SCANCODE_KP_4, KMOD_NUM), true), 0x100);
}

TEST(SdlKeys, LettersGoByWhatALatinLayoutTypes) {
  EXPECT_EQ(KeyCodeOf(Sym(SDLK_a, SDL_SCANCODE_Q), true), 'A');  // a French keyboard
  EXPECT_EQ(KeyCodeOf(Sym(SDLK_7, SDL_SCANCODE_7), true), '7');
  EXPECT_GE(KeyCodeOf(Sym(';', SDL_SCANCODE_Z), true), 0x100);  // Dvorak
}

TEST(SdlKeys, AndByTheirPlaceOnOthers) {
  EXPECT_EQ(KeyCodeOf(Sym(0x634, SDL_SCANCODE_A), false), 'A');
  EXPECT_EQ(KeyCodeOf(Sym('/', SDL_SCANCODE_Q), false), 'Q');  // a Hebrew keyboard
  EXPECT_EQ(KeyCodeOf(Sym(0x6F1, SDL_SCANCODE_1), false), '1');
  EXPECT_EQ(KeyCodeOf(Sym(0x6F0, SDL_SCANCODE_0), false), '0');
}

TEST(SdlKeys, NoKeyHasTheCodeOfAnother) {
  for (int sym = 0; sym < 0x80; ++sym) {
    const Keys::TCode code = KeyCodeOf(Sym(sym, SDL_SCANCODE_PERIOD), true);
    const bool isNamed = sym == 8 || sym == 9 || sym == 13 || sym == 27 || sym == 127;
    const bool isPlain = (sym >= '0' && sym <= '9') || (sym >= 'a' && sym <= 'z');
    EXPECT_EQ(code >= 0x100, !isNamed && !isPlain) << sym;
    EXPECT_NE(code, Keys::None);
  }
}

TEST(SdlKeys, TheRightAltIsAltGrWhereItTypesSomethingElse) {
  const auto held = [](SDL_Keycode sym, std::uint16_t mod, std::u16string_view text) {
    return ModifiersOf(Sym(sym, SDL_SCANCODE_Q, mod), text);
  };
  const fmx::TPlatformModifiers altGr{TPlatformModifier::Ctrl, TPlatformModifier::Alt};
  const fmx::TPlatformModifiers alt{TPlatformModifier::Alt};
  EXPECT_EQ(held('q', KMOD_RALT, u"@"), altGr);
  EXPECT_EQ(held('q', KMOD_RALT, u"q"), alt);
  EXPECT_EQ(held('q', KMOD_RALT, u"Q"), alt);
  EXPECT_EQ(held('q', KMOD_RALT, u""), alt);
  EXPECT_EQ(held('q', KMOD_LALT, u"q"), alt);
  EXPECT_EQ(held('q', KMOD_MODE, u"q"), altGr);
  EXPECT_EQ(held('q', KMOD_RALT | KMOD_SHIFT, u"Ω"), altGr + fmx::TPlatformModifiers{TPlatformModifier::Shift});
  EXPECT_EQ(held('q', KMOD_RALT | KMOD_LCTRL, u"@"), altGr);  // as some systems tell it
}

TEST(SdlKeys, CtrlWithTheLeftAltTypesNothing) {
  EXPECT_FALSE(TypesText(KMOD_LCTRL | KMOD_LALT));
  EXPECT_TRUE(TypesText(KMOD_LCTRL | KMOD_RALT));
  EXPECT_TRUE(TypesText(KMOD_SHIFT));
}

TEST(SdlKeys, TheLamAlefKeyOfArabicKeyboardsTypesItsLetters) {
  EXPECT_EQ(TypedText("\uFEFB"), u"\u0644\u0627");
  EXPECT_EQ(TypedText("\uFEF5\uFEF6\uFEF7\uFEF8\uFEF9\uFEFA\uFEFC"), u"لآلآلألألإلإلا");
  EXPECT_EQ(TypedText("\uFEF4\uFEFDس\U0001F600"), u"\uFEF4\uFEFDس\U0001F600");
}

TEST(SdlKeys, PlainCharacters) {
  EXPECT_EQ(PlainCharacterOf(Sym('q')), u'q');
  EXPECT_EQ(PlainCharacterOf(Sym(' ')), u' ');
  EXPECT_EQ(PlainCharacterOf(Sym(SDLK_DELETE)), u'\0');
  EXPECT_EQ(PlainCharacterOf(Sym(SDLK_LEFT)), u'\0');
  EXPECT_EQ(PlainCharacterOf(Sym(0x634)), u'\0');
}

TEST(Clipboard, KeepsTextWithoutAWindow) {
  TClipboardService clipboard;
  EXPECT_EQ(clipboard.GetText(), u"");
  clipboard.SetText(u"سلام\n\U0001F600");
  EXPECT_EQ(clipboard.GetText(), u"سلام\n\U0001F600");
}

TEST(Clipboard, IllFormedTextIsReplacedAndTheRestKept) {
  TClipboardService clipboard;
  clipboard.SetText(std::u16string_view(u"a\0b", 3));
  EXPECT_EQ(clipboard.GetText(), u"a\uFFFDb");
  clipboard.SetText(std::u16string{u'a', 0xD800, u'b', 0xDC00});
  EXPECT_EQ(clipboard.GetText(), u"a\uFFFDb\uFFFD");
  clipboard.SetText(u"");
  EXPECT_EQ(clipboard.GetText(), u"");
}

}  // namespace
}  // namespace orv::platform
