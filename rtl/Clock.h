// The one clock of the library: everything that depends on the present moment asks here.
#pragma once

#include <functional>
#include <utility>

#include "rtl/DateTime.h"

namespace rtl {

// Answers the present local date and time.
using TClock = std::function<TDateTime()>;

// Puts a clock in place and answers the former one; an empty clock is the computer's own, in local time. Main thread.
TClock SetClock(TClock clock);

TDateTime Now();
TDateTime Today();  // the midnight that began the day of Now

// Holds the clock at one moment while it lives.
class TClockScope {
 public:
  explicit TClockScope(TDateTime moment) : FFormer(SetClock([moment] { return moment; })) {}
  ~TClockScope() { SetClock(std::move(FFormer)); }
  TClockScope(const TClockScope&) = delete;
  TClockScope& operator=(const TClockScope&) = delete;

 private:
  TClock FFormer;
};

}  // namespace rtl
