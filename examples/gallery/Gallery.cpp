#include "examples/gallery/Gallery.h"

#include <cstdio>
#include <memory>

#include "fmx/DefaultStyle.h"
#include "fmx/WindowServices.h"
#include "rtl/Utf8.h"

namespace gallery {
namespace {

constexpr float WheelStep = 48;

const TTheme& ThemeOf(const TLook& look) {
  return look.IsDark ? Dark : Light;
}

std::string Line(const char* format, auto... values) {
  char line[512];
  std::snprintf(line, sizeof line, format, values...);
  return line;
}

}  // namespace

// The page of specimens, as a control.
class TGallery::TTextPage : public fmx::TControl {
 public:
  void SetTheme(const TTheme& theme) { FTheme = &theme; }
  void Scroll(float by) {
    FPage.Scroll(by);
    Repaint();
  }
  bool MouseWheel(const fmx::TWheelEvent& event) override {
    Scroll(-event.Steps * WheelStep);
    return true;
  }
  bool TakesPointer() const override { return true; }

 protected:
  void Paint(fmx::TCanvas& canvas) override { FPage.Paint(canvas, *FTheme, LocalRect()); }

 private:
  TPage FPage;
  const TTheme* FTheme = &Light;
};

// The switches, as a control.
class TGallery::TSwitches : public fmx::TControl {
 public:
  explicit TSwitches(TGallery& gallery) : FGallery(gallery) {}
  bool MouseWheel(const fmx::TWheelEvent& event) override {
    FGallery.FSidebar.Scroll(-event.Steps * WheelStep, Height());
    Repaint();
    return true;
  }
  void MouseDown(const fmx::TMouseEvent& event) override {
    if (event.Button == fmx::TMouseButton::Left) FGallery.PressSwitch(event.Point);
  }
  bool TakesPointer() const override { return true; }

 protected:
  void Paint(fmx::TCanvas& canvas) override { FGallery.FSidebar.Paint(canvas, ThemeOf(FGallery.FLook), Height()); }

