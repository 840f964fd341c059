// The scanner under the HTML and the RTF reader.
//
// A reader walks a text in memory with a cursor. Each thing it can read comes in up to three forms: Read... answers
// whether it stood there and leaves the cursor where it was when not; ...Still tests without moving at all; the plain
// form raises EParseError when it is not there. A cursor runs forwards or backwards; the limit can be narrowed, so that
// no read gets past the tag at hand.
//
// Offsets and counts are units of the source, 0-based: UTF-16 code units, or bytes of UTF-8. Characters are compared as
// UTF-16 code units; a character of two units is known by its first. Blanks are U+0020 and U+0009. An identifier is an
// ASCII letter or "_", then letters, digits or "_". Nothing matches at or past the limit, not even U+0000; only a fixed
// text that is read backwards knows no limit.
//
// A reader belongs to one thread at a time. No text makes it read out of bounds.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "rtl/Exceptions.h"
#include "rtl/Strings.h"
#include "rtl/TextSearch.h"
#include "rtl/Utf8.h"

namespace orv {

using rtl::EParseError;
using rtl::UnicodeString;

// The messages of EParseError. The first "%s" is what was looked for, the second what stood there.
inline constexpr const char* SIncompleteHTMLTag = "Incomplete HTML Tag";
inline constexpr const char* SBadRTFFormat = "RTF Format is not supported.";
inline constexpr const char* SUnexpectedEndOfRTFData = "Unexpected end of RTF string.";
inline constexpr const char* SExpectationErrOr = "'%s' expected but '%s' found";
inline constexpr const char* SUnexpectedEnd = "unexpected end";
inline constexpr const char* SInteger = "an Integer";
inline constexpr const char* SCharCode = "Character code";

constexpr bool IsBlank(char16_t c) {
  return c == u' ' || c == u'\t';
}
constexpr bool IsLineBreak(char16_t c) {
  return c == u'\r' || c == u'\n';
}
constexpr bool IsDecimalDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}
constexpr bool IsAsciiLetter(char16_t c) {
  return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}
// The values of the hexadecimal digits of either case; -1 for any other unit.
inline constexpr auto HexDigitValues = [] {
  std::array<std::int8_t, 128> values{};
  values.fill(-1);
  for (std::int8_t i = 0; i < 10; ++i) values[static_cast<std::size_t>('0' + i)] = i;
  for (std::int8_t i = 0; i < 6; ++i) {
    values[static_cast<std::size_t>('A' + i)] = static_cast<std::int8_t>(10 + i);
    values[static_cast<std::size_t>('a' + i)] = static_cast<std::int8_t>(10 + i);
  }
  return values;
}();
constexpr int HexDigitValue(char16_t c) {
  return c < HexDigitValues.size() ? HexDigitValues[c] : -1;
}

template <typename TUnit>
class TMarkupTextReader;

// What the readers share, and their makers.
class TMarkupText {
 public:
  enum class TDirection : std::int8_t { Backward = -1, Forward = 1 };

  // Where a cursor stands and which way it runs. A position lies in 0 to the length of the text; backwards it is -1
  // once the first unit has been passed.
  struct TReaderState {
    std::ptrdiff_t Position = 0;
    TDirection Direction = TDirection::Forward;
    friend bool operator==(const TReaderState&, const TReaderState&) = default;
  };

  // Characters to look for, as a text of them.
  using TCharSet = std::u16string_view;
  using TNameTable = std::span<const std::u16string_view>;

  using TMarkupTextReaderUnicode = TMarkupTextReader<char16_t>;
  using TMarkupTextReaderUTF8 = TMarkupTextReader<char>;

  // A reader that owns a copy of its text, of the kind that fits the argument. A pointer is zero-terminated.
  static TMarkupTextReaderUnicode CreateReader(UnicodeString text);
  static TMarkupTextReaderUnicode CreateReader(const char16_t* text);
  static TMarkupTextReaderUTF8 CreateReader(std::string text);
};

template <typename TUnit>
class TMarkupTextReader {
 public:
  using TDirection = TMarkupText::TDirection;
  using TReaderState = TMarkupText::TReaderState;
  using TCharSet = TMarkupText::TCharSet;
  using TNameTable = TMarkupText::TNameTable;
  using TView = std::basic_string_view<TUnit>;

