// A picture in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orv::platform {

// 32-bit pixels, 0xAARRGGBB, not premultiplied; rows from the top, without padding. A value type.
struct TFrame {
  TFrame() = default;
  // A size below 1 in either way makes an empty frame.
  TFrame(int width, int height, std::uint32_t fill = 0) {
    if (width < 1 || height < 1) return;
    Width = width;
    Height = height;
    Pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), fill);
  }

  bool IsEmpty() const { return Pixels.empty(); }

  // The row at y, which must be at least 0 and below Height.
  std::span<std::uint32_t> Row(int y) { return {Pixels.data() + Offset(y), static_cast<std::size_t>(Width)}; }
  std::span<const std::uint32_t> Row(int y) const {
    return {Pixels.data() + Offset(y), static_cast<std::size_t>(Width)};
  }

  int Width = 0;
  int Height = 0;
  std::vector<std::uint32_t> Pixels;

 private:
  std::size_t Offset(int y) const { return static_cast<std::size_t>(y) * static_cast<std::size_t>(Width); }
};

}  // namespace orv::platform
