// The gallery: what right-to-left text looks like and how it is edited, with every switch of the system beside it.
//
//   gallery [OPTIONS]          opens the window; Esc closes it, and Q where nothing is typed
//     --page text|edit           begins with that page
//     --scale FACTOR             device pixels of a unit
//     --log                      tells on the standard output what the boxes do: one line of JSON for each change
//     --switches, --boxes        tell where in the window each switch, or each box, is, for scripts; no window opens
//   gallery -o FOLDER [SCALE]  writes its pictures instead, light and dark, which needs no display
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "examples/gallery/Gallery.h"
#include "fmx/CanvasManager.h"
#include "fmx/Style.h"
#include "platform/CanvasWindow.h"
#include "platform/Exceptions.h"
#include "platform/FontGlyphs.h"
#include "platform/FormWindow.h"
#include "platform/FrameOf.h"
#include "platform/Host.h"
#include "platform/Png.h"
#include "runtime/Marzel.h"

namespace {

namespace platform = orv::platform;
using gallery::TGallery;
using gallery::TPageName;

struct TOptions {
  TPageName Page = TPageName::Text;
  float Scale = 1;
  bool Logs = false;
  bool ListsSwitches = false;
  bool ListsBoxes = false;
  const char* Folder = nullptr;
};

// False for arguments that are none.
bool Read(const std::vector<std::string_view>& arguments, TOptions& options) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view name = arguments[i];
    const std::string_view next = i + 1 < arguments.size() ? arguments[i + 1] : std::string_view();
    const auto takeScale = [&options](std::string_view text) {
      options.Scale = std::strtof(text.data(), nullptr);
      return options.Scale >= 0.25F && options.Scale <= 8;
    };
    if (name == "--log")
      options.Logs = true;
    else if (name == "--switches")
      options.ListsSwitches = true;
    else if (name == "--boxes")
      options.ListsBoxes = true;
    else if (name == "--page" && (next == "text" || next == "edit"))
      options.Page = arguments[++i] == "text" ? TPageName::Text : TPageName::Edit;
    else if (name == "--scale" && !next.empty() && takeScale(next))
      ++i;
    else if (name == "-o" && !next.empty() && i == 0 && arguments.size() <= 3)
      options.Folder = arguments[++i].data();
    else if (i != 2 || options.Folder == nullptr || !takeScale(name))
      return false;
  }
  return true;
}

void WritePicture(TGallery& shown, float scale, const std::filesystem::path& path) {
  platform::THeadlessWindow window;
  const auto pixels = [scale](float units) { return static_cast<int>(units * scale); };
  const auto canvas = fmx::TCanvasManager::CreateFromWindow(static_cast<platform::TCanvasWindow*>(&window),
                                                            pixels(TGallery::Width), pixels(TGallery::Height), scale);
  shown.SetCanvas(canvas.get());
  // The first painting measures what the second one places.
  for (int i = 0; i < 2 && canvas->BeginScene(); ++i) {
    shown.Paint(*canvas);
    canvas->EndScene();
  }
  shown.SetCanvas(nullptr);
  platform::WritePng(path, platform::FrameOf(window.Shown()));
  std::printf("%s\n", path.c_str());
}

void WritePictures(const TOptions& options) {
  const std::filesystem::path folder = options.Folder;
  std::filesystem::create_directories(folder);
  fmx::TSelectionPoint::SetFingersSelect(false);
  for (const TPageName page : {TPageName::Text, TPageName::Edit})
    for (const bool dark : {false, true}) {
      TGallery shown;
      shown.SetDark(dark);
      shown.Show(page);
      const std::string name = std::string(page == TPageName::Text ? "gallery" : "edits") + (dark ? "-dark" : "-light");
      WritePicture(shown, options.Scale, folder / (name + ".png"));
    }
}

void ShowWindow(const TOptions& options) {
  TGallery shown;
  shown.Show(options.Page);
  platform::TFormWindow window(shown, options.Scale);
  std::string told;
  if (options.Logs) {
    std::printf("window on %s\n", window.DriverName().c_str());
    window.OnSettled = [&] {
      std::string state = shown.State();
      if (state == told) return;
      told = std::move(state);
      std::printf("%s\n", told.c_str());
      std::fflush(stdout);
    };
  }
  window.Run();
}

}  // namespace

int main(int argc, char** argv) {
  TOptions options;
  if (!Read({argv + 1, argv + argc}, options)) {
    std::fprintf(stderr,
                 "usage: gallery [--page text|edit] [--scale FACTOR] [--log | --switches | --boxes]\n"
                 "       gallery -o FOLDER [SCALE]\n");
    return 2;
  }
  platform::StartPlatform();
  platform::RegisterFontGlyphs(platform::TFontChain::Naskh());
  orv::Install();
  try {
    if (options.Folder != nullptr) {
      WritePictures(options);
    } else if (options.ListsSwitches || options.ListsBoxes) {
      TGallery listed;
      listed.Show(options.Page);
      std::fputs((options.ListsSwitches ? listed.ListSwitches() : listed.ListBoxes()).c_str(), stdout);
    } else {
      ShowWindow(options);
    }
  } catch (const rtl::Exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
