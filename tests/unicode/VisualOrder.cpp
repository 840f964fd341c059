#include "unicode/Unicode.Engine.VisualOrder.h"

#include <gtest/gtest.h>

#include <random>

namespace orv::engine {
namespace {

// Inserts one run after the other, moving whatever stands behind.
std::vector<std::int32_t> InsertedPlainly(const std::vector<std::int32_t>& places) {
  std::vector<std::int32_t> order;
  for (std::size_t run = 0; run < places.size(); ++run)
    order.insert(order.begin() + places[run], static_cast<std::int32_t>(run));
  return order;
}

std::vector<std::int32_t> Built(const std::vector<std::int32_t>& places) {
  std::vector<std::int32_t> order = {9, 9, 9};
  std::vector<std::int32_t> storage = {7};
  TVisualOrder builder(order, storage);
  for (const std::int32_t place : places) {
    if (place == builder.Count())
      builder.Append();
    else
      builder.Insert(place);
  }
  EXPECT_EQ(builder.Count(), static_cast<std::int32_t>(places.size()));
  builder.Finish();
  return order;
}

TEST(VisualOrder, AppendedRunsStandInTheirOrder) {
  EXPECT_EQ(Built({0, 1, 2, 3}), (std::vector<std::int32_t>{0, 1, 2, 3}));
}

TEST(VisualOrder, AnInsertedRunStandsBeforeItsPlace) {
  EXPECT_EQ(Built({0, 1, 0, 1}), (std::vector<std::int32_t>{2, 3, 0, 1}));
}

TEST(VisualOrder, ManyInsertionsFarFromTheEndGiveWhatPlainInsertionGives) {
  std::mt19937 random(20);
  for (const std::size_t runs : {1U, 2U, 63U, 64U, 65U, 1000U, 4096U, 20000U}) {
    for (const int share : {2, 10}) {  // one in so many is an insertion, the earlier ones at the very front
      std::vector<std::int32_t> places;
      for (std::int32_t run = 0; run < static_cast<std::int32_t>(runs); ++run) {
        const bool inserted = run > 0 && random() % static_cast<unsigned>(share) == 0;
        const bool front = random() % 2 == 0;
        places.push_back(!inserted ? run
                         : front   ? 0
                                   : static_cast<std::int32_t>(random() % static_cast<unsigned>(run)));
      }
      EXPECT_EQ(Built(places), InsertedPlainly(places)) << runs << " runs, one in " << share;
    }
  }
}

}  // namespace
}  // namespace orv::engine
