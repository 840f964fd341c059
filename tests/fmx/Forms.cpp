// A form of controls: who gets the pointer, the keys and the focus.
#include "fmx/Forms.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fmx/CanvasManager.h"
#include "fmx/Edit.h"
#include "fmx/FixedGlyphs.h"
#include "fmx/FontGlyphManager.h"
#include "fmx/GPUTextLayout.h"
#include "fmx/RecordingCanvas.h"
#include "fmx/Screen.h"
#include "fmx/Style.h"
#include "fmx/TextLayoutManager.h"
#include "fmx/Touch.h"

namespace {

using fmx::Keys;
using fmx::TControl;
using fmx::TEdit;
using fmx::TForm;
using fmx::TMouseButton;
using fmx::TMouseEvent;
using fmx::TPointF;
using fmx::TShiftItem;

std::vector<std::string>& Told() {
  static std::vector<std::string> told;
  return told;
}
std::vector<std::string> Taken() {
  return std::exchange(Told(), {});
}
using TNotes = std::vector<std::string>;

std::string At(TPointF point) {
  return std::to_string(static_cast<int>(point.X)) + "," + std::to_string(static_cast<int>(point.Y));
}

// Tells what it is told, and takes letters.
class TTelling : public fmx::TStyledPresentation {
 public:
  explicit TTelling(fmx::TPresentedControl& control) : TStyledPresentation(control) {
    SetInteractiveGestures({fmx::TInteractiveGesture::LongTap, fmx::TInteractiveGesture::DoubleTap});
  }
  ~TTelling() override { FreeStyleLookup(); }
  std::string Name() const { return PresentedControl().StyleName(); }
  void DoEnter() override {
    const auto* const form = dynamic_cast<const TForm*>(Root());
    Told().push_back(Name() + (fmx::IsSettled(form->GetFormState()) ? " enter" : " enter again"));
  }
  void DoExit() override { Told().push_back(Name() + " exit"); }
  void KeyDown(fmx::TKeyEvent& event) override {
    Told().push_back(Name() + " key");
    if (event.KeyChar != 0) event.SetHandled();
  }
  void MouseDown(const TMouseEvent& event) override {
    Told().push_back(Name() + (event.DoubleClick ? " double " : " down ") + At(event.Point));
  }
  void MouseMove(const TMouseEvent& event) override { Told().push_back(Name() + " move " + At(event.Point)); }
  void MouseUp(const TMouseEvent& event) override { Told().push_back(Name() + " up " + At(event.Point)); }
  void CMGesture(const fmx::TGestureEvent& event) override {
    const bool ends = event.Flags.Contains(fmx::TGestureFlag::End);
    Told().push_back(Name() + " gesture " + std::to_string(event.Id) + (ends ? " end" : ""));
  }
  bool ShowContextMenu(TPointF point) override {
    Told().push_back(Name() + " menu " + At(point));
    return true;
  }
};

class TWindowAt : public fmx::IFormWindow {
 public:
  TPointF ScreenPosition() const override { return {100, 200}; }
};

class Forms : public ::testing::Test {
 protected:
  Forms() {
    fmx::TPresentationProxyFactory::Current().Replace("Telling", &fmx::TStyledPresentationProxy<TTelling>::Make);
    FForm = std::make_unique<TForm>();
    FForm->SetSize({200, 100});
    FOne = &Add("one", {0, 0, 100, 30});
    FTwo = &Add("two", {0, 40, 100, 70});
    Told().clear();
  }
  ~Forms() override {
    FForm = nullptr;
    fmx::TPresentationProxyFactory::Current().Unregister("Telling");
  }
  TEdit& Add(std::string_view name, const fmx::TRectF& place) {
    auto& edit = FForm->AddControl(std::make_unique<TEdit>());
    edit.SetStyleName(name);
    edit.SetPresentationName("Telling");
    edit.SetBounds(place.Left, place.Top, place.Width(), place.Height());
    return edit;
  }
  static TMouseEvent Mouse(TPointF point, TMouseButton button = TMouseButton::Left, bool twice = false) {
    return {button, {}, point, twice};
  }
  void Key(Keys::TCode key, fmx::TShiftState shift = {}) {
    fmx::TKeyEvent event{key, 0, shift};
    FForm->KeyDown(event);
  }

