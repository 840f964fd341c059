#include "unicode/Unicode.Engine.Types.h"

#include <limits>
#include <stdexcept>

#include "rtl/Assertions.h"
#include "unicode/Unicode.Engine.Classes.h"
#include "unicode/Unicode.Engine.Corrections.h"
#include "unicode/Unicode.Engine.RunAssembler.h"
#include "unicode/Unicode.Engine.Stretch.h"

namespace orv {
namespace {

using engine::ClassOf;

// Looking ahead reads a few places past the text, which must still be positions.
constexpr std::size_t LengthLimit = std::numeric_limits<std::int32_t>::max() - 16;

engine::TWorkspace& Workspace() {
  thread_local engine::TWorkspace workspace;
  return workspace;
}

void Split(std::u16string_view s, TParagraphBidi paragraphBidi, engine::TWorkspace& workspace, TDirectionalRuns& runs) {
  if (s.size() > LengthLimit) throw std::length_error("SplitByDirection: the text is too long");
  runs.Offsets.clear();
  runs.Bidi.clear();
  runs.Ranges.clear();

  const auto settings = engine::TSplitSettings::Current(paragraphBidi);
  engine::TTokenReader reader(s, settings, workspace, runs);
  engine::TRunAssembler assembler(reader);
  assembler.Run();

  ORV_ASSERT(assembler.MayHoldForeignLetter() || !engine::HoldsForeignLetter(s, runs),
             "A letter in a run of the other direction was not foreseen.");

  const TBidi paragraph = reader.BaseBidi == engine::TBidiType::RTL ? TBidi::RightToLeft : TBidi::LeftToRight;
  if (settings.Corrections.Contains(TOrvCorrection::LineEnds) && (reader.ParagraphEnded || reader.LineEndSwallowed))
    engine::SeparateLineEnds(s, paragraph, reader.LineEndSwallowed, workspace.Recut, runs);
  if (settings.Corrections.Contains(TOrvCorrection::OwnDirection) && assembler.MayHoldForeignLetter())
    engine::CutToOwnDirection(s, paragraph, workspace.Recut, runs);
}

}  // namespace

bool TDirectiveChars::IsDigit(char16_t c) {
  return engine::IsAsciiDigit(c);
}
bool TDirectiveChars::IsArabicDigit(char16_t c) {
  return engine::IsArabicIndicDigit(c);
}
bool TDirectiveChars::CanBeConsideredAsArabicDigit(char16_t c) {
  return IsArabicDigit(c) || (TOrvGlobalSettings::RTLMath() && IsDigit(c));
}
bool TDirectiveChars::IsDigitOrDigitSeparator(char16_t c) {
  return engine::IsDigitOrSeparator(c);
}
bool TDirectiveChars::IsDigitOrComma(char16_t c) {
  return IsDigit(c) || c == u'\'';
}
bool TDirectiveChars::IsLatinLetter(char16_t c) {
  return engine::IsAsciiLetter(c) || IsDigit(c);
}
bool TDirectiveChars::IsLatinLetterOrDigit(char16_t c) {
  return IsLatinLetter(c);
}
bool TDirectiveChars::IsLatinLetterOrDigitOrDigitSeparator(char16_t c) {
  return engine::IsAsciiLetter(c) || IsDigitOrDigitSeparator(c);
}
bool TDirectiveChars::IsParagraphSeparator(char16_t c) {
  return ClassOf(c).In(engine::LineSeparators);
}
bool TDirectiveChars::IsRTL(char16_t c) {
  return ClassOf(c).IsRTL();
}
bool TDirectiveChars::IsLTR(char16_t c) {
  return ClassOf(c).IsLTR();
}

TDirectiveChars::TBidiType TDirectiveChars::ClassifyChar(char16_t c) {
  return engine::ClassifyChar(c, TOrvGlobalSettings::RTLMath());
}

TDirectiveChars::TCharDirection TDirectiveChars::CharDirection(char16_t c, TCharDirection defaultDirection) {
  if (IsRTL(c)) return TCharDirection::RightToLeft;
  return IsLTR(c) ? TCharDirection::LeftToRight : defaultDirection;
}

bool TDirectiveChars::CharDirectionRTL(char16_t c, bool defaultRTL) {
  return TCharDirectionHelper::IsRightToLeft(CharDirection(c, TCharDirectionHelper::Direction(defaultRTL)));
}

bool TDirectiveChars::IsRTLText(std::u16string_view s, bool defaultRTL) {
  for (const char16_t c : s) {
    const engine::TUnitClass kind = ClassOf(c);
    if (kind.IsRTL()) return true;
    if (kind.IsLetter() || c == 0x200E) return false;
  }
  return defaultRTL;
}

int TDirectiveChars::CharactersCount(std::uint32_t c) {
  if (c >= 0xFEF5 && c <= 0xFEFC) return 2;
  if (c >= 0xFC5E && c <= 0xFD3D) return 2;
  if (c == 0xFDF2 || c == 0xFB2C || c == 0xFB2D) return 3;
  return c >= 0xFB2A && c <= 0xFB4F ? 2 : 1;
}

int TDirectiveChars::CharactersCountEx(std::uint32_t c) {
  return c >= 0x10000 ? 2 : CharactersCount(c);
}

TDirectionalRuns TDirectiveChars::SplitByDirection(std::u16string_view s, TParagraphBidi paragraphBidi) {
  TDirectionalRuns& runs = Workspace().Runs;
  SplitByDirection(s, paragraphBidi, runs);
  return runs;
}

void TDirectiveChars::SplitByDirection(std::u16string_view s, TParagraphBidi paragraphBidi, TDirectionalRuns& runs) {
  Split(s, paragraphBidi, Workspace(), runs);
}

}  // namespace orv
