// What can be switched in the gallery. A switch changes a setting of the process; the next layout shows it.
#pragma once

#include <cstdint>
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

enum class TPageName : std::uint8_t { Text, Edit };

// What is shown, and how.
struct TLook {
  TPageName Page = TPageName::Text;
  bool IsDark = false;
};

// The groups of a page from top to bottom. The look is borrowed.
std::vector<TGroup> MakeSwitches(TLook& look);

// "TrimLine" as "Trim line".
std::u16string Spoken(std::string_view name);

}  // namespace gallery
