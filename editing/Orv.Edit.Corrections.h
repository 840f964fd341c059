// The corrections as the editing controls ask for them.
#pragma once

#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv {

inline bool Corrects(TOrvCorrection correction) {
  return TOrvGlobalSettings::Corrections.Contains(correction);
}

}  // namespace orv