 private:
  TGallery& FGallery;
};

TGallery::TGallery()
    : FTextPage(&AddControl(std::make_unique<TTextPage>())),
      FEditPage(&AddControl(std::make_unique<TEditPage>())),
      FSwitches(&AddControl(std::make_unique<TSwitches>(*this))) {
  SetCaption(u"Orv");
  MenuPanel().SetFontFamily(u"DejaVu Sans");
  OnResize = [this] { Arrange(); };
  SetSize({Width, Height});
  OnKeyDown = [this](fmx::TKeyEvent& event) { Shortcut(event); };
  Adopt();
}

TGallery::~TGallery() {
  Destroying();
  DestroyComponents();
}

void TGallery::Arrange() {
  const float left = TSidebar::Width;
  FSwitches->SetBounds(0, 0, left, Size().Height);
  for (fmx::TControl* const page : {static_cast<fmx::TControl*>(FTextPage), static_cast<fmx::TControl*>(FEditPage)})
    page->SetBounds(left, 0, std::max(Size().Width - left, 0.0F), Size().Height);
}

// --- Switches ---

void TGallery::Show(TPageName page) {
  FLook.Page = page;
  Adopt();
}

void TGallery::SetDark(bool dark) {
  FLook.IsDark = dark;
  Adopt();
}

// Shows what the look says.
void TGallery::Adopt() {
  if (FShown.Page != FLook.Page) FSidebar.SetGroups(MakeSwitches(FLook));
  FShown = FLook;
  const TTheme& theme = ThemeOf(FLook);
  const fmx::TStylePalette palette = FLook.IsDark ? fmx::TStylePalette::Dark : fmx::TStylePalette::Light;
  SetFill(theme.Page);
  FTextPage->SetTheme(theme);
  FTextPage->SetVisible(FLook.Page == TPageName::Text);
  FEditPage->SetVisible(FLook.Page == TPageName::Edit);
  if (fmx::DefaultStylePalette() != palette) fmx::SetDefaultStylePalette(palette);
  FEditPage->SetTheme(theme);
  if (FLook.Page == TPageName::Text)
    SetFocused(nullptr);
  else if (GetFocused() == nullptr)
    FEditPage->FocusFirst();
}

void TGallery::PressSwitch(fmx::TPointF point) {
  if (!FSidebar.Press(point)) return;
  if (FLook.Page != FShown.Page || FLook.IsDark != FShown.IsDark) Adopt();
  FEditPage->Refresh();
  Invalidate();
}

void TGallery::Shortcut(fmx::TKeyEvent& event) {
  if (event.Key == fmx::Keys::Escape || event.KeyChar == u'q') {
    if (const auto application = fmx::FindService<fmx::IApplicationService>()) application->Terminate();
    return;
  }
  if (FLook.Page != TPageName::Text) return;
  using fmx::Keys;
  constexpr float far = 1e6F;
  const float page = Size().Height;
  const struct {
    Keys::TCode Key;
    float By;
  } moves[] = {{Keys::Up, -WheelStep}, {Keys::Down, WheelStep}, {Keys::PageUp, -page},
               {Keys::PageDown, page}, {Keys::Home, -far},      {Keys::End, far}};
  for (const auto& move : moves)
    if (event.Key == move.Key) FTextPage->Scroll(move.By);
  if (event.KeyChar == u' ') FTextPage->Scroll(page);
}

// --- For scripts ---

std::string TGallery::ListSwitches() {
  std::string list;
  FSidebar.ForEach([&list](const TSwitch& each, const fmx::TRectF& place) {
    const fmx::TPointF center = place.Center();
    list += Line("%d %d ", static_cast<int>(center.X), static_cast<int>(center.Y)) + rtl::ToUtf8(each.Caption) + '\n';
  });
  return list;
}

std::string TGallery::ListBoxes() {
  std::string list;
  FEditPage->ForEach([&list](std::string_view name, const fmx::TRectF& place) {
    list += Line("%d %d %d %d ", static_cast<int>(place.Left), static_cast<int>(place.Top),
                 static_cast<int>(place.Width()), static_cast<int>(place.Height()));
    list.append(name) += '\n';
  });
  return list;
}

std::string TGallery::State() {
  std::string line = std::string("{\"page\":") + (FLook.Page == TPageName::Text ? "\"text\"" : "\"edit\"");
  const TBoxState state = FEditPage->CurrentState();
  line += ",\"box\":\"" + std::string(FEditPage->Current()) + '"';
  line += std::string(",\"focus\":") + (GetFocused() != nullptr ? "true" : "false");
  line += ",\"text\":" + Quoted(state.Text) + ",\"composing\":" + Quoted(state.Composing);
  line += Line(",\"caret\":%d,\"selStart\":%d,\"selLength\":%d", state.Caret, state.SelStart, state.SelLength);
  line += ",\"selected\":" + Quoted(state.Selected) + Line(",\"first\":%d", state.FirstVisible);
  line += Line(",\"caretX\":%.1f,\"caretY\":%.1f", static_cast<double>(state.CaretPlace.X),
               static_cast<double>(state.CaretPlace.Y));
  line += ",\"menu\":[";
  if (const fmx::TPopupMenu* const menu = MenuPanel().Menu())
    for (std::int32_t i = 0; i < menu->ItemCount(); ++i) {
      const fmx::TPointF center = MenuPanel().ItemBox(i).Center();
      line += (i > 0 ? ",{" : "{") + ("\"text\":" + Quoted(menu->Item(i)->Text)) +
              Line(",\"enabled\":%s,\"x\":%d,\"y\":%d}", menu->Item(i)->Enabled ? "true" : "false",
                   static_cast<int>(center.X), static_cast<int>(center.Y));
    }
  return line + Line("],\"highlighted\":%d}", MenuPanel().Highlighted());
}

}  // namespace gallery
