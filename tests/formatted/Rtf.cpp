// RTF to text and ranges: the header, the body, and what is refused.
#include "formatted/Orv.StdCtrls.RTF.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/formatted/support/Shown.h"

namespace orv {
namespace {

using testing::ShownRtf;
using testing::ShownRtfText;
using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr auto BadFormat = "error: RTF Format is not supported.";
constexpr auto EndInGroup = "error: Unexpected end of RTF string.";

std::string Expected(const std::string& wanted, const std::string& found) {
  return "error: '" + wanted + "' expected but '" + found + "' found";
}

// --- Blanks and line breaks ---

TEST(Rtf, OneBlankBehindAControlWordBelongsToIt) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\pard a\\b b\\b0 c}"), "'abc' [0+1 NewParagraph; 1+1 Bold; 2+1]");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1  a}"), " a");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1 a\\tab  b\\par  c}"), "a\t b\n\r c");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\xyz12  a\\pard\\rtlpar\\sa200  b}"), " a b");
}

TEST(Rtf, ABlankBehindASymbolOrAnEscapeIsText) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\'41 b\\\\ \\{ \\} \\~ x}"), "A b\\ { } ~ x");
}

TEST(Rtf, LineBreaksBetweenTheItemsOfTheHeaderAreSkipped) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1{\\fonttbl{\\f0\\fnil A;}}\r\n{\\colortbl;}x}"), "'x' [0+1 NewParagraph]");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\n\r\\fbidis\n\n\\uc1 \r\n\n a}"), " a");
  EXPECT_EQ(
      ShownRtfText(
          u"{\\rtf1{\\fonttbl\r\n{\\f0\\fnil A;}\n{\\f1\\fnil B;}\r}\n{\\colortbl \n;\\red1 \n\\green2\r;\n}\r\nx}"),
      "x");
}

TEST(Rtf, InTheBodyOnlyPairsOfLineBreaksAreSkipped) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1 a\nb}"), "'a\nb' [0+3 NewParagraph]");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1 a\r\nb\r\r\nc\n\rd\r}"), "ab\rc\n\rd\r");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\par\r\n\r\na}"), "\n\ra");
}

// --- The header ---

TEST(Rtf, TheHeaderGivesPageLanguageAndFont) {
  const auto data = TRTFText::ParseRTF(
      u"{\\rtf1\\fbidis\\ansi\\ansicpg1256\\deff1\\nouicompat\\deflang1065{\\fonttbl{\\f0\\fnil\\fcharset178 Tahoma;}"
      u"{\\f1\\froman\\fprq2 B Nazanin;}{\\f2\\fswiss\\fprq\\fcharset ;}}{\\colortbl "
      u";\\red149\\green189\\blue52;\\blue7;}"
      u"\\viewkind4\\uc1 x}"sv);
  EXPECT_EQ(data.OriginalCodePage, 1256U);
  EXPECT_EQ(data.LangID, 1065U);
  EXPECT_EQ(data.Locale, 1065U);
  EXPECT_EQ(data.DefaultFontIndex, 1);
  EXPECT_EQ(data.FontTable, (std::vector<UnicodeString>{u"Tahoma", u"B Nazanin", u""}));
  EXPECT_EQ(data.ColorTable, (std::vector<std::uint32_t>{0xFF000000, 0xFF95BD34, 0xFF000007}));
  EXPECT_EQ(testing::ShownRanges(data), "[0+1 NewParagraph FontIndex=1 LangID=1065]");
  EXPECT_EQ(data.Text(), u"x");
}

TEST(Rtf, ADocumentWithoutBodyTextIsEmpty) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1}"), "'' []");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\ansi\\ansicpg1256\\pard\\rtlpar\\b\\b0}"), "'' []");
  EXPECT_EQ(ShownRtf(u"{}"), "'' []");
}

TEST(Rtf, AHeaderItemOutOfOrderIsPassedOver) {
  EXPECT_EQ(ShownRtf(u"{\\ansi\\ansicpg1256\\'d3}"), "'\xD8\xB3' [0+1 NewParagraph]");
  // A font table that the header no longer looks for is text.
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil A;}}x}"), "'A;x' [0+3 NewParagraph]");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\deflang1065\\deflangfe1065{\\fonttbl{\\f0\\fnil A;}}x}"), "A;x");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\colortbl;}{\\fonttbl}x}"), "x");
}

