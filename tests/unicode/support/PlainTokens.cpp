#include "tests/unicode/support/PlainTokens.h"

#include <optional>

#include "rtl/FormatSettings.h"
#include "rtl/Unicode.h"
#include "tests/unicode/support/PlainChars.h"

namespace orv::plain {
namespace {

using TCategory = rtl::TUnicodeCategory;

TCategory CategoryOf(char16_t c) {
  return rtl::GetUnicodeCategory(c);
}

bool HasOption(TOrvGlobalOption option) {
  return TOrvGlobalSettings::Options.Contains(option);
}

bool EquationsRunRightToLeft() {
  return TOrvGlobalSettings::EquationOrder == TOrvGlobalSettings::TMathOrder::ArabicRightToLeft;
}

class TReader {
 public:
  TReader(TState& state, TToken& previousBidi) : St(state), PreviousBidi(previousBidi) {}

  TToken Read() {
    PreviousBidi = St.CurrentBidi;
    St.SavedEndOfLine = St.EndOfLine;
    const char16_t c = St.At(St.Position);
    ++St.Position;
    St.SentenceEnded = false;
    if (IsRTL(c)) return RuleR();
    if (PreviousBidi == TToken::RTL && IsAsciiDigit(c)) return RulesD();
    const TCategory category = CategoryOf(c);
    if (IsLetter(c) || category == TCategory::Nd || c == 0x200E) return RuleL();
    if (category == TCategory::Zl || category == TCategory::Zp) return TToken::LineParagraphSeparator;
    if (c == '\r' || c == '\n') {
      if (St.At(St.Position) == '\n') ++St.Position;
      return TToken::LineParagraphSeparator;
    }
    if (category == TCategory::Zs || (c >= 0x200B && c <= 0x200D)) return RuleS();
    if (category == TCategory::Cf) return TToken::DirectionalFormatting;
    if (c == '.')
      if (const auto token = RuleP()) return *token;
    if (c == '"' || c == '\'')
      if (const auto token = RuleQ(c)) return *token;
    if (category == TCategory::Pi || category == TCategory::Ps) return RuleBOpen(c);
    if ((category == TCategory::Pe || category == TCategory::Pf) && St.BracketDepth > 0) return RuleBClose();
    return RuleN();
  }

 private:
  // ---- The rules ----

  TToken RuleR() {
    for (;;) {
      while (!St.AtEnd() && IsRTL(Here())) ++St.Position;
      const char16_t c = Here();
      const bool joins = St.Position + 1 < St.Length() && c >= 0x200A && c <= 0x200C && IsRTL(St.At(St.Position + 1));
      if (!joins) break;
      St.Position += 2;
    }
    if (St.AtEnd()) return TToken::RTL;
    if (St.CurrentBidi == TToken::RTL && IsStopThatEnds()) TakeStop();
    return TToken::RTL;
  }

  TToken RuleL() {
    for (;;) {
      while (!St.AtEnd() && IsLTR(Here()) && !(PreviousBidi == TToken::RTL && CanBeConsideredAsArabicDigit(Here())))
        ++St.Position;
      if (St.AtEnd()) return TToken::LTR;
      if (St.CurrentBidi == TToken::LTR && IsStopThatEnds()) {
        TakeStop();
        return TToken::LTR;
      }
      const bool isMark = Here() == '.' || Here() == '\'';
      if (!isMark || !IsAsciiDigit(St.At(St.Position + 1)) || !IsAsciiDigit(St.At(St.Position - 1))) return TToken::LTR;
      St.Position += 2;
    }
  }

  TToken RuleS() {
    while (!St.AtEnd()) {
      const TCategory category = CategoryOf(Here());
      if (category != TCategory::Zs && category != TCategory::Zl && category != TCategory::Zp) break;
      ++St.Position;
    }
    return TToken::SpaceSeparator;
  }

  std::optional<TToken> RuleP() {
    if (St.AtEnd()) return St.CurrentBidi;
    if (!IsLetterOrDecimal(St.At(BehindBlanksTabsAndZeroWidths(St.Position)))) return St.CurrentBidi;
    return std::nullopt;
  }

