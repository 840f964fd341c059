// What everything is drawn on: a bitmap, a window, a printed page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "fmx/Bitmap.h"
#include "fmx/Brush.h"
#include "fmx/Clip.h"
#include "fmx/Font.h"
#include "fmx/Geometry.h"
#include "fmx/Matrix.h"
#include "fmx/PathData.h"
#include "fmx/PathShapes.h"
#include "fmx/TextTypes.h"
#include "runtime/RewritableClass.h"

namespace fmx {

// What a canvas draws on. Borrowed; it outlives the canvas.
struct TCanvasTarget {
  enum class TKind : std::uint8_t { Measure, Bitmap, Window, Printer };
  TKind Kind = TKind::Measure;   // a measure canvas draws nowhere
  TBitmap* Bitmap = nullptr;     // of a bitmap canvas
  void* Window = nullptr;        // of a window or printer canvas: what the back end's own window layer hands it
  std::int32_t PixelWidth = 0;   // of the target
  std::int32_t PixelHeight = 0;  // likewise
  float Scale = 1;               // device pixels of a logical unit
};

// Coordinates are logical units, which the matrix and then the scale take to device pixels. Drawing belongs between
// BeginScene and EndScene, and outside does nothing. Rectangles may be reversed. An operation whose coordinates are not
// finite does nothing. Opacity is held between 0 and 1 and multiplies the alpha of what is drawn; every operation draws
// over what is there. A canvas belongs to one thread.
//
// A back end derives from the class, defines the hooks at its end, and makes its class value with CompiledCanvas. The
// hooks are called through the slots of the object's class record, so that a class can be made out of a back end at run
// time that wraps some of them.
class TCanvas : public orv::TRewritableObject {
 public:
  // A state that SaveState kept; give it to RestoreState. A canvas gives each value once.
  using TSavedState = std::uint64_t;

  // The replaceable operations in the order of their slots.
  struct TSlots {
    struct Create : orv::TSlot<0, std::unique_ptr<TCanvas>(orv::TClass, const TCanvasTarget&)> {};
    struct DoSetMatrix : orv::TSlot<1, void(TCanvas&, const TMatrix&)> {};
    struct DoSetClip : orv::TSlot<2, void(TCanvas&, const TClip&)> {};
    struct DoClearRect : orv::TSlot<3, void(TCanvas&, const TRect&, TPixel)> {};
    struct DoFillRect : orv::TSlot<4, void(TCanvas&, const TRectF&, float, const TBrush&)> {};
    struct DoFillEllipse : orv::TSlot<5, void(TCanvas&, const TRectF&, float, const TBrush&)> {};
    struct DoFillPath : orv::TSlot<6, void(TCanvas&, const TPathData&, float, const TBrush&)> {};
    struct DoBeginScene : orv::TSlot<7, bool(TCanvas&, std::span<const TRectF>, void*)> {};
    struct DoEndScene : orv::TSlot<8, void(TCanvas&)> {};
    struct DoDrawPath : orv::TSlot<9, void(TCanvas&, const TPathData&, float, const TStrokeBrush&)> {};
    struct DoDrawLine : orv::TSlot<10, void(TCanvas&, TPointF, TPointF, float, const TStrokeBrush&)> {};
    struct DoDrawBitmap : orv::TSlot<11, void(TCanvas&, const TBitmap&, const TRectF&, const TRectF&, float, bool)> {};
    struct DoResize : orv::TSlot<12, void(TCanvas&)> {};
  };
  static constexpr int SlotCount = 13;
  static orv::TClass Class();

  // Makes a canvas of the class, which is TCanvas or descends from it. Raises EAbstractError for a class that is no
  // back end, and what the back end raises.
  static std::unique_ptr<TCanvas> New(orv::TClass aClass, const TCanvasTarget& target);

  ~TCanvas() override;
  TCanvas(const TCanvas&) = delete;
  TCanvas& operator=(const TCanvas&) = delete;

