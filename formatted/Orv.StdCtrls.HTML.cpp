#include "formatted/Orv.StdCtrls.HTML.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include "formatted/Orv.StdCtrls.Names.h"
#include "rtl/TextSearch.h"

namespace orv {

using TTagType = THTMLText::THTMLTagType;

// --- The tree ---

// Tags stand in document order, each before its children, so a subtree is a stretch of the array.
struct THTMLText::TNode {
  std::uint32_t End;    // index behind the last tag of the subtree
  std::uint32_t First;  // InnerText: offset of its text; any other: index of its first attribute
  std::uint32_t Count;  // InnerText: length of its text; any other: number of its attributes
  THTMLTagType Type;
};

struct THTMLText::TTreeData {
  UnicodeString Own;         // the text, where it was taken over
  std::u16string_view Text;  // the text in any case
  std::vector<TNode> Nodes;  // the first is an imaginary root
  std::vector<THTMLTagParam> Params;

  std::u16string_view TextOf(const TNode& node) const { return Text.substr(node.First, node.Count); }
};

const THTMLText::TNode& THTMLText::THTMLTag::Node() const {
  return FData->Nodes[FIndex];
}

TTagType THTMLText::THTMLTag::TagType() const {
  return Node().Type;
}

std::u16string_view THTMLText::THTMLTag::ImmediateText() const {
  return TagType() == TTagType::InnerText ? FData->TextOf(Node()) : std::u16string_view();
}

std::span<const THTMLText::THTMLTagParam> THTMLText::THTMLTag::Params() const {
  if (TagType() == TTagType::InnerText) return {};
  return std::span(FData->Params).subspan(Node().First, Node().Count);
}

THTMLText::THTMLTags THTMLText::THTMLTag::Children() const {
  return {THTMLTag(FData, FIndex + 1), THTMLTag(FData, Node().End)};
}

namespace {

// Copies count units of source, from that offset on, to the start of target. Most pieces are short. Where both sides
// have room, a block of fixed size is copied instead, which costs less than a copy of any length; what comes behind the
// piece in target is then overwritten by the next one.
void CopyPiece(std::span<char16_t> target, std::u16string_view source, std::size_t offset, std::size_t count) {
  constexpr std::size_t Block = 16;
  if (count <= Block && target.size() >= Block && source.size() - offset >= Block)
    std::memcpy(target.data(), source.data() + offset, Block * sizeof(char16_t));
  else
    std::copy_n(source.data() + offset, count, target.data());
}

}  // namespace

UnicodeString THTMLText::THTMLTag::Text() const {
  const auto subtree = std::span(FData->Nodes).subspan(FIndex, Node().End - FIndex);
  std::size_t length = 0;
  for (const TNode& node : subtree)
    if (node.Type == TTagType::InnerText) length += node.Count;
  UnicodeString text(length, u'\0');
  std::size_t place = 0;
  for (const TNode& node : subtree) {
    if (node.Type != TTagType::InnerText) continue;
    CopyPiece(std::span(text).subspan(place), FData->Text, node.First, node.Count);
    place += node.Count;
  }
  return text;
}

THTMLText::THTMLTags::TIterator& THTMLText::THTMLTags::TIterator::operator++() {
  FTag.FIndex = FTag.Node().End;
  return *this;
}

THTMLText::THTMLTags::TIterator THTMLText::THTMLTags::TIterator::operator++(int) {
  const TIterator former = *this;
  ++*this;
  return former;
}

THTMLText::THTMLTree::THTMLTree(std::unique_ptr<TTreeData> data) : FData(std::move(data)) {}
THTMLText::THTMLTree::THTMLTree(THTMLTree&&) noexcept = default;
THTMLText::THTMLTree& THTMLText::THTMLTree::operator=(THTMLTree&&) noexcept = default;
THTMLText::THTMLTree::~THTMLTree() = default;

THTMLText::THTMLTag THTMLText::THTMLTree::Root() const {
  const auto& nodes = FData->Nodes;
  const bool single = nodes.size() > 1 && nodes[1].End == nodes.size();
  return {FData.get(), single ? 1U : 0U};
}

// --- The parser ---

namespace {

struct TTagName {
  std::u16string_view Name;
  TTagType Type;
};

constexpr std::size_t TagCount = THTMLText::THTMLTag::TagNames.size();

constexpr markup::TNameTable<TTagName, TagCount> TagTypes([] {
  std::array<TTagName, TagCount> names{};
  for (std::size_t i = 0; i < TagCount; ++i) names[i] = {THTMLText::THTMLTag::TagNames[i], static_cast<TTagType>(i)};
  return names;
}());

}  // namespace

// One pass over the text with a stack of the open tags. Every character belongs to one tag or one stretch of text, so
// the pass is linear, and depth costs four bytes a level.
class THTMLText::TParser {
 public:
  explicit TParser(TTreeData& data) : FData(data), FReader(data.Text) {}

  void Parse() {
    // Offsets and indices are kept in 32 bits.
    if (FData.Text.size() >= std::numeric_limits<std::uint32_t>::max()) throw EParseError(SIncompleteHTMLTag);
    Reserve();
    Open(TTagType::Body, 0, 0);
    while (!FReader.Eof()) {
      if (!FReader.ReadToken(u'<')) {
        AddInnerText(FReader.TakeTill(u'<'));
      } else if (!FReader.ReadTokenStill(u'/')) {
        ReadOpeningTag();
      } else if (AtTop()) {
        break;  // it closes nothing: the rest of the text is dropped
      } else {
        ReadClosingTag();
      }
    }
    if (!AtTop()) FReader.CheckToken(u'/');
    Close();
  }

