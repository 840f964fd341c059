// A text as paragraphs, one to a line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv::show {

using TDigitType = TOrvGlobalSettings::TArabicDigitType;

struct TParagraph {
  std::u16string Text;     // without its line end; empty for a blank line
  std::int32_t Start = 0;  // of the whole text, in units
  bool RightToLeft = false;
  bool Title = false;  // the first line of a text, with a blank line behind it
  TDigitType Digits = TDigitType::Latin;
};

struct TTextSettings {
  TParagraphBidi Paragraph = TParagraphBidi::AutoLeftToRight;
  // The digits of right-to-left text. Nothing: each paragraph has those of its letters, Persian, Arabic or none.
  std::optional<TDigitType> Digits;
};

// Every line of the text is a paragraph of its own; CR LF is one line end.
std::vector<TParagraph> ReadParagraphs(std::u16string_view text, const TTextSettings& settings);

// Holds the process's digit setting for one paragraph.
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

}  // namespace orv::show
