// How a single-line box sees its text: where carets stand, what a press hits, what is drawn and what has scrolled away.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fmx/TextLayout.h"
#include "fmx/TextService.h"

namespace orv {

// What a view has to know of its box. Lengths are logical units, positions UTF-16 code units of the whole text, marked
// text included.
class IEditBox {
 public:
  virtual ~IEditBox() = default;
  // False before the box has a place to paint its text in.
  virtual bool HasContent() const = 0;
  // That place, in its own coordinates, and its left edge in the box's.
  virtual fmx::TRectF ContentRect() const = 0;
  virtual fmx::TBounds ContentPadding() const = 0;
  virtual float ContentLeft() const = 0;
  // The line, from the box's top.
  virtual float LineTop() const = 0;
  virtual float LineHeight() const = 0;
  virtual std::u16string GetText() const = 0;
  // The caret; -1 where there is none.
  virtual std::int32_t GetCaretPosition() const = 0;
  virtual fmx::TTextAlign HorizontalAlignment() const = 0;
  virtual fmx::TTextAlign VerticalAlignment() const = 0;
  // The mode of the box, and the direction of its form.
  virtual bool IsRightToLeft() const = 0;
  virtual bool IsFormRightToLeft() const = 0;
  // The pointer holds the caret, the selection or one of its handles.
  virtual bool IsPointed() const = 0;
  virtual bool IsPassword() const = 0;
  virtual float GetPasswordCharWidth() const = 0;
  virtual float GetFlasherWidth() const = 0;
  // Holds the whole text, at the corner of the content.
  virtual fmx::TTextLayout& TextLayout() = 0;
};

// Places are in the content's coordinates where nothing else is said. Main thread.
class TOrvEditView {
 public:
  // Borrows the box.
  explicit TOrvEditView(IEditBox& box) : FBox(box) {}
  virtual ~TOrvEditView() = default;
  TOrvEditView(const TOrvEditView&) = delete;
  TOrvEditView& operator=(const TOrvEditView&) = delete;

  // The view for the corrections in force (TOrvCorrection::PixelScroll).
  static std::unique_ptr<TOrvEditView> For(IEditBox& box);

  // --- The layout ---

  // Gives it the text and its direction.
  virtual void TakeText(std::u16string_view text) = 0;
  // Its alignment, direction and size are those of the box.
  virtual void SetUpLayout() = 0;
  virtual void UpdateLayoutSize() = 0;

  // --- Scrolling ---

  // 1-based.
  virtual std::int32_t FirstVisibleChar() = 0;
  // The width of what has scrolled away where the text begins.
  virtual float InvisibleTextWidth() = 0;
  // Takes the box's text, and scrolls so far that the caret is seen.
  virtual void UpdateFirstVisibleChar() = 0;

  // --- Places ---

  // The x of a caret before the character; not limited to the box. 0 without content.
  virtual float GetCharX(std::int32_t index) = 0;
  // The position that a press at x, in the box's coordinates, gives; -1 where there is no answer.
  virtual std::int32_t GetCaretPosition(float x) = 0;
  // Whether GetCharX is where a caret there would be, though it may be out of sight.
  virtual bool HasPlaceFor(std::int32_t index) = 0;
  // The box's x at which the content's is seen.
  virtual float ToBox(float x) = 0;
  // Of the units from start on.
  virtual float TextWidth(std::int32_t start, std::int32_t length);
  // Where the characters of the range are drawn (TOrvCorrection::SelectionRegions).
  virtual fmx::TRegion CharacterBoxes(fmx::TTextRange range) = 0;
  // Where an input method puts its window, from the content's left edge.
  virtual float TargetClauseX() = 0;
  // A square for each dot of a password from the first visible one on, from the content's corner.
  std::vector<fmx::TRectF> PasswordDots();

  // --- Drawing ---

  // The drawing of the text, as far as it is the view's business: the box gives font, opacity and vertical alignment.
  virtual void SetUpDrawing(fmx::TSingleLineDrawing& drawing) = 0;
  // Draws the text by the service. Answers whether carets stand elsewhere from now on.
  virtual bool DrawText(fmx::TTextService& service, fmx::TCanvas& canvas, fmx::TSingleLineDrawing drawing) = 0;
  // How far on the right of where they are drawn the boxes of the layout are, for lines under words and for all else.
  virtual float SpellingShift() = 0;
  virtual float LayoutShift() = 0;
  // The point of the layout that is seen at that of the box.
  virtual fmx::TPointF ToLayout(fmx::TPointF point) = 0;

  // The width of the content without its padding.
  float PaddedWidth() const;

 protected:
  IEditBox& Box() const { return FBox; }
  fmx::TTextLayout& Layout() const { return FBox.TextLayout(); }
  // The content without its padding.
  fmx::TRectF PaddedRect() const;
  float PasswordWidth(std::int32_t units) const;
  float EmptyTextX() const;
  // The left edge of the first dot that is seen.
  virtual float FirstDotX() = 0;

 private:
  IEditBox& FBox;
};

// The height at which a layout finds its only line.
float LineMiddle(fmx::TTextLayout& layout);
// Takes the scale of the canvas; answers whether it was another one.
bool TakeScale(fmx::TTextLayout& layout, const fmx::TCanvas& canvas);

// A character as a layout draws it.
struct TDrawnCharacter {
  fmx::TRectF Box;
  bool RightToLeft = false;

  float LeadingEdge() const { return RightToLeft ? Box.Right : Box.Left; }
  float TrailingEdge() const { return RightToLeft ? Box.Left : Box.Right; }
};
// The last one before the position, and the first one of the text; nothing where none is drawn.
std::optional<TDrawnCharacter> CharacterBefore(fmx::TTextLayout& layout, std::int32_t pos);
std::optional<TDrawnCharacter> FirstCharacter(fmx::TTextLayout& layout);
fmx::TRegion CharacterBoxesOf(fmx::TTextLayout& layout, fmx::TTextRange range);
// The first one of the text of which something lies between the two places, or -1.
std::int32_t FirstCharacterBetween(fmx::TTextLayout& layout, float left, float right);

}  // namespace orv