  // Takes the text over.
  explicit TMarkupTextReader(std::basic_string<TUnit>&& text) : FText(std::move(text)), FView(FText), FEnd(Size()) {}
  // Borrows the text, which must outlive the reader.
  explicit TMarkupTextReader(TView text) : FView(text), FEnd(Size()) {}
  TMarkupTextReader(const TMarkupTextReader&) = delete;
  TMarkupTextReader& operator=(const TMarkupTextReader&) = delete;

  // --- Position ---

  std::ptrdiff_t Position() const { return FState.Position; }
  std::ptrdiff_t SavePosition() const { return FState.Position; }
  void RestorePosition(std::ptrdiff_t position) { SetPos(position); }
  TReaderState SaveState() const { return FState; }
  void RestoreState(TReaderState state);
  // Moves the cursor; a place outside the text becomes the nearest one in it. The limit does not matter.
  void SetPos(std::ptrdiff_t position) {
    FState.Position = std::clamp<std::ptrdiff_t>(position, Forward() ? 0 : -1, Size());
  }
  void SetDirection(TDirection direction) { RestoreState({FState.Position, direction}); }
  // Sets the limit, one past the last unit that may be read, and answers the old one.
  std::ptrdiff_t SetEnd(std::ptrdiff_t end) { return std::exchange(FEnd, std::clamp<std::ptrdiff_t>(end, 0, Size())); }
  // Forwards: the cursor is at or past the limit. Backwards: before the first unit.
  bool Eof() const { return EndAt(FState.Position); }
  // Moves by that many units along the direction, or against it. Where that would be before the first unit (backwards,
  // one before it) or past the limit, the cursor stops there; one that stands past a narrowed limit comes back to it.
  void Skip(std::ptrdiff_t count) { MoveBy(Forward() ? count : Negated(count)); }
  void StepBack(std::ptrdiff_t count) { MoveBy(Forward() ? Negated(count) : count); }
  // Skips blanks; with line breaks also CR and LF. At the limit the cursor goes back onto the last character before it,
  // so Eof stays false until that character is passed; before the text it goes onto the first.
  void SkipSpaces(bool lineBreaks) {
    const auto isSpace = [lineBreaks](char16_t c) { return IsBlank(c) || (lineBreaks && IsLineBreak(c)); };
    std::ptrdiff_t p = PlaceBehindAll(FState.Position, isSpace);
    if (p >= FEnd) p = PreviousStart(FEnd);
    FState.Position = p < 0 ? 0 : p;
  }
  // Moves past every character that passes the test.
  template <typename TTest>
  void SkipWhile(TTest test) {
    FState.Position = PlaceBehindAll(FState.Position, test);
  }
  // The source from the cursor to the limit, whatever the direction. Borrowed from the reader.
  TView Rest() const {
    const std::ptrdiff_t from = std::clamp<std::ptrdiff_t>(FState.Position, 0, FEnd);
    return TView(FView.data() + from, static_cast<std::size_t>(FEnd - from));
  }
  // The whole source. Borrowed from the reader.
  TView Source() const { return FView; }

  // --- Fixed text ---

  // Forwards, a text that would end exactly at the limit does not match. Backwards, the text before the cursor is
  // compared and the cursor goes to its start, which may be the start of the text. The limit plays no part backwards:
  // from a cursor past a narrowed one, the text behind the limit is compared as well.
  bool Read(std::u16string_view s);
  bool ReadStill(std::u16string_view s) const { return PlaceBehind(s, FEnd - 1).has_value(); }
  void Check(std::u16string_view s);

  // --- Single characters ---

  // The unit at the cursor in either direction; U+0000 at or past the limit.
  char16_t Token() const { return Inside(FState.Position) ? CharAt(FState.Position) : u'\0'; }
  bool ReadTokenStill(char16_t c) const { return Inside(FState.Position) && CharAt(FState.Position) == c; }
  std::optional<char16_t> ReadTokenStill(TCharSet set) const;
  bool ReadToken(char16_t c) {
    if (!ReadTokenStill(c)) return false;
    FState.Position = Next(FState.Position);
    return true;
  }
  bool ReadToken(TCharSet set);
  void CheckToken(char16_t c) {
    if (!ReadToken(c)) RaiseExpected(std::u16string_view(&c, 1));
  }

