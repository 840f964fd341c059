// Trees and ranges as short texts, and what a reader says of a text.
#pragma once

#include <string>
#include <string_view>

#include "formatted/Orv.StdCtrls.HTML.h"
#include "formatted/Orv.StdCtrls.RTF.h"

namespace orv::testing {

// A tag as "Bold(name=value; children)" and an inner text in quotes, in UTF-8: "Body('a' Bold('b'))".
std::string Shown(const THTMLText::THTMLTag& tag);
// The tree of a text, or "error: MESSAGE".
std::string ShownHtml(std::u16string_view text);
// The text of a text, or "error: MESSAGE".
std::string ShownHtmlText(std::u16string_view text);

// The ranges as "[0+3 Bold NewParagraph; 3+1 FontSize=12]": only what is not 0, false or Leading.
std::string ShownRanges(const TRTFText::TRTFData& data);
// The text in quotes and the ranges of a document, or "error: MESSAGE".
std::string ShownRtf(std::u16string_view text);
// The text of a document, or "error: MESSAGE".
std::string ShownRtfText(std::u16string_view text);

}  // namespace orv::testing
