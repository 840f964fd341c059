#include "tests/formatted/support/PlainRtf.h"

#include <iconv.h>

#include <array>
#include <map>
#include <string>
#include <vector>

namespace orv::plain {
namespace {

using TData = TRTFText::TRTFData;
using TAttributes = TRTFText::TRTFAttributes;
using TStyle = TRTFText::TFontStyle;

struct TRefused {};

// One code unit with its attributes, or a cut between two (Unit < 0).
struct TEvent {
  int Unit;
  TAttributes Attributes;
};
constexpr int Cut = -1;
constexpr int NewParagraph = -2;

bool Known(std::uint32_t page) {
  return page == 874 || (page >= 1250 && page <= 1258);
}

// By the C library, not by the tables of the house.
char16_t UnitOf(std::uint32_t page, unsigned char byte) {
  static std::map<std::uint32_t, std::array<char16_t, 256>> pages;
  auto& units = pages[page];
  if (units['A'] == 0) {
    for (unsigned b = 0; b < 256; ++b) {
      const iconv_t converter = iconv_open("UTF-16LE", ("CP" + std::to_string(page)).c_str());
      char in = static_cast<char>(b);
      char out[8] = {};
      char* from = &in;
      char* to = out;
      std::size_t inLeft = 1, outLeft = sizeof(out);
      const bool good = iconv(converter, &from, &inLeft, &to, &outLeft) != static_cast<std::size_t>(-1);
      if (good) iconv(converter, nullptr, nullptr, &to, &outLeft);
      iconv_close(converter);
      const auto low = static_cast<unsigned char>(out[0]), high = static_cast<unsigned char>(out[1]);
      const unsigned unit = good ? static_cast<unsigned>(low) | (static_cast<unsigned>(high) << 8) : b;
      units[b] = static_cast<char16_t>(unit);
    }
  }
  return units[byte];
}

std::uint32_t PageOfLanguage(std::uint32_t id) {
  switch (id) {
    case 0x0429:
    case 0x0420:
    case 0x0492:
    case 0x0401:
    case 0x0801:
    case 0x0C01:
    case 0x1001:
    case 0x1401:
    case 0x1801:
    case 0x1C01:
    case 0x2001:
    case 0x2401:
    case 0x2801:
    case 0x2C01:
    case 0x3001:
    case 0x3401:
    case 0x3801:
    case 0x3C01:
    case 0x4001:
      return 1256;
    case 0x040D:
      return 1255;
    case 0x0409:
    case 0x0809:
    case 0x0407:
    case 0x040C:
    case 0x0410:
    case 0x0C0A:
      return 1252;
    case 0x0419:
      return 1251;
    case 0x041F:
      return 1254;
    case 0x0408:
      return 1253;
    case 0x0415:
    case 0x0405:
    case 0x040E:
      return 1250;
    default:
      return 0;
  }
}

class TPlainReader {
 public:
  explicit TPlainReader(std::u16string_view text) : S(text) {}

  TData Parse() {
    Need(u"{");
    Header();
    Now.LangID = Data.LangID;
    Now.AnsiToUnicodeLocaleKey = Data.OriginalCodePage != 0 ? Data.OriginalCodePage : PageOfLanguage(Data.LangID);
    Now.FontIndex = Data.DefaultFontIndex;
    Group(true);
    CutRanges();
    return Data;
  }

 private:
  std::u16string_view S;
  std::size_t I = 0;
  TData Data;
  TAttributes Now;
  std::vector<TEvent> Events;

  char16_t At(std::size_t i) const { return i < S.size() ? S[i] : u'\0'; }
  bool Here(std::u16string_view s) const { return S.substr(std::min(I, S.size()), s.size()) == s; }
  // A fixed text is not found when it ends the whole text.
  bool Word(std::u16string_view s) {
    if (!Here(s) || I + s.size() >= S.size()) return false;
    I += s.size();
    return true;
  }
  void Need(std::u16string_view s) {
    if (!Here(s)) throw TRefused();
    I += s.size();
  }
  static bool Digit(char16_t c) { return c >= u'0' && c <= u'9'; }
  static bool Letter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
  void Digits() {
    while (Digit(At(I))) ++I;
  }
  std::int32_t Number() {
    if (!Digit(At(I))) throw TRefused();
    double value = 0;
    for (; Digit(At(I)); ++I) value = value * 10 + (S[I] - u'0');
    if (value > 2147483647.0) throw TRefused();
    return static_cast<std::int32_t>(value);
  }
  void Blank() {
    if (At(I) == u' ') ++I;
  }
  void Breaks() {
    while (I < S.size() && (S[I] == u'\r' || S[I] == u'\n')) ++I;
  }