  // Moves to the next such character, or behind it with skip; the cursor stays where there is none.
  bool FindChar(char16_t c, bool skip) {
    const std::ptrdiff_t place = PlaceOf(c);
    if (!Inside(place)) return false;
    FState.Position = skip ? Next(place) : place;
    return true;
  }
  // The same for the first of any; answers which one it was.
  std::optional<char16_t> FindAny(TCharSet set, bool skip);

  // --- Numbers ---

  // One or more decimal digits without a sign, at most 2147483647.
  std::optional<std::int32_t> ReadInteger();
  std::optional<std::int32_t> ReadIntegerStill() const;
  std::int32_t Integer();
  // Any number of decimal digits, as text.
  UnicodeString ReadDigits() { return TextOf(Take(ClosingDigits())); }
  UnicodeString ReadDigitsStill() const { return TextOf(Stretch(FState.Position, ClosingDigits())); }
  void SkipDigits() { FState.Position = ClosingDigits(); }

  // One or more hexadecimal digits, at most FFFFFFFF.
  std::optional<std::uint32_t> ReadHex();
  std::optional<std::uint32_t> ReadHexStill() const;
  UnicodeString ReadHexDigits();
  // Exactly two, and exactly four hexadecimal digits.
  std::optional<std::uint8_t> ReadHexByte();
  std::optional<std::uint16_t> ReadHexWord();
  std::uint8_t HexByte();
  std::uint16_t HexWord();

  // --- Words and strings ---

  // Forwards only (assertion; without assertions nothing is read).
  std::optional<UnicodeString> ReadIdent();
  UnicodeString Ident() { return TextOf(TakeIdent()); }

  // From one double quote to the next. There is no escape.
  std::optional<UnicodeString> ReadQuotedString();
  UnicodeString QuotedString() { return TextOf(TakeQuoted()); }
  // Up to the first character of the set or to the limit. The cursor then stands on that character.
  UnicodeString CopyText(TCharSet set) { return TextOf(TakeTill(set)); }
  UnicodeString CopyTextTill(char16_t c) { return TextOf(TakeTill(c)); }
  // The same as stretches of the source, borrowed from it.
  TView TakeTill(TCharSet set) { return Take(PlaceOf(set)); }
  TView TakeTill(char16_t c) { return Take(PlaceOf(c)); }
  std::optional<TView> ReadIdentStretch();
  TView TakeIdent();
  TView TakeQuoted();
  // The same into the caller's buffer, as much as fits it; answers the number of units. The UTF-8 reader cannot tell
  // how many units a buffer's worth of bytes makes, and raises Exception "Not implemented yet." in this one and the
  // next.
  std::size_t CopyTextTill(std::span<char16_t> buffer, TCharSet set);
  // Fills the buffer with the units at the cursor; false, reading nothing, when there are not so many.
  bool ReadBuffer(std::span<char16_t> buffer);

  // The index of the first name in table order that begins at the cursor. Empty names are passed over; case counts; an
  // earlier name wins over a longer one behind it. Forwards only, like ReadIdent.
  std::optional<std::int32_t> ReadEnumIndex(TNameTable names);
  std::optional<std::int32_t> ReadEnumIndexStill(TNameTable names) const;
  std::int32_t EnumIndex(TNameTable names);

  // Raises EParseError: expected, and what stands at the cursor instead.
  [[noreturn]] void RaiseExpected(std::u16string_view expected) const;

 private:
  std::ptrdiff_t Size() const { return static_cast<std::ptrdiff_t>(FView.size()); }
  bool Forward() const { return FState.Direction == TDirection::Forward; }
  bool EndAt(std::ptrdiff_t p) const { return Forward() ? p >= FEnd : p < 0; }
  bool Inside(std::ptrdiff_t p) const { return p >= 0 && p < FEnd; }
  static std::ptrdiff_t Negated(std::ptrdiff_t count) { return count == PTRDIFF_MIN ? PTRDIFF_MAX : -count; }
  void MoveBy(std::ptrdiff_t count) {
    const std::ptrdiff_t low = Forward() ? 0 : -1;
    FState.Position += std::clamp(count, low - FState.Position, FEnd - FState.Position);
  }

