#include "platform/SdlKeys.h"

#include <algorithm>

#include "rtl/Utf8.h"

namespace orv::platform {
namespace {

using fmx::Keys;
using fmx::TPlatformModifier;

struct TNamedKey {
  SDL_Keycode Key;
  Keys::TCode Code;
};
constexpr TNamedKey NamedKeys[] = {
    {SDLK_BACKSPACE, Keys::Backspace}, {SDLK_TAB, Keys::Tab},       {SDLK_RETURN, Keys::Return},
    {SDLK_KP_ENTER, Keys::Return},     {SDLK_ESCAPE, Keys::Escape}, {SDLK_PAGEUP, Keys::PageUp},
    {SDLK_PAGEDOWN, Keys::PageDown},   {SDLK_END, Keys::End},       {SDLK_HOME, Keys::Home},
    {SDLK_LEFT, Keys::Left},           {SDLK_UP, Keys::Up},         {SDLK_RIGHT, Keys::Right},
    {SDLK_DOWN, Keys::Down},           {SDLK_INSERT, Keys::Insert}, {SDLK_DELETE, Keys::Delete},
    {SDLK_LSHIFT, Keys::Shift},        {SDLK_RSHIFT, Keys::Shift},  {SDLK_LCTRL, Keys::Control},
    {SDLK_RCTRL, Keys::Control},       {SDLK_LALT, Keys::Alt},      {SDLK_RALT, Keys::Alt},
    {SDLK_APPLICATION, Keys::Menu},    {SDLK_MENU, Keys::Menu},     {SDLK_F10, Keys::F10}};
constexpr TNamedKey PadKeys[] = {{SDLK_KP_0, Keys::Insert},     {SDLK_KP_1, Keys::End},  {SDLK_KP_2, Keys::Down},
                                 {SDLK_KP_3, Keys::PageDown},   {SDLK_KP_4, Keys::Left}, {SDLK_KP_6, Keys::Right},
                                 {SDLK_KP_7, Keys::Home},       {SDLK_KP_8, Keys::Up},   {SDLK_KP_9, Keys::PageUp},
                                 {SDLK_KP_PERIOD, Keys::Delete}};
// Above the codes that controls know.
constexpr Keys::TCode OtherKeys = 0x100;

template <std::size_t N>
Keys::TCode CodeIn(const TNamedKey (&table)[N], SDL_Keycode key) {
  const auto* const found =
      std::find_if(std::begin(table), std::end(table), [key](const auto& each) { return each.Key == key; });
  return found != std::end(table) ? found->Code : Keys::None;
}

constexpr bool IsLetter(SDL_Keycode key) {
  return key >= SDLK_a && key <= SDLK_z;
}

constexpr char16_t Lower(char16_t c) {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}

// The alef, madda or hamza with it, of U+FEF5 to U+FEFC, two forms of each.
constexpr char16_t FirstLamAlef = 0xFEF5;
constexpr char16_t LamAlefs[] = {0x622, 0x622, 0x623, 0x623, 0x625, 0x625, 0x627, 0x627};
constexpr char16_t Lam = 0x644;

}  // namespace

bool LayoutIsLatin() {
  for (int code = SDL_SCANCODE_A; code <= SDL_SCANCODE_Z; ++code)
    if (IsLetter(SDL_GetKeyFromScancode(static_cast<SDL_Scancode>(code)))) return true;
  return false;
}

Keys::TCode KeyCodeOf(const SDL_Keysym& key, bool layoutIsLatin) {
  if (const Keys::TCode named = CodeIn(NamedKeys, key.sym); named != Keys::None) return named;
  if ((key.mod & KMOD_NUM) == 0)
    if (const Keys::TCode pad = CodeIn(PadKeys, key.sym); pad != Keys::None) return pad;
  if (IsLetter(key.sym)) return static_cast<Keys::TCode>('A' + (key.sym - SDLK_a));
  if (key.sym >= SDLK_0 && key.sym <= SDLK_9) return static_cast<Keys::TCode>('0' + (key.sym - SDLK_0));
  if (!layoutIsLatin) {
    if (key.scancode >= SDL_SCANCODE_A && key.scancode <= SDL_SCANCODE_Z)
      return static_cast<Keys::TCode>('A' + (key.scancode - SDL_SCANCODE_A));
    if (key.scancode >= SDL_SCANCODE_1 && key.scancode <= SDL_SCANCODE_9)
      return static_cast<Keys::TCode>('1' + (key.scancode - SDL_SCANCODE_1));
    if (key.scancode == SDL_SCANCODE_0) return '0';
  }
  return static_cast<Keys::TCode>(OtherKeys + key.scancode);
}

fmx::TPlatformModifiers ModifiersOf(std::uint16_t modifiers) {
  fmx::TPlatformModifiers held;
  if ((modifiers & KMOD_SHIFT) != 0) held.Include(TPlatformModifier::Shift);
  if ((modifiers & KMOD_ALT) != 0) held.Include(TPlatformModifier::Alt);
  if ((modifiers & KMOD_CTRL) != 0) held.Include(TPlatformModifier::Ctrl);
  if ((modifiers & KMOD_GUI) != 0) held.Include(TPlatformModifier::Command);
  if ((modifiers & KMOD_CAPS) != 0) held.Include(TPlatformModifier::CapsLock);
  if ((modifiers & KMOD_NUM) != 0) held.Include(TPlatformModifier::NumLock);
  return held;
}

fmx::TPlatformModifiers ModifiersOf(const SDL_Keysym& key, std::u16string_view text) {
  fmx::TPlatformModifiers held = ModifiersOf(key.mod);
  const bool mode = (key.mod & KMOD_MODE) != 0;
  if (text.empty() || (!mode && (key.mod & KMOD_RALT) == 0)) return held;
  const bool another = text.size() != 1 || static_cast<SDL_Keycode>(Lower(text[0])) != key.sym;
  if (!mode && !another) return held;
  held.Include(TPlatformModifier::Ctrl);
  held.Include(TPlatformModifier::Alt);
  return held;
}

bool TypesText(std::uint16_t modifiers) {
  return (modifiers & KMOD_CTRL) == 0 || (modifiers & KMOD_LALT) == 0;
}

std::u16string TypedText(const char* utf8) {
  std::u16string text;
  for (const char16_t c : rtl::FromUtf8(utf8)) {
    const auto form = static_cast<std::size_t>(c - FirstLamAlef);
    if (c >= FirstLamAlef && form < std::size(LamAlefs))
      text.append({Lam, LamAlefs[form]});
    else
      text.push_back(c);
  }
  return text;
}

char16_t PlainCharacterOf(const SDL_Keysym& key) {
  return key.sym >= 0x20 && key.sym < 0x7F ? static_cast<char16_t>(key.sym) : u'\0';
}

}  // namespace orv::platform
