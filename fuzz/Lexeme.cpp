// Word walking: the array forms answer any index, and inside a text agree with the pointer forms.
#include <algorithm>

#include "fuzz/Input.h"
#include "unicode/Unicode.Text.UCS4.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orv;
  fuzz::TInput input(data, size);
  const std::int32_t any = input.Integer();
  const std::int32_t place = input.Word();
  const UCS4String text = ToUCS4String(input.Text());
  const auto length = static_cast<std::int32_t>(text.size());
  for (const std::int32_t index : {any, place, length, length - 1}) {
    const bool inside = index >= 0 && index < length;
    const auto lawful = [&](std::int32_t answer) { return !inside || (answer >= 0 && answer <= length); };
    fuzz::Require(lawful(GetLexemeBegin(text, index)), "the begin of a word lies in the text");
    fuzz::Require(lawful(GetLexemeEnd(text, index)), "the end of a word lies in the text");
    fuzz::Require(lawful(GetNextLexemeBegin(text, index)), "the next word lies in the text");
    fuzz::Require(lawful(GetPrevLexemeBegin(text, index)), "the word before lies in the text");
    fuzz::Require(lawful(GetPrevLexemeEnd(text, index)), "the end of the word before lies in the text");

    const bool ends = std::find(text.begin(), text.end(), 0U) != text.end();
    if (!inside || ends) continue;
    UCS4String block = text;
    block.push_back(0);
    const UCS4Char* start = block.data();
    const UCS4Char* current = start + index;
    fuzz::Require(GetLexemeBegin(start, current) - start == GetLexemeBegin(text, index), "both forms of begin agree");
    fuzz::Require(GetNextLexemeBegin(current) - start == GetNextLexemeBegin(text, index), "both forms of next agree");
  }
  return 0;
}
