#include "examples/gallery/Sidebar.h"

#include <algorithm>

#include "examples/gallery/Text.h"

namespace gallery {
namespace {

constexpr float Margin = 22;
constexpr float TitleHeight = 26;
constexpr float ToggleHeight = 20;
constexpr float ChoiceHeight = 26;
constexpr float GroupGap = 12;
constexpr float HeadHeight = 58;

void PaintChoice(fmx::TCanvas& canvas, const TTheme& theme, const fmx::TRectF& box, const TSwitch& each) {
  const bool isOn = each.IsOn();
  const fmx::TRectF pill = box.Inset(1.5F, 1.5F);
  if (isOn) FillRound(canvas, pill, 6, theme.Accent);
  DrawText(canvas, pill, each.Caption, {12, isOn ? theme.Knob : theme.Ink, fmx::TTextAlign::Center});
}

void PaintToggle(fmx::TCanvas& canvas, const TTheme& theme, const fmx::TRectF& box, const TSwitch& each) {
  const bool isOn = each.IsOn();
  const float middle = (box.Top + box.Bottom) / 2;
  const fmx::TRectF track{box.Right - 26, middle - 7, box.Right, middle + 7};
  FillRound(canvas, track, 7, isOn ? theme.Accent : theme.Line);
  const float knob = isOn ? track.Right - 12 : track.Left + 2;
  FillRound(canvas, {knob, middle - 5, knob + 10, middle + 5}, 5, theme.Knob);
  DrawText(canvas, {box.Left, box.Top, box.Right - 30, box.Bottom}, each.Caption, {11, isOn ? theme.Ink : theme.Faint});
}

}  // namespace

float TSidebar::Arrange() {
  FPlaces.clear();
  FTitles.clear();
  float top = HeadHeight;
  const float right = Width - Margin;
  for (const TGroup& group : FGroups) {
    FTitles.push_back({Margin, top, right, top + TitleHeight});
    top += TitleHeight;
    const bool choices = !group.Switches.empty() && group.Switches.front().IsChoice;
    const float share = choices ? (right - Margin) / static_cast<float>(group.Switches.size()) : 0;
    float left = Margin;
    for (const TSwitch& each : group.Switches) {
      if (choices) {
        FPlaces.push_back({{left, top, left + share, top + ChoiceHeight}, &each});
        left += share;
      } else {
        FPlaces.push_back({{Margin, top, right, top + ToggleHeight}, &each});
        top += ToggleHeight;
      }
    }
    top += GroupGap + (choices ? ChoiceHeight : 0);
  }
  return top;
}

void TSidebar::Paint(fmx::TCanvas& canvas, const TTheme& theme, float height) {
  Scroll(0, height);
  const fmx::TCanvasStateGuard guard(canvas);
  canvas.FillRect({0, 0, Width, height}, 1, fmx::TBrush(theme.Panel));
  canvas.FillRect({Width - 1, 0, Width, height}, 1, fmx::TBrush(theme.Line));
  canvas.IntersectClipRect({0, 0, Width, height});
  DrawText(canvas, {Margin, 14 - FScrolled, Width, 54 - FScrolled}, u"Orv", {22, theme.Ink});
  for (std::size_t i = 0; i < FTitles.size(); ++i)
    DrawText(canvas, FTitles[i].Offset(0, -FScrolled), FGroups[i].Title, {11, theme.Accent});
  for (const TGroup& group : FGroups) {
    if (group.Switches.empty() || !group.Switches.front().IsChoice) continue;
    fmx::TRectF frame;
    for (const TPlace& place : FPlaces)
      if (place.Switch >= group.Switches.data() && place.Switch < group.Switches.data() + group.Switches.size())
        frame = frame.Union(place.Box);
    OutlineRound(canvas, frame.Offset(0, -FScrolled), 8, theme.Line);
  }
  for (const TPlace& place : FPlaces) {
    const fmx::TRectF box = place.Box.Offset(0, -FScrolled);
    if (box.Bottom < 0 || box.Top > height) continue;
    if (place.Switch->IsChoice)
      PaintChoice(canvas, theme, box, *place.Switch);
    else
      PaintToggle(canvas, theme, box, *place.Switch);
  }
}

bool TSidebar::Press(fmx::TPointF point) {
  Arrange();
  for (const TPlace& place : FPlaces)
    if (place.Box.Offset(0, -FScrolled).Contains(point)) {
      place.Switch->Press();
      return true;
    }
  return false;
}

void TSidebar::Scroll(float by, float height) {
  const float most = std::max(Arrange() - height, 0.0F);
  FScrolled = std::clamp(FScrolled + by, 0.0F, most);
}

}  // namespace gallery
