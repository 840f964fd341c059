#include "fmx/Font.h"

#include <gtest/gtest.h>

#include <limits>

#include "fmx/Brush.h"
#include "fmx/Limits.h"

namespace {

using fmx::TFont;
using fmx::TFontStyle;
using fmx::TFontStyles;

TEST(Font, TellsOfChangesAndOfNothingElse) {
  TFont font(u"Sans", 12);
  int changes = 0;
  font.SetOnChanged([&] { ++changes; });
  font.SetFamily(u"Sans");
  font.SetSize(12);
  font.SetStyle({});
  font.Assign(TFont(u"Sans", 12));
  EXPECT_EQ(changes, 0);
  font.SetFamily(u"Serif");
  EXPECT_EQ(changes, 1);
  font.SetSize(14);
  EXPECT_EQ(changes, 2);
  font.SetStyle(TFontStyles{TFontStyle::Bold});
  EXPECT_EQ(changes, 3);
  font.Assign(TFont(u"Mono", 8, TFontStyles{TFontStyle::Italic}));
  EXPECT_EQ(changes, 4);
  EXPECT_EQ(font, TFont(u"Mono", 8, TFontStyles{TFontStyle::Italic}));
}

TEST(Font, ACopyHasTheValuesWithoutTheListener) {
  TFont font(u"Sans", 12);
  int changes = 0;
  font.SetOnChanged([&] { ++changes; });
  TFont copy(font);
  copy.SetSize(99);
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(copy.Family(), u"Sans");
  font = copy;
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(font.Size(), 99);
}

TEST(Font, EveryValueTakesPartInTheComparison) {
  const TFont font(u"Sans", 12);
  EXPECT_NE(font, TFont(u"Sansa", 12));
  EXPECT_NE(font, TFont(u"Sans", 12.5F));
  EXPECT_NE(font, TFont(u"Sans", 12, TFontStyles{TFontStyle::Underline}));
}

TEST(Font, SizesAreHeldInRange) {
  TFont font;
  EXPECT_EQ(font.Size(), 12);
  font.SetSize(-3);
  EXPECT_EQ(font.Size(), 0);
  font.SetSize(std::numeric_limits<float>::infinity());
  EXPECT_EQ(font.Size(), fmx::MaxFontSize);
  font.SetSize(std::numeric_limits<float>::quiet_NaN());
  EXPECT_EQ(font.Size(), fmx::MaxFontSize);
}

TEST(Font, WeightAndSlantFollowTheStyle) {
  EXPECT_EQ(fmx::WeightOf({}), fmx::TFontWeight::Regular);
  EXPECT_EQ(fmx::WeightOf({TFontStyle::Bold, TFontStyle::Underline}), fmx::TFontWeight::Bold);
  EXPECT_EQ(fmx::SlantOf({TFontStyle::Bold}), fmx::TFontSlant::Regular);
  EXPECT_EQ(fmx::SlantOf({TFontStyle::Italic}), fmx::TFontSlant::Italic);
}

TEST(Font, WeightAndSlantGoBeyondTheStyleAndCarryIt) {
  using fmx::TFontSlant;
  using fmx::TFontWeight;
  TFont font(u"Sans", 12, {TFontStyle::Underline});
  int changes = 0;
  font.SetOnChanged([&] { ++changes; });
  for (int i = 0; i <= static_cast<int>(TFontWeight::UltraBold); ++i) {
    font.SetWeight(static_cast<TFontWeight>(i));
    EXPECT_EQ(static_cast<int>(font.Weight()), i);
    EXPECT_EQ(font.Style().Contains(TFontStyle::Bold), i >= static_cast<int>(TFontWeight::SemiBold));
  }
  EXPECT_EQ(changes, 9);
  font.SetWeight(TFontWeight::SemiBold);
  font.SetSlant(TFontSlant::Oblique);
  EXPECT_EQ(changes, 11);
  font.SetSlant(TFontSlant::Oblique);
  font.SetWeight(TFontWeight::SemiBold);
  EXPECT_EQ(changes, 11);
  EXPECT_EQ(font.Style(), (TFontStyles{TFontStyle::Bold, TFontStyle::Italic, TFontStyle::Underline}));

  font.SetStyle({TFontStyle::Bold, TFontStyle::Italic});  // the underline alone goes
  EXPECT_EQ(font.Weight(), TFontWeight::SemiBold);
  EXPECT_EQ(font.Slant(), TFontSlant::Oblique);
  const TFont copy(font);
  EXPECT_EQ(copy, font);
  font.SetStyle({});
  EXPECT_EQ(font.Weight(), TFontWeight::Regular);
  EXPECT_EQ(font.Slant(), TFontSlant::Regular);
  font.SetStyle({TFontStyle::Bold, TFontStyle::Italic});
  EXPECT_EQ(font.Weight(), TFontWeight::Bold);
  EXPECT_EQ(font.Slant(), TFontSlant::Italic);
  EXPECT_NE(font, copy);
  EXPECT_EQ(font, TFont(u"Sans", 12, {TFontStyle::Bold, TFontStyle::Italic}));
  font.Assign(copy);
  EXPECT_EQ(font.Weight(), TFontWeight::SemiBold);
  EXPECT_EQ(font.Slant(), TFontSlant::Oblique);
}

TEST(Brush, WithoutKindOrAlphaNothingIsSeen) {
  EXPECT_FALSE(fmx::TBrush(0xFF000000).IsInvisible());
  EXPECT_TRUE(fmx::TBrush(0x00FFFFFF).IsInvisible());
  EXPECT_TRUE(fmx::TBrush(0xFF000000, fmx::TBrushKind::None).IsInvisible());
  static_assert(static_cast<int>(fmx::TStrokeDash::DashDotDot) == 4);
}

}  // namespace
