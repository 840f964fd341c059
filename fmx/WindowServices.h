// Windows and the message loop, as the platform gives them. Both may be replaced by services that keep and ask them.
#pragma once

#include <cstdint>

#include "fmx/PlatformServices.h"

namespace fmx {

class IRoot;

// The platform's name for a window; 0 is none. What it stands for is the platform's own business.
using TWindowHandle = std::uintptr_t;

class IWindowService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{26C42398-9AFC-4D09-9541-9C71E769FC35}");
  // Makes the window of a form, not shown yet. Its keys go to the form by way of DeliverKey (fmx/Root.h). Borrowed: the
  // form outlives the window. What the platform raises where it cannot open one is its own.
  virtual TWindowHandle CreateWindow(IRoot& form) = 0;
};

class IApplicationService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{EFBE3310-D103-4E9E-A8E1-4E45AB46D0D8}");
  // Takes one waiting message of the platform and acts on it. False where none waits; never waits itself.
  virtual bool HandleMessage() = 0;
  // Asks the message loop to end.
  virtual void Terminate() = 0;
};

}  // namespace fmx
