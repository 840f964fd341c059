// An application whose host has registered a class under the name of a canvas that is none. Loads the library it is
// told, and tells whether the host goes on with what it has.
#include <dlfcn.h>

#include <cstdio>

#include "fmx/CanvasManager.h"
#include "fmx/GPUTextLayout.h"
#include "fmx/Services.h"
#include "fmx/TextLayoutManager.h"
#include "runtime/VirtualClassGenerator.h"

namespace {

orv::TClass NoCanvas() {
  static const orv::TClass made =
      orv::TVirtualClassGenerator::CreateNewClass(fmx::TGPUTextLayout::Class(), u"Host", u"TCanvasGpu");
  return made;
}

class TWrongService : public fmx::ICanvasService {
 public:
  void RegisterCanvasClasses() override { fmx::TCanvasManager::RegisterCanvas(NoCanvas(), true, false); }
  void UnregisterCanvasClasses() override {}
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  fmx::TPlatformServices::SetCurrent(std::make_unique<fmx::TPlatformServices>());
  fmx::TPlatformServices::Current()->AddPlatformService(fmx::ICanvasService::Guid, std::make_shared<TWrongService>());
  fmx::TCanvasManager::UnInitialize();
  fmx::TTextLayoutManager::UnInitialize();
  if (dlopen(argv[1], RTLD_NOW) == nullptr) return 1;
  std::printf("%s\n", fmx::TCanvasManager::DefaultCanvas() == NoCanvas() ? "the host's own" : "another");
}
