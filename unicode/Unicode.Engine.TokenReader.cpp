#include "unicode/Unicode.Engine.TokenReader.h"

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
      Stack(workspace.Stack),
      BaseBidi(ResolveBaseBidi(settings.ParagraphBidi, s)),
      CurrentBidi(BaseBidi),
      PreviousBidi(BaseBidi),
      FAhead(Text, workspace.Closers) {
  Stack.clear();
}

TBidiType TTokenReader::ReadNextToken() {
  PreviousBidi = CurrentBidi;
  SavedEndOfLine = EndOfLine;
  SentenceEnded = false;
  const char16_t c = Text[Position++];
  const TUnitClass kind = ClassOf(c);
  if (kind.IsRTL()) return RuleR();
  if (c == u' ') return RuleS();
  if (PreviousBidi == TBidiType::RTL && IsAsciiDigit(c)) return RuleD();
  switch (kind.Category()) {
    case TCategory::Ll:
    case TCategory::Lm:
    case TCategory::Lo:
    case TCategory::Lt:
    case TCategory::Lu:
    case TCategory::Nd:
      return RuleL();
    case TCategory::Zl:
    case TCategory::Zp:
      return TBidiType::LineParagraphSeparator;
    case TCategory::Cc:
      return IsLineFeedOrReturn(c) ? RuleLineEnd() : RuleN();
    case TCategory::Zs:
      return RuleS();
    case TCategory::Cf:
      if (c == 0x200E) return RuleL();
      return IsZeroWidthBlank(c) ? RuleS() : TBidiType::DirectionalFormatting;
    case TCategory::Po:
      if (c == u'.') {
        if (const auto token = RuleP()) return *token;
      } else if (c == u'"' || c == u'\'') {
        if (const auto token = RuleQ(c)) return *token;
      }
      return RuleN();
    case TCategory::Pi:
    case TCategory::Ps:
      return RuleBOpen(c);
    case TCategory::Pe:
    case TCategory::Pf:
      return FBracketDepth > 0 ? RuleBClose() : RuleN();
    default:
      return RuleN();
  }
}

// A full stop that ends a sentence: the end of the text or white space stands behind it.
bool TTokenReader::IsSentenceStop(std::int32_t place) const {
  return Text.At(place) == u'.' && (place + 1 >= Text.Length() || ClassOf(Text[place + 1]).IsWhiteSpace());
}

// Rule R: a right-to-left stretch. A thin space or zero-width unit between two right-to-left units joins them; a stop
// that ends the sentence belongs to it.
TBidiType TTokenReader::RuleR() {
  for (;;) {
    while (!AtEnd() && ClassOf(Text[Position]).IsRTL()) ++Position;
    if (!IsIn(Text.At(Position), 0x200A, 0x200C) || !ClassOf(Text.At(Position + 1)).IsRTL()) break;
    Position += 2;
  }
  if (CurrentBidi == TBidiType::RTL && IsSentenceStop(Position)) {
    SentenceEnded = true;
    ++Position;
  }
  return TBidiType::RTL;
}

