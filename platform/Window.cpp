#include "platform/Window.h"

#include <SDL.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "platform/Exceptions.h"

namespace orv::platform {
namespace {

bool IsSet(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr && *value != '\0';
}

// The share of SDL that windows need, held while a window lives. SDL counts its users.
class TVideo {
 public:
  TVideo() {
    // The system's own handling of interrupts stays: Ctrl+C in a terminal ends the command.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    // Trying Wayland where there is none writes to standard error. A driver named by the environment goes before this.
    if (!IsSet("WAYLAND_DISPLAY")) SDL_SetHint(SDL_HINT_VIDEODRIVER, "x11");
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) throw ENoDisplay("no display: neither X nor Wayland can be reached");
    const char* name = SDL_GetCurrentVideoDriver();
    FDriver = name != nullptr ? name : "";
    if (FDriver != "offscreen" && FDriver != "dummy") return;
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
    throw ENoDisplay("no display: SDL offers only the driver '" + FDriver + "'");
  }
  ~TVideo() { SDL_QuitSubSystem(SDL_INIT_VIDEO); }
  TVideo(const TVideo&) = delete;
  TVideo& operator=(const TVideo&) = delete;

  const std::string& Driver() const { return FDriver; }

 private:
  std::string FDriver;
};

struct TRelease {
  void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

TWindowKey KeyOf(SDL_Keycode code) {
  switch (code) {
    case SDLK_ESCAPE:
      return TWindowKey::Escape;
    case SDLK_UP:
      return TWindowKey::Up;
    case SDLK_DOWN:
      return TWindowKey::Down;
    case SDLK_PAGEUP:
      return TWindowKey::PageUp;
    case SDLK_PAGEDOWN:
      return TWindowKey::PageDown;
    case SDLK_HOME:
      return TWindowKey::Home;
    case SDLK_END:
      return TWindowKey::End;
    case SDLK_SPACE:
      return TWindowKey::Blank;
    case SDLK_PLUS:
    case SDLK_EQUALS:
    case SDLK_KP_PLUS:
      return TWindowKey::Plus;
    case SDLK_MINUS:
    case SDLK_KP_MINUS:
      return TWindowKey::Minus;
    case SDLK_0:
    case SDLK_KP_0:
      return TWindowKey::Zero;
    case SDLK_q:
      return TWindowKey::Q;
    default:
      return TWindowKey::Other;
  }
}

std::optional<TWindowEvent> WindowEvent(const SDL_WindowEvent& event) {
  TWindowEvent result;
  switch (event.event) {
    case SDL_WINDOWEVENT_CLOSE:
      result.Kind = TWindowEvent::TKind::Close;
      return result;
    case SDL_WINDOWEVENT_EXPOSED:
      result.Kind = TWindowEvent::TKind::Exposed;
      return result;
    case SDL_WINDOWEVENT_SIZE_CHANGED:
      result.Kind = TWindowEvent::TKind::Resized;
      result.Width = event.data1;
      result.Height = event.data2;
      return result;
    default:
      return std::nullopt;
  }
}

// Nothing for events that a viewer has no use for.
std::optional<TWindowEvent> Translate(const SDL_Event& event) {
  TWindowEvent result;
  switch (event.type) {
    case SDL_QUIT:
      result.Kind = TWindowEvent::TKind::Close;
      return result;
    case SDL_WINDOWEVENT:
      return WindowEvent(event.window);
    case SDL_KEYDOWN:
      result.Kind = TWindowEvent::TKind::Key;
      result.Key = KeyOf(event.key.keysym.sym);
      result.Control = (event.key.keysym.mod & KMOD_CTRL) != 0;
      return result;
    case SDL_MOUSEWHEEL:
      result.Kind = TWindowEvent::TKind::Wheel;
      result.Steps = event.wheel.preciseY;
      SDL_GetMouseState(&result.X, &result.Y);
      result.Control = (SDL_GetModState() & KMOD_CTRL) != 0;
      return result;
    case SDL_MOUSEBUTTONDOWN:
      if (event.button.button != SDL_BUTTON_LEFT) return std::nullopt;
      result.Kind = TWindowEvent::TKind::Press;
      result.X = event.button.x;
      result.Y = event.button.y;
      return result;
    default:
      return std::nullopt;
  }
}

[[noreturn]] void Fail(std::string_view what) {
  throw EWindowError(std::string(what) + ": " + SDL_GetError());
}

}  // namespace

struct TWindow::TState {
  TVideo Video;
  std::unique_ptr<SDL_Window, TRelease> Window;
  // The size of the window when it was painted last; 0 where it needs painting anew.
  int PaintedWidth = 0;
  int PaintedHeight = 0;

