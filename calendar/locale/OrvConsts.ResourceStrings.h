// The resource strings: the Persian and Arabic names of months and days, and the messages that users may meet.
//
// Texts stand exactly as the resource table has them, spelling included. Some differ from the names that the
// calculators use ("چهار شنبه" and "پنج شنبه" have a blank here, "ذوالقعده" has none), which is why both tables exist.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace orv {

struct TResourceString {
  std::uint16_t Id;
  std::string_view Name;
  std::u16string_view Text;
};

inline constexpr TResourceString rscSWed{65456, "rscSWed", u"چ"};
inline constexpr TResourceString rscSThu{65457, "rscSThu", u"پ"};
inline constexpr TResourceString rscSFri{65458, "rscSFri", u"ج"};
inline constexpr TResourceString SDateOutOfRange{65459, "SDateOutOfRange",
                                                 u"The %d date must be in the range of %d, %d"};
inline constexpr TResourceString SEventNotSet{65460, "SEventNotSet", u"Error: Event \"%s\" is not set."};
inline constexpr TResourceString SIncompleteHTMLTag{65461, "SIncompleteHTMLTag", u"Incomplete HTML Tag"};
inline constexpr TResourceString SBadRTFFormat{65462, "SBadRTFFormat", u"RTF Format is not supported."};
inline constexpr TResourceString SUnexpectedEndOfRTFData{65463, "SUnexpectedEndOfRTFData",
                                                         u"Unexpected end of RTF string."};
