#include "tools/orv/show/Paragraphs.h"

#include <algorithm>
namespace orv::show {
namespace {

bool IsLineEnd(char16_t c) {
  return (c >= 0x000A && c <= 0x000D) || c == 0x0085 || TDirectiveChars::IsParagraphSeparator(c);
}

struct TLineOfText {
  std::size_t Start;
  std::u16string_view Text;
};

std::vector<TLineOfText> Lines(std::u16string_view text) {
  std::vector<TLineOfText> lines;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!IsLineEnd(text[i])) continue;
    lines.push_back({start, text.substr(start, i - start)});
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    start = i + 1;
  }
  if (start < text.size()) lines.push_back({start, text.substr(start)});
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

}  // namespace

std::vector<TParagraph> ReadParagraphs(std::u16string_view text, const TTextSettings& settings) {
  std::vector<TParagraph> paragraphs;
  for (const TLineOfText& line : Lines(text)) {
    TParagraph& paragraph = paragraphs.emplace_back();
    paragraph.Text = line.Text;
    paragraph.Start = static_cast<std::int32_t>(line.Start);
    paragraph.RightToLeft = IsRightToLeft(line.Text, settings.Paragraph);
    paragraph.Digits = settings.Digits.value_or(DigitsOf(line.Text, paragraph.RightToLeft));
  }
  if (paragraphs.size() > 1 && !paragraphs[0].Text.empty() && paragraphs[1].Text.empty()) paragraphs[0].Title = true;
  return paragraphs;
}

}  // namespace orv::show