 private:
  // Every tag begins with a "<" and has at most one text before it; every attribute has two quotes. Room is made once
  // for as many, but for no more than likely, so that a hostile text claims no memory that it does not fill.
  void Reserve() {
    const std::size_t tags = CountOf(FData.Text, u'<');
    const std::size_t quotes = CountOf(FData.Text, u'"');
    const std::size_t likely = FData.Text.size() / 8;
    FData.Nodes.reserve(std::min(2 * tags, likely) + 2);
    FData.Params.reserve(std::min(quotes / 2, likely));
  }

  // Counted in words of 16 bits, block by block, so that the compiler makes it a vector loop over whole vectors.
  static std::size_t CountOf(std::u16string_view text, char16_t unit) {
    constexpr std::size_t Block = 0x8000;
    std::size_t count = 0;
    for (; !text.empty(); text.remove_prefix(std::min(Block, text.size()))) {
      std::uint16_t here = 0;
      for (const char16_t c : text.substr(0, Block)) here = static_cast<std::uint16_t>(here + (c == unit ? 1 : 0));
      count += here;
    }
    return count;
  }

  bool AtTop() const { return FOpen.size() == 1; }
  std::uint32_t NextIndex() const { return static_cast<std::uint32_t>(FData.Nodes.size()); }

  void Open(TTagType type, std::size_t firstParam, std::size_t paramCount) {
    FOpen.push_back(NextIndex());
    Append(type, firstParam, paramCount);
  }

  void Close() {
    FData.Nodes[FOpen.back()].End = NextIndex();
    FOpen.pop_back();
  }

  void Append(TTagType type, std::size_t first, std::size_t count) {
    FData.Nodes.push_back(
        {NextIndex() + 1, static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(count), type});
  }

  void AddInnerText(std::u16string_view text) {
    Append(TTagType::InnerText, static_cast<std::size_t>(text.data() - FData.Text.data()), text.size());
  }

  void ReadOpeningTag() {
    const std::ptrdiff_t start = FReader.SavePosition();
    if (!FReader.FindChar(u'>', false)) throw EParseError(SIncompleteHTMLTag);
    const std::ptrdiff_t tagEnd = FReader.SavePosition();
    const bool closesItself = ClosesItself(tagEnd);
    FReader.RestorePosition(start);

    const std::ptrdiff_t limit = FReader.SetEnd(tagEnd);
    const TTagType type = ReadTagName();
    const std::size_t firstParam = FData.Params.size();
    ReadParams();
    FReader.SetEnd(limit);
    FReader.RestorePosition(tagEnd);
    FReader.CheckToken(u'>');

    Open(type, firstParam, FData.Params.size() - firstParam);
    if (closesItself) Close();
  }

  // Whether the last character before the ">" that is no blank is a "/".
  bool ClosesItself(std::ptrdiff_t tagEnd) const {
    auto i = static_cast<std::size_t>(tagEnd) - 1;
    while (IsBlank(FData.Text[i])) --i;  // the "<" ends it at the latest
    return FData.Text[i] == u'/';
  }

  // A name may go on behind the part that decides it; the attributes begin where it ends.
  TTagType ReadTagName() {
    const TTagName* name = TagTypes.Find(FReader.Rest());
    FReader.SkipWhile([](char16_t c) { return !IsBlank(c) && !IsLineBreak(c) && c != u'/' && c != u'=' && c != u'"'; });
    return name != nullptr ? name->Type : TTagType::Undefined;
  }

  // An attribute for every "=" up to the limit that no quoted value holds. What stands behind the last is not looked
  // at.
  void ReadParams() {
    while (HasEqualsSign()) {
      FReader.SkipSpaces(false);
      const auto name = FReader.TakeIdent();
      FReader.CheckToken(u'=');
      FReader.SkipSpaces(false);
      FData.Params.push_back({name, FReader.TakeQuoted()});
    }
  }

  bool HasEqualsSign() const {
    const auto rest = FReader.Rest();
    return rtl::FindUnit(rest, u'=') < rest.size();
  }

  // The name is not compared with that of the tag it closes.
  void ReadClosingTag() {
    FReader.CheckToken(u'/');
    FReader.ReadIdentStretch();
    FReader.SkipSpaces(false);
    FReader.CheckToken(u'>');
    Close();
  }

  TTreeData& FData;
  TMarkupText::TMarkupTextReaderUnicode FReader;
  std::vector<std::uint32_t> FOpen;
};

THTMLText::THTMLTree THTMLText::ParseHTML(UnicodeString&& text) {
  auto data = std::make_unique<TTreeData>();
  data->Own = std::move(text);
  data->Text = data->Own;
  TParser(*data).Parse();
  return THTMLTree(std::move(data));
}

THTMLText::THTMLTree THTMLText::ParseHTML(std::u16string_view text) {
  auto data = std::make_unique<TTreeData>();
  data->Text = text;
  TParser(*data).Parse();
  return THTMLTree(std::move(data));
}

THTMLText::THTMLTree THTMLText::ParseHTML(const char16_t* text) {
  return ParseHTML(std::u16string_view(text));
}

UnicodeString THTMLText::HTMLToText(std::u16string_view text) {
  return ParseHTML(text).Root().Text();
}

}  // namespace orv
