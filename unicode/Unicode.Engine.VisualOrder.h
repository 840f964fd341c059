// The visual order while it is built: each run goes to the end, or before a place where a direction turned.
#pragma once

#include <cstdint>
#include <vector>

namespace orv::engine {

// Runs are added in logical order. Insertions are made at once as long as they move little; beyond that their places
// are kept and the order is worked out at the end, so that no text makes it cost more than a run's share.
class TVisualOrder {
 public:
  // Both are borrowed and emptied: the order to build, and working storage.
  TVisualOrder(std::vector<std::int32_t>& order, std::vector<std::int32_t>& latePlaces);

  std::int32_t Count() const { return static_cast<std::int32_t>(FOrder.size() + FLatePlaces.size()); }

  void Append() {
    if (FLatePlaces.empty())
      FOrder.push_back(Count());
    else
      FLatePlaces.push_back(Count());
  }

  // Inserts the next run before what now stands at the place, which is at most Count.
  void Insert(std::int32_t place);

  // Puts the late ones in. The order is then whole.
  void Finish();

 private:
  static constexpr std::int64_t MovesPerRun = 64;
  static constexpr std::int64_t FreeMoves = 4096;

  std::vector<std::int32_t>& FOrder;
  std::vector<std::int32_t>& FLatePlaces;  // of the runs behind those in FOrder
  std::int64_t FMoved = 0;
};

}  // namespace orv::engine