TEST(Rtf, AHeaderNumberIsNeeded) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\ansi\\ansicpg x}"), Expected("an Integer", ""));
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\deff\\x}"), Expected("an Integer", ""));
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\deflangfe1033 x}"), Expected("an Integer", "fe1033"));
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\viewkind\\uc x}"), "x");
}

TEST(Rtf, AFontTableEntryWithTheWrongIndexIsRefused) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\fonttbl{\\f1\\fnil A;}}x}"), Expected("0", ""));
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\fonttbl{\\f0\\fnil A;}{\\f0\\fnil B;}}x}"), Expected("1", ""));
}

TEST(Rtf, TheFontIndexMayHaveSeveralDigits) {
  std::u16string text = u"{\\rtf1{\\fonttbl";
  for (int i = 0; i < 12; ++i) text += u"{\\f" + rtl::FromUtf8(std::to_string(i)) + u"\\fnil N;}";
  EXPECT_EQ(TRTFText::ParseRTF(std::u16string_view(text += u"}x}")).FontTable.size(), 12U);
}

TEST(Rtf, AFontTableEntryHasAFamilyABlankAndAName) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\fonttbl{\\f0\\fmodern A;}}x}"), Expected("\\fnil", ""));
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\fonttbl{\\f0 \\fnil A;}}x}"), Expected("\\fnil", ""));
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\fonttbl{\\f0\\fnilA;}}x}"), Expected(" ", "A"));
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\fonttbl{\\f0\\fnil\\fcharset0\\fprq2 A;}}x}"), Expected(" ", ""));
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\fonttbl{\\f0\\fnil A;{\\*\\falt B}}}x}"), Expected("}", ""));
  EXPECT_EQ(TRTFText::ParseRTF(u"{\\rtf1{\\fonttbl{\\f0\\fnil  A \\\\;}}x}"sv).FontTable[0], u" A \\\\");
}

TEST(Rtf, ABrokenFontTableIsRefused) {
  for (const auto* text :
       {u"{\\rtf1{\\fonttbl", u"{\\rtf1{\\fonttblx}}", u"{\\rtf1{\\fonttbl{", u"{\\rtf1{\\fonttbl x}}",
        u"{\\rtf1{\\fonttbl{\\f0\\fnil A;} {\\f1\\fnil B;}}}", u"{\\rtf1{\\fonttbl{\\f0\\fnil A;}x}}"})
    EXPECT_EQ(ShownRtfText(text), BadFormat);
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\fonttbl{\\f0\\fnil A}}}"), Expected(";", "unexpected end"));
}

TEST(Rtf, AFontNameWithBracesIsCountedOtherwiseThanItIsRead) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\fonttbl{\\f0\\fnil A}{\\f1\\fnil B;}}}"), Expected("{", ""));
}

TEST(Rtf, ABrokenColourTableIsRefused) {
  for (const auto* text : {u"{\\rtf1{\\colortbl", u"{\\rtf1{\\colortbl;", u"{\\rtf1{\\colortbl\\red256;}}",
                           u"{\\rtf1{\\colortbl\\red2147483647;}}", u"{\\rtf1{\\colortbl\\blue1\\red1;}x}",
                           u"{\\rtf1{\\colortbl\\red1}x}", u"{\\rtf1{\\colortbl  ;}x}", u"{\\rtf1{\\colortbl;x}}"})
    EXPECT_EQ(ShownRtfText(text), BadFormat);
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\colortbl\\red;}x}"), Expected("an Integer", ""));
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\colortbl\\red99999999999;}}"), Expected("an Integer", ""));
}

// --- Ranges ---

TEST(Rtf, TheFirstRangeOpensAParagraph) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1 a}"), "'a' [0+1 NewParagraph]");
}

TEST(Rtf, AnAttributeThatKeepsItsValueEndsNoRange) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1 a\\b0 b}"), "'ab' [0+2 NewParagraph]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\fs24 a\\fs25 b}"), "'ab' [0+2 NewParagraph FontSize=12]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1 a{b}c}"), "'abc' [0+3 NewParagraph]");
}

TEST(Rtf, AChangeEndsTheRangeWhetherOrNotTextFollows) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1 a\\b\\b0 b}"), "'ab' [0+1 NewParagraph; 1+1]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1 a{\\b}b}"), "'ab' [0+1 NewParagraph; 1+1]");
}

