#include "rtl/Clock.h"

#include <chrono>
#include <ctime>

namespace rtl {
namespace {

TClock& Current() {
  static TClock clock;
  return clock;
}

TDateTime SystemTime() {
  using namespace std::chrono;
  const auto moment = system_clock::now();
  const auto milliseconds = duration_cast<std::chrono::milliseconds>(moment.time_since_epoch()).count() % 1000;
  const std::time_t seconds = system_clock::to_time_t(moment);
  const std::tm* local = std::localtime(&seconds);
  if (local == nullptr) return 0;
  const auto word = [](auto value) { return static_cast<std::uint16_t>(value); };
  // A leap second would be second 60, which no time of day has.
  const TTimeParts time = {word(local->tm_hour), word(local->tm_min), word(local->tm_sec > 59 ? 59 : local->tm_sec),
                           word(milliseconds < 0 ? 0 : milliseconds)};
  return TryEncodeDateTime({{word(local->tm_year + 1900), word(local->tm_mon + 1), word(local->tm_mday)}, time})
      .value_or(0);
}

}  // namespace

TClock SetClock(TClock clock) {
  TClock former = std::move(Current());
  Current() = std::move(clock);
  return former;
}

TDateTime Now() {
  return Current() ? Current()() : SystemTime();
}

TDateTime Today() {
  return StartOfTheDay(Now());
}

}  // namespace rtl