inline constexpr TResourceString SExpectationErrOr{65464, "SExpectationErrOr", u"'%s' expected but '%s' found"};
inline constexpr TResourceString SUnexpectedEnd{65465, "SUnexpectedEnd", u"unexpected end"};
inline constexpr TResourceString SInteger{65466, "SInteger", u"an Integer"};
inline constexpr TResourceString SCharCode{65467, "SCharCode", u"Character code"};
inline constexpr TResourceString rscAugest{65472, "rscAugest", u"Augest"};
inline constexpr TResourceString rscSeptember{65473, "rscSeptember", u"September"};
inline constexpr TResourceString rscOctober{65474, "rscOctober", u"October"};
inline constexpr TResourceString rscNovember{65475, "rscNovember", u"November"};
inline constexpr TResourceString rscDecember{65476, "rscDecember", u"December"};
inline constexpr TResourceString rscSat{65477, "rscSat", u"شنبه"};
inline constexpr TResourceString rscSun{65478, "rscSun", u"یکشنبه"};
inline constexpr TResourceString rscMon{65479, "rscMon", u"دوشنبه"};
inline constexpr TResourceString rscTue{65480, "rscTue", u"سه شنبه"};
inline constexpr TResourceString rscWed{65481, "rscWed", u"چهار شنبه"};
inline constexpr TResourceString rscThu{65482, "rscThu", u"پنج شنبه"};
inline constexpr TResourceString rscFri{65483, "rscFri", u"جمعه"};
inline constexpr TResourceString rscSSat{65484, "rscSSat", u"ش"};
inline constexpr TResourceString rscSSun{65485, "rscSSun", u"ی"};
inline constexpr TResourceString rscSMon{65486, "rscSMon", u"د"};
inline constexpr TResourceString rscSTue{65487, "rscSTue", u"س"};
inline constexpr TResourceString rscFeb{65488, "rscFeb", u"Feb"};
inline constexpr TResourceString rscMar{65489, "rscMar", u"Mar"};
inline constexpr TResourceString rscApr{65490, "rscApr", u"Apr"};
inline constexpr TResourceString rscMay{65491, "rscMay", u"May"};
inline constexpr TResourceString rscJun{65492, "rscJun", u"Jun"};
inline constexpr TResourceString rscJul{65493, "rscJul", u"Jul"};
inline constexpr TResourceString rscAug{65494, "rscAug", u"Aug"};
inline constexpr TResourceString rscSep{65495, "rscSep", u"Sep"};
inline constexpr TResourceString rscOct{65496, "rscOct", u"Oct"};
inline constexpr TResourceString rscNov{65497, "rscNov", u"Nov"};
inline constexpr TResourceString rscDec{65498, "rscDec", u"Dec"};
inline constexpr TResourceString rscJanuary{65499, "rscJanuary", u"January"};
inline constexpr TResourceString rscFebruary{65500, "rscFebruary", u"February"};
inline constexpr TResourceString rscMarch{65501, "rscMarch", u"March"};
inline constexpr TResourceString rscApril{65502, "rscApril", u"April"};
inline constexpr TResourceString rscJuly{65503, "rscJuly", u"July"};
inline constexpr TResourceString rscDey{65504, "rscDey", u"دی"};
inline constexpr TResourceString rscBahman{65505, "rscBahman", u"بهمن"};
inline constexpr TResourceString rscEsfand{65506, "rscEsfand", u"اسفند"};
inline constexpr TResourceString rscMoharam{65507, "rscMoharam", u"محرم"};
inline constexpr TResourceString rscSafar{65508, "rscSafar", u"صفر"};
inline constexpr TResourceString rscRabiOlAwal{65509, "rscRabiOlAwal", u"ربیع الاول"};
inline constexpr TResourceString rscRabiOsSani{65510, "rscRabiOsSani", u"ربیع الثانی"};
inline constexpr TResourceString rscJamadiOlAwal{65511, "rscJamadiOlAwal", u"جمادی الاول"};
inline constexpr TResourceString rscJamadiOsSani{65512, "rscJamadiOsSani", u"جمادی الثانی"};
inline constexpr TResourceString rscRajab{65513, "rscRajab", u"رجب"};
inline constexpr TResourceString rscShaeban{65514, "rscShaeban", u"شعبان"};
inline constexpr TResourceString rscRamazan{65515, "rscRamazan", u"رمضان"};
inline constexpr TResourceString rscShawwal{65516, "rscShawwal", u"شوال"};
inline constexpr TResourceString rscZiGhaedah{65517, "rscZiGhaedah", u"ذوالقعده"};
inline constexpr TResourceString rscZiHadjah{65518, "rscZiHadjah", u"ذوالحجه"};
inline constexpr TResourceString rscJan{65519, "rscJan", u"Jan"};
inline constexpr TResourceString rscRial{65520, "rscRial", u"ريال"};
inline constexpr TResourceString rscShortMorning{65521, "rscShortMorning", u"ق/ظ"};
inline constexpr TResourceString rscVeryShortMorning{65522, "rscVeryShortMorning", u"ص"};
inline constexpr TResourceString rscMorning{65523, "rscMorning", u"صبح"};
inline constexpr TResourceString rscShortAfternoon{65524, "rscShortAfternoon", u"ب/ظ"};
inline constexpr TResourceString rscVeryShortAfternoon{65525, "rscVeryShortAfternoon", u"ع"};
inline constexpr TResourceString rscAfterNoon{65526, "rscAfterNoon", u"بعد از ظهر"};
inline constexpr TResourceString rscFarvardin{65527, "rscFarvardin", u"فروردین"};
inline constexpr TResourceString rscOrdibehesht{65528, "rscOrdibehesht", u"اردیبهشت"};
inline constexpr TResourceString rscKhordad{65529, "rscKhordad", u"خرداد"};
inline constexpr TResourceString rscTeer{65530, "rscTeer", u"تیر"};
inline constexpr TResourceString rscMordad{65531, "rscMordad", u"مرداد"};
inline constexpr TResourceString rscShahrivar{65532, "rscShahrivar", u"شهریور"};
inline constexpr TResourceString rscMehr{65533, "rscMehr", u"مهر"};
inline constexpr TResourceString rscAban{65534, "rscAban", u"آبان"};
inline constexpr TResourceString rscAzar{65535, "rscAzar", u"آذر"};

// The whole table in the order of the ids 65456 to 65535; the ids 65468 to 65471 are absent. Static storage.
std::span<const TResourceString> ResourceStrings();

// The text with that id; empty where there is none.
std::u16string_view LoadResourceString(std::uint16_t id);

}  // namespace orv