TEST(Rtf, BoldOnAndOffGivesARangeWithoutBold) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\b a\\b0 b}"), "'ab' [0+1 Bold NewParagraph; 1+1]");
}

TEST(Rtf, StylesComeTogether) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\b\\i\\ul a\\b0\\i0\\ulnone b}"), "'ab' [0+1 Bold Italic Underline NewParagraph; 1+1]");
}

TEST(Rtf, TheFontSizeIsHalvedDownwards) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\fs24 a}"), "'a' [0+1 NewParagraph FontSize=12]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\fs25 a}"), "'a' [0+1 NewParagraph FontSize=12]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\pard\\fs25 a}"), "'a' [0+1 NewParagraph FontSize=12]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\fs2147483647 a}"), "'a' [0+1 NewParagraph FontSize=1073741823]");
}

TEST(Rtf, FontColourAndIndentAreKeptAsRead) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\f7\\cf9\\li360 a}"), "'a' [0+1 NewParagraph FontIndex=7 ColorIndex=9 ListIndent=360]");
}

TEST(Rtf, AGroupRestoresTheAttributesAtItsEnd) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\pard{\\b a}b}"), "'ab' [0+1 Bold NewParagraph; 1+1]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1{\\pard\\rtlpar\\qr\\rtlch\\lang1065\\cf1\\f2\\fs8\\i\\li5 a}b}"),
            "'ab' [0+1 Italic RTL NewParagraph Trailing RTLCh FontSize=4 FontIndex=2 ColorIndex=1 LangID=1065 "
            "ListIndent=5; 1+1]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1{\\b{\\i a}b}c}"), "'abc' [0+1 Bold Italic NewParagraph; 1+1 Bold; 2+1]");
}

TEST(Rtf, AGroupRestoresTheCodePageToo) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\ansi\\ansicpg1256{\\lang1037\\'e0}\\'d3}"), "\xD7\x90\xD8\xB3");
}

// --- Paragraphs ---

TEST(Rtf, AParagraphEndsWithLineFeedAndReturnOfItsOwn) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1 a\\par b}"), "'a\n\rb' [0+3 NewParagraph; 3+1 NewParagraph]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\par}"), "'\n\r' [0+2 NewParagraph]");
}

TEST(Rtf, ATabIsOneUnit) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1 a\\tab b}"), "'a\tb' [0+3 NewParagraph]");
}

TEST(Rtf, AParagraphHeaderEndsTheRangeAndOpensAParagraph) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\pard a\\par\\pard\\qc b}"), "'a\n\rb' [0+3 NewParagraph; 3+1 NewParagraph Center]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1 a\\pard b\\pard\\pard c}"),
            "'abc' [0+1 NewParagraph; 1+1 NewParagraph; 2+1 NewParagraph]");
}

TEST(Rtf, AParagraphHeaderResetsNothing) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\pard\\qr a\\par\\pard b}"),
            "'a\n\rb' [0+3 NewParagraph Trailing; 3+1 NewParagraph Trailing]");
}

TEST(Rtf, TheWordsOfAParagraphHeaderComeInAnyOrderAndNumber) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\pard\\qr\\rtlpar a}"), "'a' [0+1 RTL NewParagraph Trailing]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\pard\\sa200\\sl276\\slmult1\\lang1065\\rtlch\\f3\\fs22\\qc\\qr\\cf2 a}"),
            "'a' [0+1 NewParagraph Trailing RTLCh FontSize=11 FontIndex=3 ColorIndex=2 LangID=1065]");
}

TEST(Rtf, RtlparSetsTheDirectionAndLtrparClearsIt) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\pard\\rtlpar a\\par\\pard b\\par\\pard\\ltrpar c}"),
            "'a\n\rb\n\rc' [0+3 RTL NewParagraph; 3+3 RTL NewParagraph; 6+1 NewParagraph]");
}

TEST(Rtf, DirectionWordsCountInAParagraphHeaderAlone) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\rtlpar\\rtlch a}"), "'a' [0+1 NewParagraph]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\pard\\b\\rtlpar a}"), "'a' [0+1 Bold NewParagraph]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\pard\\rtlch a\\pard\\ltrch b}"),
            "'ab' [0+1 NewParagraph RTLCh; 1+1 NewParagraph RTLCh]");
}

TEST(Rtf, AlignmentWorksAnywhereInTheBody) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\b\\qr a}"), "'a' [0+1 Bold NewParagraph Trailing]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1 a\\qc b}"), "'ab' [0+1 NewParagraph; 1+1 Center]");
}

