// Fonts and colours of parts of a text.
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "fmx/Colors.h"
#include "fmx/Font.h"
#include "fmx/TextTypes.h"

namespace fmx {

// The font may be null: then the layout's stays. It is shared, because the runs of a layout go on using it when the
// attributes are cleared.
struct TTextAttribute {
  std::shared_ptr<TFont> Font;
  TAlphaColor Color = TAlphaColors::Black;
};

// An attribute and where it holds. Classes that carry more derive from it and give their own name: layouts ask for the
// exact class.
class TTextAttributedRange {
 public:
  TTextAttributedRange(TTextRange range, TTextAttribute attribute) : FRange(range), FAttribute(std::move(attribute)) {}
  virtual ~TTextAttributedRange() = default;
  TTextAttributedRange(const TTextAttributedRange&) = delete;
  TTextAttributedRange& operator=(const TTextAttributedRange&) = delete;

  virtual std::string_view ClassName() const { return "TTextAttributedRange"; }
  const TTextRange& Range() const { return FRange; }
  const TTextAttribute& Attribute() const { return FAttribute; }

 private:
  TTextRange FRange;
  TTextAttribute FAttribute;
};

}  // namespace fmx
