// Draws the golden pictures into a folder: DrawScenes FOLDER.
#include <cstdio>
#include <filesystem>
#include <string>

#include "fmx/CanvasManager.h"
#include "platform/FontGlyphs.h"
#include "platform/FrameOf.h"
#include "platform/Png.h"
#include "platform/SoftwareCanvas.h"
#include "tests/golden/Scenes.h"
#include "textlayout/Orv.FontGlyphs.h"

namespace {

using namespace orv;
using orv::golden::TScene;

constexpr float Margin = 10;
constexpr fmx::TAlphaColor Paper = 0xFFFFFFFF;
constexpr fmx::TAlphaColor Box = 0xFFF1EEE6;
constexpr fmx::TAlphaColor Ink = 0xFF202428;

// The layout's box and a margin around it: ink that leaves the box is seen.
void DrawScene(const TScene& scene, fmx::TCanvas& canvas) {
  TTextLayoutNGOrv layout(&canvas);
  layout.BeginUpdate();
  layout.SetFont(fmx::TFont(u"DejaVu Sans", 20));
  layout.SetColor(Ink);
  layout.SetMaxSize({scene.Width, scene.Height});
  layout.SetTopLeft({Margin, Margin});
  if (scene.SetUp) scene.SetUp(layout);
  layout.SetText(scene.Text);
  layout.EndUpdate();
  if (scene.Way == TScene::TWay::Outline) {
    fmx::TPathData path;
    layout.ConvertToPath(path);
    canvas.FillPath(path, 1, fmx::TBrush(Ink));
    return;
  }
  if (scene.Way == TScene::TWay::Answers) {
    constexpr fmx::TAlphaColor tints[] = {0x502060C0, 0x50C06020, 0x5020A040};
    const auto length = static_cast<std::int32_t>(layout.Text().size());
    for (std::int32_t i = 0; i < length; ++i)
      for (const fmx::TRectF& box : layout.RegionForRange({i, 1}))
        canvas.FillRect(box, 1, fmx::TBrush(tints[static_cast<std::size_t>(i) % 3]));
  }
  layout.RenderLayout(canvas);
}

void WriteScene(const TScene& scene, const std::filesystem::path& folder) {
  TGlyphAtlas::Clear();  // scales but 1 share their glyphs
  const auto pixels = [&](float units) { return static_cast<std::int32_t>((units + 2 * Margin) * scene.Scale); };
  fmx::TBitmap bitmap(pixels(scene.Width), pixels(scene.Height));
  platform::TSoftwareCanvas canvas(
      {fmx::TCanvasTarget::TKind::Bitmap, &bitmap, nullptr, bitmap.Width(), bitmap.Height(), scene.Scale});
  canvas.BeginScene();
  TTextLayoutNGOrv::BeginRender();
  canvas.Clear(Paper);
  canvas.FillRect(fmx::TRectF::FromSize({Margin, Margin}, scene.Width, scene.Height), 1, fmx::TBrush(Box));
  DrawScene(scene, canvas);
  TTextLayoutNGOrv::EndRender();
  canvas.EndScene();
  platform::WritePng(folder / (std::string(scene.Name) + ".png"), platform::FrameOf(bitmap.Surface()));
}

bool IsHeart(TGlyphChars chars) {
  return GetAsChar(chars) == 0x2764;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: DrawScenes FOLDER\n", stderr);
    return 2;
  }
  platform::RegisterFontGlyphs(platform::TFontChain::Plain());
  const std::string file = ORV_SOURCE_DIR "/tests/golden/colours.ttf";
  TFontGlyphManagerOrv::FontsList()[u"Colours"] = {TOrvResourceType::File, std::u16string(file.begin(), file.end()),
                                                   false};
  TFontGlyphManagerOrv::RegisterCharacterHandleMethod(IsHeart, false);
  for (const TScene& scene : golden::Scenes()) {
    WriteScene(scene, argv[1]);
    std::puts(scene.Name);
  }
}
