#include "bench/support/Corpus.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <optional>

namespace orv::bench {

namespace {

using TCorpora = std::map<std::string, std::unique_ptr<TCorpus>>;

std::optional<std::u16string> ReadText(std::string_view name) {
  const char* folder = std::getenv("ORV_CORPORA");
  const std::string path = std::string(folder != nullptr ? folder : ORV_CORPORA_DIR) + "/" + std::string(name) + ".txt";
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    std::cerr << "orv_bench: cannot read " << path << ": its benchmarks are skipped (bench/corpora/fetch makes it)\n";
    return std::nullopt;
  }
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const icu::UnicodeString text = icu::UnicodeString::fromUTF8(bytes);
  return std::u16string(text.getBuffer(), static_cast<std::size_t>(text.length()));
}

bool IsParagraphEnd(char16_t c) {
  return c == u'\n' || c == u'\r' || c == u'\u2028' || c == u'\u2029';
}

std::unique_ptr<TCorpus> Load(std::string_view name) {
  std::optional<std::u16string> text = ReadText(name);
  return text ? std::make_unique<TCorpus>(std::move(*text)) : nullptr;
}

std::unique_ptr<TCorpus> LoadOneParagraph(std::string_view name, std::size_t units) {
  const TCorpus* corpus = Corpus(name);
  if (corpus == nullptr) return nullptr;
  std::u16string once;
  for (const std::u16string_view paragraph : corpus->Paragraphs()) once.append(paragraph).append(u" ");
  std::replace_if(once.begin(), once.end(), IsParagraphEnd, u' ');
  std::u16string text;
  while (text.size() < units) text.append(once, 0, units - text.size());
  return std::make_unique<TCorpus>(std::move(text));
}

// What was loaded under a key, loading it when asked for the first time.
template <typename F>
const TCorpus* Kept(TCorpora& corpora, const std::string& key, F load) {
  auto found = corpora.find(key);
  if (found == corpora.end()) found = corpora.emplace(key, load()).first;
  return found->second.get();
}

}  // namespace

TCorpus::TCorpus(std::u16string text) : FText(std::move(text)), FText32(ToUtf32(FText)) {
  std::size_t begin = 0;
  std::size_t begin32 = 0;
  while (begin < FText.size()) {
    const std::size_t end = std::min(FText.find(u'\n', begin), FText.size());
    const std::size_t end32 = std::min(FText32.find(U'\n', begin32), FText32.size());
    if (end > begin) {
      FParagraphs.emplace_back(FText.data() + begin, end - begin);
      FParagraphs32.emplace_back(FText32.data() + begin32, end32 - begin32);
      FUnits += static_cast<std::int64_t>(end - begin);
      FLongest = std::max(FLongest, end - begin);
    }
    begin = end + 1;
    begin32 = end32 + 1;
  }
}

std::span<const std::string_view> CorpusNames() {
  static constexpr std::array<std::string_view, 7> names{"fa", "ar", "mixed", "en", "he", "he-pointed", "synth"};
  return names;
}

const TCorpus* Corpus(std::string_view name) {
  static TCorpora corpora;
  return Kept(corpora, std::string(name), [name] { return Load(name); });
}

const TCorpus* OneParagraph(std::string_view name, std::int64_t units) {
  static TCorpora corpora;
  return Kept(corpora, std::string(name) + "/" + std::to_string(units),
              [name, units] { return LoadOneParagraph(name, static_cast<std::size_t>(units)); });
}

std::u32string ToUtf32(std::u16string_view text) {
  std::u32string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (U16_IS_LEAD(c) && i + 1 < text.size() && U16_IS_TRAIL(text[i + 1])) {
      c = static_cast<char32_t>(U16_GET_SUPPLEMENTARY(c, text[i + 1]));
      ++i;
    }
    result.push_back(c);
  }
  return result;
}

}  // namespace orv::bench
