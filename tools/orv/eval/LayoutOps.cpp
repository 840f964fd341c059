// The text layout: builds one out of a request, renders it once, and tells its frame, what it draws and what it
// answers.
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fmx/GlyphsManager.h"
#include "fmx/RecordingCanvas.h"
#include "textlayout/Orv.FontGlyphs.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "tools/orv/eval/Arguments.h"
#include "tools/orv/eval/Geometry.h"
#include "tools/orv/eval/LayoutValues.h"

namespace orv::eval {
namespace {

constexpr TNamed<fmx::TFontStyle> StyleNames[] = {{"Bold", fmx::TFontStyle::Bold},
                                                  {"Italic", fmx::TFontStyle::Italic},
                                                  {"Underline", fmx::TFontStyle::Underline},
                                                  {"StrikeOut", fmx::TFontStyle::StrikeOut}};
constexpr TNamed<fmx::TTextTrimming> TrimmingNames[] = {{"None", fmx::TTextTrimming::None},
                                                        {"Character", fmx::TTextTrimming::Character},
                                                        {"Word", fmx::TTextTrimming::Word}};
constexpr TNamed<TBidiSelectionType> SelectionNames[] = {{"btManual", TBidiSelectionType::btManual},
                                                         {"btForm", TBidiSelectionType::btForm},
                                                         {"btContext", TBidiSelectionType::btContext}};
constexpr TNamed<TMetrics> MetricsNames[] = {{"fixed", TMetrics::Fixed}, {"font", TMetrics::Font}};

// --- Reading ---

fmx::TAlphaColor Color(const TArguments& arguments) {
  return static_cast<fmx::TAlphaColor>(arguments.Integer("Color", 0, 0xFFFFFFFF));
}

// The font of a request, over another one.
fmx::TFont ReadFont(const TJson& value, const fmx::TFont& base) {
  const TArguments font(Object("font", value));
  std::u16string family = font.Has("Family") ? FromUtf8(font.String("Family")) : base.Family();
  const float size = font.Has("Size") ? Positive("Size", font.At("Size")) : base.Size();
  fmx::TFontStyles style = base.Style();
  if (font.Has("Style")) {
    style = {};
    for (const TJson& name : Array("Style", font.At("Style"))) style.Include(Named("Style", name, StyleNames));
  }
  return {std::move(family), size, style};
}

void ReadProperty(TTextLayoutNGOrv& layout, const std::string& name, const TJson& value) {
  const TJson holder = {{name, value}};
  const TArguments arguments(holder);
  if (name == "MaxSize") {
    const auto size = Floats<2>(name, value);
    layout.SetMaxSize({size[0], size[1]});
  } else if (name == "WordWrap") {
    layout.SetWordWrap(arguments.Bool(name));
  } else if (name == "HorizontalAlign") {
    layout.SetHorizontalAlign(arguments.Enum(name, AlignNames));
  } else if (name == "VerticalAlign") {
    layout.SetVerticalAlign(arguments.Enum(name, AlignNames));
  } else if (name == "Trimming") {
    layout.SetTrimming(arguments.Enum(name, TrimmingNames));
  } else if (name == "RightToLeft") {
    layout.SetRightToLeft(arguments.Bool(name));
  } else if (name == "BidiSelectionType") {
    layout.SetBidiSelectionType(arguments.Enum(name, SelectionNames));
  } else if (name == "Padding") {
    const auto padding = Floats<4>(name, value);
    layout.SetPadding({padding[0], padding[1], padding[2], padding[3]});
  } else if (name == "TopLeft") {
    const auto corner = Floats<2>(name, value);
    layout.SetTopLeft({corner[0], corner[1]});
  } else if (name == "Scale") {
    layout.SetScale(Positive(name, value));
  } else if (name == "TabSize") {
    const float size = Float(name, value);
    if (size < 0) throw BadRequest("'TabSize' must not be below 0");
    if (size > 0) layout.SetTabSize(size);
  } else if (name == "Color") {
    layout.SetColor(Color(arguments));
  } else {
    throw BadRequest("'props' has no property named '" + name + "'");
  }
}

void ReadAttributes(TTextLayoutNGOrv& layout, const TJson& values) {
  for (const TJson& value : Array("attributes", values)) {
    const TArguments attribute(Object("attributes", value));
    const fmx::TTextRange range{attribute.Int32("Pos"), attribute.Int32("Length")};
    fmx::TTextAttribute look{nullptr, attribute.Has("Color") ? Color(attribute) : layout.Color()};
    if (attribute.Has("Font")) look.Font = std::make_shared<fmx::TFont>(ReadFont(attribute.At("Font"), layout.Font()));
    const bool isSelection = attribute.Has("IsSelection") && attribute.Bool("IsSelection");
    layout.AddAttribute(std::make_unique<TTextAttributedRangeBidi>(range, std::move(look), isSelection));
  }
}

// The rendered layout of the request.
std::unique_ptr<TTextLayoutNGOrv> ReadLayout(const TArguments& arguments) {
  auto layout = std::make_unique<TTextLayoutNGOrv>();
  layout->SetFont(arguments.Has("font") ? ReadFont(arguments.At("font"), fmx::TFont(u"", 12)) : fmx::TFont(u"", 12));
  layout->SetScale(1);  // renders, so that eight blanks are those of scale 1
  layout->BeginUpdate();
  if (arguments.Has("props"))
    for (const auto& [name, value] : Object("props", arguments.At("props")).items()) ReadProperty(*layout, name, value);
  if (arguments.Has("attributes")) ReadAttributes(*layout, arguments.At("attributes"));
  layout->SetText(arguments.Text());
  layout->SetScale(layout->Scale());  // renders, whether or not anything else has changed
  layout->EndUpdate();
  return layout;
}

// --- Writing ---

TJson Font(const fmx::TFont* font) {
  if (font == nullptr) return nullptr;
  TJson styles = TJson::array();
  for (const auto& [name, style] : StyleNames)
    if (font->Style().Contains(style)) styles.push_back(name);
  return {{"Family", TextValue(font->Family())}, {"Size", Number(font->Size())}, {"Style", styles}};
}

TJson Run(const TGPURun& run) {
  return {{"StartIndex", run.StartIndex()},
          {"Length", run.Length()},
          {"RightToLeft", run.RightToLeft()},
          {"ImageRect", Rect(run.ImageRect())},
          {"Atoms", std::vector<std::uint32_t>(run.Atoms().begin(), run.Atoms().end())},
          {"Color", run.Color()},
          {"IsDefaultColor", run.IsDefaultColor()},
          {"Font", Font(run.Font().get())},
          {"Trimmed", run.Trimmed()},
          {"Clipped", run.Clipped()}};
}

TJson Line(const TGPULine& line) {
  TJson runs = TJson::array();
  for (std::int32_t i = 0; i < line.Count(); ++i) runs.push_back(Run(line.Item(i)));
  return {{"StartIndex", line.StartIndex()},
          {"TopLeft", Point(line.TopLeft())},
          {"Width", Number(line.Width())},
          {"Height", Number(line.Height())},
          {"VisualOrder", std::vector<std::int32_t>(line.VisualOrderList().begin(), line.VisualOrderList().end())},
          {"Runs", runs}};
}

}  // namespace

TJson FrameValue(const TGPUFrame& frame) {
  TJson lines = TJson::array();
  for (std::int32_t i = 0; i < frame.Count(); ++i) lines.push_back(Line(frame.Line(i)));
  return {{"TopLeft", Point(frame.TopLeft())},
          {"Width", Number(frame.Width())},
          {"Height", Number(frame.Height())},
          {"Lines", lines}};
}

namespace {

// --- Queries ---

// The rectangle of each figure.
TJson Figures(const fmx::TPathData& path) {
  TJson rects = TJson::array();
  fmx::TPathData figure;
  for (const fmx::TPathPoint& point : path.Points()) {
    if (point.Kind == fmx::TPathPointKind::MoveTo) figure.MoveTo(point.Point);
    if (point.Kind == fmx::TPathPointKind::LineTo) figure.LineTo(point.Point);
    if (point.Kind != fmx::TPathPointKind::Close) continue;
    rects.push_back(Rect(figure.GetBounds()));
    figure.Clear();
  }
  return rects;
}

TJson AnswerTo(TTextLayoutNGOrv& layout, const TJson& query) {
  const std::string name = Array("queries", query).empty() || !query[0].is_string() ? "" : query[0].get<std::string>();
  const auto expect = [&](std::size_t count) {
    if (query.size() != count + 1) throw BadRequest("'" + name + "' takes " + std::to_string(count) + " arguments");
  };
  const auto integer = [&](std::size_t index) {
    const TJson holder = {{name, query[index]}};
    return TArguments(holder).Int32(name);
  };
  if (name == "PositionAtPoint") {
    expect(2);
    return layout.PositionAtPoint({Float(name, query[1]), Float(name, query[2])});
  }
  if (name == "RegionForRange") {
    expect(2);
    return Region(layout.RegionForRange({integer(1), integer(2)}));
  }
  if (name == "MeasureRange") {
    expect(2);
    return Region(layout.MeasureRange(integer(1), integer(2)));
  }
  expect(0);
  if (name == "GetTextRect") return Rect(layout.TextRect());
  if (name != "ConvertToPath") throw BadRequest("'queries' has no query named '" + name + "'");
  fmx::TPathData path;
  layout.ConvertToPath(path);
  return Figures(path);
}

// --- Drawing ---

TJson Glyph(const fmx::TRecordedCall& call) {
  fmx::TRectF picture;
  const UCS4Char atom = TGlyphAtlas::AtomOf(*call.Bitmap, call.Source, picture);
  return {{"kind", "glyph"},
          {"atom", atom},
          {"dest", Rect(call.Rect)},
          {"src", Rect(call.Source.Offset(-picture.Left, -picture.Top))},
          {"color", call.Color}};
}

TJson Draws(TTextLayoutNGOrv& layout) {
  fmx::TRecordingCanvas canvas(4096, 4096, layout.Scale());
  canvas.BeginScene();
  TTextLayoutNGOrv::BeginRender();
  const bool populates = !std::exchange(fmx::TGlyphsManager::DisableGlyphPopulation, true);
  layout.RenderLayout(canvas);
  TTextLayoutNGOrv::EndRender();
  fmx::TGlyphsManager::DisableGlyphPopulation = !populates;
  canvas.EndScene();
  TJson draws = TJson::array();
  for (const fmx::TRecordedCall& call : canvas.Calls()) {
    if (call.Kind == fmx::TRecordedCall::TKind::DrawBitmap) draws.push_back(Glyph(call));
    if (call.Kind == fmx::TRecordedCall::TKind::DrawLine)
      draws.push_back(
          {{"kind", "line"}, {"dest", Rect(call.Rect)}, {"thickness", Number(call.Thickness)}, {"color", call.Color}});
  }
  return draws;
}

TJson Layout(const TArguments& arguments) {
  const TMetricsScope scope(arguments.Has("metrics") ? arguments.Enum("metrics", MetricsNames) : TMetrics::Fixed);
  const auto layout = ReadLayout(arguments);
  TJson result = {{"RightToLeft", layout->RightToLeft()},
                  {"Width", Number(layout->TextWidth())},
                  {"Height", Number(layout->TextHeight())},
                  {"Frame", FrameValue(layout->Frame())}};
  TJson draws = arguments.Has("draw") && arguments.Bool("draw") ? Draws(*layout) : TJson::array();
  TJson answers = TJson::array();
  if (arguments.Has("queries"))
    for (const TJson& query : Array("queries", arguments.At("queries"))) answers.push_back(AnswerTo(*layout, query));
  result["Answers"] = std::move(answers);
  result["Draws"] = std::move(draws);
  return result;
}

constexpr TOp Ops[] = {
    {"layout", "text, font?, metrics?, props?, attributes?, queries?, draw?: the frame, the answers and what is drawn",
     Layout},
};

}  // namespace

std::span<const TOp> LayoutOps() {
  return Ops;
}

}  // namespace orv::eval
