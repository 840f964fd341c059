#include "fmx/Keys.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using fmx::Keys;
using fmx::NormalizeKey;
using fmx::TKeyEvent;
using fmx::TPlatformModifier;
using fmx::TPlatformModifiers;
using fmx::TShiftItem;
using fmx::TShiftState;
using TEvents = std::vector<TKeyEvent>;

constexpr TPlatformModifiers NoModifiers;
constexpr TPlatformModifiers Shift{TPlatformModifier::Shift};
constexpr TPlatformModifiers Ctrl{TPlatformModifier::Ctrl};
constexpr TPlatformModifiers Alt{TPlatformModifier::Alt};
constexpr TPlatformModifiers Command{TPlatformModifier::Command};

// Every set of the ten modifiers a platform may report.
std::vector<TPlatformModifiers> AllModifiers() {
  std::vector<TPlatformModifiers> all;
  for (std::uint16_t bits = 0; bits < 1024; ++bits) all.push_back(TPlatformModifiers::FromBits(bits));
  return all;
}

static_assert(TKeyEvent{Keys::Left, 0, {}}.IsDeliverable());
static_assert(TKeyEvent{Keys::None, u' ', {}}.IsDeliverable());
static_assert(!TKeyEvent{Keys::None, u'\x1F', {}}.IsDeliverable());
static_assert(!TKeyEvent{Keys::None, 0, {}}.IsDeliverable());
static_assert(!TKeyEvent{Keys::Backspace, u'\b', {}}.IsDeliverable());
static_assert(!TKeyEvent{65, u'a', {}}.IsDeliverable());

TEST(Keys, ACharacterComesWithoutItsKey) {
  EXPECT_EQ(NormalizeKey(65, u"a", NoModifiers), (TEvents{{Keys::None, u'a', {}}}));
  EXPECT_EQ(NormalizeKey(65, u"A", Shift), (TEvents{{Keys::None, u'A', {TShiftItem::Shift}}}));
  EXPECT_EQ(NormalizeKey(72, u"\u0627", NoModifiers), (TEvents{{Keys::None, u'\u0627', {}}}));
  EXPECT_EQ(NormalizeKey(32, u" ", NoModifiers), (TEvents{{Keys::None, u' ', {}}}));
}

TEST(Keys, AKeyThatTypesNothingComesAlone) {
  EXPECT_EQ(NormalizeKey(Keys::Left, u"", NoModifiers), (TEvents{{Keys::Left, 0, {}}}));
  EXPECT_EQ(NormalizeKey(Keys::Left, u"", Shift + Ctrl),
            (TEvents{{Keys::Left, 0, {TShiftItem::Shift, TShiftItem::Ctrl}}}));
  EXPECT_EQ(NormalizeKey(Keys::Control, u"", Ctrl), (TEvents{{Keys::Control, 0, {TShiftItem::Ctrl}}}));
}

TEST(Keys, CtrlAltAndCommandLeaveTheKeyAlone) {
  EXPECT_EQ(NormalizeKey(65, u"\1", Ctrl), (TEvents{{65, 0, {TShiftItem::Ctrl}}}));
  EXPECT_EQ(NormalizeKey(65, u"a", Ctrl), (TEvents{{65, 0, {TShiftItem::Ctrl}}}));
  EXPECT_EQ(NormalizeKey(65, u"a", Alt), (TEvents{{65, 0, {TShiftItem::Alt}}}));
  EXPECT_EQ(NormalizeKey(65, u"a", Command), (TEvents{{65, 0, {TShiftItem::Command}}}));
  EXPECT_EQ(NormalizeKey(65, u"\u0634", Ctrl + Shift), (TEvents{{65, 0, {TShiftItem::Ctrl, TShiftItem::Shift}}}));
}

TEST(Keys, ATextThatACommandTypesWithoutAKeyIsNothing) {
  EXPECT_EQ(NormalizeKey(Keys::None, u"a", Alt), TEvents{});
  EXPECT_EQ(NormalizeKey(Keys::None, u"\b", Ctrl), TEvents{});
}

TEST(Keys, AltGrHasDoneItsWork) {
  EXPECT_EQ(NormalizeKey(81, u"@", Ctrl + Alt), (TEvents{{Keys::None, u'@', {}}}));
  EXPECT_EQ(NormalizeKey(81, u"\u200D", Ctrl + Alt + Shift), (TEvents{{Keys::None, u'\u200D', {TShiftItem::Shift}}}));
  EXPECT_EQ(NormalizeKey(81, u"", Ctrl + Alt), (TEvents{{81, 0, {TShiftItem::Ctrl, TShiftItem::Alt}}}));
  EXPECT_EQ(NormalizeKey(81, u"@", Ctrl + Alt + Command), (TEvents{{81, 0, {TShiftItem::Command}}}));
}

