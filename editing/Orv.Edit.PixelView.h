// A single-line box that scrolls by pixels (TOrvCorrection::PixelScroll).
#pragma once

#include "editing/Orv.Edit.View.h"

namespace orv {

// One layout measures, hits, selects and draws: the whole text, never clipped. It stands where the alignment puts it;
// where it does not fit, at the side where it begins, moved so far that the caret is inside and no room is left free
// behind the text. Dots of a password stand for a text from left to right.
//
// A caret stands at the trailing edge of the character before it, and at 0 at the leading edge of the first one; within
// a ligature, no letter of which has a box of its own, at the ligature's trailing edge.
class TOrvPixelEditView final : public TOrvEditView {
 public:
  using TOrvEditView::TOrvEditView;

  void TakeText(std::u16string_view text) override;
  void SetUpLayout() override;
  void UpdateLayoutSize() override;

  std::int32_t FirstVisibleChar() override;
  float InvisibleTextWidth() override;
  // Also so far that the character before the caret is seen, where the pointer did not place it: what is typed is seen,
  // and nothing but a caret on the edge moves the text under a press.
  void UpdateFirstVisibleChar() override;

  float GetCharX(std::int32_t index) override;
  // Never -1: left and right of the box are the characters that are not seen.
  std::int32_t GetCaretPosition(float x) override;
  bool HasPlaceFor(std::int32_t) override { return true; }
  float ToBox(float x) override { return x + Box().ContentLeft(); }
  fmx::TRegion CharacterBoxes(fmx::TTextRange range) override;
  float TargetClauseX() override;

  void SetUpDrawing(fmx::TSingleLineDrawing& drawing) override;
  bool DrawText(fmx::TTextService& service, fmx::TCanvas& canvas, fmx::TSingleLineDrawing drawing) override;
  float SpellingShift() override { return LayoutShift(); }
  float LayoutShift() override;
  fmx::TPointF ToLayout(fmx::TPointF point) override;

 private:
  // What decides where the text stands.
  struct TPlacing {
    float Width = 0;  // of the text
    float Room = 0;
    bool RightToLeft = false;
    bool IsPassword = false;
    fmx::TTextAlign Align = fmx::TTextAlign::Leading;
    std::int32_t Caret = -1;

    bool Fits() const { return Width <= Room; }
    // How far the text can be scrolled.
    float Reach() const;
    friend bool operator==(const TPlacing&, const TPlacing&) = default;
  };
  // A stretch of the text, from its left edge.
  struct TSpan {
    float Left = 0;
    float Right = 0;
  };

  TPlacing Placing() const;
  // Scrolls to the caret, if anything is another than it was.
  void Place();
  void ScrollTo(std::int32_t caret, bool shows);
  // The left edge of the text, from the content's padded left edge.
  float Offset() const;
  // The same in the content.
  float TextLeft();
  // From the left edge of the text; nothing for a text that nothing is drawn of.
  std::optional<float> CaretEdge(std::int32_t index);
  TSpan SpanBefore(std::int32_t caret);
  float FirstDotX() override;

  float FScroll = 0;  // how far the side where the text begins is scrolled away; whole units
  TPlacing FPlaced;
  bool FIsTextNew = false;  // since it was placed
  bool FIsHit = false;      // the last position came from the pointer
};

}  // namespace orv
