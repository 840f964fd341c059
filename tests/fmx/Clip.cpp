#include "fmx/Clip.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {

using fmx::TClip;
using fmx::TMatrix;
using fmx::TRectF;

TEST(Clip, UprightRectanglesGoIntoTheBox) {
  TClip clip;
  EXPECT_TRUE(clip.IsWhole());
  clip.Intersect(TMatrix::Scaling(2, 2), {0, 0, 50, 50});
  clip.Intersect(TMatrix::Translation(10, 0), {80, 60, 0, 0});  // reversed
  EXPECT_EQ(clip.Box(), (TRectF{10, 0, 90, 60}));
  EXPECT_TRUE(clip.Steps().empty());
  EXPECT_FALSE(clip.IsWhole());
  EXPECT_FALSE(clip.IsEmpty());
}

TEST(Clip, NothingIsLeftOfRectanglesThatDoNotMeet) {
  TClip clip;
  clip.Intersect(TMatrix{}, {0, 0, 10, 10});
  clip.Intersect(TMatrix{}, {20, 20, 30, 30});
  EXPECT_TRUE(clip.IsEmpty());
  clip.Intersect(TMatrix{}, {0, 0, 100, 100});
  EXPECT_TRUE(clip.IsEmpty());
}

TEST(Clip, TurnedRectanglesAreSteps) {
  TClip clip;
  clip.Intersect(TMatrix::Rotation(0.5F), {0, 0, 10, 10});
  ASSERT_EQ(clip.Steps().size(), 1U);
  EXPECT_FALSE(clip.Steps()[0].Exclude);
  EXPECT_EQ(clip.Box(), TMatrix::Rotation(0.5F).BoundsOf({0, 0, 10, 10}));
}

TEST(Clip, SeveralRectanglesAreOneStepInTheBoxAroundThem) {
  TClip clip;
  const std::vector<TRectF> rects{{0, 0, 10, 10}, {5, 5, 5, 9}, {40, 20, 50, 30}};
  clip.Intersect(TMatrix{}, rects);
  EXPECT_EQ(clip.Box(), (TRectF{0, 0, 50, 30}));
  ASSERT_EQ(clip.Steps().size(), 1U);
  EXPECT_EQ(clip.Steps()[0].Rects.size(), 2U);
  clip.Intersect(TMatrix{}, std::vector<TRectF>{});
  EXPECT_TRUE(clip.IsEmpty());
}

TEST(Clip, ExcludedRectanglesAreSteps) {
  TClip clip;
  clip.Exclude(TMatrix{}, {0, 0, 10, 10});
  clip.Exclude(TMatrix{}, {0, 0, 0, 10});
  ASSERT_EQ(clip.Steps().size(), 1U);
  EXPECT_TRUE(clip.Steps()[0].Exclude);
  EXPECT_FALSE(clip.IsWhole());
  EXPECT_FALSE(clip.IsEmpty());
}

TEST(Clip, WhatIsNotFiniteChangesNothing) {
  TClip clip;
  clip.Intersect(TMatrix{}, {0, 0, std::numeric_limits<float>::quiet_NaN(), 1});
  clip.Exclude(TMatrix::Scaling(std::numeric_limits<float>::infinity(), 1), {0, 0, 1, 1});
  EXPECT_TRUE(clip.IsWhole());
}

}  // namespace
