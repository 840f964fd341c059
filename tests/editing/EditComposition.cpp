// Keys, typed text and compositions on their way into a box.
#include "fmx/KeyboardInput.h"
#include "tests/editing/EditFixture.h"

namespace orv::testing {
namespace {

using fmx::Keys;
using fmx::TPlatformModifier;
using fmx::TPlatformModifiers;

class EditComposition : public EditTest {
 protected:
  fmx::TTextService& Service() { return *Edit().GetTextService(); }
  fmx::TKeyboardInput FKeyboard{FBox.Form()};
};

TEST_F(EditComposition, WhatIsComposedStandsInTheTextUntilItIsCommitted) {
  Show(u"ab");
  At(1);
  FKeyboard.Compose(u"d", 1);
  FKeyboard.Settle();
  EXPECT_EQ(Edit().GetText(), u"adb");
  EXPECT_EQ(Service().MarkedText(), u"d");
  EXPECT_EQ(Service().Text(), u"ab");
  EXPECT_EQ(Edit().GetCaretPosition(), 2);
  FKeyboard.Compose(u"đa", 2);
  FKeyboard.Settle();
  EXPECT_EQ(Edit().GetText(), u"ađab");
  FKeyboard.Text(u"đân", {});
  FKeyboard.Settle();
  EXPECT_EQ(Model().Text(), u"ađânb");
  EXPECT_FALSE(Service().HasMarkedText());
  EXPECT_FALSE(FKeyboard.IsComposing());
  EXPECT_EQ(Edit().GetOriginCaretPosition(), 4);
}

TEST_F(EditComposition, AKeyThatMakesTheMethodCommitComesBehindItsText) {
  FKeyboard.Compose(u"đân", 3);
  FKeyboard.Settle();
  FKeyboard.Key(0x100, u" ", {});
  FKeyboard.Compose(u"", 0);
  FKeyboard.Compose(u"đân", 3);
  FKeyboard.Compose(u"", 0);
  FKeyboard.Text(u"đân", {});
  FKeyboard.Compose(u"", 0);
  FKeyboard.Settle();
  EXPECT_EQ(Model().Text(), u"đân ");
  EXPECT_EQ(Edit().GetOriginCaretPosition(), 4);
}

TEST_F(EditComposition, AKeyThatMovesTheCaretWaitsToo) {
  Show(u"x");
  At(1);
  FKeyboard.Compose(u"ab", 2);
  FKeyboard.Key(Keys::Left, u"", {});
  FKeyboard.Text(u"ab", {});
  FKeyboard.Settle();
  EXPECT_EQ(Model().Text(), u"xab");
  EXPECT_EQ(Edit().GetOriginCaretPosition(), 2);
}

TEST_F(EditComposition, NothingComposedIsHarmlessAtAnyTime) {
  Show(u"ab");
  FKeyboard.Compose(u"", -1);
  FKeyboard.Settle();
  FKeyboard.Text(u"c", {});
  EXPECT_EQ(Model().Text(), u"cab");
  FKeyboard.Compose(u"x", 1);
  FKeyboard.Compose(u"", 0);
  FKeyboard.Compose(u"xy", 2);
  FKeyboard.Settle();
  EXPECT_EQ(Edit().GetText(), u"cxyab");
  EXPECT_TRUE(FKeyboard.IsComposing());
}

TEST_F(EditComposition, OneThatIsGivenUpLeavesNothing) {
  Show(u"ab");
  At(2);
  FKeyboard.Compose(u"xyz", 3);
  FKeyboard.Settle();
  EXPECT_EQ(Edit().GetText(), u"abxyz");
  FKeyboard.Compose(u"", 0);
  FKeyboard.Settle();
  EXPECT_EQ(Model().Text(), u"ab");
  EXPECT_EQ(Edit().GetOriginCaretPosition(), 2);
  EXPECT_FALSE(FKeyboard.IsComposing());
}

TEST_F(EditComposition, OneThatIsInterruptedIsTypedAsItStands) {
  Show(u"ab");
  At(1);
  FKeyboard.Compose(u"xyz", 1);
  FKeyboard.Settle();
  FKeyboard.Finish();
  EXPECT_EQ(Model().Text(), u"axyzb");
  EXPECT_EQ(Edit().GetOriginCaretPosition(), 4);
  FKeyboard.Finish();
  EXPECT_EQ(Model().Text(), u"axyzb");
}

TEST_F(EditComposition, TheCaretInItIsHeldWithinIt) {
  for (const std::int32_t caret : {-5, 0, 1, 2, 99}) {
    FKeyboard.Compose(u"xy", caret);
    FKeyboard.Settle();
    EXPECT_EQ(Edit().GetCaretPosition(), std::clamp(caret, 0, 2)) << caret;
  }
}

TEST_F(EditComposition, KeysWithoutOneGoStraightOn) {
  FKeyboard.Key('A', u"a", {});
  FKeyboard.Key(0x100, u"ش", {});
  EXPECT_EQ(Model().Text(), u"aش");
  FKeyboard.Key('A', u"ش", {TPlatformModifier::Ctrl});
  EXPECT_EQ(Model().Text(), u"aش");
  EXPECT_EQ(Model().SelectedText(), u"aش");
  FKeyboard.Key('Q', u"@", {TPlatformModifier::Ctrl, TPlatformModifier::Alt});
  EXPECT_EQ(Model().Text(), u"@");
  FKeyboard.Key('Q', u"q", {TPlatformModifier::Alt});
  EXPECT_EQ(Model().Text(), u"@");
  FKeyboard.Text(u"ش", {TPlatformModifier::Ctrl});
  EXPECT_EQ(Model().Text(), u"@");
  FKeyboard.Text(u"\U0001F600", {});
  EXPECT_EQ(Model().Text(), u"@\U0001F600");
}

TEST_F(EditComposition, WithoutAFocusThereIsNothingToCompose) {
  FBox.Form().SetFocused(nullptr);
  FKeyboard.Compose(u"x", 1);
  FKeyboard.Text(u"x", {});
  FKeyboard.Settle();
  FKeyboard.Finish();
  EXPECT_FALSE(FKeyboard.IsComposing());
  EXPECT_EQ(Model().Text(), u"");
}

}  // namespace
}  // namespace orv::testing
