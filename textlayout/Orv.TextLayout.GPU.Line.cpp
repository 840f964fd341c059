#include "textlayout/Orv.TextLayout.GPU.Line.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>
#include <vector>

#include "rtl/Assertions.h"
#include "rtl/Strings.h"
#include "rtl/Unicode.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "textlayout/Orv.TextLayout.Internal.h"

namespace orv {
namespace {

bool IsPermutationOfFew(std::span<const std::int32_t> list) {
  std::uint64_t seen = 0;
  for (const std::int32_t entry : list) {
    if (entry < 0 || static_cast<std::size_t>(entry) >= list.size()) return false;
    seen |= std::uint64_t{1} << entry;
  }
  return seen == (~std::uint64_t{0} >> (64 - list.size()));
}

bool IsPermutation(std::span<const std::int32_t> list) {
  if (list.empty()) return true;
  if (list.size() <= 64) return IsPermutationOfFew(list);
  std::vector<bool> seen(list.size());
  for (const std::int32_t entry : list) {
    if (entry < 0 || static_cast<std::size_t>(entry) >= list.size() || seen[static_cast<std::size_t>(entry)])
      return false;
    seen[static_cast<std::size_t>(entry)] = true;
  }
  return true;
}

template <typename TList>
TList InverseOf(const TList& list) {
  TList inverse(list.size(), 0, list.get_allocator());
  std::int32_t place = 0;
  for (const std::int32_t entry : list) inverse[static_cast<std::size_t>(entry)] = place++;
  return inverse;
}

}  // namespace

// --- Runs ---

std::int32_t TGPULine::IndexOf(const TGPURun& run) const {
  for (std::int32_t i = 0; i < Count(); ++i)
    if (ItemAt(i).Run.get() == &run) return i;
  return -1;
}

TGPURun& TGPULine::Add(TStored<TGPURun> run) {
  FItems.push_back({std::move(run)});
  return *FItems.back().Run;
}

// --- The visual order ---

// The list out of the keys. By the rules an entry is the rank of the key at its place; read as places of the items, the
// keys sort the items.
void TGPULine::SettleOrder() const {
  if (!FOrderWaits) return;
  FOrderWaits = false;
  FOrder.resize(static_cast<std::size_t>(Count()));
  std::iota(FOrder.begin(), FOrder.end(), 0);
  const auto byKey = [this](std::int32_t a, std::int32_t b) {
    return std::pair(ItemAt(a).Key, a) < std::pair(ItemAt(b).Key, b);
  };
  if (Count() > 1 && byKey(1, 0)) std::reverse(FOrder.begin(), FOrder.end());  // as right-to-left lines stand
  if (!std::is_sorted(FOrder.begin(), FOrder.end(), byKey)) std::sort(FOrder.begin(), FOrder.end(), byKey);
  if (!ReadsPlaces()) FOrder = InverseOf(FOrder);
}

// Splits of one run get keys between those of its neighbours, and a run is not longer than this.
constexpr std::int64_t KeyStep = std::int64_t{1} << 32;

void TGPULine::UnsettleOrder() {
  if (FOrderWaits) return;
  FOrderWaits = true;
  for (std::int32_t i = 0; i < Count(); ++i) {
    const std::int32_t entry = std::clamp(VisualEntryAt(i), 0, Count() - 1);
    if (ReadsPlaces())
      ItemAt(entry).Key = i * KeyStep;
    else
      ItemAt(i).Key = entry * KeyStep;
  }
}

std::span<const std::int32_t> TGPULine::VisualOrderList() const {
  SettleOrder();
  return FOrder;
}

std::int32_t TGPULine::VisualEntryAt(std::int32_t place) const {
  const auto last = static_cast<std::int32_t>(FOrder.size()) - 1;
  return last < 0 ? 0 : FOrder[static_cast<std::size_t>(std::clamp(place, 0, last))];
}

std::int32_t TGPULine::VisualEntry(std::int32_t place) const {
  SettleOrder();
  return VisualEntryAt(place);
}

void TGPULine::SetVisualOrderList(std::span<const std::int32_t> list) {
  const bool isPermutation = IsPermutation(list);
  ORV_ASSERT(isPermutation, "A visual order is a permutation");
  FOrder.assign(list.begin(), list.end());
  FItems.reserve(FHead + list.size());
  if (!isPermutation) std::iota(FOrder.begin(), FOrder.end(), 0);
  FOrderWaits = false;
}

std::int32_t TGPULine::GetItemIndexByVisualOrderBidi(bool rightToLeft, std::int32_t index) const {
  return VisualEntry(rightToLeft ? Count() - index - 1 : index);
}

std::int32_t TGPULine::FindVisualIndexOf(std::int32_t itemIndex) const {
  const auto list = VisualOrderList();
  const auto found = std::find(list.begin(), list.end(), itemIndex);
  return found == list.end() ? -1 : static_cast<std::int32_t>(found - list.begin());
}

// --- Inserting and deleting ---

TGPURun& TGPULine::Insert(TStored<TGPURun> run, std::int32_t itemIndex, std::int32_t visualIndex) {
  SettleOrder();
  itemIndex = std::clamp(itemIndex, 0, Count());
  const auto place = FItems.begin() + static_cast<std::ptrdiff_t>(FHead) + itemIndex;
  TGPURun& inserted = *FItems.insert(place, {std::move(run)})->Run;
  for (std::int32_t& entry : FOrder)
    if (entry >= itemIndex) ++entry;
  const auto size = static_cast<std::int32_t>(FOrder.size());
  FOrder.insert(FOrder.begin() + std::clamp(visualIndex, 0, size), itemIndex);
  return inserted;
}

// The entries that name the items go; by the rules those at their indices. Entries above those taken close the gaps.
void TGPULine::DeleteRange(std::int32_t from, std::int32_t count) {
  SettleOrder();
  from = std::clamp(from, 0, Count());
  count = std::clamp(count, 0, Count() - from);
  const auto firstItem = FItems.begin() + static_cast<std::ptrdiff_t>(FHead) + from;
  FItems.erase(firstItem, firstItem + count);
  const auto isNamed = [=](std::int32_t entry) { return entry >= from && entry < from + count; };
  const auto first = FOrder.begin() + from;
  if (ReadsPlaces()) {
    FOrder.erase(std::remove_if(FOrder.begin(), FOrder.end(), isNamed), FOrder.end());
    for (std::int32_t& entry : FOrder)
      if (entry >= from) entry -= count;
  } else {
    std::vector<std::int32_t> taken(first, first + count);
    FOrder.erase(first, first + count);
    std::sort(taken.begin(), taken.end());
    for (std::int32_t& entry : FOrder)
      entry -= static_cast<std::int32_t>(std::lower_bound(taken.begin(), taken.end(), entry) - taken.begin());
  }
  ORV_ASSERT(FOrder.size() == static_cast<std::size_t>(Count()),
             "A line has one entry of its visual order for each run");
}

void TGPULine::DeleteRuns(std::span<TGPURun* const> runs) {
  if (!ReadsPlaces()) {
    for (const TGPURun* run : runs) Delete(IndexOf(*run));
    return;
  }
  // All at once: the places of the items that stay are the keys of their order.
  UnsettleOrder();
  std::vector<const TGPURun*> sorted(runs.begin(), runs.end());
  std::sort(sorted.begin(), sorted.end());
  const auto isDeleted = [&](const TItem& item) {
    return std::binary_search(sorted.begin(), sorted.end(), item.Run.get());
  };
  FItems.erase(std::remove_if(FItems.begin() + static_cast<std::ptrdiff_t>(FHead), FItems.end(), isDeleted),
               FItems.end());
}

// --- Splitting ---

TStored<TGPULine> TGPULine::Split(TGPURun& run, std::int32_t atomIndex, bool skipSpace) {
  return BreakLine(run, TSplitIndex::Of(atomIndex, run.UCS4IndexToUTF16Index(atomIndex)), skipSpace);
}

// The new line gets the first run, where there is one, in the place of the item at from, and the items behind it. It
// takes over the memory of all items, since few of them stay as a rule: a long text would else be moved once per line.
TStored<TGPULine> TGPULine::MoveToNewLine(std::int32_t from, TStored<TGPURun> first) {
  const bool wasPlaced = !FOrderWaits;
  UnsettleOrder();
  auto line = FStore->New<TGPULine>(*FStore);
  line->FStartIndex = FStartIndex;
  line->FTabsSplit = FTabsSplit;
  line->FOrderWaits = true;
  const std::int32_t kept = first ? from + 1 : from;
  TStoredVector<TItem> keptItems(FItems.get_allocator());
  keptItems.reserve(static_cast<std::size_t>(kept));
  for (std::int32_t i = 0; i < kept; ++i) keptItems.push_back(std::move(ItemAt(i)));
  line->FItems = std::move(FItems);
  line->FHead = FHead + static_cast<std::size_t>(from);
  if (first) line->ItemAt(0) = {std::move(first), keptItems.back().Key};
  FItems = std::move(keptItems);
  FHead = 0;
  if (FStore->HasRenderers) line->MoveRenderersDown();
  line->FIsRest = !wasPlaced || FIsRest;
  if (wasPlaced) line->MoveToTheLeftEdge();
  return line;
}

void TGPULine::MoveRenderersDown() const {
  for (std::int32_t i = 0; i < Count(); ++i)
    if (auto* renderer = Item(i).InternalRenderer()) renderer->MoveOneLineDown();
}

void TGPULine::MoveToTheLeftEdge() {
  const float left = VisualFirst().ImageRect().Left;
  if (left != 0) OffsetEachRunXPosition(-left);
  UnsettleOrder();
}

TStored<TGPULine> TGPULine::BreakLine(TGPURun& run, TSplitIndex at, bool skipSpace) {
  const std::int32_t index = IndexOf(run);
  if (index < 0 || (index == Count() - 1 && at.Utf32Index == run.UCS4Length())) return nullptr;
  return MoveToNewLine(index, skipSpace ? run.SplitAndSkipSpace(at) : run.Split(at));
}

TStored<TGPULine> TGPULine::SplitBeforeRun(TGPURun& run) {
  const std::int32_t index = IndexOf(run);
  if (index <= 0 || (index == Count() - 1 && run.Length() == 0)) return nullptr;
  return MoveToNewLine(index, nullptr);
}

// --- Tabs ---

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

void TGPULine::SplitLeadingTabs(std::u16string_view text, bool rightToLeft) {
  const auto leadsTab = [&](const TGPURun& run) {
    return run.Length() > 1 && rtl::UnitAt(text, run.StartIndex()) == u'\t';
  };
  const std::int32_t asked = std::exchange(FTabsSplit, true) ? std::min(Count(), 1) : Count();
  bool hasTab = false;
  for (std::int32_t i = 0; i < asked && !hasTab; ++i) hasTab = leadsTab(Item(i));
  if (!hasTab) return;
  if (!ReadsPlaces()) {
    for (std::int32_t i = 0; i < Count(); ++i)
      if (leadsTab(Item(i)))
        Insert(Item(i).Split(TSplitIndex::Of(1, 1)), i + 1, FindVisualIndexOf(i) + (rightToLeft ? 0 : 1));
    return;
  }
  UnsettleOrder();
  TStoredVector<TItem> items(FItems.get_allocator());
  items.reserve(static_cast<std::size_t>(asked));
  for (std::int32_t i = 0; i < asked; ++i) {
    items.push_back(std::move(ItemAt(i)));
    while (leadsTab(*items.back().Run)) {
      const std::int64_t key = items.back().Key + (rightToLeft ? -1 : 1);
      items.push_back({items.back().Run->Split(TSplitIndex::Of(1, 1)), key});
    }
  }
  ReplaceFront(asked, std::move(items));
}

// The items take the place of that many ones at the front.
void TGPULine::ReplaceFront(std::int32_t count, TStoredVector<TItem> items) {
  FHead += static_cast<std::size_t>(count);
  if (items.size() > FHead) {  // room in front for as many again
    const std::size_t room = FItems.size() + items.size();
    TStoredVector<TItem> wider(FItems.get_allocator());
    wider.resize(room);
    std::move(FItems.begin() + static_cast<std::ptrdiff_t>(FHead), FItems.end(), std::back_inserter(wider));
    FItems = std::move(wider);
    FHead = room;
  }
  FHead -= items.size();
  std::move(items.begin(), items.end(), FItems.begin() + static_cast<std::ptrdiff_t>(FHead));
}

// --- Size and place ---

void TGPULine::MakeAtLeastAsHighAs(float height) {
  FHeight = std::max(FHeight, height);
}

void TGPULine::ResetSize() {
  FWidth = 0;
  FHeight = 0;
  const std::int32_t count = FIsRest ? std::min(Count(), 1) : Count();
  for (std::int32_t i = 0; i < count; ++i) Item(i).SetImageRect({});
}

void TGPULine::OffsetEachRunXPosition(float delta) {
  for (std::int32_t i = 0; i < Count(); ++i) Item(i).OffsetX(delta);
}

void TGPULine::RepositionFrom(std::int32_t visualIndex, float delta) {
  for (std::int32_t i = std::max(visualIndex, 0); i < Count(); ++i) GetItemByVisualOrder(i).OffsetX(delta);
}

// --- The frame ---

std::unique_ptr<TFrameStore> TGPUFrame::TakeStore(std::unique_ptr<TGPUFrame> frame) {
  if (!frame) return nullptr;
  auto store = std::move(frame->FStore);
  frame.reset();
  return store;
}

TStored<TGPULine> TGPUFrame::TakeLast() {
  auto line = std::move(FLines.back());
  FLines.pop_back();
  return line;
}

TGPULine& TGPUFrame::Add(TStored<TGPULine> line) {
  FLines.push_back(std::move(line));
  return *FLines.back();
}

void TGPUFrame::Insert(std::int32_t index, TStored<TGPULine> line) {
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
