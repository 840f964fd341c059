#include "platform/Png.h"

#include <fcntl.h>
#include <png.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

#include "platform/Exceptions.h"

namespace orv::platform {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void FailWriting(const fs::path& path, const std::string& why) {
  throw EPictureError("cannot write " + path.string() + ": " + why);
}

std::string ErrnoText() {
  return std::generic_category().message(errno);
}

// The file under its temporary name: removed again unless it was put into its place.
class TDraft {
 public:
  explicit TDraft(const fs::path& target) : FTarget(target) {
    std::string name(1, '.');
    name.append(target.filename().string()).append(".").append(std::to_string(::getpid())).append(".part");
    FPath = target.parent_path() / name;
    const int handle = ::open(FPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0666);
    if (handle < 0) FailWriting(FTarget, ErrnoText());
    FFile = ::fdopen(handle, "wb");
    if (FFile != nullptr) return;
    const std::string why = ErrnoText();
    ::close(handle);
    ::unlink(FPath.c_str());
    FailWriting(FTarget, why);
  }
  ~TDraft() {
    if (FFile != nullptr) std::fclose(FFile);
    if (!FPlaced) ::unlink(FPath.c_str());
  }
  TDraft(const TDraft&) = delete;
  TDraft& operator=(const TDraft&) = delete;

  std::FILE* File() { return FFile; }

  void Place() {
    if (std::fclose(std::exchange(FFile, nullptr)) != 0) FailWriting(FTarget, ErrnoText());
    if (std::rename(FPath.c_str(), FTarget.c_str()) != 0) FailWriting(FTarget, ErrnoText());
    FPlaced = true;
  }

 private:
  fs::path FTarget;
  fs::path FPath;
  std::FILE* FFile = nullptr;
  bool FPlaced = false;
};

// The file that a rename may replace: a link is followed, and only a regular file may stand there already.
fs::path Destination(const fs::path& path) {
  std::error_code error;
  if (path.filename().empty()) FailWriting(path, "it names no file");
  if (!fs::exists(path, error)) return path;
  if (!fs::is_regular_file(path, error)) FailWriting(path, "it is not a regular file");
  const fs::path real = fs::canonical(path, error);
  return error ? path : real;
}

// The bytes of a pixel in memory order: libpng reads a 32-bit pixel bytewise.
constexpr png_uint_32 PixelFormat = std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;

bool IsOpaque(const TFrame& frame) {
  return std::all_of(frame.Pixels.begin(), frame.Pixels.end(), [](std::uint32_t p) { return (p >> 24) == 0xFF; });
}

std::vector<std::uint8_t> RgbBytes(const TFrame& frame) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(frame.Pixels.size() * 3);
  for (const std::uint32_t pixel : frame.Pixels)
    for (const int shift : {16, 8, 0}) bytes.push_back(static_cast<std::uint8_t>((pixel >> shift) & 0xFF));
  return bytes;
}

// libpng's own record of one reading or writing.
class TImage {
 public:
  TImage() { FImage.version = PNG_IMAGE_VERSION; }
  ~TImage() { png_image_free(&FImage); }
  TImage(const TImage&) = delete;
  TImage& operator=(const TImage&) = delete;
  png_image* operator->() { return &FImage; }
  png_image* Get() { return &FImage; }

 private:
  png_image FImage = {};
};

}  // namespace

void WritePng(const fs::path& path, const TFrame& frame) {
  if (frame.IsEmpty()) FailWriting(path, "the picture is empty");
  if (frame.Width > MaxPictureSide || frame.Height > MaxPictureSide)
    FailWriting(path, "the picture is " + std::to_string(frame.Width) + " x " + std::to_string(frame.Height) +
                          " pixels, and " + std::to_string(MaxPictureSide) + " is the most on a side");
  TDraft draft(Destination(path));
  TImage image;
  image->width = static_cast<png_uint_32>(frame.Width);
  image->height = static_cast<png_uint_32>(frame.Height);
  const bool opaque = IsOpaque(frame);
  image->format = opaque ? PNG_FORMAT_RGB : PixelFormat;
  const std::vector<std::uint8_t> rgb = opaque ? RgbBytes(frame) : std::vector<std::uint8_t>();
  const void* pixels = opaque ? static_cast<const void*>(rgb.data()) : frame.Pixels.data();
  if (png_image_write_to_stdio(image.Get(), draft.File(), 0, pixels, 0, nullptr) == 0)
    FailWriting(path, image->message);
  draft.Place();
}

TFrame ReadPng(const fs::path& path) {
  const auto fail = [&](const std::string& why) { throw EPictureError("cannot read " + path.string() + ": " + why); };
  TImage image;
  if (png_image_begin_read_from_file(image.Get(), path.c_str()) == 0) fail(image->message);
  if (image->width > MaxPictureSide || image->height > MaxPictureSide) fail("the picture is too large");
  image->format = PixelFormat;
  TFrame frame(static_cast<int>(image->width), static_cast<int>(image->height));
  if (png_image_finish_read(image.Get(), nullptr, frame.Pixels.data(), 0, nullptr) == 0) fail(image->message);
  return frame;
}

}  // namespace orv::platform
