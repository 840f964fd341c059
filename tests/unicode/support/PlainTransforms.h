// The presentation transforms by their rules alone, step by step over a plain list, with the joining table as text: the
// oracle for the library's.
#pragma once

#include <cstdint>
#include <vector>

namespace orv::plain {

using TCodePoints = std::vector<std::uint32_t>;

// The settings in force decide on digits and on tatweel and joiner.
TCodePoints ChangedToArabicDigits(TCodePoints list);
TCodePoints Shaped(TCodePoints list);
TCodePoints WithPrimes(TCodePoints list);

}  // namespace orv::plain
