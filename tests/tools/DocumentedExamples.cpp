// The pages of docs/ hold examples with their outcomes, each in a block named for its kind. Here every one is run
// again.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/orv/eval/Eval.h"
#include "tools/orv/eval/Names.h"

namespace orv {
namespace {

using eval::TJson;

struct TLine {
  std::size_t Number;  // 1-based
  std::string Text;
};

std::vector<TLine> ReadLines(const std::string& page) {
  std::ifstream file(std::string(ORV_SOURCE_DIR) + "/docs/" + page);
  EXPECT_TRUE(file.is_open()) << page;
  std::vector<TLine> lines;
  for (std::string line; std::getline(file, line);) lines.push_back({lines.size() + 1, line});
  return lines;
}

// The lines inside the blocks of one kind.
std::vector<TLine> ExamplesOf(const std::string& page, const std::string& kind) {
  std::vector<TLine> examples;
  std::string open;
  for (const TLine& line : ReadLines(page)) {
    if (line.Text.starts_with("```"))
      open = line.Text.substr(3);
    else if (open == kind)
      examples.push_back(line);
  }
  return examples;
}

constexpr std::string_view Between = " : ";

// The first field, and what is behind it.
std::pair<std::string, std::string> SplitFields(const std::string& line) {
  const std::size_t at = line.find(Between);
  if (at == std::string::npos) return {line, {}};
  return {line.substr(0, at), line.substr(at + Between.size())};
}

std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

// One unit as the examples write it: a capital letter stands for a right-to-left letter, a backslash begins an escape.
struct TWrittenUnit {
  std::string Written;
  std::uint32_t Unit;
};

std::vector<TWrittenUnit> UnitsOf(std::string_view text) {
  std::vector<TWrittenUnit> units;
  while (!text.empty()) {
    std::size_t length = 1;
    const auto c = static_cast<unsigned char>(text[0]);
    std::uint32_t unit = c;
    if (c >= 'A' && c <= 'Z') {
      unit = 0x621U + c - 'A';
    } else if (text.starts_with("\\u")) {
      length = 6;
      unit = static_cast<std::uint32_t>(std::stoul(std::string(text.substr(2, 4)), nullptr, 16));
    } else if (c == '\\') {
      length = 2;
      unit = text[1] == 'n' ? '\n' : '\r';
    }
    EXPECT_LT(unit, c == '\\' ? 0x10000U : 0x700U) << "an example holds a unit that is not written by an escape";
    units.push_back({std::string(text.substr(0, length)), unit});
    text.remove_prefix(length);
  }
  return units;
}

constexpr std::string_view Opening = "\u2039", Closing = "\u203A";

// The text of a marked field: what stands between the marks.
std::string Unmarked(std::string_view marked) {
  std::string text;
  for (;;) {
    const std::size_t from = marked.find(Opening);
    if (from == std::string_view::npos) return text;
    const std::size_t to = marked.find(Closing, from);
    if (to == std::string_view::npos) return text;
    text.append(marked.substr(from + Opening.size(), to - from - Opening.size()));
    marked.remove_prefix(to);
  }
}

std::string ParagraphName(const std::string& word) {
  if (word == "ltr") return "LeftToRight";
  if (word == "rtl") return "RightToLeft";
  return word == "auto" ? "AutoLeftToRight" : "AutoRightToLeft";
}

TJson SettingsOf(const std::vector<std::string>& words) {
  TJson settings = {{"Options", TJson::array()}};
  for (const std::string& word : words) {
    if (word == "plain") settings["Corrections"] = "none";
    if (word == "math") settings["EquationOrder"] = "ArabicRightToLeft";
    if (word == "type2") settings["ArabicDigitType"] = "ArabicDigitType2";
    if (word.starts_with('+')) settings["Options"].push_back(word.substr(1));
  }
  return settings;
}

std::string Numbers(const TJson& array) {
  std::string text;
  for (const TJson& number : array) text += (text.empty() ? "" : " ") + number.dump();
  return text;
}

// What the line of a split says when it is right.
std::string RunsLine(const std::string& line) {
  const auto [head, rest] = SplitFields(line);
  // The marked field ends at its last closing mark, since the text itself may hold colons.
  const std::size_t markedEnd = rest.rfind(Closing);
  if (markedEnd == std::string::npos) return "no marked text";
  const std::vector<TWrittenUnit> units = UnitsOf(Unmarked(rest.substr(0, markedEnd + Closing.size())));
  const std::vector<std::string> words = WordsOf(head);
  TJson request = {{"op", "split"}, {"units", TJson::array()}, {"settings", SettingsOf(words)}};
  request["paragraph"] = ParagraphName(words.at(0));
  for (const TWrittenUnit& unit : units) request["units"].push_back(unit.Unit);

  const TJson answer = TJson::parse(eval::Answer(request.dump()));
  if (!answer["ok"].get<bool>()) return answer.dump();
  const TJson& result = answer["result"];
  std::string marked;
  for (std::size_t run = 0; run < result["Bidi"].size(); ++run) {
    marked += result["Bidi"][run].get<std::string>().substr(0, 1) + std::string(Opening);
    const std::size_t end = result["Offsets"][run + 1].get<std::size_t>();
    for (std::size_t unit = result["Offsets"][run].get<std::size_t>(); unit < end; ++unit)
      marked += units.at(unit).Written;
    marked += Closing;
  }
  return head + " : " + marked + " : " + Numbers(result["Offsets"]) + " : " + Numbers(result["VisualOrder"]);
}

// What the line of a transform says when it is right.
std::string ShapeLine(const std::string& line) {
  const auto [head, rest] = SplitFields(line);
  const std::string before = SplitFields(rest).first;
  const std::vector<std::string> words = WordsOf(head);
  TJson request = {{"op", "transform"}, {"codePoints", TJson::array()}, {"apply", TJson::array()}};
  request["settings"] = SettingsOf(words);
  for (const std::string& word : words)
    if (word == "digits" || word == "primes" || word == "shape") request["apply"].push_back(word);
  for (const std::string& code : WordsOf(before)) request["codePoints"].push_back(std::stoul(code, nullptr, 16));

  const TJson answer = TJson::parse(eval::Answer(request.dump()));
  if (!answer["ok"].get<bool>()) return answer.dump();
  std::string after;
  for (const TJson& code : answer["result"]["codePoints"]) {
    char hex[16];
    std::snprintf(hex, sizeof hex, " %04X", code.get<unsigned>());
    after += hex;
  }
  return head + " : " + before + " :" + after;
}

void ExpectLinesHold(const std::string& page, const std::string& kind,
                     const std::function<std::string(const std::string&)>& asItIs) {
  const std::vector<TLine> lines = ExamplesOf(page, kind);
  EXPECT_FALSE(lines.empty()) << page << " has no examples of " << kind;
  for (const TLine& line : lines) EXPECT_EQ(line.Text, asItIs(line.Text)) << "docs/" << page << ":" << line.Number;
}

// Every request with the answer behind it.
void ExpectAnswersHold(const std::string& page) {
  const std::vector<TLine> lines = ExamplesOf(page, "eval");
  ASSERT_FALSE(lines.empty()) << page;
  ASSERT_EQ(lines.size() % 2, 0U) << page;
  for (std::size_t i = 0; i < lines.size(); i += 2) {
    ASSERT_TRUE(lines[i].Text.starts_with("> ")) << page << ":" << lines[i].Number;
    EXPECT_EQ(lines[i + 1].Text, "< " + eval::Answer(std::string_view(lines[i].Text).substr(2)))
        << "docs/" << page << ":" << lines[i].Number;
  }
}

TEST(DocumentedExamples, TheEnginesPageTellsTheTruth) {
  ExpectLinesHold("engine.md", "runs", RunsLine);
  ExpectLinesHold("engine.md", "shape", ShapeLine);
}

TEST(DocumentedExamples, TheQuirksAreAsTold) {
  ExpectLinesHold("quirks.md", "runs", RunsLine);
  ExpectLinesHold("quirks.md", "shape", ShapeLine);
  ExpectAnswersHold("quirks.md");
}

TEST(DocumentedExamples, ThePortAnswersAsItsPageSays) {
  ExpectAnswersHold("eval.md");
}

TEST(DocumentedExamples, TheCalendarsPageTellsTheTruth) {
  ExpectAnswersHold("calendars.md");
}

TEST(DocumentedExamples, AWrongOutcomeIsNoticed) {
  EXPECT_NE(RunsLine("ltr : L‹abc›R‹ DEF› : 0 3 7 : 0 1"), "ltr : L‹abc›R‹ DEF› : 0 3 7 : 0 1");
  EXPECT_NE(ShapeLine("shape : 0628 : 0628"), "shape : 0628 : 0628");
}

TEST(DocumentedQuirks, NameEveryCorrection) {
  std::string page;
  for (const TLine& line : ReadLines("quirks.md")) page += line.Text + '\n';
  for (const auto& correction : eval::CorrectionNames)
    EXPECT_NE(page.find("`" + std::string(correction.first) + "`"), std::string::npos) << correction.first;
}

}  // namespace
}  // namespace orv