  std::optional<TToken> RuleQ(char16_t c) {
    const char16_t before = St.Position < 3 ? u'\0' : St.At(St.Position - 3);
    const bool isOpen = St.QuoteSet.contains(c);
    if (CategoryOf(before) != TCategory::Zs && before != ':' && !isOpen) return std::nullopt;
    const TToken inner = ClassifyChar(FindInnerStrong(St.Position, c));
    TToken result;
    if (isOpen) {
      PopDirection(St.CurrentBidi);
      St.QuoteSet.erase(c);
      --St.BracketDepth;
      result = PreviousBidi;
    } else {
      PushDirection(inner, St.CurrentBidi);
      St.QuoteSet.insert(c);
      ++St.BracketDepth;
      result = St.CurrentBidi;
    }
    if (result == TToken::RTL) AddRange(St.Position - 1, St.Position - 1);
    return result;
  }

  TToken RuleBOpen(char16_t c) {
    PushDirection(ClassifyChar(FindInnerStrong(St.Position, MatchingCloser(c))), St.BaseBidi);
    if (St.CurrentBidi == TToken::RTL) AddRange(St.Position - 1, St.Position - 1);
    ++St.BracketDepth;
    return St.CurrentBidi;
  }

  TToken RuleBClose() {
    const TToken before = St.CurrentBidi;
    PopDirection(St.BaseBidi);
    --St.BracketDepth;
    if (before == TToken::RTL) AddRange(St.Position - 1, St.Position - 1);
    return before;
  }

  TToken RuleN() {
    for (;;) {
      const char16_t d = Here();
      if (EndsNeutrals(d)) return TToken::Neutral;
      ++St.Position;
      if (d == '.') {
        if (St.AtEnd()) return St.CurrentBidi;
        if (rtl::IsWhiteSpace(Here())) {
          const char16_t reached = St.At(BehindBlanksTabsAndZeroWidths(St.Position + 1));
          if (ClassifyChar(reached) != TToken::Neutral) return St.CurrentBidi;
        }
      }
      if (St.AtEnd()) return TToken::Neutral;
    }
  }

  static bool EndsNeutrals(char16_t c) {
    if (IsLetter(c)) return true;
    switch (CategoryOf(c)) {
      case TCategory::Zs:
      case TCategory::Nd:
      case TCategory::Cc:
      case TCategory::Cf:
      case TCategory::Pe:
      case TCategory::Pf:
      case TCategory::Pi:
      case TCategory::Ps:
      case TCategory::Zl:
      case TCategory::Zp:
        return true;
      default:
        return false;
    }
  }

  TToken RulesD() {
    const std::int32_t start = St.Position - 1;
    const std::int32_t here = St.Position;
    // D1
    if (IsLatinWordAhead(here)) return TToken::LTR;
    // D2
    if (HasOption(TOrvGlobalOption::RTLDate) && IsDateAhead(here)) {
      St.Position = BehindAsciiDigits(St.Position);
      AddRange(start, St.Position - 1);
      return TToken::ArabicDigit;
    }
    // D3
    if (St.HasArabicDigits) return TToken::LTR;
    // D4
    switch (St.RunKind) {
      case TToken::RTL:
      case TToken::ArabicDigit:
      case TToken::LTRUnmergable:
      case TToken::RTLUnmergable:
      case TToken::ArabicDigitUnmergable:
      case TToken::LineParagraphSeparator:
      case TToken::NotExists:
        break;
      default:
        return TToken::LTR;
    }
    TToken result = TToken::Neutral;
    int mode = 0;
    bool isLineIndex = false;
    // D5
    if ((HasOption(TOrvGlobalOption::MeasureSignsInRightSideOfDigits) ||
         HasOption(TOrvGlobalOption::PrimeInRightSideOfDigits)) &&
        IsMeasureAhead(here)) {
      AddRange(start, St.Position - 1);
      return TToken::ArabicDigit;
    }
    // D6
    if (EquationsRunRightToLeft()) {
      result = TToken::ArabicDigit;
      mode = 2;
    }
    // D7
    if (HasOption(TOrvGlobalOption::RTLLineIndexOrder) &&
        (St.RunKind == TToken::LineParagraphSeparator || St.RunKind == TToken::NotExists) && IsLineIndexAhead(here)) {
      result = TToken::ArabicDigit;
      mode = 1;
      isLineIndex = true;
    }
    const bool keepsLineIndex = isLineIndex && TOrvGlobalSettings::Corrections.Contains(TOrvCorrection::LineIndex);
    if (HasOption(TOrvGlobalOption::DigitsBeforeLatinAreLatin)) {
      // D8
      const std::int32_t reached = BehindBlanks(BehindNumberTail(here));
      if (IsLetter(St.At(reached)) && !IsRTL(St.At(reached))) {
        St.Position = reached;
        return TToken::LTR;
      }
    } else if (!keepsLineIndex) {
      // D9
      if (EquationsRunRightToLeft()) return TToken::ArabicDigit;
      if (IsEquationAhead(here)) return TToken::ArabicDigit;
      result = St.CurrentBidi == TToken::LTR ? TToken::ArabicDigit : TToken::LTR;
      mode = St.CurrentBidi == TToken::LTR ? 3 : 2;
    }
    // D10
    if (mode == 0) return TToken::LTR;
    St.Position = mode == 2 ? BehindNumberTail(St.Position) : BehindAsciiDigits(St.Position);
    if (result == TToken::ArabicDigit) AddRange(start, St.Position - 1);
    return result;
  }

