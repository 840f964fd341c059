// Text as a canvas draws it: five thousand quads out of a texture of glyphs, each in a colour of its own.
#include <SDL.h>
#include <benchmark/benchmark.h>
#include <cairo.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "bench/Rooms.h"
#include "bench/support/Measure.h"
#include "fmx/Bitmap.h"
#include "platform/FontCatalog.h"
#include "platform/GlyphSource.h"
#include "platform/SoftwareCanvas.h"

namespace orv::bench {
namespace {

constexpr int Width = 760;
constexpr int Height = 420;
constexpr int TextureSide = 512;
constexpr int QuadCount = 5000;
constexpr double PixelSize = 28;

struct TQuad {
  int Glyph = 0;
  int X = 0;
  int Y = 0;
  std::uint32_t Color = 0;
};

// Glyphs of Persian and Latin letters in rows of a texture, and where they are drawn.
struct TScene {
  std::vector<std::uint8_t> Cover = std::vector<std::uint8_t>(std::size_t{TextureSide} * TextureSide);
  std::vector<fmx::TRect> Glyphs;
  std::vector<TQuad> Quads;

  TScene() {
    const platform::TFontCatalog catalog;
    platform::TGlyphSource source(catalog, {"DejaVu Sans", {}, PixelSize});
    int x = 0;
    int y = 0;
    for (char32_t letter = 0x21; letter < 0x7F; ++letter) Add(source.Glyph(letter), x, y);
    for (char32_t letter = 0xFE8D; letter < 0xFEF5; ++letter) Add(source.Glyph(letter), x, y);
    std::uint64_t state = 5;
    const auto below = [&](std::size_t limit) {
      state = state * 6364136223846793005U + 1442695040888963407U;
      return static_cast<int>((state >> 33) % limit);
    };
    for (int i = 0; i < QuadCount; ++i)
      Quads.push_back({below(Glyphs.size()), below(Width - 30), below(Height - 30),
                       0xFF000000U | static_cast<std::uint32_t>(below(0x1000000))});
  }

