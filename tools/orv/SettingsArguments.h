// The arguments that several commands share: the text, and the settings of the engine.
#pragma once

#include <string>
#include <vector>

#include "rtl/Strings.h"
#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Engine.Types.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace orv::command {

// The value that a word of the command line stands for, in any letter case. Raises CLI::ValidationError naming the
// argument and every word that it takes.
TOrvGlobalOption OptionOf(const std::string& argument, const std::string& word);
TParagraphBidi ParagraphOf(const std::string& argument, const std::string& word);
TOrvGlobalSettings::TArabicDigitType DigitTypeOf(const std::string& argument, const std::string& word);

// The names that --option takes, for help texts: a heading and a line for each.
std::string OptionHelp();

// --option NAME... and --plain.
class TEngineArguments {
 public:
  void AddTo(CLI::App& command);
  void Apply() const;  // to the process-wide settings; raises CLI::ValidationError

 private:
  std::vector<std::string> FOptions;
  bool FPlain = false;
};

// TEXT or -f FILE.
class TTextArguments {
 public:
  void AddTo(CLI::App& command);
  // Raises CLI::ValidationError where none or both are given or TEXT is not UTF-8, EInputError where the file fails.
  rtl::UnicodeString Read() const;

 private:
  std::string FText;
  std::string FFile;
  CLI::Option* FTextOption = nullptr;
  CLI::Option* FFileOption = nullptr;
};

}  // namespace orv::command
