#include "tests/unicode/support/TokenGolden.h"

#include "tests/unicode/support/Golden.h"
#include "unicode/Unicode.Engine.TokenReader.h"

namespace orv::testing {
namespace {

using TBidiType = TDirectiveChars::TBidiType;

std::string NameOf(TBidiType kind) {
  switch (kind) {
    case TBidiType::Neutral:
      return "Neutral";
    case TBidiType::LTR:
      return "LTR";
    case TBidiType::RTL:
      return "RTL";
    case TBidiType::ArabicDigit:
      return "Digit";
    case TBidiType::SpaceSeparator:
      return "Space";
    case TBidiType::LineParagraphSeparator:
      return "Paragraph";
    case TBidiType::DirectionalFormatting:
      return "Format";
    default:
      return "?";
  }
}

struct TReading {
  std::string Tokens;
  std::string Ranges;
};

bool IsAsciiDigitAt(std::u16string_view text, std::int32_t place) {
  return place >= 0 && TDirectiveChars::IsDigit(text[static_cast<std::size_t>(place)]);
}

TReading Read(std::u16string_view marked, TParagraphBidi paragraph, TBidiType runKind) {
  const std::u16string text = Text(marked);
  engine::TWorkspace workspace;
  TDirectionalRuns runs;
  const auto settings = engine::TSplitSettings::Current(paragraph);
  engine::TTokenReader reader(text, settings, workspace, runs);
  TReading reading;
  std::int32_t from = 0;
  TBidiType former = TBidiType::NotExists;
  while (!reader.AtEnd()) {
    reader.RunKind = runKind;
    const std::int32_t start = reader.Position;
    const TBidiType kind = reader.ReadNextToken();
    const bool goesOn = kind == former && IsAsciiDigitAt(text, start - 1) && IsAsciiDigitAt(text, start);
    if (goesOn) {
      reading.Tokens.erase(reading.Tokens.rfind(NameOf(kind) + '<'));
    } else {
      from = start;
      if (!reading.Tokens.empty()) reading.Tokens += ' ';
    }
    const TDirectionalRuns whole{{0, reader.Position - from}, {0}, {TBidi::LeftToRight}, {}};
    const std::string shown = ShownRuns(std::u16string_view(text).substr(static_cast<std::size_t>(from)), whole);
    reading.Tokens += NameOf(kind) + shown.substr(1) + (reader.SentenceEnded ? "!" : "");
    former = reader.SentenceEnded ? TBidiType::NotExists : kind;
  }
  for (const TRange range : runs.Ranges) {
    if (!reading.Ranges.empty()) reading.Ranges += ' ';
    reading.Ranges += std::to_string(range.LowIndex) + '-' + std::to_string(range.HighIndex);
  }
  return reading;
}

}  // namespace

std::string Tokens(std::u16string_view marked, TParagraphBidi paragraph, TBidiType runKind) {
  return Read(marked, paragraph, runKind).Tokens;
}

std::string TokenRanges(std::u16string_view marked, TParagraphBidi paragraph, TBidiType runKind) {
  return Read(marked, paragraph, runKind).Ranges;
}

}  // namespace orv::testing
