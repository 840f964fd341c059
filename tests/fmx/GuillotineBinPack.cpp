#include "fmx/GuillotineBinPack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "fmx/Limits.h"

namespace {

using fmx::TFreeRectChoice;
using fmx::TGuillotineBinPack;
using fmx::TGuillotineSplit;
using fmx::TRect;

// Own small generator: the same numbers on every machine.
class TRandom {
 public:
  explicit TRandom(std::uint64_t seed) : FState(seed) {}
  std::int32_t Below(std::int32_t limit) {
    FState = FState * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::int32_t>((FState >> 33) % static_cast<std::uint64_t>(limit));
  }

 private:
  std::uint64_t FState;
};

// A picture of the bin: each pixel is free, or belongs to the rectangle that was placed with that number.
class TPicture {
 public:
  TPicture(std::int32_t width, std::int32_t height)
      : FWidth(width), FPixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

  // False where the rectangle leaves the bin or covers what is taken.
  bool Take(const TRect& r) {
    const auto height = static_cast<std::int32_t>(FPixels.size()) / FWidth;
    if (r.Left < 0 || r.Top < 0 || r.Right > FWidth || r.Bottom > height || r.IsEmpty()) return false;
    bool free = true;
    for (std::int32_t y = r.Top; y < r.Bottom; ++y) {
      const auto row = FPixels.begin() + std::ptrdiff_t{y} * FWidth;
      free = free && std::none_of(row + r.Left, row + r.Right, [](bool taken) { return taken; });
      std::fill(row + r.Left, row + r.Right, true);
    }
    FTaken += std::int64_t{r.Width()} * r.Height();
    return free;
  }
  double Share() const { return static_cast<double>(FTaken) / static_cast<double>(FPixels.size()); }
  bool IsFull() const {
    return std::all_of(FPixels.begin(), FPixels.end(), [](bool taken) { return taken; });
  }