  std::unique_ptr<TForm> FForm;
  TEdit* FOne = nullptr;
  TEdit* FTwo = nullptr;
};

TEST_F(Forms, ThePointerGoesToTheFrontmostControlInItsOwnCoordinates) {
  EXPECT_EQ(FForm->ControlAt({10, 50}), FTwo);
  EXPECT_EQ(FForm->ControlAt({10, 35}), nullptr);
  FForm->MouseMove(Mouse({10, 50}));
  FForm->MouseMove(Mouse({10, 35}));
  EXPECT_EQ(Taken(), (TNotes{"two move 10,10"}));
  TEdit& over = Add("over", {0, 40, 100, 70});
  EXPECT_EQ(FForm->ControlAt({10, 50}), &over);
  over.SetVisible(false);
  EXPECT_EQ(FForm->ControlAt({10, 50}), FTwo);
  FTwo->SetHitTest(false);
  EXPECT_EQ(FForm->ControlAt({10, 50}), nullptr);
}

TEST_F(Forms, TheOneThatTookThePressGetsTheMovesUpToTheRelease) {
  FForm->MouseDown(Mouse({10, 50}));
  FForm->MouseMove(Mouse({10, 5}));
  FForm->MouseUp(Mouse({300, 5}));
  EXPECT_EQ(Taken(), (TNotes{"two enter", "two down 10,10", "two move 10,-35", "two up 300,-35"}));
  FForm->MouseMove(Mouse({10, 5}));
  EXPECT_EQ(Taken(), (TNotes{"one move 10,5"}));
  FForm->MouseDown(Mouse({10, 5}, TMouseButton::Left, true));
  EXPECT_EQ(Taken(), (TNotes{"two exit", "one enter", "one double 10,5"}));
}

TEST_F(Forms, AControlThatGoesWhilePressedGetsNothingMore) {
  FForm->MouseDown(Mouse({10, 50}));
  FForm->RemoveComponent(*FTwo).reset();
  Told().clear();
  FForm->MouseMove(Mouse({10, 5}));
  FForm->MouseUp(Mouse({10, 5}));
  EXPECT_EQ(Taken(), (TNotes{"one move 10,5"}));
}

TEST_F(Forms, ADisabledControlTakesNothing) {
  FTwo->SetEnabled(false);
  FForm->MouseDown(Mouse({10, 50}));
  FForm->MouseMove(Mouse({10, 50}));
  FForm->MouseUp(Mouse({10, 50}, TMouseButton::Right));
  FForm->Gesture({fmx::LongTapGesture, {10, 50}, {}});
  EXPECT_EQ(Taken(), TNotes{});
}

TEST_F(Forms, TheRightButtonOpensTheMenuOnTheScreen) {
  const TWindowAt window;
  FForm->SetWindow(const_cast<TWindowAt*>(&window));
  FForm->MouseDown(Mouse({10, 50}, TMouseButton::Right));
  FForm->MouseUp(Mouse({12, 50}, TMouseButton::Right));
  EXPECT_EQ(Taken(), (TNotes{"two enter", "two down 10,10", "two up 12,10", "two menu 112,250"}));
  EXPECT_EQ(FForm->ScreenToClient({112, 250}), (TPointF{12, 50}));
  FForm->SetWindow(nullptr);
  EXPECT_EQ(FForm->ScreenToClient({112, 250}), (TPointF{112, 250}));
}

TEST_F(Forms, TabWalksTheControlsRoundAndRound) {
  Key(Keys::Tab);
  Key(Keys::Tab);
  Key(Keys::Tab);
  EXPECT_TRUE(FOne->IsFocused());
  Key(Keys::Tab, {TShiftItem::Shift});
  EXPECT_TRUE(FTwo->IsFocused());
  FOne->SetEnabled(false);
  Key(Keys::Tab);
  EXPECT_TRUE(FTwo->IsFocused());
  Key(Keys::Tab, {TShiftItem::Ctrl});
  EXPECT_TRUE(FTwo->IsFocused());
}

TEST_F(Forms, KeysThatTheFocusLeavesComeToTheForm) {
  int left = 0;
  FForm->OnKeyDown = [&left](fmx::TKeyEvent&) { ++left; };
  FOne->SetFocus();
  fmx::TKeyEvent letter{Keys::None, u'a', {}};
  FForm->KeyDown(letter);
  EXPECT_EQ(left, 0);
  Key(Keys::Escape);
  EXPECT_EQ(left, 1);
  fmx::TKeyEvent neither{Keys::Backspace, u'\b', {}};
  FForm->KeyDown(neither);
  EXPECT_EQ(left, 1);
  Taken();
  Key(Keys::Menu);
  Key(Keys::F10, {TShiftItem::Shift});
  EXPECT_EQ(Taken(), (TNotes{"one key", "one menu 50,15", "one key", "one menu 50,15"}));
  Key(Keys::F10);
  EXPECT_EQ(left, 2);
}

TEST_F(Forms, AWindowWithoutTheKeysTakesTheFocusAndGivesItBack) {
  FTwo->SetFocus();
  FForm->Deactivate();
  EXPECT_EQ(FForm->GetFocused(), nullptr);
  FForm->Deactivate();
  FForm->Activate();
  EXPECT_TRUE(FTwo->IsFocused());
  EXPECT_TRUE(FForm->IsActive());
  EXPECT_EQ(Taken(), (TNotes{"two enter", "two exit", "two enter again"}));
  FForm->Deactivate();
  FOne->SetFocus();
  FForm->Activate();
  EXPECT_TRUE(FOne->IsFocused());
  FForm->Deactivate();
  FForm->RemoveComponent(*FOne).reset();
  FForm->Activate();
  EXPECT_EQ(FForm->GetFocused(), nullptr);
}

TEST_F(Forms, TheWheelIsOfferedOutwards) {
  class TWheel : public TControl {
   public:
    bool TakesPointer() const override { return true; }
    bool MouseWheel(const fmx::TWheelEvent& event) override {
      Told().push_back("wheel " + At(event.Point));
      return Takes;
    }
    bool Takes = true;
  };
  auto& outer = FForm->AddControl(std::make_unique<TWheel>());
  outer.SetBounds(110, 10, 80, 80);
  TWheel inner;
  inner.SetParent(&outer);
  inner.SetBounds(5, 5, 20, 20);
  inner.Takes = false;
  EXPECT_TRUE(FForm->MouseWheel({{}, {120, 20}, 1}));
  EXPECT_EQ(Taken(), (TNotes{"wheel 5,5", "wheel 10,10"}));
  EXPECT_FALSE(FForm->MouseWheel({{}, {10, 10}, 1}));
}

TEST_F(Forms, ThePointersShapeIsThatOfTheControlOrOfWhatItStandsIn) {
  EXPECT_EQ(FForm->CursorAt({10, 10}), fmx::TCursor::IBeam);
  EXPECT_EQ(FForm->CursorAt({10, 35}), fmx::TCursor::Arrow);
  FOne->SetCursor(fmx::TCursor::Default);
  EXPECT_EQ(FForm->CursorAt({10, 10}), fmx::TCursor::Arrow);
  FForm->Content().SetCursor(fmx::TCursor::HandPoint);
  EXPECT_EQ(FForm->CursorAt({10, 10}), fmx::TCursor::HandPoint);
}

TEST_F(Forms, APaintBringsItUpToDate) {
  EXPECT_TRUE(FForm->IsInvalid());
  fmx::TRecordingCanvas canvas(200, 100);
  for (int i = 0; i < 2; ++i) {  // the first makes the presentations
    canvas.BeginScene();
    FForm->Paint(canvas);
    canvas.EndScene();
  }
  EXPECT_FALSE(FForm->IsInvalid());
  FOne->Repaint();
  EXPECT_TRUE(FForm->IsInvalid());
}

// --- Fingers ---

TEST_F(Forms, ATapIsAClickAndTwoAreADoubleTap) {
  fmx::TTouch touch(*FForm);
  touch.Down({10, 10});
  EXPECT_EQ(Taken(), TNotes{});
  touch.Move({14, 12});
  touch.Up({14, 12});
  EXPECT_EQ(Taken(), (TNotes{"one enter", "one down 10,10", "one up 10,10"}));
  touch.Down({12, 10});
  touch.Up({12, 10});
  EXPECT_EQ(Taken(), (TNotes{"one down 12,10", "one up 12,10", "one gesture 265"}));
  touch.Down({12, 10});
  touch.Up({12, 10});
  EXPECT_EQ(Taken(), (TNotes{"one down 12,10", "one up 12,10"}));
  fmx::TTimer::Advance(fmx::TTouch::DoubleTapTime);
  touch.Down({12, 10});
  touch.Up({12, 10});
  EXPECT_EQ(Taken(), (TNotes{"one down 12,10", "one up 12,10"}));
}

TEST_F(Forms, AFingerThatMovesDrawsASelection) {
  fmx::TTouch touch(*FForm);
  touch.Down({10, 10});
  touch.Move({40, 10});
  touch.Up({50, 10});
  fmx::TTimer::Advance(fmx::TTouch::LongTapTime);
  EXPECT_EQ(Taken(), (TNotes{"one enter", "one down 10,10", "one move 40,10", "one up 50,10"}));
}

TEST_F(Forms, AFingerThatRestsIsALongTap) {
  fmx::TTouch touch(*FForm);
  touch.Down({10, 10});
  fmx::TTimer::Advance(fmx::TTouch::LongTapTime - 1);
  EXPECT_EQ(Taken(), TNotes{});
  fmx::TTimer::Advance(1);
  EXPECT_EQ(Taken(), (TNotes{"one enter", "one gesture 264", "one move 10,10"}));
  touch.Move({30, 10});
  touch.Up({30, 10});
  EXPECT_EQ(Taken(), (TNotes{"one move 30,10", "one gesture 264 end", "one up 30,10"}));
  touch.Move({40, 10});
  touch.Up({40, 10});
  EXPECT_EQ(Taken(), TNotes{});
}

TEST_F(Forms, GesturesGoToThoseWhoWantThem) {
  FOne->Presentation()->SetInteractiveGestures({});
  Taken();
  FForm->Gesture({fmx::LongTapGesture, {10, 10}, {}});
  FForm->Gesture({fmx::PanGesture, {10, 50}, {}});
  EXPECT_EQ(Taken(), TNotes{});
}

// --- Menus ---

class Menus : public Forms {
 protected:
  Menus() {
    fmx::TCanvasManager::UnInitialize();
    fmx::TTextLayoutManager::UnInitialize();
    fmx::TCanvasManager::RegisterCanvas(fmx::TRecordingCanvas::Class(), true, false);
    fmx::TTextLayoutManager::RegisterTextLayout(fmx::TGPUTextLayout::Class(), fmx::TRecordingCanvas::Class());
    fmx::TFontGlyphManager::RegisterBackEnd([] { return std::make_unique<fmx::TFixedGlyphs>(); });
    for (const char16_t* text : {u"one", u"two", u"-", u"three"}) {
      auto item = std::make_unique<fmx::TMenuItem>();
      item->Text = text;
      FMenu.AddItem(std::move(item));
    }
    FMenu.Item(1)->Enabled = false;
    FForm->SetSize({400, 300});
    FForm->OpenMenu(FMenu, {20, 30});
  }
  ~Menus() override {
    fmx::TCanvasManager::UnInitialize();
    fmx::TTextLayoutManager::UnInitialize();
    fmx::TFontGlyphManager::RegisterBackEnd({});
  }
  fmx::TMenuPanel& Panel() { return FForm->MenuPanel(); }

