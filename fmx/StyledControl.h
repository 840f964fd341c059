// Controls whose looks come from a style.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "fmx/Control.h"

namespace fmx {

// Its style is a tree of objects with names (TComponent::StyleName), made by the style that is in force (fmx/Style.h)
// and owned by the control while it is applied.
class TStyledControl : public TControl {
 public:
  std::string_view ClassName() const override { return "TStyledControl"; }

  // The name of its style; "" for that of its class, which is the class name in lower case without its T, and with
  // "style" behind it. A new name takes the style away.
  const std::string& StyleLookup() const { return FStyleLookup; }
  void SetStyleLookup(std::string_view lookup);
  std::string ResultingStyleLookup() const;

  // Makes the style where there is none yet, and calls ApplyStyle. Without a style of that name nothing happens.
  void ApplyStyleLookup();
  // Calls FreeStyle and takes the style away.
  void FreeStyleLookup();
  // The outermost object of the style; null without one. Borrowed.
  TControl* ResourceControl() const { return FResource; }

  // Lets the style show how the control is now: focused, pressed. Calls Repaint.
  void UpdateEffects() const { Repaint(); }

 protected:
  // The style has been made: a class looks its parts up (FindStyleResource), and calls the base first.
  virtual void ApplyStyle() {}
  // The style goes: a class forgets its parts.
  virtual void FreeStyle() {}
  // The class whose style it takes.
  virtual std::string_view StyleClassName() const { return ClassName(); }

  // Keeps the style as large as the control; calls Realign.
  void Resize() override;

 private:
  std::string FStyleLookup;
  TControl* FResource = nullptr;
};

}  // namespace fmx
