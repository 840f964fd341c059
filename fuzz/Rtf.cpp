// The RTF reader: equal to the plain rules, the same for bytes and for UTF-16, and its laws.
#include <optional>

#include "fuzz/Markup.h"
#include "rtl/Utf8.h"
#include "tests/formatted/support/PlainRtf.h"

namespace {

using namespace orv;

constexpr std::string_view Pieces[] = {"{\\rtf1",
                                       "{\\rtf1\\ansi\\ansicpg1256\\deff1\\deflang1065",
                                       "{\\fonttbl{\\f0\\fnil A;}{\\f1\\froman\\fprq2\\fcharset178 B;}}",
                                       "{\\colortbl ;\\red1\\green2\\blue3;}",
                                       "\\viewkind4\\uc1 ",
                                       "\\pard",
                                       "\\rtlpar",
                                       "\\ltrpar ",
                                       "\\sa200\\sl276\\slmult1",
                                       "\\qr",
                                       "\\qc ",
                                       "\\b ",
                                       "\\b0",
                                       "\\i",
                                       "\\ul ",
                                       "\\ulnone",
                                       "\\cf1",
                                       "\\fs24 ",
                                       "\\f1",
                                       "\\lang1065 ",
                                       "\\lang1037",
                                       "\\rtlch",
                                       "\\fi-5 ",
                                       "\\li7",
                                       "\\tab ",
                                       "\\par\r\n",
                                       "\\'d3",
                                       "\\u0641?",
                                       "{",
                                       "}",
                                       "{\\*\\x ",
                                       "\\\\",
                                       "\\}",
                                       "\\~",
                                       "\\xyz-12 ",
                                       "\xD8\xB3",
                                       "\xFF",
                                       "\r\n",
                                       "99999999999",
                                       "{\\f0\\fnil "};

// The plain rules call themselves for a group.
constexpr std::size_t LongestForPlainRules = 4000;

template <typename TText>
std::optional<TRTFText::TRTFData> Parsed(TText text) {
  try {
    return TRTFText::ParseRTF(text);
  } catch (const EParseError&) {
    return std::nullopt;
  }
}

bool IsPartition(const TRTFText::TRTFData& data) {
  std::int64_t place = 0;
  for (const auto& range : data.Ranges) {
    if (range.Range.Pos != place || range.Range.Length <= 0) return false;
    place += range.Range.Length;
  }
  return place == static_cast<std::int64_t>(data.FText.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes = fuzz::Document(data, size, Pieces);
  const std::u16string text = rtl::FromUtf8(bytes);
  const auto document = Parsed(std::string_view(bytes));
  const auto wide = Parsed(std::u16string_view(text));
  fuzz::Require(document.has_value() == wide.has_value(), "bytes and units differ in being read", bytes);
  if (document) {
    fuzz::Require(plain::Same(*document, *wide), "bytes and units differ", bytes);
    fuzz::Require(IsPartition(*document), "the ranges do not partition the text", bytes);
    fuzz::Require(document->FText.size() <= bytes.size(), "more text than there was", bytes);
    fuzz::Require(document->Text() == TRTFText::RTFToText(std::string_view(bytes)), "two texts", bytes);
  }
  if (text.size() <= LongestForPlainRules) {
    const auto plain = plain::ParsePlainRtf(text);
    fuzz::Require(plain.has_value() == wide.has_value(), "read by one and refused by the other", bytes);
    fuzz::Require(!plain || plain::Same(*plain, *wide), "not as the rules", bytes);
  }
  return 0;
}
