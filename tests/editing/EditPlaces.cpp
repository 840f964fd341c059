// Where carets, selections, handles and dots stand; the pointer, the focus and input methods.
#include <chrono>
#include <random>

#include "rtl/Unicode.h"
#include "tests/editing/EditFixture.h"

namespace orv::testing {
namespace {

using fmx::TRectF;
using fmx::TTextAlign;

class EditPlaces : public EditTest {
 protected:
  float X(std::int32_t index) { return Edit().View().GetCharX(index); }
};

TEST_F(EditPlaces, LatinCaretsStandAtTheEndsOfTheirLetters) {
  Show(u"abc");
  for (const std::int32_t index : {0, 1, 2, 3}) EXPECT_EQ(X(index), 10 * static_cast<float>(index));
}

TEST_F(EditPlaces, ArabicTextThatIsTrailingBeginsAtTheRight) {
  Show(u"سلم", TTextAlign::Trailing);
  EXPECT_EQ(X(0), 200);
}

TEST_F(EditPlaces, LatinTextThatIsTrailingBeginsAtTheLeftOfTheWholeText) {
  Show(u"abc", TTextAlign::Trailing);
  EXPECT_EQ(X(0), 170);
}

// The comparison of right edges takes the left one of a first letter that stands alone.
TEST_F(EditPlaces, OneTrailingLetterHasItsSecondCaretOnTheRight) {
  Show(u"ب", TTextAlign::Trailing, 100);
  EXPECT_EQ(X(1), 100);
  Show(u"بت", TTextAlign::Trailing, 100);
  EXPECT_EQ(X(2), 80);
}

TEST_F(EditPlaces, AnEmptyBoxPlacesItsCaretByTheAlignment) {
  Show(u"", TTextAlign::Leading);
  EXPECT_EQ(X(0), 0);
  Show(u"", TTextAlign::Center);
  EXPECT_EQ(X(0), 100);
  Show(u"", TTextAlign::Trailing);
  EXPECT_EQ(X(0), 198) << "room for the caret and one more";
}

TEST_F(EditPlaces, LinesAreATenthHigherThanTheirTextAndNoHigherThanTheBox) {
  Show(u"a", TTextAlign::Leading, 200, 30);
  EXPECT_EQ(Edit().LineHeight(), 22);
  EXPECT_EQ(Edit().LineTop(), 4);
  Show(u"a", TTextAlign::Leading, 200, 18);
  EXPECT_EQ(Edit().LineHeight(), 18);
  EXPECT_EQ(Edit().LineTop(), 0);
}

TEST_F(EditPlaces, ALongTextScrollsByTheCharactersThatTheCaretCrosses) {
  Show(u"", TTextAlign::Leading, 50);
  Type(u"abcd");
  EXPECT_EQ(Edit().View().FirstVisibleChar(), 1);
  Type(u"efgh");
  EXPECT_EQ(Edit().View().FirstVisibleChar(), 4);
  EXPECT_EQ(Edit().View().InvisibleTextWidth(), 30);
  EXPECT_EQ(X(8), 50);
  Key(fmx::Keys::Home);
  EXPECT_EQ(Edit().View().FirstVisibleChar(), 1);
}

// As many characters scroll away as a walk one by one would take off.
TEST_F(EditPlaces, TheViewMovesNoFurtherThanItMust) {
  std::mt19937 random(7);
  constexpr std::u16string_view alphabet = u"abc سلالله 12٢ .(\u064E\u200C\u05D0";
  int scrolled = 0;
  for (int round = 0; round < 300; ++round) {
    std::u16string text;
    for (auto left = random() % 40; left > 0; --left) text.push_back(alphabet[random() % alphabet.size()]);
    if (round % 3 == 0) text += u"\U0001F600\U0001F600";
    Show(u"");
    Show(text, static_cast<fmx::TTextAlign>(random() % 3), 40 + static_cast<float>(random() % 100));
    TOrvEditView& view = Edit().View();
    At(0);
    std::int32_t first = view.FirstVisibleChar();
    const auto caret = static_cast<std::int32_t>(random() % (text.size() + 1));
    if (first >= caret + 1) continue;
    const auto length = static_cast<std::int32_t>(text.size());
    const bool allFits = view.PaddedWidth() >= 15 + view.TextWidth(length, 0);
    while (!allFits && view.TextWidth(first - 1, caret - first + 1) > view.PaddedWidth() && length > first) ++first;
    if (rtl::IsLowSurrogate(text[static_cast<std::size_t>(first - 1)])) ++first;
    At(caret);
    EXPECT_EQ(view.FirstVisibleChar(), first) << round;
    scrolled += first > 1 ? 1 : 0;
  }
  EXPECT_GT(scrolled, 50);
}

TEST_F(EditPlaces, ALongTextIsScrolledToItsEndAtOnce) {
  Show(std::u16string(20000, u'a'));
  const auto start = std::chrono::steady_clock::now();
  Key(fmx::Keys::End);
  EXPECT_EQ(Edit().View().FirstVisibleChar(), 20000 - 20 + 1);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20)) << "one by one it would take minutes";
}