TEST(Rtf, ANegativeLineSpacingLeavesItsNumberAsText) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\pard\\sl-240\\slmult0 a}"), "-240a");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\pard\\sa-5 a}"), "-5 a");
}

TEST(Rtf, AFirstLineIndentIsReadAndForgotten) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\fi-360\\fi0 a}"), "'a' [0+1 NewParagraph]");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\fi xx}"), Expected("an Integer", ""));
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\fi--1 x}"), Expected("an Integer", ""));
}

TEST(Rtf, AnIndentTakesNoSign) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\li-360 x}"), Expected("an Integer", ""));
}

// --- Control words ---

TEST(Rtf, AWordIsDecidedByTheFirstThatBeginsIt) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\info}"), "'nfo' [0+3 Italic NewParagraph]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\bullet}"), "'ullet' [0+5 Bold NewParagraph]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\ulw}"), "'w' [0+1 Underline NewParagraph]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\b\\b01}"), "'1' [0+1 NewParagraph]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\pardirnatural}"), "'irnatural' [0+9 NewParagraph]");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\line}"), Expected("an Integer", "ne"));
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\langfe1033}"), Expected("an Integer", "fe1033"));
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\cfx}"), Expected("an Integer", "x"));
}

TEST(Rtf, AFontIndexNeedsADigit) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\f1 a\\field b}"), Expected("an Integer", "eld"));
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\footer a\\f b}"), "'ab' [0+2 NewParagraph]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\pard\\f b\\f4 c}"), "'bc' [0+1 NewParagraph; 1+1 FontIndex=4]");
}

TEST(Rtf, AnyOtherWordIsSkippedWithItsNumber) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\xyz12abc}"), "abc");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\xyz-12 x}"), "x");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\xyz- x}"), "x");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\xyz99999999999999999999 x}"), "x");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\x_y1}"), "_y1");
}

TEST(Rtf, ASymbolLosesItsBackslashAlone) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\~}"), "~");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\_\\: a\\-b\\-12c}"), "_: abc");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\\r\na\\\u0633}"), "a\xD8\xB3");
}

TEST(Rtf, WordsMindCase) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\B a\\PAR b}"), "'ab' [0+2 NewParagraph]");
}

TEST(Rtf, BackslashAndBracesAreEscaped) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1 \\\\\\{x\\}}"), "\\{x}");
}

TEST(Rtf, ANumberTooLargeIsRefused) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\fs2147483648 x}"), Expected("an Integer", ""));
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\fs?8 x}"), Expected("an Integer", ""));
}

// --- Characters ---

TEST(Rtf, ABytesCodePageIsThatOfTheDocumentUntilALanguageComes) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\ansi\\ansicpg1256\\deflang1033\\'d3}"), "'\xD8\xB3' [0+1 NewParagraph LangID=1033]");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\deflang1065\\'d3}"), "\xD8\xB3");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\ansi\\ansicpg0\\deflang1065\\'d3}"), "\xD8\xB3");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\ansi\\ansicpg1256\\lang1033\\'d3}"), "\xC3\x93");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\ansi\\ansicpg1256\\pard\\lang1033\\'d3}"), "\xC3\x93");
}

TEST(Rtf, ALanguageBringsItsCodePage) {
  struct TLanguage {
    int Id;
    std::string Letter;  // what the byte E8 is
  };
  const TLanguage languages[] = {
      {0x0809, "è"}, {0x0407, "è"}, {0x040C, "è"}, {0x0410, "è"}, {0x0C0A, "è"}, {0x0405, "č"}, {0x040E, "č"},
      {0x0415, "č"}, {0x0419, "и"}, {0x0408, "θ"}, {0x041F, "è"}, {0x040D, "ט"}, {0x0429, "è"}, {0x0401, "è"},
  };
  for (const auto& [id, letter] : languages) {
    // A page that is none of theirs stands behind, so that an unknown language would give its letter.
    const std::string document = "{\\rtf1\\ansi\\ansicpg874\\lang" + std::to_string(id) + "\\'e8}";
    EXPECT_EQ(rtl::ToUtf8(TRTFText::RTFToText(std::string_view(document))), letter) << id;
  }
}

