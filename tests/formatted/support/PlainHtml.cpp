#include "tests/formatted/support/PlainHtml.h"

#include <stdexcept>

namespace orv::plain {
namespace {

constexpr int Undefined = 0;
constexpr int Body = 1;
constexpr int InnerText = 2;

// The table as it is written down, not as the library holds it.
constexpr std::u16string_view Names[] = {u"",   u"BODY", u"",       u"DIV",  u"A",    u"STYLE", u"SCRIPT", u"SPAN",
                                         u"P",  u"B",    u"I",      u"H1",   u"H2",   u"H3",    u"H4",     u"H5",
                                         u"H6", u"EM",   u"STRONG", u"MARK", u"FONT", u"DEL",   u"BR"};

struct TRefused {};

bool Blank(char16_t c) {
  return c == u' ' || c == u'\t';
}
bool Letter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_';
}
bool Digit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

class TPlainParser {
 public:
  explicit TPlainParser(std::u16string_view text) : S(text) {}

  TPlainTag Parse() {
    std::vector<TPlainTag> children = Level();
    if (children.size() == 1) return children.front();
    return {Body, {}, {}, std::move(children)};
  }

 private:
  std::u16string_view S;
  std::size_t I = 0;

  bool Is(std::size_t i, char16_t c) const { return i < S.size() && S[i] == c; }
  void Need(std::size_t& i, char16_t c) const {
    if (!Is(i, c)) throw TRefused();
    ++i;
  }
  std::size_t TagEnd(std::size_t i) const {
    const std::size_t end = S.find(u'>', i);
    if (end == std::u16string_view::npos) throw TRefused();
    return end;
  }
  bool SelfClosed(std::size_t end) const {
    --end;
    while (Blank(S[end])) --end;
    return S[end] == u'/';
  }
  // Behind "</".
  void ClosingRest(std::size_t& i) const {
    if (i < S.size() && Letter(S[i]))
      while (i < S.size() && (Letter(S[i]) || Digit(S[i]))) ++i;
    while (i < S.size() && Blank(S[i])) ++i;
    Need(i, u'>');
  }

  std::size_t Count() const {
    std::size_t count = 0;
    std::size_t i = I;
    int depth = 0;
    while (i < S.size()) {
      if (S[i] != u'<') {
        if (depth == 0) ++count;
        i = std::min(S.find(u'<', i), S.size());
      }
      if (!Is(i, u'<')) break;
      ++i;
      if (!Is(i, u'/')) {
        const std::size_t end = TagEnd(i);
        if (depth == 0) ++count;
        if (!SelfClosed(end)) ++depth;
        i = end + 1;
      } else {
        if (--depth < 0) break;
        ++i;
        ClosingRest(i);
      }
    }
    return count;
  }

  std::vector<TPlainTag> Level() {
    const std::size_t count = Count();
    std::vector<TPlainTag> children;
    while (I < S.size()) {
      if (S[I] != u'<') {
        const std::size_t end = std::min(S.find(u'<', I), S.size());
        children.push_back({InnerText, std::u16string(S.substr(I, end - I)), {}, {}});
        I = end;
      }
      if (!Is(I, u'<') || Is(I + 1, u'/')) break;
      ++I;
      children.push_back(Tag());
    }
    if (children.size() != count) throw std::logic_error("a level is not filled exactly");
    return children;
  }

  TPlainTag Tag() {
    const std::size_t end = TagEnd(I);
    const bool closed = SelfClosed(end);
    const std::u16string_view inside = S.substr(I, end - I);
    TPlainTag tag;
    std::size_t nameLength = 0;
    for (int k = 0; k < 23 && tag.Type == Undefined; ++k) {
      if (Names[k].empty() || inside.substr(0, Names[k].size()) != Names[k]) continue;
      tag.Type = k;
      nameLength = Names[k].size();
    }
    tag.Params = Params(inside.substr(std::min(inside.find_first_of(u" \t\r\n/=\"", nameLength), inside.size())));
    I = end + 1;
    if (closed) return tag;
    tag.Children = Level();
    Need(I, u'<');
    Need(I, u'/');
    ClosingRest(I);
    return tag;
  }

  static std::size_t CountEquals(std::u16string_view s) {
    std::size_t count = 0;
    for (std::size_t i = s.find(u'='); i != std::u16string_view::npos; i = s.find(u'=', i), ++count) {
      ++i;
      while (i < s.size() && Blank(s[i])) ++i;
      if (i >= s.size() || s[i] != u'"') throw TRefused();
      i = s.find(u'"', i + 1);
      if (i == std::u16string_view::npos) throw TRefused();
    }
    return count;
  }

  static std::vector<std::pair<std::u16string, std::u16string>> Params(std::u16string_view s) {
    std::vector<std::pair<std::u16string, std::u16string>> params;
    std::size_t i = 0;
    for (std::size_t count = CountEquals(s); count > 0; --count) {
      while (i < s.size() && Blank(s[i])) ++i;
      const std::size_t name = i;
      if (i >= s.size() || !Letter(s[i])) throw TRefused();
      while (i < s.size() && (Letter(s[i]) || Digit(s[i]))) ++i;
      const std::u16string_view nameText = s.substr(name, i - name);
      if (i >= s.size() || s[i++] != u'=') throw TRefused();
      while (i < s.size() && Blank(s[i])) ++i;
      if (i >= s.size() || s[i++] != u'"') throw TRefused();
      const std::size_t end = s.find(u'"', i);
      if (end == std::u16string_view::npos) throw TRefused();
      params.emplace_back(nameText, s.substr(i, end - i));
      i = end + 1;
    }
    return params;
  }
};

}  // namespace

std::optional<TPlainTag> ParsePlainHtml(std::u16string_view text) {
  try {
    return TPlainParser(text).Parse();
  } catch (const TRefused&) {
    return std::nullopt;
  }
}

std::u16string TextOf(const TPlainTag& tag) {
  if (tag.Type == InnerText) return tag.Text;
  std::u16string text;
  for (const TPlainTag& child : tag.Children) text += TextOf(child);
  return text;
}

TPlainTag PlainOf(const THTMLText::THTMLTag& tag) {
  TPlainTag plain;
  plain.Type = static_cast<int>(tag.TagType());
  plain.Text = tag.ImmediateText();
  for (const auto& [name, value] : tag.Params()) plain.Params.emplace_back(name, value);
  for (const THTMLText::THTMLTag& child : tag.Children()) plain.Children.push_back(PlainOf(child));
  return plain;
}

}  // namespace orv::plain
