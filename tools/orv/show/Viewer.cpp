#include "tools/orv/show/Viewer.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "platform/Window.h"
#include "tools/orv/show/Layout.h"
#include "tools/orv/show/Paint.h"

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
  TViewer(std::span<const std::vector<TParagraph>> texts, const platform::TFontCatalog& catalog,
          const TViewerSettings& settings)
      : FTexts(texts), FCatalog(catalog), FSettings(settings), FWindow(settings.Title, settings.Width, FirstHeight) {
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
    const int page = std::max(LineStep(), FWindow.Height() - LineStep());
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
        ScrollTo(FPage.Height);
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

  int LineStep() { return LineHeight(FFonts->Faces().Text.PixelSize); }

  void SetZoom(double zoom) {
    FZoom = std::clamp(zoom, SmallestZoom, LargestZoom);
    TFontSettings fonts = FSettings.Fonts;
    fonts.PointSize *= FZoom;
    FFonts = std::make_unique<TPageFonts>(FCatalog, fonts);
    Reflow();
  }

  // The line at the window's top stays near it.
  void Reflow() {
    const double share = FPage.Height > 0 ? static_cast<double>(FTop) / FPage.Height : 0;
    const int widest = static_cast<int>(FSettings.Width * FZoom);
    FPage = LayOut(FTexts, FFonts->Faces(), std::min(FWindow.Width(), widest));
    ScrollTo(static_cast<int>(std::lround(share * FPage.Height)));
  }

  void ScrollTo(int top) { FTop = std::clamp(top, 0, std::max(0, FPage.Height - FWindow.Height())); }

  void Paint() {
    const int left = (FWindow.Width() - FPage.Width) / 2;
    FWindow.Show(show::Paint(FPage, FFonts->Faces(), {}, left, FTop, FWindow.Width(), FWindow.Height()));
  }

  std::span<const std::vector<TParagraph>> FTexts;
  const platform::TFontCatalog& FCatalog;
  const TViewerSettings& FSettings;
  TWindow FWindow;
  std::unique_ptr<TPageFonts> FFonts;
  TPage FPage;
  double FZoom = 1;
  int FTop = 0;
  bool FDone = false;
};

}  // namespace

void View(std::span<const std::vector<TParagraph>> texts, const platform::TFontCatalog& catalog,
          const TViewerSettings& settings, void (*opened)(const std::string& driver)) {
  TViewer viewer(texts, catalog, settings);
  opened(viewer.Window().DriverName());
  viewer.Run();
}

}  // namespace orv::show
