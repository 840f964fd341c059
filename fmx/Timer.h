// Events that come again and again.
#pragma once

#include <cstdint>
#include <functional>

namespace fmx {

// Fires each time its interval has passed. Time is what the platform says it is: its message loop, or a test, calls
// Advance. Main thread.
class TTimer {
 public:
  TTimer();
  ~TTimer();
  TTimer(const TTimer&) = delete;
  TTimer& operator=(const TTimer&) = delete;

  // Milliseconds, 1000 at first; 0 and less never fire. Begins the interval anew.
  std::int32_t Interval() const { return FInterval; }
  void SetInterval(std::int32_t milliseconds);
  // Off at first. Switching it on begins the interval anew.
  bool Enabled() const { return FEnabled; }
  void SetEnabled(bool enabled);

  std::function<void()> OnTimer;

  // That much time has passed: every timer that is on fires as often as its interval fits in. What fires may make, free
  // and switch timers.
  static void Advance(std::int32_t milliseconds);
  // How long until the next one fires; -1 where none is on.
  static std::int32_t NextIn();

 private:
  void Pass(std::int32_t milliseconds);
  bool Runs() const { return FEnabled && FInterval > 0; }

  std::int32_t FInterval = 1000;
  std::int32_t FElapsed = 0;
  bool FEnabled = false;
};

}  // namespace fmx
