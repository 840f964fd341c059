// Goldens of the token reader, which the splitter drives: the tokens of a text by their kinds.
#pragma once

#include <string>
#include <string_view>

#include "unicode/Unicode.Engine.Types.h"

namespace orv::testing {

// Reads the tokens of Text(marked) by the settings in force and shows them: "RTL<ABC.>! Space< > Digit<12>", with a "!"
// behind a token that ended a sentence. Tokens of one kind whose seam lies between two digits show as one, for they
// always extend one run: how many digits of a number a token takes is the reader's own affair. RunKind, which the digit
// rules ask, is held at runKind throughout.
std::string Tokens(std::u16string_view marked, TParagraphBidi paragraph,
                   TDirectiveChars::TBidiType runKind = TDirectiveChars::TBidiType::NotExists);

// The ranges that reading has added: "0-2 4-4", or nothing.
std::string TokenRanges(std::u16string_view marked, TParagraphBidi paragraph,
                        TDirectiveChars::TBidiType runKind = TDirectiveChars::TBidiType::NotExists);

}  // namespace orv::testing
