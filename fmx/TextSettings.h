// How the texts of a control look, and which of that its style decides.
#pragma once

#include <cstdint>
#include <functional>

#include "fmx/Colors.h"
#include "fmx/Font.h"
#include "fmx/TextTypes.h"
#include "rtl/Sets.h"

namespace fmx {

// Tells one listener of its changes, once for a bracket of them. Belongs to the thread of its owner.
class TTextSettings {
 public:
  TTextSettings();
  TTextSettings(const TTextSettings&) = delete;
  TTextSettings& operator=(const TTextSettings&) = delete;

  // Its changes count as those of the settings.
  TFont& Font() { return FFont; }
  const TFont& Font() const { return FFont; }
  // Black at first.
  TAlphaColor FontColor() const { return FFontColor; }
  void SetFontColor(TAlphaColor color) { Take(FFontColor, color, false); }
  // Leading at first.
  TTextAlign HorzAlign() const { return FHorzAlign; }
  void SetHorzAlign(TTextAlign align) { Take(FHorzAlign, align, false); }
  // Center at first.
  TTextAlign VertAlign() const { return FVertAlign; }
  void SetVertAlign(TTextAlign align) { Take(FVertAlign, align, true); }

  // Takes all values over, as one change at most.
  void Assign(const TTextSettings& other);

  // Between these, which nest, changes wait. An EndUpdate too many does nothing.
  void BeginUpdate() { ++FUpdating; }
  void EndUpdate();

  // Whether what the listener is being told of may change the size or the place of a line.
  bool IsSizeChange() const { return FSizeChanged; }
  // Called after each change; replaces the listener before it.
  void SetOnChanged(std::function<void()> listener) { FOnChanged = std::move(listener); }
  // Tells the listener whether or not something has changed.
  void Change();

 private:
  template <typename T>
  void Take(T& property, T value, bool isSizeChange) {
    if (property == value) return;
    property = value;
    Changed(isSizeChange);
  }
  void Changed(bool isSizeChange);

  TFont FFont;
  TAlphaColor FFontColor = TAlphaColors::Black;
  TTextAlign FHorzAlign = TTextAlign::Leading;
  TTextAlign FVertAlign = TTextAlign::Center;
  std::int32_t FUpdating = 0;
  bool FChanged = false;
  bool FSizeChanged = false;
  std::function<void()> FOnChanged;
};

// What of the settings the style decides while it is in the set; the application's own value holds otherwise.
enum class TStyledSetting : std::uint8_t { Family, Size, Style, FontColor };
using TStyledSettings = rtl::TSet<TStyledSetting, std::uint8_t>;

// The settings of one control: those of its style, those of the application, and what results. Alignments are always
// the application's.
class TTextSettingsInfo {
 public:
  TTextSettingsInfo();
  TTextSettingsInfo(const TTextSettingsInfo&) = delete;
  TTextSettingsInfo& operator=(const TTextSettingsInfo&) = delete;

  // Those that the style brings.
  TTextSettings& Defaults() { return FDefaults; }
  // The application's.
  TTextSettings& Own() { return FOwn; }
  // What is shown; follows the other two.
  const TTextSettings& Resulting() const { return FResulting; }
  TTextSettings& Resulting() { return FResulting; }

  // All at first.
  TStyledSettings StyledSettings() const { return FStyled; }
  void SetStyledSettings(TStyledSettings settings);

  // Set while the control is shown in a designer: the application's settings are kept apart from the style's then.
  bool Design() const { return FDesign; }
  void SetDesign(bool design) { FDesign = design; }

 private:
  void Resolve();

  TTextSettings FDefaults;
  TTextSettings FOwn;
  TTextSettings FResulting;
  TStyledSettings FStyled = TStyledSettings::Range(TStyledSetting::Family, TStyledSetting::FontColor);
  bool FDesign = false;
};

}  // namespace fmx
