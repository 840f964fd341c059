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
    for (;;) {
      if (FReader.Eof()) throw EParseError(SBadRTFFormat);
      switch (FReader.Token()) {
        case u'\\':
          ReadControl();
          break;
        case u'{':
          OpenGroup();
          break;
        case u'}':
          FReader.CheckToken(u'}');
          if (FGroups.empty()) return EndRange();
          CloseGroup();
          break;
        default:
          ReadPlainText();
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

  // --- Ranges
  // ----------------------------------------------------------------------------------------------------------

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
    TAttributes changed = FCurrent;
    changed.*field = value;
    SetAttributes(changed);
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

  // --- Groups
  // ----------------------------------------------------------------------------------------------------------

  void OpenGroup() {
    FReader.CheckToken(u'{');
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

  // --- Text
  // ------------------------------------------------------------------------------------------------------------

  // Up to the next sign that means something. A CR LF of the source is no text; a lone CR or LF is.
  void ReadPlainText() {
    constexpr rtl::TFourUnits<TUnit> Signs = {'\\', '{', '}', '\r'};
    const auto rest = FReader.Rest();
    const std::size_t length = rtl::FindAnyUnit(rest, Signs);
    AppendSource(rest.substr(0, length));
    FReader.Skip(static_cast<std::ptrdiff_t>(length));
    if (length == rest.size() || rest[length] != TUnit{'\r'}) return;
    FReader.Skip(1);
    if (!FReader.ReadToken(u'\n')) FData.FText.push_back(u'\r');
  }

  void AppendSource(std::basic_string_view<TUnit> source) {
    if constexpr (sizeof(TUnit) == 1)
      rtl::AppendUtf16(FData.FText, source);
    else
      FData.FText.append(source);
  }

  // --- Control words and symbols
  // ---------------------------------------------------------------------------------------

  void ReadControl() {
    FReader.CheckToken(u'\\');
    switch (FReader.Token()) {
      case u'\'':
        return ReadByte();
      case u'\\':
      case u'{':
      case u'}':
        return ReadEscaped();
      case u'u':
        if (ReadCodeUnit()) return;
        break;
      default:
        break;
    }
    ReadWord();
  }

  void ReadEscaped() {
    FData.FText.push_back(FReader.Token());
    FReader.Skip(1);
  }

  // One byte is one code unit, whatever the page.
  void ReadByte() {
    FReader.CheckToken(u'\'');
    const std::uint8_t byte = FReader.HexByte();
    FData.FText.push_back(Page()[byte]);
  }

  // Hexadecimal, not decimal: "\u0641". One "?" behind it stands in for the character in older readers.
  bool ReadCodeUnit() {
    const std::ptrdiff_t start = FReader.SavePosition();
    FReader.CheckToken(u'u');
    const auto unit = FReader.ReadHexWord();
    if (!unit) {
      FReader.RestorePosition(start);
      return false;
    }
    FReader.ReadToken(u'?');
    FData.FText.push_back(static_cast<char16_t>(*unit));
    return true;
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
    while (IsAsciiLetter(FReader.Token())) FReader.Skip(1);
    const bool isWord = FReader.SavePosition() != start;
    FReader.ReadToken(u'-');
    FReader.SkipDigits();
    if (isWord) EndWord();
  }

  // --- Paragraph header: "\pard" and the words behind it
  // ---------------------------------------------------------------

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
