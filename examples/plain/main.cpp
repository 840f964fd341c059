// A window of labels, written against the host framework alone: it knows nothing of right-to-left text.
//
//   example_plain              opens the window; Esc closes it
//   example_plain PICTURE.png  writes its picture instead, which needs no display
#include <cstdio>
#include <string_view>

#include "fmx/CanvasManager.h"
#include "platform/Exceptions.h"
#include "platform/FrameOf.h"
#include "platform/Host.h"
#include "platform/Png.h"
#include "platform/Window.h"

namespace {

namespace platform = orv::platform;

constexpr int Width = 680;
constexpr int Height = 372;

struct TLabel {
  const char16_t* Caption;
  const char16_t* Text;
};

constexpr TLabel Labels[] = {
    {u"Persian", u"به نام خداوند جان و خرد"},
    {u"Arabic", u"السَّلامُ عليكم ورحمةُ الله"},
    {u"Hebrew", u"ברוכים הבאים לירושלים"},
    {u"Mixed", u"نسخهٔ 2.1 برنامهٔ Writer برای Linux آماده است."},
    {u"Brackets", u"تهران (پایتخت ایران) و \"اصفهان\""},
    {u"Numbers", u"قیمت: 12,500 تومان، تخفیف 15%"},
    {u"English", u"The quick brown fox, in 1 line."},
};

void DrawText(fmx::TCanvas& canvas, const fmx::TRectF& box, std::u16string_view text, float size,
              fmx::TAlphaColor color, fmx::TTextAlign align) {
  canvas.Font().SetSize(size);
  canvas.Fill().SetColor(color);
  canvas.FillText(box, text, false, 1, align);
}

void Draw(fmx::TCanvas& canvas) {
  if (!canvas.BeginScene()) return;
  canvas.Clear(0xFFF6F7F9);
  DrawText(canvas, {28, 14, 652, 54}, u"One application", 21, 0xFF20252C, fmx::TTextAlign::Leading);
  float top = 62;
  for (const TLabel& label : Labels) {
    canvas.Fill().SetColor(fmx::TAlphaColors::White);
    canvas.FillRect({28, top, 652, top + 36}, 6, 6, fmx::AllCorners, 1);
    DrawText(canvas, {44, top, 140, top + 36}, label.Caption, 13, 0xFF7A8491, fmx::TTextAlign::Leading);
    DrawText(canvas, {140, top, 636, top + 36}, label.Text, 17, 0xFF20252C, fmx::TTextAlign::Trailing);
    top += 42;
  }
  canvas.EndScene();
}

void WritePicture(const char* path) {
  platform::THeadlessWindow window;
  Draw(*fmx::TCanvasManager::CreateFromWindow(&window, Width, Height, 1));
  platform::WritePng(path, platform::FrameOf(window.Shown()));
}

void ShowWindow() {
  platform::TWindow window("One application", Width, Height);
  const auto canvas =
      fmx::TCanvasManager::CreateFromWindow(static_cast<platform::TCanvasWindow*>(&window), Width, Height, 1);
  Draw(*canvas);
  for (;;) {
    const platform::TWindowEvent event = window.Wait();
    if (event.Kind == platform::TWindowEvent::TKind::Close || event.Key == platform::TWindowKey::Escape) return;
    if (event.Kind == platform::TWindowEvent::TKind::Resized) canvas->Resize(event.Width, event.Height, 1);
    Draw(*canvas);
  }
}

}  // namespace

int main(int argc, char** argv) {
  platform::StartPlatform();
  try {
    if (argc > 1)
      WritePicture(argv[1]);
    else
      ShowWindow();
  } catch (const rtl::Exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
