// Dates and times as text: writing and reading beside ICU, Qt and the C library, over 20,000 scattered moments.
//
// Everyone writes and reads what he calls a moment. The functions of the C library start from and end at a broken-down
// time; what it costs to get from a moment to that and back is in rows of its own.
#include <unicode/calendar.h>
#include <unicode/dtfmtsym.h>
#include <unicode/smpdtfmt.h>

#include <QtCore/QCalendar>
#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <algorithm>
#include <ctime>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/Rooms.h"
#include "bench/support/Measure.h"
#include "calendar/Orv.Date.Jalali.h"
#include "calendar/Orv.Date.Julian.h"
#include "rtl/Utf8.h"

namespace orv::bench {
namespace {

constexpr double DaysTo1970 = 25569;
constexpr double SecondsPerDay = 86400;

// Whole seconds of the years 1921 to 2121.
const std::vector<std::time_t>& Moments() {
  static const std::vector<std::time_t> moments = [] {
    std::mt19937_64 random(20000);
    std::uniform_int_distribution<std::time_t> second(-1546300800, 4765132800);
    std::vector<std::time_t> result(20000);
    std::generate(result.begin(), result.end(), [&] { return second(random); });
    return result;
  }();
  return moments;
}

template <typename T, typename F>
std::vector<T> EveryMomentAs(F convert) {
  std::vector<T> result;
  for (const std::time_t moment : Moments()) result.push_back(convert(moment));
  return result;
}

rtl::TDateTime AsDateTime(std::time_t moment) {
  // Before 1899 there would be the bend of the time of day to take care of.
  return static_cast<double>(moment) / SecondsPerDay + DaysTo1970;
}

std::tm AsTm(std::time_t moment) {
  std::tm broken{};
  gmtime_r(&moment, &broken);
  return broken;
}

QDateTime AsQDateTime(std::time_t moment) {
  return QDateTime::fromSecsSinceEpoch(moment, Qt::UTC);
}

UDate AsUDate(std::time_t moment) {
  return static_cast<double>(moment) * 1000;
}

template <typename T, typename F>
void AddTextRow(const std::string& name, std::vector<T> inputs, F run) {
  const auto count = static_cast<std::int64_t>(inputs.size());
  AddRow(name, count, [inputs = std::move(inputs), run](benchmark::State& state) {
    for (auto iteration : state)
      for (const T& input : inputs) benchmark::DoNotOptimize(run(input));
  });
}

// --- Writing ---

void AddOwnWriteRow(const std::string& name, std::shared_ptr<TOrvCalendarCalc> calendar, std::u16string_view format) {
  AddTextRow(name, EveryMomentAs<rtl::TDateTime>(AsDateTime),
             [calendar, format, text = std::make_shared<rtl::UnicodeString>()](rtl::TDateTime value) {
               calendar->DateTimeToString(*text, format, value, true);
               return text->size();
             });
}

void AddQtWriteRow(const std::string& name, const QCalendar& calendar, const QString& format) {
  AddTextRow(name, EveryMomentAs<QDateTime>(AsQDateTime),
             [calendar, format](const QDateTime& value) { return value.toString(format, calendar).size(); });
}

void AddIcuWriteRow(const std::string& name, const char* locale, const char16_t* pattern) {
  UErrorCode status = U_ZERO_ERROR;
  const auto format = std::make_shared<icu::SimpleDateFormat>(pattern, icu::Locale(locale), status);
  format->setTimeZone(*icu::TimeZone::getGMT());
  AddTextRow(name, EveryMomentAs<UDate>(AsUDate), [format](UDate value) {
    icu::UnicodeString text;
    return format->format(value, text).length();
  });
}

void AddLibcWriteRow(const std::string& name, const char* format) {
  AddTextRow(name, EveryMomentAs<std::tm>(AsTm), [format](const std::tm& value) {
    char buffer[80];
    return std::strftime(buffer, sizeof buffer, format, &value);
  });
}

void AddLibcMomentWriteRow(const std::string& name, const char* format) {
  AddTextRow(name, EveryMomentAs<std::time_t>([](std::time_t moment) { return moment; }), [format](std::time_t moment) {
    const std::tm value = AsTm(moment);
    char buffer[80];
    return std::strftime(buffer, sizeof buffer, format, &value);
  });
}

void AddWriteRows() {
  const std::shared_ptr<TOrvCalendarCalc> jalali = MakeCalendar<TOrvJalaliDateCalendarCalc>();
  const std::shared_ptr<TOrvCalendarCalc> gregorian = MakeCalendar<TOrvJulianDateCalendarCalc>();
  const QCalendar persian(QCalendar::System::Jalali);

  AddOwnWriteRow("write-numbers/jalali/orv", jalali, u"yyyy/mm/dd hh:nn:ss");
  AddQtWriteRow("write-numbers/jalali/qt", persian, QStringLiteral("yyyy/MM/dd hh:mm:ss"));
  AddIcuWriteRow("write-numbers/jalali/icu", "fa@calendar=persian;numbers=latn", u"yyyy/MM/dd HH:mm:ss");

  AddOwnWriteRow("write-names/jalali/orv", jalali, u"dddd d mmmm yyyy hh:nn:ss");
  AddQtWriteRow("write-names/jalali/qt", persian, QStringLiteral("dddd d MMMM yyyy hh:mm:ss"));
  AddIcuWriteRow("write-names/jalali/icu", "fa@calendar=persian;numbers=latn", u"EEEE d MMMM yyyy HH:mm:ss");

  AddOwnWriteRow("write-numbers-beside-libc/gregorian/orv", gregorian, u"yyyy/mm/dd hh:nn:ss");
  AddLibcWriteRow("write-numbers-beside-libc/gregorian/strftime", "%Y/%m/%d %H:%M:%S");
  AddLibcMomentWriteRow("write-numbers-beside-libc/gregorian/gmtime-strftime", "%Y/%m/%d %H:%M:%S");
}

// --- Reading ---

std::vector<rtl::UnicodeString> Texts(const TOrvCalendarCalc& calendar) {
  return EveryMomentAs<rtl::UnicodeString>([&calendar](std::time_t moment) {
    return calendar.FormatDateTime(u"yyyy/mm/dd hh:nn:ss", AsDateTime(moment), true);
  });
}

void AddReadRows() {
  const std::shared_ptr<TOrvCalendarCalc> jalali = MakeCalendar<TOrvJalaliDateCalendarCalc>();
  const std::shared_ptr<TOrvCalendarCalc> gregorian = MakeCalendar<TOrvJulianDateCalendarCalc>();
  const auto own = [](std::shared_ptr<TOrvCalendarCalc> calendar) {
    return [calendar](const rtl::UnicodeString& text) {
      return calendar->FormatStringFullToDateTime(u"yyyy/mm/dd hh:nn:ss", text).value();
    };
  };
  AddTextRow("read/jalali/orv", Texts(*jalali), own(jalali));

  UErrorCode status = U_ZERO_ERROR;
  const auto format = std::make_shared<icu::SimpleDateFormat>(u"yyyy/MM/dd HH:mm:ss",
                                                              icu::Locale("fa@calendar=persian;numbers=latn"), status);
  format->setTimeZone(*icu::TimeZone::getGMT());
  AddTextRow("read/jalali/icu", Texts(*jalali), [format](const rtl::UnicodeString& text) {
    UErrorCode failed = U_ZERO_ERROR;
    return format->parse(icu::UnicodeString(false, text.data(), static_cast<std::int32_t>(text.size())), failed);
  });

  AddTextRow("read-beside-libc/gregorian/orv", Texts(*gregorian), own(gregorian));
  std::vector<std::string> narrow;
  for (const rtl::UnicodeString& text : Texts(*gregorian)) narrow.push_back(rtl::ToUtf8(text));
  AddTextRow("read-beside-libc/gregorian/strptime", narrow, [](const std::string& text) {
    std::tm broken{};
    strptime(text.c_str(), "%Y/%m/%d %H:%M:%S", &broken);
    return broken.tm_year;
  });
  AddTextRow("read-beside-libc/gregorian/strptime-timegm", narrow, [](const std::string& text) {
    std::tm broken{};
    strptime(text.c_str(), "%Y/%m/%d %H:%M:%S", &broken);
    return timegm(&broken);
  });
}

}  // namespace

void RegisterDateText() {
  AddWriteRows();
  AddReadRows();
}

}  // namespace orv::bench
