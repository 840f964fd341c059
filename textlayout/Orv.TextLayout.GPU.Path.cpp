// The outlines of the text.
#include <algorithm>

#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv {
namespace {

using fmx::TTextAlign;

// The outlines of one line, with the pen at its start, and their size. Lengths are device pixels.
struct TLinePath {
  fmx::TPathData Path;
  float Height = 0;
};

// Each glyph is put at the pen, which stands still: what came before it moves to the left.
TLinePath PathOf(const TTextLayoutNGOrv& layout, const TGPULine& line) {
  TLinePath made;
  float width = 0;
  for (std::int32_t i = 0; i < line.Count(); ++i) {
    const TGPURun& run = line.GetItemByVisualOrder(i);
    TAtomDic& dic = layout.DictionaryOf(run);
    const fmx::TFont& font = layout.GetFontFor(run);
    for (std::int32_t n = 0; n < run.UCS4Length(); ++n) {
      const fmx::TFontGlyph& glyph =
          run.AddOrGetAtomGlyph(nullptr, run.DrawnAtomIndex(n), dic, font, layout.Scale(), true).Glyph;
      made.Path.AddPath(glyph.Path);
      made.Path.Translate(-glyph.Advance, 0);
      width += glyph.Advance;
      made.Height = std::max(made.Height, glyph.VerticalAdvance);
    }
  }
  made.Path.Translate(width, 0);
  return made;
}

float Free(const TTextLayoutNGOrv& layout, float width) {
  return layout.MaxSize().X - layout.Padding().Left - layout.Padding().Right - width;
}

float LeftOf(const TTextLayoutNGOrv& layout, const fmx::TRectF& bounds) {
  switch (layout.RealHorizontalAlign()) {
    case TTextAlign::Center:
      return Free(layout, bounds.Width()) / 2 + layout.TopLeft().X;
    case TTextAlign::Trailing:
      return Free(layout, bounds.Width()) + layout.TopLeft().X;
    case TTextAlign::Leading:
      break;
  }
  return layout.TopLeft().X;
}

float TopOf(const TTextLayoutNGOrv& layout, float height) {
  const float room = layout.MaxSize().Y - layout.Padding().Top - layout.Padding().Bottom - height;
  switch (layout.VerticalAlign()) {
    case TTextAlign::Center:
      return room / 2 + layout.TopLeft().Y;
    case TTextAlign::Trailing:
      return room + layout.TopLeft().Y;
    case TTextAlign::Leading:
      break;
  }
  return layout.TopLeft().Y;
}

}  // namespace

// Wrapping has no effect: the outlines are those of a frame that is not measured.
void TTextLayoutNGOrv::DoConvertToPath(fmx::TPathData& path) {
  if (Text().empty()) return;
  if (!FFrame3D) {
    FFrame3D = CreateFrame();
    ApplyAttributes(*FFrame3D);
  }
  float y = 0;
  for (std::int32_t i = 0; i < FFrame3D->Count(); ++i) {
    TLinePath line = PathOf(*this, FFrame3D->Line(i));
    line.Path.Translate(LeftOf(*this, line.Path.GetBounds()), y);
    y += line.Height;
    path.AddPath(line.Path);
  }
  const fmx::TRectF bounds = path.GetBounds();
  path.Translate(0, -bounds.Top);
  path.Translate(0, TopOf(*this, bounds.Height()));
}

}  // namespace orv
