// What the window library tells of, on its way to the form.
#include <SDL.h>

#include <string>

#include "fmx/Style.h"
#include "platform/FormWindowState.h"
#include "platform/SdlKeys.h"
#include "rtl/Utf8.h"

namespace orv::platform {
namespace {

// The window library counts characters in what is composed.
std::int32_t UnitsOf(std::u16string_view text, std::int32_t characters) {
  std::int32_t units = 0;
  for (const auto length = static_cast<std::int32_t>(text.size()); characters > 0 && units < length; --characters) {
    const bool pair = (text[static_cast<std::size_t>(units)] & 0xFC00) == 0xD800 && units + 1 < length;
    units += pair ? 2 : 1;
  }
  return units;
}

fmx::TMouseButton ButtonOf(std::uint8_t button) {
  if (button == SDL_BUTTON_RIGHT) return fmx::TMouseButton::Right;
  return button == SDL_BUTTON_MIDDLE ? fmx::TMouseButton::Middle : fmx::TMouseButton::Left;
}

fmx::TShiftState HeldNow() {
  return fmx::ShiftStateOf(ModifiersOf(static_cast<std::uint16_t>(SDL_GetModState())));
}

// The text of the key that went down just before: SDL tells it as the next event of the keyboard.
std::u16string TakeTextOf(const SDL_Keysym& key) {
  const bool mayType =
      key.sym >= 0x20 && key.sym != SDLK_DELETE &&
      ((key.sym & SDLK_SCANCODE_MASK) == 0 || (key.sym >= SDLK_KP_DIVIDE && key.sym <= SDLK_KP_PERIOD));
  SDL_Event next;
  if (!mayType || SDL_PeepEvents(&next, 1, SDL_PEEKEVENT, SDL_KEYDOWN, SDL_TEXTEDITING_EXT) != 1 ||
      next.type != SDL_TEXTINPUT || SDL_PeepEvents(&next, 1, SDL_GETEVENT, SDL_TEXTINPUT, SDL_TEXTINPUT) != 1)
    return {};
  return TypedText(next.text.text);
}

}  // namespace

void TFormWindow::TState::Act(const SDL_Event& event) {
  const std::uint32_t id = SDL_GetWindowID(Window.Handle());
  switch (event.type) {
    case SDL_WINDOWEVENT:
      if (event.window.windowID == id) ActOnWindow(event.window);
      return;
    case SDL_KEYDOWN:
      if (event.key.windowID == id) ActOnKey(event.key);
      return;
    case SDL_TEXTINPUT:
      if (event.text.windowID == id)
        Keyboard.Text(TypedText(event.text.text), ModifiersOf(static_cast<std::uint16_t>(SDL_GetModState())));
      return;
    case SDL_TEXTEDITING:
      if (event.edit.windowID == id) Compose(event.edit.text, event.edit.start);
      return;
    case SDL_TEXTEDITING_EXT:
      if (event.editExt.windowID == id) Compose(event.editExt.text, event.editExt.start);
      return;
    case SDL_MOUSEMOTION:
      if (event.motion.windowID != id || event.motion.which == SDL_TOUCH_MOUSEID) return;
      Pointer = Units(static_cast<float>(event.motion.x), static_cast<float>(event.motion.y));
      return Form.MouseMove({fmx::TMouseButton::Left, HeldNow(), Pointer, false});
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
      if (event.button.windowID == id && event.button.which != SDL_TOUCH_MOUSEID) ActOnButton(event.button);
      return;
    case SDL_MOUSEWHEEL:
      if (event.wheel.windowID == id && event.wheel.which != SDL_TOUCH_MOUSEID) ActOnWheel(event.wheel);
      return;
    case SDL_FINGERDOWN:
    case SDL_FINGERMOTION:
    case SDL_FINGERUP:
      if (event.tfinger.windowID == id) ActOnFinger(event.tfinger);
      return;
    default:
      return;
  }
}

void TFormWindow::TState::ActOnWindow(const SDL_WindowEvent& event) {
  switch (event.event) {
    case SDL_WINDOWEVENT_CLOSE:
      IsOpen = false;
      return;
    case SDL_WINDOWEVENT_SIZE_CHANGED:
      Canvas->Resize(event.data1, event.data2, Scale);
      TakeSize();
      return Form.Invalidate();
    case SDL_WINDOWEVENT_EXPOSED:
      Window.Expose();
      return Form.Invalidate();
    case SDL_WINDOWEVENT_FOCUS_GAINED:
      Form.Activate();
      return Form.Invalidate();
    case SDL_WINDOWEVENT_FOCUS_LOST:
      EndComposition();
      Form.MenuPanel().Close();
      Form.Deactivate();
      return Form.Invalidate();
    default:
      return;
  }
}

void TFormWindow::TState::ActOnKey(const SDL_KeyboardEvent& event) {
  const SDL_Keysym& key = event.keysym;
  std::u16string text = TakeTextOf(key);
  if (text.empty() && SDL_IsTextInputActive() == SDL_FALSE && PlainCharacterOf(key) != 0) text = PlainCharacterOf(key);
  const fmx::TPlatformModifiers held = ModifiersOf(key, text);
  Keyboard.Key(KeyCodeOf(key, LayoutIsLatin()), TypesText(key.mod) ? std::u16string_view(text) : std::u16string_view(),
               held);
}

void TFormWindow::TState::Compose(const char* text, std::int32_t start) {
  const std::u16string composed = rtl::FromUtf8(text);
  Keyboard.Compose(composed, UnitsOf(composed, start));
}

// What an input method composes stays where the person leaves it, and the method forgets it.
void TFormWindow::TState::EndComposition() {
  if (!Keyboard.IsComposing()) return;
  Keyboard.Finish();
  SDL_ClearComposition();
}

void TFormWindow::TState::ActOnButton(const SDL_MouseButtonEvent& event) {
  Pointer = Units(static_cast<float>(event.x), static_cast<float>(event.y));
  if (event.button > SDL_BUTTON_RIGHT) return;
  const fmx::TMouseEvent told{ButtonOf(event.button), HeldNow(), Pointer, event.clicks % 2 == 0};
  if (event.type == SDL_MOUSEBUTTONUP) return Form.MouseUp(told);
  EndComposition();
  fmx::TSelectionPoint::SetFingersSelect(false);
  Form.MouseDown(told);
}

void TFormWindow::TState::ActOnWheel(const SDL_MouseWheelEvent& event) {
  Form.MouseWheel({HeldNow(), Pointer, event.preciseY});
}

void TFormWindow::TState::ActOnFinger(const SDL_TouchFingerEvent& event) {
  const fmx::TPointF place =
      Units(event.x * static_cast<float>(Window.Width()), event.y * static_cast<float>(Window.Height()));
  if (event.type == SDL_FINGERUP) return Touch.Up(place);
  if (event.type == SDL_FINGERMOTION) return Touch.Move(place);
  EndComposition();
  fmx::TSelectionPoint::SetFingersSelect(true);
  Touch.Down(place);
}

}  // namespace orv::platform
