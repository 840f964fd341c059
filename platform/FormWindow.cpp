#include "platform/FormWindow.h"

#include <SDL.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "fmx/CanvasManager.h"
#include "fmx/EditServices.h"
#include "fmx/KeyboardInput.h"
#include "fmx/Timer.h"
#include "fmx/Touch.h"
#include "fmx/WindowServices.h"
#include "platform/Exceptions.h"
#include "platform/SdlKeys.h"
#include "platform/Window.h"
#include "rtl/Utf8.h"

namespace orv::platform {
namespace {

// An input method that composes may answer without an event that ends a sleep.
constexpr int ComposingWait = 30;
constexpr int PictureWait = 15;

int Pixels(float units, float scale) {
  return std::max(static_cast<int>(std::lround(units * scale)), 1);
}

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

struct TFreeCursor {
  void operator()(SDL_Cursor* cursor) const { SDL_FreeCursor(cursor); }
};

SDL_SystemCursor ShapeOf(fmx::TCursor cursor) {
  if (cursor == fmx::TCursor::IBeam) return SDL_SYSTEM_CURSOR_IBEAM;
  return cursor == fmx::TCursor::HandPoint ? SDL_SYSTEM_CURSOR_HAND : SDL_SYSTEM_CURSOR_ARROW;
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
  return rtl::FromUtf8(next.text.text);
}

}  // namespace

struct TFormWindow::TState : fmx::IFormWindow {
  TState(fmx::TForm& form, float scale)
      : Form(form),
        Scale(std::isfinite(scale) && scale > 0 ? scale : 1),
        Window(rtl::ToUtf8(form.Caption()), Pixels(form.Size().Width, Scale), Pixels(form.Size().Height, Scale)),
        Canvas(fmx::TCanvasManager::CreateFromWindow(static_cast<TCanvasWindow*>(&Window), Window.Width(),
                                                     Window.Height(), Scale)),
        Keyboard(form),
        Touch(form) {
    Form.SetWindow(this);
    Form.SetCanvas(Canvas.get());
    Form.Invalidate();
    TakeSize();
  }
  ~TState() override {
    Form.SetCanvas(nullptr);
    Form.SetWindow(nullptr);
  }
  TState(const TState&) = delete;
  TState& operator=(const TState&) = delete;

  fmx::TPointF ScreenPosition() const override {
    int x = 0;
    int y = 0;
    SDL_GetWindowPosition(Window.Handle(), &x, &y);
    return Units(static_cast<float>(x), static_cast<float>(y));
  }

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

// The one queue of events, for all windows.
class TMessageLoop {
 public:
  static void Add(TFormWindow& window) { Windows().push_back(&window); }
  static void Remove(TFormWindow& window) { std::erase(Windows(), &window); }

  static bool IsTerminated() { return FTerminated; }
  static void Terminate() { FTerminated = true; }
  // A loop begins anew.
  static void Begin() { FTerminated = false; }

  // Paints what is out of date, sleeps until something happens, and acts on it.
  static void Step() {
    Settle();
    SDL_Event event;
    const bool happened = WaitFor(event);
    PassTime();
    if (!happened) return;
    do Act(event);
    while (SDL_PollEvent(&event) != 0);
    ForEach([](TFormWindow& window) { window.FState->Settle(); });
  }

  // Acts on one event without waiting; false where there is none.
  static bool HandleMessage() {
    SDL_Event event;
    PassTime();
    if (Windows().empty() || SDL_PollEvent(&event) == 0) {
      Settle();
      return false;
    }
    Act(event);
    return true;
  }

  static TFormWindow* WindowOf(const fmx::TComponent* form) {
    for (TFormWindow* const each : Windows())
      if (&each->FState->Form == form) return each;
    return nullptr;
  }

