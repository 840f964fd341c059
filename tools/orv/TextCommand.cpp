// orv text: the plain text of an HTML or RTF document, or its ranges.
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <utility>
#include <vector>

#include "rtl/Exceptions.h"
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

// A paragraph of RTF ends with LF CR; a file of plain text has LF.
std::string PlainText(std::u16string_view text) {
  std::string plain = rtl::ToUtf8(text);
  std::size_t kept = 0;
  for (std::size_t i = 0; i < plain.size(); ++i)
    if (i == 0 || plain[i] != '\r' || plain[i - 1] != '\n') plain[kept++] = plain[i];
  plain.resize(kept);
  if (!plain.empty() && plain.back() != '\n') plain += '\n';
  return plain;
}

std::string InQuotes(std::u16string_view text) {
  return "\"" + Escaped(text) + "\"";
}

// --- RTF ---

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
    std::cout << PlainText(data.Text());
  else if (arguments.Json)
    std::cout << eval::DocumentValue(data).dump(2) << '\n';
  else
    PrintRanges(data);
}

// --- HTML ---

// A stretch of the text between two tags, and the tags that are open there, outermost first.
struct THtmlRange {
  std::size_t Start;
  std::u16string_view Text;
  std::vector<THTMLTag> Tags;
};

// Every range repeats the tags around it, so a small document can ask for a list of any size. A list longer than this,
// in characters or so, is refused.
constexpr std::size_t LongestList = 16'000'000;

std::size_t LengthOf(const THTMLTag& tag) {
  std::size_t length = 16;  // its name, and what a list entry needs
  for (const auto& [name, value] : tag.Params()) length += name.size() + value.size();
  return length;
}

// In document order, with a stack of its own.
std::vector<THtmlRange> RangesOf(const THTMLTag& root) {
  using TIterator = THTMLText::THTMLTags::TIterator;
  std::vector<THtmlRange> ranges;
  std::vector<THTMLTag> open;
  std::vector<std::pair<TIterator, TIterator>> rest;
  std::size_t start = 0, openLength = 0, listLength = 0;
  const auto visit = [&](const THTMLTag& tag) {
    if (tag.TagType() == THTMLText::THTMLTagType::InnerText) {
      listLength += openLength;
      if (listLength > LongestList) throw rtl::Exception("the tags are too many to list them with every range");
      ranges.push_back({start, tag.ImmediateText(), open});
      start += tag.ImmediateText().size();
    } else {
      open.push_back(tag);
      openLength += LengthOf(tag);
      rest.emplace_back(tag.Children().begin(), tag.Children().end());
    }
  };
  visit(root);
  while (!rest.empty()) {
    auto& [next, end] = rest.back();
    if (next == end) {
      rest.pop_back();
      openLength -= LengthOf(open.back());
      open.pop_back();
    } else {
      visit(*next++);
    }
  }
  return ranges;
}

// "Paragraph Anchor(HREF=x)".
std::string TagsOf(const THtmlRange& range) {
  std::string words;
  for (const THTMLTag& tag : range.Tags) {
    std::string params;
    for (const auto& [name, value] : tag.Params())
      params += (params.empty() ? "" : " ") + Escaped(name) + "=" + Escaped(value);
    words += (words.empty() ? "" : " ") + std::string(eval::NameOf(tag.TagType(), eval::TagTypeNames));
    if (!params.empty()) words += "(" + params + ")";
  }
  return words;
}

void PrintRanges(const std::vector<THtmlRange>& ranges) {
  std::vector<TRow> rows = {{"start", "length", "tags", "text"}};
  for (const THtmlRange& range : ranges)
    rows.push_back(
        {std::to_string(range.Start), std::to_string(range.Text.size()), TagsOf(range), InQuotes(range.Text)});
  PrintTable(rows);
}

TJson RangesValue(const std::vector<THtmlRange>& ranges) {
  TJson values = TJson::array();
  for (const THtmlRange& range : ranges) {
    TJson tags = TJson::array();
    for (const THTMLTag& tag : range.Tags) {
      const TJson fields = eval::TagFields(tag);
      tags.push_back({{"TagType", fields["TagType"]}, {"Params", fields["Params"]}});
    }
    values.push_back({{"Range", {range.Start, range.Text.size()}}, {"Tags", std::move(tags)}});
  }
  return values;
}

void RunHtml(const TArguments& arguments, const UnicodeString& text) {
  const THTMLText::THTMLTree tree = THTMLText::ParseHTML(std::u16string_view(text));
  const UnicodeString plain = tree.Root().Text();
  if (!arguments.Ranges)
    std::cout << PlainText(plain);
  else if (arguments.Json)
    std::cout << TJson({{"Ranges", RangesValue(RangesOf(tree.Root()))}, {"Text", eval::TextValue(plain)}}).dump(2)
              << '\n';
  else
    PrintRanges(RangesOf(tree.Root()));
}

void Run(const TArguments& arguments) {
  const std::string bytes = ReadBytes(arguments.File);
  if (bytes.starts_with("{\\rtf"))
    RunRtf(arguments, bytes);
  else
    RunHtml(arguments, TextOfBytes(bytes, arguments.File));
}

}  // namespace

void AddTextCommand(CLI::App& app) {
  CLI::App* text = app.add_subcommand("text", "Take the plain text out of an HTML or RTF document");
  text->footer(
      "A document that begins with \"{\\rtf\" is RTF, any other one HTML in UTF-8; docs/markup.md gives the two "
      "subsets.\n"
      "start and length are UTF-16 code units.\n"
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
