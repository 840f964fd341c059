// The services that come from windows.
#include <cstdint>
#include <memory>
#include <vector>

#include "fmx/EditServices.h"
#include "fmx/WindowServices.h"
#include "platform/Exceptions.h"
#include "platform/FormWindow.h"
#include "platform/MessageLoop.h"

namespace orv::platform {
namespace {

class TApplicationService : public fmx::IApplicationService {
 public:
  bool HandleMessage() override { return TMessageLoop::HandleMessage(); }
  void Terminate() override { TMessageLoop::Terminate(); }
};

class TWindowService : public fmx::IWindowService {
 public:
  fmx::TWindowHandle CreateWindow(fmx::IRoot& form) override {
    auto* const shown = dynamic_cast<fmx::TForm*>(&form);
    if (shown == nullptr) throw EWindowError("only a form that shows controls can have a window");
    FWindows.push_back(std::make_unique<TFormWindow>(*shown));
    return reinterpret_cast<fmx::TWindowHandle>(FWindows.back().get());
  }

 private:
  std::vector<std::unique_ptr<TFormWindow>> FWindows;
};

class TMenuService : public fmx::IMenuService {
 public:
  void Popup(fmx::TPopupMenu& menu, std::int32_t x, std::int32_t y) override {
    if (TFormWindow* const window = TMessageLoop::WindowOf(menu.Parent))
      TMessageLoop::Popup(*window, menu, {static_cast<float>(x), static_cast<float>(y)});
  }
};

class TMouseService : public fmx::IMouseService {
 public:
  fmx::TPointF GetMousePos() override { return TMessageLoop::MousePosition(); }
};

}  // namespace

void AddWindowServices() {
  fmx::TPlatformServices& services = *fmx::TPlatformServices::Current();
  services.AddPlatformService(fmx::IApplicationService::Guid, std::make_shared<TApplicationService>());
  services.AddPlatformService(fmx::IWindowService::Guid, std::make_shared<TWindowService>());
  services.AddPlatformService(fmx::IMenuService::Guid, std::make_shared<TMenuService>());
  services.AddPlatformService(fmx::IMouseService::Guid, std::make_shared<TMouseService>());
}

}  // namespace orv::platform
