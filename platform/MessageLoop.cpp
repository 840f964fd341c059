#include "platform/MessageLoop.h"

#include <SDL.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "fmx/Timer.h"
#include "platform/FormWindowState.h"

namespace orv::platform {
namespace {

// Milliseconds. An input method that composes may answer without an event that ends a sleep.
constexpr int ComposingWait = 30;
// What a paint itself made out of date, or could not be painted, waits that long for the next picture.
constexpr int PictureWait = 15;
// A process that was asleep does not blink for all that time.
constexpr std::uint64_t LongestPass = 60'000;

std::vector<TFormWindow*>& Windows() {
  static std::vector<TFormWindow*> windows;
  return windows;
}

}  // namespace

void TMessageLoop::Add(TFormWindow& window) {
  Windows().push_back(&window);
}

void TMessageLoop::Remove(TFormWindow& window) {
  std::erase(Windows(), &window);
}

// Windows may come and go meanwhile.
template <typename TDo>
void TMessageLoop::ForEach(TDo act) {
  for (TFormWindow* const each : std::vector(Windows()))
    if (std::find(Windows().begin(), Windows().end(), each) != Windows().end()) act(*each);
}

void TMessageLoop::Step() {
  Settle();
  SDL_Event event;
  const bool happened = WaitFor(event);
  PassTime();
  if (!happened) return;
  do Act(event);
  while (SDL_PollEvent(&event) != 0);
  ForEach([](TFormWindow& window) { window.FState->Settle(); });
}

bool TMessageLoop::HandleMessage() {
  SDL_Event event;
  PassTime();
  if (Windows().empty() || SDL_PollEvent(&event) == 0) {
    Settle();
    return false;
  }
  Act(event);
  return true;
}

TFormWindow* TMessageLoop::WindowOf(const fmx::TComponent* form) {
  for (TFormWindow* const each : Windows())
    if (&each->FState->Form == form) return each;
  return nullptr;
}

void TMessageLoop::Popup(TFormWindow& window, fmx::TPopupMenu& menu, fmx::TPointF place) {
  fmx::TForm& form = window.FState->Form;
  if (form.MenuPanel().IsOpen()) return;
  form.OpenMenu(menu, form.ScreenToClient(place));
  while (form.MenuPanel().IsOpen() && window.IsOpen() && !IsTerminated()) Step();
  form.MenuPanel().Close();
  form.Invalidate();
  if (fmx::TMenuItem* const chosen = form.MenuPanel().TakeChosen()) chosen->Click();
}

fmx::TPointF TMessageLoop::MousePosition() {
  if (Windows().empty()) return {};
  int x = 0;
  int y = 0;
  SDL_GetGlobalMouseState(&x, &y);
  return Windows().front()->FState->Units(static_cast<float>(x), static_cast<float>(y));
}

void TMessageLoop::Settle() {
  ForEach([](TFormWindow& window) {
    window.FState->Settle();
    window.FState->Paint();
    if (window.OnSettled) window.OnSettled();
  });
}

bool TMessageLoop::WaitFor(SDL_Event& event) {
  int wait = fmx::TTimer::NextIn();
  const auto within = [&wait](int longest) { wait = wait < 0 ? longest : std::min(wait, longest); };
  ForEach([&within](TFormWindow& window) {
    if (window.FState->Keyboard.IsComposing()) within(ComposingWait);
    if (window.FState->Form.IsInvalid()) within(PictureWait);
  });
  return wait < 0 ? SDL_WaitEvent(&event) != 0 : SDL_WaitEventTimeout(&event, wait) != 0;
}

void TMessageLoop::PassTime() {
  const std::uint64_t now = SDL_GetTicks64();
  const std::uint64_t passed = std::min(now - std::exchange(FNow, now), LongestPass);
  if (passed > 0) fmx::TTimer::Advance(static_cast<std::int32_t>(passed));
}

void TMessageLoop::Act(const SDL_Event& event) {
  if (event.type == SDL_QUIT) Terminate();
  ForEach([&event](TFormWindow& window) { window.FState->Act(event); });
  if (event.type == SDL_TEXTEDITING_EXT) SDL_free(event.editExt.text);
}

}  // namespace orv::platform