  const TCanvasTarget& Target() const { return FTarget; }
  float Scale() const { return FTarget.Scale; }
  // The target's size in logical units.
  float Width() const { return static_cast<float>(FTarget.PixelWidth) / FTarget.Scale; }
  float Height() const { return static_cast<float>(FTarget.PixelHeight) / FTarget.Scale; }
  // For the window layer, outside of scenes, where it does nothing: the window's new size. A scale that is not above 0
  // counts as 1.
  void Resize(std::int32_t pixelWidth, std::int32_t pixelHeight, float scale);

  // Opens a scene, or one more within the open one; each answered with true needs its EndScene. The outermost takes the
  // matrix and clip back to none and clips to the given rectangles, of which none means everything. Answers false where
  // the target cannot be drawn on. The context is the back end's own.
  bool BeginScene(std::span<const TRectF> clipRects = {}, void* context = nullptr);
  // Without an open scene it does nothing.
  void EndScene();
  // How deep the open scenes are nested.
  std::int32_t BeginSceneCount() const { return FSceneCount; }

  // The brushes and the font that drawing without an explicit brush takes. They are part of the saved state, as the
  // matrix and the clip are. References hold as long as the canvas.
  TBrush& Fill() { return FState.Fill; }
  TStrokeBrush& Stroke() { return FState.Stroke; }
  TFont& Font() { return FState.Font; }

  // Keeps the state. Beyond MaxSavedStates nested ones it is not kept, and restoring it takes the last that was.
  TSavedState SaveState();
  // Takes the state back, and forgets it with all that were saved after it. A state that is no longer kept changes
  // nothing. All states are forgotten where the outermost scene begins and ends.
  void RestoreState(TSavedState state);

  // From logical units to logical units of the target.
  const TMatrix& Matrix() const { return FState.Matrix; }
  // A matrix that is not finite, or not with the scale, is not taken.
  void SetMatrix(const TMatrix& matrix);
  // Transforms by the matrix first, then by what was there.
  void MultiplyMatrix(const TMatrix& matrix) { SetMatrix(matrix * FState.Matrix); }
  // The matrix and the scale in one: from logical units to device pixels.
  TMatrix DeviceMatrix() const { return FState.Matrix * TMatrix::Scaling(Scale(), Scale()); }

  const TClip& Clip() const { return FState.Clip; }
  void IntersectClipRect(const TRectF& rect);
  void ExcludeClipRect(const TRectF& rect);

  // The nearest place at which a translated v lies on a whole device pixel, halves to even: with the identity matrix
  // Round(v * Scale) / Scale. A matrix that turns or scales aligns nothing: v.
  float AlignToPixelHorizontally(float v) const;
  float AlignToPixelVertically(float v) const;
  TPointF AlignToPixel(TPointF p) const { return {AlignToPixelHorizontally(p.X), AlignToPixelVertically(p.Y)}; }
  TRectF AlignToPixel(const TRectF& r) const;

  // Makes every pixel the colour, whatever was there; the rectangle's alone in ClearRect, without regard to clips.
  // ClearRect rounds to whole device pixels.
  void Clear(TAlphaColor color);
  void ClearRect(const TRectF& rect, TAlphaColor color = TAlphaColors::Null);

  void FillRect(const TRectF& rect, float opacity) { FillRect(rect, opacity, Fill()); }
  void FillRect(const TRectF& rect, float opacity, const TBrush& brush);
  void FillRect(const TRectF& rect, float xRadius, float yRadius, TCorners corners, float opacity, const TBrush& brush,
                TCornerType type = TCornerType::Round);
  void FillRect(const TRectF& rect, float xRadius, float yRadius, TCorners corners, float opacity) {
    FillRect(rect, xRadius, yRadius, corners, opacity, Fill());
  }
  void DrawRect(const TRectF& rect, float xRadius, float yRadius, TCorners corners, float opacity,
                const TStrokeBrush& brush, TCornerType type = TCornerType::Round);
  void DrawRect(const TRectF& rect, float xRadius, float yRadius, TCorners corners, float opacity) {
    DrawRect(rect, xRadius, yRadius, corners, opacity, Stroke());
  }

