// Host frameworks for tests of the installation: canvases under the names that the installation knows, with layouts
// that tell what is asked of them.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "fmx/CanvasManager.h"
#include "fmx/GPUTextLayout.h"
#include "fmx/NativeTextLayout.h"
#include "fmx/NullCanvas.h"
#include "fmx/Services.h"
#include "fmx/TextLayoutManager.h"

namespace orv::testing {

// What canvases and layouts did, in order.
inline std::vector<std::string>& Told() {
  static std::vector<std::string> told;
  return told;
}

// A canvas of that number; each number is a class of its own.
template <int Number>
class THostCanvas : public fmx::TNullCanvas {
 public:
  static orv::TClass Class() { return CompiledCanvas<THostCanvas, fmx::TNullCanvas>("Host.Canvas", Name); }
  explicit THostCanvas(const fmx::TCanvasTarget& target, orv::TClass aClass = Class()) : TNullCanvas(target, aClass) {}

  bool DoBeginScene(std::span<const fmx::TRectF>, void*) {
    Told().push_back("begin");
    return !Refuses;
  }
  void DoEndScene() {
    Told().push_back("end");
    if (Fails) throw rtl::Exception("The window is gone");
  }

  static constexpr const char* Names[] = {"TCanvasGpu", "TCanvasD2D", "TCanvasGdiPlus", "TCanvasOther",
                                          "TCanvasPrinter"};
  static constexpr const char* Name = Names[Number];
  static inline bool Refuses = false;
  static inline bool Fails = false;
};
using THostGpu = THostCanvas<0>;
using THostD2D = THostCanvas<1>;
using THostGdiPlus = THostCanvas<2>;
using THostOther = THostCanvas<3>;
using THostPrinter = THostCanvas<4>;

// An engine that answers what the test tells it.
class TScriptedEngine : public fmx::INativeTextLayout {
 public:
  fmx::TNativeHitMetrics HitTestPoint(float x, float y, bool& trailing, bool& inside) override {
    Point = {x, y};
    trailing = Trailing;
    inside = Inside;
    return Hit;
  }
  std::size_t HitTestTextRange(std::uint32_t position, std::uint32_t length, float originX, float originY,
                               std::span<fmx::TNativeHitMetrics> stretches) override {
    Asked = {static_cast<std::int32_t>(position), static_cast<std::int32_t>(length)};
    Origin = {originX, originY};
    Room = stretches.size();
    if (!HasStretch || stretches.empty()) return 0;
    stretches[0] = Stretch;
    return 1;
  }

  bool Trailing = false;
  bool Inside = true;
  bool HasStretch = true;
  fmx::TNativeHitMetrics Hit;
  fmx::TNativeHitMetrics Stretch;
  fmx::TPointF Point;  // asked for last
  fmx::TTextRange Asked{-1, -1};
  fmx::TPointF Origin;
  std::size_t Room = 0;
};

// The layout of a host whose texts an engine lays out: a box of 100 by 20 at (10, 5).
class THostD2DLayout : public fmx::TNativeTextLayout {
 public:
  static orv::TClass Class() {
    return CompiledLayout<THostD2DLayout, fmx::TNativeTextLayout>("Host.D2D", "TTextLayoutD2D");
  }
  explicit THostD2DLayout(fmx::TCanvas* canvas = nullptr, orv::TClass aClass = Class())
      : TNativeTextLayout(canvas, aClass) {}

  fmx::INativeTextLayout* NativeLayout() override { return Engine; }
  fmx::TNativeTextMetrics NativeMetrics() const override { return Metrics; }

  void DoRenderLayout() { Told().push_back(RightToLeft() ? "render right to left" : "render left to right"); }
  void DoDrawLayout(fmx::TCanvas&) {}
  float GetTextHeight() { return Box.Height(); }
  float GetTextWidth() { return Box.Width(); }
  fmx::TRectF GetTextRect() { return Box; }
  std::int32_t DoPositionAtPoint(fmx::TPointF) { return 77; }
  fmx::TRegion DoRegionForRange(fmx::TTextRange) { return {}; }

  TScriptedEngine* Engine = nullptr;
  fmx::TNativeTextMetrics Metrics;
  fmx::TRectF Box{10, 5, 110, 25};
};

// Likewise, for the older engine: here the framework's plain layout.
class THostGdiPlusLayout : public fmx::TGPUTextLayout {
 public:
  static orv::TClass Class() {
    return CompiledLayout<THostGdiPlusLayout, fmx::TGPUTextLayout>("Host.GDIP", "TTextLayoutGDIPlus");
  }
  explicit THostGdiPlusLayout(fmx::TCanvas* canvas = nullptr, orv::TClass aClass = Class())
      : TGPUTextLayout(canvas, aClass) {}
  void DoRenderLayout() { Told().push_back(RightToLeft() ? "render right to left" : "render left to right"); }
};

// A canvas service that registers what the test tells it.
class THostService : public fmx::ICanvasService {
 public:
  explicit THostService(std::function<void()> registers) : FRegisters(std::move(registers)) {}
  void RegisterCanvasClasses() override {
    ++Calls;
    FRegisters();
  }
  void UnregisterCanvasClasses() override {}

  int Calls = 0;

 private:
  std::function<void()> FRegisters;
};

template <typename TCanvasClass>
void RegisterDefault(orv::TClass layout) {
  fmx::TCanvasManager::RegisterCanvas(TCanvasClass::Class(), true, false);
  fmx::TTextLayoutManager::RegisterTextLayout(layout, TCanvasClass::Class());
}

// Takes away what the framework holds, before a test and after it.
inline void ForgetHost() {
  Told().clear();
  fmx::TCanvasManager::UnInitialize();
  fmx::TTextLayoutManager::UnInitialize();
  fmx::TCanvasManager::EnableSoftwareCanvas(true);
  fmx::TPlatformServices::SetCurrent(nullptr);
}

// A platform whose canvas service does that.
inline std::shared_ptr<THostService> SetUpHost(std::function<void()> registers) {
  const auto service = std::make_shared<THostService>(std::move(registers));
  fmx::TPlatformServices::SetCurrent(std::make_unique<fmx::TPlatformServices>());
  fmx::TPlatformServices::Current()->AddPlatformService(fmx::ICanvasService::Guid, service);
  return service;
}

}  // namespace orv::testing