TEST(Rtf, AnUnknownCodePageFallsBackToTheDocumentsThenToLatin) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\ansi\\ansicpg1256\\lang9999\\'d3}"), "'\xD8\xB3' [0+1 NewParagraph LangID=9999]");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\ansi\\ansicpg932\\'81\\'41}"),
            "\xC2\x81"
            "A");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\'80}"), "\xE2\x82\xAC");
}

TEST(Rtf, AByteThatItsPageDoesNotDefineIsTheUnitOfItsValue) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\ansi\\ansicpg1255\\'d9}"), "'\xC3\x99' [0+1 NewParagraph]");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\ansi\\ansicpg1252\\'9d}"), "\xC2\x9D");
}

TEST(Rtf, ByteDigitsAreOfEitherCase) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\ansi\\ansicpg1256\\'D3\\'dA}"), "\xD8\xB3\xD8\xB9");
}

TEST(Rtf, AByteNeedsTwoDigits) {
  for (const auto* text : {u"{\\rtf1\\'", u"{\\rtf1\\'e", u"{\\rtf1\\'e}", u"{\\rtf1\\'zz}", u"{\\rtf1\\' 41}"})
    EXPECT_EQ(ShownRtfText(text).substr(0, 22), "error: 'Character code") << ShownRtfText(text);
}

TEST(Rtf, ACodeUnitIsWrittenInHexadecimal) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1\\u0641 ?}"), "'\xD9\x81 ?' [0+3 NewParagraph]");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\u0641?\\u06CC?x}"), "\xD9\x81\xDB\x8Cx");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\u0641??}"), "\xD9\x81?");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\u06411?}"),
            "\xD9\x81"
            "1?");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\b\\uc1ab}"), "\xEC\x86\xAB");
}

TEST(Rtf, AUWithoutFourDigitsIsAnOtherWord) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\b\\u06}"), "");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\b\\u-1?}"), "?");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1\\b\\uc1\\u64 x}"), "x");
}

TEST(Rtf, AnyCodeUnitMayBeWritten) {
  EXPECT_EQ(TRTFText::RTFToText(u"{\\rtf1\\u0000?\\ud83d?\\ude00?\\udfff?}"sv), u"\0\U0001F600\xDFFF"sv);
  EXPECT_EQ(TRTFText::RTFToText(u"{\\rtf1\\u0000?}"sv), u"\0"sv);
}

TEST(Rtf, AZeroInTheSourceIsText) {
  EXPECT_EQ(TRTFText::RTFToText(u"{\\rtf1 a\0b}"sv), u"a\0b"sv);
}

// --- Groups ---

TEST(Rtf, AStarredGroupOfAnyDepthGivesNothing) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1 a{\\*\\x b{c{d}}e}f}"), "af");
  EXPECT_EQ(ShownRtf(u"{\\rtf1 a{\\*\\b b}c}"), "'ac' [0+2 NewParagraph]");
}

TEST(Rtf, EveryBraceCountsInAStarredGroup) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1{\\*\\x a\\}b}c}"), "'b' [0+1 NewParagraph]");
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\*\\x \\{}}b}"), "b");
}

TEST(Rtf, AStarElsewhereIsText) {
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{ \\*\\x a}b}"), " *ab");
  EXPECT_EQ(ShownRtfText(u"{\\*\\x a}"), "*a");
}

TEST(Rtf, AnEndInsideAStarredGroupSaysSo) {
  for (const auto* text : {u"{\\rtf1{\\*{", u"{\\rtf1{\\*\\x", u"{\\rtf1{\\*\\x{}", u"{\\rtf1{\\* "})
    EXPECT_EQ(ShownRtfText(text), EndInGroup);
  // The star is not read where it ends the text.
  EXPECT_EQ(ShownRtfText(u"{\\rtf1{\\*"), BadFormat);
}

TEST(Rtf, TheFirstClosingBraceOfTheDocumentEndsIt) {
  EXPECT_EQ(ShownRtf(u"{\\rtf1 a}b"), "'a' [0+1 NewParagraph]");
  EXPECT_EQ(ShownRtf(u"{\\rtf1}}"), "'' []");
}

TEST(Rtf, TheReaderIsLeftBehindTheDocument) {
  TMarkupText::TMarkupTextReaderUnicode reader(u"x{\\rtf1 a}{\\rtf1 b}"sv);
  reader.SetPos(1);
  EXPECT_EQ(TRTFText::ParseRTF(reader).FText, u"a");
  EXPECT_EQ(TRTFText::ParseRTF(reader).FText, u"b");
  EXPECT_TRUE(reader.Eof());
}

