// The forms of the application as far as controls ask for them: which one is active.
#pragma once

#include "fmx/Root.h"

namespace fmx {

// A holder of process-wide state without instances. Main thread.
class TScreen {
 public:
  // Null while no form is active. Borrowed; a root that is destroyed is forgotten.
  static IRoot* ActiveForm() { return FActiveForm; }
  static void SetActiveForm(IRoot* form) { FActiveForm = form; }

 private:
  static inline IRoot* FActiveForm = nullptr;
};

}  // namespace fmx
