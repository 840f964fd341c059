#include "tools/orv/eval/MarkupValues.h"

#include <utility>
#include <vector>

#include "tools/orv/eval/Arguments.h"
#include "tools/orv/eval/MarkupNames.h"

namespace orv::eval {

TJson TagFields(const THTMLText::THTMLTag& tag) {
  TJson params = TJson::array();
  for (const auto& [name, value] : tag.Params()) params.push_back({TextValue(name), TextValue(value)});
  return {{"TagType", NameOf(tag.TagType(), TagTypeNames)},
          {"ImmediateText", TextValue(tag.ImmediateText())},
          {"Params", std::move(params)}};
}

// From the leaves up, with a stack of its own: a document may nest deeper than the machine's stack is.
TJson TagValue(const THTMLText::THTMLTag& root) {
  struct TOpenTag {
    TJson Fields;
    TJson Children;
    THTMLText::THTMLTags::TIterator Next;
    THTMLText::THTMLTags::TIterator End;
  };
  std::vector<TOpenTag> open;
  const auto enter = [&open](const THTMLText::THTMLTag& tag) {
    open.push_back({TagFields(tag), TJson::array(), tag.Children().begin(), tag.Children().end()});
  };
  enter(root);
  for (;;) {
    TOpenTag& tag = open.back();
    if (tag.Next != tag.End) {
      const THTMLText::THTMLTag child = *tag.Next++;
      enter(child);
      continue;
    }
    tag.Fields["Children"] = std::move(tag.Children);
    TJson value = std::move(tag.Fields);
    open.pop_back();
    if (open.empty()) return value;
    open.back().Children.push_back(std::move(value));
  }
}

TJson RangeValue(const TRTFText::TRTFTextRange& range) {
  TJson styles = TJson::array();
  for (const auto& [name, style] : FontStyleNames)
    if (range.FontStyle.Contains(style)) styles.push_back(name);
  return {{"Range", {range.Range.Pos, range.Range.Length}},
          {"FontStyle", std::move(styles)},
          {"FontSize", range.FontSize},
          {"FontIndex", range.FontIndex},
          {"ColorIndex", range.ColorIndex},
          {"RTL", range.RTL},
          {"Align", NameOf(range.Align, TextAlignNames)},
          {"NewParagraph", range.NewParagraph},
          {"LangID", range.LangID},
          {"RTLCh", range.RTLCh},
          {"ListIndent", range.ListIndent}};
}

TJson DocumentValue(const TRTFText::TRTFData& data) {
  TJson fonts = TJson::array();
  for (const UnicodeString& font : data.FontTable) fonts.push_back(TextValue(font));
  TJson ranges = TJson::array();
  for (const TRTFText::TRTFTextRange& range : data.Ranges) ranges.push_back(RangeValue(range));
  return {{"OriginalCodePage", data.OriginalCodePage},
          {"LangID", data.LangID},
          {"DefaultFontIndex", data.DefaultFontIndex},
          {"FontTable", std::move(fonts)},
          {"ColorTable", data.ColorTable},
          {"Ranges", std::move(ranges)},
          {"FText", TextValue(data.FText)}};
}

}  // namespace orv::eval
