#include <utility>

#include "formatted/Orv.StdCtrls.RTF.Parts.h"
#include "rtl/CodePages.h"
#include "rtl/TextSearch.h"
#include "rtl/Utf8.h"

namespace orv::rtf {
namespace {

using TRTFData = TRTFText::TRTFData;
using TAttributes = TRTFText::TRTFAttributes;
using TFontStyle = TRTFText::TFontStyle;
using TTextAlign = TRTFText::TTextAlign;

// Reads the body with one current set of attributes. A change of any of them ends the range before it at once, whether
// or not text follows; an empty range is not kept.
template <typename TUnit>
class TBody {
 public:
  TBody(TMarkupTextReader<TUnit>& reader, TRTFData& data)
      : FReader(reader), FData(data), FCurrent(StartAttributes(data)) {}

  void Read() {
    // Most text is written with four units of the source for each of its own, and none with less than one.
    FData.FText.reserve(FReader.Rest().size() / 4);
    for (;;) {
      ReadStretch();
      if (FReader.Eof()) throw EParseError(SBadRTFFormat);
      if (FReader.ReadToken(u'}')) {
        if (FGroups.empty()) return EndRange();
        CloseGroup();
      } else if (FReader.ReadToken(u'{')) {
        OpenGroup();
      } else {
        FReader.CheckToken(u'\\');
        ReadWord();
      }
    }
  }

 private:
  using TReading = void (TBody::*)();

  struct TWord {
    std::u16string_view Word;
    TReading Read;
  };

  // Groups that opened one inside the other with the same attributes.
  struct TGroups {
    TAttributes Attributes;
    std::size_t Count;
  };

  static TAttributes StartAttributes(const TRTFData& data) {
    TAttributes start;
    start.SetLangID(data.LangID);
    if (data.OriginalCodePage != 0) start.AnsiToUnicodeLocaleKey = data.OriginalCodePage;
    start.FontIndex = data.DefaultFontIndex;
    return start;
  }

  // --- Ranges ---

  void EndRange() {
    const std::size_t start = FRangeStart;
    if (FData.FText.size() == start) return;
    FRangeStart = FData.FText.size();
    TRTFText::TRTFTextRange range{FCurrent, {}, std::exchange(FNewParagraph, false)};
    range.Range = {static_cast<std::int32_t>(start), static_cast<std::int32_t>(FRangeStart - start)};
    FData.Ranges.push_back(range);
  }

  void SetAttributes(const TAttributes& attributes) {
    if (attributes == FCurrent) return;
    EndRange();
    FCurrent = attributes;
  }

  template <typename TValue>
  void Set(TValue TAttributes::*field, TValue value) {
    if (FCurrent.*field == value) return;
    EndRange();
    FCurrent.*field = value;
  }

  void SetStyle(TFontStyle style, bool on) {
    auto styles = FCurrent.FontStyle;
    on ? styles.Include(style) : styles.Exclude(style);
    Set(&TAttributes::FontStyle, styles);
  }

  void SetLanguage(std::uint32_t languageId) {
    TAttributes changed = FCurrent;
    changed.SetLangID(languageId);
    SetAttributes(changed);
  }

  // --- Groups ---

  void OpenGroup() {
    if (FReader.Read(u"\\*")) return SkipGroup();
    // Alike levels share one entry, so that a million of braces costs nothing.
    if (!FGroups.empty() && FGroups.back().Attributes == FCurrent)
      ++FGroups.back().Count;
    else
      FGroups.push_back({FCurrent, 1});
  }

  void CloseGroup() {
    SetAttributes(FGroups.back().Attributes);
    if (--FGroups.back().Count == 0) FGroups.pop_back();
  }

  // Every brace counts, also one behind a backslash.
  void SkipGroup() {
    for (std::size_t depth = 1; depth > 0;) {
      const auto brace = FReader.FindAny(u"{}", true);
      if (!brace) throw EParseError(SUnexpectedEndOfRTFData);
      *brace == u'{' ? ++depth : --depth;
    }
  }

  // --- Text ---

  using TView = std::basic_string_view<TUnit>;

  static bool IsSign(TUnit c) { return c == '\\' || c == '{' || c == '}' || c == '\r'; }

  // Reads one stretch of text into FText: up to a brace, or to a control word that makes no text.
  void ReadStretch() {
    const TView source = FReader.Rest();
    std::size_t i = 0;
    while (i < source.size() && source[i] != '{' && source[i] != '}') {
      const TView rest = source.substr(i);
      const std::size_t length = rest[0] == '\\' ? ReadEscape(rest) : ReadPlain(rest);
      if (length == 0) break;
      i += length;
    }
    FReader.Skip(static_cast<std::ptrdiff_t>(i));
  }

