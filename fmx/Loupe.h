// The magnifier that shows what a finger covers.
#pragma once

#include <cstdint>

#include "fmx/Geometry.h"
#include "fmx/PlatformServices.h"

namespace fmx {

class TComponent;

// What it is used for, which platforms show in different shapes.
enum class TLoupeMode : std::uint8_t { Caret = 0, Selection = 1 };

// Points and sizes are logical units in the coordinates of the form. Main thread.
class ILoupeService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{1A517E44-5C1F-4A3B-89D5-ADFC7A708B71}");

  // The size of the magnifier.
  virtual TSizeF GetSize() = 0;
  virtual void SetMode(TLoupeMode mode) = 0;
  // How many times larger things appear; 1 shows them as they are.
  virtual void SetZoom(float factor) = 0;
  // The magnifier's upper left corner.
  virtual void SetPosition(TPointF topLeft) = 0;
  // What is shown in its middle.
  virtual void SetMagnifiedPoint(TPointF point) = 0;

  // Shows it over the control, or moves it where it is shown. Borrowed until HideLoupe.
  virtual void ShowLoupe(TComponent& control) = 0;
  // Also where it is not shown.
  virtual void HideLoupe() = 0;
};

}  // namespace fmx
