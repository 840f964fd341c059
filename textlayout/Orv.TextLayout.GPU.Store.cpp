#include "textlayout/Orv.TextLayout.GPU.Store.h"

#include <algorithm>

namespace orv {

void TFrameStore::AddBlock(std::size_t size) {
  const std::size_t grown = FBlocks.empty() ? FirstBlock : 2 * FBlocks.back().Size;
  size = std::max(size, grown);
  FBlocks.push_back({std::unique_ptr<std::byte[]>(new std::byte[size]), size});
  FNext = FBlocks.back().Memory.get();
  FEnd = FNext + size;
}

// The last block is the largest. A text that is laid out again and again soon has one block that takes it all.
void TFrameStore::Reset(TOrvCorrections corrections) {
  FCorrections = corrections;
  Atoms.clear();
  Places.clear();
  HasRenderers = false;
  if (FBlocks.empty()) return;
  FBlocks.erase(FBlocks.begin(), FBlocks.end() - 1);
  FNext = FBlocks.back().Memory.get();
  FEnd = FNext + FBlocks.back().Size;
}

}  // namespace orv
