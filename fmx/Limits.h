// Every limit and tolerance of the framework, with its reason.
#pragma once

#include <cstddef>
#include <cstdint>

namespace fmx {

// A bitmap or surface has at most so many pixels on a side (a coordinate fits 16 bits with a sign) and in all (a
// quarter of a gigabyte).
inline constexpr std::int32_t MaxBitmapSide = 32767;
inline constexpr std::int64_t MaxBitmapPixels = std::int64_t{1} << 26;

// Sizes of type beyond this make single glyph pictures of tens of megabytes. A font keeps its size between 0 and this.
inline constexpr float MaxFontSize = 2048;

// Nested saved states of one canvas; deeper ones are not kept, so that a painter that forgets to restore cannot eat
// the memory.
inline constexpr std::size_t MaxSavedStates = 4096;

// Two scales, or two sizes of a layout's box, nearer than this are the same.
inline constexpr float ScaleTolerance = 1e-4F;

// A point so near the edge of a box counts as inside it.
inline constexpr float HitTolerance = 0.01F;

// A fraction smaller than this counts as none when coordinates are aligned to pixels.
inline constexpr float PixelTolerance = 1e-3F;

// Width and height of the unlimited layout box: large enough for any text, small enough that float sums stay finite.
inline constexpr float MaxLayoutSide = 1e7F;

}  // namespace fmx
