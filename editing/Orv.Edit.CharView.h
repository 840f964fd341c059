// A single-line box that scrolls by whole characters, as the rules have it.
#pragma once

#include "editing/Orv.Edit.View.h"

namespace orv {

// What has scrolled away is the text before the first visible character. The layout measures the whole text, and the
// text service draws what is left of it.
class TOrvCharEditView final : public TOrvEditView {
 public:
  using TOrvEditView::TOrvEditView;

  void TakeText(std::u16string_view text) override;
  void SetUpLayout() override;
  void UpdateLayoutSize() override;

  std::int32_t FirstVisibleChar() override { return FFirstVisibleChar; }
  float InvisibleTextWidth() override { return FInvisibleTextWidth; }
  void UpdateFirstVisibleChar() override;

  // At a seam of two directions the character behind the caret tells its side, or the one before it
  // (TOrvCorrection::CaretSide).
  float GetCharX(std::int32_t index) override;
  std::int32_t GetCaretPosition(float x) override;
  // What has scrolled away has its carets at the box's edge.
  bool HasPlaceFor(std::int32_t index) override { return index >= FFirstVisibleChar - 1; }
  // Presses and carets are taken for the content's.
  float ToBox(float x) override { return x; }
  fmx::TRegion CharacterBoxes(fmx::TTextRange range) override;
  float TargetClauseX() override;

  void SetUpDrawing(fmx::TSingleLineDrawing& drawing) override;
  bool DrawText(fmx::TTextService& service, fmx::TCanvas& canvas, fmx::TSingleLineDrawing drawing) override;
  float SpellingShift() override;
  float LayoutShift() override { return 0; }
  fmx::TPointF ToLayout(fmx::TPointF point) override { return point; }

 private:
  // The box of the text's start, and how the scrolled text is seen from it.
  struct TStart;

  bool IsEditDirectiveRTL() const { return Box().HorizontalAlignment() == fmx::TTextAlign::Trailing; }
  float FirstDotX() override;
  // How far the dots stand from the left, where all of them fit.
  float PasswordShift() const;
  float PasswordCharX(std::int32_t index) const;
  // False where the walk back to a character with a box came to the text's start, which ends the search.
  bool TextCharX(std::u16string_view text, std::int32_t index, float& x);
  bool StandsBehind(std::u16string_view text, std::int32_t index, const TStart& start);
  TStart StartOf(std::u16string_view text, std::int32_t index);
  float Overhang() const;
  void ScrollTo(std::int32_t caret);

  std::int32_t FFirstVisibleChar = 1;
  float FInvisibleTextWidth = 0;
};

}  // namespace orv
