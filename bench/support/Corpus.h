// The texts that the benchmarks run on, converted and cut into paragraphs before any clock starts.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orv::bench {

// One text in both encodings. The paragraphs are views of the two buffers, so a text is neither copied nor moved.
class TCorpus {
 public:
  // Cuts at line feeds, which belong to no paragraph; empty paragraphs are dropped. Other paragraph ends stay inside.
  explicit TCorpus(std::u16string text);
  TCorpus(const TCorpus&) = delete;
  TCorpus& operator=(const TCorpus&) = delete;

  std::span<const std::u16string_view> Paragraphs() const { return FParagraphs; }
  std::span<const std::u32string_view> Paragraphs32() const { return FParagraphs32; }
  std::u32string_view Text32() const { return FText32; }
  std::int64_t Units() const { return FUnits; }     // UTF-16 code units in all paragraphs
  std::size_t Longest() const { return FLongest; }  // of one paragraph, in UTF-16 code units

 private:
  std::u16string FText;
  std::u32string FText32;
  std::vector<std::u16string_view> FParagraphs;
  std::vector<std::u32string_view> FParagraphs32;
  std::int64_t FUnits = 0;
  std::size_t FLongest = 0;
};

// The names of the corpora that bench/corpora/fetch makes.
std::span<const std::string_view> CorpusNames();

// The corpus of that name (no extension) from bench/corpora/, or from the folder that ORV_CORPORA names. Null when its
// file cannot be read; the first such answer says so on standard error. Kept for the life of the process.
const TCorpus* Corpus(std::string_view name);

// The same text as one paragraph of so many code units: every paragraph end a blank, the whole repeated or cut.
const TCorpus* OneParagraph(std::string_view name, std::int64_t units);
inline constexpr std::int64_t MegabyteUnits = 1024 * 1024 / sizeof(char16_t);

std::u32string ToUtf32(std::u16string_view text);

}  // namespace orv::bench
