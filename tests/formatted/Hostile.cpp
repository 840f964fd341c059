// Documents that no program writes: deep, broken, huge. Each gives a result or one of the fixed messages. With a
// quadratic cost the huge ones would not end within the time that a test is given, so nothing is timed.
#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <cctype>
#include <functional>

#include "formatted/Orv.StdCtrls.HTML.h"
#include "formatted/Orv.StdCtrls.RTF.h"
#include "rtl/Utf8.h"
#include "tests/support/VectorFiles.h"
#include "tools/orv/eval/Arguments.h"

namespace orv {
namespace {

using namespace std::string_view_literals;

constexpr std::size_t Million = 1'000'000;
#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t HundredMegabytes = 20'000'000;  // the checks make every step some five times as long
#else
constexpr std::size_t HundredMegabytes = 100'000'000;
#endif

template <typename TText>
TText Repeated(std::basic_string_view<typename TText::value_type> piece, std::size_t count) {
  TText text;
  text.reserve(piece.size() * count);
  for (std::size_t i = 0; i < count; ++i) text += piece;
  return text;
}
std::u16string Repeat16(std::u16string_view piece, std::size_t count) {
  return Repeated<std::u16string>(piece, count);
}
std::string Repeat8(std::string_view piece, std::size_t count) {
  return Repeated<std::string>(piece, count);
}

// Whether message is "'...' expected but '...' found" with an identifier, nothing, or the end as what was found.
bool IsExpectation(std::string_view message) {
  constexpr std::string_view Middle = "' expected but '", End = "' found";
  const std::size_t middle = message.rfind(Middle);
  if (!message.starts_with('\'') || !message.ends_with(End) || middle == std::string_view::npos) return false;
  const std::size_t start = middle + Middle.size();
  const std::string_view found = message.substr(start, message.size() - End.size() - start);
  const auto continues = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; };
  return found == SUnexpectedEnd || std::all_of(found.begin(), found.end(), continues);
}

bool IsFixedMessage(std::string_view message) {
  return message == SIncompleteHTMLTag || message == SBadRTFFormat || message == SUnexpectedEndOfRTFData ||
         IsExpectation(message);
}

// Whether the action ends well; an error must be one of the fixed ones.
bool Succeeds(const std::function<void()>& action) {
  try {
    action();
    return true;
  } catch (const EParseError& error) {
    EXPECT_TRUE(IsFixedMessage(error.what())) << error.what();
    return false;
  }
}

bool HtmlSucceeds(std::u16string_view text) {
  return Succeeds([text] { THTMLText::ParseHTML(text).Root().Text(); });
}
bool RtfSucceeds(std::string_view bytes) {
  return Succeeds([bytes] { TRTFText::ParseRTF(bytes).Text(); });
}

// Runs the action on a thread with a stack of 256 KiB.
void OnASmallStack(std::function<void()> action) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
  const auto run = [](void* argument) -> void* {
    (*static_cast<std::function<void()>*>(argument))();
    return nullptr;
  };
  pthread_t thread{};
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &action), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

// --- Depth ---

TEST(HostileHtml, AMillionNestedTagsNeedNoStack) {
  OnASmallStack([] {
    const std::u16string text = Repeat16(u"<B>", Million) + u"x" + Repeat16(u"</B>", Million);
    const auto tree = THTMLText::ParseHTML(std::u16string_view(text));
    EXPECT_EQ(tree.Root().Text(), u"x");
    std::size_t depth = 1;
    for (auto tag = tree.Root(); !tag.Children().empty(); tag = *tag.Children().begin()) ++depth;
    EXPECT_EQ(depth, Million + 1);
  });
}

TEST(HostileHtml, ATreeOfManyLevelsIsPrintedWithoutAStack) {
#ifdef __SANITIZE_ADDRESS__
  constexpr std::size_t Depth = 100'000;  // each level is a dozen allocations, which the checks make slow and large
#else
  constexpr std::size_t Depth = Million;
#endif
  OnASmallStack([] {
    const std::string text = Repeat8("<B>", Depth) + "x" + Repeat8("</B>", Depth);
    const std::string answer = eval::Answer(R"({"op":"html","text":")" + text + "\"}");
    EXPECT_TRUE(answer.starts_with(R"({"ok":true,"result":{"TagType":"Bold")"));
    EXPECT_TRUE(answer.ends_with("]}]}]}]}}"));
    EXPECT_EQ(static_cast<std::size_t>(std::count(answer.begin(), answer.end(), '{')), Depth + 2);
  });
}

