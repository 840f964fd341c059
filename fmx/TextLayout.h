// The measuring, hit testing and drawing of one text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fmx/Canvas.h"
#include "fmx/PathData.h"
#include "fmx/TextAttribute.h"
#include "fmx/TextTypes.h"
#include "runtime/RewritableClass.h"

namespace fmx {

// A text in a box. The properties say what is wanted; a render lays the text out; queries and drawing read what the
// render left. Every change of a property that the lines depend on renders at once, or at the end of the outermost
// update: one render, however many properties changed. Setting an equal value is no change and costs a comparison.
// A layout that nothing was set on has never been rendered, and is an empty text. What a render raises comes out of the
// change or the end of the update that led to it; the property has its new value, and the next query or drawing renders
// again.
//
// Lengths are logical units, positions UTF-16 code units. Lines depend on neither Color, Opacity nor TopLeft. What is
// not finite is not taken. A layout belongs to one thread.
//
// A layout class derives from this one, defines the hooks at its end, and makes its class value with CompiledLayout.
// The hooks are called through the slots of the object's class record.
class TTextLayout : public orv::TRewritableObject {
 public:
  // The replaceable operations in the order of their slots.
  struct TSlots {
    struct DoRenderLayout : orv::TSlot<0, void(TTextLayout&)> {};
    struct DoDrawLayout : orv::TSlot<1, void(TTextLayout&, TCanvas&)> {};
    struct DoColorChanaged : orv::TSlot<2, void(TTextLayout&)> {};
    struct GetTextHeight : orv::TSlot<3, float(TTextLayout&)> {};
    struct GetTextWidth : orv::TSlot<4, float(TTextLayout&)> {};
    struct GetTextRect : orv::TSlot<5, TRectF(TTextLayout&)> {};
    struct DoPositionAtPoint : orv::TSlot<6, std::int32_t(TTextLayout&, TPointF)> {};
    struct DoRegionForRange : orv::TSlot<7, TRegion(TTextLayout&, TTextRange)> {};
    struct Create : orv::TSlot<8, std::unique_ptr<TTextLayout>(orv::TClass, TCanvas*)> {};
    struct ConvertToPath : orv::TSlot<9, void(TTextLayout&, TPathData&)> {};
  };
  static constexpr int SlotCount = 10;
  static orv::TClass Class();

  // Nothing limits a box of this size.
  static constexpr TPointF MaxLayoutSize = fmx::MaxLayoutSize;

  // Makes a layout of the class, for that canvas, which is borrowed and may be null. Raises EAbstractError for a class
  // that is no layout of its own, and what the class raises.
  static std::unique_ptr<TTextLayout> New(orv::TClass aClass, TCanvas* canvas = nullptr);

  ~TTextLayout() override;
  TTextLayout(const TTextLayout&) = delete;
  TTextLayout& operator=(const TTextLayout&) = delete;

  // --- Updates ---

  // Between these, which nest, changes wait. An EndUpdate too many does nothing.
  void BeginUpdate() { ++FUpdating; }
  void EndUpdate();
  bool IsUpdating() const { return FUpdating > 0; }

  // --- Properties ---

  // Empty at first.
  const std::u16string& Text() const { return FText; }
  void SetText(std::u16string_view text);

  // The layout's own; its changes count as the layout's. At first the platform's default family and size.
  TFont& Font() { return FFont; }
  const TFont& Font() const { return FFont; }
  void SetFont(const TFont& font) { FFont.Assign(font); }

  // Black at first. A change calls DoColorChanaged and renders nothing.
  TAlphaColor Color() const { return FColor; }
  void SetColor(TAlphaColor color);

  // Off at first.
  bool WordWrap() const { return FWordWrap; }
  void SetWordWrap(bool wrap) { Change(FWordWrap, wrap); }
  // None at first. It applies where the text is not wrapped.
  TTextTrimming Trimming() const { return FTrimming; }
  void SetTrimming(TTextTrimming trimming) { Change(FTrimming, trimming); }

  // Leading at first.
  TTextAlign HorizontalAlign() const { return FHorizontalAlign; }
  void SetHorizontalAlign(TTextAlign align) { Change(FHorizontalAlign, align); }
  TTextAlign VerticalAlign() const { return FVerticalAlign; }
  void SetVerticalAlign(TTextAlign align) { Change(FVerticalAlign, align); }

  // Zero at first.
  const TBounds& Padding() const { return FPadding; }
  void SetPadding(const TBounds& padding);

  // MaxLayoutSize at first. Each side is held between 0 and that. A size within ScaleTolerance of it is no change.
  TPointF MaxSize() const { return FMaxSize; }
  void SetMaxSize(TPointF size);

  // The box's corner; the origin at first.
  TPointF TopLeft() const { return FTopLeft; }
  void SetTopLeft(TPointF topLeft);

  // From 0 to 1, and held there; 1 at first.
  float Opacity() const { return FOpacity; }
  void SetOpacity(float opacity);

