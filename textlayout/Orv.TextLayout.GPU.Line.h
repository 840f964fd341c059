// The lines of a laid-out text.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "fmx/Geometry.h"
#include "rtl/Assertions.h"
#include "textlayout/Orv.TextLayout.GPU.Run.h"

namespace orv {

class TTextLayoutNGOrv;

// A line: its runs in logical order, and the order in which they are seen. A run is told by its item index, its place
// in logical order, or by its visual index, its place counted from the left.
//
// The visual order list is a permutation of the item indices. GetItemByVisualOrder reads it as a map from visual to
// item index. With VisualOrders everything does. By the rules Delete, BreakLine and SplitBeforeRun read the entry at an
// item index as that item's visual place: for lines that are reordered but not simply mirrored the two readings differ,
// and both are part of how such lines wrap.
class TGPULine {
 public:
  // Of the frame with that store, which it borrows.
  explicit TGPULine(TFrameStore& store) : FStore(&store), FItems(TAllocator(store)), FOrder(TAllocator(store)) {}
  TGPULine(const TGPULine&) = delete;
  TGPULine& operator=(const TGPULine&) = delete;

  // --- Runs ---

  std::int32_t Count() const { return static_cast<std::int32_t>(FItems.size() - FHead); }
  bool IsEmpty() const { return Count() == 0; }
  // The index is held within the line, which is not empty.
  TGPURun& Item(std::int32_t index) const {
    ORV_ASSERT(index >= 0 && index < Count(), "No run of the line");
    return *ItemAt(std::clamp(index, 0, Count() - 1)).Run;
  }
  // -1 where the run is not of this line.
  std::int32_t IndexOf(const TGPURun& run) const;
  TGPURun& Add(TStored<TGPURun> run);

  TGPURun& VisualFirst() const { return GetItemByVisualOrder(0); }
  TGPURun& VisualLast() const { return GetItemByVisualOrder(Count() - 1); }
  TGPURun& GetItemByVisualOrder(std::int32_t visualIndex) const { return Item(VisualEntry(visualIndex)); }
  // Counted from the end where the reading goes from right to left.
  std::int32_t GetItemIndexByVisualOrderBidi(bool rightToLeft, std::int32_t index) const;
  TGPURun& GetItemByVisualOrderBidi(bool rightToLeft, std::int32_t index) const {
    return Item(GetItemIndexByVisualOrderBidi(rightToLeft, index));
  }
  // The place in the list that holds the item index, or -1.
  std::int32_t FindVisualIndexOf(std::int32_t itemIndex) const;

  std::span<const std::int32_t> VisualOrderList() const;
  // The entry at the place, which is held within the list; 0 in an empty one.
  std::int32_t VisualEntry(std::int32_t place) const;
  // A permutation of the indices of the runs that the line has or is about to get; anything else is a broken invariant
  // and counts as the logical order.
  void SetVisualOrderList(std::span<const std::int32_t> list);

  // Puts the run at the item index and its index at the visual place; beyond the end it is appended.
  TGPURun& Insert(TStored<TGPURun> run, std::int32_t itemIndex, std::int32_t visualIndex);
  void Delete(std::int32_t itemIndex) { DeleteRange(itemIndex, 1); }
  void DeleteByVisualOrderIndex(std::int32_t visualIndex) { Delete(VisualEntry(visualIndex)); }
  // Runs of the line, in that order.
  void DeleteRuns(std::span<TGPURun* const> runs);
  // The items from that index on.
  void DeleteRange(std::int32_t from, std::int32_t count);

  // --- Splitting ---

  // At the atom; see BreakLine.
  TStored<TGPULine> Split(TGPURun& run, std::int32_t atomIndex, bool skipSpace);
  // The rest of the line from the split of the run on, as a line of its own; null at the end of the last run. It takes
  // as long as the part that stays is large.
  TStored<TGPULine> BreakLine(TGPURun& run, TSplitIndex at, bool skipSpace);
  // The same from the run on; null where nothing stands before it, or nothing but an empty run is left.
  TStored<TGPULine> SplitBeforeRun(TGPURun& run);
  // Cuts a run that has no internal text layout so that tabs and texts have runs of their own, but for its first two
  // units.
  void SplitAtTabs(const TTextLayoutNGOrv& layout, std::int32_t itemIndex, std::int32_t visualIndex);
  // Cuts every run of the line so that no more than one tab stands before its text. What follows a tab stands behind it
  // in logical order, and in visual order on its right, or on its left where the layout reads from right to left. A
  // rest that wrapping makes is asked about its first run alone.
  void SplitLeadingTabs(std::u16string_view text, bool rightToLeft);

