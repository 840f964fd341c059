// Pictures written and read back, and never half.
#include "platform/Png.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

#include "platform/Exceptions.h"

namespace orv::platform {
namespace {

namespace fs = std::filesystem;

class Png : public testing::Test {
 protected:
  void SetUp() override {
    FFolder = fs::path(testing::TempDir()) / ("orv-png-" + std::to_string(::getpid()));
    fs::create_directory(FFolder);
  }
  void TearDown() override { fs::remove_all(FFolder); }

  fs::path File(const char* name) const { return FFolder / name; }
  std::size_t FileCount() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(FFolder), fs::directory_iterator()));
  }

 private:
  fs::path FFolder;
};

TFrame Sample(std::uint32_t alpha) {
  TFrame frame(7, 5);
  for (std::size_t i = 0; i < frame.Pixels.size(); ++i)
    frame.Pixels[i] = (alpha << 24) | static_cast<std::uint32_t>(i * 0x030711);
  return frame;
}

std::string Bytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(Png, AFrameComesBackAsItWas) {
  WritePng(File("opaque.png"), Sample(0xFF));
  EXPECT_EQ(ReadPng(File("opaque.png")).Pixels, Sample(0xFF).Pixels);
  EXPECT_EQ(FileCount(), 1U);
}

TEST_F(Png, AlphaIsKept) {
  TFrame frame = Sample(0xFF);
  frame.Pixels[3] = 0x80123456;
  frame.Pixels[4] = 0x00000000;
  WritePng(File("alpha.png"), frame);
  EXPECT_EQ(ReadPng(File("alpha.png")).Pixels, frame.Pixels);
}

TEST_F(Png, EqualFramesGiveEqualFiles) {
  WritePng(File("a.png"), Sample(0xFF));
  WritePng(File("b.png"), Sample(0xFF));
  EXPECT_EQ(Bytes(File("a.png")), Bytes(File("b.png")));
}

TEST_F(Png, AFormerFileIsReplaced) {
  std::ofstream(File("page.png")) << "former";
  WritePng(File("page.png"), Sample(0xFF));
  EXPECT_EQ(ReadPng(File("page.png")).Width, 7);
  EXPECT_EQ(FileCount(), 1U);
}

TEST_F(Png, WhatCannotBeWrittenLeavesNoTrace) {
  fs::create_directory(File("folder"));
  EXPECT_THROW(WritePng(File("folder"), Sample(0xFF)), EPictureError);
  EXPECT_THROW(WritePng(File("missing") / "page.png", Sample(0xFF)), EPictureError);
  EXPECT_THROW(WritePng(File("folder") / "", Sample(0xFF)), EPictureError);
  EXPECT_THROW(WritePng("/dev/null", Sample(0xFF)), EPictureError);
  EXPECT_THROW(WritePng("", Sample(0xFF)), EPictureError);
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  EXPECT_EQ(FileCount(), 1U);
  EXPECT_TRUE(fs::is_empty(File("folder")));
}

TEST_F(Png, EmptyAndEndlessPicturesAreRefused) {
  EXPECT_THROW(WritePng(File("page.png"), TFrame()), EPictureError);
  EXPECT_THROW(WritePng(File("page.png"), TFrame(1, MaxPictureSide + 1)), EPictureError);
  WritePng(File("high.png"), TFrame(1, MaxPictureSide, 0xFF000000));
  EXPECT_EQ(ReadPng(File("high.png")).Height, MaxPictureSide);
  EXPECT_EQ(FileCount(), 1U);
}

TEST_F(Png, WhatIsNoPictureCannotBeRead) {
  std::ofstream(File("text.png")) << "no picture";
  EXPECT_THROW(ReadPng(File("text.png")), EPictureError);
  EXPECT_THROW(ReadPng(File("missing.png")), EPictureError);
  WritePng(File("whole.png"), Sample(0xFF));
  const std::string whole = Bytes(File("whole.png"));
  for (std::size_t length = 0; length + 12 < whole.size(); ++length) {
    std::ofstream(File("part.png"), std::ios::binary) << whole.substr(0, length);
    EXPECT_THROW(ReadPng(File("part.png")), EPictureError) << length;
  }
}

TEST(Frame, ASizeOfNothingIsEmpty) {
  EXPECT_TRUE(TFrame(0, 5).IsEmpty());
  EXPECT_TRUE(TFrame(5, -1).IsEmpty());
  EXPECT_EQ(TFrame(5, -1).Width, 0);
}

}  // namespace
}  // namespace orv::platform