  // ---- The look-ahead tests ----

  bool IsLatinWordAhead(std::int32_t p) {
    const auto isSeparator = [](char16_t c) { return c == '\'' || c == '.'; };
    while (IsAsciiDigit(St.At(p)) || isSeparator(St.At(p))) ++p;
    const auto isLatin = [](char16_t c) { return IsAsciiLetter(c) || IsAsciiDigit(c); };
    if (!isLatin(St.At(p))) return false;
    while (isLatin(St.At(p)) || isSeparator(St.At(p))) ++p;
    St.Position = p;
    return true;
  }

  bool IsDateAhead(std::int32_t p) const {
    if (IsAsciiDigit(St.At(p))) {
      ++p;
      if (IsAsciiDigit(St.At(p))) return false;
    }
    const char16_t separator = St.At(p);
    if (separator != '/' && separator != '-' && separator != rtl::FormatSettings().DateSeparator) return false;
    ++p;
    if (!IsAsciiDigit(St.At(p))) return false;
    const int first = St.At(p) - '0';
    ++p;
    if (IsAsciiDigit(St.At(p))) {
      if (first > 1 || St.At(p) - '0' > 3) return false;
      ++p;
    }
    if (St.At(p) != separator) return false;
    if (!IsAsciiDigit(St.At(p))) return false;
    ++p;
    if (IsAsciiDigit(St.At(p))) ++p;
    return !IsAsciiDigit(St.At(p));
  }

  bool IsLineIndexAhead(std::int32_t p) const {
    const auto low = [this](std::int32_t place) { return static_cast<char16_t>(St.At(place) & 0xFF); };
    for (;;) {
      while (p < St.Length() && IsAsciiDigit(low(p))) ++p;
      if (p < St.Length() && low(p) == ' ') ++p;
      if (p >= St.Length() || (low(p) != '-' && low(p) != '.')) break;
      ++p;
      if (p < St.Length() && low(p) == ' ') ++p;
      if (p >= St.Length() || !IsAsciiDigit(low(p))) return true;
    }
    if (p >= St.Length()) return false;
    const char16_t l = low(p);
    const char16_t unit = St.At(p);
    return l == '\n' || l == '\r' || l == '(' || l == '.' || l == 0xB7 || unit == 0x2028 || unit == 0x2029 ||
           IsRTL(unit);
  }

  bool IsMeasureAhead(std::int32_t p) {
    const auto isFraction = [](char16_t c) { return c == 0xB2 || c == 0xB3 || c == 0xBC || c == 0xBD || c == 0xBE; };
    const auto isEnd = [](char16_t c) { return c == ' ' || c == ')'; };
    p = BehindNumberTail(p);
    const char16_t c = St.At(p);
    if (c == ' ') {
      const char16_t first = St.At(p + 1), second = St.At(p + 2), third = St.At(p + 3), fourth = St.At(p + 4);
      if (!IsAsciiLetter(first) && first != 0xB0 && first != 0xB5) return false;
      if (isFraction(second)) {
        if (!isEnd(third)) return false;
        St.Position = p + 3;
        return true;
      }
      if (!IsAsciiLetter(second)) return false;
      if (isEnd(third)) {
        St.Position = p + 3;
        return true;
      }
      if (!isFraction(third) || !isEnd(fourth)) return false;
      St.Position = p + 4;
      return true;
    }
    if ((c == '"' || c == '\'') && HasOption(TOrvGlobalOption::PrimeInRightSideOfDigits)) return true;
    return c == '%' && HasOption(TOrvGlobalOption::PercentInRightSideOfDigits);
  }

