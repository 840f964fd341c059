// Calendars by name: "Jalali", "IslamicTabular", "Custom", "Gregorian", and what an application adds. Names match
// exactly. Main thread.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string_view>

#include "calendar/Orv.Date.h"
#include "rtl/Exceptions.h"

namespace orv {

// A name that is already taken, or one that is not there.
class EListError : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EListError"; }
};

// A calculator class: makes calculators of a locale. Equal for equal classes.
using TOrvCalendarCalcClass = std::unique_ptr<TOrvCalendarCalc> (*)(std::u16string_view locale);

template <typename TCalendar>
std::unique_ptr<TOrvCalendarCalc> CreateCalculator(std::u16string_view locale) {
  return MakeCalendar<TCalendar>(locale);
}

// The name of the default calendar, to read and to set: at first "IslamicTabular", the last of the built-in calendars
// that does not wait for the place to be free. The first call registers those.
class TOrvCalendarCalcSystems {
 public:
  static UnicodeString& Default();
  TOrvCalendarCalcSystems() = delete;
};

class TOrvCalendarCalcFactory {
 public:
  // The factory of the process, made on first use with the built-in calendars registered.
  static TOrvCalendarCalcFactory& Current();

  void RegisterCalendarCalcSystem(std::u16string_view name, TOrvCalendarCalcClass calculator);  // EListError: taken
  void ReregisterCalendarCalcSystem(std::u16string_view name, TOrvCalendarCalcClass calculator);
  void UnregisterCalendarCalcSystem(std::u16string_view name);
  TOrvCalendarCalcClass GetCalendarCalcSystem(std::u16string_view name) const;  // EListError: not there
  bool TryGetCalendarCalcSystem(std::u16string_view name, TOrvCalendarCalcClass& calculator) const;
  // The class of the name, else the one registered under the default name, which is empty unless a subclass sets it;
  // EListError where that is not there either.
  TOrvCalendarCalcClass GetCalendarCalcSystemOrDefault(std::u16string_view name) const;
  // A calculator of the calendar, or null where the name is unknown.
  std::unique_ptr<TOrvCalendarCalc> CreateCalendar(std::u16string_view name, std::u16string_view locale = {}) const;
  // Calls back with every name, in the order of their code units.
  void CalendarsList(const std::function<void(const UnicodeString& name)>& callback) const;

 protected:
  UnicodeString FDefaultCalendarName;

 private:
  std::map<UnicodeString, TOrvCalendarCalcClass, std::less<>> FCalendarSystems;
};

// The start-up steps of the built-in calendars, in their order: registration, and the default name. Current() takes
// them when it makes the factory; calling this does no more than have it made.
void RegisterBuiltInCalendars();

}  // namespace orv