TEST(HostileHtml, AMillionTagsLeftOpenAreRefused) {
  OnASmallStack([] {
    const std::u16string text = Repeat16(u"<B>", Million);
    EXPECT_FALSE(HtmlSucceeds(text));
  });
}

TEST(HostileRtf, AMillionNestedGroupsNeedNoStack) {
  OnASmallStack([] {
    EXPECT_EQ(
        TRTFText::RTFToText(std::string_view("{\\rtf1 " + Repeat8("{", Million) + "x" + Repeat8("}", Million + 1))),
        u"x");
    EXPECT_EQ(
        TRTFText::RTFToText(std::string_view("{\\rtf1{\\*" + Repeat8("{", Million) + Repeat8("}", Million + 1) + "x}")),
        u"x");
    const std::string changing = "{\\rtf1" + Repeat8("{\\b a{\\b0 b", Million / 2) + Repeat8("}", Million + 1);
    EXPECT_EQ(TRTFText::ParseRTF(std::string_view(changing)).Ranges.size(), Million);
  });
}

TEST(HostileRtf, GroupsThatAreNeverClosedAreRefused) {
  EXPECT_FALSE(RtfSucceeds("{\\rtf1" + Repeat8("{", Million)));
  EXPECT_FALSE(RtfSucceeds("{\\rtf1{\\*" + Repeat8("{", Million)));
}

TEST(HostileRtf, ABraceTooManyIsIgnored) {
  EXPECT_TRUE(RtfSucceeds("{\\rtf1" + Repeat8("{", 100'000) + Repeat8("}", 100'000) + "}"));
}

// --- Broken at every place ---

// The texts of the first documents in the vectors that are read, of that kind and no longer than that.
std::vector<UnicodeString> Documents(const std::string& kind, std::size_t count, std::size_t longest) {
  std::vector<UnicodeString> documents;
  for (const testing::TVector& vector : testing::ReadVectors("markup/markup")) {
    if (!vector.Op.starts_with(kind) || !eval::TJson::parse(vector.Expected)["ok"].get<bool>()) continue;
    const UnicodeString text = eval::TArguments(eval::TJson::parse(vector.Request)).Text();
    if (text.size() > 40 && text.size() <= longest && documents.size() < count) documents.push_back(text);
  }
  EXPECT_EQ(documents.size(), count);
  return documents;
}

TEST(HostileHtml, FiftyDocumentsCutOffAtEveryPlace) {
  for (const UnicodeString& text : Documents("html", 50, 1500)) {
    EXPECT_TRUE(HtmlSucceeds(text));
    for (std::size_t length = 0; length < text.size(); ++length) {
      const std::u16string_view cut = std::u16string_view(text).substr(0, length);
      // A cut between two characters of one tag is always noticed.
      const std::size_t open = cut.rfind(u'<');
      const bool insideTag = open != std::u16string_view::npos && cut.find(u'>', open) == std::u16string_view::npos;
      EXPECT_FALSE(HtmlSucceeds(cut) && insideTag) << rtl::ToUtf8(cut);
    }
  }
}

TEST(HostileRtf, FiftyDocumentsCutOffAtEveryPlaceAreRefused) {
  for (const UnicodeString& text : Documents("rtf", 50, 1500)) {
    const std::string bytes = rtl::ToUtf8(text);
    EXPECT_TRUE(RtfSucceeds(bytes));
    const std::size_t end = bytes.rfind('}');
    for (std::size_t length = 0; length <= end; ++length) {
      // What stands behind the document's own end is not looked at, so only a cut before that is noticed.
      const std::string_view cut = std::string_view(bytes).substr(0, length);
      EXPECT_TRUE(!RtfSucceeds(cut) || TRTFText::RTFToText(cut) == TRTFText::RTFToText(std::string_view(bytes)));
    }
  }
}

