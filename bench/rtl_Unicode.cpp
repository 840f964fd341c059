// Single look-ups of the Unicode property service beside ICU's: over the code points of real texts, and over all code
// points in a scattered order.
#include <unicode/uchar.h>

#include <string>
#include <vector>

#include "bench/Rooms.h"
#include "bench/support/Corpus.h"
#include "bench/support/Measure.h"
#include "rtl/Unicode.h"

namespace orv::bench {

namespace {

using TCodePoints = std::vector<std::uint32_t>;

TCodePoints Of(const TCorpus& corpus) {
  const std::u32string_view text = corpus.Text32();
  return {text.begin(), text.end()};
}

// Every 17th code point, then the next in each gap: neighbours in the order are far apart in the tables.
TCodePoints Scattered() {
  TCodePoints result;
  for (std::uint32_t first = 0; first < 17; ++first) {
    for (std::uint32_t c = first; c <= rtl::MaxCodePoint; c += 17 * 16) result.push_back(c);
  }
  return result;
}

template <typename F>
void AddLookUpRow(const std::string& name, const TCodePoints& codePoints, F lookUp) {
  AddRow(name, static_cast<std::int64_t>(codePoints.size()), [&codePoints, lookUp](benchmark::State& state) {
    for (auto iteration : state) {
      std::uint32_t sum = 0;
      for (const std::uint32_t c : codePoints) sum += static_cast<std::uint32_t>(lookUp(c));
      benchmark::DoNotOptimize(sum);
    }
  });
}

void AddLookUpRows(const std::string& text, const TCodePoints& points) {
  const auto icu = [](std::uint32_t c) { return static_cast<UChar32>(c); };
  AddLookUpRow("category/" + text + "/orv", points, rtl::GetUnicodeCategory);
  AddLookUpRow("category/" + text + "/icu", points, [icu](std::uint32_t c) { return u_charType(icu(c)); });
  AddLookUpRow("letter/" + text + "/orv", points, rtl::IsLetter);
  AddLookUpRow("letter/" + text + "/icu", points, [icu](std::uint32_t c) { return u_isalpha(icu(c)); });
  AddLookUpRow("white-space/" + text + "/orv", points, rtl::IsWhiteSpace);
  AddLookUpRow("white-space/" + text + "/icu", points, [icu](std::uint32_t c) { return u_isUWhiteSpace(icu(c)); });
  AddLookUpRow("upper/" + text + "/orv", points, rtl::ToUpper);
  AddLookUpRow("upper/" + text + "/icu", points, [icu](std::uint32_t c) { return u_toupper(icu(c)); });
}

}  // namespace

void RegisterProperties() {
  static const TCodePoints scattered = Scattered();
  AddLookUpRows("scattered", scattered);
  for (const char* name : {"fa", "en"}) {
    const TCorpus* corpus = Corpus(name);
    if (corpus == nullptr) continue;
    static std::vector<std::unique_ptr<TCodePoints>> texts;
    texts.push_back(std::make_unique<TCodePoints>(Of(*corpus)));
    AddLookUpRows(name, *texts.back());
  }
}

}  // namespace orv::bench
