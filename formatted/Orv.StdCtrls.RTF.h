// The RTF that formatted texts take: what a simple word processor writes, with right-to-left marks, into a plain text
// and a list of ranges with their attributes. docs/markup.md gives the subset exactly.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "formatted/Orv.StdCtrls.Markup.h"
#include "rtl/Sets.h"

namespace orv {

class TRTFText {
 public:
  enum class TFontStyle : std::uint8_t { Bold, Italic, Underline };
  using TFontStyles = rtl::TSet<TFontStyle, std::uint8_t>;

  // Trailing is what \qr gives and Center what \qc gives, in a right-to-left paragraph too.
  enum class TTextAlign : std::uint8_t { Center, Leading, Trailing };

  // A stretch of FText: UTF-16 code units, 0-based.
  struct TTextRange {
    std::int32_t Pos = 0;
    std::int32_t Length = 0;
    friend bool operator==(const TTextRange&, const TTextRange&) = default;
  };

  // What a group saves and restores.
  struct TRTFAttributes {
    std::int32_t FontSize = 0;    // points: half of what \fs says
    std::int32_t FontIndex = 0;   // into FontTable, as read: it may lie outside
    std::int32_t ColorIndex = 0;  // into ColorTable, likewise
    std::uint32_t LangID = 0;
    std::uint32_t AnsiToUnicodeLocaleKey = 0;  // the code page that \'hh bytes are read with
    std::int32_t ListIndent = 0;
    TFontStyles FontStyle;
    TTextAlign Align = TTextAlign::Leading;
    bool RTL = false;    // the paragraph is right-to-left
    bool RTLCh = false;  // the characters are right-to-left

    // Sets the language, and the code page to that of the language.
    void SetLangID(std::uint32_t languageId);

    friend bool operator==(const TRTFAttributes&, const TRTFAttributes&) = default;
  };

  // One stretch of like attributes; never empty.
  struct TRTFTextRange : TRTFAttributes {
    TTextRange Range;
    bool NewParagraph = false;  // the stretch opens a paragraph
    friend bool operator==(const TRTFTextRange&, const TRTFTextRange&) = default;
  };

  struct TRTFData {
    std::uint32_t OriginalCodePage = 0;
    std::uint32_t LangID = 0;
    std::uint32_t Locale = 0;  // the locale of the document's default language: the same number
    std::int32_t DefaultFontIndex = 0;
    std::vector<UnicodeString> FontTable;
    std::vector<std::uint32_t> ColorTable;  // 0xAARRGGBB
    std::vector<TRTFTextRange> Ranges;      // in order, without gaps or overlaps; together they are FText
    UnicodeString FText;                    // a paragraph ends with LF CR, in that order

    // The stretches of all ranges, joined.
    UnicodeString Text() const&;
    // The same without a copy where the ranges cover FText from end to end, as those of a parsed document do.
    UnicodeString Text() &&;
  };

  // Reads one document from the reader's cursor on, forwards, and leaves the cursor behind its last "}". Raises
  // EParseError with "RTF Format is not supported." for a malformed table or group, with "Unexpected end of RTF
  // string." for an end inside a skipped group, and with the expected text for everything else that is not in the
  // subset. Cost: linear, however deep or broken the document is; no recursion. Any thread.
  static TRTFData ParseRTF(TMarkupText::TMarkupTextReaderUnicode& reader);
  static TRTFData ParseRTF(TMarkupText::TMarkupTextReaderUTF8& reader);
  // The same for a whole text, and for bytes of UTF-8 (plain ASCII as a rule).
  // Example: "{\rtf1 a\b b}" gives "ab" in two ranges, the second of them bold.
  static TRTFData ParseRTF(std::u16string_view text);
  static TRTFData ParseRTF(std::string_view bytes);

  // The text alone.
  static UnicodeString RTFToText(std::u16string_view text) { return std::move(ParseRTF(text)).Text(); }
  static UnicodeString RTFToText(std::string_view bytes) { return std::move(ParseRTF(bytes)).Text(); }
};

}  // namespace orv
