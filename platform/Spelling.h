// Spelling by the dictionaries that are installed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fmx/EditServices.h"

namespace orv::platform {

enum class TSpellingLanguage : std::uint8_t { Persian, Arabic, Hebrew, English };

// The words of one language.
class IDictionary {
 public:
  virtual ~IDictionary() = default;
  virtual bool Knows(std::u16string_view word) = 0;
  // What might have been meant, the likeliest first.
  virtual std::vector<std::u16string> Suggest(std::u16string_view word) = 0;
};

// Opens the dictionary of a language; null where there is none.
using TOpenDictionary = std::function<std::unique_ptr<IDictionary>(TSpellingLanguage language)>;

// Those that Enchant finds. Its library is set up by the first call.
TOpenDictionary InstalledDictionaries();

// A word is looked up by its script: Arabic letters in the Persian and the Arabic dictionary, Hebrew ones in the
// Hebrew, Latin ones in an English one. A word of Arabic letters is right where either knows it; letters that one of
// the two languages alone has decide whose suggestions come. What is not of one script, or has digits in it, and every
// word without its dictionary, has nothing against it. Marks of vowels do not count, nor what stands around the word; a
// word with a joiner (U+200C) is right where its parts are.
//
// A dictionary is opened by the first word for it, which takes a tenth of a second for the larger ones; answers are
// kept. Main thread.
class TSpellChecker : public fmx::IFMXSpellCheckerService {
 public:
  // Of the suggestions, the likeliest.
  static constexpr std::size_t MaxSuggestions = 8;

  explicit TSpellChecker(TOpenDictionary open = InstalledDictionaries()) : FOpen(std::move(open)) {}

  std::vector<std::u16string> CheckSpelling(std::u16string_view word) override;

 private:
  // Null where there is none.
  IDictionary* Dictionary(TSpellingLanguage language);
  std::vector<std::u16string> Check(const struct TCheckedWord& word);

  TOpenDictionary FOpen;
  std::array<std::optional<std::unique_ptr<IDictionary>>, 4> FDictionaries;  // those that were asked for
  std::map<std::u16string, std::vector<std::u16string>, std::less<>> FKept;
};

enum class TWordScript : std::uint8_t { None, Persian, Arabic, PersianOrArabic, Hebrew, Latin };
// The word without what does not count. None for what is not looked up.
struct TCheckedWord {
  TWordScript Script = TWordScript::None;
  std::u16string_view Before;  // what stands around it, to be kept in suggestions
  std::u16string Word;         // without marks
  std::u16string_view Behind;
};
TCheckedWord WordToCheck(std::u16string_view word);

}  // namespace orv::platform
