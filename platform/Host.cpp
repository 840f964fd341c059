#include "platform/Host.h"

#include <cstdlib>
#include <memory>
#include <string>

#include "fmx/Services.h"
#include "platform/CanvasService.h"
#include "platform/FontGlyphs.h"
#include "rtl/Utf8.h"

namespace orv::platform {
namespace {

class TFontService : public fmx::IFontService {
 public:
  std::u16string GetDefaultFontFamilyName() override { return {}; }  // the first of the font chain
  float GetDefaultFontSize() override { return 14; }
};

class TFolderService : public fmx::IFolderService {
 public:
  std::u16string GetDocumentsFolder() override {
    if (const char* named = std::getenv("XDG_DOCUMENTS_DIR")) return rtl::FromUtf8(named);
    const char* home = std::getenv("HOME");
    return home == nullptr ? std::u16string() : rtl::FromUtf8(std::string(home) + "/Documents");
  }
};

}  // namespace

void StartPlatform() {
  if (fmx::TPlatformServices::Current() != nullptr) return;
  auto services = std::make_unique<fmx::TPlatformServices>();
  services->AddPlatformService(fmx::ICanvasService::Guid, std::make_shared<TCanvasService>());
  services->AddPlatformService(fmx::IFontService::Guid, std::make_shared<TFontService>());
  services->AddPlatformService(fmx::IFolderService::Guid, std::make_shared<TFolderService>());
  fmx::TPlatformServices::SetCurrent(std::move(services));
  RegisterFontGlyphs();
  TCanvasService().RegisterCanvasClasses();
}

}  // namespace orv::platform
