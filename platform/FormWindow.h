// A form in a window of the system.
#pragma once

#include <functional>
#include <memory>

#include "fmx/Forms.h"

namespace orv::platform {

// Shows a form, and gives it keys, typed and composed text, the pointer, fingers, the wheel and time. It is painted
// when something has changed, and the process sleeps while nothing happens. Main thread.
class TFormWindow {
 public:
  // Opens it, as large as the form, with the form's caption. The form is borrowed; scale is the device pixels of a
  // logical unit. Raises as TWindow does (platform/Window.h).
  explicit TFormWindow(fmx::TForm& form, float scale = 1);
  ~TFormWindow();
  TFormWindow(const TFormWindow&) = delete;
  TFormWindow& operator=(const TFormWindow&) = delete;

  // False once the person has closed it.
  bool IsOpen() const;
  // Asks it to close.
  void Close();
  // Shows it until it is closed, or the application is asked to end (fmx::IApplicationService).
  void Run();

  std::string DriverName() const;
  // Called when everything that happened has been acted on and painted.
  std::function<void()> OnSettled;

 private:
  friend class TMessageLoop;
  struct TState;
  std::unique_ptr<TState> FState;
};

// The services that come from windows: the application's messages, windows by service, popup menus, the mouse. They ask
// for no display before they are used.
void AddWindowServices();

}  // namespace orv::platform
