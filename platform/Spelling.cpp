#include "platform/Spelling.h"

#include <algorithm>
#include <utility>

#include "rtl/Unicode.h"

namespace orv::platform {
namespace {

constexpr char16_t NonJoiner = 0x200C;
constexpr char16_t Tatweel = 0x0640;
// Answers that are kept. Every step of a word that is being typed makes one.
constexpr std::size_t MaxKept = 4096;
// Longer than any word; dictionaries take their time over such.
constexpr std::size_t LongestWord = 64;

constexpr bool IsHebrew(char16_t c) {
  return c >= 0x05D0 && c <= 0x05EA;
}
constexpr bool IsArabicScript(char16_t c) {
  return (c >= 0x0620 && c <= 0x064A) || (c >= 0x066E && c <= 0x06D3) || (c >= 0x06D5 && c <= 0x06FF);
}
// The Latin letters of words that an English dictionary may know.
constexpr bool IsLatin(char16_t c) {
  return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= 0x00C0 && c <= 0x024F);
}
// Points and vowels that may stand over a letter or not.
constexpr bool IsVowelMark(char16_t c) {
  return (c >= 0x0591 && c <= 0x05C7 && c != 0x05BE && c != 0x05C0 && c != 0x05C3 && c != 0x05C6) ||
         (c >= 0x064B && c <= 0x0652) || c == 0x0670 || c == Tatweel;
}
constexpr bool IsApostrophe(char16_t c) {
  return c == u'\'' || c == 0x2019;
}

constexpr std::u16string_view PersianAlone = u"پچژگکی";
constexpr std::u16string_view ArabicAlone = u"ةيكىإٱ";

bool HasOneOf(std::u16string_view word, std::u16string_view letters) {
  return word.find_first_of(letters) != word.npos;
}

bool IsWordUnit(char16_t c) {
  return IsHebrew(c) || IsArabicScript(c) || IsLatin(c) || IsVowelMark(c) || rtl::IsLowSurrogate(c) ||
         rtl::IsHighSurrogate(c) || (c >= u'0' && c <= u'9') || (c >= 0x0660 && c <= 0x0669) || c > 0x2E80;
}

template <typename TIs>
bool AllAre(std::u16string_view word, TIs is) {
  return std::all_of(word.begin(), word.end(), is);
}

TWordScript ScriptOf(std::u16string_view word) {
  const auto isPersian = [](char16_t c) { return (IsArabicScript(c) && (c < 0x06F0 || c > 0x06F9)) || c == NonJoiner; };
  if (word.empty()) return TWordScript::None;
  if (AllAre(word, IsHebrew)) return TWordScript::Hebrew;
  if (AllAre(word, [](char16_t c) { return IsLatin(c) || IsApostrophe(c); })) return TWordScript::Latin;
  if (!AllAre(word, isPersian)) return TWordScript::None;
  const bool persian = HasOneOf(word, PersianAlone) || word.find(NonJoiner) != word.npos;
  const bool arabic = HasOneOf(word, ArabicAlone);
  if (persian == arabic) return TWordScript::PersianOrArabic;
  return persian ? TWordScript::Persian : TWordScript::Arabic;
}

}  // namespace

TCheckedWord WordToCheck(std::u16string_view word) {
  TCheckedWord checked;
  const auto first = std::find_if(word.begin(), word.end(), IsWordUnit);
  const auto last = std::find_if(word.rbegin(), std::make_reverse_iterator(first), IsWordUnit).base();
  const auto begin = static_cast<std::size_t>(first - word.begin());
  const auto end = static_cast<std::size_t>(last - word.begin());
  if (begin >= end || end - begin > LongestWord) return checked;
  checked.Before = word.substr(0, begin);
  checked.Behind = word.substr(end);
  for (const char16_t c : word.substr(begin, end - begin))
    if (!IsVowelMark(c)) checked.Word.push_back(c);
  checked.Script = ScriptOf(checked.Word);
  return checked;
}

// --- Looking up ---

namespace {

bool KnowsParts(IDictionary& dictionary, std::u16string_view word) {
  if (dictionary.Knows(word)) return true;
  if (word.find(NonJoiner) == word.npos) return false;
  for (;;) {
    const std::size_t end = std::min(word.find(NonJoiner), word.size());
    if (end > 0 && !dictionary.Knows(word.substr(0, end))) return false;
    if (end == word.size()) return true;
    word.remove_prefix(end + 1);
  }
}

// The likeliest language first.
std::vector<TSpellingLanguage> LanguagesOf(TWordScript script) {
  switch (script) {
    case TWordScript::Hebrew:
      return {TSpellingLanguage::Hebrew};
    case TWordScript::Latin:
      return {TSpellingLanguage::English};
    case TWordScript::Arabic:
      return {TSpellingLanguage::Arabic, TSpellingLanguage::Persian};
    case TWordScript::Persian:
    case TWordScript::PersianOrArabic:
      return {TSpellingLanguage::Persian, TSpellingLanguage::Arabic};
    default:
      return {};
  }
}

}  // namespace

IDictionary* TSpellChecker::Dictionary(TSpellingLanguage language) {
  auto& dictionary = FDictionaries[static_cast<std::size_t>(language)];
  if (!dictionary) dictionary = FOpen(language);
  return dictionary->get();
}

std::vector<std::u16string> TSpellChecker::Check(const TCheckedWord& word) {
  std::vector<IDictionary*> dictionaries;
  for (const TSpellingLanguage language : LanguagesOf(word.Script))
    if (IDictionary* const dictionary = Dictionary(language)) {
      if (KnowsParts(*dictionary, word.Word)) return {};
      dictionaries.push_back(dictionary);
    }
  // A word that may be of either language is offered words of both.
  const bool both = word.Script == TWordScript::PersianOrArabic && dictionaries.size() > 1;
  std::vector<std::u16string> suggestions;
  for (IDictionary* const dictionary : dictionaries) {
    if (!both && !suggestions.empty()) break;
    std::vector<std::u16string> found = dictionary->Suggest(word.Word);
    found.resize(std::min(found.size(), both ? MaxSuggestions / 2 : MaxSuggestions));
    for (std::u16string& each : found)
      if (std::find(suggestions.begin(), suggestions.end(), each) == suggestions.end())
        suggestions.push_back(std::move(each));
  }
  for (std::u16string& each : suggestions) each = std::u16string(word.Before) + each + std::u16string(word.Behind);
  return suggestions;
}

std::vector<std::u16string> TSpellChecker::CheckSpelling(std::u16string_view word) {
  const TCheckedWord checked = WordToCheck(word);
  if (checked.Script == TWordScript::None) return {};
  if (const auto found = FKept.find(word); found != FKept.end()) return found->second;
  if (FKept.size() >= MaxKept) FKept.clear();
  return FKept.emplace(word, Check(checked)).first->second;
}

}  // namespace orv::platform
