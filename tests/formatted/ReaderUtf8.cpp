// The markup reader over UTF-8: characters of several bytes, broken ones, and how it agrees with the reader of UTF-16.
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "formatted/Orv.StdCtrls.Markup.h"
#include "tests/formatted/support/ReaderSteps.h"

namespace orv {
namespace {

using TDirection = TMarkupText::TDirection;
using TUnicode = TMarkupText::TMarkupTextReaderUnicode;
using TUtf8 = TMarkupText::TMarkupTextReaderUTF8;
using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(MarkupReader, TheKindOfTextDecidesTheReader) {
  static_assert(std::is_same_v<decltype(TMarkupText::CreateReader(u"a"s)), TUnicode>);
  static_assert(std::is_same_v<decltype(TMarkupText::CreateReader(u"a")), TUnicode>);
  static_assert(std::is_same_v<decltype(TMarkupText::CreateReader("a"s)), TUtf8>);
  auto owner = TMarkupText::CreateReader(std::u16string(u"text"));
  EXPECT_EQ(owner.CopyText(u""), u"text");
  auto bytes = TMarkupText::CreateReader(std::string("\xD8\xB3"));
  EXPECT_EQ(bytes.CopyText(u""), u"\u0633");
}

TEST(MarkupReaderUtf8, OffsetsAreBytesAndCharactersAreUnits) {
  TUtf8 reader("\xD8\xB3=\xF0\x9F\x98\x80;"sv);  // two, one, four, one bytes
  EXPECT_EQ(reader.Token(), u'\u0633');
  EXPECT_TRUE(reader.ReadToken(u'\u0633'));
  EXPECT_EQ(reader.Position(), 2);
  EXPECT_TRUE(reader.ReadToken(u'='));
  EXPECT_EQ(reader.Token(), u'\xD83D');
  EXPECT_EQ(reader.CopyTextTill(u';'), u"\U0001F600");
  EXPECT_EQ(reader.Position(), 7);
}

TEST(MarkupReaderUtf8, FindsCharactersOfSeveralBytesInBothDirections) {
  TUtf8 reader("a\xD8\xB3\xE2\x82\xAC!"sv);
  EXPECT_TRUE(reader.FindChar(u'\u20AC', false));
  EXPECT_EQ(reader.Position(), 3);
  EXPECT_TRUE(reader.Read(u"\u20AC"));
  EXPECT_EQ(reader.Position(), 6);
  reader.SetDirection(TDirection::Backward);
  EXPECT_EQ(reader.FindAny(u"\u0633a", false), u'\u0633');
  EXPECT_EQ(reader.Position(), 1);
  reader.SetPos(6);
  EXPECT_TRUE(reader.Read(u"\u0633\u20AC"));
  EXPECT_EQ(reader.Position(), 1);
}

TEST(MarkupReaderUtf8, BackwardsTextIsConvertedInItsOwnOrder) {
  TUtf8 reader(";\xD8\xB3\xE2\x82\xAC!"sv);
  reader.SetPos(6);
  reader.SetDirection(TDirection::Backward);
  EXPECT_EQ(reader.CopyTextTill(u';'), u"\u0633\u20AC!");
}

TEST(MarkupReaderUtf8, ABrokenByteIsOneReplacementCharacter) {
  TUtf8 reader("\xFF\xD8;\xB3"sv);
  EXPECT_EQ(reader.Token(), u'\uFFFD');
  EXPECT_EQ(reader.CopyTextTill(u';'), u"\uFFFD\uFFFD");
  EXPECT_TRUE(reader.ReadToken(u';'));
  EXPECT_EQ(reader.CopyText(u""), u"\uFFFD");
}

TEST(MarkupReaderUtf8, ALimitInsideACharacterBreaksIt) {
  TUtf8 reader("\xE2\x82\xAC;"sv);
  reader.SetEnd(2);
  EXPECT_EQ(reader.CopyTextTill(u';'), u"\uFFFD\uFFFD");
  EXPECT_EQ(reader.Position(), 2);
  EXPECT_TRUE(reader.Eof());
}

TEST(MarkupReaderUtf8, SkipSpacesAtTheEndGoesBackAWholeCharacter) {
  TUtf8 reader("a\xD8\xB3"sv);
  reader.SetPos(3);
  reader.SkipSpaces(false);
  EXPECT_EQ(reader.Position(), 1);
}

TEST(MarkupReaderUtf8, TheTwoFormsForACallersBufferAreNotImplemented) {
  TUtf8 reader("abc"sv);
  std::array<char16_t, 2> buffer{};
  const auto messageOf = [](auto action) -> std::string {
    try {
      action();
    } catch (const rtl::Exception& error) {
      return error.what();
    }
    return {};
  };
  EXPECT_EQ(messageOf([&] { reader.ReadBuffer(buffer); }), "Not implemented yet.");
  EXPECT_EQ(messageOf([&] { reader.CopyTextTill(buffer, u";"); }), "Not implemented yet.");
  EXPECT_EQ(reader.Position(), 0);
}

// On ASCII both readers are one.
TEST(MarkupReaderUtf8, AgreesWithTheUnicodeReaderOnAscii) {
  const std::string alphabet = "aZ_09 \t\r\n<>/=\"\\{}';fF";
  std::mt19937 random(11);
  for (int round = 0; round < 3000; ++round) {
    std::string text;
    for (auto left = random() % 40; left > 0; --left) text += alphabet[random() % alphabet.size()];
    TUtf8 bytes(std::string_view{text});
    const std::u16string wide(text.begin(), text.end());
    TUnicode units(std::u16string_view{wide});
    for (int step = 0; step < 30; ++step) {
      const testing::TReaderStep one = {static_cast<unsigned>(random()), static_cast<std::ptrdiff_t>(random() % 42) - 1,
                                        static_cast<char16_t>(alphabet[random() % alphabet.size()])};
      ASSERT_EQ(testing::Run(units, one), testing::Run(bytes, one)) << one.Kind % testing::ReaderStepKinds;
      ASSERT_EQ(units.SaveState(), bytes.SaveState()) << one.Kind % testing::ReaderStepKinds;
    }
  }
}

}  // namespace
}  // namespace orv
