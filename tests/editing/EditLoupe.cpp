// The magnifier: what the box tells it, and when.
#include <memory>
#include <string>
#include <vector>

#include "fmx/Loupe.h"
#include "tests/editing/EditFixture.h"

namespace orv::testing {
namespace {

constexpr float LoupeWidth = 100;
constexpr float LoupeHeight = 50;

// Writes down what it is told.
class TLoupe : public fmx::ILoupeService {
 public:
  fmx::TSizeF GetSize() override { return {LoupeWidth, LoupeHeight}; }
  void SetMode(fmx::TLoupeMode mode) override {
    Mode = mode;
    Told.push_back("mode " + std::to_string(static_cast<int>(mode)));
  }
  void SetZoom(float factor) override { Zoom = factor; }
  void SetPosition(fmx::TPointF topLeft) override { Position = topLeft; }
  void SetMagnifiedPoint(fmx::TPointF point) override { Magnified = point; }
  void ShowLoupe(fmx::TComponent& control) override {
    Shown = &control;
    Told.emplace_back("show");
  }
  void HideLoupe() override {
    Shown = nullptr;
    Told.emplace_back("hide");
  }

  std::vector<std::string> Told;
  fmx::TLoupeMode Mode = fmx::TLoupeMode::Caret;
  float Zoom = 0;
  fmx::TPointF Position;
  fmx::TPointF Magnified;
  fmx::TComponent* Shown = nullptr;
};

// There before the box asks for it.
struct TLoupeScope {
  TLoupeScope() {
    fmx::TPlatformServices::SetCurrent(std::make_unique<fmx::TPlatformServices>());
    fmx::TPlatformServices::Current()->AddPlatformService(fmx::ILoupeService::Guid, Loupe);
  }
  ~TLoupeScope() { fmx::TPlatformServices::SetCurrent(nullptr); }
  TLoupeScope(const TLoupeScope&) = delete;
  TLoupeScope& operator=(const TLoupeScope&) = delete;