TEST_F(EditPlaces, ASelectionIsOneRectangleStoredFromRightToLeft) {
  Show(u"abc");
  At(3);
  Key(fmx::Keys::Left, Shift);
  bool swapped = false;
  EXPECT_EQ(Edit().GetSelRect(swapped), (TRectF{30, 4, 20, 26}));
  EXPECT_TRUE(swapped);
  ASSERT_EQ(Edit().SelectionFillRects().size(), 1U);
  EXPECT_EQ(Edit().SelectionFillRects()[0], (TRectF{20, 4, 30, 26}));
  FBox.Form().SetFocused(nullptr);
  EXPECT_TRUE(Edit().SelectionFillRects().empty());
}

TEST_F(EditPlaces, PasswordDotsAreHalfTheFontApart) {
  Show(u"abc", TTextAlign::Leading);
  Model().SetPassword(true);
  const auto dots = Edit().PasswordDots();
  ASSERT_EQ(dots.size(), 3U);
  EXPECT_EQ(dots[0], (TRectF{0, 12.5F, 5, 17.5F}));
  EXPECT_EQ(dots[1].Left, 6);
  EXPECT_EQ(X(2), 12);
  EXPECT_EQ(Edit().View().GetCaretPosition(13), 2);
  Model().TextSettings().SetHorzAlign(TTextAlign::Trailing);
  EXPECT_EQ(Edit().PasswordDots()[0].Left, 182);
  Model().TextSettings().SetHorzAlign(TTextAlign::Center);
  EXPECT_EQ(Edit().PasswordDots()[0].Left, 91);
}

// --- Pointer ---

TEST_F(EditPlaces, APressPlacesTheCaretAndAShiftedOneSelectsUpToIt) {
  Show(u"abcdefgh");
  Press(21);
  Release(21);
  EXPECT_EQ(Seen(), u"ab|cdefgh");
  Press(51, Shift);
  EXPECT_EQ(Seen(), u"ab^cde|fgh");
  Release(51);
  Press(11, Shift);
  EXPECT_EQ(Seen(), u"a|b^cdefgh") << "the other end stays";
}

TEST_F(EditPlaces, ADragSelectsAndScrollsPastTheEdge) {
  Show(u"abcdefgh", TTextAlign::Leading, 50);
  Press(1);
  EXPECT_EQ(Edit().SelectionMode(), TSelectionMode::Selecting);
  Move(21);
  EXPECT_EQ(Seen(), u"^ab|cdefgh");
  Move(60);
  EXPECT_GT(Edit().View().FirstVisibleChar(), 1);
  Release(60);
  EXPECT_EQ(Edit().SelectionMode(), TSelectionMode::None);
}

TEST_F(EditPlaces, ADoublePressSelectsTheWord) {
  Show(u"abc def");
  FBox.Edit().MouseDown({fmx::TMouseButton::Left, {}, {51, 10}, true});
  EXPECT_EQ(Seen(), u"abc ^def|");
  EXPECT_EQ(Edit().SelectionMode(), TSelectionMode::None);
}

TEST_F(EditPlaces, ALongPressPlacesTheCaretUntilTheFingerGoes) {
  Show(u"abcdef");
  FBox.Edit().CMGesture({fmx::LongTapGesture, {31, 10}, {}});
  EXPECT_EQ(Edit().SelectionMode(), TSelectionMode::PlacingCaret);
  Move(31);
  EXPECT_EQ(Seen(), u"abc|def");
  Release(31);
  EXPECT_EQ(Edit().SelectionMode(), TSelectionMode::None);
  Press(1);
  FBox.Edit().CMGesture({fmx::LongTapGesture, {31, 10}, {}});
  EXPECT_EQ(Edit().SelectionMode(), TSelectionMode::Selecting) << "a drag goes on";
}

