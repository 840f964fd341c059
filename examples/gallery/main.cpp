// The gallery: what right-to-left text looks like, with every switch of the system beside it.
//
//   gallery                    opens the window; Esc or Q closes it
//   gallery --switches         tells where in the window each switch is, for scripts that press them
//   gallery -o FOLDER [SCALE]  writes its pictures instead, light and dark, which needs no display
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "examples/gallery/Page.h"
#include "examples/gallery/Sidebar.h"
#include "fmx/CanvasManager.h"
#include "platform/Exceptions.h"
#include "platform/FontGlyphs.h"
#include "platform/FrameOf.h"
#include "platform/Host.h"
#include "platform/Png.h"
#include "platform/Window.h"
#include "rtl/Utf8.h"
#include "runtime/Marzel.h"

namespace {

namespace platform = orv::platform;
using platform::TWindowEvent;
using platform::TWindowKey;

constexpr int Width = 1180;
constexpr int Height = 860;
constexpr float WheelStep = 48;

class TGallery {
 public:
  void Paint(fmx::TCanvas& canvas) {
    if (!canvas.BeginScene()) return;
    const gallery::TTheme& theme = FIsDark ? gallery::Dark : gallery::Light;
    canvas.Clear(theme.Page);
    FPage.Paint(canvas, theme, {gallery::TSidebar::Width, 0, canvas.Width(), canvas.Height()});
    FSidebar.Paint(canvas, theme, canvas.Height());
    canvas.EndScene();
  }

  void Press(fmx::TPointF point) { FSidebar.Press(point); }
  void Scroll(fmx::TPointF point, float by, float height) {
    if (point.X < gallery::TSidebar::Width)
      FSidebar.Scroll(by, height);
    else
      FPage.Scroll(by);
  }
  void ListSwitches() {
    FSidebar.ForEach([](const gallery::TSwitch& each, const fmx::TRectF& place) {
      const fmx::TPointF center = place.Center();
      std::printf("%d %d %s\n", static_cast<int>(center.X), static_cast<int>(center.Y),
                  rtl::ToUtf8(each.Caption).c_str());
    });
  }
  void SetDark(bool dark) { FIsDark = dark; }

 private:
  bool FIsDark = false;
  gallery::TSidebar FSidebar{gallery::MakeSwitches(FIsDark)};
  gallery::TPage FPage;
};

void WritePictures(const std::filesystem::path& folder, float scale) {
  std::filesystem::create_directories(folder);
  TGallery shown;
  for (const bool dark : {false, true}) {
    platform::THeadlessWindow window;
    shown.SetDark(dark);
    const auto pixels = [scale](int units) { return static_cast<int>(static_cast<float>(units) * scale); };
    shown.Paint(*fmx::TCanvasManager::CreateFromWindow(static_cast<platform::TCanvasWindow*>(&window), pixels(Width),
                                                       pixels(Height), scale));
    const auto path = folder / (dark ? "gallery-dark.png" : "gallery-light.png");
    platform::WritePng(path, platform::FrameOf(window.Shown()));
    std::printf("%s\n", path.c_str());
  }
}

float ScrollOf(TWindowKey key, float height) {
  switch (key) {
    case TWindowKey::Up:
      return -WheelStep;
    case TWindowKey::Down:
      return WheelStep;
    case TWindowKey::PageUp:
      return -height;
    case TWindowKey::PageDown:
    case TWindowKey::Blank:
      return height;
    case TWindowKey::Home:
      return -1e6F;
    case TWindowKey::End:
      return 1e6F;
    default:
      return 0;
  }
}

// Acts on the event; false where it ends the program.
bool Act(TGallery& shown, fmx::TCanvas& canvas, const TWindowEvent& event) {
  const fmx::TPointF point{static_cast<float>(event.X), static_cast<float>(event.Y)};
  switch (event.Kind) {
    case TWindowEvent::TKind::Close:
      return false;
    case TWindowEvent::TKind::Resized:
      canvas.Resize(event.Width, event.Height, 1);
      return true;
    case TWindowEvent::TKind::Key:
      if (event.Key == TWindowKey::Escape || event.Key == TWindowKey::Q) return false;
      shown.Scroll({canvas.Width(), 0}, ScrollOf(event.Key, canvas.Height()), canvas.Height());
      return true;
    case TWindowEvent::TKind::Wheel:
      shown.Scroll(point, -event.Steps * WheelStep, canvas.Height());
      return true;
    case TWindowEvent::TKind::Press:
      shown.Press(point);
      return true;
    default:
      return true;
  }
}

void ShowWindow() {
  platform::TWindow window("Orv", Width, Height);
  const auto canvas = fmx::TCanvasManager::CreateFromWindow(static_cast<platform::TCanvasWindow*>(&window),
                                                            window.Width(), window.Height(), 1);
  TGallery shown;
  for (;;) {
    shown.Paint(*canvas);
    if (!Act(shown, *canvas, window.Wait())) return;
    while (const auto event = window.Poll())
      if (!Act(shown, *canvas, *event)) return;
  }
}

}  // namespace

int main(int argc, char** argv) {
  platform::StartPlatform();
  platform::RegisterFontGlyphs(platform::TFontChain::Naskh());
  orv::Install();
  if (argc == 2 && std::string_view(argv[1]) == "--switches") {
    TGallery().ListSwitches();
    return 0;
  }
  const bool writes = argc > 2 && std::string_view(argv[1]) == "-o";
  if (argc > 1 && !writes) {
    std::fprintf(stderr, "usage: gallery [--switches | -o FOLDER [SCALE]]\n");
    return 2;
  }
  try {
    if (writes)
      WritePictures(argv[2], argc > 3 ? std::strtof(argv[3], nullptr) : 1);
    else
      ShowWindow();
  } catch (const rtl::Exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