  // --- Size and place ---

  float Width() const { return FWidth; }
  void SetWidth(float width) { FWidth = width; }
  float Height() const { return FHeight; }
  void SetHeight(float height) { FHeight = height; }
  void MakeAtLeastAsHighAs(float height);
  fmx::TPointF TopLeft() const { return FTopLeft; }
  void SetTopLeft(fmx::TPointF topLeft) { FTopLeft = topLeft; }
  float Bottom() const { return FTopLeft.Y + FHeight; }

  // No width, no height, and no box of any run. Of a rest that wrapping made only the first run can have one.
  void ResetSize();
  void OffsetEachRunXPosition(float delta);
  // The runs from that visual index on.
  void RepositionFrom(std::int32_t visualIndex, float delta);

  // The position of the line's paragraph: of the text's start, or of the line end before it. A line made by wrapping
  // has that of the line it was cut from.
  std::int32_t StartIndex() const { return FStartIndex; }
  void SetStartIndex(std::int32_t start) { FStartIndex = start; }

 private:
  // With its key for the visual order, as long as that waits.
  struct TItem {
    TStored<TGPURun> Run;
    std::int64_t Key = 0;
  };
  using TAllocator = TStoreAllocator<TItem>;

  TItem& ItemAt(std::int32_t index) { return FItems[FHead + static_cast<std::size_t>(index)]; }
  const TItem& ItemAt(std::int32_t index) const { return FItems[FHead + static_cast<std::size_t>(index)]; }
  bool ReadsPlaces() const { return FStore->Corrects(TOrvCorrection::VisualOrders); }
  void SettleOrder() const;
  void UnsettleOrder();
  TStored<TGPULine> MoveToNewLine(std::int32_t from, TStored<TGPURun> first);
  std::int32_t VisualEntryAt(std::int32_t place) const;
  void MoveRenderersDown() const;
  void MoveToTheLeftEdge();
  void ReplaceFront(std::int32_t count, TStoredVector<TItem> items);

  TFrameStore* FStore;
  // The runs from FHead on; those before went to an earlier line.
  TStoredVector<TItem> FItems;
  std::size_t FHead = 0;
  // A rest that wrapping leaves keeps the keys of its runs, and makes its list when it is asked for.
  mutable TStoredVector<std::int32_t> FOrder;
  mutable bool FOrderWaits = false;
  bool FTabsSplit = false;  // no run but the first can begin with a tab
  bool FIsRest = false;     // no run but the first can have a box
  fmx::TPointF FTopLeft;
  float FHeight = 0;
  float FWidth = 0;
  std::int32_t FStartIndex = 0;
};

// All lines of a text. Sizes are logical units.
class TGPUFrame {
 public:
  explicit TGPUFrame(std::unique_ptr<TFrameStore> store)
      : FStore(std::move(store)), FLines(TStoreAllocator<TStored<TGPULine>>(*FStore)) {}
  TGPUFrame(const TGPUFrame&) = delete;
  TGPUFrame& operator=(const TGPUFrame&) = delete;

  TFrameStore& Store() const { return *FStore; }
  // Ends the frame, for another one to use its memory.
  static std::unique_ptr<TFrameStore> TakeStore(std::unique_ptr<TGPUFrame> frame);

  std::int32_t Count() const { return static_cast<std::int32_t>(FLines.size()); }
  bool IsEmpty() const { return FLines.empty(); }
  // The index is within the frame.
  TGPULine& Line(std::int32_t index) const { return *FLines[static_cast<std::size_t>(index)]; }
  TGPULine& Add(TStored<TGPULine> line);
  void Insert(std::int32_t index, TStored<TGPULine> line);
  void Delete(std::int32_t index);
  // Takes the last line out of the frame.
  TStored<TGPULine> TakeLast();

  float Width() const { return FWidth; }
  void SetWidth(float width) { FWidth = width; }
  float Height() const { return FHeight; }
  void SetHeight(float height) { FHeight = height; }
  fmx::TPointF TopLeft() const { return FTopLeft; }
  void SetTopLeft(fmx::TPointF topLeft) { FTopLeft = topLeft; }

  // The units that its runs stand for.
  std::int64_t TextLength() const;

 private:
  std::unique_ptr<TFrameStore> FStore;
  TStoredVector<TStored<TGPULine>> FLines;
  float FHeight = 0;
  float FWidth = 0;
  fmx::TPointF FTopLeft;
};

}  // namespace orv
