// What the platform offers, found by the name of its contract.
#pragma once

#include <map>
#include <memory>

#include "fmx/Guid.h"

namespace fmx {

// The base of every service contract. Each has a static constexpr TGuid Guid.
class IPlatformService {
 public:
  virtual ~IPlatformService() = default;
};

// The services of a process. Every one may be absent; what needs it then does without and says nothing. Services are
// shared: a service may be replaced by one that keeps it and forwards to it. Main thread.
class TPlatformServices {
 public:
  // Null until the platform has set itself up.
  static TPlatformServices* Current();
  // Takes the place of the services so far, which are destroyed. May be null.
  static void SetCurrent(std::unique_ptr<TPlatformServices> services);

  // Adds a service, in the place of the one of that name.
  void AddPlatformService(const TGuid& guid, std::shared_ptr<IPlatformService> service);
  void RemovePlatformService(const TGuid& guid);

  // Null where there is none.
  std::shared_ptr<IPlatformService> GetPlatformService(const TGuid& guid) const;

  // Whether there is a service of that name and contract; it is then in service, which is null otherwise.
  template <typename T>
  bool SupportsPlatformService(const TGuid& guid, std::shared_ptr<T>& service) const {
    service = std::dynamic_pointer_cast<T>(GetPlatformService(guid));
    return service != nullptr;
  }

 private:
  std::map<TGuid, std::shared_ptr<IPlatformService>> FServices;
};

// The service with that contract; null where it, or every service, is absent. Example:
// if (const auto screen = FindService<IScreenService>()) scale = screen->GetScreenScale();
template <typename T>
std::shared_ptr<T> FindService() {
  std::shared_ptr<T> service;
  if (const auto* services = TPlatformServices::Current()) services->SupportsPlatformService(T::Guid, service);
  return service;
}

}  // namespace fmx
