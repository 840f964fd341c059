#include "bench/support/MarkupTexts.h"

#include <map>

#include "rtl/CodePages.h"
#include "rtl/Utf8.h"

namespace orv::bench {

namespace {

// Tells at each blank whether the word behind it begins or ends a marked stretch of one word.
class TMarker {
 public:
  explicit TMarker(TDensity density) : FEvery(density == TDensity::Sparse ? 12 : 2) {}
  bool Begins() { return ++FWords % FEvery == 0; }
  bool IsSecondKind() const { return FWords / FEvery % 2 != 0; }

 private:
  int FEvery;
  int FWords = 0;
};

std::map<char16_t, int> BytesOf(std::uint32_t codePage) {
  std::map<char16_t, int> bytes;
  const rtl::TCodePage page = *rtl::FindCodePage(codePage);
  for (int byte = 0x80; byte < 0x100; ++byte) bytes.emplace(page[static_cast<std::uint8_t>(byte)], byte);
  return bytes;
}

std::string Hex(unsigned value, int digits) {
  static constexpr char Digits[] = "0123456789abcdef";
  std::string text(static_cast<std::size_t>(digits), '0');
  for (auto place = text.rbegin(); place != text.rend(); ++place, value >>= 4) *place = Digits[value & 15];
  return text;
}

void AppendRtf(std::string& out, std::u16string_view paragraph, const std::map<char16_t, int>& bytes,
               TDensity density) {
  TMarker marker(density);
  bool bold = false;
  for (const char16_t c : paragraph) {
    if (c == u' ') {
      out += bold ? "\\b0  " : " ";
      bold = marker.Begins();
      if (bold) out += "\\b ";
    } else if (c == u'\\' || c == u'{' || c == u'}') {
      out += '\\';
      out += static_cast<char>(c);
    } else if (c < 0x80) {
      out += static_cast<char>(c);
    } else if (const auto found = bytes.find(c); found != bytes.end()) {
      out += "\\'" + Hex(static_cast<unsigned>(found->second), 2);
    } else {
      out += "\\u" + Hex(c, 4) + "?";
    }
  }
  if (bold) out += "\\b0 ";
}

}  // namespace

std::string HtmlOf(const TCorpus& corpus, TDensity density) {
  TMarker marker(density);
  std::string html = "<BODY>\n";
  for (const std::u16string_view paragraph : corpus.Paragraphs()) {
    html += "<P CLASS=\"text\">";
    std::string_view open;
    for (const char c : rtl::ToUtf8(paragraph)) {
      if (c == '<' || c == '>' || c == '&') continue;
      if (c != ' ') {
        html += c;
        continue;
      }
      html += open;
      html += ' ';
      open = {};
      if (!marker.Begins()) continue;
      html += marker.IsSecondKind() ? "<A HREF=\"http://a.example/page\">" : "<B>";
      open = marker.IsSecondKind() ? "</A>" : "</B>";
    }
    html += open;
    html += "</P>\n";
  }
  return html + "</BODY>";
}

std::string RtfOf(const TCorpus& corpus, std::uint32_t codePage, TDensity density) {
  constexpr std::size_t LeastSize = 4'000'000;
  const std::map<char16_t, int> bytes = BytesOf(codePage);
  std::string rtf = "{\\rtf1\\fbidis\\ansi\\ansicpg" + std::to_string(codePage) +
                    "\\deff0\\nouicompat\\deflang1065{\\fonttbl{\\f0\\fnil\\fcharset178 Tahoma;}}\r\n"
                    "{\\colortbl ;\\red192\\green0\\blue0;}\r\n\\viewkind4\\uc1 \r\n";
  while (rtf.size() < LeastSize) {
    for (const std::u16string_view paragraph : corpus.Paragraphs()) {
      rtf += "\\pard\\rtlpar\\qr\\f0\\rtlch\\fs22 ";
      AppendRtf(rtf, paragraph, bytes, density);
      rtf += "\\par\r\n";
    }
  }
  return rtf + "}";
}

std::u16string WideOf(std::string_view utf8) {
  return rtl::FromUtf8(utf8);
}

}  // namespace orv::bench
