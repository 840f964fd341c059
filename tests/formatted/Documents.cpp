// Documents as programs write them: what of them is read, and what is refused and why.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "rtl/Utf8.h"
#include "tests/formatted/support/Shown.h"

namespace orv {
namespace {

std::string Bytes(const std::string& name) {
  std::ifstream file(std::string(ORV_SOURCE_DIR) + "/tests/data/rtf/" + name, std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

TRTFText::TRTFData Parsed(const std::string& name) {
  const std::string bytes = Bytes(name);
  return TRTFText::ParseRTF(std::string_view(bytes));
}

std::string ErrorOf(const std::string& name) {
  try {
    Parsed(name);
  } catch (const EParseError& error) {
    return error.what();
  }
  return "none";
}

TEST(RtfDocuments, ASimplePersianDocumentIsReadWhole) {
  const TRTFText::TRTFData data = Parsed("simple-fa.rtf");
  EXPECT_EQ(data.FText, u"تقویم ایران\n\rسال ۱۴۰۳ با نوروز آغاز شد؛ می\u200Cرود.\n\rمتن رنگی و English {x}\n\r");
  EXPECT_EQ(testing::ShownRanges(data),
            "[0+11 Bold RTL NewParagraph Center RTLCh FontSize=16 LangID=1065; "
            "11+2 RTL Center RTLCh FontSize=11 LangID=1065; "
            "13+12 RTL NewParagraph Trailing RTLCh FontSize=11 LangID=1065; "
            "25+5 Italic RTL Trailing RTLCh FontSize=11 LangID=1065; "
            "30+19 RTL Trailing RTLCh FontSize=11 LangID=1065; "
            "49+4 RTL NewParagraph Trailing RTLCh FontSize=11 LangID=1065; "
            "53+4 Underline RTL Trailing RTLCh FontSize=11 ColorIndex=1 LangID=1065; "
            "57+16 RTL Trailing RTLCh FontSize=11 LangID=1065]");
  EXPECT_EQ(data.FontTable, (std::vector<UnicodeString>{u"Tahoma", u"Times New Roman"}));
  EXPECT_EQ(data.ColorTable, (std::vector<std::uint32_t>{0xFF000000, 0xFFC00000}));
}

TEST(RtfDocuments, SimpleArabicAndHebrewDocumentsAreReadWhole) {
  EXPECT_EQ(Parsed("simple-ar.rtf").FText, u"السلام عليكم ١٢٣.\n\r");
  EXPECT_EQ(Parsed("simple-he.rtf").FText, u"שלום עולם 42!\n\r");
}

// They give no code page behind "\ansi", so that it is no item of the header, which then does not look for the font
// table; in the body "\fswiss" begins with "\fs", which wants a number.
TEST(RtfDocuments, AHeaderWithoutACodePageMakesADocumentRefused) {
  for (const auto* name : {"libreoffice-fa.rtf", "libreoffice-ar.rtf", "libreoffice-he.rtf", "pandoc-ar.rtf"})
    EXPECT_EQ(ErrorOf(name), "'an Integer' expected but 'wiss' found") << name;
}

// "\uc1" before the font table: all tables are text, "\info" is italic, and "\u1513" is U+1513 and no Hebrew letter.
TEST(RtfDocuments, ADocumentWithTheTablesInTheBodyIsReadAsTextOfThem) {
  const UnicodeString text = Parsed("abiword-he.rtf").FText;
  EXPECT_NE(text.find(u"Nimbus Roman;"), UnicodeString::npos);
  EXPECT_NE(text.find(u"\nnfo\n"), UnicodeString::npos);
  EXPECT_NE(text.find(u"tap0\u1513 \u1500 \u1493 \u1501  \u1506 \u1493 \u1500 \u1501 !\n\r"), UnicodeString::npos);
}

// With what stands in the way taken out, the word processor's body is read: its structure is in the subset, and only
// the decimal numbers of its characters are not.
TEST(RtfDocuments, AWordProcessorsBodyIsReadOnceItsHeaderIsInOrder) {
  std::string bytes = Bytes("libreoffice-he.rtf");
  const auto takeOut = [&bytes](const std::string& from, const std::string& till) {
    const std::size_t begin = bytes.find(from);
    ASSERT_NE(begin, std::string::npos);
    bytes.erase(begin, bytes.find(till, begin) - begin);
  };
  takeOut("\\ansi\\deff3\\adeflang1025", "\n{\\fonttbl");
  takeOut("{\\stylesheet", "{\\*\\generator");
  const TRTFText::TRTFData data = TRTFText::ParseRTF(std::string_view(bytes));
  EXPECT_GE(data.FontTable.size(), 5U);
  EXPECT_EQ(data.FontTable[0], u"Times New Roman");
  EXPECT_EQ(data.ColorTable.size(), 17U);
  EXPECT_NE(data.FText.find(u"\u1513?\u1500?\u1493?\u1501? "), UnicodeString::npos) << rtl::ToUtf8(data.FText);
}

// --- The examples of docs/markup.md ---

struct TExample {
  std::string Text;
  std::string Outcome;
};

// The lines "text : outcome" inside the blocks of that kind.
std::vector<TExample> ExamplesOf(const std::string& kind) {
  std::ifstream page(std::string(ORV_SOURCE_DIR) + "/docs/markup.md");
  std::vector<TExample> examples;
  std::string open;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("```")) {
      open = line.substr(3);
    } else if (open == kind) {
      const std::size_t place = line.find(" : ");
      EXPECT_NE(place, std::string::npos) << line;
      examples.push_back({line.substr(0, place), line.substr(place + 3)});
    }
  }
  EXPECT_GE(examples.size(), 10U);
  return examples;
}

// As the page writes it: line ends as escapes, no mark before a message.
std::string OnThePage(const std::string& shown) {
  constexpr std::string_view Mark = "error: ";
  std::string text;
  for (const char c : shown.starts_with(Mark) ? shown.substr(Mark.size()) : shown)
    text += c == '\n' ? "\\n" : c == '\r' ? "\\r" : std::string(1, c);
  return text;
}

TEST(MarkupPage, ItsHtmlExamplesHold) {
  for (const auto& [text, outcome] : ExamplesOf("html"))
    EXPECT_EQ(OnThePage(testing::ShownHtml(rtl::FromUtf8(text))), outcome) << text;
}

TEST(MarkupPage, ItsRtfExamplesHold) {
  for (const auto& [text, outcome] : ExamplesOf("rtf"))
    EXPECT_EQ(OnThePage(testing::ShownRtf(rtl::FromUtf8(text))), outcome) << text;
}

}  // namespace
}  // namespace orv
