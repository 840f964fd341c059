// The lines of a laid-out text.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "fmx/Geometry.h"
#include "textlayout/Orv.TextLayout.GPU.Run.h"

namespace orv {

class TTextLayoutNGOrv;

// A line: its runs in logical order, and the order in which they are seen. A run is told by its item index, its place
// in logical order, or by its visual index, its place counted from the left.
//
// The visual order list is a permutation of the item indices. GetItemByVisualOrder reads it as a map from visual to
// item index. Delete, BreakLine and SplitBeforeRun read the entry at an item index as that item's visual place. For
// lines that are reordered but not simply mirrored the two readings differ, and are both part of how such lines wrap.
class TGPULine {
 public:
  // --- Runs ---

  std::int32_t Count() const { return static_cast<std::int32_t>(FRuns.size()); }
  bool IsEmpty() const { return FRuns.empty(); }
  // The index is held within the line, which is not empty.
  TGPURun& Item(std::int32_t index) const;
  // -1 where the run is not of this line.
  std::int32_t IndexOf(const TGPURun& run) const;
  TGPURun& Add(std::unique_ptr<TGPURun> run);

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

  std::span<const std::int32_t> VisualOrderList() const { return FVisualOrderList; }
  // The entry at the place, which is held within the list; 0 in an empty one.
  std::int32_t VisualEntry(std::int32_t place) const;
  // A permutation of the indices of the runs that the line has or is about to get; anything else is a broken invariant
  // and counts as the logical order.
  void SetVisualOrderList(std::vector<std::int32_t> list);

  // Puts the run at the item index and its index at the visual place; beyond the end it is appended.
  TGPURun& Insert(std::unique_ptr<TGPURun> run, std::int32_t itemIndex, std::int32_t visualIndex);
  void Delete(std::int32_t itemIndex);
  void DeleteByVisualOrderIndex(std::int32_t visualIndex) { Delete(VisualEntry(visualIndex)); }
  // The items from that index on; runs that were moved out before are no longer there to be destroyed.
  void DeleteRange(std::int32_t from, std::int32_t count);

  // --- Splitting ---

  // Splits the run before the atom and moves what follows to a new line; with skipSpace the unit there goes. Null where
  // nothing would move.
  std::unique_ptr<TGPULine> Split(TGPURun& run, std::int32_t atomIndex, bool skipSpace);
  std::unique_ptr<TGPULine> BreakLine(TGPURun& run, TSplitIndex at, bool skipSpace);
  // Moves the run and all behind it to a new line. Null for the first run, and for an empty one that is the last.
  std::unique_ptr<TGPULine> SplitBeforeRun(TGPURun& run);
  // Cuts a run of the layout's text so that tabs and what stands between them are runs of their own, the new ones
  // behind the item and visual index.
  void SplitAtTabs(const TTextLayoutNGOrv& layout, std::int32_t itemIndex, std::int32_t visualIndex);

  // --- Size and place ---

  float Width() const { return FWidth; }
  void SetWidth(float width) { FWidth = width; }
  float Height() const { return FHeight; }
  void SetHeight(float height) { FHeight = height; }
  void MakeAtLeastAsHighAs(float height);
  fmx::TPointF TopLeft() const { return FTopLeft; }
  void SetTopLeft(fmx::TPointF topLeft) { FTopLeft = topLeft; }
  float Bottom() const { return FTopLeft.Y + FHeight; }

  // No width, no height, and no box of any run.
  void ResetSize();
  void OffsetEachRunXPosition(float delta);
  // The runs from that visual index on.
  void RepositionFrom(std::int32_t visualIndex, float delta);

  // The position of the line's paragraph: of the text's start, or of the line end before it. A line made by wrapping
  // has that of the line it was cut from.
  std::int32_t StartIndex() const { return FStartIndex; }
  void SetStartIndex(std::int32_t start) { FStartIndex = start; }

 private:
  std::unique_ptr<TGPULine> MoveToNewLine(std::int32_t from, std::unique_ptr<TGPURun> first);

  std::vector<std::unique_ptr<TGPURun>> FRuns;
  std::vector<std::int32_t> FVisualOrderList;
  fmx::TPointF FTopLeft;
  float FHeight = 0;
  float FWidth = 0;
  std::int32_t FStartIndex = 0;
};

// All lines of a text. Sizes are logical units.
class TGPUFrame {
 public:
  std::int32_t Count() const { return static_cast<std::int32_t>(FLines.size()); }
  bool IsEmpty() const { return FLines.empty(); }
  // The index is within the frame.
  TGPULine& Line(std::int32_t index) const { return *FLines[static_cast<std::size_t>(index)]; }
  TGPULine& Add(std::unique_ptr<TGPULine> line);
  void Insert(std::int32_t index, std::unique_ptr<TGPULine> line);
  void Delete(std::int32_t index);

  float Width() const { return FWidth; }
  void SetWidth(float width) { FWidth = width; }
  float Height() const { return FHeight; }
  void SetHeight(float height) { FHeight = height; }
  fmx::TPointF TopLeft() const { return FTopLeft; }
  void SetTopLeft(fmx::TPointF topLeft) { FTopLeft = topLeft; }

  // The units that its runs stand for.
  std::int64_t TextLength() const;

 private:
  std::vector<std::unique_ptr<TGPULine>> FLines;
  float FHeight = 0;
  float FWidth = 0;
  fmx::TPointF FTopLeft;
};

}  // namespace orv
