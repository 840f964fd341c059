// HTML to a tree: each rule of the subset, and what is refused.
#include "formatted/Orv.StdCtrls.HTML.h"

#include <gtest/gtest.h>

#include "tests/formatted/support/Shown.h"

namespace orv {
namespace {

using testing::ShownHtml;
using testing::ShownHtmlText;
using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr auto Incomplete = "error: Incomplete HTML Tag";

std::string Expected(const std::string& wanted, const std::string& found) {
  return "error: '" + wanted + "' expected but '" + found + "' found";
}

// --- Trees ---

TEST(Html, ATextWithoutTagsIsThatText) {
  EXPECT_EQ(ShownHtmlText(u"plain > text & \"quotes\" = \u0633\u0644\u0627\u0645"),
            "plain > text & \"quotes\" = \xD8\xB3\xD9\x84\xD8\xA7\xD9\x85");
  EXPECT_EQ(ShownHtml(u"abc"), "'abc'");
}

TEST(Html, AnEmptyTextIsABodyWithoutChildren) {
  EXPECT_EQ(ShownHtml(u""), "Body()");
  EXPECT_EQ(ShownHtmlText(u""), "");
}

TEST(Html, ASingleTagAtTheTopIsTheRoot) {
  EXPECT_EQ(ShownHtml(u"<P>a</P>"), "Paragraph('a')");
}

TEST(Html, SeveralTagsAtTheTopComeUnderABody) {
  EXPECT_EQ(ShownHtml(u"<P>a</P><B>b</B>"), "Body(Paragraph('a') Bold('b'))");
  EXPECT_EQ(ShownHtml(u"a<B>b</B>c"), "Body('a' Bold('b') 'c')");
  EXPECT_EQ(ShownHtml(u"<BODY><P></P></BODY><I></I>"), "Body(Body(Paragraph()) Italic())");
}

TEST(Html, TheTextOfATagIsThatOfItsChildrenJoinedInOrder) {
  const auto tree = THTMLText::ParseHTML(u"<P>a<B>b<I>c</I></B>d</P>"sv);
  EXPECT_EQ(tree.Root().Text(), u"abcd");
  auto child = tree.Root().Children().begin();
  EXPECT_EQ(child->Text(), u"a");
  EXPECT_EQ((++child)->Text(), u"bc");
  EXPECT_EQ(child->TagName(), u"B");
  EXPECT_EQ((++child)->ImmediateText(), u"d");
  EXPECT_EQ(++child, tree.Root().Children().end());
}

// Around the size of a vector, in the middle of the text and at its end.
TEST(Html, PiecesOfAnyLengthAreJoined) {
  constexpr std::size_t Longest = 40;
  const auto piece = [](std::size_t length, char16_t first) {
    std::u16string text;
    for (std::size_t i = 0; i < length; ++i) text += static_cast<char16_t>(first + i);
    return text;
  };
  for (std::size_t a = 0; a <= Longest; ++a)
    for (std::size_t b = 0; b <= Longest; ++b) {
      const std::u16string first = piece(a, u'A'), second = piece(b, u'\u0621');
      const std::u16string text = u"<P>" + first + u"</P>" + second;
      ASSERT_EQ(THTMLText::HTMLToText(text), first + second) << a << ' ' << b;
    }
}

TEST(Html, OnlyAnInnerTextHasAnImmediateText) {
  const auto tree = THTMLText::ParseHTML(u"<P>a</P>"sv);
  EXPECT_EQ(tree.Root().ImmediateText(), u"");
  EXPECT_TRUE(tree.Root().Children().begin()->Params().empty());
  EXPECT_TRUE(tree.Root().Children().begin()->Children().empty());
}

TEST(Html, TheInsidesOfALaterSiblingAreNotItsOwn) {
  EXPECT_EQ(ShownHtmlText(u"<P></P><B>b</B>"), "b");
}

TEST(Html, ATreeKeepsATemporaryTextAndItsTagsWhenItMoves) {
  auto tree = THTMLText::ParseHTML(u"<A x=\"1\">b</A>"s);
  const THTMLText::THTMLTag root = tree.Root();
  const auto moved = std::move(tree);
  EXPECT_EQ(testing::Shown(root), "Anchor(x=1; 'b')");
  EXPECT_EQ(moved.Root(), root);
}

TEST(Html, ALiteralIsTakenAsItStands) {
  const auto tree = THTMLText::ParseHTML(u"<P>a</P>");
  EXPECT_EQ(testing::Shown(tree.Root()), "Paragraph('a')");
  EXPECT_EQ(THTMLText::HTMLToText(u"<P>a</P>"), u"a");
  // It is borrowed: the tags look into it.
  const char16_t text[] = u"<P>b</P>";
  const auto borrowed = THTMLText::ParseHTML(text);
  EXPECT_EQ(borrowed.Root().Children().begin()->ImmediateText().data(), text + 3);
}

// --- Names ---

TEST(Html, EveryTagTextHasItsType) {
  using T = THTMLText::THTMLTagType;
  const std::pair<std::u16string_view, T> named[] = {
      {u"BODY", T::Body},   {u"DIV", T::DIV},       {u"A", T::Anchor},    {u"STYLE", T::Style}, {u"SCRIPT", T::Script},
      {u"SPAN", T::Span},   {u"P", T::Paragraph},   {u"B", T::Bold},      {u"I", T::Italic},    {u"H1", T::Heading1},
      {u"H2", T::Heading2}, {u"H3", T::Heading3},   {u"H4", T::Heading4}, {u"H5", T::Heading5}, {u"H6", T::Heading6},
      {u"EM", T::Emphasis}, {u"STRONG", T::Strong}, {u"MARK", T::Mark},   {u"FONT", T::Font},   {u"DEL", T::Deletion}};
  for (const auto& [name, type] : named) {
    const std::u16string text = u"<" + std::u16string(name) + u">x</" + std::u16string(name) + u">";
    const auto tree = THTMLText::ParseHTML(std::u16string_view(text));
    EXPECT_EQ(tree.Root().TagType(), type);
    EXPECT_EQ(tree.Root().TagName(), name);
  }
  EXPECT_EQ(THTMLText::THTMLTag::TagNames.size(), 23U);
}

TEST(Html, TheLineBreakTagIsReadAsBold) {
  EXPECT_EQ(ShownHtml(u"<BR/>"), "Bold()");
  EXPECT_EQ(ShownHtml(u"<BR>x</BR>"), "Bold('x')");
}

TEST(Html, TheFirstNameInTheTableThatBeginsATagDecidesIt) {
  EXPECT_EQ(ShownHtml(u"<BODYX/>"), "Body()");
  EXPECT_EQ(ShownHtml(u"<BLINK/>"), "Bold()");
  EXPECT_EQ(ShownHtml(u"<PRE/>"), "Paragraph()");
  EXPECT_EQ(ShownHtml(u"<H7/>"), "Undefined()");
}

TEST(Html, ATagNameInLowerCaseIsUndefined) {
  EXPECT_EQ(ShownHtml(u"<p>a</p>"), "Undefined('a')");
  EXPECT_EQ(ShownHtml(u"<Body>a</Body>"), "Bold('a')");  // "B" begins it
}

TEST(Html, AnUnknownTagKeepsItsChildrenAndGivesTheirText) {
  EXPECT_EQ(ShownHtml(u"<UNKNOWN>a<B>b</B></UNKNOWN>"), "Undefined('a' Bold('b'))");
  EXPECT_EQ(ShownHtmlText(u"<UNKNOWN>a<B>b</B></UNKNOWN>"), "ab");
}

TEST(Html, ABlankBeforeTheNameLeavesTheTagUndefined) {
  EXPECT_EQ(ShownHtml(u"< P>a</P>"), "Undefined('a')");
}

TEST(Html, WhatIsLeftOfANameIsSkippedBeforeTheAttributes) {
  EXPECT_EQ(ShownHtml(u"<font color=\"red\">x</font>"), "Undefined(color=red; 'x')");
  EXPECT_EQ(ShownHtml(u"<H' a=\"1\"/>"), "Undefined(a=1;)");
  EXPECT_EQ(ShownHtml(u"<P\0>x</P>"sv), "Paragraph('x')");
}

// --- Closing ---

TEST(Html, AClosingTagOfAnotherNameClosesTheOpenTag) {
  EXPECT_EQ(ShownHtml(u"<P>a</B>"), "Paragraph('a')");
}

TEST(Html, AClosingTagMayHaveNoNameAndBlanksBehindIt) {
  for (const auto* close : {u"</>", u"</P>", u"</P >", u"</P\t>", u"</ >", u"</_x9>"})
    EXPECT_EQ(ShownHtml(u"<P>a"s + close), "Paragraph('a')");
}

TEST(Html, AClosingTagWithAnythingElseIsRefused) {
  EXPECT_EQ(ShownHtmlText(u"<P>a</ P>"), Expected(">", "P"));
  EXPECT_EQ(ShownHtmlText(u"<P>a</P x>"), Expected(">", "x"));
  EXPECT_EQ(ShownHtmlText(u"<P>a</P\n>"), Expected(">", ""));
  EXPECT_EQ(ShownHtmlText(u"<P>a</1>"), Expected(">", ""));
}

TEST(Html, ASelfClosingTagHasNoChildren) {
  EXPECT_EQ(ShownHtml(u"<P/>a"), "Body(Paragraph() 'a')");
  EXPECT_EQ(ShownHtml(u"<A x=\"1\"/>"), "Anchor(x=1;)");
  EXPECT_EQ(ShownHtml(u"<P / >"), "Paragraph()");
  EXPECT_EQ(ShownHtml(u"<P /\t>"), "Paragraph()");
}

TEST(Html, ASlashCountsOnlyAsTheLastCharacterOfATag) {
  EXPECT_EQ(ShownHtml(u"<P/x>a</P>"), "Paragraph('a')");
  EXPECT_EQ(ShownHtml(u"<A x=\"/\">a</A>"), "Anchor(x=/; 'a')");
  EXPECT_EQ(ShownHtml(u"<P/\n>a</P>"), "Paragraph('a')");
}

TEST(Html, AClosingTagAtTheTopEndsTheTextWithoutAnError) {
  EXPECT_EQ(ShownHtmlText(u"</P>"), "");
  EXPECT_EQ(ShownHtmlText(u"a</P>b"), "a");
  EXPECT_EQ(ShownHtml(u"a</P>b"), "'a'");
  EXPECT_EQ(ShownHtmlText(u"a</ what ever < follows"), "a");
}

// --- Attributes ---

TEST(Html, AttributesAreNamesWithQuotedValues) {
  EXPECT_EQ(ShownHtml(u"<A HREF=\"http://a.example/?q=1&r=2\" _t=\"\">y</A>"),
            "Anchor(HREF=http://a.example/?q=1&r=2 _t=; 'y')");
  EXPECT_EQ(ShownHtml(u"<A x=\"a = b\"y=\"it's\"/>"), "Anchor(x=a = b y=it's;)");
  EXPECT_EQ(ShownHtml(u"<A x=\"1\" x=\"2\"/>"), "Anchor(x=1 x=2;)");
}

TEST(Html, ABlankIsASpaceOrATab) {
  EXPECT_EQ(ShownHtml(u"<A\tx=\t\"1\"\ty= \"2\"/>"), "Anchor(x=1 y=2;)");
}

TEST(Html, BlanksMayStandBehindTheEqualsSignAndNotBeforeIt) {
  EXPECT_EQ(ShownHtml(u"<A x=  \"1\"/>"), "Anchor(x=1;)");
  EXPECT_EQ(ShownHtmlText(u"<A x =\"1\">y</A>"), Expected("=", ""));
}

TEST(Html, ALineBreakInATagIsNoBlank) {
  EXPECT_EQ(ShownHtmlText(u"<A\nx=\"1\">y</A>"), Expected("identifier", ""));
}

TEST(Html, AnAttributeWithSingleQuotesIsRefused) {
  EXPECT_EQ(ShownHtmlText(u"<A x='1'>y</A>"), Expected("\"", ""));
}

TEST(Html, AnAttributeWithoutQuotesIsRefused) {
  EXPECT_EQ(ShownHtmlText(u"<A x=1>y</A>"), Expected("\"", ""));
}

TEST(Html, AnAttributeWithoutAValueIsRefused) {
  EXPECT_EQ(ShownHtmlText(u"<A x=>"), Expected("\"", ""));
  EXPECT_EQ(ShownHtmlText(u"<A x= >y</A>"), Expected("\"", ""));
}

TEST(Html, AnAttributeNameIsAnIdentifier) {
  EXPECT_EQ(ShownHtmlText(u"<A data-x=\"1\">y</A>"), Expected("=", ""));
  EXPECT_EQ(ShownHtmlText(u"<A =\"1\">y</A>"), Expected("identifier", ""));
  EXPECT_EQ(ShownHtmlText(u"<A 1=\"1\">y</A>"), Expected("identifier", ""));
}

TEST(Html, ABareWordIsPassedOverBehindTheLastAttributeAlone) {
  EXPECT_EQ(ShownHtmlText(u"<A HREF>y</A>"), "y");
  EXPECT_EQ(ShownHtml(u"<A x=\"1\" bare 'word' \">y</A>"), "Anchor(x=1; 'y')");
  EXPECT_EQ(ShownHtmlText(u"<A bare x=\"1\">y</A>"), Expected("=", ""));
}

TEST(Html, AQuotedValueEndsAtTheNextQuote) {
  EXPECT_EQ(ShownHtml(u"<A x=\"a\"\"b\">y</A>"), "Anchor(x=a; 'y')");
}

TEST(Html, ATagEndsAtItsFirstGreaterThanEvenInAValue) {
  EXPECT_EQ(ShownHtmlText(u"<A x=\"a>b\">y</A>"), Expected("\"", "unexpected end"));
}

// --- Broken and hostile texts ---

TEST(Html, AnOpeningTagWithoutItsEndIsIncomplete) {
  for (const auto* text : {u"<", u"<P", u"a<", u"<A x=\"", u"<A x=\"1", u"<A \"", u"<P>a<B"})
    EXPECT_EQ(ShownHtmlText(text), Incomplete);
}

TEST(Html, AValueThatRunsIntoTheTagsEndIsRefused) {
  EXPECT_EQ(ShownHtmlText(u"<A x=\"1>"), Expected("\"", "unexpected end"));
  EXPECT_EQ(ShownHtmlText(u"<A x=\">\"</A>"), Expected("\"", "unexpected end"));
}

TEST(Html, ATagLeftOpenIsRefused) {
  EXPECT_EQ(ShownHtmlText(u"<P>"), Expected("/", "unexpected end"));
  EXPECT_EQ(ShownHtmlText(u"<BR>"), Expected("/", "unexpected end"));
  EXPECT_EQ(ShownHtmlText(u"<P>a<B>b</B>"), Expected("/", "unexpected end"));
}

TEST(Html, AClosingTagWithoutItsEndIsRefused) {
  EXPECT_EQ(ShownHtmlText(u"<P>a</"), Expected(">", ""));
  EXPECT_EQ(ShownHtmlText(u"<P>a</P"), Expected(">", "P"));
  EXPECT_EQ(ShownHtmlText(u"<P>a</P "), Expected(">", ""));
}

TEST(Html, AZeroInTheTextIsText) {
  EXPECT_EQ(THTMLText::HTMLToText(u"\0"sv), u"\0"sv);
  EXPECT_EQ(THTMLText::HTMLToText(u"a\0b<P>\0</P>"sv), u"a\0b\0"sv);
}

TEST(Html, ACommentIsATagLikeAnyOther) {
  EXPECT_EQ(ShownHtmlText(u"<!-- c -->x"), Expected("/", "unexpected end"));
  EXPECT_EQ(ShownHtml(u"<!-- c /-->x</>"), "Undefined('x')");
  EXPECT_EQ(ShownHtml(u"<!DOCTYPE html/>"), "Undefined()");
}

TEST(Html, AnEmptyTagIsUndefined) {
  EXPECT_EQ(ShownHtml(u"<>a</>"), "Undefined('a')");
  EXPECT_EQ(ShownHtml(u"<  >a</>"), "Undefined('a')");
}

TEST(Html, EntitiesAreTextAsTheyStand) {
  EXPECT_EQ(ShownHtmlText(u"&lt;&amp;&#1587;"), "&lt;&amp;&#1587;");
}

TEST(Html, LoneSurrogatesAreTextAndMayStandInValues) {
  const auto tree = THTMLText::ParseHTML(u"<A x=\"\xD800\">\xDC00</A>"sv);
  EXPECT_EQ(tree.Root().Params()[0].ParamValue, u"\xD800");
  EXPECT_EQ(tree.Root().Text(), u"\xDC00");
}

}  // namespace
}  // namespace orv
