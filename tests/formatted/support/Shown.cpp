#include "tests/formatted/support/Shown.h"

#include "rtl/Utf8.h"
#include "tools/orv/eval/MarkupNames.h"

namespace orv::testing {
namespace {

template <typename TAction>
std::string OrError(TAction action) {
  try {
    return action();
  } catch (const EParseError& error) {
    return std::string("error: ") + error.what();
  }
}

std::string Quoted(std::u16string_view text) {
  return "'" + rtl::ToUtf8(text) + "'";
}

}  // namespace

std::string Shown(const THTMLText::THTMLTag& tag) {
  if (tag.TagType() == THTMLText::THTMLTagType::InnerText) return Quoted(tag.ImmediateText());
  std::string text(eval::NameOf(tag.TagType(), eval::TagTypeNames));
  std::string inside;
  for (const auto& [name, value] : tag.Params())
    inside += (inside.empty() ? "" : " ") + rtl::ToUtf8(name) + "=" + rtl::ToUtf8(value);
  if (!inside.empty()) inside += ";";
  for (const THTMLText::THTMLTag& child : tag.Children()) inside += (inside.empty() ? "" : " ") + Shown(child);
  return text + "(" + inside + ")";
}

std::string ShownHtml(std::u16string_view text) {
  return OrError([text] { return Shown(THTMLText::ParseHTML(text).Root()); });
}

std::string ShownHtmlText(std::u16string_view text) {
  return OrError([text] { return rtl::ToUtf8(THTMLText::HTMLToText(text)); });
}

std::string ShownRanges(const TRTFText::TRTFData& data) {
  std::string text = "[";
  const auto add = [&text](std::string_view name, std::int64_t value) {
    if (value != 0) text += " " + std::string(name) + "=" + std::to_string(value);
  };
  const auto flag = [&text](std::string_view name, bool value) {
    if (value) text += " " + std::string(name);
  };
  for (const TRTFText::TRTFTextRange& range : data.Ranges) {
    if (text.size() > 1) text += "; ";
    text += std::to_string(range.Range.Pos) + "+" + std::to_string(range.Range.Length);
    for (const auto& [name, style] : eval::FontStyleNames) flag(name, range.FontStyle.Contains(style));
    flag("RTL", range.RTL);
    flag("NewParagraph", range.NewParagraph);
    if (range.Align != TRTFText::TTextAlign::Leading) flag(eval::NameOf(range.Align, eval::TextAlignNames), true);
    flag("RTLCh", range.RTLCh);
    add("FontSize", range.FontSize);
    add("FontIndex", range.FontIndex);
    add("ColorIndex", range.ColorIndex);
    add("LangID", range.LangID);
    add("ListIndent", range.ListIndent);
  }
  return text + "]";
}

std::string ShownRtf(std::u16string_view text) {
  return OrError([text] {
    const TRTFText::TRTFData data = TRTFText::ParseRTF(text);
    return Quoted(data.FText) + " " + ShownRanges(data);
  });
}

std::string ShownRtfText(std::u16string_view text) {
  return OrError([text] { return rtl::ToUtf8(TRTFText::RTFToText(text)); });
}

}  // namespace orv::testing
