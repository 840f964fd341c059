#include "fmx/CanvasManager.h"

#include <algorithm>
#include <vector>

#include "fmx/Exceptions.h"
#include "fmx/Services.h"

namespace fmx {
namespace {

struct TEntry {
  orv::TClass Class;
  bool IsDefault;
  bool IsPrinter;
};

struct TRegistry {
  std::vector<TEntry> Entries;
  std::unique_ptr<TCanvas> Measure;
};

// Made at its first use, so that start-up code may register whenever it runs.
TRegistry& Registry() {
  static TRegistry registry;
  return registry;
}

orv::TClass FirstThat(bool (*suits)(const TEntry&)) {
  const auto& entries = Registry().Entries;
  const auto found = std::find_if(entries.begin(), entries.end(), suits);
  return found == entries.end() ? nullptr : found->Class;
}

}  // namespace

void TCanvasManager::RegisterCanvas(orv::TClass canvasClass, bool isDefault, bool isPrinter) {
  if (canvasClass != nullptr) Registry().Entries.push_back({canvasClass, isDefault, isPrinter});
}

void TCanvasManager::UnInitialize() {
  Registry().Measure.reset();
  Registry().Entries.clear();
}

orv::TClass TCanvasManager::DefaultCanvas() {
  return FirstThat([](const TEntry& entry) { return entry.IsDefault && !entry.IsPrinter; });
}

orv::TClass TCanvasManager::DefaultPrinterCanvas() {
  return FirstThat([](const TEntry& entry) { return entry.IsPrinter; });
}

std::unique_ptr<TCanvas> TCanvasManager::Create(const TCanvasTarget& target) {
  const orv::TClass canvasClass = DefaultCanvas();
  if (canvasClass == nullptr) throw ENotRegistered("No canvas class is registered");
  return TCanvas::New(canvasClass, target);
}

std::unique_ptr<TCanvas> TCanvasManager::CreateFromBitmap(TBitmap& bitmap) {
  return Create(
      {TCanvasTarget::TKind::Bitmap, &bitmap, nullptr, bitmap.Width(), bitmap.Height(), bitmap.BitmapScale()});
}

std::unique_ptr<TCanvas> TCanvasManager::CreateFromWindow(void* window, std::int32_t pixelWidth,
                                                          std::int32_t pixelHeight, float scale) {
  return Create({TCanvasTarget::TKind::Window, nullptr, window, pixelWidth, pixelHeight, scale});
}

TCanvas& TCanvasManager::MeasureCanvas() {
  auto& measure = Registry().Measure;
  if (!measure) measure = Create({TCanvasTarget::TKind::Measure, nullptr, nullptr, 1, 1, ScreenScale()});
  return *measure;
}

}  // namespace fmx
