// Contracts between the controls and those who set them up.
#pragma once

#include "fmx/TextTypes.h"

namespace orv {

// For controls that want to know of a change of their direction: SetBidiMode (runtime/Orv.Controls.h) tells them.
class IOrvBidiModeNotification {
 public:
  virtual ~IOrvBidiModeNotification() = default;
  virtual void BidiModeChanged(fmx::TBiDiMode mode) = 0;
};

}  // namespace orv
