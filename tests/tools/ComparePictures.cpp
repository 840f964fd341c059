// Tells two pictures apart: ComparePictures [--exact] GOLDEN PICTURE. Status 0 where they are of one size and look the
// same; small differences in the grey of edges, as between versions of a font library, are let pass unless --exact.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

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

bool LookTheSame(const orv::platform::TFrame& a, const orv::platform::TFrame& b, bool exact) {
  if (a.Width != b.Width || a.Height != b.Height) {
    std::printf("%d x %d pixels against %d x %d\n", a.Width, a.Height, b.Width, b.Height);
    return false;
  }
  std::size_t differing = 0;
  for (std::size_t i = 0; i < a.Pixels.size(); ++i)
    if (Difference(a.Pixels[i], b.Pixels[i]) > (exact ? 0 : EdgeDifference)) ++differing;
  if (differing > 0) std::printf("%zu of %zu pixels differ\n", differing, a.Pixels.size());
  return exact ? differing == 0 : differing * 10000 <= a.Pixels.size() * PixelsPerTenThousand;
}

}  // namespace

int main(int argc, char** argv) {
  const bool exact = argc == 4 && std::string_view(argv[1]) == "--exact";
  if (argc != 3 && !exact) {
    std::fputs("usage: ComparePictures [--exact] GOLDEN PICTURE\n", stderr);
    return 2;
  }
  try {
    return LookTheSame(orv::platform::ReadPng(argv[argc - 2]), orv::platform::ReadPng(argv[argc - 1]), exact) ? 0 : 1;
  } catch (const orv::platform::EPictureError& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
  }
}
