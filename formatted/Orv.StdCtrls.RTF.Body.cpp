#include <algorithm>
#include <array>
#include <utility>

#include "formatted/Orv.StdCtrls.Names.h"
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
      : FReader(reader), FData(data), FSourceSize(reader.Rest().size()), FCurrent(StartAttributes(data)) {}

  void Read() {
    // Most text is written with four units of the source for each of its own, and none with less than one.
    FData.FText.reserve(FSourceSize / 4);
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
  using TView = std::basic_string_view<TUnit>;
  using TReading = void (TBody::*)();

  // A control word, and whether it counts only with a digit behind it.
  struct TWord {
    std::u16string_view Name;
    TReading Read;
    bool NeedsDigit = false;
  };
  template <std::size_t Count>
  using TWords = markup::TNameTable<TWord, Count>;

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
    if (FData.Ranges.size() == FData.Ranges.capacity()) MakeRoomForRanges();
    FData.Ranges.push_back(range);
  }

  // Most documents go on as they begin. Room is made for as many ranges as the rest promises, so that they are moved
  // twice or three times rather than with every doubling; at most eightfold, so that a document that promises too much
  // claims little.
  void MakeRoomForRanges() {
    constexpr std::size_t Few = 64, Most = 8;
    const std::size_t count = FData.Ranges.size();
    const double left = static_cast<double>(FReader.Rest().size()) / static_cast<double>(FSourceSize + 1);
    const double promised = static_cast<double>(count) / (1.0 - left) * 1.05;
    const auto most = static_cast<double>(count * Most);
    FData.Ranges.reserve(std::max(count * 2, static_cast<std::size_t>(std::min(promised, most))) + Few);
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
    constexpr rtl::TFourUnits<TUnit> Braces = {'{', '}', '{', '}'};
    for (std::size_t depth = 1; depth > 0;) {
      const TView rest = FReader.Rest();
      const std::size_t place = rtl::FindAnyUnit(rest, Braces);
      if (place == rest.size()) throw EParseError(SUnexpectedEndOfRTFData);
      rest[place] == '{' ? ++depth : --depth;
      FReader.Skip(static_cast<std::ptrdiff_t>(place + 1));
    }
  }

  // --- Text ---

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
    AppendPlain(rest, length);
    return length;
  }

  void AppendPlain(TView rest, std::size_t length) {
    if constexpr (sizeof(TUnit) > 1) {
      FData.FText.append(rest.substr(0, length));
    } else if (!AppendBlock(rest, length)) {
      rtl::AppendUtf16(FData.FText, rest.substr(0, length));
    }
  }

  // Most stretches are short. A block of fixed size is widened at once, and as much of it taken as the stretch has;
  // false where there is no such block of ASCII.
  bool AppendBlock(std::string_view rest, std::size_t length) {
    constexpr std::size_t Block = 16;
    if (length > Block || rest.size() < Block) return false;
    std::array<char16_t, Block> units;
    char16_t seen = 0;
    for (std::size_t i = 0; i < Block; ++i) {
      units[i] = static_cast<unsigned char>(rest[i]);
      seen = static_cast<char16_t>(seen | units[i]);
    }
    if (seen < 0x80) FData.FText.append(units.data(), length);
    return seen < 0x80;
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
    static constexpr TWords<17> Words(std::array<TWord, 17>{{
        {u"pard", &TBody::ReadParagraphHeader},
        {u"b0", &TBody::ClearBold},
        {u"b", &TBody::SetBold},
        {u"i0", &TBody::ClearItalic},
        {u"i", &TBody::SetItalic},
        {u"ulnone", &TBody::ClearUnderline},
        {u"ul", &TBody::SetUnderline},
        {u"cf", &TBody::ReadColorIndex},
        {u"fs", &TBody::ReadFontSize},
        {u"lang", &TBody::ReadLanguage},
        {u"qr", &TBody::AlignTrailing},
        {u"qc", &TBody::AlignCenter},
        {u"fi", &TBody::SkipFirstLineIndent},
        {u"f", &TBody::ReadFontIndex, true},
        {u"li", &TBody::ReadListIndent},
        {u"tab", &TBody::AppendTab},
        {u"par", &TBody::EndParagraph},
    }});
    // A stretch ends at this sign only where no two digits follow, so this raises.
    if (FReader.ReadToken(u'\'')) FReader.HexByte();
    const TWord* word = FindWord(Words, FReader.Rest());
    if (word == nullptr) return SkipWord();
    FReader.Skip(static_cast<std::ptrdiff_t>(word->Name.size()));
    (this->*word->Read)();
  }

  // The word that the text begins with, if it does not end right at the limit.
  template <std::size_t Count>
  static const TWord* FindWord(const TWords<Count>& words, TView text) {
    const TWord* word = words.Find(text.substr(0, text.size() - (text.empty() ? 0 : 1)));
    const bool counts =
        word != nullptr && (!word->NeedsDigit || IsDecimalDigit(static_cast<char16_t>(text[word->Name.size()])));
    return counts ? word : nullptr;
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
  void ReadFontIndex() { EndSetting(&TAttributes::FontIndex, FReader.Integer()); }
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
    static constexpr TWords<11> Words(std::array<TWord, 11>{{
        {u"ltrpar", &TBody::SetLeftToRight},
        {u"rtlpar", &TBody::SetRightToLeft},
        {u"sa", &TBody::SkipNumber},
        {u"sl", &TBody::SkipLineSpacing},
        {u"qr", &TBody::AlignTrailing},
        {u"qc", &TBody::AlignCenter},
        {u"cf", &TBody::ReadColorIndex},
        {u"fs", &TBody::ReadFontSize},
        {u"f", &TBody::ReadFontIndex, true},
        {u"rtlch", &TBody::SetRightToLeftCharacters},
        {u"lang", &TBody::ReadLanguage},
    }});
    const TView rest = FReader.Rest();
    if (rest.empty() || rest[0] != '\\') return false;
    const TWord* word = FindWord(Words, rest.substr(1));
    if (word == nullptr) return false;
    FReader.Skip(static_cast<std::ptrdiff_t>(1 + word->Name.size()));
    (this->*word->Read)();
    return true;
  }

  void SetLeftToRight() { EndSetting(&TAttributes::RTL, false); }
  void SetRightToLeft() { EndSetting(&TAttributes::RTL, true); }
  void SetRightToLeftCharacters() { EndSetting(&TAttributes::RTLCh, true); }

  // "\slmult" has a number of its own.
  void SkipLineSpacing() {
    if (!IsDecimalDigit(FReader.Token())) FReader.Read(u"mult");
    SkipNumber();
  }

  void SkipNumber() {
    FReader.SkipDigits();
    EndWord();
  }

  TMarkupTextReader<TUnit>& FReader;
  TRTFData& FData;
  const std::size_t FSourceSize;
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
