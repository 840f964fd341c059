// A menu as it stands over a form.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fmx/Canvas.h"
#include "fmx/Keys.h"
#include "fmx/Menu.h"

namespace fmx {

// The rows of one menu in a box that stays inside the form; a menu higher than the form scrolls. Closes when an item is
// chosen, by Esc and by a press beside it. Looks as the built-in style says (fmx/DefaultStyle.h). Places are those of
// the form. Main thread.
class TMenuPanel {
 public:
  // With its upper left corner at that place, or as near as it fits. The menu is borrowed while it is open, and its
  // items stay as they are.
  void Open(TPopupMenu& menu, TPointF place, TSizeF formSize);
  // Of its captions; the default family at first.
  void SetFontFamily(std::u16string_view family) { FFontFamily = family; }
  bool IsOpen() const { return FMenu != nullptr; }
  // Without choosing.
  void Close() { FMenu = nullptr; }
  // The form is of another size, which closes it.
  void Resize(TSizeF formSize);

  // The item that was chosen when it closed last; null for none. It has not been clicked. Borrowed from the menu.
  TMenuItem* Chosen() const { return FChosen; }
  // Forgets it.
  TMenuItem* TakeChosen() { return std::exchange(FChosen, nullptr); }

  void Paint(TCanvas& canvas) const;

  // A press beside it closes it; a release on an item chooses that.
  void MouseDown(TPointF point);
  // Whether another item stands out now.
  bool MouseMove(TPointF point);
  void MouseUp(TPointF point);
  bool Scroll(float steps);
  // Up, Down, Home and End walk over what can be chosen, Return and the blank choose, Esc and Tab close.
  void KeyDown(const TKeyEvent& event);

  // Where it stands, and an item's row in it, for those who point at them; the row is empty outside of 0 to ItemCount -
  // 1.
  TRectF Box() const { return FBox; }
  TRectF ItemBox(std::int32_t index) const;
  // The item that stands out; -1 for none.
  std::int32_t Highlighted() const { return FHighlighted; }
  const TPopupMenu* Menu() const { return FMenu; }

 private:
  bool CanBeChosen(std::int32_t index) const;
  std::int32_t ItemAt(TPointF point) const;
  bool Highlight(std::int32_t index);
  void Walk(std::int32_t from, std::int32_t step);
  void Choose(std::int32_t index);
  void ScrollTo(float top);
  void PaintItem(TCanvas& canvas, std::int32_t index) const;

  TPopupMenu* FMenu = nullptr;
  TMenuItem* FChosen = nullptr;
  TRectF FBox;
  std::vector<TRectF> FRows;  // from the box's upper left corner on, unscrolled
  float FContentHeight = 0;
  float FScrolled = 0;
  std::int32_t FHighlighted = -1;
  TSizeF FFormSize;
  std::u16string FFontFamily;
};

}  // namespace fmx
