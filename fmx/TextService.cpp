#include "fmx/TextService.h"

#include <algorithm>
#include <utility>

#include "fmx/Services.h"
#include "fmx/TextLayoutManager.h"

namespace fmx {
namespace {

std::size_t HeldIn(std::u16string_view text, std::int32_t position) {
  return position <= 0 ? 0 : std::min(static_cast<std::size_t>(position), text.size());
}

struct TCompositionLine {
  float Thickness;
  TStrokeDash Dash;
};
// By the attribute's number.
constexpr TCompositionLine CompositionLines[] = {{1, TStrokeDash::Dash},
                                                 {2, TStrokeDash::Solid},
                                                 {1, TStrokeDash::Solid},
                                                 {4, TStrokeDash::Solid},
                                                 {1, TStrokeDash::Dot}};

}  // namespace

orv::TClass TTextService::Class() {
  using orv::Fill;
  using TSelf = TTextService;
  return orv::CompiledClass<
      TSelf, orv::TNoParent, Fill<TSlots::GetText, &TSelf::DoGetText>, Fill<TSlots::SetText, &TSelf::DoSetText>,
      Fill<TSlots::GetCaretPosition, &TSelf::DoGetCaretPosition>,
      Fill<TSlots::SetCaretPosition, &TSelf::DoSetCaretPosition>, Fill<TSlots::SetMaxLength, &TSelf::DoSetMaxLength>,
      Fill<TSlots::SetCharCase, &TSelf::DoSetCharCase>, Fill<TSlots::SetFilterChar, &TSelf::DoSetFilterChar>,
      Fill<TSlots::SetImeMode, &TSelf::DoSetImeMode>, Fill<TSlots::GetImeMode, &TSelf::DoGetImeMode>,
      Fill<TSlots::HasMarkedText, &TSelf::DoHasMarkedText>, Fill<TSlots::GetMarkedText, &TSelf::DoGetMarkedText>,
      Fill<TSlots::GetMarkedTextAttributes, &TSelf::DoGetMarkedTextAttributes>,
      Fill<TSlots::SetMarkedText, &TSelf::DoSetMarkedText>,
      Fill<TSlots::SetMarkedTextPosition, &TSelf::DoSetMarkedTextPosition>,
      Fill<TSlots::GetMarkedTextPosition, &TSelf::DoGetMarkedTextPosition>,
      Fill<TSlots::CombinedText, &TSelf::DoCombinedText>,
      Fill<TSlots::TargetClausePosition, &TSelf::DoTargetClausePosition>,
      Fill<TSlots::BeginSelection, &TSelf::DoBeginSelection>, Fill<TSlots::EndSelection, &TSelf::DoEndSelection>,
      orv::FillNew<TSlots::Create, TSelf>, Fill<TSlots::DrawSingleLine, &TSelf::DoDrawSingleLine>,
      Fill<TSlots::DrawSingleLineText, &TSelf::DoDrawSingleLineText>>("fmx.TextService", "TTextService");
}

std::unique_ptr<TTextService> TTextService::New(orv::TClass aClass, bool supportsMultiLine) {
  return orv::Record(aClass).Slot<TSlots::Create>()(aClass, supportsMultiLine);
}

std::unique_ptr<TTextService> TTextService::NewDefault(bool supportsMultiLine) {
  const auto service = FindService<ITextServiceClassService>();
  const orv::TClass named = service != nullptr ? service->GetTextServiceClass() : nullptr;
  const bool fits = named != nullptr && orv::InheritsFrom(named, Class());
  return New(fits ? named : Class(), supportsMultiLine);
}

TTextService::TTextService(bool supportsMultiLine, orv::TClass aClass)
    : TRewritableObject(aClass), FSupportsMultiLine(supportsMultiLine) {}
TTextService::~TTextService() = default;

void TTextService::DoSetMarkedText(std::u16string_view text, std::int32_t caret,
                                   std::vector<TCompositionAttribute> attributes) {
  FMarkedText = text;
  FMarkedCaret = static_cast<std::int32_t>(HeldIn(text, caret));
  if (!attributes.empty()) attributes.resize(text.size());  // an input method may have told too many or too few
  FAttributes = std::move(attributes);
}

std::u16string TTextService::DoCombinedText() const {
  if (FMarkedText.empty()) return FText;
  std::u16string combined = FText;
  return combined.insert(HeldIn(FText, FMarkedTextPosition.X), FMarkedText);
}

TPoint TTextService::DoTargetClausePosition() const {
  if (FMarkedText.empty()) return FCaretPosition;
  return {FCaretPosition.X + FMarkedCaret, FCaretPosition.Y};
}

// --- Drawing ---

TTextLayout* TTextService::LayoutFor(TCanvas& canvas, const TSingleLineDrawing& drawing) {
  const orv::TClass wanted = TTextLayoutManager::TextLayoutByCanvas(canvas.ClassType());
  if (wanted == nullptr) return nullptr;
  if (drawing.Layout != nullptr && drawing.Layout->ClassType() == wanted) return drawing.Layout;
  if (FLayout == nullptr || FLayout->ClassType() != wanted) FLayout = TTextLayout::New(wanted);
  return FLayout.get();
}

void TTextService::DoDrawSingleLine(TCanvas& canvas, const TSingleLineDrawing& drawing) {
  const std::u16string text = CombinedText();
  DrawSingleLineText(canvas, std::u16string_view(text).substr(HeldIn(text, drawing.FirstVisibleChar - 1)), drawing);
}

void TTextService::DoDrawSingleLineText(TCanvas& canvas, std::u16string_view text, const TSingleLineDrawing& drawing) {
  TTextLayout* const found = LayoutFor(canvas, drawing);
  if (found == nullptr) return;
  TTextLayout& layout = *found;
  if (found == drawing.Layout) {
    const TPointF place = layout.TopLeft();
    layout.SetTopLeft(drawing.Rect.TopLeft());
    layout.SetColor(canvas.Fill().Color());
    layout.SetOpacity(drawing.Opacity);
    DrawLayout(canvas, layout, drawing);
    layout.SetTopLeft(place);
    return;
  }
  layout.BeginUpdate();
  layout.SetText(text);
  layout.SetFont(drawing.Font != nullptr ? *drawing.Font : canvas.Font());
  layout.SetColor(canvas.Fill().Color());
  layout.SetOpacity(drawing.Opacity);
  layout.SetHorizontalAlign(drawing.HorzAlign);
  layout.SetVerticalAlign(drawing.VertAlign);
  layout.SetWordWrap(drawing.WordWrap);
  layout.SetTopLeft(drawing.Rect.TopLeft());
  layout.SetMaxSize({drawing.Rect.Width(), drawing.Rect.Height()});
  layout.SetRightToLeft(drawing.Flags.Contains(TFillTextFlag::RightToLeft));
  if (drawing.SetUp) drawing.SetUp(layout);
  layout.EndUpdate();
  DrawLayout(canvas, layout, drawing);
}

void TTextService::DrawLayout(TCanvas& canvas, TTextLayout& layout, const TSingleLineDrawing& drawing) {
  const TCanvasStateGuard guard(canvas);
  canvas.IntersectClipRect(drawing.Rect);
  layout.RenderLayout(canvas);
  if (!HasMarkedText()) return;
  const auto marked = static_cast<std::int32_t>(MarkedText().size());
  const auto shown = static_cast<std::int32_t>(layout.Text().size());
  const std::int32_t base = std::min(CaretPosition().X - std::max(drawing.FirstVisibleChar - 1, 0), shown - marked);
  DrawCompositionLines(canvas, layout, base, MarkedTextAttributes());
}

void DrawCompositionLines(TCanvas& canvas, TTextLayout& layout, std::int32_t base,
                          const std::vector<TCompositionAttribute>& attributes) {
  const TCanvasStateGuard guard(canvas);
  for (std::size_t i = 0; i < attributes.size(); ++i) {
    const auto number = static_cast<std::size_t>(attributes[i]);
    const TCompositionLine line =
        number < std::size(CompositionLines) ? CompositionLines[number] : TCompositionLine{2, TStrokeDash::Solid};
    const TStrokeBrush pen(canvas.Fill().Color(), line.Thickness, line.Dash);
    const auto position = static_cast<std::int64_t>(base) + static_cast<std::int64_t>(i);
    if (position < 0) continue;
    for (const TRectF& box : layout.RegionForRange({static_cast<std::int32_t>(position), 1})) {
      const TRectF aligned = canvas.AlignToPixel(box).Offset(-line.Thickness / 2, -line.Thickness / 2);
      canvas.DrawLine({aligned.Left, aligned.Bottom}, {aligned.Right, aligned.Bottom}, layout.Opacity(), pen);
    }
  }
}

}  // namespace fmx
