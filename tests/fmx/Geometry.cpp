#include "fmx/Geometry.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "fmx/Matrix.h"
#include "fmx/TextTypes.h"

namespace {

using fmx::TMatrix;
using fmx::TPointF;
using fmx::TRectF;

static_assert(static_cast<int>(fmx::TTextAlign::Center) == 0 && static_cast<int>(fmx::TTextAlign::Leading) == 1 &&
              static_cast<int>(fmx::TTextAlign::Trailing) == 2);
static_assert(fmx::InvalidSize == fmx::TSizeF{-1, -1});
static_assert(fmx::InvalidCaretPosition.IsInvalid() && !fmx::ZeroCaretPosition.IsInvalid());

// Every rectangle with corners on a small grid, reversed ones among them.
std::vector<TRectF> SmallRects() {
  std::vector<TRectF> rects;
  for (int code = 0; code < 4 * 4 * 4 * 4; ++code) {
    rects.push_back({static_cast<float>(code % 4), static_cast<float>(code / 4 % 4), static_cast<float>(code / 16 % 4),
                     static_cast<float>(code / 64)});
  }
  return rects;
}

TEST(Geometry, AdjoiningRectanglesShareNoPointButTouchTheSame) {
  const TRectF left{0, 0, 10, 10};
  const TRectF right{10, 0, 20, 10};
  EXPECT_FALSE(left.Contains({10, 5}));
  EXPECT_TRUE(right.Contains({10, 5}));
  EXPECT_TRUE(left.Touches({10, 5}));
  EXPECT_TRUE(right.Touches({10, 5}));
  EXPECT_FALSE(left.Touches({10.02F, 5}));
  EXPECT_TRUE(left.Touches({10.02F, 5}, 0.05F));
  EXPECT_TRUE(left.Touches({0, 10}));
}

TEST(Geometry, ARectangleThatContainsAPointIsNotEmpty) {
  for (const TRectF& r : SmallRects()) {
    bool contains = false;
    for (int i = 0; i < 64; ++i) contains |= r.Contains({static_cast<float>(i % 8) / 2, static_cast<float>(i / 8) / 2});
    ASSERT_EQ(contains, !r.IsEmpty());
    ASSERT_EQ(r.Normalized().IsEmpty(), r.Width() == 0 || r.Height() == 0);
  }
}

TEST(Geometry, AnIntersectionContainsWhatBothContain) {
  const auto rects = SmallRects();
  for (const TRectF& a : rects) {
    for (const TRectF& b : rects) {
      const TRectF both = a.Intersect(b);
      for (int i = 0; i < 16; ++i) {
        const TPointF p{static_cast<float>(i % 4) + 0.5F, static_cast<float>(i / 4) + 0.5F};
        ASSERT_EQ(both.Contains(p), a.Contains(p) && b.Contains(p));
      }
    }
  }
}

TEST(Geometry, AnEmptySumTakesTheOtherWholeAlsoWithoutWidth) {
  const TRectF caret{5, 1, 5, 9};
  EXPECT_EQ(TRectF{}.Union(caret), caret);
  EXPECT_EQ((TRectF{3, 3, 1, 1}.Union(caret)), caret);
  EXPECT_EQ((TRectF{0, 0, 2, 2}.Union(caret)), (TRectF{0, 0, 2, 2}));
  EXPECT_EQ((TRectF{0, 0, 2, 2}.Union(TRectF{})), (TRectF{0, 0, 2, 2}));
  EXPECT_EQ((TRectF{0, 0, 2, 2}.Union(TRectF{9, 9, 3, 3})), (TRectF{0, 0, 2, 2}));
  EXPECT_EQ(caret.Union({0, 0, 2, 2}), (TRectF{0, 0, 2, 2}));
  EXPECT_EQ((TRectF{0, 0, 2, 2}.Union({5, 1, 6, 9})), (TRectF{0, 0, 6, 9}));
}

TEST(Geometry, WhatIsNoNumberIsEmpty) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_TRUE((TRectF{0, 0, nan, 1}.IsEmpty()));
  EXPECT_FALSE((TRectF{0, 0, nan, 1}.IsFinite()));
}

TEST(Geometry, AProductOfMatricesGoesThroughTheFirstFirst) {
  const TMatrix moved = TMatrix::Translation(10, 0) * TMatrix::Scaling(2, 3);
  EXPECT_EQ(moved.Apply({1, 1}), (TPointF{22, 3}));
  const TMatrix scaled = TMatrix::Scaling(2, 3) * TMatrix::Translation(10, 0);
  EXPECT_EQ(scaled.Apply({1, 1}), (TPointF{12, 3}));
  EXPECT_TRUE(TMatrix::Translation(3, 4).IsTranslation());
  EXPECT_FALSE(moved.IsTranslation());
  EXPECT_FALSE(TMatrix::Rotation(1).KeepsRectangles());
}

TEST(Geometry, TheInverseTakesPointsBack) {
  const TMatrix m = TMatrix::Rotation(0.7F) * TMatrix::Scaling(2, 0.5F) * TMatrix::Translation(-3, 8);
  const TPointF there = m.Apply({5, 7});
  const TPointF back = m.Inverse().Apply(there);
  EXPECT_NEAR(back.X, 5, 1e-4);
  EXPECT_NEAR(back.Y, 7, 1e-4);
  EXPECT_EQ(TMatrix::Scaling(0, 1).Inverse(), TMatrix{});
}

TEST(Geometry, ATurnIsClockwiseOnTheScreen) {
  const TPointF p = TMatrix::Rotation(1.5707963F).Apply({1, 0});
  EXPECT_NEAR(p.X, 0, 1e-6);
  EXPECT_NEAR(p.Y, 1, 1e-6);
}

TEST(Geometry, BoundsHoldTheCornersOfATurnedRectangle) {
  const TRectF bounds = TMatrix::Rotation(0.785398163F).BoundsOf({-1, -1, 1, 1});
  EXPECT_NEAR(bounds.Left, -1.41421356, 1e-5);
  EXPECT_NEAR(bounds.Bottom, 1.41421356, 1e-5);
}

}  // namespace
