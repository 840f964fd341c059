#include "fmx/Form.h"

#include "fmx/Screen.h"

namespace fmx {

TCustomForm::~TCustomForm() {
  Destroying();
  DestroyComponents();
}

void TCustomForm::Activate() {
  TScreen::SetActiveForm(this);
}

bool TCustomForm::IsActive() const {
  return TScreen::ActiveForm() == this;
}

}  // namespace fmx
