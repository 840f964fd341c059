// Days to dates and back, in three calendars, beside ICU, Qt and the date library of Howard Hinnant: 20,000 days in a
// scattered order. Everyone starts from and ends at what is his own natural count of days.
#include <date/date.h>
#include <date/islamic.h>
#include <date/solar_hijri.h>
#include <unicode/calendar.h>
#include <QtCore/QCalendar>
#include <QtCore/QDate>
#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "bench/Rooms.h"
#include "bench/support/Measure.h"
#include "calendar/Date.Islamic.h"
#include "calendar/Date.Jalali.h"
#include "calendar/Date.h"
#include "calendar/Orv.Date.Hijri.h"
#include "calendar/Orv.Date.Jalali.h"
#include "calendar/Orv.Date.Julian.h"
#include "rtl/Gregorian.h"

namespace orv::bench {
namespace {

constexpr std::int32_t JulianDayOfDay0 = 1721425;
constexpr std::int32_t JulianDayOfDateTime0 = 2415019;
constexpr std::int32_t JulianDayOf1970 = 2440588;
constexpr double MillisecondsPerDay = 86400000;

// Three numbers of a date.
struct TYmd {
  std::int32_t Year, Month, Day;
};

// Julian Day Numbers of the years 1000 to 1500 of the Persian calendar, no day twice in a row.
const std::vector<std::int32_t>& Days() {
  static const std::vector<std::int32_t> days = [] {
    std::mt19937 random(20000);
    std::uniform_int_distribution<std::int32_t> day(JalaliJD0(1000) + 1, JalaliJD0(1501));
    std::vector<std::int32_t> result(20000);
    std::generate(result.begin(), result.end(), [&] { return day(random); });
    return result;
  }();
  return days;
}

std::vector<TYmd> DatesOf(std::int32_t kind) {
  std::vector<TYmd> dates;
  for (const std::int32_t day : Days()) {
    const TDayMonthYear date = DayToDMY(day, kind);
    dates.push_back({date.Year, date.Month, date.Day});
  }
  return dates;
}

// Adds up what decode(day) gives for every day.
template <typename F>
void AddToDateRow(const std::string& name, F decode) {
  AddRow(name, static_cast<std::int64_t>(Days().size()), [decode](benchmark::State& state) {
    for (auto iteration : state) {
      std::int32_t sum = 0;
      for (const std::int32_t day : Days()) {
        const TYmd date = decode(day);
        sum += date.Year + date.Month + date.Day;
      }
      benchmark::DoNotOptimize(sum);
    }
  });
}

template <typename F>
void AddToDayRow(const std::string& name, std::int32_t kind, F encode) {
  AddRow(name, static_cast<std::int64_t>(Days().size()), [dates = DatesOf(kind), encode](benchmark::State& state) {
    for (auto iteration : state) {
      double sum = 0;
      for (const TYmd& date : dates) sum += static_cast<double>(encode(date));
      benchmark::DoNotOptimize(sum);
    }
  });
}

// --- Ours: the arithmetic itself, and the same through a calculator on a date-time ---

template <typename TCalendar>
void AddCalculatorRows(const std::string& calendar, std::int32_t kind) {
  const std::shared_ptr<TOrvCalendarCalc> calculator = MakeCalendar<TCalendar>();
  AddToDateRow("to-date-by-calculator/" + calendar + "/orv", [calculator](std::int32_t day) -> TYmd {
    const TDateParts date = calculator->DecodeDate(day - JulianDayOfDateTime0);
    return {date.Year, date.Month, date.Day};
  });
  AddToDayRow("to-day-by-calculator/" + calendar + "/orv", kind, [calculator](const TYmd& date) {
    const auto word = [](std::int32_t value) { return static_cast<std::uint16_t>(value); };
    return *calculator->TryEncodeDate({word(date.Year), word(date.Month), word(date.Day)});
  });
}

void AddOwnRows() {
  AddToDateRow("to-date/jalali/orv", [](std::int32_t day) -> TYmd {
    const jalali::TDate date = jalali::DateOfDay(day);
    return {date.Year, date.Month, date.Day};
  });
  AddToDateRow("to-date/islamic/orv", [](std::int32_t day) -> TYmd {
    const islamic::TDate date = islamic::DateOfDay(day);
    return {date.Year, date.Month, date.Day};
  });
  AddToDateRow("to-date/gregorian/orv", [](std::int32_t day) -> TYmd {
    const rtl::gregorian::TWideDate date = rtl::gregorian::DateOfDay(day - JulianDayOfDay0);
    return {static_cast<std::int32_t>(date.Year), static_cast<std::int32_t>(date.Month),
            static_cast<std::int32_t>(date.Day)};
  });
  AddToDayRow("to-day/jalali/orv", ckJalali,
              [](const TYmd& date) { return jalali::DayOfDate(date.Year, date.Month, date.Day); });
  AddToDayRow("to-day/islamic/orv", ckIslamic,
              [](const TYmd& date) { return islamic::DayOfDate(std::int64_t{date.Year}, date.Month, date.Day); });
  AddToDayRow("to-day/gregorian/orv", ckGregorian, [](const TYmd& date) {
    const auto number = [](std::int32_t value) { return static_cast<std::uint32_t>(value); };
    return rtl::gregorian::DayNumber(number(date.Year), number(date.Month), number(date.Day)) + JulianDayOfDay0;
  });
  AddCalculatorRows<TOrvJalaliDateCalendarCalc>("jalali", ckJalali);
  AddCalculatorRows<TOrvHijriLunarDateCalendarCalc>("islamic", ckIslamic);
  AddCalculatorRows<TOrvJulianDateCalendarCalc>("gregorian", ckGregorian);
}

// --- Peers ---

template <typename TYearMonthDay, typename TDays>
void AddHinnantRows(const std::string& calendar, std::int32_t kind) {
  AddToDateRow("to-date/" + calendar + "/hinnant", [](std::int32_t day) -> TYmd {
    const TYearMonthDay date{TDays(::date::days(day - JulianDayOf1970))};
    return {static_cast<int>(date.year()), static_cast<std::int32_t>(static_cast<unsigned>(date.month())),
            static_cast<std::int32_t>(static_cast<unsigned>(date.day()))};
  });
  AddToDayRow("to-day/" + calendar + "/hinnant", kind, [](const TYmd& date) {
    using TYear = decltype(std::declval<TYearMonthDay>().year());
    using TMonth = decltype(std::declval<TYearMonthDay>().month());
    using TDay = decltype(std::declval<TYearMonthDay>().day());
    const TYearMonthDay ymd(TYear(date.Year), TMonth(static_cast<unsigned>(date.Month)),
                            TDay(static_cast<unsigned>(date.Day)));
    return TDays(ymd).time_since_epoch().count() + JulianDayOf1970;
  });
}

void AddQtRows(const std::string& calendar, std::int32_t kind, QCalendar::System system) {
  AddToDateRow("to-date/" + calendar + "/qt", [peer = QCalendar(system)](std::int32_t day) -> TYmd {
    const QCalendar::YearMonthDay date = peer.partsFromDate(QDate::fromJulianDay(day));
    return {date.year, date.month, date.day};
  });
  AddToDayRow("to-day/" + calendar + "/qt", kind, [peer = QCalendar(system)](const TYmd& date) {
    return peer.dateFromParts(date.Year, date.Month, date.Day).toJulianDay();
  });
}

void AddIcuRows(const std::string& calendar, std::int32_t kind, const char* locale) {
  UErrorCode made = U_ZERO_ERROR;
  const std::shared_ptr<icu::Calendar> peer(
      icu::Calendar::createInstance(*icu::TimeZone::getGMT(), icu::Locale(locale), made));
  AddToDateRow("to-date/" + calendar + "/icu", [peer](std::int32_t day) -> TYmd {
    UErrorCode status = U_ZERO_ERROR;
    peer->setTime((day - JulianDayOf1970) * MillisecondsPerDay, status);
    return {peer->get(UCAL_EXTENDED_YEAR, status), peer->get(UCAL_MONTH, status) + 1, peer->get(UCAL_DATE, status)};
  });
  AddToDayRow("to-day/" + calendar + "/icu", kind, [peer](const TYmd& date) {
    UErrorCode status = U_ZERO_ERROR;
    peer->clear();
    peer->set(date.Year, date.Month - 1, date.Day);
    return peer->getTime(status) / MillisecondsPerDay + JulianDayOf1970;
  });
}

}  // namespace

void RegisterDays() {
  AddOwnRows();
  AddHinnantRows<::solar_hijri::year_month_day, ::solar_hijri::sys_days>("jalali", ckJalali);
  AddHinnantRows<::islamic::year_month_day, ::islamic::sys_days>("islamic", ckIslamic);
  AddHinnantRows<::date::year_month_day, ::date::sys_days>("gregorian", ckGregorian);
  AddQtRows("jalali", ckJalali, QCalendar::System::Jalali);
  AddQtRows("islamic", ckIslamic, QCalendar::System::IslamicCivil);
  AddQtRows("gregorian", ckGregorian, QCalendar::System::Gregorian);
  AddIcuRows("jalali", ckJalali, "fa@calendar=persian");
  AddIcuRows("islamic", ckIslamic, "ar@calendar=islamic-civil");
  AddIcuRows("gregorian", ckGregorian, "en@calendar=gregorian");
}

}  // namespace orv::bench
