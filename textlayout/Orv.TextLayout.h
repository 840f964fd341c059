// The small vocabulary that all text layouts of the system share, and the way to their extra state for a caller that
// holds a layout as the framework's fmx::TTextLayout.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "fmx/TextLayout.h"

namespace orv {

// Where a layout takes its direction from: the caller (RightToLeft stays as it is set) or the text. The last two behave
// alike.
enum class TBidiSelectionType : std::uint8_t { btManual = 0, btForm = 1, btContext = 2 };

// Kept for callers; no layout acts on it.
enum class TTextResizeMode : std::uint8_t {
  bmScale = 0,
  bmScaleDown = 1,
  bmScaleUpOrIncreaseHeight = 2,
  bmScaleUpOrIncreaseWidth = 3,
  bmIncreaseHeight = 4,
  bmIncreaseWidth = 5
};

// The direction of a text. The library answers the first two alone; the others are for callers.
enum class TDirectionContext : std::uint8_t { LeftToRight = 0, RightToLeft = 1, Digits = 2, Undefined = 3 };

// An attribute that carries a colour for decorations. Layouts read it as any attribute.
class TOrvTextAttributedRange : public fmx::TTextAttributedRange {
 public:
  TOrvTextAttributedRange(fmx::TTextRange range, fmx::TTextAttribute attribute, fmx::TAlphaColor decorationColor)
      : TTextAttributedRange(range, std::move(attribute)), DecorationColor(decorationColor) {}
  std::string_view ClassName() const override { return "TOrvTextAttributedRange"; }

  fmx::TAlphaColor DecorationColor;
};

// What a layout class that is generated out of a framework's layout carries beyond it (orv::FieldsOf). It starts as
// zeros.
struct TPatchedLayoutFields {
  float FTabSize;
  TBidiSelectionType FBidiSelectionType;
  TTextResizeMode FResizeMode;
  float FDefaultWidth;
  float FDefaultHeight;
  float FLineDistance;
};

// The accessors, for one layout, which is borrowed. They know TTextLayoutNGOrv with its descendants, and the generated
// class of the exact name PatchedLayoutName. On any other class, getters raise rtl::Exception with the class's name,
// but for GetDefaultSize, which answers (0, 0), and setters do nothing. Setters store: a render that something else
// calls for takes the new value. TTextLayoutNGOrv has no resize mode and no default size: their accessors raise there.
// One thread.
class TOrvTextLayoutHelper {
 public:
  static constexpr std::string_view PatchedLayoutName = "TTextLayoutD2DOrv";

  explicit TOrvTextLayoutHelper(fmx::TTextLayout& layout) : FLayout(layout) {}

  TBidiSelectionType GetManualBidi() const;
  void SetManualBidi(TBidiSelectionType type) const;

  // Device pixels; 0 for eight blanks of the font. Raises ENotFinite for what is no finite number.
  float GetTabSize() const;
  void SetTabSize(float size) const;

  TTextResizeMode GetResizeMode() const;
  void SetResizeMode(TTextResizeMode mode) const;
  fmx::TSizeF GetDefaultSize() const;
  void SetDefaultSize(fmx::TSizeF size) const;

  // The direction of the first letter or mark of direction in the text; digits and punctuation say nothing, and a text
  // of nothing else is LeftToRight. Linear. Example: u"1. \u0627" is RightToLeft.
  static TDirectionContext GetDirectionContext(std::u16string_view text);

  // Sets RightToLeft from the layout's text without rendering. A text that says nothing takes the direction of the
  // active form (fmx::ActiveFormBiDiMode). With btManual nothing happens.
  void UpdateRightToLeft(TBidiSelectionType type) const;

 private:
  fmx::TTextLayout& FLayout;
};

}  // namespace orv