  std::shared_ptr<TLoupe> Loupe = std::make_shared<TLoupe>();
};

class EditLoupe : private TLoupeScope, public EditTest {
 protected:
  EditLoupe() {
    FBox.Edit().SetPosition({20, 40});
    Show(u"abcdef");
    Loupe->Told.clear();
  }
  void LongPress(fmx::TPointF inForm, fmx::TGestureFlags flags = {}) {
    FBox.Edit().CMGesture({fmx::LongTapGesture, inForm, flags});
  }
  // "ab|cde^f", whose handles are crossed since it runs from left to right.
  void SelectInTheMiddle() {
    At(5);
    for (int i = 0; i < 3; ++i) Key(fmx::Keys::Left, Shift);
  }
  TLoupe& Magnifier() { return *Loupe; }
  std::vector<std::string> Told() { return std::exchange(Loupe->Told, {}); }
};

using TTold = std::vector<std::string>;

TEST_F(EditLoupe, ALongPressShowsWhatIsUnderTheFinger) {
  LongPress({51, 50});
  EXPECT_EQ(Magnifier().Magnified, (fmx::TPointF{51, 50}));
  EXPECT_EQ(Magnifier().Position, (fmx::TPointF{51 - LoupeWidth / 2, 50 - LoupeHeight}));
  EXPECT_EQ(Magnifier().Zoom, 1.4F);
  EXPECT_EQ(Magnifier().Mode, fmx::TLoupeMode::Caret);
  EXPECT_EQ(Magnifier().Shown, &FBox.Edit());
  EXPECT_EQ(Told(), (TTold{"mode 0", "mode 0", "show", "show"}));
}

TEST_F(EditLoupe, FollowsTheFingerUntilItGoes) {
  LongPress({51, 50});
  Told();
  FBox.Edit().MouseMove({fmx::TMouseButton::Left, {}, {41, 12}});
  EXPECT_EQ(Magnifier().Magnified, (fmx::TPointF{61, 52}));
  EXPECT_EQ(Magnifier().Position, (fmx::TPointF{61 - LoupeWidth / 2, 52 - LoupeHeight}));
  EXPECT_EQ(Told(), (TTold{"mode 0", "show", "show"}));
  FBox.Edit().MouseUp({fmx::TMouseButton::Left, {}, {41, 12}});
  EXPECT_EQ(Told(), TTold{"hide"});
  FBox.Edit().MouseMove({fmx::TMouseButton::Left, {}, {31, 12}});
  EXPECT_EQ(Told(), TTold{});
}

TEST_F(EditLoupe, GoesWithTheEndOfTheGesture) {
  LongPress({51, 50}, fmx::TGestureFlags{fmx::TGestureFlag::Begin});
  EXPECT_EQ(Magnifier().Shown, &FBox.Edit());
  LongPress({51, 50}, fmx::TGestureFlags{fmx::TGestureFlag::End});
  EXPECT_EQ(Told().back(), "hide");
}

TEST_F(EditLoupe, OtherGesturesLeaveItAlone) {
  FBox.Edit().CMGesture({fmx::DoubleTapGesture, {51, 50}, {}});
  EXPECT_EQ(Seen(), u"^abcdef|");
  FBox.Edit().CMGesture({fmx::PanGesture, {51, 50}, {}});
  EXPECT_EQ(Told(), TTold{});
}

TEST_F(EditLoupe, ADragOfTheMouseHasNone) {
  FBox.Edit().MouseDown({fmx::TMouseButton::Left, {}, {1, 10}});
  FBox.Edit().MouseMove({fmx::TMouseButton::Left, {}, {31, 10}});
  EXPECT_EQ(Told(), TTold{"mode 1"}) << "it would be that of a selection";
  LongPress({51, 50});
  EXPECT_EQ(Told(), TTold{}) << "a drag goes on";
}

TEST_F(EditLoupe, AHandleShowsItsEndOfTheSelection) {
  SelectInTheMiddle();
  ASSERT_TRUE(Edit().AreHandlersCrossed());
  const fmx::TRectF stored = Edit().GetSelRect();
  ASSERT_EQ(stored, (fmx::TRectF{50, 4, 20, 26}));
  const auto shows = [&](TSelectionPointType handle, float x) {
    Edit().SelectionPoint(handle)->MouseDown({});
    EXPECT_EQ(Magnifier().Magnified, (fmx::TPointF{20 + x, 40 + 15}));
    EXPECT_EQ(Magnifier().Position, (fmx::TPointF{20 + x - LoupeWidth / 2, 40 + 4 - LoupeHeight - 10}));
    EXPECT_EQ(Magnifier().Zoom, 1.4F);
    EXPECT_EQ(Magnifier().Mode, fmx::TLoupeMode::Selection);
    EXPECT_EQ(Told(), (TTold{"mode 1", "show"}));
    Edit().SelectionPoint(handle)->MouseUp({});
    EXPECT_EQ(Told(), TTold{"hide"});
    EXPECT_EQ(Edit().SelectionMode(), TSelectionMode::None);
  };
  shows(TSelectionPointType::Left, 20);
  shows(TSelectionPointType::Right, 50);
}

TEST_F(EditLoupe, MovesWithAHandle) {
  SelectInTheMiddle();
  fmx::TSelectionPoint& left = *Edit().SelectionPoint(TSelectionPointType::Left);
  left.MouseDown({});
  Told();
  // Crossed, it moves the end of the selection.
  left.MouseMove({fmx::TMouseButton::Left, {}, fmx::TPointF{41, 0} - left.Position()});
  EXPECT_EQ(Model().SelStart(), 2);
  EXPECT_EQ(Model().SelLength(), 2);
  const fmx::TRectF stored = Edit().GetSelRect();
  EXPECT_EQ(Magnifier().Magnified.X, 20 + stored.Right);
  EXPECT_EQ(Told(), TTold{}) << "it is shown already";
}

}  // namespace
}  // namespace orv::testing