  // Left to right at first. A render may change it, by StoreRightToLeft.
  bool RightToLeft() const { return FRightToLeft; }
  void SetRightToLeft(bool rightToLeft) { Change(FRightToLeft, rightToLeft); }
  // For renders: stores the value, and renders nothing.
  void StoreRightToLeft(bool rightToLeft) { FRightToLeft = rightToLeft; }

  // The canvas whose scale the text is laid out for; borrowed, and null for the scale of the screen. Set it to null
  // before the canvas goes.
  TCanvas* Canvas() const { return FCanvas; }
  void SetCanvas(TCanvas* canvas) { Change(FCanvas, canvas); }

  // --- Attributes ---

  // Later ones stand over earlier ones.
  void AddAttribute(TTextRange range, TTextAttribute attribute);
  void AddAttribute(std::unique_ptr<TTextAttributedRange> attribute);
  void ClearAttributes();
  std::size_t AttributesCount() const { return FAttributes.size(); }
  // Raises std::out_of_range for an index from AttributesCount on.
  const TTextAttributedRange& Attribute(std::size_t index) const;

  // --- Queries and drawing ---

  // Draws the text, within a scene of the canvas. Changes that wait for the end of an update are not drawn yet, and no
  // query knows of them.
  void RenderLayout(TCanvas& canvas);

  // The position nearest to the point, or -1 where the layout has no answer. roundToWord is kept for callers that pass
  // it on, and has no effect.
  std::int32_t PositionAtPoint(TPointF point, bool roundToWord = true);
  // The boxes of the range, line by line.
  TRegion RegionForRange(TTextRange range, bool roundToWord = false);

  TRectF TextRect();
  float TextWidth();
  float TextHeight();
  // Adds the outlines of the text. Raises ENotImplemented where the class has none.
  void ConvertToPath(TPathData& path);

 protected:
  TTextLayout(TCanvas* canvas, orv::TClass aClass);

  // The class value of the layout T, which descends from the class TParent; for its Class(). T defines every hook that
  // has no definition here and has a constructor T(TCanvas*, orv::TClass), all of them public:
  //
  //   void DoRenderLayout();                     // lay the text out
  //   void DoDrawLayout(TCanvas& canvas);
  //   float GetTextHeight();
  //   float GetTextWidth();
  //   TRectF GetTextRect();
  //   std::int32_t DoPositionAtPoint(TPointF point);
  //   TRegion DoRegionForRange(TTextRange range);
  template <typename T, typename TParent>
  static orv::TClass CompiledLayout(std::string_view unitName, std::string_view className) {
    using orv::Fill;
    return orv::CompiledClass<
        T, TParent, Fill<TSlots::DoRenderLayout, &T::DoRenderLayout>, Fill<TSlots::DoDrawLayout, &T::DoDrawLayout>,
        Fill<TSlots::DoColorChanaged, &T::DoColorChanaged>, Fill<TSlots::GetTextHeight, &T::GetTextHeight>,
        Fill<TSlots::GetTextWidth, &T::GetTextWidth>, Fill<TSlots::GetTextRect, &T::GetTextRect>,
        Fill<TSlots::DoPositionAtPoint, &T::DoPositionAtPoint>, Fill<TSlots::DoRegionForRange, &T::DoRegionForRange>,
        orv::FillNew<TSlots::Create, T>, Fill<TSlots::ConvertToPath, &T::DoConvertToPath>>(unitName, className);
  }

  // The colour is another one. Does nothing here.
  void DoColorChanaged();
  // As ConvertToPath. Raises ENotImplemented here.
  void DoConvertToPath(TPathData& path);

  // Renders, or has the end of the update render.
  void NeedUpdate();
  // Whether something changed that the lines do not show yet. False while the render runs.
  bool IsUpdateWaiting() const { return FNeedsUpdate; }

  template <typename TTag, typename... TArgs>
  decltype(auto) Call(TArgs&&... args) {
    return orv::Record(ClassType()).template Slot<TTag>()(*this, std::forward<TArgs>(args)...);
  }

 private:
  template <typename T>
  void Change(T& property, const T& value) {
    if (property == value) return;
    property = value;
    NeedUpdate();
  }
  void RenderWhatWaits();

  std::u16string FText;
  TFont FFont;
  TAlphaColor FColor = TAlphaColors::Black;
  bool FWordWrap = false;
  bool FRightToLeft = false;
  bool FNeedsUpdate = false;  // something changed within the update, or the render failed
  TTextTrimming FTrimming = TTextTrimming::None;
  TTextAlign FHorizontalAlign = TTextAlign::Leading;
  TTextAlign FVerticalAlign = TTextAlign::Leading;
  TBounds FPadding;
  TPointF FMaxSize = MaxLayoutSize;
  TPointF FTopLeft;
  float FOpacity = 1;
  std::int32_t FUpdating = 0;
  TCanvas* FCanvas;
  std::vector<std::unique_ptr<TTextAttributedRange>> FAttributes;
};

}  // namespace fmx
