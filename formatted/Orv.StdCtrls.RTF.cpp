#include "formatted/Orv.StdCtrls.RTF.h"

#include <limits>

#include "formatted/Orv.StdCtrls.RTF.Parts.h"
#include "rtl/CodePages.h"

namespace orv {
namespace {

template <typename TUnit>
TRTFText::TRTFData Parse(TMarkupTextReader<TUnit>& reader) {
  reader.SetDirection(TMarkupText::TDirection::Forward);
  // Positions are kept in 32 bits, and no document makes more text than it has units.
  constexpr std::size_t Longest = std::numeric_limits<std::int32_t>::max();
  if (reader.Rest().size() > Longest) throw EParseError(SBadRTFFormat);
  reader.CheckToken(u'{');
  TRTFText::TRTFData data;
  rtf::ReadHeader(reader, data);
  rtf::ReadBody(reader, data);
  return data;
}

}  // namespace

void TRTFText::TRTFAttributes::SetLangID(std::uint32_t languageId) {
  LangID = languageId;
  AnsiToUnicodeLocaleKey = rtl::LanguageCodePage(languageId);
}

UnicodeString TRTFText::TRTFData::Text() const& {
  std::size_t length = 0;
  for (const TRTFTextRange& range : Ranges) length += static_cast<std::size_t>(range.Range.Length);
  UnicodeString text;
  text.reserve(length);
  for (const TRTFTextRange& range : Ranges)
    text.append(FText, static_cast<std::size_t>(range.Range.Pos), static_cast<std::size_t>(range.Range.Length));
  return text;
}

UnicodeString TRTFText::TRTFData::Text() && {
  std::int64_t covered = 0;
  for (const TRTFTextRange& range : Ranges) {
    if (range.Range.Pos != covered) return std::as_const(*this).Text();
    covered += range.Range.Length;
  }
  const bool whole = covered == static_cast<std::int64_t>(FText.size());
  return whole ? std::move(FText) : std::as_const(*this).Text();
}

TRTFText::TRTFData TRTFText::ParseRTF(TMarkupText::TMarkupTextReaderUnicode& reader) {
  return Parse(reader);
}

TRTFText::TRTFData TRTFText::ParseRTF(TMarkupText::TMarkupTextReaderUTF8& reader) {
  return Parse(reader);
}

TRTFText::TRTFData TRTFText::ParseRTF(std::u16string_view text) {
  TMarkupText::TMarkupTextReaderUnicode reader(text);
  return Parse(reader);
}

TRTFText::TRTFData TRTFText::ParseRTF(std::string_view bytes) {
  TMarkupText::TMarkupTextReaderUTF8 reader(bytes);
  return Parse(reader);
}

}  // namespace orv
