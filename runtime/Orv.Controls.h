// The component through which a form sets the process-wide switches, the swap of canvases and text layouts at start-up,
// and operations on controls and fonts. Main thread.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "fmx/Component.h"
#include "fmx/Control.h"
#include "fmx/StyledControl.h"
#include "fmx/Font.h"
#include "fmx/TextTypes.h"
#include "rtl/Exceptions.h"
#include "rtl/Sets.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv {

// A control was given something that cannot be.
class EInternalError : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EInternalError"; }
};

// Put on a form, it sets the switches of the process (OrvSystem.GlobalSettings.h), which every such component shares. A
// change takes effect at the next layout.
class TMarzel : public fmx::TComponent {
 public:
  // Whether Arabic digits are drawn at all. Setting it does nothing: DigitTypes says which.
  bool ArabicDigits() const;
  void SetArabicDigits(bool /*value*/) {}

  TOrvGlobalSettings::TArabicDigitType DigitTypes() const { return TOrvGlobalSettings::ArabicDigitType; }
  void SetDigitTypes(TOrvGlobalSettings::TArabicDigitType value) { TOrvGlobalSettings::ArabicDigitType = value; }

  TOrvGlobalSettings::TMathOrder EquationOrder() const { return TOrvGlobalSettings::EquationOrder; }
  void SetEquationOrder(TOrvGlobalSettings::TMathOrder value) { TOrvGlobalSettings::EquationOrder = value; }

  TOrvGlobalOptions OrvGlobalOptions() const { return TOrvGlobalSettings::Options; }
  void SetOrvGlobalOptions(TOrvGlobalOptions value) { TOrvGlobalSettings::Options = value; }
};

// Puts the system's canvas or layout in the place of the framework's, by the name of the default canvas class: under
// "TCanvasGpu" the canvas is wrapped and TTextLayoutNGOrv is its layout; under "TCanvasD2D" and "TCanvasGdiPlus" the
// layout registered for it is patched. Under any other name nothing changes, and so without a platform or its canvas
// service. A printer canvas stays. Start-up runs it once (runtime/Marzel.h); a further run changes nothing for a canvas
// or layout that has been swapped.
void OrvReady();

// Tells the glyph manager of a font file that the application brought along. A file name without '/' is one of the
// documents folder (fmx::DocumentsFolder). The flag says that only the platform's text engine can shape the font. Of
// several files for a family the last holds.
void RegisterFont(std::u16string_view familyName, std::u16string_view fileName, bool flag);

// What of a font AssignFont copies. Style brings weight and slant.
enum class TOrvFontFilterItem : std::uint8_t { Family, Size, Style };
using TOrvFontFilterOption = rtl::TSet<TOrvFontFilterItem, std::uint8_t>;
inline constexpr TOrvFontFilterOption WholeFont{TOrvFontFilterItem::Family, TOrvFontFilterItem::Size,
                                                TOrvFontFilterItem::Style};

// Copies what the filter names; the target hears of one change at most.
void AssignFont(fmx::TFont& target, const fmx::TFont& source, TOrvFontFilterOption filter = WholeFont);

// The operations of a control that have to do with direction, font and size. The control is borrowed.
class TControlHelper {
 public:
  explicit TControlHelper(fmx::TControl& control) : FControl(control) {}

  // A plain control has no direction of its own: it reads from left to right, whatever it is told.
  fmx::TBiDiMode GetBidiMode() const { return fmx::TBiDiMode::LeftToRight; }
  void SetBidiMode(fmx::TBiDiMode /*mode*/) const {}
  bool IsRightToLeft() const { return false; }

  // The font of the nearest control around it that has one; null where none has.
  const fmx::TFont* GetParentFont() const;

  // Sizes a component that is a control, in logical units; does nothing for another one and for null.
  static void SetSizeOfObject(fmx::TComponent* object, float width, float height);

 private:
  fmx::TControl& FControl;
};

// Tells each of the controls, none of which is null, its direction: by its helper, and by IOrvBidiModeNotification
// where it has that.
void SetBidiMode(std::span<fmx::TStyledControl* const> controls, fmx::TBiDiMode mode);

}  // namespace orv
