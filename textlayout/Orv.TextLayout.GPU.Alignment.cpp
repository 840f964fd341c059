// The layout pass: the place of the frame and its lines in the box.
#include "textlayout/Orv.TextLayout.GPU.Pass.h"

namespace orv {

using fmx::TTextAlign;

void TLayoutPass::Align() {
  const float x = AlignHorizontally();
  float y = AlignVertically();
  FFrame.SetTopLeft({x, y});
  for (std::int32_t i = 0; i < FFrame.Count(); ++i) {
    TGPULine& line = FFrame.Line(i);
    line.SetTopLeft({line.TopLeft().X, y});
    y += line.Height();
  }
}

// Places each line. Answers the place of the frame: in the middle of the padded width without the left padding itself,
// and, for leading text, beside the left padding, which its lines do not have.
float TLayoutPass::AlignHorizontally() {
  const fmx::TBounds& padding = FLayout.Padding();
  const auto place = [&](float width) {
    if (FLayout.RealHorizontalAlign() == TTextAlign::Center)
      return (FMaxSize.X - padding.Right - padding.Left - width) / 2;
    return FMaxSize.X - padding.Right - width;
  };
  if (FLayout.RealHorizontalAlign() == TTextAlign::Leading) return padding.Left;
  for (std::int32_t i = 0; i < FFrame.Count(); ++i) {
    TGPULine& line = FFrame.Line(i);
    line.SetTopLeft({place(line.Width()), line.TopLeft().Y});
  }
  return place(FFrame.Width());
}

float TLayoutPass::AlignVertically() const {
  const fmx::TBounds& padding = FLayout.Padding();
  switch (FLayout.VerticalAlign()) {
    case TTextAlign::Center:
      return (FMaxSize.Y - padding.Top - padding.Bottom - FFrame.Height()) / 2;
    case TTextAlign::Trailing:
      return FMaxSize.Y - padding.Bottom - FFrame.Height();
    case TTextAlign::Leading:
      break;
  }
  return padding.Top;
}

}  // namespace orv