  bool NeedsAll(const TWindow& window) const {
    return window.Width() != PaintedWidth || window.Height() != PaintedHeight;
  }
  void Note(const TWindowEvent& event) {
    if (event.Kind == TWindowEvent::TKind::Exposed) PaintedWidth = 0;
  }
  void Paint(const std::uint32_t* pixels, int width, int height, const fmx::TRect& part);
};

void TWindow::TState::Paint(const std::uint32_t* pixels, int width, int height, const fmx::TRect& part) {
  SDL_Surface* target = SDL_GetWindowSurface(Window.get());
  if (target == nullptr) Fail("cannot paint the window");
  // SDL takes the pixels as writable, but only reads them here.
  auto* bytes = const_cast<std::uint32_t*>(pixels);  // NOLINT(cppcoreguidelines-pro-type-const-cast)
  const std::unique_ptr<SDL_Surface, TRelease> source(
      SDL_CreateRGBSurfaceWithFormatFrom(bytes, width, height, 32, width * 4, SDL_PIXELFORMAT_ARGB8888));
  if (source == nullptr) Fail("cannot paint the window");
  SDL_SetSurfaceBlendMode(source.get(), SDL_BLENDMODE_NONE);
  const SDL_Rect from{part.Left, part.Top, part.Width(), part.Height()};
  SDL_Rect to = from;  // the call cuts it to the window
  if (SDL_BlitSurface(source.get(), &from, target, &to) != 0 || SDL_UpdateWindowSurfaceRects(Window.get(), &to, 1) != 0)
    Fail("cannot paint the window");
  PaintedWidth = target->w;
  PaintedHeight = target->h;
}

TWindow::TWindow(const std::string& title, int width, int height) : FState(std::make_unique<TState>()) {
  FState->Window.reset(SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, width, height,
                                        SDL_WINDOW_RESIZABLE));
  if (FState->Window == nullptr) Fail("cannot open a window");
}

TWindow::~TWindow() = default;

int TWindow::Width() const {
  int width = 0;
  SDL_GetWindowSize(FState->Window.get(), &width, nullptr);
  return width;
}

int TWindow::Height() const {
  int height = 0;
  SDL_GetWindowSize(FState->Window.get(), nullptr, &height);
  return height;
}

std::string TWindow::DriverName() const {
  return FState->Video.Driver();
}

void TWindow::Show(const TFrame& frame) {
  if (!frame.IsEmpty())
    FState->Paint(frame.Pixels.data(), frame.Width, frame.Height, {0, 0, frame.Width, frame.Height});
}

void TWindow::Present(const fmx::TBitmapSurface& pixels, const fmx::TRect& changed) {
  const int width = pixels.Width();
  const int height = pixels.Height();
  const fmx::TRect part = FState->NeedsAll(*this) ? fmx::TRect{0, 0, width, height} : changed;
  if (!pixels.IsEmpty() && !part.IsEmpty()) FState->Paint(pixels.Pixels().data(), width, height, part);
}

SDL_Window* TWindow::Handle() const {
  return FState->Window.get();
}

void TWindow::Expose() {
  FState->PaintedWidth = 0;
}

TWindowEvent TWindow::Wait() {
  SDL_Event event;
  for (;;) {
    if (SDL_WaitEvent(&event) == 0) Fail("the display is lost");
    if (const auto translated = Translate(event)) {
      FState->Note(*translated);
      return *translated;
    }
  }
}

std::optional<TWindowEvent> TWindow::Poll() {
  SDL_Event event;
  while (SDL_PollEvent(&event) != 0) {
    if (auto translated = Translate(event)) {
      FState->Note(*translated);
      return translated;
    }
  }
  return std::nullopt;
}

bool DisplayIsNamed() {
  return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY");
}

}  // namespace orv::platform
