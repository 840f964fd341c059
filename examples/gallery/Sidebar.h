// The column of switches.
#pragma once

#include <vector>

#include "examples/gallery/Switches.h"
#include "examples/gallery/Theme.h"
#include "fmx/Canvas.h"

namespace gallery {

// Choices stand side by side, toggles one below the other. Coordinates are those of the window.
class TSidebar {
 public:
  static constexpr float Width = 304;

  explicit TSidebar(std::vector<TGroup> groups) : FGroups(std::move(groups)) {}

  // Others, from the top.
  void SetGroups(std::vector<TGroup> groups) {
    FGroups = std::move(groups);
    FScrolled = 0;
    Arrange();
  }

  // Paints it on the left side of a window of that height.
  void Paint(fmx::TCanvas& canvas, const TTheme& theme, float height);

  // Presses what is there; false where nothing is.
  bool Press(fmx::TPointF point);

  // Calls visit(switch, place) for each switch, where it stands before scrolling.
  template <typename TVisit>
  void ForEach(TVisit visit) {
    Arrange();
    for (const TPlace& place : FPlaces) visit(*place.Switch, place.Box);
  }

  // Moves the content up by that much, within its bounds.
  void Scroll(float by, float height);

 private:
  struct TPlace {
    fmx::TRectF Box;  // before scrolling
    const TSwitch* Switch;
  };

  // Where everything stands; visits titles and switches from top to bottom. Answers the height of it all.
  float Arrange();

  std::vector<TGroup> FGroups;
  std::vector<TPlace> FPlaces;
  std::vector<fmx::TRectF> FTitles;
  float FScrolled = 0;
};

}  // namespace gallery
