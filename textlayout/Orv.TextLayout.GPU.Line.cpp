#include "textlayout/Orv.TextLayout.GPU.Line.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "rtl/Assertions.h"
#include "rtl/Strings.h"
#include "rtl/Unicode.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "textlayout/Orv.TextLayout.Internal.h"

namespace orv {
namespace {

bool IsPermutation(std::span<const std::int32_t> list) {
  std::vector<bool> seen(list.size());
  for (const std::int32_t entry : list) {
    if (entry < 0 || static_cast<std::size_t>(entry) >= list.size() || seen[static_cast<std::size_t>(entry)])
      return false;
    seen[static_cast<std::size_t>(entry)] = true;
  }
  return true;
}

// Each key's place among all of them.
std::vector<std::int32_t> RanksOf(std::span<const std::int32_t> keys) {
  std::vector<std::int32_t> positions(keys.size());
  std::iota(positions.begin(), positions.end(), 0);
  const auto keyOf = [keys](std::int32_t position) { return keys[static_cast<std::size_t>(position)]; };
  std::stable_sort(positions.begin(), positions.end(),
                   [&](std::int32_t a, std::int32_t b) { return keyOf(a) < keyOf(b); });
  std::vector<std::int32_t> ranks(keys.size());
  std::int32_t rank = 0;
  for (const std::int32_t position : positions) ranks[static_cast<std::size_t>(position)] = rank++;
  return ranks;
}

}  // namespace

// --- Runs ---

TGPURun& TGPULine::Item(std::int32_t index) const {
  ORV_ASSERT(index >= 0 && index < Count(), "No run of the line");
  return *FRuns[static_cast<std::size_t>(std::clamp(index, 0, Count() - 1))];
}

std::int32_t TGPULine::IndexOf(const TGPURun& run) const {
  const auto found = std::find_if(FRuns.begin(), FRuns.end(), [&](const auto& each) { return each.get() == &run; });
  return found == FRuns.end() ? -1 : static_cast<std::int32_t>(found - FRuns.begin());
}

TGPURun& TGPULine::Add(std::unique_ptr<TGPURun> run) {
  FRuns.push_back(std::move(run));
  return *FRuns.back();
}

std::int32_t TGPULine::VisualEntry(std::int32_t place) const {
  if (FVisualOrderList.empty()) return 0;
  const auto last = static_cast<std::int32_t>(FVisualOrderList.size()) - 1;
  return FVisualOrderList[static_cast<std::size_t>(std::clamp(place, 0, last))];
}

void TGPULine::SetVisualOrderList(std::vector<std::int32_t> list) {
  const bool isPermutation = IsPermutation(list);
  ORV_ASSERT(isPermutation, "A visual order is a permutation");
  if (!isPermutation) std::iota(list.begin(), list.end(), 0);
  FVisualOrderList = std::move(list);
}

std::int32_t TGPULine::GetItemIndexByVisualOrderBidi(bool rightToLeft, std::int32_t index) const {
  return VisualEntry(rightToLeft ? Count() - index - 1 : index);
}

std::int32_t TGPULine::FindVisualIndexOf(std::int32_t itemIndex) const {
  const auto found = std::find(FVisualOrderList.begin(), FVisualOrderList.end(), itemIndex);
  return found == FVisualOrderList.end() ? -1 : static_cast<std::int32_t>(found - FVisualOrderList.begin());
}

TGPURun& TGPULine::Insert(std::unique_ptr<TGPURun> run, std::int32_t itemIndex, std::int32_t visualIndex) {
  itemIndex = std::clamp(itemIndex, 0, Count());
  TGPURun& inserted = **FRuns.insert(FRuns.begin() + itemIndex, std::move(run));
  for (std::int32_t& entry : FVisualOrderList)
    if (entry >= itemIndex) ++entry;
  const auto size = static_cast<std::int32_t>(FVisualOrderList.size());
  FVisualOrderList.insert(FVisualOrderList.begin() + std::clamp(visualIndex, 0, size), itemIndex);
  return inserted;
}

void TGPULine::Delete(std::int32_t itemIndex) {
  DeleteRange(itemIndex, 1);
}

// An item takes with it the entry at its index. Entries above those taken close the gaps.
void TGPULine::DeleteRange(std::int32_t from, std::int32_t count) {
  from = std::clamp(from, 0, Count());
  count = std::clamp(count, 0, Count() - from);
  FRuns.erase(FRuns.begin() + from, FRuns.begin() + from + count);
  const auto first = FVisualOrderList.begin() + from;
  std::vector<std::int32_t> taken(first, first + count);
  FVisualOrderList.erase(first, first + count);
  std::sort(taken.begin(), taken.end());
  for (std::int32_t& entry : FVisualOrderList)
    entry -= static_cast<std::int32_t>(std::lower_bound(taken.begin(), taken.end(), entry) - taken.begin());
  ORV_ASSERT(FVisualOrderList.size() == FRuns.size(), "A line has one entry of its visual order for each run");
}

// --- Splitting ---

std::unique_ptr<TGPULine> TGPULine::Split(TGPURun& run, std::int32_t atomIndex, bool skipSpace) {
  return BreakLine(run, TSplitIndex::Of(atomIndex, run.UCS4IndexToUTF16Index(atomIndex)), skipSpace);
}

// The new line gets the first run, where there is one, in the place of the item at from, and the items behind it. Its
// visual order is that of the entries at the items' indices.
std::unique_ptr<TGPULine> TGPULine::MoveToNewLine(std::int32_t from, std::unique_ptr<TGPURun> first) {
  auto line = std::make_unique<TGPULine>();
  line->FStartIndex = FStartIndex;
  const std::int32_t kept = first ? from + 1 : from;
  const auto keysStart = FVisualOrderList.begin() + from;
  const std::vector<std::int32_t> keys(keysStart, FVisualOrderList.end());
  line->FRuns.reserve(keys.size());
  if (first) line->FRuns.push_back(std::move(first));
  std::move(FRuns.begin() + kept, FRuns.end(), std::back_inserter(line->FRuns));
  for (const auto& run : line->FRuns)
    if (auto* renderer = run->InternalRenderer()) renderer->MoveOneLineDown();
  DeleteRange(kept, Count() - kept);
  line->FVisualOrderList = RanksOf(keys);
  if (const float left = line->VisualFirst().ImageRect().Left; left != 0) line->RepositionFrom(0, -left);
  return line;
}

std::unique_ptr<TGPULine> TGPULine::BreakLine(TGPURun& run, TSplitIndex at, bool skipSpace) {
  const std::int32_t index = IndexOf(run);
  if (index < 0 || (index == Count() - 1 && at.Utf32Index == run.UCS4Length())) return nullptr;
  return MoveToNewLine(index, skipSpace ? run.SplitAndSkipSpace(at) : run.Split(at));
}

std::unique_ptr<TGPULine> TGPULine::SplitBeforeRun(TGPURun& run) {
  const std::int32_t index = IndexOf(run);
  if (index <= 0 || (index == Count() - 1 && run.Length() == 0)) return nullptr;
  return MoveToNewLine(index, nullptr);
}

void TGPULine::SplitAtTabs(const TTextLayoutNGOrv& layout, std::int32_t itemIndex, std::int32_t visualIndex) {
  TGPURun& run = Item(itemIndex);
  if (run.HasInternalRenderer()) return;
  const auto unitAt = [&](std::int32_t index) { return rtl::UnitAt(layout.CharSequence(), run.StartIndex() + index); };
  std::int32_t surrogates = 0;  // pairs behind the index, up to the last cut
  bool inTabs = unitAt(run.Length() - 1) == u'\t';
  for (std::int32_t i = run.Length() - 1; i > 1; --i) {
    const bool isTab = unitAt(i) == u'\t';
    if (isTab != inTabs) {
      const std::int32_t cut = i + 1;
      const std::int32_t atom = run.UCS4Length() - (run.Length() - cut) + surrogates;
      Insert(run.Split(TSplitIndex::Of(atom, cut)), itemIndex + 1, visualIndex + 1);
      surrogates = 0;
      inTabs = isTab;
    }
    if (rtl::IsLowSurrogate(unitAt(i)) && rtl::IsHighSurrogate(unitAt(i - 1))) ++surrogates;
  }
}

// --- Size and place ---

void TGPULine::MakeAtLeastAsHighAs(float height) {
  FHeight = std::max(FHeight, height);
}

void TGPULine::ResetSize() {
  FWidth = 0;
  FHeight = 0;
  for (const auto& run : FRuns) run->SetImageRect({});
}

void TGPULine::OffsetEachRunXPosition(float delta) {
  for (const auto& run : FRuns) run->OffsetX(delta);
}

void TGPULine::RepositionFrom(std::int32_t visualIndex, float delta) {
  for (std::int32_t i = std::max(visualIndex, 0); i < Count(); ++i) GetItemByVisualOrder(i).OffsetX(delta);
}

// --- The frame ---

TGPULine& TGPUFrame::Add(std::unique_ptr<TGPULine> line) {
  FLines.push_back(std::move(line));
  return *FLines.back();
}

void TGPUFrame::Insert(std::int32_t index, std::unique_ptr<TGPULine> line) {
  FLines.insert(FLines.begin() + std::clamp(index, 0, Count()), std::move(line));
}

void TGPUFrame::Delete(std::int32_t index) {
  if (index >= 0 && index < Count()) FLines.erase(FLines.begin() + index);
}

std::int64_t TGPUFrame::TextLength() const {
  std::int64_t length = 0;
  for (const auto& line : FLines)
    for (std::int32_t i = 0; i < line->Count(); ++i) length += line->Item(i).Length();
  return length;
}

}  // namespace orv