  fmx::TPopupMenu FMenu;
};

TEST_F(Menus, StandsWhereItFits) {
  EXPECT_TRUE(Panel().IsOpen());
  EXPECT_EQ(Panel().Box().TopLeft(), (TPointF{20, 30}));
  EXPECT_LT(Panel().ItemBox(2).Height(), Panel().ItemBox(0).Height());
  EXPECT_TRUE(Panel().ItemBox(-1).IsEmpty());
  EXPECT_TRUE(Panel().ItemBox(4).IsEmpty());
  FForm->OpenMenu(FMenu, {390, 290});
  EXPECT_EQ(Panel().Box().Right, 400);
  EXPECT_EQ(Panel().Box().Bottom, 300);
}

TEST_F(Menus, AReleaseOnAnItemChoosesIt) {
  FForm->MouseMove(Mouse(Panel().ItemBox(3).Center()));
  EXPECT_EQ(Panel().Highlighted(), 3);
  for (const std::int32_t index : {1, 2}) {
    FForm->MouseMove(Mouse(Panel().ItemBox(index).Center()));
    EXPECT_EQ(Panel().Highlighted(), -1);
    FForm->MouseDown(Mouse(Panel().ItemBox(index).Center()));
    FForm->MouseUp(Mouse(Panel().ItemBox(index).Center()));
    EXPECT_TRUE(Panel().IsOpen()) << index;
  }
  FForm->MouseDown(Mouse(Panel().ItemBox(3).Center()));
  FForm->MouseUp(Mouse(Panel().ItemBox(3).Center()));
  EXPECT_FALSE(Panel().IsOpen());
  EXPECT_EQ(Panel().TakeChosen(), FMenu.Item(3));
  EXPECT_EQ(Panel().TakeChosen(), nullptr);
  EXPECT_EQ(Taken(), TNotes{});
}

TEST_F(Menus, APressBesideItAndAnotherSizeOfTheFormCloseIt) {
  FForm->MouseDown(Mouse({1, 1}));
  EXPECT_FALSE(Panel().IsOpen());
  EXPECT_EQ(Panel().Chosen(), nullptr);
  EXPECT_EQ(Taken(), TNotes{});
  FForm->OpenMenu(FMenu, {20, 30});
  FForm->SetSize({401, 300});
  EXPECT_FALSE(Panel().IsOpen());
}

TEST_F(Menus, KeysWalkOverWhatCanBeChosen) {
  FOne->SetFocus();
  Taken();
  const auto after = [this](Keys::TCode key) {
    Key(key);
    return Panel().Highlighted();
  };
  EXPECT_EQ(after(Keys::Down), 0);
  EXPECT_EQ(after(Keys::Down), 3);
  EXPECT_EQ(after(Keys::Down), 0);
  EXPECT_EQ(after(Keys::Up), 3);
  EXPECT_EQ(after(Keys::Home), 0);
  EXPECT_EQ(after(Keys::End), 3);
  EXPECT_EQ(Taken(), TNotes{});
  Key(Keys::Return);
  EXPECT_EQ(Panel().TakeChosen(), FMenu.Item(3));
  FForm->OpenMenu(FMenu, {20, 30});
  EXPECT_EQ(after(Keys::Up), 3);
  Key(Keys::Escape);
  EXPECT_FALSE(Panel().IsOpen());
  EXPECT_EQ(Panel().Chosen(), nullptr);
}

TEST_F(Menus, ReturnWithoutAnItemChoosesNothing) {
  Key(Keys::Return);
  EXPECT_TRUE(Panel().IsOpen());
  fmx::TPopupMenu empty;
  FForm->OpenMenu(empty, {0, 0});
  Key(Keys::Down);
  Key(Keys::Return);
  EXPECT_TRUE(Panel().IsOpen());
  Key(Keys::Escape);
}

TEST_F(Menus, OneThatIsHigherThanTheFormScrolls) {
  FForm->SetSize({400, 60});
  FForm->OpenMenu(FMenu, {0, 0});
  EXPECT_EQ(Panel().Box().Height(), 60);
  const float top = Panel().ItemBox(0).Top;
  Key(Keys::End);
  EXPECT_LT(Panel().ItemBox(0).Top, top);
  EXPECT_LE(Panel().ItemBox(3).Bottom, 60);
  EXPECT_TRUE(FForm->MouseWheel({{}, {10, 10}, 100}));
  EXPECT_EQ(Panel().ItemBox(0).Top, top);
}

TEST_F(Menus, ItIsPaintedWithItsCaptions) {
  fmx::TRecordingCanvas canvas(400, 300);
  const auto painted = [&] {
    canvas.Forget();
    canvas.BeginScene();
    Panel().Paint(canvas);
    canvas.EndScene();
    return canvas.Calls().size();
  };
  const std::size_t plain = painted();
  Key(Keys::Down);
  EXPECT_EQ(painted(), plain + 1);
  Panel().Close();
  EXPECT_GE(plain, painted() + 4);  // its box, and three captions at least
}

}  // namespace
