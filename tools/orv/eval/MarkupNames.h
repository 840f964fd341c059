// The names under which the enumeration values of the markup readers travel.
#pragma once

#include "formatted/Orv.StdCtrls.HTML.h"
#include "formatted/Orv.StdCtrls.RTF.h"
#include "tools/orv/eval/Arguments.h"

namespace orv::eval {

inline constexpr TNamed<THTMLText::THTMLTagType> TagTypeNames[] = {
    {"Undefined", THTMLText::THTMLTagType::Undefined}, {"Body", THTMLText::THTMLTagType::Body},
    {"InnerText", THTMLText::THTMLTagType::InnerText}, {"DIV", THTMLText::THTMLTagType::DIV},
    {"Anchor", THTMLText::THTMLTagType::Anchor},       {"Style", THTMLText::THTMLTagType::Style},
    {"Script", THTMLText::THTMLTagType::Script},       {"Span", THTMLText::THTMLTagType::Span},
    {"Paragraph", THTMLText::THTMLTagType::Paragraph}, {"Bold", THTMLText::THTMLTagType::Bold},
    {"Italic", THTMLText::THTMLTagType::Italic},       {"Heading1", THTMLText::THTMLTagType::Heading1},
    {"Heading2", THTMLText::THTMLTagType::Heading2},   {"Heading3", THTMLText::THTMLTagType::Heading3},
    {"Heading4", THTMLText::THTMLTagType::Heading4},   {"Heading5", THTMLText::THTMLTagType::Heading5},
    {"Heading6", THTMLText::THTMLTagType::Heading6},   {"Emphasis", THTMLText::THTMLTagType::Emphasis},
    {"Strong", THTMLText::THTMLTagType::Strong},       {"Mark", THTMLText::THTMLTagType::Mark},
    {"Font", THTMLText::THTMLTagType::Font},           {"Deletion", THTMLText::THTMLTagType::Deletion},
    {"LineBreak", THTMLText::THTMLTagType::LineBreak}};

inline constexpr TNamed<TRTFText::TTextAlign> TextAlignNames[] = {{"Leading", TRTFText::TTextAlign::Leading},
                                                                  {"Trailing", TRTFText::TTextAlign::Trailing},
                                                                  {"Center", TRTFText::TTextAlign::Center}};

inline constexpr TNamed<TRTFText::TFontStyle> FontStyleNames[] = {{"Bold", TRTFText::TFontStyle::Bold},
                                                                  {"Italic", TRTFText::TFontStyle::Italic},
                                                                  {"Underline", TRTFText::TFontStyle::Underline}};

}  // namespace orv::eval
