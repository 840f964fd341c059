// The readers beside the rules written plainly: every vector, every short text over the signs that mean something, and
// random documents, whole and broken.
#include <gtest/gtest.h>

#include <random>

#include "rtl/Utf8.h"
#include "tests/formatted/support/PlainHtml.h"
#include "tests/formatted/support/PlainRtf.h"
#include "tests/support/VectorFiles.h"
#include "tools/orv/eval/Arguments.h"

namespace orv {
namespace {

using TPieces = std::vector<std::u16string_view>;

void ExpectSameTree(std::u16string_view text) {
  const auto plain = plain::ParsePlainHtml(text);
  std::optional<plain::TPlainTag> tree;
  std::u16string treeText;
  try {
    const auto parsed = THTMLText::ParseHTML(text);
    tree = plain::PlainOf(parsed.Root());
    treeText = parsed.Root().Text();
  } catch (const EParseError&) {
  }
  ASSERT_EQ(plain.has_value(), tree.has_value()) << rtl::ToUtf8(text);
  if (!plain) return;
  ASSERT_TRUE(*plain == *tree) << rtl::ToUtf8(text);
  ASSERT_EQ(plain::TextOf(*plain), treeText) << rtl::ToUtf8(text);
}

// The laws of ranges: none is empty, and they follow each other from the start of the text to its end.
void ExpectRangesPartitionTheText(const TRTFText::TRTFData& data) {
  std::int32_t place = 0;
  for (const TRTFText::TRTFTextRange& range : data.Ranges) {
    ASSERT_EQ(range.Range.Pos, place);
    ASSERT_GT(range.Range.Length, 0);
    place += range.Range.Length;
  }
  ASSERT_EQ(place, static_cast<std::int32_t>(data.FText.size()));
}

template <typename TView>
std::optional<TRTFText::TRTFData> Parsed(TView text) {
  try {
    return TRTFText::ParseRTF(text);
  } catch (const EParseError&) {
    return std::nullopt;
  }
}

void ExpectSameDocument(std::u16string_view text) {
  const auto plain = plain::ParsePlainRtf(text);
  const auto data = Parsed(text);
  ASSERT_EQ(plain.has_value(), data.has_value()) << rtl::ToUtf8(text);
  // The bytes of a text that has a UTF-8 form are the same document.
  const std::string bytes = rtl::ToUtf8(text);
  const auto fromBytes = Parsed(std::string_view(bytes));
  const bool hasBytes = rtl::FromUtf8(bytes) == text;
  ASSERT_TRUE(!hasBytes || plain.has_value() == fromBytes.has_value()) << bytes;
  if (!plain) return;
  ASSERT_TRUE(plain::Same(*plain, *data)) << bytes;
  ASSERT_TRUE(!hasBytes || plain::Same(*plain, *fromBytes)) << bytes;
  ExpectRangesPartitionTheText(*data);
  ASSERT_EQ(data->Text(), data->FText);
}

// Every text of exactly that many pieces, between a front and a back.
template <typename TCheck>
void ForEveryText(const TPieces& pieces, std::size_t count, std::u16string_view front, std::u16string_view back,
                  TCheck check) {
  std::vector<std::size_t> digits(count, 0);
  for (;;) {
    std::u16string text(front);
    for (const std::size_t digit : digits) text += pieces[digit];
    text += back;
    check(text);
    if (::testing::Test::HasFatalFailure()) return;
    std::size_t place = 0;
    while (place < count && ++digits[place] == pieces.size()) digits[place++] = 0;
    if (place == count) return;
  }
}

std::u16string RandomText(std::mt19937& random, const TPieces& pieces, std::size_t most) {
  std::u16string text;
  for (auto left = random() % most; left > 0; --left) text += pieces[random() % pieces.size()];
  return text;
}

// A random unit changed, dropped or doubled, now and then.
void Break(std::mt19937& random, std::u16string& text, std::u16string_view signs) {
  for (auto left = random() % 3; left > 0 && !text.empty(); --left) {
    const std::size_t place = random() % text.size();
    const char16_t sign = signs[random() % signs.size()];
    switch (random() % 3) {
      case 0:
        text[place] = sign;
        break;
      case 1:
        text.erase(place, 1 + random() % 4);
        break;
      default:
        text.insert(place, 1, sign);
        break;
    }
  }
}

const TPieces HtmlPieces = {u"<P>",      u"</P>", u"<B x=\"1\">", u"</>",  u"<BR/>",  u"<A HREF= \"a=b\" y=\"\">",
                            u"</A >",    u"text", u" ",           u"<",    u">",      u"/",
                            u"=",        u"\"",   u"<p",          u"\r\n", u"\u0633", u"<H3",
                            u"<STRONG ", u"</",   u"_x1=\"v\""};

const TPieces RtfPieces = {u"\\b ",
                           u"\\b0 ",
                           u"\\i",
                           u"\\i0",
                           u"\\ul ",
                           u"\\ulnone ",
                           u"\\cf1 ",
                           u"\\fs24 ",
                           u"\\lang1065 ",
                           u"\\lang1037",
                           u"\\qr",
                           u"\\qc ",
                           u"\\fi-5 ",
                           u"\\f1 ",
                           u"\\li7 ",
                           u"\\tab ",
                           u"\\par\r\n",
                           u"\\pard",
                           u"\\rtlpar ",
                           u"\\ltrpar",
                           u"\\rtlch ",
                           u"\\sa20",
                           u"\\sl27\\slmult1",
                           u"{",
                           u"}",
                           u"{\\*\\x ",
                           u"\\'d3",
                           u"\\'e1",
                           u"\\u0641?",
                           u"\\u06cc",
                           u"\\\\",
                           u"\\{",
                           u"\\}",
                           u"\\~",
                           u"\\xyz-12 ",
                           u"text",
                           u" ",
                           u"\r\n",
                           u"\n",
                           u"\u0633\u0644",
                           u"\\",
                           u"\\f",
                           u"?",
                           u"-1"};

const TPieces RtfHeaders = {
    u"{\\rtf1", u"{\\rtf1\\ansi\\ansicpg1256\\deff1\\deflang1065{\\fonttbl{\\f0\\fnil A;}{\\f1\\froman B;}}\r\n",
    u"{\\rtf1\\fbidis\\ansi\\ansicpg1255\\deff0\\nouicompat\\deflang1033{\\colortbl "
    u";\\red1\\green2\\blue3;}\\viewkind4\\uc1 ",
    u"{\\rtf1\\deflang1037{\\fonttbl{\\f0\\fswiss\\fprq2\\fcharset177 D;}}{\\colortbl\\blue9;}\\pard"};

TEST(MarkupOracle, PassesEveryVector) {
  std::size_t tried = 0;
  for (const testing::TVector& vector : testing::ReadVectors("markup/markup")) {
    const eval::TJson request = eval::TJson::parse(vector.Request);
    const eval::TJson expected = eval::TJson::parse(vector.Expected);
    if (vector.Op == "reader") continue;
    ++tried;
    const UnicodeString text = eval::TArguments(request).Text();
    const bool ok = expected["ok"].get<bool>();
    if (vector.Op.starts_with("html")) {
      const auto tree = plain::ParsePlainHtml(text);
      ASSERT_EQ(tree.has_value(), ok) << vector.Request;
      if (ok && vector.Op == "htmlToText") {
        EXPECT_EQ(eval::TextValue(plain::TextOf(*tree)), expected["result"]);
      }
      ExpectSameTree(text);
    } else {
      const auto data = plain::ParsePlainRtf(text);
      ASSERT_EQ(data.has_value(), ok) << vector.Request;
      if (ok) {
        const eval::TJson& result = expected["result"];
        EXPECT_EQ(eval::TextValue(data->FText), vector.Op == "rtf" ? result["FText"] : result);
      }
      ExpectSameDocument(text);
    }
  }
  EXPECT_GT(tried, 400U);
}

TEST(HtmlBesideThePlainRules, EveryShortTextOverTheSigns) {
  const TPieces signs = {u"<", u">", u"/", u"=", u"\"", u" ", u"B", u"x"};
  for (std::size_t count = 0; count <= 5; ++count) ForEveryText(signs, count, u"", u"", ExpectSameTree);
}

TEST(HtmlBesideThePlainRules, EveryShortTagOverTheSigns) {
  const TPieces signs = {u"=", u"\"", u" ", u"x", u"/", u"\n", u"1", u"x=\"\""};
  for (std::size_t count = 0; count <= 4; ++count) ForEveryText(signs, count, u"<B", u">y</B>", ExpectSameTree);
}

TEST(HtmlBesideThePlainRules, EveryShortRowOfTags) {
  const TPieces signs = {u"<B>", u"</B>", u"<P/>", u"t", u"<"};
  for (std::size_t count = 0; count <= 6; ++count) ForEveryText(signs, count, u"", u"", ExpectSameTree);
}

TEST(HtmlBesideThePlainRules, RandomTexts) {
  std::mt19937 random(101);
  int accepted = 0;
  for (int round = 0; round < 20000 && !HasFatalFailure(); ++round) {
    std::u16string text = RandomText(random, HtmlPieces, 16);
    // Half of them closed at the end, so that many are whole.
    if (round % 2 == 0)
      for (auto left = random() % 4; left > 0; --left) text += u"</>";
    Break(random, text, u"<>/=\" Bx\t\n");
    ExpectSameTree(text);
    accepted += plain::ParsePlainHtml(text) ? 1 : 0;
  }
  EXPECT_GT(accepted, 4000);
}

TEST(RtfBesideThePlainRules, EveryShortBodyOverTheSigns) {
  const TPieces signs = {u"\\", u"{", u"}", u"b", u"0", u" ", u"'", u"u", u"f", u"\r", u"\n", u"-", u"*", u"?", u"x"};
  for (std::size_t count = 0; count <= 4; ++count) ForEveryText(signs, count, u"{\\rtf1", u"}", ExpectSameDocument);
}

TEST(RtfBesideThePlainRules, EveryShortRowOfWords) {
  const TPieces words = {u"\\b",  u"\\b0", u"{",     u"}", u"\\par", u"\\pard",
                         u"\\qr", u"\\f1", u"\\fs9", u"a", u" ",     u"\\'d3"};
  for (std::size_t count = 0; count <= 4; ++count) ForEveryText(words, count, u"{\\rtf1", u"}", ExpectSameDocument);
}

TEST(RtfBesideThePlainRules, EveryShortHeader) {
  const TPieces items = {
      u"\\rtf1", u"\\ansi\\ansicpg", u"1256", u"\\deff1", u"\\deflang1065", u"{\\fonttbl", u"{\\f0\\fnil A;}",
      u"}",      u"{\\colortbl",     u";",    u"\\red2",  u"\r\n",          u"\\uc1",      u" "};
  for (std::size_t count = 0; count <= 4; ++count) ForEveryText(items, count, u"{", u"\\'d3}", ExpectSameDocument);
}

TEST(RtfBesideThePlainRules, RandomDocuments) {
  std::mt19937 random(103);
  int accepted = 0;
  for (int round = 0; round < 20000 && !HasFatalFailure(); ++round) {
    std::u16string text(RtfHeaders[random() % RtfHeaders.size()]);
    text += RandomText(random, RtfPieces, 24);
    for (auto left = random() % 4; left > 0; --left) text += u"}";
    text += u"}";
    Break(random, text, u"\\{}' b0fu;?1-\r\n*");
    ExpectSameDocument(text);
    accepted += plain::ParsePlainRtf(text) ? 1 : 0;
  }
  EXPECT_GT(accepted, 4000);
}

}  // namespace
}  // namespace orv
