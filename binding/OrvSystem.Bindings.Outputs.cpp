#include "binding/OrvSystem.Bindings.Outputs.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string_view>

#include "calendar/classic/PDateTime.h"
#include "rtl/Convert.h"
#include "rtl/FormatSettings.h"

namespace orv {
namespace {

using rtl::TValue;

// A field of gender counts as a boolean: feminine is true, masculine false.
constexpr std::u16string_view TrueWords[] = {u"صحیح", u"درست", u"بله",  u"آره",  u"آری", u"نعم",
                                             u"زن",   u"مؤنث", u"مثبت", u"قبول", u"سالم"};
constexpr std::u16string_view FalseWords[] = {u"ناصحیح", u"نادرست", u"خیر", u"نه",     u"لا",    u"مرد", u"مذکر",
                                              u"منفی",   u"مرجوع",  u"رد",  u"ناسالم", u"بیمار", u"خراب"};

bool Holds(std::span<const std::u16string_view> words, std::u16string_view word) {
  return std::ranges::find(words, word) != words.end();
}

bool IsYes(const rtl::UnicodeString& text) {
  if (Holds(TrueWords, text)) return true;
  if (Holds(FalseWords, text)) return false;
  return rtl::TryStrToBool(text).value_or(false);
}

const rtl::UnicodeString& FormatFor(rtl::TValueType type) {
  switch (type) {
    case rtl::TValueType::Date:
      return TOrvConverterUtils::DateFormat;
    case rtl::TValueType::DateTime:
      return rtl::FormatSettings().LongTimeFormat;
    default:
      return TOrvConverterUtils::DateTimeFormat;
  }
}

// Reading a text never fails for the bound field: what the reader refuses by an exception is no date either.
template <typename TRead>
std::optional<rtl::TDateTime> ReadSafely(const TRead& read) {
  try {
    return read();
  } catch (const rtl::EConvertError&) {
    return std::nullopt;
  }
}

}  // namespace

void TOrvConverterUtils::BoolToString(const TValue& in, TValue& out) {
  out = TValue::FromString(in.AsBoolean() ? BooleanTrue : BooleanFalse);
}

void TOrvConverterUtils::StringToBool(const TValue& in, TValue& out) {
  out = TValue::FromBoolean(IsYes(in.AsString()));
}

void TOrvConverterUtils::StringToDateTime(const TValue& in, TValue& out) {
  const rtl::UnicodeString& text = in.AsString();
  const auto value = ReadSafely([&text] { return PDateTime::FormatStringFullToDateTime(DateTimeFormat, text); });
  out = value ? TValue::FromDateTime(*value) : TValue();
}

void TOrvConverterUtils::StringToDate(const TValue& in, TValue& out) {
  const rtl::UnicodeString& text = in.AsString();
  rtl::TFormatSettings& settings = rtl::FormatSettings();
  settings = rtl::TFormatSettings();
  settings.ShortDateFormat = DateFormat;
  const auto value = ReadSafely([&] { return PDateTime::TryStrToDate(text, settings); });
  out = value ? TValue::FromDate(*value) : TValue();
}

void TOrvConverterUtils::DateTimeToString(const TValue& in, TValue& out) {
  const rtl::TDateTime value = in.AsDateTime();
  out = TValue::FromString(PDateTime::DateTimeToString(FormatFor(in.Type()), value, rtl::FormatSettings()));
}

}  // namespace orv