TEST(HostileHtml, FiftyDocumentsWithEveryUnitFlipped) {
  for (UnicodeString text : Documents("html", 50, 1500))
    for (char16_t& unit : text)
      for (const char16_t flip : {char16_t{0x01}, char16_t{0xFF}, char16_t{0xFFFF}}) {
        unit = static_cast<char16_t>(unit ^ flip);
        HtmlSucceeds(text);
        unit = static_cast<char16_t>(unit ^ flip);
      }
}

TEST(HostileRtf, FiftyDocumentsWithEveryByteFlipped) {
  for (const UnicodeString& text : Documents("rtf", 50, 1500)) {
    std::string bytes = rtl::ToUtf8(text);
    for (char& byte : bytes)
      for (const char flip : {'\x01', '\x20', '\xFF'}) {
        byte = static_cast<char>(byte ^ flip);
        RtfSucceeds(bytes);
        byte = static_cast<char>(byte ^ flip);
      }
  }
}

TEST(HostileHtml, UnterminatedOfEveryKind) {
  for (const auto text : {u"<"sv, u"<P"sv, u"<P "sv, u"<P x"sv, u"<P x="sv, u"<P x=\""sv, u"<P x=\"1"sv,
                          u"<P x=\"1\""sv, u"<P /"sv, u"<P>"sv, u"<P><"sv, u"<P></"sv, u"<P></P"sv, u"<P></P "sv})
    EXPECT_FALSE(HtmlSucceeds(text)) << rtl::ToUtf8(text);
}

TEST(HostileRtf, UnterminatedOfEveryKind) {
  const auto document =
      "{\\rtf1\\fbidis\\ansi\\ansicpg1256\\deff0\\nouicompat\\deflang1065{\\fonttbl{\\f0\\fnil\\fprq2\\fcharset178 A;}}"
      "{\\colortbl ;\\red1\\green2\\blue3;}\\viewkind4\\uc1 "
      "\\pard\\ltrpar\\rtlpar\\sa1\\sl1\\slmult1\\qr\\qc\\cf1\\f0\\fs9"
      "\\rtlch\\lang1065 "
      "\\b0\\b\\i0\\i\\ulnone\\ul\\cf1\\fs1\\lang1\\qr\\fi-1\\f0\\li1\\tab\\par\\'d3\\u0641?\\\\\\{\\}{a}"
      "{\\*\\x{}}\\~}"sv;
  EXPECT_TRUE(RtfSucceeds(document));
  for (std::size_t length = 0; length < document.size(); ++length)
    EXPECT_FALSE(RtfSucceeds(document.substr(0, length)));
}

// --- Size ---

TEST(HostileHtml, AHundredMegabytesOfOneSign) {
  constexpr std::size_t Units = HundredMegabytes / sizeof(char16_t);
  EXPECT_FALSE(HtmlSucceeds(std::u16string(Units, u'<')));
  EXPECT_FALSE(HtmlSucceeds(std::u16string(Units, u'<') + u">"));
  EXPECT_TRUE(HtmlSucceeds(std::u16string(Units, u'>')));
  EXPECT_TRUE(HtmlSucceeds(std::u16string(Units, u'=')));
  EXPECT_FALSE(HtmlSucceeds(u"<A " + std::u16string(Units, u'=') + u"/>"));
  EXPECT_FALSE(HtmlSucceeds(u"<A x=\"" + std::u16string(Units, u'"') + u"="));
  EXPECT_TRUE(HtmlSucceeds(u"<A" + std::u16string(Units, u' ') + u"/>"));
  EXPECT_TRUE(HtmlSucceeds(u"<P>x</" + std::u16string(Units, u'P') + u">"));
}

