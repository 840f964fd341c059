#include "fmx/TextSettings.h"

namespace fmx {

TTextSettings::TTextSettings() {
  FFont.SetOnChanged([this] { Changed(true); });
}

void TTextSettings::Assign(const TTextSettings& other) {
  BeginUpdate();
  FFont.Assign(other.FFont);
  SetFontColor(other.FFontColor);
  SetHorzAlign(other.FHorzAlign);
  SetVertAlign(other.FVertAlign);
  EndUpdate();
}

void TTextSettings::Changed(bool isSizeChange) {
  FSizeChanged = FSizeChanged || isSizeChange;
  FChanged = true;
  if (FUpdating == 0) Change();
}

void TTextSettings::Change() {
  if (FUpdating > 0) {
    FChanged = true;
    return;
  }
  FChanged = false;
  if (FOnChanged) FOnChanged();
  FSizeChanged = false;
}

void TTextSettings::EndUpdate() {
  if (FUpdating == 0 || --FUpdating > 0) return;
  if (FChanged) Change();
}

TTextSettingsInfo::TTextSettingsInfo() {
  FDefaults.SetOnChanged([this] { Resolve(); });
  FOwn.SetOnChanged([this] { Resolve(); });
}

void TTextSettingsInfo::SetStyledSettings(TStyledSettings settings) {
  FStyled = settings;
  Resolve();
}

void TTextSettingsInfo::Resolve() {
  const auto source = [this](TStyledSetting setting) -> const TTextSettings& {
    return FStyled.Contains(setting) ? FDefaults : FOwn;
  };
  TFont font = source(TStyledSetting::Style).Font();
  font.SetFamily(source(TStyledSetting::Family).Font().Family());
  font.SetSize(source(TStyledSetting::Size).Font().Size());
  FResulting.BeginUpdate();
  FResulting.Font().Assign(font);
  FResulting.SetFontColor(source(TStyledSetting::FontColor).FontColor());
  FResulting.SetHorzAlign(FOwn.HorzAlign());
  FResulting.SetVertAlign(FOwn.VertAlign());
  FResulting.EndUpdate();
}

}  // namespace fmx
