// Draws the test card: DrawTestCard SCALE PICTURE [no-clips|no-colours|no-dashes|window]. With "window" it opens one,
// writes the place of the picture on the screen once it is shown, then waits until it is closed or Esc is pressed.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "fmx/CanvasManager.h"
#include "platform/CanvasService.h"
#include "platform/CanvasWindow.h"
#include "platform/FrameOf.h"
#include "platform/Png.h"
#include "platform/SoftwareCanvas.h"
#include "platform/Window.h"
#include "tests/platform/TestCard.h"

namespace {

using namespace orv::platform;

std::int32_t Pixels(std::int32_t units, float scale) {
  return static_cast<std::int32_t>(std::lround(static_cast<float>(units) * scale));
}

// The card, and then a scene that changes a part of it.
bool Draw(TCanvasWindow& window, float scale, const TTestCardOptions& options) {
  TSoftwareCanvas canvas(window.Target(Pixels(TestCardWidth, scale), Pixels(TestCardHeight, scale), scale));
  const fmx::TRectF part[] = {{410.5F, 285, 470, 330.5F}};
  if (!DrawTestCard(canvas, TestCardGlyphs(scale), options) || !canvas.BeginScene(part)) return false;
  canvas.FillEllipse({400, 270, 500, 350}, 1, fmx::TBrush(0xC02060C0));
  canvas.EndScene();
  return true;
}

int Show(float scale, const TTestCardOptions& options) {
  TWindow window("test card", Pixels(TestCardWidth, scale), Pixels(TestCardHeight, scale));
  for (bool told = false;;) {
    if (!Draw(window, scale, options)) return 1;
    if (!told) std::printf("shown on %s\n", window.DriverName().c_str());
    std::fflush(stdout);
    told = true;
    const TWindowEvent event = window.Wait();
    if (event.Kind == TWindowEvent::TKind::Close || event.Key == TWindowKey::Escape) return 0;
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const float scale = std::strtof(argv[1], nullptr);
  const std::string_view how = argc > 3 ? argv[3] : "";
  TTestCardOptions options;
  options.Clips = how != "no-clips";
  options.Modulated = how != "no-colours";
  if (how == "no-dashes") options.FirstDash = fmx::TStrokeDash::Dot;
  TCanvasService().RegisterCanvasClasses();
  try {
    if (how == "window") return Show(scale, options);
    THeadlessWindow window;
    if (!Draw(window, scale, options)) return 1;
    WritePng(argv[2], FrameOf(window.Shown()));
  } catch (const rtl::Exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