TEST_F(EditPlaces, AHandleDraggedPastTheOtherEndKeepsOneCharacter) {
  Show(u"abcdef");
  At(5);
  for (int i = 0; i < 3; ++i) Key(fmx::Keys::Left, Shift);
  EXPECT_EQ(Seen(), u"ab|cde^f");
  EXPECT_TRUE(Edit().AreHandlersCrossed()) << "by the rules in text from left to right";
  fmx::TSelectionPoint* const left = Edit().SelectionPoint(TSelectionPointType::Left);
  ASSERT_NE(left, nullptr);
  EXPECT_TRUE(left->Visible());
  EXPECT_EQ(left->Position().X, 20);
  fmx::TSelectionPoint* const right = Edit().SelectionPoint(TSelectionPointType::Right);
  right->MouseDown({});
  EXPECT_EQ(Edit().SelectionMode(), TSelectionMode::Selecting);
  right->MouseMove({fmx::TMouseButton::Left, {}, fmx::TPointF{95, 0} - right->Position()});
  EXPECT_EQ(Model().SelLength(), 1);
  EXPECT_EQ(Model().SelStart(), 4);
  right->MouseUp({});
  EXPECT_EQ(Edit().SelectionMode(), TSelectionMode::None);
}

// --- Focus ---

TEST_F(EditPlaces, EnteringSelectsAllWhereTheBoxCanBeWrittenIn) {
  Show(u"abc");
  FBox.Form().SetFocused(nullptr);
  FBox.Edit().SetFocus();
  EXPECT_EQ(Seen(), u"^abc|");
  EXPECT_TRUE(Model().Caret().TemporarilyHidden());
  FBox.Form().SetFocused(nullptr);
  EXPECT_FALSE(Model().Caret().TemporarilyHidden());
  EXPECT_FALSE(Model().Caret().Visible());
  Key(fmx::Keys::Home);
  Model().SetReadOnly(true);
  FBox.Edit().SetFocus();
  EXPECT_EQ(Seen(), u"|abc");
}

TEST_F(EditPlaces, LeavingTellsTheOwnerOfTheChange) {
  Show(u"abc");
  int changes = 0;
  Model().OnChange = [&] { ++changes; };
  FBox.Form().SetFocused(nullptr);
  EXPECT_EQ(changes, 1);
}

// --- Input methods ---

TEST_F(EditPlaces, ACompositionStandsInTheTextUntilItEnds) {
  Show(u"abc");
  At(1);
  Edit().StartIMEInput();
  Edit().GetTextService()->SetMarkedText(u"XY", 1);
  Edit().IMEStateUpdated();
  EXPECT_EQ(Model().Text(), u"aXYbc");
  EXPECT_EQ(Edit().GetOriginCaretPosition(), 1);
  EXPECT_EQ(Edit().GetCaretPosition(), 2);
  EXPECT_EQ(Model().Caret().Position().X, 20);
  EXPECT_EQ(Edit().GetTargetClausePointF(), (fmx::TPointF{20, 23}));
  Edit().GetTextService()->SetMarkedText(u"", 0);
  Edit().IMEStateUpdated();
  Edit().EndIMEInput();
  EXPECT_EQ(Model().Text(), u"abc");
}

TEST_F(EditPlaces, ThePasswordBoxHasNoInputMethod) {
  Model().SetImeMode(fmx::TImeMode::Open);
  EXPECT_EQ(Edit().GetTextService()->ImeMode(), fmx::TImeMode::Open);
  Model().SetPassword(true);
  EXPECT_EQ(Edit().GetTextService()->ImeMode(), fmx::TImeMode::Disable);
}

TEST_F(EditPlaces, TheAlignmentFollowsWhatIsTyped) {
  Edit().SetAutoDirection(true);
  Type(u"س");
  EXPECT_EQ(Edit().HorizontalAlignment(), TTextAlign::Trailing);
  Key(fmx::Keys::Backspace);
  Type(u"12a");
  EXPECT_EQ(Edit().HorizontalAlignment(), TTextAlign::Leading);
  FBox.Form().SetBiDiMode(fmx::TBiDiMode::RightToLeft);
  Show(u"");
  Type(u"12");
  EXPECT_EQ(Edit().HorizontalAlignment(), TTextAlign::Trailing) << "without a letter the form's direction stands";
}

}  // namespace
}  // namespace orv::testing
