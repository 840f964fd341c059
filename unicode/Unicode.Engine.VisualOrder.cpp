#include "unicode/Unicode.Engine.VisualOrder.h"

#include <cstddef>

namespace orv::engine {
namespace {

// Slots that are free or taken, with a tree of counts over them (Fenwick's) to find the free one of a given number.
class TFreeSlots {
 public:
  explicit TFreeSlots(std::size_t count) : FCounts(count + 1) {
    for (std::size_t i = 1; i <= count; ++i) FCounts[i] = static_cast<std::int32_t>(i & (~i + 1));
    while (FTop * 2 <= count) FTop *= 2;
  }

  // The free slot with number free slots before it, which is then taken.
  std::size_t Take(std::int32_t number) {
    std::size_t slot = 0;
    for (std::size_t step = FTop; step != 0; step /= 2) {
      if (slot + step >= FCounts.size() || FCounts[slot + step] > number) continue;
      slot += step;
      number -= FCounts[slot];
    }
    for (std::size_t i = slot + 1; i < FCounts.size(); i += i & (~i + 1)) --FCounts[i];
    return slot;
  }

 private:
  std::vector<std::int32_t> FCounts;
  std::size_t FTop = 1;
};

}  // namespace

TVisualOrder::TVisualOrder(std::vector<std::int32_t>& order, std::vector<std::int32_t>& latePlaces)
    : FOrder(order), FLatePlaces(latePlaces) {
  FOrder.clear();
  FLatePlaces.clear();
}

void TVisualOrder::Insert(std::int32_t place) {
  const std::int64_t moves = Count() - place;
  if (FLatePlaces.empty() && FMoved + moves <= FreeMoves + MovesPerRun * Count()) {
    FMoved += moves;
    FOrder.insert(FOrder.begin() + place, Count());
  } else {
    FLatePlaces.push_back(place);
  }
}

// From the last insertion back, each run takes the free slot with as many free ones before it as its place says; the
// slots left are those of the runs that were in order before.
void TVisualOrder::Finish() {
  if (FLatePlaces.empty()) return;
  constexpr std::int32_t none = -1;
  const std::size_t before = FOrder.size();
  std::vector<std::int32_t> whole(before + FLatePlaces.size(), none);
  TFreeSlots slots(whole.size());
  for (std::size_t late = FLatePlaces.size(); late-- > 0;)
    whole[slots.Take(FLatePlaces[late])] = static_cast<std::int32_t>(before + late);
  auto next = FOrder.begin();
  for (std::int32_t& run : whole)
    if (run == none) run = *next++;
  FOrder = std::move(whole);
  FLatePlaces.clear();
}

}  // namespace orv::engine
