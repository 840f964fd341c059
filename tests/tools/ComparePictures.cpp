// Tells two pictures apart: ComparePictures GOLDEN PICTURE. Status 0 where they are of one size and look the same;
// small differences in the grey of edges, as between versions of a font library, are let pass.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "platform/Exceptions.h"
#include "platform/Png.h"

namespace {

// Differences of a colour channel up to this are edges drawn a little otherwise.
constexpr int EdgeDifference = 40;
// As many pixels in ten thousand may differ more. A letter of the smallest page has some thirty.
constexpr std::size_t PixelsPerTenThousand = 1;

int Difference(std::uint32_t a, std::uint32_t b) {
  int most = 0;
  for (const int shift : {24, 16, 8, 0}) {
    const int one = static_cast<int>((a >> shift) & 0xFF);
    const int other = static_cast<int>((b >> shift) & 0xFF);
    most = std::max(most, std::abs(one - other));
  }
  return most;
}

bool LookTheSame(const orv::platform::TFrame& a, const orv::platform::TFrame& b) {
  if (a.Width != b.Width || a.Height != b.Height) {
    std::printf("%d x %d pixels against %d x %d\n", a.Width, a.Height, b.Width, b.Height);
    return false;
  }
  std::size_t differing = 0;
  for (std::size_t i = 0; i < a.Pixels.size(); ++i)
    if (Difference(a.Pixels[i], b.Pixels[i]) > EdgeDifference) ++differing;
  if (differing > 0) std::printf("%zu of %zu pixels differ\n", differing, a.Pixels.size());
  return differing * 10000 <= a.Pixels.size() * PixelsPerTenThousand;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: ComparePictures GOLDEN PICTURE\n", stderr);
    return 2;
  }
  try {
    return LookTheSame(orv::platform::ReadPng(argv[1]), orv::platform::ReadPng(argv[2])) ? 0 : 1;
  } catch (const orv::platform::EPictureError& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
  }
}
