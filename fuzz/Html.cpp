// The HTML reader: equal to the plain rules, and its own forms equal to each other.
#include <optional>

#include "fuzz/Markup.h"
#include "rtl/Utf8.h"
#include "tests/formatted/support/PlainHtml.h"

namespace {

using namespace orv;

constexpr std::string_view Pieces[] = {"<P>",
                                       "</P>",
                                       "<B>",
                                       "</B>",
                                       "</>",
                                       "<BR/>",
                                       "<A HREF=\"x\">",
                                       "<H1 / >",
                                       "<",
                                       "</",
                                       "/>",
                                       "=\"",
                                       "\"",
                                       " x=\"1\"",
                                       "text",
                                       "\xD8\xB3",
                                       "<p>",
                                       "\r\n",
                                       "BODY",
                                       "=",
                                       "\xFF",
                                       "< ",
                                       "<SPAN\ty= \"\">",
                                       ">"};

// The plain rules count every level anew and call themselves for it.
constexpr std::size_t LongestForPlainRules = 2000;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes = fuzz::Document(data, size, Pieces);
  const std::u16string text = rtl::FromUtf8(bytes);
  std::optional<THTMLText::THTMLTree> tree;
  try {
    tree = THTMLText::ParseHTML(std::u16string_view(text));
  } catch (const EParseError&) {
  }
  if (text.size() <= LongestForPlainRules) {
    const auto plain = plain::ParsePlainHtml(text);
    fuzz::Require(plain.has_value() == tree.has_value(), "read by one and refused by the other", bytes);
    fuzz::Require(!plain || *plain == plain::PlainOf(tree->Root()), "not the tree of the rules", bytes);
  }
  if (tree) {
    const UnicodeString plainText = tree->Root().Text();
    fuzz::Require(plainText == THTMLText::HTMLToText(text), "two texts", bytes);
    fuzz::Require(plainText == THTMLText::ParseHTML(std::u16string(text)).Root().Text(), "two trees", bytes);
    fuzz::Require(plainText.size() <= text.size(), "more text than there was", bytes);
  }
  return 0;
}
