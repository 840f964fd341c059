#include "platform/IcuPatterns.h"

#include "rtl/Unicode.h"

namespace orv::platform {
namespace {

constexpr bool IsPatternLetter(char16_t c) {
  return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}
constexpr bool IsBlank(char16_t c) {
  return c == u' ' || c == u'\u00A0' || c == u'\u202F';
}

std::size_t RunLength(std::u16string_view pattern) {
  std::size_t length = 1;
  while (length < pattern.size() && pattern[length] == pattern[0]) ++length;
  return length;
}

std::size_t QuotedLength(std::u16string_view pattern) {
  const std::size_t end = pattern.find(u'\'', 1);
  return end == pattern.npos ? pattern.size() : end + 1;
}

rtl::UnicodeString Times(char16_t letter, std::size_t count) {
  return rtl::UnicodeString(count, letter);
}

// The record's field for a run of one pattern letter; empty where it has none.
rtl::UnicodeString FieldOf(char16_t letter, std::size_t run) {
  switch (letter) {
    case u'y':
    case u'u':
      return u"yyyy";
    case u'M':
    case u'L':
      return Times(u'm', run < 4 ? run : 4);
    case u'd':
      return Times(u'd', run < 2 ? run : 2);
    case u'E':
    case u'c':
      return run < 4 ? u"ddd" : u"dddd";
    case u'H':
    case u'k':
    case u'h':
    case u'K':
      return Times(u'h', run < 2 ? run : 2);
    case u'm':
      return Times(u'n', run < 2 ? run : 2);
    case u's':
      return Times(u's', run < 2 ? run : 2);
    case u'S':
      return u"zzz";
    case u'a':
    case u'b':
    case u'B':
      return u"ampm";
    default:
      return {};
  }
}

// The text between single quotes as the record quotes it; a doubled quote is the apostrophe itself.
rtl::UnicodeString Requoted(std::u16string_view quoted) {
  if (quoted == u"''") return u"\"'\"";
  return rtl::UnicodeString(quoted);
}

// Blanks at the ends, and one of two beside a field that was left out, go.
rtl::UnicodeString Tidied(const rtl::UnicodeString& format) {
  rtl::UnicodeString out;
  for (const char16_t c : format)
    if (c != u' ' || (!out.empty() && out.back() != u' ')) out += c;
  if (!out.empty() && out.back() == u' ') out.pop_back();
  return out;
}

rtl::UnicodeString Converted(std::u16string_view pattern, char16_t separator, char16_t separatorLetter) {
  rtl::UnicodeString out;
  while (!pattern.empty()) {
    std::size_t taken = 1;
    if (pattern[0] == u'\'') {
      taken = QuotedLength(pattern);
      out += Requoted(pattern.substr(0, taken));
    } else if (IsPatternLetter(pattern[0])) {
      taken = RunLength(pattern);
      out += FieldOf(pattern[0], taken);
    } else if (IsBlank(pattern[0])) {
      out += u' ';
    } else if (!IsDirectionMark(pattern[0])) {
      out += pattern[0] == separator ? separatorLetter : pattern[0];
    }
    pattern.remove_prefix(taken);
  }
  return Tidied(out);
}

}  // namespace

char16_t SeparatorOf(std::u16string_view pattern, char16_t other) {
  while (!pattern.empty()) {
    if (pattern[0] == u'\'') {
      pattern.remove_prefix(QuotedLength(pattern));
      continue;
    }
    if (!IsBlank(pattern[0]) && !IsDirectionMark(pattern[0]) && !rtl::IsLetter(pattern[0])) return pattern[0];
    pattern.remove_prefix(1);
  }
  return other;
}

rtl::UnicodeString FormatOfDatePattern(std::u16string_view pattern, char16_t separator) {
  return Converted(pattern, separator, u'/');
}

rtl::UnicodeString FormatOfTimePattern(std::u16string_view pattern, char16_t separator) {
  return Converted(pattern, separator, u':');
}

}  // namespace orv::platform
