// Days of the week and the week rules that all calculators share.
//
// The arithmetic here is the definition of the week rules, and it is not the arithmetic of a circle of seven: a step
// over Saturday lands on Undefined first, and only the step after it wraps. Decoding and encoding of weeks rest on
// exactly that. All functions are pure, constexpr, and take any value.
#pragma once

#include <cstdint>

#include "rtl/Assertions.h"
#include "rtl/Sets.h"

namespace orv {

enum class TDayOfWeek : std::uint8_t {
  Sunday = 0,
  Monday = 1,
  Tuesday = 2,
  Wednesday = 3,
  Thursday = 4,
  Friday = 5,
  Saturday = 6,
  Undefined = 7
};

// The number of a day within a week, from 1; 7 is the last one.
using TWeekDay = std::int32_t;

using TDaysSet = rtl::TSet<TDayOfWeek, std::uint8_t>;

// Days of the week as format settings of a platform count them, from Monday.
enum class TCalDayOfWeek : std::uint8_t {
  dowMonday = 0,
  dowTuesday = 1,
  dowWednesday = 2,
  dowThursday = 3,
  dowFriday = 4,
  dowSaturday = 5,
  dowSunday = 6,
  dowLocaleDefault = 7
};

struct TDayOfWeekHelper {
  // 1 for Sunday to 7 for Saturday.
  static constexpr std::uint8_t AsByte(TDayOfWeek day) { return static_cast<std::uint8_t>(Ordinal(day) + 1); }
  static constexpr std::uint16_t AsWord(TDayOfWeek day) { return static_cast<std::uint16_t>(Ordinal(day) + 1); }
  static constexpr std::int32_t AsInteger(TDayOfWeek day) { return Ordinal(day) + 1; }

  // 0 for Sunday to 6 for Saturday.
  static constexpr std::int32_t Ordinal(TDayOfWeek day) { return static_cast<std::int32_t>(day); }

  // The day numbered from 1 for Sunday.
  static constexpr TDayOfWeek From(std::uint8_t number) { return OfByte(number - 1); }

  // The day of a number of days since a Sunday.
  static constexpr TDayOfWeek OfDayNumber(std::int64_t dayNumber) {
    const auto remainder = static_cast<std::int32_t>(dayNumber % 7);
    return OfByte(remainder < 0 ? remainder + 7 : remainder);
  }

  static constexpr TDayOfWeek FromCalDayOfWeek(TCalDayOfWeek day) {
    constexpr std::uint8_t table[] = {1, 2, 3, 4, 5, 6, 0, 7};
    const auto index = static_cast<std::uint8_t>(day);
    return OfByte(index < 8 ? table[index] : 7);
  }

  // A number one above that of the same TCalDayOfWeek, 7 for Sunday and 8 for Undefined.
  static constexpr std::uint8_t ToTCalDayOfWeek(TDayOfWeek day) {
    constexpr std::uint8_t table[] = {7, 1, 2, 3, 4, 5, 6, 8};
    return Ordinal(day) < 8 ? table[Ordinal(day)] : table[7];
  }

  // The nth day of a week that begins on first, without a wrap: in a week from Saturday the second is Undefined.
  static constexpr TDayOfWeek DayOfWeek(TCalDayOfWeek first, TWeekDay n) {
    return OfByte(Ordinal(FromCalDayOfWeek(first)) + n - 1);
  }

  // The days from day on to other, 0 to 6 for real days.
  static constexpr std::int32_t Diff(TDayOfWeek day, TDayOfWeek other) {
    const std::int32_t difference = Ordinal(other) - Ordinal(day);
    return difference < 0 ? difference + 7 : difference;
  }

  // The number, from 1, that counts the days back from the first of the week.
  static constexpr TWeekDay Locale(TDayOfWeek day, TCalDayOfWeek first) {
    return Diff(day, FromCalDayOfWeek(first)) + 1;
  }

  // n days on; n lies below 7 (assertion). The sum 7 stays Undefined: Saturday's next day is Undefined, the one after
  // it Monday.
  static constexpr TDayOfWeek NextDay(TDayOfWeek day, std::uint8_t n) {
    ORV_ASSERT(n < 7, "Assertion failure");
    const std::int32_t sum = Ordinal(day) + n;
    return OfByte(sum >= 8 ? sum - 7 : sum);
  }

  // n days back; n lies below 7 (assertion).
  static constexpr TDayOfWeek PriorDay(TDayOfWeek day, std::uint8_t n) {
    ORV_ASSERT(n < 7, "Assertion failure");
    const auto difference = static_cast<std::uint8_t>(Ordinal(day) - n);  // wraps below Sunday
    return OfByte(difference >= 8 ? difference + 7 : difference);
  }

  // The first and the last three days of a week, by the arithmetic above: in a week from Monday the last three are
  // Friday, Saturday and Undefined.
  static constexpr TDaysSet FirstThreeDays(TCalDayOfWeek first) { return ThreeFrom(FromCalDayOfWeek(first)); }
  static constexpr TDaysSet LastThreeDays(TCalDayOfWeek first) {
    return ThreeFrom(NextDay(FromCalDayOfWeek(first), 4));
  }

  // Whether a set holds a day; a value above Undefined is in no set.
  static constexpr bool InSet(TDayOfWeek day, TDaysSet set) { return Ordinal(day) <= 7 && set.Contains(day); }

 private:
  static constexpr TDayOfWeek OfByte(std::int32_t ordinal) {
    return static_cast<TDayOfWeek>(static_cast<std::uint8_t>(ordinal));
  }

  static constexpr TDaysSet ThreeFrom(TDayOfWeek day) {
    TDaysSet set;
    for (std::uint8_t n = 0; n < 3; ++n) {
      const TDayOfWeek member = NextDay(day, n);
      if (Ordinal(member) <= 7) set.Include(member);
    }
    return set;
  }
};

}  // namespace orv