 private:
  void Add(const platform::TGlyph& glyph, int& x, int& y) {
    if (x + glyph.Width + 1 > TextureSide) {
      x = 0;
      y += 34;
    }
    if (glyph.Coverage.empty() || y + glyph.Height > TextureSide) return;
    for (int row = 0; row < glyph.Height; ++row)
      std::copy_n(glyph.Coverage.data() + row * glyph.Width, glyph.Width, Cover.data() + (y + row) * TextureSide + x);
    Glyphs.push_back({x, y, x + glyph.Width, y + glyph.Height});
    x += glyph.Width + 1;
  }
};

const TScene& Scene() {
  static const TScene scene;
  return scene;
}

void Report(benchmark::State& state) {
  state.counters["frames/s"] = benchmark::Counter(1, benchmark::Counter::kIsIterationInvariantRate);
  ReportPerUnit(state, QuadCount);
}

void Canvas(benchmark::State& state) {
  const TScene& scene = Scene();
  fmx::TBitmap texture(TextureSide, TextureSide);
  std::transform(scene.Cover.begin(), scene.Cover.end(), texture.Surface().Pixels().begin(),
                 [](std::uint8_t cover) { return cover * 0x01010101U; });
  fmx::TBitmap target(Width, Height);
  platform::TSoftwareCanvas canvas({fmx::TCanvasTarget::TKind::Bitmap, &target, nullptr, Width, Height, 1});
  for (auto iteration : state) {
    if (!canvas.BeginScene()) return state.SkipWithError("no scene");
    canvas.Clear(fmx::TAlphaColors::White);
    for (const TQuad& quad : scene.Quads) {
      const auto source = fmx::TRectF::From(scene.Glyphs[static_cast<std::size_t>(quad.Glyph)]);
      canvas.SetModulateColor(quad.Color);
      canvas.DrawBitmap(texture, source,
                        fmx::TRectF::FromSize({static_cast<float>(quad.X), static_cast<float>(quad.Y)}, source.Width(),
                                              source.Height()),
                        1);
    }
    canvas.EndScene();
    benchmark::DoNotOptimize(target.Surface().Pixels().data());
  }
  Report(state);
}

// The least that such drawing takes: a loop over bytes of cover, without clips, transforms or bitmaps.
void PlainLoop(benchmark::State& state) {
  const TScene& scene = Scene();
  std::vector<std::uint32_t> target(std::size_t{Width} * Height);
  for (auto iteration : state) {
    std::fill(target.begin(), target.end(), 0xFFFFFFFF);
    for (const TQuad& quad : scene.Quads) {
      const fmx::TRect& glyph = scene.Glyphs[static_cast<std::size_t>(quad.Glyph)];
      for (int y = 0; y < glyph.Height(); ++y) {
        const std::uint8_t* cover = scene.Cover.data() + (glyph.Top + y) * TextureSide + glyph.Left;
        std::uint32_t* pixel = target.data() + (quad.Y + y) * Width + quad.X;
        for (int x = 0; x < glyph.Width(); ++x, ++pixel, ++cover) {
          const std::uint32_t a = *cover;
          if (a == 0) continue;
          const std::uint32_t even = ((quad.Color & 0xFF00FF) * a + (*pixel & 0xFF00FF) * (255 - a)) >> 8 & 0xFF00FF;
          const std::uint32_t odd = (quad.Color >> 8 & 0xFF) * a + (*pixel >> 8 & 0xFF) * (255 - a);
          *pixel = 0xFF000000 | even | (odd & 0xFF00);
        }
      }
    }
    benchmark::DoNotOptimize(target.data());
  }
  Report(state);
}

// --- Cairo ---

struct TCairoTarget {
  cairo_surface_t* Surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, Width, Height);
  cairo_t* Context = cairo_create(Surface);
  TCairoTarget() = default;
  TCairoTarget(const TCairoTarget&) = delete;
  TCairoTarget& operator=(const TCairoTarget&) = delete;
  ~TCairoTarget() {
    cairo_destroy(Context);
    cairo_surface_destroy(Surface);
  }
  void Clear() const {
    cairo_set_source_rgb(Context, 1, 1, 1);
    cairo_paint(Context);
  }
  void SetColor(std::uint32_t color) const {
    cairo_set_source_rgb(Context, (color >> 16 & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0, (color & 0xFF) / 255.0);
  }
};

void CairoMasks(benchmark::State& state) {
  const TScene& scene = Scene();
  const TCairoTarget target;
  std::vector<cairo_surface_t*> masks;
  for (const fmx::TRect& glyph : scene.Glyphs) {
    cairo_surface_t* mask = cairo_image_surface_create(CAIRO_FORMAT_A8, glyph.Width(), glyph.Height());
    for (int y = 0; y < glyph.Height(); ++y)
      std::copy_n(scene.Cover.data() + (glyph.Top + y) * TextureSide + glyph.Left, glyph.Width(),
                  cairo_image_surface_get_data(mask) + y * cairo_image_surface_get_stride(mask));
    cairo_surface_mark_dirty(mask);
    masks.push_back(mask);
  }
  for (auto iteration : state) {
    target.Clear();
    for (const TQuad& quad : scene.Quads) {
      target.SetColor(quad.Color);
      cairo_mask_surface(target.Context, masks[static_cast<std::size_t>(quad.Glyph)], quad.X, quad.Y);
    }
    cairo_surface_flush(target.Surface);
  }
  for (cairo_surface_t* mask : masks) cairo_surface_destroy(mask);
  Report(state);
}

// By Cairo's own cache of glyphs, one call for each since each has its colour.
void CairoGlyphs(benchmark::State& state) {
  const TScene& scene = Scene();
  const TCairoTarget target;
  cairo_select_font_face(target.Context, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(target.Context, PixelSize);
  std::string letters;
  for (char letter = 0x21; letter < 0x7F; ++letter) letters += letter;
  cairo_glyph_t* glyphs = nullptr;
  int count = 0;
  cairo_scaled_font_text_to_glyphs(cairo_get_scaled_font(target.Context), 0, 0, letters.data(),
                                   static_cast<int>(letters.size()), &glyphs, &count, nullptr, nullptr, nullptr);
  for (auto iteration : state) {
    target.Clear();
    for (const TQuad& quad : scene.Quads) {
      target.SetColor(quad.Color);
      const cairo_glyph_t glyph{glyphs[quad.Glyph % count].index, static_cast<double>(quad.X), quad.Y + 22.0};
      cairo_show_glyphs(target.Context, &glyph, 1);
    }
    cairo_surface_flush(target.Surface);
  }
  cairo_glyph_free(glyphs);
  Report(state);
}

// --- SDL ---

struct TSdlFree {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
  void operator()(SDL_Renderer* renderer) const { SDL_DestroyRenderer(renderer); }
  void operator()(SDL_Texture* texture) const { SDL_DestroyTexture(texture); }
};

void Sdl(benchmark::State& state) {
  const TScene& scene = Scene();
  const std::unique_ptr<SDL_Surface, TSdlFree> surface(
      SDL_CreateRGBSurfaceWithFormat(0, Width, Height, 32, SDL_PIXELFORMAT_ARGB8888));
  const std::unique_ptr<SDL_Renderer, TSdlFree> renderer(SDL_CreateSoftwareRenderer(surface.get()));
  const std::unique_ptr<SDL_Texture, TSdlFree> texture(
      SDL_CreateTexture(renderer.get(), SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STATIC, TextureSide, TextureSide));
  if (texture == nullptr) return state.SkipWithError(SDL_GetError());
  std::vector<std::uint32_t> pixels(scene.Cover.size());
  std::transform(scene.Cover.begin(), scene.Cover.end(), pixels.begin(),
                 [](std::uint8_t cover) { return std::uint32_t{cover} << 24 | 0xFFFFFF; });
  SDL_UpdateTexture(texture.get(), nullptr, pixels.data(), TextureSide * 4);
  SDL_SetTextureBlendMode(texture.get(), SDL_BLENDMODE_BLEND);
  for (auto iteration : state) {
    SDL_SetRenderDrawColor(renderer.get(), 255, 255, 255, 255);
    SDL_RenderClear(renderer.get());
    for (const TQuad& quad : scene.Quads) {
      const fmx::TRect& glyph = scene.Glyphs[static_cast<std::size_t>(quad.Glyph)];
      const SDL_Rect from{glyph.Left, glyph.Top, glyph.Width(), glyph.Height()};
      const SDL_FRect to{static_cast<float>(quad.X), static_cast<float>(quad.Y), static_cast<float>(from.w),
                         static_cast<float>(from.h)};
      SDL_SetTextureColorMod(texture.get(), static_cast<std::uint8_t>(quad.Color >> 16),
                             static_cast<std::uint8_t>(quad.Color >> 8), static_cast<std::uint8_t>(quad.Color));
      SDL_RenderCopyF(renderer.get(), texture.get(), &from, &to);
    }
    SDL_RenderFlush(renderer.get());
    benchmark::DoNotOptimize(surface->pixels);
  }
  Report(state);
}

}  // namespace

void RegisterQuads() {
  const auto add = [](const char* name, auto* function) {
    benchmark::RegisterBenchmark(name, function)->Unit(benchmark::kMillisecond);
  };
  add("quads/5000/orv", Canvas);
  add("quads/5000/plain-loop", PlainLoop);
  add("quads/5000/cairo-masks", CairoMasks);
  add("quads/5000/cairo-glyphs", CairoGlyphs);
  add("quads/5000/sdl", Sdl);
}

}  // namespace orv::bench
