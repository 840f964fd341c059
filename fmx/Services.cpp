#include "fmx/Services.h"

#include <cmath>

#include "fmx/Screen.h"

namespace fmx {
namespace {

TBiDiMode ScreenBiDiMode() {
  const IRoot* form = TScreen::ActiveForm();
  return form != nullptr ? form->GetBiDiMode() : TBiDiMode::LeftToRight;
}

}  // namespace

float ScreenScale() {
  const auto screen = FindService<IScreenService>();
  const float scale = screen ? screen->GetScreenScale() : 1.0F;
  return scale > 0 && std::isfinite(scale) ? scale : 1.0F;
}

TBiDiMode IScreenService::GetActiveFormBiDiMode() {
  return ScreenBiDiMode();
}

TBiDiMode ActiveFormBiDiMode() {
  const auto screen = FindService<IScreenService>();
  return screen ? screen->GetActiveFormBiDiMode() : ScreenBiDiMode();
}

std::u16string DefaultFontFamily() {
  const auto fonts = FindService<IFontService>();
  return fonts ? fonts->GetDefaultFontFamilyName() : std::u16string();
}

float DefaultFontSize() {
  const auto fonts = FindService<IFontService>();
  const float size = fonts ? fonts->GetDefaultFontSize() : 12.0F;
  return size > 0 && std::isfinite(size) ? size : 12.0F;
}

std::u16string DocumentsFolder() {
  const auto folders = FindService<IFolderService>();
  return folders ? folders->GetDocumentsFolder() : std::u16string();
}

}  // namespace fmx