// Rule L: a left-to-right stretch, with the decimal and thousands marks inside its numbers.
TBidiType TTokenReader::RuleL() {
  const bool keepsNumbersApart = PreviousBidi == TBidiType::RTL;
  const auto goesOn = [&](char16_t c) {
    return ClassOf(c).IsLTR() &&
           !(keepsNumbersApart && (IsArabicIndicDigit(c) || (Settings.RTLMath && IsAsciiDigit(c))));
  };
  for (;;) {
    while (!AtEnd() && goesOn(Text[Position])) ++Position;
    if (AtEnd()) return TBidiType::LTR;
    if (CurrentBidi == TBidiType::LTR && IsSentenceStop(Position)) {
      SentenceEnded = true;
      ++Position;
      return TBidiType::LTR;
    }
    const char16_t mark = Text[Position];
    const bool insideNumber =
        (mark == u'.' || mark == u'\'') && IsAsciiDigit(Text.At(Position + 1)) && IsAsciiDigit(Text[Position - 1]);
    if (!insideNumber) return TBidiType::LTR;
    Position += 2;
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
  const char16_t before = Position >= 3 ? Text[Position - 3] : u'\0';
  bool& open = IsOpenQuote(quote);
  if (ClassOf(before).Category() != TCategory::Zs && before != u':' && !open) return std::nullopt;

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
  const std::int32_t start = Position - 1;
  const std::int32_t here = Position;
  if (RuleD1LatinWord(here)) return TBidiType::LTR;
  if (RuleD2Date(here)) return TBidiType::ArabicDigit;
  if (HasArabicDigits) return TBidiType::LTR;  // D3
  if (RuleD4BehindLatin()) return TBidiType::LTR;
  if (RuleD5Measure(here)) return TBidiType::ArabicDigit;
  const bool listIndex = RuleD7ListIndex(here);
  if (!Has(TOrvGlobalOption::DigitsBeforeLatinAreLatin)) return DigitsOfEquation(here, listIndex);
  if (RuleD8BeforeLatin(here)) return TBidiType::LTR;

  // D10 behind D6 and D7.
  if (!Settings.RTLMath && !listIndex) return TBidiType::LTR;
  Position = listIndex ? FAhead.SkipAsciiDigits(here) : FAhead.NumberTailEnd(here);
  AddRange(start, Position - 1);
  return TBidiType::ArabicDigit;
}

// D1: digits that run into a Latin word are one stretch with it ("3D").
bool TTokenReader::RuleD1LatinWord(std::int32_t here) {
  const std::int32_t end = FAhead.LatinWordEnd(here);
  if (end == TLookAhead::Fails) return false;
  Position = end;
  return true;
}

bool TTokenReader::RuleD2Date(std::int32_t here) {
  if (!Has(TOrvGlobalOption::RTLDate) || !FAhead.IsDateAhead(here, Settings.DateSeparator)) return false;
  Position = FAhead.SkipAsciiDigits(here);
  AddRange(here - 1, Position - 1);
  return true;
}

// D4: a digit behind a Latin run stays in it.
bool TTokenReader::RuleD4BehindLatin() const {
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
      return true;
  }
}

bool TTokenReader::RuleD5Measure(std::int32_t here) {
  const bool prime = Has(TOrvGlobalOption::PrimeInRightSideOfDigits);
  if (!prime && !Has(TOrvGlobalOption::MeasureSignsInRightSideOfDigits)) return false;
  const std::int32_t end = FAhead.MeasureEnd(here, prime, Has(TOrvGlobalOption::PercentInRightSideOfDigits));
  if (end == TLookAhead::Fails) return false;
  Position = end;
  AddRange(here - 1, Position - 1);
  return true;
}

// D7: a number that opens a line, with a list mark behind it.
bool TTokenReader::RuleD7ListIndex(std::int32_t here) {
  const bool opensLine = RunKind == TBidiType::LineParagraphSeparator || RunKind == TBidiType::NotExists;
  return opensLine && Has(TOrvGlobalOption::RTLLineIndexOrder) && FAhead.IsLineIndexAhead(here);
}

// D8: a number before a Latin word is left-to-right, blanks and all.
bool TTokenReader::RuleD8BeforeLatin(std::int32_t here) {
  const std::int32_t word = FAhead.SkipBlanks(FAhead.NumberTailEnd(here));
  const TUnitClass kind = ClassOf(Text.At(word));
  if (!kind.IsLetter() || kind.IsRTL()) return false;
  Position = word;
  return true;
}

// D9 and D10. By the rules D9 overwrites what D7 found; with the correction a list index keeps its result.
TBidiType TTokenReader::DigitsOfEquation(std::int32_t here, bool listIndex) {
  const std::int32_t start = here - 1;
  if (listIndex && Settings.Corrections.Contains(TOrvCorrection::LineIndex)) {
    Position = FAhead.SkipAsciiDigits(here);
    AddRange(start, Position - 1);
    return TBidiType::ArabicDigit;
  }
  if (Settings.RTLMath) return TBidiType::ArabicDigit;
  const std::int32_t end = FAhead.EquationEnd(here);
  if (end != TLookAhead::Fails) {
    Position = end;
    return TBidiType::ArabicDigit;
  }
  if (CurrentBidi == TBidiType::LTR) {
    Position = FAhead.SkipAsciiDigits(here);
    AddRange(start, Position - 1);
    return TBidiType::ArabicDigit;
  }
  Position = FAhead.NumberTailEnd(here);
  return TBidiType::LTR;
}

void TTokenReader::PushDirection(TBidiType inside, TBidiType comparison) {
  if (comparison == CurrentBidi) {
    TurnIndex = OrderCount();
    EndOfLine = -1;
  }
  Stack.push_back({CurrentBidi, TurnIndex, EndOfLine});
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
