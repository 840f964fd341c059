// The one queue of events, for all windows of forms; for this platform's own files. Main thread.
#pragma once

#include "fmx/Menu.h"
#include "platform/FormWindow.h"

union SDL_Event;

namespace orv::platform {

class TMessageLoop {
 public:
  static void Add(TFormWindow& window);
  static void Remove(TFormWindow& window);

  // Whether the loop was asked to end since it began.
  static bool IsTerminated() { return FTerminated; }
  static void Terminate() { FTerminated = true; }
  static void Begin() { FTerminated = false; }

  // Paints what is out of date, sleeps until something happens, and acts on it.
  static void Step();
  // Acts on one event without waiting; false where there is none.
  static bool HandleMessage();

  // The window of a form; null where it has none.
  static TFormWindow* WindowOf(const fmx::TComponent* form);
  // Shows the menu at a place of the screen until it is closed, and clicks what is chosen.
  static void Popup(TFormWindow& window, fmx::TPopupMenu& menu, fmx::TPointF place);
  // On the screen; the origin without a window.
  static fmx::TPointF MousePosition();

 private:
  template <typename TDo>
  static void ForEach(TDo act);
  static void Settle();
  static bool WaitFor(SDL_Event& event);
  static void PassTime();
  static void Act(const SDL_Event& event);

  static inline bool FTerminated = false;
  static inline std::uint64_t FNow = 0;
};

}  // namespace orv::platform
