#include "editing/Orv.Edit.Direction.h"

#include "fmx/CanvasManager.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv {
namespace {

bool IsBoxRightToLeft(const IEditBox& box) {
  if (box.HorizontalAlignment() == fmx::TTextAlign::Center) return box.IsFormRightToLeft();
  return box.HorizontalAlignment() == fmx::TTextAlign::Trailing;
}

bool HasLetter(std::u16string_view text) {
  return TDirectiveChars::IsRTLText(text, false) == TDirectiveChars::IsRTLText(text, true);
}

}  // namespace

TTextDirection DirectionOf(const IEditBox& box, std::u16string_view text) {
  const TOrvCorrections corrections = TOrvGlobalSettings::Corrections;
  const bool boxRightToLeft = IsBoxRightToLeft(box) && fmx::GlobalUseGPUCanvas;
  TTextDirection direction;
  if (corrections.Contains(TOrvCorrection::NeutralDirection)) direction.NeutralsRightToLeft = boxRightToLeft;
  if (corrections.Contains(TOrvCorrection::Direction)) {
    const bool isTrailing = box.HorizontalAlignment() == fmx::TTextAlign::Trailing;
    direction.IsSettled = true;
    direction.RightToLeft = isTrailing ? boxRightToLeft : TDirectiveChars::IsRTLText(text, boxRightToLeft);
  } else if (corrections.Contains(TOrvCorrection::NeutralDirection) && !HasLetter(text)) {
    direction.IsSettled = true;
    direction.RightToLeft = boxRightToLeft;
  }
  return direction;
}

void SetDirection(fmx::TTextLayout& layout, const TTextDirection& direction) {
  if (auto* const own = dynamic_cast<TTextLayoutNGOrv*>(&layout)) {
    own->SetBidiSelectionType(direction.IsSettled ? TBidiSelectionType::btManual : TBidiSelectionType::btContext);
    own->SetNeutralsRightToLeft(direction.NeutralsRightToLeft);
    // Laid out under other corrections, it may hold an old direction, and much else.
    if (own->Frame().Store().Corrections() != TOrvGlobalSettings::Corrections) own->SetScale(own->Scale());
  }
  if (direction.IsSettled) layout.SetRightToLeft(direction.RightToLeft);
}

}  // namespace orv
