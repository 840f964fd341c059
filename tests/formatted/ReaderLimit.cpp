// The markup reader whose cursor stands past a limit that was narrowed behind it.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <utility>

#include "formatted/Orv.StdCtrls.Markup.h"

namespace orv {
namespace {

using TDirection = TMarkupText::TDirection;
using TUnicode = TMarkupText::TMarkupTextReaderUnicode;
using TUtf8 = TMarkupText::TMarkupTextReaderUTF8;
using namespace std::string_view_literals;

constexpr std::ptrdiff_t Huge = std::numeric_limits<std::ptrdiff_t>::max();

TEST(MarkupReader, BackwardsAFixedTextBehindTheLimitIsCompared) {
  TUnicode reader(u"abcdef"sv);
  reader.SetPos(5);
  reader.SetEnd(3);
  reader.SetDirection(TDirection::Backward);
  EXPECT_TRUE(reader.ReadStill(u"abcde"));
  EXPECT_FALSE(reader.ReadStill(u"ef"));
  EXPECT_FALSE(reader.ReadStill(u"xabcde"));
  EXPECT_TRUE(reader.Read(u"de"));
  EXPECT_EQ(reader.Position(), 3);
  reader.Check(u"bc");
  EXPECT_EQ(reader.Position(), 1);

  TUtf8 bytes("ab\xD8\xB3\xD9\x84"sv);
  bytes.SetPos(6);
  bytes.SetEnd(1);
  bytes.SetDirection(TDirection::Backward);
  EXPECT_TRUE(bytes.Read(u"\u0633\u0644"));
  EXPECT_TRUE(bytes.Read(u"ab"));
  EXPECT_EQ(bytes.Position(), 0);
}

// Every place, limit and step of a text of six units, in both directions: the place reached is clamped, not the start.
TEST(MarkupReader, MovesFromBehindTheLimitAreCountedFromTheCursor) {
  constexpr std::ptrdiff_t Size = 6;
  for (const TDirection direction : {TDirection::Forward, TDirection::Backward})
    for (std::ptrdiff_t place = 0; place <= Size; ++place)
      for (std::ptrdiff_t limit = 0; limit <= Size; ++limit)
        for (std::ptrdiff_t count = -8; count <= 8; ++count) {
          const bool forward = direction == TDirection::Forward;
          const std::ptrdiff_t low = forward ? 0 : -1;
          const std::ptrdiff_t ahead = std::clamp(forward ? place + count : place - count, low, limit);
          const std::ptrdiff_t back = std::clamp(forward ? place - count : place + count, low, limit);
          TUnicode reader(u"abcdef"sv);
          reader.SetDirection(direction);
          reader.SetEnd(limit);
          reader.SetPos(place);
          reader.Skip(count);
          ASSERT_EQ(reader.Position(), ahead) << place << ' ' << limit << ' ' << count;
          reader.SetPos(place);
          reader.StepBack(count);
          ASSERT_EQ(reader.Position(), back) << place << ' ' << limit << ' ' << count;
        }
}

TEST(MarkupReader, AStepBackFromBehindTheLimitGoesInsideItWhenLongEnough) {
  TUnicode reader(u"abcdef"sv);
  reader.SetEnd(3);
  for (const auto& [count, place] : {std::pair{2, 3}, {4, 2}, {9, 0}}) {
    reader.SetPos(6);
    reader.StepBack(count);
    EXPECT_EQ(reader.Position(), place) << count;
  }
  reader.SetDirection(TDirection::Backward);
  reader.SetPos(5);
  reader.Skip(1);
  EXPECT_EQ(reader.Position(), 3);
  for (const std::ptrdiff_t count : {Huge, -Huge, std::numeric_limits<std::ptrdiff_t>::min()}) {
    reader.SetPos(5);
    reader.Skip(count);
    EXPECT_EQ(reader.Position(), count > 0 ? -1 : 3);
  }
}

}  // namespace
}  // namespace orv
