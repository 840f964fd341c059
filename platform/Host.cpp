#include "platform/Host.h"

#include <cstdlib>
#include <memory>
#include <string>

#include "fmx/Services.h"
#include "platform/CanvasService.h"
#include "platform/Clipboard.h"
#include "platform/FontGlyphs.h"
#include "platform/FormWindow.h"
#include "platform/Spelling.h"
#include "rtl/Utf8.h"

namespace orv::platform {
namespace {

class TFontService : public fmx::IFontService {
 public:
  std::u16string GetDefaultFontFamilyName() override { return {}; }  // the first of the font chain
  float GetDefaultFontSize() override { return 14; }
};

// A folder that the environment names, without a '/' at its end; empty for none.
std::string FolderFrom(const char* variable) {
  const char* value = std::getenv(variable);
  std::string folder = value == nullptr ? "" : value;
  while (folder.ends_with('/')) folder.pop_back();
  return folder;
}

class TFolderService : public fmx::IFolderService {
 public:
  std::u16string GetDocumentsFolder() override {
    const std::string named = FolderFrom("XDG_DOCUMENTS_DIR");
    if (!named.empty()) return rtl::FromUtf8(named);
    const std::string home = FolderFrom("HOME");
    return home.empty() ? std::u16string() : rtl::FromUtf8(home + "/Documents");
  }
};

}  // namespace

void StartPlatform() {
  if (fmx::TPlatformServices::Current() != nullptr) return;
  auto services = std::make_unique<fmx::TPlatformServices>();
  services->AddPlatformService(fmx::ICanvasService::Guid, std::make_shared<TCanvasService>());
  services->AddPlatformService(fmx::IFontService::Guid, std::make_shared<TFontService>());
  services->AddPlatformService(fmx::IFolderService::Guid, std::make_shared<TFolderService>());
  services->AddPlatformService(fmx::IFMXClipboardService::Guid, std::make_shared<TClipboardService>());
  services->AddPlatformService(fmx::IFMXSpellCheckerService::Guid, std::make_shared<TSpellChecker>());
  fmx::TPlatformServices::SetCurrent(std::move(services));
  AddWindowServices();
  RegisterFontGlyphs();
  TCanvasService().RegisterCanvasClasses();
}

}  // namespace orv::platform