TEST(Keys, BackspaceTabReturnAndEscapeHaveNoCharacter) {
  for (const Keys::TCode key : {Keys::Backspace, Keys::Tab, Keys::Return, Keys::Escape}) {
    const std::u16string text(1, static_cast<char16_t>(key));
    EXPECT_EQ(NormalizeKey(key, text, NoModifiers), (TEvents{{key, 0, {}}}));
    EXPECT_EQ(NormalizeKey(Keys::None, text, NoModifiers), (TEvents{{key, 0, {}}}));
    EXPECT_EQ(NormalizeKey(key, text, Shift), (TEvents{{key, 0, {TShiftItem::Shift}}}));
  }
  EXPECT_EQ(NormalizeKey(Keys::None, u"\1", NoModifiers), TEvents{});
}

TEST(Keys, ACharacterOfTwoUnitsComesAsTwoEvents) {
  EXPECT_EQ(NormalizeKey(69, u"\U0001F600", NoModifiers),
            (TEvents{{Keys::None, 0xD83D, {}}, {Keys::None, 0xDE00, {}}}));
}

TEST(Keys, ATextOfAnInputMethodComesUnitByUnit) {
  EXPECT_EQ(NormalizeKey(Keys::None, u"\u0644\u0627\nx", NoModifiers),
            (TEvents{{Keys::None, u'\u0644', {}}, {Keys::None, u'\u0627', {}}, {Keys::None, u'x', {}}}));
}

TEST(Keys, LocksAndButtonsNeverReachTheSet) {
  const TPlatformModifiers heard = Shift + Alt + Ctrl + Command;
  for (const TPlatformModifiers modifiers : AllModifiers()) {
    const TShiftState shift = fmx::ShiftStateOf(modifiers);
    EXPECT_EQ(shift, fmx::ShiftStateOf(modifiers * heard));
    EXPECT_EQ(shift.Contains(TShiftItem::Shift), modifiers.Contains(TPlatformModifier::Shift));
    EXPECT_EQ(shift.Contains(TShiftItem::Alt), modifiers.Contains(TPlatformModifier::Alt));
    EXPECT_EQ(shift.Contains(TShiftItem::Ctrl), modifiers.Contains(TPlatformModifier::Ctrl));
    EXPECT_EQ(shift.Contains(TShiftItem::Command), modifiers.Contains(TPlatformModifier::Command));
    EXPECT_LT(shift.Bits(), 16);
    for (const std::u16string_view text : {u"", u"a", u"\b"})
      EXPECT_EQ(NormalizeKey(65, text, modifiers), NormalizeKey(65, text, modifiers * heard));
  }
}

// Every code unit, with and without a key, under every set of modifiers that count.
TEST(Keys, EveryEventHasOneOfTheTwoForms) {
  int events = 0;
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const std::u16string text(1, static_cast<char16_t>(unit));
    for (std::uint16_t bits = 0; bits < 16; ++bits) {
      const auto modifiers = TPlatformModifiers::FromBits(bits);
      for (const Keys::TCode key : {Keys::None, Keys::TCode{65}}) {
        const TEvents made = NormalizeKey(key, text, modifiers);
        ASSERT_LE(made.size(), 1U);
        if (made.empty()) {
          ASSERT_EQ(key, Keys::None);
          continue;
        }
        ++events;
        ASSERT_TRUE(made[0].IsDeliverable());
        ASSERT_FALSE(made[0].IsHandled());
        const bool command = modifiers.Contains(TPlatformModifier::Command) ||
                             modifiers.Contains(TPlatformModifier::Ctrl) != modifiers.Contains(TPlatformModifier::Alt);
        ASSERT_EQ(made[0].KeyChar, unit >= 32 && !command ? unit : 0U) << unit << " " << bits;
      }
    }
  }
  // With the key always one. Without it: of 16 sets of modifiers 4 hold no command, for which AltGr counts where there
  // is text, and 2 hold none at all, under which four control characters are keys.
  EXPECT_EQ(events, 65536 * 16 + (65536 - 32) * 4 + 4 * 2);
}

TEST(Keys, AHandledEventIsTakenAway) {
  TKeyEvent event{Keys::Left, 0, {TShiftItem::Shift}};
  EXPECT_FALSE(event.IsHandled());
  event.SetHandled();
  EXPECT_TRUE(event.IsHandled());
  EXPECT_EQ(event, (TKeyEvent{Keys::None, 0, {TShiftItem::Shift}}));
}

}  // namespace
