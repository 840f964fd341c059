#include "calendar/Orv.Date.Factory.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/calendar/support/Calendars.h"

namespace orv {
namespace {

TOrvCalendarCalcFactory& Factory() {
  return TOrvCalendarCalcFactory::Current();
}

TEST(Factory, KnowsTheFourCalendars) {
  std::vector<UnicodeString> names;
  Factory().CalendarsList([&names](const UnicodeString& name) { names.push_back(name); });
  EXPECT_EQ(names, (std::vector<UnicodeString>{u"Custom", u"Gregorian", u"IslamicTabular", u"Jalali"}));
  EXPECT_EQ(Factory().CreateCalendar(u"Jalali")->EncodeDate({1404, 1, 1}), testing::NewYear1404);
  EXPECT_EQ(Factory().CreateCalendar(u"Gregorian")->EncodeDate({2025, 3, 21}), testing::NewYear1404);
  EXPECT_EQ(Factory().CreateCalendar(u"IslamicTabular")->EncodeDate({1446, 9, 21}), testing::NewYear1404);
  EXPECT_THROW(Factory().CreateCalendar(u"Custom"), ECustomCalendarNoEventError);
}

TEST(Factory, HandsTheLocaleOn) {
  EXPECT_EQ(Factory().CreateCalendar(u"Gregorian", u"he")->FormatSettings.LongMonthNames[1], u"ינואר");
}

TEST(Factory, CreateCalendarOfAnUnknownNameGivesNull) {
  EXPECT_EQ(Factory().CreateCalendar(u"Julian"), nullptr);
  EXPECT_EQ(Factory().CreateCalendar(u"jalali"), nullptr) << "names match in their case";
  EXPECT_EQ(Factory().CreateCalendar(u""), nullptr);
}

TEST(Factory, AnUnknownNameWithoutADefaultRaises) {
  EXPECT_THROW(Factory().GetCalendarCalcSystemOrDefault(u"Julian"), EListError);
  EXPECT_THROW(Factory().GetCalendarCalcSystem(u"Julian"), EListError);
  TOrvCalendarCalcClass calculator = nullptr;
  EXPECT_FALSE(Factory().TryGetCalendarCalcSystem(u"Julian", calculator));
}

TEST(Factory, AClassRegisteredUnderTheEmptyNameIsTheDefault) {
  Factory().RegisterCalendarCalcSystem(u"", CreateCalculator<TOrvHijriLunarDateCalendarCalc>);
  EXPECT_EQ(Factory().GetCalendarCalcSystemOrDefault(u"Julian"), CreateCalculator<TOrvHijriLunarDateCalendarCalc>);
  EXPECT_EQ(Factory().GetCalendarCalcSystemOrDefault(u"Jalali"), CreateCalculator<TOrvJalaliDateCalendarCalc>);
  Factory().UnregisterCalendarCalcSystem(u"");
  EXPECT_THROW(Factory().GetCalendarCalcSystemOrDefault(u"Julian"), EListError);
}

TEST(Factory, ANameIsRegisteredOnceButMayBeReplaced) {
  Factory().RegisterCalendarCalcSystem(u"own", CreateCalculator<TOrvHijriLunarDateCalendarCalc>);
  EXPECT_THROW(Factory().RegisterCalendarCalcSystem(u"own", CreateCalculator<TOrvJalaliDateCalendarCalc>), EListError);
  Factory().ReregisterCalendarCalcSystem(u"own", CreateCalculator<TOrvJalaliDateCalendarCalc>);
  EXPECT_EQ(Factory().GetCalendarCalcSystem(u"own"), CreateCalculator<TOrvJalaliDateCalendarCalc>);
  Factory().UnregisterCalendarCalcSystem(u"own");
  Factory().UnregisterCalendarCalcSystem(u"own");
  EXPECT_EQ(Factory().CreateCalendar(u"own"), nullptr);
}

TEST(Factory, TheDefaultNameAfterStartIsThatOfTheLastUnitThatDoesNotWait) {
  EXPECT_EQ(TOrvCalendarCalcSystems::Default(), u"IslamicTabular");
  EXPECT_EQ(TOrvCalendarCalc::DefaultCalendarName, u"");
}

}  // namespace
}  // namespace orv
