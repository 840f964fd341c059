#include "fmx/Timer.h"

#include <algorithm>
#include <vector>

namespace fmx {
namespace {

// Where timers go while others fire, their place is left empty.
std::vector<TTimer*>& Timers() {
  static std::vector<TTimer*> timers;
  return timers;
}
int Advancing = 0;

}  // namespace

TTimer::TTimer() {
  Timers().push_back(this);
}

TTimer::~TTimer() {
  auto& timers = Timers();
  std::replace(timers.begin(), timers.end(), this, static_cast<TTimer*>(nullptr));
  if (Advancing == 0) std::erase(timers, nullptr);
}

void TTimer::SetInterval(std::int32_t milliseconds) {
  FInterval = milliseconds;
  FElapsed = 0;
}

void TTimer::SetEnabled(bool enabled) {
  if (enabled && !FEnabled) FElapsed = 0;
  FEnabled = enabled;
}

void TTimer::Advance(std::int32_t milliseconds) {
  auto& timers = Timers();
  ++Advancing;
  // What is made meanwhile begins with the next call.
  for (std::size_t i = 0, count = timers.size(); i < count; ++i) {
    std::int64_t left = milliseconds;
    while (left > 0 && timers[i] != nullptr && timers[i]->Runs()) {
      const auto step = std::min<std::int64_t>(left, timers[i]->FInterval - timers[i]->FElapsed);
      left -= step;
      timers[i]->Pass(static_cast<std::int32_t>(step));
    }
  }
  if (--Advancing == 0) std::erase(timers, nullptr);
}

void TTimer::Pass(std::int32_t milliseconds) {
  FElapsed += milliseconds;
  if (FElapsed < FInterval) return;
  FElapsed = 0;
  if (const auto event = OnTimer) event();
}

std::int32_t TTimer::NextIn() {
  std::int32_t next = -1;
  for (const TTimer* timer : Timers())
    if (timer != nullptr && timer->Runs() && (next < 0 || timer->FInterval - timer->FElapsed < next))
      next = timer->FInterval - timer->FElapsed;
  return next;
}

}  // namespace fmx
