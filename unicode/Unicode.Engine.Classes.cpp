#include "unicode/Unicode.Engine.Classes.h"

#include "rtl/UnicodeTables.h"

namespace orv::engine {
namespace {

constexpr bool IsStrongRTL(char16_t c) {
  return IsIn(c, 0x0591, 0x065F) || IsIn(c, 0x066E, 0x06EF) || IsIn(c, 0x06FA, 0x06FF) || c == 0x200F ||
         IsIn(c, 0x2035, 0x2037) || c == 0x2E2E;
}

constexpr bool IsStrongLTR(char16_t c, bool letterOrDigit) {
  if (c == 0x200E || c == u'?' || c == u';' || c == u',' || IsIn(c, 0x2032, 0x2034)) return true;
  return letterOrDigit && !IsStrongRTL(c) && !IsIn(c, 0xFB1D, 0xFEFE);
}

constexpr std::array<std::uint8_t, 0x10000> MakeUnitClasses() {
  std::array<std::uint8_t, 0x10000> classes{};
  for (std::uint32_t unit = 0; unit < classes.size(); ++unit) {
    const auto c = static_cast<char16_t>(unit);
    const TCategory category = rtl::CategoryOf(unit);
    const bool letterOrDigit = TUnitClass(category, false, false, false).In(LettersAndDigits);
    classes[unit] =
        TUnitClass(category, IsStrongRTL(c), IsStrongLTR(c, letterOrDigit), rtl::IsWhiteSpaceUnit(c)).Bits();
  }
  return classes;
}

}  // namespace

constinit const std::array<std::uint8_t, 0x10000> UnitClasses = MakeUnitClasses();

}  // namespace orv::engine
