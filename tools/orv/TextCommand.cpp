// orv text: the plain text of an HTML or RTF document, or its ranges.
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <utility>
#include <vector>

#include "rtl/Utf8.h"
#include "tools/orv/Commands.h"
#include "tools/orv/Table.h"
#include "tools/orv/TextInput.h"
#include "tools/orv/eval/Arguments.h"
#include "tools/orv/eval/MarkupNames.h"
#include "tools/orv/eval/MarkupValues.h"

namespace orv::command {
namespace {

using eval::TJson;
using THTMLTag = THTMLText::THTMLTag;

struct TArguments {
  std::string File;
  bool Ranges = false;
  bool Json = false;
};

// A text that prints something ends its last line.
std::string WithLineEnd(std::string plain) {
  if (!plain.empty() && plain.back() != '\n') plain += '\n';
  return plain;
}

std::string InQuotes(std::u16string_view text) {
  return "\"" + Escaped(text) + "\"";
}

// --- RTF ---

// A paragraph ends with LF CR; a file of plain text has LF.
std::string PlainText(std::u16string_view text) {
  std::string plain = rtl::ToUtf8(text);
  std::size_t kept = 0;
  for (std::size_t i = 0; i < plain.size(); ++i)
    if (i == 0 || plain[i] != '\r' || plain[i - 1] != '\n') plain[kept++] = plain[i];
  plain.resize(kept);
  return plain;
}

// "Bold RTL FontSize=12": what differs from the state in which a document begins.
std::string AttributesOf(const TRTFText::TRTFTextRange& range) {
  std::string words;
  const auto add = [&words](const std::string& word) { words += (words.empty() ? "" : " ") + word; };
  const auto addNumber = [&add](const std::string& name, std::int64_t value) {
    if (value != 0) add(name + "=" + std::to_string(value));
  };
  if (range.NewParagraph) add("NewParagraph");
  for (const auto& [name, style] : eval::FontStyleNames)
    if (range.FontStyle.Contains(style)) add(std::string(name));
  if (range.RTL) add("RTL");
  if (range.RTLCh) add("RTLCh");
  if (range.Align != TRTFText::TTextAlign::Leading) add(std::string(eval::NameOf(range.Align, eval::TextAlignNames)));
  addNumber("FontSize", range.FontSize);
  addNumber("FontIndex", range.FontIndex);
  addNumber("ColorIndex", range.ColorIndex);
  addNumber("LangID", range.LangID);
  addNumber("ListIndent", range.ListIndent);
  return words;
}

void PrintRanges(const TRTFText::TRTFData& data) {
  std::vector<TRow> rows = {{"start", "length", "attributes", "text"}};
  for (const TRTFText::TRTFTextRange& range : data.Ranges) {
    const auto text =
        std::u16string_view(data.FText)
            .substr(static_cast<std::size_t>(range.Range.Pos), static_cast<std::size_t>(range.Range.Length));
    rows.push_back(
        {std::to_string(range.Range.Pos), std::to_string(range.Range.Length), AttributesOf(range), InQuotes(text)});
  }
  PrintTable(rows);
}

void RunRtf(const TArguments& arguments, std::string_view bytes) {
  const TRTFText::TRTFData data = TRTFText::ParseRTF(bytes);
  if (!arguments.Ranges)
    std::cout << WithLineEnd(PlainText(data.Text()));
  else if (arguments.Json)
    std::cout << eval::DocumentValue(data).dump(2) << '\n';
  else
    PrintRanges(data);
}

// --- HTML ---

// Calls enter at each tag, leave at its end, and inner at each text with its place, in document order: with a stack of
// its own, since a document may nest deeper than the machine's stack is.
template <typename TEnter, typename TLeave, typename TInner>
void Walk(const THTMLTag& root, TEnter enter, TLeave leave, TInner inner) {
  using TIterator = THTMLText::THTMLTags::TIterator;
  std::vector<std::pair<TIterator, TIterator>> open;
  std::size_t place = 0;
  const auto visit = [&](const THTMLTag& tag) {
    if (tag.TagType() == THTMLText::THTMLTagType::InnerText) {
      inner(place, tag.ImmediateText());
      place += tag.ImmediateText().size();
    } else {
      enter(tag);
      open.emplace_back(tag.Children().begin(), tag.Children().end());
    }
  };
  visit(root);
  while (!open.empty()) {
    auto& [next, end] = open.back();
    if (next == end) {
      open.pop_back();
      leave();
    } else {
      visit(*next++);
    }
  }
}

// The tags column is kept this short: a document can nest its ranges as deep as it is long, and give every one of them
// an attribute as long as all the rest.
constexpr std::size_t MaxTagsLength = 120;
constexpr std::string_view Omission = "...";

// At most that many bytes of the UTF-8 text, whole characters, and a sign where some are missing.
std::string Shortened(std::string text, std::size_t longest) {
  if (text.size() <= longest) return text;
  const auto continues = [&text](std::size_t i) { return (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80; };
  std::size_t length = longest - Omission.size();
  while (length > 0 && continues(length)) --length;
  return text.substr(0, length).append(Omission);
}

// "Anchor(HREF=x)".
std::string NamedTag(const THTMLTag& tag) {
  std::string params;
  for (const auto& [name, value] : tag.Params())
    params += (params.empty() ? "" : " ") + Escaped(name) + "=" + Escaped(value);
  std::string word(eval::NameOf(tag.TagType(), eval::TagTypeNames));
  if (!params.empty()) word += "(" + params + ")";
  return Shortened(std::move(word), MaxTagsLength);
}

// "Paragraph Anchor(HREF=x)": the open tags, outermost first. The innermost stay where not all have room.
std::string TagsOf(const std::vector<std::string>& open) {
  std::size_t first = open.size();
  std::size_t length = 0;
  while (first > 0 && length + open[first - 1].size() <= MaxTagsLength) length += open[--first].size() + 1;
  std::string words(first > 0 ? Omission : "");
  for (; first < open.size(); ++first) words += (words.empty() ? "" : " ") + open[first];
  return words;
}

void PrintRanges(const THTMLTag& root) {
  std::vector<TRow> rows = {{"start", "length", "tags", "text"}};
  std::vector<std::string> open;
  Walk(
      root, [&open](const THTMLTag& tag) { open.push_back(NamedTag(tag)); }, [&open] { open.pop_back(); },
      [&](std::size_t place, std::u16string_view text) {
        rows.push_back({std::to_string(place), std::to_string(text.size()), TagsOf(open), InQuotes(text)});
      });
  PrintTable(rows);
}

// Each tag once, with the index of the tag it stands in; each range with the index of its innermost tag. Null where
// there is none.
TJson RangesValue(const THTMLTag& root) {
  TJson ranges = TJson::array();
  TJson tags = TJson::array();
  std::vector<std::size_t> open;
  const auto innermost = [&open] { return open.empty() ? TJson() : TJson(open.back()); };
  Walk(
      root,
      [&](const THTMLTag& tag) {
        TJson fields = eval::TagFields(tag);
        const std::size_t index = tags.size();
        tags.push_back({{"TagType", std::move(fields["TagType"])},
                        {"Params", std::move(fields["Params"])},
                        {"Parent", innermost()}});
        open.push_back(index);
      },
      [&open] { open.pop_back(); },
      [&](std::size_t place, std::u16string_view text) {
        ranges.push_back({{"Range", {place, text.size()}}, {"Tag", innermost()}});
      });
  return {{"Ranges", std::move(ranges)}, {"Tags", std::move(tags)}};
}

void PrintJson(const THTMLTag& root, std::u16string_view text) {
  TJson value = RangesValue(root);
  value["Text"] = eval::TextValue(text);
  std::cout << value.dump(2) << '\n';
}

void RunHtml(const TArguments& arguments, const UnicodeString& text) {
  const THTMLText::THTMLTree tree = THTMLText::ParseHTML(std::u16string_view(text));
  const UnicodeString plain = tree.Root().Text();
  if (!arguments.Ranges)
    std::cout << WithLineEnd(rtl::ToUtf8(plain));
  else if (arguments.Json)
    PrintJson(tree.Root(), plain);
  else
    PrintRanges(tree.Root());
}

void Run(const TArguments& arguments) {
  const std::string bytes = ReadBytes(arguments.File);
  if (const std::string_view document = WithoutByteOrderMark(bytes); document.starts_with("{\\rtf"))
    RunRtf(arguments, document);
  else
    RunHtml(arguments, TextOfBytes(bytes, arguments.File));
}

}  // namespace

void AddTextCommand(CLI::App& app) {
  CLI::App* text = app.add_subcommand("text", "Take the plain text out of an HTML or RTF document");
  text->footer(
      "A document that begins with \"{\\rtf\" is RTF, any other one HTML in UTF-8; docs/markup.md gives the two "
      "subsets.\n"
      "start and length are UTF-16 code units. The table names the innermost tags of a range, as many as fit; as JSON\n"
      "each range has the index of its innermost tag, and each tag that of the tag around it.\n"
      "\n"
      "Examples:\n"
      "  orv text letter.rtf\n"
      "  orv text --ranges --json page.html");
  const auto arguments = std::make_shared<TArguments>();
  text->add_option("FILE", arguments->File, "The document; - is standard input")->required()->type_name("");
  CLI::Option* ranges =
      text->add_flag("--ranges", arguments->Ranges, "Print the ranges of like attributes or tags instead, as a table");
  text->add_flag("--json", arguments->Json, "Print the ranges as JSON")->needs(ranges);
  text->callback([arguments] { Run(*arguments); });
}

}  // namespace orv::command
