// An application that knows the host framework alone: tells what the framework would make its texts with, and which
// font files the process has opened before its first text and after it. An argument is a library to load first.
#include <dlfcn.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "fmx/CanvasManager.h"
#include "fmx/TextLayoutManager.h"
#include "platform/Host.h"

#ifdef PROBE_INSTALLS
#include "runtime/Marzel.h"
#endif

namespace {

std::string Named(orv::TClass aClass) {
  return aClass == nullptr ? "none" : std::string(orv::ClassName(aClass));
}

// Font files, and caches of the font configuration, that are mapped into the process.
int OpenFontFiles() {
  std::ifstream maps("/proc/self/maps");
  int count = 0;
  for (std::string line; std::getline(maps, line);)
    for (const char* sign : {".ttf", ".otf", ".ttc", ".pfb", ".cache-"})
      if (line.find(sign) != std::string::npos) {
        ++count;
        break;
      }
  return count;
}

// Loads the library twice and closes it as often: it stays.
bool OpenAndClose(const char* library) {
  void* first = dlopen(library, RTLD_NOW);
  void* second = dlopen(library, RTLD_NOW);
  if (first == nullptr || second == nullptr) return false;
  return dlclose(second) == 0 && dlclose(first) == 0;
}

}  // namespace

int main(int argc, char** argv) {
  orv::platform::StartPlatform();  // does nothing where the host's library was loaded
  if (argc > 1 && !OpenAndClose(argv[1])) return 1;
#ifdef PROBE_INSTALLS
  orv::Install();
  orv::Install();
#endif
  const orv::TClass canvas = fmx::TCanvasManager::DefaultCanvas();
  std::printf("canvas %s < %s\n", Named(canvas).c_str(), Named(orv::ClassParent(canvas)).c_str());
  std::printf("layout %s\n", Named(fmx::TTextLayoutManager::GetDefaultLayout()).c_str());
  std::printf("fonts before %d\n", OpenFontFiles());
  const auto layout = fmx::TTextLayoutManager::CreateLayout();
  layout->SetText(u"سلام (abc)");
  std::printf("fonts after %s\n", OpenFontFiles() > 0 ? "some" : "none");
  std::printf("direction %s\n", layout->RightToLeft() ? "right to left" : "left to right");
}
