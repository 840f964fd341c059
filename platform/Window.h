// A window that shows pictures, made by SDL.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/CanvasWindow.h"
#include "platform/Frame.h"

struct SDL_Window;

namespace orv::platform {

// Keys that a viewer acts on; the rest is Other.
enum class TWindowKey : std::uint8_t {
  Other,
  Escape,
  Up,
  Down,
  PageUp,
  PageDown,
  Home,
  End,
  Blank,
  Plus,
  Minus,
  Zero,
  Q
};

// One thing that happened to a window.
struct TWindowEvent {
  enum class TKind : std::uint8_t {
    Close,    // the person closed it
    Resized,  // Width and Height hold its new size in pixels
    Exposed,  // its content must be shown again
    Key,      // Key went down, or repeats; Control tells whether Ctrl was held
    Wheel,    // the wheel turned by Steps; away from the person is positive. Control, X and Y
    Press,    // the first mouse button went down at X and Y, in pixels of the window
  };
  TKind Kind = TKind::Exposed;
  TWindowKey Key = TWindowKey::Other;
  bool Control = false;
  float Steps = 0;
  int X = 0;
  int Y = 0;
  int Width = 0;
  int Height = 0;
};

// A resizable window. Canvases draw in it as a TCanvasWindow, with Width and Height as the size of their target; others
// show frames. Belongs to the thread that made it, which must be the main thread on some systems.
class TWindow : public TCanvasWindow {
 public:
  // Opens it with that client size in pixels. The title is UTF-8. Raises ENoDisplay where there is no display to see
  // it on (SDL itself would go on invisibly), EWindowError where it cannot be opened.
  TWindow(const std::string& title, int width, int height);
  ~TWindow() override;
  TWindow(const TWindow&) = delete;
  TWindow& operator=(const TWindow&) = delete;

  int Width() const;
  int Height() const;

  // The name of the display driver in use, for example "x11" or "wayland".
  std::string DriverName() const;

  // Copies the frame to the window's upper left corner; what the frame does not cover keeps no defined content. Raises
  // EWindowError.
  void Show(const TFrame& frame);

  // After a change of the window's size, and where another window covered it, all of the pixels count as changed.
  // Raises EWindowError.
  void Present(const fmx::TBitmapSurface& pixels, const fmx::TRect& changed) override;

  // The library's window; borrowed. For those who take its events themselves.
  SDL_Window* Handle() const;
  // Its pixels are lost: all of them count as changed at the next Present.
  void Expose();

  // Waits for the next event.
  TWindowEvent Wait();

  // The next event where one is there already; a viewer takes them all before it paints.
  std::optional<TWindowEvent> Poll();

 private:
  struct TState;
  std::unique_ptr<TState> FState;
};

// Whether the environment names a display at all. A window may still fail to open on it.
bool DisplayIsNamed();

}  // namespace orv::platform
