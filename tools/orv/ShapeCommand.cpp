// orv shape: the code points of a text before and behind the presentation transforms.
#include <CLI/CLI.hpp>
#include <iomanip>
#include <iostream>
#include <memory>

#include "rtl/Unicode.h"
#include "tools/orv/Commands.h"
#include "tools/orv/FormNames.h"
#include "tools/orv/SettingsArguments.h"
#include "tools/orv/TextInput.h"
#include "tools/orv/eval/Arguments.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv::command {
namespace {

struct TArguments {
  TTextArguments Text;
  std::string Digits = "latin";
  bool Primes = false;
  bool Plain = false;
  bool Json = false;
};

std::string NameOf(UCS4Char c) {
  const std::string_view name = FormName(c);
  return name.empty() ? "(not in the table of names)" : std::string(name);
}

// The character itself, where it can be seen; a mark stands over a dotted circle, as in code charts.
std::string Picture(UCS4Char c) {
  if (rtl::IsSeparator(c)) return {};
  constexpr std::string_view dottedCircle = "\u25CC";
  return (rtl::IsMark(c) ? std::string(dottedCircle) : std::string()) + Escaped(TUCS4CharHelper::ConvertToUtf16(c));
}

void PrintList(std::string_view title, const TUCS4List& list) {
  std::cout << title << " (" << list.size() << ")\n";
  std::size_t width = 0;
  for (const UCS4Char c : list) width = std::max(width, NameOf(c).size());
  for (const UCS4Char c : list) {
    std::cout << "  " << std::left << std::setw(10) << CodePointName(c);
    const std::string picture = Picture(c);
    if (!picture.empty()) std::cout << std::setw(static_cast<int>(width) + 2);
    std::cout << NameOf(c) << picture << '\n';
  }
}

orv::eval::TJson NameValue(UCS4Char c) {
  const std::string_view name = FormName(c);
  return name.empty() ? orv::eval::TJson() : orv::eval::TJson(name);
}

orv::eval::TJson JsonList(const TUCS4List& list) {
  orv::eval::TJson result = orv::eval::TJson::array();
  for (const UCS4Char c : list) result.push_back({{"codePoint", CodePointName(c)}, {"name", NameValue(c)}});
  return result;
}

void Run(const TArguments& arguments) {
  TOrvGlobalSettings::ArabicDigitType = DigitTypeOf("--digits", arguments.Digits);
  if (arguments.Plain) TOrvGlobalSettings::Corrections = {};
  const TUCS4List before = ToUCS4String(arguments.Text.Read());
  TUCS4List after = before;
  if (arguments.Primes) TUCS4ListHelper::ReplaceQuotesWithPrimes(after);
  TUCS4ListHelper::ChangeToComplexCharacters(after);
  TUCS4ListHelper::ChangeToArabicDigits(after);
  if (arguments.Json) {
    const orv::eval::TJson result = {{"before", JsonList(before)}, {"after", JsonList(after)}};
    std::cout << result.dump(2) << '\n';
    return;
  }
  PrintList("before", before);
  PrintList("after", after);
}

}  // namespace

void AddShapeCommand(CLI::App& app) {
  CLI::App* shape = app.add_subcommand("shape", "Turn a right-to-left run into its presentation forms");
  shape->footer(
      "The whole text is taken as one right-to-left run, in its logical order.\n"
      "Example:\n"
      "  orv shape 'سلام'");
  const auto arguments = std::make_shared<TArguments>();
  arguments->Text.AddTo(*shape);
  shape->add_option("--digits", arguments->Digits, "Digits to be shown for the ASCII ones: latin, arabic or persian")
      ->type_name("TYPE")
      ->capture_default_str();
  shape->add_flag("--primes", arguments->Primes, "Turn quotes behind numbers into primes first");
  shape->add_flag("--plain", arguments->Plain, "Hold to the plain rules: no corrections");
  shape->add_flag("--json", arguments->Json, "Print JSON");
  shape->callback([arguments] { Run(*arguments); });
}

}  // namespace orv::command
