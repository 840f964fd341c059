// The second page of the gallery: edit boxes of every kind.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "examples/gallery/State.h"
#include "examples/gallery/Theme.h"
#include "fmx/Edit.h"

namespace gallery {

// Boxes in every alignment, boxes of every kind, and a panel about the one that has, or had last, the focus. The boxes
// are controls of the page, as large as the room allows.
class TEditPage : public fmx::TControl {
 public:
  TEditPage();
  ~TEditPage() override;
  std::string_view ClassName() const override { return "TEditPage"; }

  void SetTheme(const TTheme& theme);
  // A switch was pressed: every box is laid out anew.
  void Refresh();
  // The styles of the boxes are made anew, after a change of the palette.
  void Restyle();
  // Gives the focus to the first box, with its first word selected.
  void FocusFirst();

  // Moves the content up by that much, within its bounds.
  bool MouseWheel(const fmx::TWheelEvent& event) override;

  // Calls visit(name, place) for each box, in the window's coordinates.
  template <typename TVisit>
  void ForEach(TVisit visit) const {
    for (const TBox& box : FBoxes)
      visit(box.Name, fmx::TRectF::FromSize(box.Edit->LocalToAbsolute({}), box.Edit->Width(), box.Edit->Height()));
  }

  // The box that has the focus, or had it last.
  std::string_view Current();
  TBoxState CurrentState();

 protected:
  void Resize() override;
  void Paint(fmx::TCanvas& canvas) override;

 private:
  struct TBox {
    std::string_view Name;
    std::u16string_view Caption;
    fmx::TEdit* Edit;
    int Row;
    int Column;
    int Columns;  // of its row
  };
  fmx::TEdit& Add(const TBox& box, std::u16string_view text);
  void AddAlignments();
  void AddKinds();
  void Arrange();
  fmx::TRectF Place(const TBox& box) const;
  void ScrollBy(float by);

  std::vector<TBox> FBoxes;
  std::size_t FCurrent = 0;
  const TTheme* FTheme = &Light;
  float FScrolled = 0;
};

}  // namespace gallery
