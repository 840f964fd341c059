// The operations of the text engine.
#include "editing/Orv.Text.h"
#include "tools/orv/eval/Arguments.h"
#include "tools/orv/eval/Names.h"
#include "unicode/Unicode.Engine.Types.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv::eval {
namespace {

// The code points of "codePoints", or of the text.
TUCS4List CodePointsOrText(const TArguments& arguments) {
  return arguments.Has("codePoints") ? arguments.CodePoints("codePoints") : ToUCS4String(arguments.Text());
}

TJson Split(const TArguments& arguments) {
  const TDirectionalRuns runs =
      TDirectiveChars::SplitByDirection(arguments.Text(), arguments.Enum("paragraph", ParagraphNames));
  TJson bidi = TJson::array();
  for (const TBidi direction : runs.Bidi) bidi.push_back(NameOf(direction, BidiNames));
  TJson ranges = TJson::array();
  for (const TRange range : runs.Ranges) ranges.push_back({range.LowIndex, range.HighIndex});
  return {{"Offsets", runs.Offsets}, {"VisualOrder", runs.VisualOrder}, {"Bidi", bidi}, {"Ranges", ranges}};
}

TJson IsRTLText(const TArguments& arguments) {
  return TDirectiveChars::IsRTLText(arguments.Text(), arguments.Bool("default"));
}

TJson Char(const TArguments& arguments) {
  using D = TDirectiveChars;
  const auto c = static_cast<char16_t>(arguments.Integer("unit", 0, 0xFFFF));
  return {{"IsDigit", D::IsDigit(c)},
          {"IsArabicDigit", D::IsArabicDigit(c)},
          {"CanBeConsideredAsArabicDigit", D::CanBeConsideredAsArabicDigit(c)},
          {"IsDigitOrDigitSeparator", D::IsDigitOrDigitSeparator(c)},
          {"IsDigitOrComma", D::IsDigitOrComma(c)},
          {"IsLatinLetter", D::IsLatinLetter(c)},
          {"IsLatinLetterOrDigit", D::IsLatinLetterOrDigit(c)},
          {"IsLatinLetterOrDigitOrDigitSeparator", D::IsLatinLetterOrDigitOrDigitSeparator(c)},
          {"IsParagraphSeparator", D::IsParagraphSeparator(c)},
          {"IsRTL", D::IsRTL(c)},
          {"IsLTR", D::IsLTR(c)},
          {"ClassifyChar", NameOf(D::ClassifyChar(c), BidiTypeNames)}};
}

TJson CharactersCount(const TArguments& arguments) {
  const auto c = static_cast<std::uint32_t>(arguments.Integer("codePoint", 0, 0xFFFFFFFF));
  return {{"CharactersCount", TDirectiveChars::CharactersCount(c)},
          {"CharactersCountEx", TDirectiveChars::CharactersCountEx(c)}};
}

void Primes(TUCS4List& list) {
  TUCS4ListHelper::ReplaceQuotesWithPrimes(list);
}
void Shape(TUCS4List& list) {
  TUCS4ListHelper::ChangeToComplexCharacters(list, true);
}
void Digits(TUCS4List& list) {
  TUCS4ListHelper::ChangeToArabicDigits(list);
}

using TTransform = void (*)(TUCS4List&);
constexpr TNamed<TTransform> TransformNames[] = {{"primes", Primes}, {"shape", Shape}, {"digits", Digits}};

TJson Transform(const TArguments& arguments) {
  TUCS4List list = CodePointsOrText(arguments);
  const TJson& apply = arguments.At("apply");
  if (!apply.is_array()) throw BadRequest("'apply' must be an array of transforms");
  std::vector<TTransform> transforms;
  for (const TJson& name : apply) transforms.push_back(Named("apply", name, TransformNames));
  for (const TTransform transform : transforms) transform(list);
  return {{"codePoints", list}};
}

using TLexeme = std::int32_t (*)(std::span<const UCS4Char>, std::int32_t);
constexpr TNamed<TLexeme> LexemeNames[] = {{"GetLexemeBegin", GetLexemeBegin},
                                           {"GetLexemeEnd", GetLexemeEnd},
                                           {"GetNextLexemeBegin", GetNextLexemeBegin},
                                           {"GetPrevLexemeBegin", GetPrevLexemeBegin},
                                           {"GetPrevLexemeEnd", GetPrevLexemeEnd}};

TJson Lexeme(const TArguments& arguments) {
  const TLexeme function = arguments.Enum("fn", LexemeNames);
  const TUCS4List list = CodePointsOrText(arguments);
  return function(list, arguments.Int32("index"));
}

TJson CutTextForView(const TArguments& arguments) {
  return TextValue(orv::CutTextForView(arguments.Text(), arguments.Bool("rightToLeft"), arguments.Int32("index")));
}

constexpr TOp Ops[] = {
    {"split", "text, paragraph: runs with offsets, visual order and direction", Split},
    {"isRTLText", "text, default: whether the first strong character is right-to-left", IsRTLText},
    {"char", "unit: every one-unit test", Char},
    {"charactersCount", "codePoint: the letters and code units a presentation form stands for", CharactersCount},
    {"transform", "codePoints or text, apply: any of primes, shape, digits, in that order", Transform},
    {"lexeme", "fn, codePoints or text, index: word walking", Lexeme},
    {"cutTextForView", "text, rightToLeft, index: what shows when index units have scrolled away", CutTextForView},
};

}  // namespace

std::span<const TOp> TextOps() {
  return Ops;
}

}  // namespace orv::eval
