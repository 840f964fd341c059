// Private to the markup readers: fixed tables of names, found by what a text begins with.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orv::markup {

// A table of ASCII names, each with what it stands for (entries have a Name). Its order decides where several names
// begin a text, so a name hides every longer one behind it that begins with it. The names of one first letter are
// linked, so that looking one up tries no others. An empty name is never found.
template <typename TEntry, std::size_t Count>
class TNameTable {
 public:
  constexpr explicit TNameTable(const std::array<TEntry, Count>& entries) : FEntries(entries) {
    FFirst.fill(None);
    for (std::size_t i = Count; i-- > 0;) {
      if (entries[i].Name.empty()) continue;
      FNext[i] = FFirst[entries[i].Name.front()];
      FFirst[entries[i].Name.front()] = static_cast<std::uint8_t>(i);
    }
  }

  // The first entry whose name the text begins with; null when there is none. Borrowed from the table.
  template <typename TUnit>
  constexpr const TEntry* Find(std::basic_string_view<TUnit> text) const {
    // A byte above ASCII becomes a unit far above the letters.
    const auto letter = text.empty() ? char16_t{0} : static_cast<char16_t>(text.front());
    std::size_t i = letter < FFirst.size() ? FFirst[letter] : None;
    while (i != None && !Begins(FEntries[i].Name, text)) i = FNext[i];
    return i == None ? nullptr : &FEntries[i];
  }

 private:
  static constexpr std::uint8_t None = Count;
  static_assert(Count < 256);

  // The first letters are equal already.
  template <typename TUnit>
  static constexpr bool Begins(std::u16string_view name, std::basic_string_view<TUnit> text) {
    if (name.size() > text.size()) return false;
    for (std::size_t i = 1; i < name.size(); ++i)
      if (static_cast<char16_t>(text[i]) != name[i]) return false;
    return true;
  }

  std::array<TEntry, Count> FEntries;
  std::array<std::uint8_t, 128> FFirst{};
  std::array<std::uint8_t, Count> FNext{};
};

}  // namespace orv::markup
