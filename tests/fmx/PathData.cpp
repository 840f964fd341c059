#include "fmx/PathData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "fmx/PathShapes.h"

namespace {

using fmx::TPathData;
using fmx::TPointF;
using fmx::TRectF;
using TKind = fmx::TPathPointKind;

// Own small generator: the same numbers on every machine.
class TRandom {
 public:
  float Coordinate() {
    FState = FState * 6364136223846793005U + 1442695040888963407U;
    return static_cast<float>(FState >> 54) / 4 - 128;
  }
  TPointF Point() {
    const float x = Coordinate();
    return {x, Coordinate()};
  }

 private:
  std::uint64_t FState = 7;
};

TEST(PathData, AFigureBeginsWhereTheLastOneEnded) {
  TPathData path;
  path.LineTo({1, 2});
  path.ClosePath();
  path.LineTo({5, 5});
  ASSERT_EQ(path.Count(), 5U);
  EXPECT_EQ(path.Points()[0], (fmx::TPathPoint{TKind::MoveTo, {0, 0}}));
  EXPECT_EQ(path.Points()[2], (fmx::TPathPoint{TKind::Close, {0, 0}}));
  EXPECT_EQ(path.Points()[3], (fmx::TPathPoint{TKind::MoveTo, {0, 0}}));
  EXPECT_EQ(path.LastPoint(), (TPointF{5, 5}));
}

TEST(PathData, ClosingTwiceOrNothingDoesNothing) {
  TPathData path;
  path.ClosePath();
  EXPECT_TRUE(path.IsEmpty());
  path.MoveTo({1, 1});
  path.ClosePath();
  path.ClosePath();
  EXPECT_EQ(path.Count(), 2U);
}

TEST(PathData, PointsThatAreNotFiniteAreNotTaken) {
  const float infinity = std::numeric_limits<float>::infinity();
  TPathData path;
  path.MoveTo({infinity, 0});
  path.LineTo({0, std::nanf("")});
  path.CurveTo({0, 0}, {infinity, 0}, {1, 1});
  EXPECT_TRUE(path.IsEmpty());
}

TEST(PathData, BoundsOfCurvesAreThoseOfThePointsOnThem) {
  TRandom random;
  for (int round = 0; round < 2000; ++round) {
    const TPointF a = random.Point();
    const TPointF b = random.Point();
    const TPointF c = random.Point();
    const TPointF d = random.Point();
    TPathData path;
    path.MoveTo(a);
    path.CurveTo(b, c, d);
    TRectF walked{a.X, a.Y, a.X, a.Y};
    for (int step = 1; step <= 1000; ++step) {
      const float t = static_cast<float>(step) / 1000;
      const auto mix = [t](TPointF p, TPointF q) { return p * (1 - t) + q * t; };
      const TPointF p = mix(mix(mix(a, b), mix(b, c)), mix(mix(b, c), mix(c, d)));  // by halving, not by powers
      walked = {std::min(walked.Left, p.X), std::min(walked.Top, p.Y), std::max(walked.Right, p.X),
                std::max(walked.Bottom, p.Y)};
    }
    const TRectF bounds = path.GetBounds();
    ASSERT_NEAR(bounds.Left, walked.Left, 0.01);
    ASSERT_NEAR(bounds.Top, walked.Top, 0.01);
    ASSERT_NEAR(bounds.Right, walked.Right, 0.01);
    ASSERT_NEAR(bounds.Bottom, walked.Bottom, 0.01);
  }
}

TEST(PathData, AddingAndMovingMoveTheBounds) {
  TPathData path = fmx::RectanglePath({0, 0, 10, 20});
  path.Translate(5, -5);
  EXPECT_EQ(path.GetBounds(), (TRectF{5, -5, 15, 15}));
  path.AddPath(fmx::RectanglePath({100, 0, 110, 1}));
  EXPECT_EQ(path.GetBounds(), (TRectF{5, -5, 110, 15}));
  const std::size_t count = path.Count();
  path.AddPath(path);
  EXPECT_EQ(path.Count(), 2 * count);
  EXPECT_EQ(TPathData().GetBounds(), TRectF{});
}

// Whether every curve is followed by its points, and every figure begins with a move.
bool IsWellFormed(const TPathData& path) {
  bool open = false;
  for (std::size_t i = 0; i < path.Count(); ++i) {
    const TKind kind = path.Points()[i].Kind;
    if (kind != TKind::MoveTo && !open) return false;
    open = kind != TKind::Close;
    if (kind != TKind::CurveTo) continue;
    for (const std::size_t end = i + 2; i < end; ++i) {
      if (i + 1 >= path.Count() || path.Points()[i + 1].Kind != TKind::CurveTo) return false;
    }
  }
  return true;
}

TEST(PathShapes, EveryCornerOfEveryTypeStaysInsideTheRectangle) {
  for (int corners = 0; corners < 16; ++corners) {
    for (int type = 0; type < 4; ++type) {
      for (const float radius : {0.0F, 3.0F, 10.0F, 99.0F, -1.0F, std::nanf("")}) {
        const TPathData path = fmx::RoundRectPath({30, 20, 10, 0}, radius, radius,
                                                  fmx::TCorners::FromBits(static_cast<std::uint8_t>(corners)),
                                                  static_cast<fmx::TCornerType>(type));
        ASSERT_TRUE(IsWellFormed(path));
        ASSERT_EQ(path.GetBounds(), (TRectF{10, 0, 30, 20}));
        const bool cut = radius > 0 && corners != 0;
        ASSERT_EQ(path.Count() > 5, cut);  // a rectangle is a move, three lines and a close
      }
    }
  }
}

TEST(PathShapes, AnEllipseTouchesItsFourSides) {
  const TPathData path = fmx::EllipsePath({0, 0, 8, 4});
  EXPECT_TRUE(IsWellFormed(path));
  EXPECT_EQ(path.GetBounds(), (TRectF{0, 0, 8, 4}));
  EXPECT_EQ(path.Points()[0], (fmx::TPathPoint{TKind::MoveTo, {4, 0}}));
  EXPECT_TRUE(fmx::EllipsePath({0, 0, std::nanf(""), 4}).IsEmpty());
}

}  // namespace