  void FillEllipse(const TRectF& rect, float opacity) { FillEllipse(rect, opacity, Fill()); }
  void FillEllipse(const TRectF& rect, float opacity, const TBrush& brush);
  void DrawEllipse(const TRectF& rect, float opacity) { DrawEllipse(rect, opacity, Stroke()); }
  void DrawEllipse(const TRectF& rect, float opacity, const TStrokeBrush& brush);

  void DrawLine(TPointF from, TPointF to, float opacity) { DrawLine(from, to, opacity, Stroke()); }
  void DrawLine(TPointF from, TPointF to, float opacity, const TStrokeBrush& brush);

  // By the non-zero winding rule; open figures are closed.
  void FillPath(const TPathData& path, float opacity) { FillPath(path, opacity, Fill()); }
  void FillPath(const TPathData& path, float opacity, const TBrush& brush);
  void DrawPath(const TPathData& path, float opacity) { DrawPath(path, opacity, Stroke()); }
  void DrawPath(const TPathData& path, float opacity, const TStrokeBrush& brush);

  // Draws the source part of the bitmap, in its pixels, over the destination. What lies outside of the bitmap is cut
  // off on both sides. Empty and reversed rectangles draw nothing, and neither does the canvas's own bitmap. highSpeed
  // takes the nearest pixel where otherwise neighbours are mixed.
  void DrawBitmap(const TBitmap& bitmap, const TRectF& source, const TRectF& destination, float opacity,
                  bool highSpeed = false);

  // Text in the canvas's font and fill colour, by the layout class registered for the canvas (fmx/TextLayoutManager.h).
  // They raise ENotRegistered where there is none; FillText outside of a scene, of an empty text or with a brush that
  // cannot be seen comes back before it looks. What is wider than the rectangle is cut off.
  void FillText(const TRectF& rect, std::u16string_view text, bool wordWrap, float opacity, TTextAlign horizontal,
                TTextAlign vertical = TTextAlign::Center);
  // The place that the text would take in the rectangle.
  TRectF MeasureText(const TRectF& rect, std::u16string_view text, bool wordWrap, TTextAlign horizontal,
                     TTextAlign vertical = TTextAlign::Center);
  // The size of the text on lines of its own, nothing limiting it; also outside of scenes.
  float TextWidth(std::u16string_view text);
  float TextHeight(std::u16string_view text);

 protected:
  TCanvas(const TCanvasTarget& target, orv::TClass aClass);

  // The class value of the back end T, which descends from the class TParent; for its Class(). T defines each hook that
  // has no definition here, may define the others, and has a constructor T(const TCanvasTarget&, orv::TClass), all of
  // them public. Example:
  //
  //   orv::TClass TPlotter::Class() {
  //     return CompiledCanvas<TPlotter, fmx::TCanvas>("plot.Canvas", "TPlotter");
  //   }
  template <typename T, typename TParent>
  static orv::TClass CompiledCanvas(std::string_view unitName, std::string_view className) {
    using orv::Fill;
    return orv::CompiledClass<T, TParent, orv::FillNew<TSlots::Create, T>, Fill<TSlots::DoSetMatrix, &T::DoSetMatrix>,
                              Fill<TSlots::DoSetClip, &T::DoSetClip>, Fill<TSlots::DoClearRect, &T::DoClearRect>,
                              Fill<TSlots::DoFillRect, &T::DoFillRect>, Fill<TSlots::DoFillEllipse, &T::DoFillEllipse>,
                              Fill<TSlots::DoFillPath, &T::DoFillPath>, Fill<TSlots::DoBeginScene, &T::DoBeginScene>,
                              Fill<TSlots::DoEndScene, &T::DoEndScene>, Fill<TSlots::DoDrawPath, &T::DoDrawPath>,
                              Fill<TSlots::DoDrawLine, &T::DoDrawLine>, Fill<TSlots::DoDrawBitmap, &T::DoDrawBitmap>,
                              Fill<TSlots::DoResize, &T::DoResize>>(unitName, className);
  }