  bool IsEquationAhead(std::int32_t p) {
    std::int32_t q = p;
    for (;;) {
      const std::int32_t e = BehindNumberTail(q);
      std::int32_t w = BehindBlanks(q);
      if (IsLetter(St.At(w))) {
        if (IsRTL(St.At(e))) return false;
        St.Position = e;
        return true;
      }
      if (!IsSymbol(St.At(w))) return false;
      std::int32_t t = w;
      while (IsSymbol(St.At(t))) ++t;
      w = BehindBlanks(t);
      if (IsLetter(St.At(w)) && !IsRTL(St.At(t))) {
        St.Position = t;
        return true;
      }
      if (!IsAsciiDigit(St.At(w))) return false;
      q = w + 1;
    }
  }

  static bool IsSymbol(char16_t c) {
    switch (CategoryOf(c)) {
      case TCategory::Nd:
      case TCategory::Nl:
      case TCategory::No:
      case TCategory::Pd:
      case TCategory::Po:
      case TCategory::Sc:
      case TCategory::Sk:
      case TCategory::Sm:
      case TCategory::So:
        return true;
      default:
        return false;
    }
  }

  // ---- What the rules share ----

  char16_t Here() const { return St.At(St.Position); }

  bool IsStopThatEnds() const {
    return Here() == '.' && (St.Position + 1 >= St.Length() || rtl::IsWhiteSpace(St.At(St.Position + 1)));
  }

  void TakeStop() {
    St.SentenceEnded = true;
    ++St.Position;
  }

  std::int32_t BehindBlanks(std::int32_t p) const {
    while (St.At(p) == ' ') ++p;
    return p;
  }

  std::int32_t BehindBlanksTabsAndZeroWidths(std::int32_t p) const {
    const auto skips = [](char16_t c) { return c == ' ' || c == '\t' || (c >= 0x200B && c <= 0x200D); };
    while (skips(St.At(p))) ++p;
    return p;
  }

  std::int32_t BehindAsciiDigits(std::int32_t p) const {
    while (IsAsciiDigit(St.At(p))) ++p;
    return p;
  }

  std::int32_t BehindNumberTail(std::int32_t p) const {
    while (IsAsciiDigit(St.At(p)) || St.At(p) == '\'') ++p;
    if (St.At(p) == '.' && IsAsciiDigit(St.At(p + 1))) p = BehindAsciiDigits(p + 1);
    return p;
  }

  static char16_t MatchingCloser(char16_t c) {
    if (c == '(') return ')';
    if (c == 0x2039) return 0x203A;
    if (c == 0xAB) return 0xBB;
    if ((c & 0xF) == 0xB) return static_cast<char16_t>(c + 2);
    return static_cast<char16_t>(c + 1);
  }

  char16_t FindInnerStrong(std::int32_t from, char16_t closer) const {
    char16_t digit = 0;
    for (std::int32_t p = from; p < St.Length(); ++p) {
      const char16_t c = St.At(p);
      if (IsLetter(c)) return c;
      if (c == closer) return digit;
      if (digit == 0 && CategoryOf(c) == TCategory::Nd) digit = c;
    }
    return digit;
  }

  void PushDirection(TToken kind, TToken comparison) {
    if (comparison == St.CurrentBidi) {
      St.TurnIndex = St.OrderCount();
      St.EndOfLine = -1;
    }
    St.Stack.push_back({St.CurrentBidi, St.TurnIndex, St.EndOfLine});
    if (kind == TToken::LTR || kind == TToken::RTL) St.CurrentBidi = kind;
    if (kind == TToken::ArabicDigit) St.CurrentBidi = TToken::RTL;
  }

  void PopDirection(TToken comparison) {
    if (St.Stack.empty()) return;
    const TSavedDirection saved = St.Stack.back();
    St.Stack.pop_back();
    St.TurnIndex = saved.TurnIndex;
    St.EndOfLine = comparison != St.CurrentBidi ? saved.EndOfLine : -1;
    St.CurrentBidi = saved.Bidi;
  }

  void AddRange(std::int32_t low, std::int32_t high) { St.Runs.Ranges.push_back(Range(low, high)); }

  TState& St;
  TToken& PreviousBidi;
};

}  // namespace

TToken ReadNextToken(TState& state, TToken& previousBidi) {
  return TReader(state, previousBidi).Read();
}

}  // namespace orv::plain
