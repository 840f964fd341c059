// What is seen in a form: a component with a place among other controls, a size and, perhaps, a font.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "fmx/Component.h"
#include "fmx/Font.h"
#include "fmx/Geometry.h"

namespace fmx {

// How a control is shown: by the framework's styles, or by a control of the platform.
enum class TControlType : std::uint8_t { Styled = 0, Platform = 1 };

// Its parent is the control it stands in, which need not be its owner. Main thread.
class TControl : public TComponent {
 public:
  TControl() = default;
  // Leaves its parent; its children have none then.
  ~TControl() override;

  // The name of the most derived class. Static storage.
  virtual std::string_view ClassName() const { return "TControl"; }

  // Borrowed; null for one that stands in no other.
  TControl* Parent() const { return FParent; }
  // Raises EInvalidOperation for the control itself and what stands in it.
  void SetParent(TControl* parent);

  // Logical units, (0, 0) at first. A side below 0 or no finite number becomes 0. A change calls Resize.
  TSizeF Size() const { return FSize; }
  void SetSize(TSizeF size);

  // That of its own texts; null for a control without one.
  virtual TFont* OwnFont() { return nullptr; }

 protected:
  // The size is another one.
  virtual void Resize() {}

 private:
  TControl* FParent = nullptr;
  std::vector<TControl*> FChildren;
  TSizeF FSize;
};

// A control whose looks come from a style.
class TStyledControl : public TControl {
 public:
  std::string_view ClassName() const override { return "TStyledControl"; }
};

}  // namespace fmx