  void Header() {
    const auto end = [this] {
      Blank();
      Breaks();
    };
    if (Word(u"\\rtf1")) end();
    if (Word(u"\\fbidis")) end();
    if (Word(u"\\ansi\\ansicpg")) Data.OriginalCodePage = static_cast<std::uint32_t>(Number()), end();
    if (Word(u"\\deff")) Data.DefaultFontIndex = Number(), end();
    if (Word(u"\\nouicompat")) end();
    if (Word(u"\\deflang")) Data.Locale = Data.LangID = static_cast<std::uint32_t>(Number()), end();
    if (Word(u"{\\fonttbl")) end(), Fonts();
    if (Word(u"{\\colortbl")) end(), Colors();
    if (Word(u"\\viewkind")) Digits(), end();
    if (Word(u"\\uc")) Digits(), end();
  }

  void Fonts() {
    std::size_t count = 0;
    for (std::size_t i = I; At(i) != u'}' || i >= S.size(); ++count) {
      if (At(i) != u'{') throw TRefused();
      i = S.find(u'}', i);
      if (i == std::u16string_view::npos) throw TRefused();
      ++i;
      while (At(i) == u'\r' || At(i) == u'\n') ++i;
    }
    for (std::size_t k = 0; k < count; ++k) {
      Need(u"{");
      if (!Word(u"\\f")) throw TRefused();
      const std::string digits = std::to_string(k);
      if (!Word(std::u16string(digits.begin(), digits.end()))) throw TRefused();
      if (!Word(u"\\froman") && !Word(u"\\fswiss") && !Word(u"\\fnil")) throw TRefused();
      if (Word(u"\\fprq")) Digits();
      if (Word(u"\\fcharset")) Digits();
      Need(u" ");
      const std::size_t end = S.find(u';', I);
      if (end == std::u16string_view::npos) throw TRefused();
      Data.FontTable.emplace_back(S.substr(I, end - I));
      I = end + 1;
      Need(u"}");
      Breaks();
    }
    Need(u"}");
    Breaks();
  }

  void Colors() {
    const std::size_t close = S.find(u'}', I);
    if (close == std::u16string_view::npos) throw TRefused();
    while (S.substr(I, close - I).find(u';') != std::u16string_view::npos) {
      std::uint32_t color = 0xFF;
      for (const std::u16string_view name : {u"\\red", u"\\green", u"\\blue"}) {
        color <<= 8;
        if (!Word(name)) continue;
        const std::int32_t part = Number();
        if (part > 255) throw TRefused();
        color += static_cast<std::uint32_t>(part);
        Blank();
        Breaks();
      }
      Need(u";");
      Breaks();
      Data.ColorTable.push_back(color);
    }
    Need(u"}");
    Breaks();
  }

  // --- Body ---

  void Emit(char16_t unit) { Events.push_back({unit, Now}); }
  template <typename TChange>
  void Change(TChange change) {
    TAttributes next = Now;
    change(next);
    if (next == Now) return;
    Events.push_back({Cut, Now});
    Now = next;
  }

  // Behind the "{" of a group, up to and over its "}".
  void Group(bool outer) {
    const TAttributes saved = Now;
    for (;;) {
      if (I >= S.size()) throw TRefused();
      const char16_t c = S[I++];
      if (c == u'}') {
        if (!outer) Change([&](TAttributes& a) { a = saved; });
        return;
      }
      if (c == u'{' && Word(u"\\*")) {
        SkipGroup();
      } else if (c == u'{') {
        Group(false);
      } else if (c == u'\\') {
        Control();
      } else if (c == u'\r' && At(I) == u'\n') {
        ++I;
      } else {
        Emit(c);
      }
    }
  }

  void SkipGroup() {
    for (int depth = 1; depth > 0;) {
      if (I >= S.size()) throw TRefused();
      const char16_t c = S[I++];
      if (c == u'{') ++depth;
      if (c == u'}') --depth;
    }
  }

  static int Hex(char16_t c) {
    const std::u16string_view digits = u"0123456789abcdef";
    const char16_t lower = c >= u'A' && c <= u'F' ? static_cast<char16_t>(c + 32) : c;
    const std::size_t value = digits.find(lower);
    return c == 0 || value == std::u16string_view::npos ? -1 : static_cast<int>(value);
  }
  int HexNumber(std::size_t from, int count) const {
    int value = 0;
    for (int k = 0; k < count; ++k) {
      const int digit = Hex(At(from + static_cast<std::size_t>(k)));
      if (digit < 0) return -1;
      value = value * 16 + digit;
    }
    return value;
  }

  void Style(TStyle style, bool on) {
    Change([&](TAttributes& a) { on ? a.FontStyle.Include(style) : a.FontStyle.Exclude(style); });
    Blank();
  }

