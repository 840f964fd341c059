#include "unicode/Unicode.Engine.TokenReader.h"

#include <array>

#include "rtl/Assertions.h"
#include "rtl/FormatSettings.h"

namespace orv::engine {
namespace {

TBidiType ResolveBaseBidi(TParagraphBidi paragraphBidi, std::u16string_view s) {
  if (paragraphBidi == TParagraphBidi::LeftToRight) return TBidiType::LTR;
  if (paragraphBidi == TParagraphBidi::RightToLeft) return TBidiType::RTL;
  return TDirectiveChars::IsRTLText(s, paragraphBidi == TParagraphBidi::AutoRightToLeft) ? TBidiType::RTL
                                                                                         : TBidiType::LTR;
}

constexpr char16_t MatchingCloser(char16_t opener) {
  switch (opener) {
    case u'(':
      return u')';
    case 0x00AB:
      return 0x00BB;
    case 0x2039:
      return 0x203A;
    default:
      return static_cast<char16_t>(opener + ((opener & 0xF) == 0xB ? 2 : 1));
  }
}

// Which rule the first unit of a token calls, by its class byte.
enum class TTokenStart : std::uint8_t { R, L, Digit, S, Separator, Control, Format, Punctuation, Opener, Closer, N };

constexpr TTokenStart TokenStartOf(TUnitClass kind, bool inRTL) {
  if (kind.IsRTL()) return TTokenStart::R;
  if (kind.IsLetter()) return TTokenStart::L;
  switch (kind.Category()) {
    case TCategory::Nd:
      return inRTL ? TTokenStart::Digit : TTokenStart::L;
    case TCategory::Zs:
      return TTokenStart::S;
    case TCategory::Zl:
    case TCategory::Zp:
      return TTokenStart::Separator;
    case TCategory::Cc:
      return TTokenStart::Control;
    case TCategory::Cf:
      return TTokenStart::Format;
    case TCategory::Po:
      return TTokenStart::Punctuation;
    case TCategory::Pi:
    case TCategory::Ps:
      return TTokenStart::Opener;
    case TCategory::Pe:
    case TCategory::Pf:
      return TTokenStart::Closer;
    default:
      return TTokenStart::N;
  }
}

constexpr std::array<TTokenStart, 256> MakeTokenStarts(bool inRTL) {
  std::array<TTokenStart, 256> starts{};
  for (unsigned bits = 0; bits < starts.size(); ++bits)
    starts[bits] = TokenStartOf(TUnitClass(static_cast<std::uint16_t>(bits)), inRTL);
  return starts;
}

constexpr std::array<std::array<TTokenStart, 256>, 2> TokenStarts{MakeTokenStarts(false), MakeTokenStarts(true)};

}  // namespace

TSplitSettings TSplitSettings::Current(TParagraphBidi paragraphBidi) {
  const TOrvGlobalOptions options = TOrvGlobalSettings::Options;
  const bool readsSeparator = options.Contains(TOrvGlobalOption::RTLDate);
  return {paragraphBidi, TOrvGlobalSettings::RTLMath(), options, TOrvGlobalSettings::Corrections,
          readsSeparator ? rtl::FormatSettings().DateSeparator : u'/'};
}

TWorkspace::TWorkspace() {
  Runs.Offsets.reserve(RunCapacity);
  Runs.VisualOrder.reserve(RunCapacity);
  Runs.Bidi.reserve(RunCapacity);
  Runs.Ranges.reserve(RangeCapacity);
}

TBidiType ClassifyChar(char16_t c, bool rtlMath) {
  if (IsArabicIndicDigit(c) || (rtlMath && IsAsciiDigit(c))) return TBidiType::ArabicDigit;
  const TUnitClass kind = ClassOf(c);
  if (kind.IsLTR()) return TBidiType::LTR;
  return kind.IsRTL() ? TBidiType::RTL : TBidiType::Neutral;
}

TTokenReader::TTokenReader(std::u16string_view s, const TSplitSettings& settings, TWorkspace& workspace,
                           TDirectionalRuns& runs)
    : Text(s),
      Settings(settings),
      HasArabicDigits(!s.empty() && IsArabicIndicDigit(s.front())),
      Runs(runs),
      Order(runs.VisualOrder, workspace.LatePlaces),
      Stack(workspace.Stack),
      BaseBidi(ResolveBaseBidi(settings.ParagraphBidi, s)),
      CurrentBidi(BaseBidi),
      PreviousBidi(BaseBidi),
      FWorkspace(workspace) {
  Stack.clear();
}

TBidiType TTokenReader::ReadNextToken() {
  PreviousBidi = CurrentBidi;
  SavedEndOfLine = EndOfLine;
  SentenceEnded = false;
  const char16_t c = Text[Position++];
  switch (TokenStarts[PreviousBidi == TBidiType::RTL ? 1 : 0][ClassOf(c).LowByte()]) {
    case TTokenStart::R:
      return RuleR();
    case TTokenStart::L:
      return RuleL();
    case TTokenStart::Digit:
      return IsAsciiDigit(c) ? RuleD() : RuleL();
    case TTokenStart::S:
      return RuleS();
    case TTokenStart::Separator:
      return TBidiType::LineParagraphSeparator;
    case TTokenStart::Control:
      return IsLineFeedOrReturn(c) ? RuleLineEnd() : RuleN();
    case TTokenStart::Format:
      if (c == 0x200E) return RuleL();
      return IsZeroWidthBlank(c) ? RuleS() : TBidiType::DirectionalFormatting;
    case TTokenStart::Punctuation:
      return RulePunctuation(c);
    case TTokenStart::Opener:
      return RuleBOpen(c);
    case TTokenStart::Closer:
      return FBracketDepth > 0 ? RuleBClose() : RuleN();
    case TTokenStart::N:
      break;
  }
  return RuleN();
}

// Stops and quotes have rules that may decline.
TBidiType TTokenReader::RulePunctuation(char16_t c) {
  if (c == u'.') {
    if (const auto token = RuleP()) return *token;
  } else if (c == u'"' || c == u'\'') {
    if (const auto token = RuleQ(c)) return *token;
  }
  return RuleN();
}

TLookAhead& TTokenReader::Ahead() {
  return FAhead ? *FAhead : FAhead.emplace(Text, FWorkspace.Closers);
}

// Rule R: a right-to-left stretch. A thin space or zero-width unit between two right-to-left units joins them; a stop
// that ends the sentence belongs to it.
TBidiType TTokenReader::RuleR() {
  std::int32_t place = Position;
  for (;;) {
    while (ClassOf(Text.At(place)).IsRTL()) ++place;
    if (!IsIn(Text.At(place), 0x200A, 0x200C) || !ClassOf(Text.At(place + 1)).IsRTL()) break;
    place += 2;
  }
  if (CurrentBidi == TBidiType::RTL && IsSentenceStop(Text, place)) {
    SentenceEnded = true;
    ++place;
  }
  Position = place;
  return TBidiType::RTL;
}

// Rule L: a left-to-right stretch, with the decimal and thousands marks inside its numbers.
TBidiType TTokenReader::RuleL() {
  const bool keepsNumbersApart = PreviousBidi == TBidiType::RTL;
  const bool asciiDigitsApart = keepsNumbersApart && Settings.RTLMath;
  std::int32_t place = Position;
  for (;;) {
    for (;; ++place) {
      const char16_t c = Text.At(place);
      if (!ClassOf(c).IsLTR()) break;
      if (asciiDigitsApart && IsAsciiDigit(c)) break;
      if (c > 0x7F && keepsNumbersApart && IsArabicIndicDigit(c)) break;
    }
    Position = place;
    if (AtEnd()) return TBidiType::LTR;
    if (CurrentBidi == TBidiType::LTR && IsSentenceStop(Text, place)) {
      SentenceEnded = true;
      Position = place + 1;
      return TBidiType::LTR;
    }
    const char16_t mark = Text[place];
    const bool insideNumber =
        (mark == u'.' || mark == u'\'') && IsAsciiDigit(Text.At(place + 1)) && IsAsciiDigit(Text[place - 1]);
    if (!insideNumber) return TBidiType::LTR;
    place += 2;
  }
}

// A paragraph's end. A line feed behind either unit belongs to it, so LF CR ends two paragraphs and LF LF one.
TBidiType TTokenReader::RuleLineEnd() {
  if (Text.At(Position) == u'\n') ++Position;
  return TBidiType::LineParagraphSeparator;
}

// Rule S: blanks. A line or paragraph separator right behind a blank is taken with them.
TBidiType TTokenReader::RuleS() {
  for (; !AtEnd(); ++Position) {
    const TUnitClass kind = ClassOf(Text[Position]);
    if (!kind.In(Blanks)) break;
    if (kind.In(LineSeparators)) LineEndSwallowed = true;
  }
  return TBidiType::SpaceSeparator;
}

std::int32_t TTokenReader::SkipBlanksBehindStop(std::int32_t place) const {
  for (; place < Text.Length(); ++place) {
    const char16_t c = Text[place];
    if (c != u' ' && c != u'\t' && !IsZeroWidthBlank(c)) break;
  }
  return place;
}

// Rule P: a stop that closes a phrase has the direction in force; one between two words is a neutral.
std::optional<TBidiType> TTokenReader::RuleP() {
  const char16_t behind = Text.At(SkipBlanksBehindStop(Position));
  if (!ClassOf(behind).In(LettersAndDigits)) return CurrentBidi;
  return std::nullopt;
}

// Rule Q: a quote counts where two units before it stands a blank or a colon, or where its like is open.
std::optional<TBidiType> TTokenReader::RuleQ(char16_t quote) {
  bool& open = quote == u'"' ? DoubleQuoteOpen : SingleQuoteOpen;
  if (!open && !QuoteMayCount(Text, Position - 1)) return std::nullopt;

  TBidiType token = PreviousBidi;
  if (open) {
    PopDirection(CurrentBidi);
    --FBracketDepth;
  } else {
    PushDirection(ClassifyInside(quote), CurrentBidi);
    ++FBracketDepth;
    token = CurrentBidi;
  }
  open = !open;
  if (token == TBidiType::RTL) AddRange(Position - 1, Position - 1);
  return token;
}

// Rule B-open: the inside of a bracket has the direction of its first strong character, and so has the bracket.
TBidiType TTokenReader::RuleBOpen(char16_t opener) {
  PushDirection(ClassifyInside(MatchingCloser(opener)), BaseBidi);
  if (CurrentBidi == TBidiType::RTL) AddRange(Position - 1, Position - 1);
  ++FBracketDepth;
  return CurrentBidi;
}

// Rule B-close: the closing bracket belongs to the inside.
TBidiType TTokenReader::RuleBClose() {
  const TBidiType inside = CurrentBidi;
  PopDirection(BaseBidi);
  --FBracketDepth;
  if (inside == TBidiType::RTL) AddRange(Position - 1, Position - 1);
  return inside;
}

// Rule N: a stretch of neutrals. A stop in it that ends a phrase ends the stretch with the direction in force.
TBidiType TTokenReader::RuleN() {
  while (!AtEnd()) {
    const char16_t c = Text[Position];
    if (ClassOf(c).In(NeutralStops)) return TBidiType::Neutral;
    ++Position;
    if (c != u'.') continue;
    if (AtEnd()) return CurrentBidi;
    if (!ClassOf(Text[Position]).IsWhiteSpace()) continue;
    const char16_t behind = Text.At(SkipBlanksBehindStop(Position + 1));
    if (Classify(behind) != TBidiType::Neutral) return CurrentBidi;
  }
  return TBidiType::Neutral;
}

// Rules D: an ASCII digit in right-to-left context.
TBidiType TTokenReader::RuleD() {
  const std::int32_t here = Position;
  if (RuleD1LatinWord(here)) return TBidiType::LTR;
  if (RuleD2Date(here)) return TBidiType::ArabicDigit;
  if (RuleD3ArabicDigits()) return TBidiType::LTR;
  if (RuleD4BehindLatin(here)) return TBidiType::LTR;
  if (RuleD5Measure(here)) return TBidiType::ArabicDigit;
  TNumber number = RuleD6RTLEquations();
  const bool listIndex = RuleD7ListIndex(here, number);
  if (Has(TOrvGlobalOption::DigitsBeforeLatinAreLatin)) {
    if (RuleD8BeforeLatin(here)) return TBidiType::LTR;
  } else if (!listIndex || !Settings.Corrections.Contains(TOrvCorrection::LineIndex)) {
    // By the rules D9 overwrites what D7 found; with the correction a list index keeps its result.
    if (RuleD9Equation(here, number)) return TBidiType::ArabicDigit;
  }
  return RuleD10Rest(here, number);
}

// D1: digits that run into a Latin word are one stretch with it ("3D").
bool TTokenReader::RuleD1LatinWord(std::int32_t here) {
  const std::int32_t end = Ahead().IsLatinWordAhead(here);
  if (end == TLookAhead::Fails) return false;
  Position = end;
  return true;
}

bool TTokenReader::RuleD2Date(std::int32_t here) {
  if (!Has(TOrvGlobalOption::RTLDate) || !Ahead().IsDateAhead(here, Settings.DateSeparator)) return false;
  Position = Ahead().SkipAsciiDigits(here);
  AddRange(here - 1, Position - 1);
  return true;
}

// D3: in a text that begins with an Arabic-Indic digit an ASCII digit stands alone.
bool TTokenReader::RuleD3ArabicDigits() const {
  return HasArabicDigits;
}

// D4: a digit behind a Latin run stays in it.
bool TTokenReader::RuleD4BehindLatin(std::int32_t here) {
  switch (RunKind) {
    case TBidiType::RTL:
    case TBidiType::ArabicDigit:
    case TBidiType::LTRUnmergable:
    case TBidiType::RTLUnmergable:
    case TBidiType::ArabicDigitUnmergable:
    case TBidiType::LineParagraphSeparator:
    case TBidiType::NotExists:
      return false;
    default:
      // The digits right behind it would each be the same token again, unless one of them begins a date.
      if (!Has(TOrvGlobalOption::RTLDate)) Position = Ahead().SkipAsciiDigits(here);
      return true;
  }
}

bool TTokenReader::RuleD5Measure(std::int32_t here) {
  const bool prime = Has(TOrvGlobalOption::PrimeInRightSideOfDigits);
  if (!prime && !Has(TOrvGlobalOption::MeasureSignsInRightSideOfDigits)) return false;
  const std::int32_t end = Ahead().IsMeasureAhead(here, prime, Has(TOrvGlobalOption::PercentInRightSideOfDigits));
  if (end == TLookAhead::Fails) return false;
  Position = end;
  AddRange(here - 1, Position - 1);
  return true;
}

// D6: where equations run right to left, every digit is a number.
TTokenReader::TNumber TTokenReader::RuleD6RTLEquations() const {
  if (!Settings.RTLMath) return {TBidiType::LTR, TExtent::OneDigit};
  return {TBidiType::ArabicDigit, TExtent::Tail};
}

// D7: a number that opens a line, with a list mark behind it.
bool TTokenReader::RuleD7ListIndex(std::int32_t here, TNumber& number) {
  const bool opensLine = RunKind == TBidiType::LineParagraphSeparator || RunKind == TBidiType::NotExists;
  if (!opensLine || !Has(TOrvGlobalOption::RTLLineIndexOrder) || !Ahead().IsLineIndexAhead(here)) return false;
  number = {TBidiType::ArabicDigit, TExtent::Digits};
  return true;
}

// D8: a number before a Latin word is left-to-right, blanks and all.
bool TTokenReader::RuleD8BeforeLatin(std::int32_t here) {
  const std::int32_t word = Ahead().SkipBlanks(Ahead().NumberTailEnd(here));
  const TUnitClass kind = ClassOf(Text.At(word));
  if (!kind.IsLetter() || kind.IsRTL()) return false;
  Position = word;
  return true;
}

// D9: a number, or a whole equation, in front of a letter. Where it is none, the direction in force decides.
bool TTokenReader::RuleD9Equation(std::int32_t here, TNumber& number) {
  if (Settings.RTLMath) return true;
  const std::int32_t end = Ahead().IsEquationAhead(here);
  if (end != TLookAhead::Fails) {
    Position = end;
    return true;
  }
  number = CurrentBidi == TBidiType::LTR ? TNumber{TBidiType::ArabicDigit, TExtent::Digits}
                                         : TNumber{TBidiType::LTR, TExtent::Tail};
  return false;
}

// D10: takes as much of the number as the rules before have said.
TBidiType TTokenReader::RuleD10Rest(std::int32_t here, TNumber number) {
  if (number.Extent == TExtent::Tail) Position = Ahead().NumberTailEnd(here);
  if (number.Extent == TExtent::Digits) Position = Ahead().SkipAsciiDigits(here);
  if (number.Token == TBidiType::ArabicDigit) AddRange(here - 1, Position - 1);
  return number.Token;
}

void TTokenReader::PushDirection(TBidiType inside, TBidiType comparison) {
  if (comparison == CurrentBidi) {
    TurnIndex = OrderCount();
    EndOfLine = -1;
  }
  Stack.push_back({CurrentBidi, TurnIndex, EndOfLine});
  ORV_ASSERT(inside != TBidiType::DirectionalFormatting,
             "Not implemented yet. But it is a simple case. I should get the direction and put it as ParagraphBidi");
  if (inside == TBidiType::LTR || inside == TBidiType::RTL) CurrentBidi = inside;
  if (inside == TBidiType::ArabicDigit) CurrentBidi = TBidiType::RTL;
}

void TTokenReader::PopDirection(TBidiType comparison) {
  if (Stack.empty()) return;
  const TBidiStackData saved = Stack.back();
  Stack.pop_back();
  TurnIndex = saved.TurnIndex;
  EndOfLine = comparison != CurrentBidi ? saved.EndOfLine : -1;
  CurrentBidi = saved.Bidi;
}

}  // namespace orv::engine