  // Shows the menu, and clicks what is chosen.
  static void Popup(TFormWindow& window, fmx::TPopupMenu& menu, fmx::TPointF place) {
    fmx::TForm& form = window.FState->Form;
    if (form.MenuPanel().IsOpen()) return;
    form.OpenMenu(menu, form.ScreenToClient(place));
    while (form.MenuPanel().IsOpen() && window.IsOpen() && !IsTerminated()) Step();
    form.MenuPanel().Close();
    form.Invalidate();
    if (fmx::TMenuItem* const chosen = form.MenuPanel().TakeChosen()) chosen->Click();
  }

  static fmx::TPointF MousePosition() {
    int x = 0;
    int y = 0;
    if (Windows().empty()) return {};
    SDL_GetGlobalMouseState(&x, &y);
    return Windows().front()->FState->Units(static_cast<float>(x), static_cast<float>(y));
  }

 private:
  static std::vector<TFormWindow*>& Windows() {
    static std::vector<TFormWindow*> windows;
    return windows;
  }
  // Windows may come and go meanwhile.
  template <typename TDo>
  static void ForEach(TDo act) {
    for (TFormWindow* const each : std::vector(Windows()))
      if (std::find(Windows().begin(), Windows().end(), each) != Windows().end()) act(*each);
  }

  static void Settle() {
    ForEach([](TFormWindow& window) {
      window.FState->Settle();
      window.FState->Paint();
      if (window.OnSettled) window.OnSettled();
    });
  }

  static bool WaitFor(SDL_Event& event) {
    int wait = fmx::TTimer::NextIn();
    ForEach([&wait](TFormWindow& window) {
      if (window.FState->Keyboard.IsComposing() && (wait < 0 || wait > ComposingWait)) wait = ComposingWait;
      // What a paint itself made out of date, or could not be painted, has time until the next picture.
      if (window.FState->Form.IsInvalid() && (wait < 0 || wait > PictureWait)) wait = PictureWait;
    });
    return wait < 0 ? SDL_WaitEvent(&event) != 0 : SDL_WaitEventTimeout(&event, wait) != 0;
  }

  static void PassTime() {
    constexpr std::uint64_t longest = 60'000;  // a process that was asleep does not blink for all that time
    const std::uint64_t now = SDL_GetTicks64();
    const std::uint64_t passed = std::min(now - std::exchange(FNow, now), longest);
    if (passed > 0) fmx::TTimer::Advance(static_cast<std::int32_t>(passed));
  }

  static void Act(const SDL_Event& event) {
    if (event.type == SDL_QUIT) Terminate();
    ForEach([&event](TFormWindow& window) { window.FState->Act(event); });
    if (event.type == SDL_TEXTEDITING_EXT) SDL_free(event.editExt.text);
  }

