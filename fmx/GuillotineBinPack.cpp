#include "fmx/GuillotineBinPack.h"

#include <algorithm>
#include <limits>

#include "fmx/Limits.h"

namespace fmx {
namespace {

std::int64_t AreaOf(std::int32_t width, std::int32_t height) {
  return std::int64_t{width} * height;
}

// Whether the piece below gets the whole lower edge. free is what the new rectangle's corner is taken from.
bool CutsAlongWidth(const TRect& free, std::int32_t width, std::int32_t height, TGuillotineSplit split) {
  const std::int32_t right = free.Width() - width;
  const std::int32_t below = free.Height() - height;
  switch (split) {
    case TGuillotineSplit::ShorterLeftoverAxis:
      return right <= below;
    case TGuillotineSplit::LongerLeftoverAxis:
      return right > below;
    case TGuillotineSplit::MinimizeArea:
      return AreaOf(width, below) > AreaOf(right, height);
    case TGuillotineSplit::MaximizeArea:
      return AreaOf(width, below) <= AreaOf(right, height);
    case TGuillotineSplit::ShorterAxis:
      return free.Width() <= free.Height();
    case TGuillotineSplit::LongerAxis:
      return free.Width() > free.Height();
  }
  return true;
}

// Joins b to a where they share a whole side.
bool Join(TRect& a, const TRect& b) {
  if (a.Left == b.Left && a.Right == b.Right && (a.Bottom == b.Top || a.Top == b.Bottom)) {
    a.Top = std::min(a.Top, b.Top);
    a.Bottom = std::max(a.Bottom, b.Bottom);
    return true;
  }
  if (a.Top == b.Top && a.Bottom == b.Bottom && (a.Right == b.Left || a.Left == b.Right)) {
    a.Left = std::min(a.Left, b.Left);
    a.Right = std::max(a.Right, b.Right);
    return true;
  }
  return false;
}

}  // namespace

TGuillotineBinPack::TGuillotineBinPack(std::int32_t width, std::int32_t height)
    : FWidth(std::clamp(width, 0, MaxBitmapSide)), FHeight(std::clamp(height, 0, MaxBitmapSide)) {
  if (FWidth > 0 && FHeight > 0) FFree.push_back({0, 0, FWidth, FHeight});
}

float TGuillotineBinPack::Occupancy() const {
  const std::int64_t all = AreaOf(FWidth, FHeight);
  return all == 0 ? 1.0F : static_cast<float>(static_cast<double>(FUsed) / static_cast<double>(all));
}

// The index of the first free rectangle with the least score among those that the new one fits; the count of free
// rectangles where there is none.
template <typename TScore>
std::size_t TGuillotineBinPack::BestFree(std::int32_t width, std::int32_t height, TScore score) const {
  std::size_t best = FFree.size();
  std::int64_t bestScore = std::numeric_limits<std::int64_t>::max();
  for (std::size_t i = 0; i < FFree.size(); ++i) {
    const std::int32_t right = FFree[i].Width() - width;
    const std::int32_t below = FFree[i].Height() - height;
    if (right < 0 || below < 0) continue;
    const std::int64_t its = score(FFree[i], right, below);
    if (its >= bestScore) continue;
    best = i;
    bestScore = its;
  }
  return best;
}

std::size_t TGuillotineBinPack::ChooseFree(std::int32_t width, std::int32_t height, TFreeRectChoice choice) const {
  const auto area = [](const TRect& free, std::int32_t, std::int32_t) { return AreaOf(free.Width(), free.Height()); };
  const auto shortSide = [](const TRect&, std::int32_t right, std::int32_t below) {
    return std::int64_t{std::min(right, below)};
  };
  const auto longSide = [](const TRect&, std::int32_t right, std::int32_t below) {
    return std::int64_t{std::max(right, below)};
  };
  const auto worst = [](auto score) {
    return [score](const TRect& free, std::int32_t right, std::int32_t below) { return -score(free, right, below); };
  };
  switch (choice) {
    case TFreeRectChoice::BestAreaFit:
      return BestFree(width, height, area);
    case TFreeRectChoice::BestShortSideFit:
      return BestFree(width, height, shortSide);
    case TFreeRectChoice::BestLongSideFit:
      return BestFree(width, height, longSide);
    case TFreeRectChoice::WorstAreaFit:
      return BestFree(width, height, worst(area));
    case TFreeRectChoice::WorstShortSideFit:
      return BestFree(width, height, worst(shortSide));
    case TFreeRectChoice::WorstLongSideFit:
      return BestFree(width, height, worst(longSide));
  }
  return FFree.size();
}

void TGuillotineBinPack::SplitFree(std::size_t index, std::int32_t width, std::int32_t height, TGuillotineSplit split) {
  const TRect free = FFree[index];
  FFree.erase(FFree.begin() + static_cast<std::ptrdiff_t>(index));
  const bool alongWidth = CutsAlongWidth(free, width, height, split);
  const std::int32_t right = free.Left + width;
  const std::int32_t below = free.Top + height;
  const TRect pieces[] = {{free.Left, below, alongWidth ? free.Right : right, free.Bottom},
                          {right, free.Top, free.Right, alongWidth ? below : free.Bottom}};
  for (const TRect& piece : pieces) {
    if (!piece.IsEmpty()) FFree.push_back(piece);
  }
}

void TGuillotineBinPack::MergeFree() {
  for (std::size_t i = 0; i < FFree.size(); ++i) {
    for (std::size_t j = i + 1; j < FFree.size(); ++j) {
      if (!Join(FFree[i], FFree[j])) continue;
      FFree.erase(FFree.begin() + static_cast<std::ptrdiff_t>(j));
      j = i;  // the larger one may now join what it did not before
    }
  }
}

TRect TGuillotineBinPack::Insert(std::int32_t width, std::int32_t height, bool merge, TFreeRectChoice choice,
                                 TGuillotineSplit split) {
  if (width < 1 || height < 1 || width > FWidth || height > FHeight) return {};
  const std::size_t index = ChooseFree(width, height, choice);
  if (index == FFree.size()) return {};
  const TPoint place{FFree[index].Left, FFree[index].Top};
  SplitFree(index, width, height, split);
  if (merge) MergeFree();
  FUsed += AreaOf(width, height);
  return {place.X, place.Y, place.X + width, place.Y + height};
}

}  // namespace fmx
