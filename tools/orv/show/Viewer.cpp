#include "tools/orv/show/Viewer.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "platform/Window.h"

namespace orv::show {
namespace {

using platform::TWindow;
using platform::TWindowEvent;
using platform::TWindowKey;

constexpr double ZoomStep = 1.1;
constexpr double SmallestZoom = 0.4;
constexpr double LargestZoom = 5;
constexpr int FirstHeight = 760;

class TViewer {
 public:
  TViewer(std::span<const TText> texts, const TViewerSettings& settings)
      : FTexts(texts), FSettings(settings), FWindow(settings.Title, Pixels(settings.Width), FirstHeight) {
    SetZoom(1);
  }

  TWindow& Window() { return FWindow; }

  void Run() {
    while (!FDone) {
      Paint();
      Handle(FWindow.Wait());
      while (const auto event = FWindow.Poll()) Handle(*event);
    }
  }

 private:
  void Handle(const TWindowEvent& event) {
    switch (event.Kind) {
      case TWindowEvent::TKind::Close:
        FDone = true;
        break;
      case TWindowEvent::TKind::Resized:
        Reflow();
        break;
      case TWindowEvent::TKind::Exposed:
      case TWindowEvent::TKind::Press:
        break;
      case TWindowEvent::TKind::Key:
        Press(event.Key);
        break;
      case TWindowEvent::TKind::Wheel:
        if (event.Control)
          SetZoom(FZoom * std::pow(ZoomStep, event.Steps));
        else
          ScrollTo(FTop - static_cast<int>(std::lround(event.Steps * static_cast<float>(3 * LineStep()))));
        break;
    }
  }

  void Press(TWindowKey key) {
    const int page = std::max(LineStep(), Units(FWindow.Height()) - LineStep());
    switch (key) {
      case TWindowKey::Escape:
      case TWindowKey::Q:
        FDone = true;
        break;
      case TWindowKey::Up:
        ScrollTo(FTop - LineStep());
        break;
      case TWindowKey::Down:
        ScrollTo(FTop + LineStep());
        break;
      case TWindowKey::PageUp:
        ScrollTo(FTop - page);
        break;
      case TWindowKey::PageDown:
      case TWindowKey::Blank:
        ScrollTo(FTop + page);
        break;
      case TWindowKey::Home:
        ScrollTo(0);
        break;
      case TWindowKey::End:
        ScrollTo(FPage->Height());
        break;
      case TWindowKey::Plus:
        SetZoom(FZoom * ZoomStep);
        break;
      case TWindowKey::Minus:
        SetZoom(FZoom / ZoomStep);
        break;
      case TWindowKey::Zero:
        SetZoom(1);
        break;
      case TWindowKey::Other:
        break;
    }
  }

  int Pixels(double units) const { return static_cast<int>(std::lround(units * FSettings.Page.Scale)); }
  int Units(int pixels) const { return static_cast<int>(pixels / FSettings.Page.Scale); }

  int LineStep() const { return std::max(1, static_cast<int>(FSettings.Page.PointSize * FZoom * 2.4)); }

  void SetZoom(double zoom) {
    FZoom = std::clamp(zoom, SmallestZoom, LargestZoom);
    Reflow();
  }

  // The line at the window's top stays near it.
  void Reflow() {
    const double share = FPage && FPage->Height() > 0 ? static_cast<double>(FTop) / FPage->Height() : 0;
    const int widest = static_cast<int>(FSettings.Width * FZoom);
    TPageSettings page = FSettings.Page;
    page.PointSize *= FZoom;
    FPage = std::make_unique<TPage>(FTexts, page, std::max(1, std::min(Units(FWindow.Width()), widest)));
    ScrollTo(static_cast<int>(std::lround(share * FPage->Height())));
  }

  void ScrollTo(int top) { FTop = std::clamp(top, 0, std::max(0, FPage->Height() - Units(FWindow.Height()))); }

  void Paint() {
    const int left = (Units(FWindow.Width()) - FPage->Width()) / 2;
    FWindow.Show(FPage->Paint({}, left, FTop, FWindow.Width(), FWindow.Height()));
  }

  std::span<const TText> FTexts;
  const TViewerSettings& FSettings;
  TWindow FWindow;
  std::unique_ptr<TPage> FPage;
  double FZoom = 1;
  int FTop = 0;  // logical units
  bool FDone = false;
};

}  // namespace

void View(std::span<const TText> texts, const TViewerSettings& settings, void (*opened)(const std::string& driver)) {
  TViewer viewer(texts, settings);
  opened(viewer.Window().DriverName());
  viewer.Run();
}

}  // namespace orv::show