 private:
  std::int32_t FWidth;
  std::vector<bool> FPixels;
  std::int64_t FTaken = 0;
};

// Fills one bin until count rectangles were refused in a row; answers how many were asked for.
int FillBin(TRandom& random, TFreeRectChoice choice, TGuillotineSplit split, bool merge) {
  constexpr int RefusedInARow = 20;
  const std::int32_t width = 1 + random.Below(200);
  const std::int32_t height = 1 + random.Below(200);
  const std::int32_t largest = 1 + random.Below(40);
  TGuillotineBinPack pack(width, height);
  TPicture picture(width, height);
  int asked = 0;
  for (int refused = 0; refused < RefusedInARow; ++asked) {
    const std::int32_t w = 1 + random.Below(largest);
    const std::int32_t h = 1 + random.Below(largest);
    const TRect place = pack.Insert(w, h, merge, choice, split);
    refused = place.IsEmpty() ? refused + 1 : 0;
    if (place.IsEmpty()) {
      EXPECT_EQ(place, TRect{});
      for (const TRect& free : pack.FreeRectangles()) EXPECT_FALSE(free.Width() >= w && free.Height() >= h);
      continue;
    }
    EXPECT_EQ(place.Width(), w);
    EXPECT_EQ(place.Height(), h);
    EXPECT_TRUE(picture.Take(place)) << "it covers another one or leaves the bin";
    EXPECT_NEAR(pack.Occupancy(), picture.Share(), 1e-6);
  }
  for (const TRect& free : pack.FreeRectangles()) EXPECT_TRUE(picture.Take(free)) << "a free rectangle is not free";
  EXPECT_TRUE(picture.IsFull()) << "free room was lost";
  return asked;
}

TEST(GuillotineBinPack, AHundredThousandRandomRectanglesNeverOverlapAndLoseNoRoom) {
  TRandom random(42);
  int asked = 0;
  for (int round = 0; asked < 100000; ++round) {
    asked += FillBin(random, static_cast<TFreeRectChoice>(round % 6), static_cast<TGuillotineSplit>(round / 6 % 6),
                     round % 5 == 0);
    ASSERT_FALSE(testing::Test::HasFailure()) << "round " << round;
  }
}

TEST(GuillotineBinPack, TheChoiceDecidesWhichFreeRectangleIsTaken) {
  const auto place = [](TFreeRectChoice choice) {
    TGuillotineBinPack pack(101, 100);
    const auto cut = [&pack](std::int32_t w, std::int32_t h) {
      return pack.Insert(w, h, false, TFreeRectChoice::BestAreaFit, TGuillotineSplit::ShorterAxis);
    };
    EXPECT_EQ(cut(30, 70), (TRect{0, 0, 30, 70}));
    return pack.Insert(10, 10, false, choice, TGuillotineSplit::ShorterAxis);
  };
  // Free are now (30, 0) to (101, 100), an area of 7100, and (0, 70) to (30, 100), one of 900.
  EXPECT_EQ(place(TFreeRectChoice::BestAreaFit), (TRect{0, 70, 10, 80}));
  EXPECT_EQ(place(TFreeRectChoice::BestShortSideFit), (TRect{0, 70, 10, 80}));
  EXPECT_EQ(place(TFreeRectChoice::BestLongSideFit), (TRect{0, 70, 10, 80}));
  EXPECT_EQ(place(TFreeRectChoice::WorstAreaFit), (TRect{30, 0, 40, 10}));
  EXPECT_EQ(place(TFreeRectChoice::WorstShortSideFit), (TRect{30, 0, 40, 10}));
  EXPECT_EQ(place(TFreeRectChoice::WorstLongSideFit), (TRect{30, 0, 40, 10}));
}

TEST(GuillotineBinPack, TheSplitDecidesWhichPieceGetsTheCorner) {
  const auto freeAfter = [](TGuillotineSplit split) {
    TGuillotineBinPack pack(100, 60);
    pack.Insert(70, 20, false, TFreeRectChoice::BestAreaFit, split);  // leaves 30 on the right and 40 below
    const auto free = pack.FreeRectangles();
    return std::vector<TRect>(free.begin(), free.end());
  };
  const std::vector<TRect> alongWidth{{0, 20, 100, 60}, {70, 0, 100, 20}};
  const std::vector<TRect> alongHeight{{0, 20, 70, 60}, {70, 0, 100, 60}};
  EXPECT_EQ(freeAfter(TGuillotineSplit::ShorterLeftoverAxis), alongWidth);
  EXPECT_EQ(freeAfter(TGuillotineSplit::LongerLeftoverAxis), alongHeight);
  EXPECT_EQ(freeAfter(TGuillotineSplit::MinimizeArea), alongWidth);
  EXPECT_EQ(freeAfter(TGuillotineSplit::MaximizeArea), alongHeight);
  EXPECT_EQ(freeAfter(TGuillotineSplit::ShorterAxis), alongHeight);
  EXPECT_EQ(freeAfter(TGuillotineSplit::LongerAxis), alongWidth);
}

TEST(GuillotineBinPack, MergingJoinsPiecesThatShareASide) {
  TGuillotineBinPack apart(100, 100);
  TGuillotineBinPack merged(100, 100);
  apart.Insert(50, 40, false, TFreeRectChoice::BestAreaFit, TGuillotineSplit::MinimizeArea);
  merged.Insert(50, 40, true, TFreeRectChoice::BestAreaFit, TGuillotineSplit::MinimizeArea);
  EXPECT_EQ(apart.FreeRectangles().size(), 2U);
  EXPECT_EQ(merged.FreeRectangles().size(), 2U);  // an L is no rectangle
  apart.Insert(50, 40, false, TFreeRectChoice::BestAreaFit, TGuillotineSplit::MinimizeArea);
  merged.Insert(50, 40, true, TFreeRectChoice::BestAreaFit, TGuillotineSplit::MinimizeArea);
  EXPECT_EQ(merged.FreeRectangles().size(), 1U);
  EXPECT_EQ(merged.FreeRectangles()[0], (TRect{0, 40, 100, 100}));
}

TEST(GuillotineBinPack, TakesARectangleOfItsOwnSize) {
  TGuillotineBinPack pack(64, 32);
  EXPECT_EQ(pack.Insert(64, 32, false, TFreeRectChoice::BestAreaFit, TGuillotineSplit::MinimizeArea),
            (TRect{0, 0, 64, 32}));
  EXPECT_EQ(pack.Occupancy(), 1);
  EXPECT_TRUE(pack.FreeRectangles().empty());
  EXPECT_TRUE(pack.Insert(1, 1, false, TFreeRectChoice::BestAreaFit, TGuillotineSplit::MinimizeArea).IsEmpty());
}

TEST(GuillotineBinPack, RefusesSizesThatCannotBe) {
  for (const std::int32_t side : {0, -1, INT32_MIN, 65, INT32_MAX}) {
    TGuillotineBinPack pack(64, 64);
    EXPECT_TRUE(pack.Insert(side, 5, false, TFreeRectChoice::BestAreaFit, TGuillotineSplit::MinimizeArea).IsEmpty());
    EXPECT_TRUE(pack.Insert(5, side, false, TFreeRectChoice::BestAreaFit, TGuillotineSplit::MinimizeArea).IsEmpty());
    EXPECT_EQ(pack.Occupancy(), 0);
  }
  for (const std::int32_t side : {0, -1, INT32_MIN}) {
    TGuillotineBinPack none(side, 10);
    EXPECT_EQ(none.Occupancy(), 1);
    EXPECT_TRUE(none.Insert(1, 1, false, TFreeRectChoice::BestAreaFit, TGuillotineSplit::MinimizeArea).IsEmpty());
  }
  EXPECT_EQ(TGuillotineBinPack(INT32_MAX, 1).Width(), fmx::MaxBitmapSide);
}

TEST(GuillotineBinPack, LettersAndThenMarksFillATexture) {
  TRandom random(7);
  TGuillotineBinPack pack(1024, 1024);
  const auto fill = [&](std::int32_t width, std::int32_t height) {
    for (int refused = 0; refused < 200 && pack.Occupancy() < 0.95F;) {
      const std::int32_t w = width + random.Below(width);
      if (pack.Insert(w, height, false, TFreeRectChoice::BestAreaFit, TGuillotineSplit::MinimizeArea).IsEmpty())
        ++refused;
    }
  };
  fill(7, 22);
  EXPECT_GE(pack.Occupancy(), 0.85F);
  fill(4, 10);
  fill(2, 5);
  EXPECT_GE(pack.Occupancy(), 0.95F);
}

}  // namespace
