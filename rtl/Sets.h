// A set of enumeration values in one word.
//
// Example: TSet<TColour, std::uint8_t>{TColour::Red} + TSet<TColour, std::uint8_t>{TColour::Blue} holds both;
// (a - b).IsEmpty() tells whether b holds all of a. Sets of different enumerations do not mix.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <type_traits>

namespace rtl {

// E is an enumeration whose values are bit numbers below the width of Rep. A value type; all operations are constexpr.
// A value outside that width, which only a cast can make, is in no set: including it changes nothing.
template <typename E, typename Rep>
class TSet {
  static_assert(std::is_enum_v<E> && std::is_unsigned_v<Rep>);

 public:
  constexpr TSet() = default;
  constexpr TSet(std::initializer_list<E> members) {
    for (const E member : members) Include(member);
  }

  // The set whose word is bits; bits without a named value are kept, and compare like the others.
  static constexpr TSet FromBits(Rep bits) {
    TSet set;
    set.FBits = bits;
    return set;
  }

  // All from the first to the last, both included.
  static constexpr TSet Range(E first, E last) {
    TSet set;
    for (auto bit = static_cast<std::uint64_t>(first); bit <= static_cast<std::uint64_t>(last); ++bit)
      set.Include(static_cast<E>(bit));
    return set;
  }

  constexpr Rep Bits() const { return FBits; }
  constexpr bool IsEmpty() const { return FBits == 0; }
  constexpr bool Contains(E member) const { return (FBits & Bit(member)) != 0; }

  constexpr void Include(E member) { FBits = static_cast<Rep>(FBits | Bit(member)); }
  constexpr void Exclude(E member) { FBits = static_cast<Rep>(FBits & ~Bit(member)); }

  // Union, intersection and difference.
  friend constexpr TSet operator+(TSet a, TSet b) { return FromBits(static_cast<Rep>(a.FBits | b.FBits)); }
  friend constexpr TSet operator*(TSet a, TSet b) { return FromBits(static_cast<Rep>(a.FBits & b.FBits)); }
  friend constexpr TSet operator-(TSet a, TSet b) { return FromBits(static_cast<Rep>(a.FBits & ~b.FBits)); }
  friend constexpr bool operator==(TSet, TSet) = default;

 private:
  static constexpr Rep Bit(E member) {
    constexpr std::uint64_t width = std::numeric_limits<Rep>::digits;
    const auto number = static_cast<std::uint64_t>(member);
    return number < width ? static_cast<Rep>(Rep{1} << number) : Rep{0};
  }

  Rep FBits = 0;
};

}  // namespace rtl
