// The dictionaries that Enchant finds.
#include <enchant.h>

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <utility>

#include "platform/Spelling.h"
#include "rtl/Utf8.h"

namespace orv::platform {
namespace {

// The library's state, which its dictionaries share.
class TBroker {
 public:
  TBroker() : FBroker(enchant_broker_init()) {
    // Another provider of Hebrew writes to the standard error where its data is not installed.
    for (const char* const hebrew : {"he", "he_IL"})
      enchant_broker_set_ordering(FBroker, hebrew, "hunspell,nuspell,aspell");
  }
  ~TBroker() { enchant_broker_free(FBroker); }
  TBroker(const TBroker&) = delete;
  TBroker& operator=(const TBroker&) = delete;

  EnchantBroker* Get() const { return FBroker; }

 private:
  EnchantBroker* FBroker;
};

class TEnchantDictionary : public IDictionary {
 public:
  TEnchantDictionary(std::shared_ptr<TBroker> broker, EnchantDict* dictionary)
      : FBroker(std::move(broker)), FDictionary(dictionary) {}
  ~TEnchantDictionary() override { enchant_broker_free_dict(FBroker->Get(), FDictionary); }

  // Also where the dictionary fails.
  bool Knows(std::u16string_view word) override {
    const std::string utf8 = rtl::ToUtf8(word);
    return enchant_dict_check(FDictionary, utf8.data(), static_cast<ssize_t>(utf8.size())) <= 0;
  }

  std::vector<std::u16string> Suggest(std::u16string_view word) override {
    const std::string utf8 = rtl::ToUtf8(word);
    std::size_t count = 0;
    char** const found = enchant_dict_suggest(FDictionary, utf8.data(), static_cast<ssize_t>(utf8.size()), &count);
    if (found == nullptr) return {};
    std::vector<std::u16string> suggestions;
    for (const char* const each : std::span(found, count)) suggestions.push_back(rtl::FromUtf8(each));
    enchant_dict_free_string_list(FDictionary, found);
    return suggestions;
  }

 private:
  std::shared_ptr<TBroker> FBroker;  // outlives the dictionary
  EnchantDict* FDictionary;
};

// By the language's number; the first that is installed counts.
constexpr std::array<std::array<const char*, 2>, 4> Names = {
    {{"fa", "fa_IR"}, {"ar", "ar_SA"}, {"he", "he_IL"}, {"en_US", "en_GB"}}};

}  // namespace

TOpenDictionary InstalledDictionaries() {
  return [broker = std::shared_ptr<TBroker>()](TSpellingLanguage language) mutable -> std::unique_ptr<IDictionary> {
    if (broker == nullptr) broker = std::make_shared<TBroker>();
    for (const char* const name : Names[static_cast<std::size_t>(language)])
      if (EnchantDict* const dictionary = enchant_broker_request_dict(broker->Get(), name))
        return std::make_unique<TEnchantDictionary>(broker, dictionary);
    return nullptr;
  };
}

}  // namespace orv::platform
