#include "formatted/Orv.StdCtrls.Markup.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "rtl/Assertions.h"
#include "rtl/TextSearch.h"
#include "rtl/Unicode.h"

namespace orv {
namespace {

[[maybe_unused]] constexpr const char* SIdentBackwards = "ReadIdent doesn't work in backward direction.";
constexpr const char* SNotImplementedYet = "Not implemented yet.";
constexpr std::u16string_view IdentifierName = u"identifier";

bool BeginsIdent(char16_t c) {
  return IsAsciiLetter(c) || c == u'_';
}
bool ContinuesIdent(char16_t c) {
  return BeginsIdent(c) || IsDecimalDigit(c);
}
bool IsHexDigit(char16_t c) {
  return HexDigitValue(c) >= 0;
}

// A fixed text of the code as UTF-16.
UnicodeString Widened(const char* text) {
  return rtl::FromUtf8(text);
}

std::string ExpectationMessage(std::string_view expected, std::string_view found) {
  std::string message = SExpectationErrOr;
  const auto fill = [&message](std::size_t from, std::string_view text) {
    const std::size_t place = message.find("%s", from);
    message.replace(place, 2, text);
    return place + text.size();
  };
  fill(fill(0, expected), found);
  return message;
}

}  // namespace

TMarkupText::TMarkupTextReaderUnicode TMarkupText::CreateReader(UnicodeString text) {
  return TMarkupTextReaderUnicode(std::move(text));
}

TMarkupText::TMarkupTextReaderUnicode TMarkupText::CreateReader(const char16_t* text) {
  return TMarkupTextReaderUnicode(UnicodeString(text));
}

TMarkupText::TMarkupTextReaderUTF8 TMarkupText::CreateReader(std::string text) {
  return TMarkupTextReaderUTF8(std::move(text));
}

// --- Position ---

template <typename TUnit>
void TMarkupTextReader<TUnit>::RestoreState(TMarkupText::TReaderState state) {
  FState.Direction = state.Direction;
  SetPos(state.Position);
}

template <typename TUnit>
std::ptrdiff_t TMarkupTextReader<TUnit>::DecodedLength(std::ptrdiff_t p) const {
  if constexpr (sizeof(TUnit) == 1) {
    const TView limited = FView.substr(0, static_cast<std::size_t>(FEnd));
    return static_cast<std::ptrdiff_t>(rtl::DecodeUtf8(limited, static_cast<std::size_t>(p)).Length);
  } else {
    return 1;
  }
}

template <typename TUnit>
char16_t TMarkupTextReader<TUnit>::DecodedChar(std::ptrdiff_t p) const {
  if constexpr (sizeof(TUnit) == 1) {
    const TView limited = FView.substr(0, static_cast<std::size_t>(FEnd));
    const std::uint32_t c = rtl::DecodeUtf8(limited, static_cast<std::size_t>(p)).CodePoint;
    return static_cast<char16_t>(c < 0x10000 ? c : 0xD800 + ((c - 0x10000) >> 10));
  } else {
    return FView[static_cast<std::size_t>(p)];
  }
}

template <typename TUnit>
std::ptrdiff_t TMarkupTextReader<TUnit>::DecodedStart(std::ptrdiff_t p) const {
  // A character takes at most four bytes; one that does not end right here is no neighbour.
  for (std::ptrdiff_t length = 2; length <= 4 && p - length >= 0; ++length)
    if (LengthAt(p - length) == length) return p - length;
  return p - 1;
}

template <typename TUnit>
UnicodeString TMarkupTextReader<TUnit>::TextOf(TView stretch) {
  if constexpr (sizeof(TUnit) == 1)
    return rtl::FromUtf8(stretch);
  else
    return UnicodeString(stretch);
}

// --- Fixed text ---

template <typename TUnit>
std::optional<std::ptrdiff_t> TMarkupTextReader<TUnit>::PlaceBehind(std::u16string_view s, std::ptrdiff_t last) const {
  const auto place = [this, last](auto wanted) -> std::optional<std::ptrdiff_t> {
    const auto length = static_cast<std::ptrdiff_t>(wanted.size());
    const std::ptrdiff_t p = FState.Position;
    const bool fits = Forward() ? p <= last - length : p >= length;
    if (!fits) return std::nullopt;
    const std::ptrdiff_t start = Forward() ? p : p - length;
    const TUnit* source = FView.data() + start;
    const auto same = [](auto a, TUnit b) { return a == static_cast<decltype(a)>(b); };
    if (!std::equal(wanted.begin(), wanted.end(), source, same)) return std::nullopt;
    return Forward() ? p + length : start;
  };
  const auto isAscii = [](char16_t c) { return c < 0x80; };
  if (sizeof(TUnit) == 1 && !std::all_of(s.begin(), s.end(), isAscii)) return place(std::string_view(rtl::ToUtf8(s)));
  return place(s);
}

template <typename TUnit>
bool TMarkupTextReader<TUnit>::Read(std::u16string_view s) {
  const auto place = PlaceBehind(s, FEnd - 1);
  if (place) FState.Position = *place;
  return place.has_value();
}

template <typename TUnit>
void TMarkupTextReader<TUnit>::Check(std::u16string_view s) {
  if (!Read(s)) RaiseExpected(s);
}

template <typename TUnit>
void TMarkupTextReader<TUnit>::RaiseExpected(std::u16string_view expected) const {
  std::string found;
  if (!Inside(FState.Position)) {
    found = SUnexpectedEnd;
  } else if (Forward()) {
    if (const auto place = PlaceBehindIdent()) found = rtl::ToUtf8(TextOf(Stretch(FState.Position, *place)));
  }
  throw EParseError(ExpectationMessage(rtl::ToUtf8(expected), found));
}

// --- Single characters ---

template <typename TUnit>
std::optional<char16_t> TMarkupTextReader<TUnit>::ReadTokenStill(TCharSet set) const {
  if (!Inside(FState.Position)) return std::nullopt;
  const char16_t c = CharAt(FState.Position);
  return set.find(c) == TCharSet::npos ? std::nullopt : std::optional(c);
}

template <typename TUnit>
bool TMarkupTextReader<TUnit>::ReadToken(TCharSet set) {
  if (!ReadTokenStill(set)) return false;
  FState.Position = Next(FState.Position);
  return true;
}

template <typename TUnit>
std::ptrdiff_t TMarkupTextReader<TUnit>::SearchPlaceOf(char16_t c) const {
  std::ptrdiff_t p = FState.Position;
  while (!EndAt(p) && !(Inside(p) && CharAt(p) == c)) p = Next(p);
  return p;
}

template <typename TUnit>
std::ptrdiff_t TMarkupTextReader<TUnit>::PlaceOf(TCharSet set) const {
  std::ptrdiff_t p = FState.Position;
  while (!EndAt(p) && !(Inside(p) && set.find(CharAt(p)) != TCharSet::npos)) p = Next(p);
  return p;
}

template <typename TUnit>
std::optional<char16_t> TMarkupTextReader<TUnit>::FindAny(TCharSet set, bool skip) {
  const std::ptrdiff_t place = PlaceOf(set);
  if (!Inside(place)) return std::nullopt;
  FState.Position = skip ? Next(place) : place;
  return CharAt(place);
}

// --- Numbers ---

template <typename TUnit>
std::optional<std::int32_t> TMarkupTextReader<TUnit>::IntegerOf(TView digits) {
  if (digits.empty()) return std::nullopt;
  std::int64_t value = 0;
  for (const TUnit digit : digits) {
    value = value * 10 + (digit - '0');
    if (value > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
  }
  return static_cast<std::int32_t>(value);
}

template <typename TUnit>
std::optional<std::int32_t> TMarkupTextReader<TUnit>::ReadIntegerStill() const {
  return IntegerOf(Stretch(FState.Position, ClosingDigits()));
}

template <typename TUnit>
std::optional<std::int32_t> TMarkupTextReader<TUnit>::ReadInteger() {
  const std::ptrdiff_t behind = ClosingDigits();
  const auto value = IntegerOf(Stretch(FState.Position, behind));
  if (value) FState.Position = behind;
  return value;
}

template <typename TUnit>
std::int32_t TMarkupTextReader<TUnit>::Integer() {
  const auto value = ReadInteger();
  if (!value) RaiseExpected(Widened(SInteger));
  return *value;
}

template <typename TUnit>
std::uint32_t TMarkupTextReader<TUnit>::HexValue(TView digits) {
  std::uint32_t value = 0;
  for (const TUnit digit : digits)
    value = (value << 4) | static_cast<std::uint32_t>(HexDigitValue(static_cast<char16_t>(digit)));
  return value;
}

template <typename TUnit>
std::optional<std::uint32_t> TMarkupTextReader<TUnit>::ReadHexStill() const {
  const TView digits = Stretch(FState.Position, PlaceBehindAll(FState.Position, IsHexDigit));
  if (digits.empty()) return std::nullopt;
  const TView significant = digits.substr(std::min(digits.find_first_not_of(TUnit{'0'}), digits.size()));
  return significant.size() > 8 ? std::nullopt : std::optional(HexValue(significant));
}

template <typename TUnit>
std::optional<std::uint32_t> TMarkupTextReader<TUnit>::ReadHex() {
  const auto value = ReadHexStill();
  if (value) ReadHexDigits();
  return value;
}

template <typename TUnit>
UnicodeString TMarkupTextReader<TUnit>::ReadHexDigits() {
  return TextOf(Take(PlaceBehindAll(FState.Position, IsHexDigit)));
}

template <typename TUnit>
std::optional<std::ptrdiff_t> TMarkupTextReader<TUnit>::PlaceBehindHex(int count) const {
  std::ptrdiff_t p = FState.Position;
  for (int i = 0; i < count; ++i) {
    if (!Inside(p) || !IsHexDigit(CharAt(p))) return std::nullopt;
    p = Next(p);
  }
  return p;
}

template <typename TUnit>
std::optional<std::uint32_t> TMarkupTextReader<TUnit>::TakeHex(int count) {
  const auto place = PlaceBehindHex(count);
  return place ? std::optional(HexValue(Take(*place))) : std::nullopt;
}

template <typename TUnit>
std::optional<std::uint8_t> TMarkupTextReader<TUnit>::ReadHexByte() {
  const auto value = TakeHex(2);
  return value ? std::optional(static_cast<std::uint8_t>(*value)) : std::nullopt;
}

template <typename TUnit>
std::optional<std::uint16_t> TMarkupTextReader<TUnit>::ReadHexWord() {
  const auto value = TakeHex(4);
  return value ? std::optional(static_cast<std::uint16_t>(*value)) : std::nullopt;
}

template <typename TUnit>
std::uint8_t TMarkupTextReader<TUnit>::HexByte() {
  const auto value = ReadHexByte();
  if (!value) RaiseExpected(Widened(SCharCode));
  return *value;
}

template <typename TUnit>
std::uint16_t TMarkupTextReader<TUnit>::HexWord() {
  const auto value = ReadHexWord();
  if (!value) RaiseExpected(Widened(SCharCode));
  return *value;
}

// --- Words and strings ---

template <typename TUnit>
std::optional<std::ptrdiff_t> TMarkupTextReader<TUnit>::PlaceBehindIdent() const {
  ORV_ASSERT(Forward(), SIdentBackwards);
  if (!Forward() || !Inside(FState.Position) || !BeginsIdent(CharAt(FState.Position))) return std::nullopt;
  return PlaceBehindAll(FState.Position, ContinuesIdent);
}

template <typename TUnit>
auto TMarkupTextReader<TUnit>::ReadIdentStretch() -> std::optional<TView> {
  const auto place = PlaceBehindIdent();
  return place ? std::optional(Take(*place)) : std::nullopt;
}

template <typename TUnit>
auto TMarkupTextReader<TUnit>::TakeIdent() -> TView {
  const auto ident = ReadIdentStretch();
  if (!ident) RaiseExpected(IdentifierName);
  return *ident;
}

template <typename TUnit>
std::optional<UnicodeString> TMarkupTextReader<TUnit>::ReadIdent() {
  const auto ident = ReadIdentStretch();
  return ident ? std::optional(TextOf(*ident)) : std::nullopt;
}

template <typename TUnit>
auto TMarkupTextReader<TUnit>::TakeQuoted() -> TView {
  CheckToken(u'"');
  const TView content = TakeTill(u'"');
  CheckToken(u'"');
  return content;
}

template <typename TUnit>
std::optional<UnicodeString> TMarkupTextReader<TUnit>::ReadQuotedString() {
  const TReaderState start = FState;
  if (!ReadToken(u'"')) return std::nullopt;
  const TView content = TakeTill(u'"');
  if (ReadToken(u'"')) return TextOf(content);
  FState = start;
  return std::nullopt;
}

template <typename TUnit>
std::size_t TMarkupTextReader<TUnit>::CopyTextTill(std::span<char16_t> buffer, TCharSet set) {
  if constexpr (sizeof(TUnit) == 1) {
    throw rtl::Exception(SNotImplementedYet);
  } else {
    const auto room = static_cast<std::ptrdiff_t>(buffer.size());
    const std::ptrdiff_t from = FState.Position;
    const std::ptrdiff_t place = PlaceOf(set);
    const std::ptrdiff_t to = Forward() ? std::min(place, from + room) : std::max(place, from - room);
    const TView text = Take(to);
    std::copy(text.begin(), text.end(), buffer.begin());
    return text.size();
  }
}

template <typename TUnit>
bool TMarkupTextReader<TUnit>::ReadBuffer(std::span<char16_t> buffer) {
  if constexpr (sizeof(TUnit) == 1) {
    throw rtl::Exception(SNotImplementedYet);
  } else {
    const auto count = static_cast<std::ptrdiff_t>(buffer.size());
    const std::ptrdiff_t from = FState.Position;
    const bool enough = Forward() ? count <= FEnd - from : from < FEnd && count <= from + 1;
    if (!enough) return false;
    const TView text = Take(Forward() ? from + count : from - count);
    std::copy(text.begin(), text.end(), buffer.begin());
    return true;
  }
}

// --- Enumerations ---

template <typename TUnit>
std::optional<std::int32_t> TMarkupTextReader<TUnit>::ReadEnumIndexStill(TNameTable names) const {
  ORV_ASSERT(Forward(), SIdentBackwards);
  if (!Forward() || !Inside(FState.Position)) return std::nullopt;
  const char16_t first = CharAt(FState.Position);
  for (std::size_t i = 0; i < names.size(); ++i)
    if (!names[i].empty() && names[i].front() == first && PlaceBehind(names[i], FEnd))
      return static_cast<std::int32_t>(i);
  return std::nullopt;
}

template <typename TUnit>
std::optional<std::int32_t> TMarkupTextReader<TUnit>::ReadEnumIndex(TNameTable names) {
  const auto index = ReadEnumIndexStill(names);
  if (index) FState.Position = *PlaceBehind(names[static_cast<std::size_t>(*index)], FEnd);
  return index;
}

template <typename TUnit>
std::int32_t TMarkupTextReader<TUnit>::EnumIndex(TNameTable names) {
  const auto index = ReadEnumIndex(names);
  if (!index) RaiseExpected(IdentifierName);
  return *index;
}

template class TMarkupTextReader<char16_t>;
template class TMarkupTextReader<char>;

}  // namespace orv
