#include <algorithm>

#include "formatted/Orv.StdCtrls.RTF.Parts.h"
#include "rtl/Utf8.h"

namespace orv::rtf {
namespace {

using TRTFData = TRTFText::TRTFData;

[[noreturn]] void RaiseBadFormat() {
  throw EParseError(SBadRTFFormat);
}

template <typename TUnit>
class THeader {
 public:
  THeader(TMarkupTextReader<TUnit>& reader, TRTFData& data) : FReader(reader), FData(data) {}

  // Each item may be missing, but what stands must stand in this order: an item that does not match is passed over, and
  // what no item matches belongs to the body.
  void Read() {
    Word(u"\\rtf1");
    Word(u"\\fbidis");
    if (const auto page = Number(u"\\ansi\\ansicpg")) FData.OriginalCodePage = static_cast<std::uint32_t>(*page);
    if (const auto font = Number(u"\\deff")) FData.DefaultFontIndex = *font;
    Word(u"\\nouicompat");
    if (const auto language = Number(u"\\deflang")) {
      FData.LangID = static_cast<std::uint32_t>(*language);
      FData.Locale = FData.LangID;
    }
    if (Word(u"{\\fonttbl")) ReadFonts();
    if (Word(u"{\\colortbl")) ReadColors();
    SkippedNumber(u"\\viewkind");
    SkippedNumber(u"\\uc");
  }

 private:
  void SkipLineBreaks() {
    while (FReader.ReadToken(u"\r\n")) {
    }
  }

  // One blank belongs to the word before it; line breaks may stand between any two items.
  void EndWord() {
    FReader.ReadToken(u' ');
    SkipLineBreaks();
  }

  bool Word(std::u16string_view word) {
    if (!FReader.Read(word)) return false;
    EndWord();
    return true;
  }

  std::optional<std::int32_t> Number(std::u16string_view word) {
    if (!FReader.Read(word)) return std::nullopt;
    const std::int32_t number = FReader.Integer();
    EndWord();
    return number;
  }

  void SkippedNumber(std::u16string_view word) {
    if (!FReader.Read(word)) return;
    FReader.SkipDigits();
    EndWord();
  }

  // --- Font table: "{\fN\froman\fprqN\fcharsetN name;}" ... "}" ---

  void ReadFonts() {
    const std::size_t count = CountFonts();
    for (std::size_t index = 0; index < count; ++index) {
      FData.FontTable.push_back(ReadFont(index));
      SkipLineBreaks();
    }
    FReader.CheckToken(u'}');
    SkipLineBreaks();
  }

  // An entry is counted from a "{" to the next "}". A name with braces is thus counted otherwise than it is read, and
  // the reading then fails.
  std::size_t CountFonts() {
    const std::ptrdiff_t start = FReader.SavePosition();
    std::size_t count = 0;
    for (; !FReader.ReadTokenStill(u'}'); ++count) {
      if (!FReader.ReadToken(u'{') || !FReader.FindChar(u'}', true)) RaiseBadFormat();
      SkipLineBreaks();
    }
    FReader.RestorePosition(start);
    return count;
  }

  UnicodeString ReadFont(std::size_t index) {
    FReader.CheckToken(u'{');
    FReader.Check(u"\\f");
    FReader.Check(rtl::FromUtf8(std::to_string(index)));
    if (!FReader.Read(u"\\froman") && !FReader.Read(u"\\fswiss")) FReader.Check(u"\\fnil");
    if (FReader.Read(u"\\fprq")) FReader.SkipDigits();
    if (FReader.Read(u"\\fcharset")) FReader.SkipDigits();
    FReader.CheckToken(u' ');
    UnicodeString name = FReader.CopyTextTill(u';');
    FReader.CheckToken(u';');
    FReader.CheckToken(u'}');
    return name;
  }

  // --- Colour table: "\redN\greenN\blueN;" ... "}" ---

  void ReadColors() {
    for (std::size_t count = CountColors(); count > 0; --count) FData.ColorTable.push_back(ReadColor());
    if (!FReader.ReadToken(u'}')) RaiseBadFormat();
    SkipLineBreaks();
  }

  std::size_t CountColors() {
    const std::ptrdiff_t start = FReader.SavePosition();
    const auto table = FReader.TakeTill(u'}');
    if (!FReader.ReadTokenStill(u'}')) RaiseBadFormat();
    FReader.RestorePosition(start);
    return static_cast<std::size_t>(std::count(table.begin(), table.end(), TUnit{';'}));
  }

  std::uint32_t ReadColor() {
    constexpr std::uint32_t Opaque = 0xFF000000;
    const std::uint32_t red = Component(u"\\red");
    const std::uint32_t green = Component(u"\\green");
    const std::uint32_t blue = Component(u"\\blue");
    if (!FReader.ReadToken(u';')) RaiseBadFormat();
    SkipLineBreaks();
    return Opaque | (red << 16) | (green << 8) | blue;
  }

  std::uint32_t Component(std::u16string_view word) {
    const std::int32_t value = Number(word).value_or(0);
    if (value > 255) RaiseBadFormat();
    return static_cast<std::uint32_t>(value);
  }

  TMarkupTextReader<TUnit>& FReader;
  TRTFData& FData;
};

}  // namespace

template <typename TUnit>
void ReadHeader(TMarkupTextReader<TUnit>& reader, TRTFData& data) {
  THeader<TUnit>(reader, data).Read();
}

template void ReadHeader(TMarkupTextReader<char16_t>&, TRTFData&);
template void ReadHeader(TMarkupTextReader<char>&, TRTFData&);

}  // namespace orv::rtf
