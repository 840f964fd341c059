#include "calendar/StartUp.h"

#include "calendar/Orv.Date.Factory.h"
#include "calendar/classic/InitLocale.h"

namespace orv {

void StartCalendars() {
  static bool started = false;
  if (started) return;
  started = true;
  RegisterBuiltInCalendars();
  InitLocale();
}

}  // namespace orv
