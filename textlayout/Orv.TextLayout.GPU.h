// The system's text layout: text of both directions, measured, wrapped, trimmed, aligned and clipped in lines of
// directional runs, drawn from glyph textures, and asked for places and positions.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "fmx/Brush.h"
#include "fmx/FontGlyph.h"
#include "fmx/GPUTextLayout.h"
#include "rtl/Exceptions.h"
#include "textlayout/Orv.TextLayout.GPU.Glyphs.h"
#include "textlayout/Orv.TextLayout.GPU.Line.h"
#include "textlayout/Orv.TextLayout.h"

namespace orv {

// A number that must be finite is not.
class ENotFinite : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "ENotFinite"; }
};
void RequireFinite(float value, std::string_view what);

class TTextLayoutNGOrv;

// Cuts what sticks out of the layout's box off a destination, and the same, in pixels of the layout's scale, off its
// source. What lies wholly outside leaves them empty.
void CutToBox(const TTextLayoutNGOrv& layout, fmx::TRectF& src, fmx::TRectF& dest);

// An attribute that may be a selection: a selection holds for what is seen between its ends, in visual order.
class TTextAttributedRangeBidi : public fmx::TTextAttributedRange {
 public:
  TTextAttributedRangeBidi(fmx::TTextRange range, fmx::TTextAttribute attribute, bool isSelection)
      : TTextAttributedRange(range, std::move(attribute)), IsSelection(isSelection) {}
  std::string_view ClassName() const override { return "TTextAttributedRangeBidi"; }

  bool IsSelection;
};

// Lengths of the frame are logical units, metrics of glyphs and TabSize device pixels. Positions are UTF-16 code units
// of the text. A render makes a new frame: references into the one before do not outlive it. One thread, which is that
// of all layouts.
class TTextLayoutNGOrv : public fmx::TGPUTextLayout {
 public:
  static constexpr int SlotCount = fmx::TGPUTextLayout::SlotCount;
  static orv::TClass Class();

  explicit TTextLayoutNGOrv(fmx::TCanvas* canvas = nullptr, orv::TClass aClass = Class());
  ~TTextLayoutNGOrv() override;

  // --- Properties ---

  // Device pixels of a logical unit: the screen's at first, then that of the canvas. Raises ENotFinite, and changes
  // nothing for a value that is not above 0.
  float Scale() const { return FScale; }
  void SetScale(float scale);
  float ScaleFactor() const { return FScaleFactor; }

  // The distance of tab stops in device pixels. 0, as at first, makes the next render take eight blanks of its font,
  // which then stays. Raises ENotFinite; a value below 0 counts as 0. A render that something else calls for takes it.
  float TabSize() const { return FTabSize; }
  void SetTabSize(float size);

  // btContext at first. A render that something else calls for takes it.
  TBidiSelectionType BidiSelectionType() const { return FBidiSelectionType; }
  void SetBidiSelectionType(TBidiSelectionType type) { FBidiSelectionType = type; }

  // Whether a paragraph without a letter reads from right to left; at first it does. A render that something else calls
  // for takes it.
  bool NeutralsRightToLeft() const { return FNeutralsRightToLeft; }
  void SetNeutralsRightToLeft(bool rightToLeft) { FNeutralsRightToLeft = rightToLeft; }

  // While it is on, lines are not cut at the sides of the box. Renders at once.
  bool MeasuringText() const { return FMeasuringText; }
  void SetMeasuringText(bool measuring);

  // Right to left mirrors nothing here: the control that owns the layout does.
  fmx::TTextAlign RealHorizontalAlign() const { return HorizontalAlign(); }
  // Whether the text reads from right to left. Once RightToLeft is set it stays until a caller clears it. A text of
  // digits alone does where it is not aligned to the leading side.
  bool IsTextRightToLeft() const;

  // --- What a render made ---

  const TGPUFrame& Frame() const { return *FFrame; }
  TGPUFrame& Frame() { return *FFrame; }
  // The text of the frame.
  std::u16string_view CharSequence() const { return FCharSequence; }
  TFontKey FontKey() const { return FFontKey; }

