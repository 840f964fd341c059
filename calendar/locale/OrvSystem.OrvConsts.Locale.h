// The table of languages: for each primary Windows language its code, and its locales with their language identifiers
// and ANSI code pages.
//
// A language identifier is 16 bits: the primary language in the low ten, the region or script variant above.
// Source: the published list of Windows language identifiers and the ANSI code page of each locale. All of it is
// constant data with static storage, callable from any thread.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace orv {

// One locale.
struct TOrvLCIDRec {
  std::string_view LocaleName;  // UTF-8, for example "fa-IR"
  std::uint16_t LCID;
  std::uint16_t CodePage;  // 0 where the locale has no ANSI code page
};
using TLCIDRecs = std::span<const TOrvLCIDRec>;

// One primary language.
struct TOrvLangGroup {
  std::string_view LangCode;  // UTF-8, for example "fa"; empty for a number without a language of its own
  std::uint8_t LCID;          // the primary language number, which is the row's number
  TLCIDRecs List;

  constexpr std::uint16_t ListSize() const { return static_cast<std::uint16_t>(List.size()); }
};

inline constexpr unsigned LangGroupCount = 146;

// The rows 1 to 146 in order; row N stands at index N - 1. Row 2 carries the Arabic list: readers of the table that
// look for a Bulgarian locale use LCIDLists instead.
std::span<const TOrvLangGroup, LangGroupCount> LCGroups();

// The list of every language once, in the order of the languages' English names.
std::span<const TLCIDRecs> LCIDLists();

}  // namespace orv
