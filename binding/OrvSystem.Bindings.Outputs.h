// Converters between text and boolean or date values for data bindings, with Persian and Arabic words for yes and no
// and with Jalali dates.
//
// The settings are class-wide and have no lock: main thread. Bad text never raises; it gives False or the empty value.
#pragma once

#include <utility>

#include "rtl/Strings.h"
#include "rtl/Value.h"

namespace orv {

class TOrvConverterUtils {
 public:
  TOrvConverterUtils() = delete;

  static inline rtl::UnicodeString BooleanTrue = u"صحیح";
  static inline rtl::UnicodeString BooleanFalse = u"ناصحیح";
  static inline rtl::UnicodeString DateTimeFormat = u"yyyy/m/d h:nn:ss";
  static inline rtl::UnicodeString DateFormat = u"yyyy/m/d";
  // Kept for the application; no converter asks for it: all of them are Jalali.
  static inline bool ArabicHijriLunarCalendar = false;

  // BooleanTrue or BooleanFalse. Raises EInvalidCast for a value that is no boolean.
  static void BoolToString(const rtl::TValue& in, rtl::TValue& out);

  // True for the words of yes ("صحیح", "بله", "زن", "مثبت" ...), False for those of no ("ناصحیح", "خیر", "مرد",
  // "منفی" ...), each exactly as it is written in the tables; otherwise "True", "False" in any case and numbers, of
  // which 0 is False; False for any other text. Raises EInvalidCast for a value that is no text.
  static void StringToBool(const rtl::TValue& in, rtl::TValue& out);

  // The date-time of a text in DateTimeFormat, or the empty value.
  static void StringToDateTime(const rtl::TValue& in, rtl::TValue& out);

  // The date of a text in DateFormat, or the empty value. Beware: the process-wide settings are set back to the
  // platform's default record first, with DateFormat as their short date format, and stay so.
  static void StringToDate(const rtl::TValue& in, rtl::TValue& out);

  // The Jalali text of a date-time: in DateFormat for a TDate, in DateTimeFormat for a plain number, and as the bare
  // time (the long time format of the process-wide settings) for a TDateTime. Raises EInvalidCast for a value that
  // cannot be read as a date-time.
  static void DateTimeToString(const rtl::TValue& in, rtl::TValue& out);
};

// The converters' settings as properties of a component. All instances read and write the same settings.
class TBindingOrv {
 public:
  const rtl::UnicodeString& BooleanTrue() const { return TOrvConverterUtils::BooleanTrue; }
  void SetBooleanTrue(rtl::UnicodeString text) { TOrvConverterUtils::BooleanTrue = std::move(text); }
  const rtl::UnicodeString& BooleanFalse() const { return TOrvConverterUtils::BooleanFalse; }
  void SetBooleanFalse(rtl::UnicodeString text) { TOrvConverterUtils::BooleanFalse = std::move(text); }
  const rtl::UnicodeString& DateTimeFormat() const { return TOrvConverterUtils::DateTimeFormat; }
  void SetDateTimeFormat(rtl::UnicodeString format) { TOrvConverterUtils::DateTimeFormat = std::move(format); }
  const rtl::UnicodeString& DateFormat() const { return TOrvConverterUtils::DateFormat; }
  void SetDateFormat(rtl::UnicodeString format) { TOrvConverterUtils::DateFormat = std::move(format); }
  bool ArabicHijriLunarCalendar() const { return TOrvConverterUtils::ArabicHijriLunarCalendar; }
  void SetArabicHijriLunarCalendar(bool value) { TOrvConverterUtils::ArabicHijriLunarCalendar = value; }
};

}  // namespace orv
