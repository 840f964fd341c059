// What the calendars do at the start of a program.
#pragma once

namespace orv {

// Registers the built-in calendars, and puts the Persian names and formats into the process-wide settings (InitLocale).
// An application calls this once, before it reads or changes those settings; later calls do nothing, so what it has
// changed since stays. The calculators work without it; the classic units then use the settings as they are, English at
// first. Main thread.
void StartCalendars();

}  // namespace orv