  // Up to the next sign that means something. A CR LF of the source is no text; a lone CR or LF is.
  std::size_t ReadPlain(TView rest) {
    constexpr rtl::TFourUnits<TUnit> Signs = {'\\', '{', '}', '\r'};
    if (rest[0] == '\r' && rest.size() > 1 && rest[1] == '\n') return 2;
    const bool single = rest.size() == 1 || IsSign(rest[1]);
    if (single && (sizeof(TUnit) > 1 || static_cast<unsigned char>(rest[0]) < 0x80)) {
      FData.FText.push_back(static_cast<char16_t>(rest[0]));  // the blank between two words of escapes
      return 1;
    }
    const std::size_t length = 1 + rtl::FindAnyUnit(rest.substr(1), Signs);
    if constexpr (sizeof(TUnit) == 1)
      rtl::AppendUtf16(FData.FText, rest.substr(0, length));
    else
      FData.FText.append(rest.substr(0, length));
    return length;
  }

  // The forms behind a backslash that stand for one code unit each. Answers the units of the source they take, or 0 for
  // anything else.
  std::size_t ReadEscape(TView rest) {
    switch (rest.size() > 1 ? rest[1] : TUnit{}) {
      case '\'':
        return ReadByte(rest);
      case 'u':
        return ReadCodeUnit(rest);
      case '\\':
      case '{':
      case '}':
        FData.FText.push_back(static_cast<char16_t>(rest[1]));
        return 2;
      default:
        return 0;
    }
  }

  // A byte above ASCII becomes a unit far above the digits.
  static int HexValue(TUnit c) { return HexDigitValue(static_cast<char16_t>(c)); }

  // "\'d3": one byte is one code unit, whatever the page.
  std::size_t ReadByte(TView rest) {
    constexpr std::size_t Length = 4;
    if (rest.size() < Length) return 0;
    const int high = HexValue(rest[2]);
    const int low = HexValue(rest[3]);
    if (high < 0 || low < 0) return 0;
    FData.FText.push_back(Page()[static_cast<std::uint8_t>(high * 16 + low)]);
    return Length;
  }

  // "\u0641": hexadecimal, not decimal. One "?" behind it stands in for the character in older readers.
  std::size_t ReadCodeUnit(TView rest) {
    constexpr std::size_t Length = 6;
    if (rest.size() < Length) return 0;
    int unit = 0;
    for (std::size_t i = 2; i < Length; ++i) {
      const int digit = HexValue(rest[i]);
      if (digit < 0) return 0;
      unit = unit * 16 + digit;
    }
    FData.FText.push_back(static_cast<char16_t>(unit));
    return rest.size() > Length && rest[Length] == '?' ? Length + 1 : Length;
  }

  const rtl::TCodePage& Page() {
    if (std::exchange(FPageKey, FCurrent.AnsiToUnicodeLocaleKey) != FCurrent.AnsiToUnicodeLocaleKey)
      FPage = PageOf(FCurrent.AnsiToUnicodeLocaleKey);
    return FPage;
  }

  rtl::TCodePage PageOf(std::uint32_t key) const {
    if (const auto page = rtl::FindCodePage(key)) return *page;
    return rtl::FindCodePage(FData.OriginalCodePage).value_or(*rtl::FindCodePage(rtl::LatinCodePage));
  }

  // --- Control words ---

  // The first word in this order that begins the text decides, so "\bullet" is "\b" and the text "ullet".
  void ReadWord() {
    static constexpr TWord Words[] = {
        {u"pard", &TBody::ReadParagraphHeader}, {u"b0", &TBody::ClearBold},      {u"b", &TBody::SetBold},
        {u"i0", &TBody::ClearItalic},           {u"i", &TBody::SetItalic},       {u"ulnone", &TBody::ClearUnderline},
        {u"ul", &TBody::SetUnderline},          {u"cf", &TBody::ReadColorIndex}, {u"fs", &TBody::ReadFontSize},
        {u"lang", &TBody::ReadLanguage},        {u"qr", &TBody::AlignTrailing},  {u"qc", &TBody::AlignCenter},
        {u"fi", &TBody::SkipFirstLineIndent},   {u"li", &TBody::ReadListIndent}, {u"tab", &TBody::AppendTab},
        {u"par", &TBody::EndParagraph},
    };
    // A stretch ends at this sign only where no two digits follow, so this raises.
    if (FReader.ReadToken(u'\'')) FReader.HexByte();
    const char16_t first = FReader.Token();
    for (const TWord& word : Words)
      if (word.Word.front() == first && FReader.Read(word.Word)) return (this->*word.Read)();
    if (!ReadFontIndexWord(u"f")) SkipWord();
  }

  // One blank behind a word belongs to it.
  void EndWord() { FReader.ReadToken(u' '); }

