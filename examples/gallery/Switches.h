// What can be switched in the gallery. A switch changes a setting of the process; the next layout shows it.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace gallery {

struct TSwitch {
  std::u16string Caption;
  bool IsChoice = false;  // one of several, of which one holds
  std::function<bool()> IsOn;
  std::function<void()> Press;
};

struct TGroup {
  std::u16string Title;
  std::vector<TSwitch> Switches;
};

// The groups from top to bottom. The flag, whether the page is dark, is borrowed.
std::vector<TGroup> MakeSwitches(bool& isDark);

// "TrimLine" as "Trim line".
std::u16string Spoken(std::string_view name);

}  // namespace gallery
