// Loading and unloading: the one ordered table of what every unit of the system does at start-up.
//
// The shared library loads when it is loaded itself. A program that links the libraries statically calls Install once,
// after its platform has set itself up and before it makes forms, canvases and layouts:
//
//   int main() {
//     orv::platform::StartPlatform();  // or a host's own set-up
//     orv::Install();
//     ...
//
// From then on the framework shows right-to-left text, and FormatSettings hold Persian names and formats. Where the
// platform, or its canvas service, comes later, the rest is loaded, and the framework keeps its own text for good.
//
// Nothing that was registered with the framework is taken back at unloading: generated classes stay in force to the end
// of the process, so a process must not unload the library and go on using the framework. Main thread.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace orv {

// Loads every unit in the order of the table. A unit that is loaded already only counts. What a unit raises, an
// rtl::Exception for a host of another make than it claims, ends the loading: units before it stay loaded, those behind
// it are not.
void Install();

// Unloads in reverse order: a unit stops when it was unloaded as often as it was loaded. More often does nothing.
void Uninstall();

// One unit of the table, for those who look at what is loaded.
struct TUnitState {
  std::string_view Name;
  std::int32_t LoadCount = 0;
  bool HasStep = false;  // false for a unit that only counts
};

// The table, in the order of loading.
std::span<const TUnitState> Units();

}  // namespace orv
