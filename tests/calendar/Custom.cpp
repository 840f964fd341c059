#include <gtest/gtest.h>

#include "rtl/Exceptions.h"
#include "tests/calendar/support/Calendars.h"

namespace orv {
namespace {

using TCustom = TOrvCustomDateCalendarCalc;

// Thirteen months of 28 days, and a thirteenth that is one day longer; the year 1 began on 1 January 2001.
constexpr TDateTime NewYear1 = 36892;
constexpr std::int32_t DaysInAnyYear = 365;

void AttachDecoding(TCustom& calendar) {
  calendar.OnDecodeDateDay = [](TDateTime value) {
    const auto days = static_cast<std::int32_t>(value - NewYear1);
    return TYearDay{testing::Word(days / DaysInAnyYear + 1), testing::Word(days % DaysInAnyYear + 1)};
  };
  calendar.OnDaysInAMonth = [](std::uint16_t, std::uint16_t month) { return testing::Word(month == 13 ? 29 : 28); };
}

void AttachAll(TCustom& calendar) {
  AttachDecoding(calendar);
  calendar.OnDaysInAYear = [](std::uint16_t) { return testing::Word(DaysInAnyYear); };
  calendar.OnLeapYearQuery = [](std::uint16_t) { return false; };
  calendar.OnTryEncodeDateDay = [](std::uint16_t year, std::uint16_t day) -> std::optional<TDateTime> {
    if (year == 0 || day == 0 || day > DaysInAnyYear) return std::nullopt;
    return NewYear1 + (year - 1) * DaysInAnyYear + day - 1;
  };
}

std::string EventMissing(const std::function<void()>& action) {
  try {
    action();
  } catch (const ECustomCalendarNoEventError& error) {
    return error.what();
  }
  return {};
}

TEST(Custom, WithTwoHandlersDecodeDateWalksTheMonths) {
  const auto calendar = MakeCalendar<TCustom>({}, AttachDecoding);
  EXPECT_EQ(calendar->DecodeDate(NewYear1), (TDateParts{1, 1, 1}));
  EXPECT_EQ(calendar->DecodeDate(NewYear1 + 27), (TDateParts{1, 1, 28}));
  EXPECT_EQ(calendar->DecodeDate(NewYear1 + 28), (TDateParts{1, 2, 1}));
  EXPECT_EQ(calendar->DecodeDate(NewYear1 + 364), (TDateParts{1, 13, 29}));
  EXPECT_EQ(calendar->DecodeDate(NewYear1 + 365), (TDateParts{2, 1, 1}));
}

TEST(Custom, EveryMissingEventIsNamedExactly) {
  const auto calendar = MakeCalendar<TCustom>({}, AttachDecoding);
  EXPECT_EQ(EventMissing([&] { calendar->EndOfAYear(1); }), "Error: Event \"OnDaysInAYear\" is not set.");
  EXPECT_EQ(EventMissing([&] { calendar->IsLeapYear(1); }), "Error: Event \"OnLeapYearQuery\" is not set.");
  EXPECT_EQ(EventMissing([&] { calendar->EncodeDate({1, 1, 1}); }), "Error: Event \"OnTryEncodeDateDay\" is not set.");
  calendar->OnDaysInAMonth = nullptr;
  EXPECT_EQ(EventMissing([&] { calendar->DecodeDate(NewYear1); }), "Error: Event \"OnDaysInAMonth\" is not set.");
}

TEST(Custom, ACalculatorWithoutHandlersCannotBeMade) {
  EXPECT_EQ(EventMissing([] { MakeCalendar<TCustom>(); }), "Error: Event \"OnDecodeDateDay\" is not set.");
}

TEST(Custom, ASubclassMayAttachItsHandlersInItsConstructor) {
  class TOwn : public TCustom {
   public:
    TOwn() { AttachAll(*this); }
  };
  EXPECT_EQ(MakeCalendar<TOwn>()->EncodeDate({1, 13, 29}), NewYear1 + 364);
}

TEST(Custom, EveryOperationWorksOnFiveHandlers) {
  const auto calendar = MakeCalendar<TCustom>({}, AttachAll);
  EXPECT_EQ(calendar->FormatDateTime(u"yyyy-mm-dd", NewYear1 + 364, true), u"1-13-29");
  EXPECT_EQ(calendar->StringToDateTime(u"d.m.yyyy", u"5.3.24"), calendar->EncodeDate({24, 3, 5}));
  EXPECT_EQ(calendar->EndOfAYear(1), rtl::EndOfTheDay(NewYear1 + 364));
  EXPECT_EQ(calendar->StartOfAMonth(2, 2), NewYear1 + 365 + 28);
  EXPECT_FALSE(calendar->IsValidDate({1, 13, 1})) << "twelve months are the most that a valid date has";
  for (TDateTime day = NewYear1; day < NewYear1 + 5000; ++day)
    ASSERT_EQ(calendar->EncodeDate(calendar->DecodeDate(day)), day);
}

TEST(Custom, AHandlerThatRefusesMakesEncodingFail) {
  const auto calendar = MakeCalendar<TCustom>({}, AttachAll);
  EXPECT_FALSE(calendar->TryEncodeDate({0, 1, 1}).has_value());
  EXPECT_THROW(calendar->EncodeDate({0, 1, 1}), rtl::EConvertError);
}

TEST(Custom, WhatAHandlerRaisesPassesThrough) {
  struct TOwnError {};
  const auto calendar = MakeCalendar<TCustom>({}, [](TCustom& c) {
    AttachAll(c);
    c.OnLeapYearQuery = [](std::uint16_t) -> bool { throw TOwnError(); };
  });
  EXPECT_THROW(calendar->IsLeapYear(1), TOwnError);
}

TEST(Custom, OnDecodeDateTakesThePlaceOfTheWalk) {
  const auto calendar = MakeCalendar<TCustom>({}, [](TCustom& c) {
    AttachDecoding(c);
    c.OnDecodeDate = [](TDateTime) { return TDateParts{1, 2, 3}; };
  });
  EXPECT_EQ(calendar->DecodeDate(NewYear1), (TDateParts{1, 2, 3}));
}

TEST(Custom, ARangeSetInOnInitializeIsSeenByIsValidDateAtOnce) {
  const auto calendar = MakeCalendar<TCustom>({}, [](TCustom& c) {
    AttachAll(c);
    c.OnInitialize = [](TOrvCalendarCalc&, TDateCalendarCalcSettings settings) { settings.MaxYear() = 100; };
  });
  EXPECT_TRUE(calendar->IsValidDate({100, 1, 1}));
  EXPECT_FALSE(calendar->IsValidDate({101, 1, 1}));
}

TEST(Custom, TheSettingsViewReadsAndWritesTheCalculator) {
  const auto calendar = MakeCalendar<TCustom>({}, AttachAll);
  const auto view = TDateCalendarCalcSettings::Create(*calendar);
  view.ApproxDaysPerMonth() = 28.1;
  view.FirstWeekDay() = TCalDayOfWeek::dowSunday;
  view.LastMonth() = 13;
  view.MinYear() = 3;
  view.MaxYear() = 4;
  view.RightToLeft() = true;
  view.ShortYearStartingCentury() = 17;
  view.TimeAMLongString() = u"a";
  view.TimePMLongString() = u"b";
  view.TimeAMVeryShortString() = u'c';
  view.TimePMVeryShortString() = u'd';
  EXPECT_EQ(calendar->ApproxDaysPerMonth, 28.1);
  EXPECT_EQ(calendar->FirstWeekday, TCalDayOfWeek::dowSunday);
  EXPECT_TRUE(calendar->IsMonthValid(13));
  EXPECT_FALSE(calendar->IsMonthValid(14));
  EXPECT_EQ(calendar->MinYear, 3);
  EXPECT_EQ(calendar->MaxYear, 4);
  EXPECT_TRUE(calendar->RightToLeft);
  EXPECT_EQ(calendar->ShortYearStartingCentury, 17);
  EXPECT_EQ(calendar->TimeAMLongString + calendar->TimePMLongString, u"ab");
  EXPECT_EQ(calendar->TimeAMVeryShortString, u'c');
  EXPECT_EQ(calendar->TimePMVeryShortString, u'd');
  EXPECT_EQ(view.MaxYear(), 4);
}

TEST(Custom, OnGetFormatSettingsFillsTheSettingsWhenTheyAreMade) {
  const auto calendar = MakeCalendar<TCustom>({}, [](TCustom& c) {
    AttachAll(c);
    c.OnGetFormatSettings = [](TOrvCalendarCalc&) {
      rtl::TFormatSettings settings;
      settings.ShortDateFormat = u"yyyy.MM.dd";
      return settings;
    };
  });
  EXPECT_EQ(calendar->FormatSettings.ShortDateFormat, u"yyyy.mm.dd") << "and they are normalised";
  EXPECT_EQ(calendar->DateToStr(NewYear1), u"1.01.01");
}

TEST(Custom, HandlersAttachedLaterAreHonouredBySetLocale) {
  const auto calendar = MakeCalendar<TCustom>({}, AttachAll);
  calendar->OnGetFormatSettings = [](TOrvCalendarCalc&) {
    rtl::TFormatSettings settings;
    settings.TimeAMString = u"early";
    return settings;
  };
  EXPECT_EQ(calendar->FormatSettings.TimeAMString, u"AM");
  calendar->SetLocale(u"x");
  EXPECT_EQ(calendar->FormatSettings.TimeAMString, u"early");
}

TEST(Custom, MonthsOfNoLengthRaiseInsteadOfWalkingForEver) {
  const auto calendar = MakeCalendar<TCustom>({}, AttachAll);
  calendar->OnDaysInAMonth = [](std::uint16_t, std::uint16_t) { return testing::Word(0); };
  EXPECT_THROW(calendar->DecodeDate(NewYear1 + 5), rtl::EConvertError);
}

TEST(Custom, AMonthThatAYearLacksIsWalkedOver) {
  const auto calendar = MakeCalendar<TCustom>({}, AttachAll);
  calendar->OnDaysInAMonth = [](std::uint16_t, std::uint16_t month) { return testing::Word(month == 2 ? 0 : 30); };
  EXPECT_EQ(calendar->DecodeDate(NewYear1 + 30), (TDateParts{1, 3, 1}));
}

TEST(Custom, AMonthOfNoLengthCannotMeasureASpan) {
  const auto calendar = MakeCalendar<TCustom>({}, AttachAll);
  calendar->ApproxDaysPerMonth = 0;
  EXPECT_THROW(calendar->MonthSpan(1, 2), rtl::EConvertError);
}

}  // namespace
}  // namespace orv