  // The hooks. They are called within a scene alone (DoBeginScene just before it), with finite coordinates, an opacity
  // above 0 and at most 1, brushes and pens that can be seen, and after DoSetMatrix and DoSetClip told what holds.
  // Each back end has, besides these:
  //
  //   void DoSetMatrix(const TMatrix& deviceMatrix);  // from logical units to device pixels; told before drawing where
  //                                                   // it has changed
  //   void DoSetClip(const TClip& clip);              // likewise; replaces the clip in force
  //   void DoClearRect(const TRect& pixels, TPixel pixel);  // not empty, inside the target; clips do not count
  //   void DoFillPath(const TPathData& path, float opacity, const TBrush& brush);
  //   void DoDrawPath(const TPathData& path, float opacity, const TStrokeBrush& brush);
  //   void DoDrawBitmap(const TBitmap& bitmap, const TRectF& source, const TRectF& destination, float opacity,
  //                     bool highSpeed);  // the source lies inside the bitmap, and neither rectangle is empty

  // A rectangle that is not reversed. As they stand here, these two fill the shape's outline.
  void DoFillRect(const TRectF& rect, float opacity, const TBrush& brush);
  void DoFillEllipse(const TRectF& rect, float opacity, const TBrush& brush);
  // Draws the path of the line.
  void DoDrawLine(TPointF from, TPointF to, float opacity, const TStrokeBrush& brush);
  // Opens the target; false where it cannot be drawn on. The clip is the canvas's own affair. DoEndScene comes once for
  // each DoBeginScene that came back, at once for one that answered false; then there is nothing to close.
  bool DoBeginScene(std::span<const TRectF> clipRects, void* context);
  void DoEndScene();
  // The target has another size or scale.
  void DoResize();

 private:
  struct TState {
    TMatrix Matrix;
    TClip Clip;
    TBrush Fill;
    TStrokeBrush Stroke;
    TFont Font;
  };
  struct TSaved {
    TSavedState Serial;
    TState State;
  };

  template <typename TTag, typename... TArgs>
  decltype(auto) Call(TArgs&&... args) {
    return orv::Record(ClassType()).template Slot<TTag>()(*this, std::forward<TArgs>(args)...);
  }
  // Whether something may be drawn; tells the back end of a changed matrix and clip.
  bool Prepare(float opacity);
  // Whether surely nothing of the rectangle is in the clip; false also where that takes more to find out.
  bool IsClippedAway(const TRectF& rect) const;
  bool OpenTarget(std::span<const TRectF> clipRects, void* context);
  void StateChanged();
  float Align(float v, float translation) const;

  TCanvasTarget FTarget;
  TState FState;
  std::vector<TSaved> FSaved;  // by serial number
  TSavedState FLastSerial = 0;
  std::int32_t FSceneCount = 0;
  bool FMatrixTold = false;
  bool FClipTold = false;
};

// Keeps a canvas's state for as long as it lives.
class TCanvasStateGuard {
 public:
  explicit TCanvasStateGuard(TCanvas& canvas) : FCanvas(canvas), FState(canvas.SaveState()) {}
  ~TCanvasStateGuard() { FCanvas.RestoreState(FState); }
  TCanvasStateGuard(const TCanvasStateGuard&) = delete;
  TCanvasStateGuard& operator=(const TCanvasStateGuard&) = delete;

 private:
  TCanvas& FCanvas;
  TCanvas::TSavedState FState;
};

}  // namespace fmx
