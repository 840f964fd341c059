#include "tools/orv/show/Paragraphs.h"

#include <algorithm>

#include "rtl/Unicode.h"

namespace orv::show {
namespace {

using TDigitType = TOrvGlobalSettings::TArabicDigitType;

bool IsLineEnd(char16_t c) {
  return (c >= 0x000A && c <= 0x000D) || c == 0x0085 || TDirectiveChars::IsParagraphSeparator(c);
}

std::vector<std::u16string_view> Lines(std::u16string_view text) {
  std::vector<std::u16string_view> lines;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!IsLineEnd(text[i])) continue;
    lines.push_back(text.substr(start, i - start));
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    start = i + 1;
  }
  if (start < text.size()) lines.push_back(text.substr(start));
  return lines;
}

bool IsRightToLeft(std::u16string_view line, TParagraphBidi kind) {
  if (kind == TParagraphBidi::LeftToRight) return false;
  if (kind == TParagraphBidi::RightToLeft) return true;
  return TDirectiveChars::IsRTLText(line, kind == TParagraphBidi::AutoRightToLeft);
}

// Letters that Persian writes otherwise than Arabic, or not at all, and its digits.
bool IsPersian(char16_t c) {
  constexpr std::u16string_view letters = u"\u067E\u0686\u0698\u06A9\u06AF\u06CC";
  return letters.find(c) != std::u16string_view::npos || (c >= 0x06F0 && c <= 0x06F9);
}

bool IsArabic(char16_t c) {
  return c >= 0x0620 && c <= 0x06FF;
}

// A number in a left-to-right paragraph is the paragraph's own, whatever letters are quoted in it.
TDigitType DigitsOf(std::u16string_view line, bool rightToLeft) {
  if (!rightToLeft) return TDigitType::Latin;
  if (std::any_of(line.begin(), line.end(), IsPersian)) return TDigitType::ArabicDigitType2;
  return std::any_of(line.begin(), line.end(), IsArabic) ? TDigitType::ArabicDigitType1 : TDigitType::Latin;
}

// Holds the digit setting for one paragraph.
class TDigitsScope {
 public:
  explicit TDigitsScope(TDigitType digits) : FFormer(TOrvGlobalSettings::ArabicDigitType) {
    TOrvGlobalSettings::ArabicDigitType = digits;
  }
  ~TDigitsScope() { TOrvGlobalSettings::ArabicDigitType = FFormer; }
  TDigitsScope(const TDigitsScope&) = delete;
  TDigitsScope& operator=(const TDigitsScope&) = delete;

 private:
  TDigitType FFormer;
};

// A quote that opens a right-to-left run belongs to the number before it: it stands on that number's left.
bool ClosesNumber(const TRun& run, const TRun* previous) {
  return run.RightToLeft && previous != nullptr && !previous->RightToLeft && !run.Atoms.empty() &&
         (run.Atoms.front() == U'"' || run.Atoms.front() == U'\'') && !previous->Atoms.empty() &&
         rtl::IsNumber(previous->Atoms.back());
}

void ReplacePrimes(TRun& run, const TRun* previous) {
  if (ClosesNumber(run, previous))
    TUCS4ListHelper::QuoteToReversePrime(run.Atoms.front());
  else
    TUCS4ListHelper::ReplaceQuotesWithPrimes(run.Atoms);
}

void Transform(TRun& run, const TRun* previous) {
  if (TOrvGlobalSettings::ReplaceQuoteWithPrimeInMeasures()) ReplacePrimes(run, previous);
  if (run.RightToLeft) TUCS4ListHelper::ChangeToComplexCharacters(run.Atoms);
  TUCS4ListHelper::ChangeToArabicDigits(run.Atoms);
}

// The visual order among the runs that are drawn: a separator entry is not.
std::vector<std::int32_t> Order(const TDirectionalRuns& runs, const std::vector<std::int32_t>& drawn,
                                bool rightToLeft) {
  std::vector<std::int32_t> order;
  for (const std::int32_t run : runs.VisualOrder)
    if (drawn[static_cast<std::size_t>(run)] >= 0) order.push_back(drawn[static_cast<std::size_t>(run)]);
  if (rightToLeft) std::reverse(order.begin(), order.end());
  return order;
}

TParagraph ReadParagraph(std::u16string_view line, const TTextSettings& settings, TDirectionalRuns& runs) {
  TParagraph paragraph;
  paragraph.RightToLeft = IsRightToLeft(line, settings.Paragraph);
  const TDigitsScope digits(settings.Digits.value_or(DigitsOf(line, paragraph.RightToLeft)));
  TDirectiveChars::SplitByDirection(line, settings.Paragraph, runs);
  std::vector<std::int32_t> drawn(runs.Bidi.size(), -1);
  for (std::size_t i = 0; i < runs.Bidi.size(); ++i) {
    if (runs.Bidi[i] == TBidi::ParagraphSeparator) continue;
    const auto start = static_cast<std::size_t>(runs.Offsets[i]);
    const auto end = static_cast<std::size_t>(runs.Offsets[i + 1]);
    TRun run{ToUCS4String(line.substr(start, end - start)), TBidiHelper::IsRightToLeft(runs.Bidi[i])};
    Transform(run, paragraph.Runs.empty() ? nullptr : &paragraph.Runs.back());
    drawn[i] = static_cast<std::int32_t>(paragraph.Runs.size());
    paragraph.Runs.push_back(std::move(run));
  }
  paragraph.LeftToRight = Order(runs, drawn, paragraph.RightToLeft);
  return paragraph;
}

}  // namespace

std::vector<TParagraph> ReadParagraphs(std::u16string_view text, const TTextSettings& settings) {
  std::vector<TParagraph> paragraphs;
  TDirectionalRuns runs;
  const std::vector<std::u16string_view> lines = Lines(text);
  paragraphs.reserve(lines.size());
  for (const std::u16string_view line : lines) paragraphs.push_back(ReadParagraph(line, settings, runs));
  if (lines.size() > 1 && !lines[0].empty() && lines[1].empty()) paragraphs.front().Title = true;
  return paragraphs;
}

}  // namespace orv::show
