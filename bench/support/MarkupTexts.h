// Documents made of the corpora, as the markup benchmarks read them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "bench/support/Corpus.h"

namespace orv::bench {

// How much of a document is markup: a tag or a word of formatting about every twelve words, or every two.
enum class TDensity : std::uint8_t { Sparse, Dense };

// Paragraphs in <P CLASS="...">, words in <B> and <A HREF="...">. UTF-8; "<", ">" and "&" of the corpus are left out.
std::string HtmlOf(const TCorpus& corpus, TDensity density);

// A document of a simple word processor: bytes of code page 1256 or 1255 where it has the letter, \uXXXX? where it has
// not, words in \b. At least four million bytes, the corpus repeated.
std::string RtfOf(const TCorpus& corpus, std::uint32_t codePage, TDensity density);

std::u16string WideOf(std::string_view utf8);

// A document that is made when its first row runs. Shared by the rows that read it.
template <typename TDocument>
class TLazy {
 public:
  explicit TLazy(std::function<TDocument()> make) : FState(std::make_shared<TState>(std::move(make))) {}
  const TDocument& operator*() const {
    if (!FState->Document) FState->Document = FState->Make();
    return *FState->Document;
  }

 private:
  struct TState {
    explicit TState(std::function<TDocument()> make) : Make(std::move(make)) {}
    std::function<TDocument()> Make;
    std::optional<TDocument> Document;
  };
  std::shared_ptr<TState> FState;
};

}  // namespace orv::bench