  // Behind a backslash.
  void Control() {
    const char16_t c = At(I);
    if (I < S.size() && (c == u'\\' || c == u'{' || c == u'}')) {
      ++I;
      return Emit(c);
    }
    if (c == u'\'') {
      const int byte = HexNumber(I + 1, 2);
      if (byte < 0) throw TRefused();
      I += 3;
      std::uint32_t page = Now.AnsiToUnicodeLocaleKey;
      if (!Known(page)) page = Known(Data.OriginalCodePage) ? Data.OriginalCodePage : 1252;
      return Emit(UnitOf(page, static_cast<unsigned char>(byte)));
    }
    if (c == u'u' && HexNumber(I + 1, 4) >= 0) {
      Emit(static_cast<char16_t>(HexNumber(I + 1, 4)));
      I += 5;
      if (At(I) == u'?') ++I;
      return;
    }
    if (Word(u"pard")) return ParagraphHeader();
    if (Word(u"b0")) return Style(TStyle::Bold, false);
    if (Word(u"b")) return Style(TStyle::Bold, true);
    if (Word(u"i0")) return Style(TStyle::Italic, false);
    if (Word(u"i")) return Style(TStyle::Italic, true);
    if (Word(u"ulnone")) return Style(TStyle::Underline, false);
    if (Word(u"ul")) return Style(TStyle::Underline, true);
    if (Shared(u"cf") || Shared(u"fs") || Shared(u"lang") || Shared(u"qr") || Shared(u"qc")) return;
    if (Word(u"fi")) {
      if (At(I) == u'-') ++I;
      Number();
      return Blank();
    }
    if (Shared(u"f")) return;
    if (Word(u"li")) {
      const std::int32_t indent = Number();
      Change([&](TAttributes& a) { a.ListIndent = indent; });
      return Blank();
    }
    if (Word(u"tab")) {
      Emit(u'\t');
      return Blank();
    }
    if (Word(u"par")) {
      Emit(u'\n');
      Emit(u'\r');
      Events.push_back({Cut, Now});
      Events.push_back({NewParagraph, Now});
      return Blank();
    }
    const std::size_t start = I;
    while (Letter(At(I))) ++I;
    const bool isWord = I > start;
    if (At(I) == u'-') ++I;
    Digits();
    if (isWord) Blank();
  }

  // The words that both a paragraph header and the body have.
  bool Shared(std::u16string_view name) {
    const std::size_t start = I;
    if (!Word(name)) return false;
    const char16_t last = name.back();
    if (name == u"f" || name == u"\\f") {
      if (!Digit(At(I))) {
        I = start;
        return false;
      }
      const std::int32_t font = Number();
      Change([&](TAttributes& a) { a.FontIndex = font; });
    } else if (last == u'f') {
      const std::int32_t color = Number();
      Change([&](TAttributes& a) { a.ColorIndex = color; });
    } else if (last == u's') {
      const std::int32_t size = Number() / 2;
      Change([&](TAttributes& a) { a.FontSize = size; });
    } else if (last == u'g') {
      const auto id = static_cast<std::uint32_t>(Number());
      Change([&](TAttributes& a) {
        a.LangID = id;
        a.AnsiToUnicodeLocaleKey = PageOfLanguage(id);
      });
    } else {
      const auto align = last == u'r' ? TRTFText::TTextAlign::Trailing : TRTFText::TTextAlign::Center;
      Change([&](TAttributes& a) { a.Align = align; });
    }
    Blank();
    return true;
  }

  void ParagraphHeader() {
    Blank();
    Events.push_back({Cut, Now});
    Events.push_back({NewParagraph, Now});
    for (;;) {
      if (Word(u"\\ltrpar")) {
        Change([](TAttributes& a) { a.RTL = false; });
        Blank();
      } else if (Word(u"\\rtlpar")) {
        Change([](TAttributes& a) { a.RTL = true; });
        Blank();
      } else if (Word(u"\\sa")) {
        Digits();
        Blank();
      } else if (Word(u"\\sl")) {
        if (!Digit(At(I))) Word(u"mult");
        Digits();
        Blank();
      } else if (Word(u"\\rtlch")) {
        Change([](TAttributes& a) { a.RTLCh = true; });
        Blank();
      } else if (!Shared(u"\\qr") && !Shared(u"\\qc") && !Shared(u"\\cf") && !Shared(u"\\f") && !Shared(u"\\fs") &&
                 !Shared(u"\\lang")) {
        return;
      }
    }
  }

  void CutRanges() {
    bool newParagraph = true, open = false;
    for (const TEvent& event : Events) {
      if (event.Unit == NewParagraph) newParagraph = true;
      if (event.Unit < 0) {
        open = false;
        continue;
      }
      if (!open) {
        TRTFText::TRTFTextRange range{event.Attributes, {}, newParagraph};
        range.Range.Pos = static_cast<std::int32_t>(Data.FText.size());
        Data.Ranges.push_back(range);
        newParagraph = false;
      }
      open = true;
      Data.FText += static_cast<char16_t>(event.Unit);
      ++Data.Ranges.back().Range.Length;
    }
  }
};

}  // namespace

std::optional<TData> ParsePlainRtf(std::u16string_view text) {
  try {
    return TPlainReader(text).Parse();
  } catch (const TRefused&) {
    return std::nullopt;
  }
}

bool Same(const TData& a, const TData& b) {
  return a.OriginalCodePage == b.OriginalCodePage && a.LangID == b.LangID && a.Locale == b.Locale &&
         a.DefaultFontIndex == b.DefaultFontIndex && a.FontTable == b.FontTable && a.ColorTable == b.ColorTable &&
         a.Ranges == b.Ranges && a.FText == b.FText;
}

}  // namespace orv::plain
