// HTML to a tree and its text, beside the SAX reader of libxml2, which keeps nothing but the text.
#include <libxml/HTMLparser.h>

#include "bench/Rooms.h"
#include "bench/support/Corpus.h"
#include "bench/support/MarkupTexts.h"
#include "bench/support/Measure.h"
#include "formatted/Orv.StdCtrls.HTML.h"

namespace orv::bench {

namespace {

struct THtmlDocument {
  std::string Utf8;
  std::u16string Utf16;
};

void TreeAndText(benchmark::State& state, const THtmlDocument& document) {
  for (auto iteration : state) {
    const THTMLText::THTMLTree tree = THTMLText::ParseHTML(std::u16string_view(document.Utf16));
    benchmark::DoNotOptimize(tree.Root().Text().data());
    benchmark::ClobberMemory();
  }
}

// What the peer's handlers gather.
struct TGathered {
  std::string Text;
  std::size_t Tags = 0;
};

htmlSAXHandler GatheringHandler() {
  htmlSAXHandler handler{};
  handler.startElement = [](void* gathered, const xmlChar*, const xmlChar**) {
    ++static_cast<TGathered*>(gathered)->Tags;
  };
  handler.endElement = [](void* gathered, const xmlChar*) { ++static_cast<TGathered*>(gathered)->Tags; };
  handler.characters = [](void* gathered, const xmlChar* text, int length) {
    static_cast<TGathered*>(gathered)->Text.append(reinterpret_cast<const char*>(text),
                                                   static_cast<std::size_t>(length));
  };
  handler.ignorableWhitespace = handler.characters;
  return handler;
}

void SaxOfLibxml2(benchmark::State& state, const THtmlDocument& document) {
  const auto size = static_cast<int>(document.Utf8.size());
  for (auto iteration : state) {
    TGathered gathered;
    htmlSAXHandler handler = GatheringHandler();
    htmlParserCtxtPtr context =
        htmlCreatePushParserCtxt(&handler, &gathered, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8);
    htmlParseChunk(context, document.Utf8.data(), size, 1);
    htmlFreeParserCtxt(context);
    benchmark::DoNotOptimize(gathered.Text.data());
    benchmark::ClobberMemory();
  }
}

void AddHtmlRows(const std::string& name, const TCorpus& corpus, TDensity density) {
  const TLazy<THtmlDocument> document([&corpus, density] {
    std::string html = HtmlOf(corpus, density);
    std::u16string wide = WideOf(html);
    return THtmlDocument{std::move(html), std::move(wide)};
  });
  const auto add = [&](const char* who, auto run) {
    benchmark::RegisterBenchmark(("html/" + name + "/" + who).c_str(), [document, run](benchmark::State& state) {
      run(state, *document);
      ReportPerUnit(state, static_cast<std::int64_t>((*document).Utf8.size()));
    })->Unit(benchmark::kMillisecond);
  };
  add("orv", TreeAndText);
  add("libxml2", SaxOfLibxml2);
}

}  // namespace

void RegisterHtml() {
  for (const char* name : {"fa", "ar", "he", "en"}) {
    const TCorpus* corpus = Corpus(name);
    if (corpus == nullptr) continue;
    AddHtmlRows(name, *corpus, TDensity::Sparse);
    AddHtmlRows(std::string(name) + "-dense", *corpus, TDensity::Dense);
  }
}

}  // namespace orv::bench