  void ClearBold() { EndStyle(TFontStyle::Bold, false); }
  void SetBold() { EndStyle(TFontStyle::Bold, true); }
  void ClearItalic() { EndStyle(TFontStyle::Italic, false); }
  void SetItalic() { EndStyle(TFontStyle::Italic, true); }
  void ClearUnderline() { EndStyle(TFontStyle::Underline, false); }
  void SetUnderline() { EndStyle(TFontStyle::Underline, true); }
  void EndStyle(TFontStyle style, bool on) {
    SetStyle(style, on);
    EndWord();
  }

  void AlignTrailing() { EndSetting(&TAttributes::Align, TTextAlign::Trailing); }
  void AlignCenter() { EndSetting(&TAttributes::Align, TTextAlign::Center); }
  void ReadColorIndex() { EndSetting(&TAttributes::ColorIndex, FReader.Integer()); }
  void ReadFontSize() { EndSetting(&TAttributes::FontSize, FReader.Integer() / 2); }
  void ReadListIndent() { EndSetting(&TAttributes::ListIndent, FReader.Integer()); }
  template <typename TValue>
  void EndSetting(TValue TAttributes::*field, TValue value) {
    Set(field, value);
    EndWord();
  }

  void ReadLanguage() {
    SetLanguage(static_cast<std::uint32_t>(FReader.Integer()));
    EndWord();
  }

  void SkipFirstLineIndent() {
    FReader.ReadToken(u'-');
    FReader.Integer();
    EndWord();
  }

  // Only with a digit behind it: words that begin with an f are many.
  bool ReadFontIndexWord(std::u16string_view word) {
    const std::ptrdiff_t start = FReader.SavePosition();
    if (!FReader.Read(word)) return false;
    if (!IsDecimalDigit(FReader.Token())) {
      FReader.RestorePosition(start);
      return false;
    }
    EndSetting(&TAttributes::FontIndex, FReader.Integer());
    return true;
  }

  void AppendTab() {
    EndWord();
    FData.FText.push_back(u'\t');
  }

  // The line end belongs to the paragraph that it ends.
  void EndParagraph() {
    EndWord();
    FData.FText += u"\n\r";
    EndRange();
    FNewParagraph = true;
  }

  // A word that means nothing here, with its number. Behind a symbol no blank is dropped.
  void SkipWord() {
    const std::ptrdiff_t start = FReader.SavePosition();
    FReader.SkipWhile(IsAsciiLetter);
    const bool isWord = FReader.SavePosition() != start;
    FReader.ReadToken(u'-');
    FReader.SkipDigits();
    if (isWord) EndWord();
  }

  // --- Paragraph header: "\pard" and the words behind it ---

  // It resets nothing by itself.
  void ReadParagraphHeader() {
    EndWord();
    EndRange();
    FNewParagraph = true;
    while (ReadParagraphWord()) {
    }
  }

  bool ReadParagraphWord() {
    if (FReader.Read(u"\\ltrpar")) {
      EndSetting(&TAttributes::RTL, false);
    } else if (FReader.Read(u"\\rtlpar")) {
      EndSetting(&TAttributes::RTL, true);
    } else if (FReader.Read(u"\\sa")) {
      SkipNumber();
    } else if (FReader.Read(u"\\sl")) {
      if (!IsDecimalDigit(FReader.Token())) FReader.Read(u"mult");
      SkipNumber();
    } else if (FReader.Read(u"\\qr")) {
      AlignTrailing();
    } else if (FReader.Read(u"\\qc")) {
      AlignCenter();
    } else if (FReader.Read(u"\\cf")) {
      ReadColorIndex();
    } else if (ReadFontIndexWord(u"\\f")) {
      return true;
    } else if (FReader.Read(u"\\fs")) {
      ReadFontSize();
    } else if (FReader.Read(u"\\rtlch")) {
      EndSetting(&TAttributes::RTLCh, true);
    } else if (FReader.Read(u"\\lang")) {
      ReadLanguage();
    } else {
      return false;
    }
    return true;
  }

  void SkipNumber() {
    FReader.SkipDigits();
    EndWord();
  }

  TMarkupTextReader<TUnit>& FReader;
  TRTFData& FData;
  TAttributes FCurrent;
  std::vector<TGroups> FGroups;
  std::size_t FRangeStart = 0;
  bool FNewParagraph = true;
  std::uint32_t FPageKey = 0;
  rtl::TCodePage FPage = PageOf(0);
};

}  // namespace

template <typename TUnit>
void ReadBody(TMarkupTextReader<TUnit>& reader, TRTFData& data) {
  TBody<TUnit>(reader, data).Read();
}

template void ReadBody(TMarkupTextReader<char16_t>&, TRTFData&);
template void ReadBody(TMarkupTextReader<char>&, TRTFData&);

}  // namespace orv::rtf