TEST(HostileHtml, TenMegabytesOfEveryForm) {
  const auto of = [](std::u16string_view piece) { return Repeat16(piece, 5'000'000 / piece.size()); };
  EXPECT_TRUE(HtmlSucceeds(of(u"<B/>")));
  EXPECT_TRUE(HtmlSucceeds(of(u"<B></B>")));
  EXPECT_TRUE(HtmlSucceeds(of(u"x<B y=\"1\">z</B>")));
  EXPECT_TRUE(HtmlSucceeds(u"<A " + of(u"x=\"\"") + u"/>"));
  EXPECT_FALSE(HtmlSucceeds(u"<A " + of(u"x=\"\"") + u"=/>"));
  EXPECT_FALSE(HtmlSucceeds(of(u"<B x=\"")));
  EXPECT_FALSE(HtmlSucceeds(of(u"<B>x</B")));
  EXPECT_TRUE(HtmlSucceeds(of(u"</B>")));
}

TEST(HostileRtf, AHundredMegabytesOfOneSign) {
  EXPECT_FALSE(RtfSucceeds(std::string(HundredMegabytes, '{')));
  EXPECT_FALSE(RtfSucceeds("{\\rtf1" + std::string(HundredMegabytes, '{')));
  EXPECT_FALSE(RtfSucceeds("{\\rtf1{\\*" + std::string(HundredMegabytes, '{')));
  EXPECT_TRUE(RtfSucceeds("{\\rtf1" + std::string(HundredMegabytes, '}')));
  EXPECT_TRUE(RtfSucceeds("{\\rtf1" + std::string(HundredMegabytes, '\\') + "}"));
  EXPECT_TRUE(RtfSucceeds("{\\rtf1" + std::string(HundredMegabytes, '=') + "}"));
  EXPECT_TRUE(RtfSucceeds("{\\rtf1\\xyz" + std::string(HundredMegabytes, '9') + "}"));
  EXPECT_FALSE(RtfSucceeds("{\\rtf1\\fs" + std::string(HundredMegabytes, '9') + "}"));
}

TEST(HostileRtf, AHundredMegabytesOfBytesThatAreNone) {
  const std::string marks = Repeat8("\\'", HundredMegabytes / 2);
  EXPECT_FALSE(RtfSucceeds("{\\rtf1" + marks));
  EXPECT_FALSE(RtfSucceeds("{\\rtf1" + marks + "}"));
}

TEST(HostileRtf, TenMegabytesOfEveryForm) {
  const auto of = [](std::string_view piece) { return Repeat8(piece, 10'000'000 / piece.size()); };
  EXPECT_TRUE(RtfSucceeds("{\\rtf1" + of("a\\b b\\b0 ") + "}"));
  EXPECT_TRUE(RtfSucceeds("{\\rtf1" + of("\\b\\b0") + "}"));
  EXPECT_TRUE(RtfSucceeds("{\\rtf1" + of("\\pard\\qr\\f1\\fs2\\sl-") + "}"));
  EXPECT_TRUE(RtfSucceeds("{\\rtf1" + of("\\'d3\\lang1065") + "}"));
  EXPECT_TRUE(RtfSucceeds("{\\rtf1" + of("\\u0641?") + "}"));
  EXPECT_TRUE(RtfSucceeds("{\\rtf1" + of("\\par\r\n\r") + "}"));
  EXPECT_TRUE(RtfSucceeds("{\\rtf1" + of("{\\*{}}") + "}"));
  EXPECT_TRUE(RtfSucceeds("{\\rtf1" + of("{\\i a}") + "}"));
  EXPECT_TRUE(RtfSucceeds("{\\rtf1{\\colortbl" + of(";") + "}}"));
  EXPECT_TRUE(RtfSucceeds("{\\rtf1{\\colortbl" + of("\\red1\n;") + "}}"));
  EXPECT_FALSE(RtfSucceeds("{\\rtf1{\\colortbl" + of("\\red1") + ";}}"));
  EXPECT_FALSE(RtfSucceeds("{\\rtf1{\\fonttbl" + of("{}") + "}}"));
  EXPECT_FALSE(RtfSucceeds("{\\rtf1{\\fonttbl" + of("{") + "}}"));
  std::string fonts = "{\\rtf1{\\fonttbl";
  for (int i = 0; i < 300'000; ++i) fonts += "{\\f" + std::to_string(i) + "\\fnil ;}";
  EXPECT_TRUE(RtfSucceeds(fonts + "}}"));
}

}  // namespace
}  // namespace orv
