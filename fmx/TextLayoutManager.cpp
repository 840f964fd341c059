#include "fmx/TextLayoutManager.h"

#include <algorithm>
#include <vector>

#include "fmx/CanvasManager.h"
#include "fmx/Exceptions.h"

namespace fmx {
namespace {

struct TEntry {
  orv::TClass Layout;
  orv::TClass Canvas;
};

std::vector<TEntry>& Entries() {
  static std::vector<TEntry> entries;
  return entries;
}

orv::TClass ExactlyFor(orv::TClass canvasClass) {
  const auto& entries = Entries();
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [canvasClass](const TEntry& entry) { return entry.Canvas == canvasClass; });
  return found == entries.end() ? nullptr : found->Layout;
}

}  // namespace

void TTextLayoutManager::RegisterTextLayout(orv::TClass layoutClass, orv::TClass canvasClass) {
  if (layoutClass != nullptr && canvasClass != nullptr) Entries().push_back({layoutClass, canvasClass});
}

void TTextLayoutManager::UnInitialize() {
  Entries().clear();
}

orv::TClass TTextLayoutManager::TextLayoutByCanvas(orv::TClass canvasClass) {
  for (orv::TClass c = canvasClass; c != nullptr; c = orv::ClassParent(c)) {
    if (const orv::TClass layout = ExactlyFor(c)) return layout;
  }
  return nullptr;
}

orv::TClass TTextLayoutManager::GetDefaultLayout() {
  return TextLayoutByCanvas(TCanvasManager::DefaultCanvas());
}

std::unique_ptr<TTextLayout> TTextLayoutManager::CreateLayout(TCanvas* canvas) {
  const orv::TClass layoutClass = canvas == nullptr ? GetDefaultLayout() : TextLayoutByCanvas(canvas->ClassType());
  if (layoutClass == nullptr) throw ENotRegistered("No text layout class is registered for the canvas");
  return TTextLayout::New(layoutClass, canvas);
}

}  // namespace fmx
