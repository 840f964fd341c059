// Numbers of any size given to the classic units: each call ends, and what it raises is told apart by its class.
#include <gtest/gtest.h>

#include <limits>

#include "calendar/classic/IDateTime.h"
#include "rtl/DateErrors.h"
#include "rtl/Exceptions.h"

namespace orv {
namespace {

using W = std::uint16_t;

enum class TOutcome { Answer, ConvertError, DateOperation };

template <typename TCall>
TOutcome OutcomeOf(const TCall& call) {
  try {
    call();
    return TOutcome::Answer;
  } catch (const rtl::EConvertError&) {
    return TOutcome::ConvertError;
  } catch (const EInvalidDateOperation&) {
    return TOutcome::DateOperation;
  }
}

constexpr TJhCalendarType Calendars[] = {ctPersian, ctIslamic, ctJulian};
constexpr std::int32_t Farthest = 2147483647;

TEST(ClassicHostile, MomentsOfAnySizeEndInAnAnswerOrInEConvertError) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const double moments[] = {0,
                            -0.5,
                            1e9,
                            -1e9,
                            1e18,
                            -1e18,
                            1e300,
                            -1e300,
                            -693594,
                            2958466,
                            infinity,
                            -infinity,
                            std::numeric_limits<double>::quiet_NaN()};
  const std::int32_t steps[] = {0, 1, -1, Farthest, -Farthest - 1};
  int answers = 0;
  const auto check = [&answers](const auto& call) {
    const TOutcome outcome = OutcomeOf(call);
    answers += outcome == TOutcome::Answer;
    EXPECT_NE(outcome, TOutcome::DateOperation);
  };
  for (const auto t : Calendars)
    for (const double moment : moments) {
      SCOPED_TRACE(::testing::Message() << "calendar " << t << ", moment " << moment);
      check([&] { IDateTime::DecodeDateWeek(t, moment); });
      check([&] { IDateTime::DecodeDateMonthWeek(t, moment); });
      check([&] { IDateTime::DecodeDayOfWeekInMonth(t, moment); });
      check([&] { IDateTime::EndOfTheYear(t, moment); });
      check([&] { IDateTime::EndOfTheWeek(t, moment); });
      check([&] { IDateTime::MilliSecondOfTheWeek(t, moment); });
      check([&] { IDateTime::MonthSpan(t, moment, -moment); });
      check([&] { IDateTime::FormatDateTime(t, u"dddddd tt c", moment); });
      for (const std::int32_t n : steps) {
        check([&] { IDateTime::IncMonth(t, moment, n); });
        check([&] { IDateTime::IncDay(t, moment, n); });
      }
    }
  EXPECT_GT(answers, 500);
}

// A Persian step that runs over a year whose length is not known raises what asking for the length raises.
TEST(ClassicHostile, StepsOfManyYears) {
  const double moments[] = {0, -0.5, 1e9, -1e9, 1e300, -1e300, std::numeric_limits<double>::quiet_NaN()};
  for (const double moment : moments) {
    for (const auto t : Calendars)
      for (const std::int32_t n : {0, 1}) {
        const bool inRange = moment > -1 && moment < 1;
        const TOutcome outcome = OutcomeOf([&] { IDateTime::IncYear(t, moment, n); });
        if (t != ctJulian || inRange) {
          EXPECT_EQ(outcome, TOutcome::Answer) << t << " " << moment;
        }
        EXPECT_NE(outcome, TOutcome::DateOperation);
      }
    for (const std::int32_t n : {Farthest, -Farthest - 1}) {
      EXPECT_EQ(OutcomeOf([&] { PDateTime::IncYear(moment, n); }), TOutcome::DateOperation) << moment;
      EXPECT_EQ(OutcomeOf([&] { ADateTime::IncYear(moment, n); }), TOutcome::Answer) << moment;
      EXPECT_NE(OutcomeOf([&] { IDateTime::IncYear(ctJulian, moment, n); }), TOutcome::DateOperation) << moment;
    }
  }
}

constexpr W Words[] = {0, 1, 2, 12, 13, 31, 40, 366, 2327, 2328, 9999, 10000, 32768, 65535};

// Calls check(calendar, a, b, c) with every three of the words.
template <typename TCheck>
void OverWords(const TCheck& check) {
  for (const auto t : Calendars)
    for (const W a : Words)
      for (const W b : Words)
        for (const W c : Words) {
          SCOPED_TRACE(::testing::Message() << "calendar " << t << ": " << a << " " << b << " " << c);
          check(t, a, b, c);
          if (::testing::Test::HasFatalFailure()) return;
        }
}

TEST(ClassicHostile, ADateOfAnyWordsAnswers) {
  OverWords([](auto t, W a, W b, W c) {
    ASSERT_EQ(OutcomeOf([&] { IDateTime::TryEncodeDate(t, {a, b, c}); }), TOutcome::Answer);
  });
}

constexpr bool IsFarPersianYear(TJhCalendarType t, W year) {
  return t == ctPersian && year > 2327 && year <= 9999;
}

TEST(ClassicHostile, WeeksRaiseOnlyInFarPersianYears) {
  OverWords([](auto t, W a, W b, W c) {
    const bool raises = IsFarPersianYear(t, a) && b >= 1;
    const auto expected = raises ? TOutcome::ConvertError : TOutcome::Answer;
    ASSERT_EQ(OutcomeOf([&] { IDateTime::IsValidDateWeek(t, {a, b, c}); }), expected);
    ASSERT_EQ(OutcomeOf([&] { IDateTime::TryEncodeDateWeek(t, {a, b, c}); }), expected);
  });
}

TEST(ClassicHostile, WeeksOfMonthsRaiseOnlyInFarPersianYears) {
  OverWords([](auto t, W a, W b, W c) {
    const bool raises = IsFarPersianYear(t, a) && b >= 1 && b <= 12 && c >= 1;
    const auto raised = b == 12 ? TOutcome::DateOperation : TOutcome::ConvertError;
    const auto expected = raises ? raised : TOutcome::Answer;
    ASSERT_EQ(OutcomeOf([&] { IDateTime::IsValidDateMonthWeek(t, {a, b, c, 1}); }), expected);
    ASSERT_EQ(OutcomeOf([&] { IDateTime::TryEncodeDateMonthWeek(t, {a, b, c, 1}); }), expected);
  });
}

TEST(ClassicHostile, NthDaysOfTheWeekRaiseWhereTheMonthHasNoFirstDay) {
  OverWords([](auto t, W a, W b, W c) {
    const auto first = OutcomeOf([&] { IDateTime::StartOfAMonth(t, a, b); });
    ASSERT_NE(first, TOutcome::DateOperation);
    ASSERT_EQ(OutcomeOf([&] { IDateTime::TryEncodeDayOfWeekInMonth(t, {a, b, 65535, c}); }), first);
  });
}

TEST(ClassicHostile, EndsAndStepsRaiseEInvalidDateOperationForTheLengthOfAFarPersianMonthAlone) {
  OverWords([](auto t, W a, W b, W c) {
    const auto end = OutcomeOf([&] { IDateTime::EndOfAMonth(t, a, b); });
    ASSERT_EQ(end == TOutcome::DateOperation, t == ctPersian && a > 2327 && b >= 12);
    const auto step = OutcomeOf([&] {
      TDateParts date = {a, b, c};
      IDateTime::IncAYear(t, date, Farthest);
    });
    const W stepped = static_cast<W>(a + Farthest);
    ASSERT_EQ(step == TOutcome::DateOperation, t == ctPersian && stepped > 2327 && b >= 12);
    const auto monthStep = OutcomeOf([&] {
      TDateParts date = {a, b, c};
      IDateTime::IncAMonth(t, date, -Farthest - 1);
    });
    ASSERT_NE(monthStep, TOutcome::DateOperation);
  });
  TDateParts inEsfand = {2400, 11, 30};
  EXPECT_THROW(PDateTime::IncAMonth(inEsfand, 1), EInvalidDateOperation);
}

}  // namespace
}  // namespace orv
