// The HTML that formatted texts take: a tree builder, not a browser. No entities, no recovery, no unquoted attributes;
// docs/markup.md gives the subset exactly.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <span>
#include <string_view>

#include "formatted/Orv.StdCtrls.Markup.h"

namespace orv {

class THTMLText {
 public:
  enum class THTMLTagType : std::uint8_t {
    Undefined,
    Body,
    InnerText,
    DIV,
    Anchor,
    Style,
    Script,
    Span,
    Paragraph,
    Bold,
    Italic,
    Heading1,
    Heading2,
    Heading3,
    Heading4,
    Heading5,
    Heading6,
    Emphasis,
    Strong,
    Mark,
    Font,
    Deletion,
    LineBreak
  };

  // Views of the text that was parsed.
  struct THTMLTagParam {
    std::u16string_view ParamName;
    std::u16string_view ParamValue;
  };

  class THTMLTag;
  class THTMLTags;
  class THTMLTree;

  // The tree of a text. Raises EParseError with "Incomplete HTML Tag" for an opening tag with no ">", and with the
  // expected character for everything else that is not in the subset. Cost: linear in the text, however deep or broken;
  // no recursion. Any thread. Example: "a<B>b</B>" gives a Body of an InnerText "a" and a Bold that holds "b".
  // A temporary text is taken over by the tree; any other is borrowed and must outlive it unchanged. A pointer, such as
  // a literal, is zero-terminated and borrowed too.
  static THTMLTree ParseHTML(UnicodeString&& text);
  static THTMLTree ParseHTML(std::u16string_view text);
  static THTMLTree ParseHTML(const char16_t* text);

  // The text of the tree, without its tags. Raises as ParseHTML does. Example: "a<B>b</B>" gives "ab".
  static UnicodeString HTMLToText(std::u16string_view text);

 private:
  struct TNode;
  struct TTreeData;
  class TParser;
};

// One tag of a tree, borrowed from it: a small value that is valid as long as the THTMLTree lives.
class THTMLText::THTMLTag {
 public:
  // The tag texts by type, in the order in which they are tried: the first that begins a name decides it, so "BR" and
  // "BLINK" are both Bold.
  static constexpr std::array<std::u16string_view, 23> TagNames = {
      u"",   u"BODY", u"",   u"DIV", u"A",  u"STYLE", u"SCRIPT", u"SPAN", u"P",    u"B",   u"I", u"H1",
      u"H2", u"H3",   u"H4", u"H5",  u"H6", u"EM",    u"STRONG", u"MARK", u"FONT", u"DEL", u"BR"};

  THTMLTagType TagType() const;
  std::u16string_view TagName() const { return TagNames[static_cast<std::size_t>(TagType())]; }
  // Of an InnerText its text; empty for any other.
  std::u16string_view ImmediateText() const;
  std::span<const THTMLTagParam> Params() const;
  THTMLTags Children() const;
  // Of an InnerText its text; of any other tag, the texts of its children joined in order. Linear in the subtree.
  UnicodeString Text() const;

  friend bool operator==(const THTMLTag&, const THTMLTag&) = default;

 private:
  friend class THTMLTags;
  friend class THTMLTree;
  THTMLTag(const TTreeData* data, std::uint32_t index) : FData(data), FIndex(index) {}
  const TNode& Node() const;

  const TTreeData* FData;
  std::uint32_t FIndex;
};

// The children of a tag in document order.
class THTMLText::THTMLTags {
 public:
  class TIterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = THTMLTag;
    using difference_type = std::ptrdiff_t;
    using pointer = const THTMLTag*;
    using reference = const THTMLTag&;

    TIterator() : FTag(nullptr, 0) {}
    reference operator*() const { return FTag; }
    pointer operator->() const { return &FTag; }
    TIterator& operator++();
    TIterator operator++(int);
    friend bool operator==(const TIterator&, const TIterator&) = default;

   private:
    friend class THTMLTags;
    explicit TIterator(THTMLTag tag) : FTag(tag) {}
    THTMLTag FTag;
  };

  TIterator begin() const { return FBegin; }
  TIterator end() const { return FEnd; }
  bool empty() const { return FBegin == FEnd; }

 private:
  friend class THTMLTag;
  THTMLTags(THTMLTag first, THTMLTag end) : FBegin(first), FEnd(end) {}
  TIterator FBegin;
  TIterator FEnd;
};

// Owns the tags of a text, in flat arrays: freeing takes no stack however deep the tree is. Can be moved,
// which leaves the tags valid; the moved-from tree may only be destroyed or assigned to.
class THTMLText::THTMLTree {
 public:
  THTMLTree(THTMLTree&&) noexcept;
  THTMLTree& operator=(THTMLTree&&) noexcept;
  ~THTMLTree();

  // The one tag at the top, or a Body that holds them all when there are none or several.
  THTMLTag Root() const;

 private:
  friend class THTMLText;
  explicit THTMLTree(std::unique_ptr<TTreeData> data);
  std::unique_ptr<TTreeData> FData;
};

}  // namespace orv
