#include "calendar/Orv.Date.Custom.h"

#include "calendar/locale/OrvConsts.ResourceStrings.h"
#include "rtl/Convert.h"
#include "rtl/Utf8.h"

namespace orv {
namespace {

// The handler of an event that a calendar cannot do without.
template <typename TEvent>
const TEvent& Required(const TEvent& event, const char* name) {
  if (!event) throw ECustomCalendarNoEventError(rtl::Format(rtl::ToUtf8(SEventNotSet.Text), {name}));
  return event;
}

constexpr std::uint16_t LastWord = 65535;

}  // namespace

std::uint16_t TOrvCustomDateCalendarCalc::DaysInAMonth(std::uint16_t year, std::uint16_t month) const {
  return Required(OnDaysInAMonth, "OnDaysInAMonth")(year, month);
}

std::uint16_t TOrvCustomDateCalendarCalc::DaysInAYear(std::uint16_t year) const {
  return Required(OnDaysInAYear, "OnDaysInAYear")(year);
}

void TOrvCustomDateCalendarCalc::DecodeDateDay(TDateTime value, TYearDay& date) const {
  date = Required(OnDecodeDateDay, "OnDecodeDateDay")(value);
}

bool TOrvCustomDateCalendarCalc::IsLeapYear(std::uint16_t year) const {
  return Required(OnLeapYearQuery, "OnLeapYearQuery")(year);
}

bool TOrvCustomDateCalendarCalc::TryEncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear, TDateTime& value) const {
  const auto found = Required(OnTryEncodeDateDay, "OnTryEncodeDateDay")(year, dayOfYear);
  if (found) value = *found;
  return found.has_value();
}

void TOrvCustomDateCalendarCalc::DecodeDate(TDateTime value, TDateParts& date) const {
  if (OnDecodeDate) {
    date = OnDecodeDate(value);
    return;
  }
  const TYearDay yearDay = TOrvCalendarCalc::DecodeDateDay(value);
  std::uint16_t day = yearDay.DayOfYear;
  std::uint16_t month = 1;
  for (std::uint16_t length = DaysInAMonth(yearDay.Year, month); day > length;
       length = DaysInAMonth(yearDay.Year, month)) {
    if (month == LastWord)
      ConvertErrorFmt("The months of year %d do not add up to its day %d", {yearDay.Year, yearDay.DayOfYear});
    ++month;
    day = static_cast<std::uint16_t>(day - length);
  }
  date = {yearDay.Year, month, day};
}

rtl::TFormatSettings TOrvCustomDateCalendarCalc::DoGetFormatSettings() {
  return OnGetFormatSettings ? OnGetFormatSettings(*this) : TOrvCalendarCalc::DoGetFormatSettings();
}

void TOrvCustomDateCalendarCalc::Initialize() {
  TOrvCalendarCalc::Initialize();
  StoreFormatSettings();
  if (OnInitialize) OnInitialize(*this, TDateCalendarCalcSettings::Create(*this));
}

}  // namespace orv