TEST(Rtf, ANarrowedLimitEndsTheDocument) {
  TMarkupText::TMarkupTextReaderUnicode reader(u"{\\rtf1 a}"sv);
  reader.SetEnd(8);
  EXPECT_THROW(TRTFText::ParseRTF(reader), EParseError);
}

TEST(Rtf, AnEndBeforeTheClosingBraceIsRefused) {
  for (const auto* text :
       {u"{\\rtf1\\", u"{\\rtf1 a", u"{\\rtf1", u"{", u"{\\rtf1{a}", u"{\\rtf1\\b", u"{\\rtf1\\par\r\n"})
    EXPECT_EQ(ShownRtfText(text), BadFormat);
}

TEST(Rtf, ATextThatBeginsWithNoBraceIsRefused) {
  EXPECT_EQ(ShownRtfText(u""), Expected("{", "unexpected end"));
  EXPECT_EQ(ShownRtfText(u" {\\rtf1 a}"), Expected("{", ""));
}

// --- Bytes and texts ---

TEST(Rtf, ALiteralIsTakenAsItStands) {
  EXPECT_EQ(TRTFText::ParseRTF(u"{\\rtf1 a}").FText, u"a");
  EXPECT_EQ(TRTFText::ParseRTF("{\\rtf1 a}").FText, u"a");
  EXPECT_EQ(TRTFText::RTFToText(u"{\\rtf1 a}"), u"a");
  EXPECT_EQ(TRTFText::RTFToText("{\\rtf1 a}"), u"a");
}

TEST(Rtf, BytesAreReadAsUtf8) {
  const auto data = TRTFText::ParseRTF("{\\rtf1\\ansi\\ansicpg1256 \xD8\xB3\\'d3\xF0\x9F\x98\x80\xFF}"sv);
  EXPECT_EQ(data.FText, u"\u0633\u0633\U0001F600\uFFFD");
  EXPECT_EQ(data.Ranges.size(), 1U);
  EXPECT_EQ(TRTFText::RTFToText("{\\rtf1\\b x\\b0 y}"sv), u"xy");
  EXPECT_EQ(TRTFText::ParseRTF("{\\rtf1{\\fonttbl{\\f0\\fnil \xD8\xB3;}}x}"sv).FontTable[0], u"\u0633");
}

// Stretches of every length around the size of a vector, plain or with one other letter at every place.
TEST(Rtf, AStretchOfAnyLengthIsReadAlikeFromBytesAndUnits) {
  constexpr std::size_t Longest = 40;
  for (std::size_t length = 1; length <= Longest; ++length)
    for (std::size_t place = 0; place <= length; ++place) {
      std::u16string text;
      for (std::size_t i = 0; i < length; ++i) text += i == place ? u'\u0633' : static_cast<char16_t>(u'a' + i % 26);
      for (const auto* end : {u"}", u"\\b }", u"\\par x\u0644 and a longer end of the document}"}) {
        const std::u16string document = u"{\\rtf1 " + text + end;
        const std::string bytes = rtl::ToUtf8(document);
        ASSERT_EQ(TRTFText::RTFToText(std::u16string_view(document)).substr(0, length), text);
        ASSERT_EQ(TRTFText::RTFToText(std::string_view(bytes)), TRTFText::RTFToText(std::u16string_view(document)));
      }
    }
}

TEST(Rtf, TheTextOfADocumentIsThatOfItsRanges) {
  TRTFText::TRTFData data = TRTFText::ParseRTF(u"{\\rtf1 ab\\b cd\\b0 ef}"sv);
  EXPECT_EQ(data.Text(), u"abcdef");
  data.Ranges.erase(data.Ranges.begin() + 1);
  EXPECT_EQ(data.Text(), u"abef");
  EXPECT_EQ(std::move(data).Text(), u"abef");
  data = TRTFText::ParseRTF(u"{\\rtf1 ab\\b cd}"sv);
  std::swap(data.Ranges[0], data.Ranges[1]);
  EXPECT_EQ(data.Text(), u"cdab");
  EXPECT_EQ(std::move(data).Text(), u"cdab");
  data = TRTFText::ParseRTF(u"{\\rtf1 ab\\b cd}"sv);
  data.Ranges.pop_back();
  EXPECT_EQ(std::move(data).Text(), u"ab");
}

}  // namespace
}  // namespace orv