  // Of the character at place p inside the text: its first UTF-16 unit, and its length in the source.
  char16_t CharAt(std::ptrdiff_t p) const {
    const TUnit unit = FView[static_cast<std::size_t>(p)];
    if constexpr (sizeof(TUnit) == 1)
      return static_cast<unsigned char>(unit) < 0x80 ? static_cast<char16_t>(unit) : DecodedChar(p);
    else
      return unit;
  }
  std::ptrdiff_t LengthAt(std::ptrdiff_t p) const {
    if constexpr (sizeof(TUnit) == 1)
      if (Inside(p) && static_cast<unsigned char>(FView[static_cast<std::size_t>(p)]) >= 0x80) return DecodedLength(p);
    return 1;
  }
  std::ptrdiff_t DecodedLength(std::ptrdiff_t p) const;
  char16_t DecodedChar(std::ptrdiff_t p) const;
  std::ptrdiff_t PreviousStart(std::ptrdiff_t p) const {
    if constexpr (sizeof(TUnit) == 1) return DecodedStart(p);
    return p - 1;
  }
  std::ptrdiff_t DecodedStart(std::ptrdiff_t p) const;
  // The place of the next character along the direction.
  std::ptrdiff_t Next(std::ptrdiff_t p) const { return Forward() ? p + LengthAt(p) : PreviousStart(p); }

  // The place behind s if it matches at the cursor; forwards, a match may end no later than at last. Backwards, only
  // the start of the text limits it.
  std::optional<std::ptrdiff_t> PlaceBehind(std::u16string_view s, std::ptrdiff_t last) const;
  // The first place from p on whose character fails the test, or where the cursor would be at its end.
  template <typename TTest>
  std::ptrdiff_t PlaceBehindAll(std::ptrdiff_t p, TTest test) const {
    while (Inside(p) && test(CharAt(p))) p = Next(p);
    return p;
  }
  // The first place whose character is (one of) the wanted, or where the cursor would be at its end.
  std::ptrdiff_t PlaceOf(char16_t c) const {
    if (!Forward() || (sizeof(TUnit) == 1 && c >= 0x80)) return SearchPlaceOf(c);
    return FState.Position + static_cast<std::ptrdiff_t>(rtl::FindUnit(Rest(), static_cast<TUnit>(c)));
  }
  std::ptrdiff_t SearchPlaceOf(char16_t c) const;
  std::ptrdiff_t PlaceOf(TCharSet set) const;
  std::ptrdiff_t ClosingDigits() const { return PlaceBehindAll(FState.Position, IsDecimalDigit); }
  // The place behind exactly count hexadecimal digits.
  std::optional<std::ptrdiff_t> PlaceBehindHex(int count) const;
  std::optional<std::ptrdiff_t> PlaceBehindIdent() const;

  // The source between two places of the cursor, in the order of the text.
  TView Stretch(std::ptrdiff_t from, std::ptrdiff_t to) const {
    const std::ptrdiff_t low = Forward() ? from : to < 0 ? 0 : to + LengthAt(to);
    const std::ptrdiff_t high = Forward() ? to : std::min(from + LengthAt(from), FEnd);
    if (from == to || low >= high) return {};
    return TView(FView.data() + low, static_cast<std::size_t>(high - low));
  }
  TView Take(std::ptrdiff_t to) { return Stretch(std::exchange(FState.Position, to), to); }
  static UnicodeString TextOf(TView stretch);
  static std::optional<std::int32_t> IntegerOf(TView digits);
  static std::uint32_t HexValue(TView digits);
  std::optional<std::uint32_t> TakeHex(int count);

  const std::basic_string<TUnit> FText;
  const TView FView;
  TReaderState FState;
  std::ptrdiff_t FEnd = 0;
};

extern template class TMarkupTextReader<char16_t>;
extern template class TMarkupTextReader<char>;

}  // namespace orv