  static inline bool FTerminated = false;
  static inline std::uint64_t FNow = 0;
};

// --- Events ---

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
        Keyboard.Text(rtl::FromUtf8(event.text.text), ModifiersOf(static_cast<std::uint16_t>(SDL_GetModState())));
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
  const fmx::TMouseEvent told{ButtonOf(event.button), HeldNow(), Pointer, event.clicks == 2};
  if (event.type == SDL_MOUSEBUTTONUP) return Form.MouseUp(told);
  EndComposition();
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
  Touch.Down(place);
}

// --- Looks ---

void TFormWindow::TState::Settle() {
  Keyboard.Settle();
  UpdateCursor();
  UpdateTextInput();
}

void TFormWindow::TState::Paint() {
  if (!Form.IsInvalid() || !Canvas->BeginScene()) return;
  Form.Paint(*Canvas);
  Canvas->EndScene();
}

void TFormWindow::TState::UpdateCursor() {
  const fmx::TCursor wanted = Form.CursorAt(Pointer);
  if (wanted == Cursor) return;
  Cursor = wanted;
  auto& shape = Cursors[ShapeOf(wanted)];
  if (shape == nullptr) shape.reset(SDL_CreateSystemCursor(ShapeOf(wanted)));
  if (shape != nullptr) SDL_SetCursor(shape.get());
}

void TFormWindow::TState::UpdateTextInput() {
  fmx::ITextInput* const input = Form.MenuPanel().IsOpen() ? nullptr : fmx::FocusedTextInput(Form);
  if ((input != nullptr) != (SDL_IsTextInputActive() == SDL_TRUE))
    input != nullptr ? SDL_StartTextInput() : SDL_StopTextInput();
  if (input == nullptr) return;
  const fmx::TPointF place = input->GetTargetClausePointF();
  const auto held = [this](float v) { return static_cast<int>(std::clamp(v * Scale, 0.0F, 1e6F)); };
  const SDL_Rect rect{held(place.X), held(place.Y), 1, 1};
  if (SDL_RectEquals(&rect, &InputPlace) == SDL_TRUE) return;
  InputPlace = rect;
  SDL_SetTextInputRect(&rect);
}

// --- The window ---

TFormWindow::TFormWindow(fmx::TForm& form, float scale) {
  // Fingers are told apart from the mouse, and long compositions come whole.
  SDL_SetHint(SDL_HINT_TOUCH_MOUSE_EVENTS, "0");
  SDL_SetHint(SDL_HINT_IME_SUPPORT_EXTENDED_TEXT, "1");
  SDL_SetHint(SDL_HINT_IME_SHOW_UI, "1");
  FState = std::make_unique<TState>(form, scale);
  TMessageLoop::Add(*this);
}

TFormWindow::~TFormWindow() {
  TMessageLoop::Remove(*this);
}

bool TFormWindow::IsOpen() const {
  return FState->IsOpen;
}

void TFormWindow::Close() {
  FState->IsOpen = false;
}

void TFormWindow::Run() {
  TMessageLoop::Begin();
  while (IsOpen() && !TMessageLoop::IsTerminated()) TMessageLoop::Step();
}

std::string TFormWindow::DriverName() const {
  return FState->Window.DriverName();
}

// --- Services ---

namespace {

class TApplicationService : public fmx::IApplicationService {
 public:
  bool HandleMessage() override { return TMessageLoop::HandleMessage(); }
  void Terminate() override { TMessageLoop::Terminate(); }
};

class TWindowService : public fmx::IWindowService {
 public:
  fmx::TWindowHandle CreateWindow(fmx::IRoot& form) override {
    auto* const shown = dynamic_cast<fmx::TForm*>(&form);
    if (shown == nullptr) throw EWindowError("only a form that shows controls can have a window");
    FWindows.push_back(std::make_unique<TFormWindow>(*shown));
    return reinterpret_cast<fmx::TWindowHandle>(FWindows.back().get());
  }

 private:
  std::vector<std::unique_ptr<TFormWindow>> FWindows;
};

class TMenuService : public fmx::IMenuService {
 public:
  void Popup(fmx::TPopupMenu& menu, std::int32_t x, std::int32_t y) override {
    if (TFormWindow* const window = TMessageLoop::WindowOf(menu.Parent))
      TMessageLoop::Popup(*window, menu, {static_cast<float>(x), static_cast<float>(y)});
  }
};

class TMouseService : public fmx::IMouseService {
 public:
  fmx::TPointF GetMousePos() override { return TMessageLoop::MousePosition(); }
};

}  // namespace

void AddWindowServices() {
  fmx::TPlatformServices& services = *fmx::TPlatformServices::Current();
  services.AddPlatformService(fmx::IApplicationService::Guid, std::make_shared<TApplicationService>());
  services.AddPlatformService(fmx::IWindowService::Guid, std::make_shared<TWindowService>());
  services.AddPlatformService(fmx::IMenuService::Guid, std::make_shared<TMenuService>());
  services.AddPlatformService(fmx::IMouseService::Guid, std::make_shared<TMouseService>());
}

}  // namespace orv::platform
