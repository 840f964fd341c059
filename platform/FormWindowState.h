// What a window of a form holds; for this platform's own files.
#pragma once

#include <SDL.h>

#include <cmath>
#include <cstdint>
#include <map>
#include <memory>

#include "fmx/KeyboardInput.h"
#include "fmx/Touch.h"
#include "platform/FormWindow.h"
#include "platform/Window.h"

namespace orv::platform {

struct TFreeCursor {
  void operator()(SDL_Cursor* cursor) const { SDL_FreeCursor(cursor); }
};

struct TFormWindow::TState : fmx::IFormWindow {
  TState(fmx::TForm& form, float scale);
  ~TState() override;
  TState(const TState&) = delete;
  TState& operator=(const TState&) = delete;

  fmx::TPointF ScreenPosition() const override;

  fmx::TPointF Units(float x, float y) const { return {x / Scale, y / Scale}; }
  void TakeSize() {
    Form.SetSize({static_cast<float>(Window.Width()) / Scale, static_cast<float>(Window.Height()) / Scale});
  }

  void Act(const SDL_Event& event);
  void ActOnWindow(const SDL_WindowEvent& event);
  void ActOnKey(const SDL_KeyboardEvent& event);
  void Compose(const char* text, std::int32_t start);
  void ActOnButton(const SDL_MouseButtonEvent& event);
  void ActOnWheel(const SDL_MouseWheelEvent& event);
  void ActOnFinger(const SDL_TouchFingerEvent& event);
  void EndComposition();

  // Everything that happened has been told.
  void Settle();
  void Paint();
  void UpdateCursor();
  void UpdateTextInput();

  fmx::TForm& Form;
  float Scale;
  TWindow Window;
  std::unique_ptr<fmx::TCanvas> Canvas;
  fmx::TKeyboardInput Keyboard;
  fmx::TTouch Touch;
  bool IsOpen = true;
  fmx::TPointF Pointer;
  fmx::TCursor Cursor = fmx::TCursor::Default;
  std::map<SDL_SystemCursor, std::unique_ptr<SDL_Cursor, TFreeCursor>> Cursors;
  SDL_Rect InputPlace{};
};

}  // namespace orv::platform
