// What each key does, in both directions and with each modifier. Texts show the caret as "|" and the other end of a
// selection as "^".
#include "fmx/Keys.h"
#include "tests/editing/EditFixture.h"

namespace orv::testing {
namespace {

using fmx::Keys;
using fmx::TTextAlign;

class EditKeys : public EditTest {};

TEST_F(EditKeys, TypingMovesTheCaretAndSelectsNothing) {
  Type(u"abc");
  EXPECT_EQ(Seen(), u"abc|");
  EXPECT_EQ(Model().SelStart(), 3);
  EXPECT_EQ(FBox.Typings(), 3);
  EXPECT_TRUE(FBox.LastKeyHandled());
  EXPECT_TRUE(Model().Typing());
}

TEST_F(EditKeys, ShiftedArrowsSelectAndTypingReplacesWhatIsSelected) {
  Show(u"abcdef");
  At(3);
  Key(Keys::Left, Shift);
  EXPECT_EQ(Seen(), u"ab|c^def");
  EXPECT_EQ(Model().SelLength(), 1);
  Key(Keys::Left, Shift);
  EXPECT_EQ(Seen(), u"a|bc^def");
  Type(u"X");
  EXPECT_EQ(Seen(), u"aX|def");
  At(3);
  Key(Keys::Right, Shift);
  EXPECT_EQ(Seen(), u"aXd^e|f");
  EXPECT_EQ(Model().SelLength(), -1);
}

TEST_F(EditKeys, BackspaceAtTheStartTakesNothingButIsHandled) {
  Show(u"abc");
  Key(Keys::Backspace);
  EXPECT_EQ(Seen(), u"|abc");
  EXPECT_EQ(Model().SelStart(), -1);
  EXPECT_TRUE(FBox.LastKeyHandled());
  EXPECT_EQ(FBox.Typings(), 1);
  Type(u"x");
  EXPECT_EQ(Seen(), u"x|abc");
}

TEST_F(EditKeys, DeleteAtTheEndTakesNothingButIsHandled) {
  Show(u"abc");
  At(3);
  Key(Keys::Delete);
  EXPECT_EQ(Seen(), u"abc|");
  EXPECT_TRUE(FBox.LastKeyHandled());
  EXPECT_EQ(FBox.Typings(), 1);
}

TEST_F(EditKeys, WordsAreWalkedWithCtrlOrCommand) {
  Show(u"abc def");
  At(5);
  Key(Keys::Right, Ctrl);
  EXPECT_EQ(Seen(), u"abc def|");
  Key(Keys::Left, Command);
  EXPECT_EQ(Seen(), u"abc |def");
  Key(Keys::Left, Ctrl);
  EXPECT_EQ(Seen(), u"|abc def");
}

TEST_F(EditKeys, CtrlBackspaceTakesTheWordBeforeAndCtrlDeleteOnlyMoves) {
  Show(u"abc def");
  Key(Keys::Delete, Ctrl);
  EXPECT_EQ(Seen(), u"abc |def");
  At(7);
  Key(Keys::Backspace, Ctrl);
  EXPECT_EQ(Seen(), u"abc |");
  At(0);
  Key(Keys::Backspace, Ctrl);
  EXPECT_EQ(Seen(), u"|abc ");
  EXPECT_FALSE(FBox.LastKeyHandled()) << "there is no word before";
}

TEST_F(EditKeys, PairsAreOneCharacter) {
  Show(u"a\U0001F600b");
  At(3);
  Key(Keys::Left);
  EXPECT_EQ(Edit().GetOriginCaretPosition(), 1);
  Key(Keys::Right);
  EXPECT_EQ(Edit().GetOriginCaretPosition(), 3);
  Key(Keys::Backspace);
  EXPECT_EQ(Seen(), u"a|b");
  Show(u"a\U0001F600b");
  At(1);
  Key(Keys::Delete);
  EXPECT_EQ(Seen(), u"a|b");
}

TEST_F(EditKeys, AHighSurrogateWaitsForItsOtherHalf) {
  Type(u"\xD83D");
  EXPECT_EQ(Model().Text(), u"");
  EXPECT_TRUE(FBox.LastKeyHandled());
  EXPECT_EQ(FBox.Typings(), 0);
  Type(u"\xDE00");
  EXPECT_EQ(Model().Text(), u"\U0001F600");
  EXPECT_EQ(FBox.Typings(), 1);
}

TEST_F(EditKeys, InARightToLeftBoxTheArrowsAreExchangedOncePainted) {
  Show(u"سلام", TTextAlign::Trailing);
  Key(Keys::End);
  Key(Keys::Left);
  EXPECT_EQ(Edit().GetOriginCaretPosition(), 3) << "not painted yet";
  FBox.Paint();
  EXPECT_TRUE(Edit().IsRightToLeft());
  Key(Keys::End);
  Key(Keys::Left);
  EXPECT_EQ(Edit().GetOriginCaretPosition(), 4) << "forward: there is nothing";
  EXPECT_TRUE(FBox.LastKeyHandled());
  Key(Keys::Right);
  EXPECT_EQ(Edit().GetOriginCaretPosition(), 3);
}

TEST_F(EditKeys, ShiftAndCtrlTurnTheDirectionUntilTheNextPaint) {
  Show(u"abc def");
  At(3);
  Key(Keys::Left, Shift + Ctrl);
  EXPECT_TRUE(Edit().IsRightToLeft());
  EXPECT_EQ(Seen(), u"abc| def");
  EXPECT_FALSE(FBox.LastKeyHandled());
  FBox.Paint();
  EXPECT_FALSE(Edit().IsRightToLeft());
}

TEST_F(EditKeys, TheClipboardIsReachedByBothSetsOfKeys) {
  for (const bool old : {false, true}) {
    Show(u"abc");
    At(1);
    Key(Keys::Right, Shift);
    if (old)
      Key(Keys::Insert, Ctrl);
    else
      Key('C', Ctrl);
    EXPECT_EQ(FBox.Clipboard().GetText(), u"b");
    if (old)
      Key(Keys::Delete, Shift);
    else
      Key('X', Ctrl);
    EXPECT_EQ(Seen(), u"a|c");
    if (old)
      Key(Keys::Insert, Shift);
    else
      Key('V', Command);
    EXPECT_EQ(Seen(), u"ab|c");
  }
  Key(Keys::Insert);
  EXPECT_FALSE(FBox.LastKeyHandled());
}

TEST_F(EditKeys, CtrlASelectsAllUnlessShiftOrAltIsHeldToo) {
  Show(u"abc");
  Key('A', Ctrl + Alt);
  EXPECT_EQ(Seen(), u"|abc");
  Key('A', Ctrl);
  EXPECT_EQ(Seen(), u"^abc|");
}

TEST_F(EditKeys, KeysThatTheBoxLeavesGoOn) {
  Show(u"abc");
  int changes = 0;
  Model().OnChange = [&] { ++changes; };
  for (const Keys::TCode key : {Keys::Return, Keys::Up, Keys::Down, Keys::Escape, Keys::Tab}) {
    Key(key);
    EXPECT_FALSE(FBox.LastKeyHandled()) << key;
  }
  EXPECT_EQ(changes, 1) << "Return tells of the change";
  Model().SetKillFocusByReturn(true);
  Key(Keys::Return);
  EXPECT_FALSE(FBox.Edit().IsFocused());
  Key('Z', Ctrl);
  EXPECT_TRUE(FBox.LastKeyHandled());
}

TEST_F(EditKeys, AReadOnlyBoxMovesButDoesNotChange) {
  Show(u"abc");
  Model().SetReadOnly(true);
  Type(u"x");
  Key(Keys::Delete);
  Key(Keys::Right);
  Key(Keys::Backspace);
  FBox.Clipboard().SetText(u"y");
  Key('V', Ctrl);
  EXPECT_EQ(Seen(), u"a|bc");
  Model().SetReadOnly(false);
  Model().SetInputSupport(false);
  Key(Keys::Right);
  Type(u"x");
  EXPECT_EQ(Seen(), u"a|bc") << "a box without input takes no key at all";
}

TEST_F(EditKeys, FilteredCharactersAreNotTyped) {
  Model().SetFilterChar(u"0123456789");
  Type(u"1a2");
  EXPECT_EQ(Seen(), u"12|");
  Key(Keys::Left);
  EXPECT_EQ(Seen(), u"1|2");
}

TEST_F(EditKeys, SettingTheCaretBeforeTheStartIsHeldButRemembered) {
  Show(u"abc");
  At(2);
  At(-1);
  EXPECT_EQ(Edit().GetOriginCaretPosition(), 0);
  EXPECT_EQ(Model().SelStart(), -1);
}

// --- Data links ---

class TLink : public fmx::IEditLinkObserver {
 public:
  bool Edit() override { return Allows; }
  bool IsEditing() const override { return Allows; }
  bool IsReadOnly() const override { return !Allows; }
  bool IsValidChar(char16_t c) const override { return c != u'!'; }
  void Modified() override { ++Modifications; }
  void Update() override { ++Updates; }
  void Reset() override { ++Resets; }
  bool Allows = true;
  int Modifications = 0;
  int Updates = 0;
  int Resets = 0;
};

TEST_F(EditKeys, ALinkThatRefusesConsumesTheKey) {
  Show(u"abc");
  TLink link;
  FBox.Edit().Observers().EditLink = &link;
  link.Allows = false;
  Type(u"x");
  Key(Keys::Delete);
  EXPECT_EQ(Seen(), u"|abc");
  EXPECT_TRUE(FBox.LastKeyHandled());
  EXPECT_EQ(link.Resets, 2);
  link.Allows = true;
  Type(u"!");
  EXPECT_EQ(Seen(), u"|abc");
  Type(u"x");
  EXPECT_EQ(Seen(), u"x|abc");
  EXPECT_EQ(link.Modifications, 1);
  Key(Keys::Return);
  EXPECT_EQ(link.Updates, 1);
  FBox.Edit().Observers().EditLink = nullptr;
}

}  // namespace
}  // namespace orv::testing
