#include "platform/FormWindow.h"

#include <algorithm>
#include <utility>

#include "fmx/CanvasManager.h"
#include "fmx/Style.h"
#include "platform/FormWindowState.h"
#include "platform/MessageLoop.h"
#include "rtl/Utf8.h"

namespace orv::platform {
namespace {

int Pixels(float units, float scale) {
  return std::max(static_cast<int>(std::lround(units * scale)), 1);
}

SDL_SystemCursor ShapeOf(fmx::TCursor cursor) {
  if (cursor == fmx::TCursor::IBeam) return SDL_SYSTEM_CURSOR_IBEAM;
  return cursor == fmx::TCursor::HandPoint ? SDL_SYSTEM_CURSOR_HAND : SDL_SYSTEM_CURSOR_ARROW;
}

}  // namespace

TFormWindow::TState::TState(fmx::TForm& form, float scale)
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

TFormWindow::TState::~TState() {
  Form.SetCanvas(nullptr);
  Form.SetWindow(nullptr);
}

fmx::TPointF TFormWindow::TState::ScreenPosition() const {
  int x = 0;
  int y = 0;
  SDL_GetWindowPosition(Window.Handle(), &x, &y);
  return Units(static_cast<float>(x), static_cast<float>(y));
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
  fmx::TSelectionPoint::SetFingersSelect(false);
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

}  // namespace orv::platform
