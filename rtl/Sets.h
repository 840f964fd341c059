// A set of enumeration values in one word.
#pragma once

#include <initializer_list>
#include <type_traits>

namespace rtl {

// E is an enumeration whose values are bit numbers below the width of Rep. A value type; all operations are constexpr.
template <typename E, typename Rep>
class TSet {
  static_assert(std::is_enum_v<E> && std::is_unsigned_v<Rep>);

 public:
  constexpr TSet() = default;
  constexpr TSet(std::initializer_list<E> members) {
    for (const E member : members) Include(member);
  }

  // The set whose word is bits; bits without a named value are kept.
  static constexpr TSet FromBits(Rep bits) {
    TSet set;
    set.FBits = bits;
    return set;
  }

  constexpr Rep Bits() const { return FBits; }
  constexpr bool IsEmpty() const { return FBits == 0; }
  constexpr bool Contains(E member) const { return (FBits & Bit(member)) != 0; }

  constexpr void Include(E member) { FBits = static_cast<Rep>(FBits | Bit(member)); }
  constexpr void Exclude(E member) { FBits = static_cast<Rep>(FBits & ~Bit(member)); }

  friend constexpr TSet operator+(TSet a, TSet b) { return FromBits(static_cast<Rep>(a.FBits | b.FBits)); }
  friend constexpr TSet operator*(TSet a, TSet b) { return FromBits(static_cast<Rep>(a.FBits & b.FBits)); }
  friend constexpr TSet operator-(TSet a, TSet b) { return FromBits(static_cast<Rep>(a.FBits & ~b.FBits)); }
  friend constexpr bool operator==(TSet, TSet) = default;

 private:
  static constexpr Rep Bit(E member) { return static_cast<Rep>(Rep{1} << static_cast<unsigned>(member)); }

  Rep FBits = 0;
};

}  // namespace rtl
