#include "calendar/Orv.Date.Factory.h"

#include "calendar/Orv.Date.Custom.h"
#include "calendar/Orv.Date.Hijri.h"
#include "calendar/Orv.Date.Jalali.h"
#include "calendar/Orv.Date.Julian.h"
#include "rtl/Convert.h"

namespace orv {
namespace {

enum class TDefaultRule { Always, WhenEmpty };

struct TBuiltIn {
  std::u16string_view Name;
  TOrvCalendarCalcClass Calculator;
  TDefaultRule Default;
};

constexpr TBuiltIn BuiltIns[] = {
    {u"Jalali", CreateCalculator<TOrvJalaliDateCalendarCalc>, TDefaultRule::Always},
    {u"IslamicTabular", CreateCalculator<TOrvHijriLunarDateCalendarCalc>, TDefaultRule::Always},
    {u"Custom", CreateCalculator<TOrvCustomDateCalendarCalc>, TDefaultRule::WhenEmpty},
    {u"Gregorian", CreateCalculator<TOrvJulianDateCalendarCalc>, TDefaultRule::WhenEmpty}};

// Where the name stands; made on first use, so that it is there before any static object asks for it.
UnicodeString& DefaultName() {
  static UnicodeString name;
  return name;
}

void RegisterIn(TOrvCalendarCalcFactory& factory) {
  for (const TBuiltIn& calendar : BuiltIns) {
    factory.ReregisterCalendarCalcSystem(calendar.Name, calendar.Calculator);
    if (calendar.Default == TDefaultRule::Always || DefaultName().empty()) DefaultName() = calendar.Name;
  }
}

}  // namespace

UnicodeString& TOrvCalendarCalcSystems::Default() {
  RegisterBuiltInCalendars();
  return DefaultName();
}

TOrvCalendarCalcFactory& TOrvCalendarCalcFactory::Current() {
  static TOrvCalendarCalcFactory factory = [] {
    TOrvCalendarCalcFactory built;
    RegisterIn(built);
    return built;
  }();
  return factory;
}

void RegisterBuiltInCalendars() {
  TOrvCalendarCalcFactory::Current();
}

void TOrvCalendarCalcFactory::RegisterCalendarCalcSystem(std::u16string_view name, TOrvCalendarCalcClass calculator) {
  if (!FCalendarSystems.emplace(name, calculator).second)
    throw EListError(rtl::Format("A calendar named '%s' is already registered", {name}));
}

void TOrvCalendarCalcFactory::ReregisterCalendarCalcSystem(std::u16string_view name, TOrvCalendarCalcClass calculator) {
  FCalendarSystems.insert_or_assign(UnicodeString(name), calculator);
}

void TOrvCalendarCalcFactory::UnregisterCalendarCalcSystem(std::u16string_view name) {
  const auto found = FCalendarSystems.find(name);
  if (found != FCalendarSystems.end()) FCalendarSystems.erase(found);
}

TOrvCalendarCalcClass TOrvCalendarCalcFactory::GetCalendarCalcSystem(std::u16string_view name) const {
  TOrvCalendarCalcClass calculator = nullptr;
  if (!TryGetCalendarCalcSystem(name, calculator))
    throw EListError(rtl::Format("No calendar named '%s' is registered", {name}));
  return calculator;
}

bool TOrvCalendarCalcFactory::TryGetCalendarCalcSystem(std::u16string_view name,
                                                       TOrvCalendarCalcClass& calculator) const {
  const auto found = FCalendarSystems.find(name);
  if (found == FCalendarSystems.end()) return false;
  calculator = found->second;
  return true;
}

TOrvCalendarCalcClass TOrvCalendarCalcFactory::GetCalendarCalcSystemOrDefault(std::u16string_view name) const {
  TOrvCalendarCalcClass calculator = nullptr;
  return TryGetCalendarCalcSystem(name, calculator) ? calculator : GetCalendarCalcSystem(FDefaultCalendarName);
}

std::unique_ptr<TOrvCalendarCalc> TOrvCalendarCalcFactory::CreateCalendar(std::u16string_view name,
                                                                          std::u16string_view locale) const {
  TOrvCalendarCalcClass calculator = nullptr;
  return TryGetCalendarCalcSystem(name, calculator) ? calculator(locale) : nullptr;
}

void TOrvCalendarCalcFactory::CalendarsList(const std::function<void(const UnicodeString&)>& callback) const {
  for (const auto& [name, calculator] : FCalendarSystems) callback(name);
}

}  // namespace orv
