// The start of a process: these tests have a program of their own, so that nothing ran before them.
#include "calendar/StartUp.h"

#include <gtest/gtest.h>

#include "calendar/Orv.Date.Factory.h"
#include "calendar/classic/InitLocale.h"
#include "calendar/classic/PDateTime.h"

namespace orv {
namespace {

// Read before main, and so before any other use of the library.
const UnicodeString NameReadFirst = TOrvCalendarCalcSystems::Default();

TEST(StartUp, TheDefaultCalendarIsIslamicTabularAtItsFirstRead) {
  EXPECT_EQ(NameReadFirst, u"IslamicTabular");
}

TEST(StartUp, TheDefaultCalendarIsWhatTheApplicationSets) {
  TOrvCalendarCalcSystems::Default() = u"Jalali";
  StartCalendars();
  EXPECT_EQ(TOrvCalendarCalcSystems::Default(), u"Jalali");
  EXPECT_NE(TOrvCalendarCalcFactory::Current().CreateCalendar(TOrvCalendarCalcSystems::Default()), nullptr);
}

TEST(StartUp, StartingPutsThePersianSettingsInForceOnce) {
  constexpr TDateTime newYear = 45737;
  StartCalendars();
  EXPECT_EQ(PDateTime::FormatDateTime(u"dddd d mmmm yyyy", newYear), u"جمعه 1 فروردین 1404");
  EXPECT_EQ(rtl::FormatSettings().ShortDateFormat, u"yy/m/d");
  EXPECT_EQ(PersianFormatSettingsFromSunday().LongDayNames[7], u"شنبه");
  rtl::FormatSettings().ShortDateFormat = u"yyyy/mm/dd";
  StartCalendars();
  EXPECT_EQ(PDateTime::DateToStr(newYear), u"1404/01/01");
}

}  // namespace
}  // namespace orv
