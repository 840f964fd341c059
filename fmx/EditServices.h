// Small platform services that editing controls ask for. A platform implements those it has and adds them to
// TPlatformServices; every one may be absent. Main thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fmx/Geometry.h"
#include "fmx/PlatformServices.h"
#include "rtl/Sets.h"

namespace fmx {

class IMouseService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{011F88DC-9C03-4DA2-8A33-FC258865E167}");
  // The pointer, in logical units of the screen.
  virtual TPointF GetMousePos() = 0;
};

class IFMXSpellCheckerService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{37F68C59-019B-491D-84A5-93BCCEB5B76F}");
  // What might have been meant by the word, the likeliest first. Empty means that the word is right, or that nothing
  // is known against it.
  virtual std::vector<std::u16string> CheckSpelling(std::u16string_view word) = 0;
};

enum class TDeviceFeature : std::uint8_t { TouchScreen = 0 };
using TDeviceFeatures = rtl::TSet<TDeviceFeature, std::uint8_t>;

class IDeviceService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{A4C99A08-3C18-47D5-B640-A069A6F4C56D}");
  virtual TDeviceFeatures GetFeatures() = 0;
};

// How controls behave where platforms differ.
class IStyleHintService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{BAEE230A-937A-4D30-9C12-8A8C0AECB41D}");
  // The hint of that name for controls of a class; nothing where the platform does not care.
  virtual std::optional<bool> GetHint(std::string_view name, std::string_view className) = 0;
};

// The hint that tells whether a click on a button within an edit gives the edit the focus.
inline constexpr std::string_view NeedSetFocusAfterButtonClickHint = "NeedSetFocusAfterButtonClick";

// What the services say, or what holds without them: nothing, no suggestions, false, true.
std::optional<TPointF> MousePosition();
std::vector<std::u16string> SpellingSuggestions(std::u16string_view word);
bool HasTouchScreen();
bool NeedSetFocusAfterButtonClick(std::string_view className);

}  // namespace fmx
