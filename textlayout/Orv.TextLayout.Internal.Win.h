// An internal text layout of fixed answers, which serves to exercise the logic around a real one.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "fmx/Bitmap.h"
#include "textlayout/Orv.TextLayout.Internal.h"

namespace orv {

// A bitmap that several hold. Its canvas and pixels go with the last.
class TSmartBitmap {
 public:
  TSmartBitmap() = default;
  TSmartBitmap(std::unique_ptr<fmx::TBitmap> bitmap) : FBitmap(std::move(bitmap)) {}
  operator fmx::TBitmap*() const { return FBitmap.get(); }
  fmx::TBitmap* operator->() const { return FBitmap.get(); }
  long HolderCount() const { return FBitmap.use_count(); }

 private:
  std::shared_ptr<fmx::TBitmap> FBitmap;  // shared by the values that were assigned from each other
};

// What a platform's paint object would answer; it paints nothing.
class TGDITextPaint {
 public:
  TGDITextPaint() = delete;

  static std::int32_t GetOffsetForAdvance() { return 5; }
  // Where a run breaks that begins there, from a table; a run that begins elsewhere does not break, and is 4.3 times as
  // wide as its length.
  static std::int32_t BreakText(std::int32_t textLength, std::int32_t start, std::int32_t length, float fontSize,
                                float& width, float& height);
  static fmx::TRectF GetTextBounds(float fontSize) { return {0, 0, 100, fontSize}; }
  static fmx::TRectF MeasureText(std::int32_t length, float fontSize) {
    return {0, 0, 4.3F * static_cast<float>(length), fontSize};
  }
};

class TInternalTextLayoutWin : public TInternalTextLayout {
 public:
  static std::unique_ptr<TInternalTextLayout> Make() { return std::make_unique<TInternalTextLayoutWin>(); }

 private:
  std::int32_t DoGetOffsetForAdvance(std::u16string_view text, float x, float scale) override;
  std::int32_t DoBreakText(std::u16string_view text, float maxWidth, float& width, float& height, float scale) override;
  fmx::TRectF DoMeasureText(std::u16string_view text, std::int32_t from, std::int32_t to, float scale) override;
  float DoDrawText(std::u16string_view text, fmx::TCanvas& canvas, fmx::TPointF position) override;
  fmx::TBitmap& GetBitmap(bool& cached);

  TSmartBitmap FCachedBitmap;
};

}  // namespace orv
