// Drawing a page of text that is laid out already, beside Qt; and what layouts and glyph textures keep in memory.
#include <malloc.h>

#include <QImage>
#include <QPainter>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "bench/Rooms.h"
#include "bench/support/Layouts.h"
#include "bench/support/Measure.h"
#include "fmx/Bitmap.h"
#include "fmx/NullCanvas.h"
#include "fmx/RecordingCanvas.h"
#include "platform/SoftwareCanvas.h"

namespace orv::bench {

namespace {

constexpr std::int64_t PageUnits = 3000;  // wrapped
constexpr int Pages = 64;                 // that are held at once where memory is counted
constexpr std::int32_t PageWidth = 400;

std::u16string_view Page(const std::string& corpus) {
  return OneParagraph(corpus, PageUnits)->Paragraphs().front();
}

double PerUnit(double amount) {
  return amount / static_cast<double>(PageUnits);
}

// --- Drawing ---

struct TFrameCounts {
  std::int64_t Quads = 0;
  std::int64_t Switches = 0;  // quads from another texture than the one before
};

void DrawScene(TTextLayoutNGOrv& layout, fmx::TCanvas& canvas) {
  canvas.BeginScene();
  TTextLayoutNGOrv::BeginRender();
  layout.RenderLayout(canvas);
  TTextLayoutNGOrv::EndRender();
  canvas.EndScene();
}

TFrameCounts CountFrame(TTextLayoutNGOrv& layout) {
  fmx::TRecordingCanvas canvas(PageWidth, PageWidth);
  DrawScene(layout, canvas);
  canvas.Forget();
  DrawScene(layout, canvas);
  TFrameCounts counts;
  const fmx::TBitmap* last = nullptr;
  for (const fmx::TRecordedCall& call : canvas.CallsOf(fmx::TRecordedCall::TKind::DrawBitmap)) {
    ++counts.Quads;
    if (call.Bitmap != last) ++counts.Switches;
    last = call.Bitmap;
  }
  return counts;
}

void ReportFrames(benchmark::State& state, const TFrameCounts& counts) {
  state.counters["quads"] = static_cast<double>(counts.Quads);
  state.counters["texture-switches"] = static_cast<double>(counts.Switches);
  state.counters["quads/s"] =
      benchmark::Counter(static_cast<double>(counts.Quads), benchmark::Counter::kIsIterationInvariantRate);
}

std::unique_ptr<TTextLayoutNGOrv> LaidPage(const std::string& corpus) {
  auto layout = MakeLayout(TLines::Wrapped);
  layout->SetText(Page(corpus));
  return layout;
}

void Draw(benchmark::State& state, const std::string& corpus) {
  const auto layout = LaidPage(corpus);
  const TFrameCounts counts = CountFrame(*layout);
  fmx::TBitmap target(PageWidth, static_cast<std::int32_t>(std::ceil(layout->Frame().Height())));
  platform::TSoftwareCanvas canvas(
      {fmx::TCanvasTarget::TKind::Bitmap, &target, nullptr, target.Width(), target.Height(), 1});
  DrawScene(*layout, canvas);
  for (auto iteration : state) {
    DrawScene(*layout, canvas);
    benchmark::DoNotOptimize(target.Surface().Pixels().data());
  }
  ReportFrames(state, counts);
}

// The layout's own part: its quads go nowhere.
void DrawOnNothing(benchmark::State& state, const std::string& corpus) {
  const auto layout = LaidPage(corpus);
  const TFrameCounts counts = CountFrame(*layout);
  fmx::TNullCanvas canvas({fmx::TCanvasTarget::TKind::Window, nullptr, nullptr, PageWidth, PageWidth, 1});
  for (auto iteration : state) DrawScene(*layout, canvas);
  ReportFrames(state, counts);
}

void DrawWithQt(benchmark::State& state, const std::string& corpus) {
  if (!TQtLayout::HasFont()) return state.SkipWithError("no DejaVu Sans");
  TQtLayout layout(TLines::Wrapped);
  layout.SetText(ToQt(Page(corpus)));
  QImage target(PageWidth, static_cast<int>(std::ceil(layout.Height())), QImage::Format_ARGB32_Premultiplied);
  const auto draw = [&] {
    QPainter painter(&target);
    layout.Draw(painter);
  };
  draw();
  for (auto iteration : state) {
    draw();
    benchmark::DoNotOptimize(target.constBits());
  }
}

// --- Memory ---

double BytesInUse() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

// The time is that of a layout made, filled, and kept.
void Keep(benchmark::State& state, const std::string& corpus) {
  LaidPage(corpus);
  double bytes = 0;
  for (auto iteration : state) {
    std::vector<std::unique_ptr<TTextLayoutNGOrv>> layouts;
    layouts.reserve(Pages);
    const double before = BytesInUse();
    for (int i = 0; i < Pages; ++i) layouts.push_back(LaidPage(corpus));
    bytes = BytesInUse() - before;
    state.PauseTiming();
    layouts.clear();
    state.ResumeTiming();
  }
  state.counters["bytes/unit"] = PerUnit(bytes / Pages);
}

void KeepWithQt(benchmark::State& state, const std::string& corpus) {
  if (!TQtLayout::HasFont()) return state.SkipWithError("no DejaVu Sans");
  TQtLayout(TLines::Wrapped).SetText(ToQt(Page(corpus)));
  double bytes = 0;
  for (auto iteration : state) {
    std::vector<std::unique_ptr<TQtLayout>> layouts;
    layouts.reserve(Pages);
    const double before = BytesInUse();
    for (int i = 0; i < Pages; ++i) {
      layouts.push_back(std::make_unique<TQtLayout>(TLines::Wrapped));
      layouts.back()->SetText(ToQt(Page(corpus)));
    }
    bytes = BytesInUse() - before;
    state.PauseTiming();
    layouts.clear();
    state.ResumeTiming();
  }
  state.counters["bytes/unit"] = PerUnit(bytes / Pages);
}

// The characters of a page met for the first time, with their pictures. A unit is a character.
void FillAtlas(benchmark::State& state, const std::string& corpus) {
  std::int64_t characters = 0;
  for (auto iteration : state) {
    state.PauseTiming();
    TGlyphAtlas::Clear();
    const double before = BytesInUse();
    state.ResumeTiming();
    const auto layout = LaidPage(corpus);
    fmx::TNullCanvas canvas({fmx::TCanvasTarget::TKind::Window, nullptr, nullptr, PageWidth, PageWidth, 1});
    DrawScene(*layout, canvas);
    state.PauseTiming();
    layout->SetText({});
    const double bytes = BytesInUse() - before;
    characters = 0;
    double pixels = 0;
    TGlyphAtlas::GetAtomDictionary(layout->Font(), layout->Scale()).ForEach([&](UCS4Char, const fmx::TCharRec& record) {
      ++characters;
      pixels += static_cast<double>(record.SrcRect.Width() + 2) * static_cast<double>(record.SrcRect.Height() + 2);
    });
    const auto textures = static_cast<double>(TGlyphAtlas::CharMaps().size());
    const double textureBytes = textures * TGlyphAtlas::TextureSide * TGlyphAtlas::TextureSide * sizeof(fmx::TPixel);
    const auto count = static_cast<double>(characters);
    state.counters["characters"] = count;
    state.counters["textures"] = textures;
    state.counters["texture-bytes/character"] = pixels * sizeof(fmx::TPixel) / count;
    state.counters["other-bytes/character"] = (bytes - textureBytes) / count;
    state.ResumeTiming();
  }
  ReportPerUnit(state, characters);
}

}  // namespace

void RegisterDrawing() {
  for (const char* name : {"fa", "mixed", "en", "he-pointed"}) {
    const std::string corpus(name);
    if (Corpus(corpus) == nullptr) continue;
    AddRow("layout-draw/" + corpus + "/orv", PageUnits, [corpus](benchmark::State& state) { Draw(state, corpus); });
    AddRow("layout-draw/" + corpus + "/qt", PageUnits,
           [corpus](benchmark::State& state) { DrawWithQt(state, corpus); });
    AddRow("layout-draw-on-nothing/" + corpus + "/orv", PageUnits,
           [corpus](benchmark::State& state) { DrawOnNothing(state, corpus); });
    AddRow("layout-keep/" + corpus + "/orv", Pages * PageUnits,
           [corpus](benchmark::State& state) { Keep(state, corpus); });
    AddRow("layout-keep/" + corpus + "/qt", Pages * PageUnits,
           [corpus](benchmark::State& state) { KeepWithQt(state, corpus); });
    benchmark::RegisterBenchmark(("layout-atlas/" + corpus + "/orv").c_str(), [corpus](benchmark::State& state) {
      FillAtlas(state, corpus);
    })->Unit(benchmark::kMillisecond);
  }
}

}  // namespace orv::bench
