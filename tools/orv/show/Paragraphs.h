// A text as paragraphs of runs, ready to be measured and drawn.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Engine.Types.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv::show {

// One run, as it is drawn: transformed code points, in logical order.
struct TRun {
  TUCS4List Atoms;
  bool RightToLeft = false;
};

struct TParagraph {
  std::vector<TRun> Runs;                 // in logical order
  std::vector<std::int32_t> LeftToRight;  // indices of Runs, as they stand from left to right in one line
  bool RightToLeft = false;
  bool Title = false;  // the first line of a text, with a blank line behind it
};

struct TTextSettings {
  TParagraphBidi Paragraph = TParagraphBidi::AutoLeftToRight;
  // The digits of right-to-left text. Nothing: each paragraph has those of its letters, Persian, Arabic or none.
  std::optional<TOrvGlobalSettings::TArabicDigitType> Digits;
};

// Every line of the text is a paragraph of its own; CR LF is one line end. A paragraph without runs is a blank line.
// Reads the global options; sets TOrvGlobalSettings::ArabicDigitType while it runs.
std::vector<TParagraph> ReadParagraphs(std::u16string_view text, const TTextSettings& settings);

}  // namespace orv::show
