// How a single-line box sees its text: where carets stand, what a press hits, and what has scrolled away.
#pragma once

#include <cstdint>
#include <string>

#include "fmx/TextLayout.h"

namespace orv {

// What a view has to know of its box. Lengths are logical units, positions UTF-16 code units of the whole text, marked
// text included.
class IEditBox {
 public:
  virtual ~IEditBox() = default;
  // False before the box has a place to paint its text in.
  virtual bool HasContent() const = 0;
  virtual fmx::TRectF ContentRect() const = 0;
  virtual fmx::TBounds ContentPadding() const = 0;
  virtual std::u16string GetText() const = 0;
  // The caret; -1 where there is none.
  virtual std::int32_t GetCaretPosition() const = 0;
  virtual fmx::TTextAlign HorizontalAlignment() const = 0;
  virtual bool IsPassword() const = 0;
  virtual float GetPasswordCharWidth() const = 0;
  virtual float GetFlasherWidth() const = 0;
  // Holds the whole text, at the place of the content.
  virtual fmx::TTextLayout& TextLayout() = 0;
};

// The box scrolls by whole characters: what has scrolled away is the text before the first visible character.
class TOrvEditView {
 public:
  // Borrows the box.
  explicit TOrvEditView(IEditBox& box) : FBox(box) {}
  TOrvEditView(const TOrvEditView&) = delete;
  TOrvEditView& operator=(const TOrvEditView&) = delete;

  // 1-based.
  std::int32_t FirstVisibleChar() const { return FFirstVisibleChar; }
  // The width of the text before it.
  float InvisibleTextWidth() const { return FInvisibleTextWidth; }

  // The x of a caret before the character; not limited to the box. 0 without content.
  float GetCharX(std::int32_t index);
  // The position that a press at x gives; -1 where the layout has no answer.
  std::int32_t GetCaretPosition(float x);
  // Of the units from start on.
  float TextWidth(std::int32_t start, std::int32_t length);
  // Scrolls so far that the caret is seen.
  void UpdateFirstVisibleChar();

  // The width of the content without its padding.
  float PaddedWidth() const;

 private:
  bool IsEditDirectiveRTL() const { return FBox.HorizontalAlignment() == fmx::TTextAlign::Trailing; }
  float PasswordWidth(std::int32_t units) const;
  // How far the dots stand from the left, where all of them fit.
  float PasswordShift() const;
  float PasswordCharX(std::int32_t index) const;
  float EmptyTextX();
  // False where the walk back to a character with a box came to the text's start, which ends the search.
  bool TextCharX(std::u16string_view text, std::int32_t index, float& x);
  void ScrollTo(std::int32_t caret);

  IEditBox& FBox;
  std::int32_t FFirstVisibleChar = 1;
  float FInvisibleTextWidth = 0;
};

}  // namespace orv
