// orv runs: how the engine splits a text.
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "tools/orv/Commands.h"
#include "tools/orv/SettingsArguments.h"
#include "tools/orv/Table.h"
#include "tools/orv/TextInput.h"
#include "tools/orv/eval/Names.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv::command {
namespace {

struct TArguments {
  TTextArguments Text;
  TEngineArguments Engine;
  std::string Paragraph = "auto";
  bool Json = false;
};

struct TSplitText {
  rtl::UnicodeString Text;
  TParagraphBidi Paragraph = TParagraphBidi::AutoLeftToRight;
  TDirectionalRuns Runs;

  std::size_t Count() const { return Runs.Bidi.size(); }
  std::u16string_view RunText(std::size_t run) const {
    const auto start = static_cast<std::size_t>(Runs.Offsets[run]);
    return std::u16string_view(Text).substr(start, static_cast<std::size_t>(Runs.Offsets[run + 1]) - start);
  }
};

// The place of each run in a left-to-right reading: the inverse of the visual order.
std::vector<std::int32_t> Places(const TDirectionalRuns& runs) {
  std::vector<std::int32_t> places(runs.VisualOrder.size());
  for (std::size_t place = 0; place < places.size(); ++place)
    places[static_cast<std::size_t>(runs.VisualOrder[place])] = static_cast<std::int32_t>(place);
  return places;
}

std::string DirectionOf(TBidi bidi) {
  return std::string(orv::eval::NameOf(bidi, orv::eval::BidiNames));
}

void PrintJson(const TSplitText& split) {
  using orv::eval::TJson;
  const std::vector<std::int32_t> places = Places(split.Runs);
  TJson runs = TJson::array();
  for (std::size_t i = 0; i < split.Count(); ++i)
    runs.push_back({{"start", split.Runs.Offsets[i]},
                    {"end", split.Runs.Offsets[i + 1]},
                    {"direction", DirectionOf(split.Runs.Bidi[i])},
                    {"visual", places[i]},
                    {"text", orv::eval::TextValue(split.RunText(i))}});
  TJson ranges = TJson::array();
  for (const TRange range : split.Runs.Ranges) ranges.push_back({range.LowIndex, range.HighIndex});
  const TJson result = {{"paragraph", orv::eval::NameOf(split.Paragraph, orv::eval::ParagraphNames)},
                        {"length", split.Text.size()},
                        {"runs", std::move(runs)},
                        {"ranges", std::move(ranges)}};
  std::cout << result.dump(2) << '\n';
}

void PrintRuns(const TSplitText& split) {
  const std::vector<std::int32_t> places = Places(split.Runs);
  std::vector<TRow> rows = {{"run", "start", "end", "visual", "direction", "text"}};
  for (std::size_t i = 0; i < split.Count(); ++i)
    rows.push_back({std::to_string(i), std::to_string(split.Runs.Offsets[i]), std::to_string(split.Runs.Offsets[i + 1]),
                    std::to_string(places[i]), DirectionOf(split.Runs.Bidi[i]),
                    "\"" + Escaped(split.RunText(i)) + "\""});
  PrintTable(rows);
}

void Run(const TArguments& arguments) {
  TSplitText split;
  split.Paragraph = ParagraphOf("--paragraph", arguments.Paragraph);
  arguments.Engine.Apply();
  split.Text = arguments.Text.Read();
  TDirectiveChars::SplitByDirection(split.Text, split.Paragraph, split.Runs);
  if (arguments.Json)
    PrintJson(split);
  else
    PrintRuns(split);
}

}  // namespace

void AddRunsCommand(CLI::App& app) {
  CLI::App* runs = app.add_subcommand("runs", "Split a text into runs of one direction");
  runs->footer(
      "start and end are UTF-16 code units, the end not included. visual is the run's place in a left-to-right\n"
      "reading; a right-to-left line shows the runs in the opposite order.\n"
      "\n" +
      OptionHelp() +
      "\n"
      "Examples:\n"
      "  orv runs 'نسخه ۱۲ (Debian)'\n"
      "  orv runs -f page.txt --paragraph rtl --json");
  const auto arguments = std::make_shared<TArguments>();
  arguments->Text.AddTo(*runs);
  runs->add_option("--paragraph", arguments->Paragraph,
                   "Direction of the paragraphs: ltr, rtl, auto, auto-rtl or neutral; auto goes by the first letter "
                   "of the text")
      ->type_name("KIND")
      ->capture_default_str();
  arguments->Engine.AddTo(*runs);
  runs->add_flag("--json", arguments->Json, "Print JSON");
  runs->callback([arguments] { Run(*arguments); });
}

}  // namespace orv::command