  const fmx::TFont& GetFontFor(const TGPURun& run) const { return run.Font() ? *run.Font() : Font(); }
  TAtomDic& DictionaryOf(const TGPURun& run) const { return TGlyphAtlas::GetAtomDictionary(GetFontFor(run), FScale); }
  // Where the atoms of the run end, without its line's place.
  std::span<const TAtomPlace> PlacesOf(const TGPURun& run) const;
  // The metrics of a character in the layout's font.
  const fmx::TCharRec& LayoutGlyph(UCS4Char character) const;
  UCS4Char EllipsisChar() const { return FEllipsisChar; }

  // The advance from the position, in logical units, to the next tab stop, in device pixels; a position on a stop goes
  // to the next. It becomes the draw tag of the atom.
  float GetNextTab(TGPURun& run, std::int32_t index, float position) const;
  // That of the atom's tag; raises rtl::Exception "Internal Error" for another atom.
  float GetTabAdvance(const TGPURun& run, std::int32_t index) const { return run.DrawTag(index).TabAdvance(); }

  // --- Queries ---

  // The boxes of the units, without the layout's TopLeft.
  fmx::TRegion MeasureRange(std::int32_t pos, std::int32_t length);

  // For carets and selections: the boxes of what is drawn, with the layout's TopLeft. A letter with all that it stands
  // for has one box, and a mark has its own. Units that nothing is drawn for, such as a line end, have none.
  struct TLetter {
    fmx::TRectF Box;
    bool RightToLeft;
  };
  // The last one that stands for units before the position, and the first one of the text.
  std::optional<TLetter> LetterBefore(std::int32_t pos);
  std::optional<TLetter> FirstLetter();
  // Those of the units, one box for what stands side by side in a run.
  fmx::TRegion LetterBoxes(fmx::TTextRange range);
  // The first unit of the text of which something lies between the two places; -1 for none.
  std::int32_t FirstUnitBetween(float left, float right);

  // --- Hooks ---

  void DoRenderLayout();
  void DoDrawLayout(fmx::TCanvas& canvas);
  void DoColorChanaged() {}
  float GetTextHeight();
  float GetTextWidth();
  fmx::TRectF GetTextRect();
  std::int32_t DoPositionAtPoint(fmx::TPointF point);
  fmx::TRegion DoRegionForRange(fmx::TTextRange range);
  void DoConvertToPath(fmx::TPathData& path);

  // --- Scenes ---

  static void BeginRender() { TGlyphAtlas::BeginRender(); }
  static void EndRender() { TGlyphAtlas::EndRender(); }

 private:
  void TakeScale(float scale);
  bool CanvasHasOtherScale() const;
  // Of the memory of a frame that has ended, if there is any.
  std::unique_ptr<TGPUFrame> CreateFrame(std::unique_ptr<TFrameStore> store = nullptr);
  void ApplyAttributes(TGPUFrame& frame) const;
  static float MeasuredTab(const TGPURun& run, std::int32_t index);
  bool FrameLacksText();
  void MakeUnclippedFrame();
  const TGPUFrame& MeasuredFrame();
  fmx::TRectF PlaceOfNothing();

  fmx::TAlphaColor FOldColor = 0;  // at the last render
  float FScale = 1;
  float FScaleFactor = 1;
  std::unique_ptr<TGPUFrame> FFrame;
  std::unique_ptr<TFrameStore> FSpareStore;    // of the frame before it, for the next
  std::unique_ptr<TGPUFrame> FUnclippedFrame;  // for measuring, made when asked for
  std::optional<bool> FLacksText;              // of the frame, once it was asked for
  std::unique_ptr<TGPUFrame> FFrame3D;         // for outlines, likewise
  UCS4Char FEllipsisChar = 0x2026;
  TFontKey FFontKey = 0;
  fmx::TStrokeBrush FStrokeBrush;
  float FTabSize = 0;
  std::u16string FCharSequence;
  TBidiSelectionType FBidiSelectionType = TBidiSelectionType::btContext;
  bool FMeasuringText = false;
  bool FNeutralsRightToLeft = true;
};

}  // namespace orv
