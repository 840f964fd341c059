#include "fmx/PlatformServices.h"

#include <utility>

namespace fmx {
namespace {

std::unique_ptr<TPlatformServices>& CurrentServices() {
  static std::unique_ptr<TPlatformServices> services;
  return services;
}

}  // namespace

TPlatformServices* TPlatformServices::Current() {
  return CurrentServices().get();
}

void TPlatformServices::SetCurrent(std::unique_ptr<TPlatformServices> services) {
  CurrentServices() = std::move(services);
}

void TPlatformServices::AddPlatformService(const TGuid& guid, std::shared_ptr<IPlatformService> service) {
  FServices[guid] = std::move(service);
}

void TPlatformServices::RemovePlatformService(const TGuid& guid) {
  FServices.erase(guid);
}

std::shared_ptr<IPlatformService> TPlatformServices::GetPlatformService(const TGuid& guid) const {
  const auto found = FServices.find(guid);
  return found == FServices.end() ? nullptr : found->second;
}

}  // namespace fmx
