// The gallery: its pages, with the switches beside them.
#pragma once

#include <string>

#include "examples/gallery/EditPage.h"
#include "examples/gallery/Page.h"
#include "examples/gallery/Sidebar.h"
#include "fmx/Forms.h"

namespace gallery {

class TGallery : public fmx::TForm {
 public:
  static constexpr float Width = 1180;
  static constexpr float Height = 860;

  TGallery();
  ~TGallery() override;

  void Show(TPageName page);
  void SetDark(bool dark);

  // Where everything is that scripts press: "x y caption" for each switch, "x y width height name" for each box.
  std::string ListSwitches();
  std::string ListBoxes();
  // One line of JSON: the page, the box with the focus and what it is doing, the open menu.
  std::string State();

 private:
  class TTextPage;
  class TSwitches;
  void Arrange();
  void Adopt();
  void PressSwitch(fmx::TPointF point);
  void Shortcut(fmx::TKeyEvent& event);

  TLook FLook;
  TLook FShown;
  TSidebar FSidebar{MakeSwitches(FLook)};
  TTextPage* FTextPage;
  TEditPage* FEditPage;
  TSwitches* FSwitches;
};

}  // namespace gallery
