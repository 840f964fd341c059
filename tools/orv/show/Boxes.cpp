// What a layout measures and answers, drawn over its text, and told as JSON.
#include <string>

#include "tools/orv/eval/LayoutValues.h"
#include "tools/orv/show/Page.h"

namespace orv::show {
namespace {

constexpr fmx::TAlphaColor LineColor = 0x60808080;
constexpr fmx::TAlphaColor RightToLeftColor = 0xC0C05020;
constexpr fmx::TAlphaColor LeftToRightColor = 0xC02060C0;
constexpr fmx::TAlphaColor CaretColor = 0xE0109040;

void Outline(fmx::TCanvas& canvas, const fmx::TRectF& box, fmx::TAlphaColor color) {
  const float w = 1 / canvas.Scale();  // a device pixel
  const fmx::TBrush brush(color);
  canvas.FillRect({box.Left, box.Top, box.Right, box.Top + w}, 1, brush);
  canvas.FillRect({box.Left, box.Bottom - w, box.Right, box.Bottom}, 1, brush);
  canvas.FillRect({box.Left, box.Top + w, box.Left + w, box.Bottom - w}, 1, brush);
  canvas.FillRect({box.Right - w, box.Top + w, box.Right, box.Bottom - w}, 1, brush);
}

void DrawCaretStops(TTextLayoutNGOrv& layout, fmx::TCanvas& canvas) {
  const auto length = static_cast<std::int32_t>(layout.Text().size());
  const fmx::TBrush brush(CaretColor);
  const auto tick = [&](float x, const fmx::TRectF& box) {
    canvas.FillRect({x, box.Bottom - box.Height() / 5, x + 1 / canvas.Scale(), box.Bottom}, 1, brush);
  };
  for (std::int32_t i = 0; i < length; ++i)
    for (const fmx::TRectF& box : layout.RegionForRange({i, 1})) {
      tick(box.Left, box);
      tick(box.Right, box);
    }
  for (const fmx::TRectF& box : layout.RegionForRange({length, 0})) tick(box.Left, box);
}

}  // namespace

void DrawBoxes(TTextLayoutNGOrv& layout, fmx::TCanvas& canvas) {
  const TGPUFrame& frame = layout.Frame();
  for (std::int32_t i = 0; i < frame.Count(); ++i) {
    const TGPULine& line = frame.Line(i);
    const fmx::TPointF corner = line.TopLeft() + layout.TopLeft();
    Outline(canvas, fmx::TRectF::FromSize(corner, line.Width(), line.Height()), LineColor);
    for (std::int32_t k = 0; k < line.Count(); ++k) {
      const TGPURun& run = line.Item(k);
      Outline(canvas, run.ImageRect().Offset(corner).Inset(1, 1),
              run.RightToLeft() ? RightToLeftColor : LeftToRightColor);
    }
  }
  DrawCaretStops(layout, canvas);
}

std::string Dump(TPage& page) {
  eval::TJson paragraphs = eval::TJson::array();
  for (const TPage::TBlock& block : page.Blocks()) {
    eval::TJson paragraph = {{"Start", block.Paragraph->Start},
                             {"Length", block.Paragraph->Text.size()},
                             {"RightToLeft", block.Paragraph->RightToLeft},
                             {"Title", block.Paragraph->Title},
                             {"Top", block.Top},
                             {"Frame", nullptr}};
    if (block.Layout) paragraph["Frame"] = eval::FrameValue(block.Layout->Frame());
    paragraphs.push_back(std::move(paragraph));
  }
  return eval::TJson{{"Width", page.Width()}, {"Height", page.Height()}, {"Paragraphs", std::move(paragraphs)}}.dump();
}

}  // namespace orv::show
