#include "fmx/Translate.h"

#include <utility>

namespace fmx {
namespace {

// Made at its first use, so that captions can be set however early that is.
TTranslator& Translator() {
  static TTranslator translator;
  return translator;
}

}  // namespace

std::u16string Translate(std::u16string_view text) {
  // Copied: a translator may replace itself while it works.
  const TTranslator translator = Translator();
  return translator ? translator(text) : std::u16string(text);
}

void SetTranslator(TTranslator translator) {
  Translator() = std::move(translator);
}

}  // namespace fmx
