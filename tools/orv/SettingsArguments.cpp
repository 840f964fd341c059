#include "tools/orv/SettingsArguments.h"

#include <CLI/CLI.hpp>
#include <cctype>
#include <string_view>

#include "tools/orv/TextInput.h"
#include "tools/orv/eval/Names.h"

namespace orv::command {
namespace {

using TDigitType = TOrvGlobalSettings::TArabicDigitType;

constexpr orv::eval::TNamed<TParagraphBidi> ParagraphWords[] = {{"ltr", TParagraphBidi::LeftToRight},
                                                                {"rtl", TParagraphBidi::RightToLeft},
                                                                {"auto", TParagraphBidi::AutoLeftToRight},
                                                                {"auto-rtl", TParagraphBidi::AutoRightToLeft},
                                                                {"LeftToRight", TParagraphBidi::LeftToRight},
                                                                {"RightToLeft", TParagraphBidi::RightToLeft},
                                                                {"AutoLeftToRight", TParagraphBidi::AutoLeftToRight},
                                                                {"AutoRightToLeft", TParagraphBidi::AutoRightToLeft},
                                                                {"Neutral", TParagraphBidi::Neutral}};

constexpr orv::eval::TNamed<TDigitType> DigitWords[] = {{"arabic", TDigitType::ArabicDigitType1},
                                                        {"persian", TDigitType::ArabicDigitType2},
                                                        {"latin", TDigitType::Latin},
                                                        {"ArabicDigitType1", TDigitType::ArabicDigitType1},
                                                        {"ArabicDigitType2", TDigitType::ArabicDigitType2}};

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

template <typename E, std::size_t N>
std::string Words(const orv::eval::TNamed<E> (&table)[N]) {
  std::string words;
  for (const auto& [name, value] : table) words += (words.empty() ? "" : ", ") + std::string(name);
  return words;
}

template <typename E, std::size_t N>
E Look(const std::string& argument, const std::string& word, const orv::eval::TNamed<E> (&table)[N]) {
  for (const auto& [name, value] : table)
    if (EqualIgnoringCase(name, word)) return value;
  throw CLI::ValidationError(argument, "there is no '" + word + "' (known: " + Words(table) + ")");
}

}  // namespace

TOrvGlobalOption OptionOf(const std::string& argument, const std::string& word) {
  return Look(argument, word, orv::eval::OptionNames);
}

TParagraphBidi ParagraphOf(const std::string& argument, const std::string& word) {
  return Look(argument, word, ParagraphWords);
}

TDigitType DigitTypeOf(const std::string& argument, const std::string& word) {
  return Look(argument, word, DigitWords);
}

std::string OptionHelp() {
  std::string help = "Options of the engine, for --option NAME:\n";
  for (const auto& [name, option] : orv::eval::OptionNames) help += "  " + std::string(name) + "\n";
  return help;
}

void TEngineArguments::AddTo(CLI::App& command) {
  command.add_option("--option", FOptions, "Switch on an option of the engine; may be given several times")
      ->type_name("NAME")
      ->allow_extra_args(false);
  command.add_flag("--plain", FPlain, "Hold to the plain rules: no corrections");
}

void TEngineArguments::Apply() const {
  TOrvGlobalOptions options;
  for (const std::string& word : FOptions) options.Include(OptionOf("--option", word));
  TOrvGlobalSettings::Options = options;
  if (FPlain) TOrvGlobalSettings::Corrections = {};
}

void TTextArguments::AddTo(CLI::App& command) {
  FTextOption = command.add_option("TEXT", FText, "The text, UTF-8")->type_name("");
  FFileOption =
      command.add_option("-f,--file", FFile, "Read the text from a UTF-8 file; - is standard input")->type_name("FILE");
}

rtl::UnicodeString TTextArguments::Read() const {
  const bool hasText = FTextOption->count() != 0;
  const bool hasFile = FFileOption->count() != 0;
  if (hasText && hasFile) throw CLI::ValidationError("TEXT", "give TEXT or -f FILE, not both");
  if (!hasText && !hasFile) throw CLI::ValidationError("TEXT", "give TEXT or -f FILE");
  if (hasFile) return ReadTextFile(FFile);
  if (FirstMalformedByte(FText)) throw CLI::ValidationError("TEXT", "it is not UTF-8");
  return orv::eval::FromUtf8(FText);
}

}  // namespace orv::command
