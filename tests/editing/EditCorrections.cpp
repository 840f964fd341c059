// Where things stand in a box, each with and without the correction: scrolling, carets, directions and selections.
#include <random>

#include "editing/Orv.Edit.View.h"
#include "tests/editing/EditFixture.h"

namespace orv::testing {
namespace {

using fmx::TBiDiMode;
using fmx::TRectF;
using fmx::TTextAlign;

class EditCorrections : public EditTest {
 protected:
  static void Correct(TOrvCorrections corrections) { TOrvGlobalSettings::Corrections = corrections; }
  float X(std::int32_t index) { return Edit().View().GetCharX(index); }
  std::vector<float> CaretsUpTo(std::int32_t last) {
    std::vector<float> carets;
    for (std::int32_t i = 0; i <= last; ++i) carets.push_back(X(i));
    return carets;
  }
  // The units that are seen at least in part, from the left.
  std::u16string Seen() {
    auto letters = FBox.DrawnLetters();
    std::erase_if(letters, [](const auto& letter) { return !letter.IsSeen; });
    std::stable_sort(letters.begin(), letters.end(),
                     [](const auto& a, const auto& b) { return a.Box.Left < b.Box.Left; });
    std::u16string seen;
    for (const auto& letter : letters) seen += Edit().GetText()[static_cast<std::size_t>(letter.Unit)];
    return seen;
  }
  void Press(float x) { FBox.Edit().MouseDown({fmx::TMouseButton::Left, {}, {x, 15}}); }
  void Release(float x) { FBox.Edit().MouseUp({fmx::TMouseButton::Left, {}, {x, 15}}); }
};

// --- PixelScroll ---

TEST_F(EditCorrections, ALongTrailingTextIsCutByTheRulesAndScrolledByPixels) {
  Show(u"abcdefghij", TTextAlign::Trailing, 60);
  At(0);
  EXPECT_EQ(Seen(), u"efghij");
  Correct(AllCorrections);
  EXPECT_EQ(Seen(), u"abcdef");
  EXPECT_EQ(X(0), 0);
  EXPECT_EQ(Edit().View().GetCaretPosition(22), 2);
  Key(fmx::Keys::End);
  EXPECT_EQ(Seen(), u"efghij");
  EXPECT_EQ(X(10), 60);
}

TEST_F(EditCorrections, WhatIsTypedIsSeenInMixedText) {
  const auto typed = [&] {
    Show(u"", TTextAlign::Leading, 25);
    At(0);
    Type(u"a\u0633\u0633\u0645");
    return Seen();
  };
  EXPECT_EQ(typed(), u"\u0633\u0633") << "the third letter is drawn on the left of these";
  Correct(AllCorrections);
  EXPECT_EQ(typed(), u"a\u0645\u0633");
  Show(u"", TTextAlign::Leading, 30);
  Type(u"abc\u0633");
  EXPECT_EQ(Seen(), u"bc\u0633");
  EXPECT_EQ(X(4), 20) << "the caret stands at the left of the letter, which is seen all the same";
}

TEST_F(EditCorrections, ByPixelsTheTextStopsWhereNoRoomIsLeftBehindIt) {
  Correct({TOrvCorrection::PixelScroll});
  Show(u"abcdef", TTextAlign::Leading, 45);
  Key(fmx::Keys::End);
  EXPECT_EQ(X(6), 45);
  EXPECT_EQ(Edit().View().InvisibleTextWidth(), 15);
  EXPECT_EQ(Edit().View().FirstVisibleChar(), 2);
  Key(fmx::Keys::Backspace);
  EXPECT_EQ(X(5), 45) << "it moves to the right with its end";
  Model().SetText(u"ab");
  EXPECT_EQ(X(0), 0);
  EXPECT_EQ(Edit().View().FirstVisibleChar(), 1);
}

TEST_F(EditCorrections, APressMovesNoTextUnderThePointer) {
  Correct(AllCorrections);
  Show(u"abcdefgh", TTextAlign::Leading, 40);
  Key(fmx::Keys::End);
  EXPECT_EQ(X(4), 0);
  Press(1);
  EXPECT_EQ(Edit().GetCaretPosition(), 4);
  EXPECT_EQ(X(4), 0);
  Release(1);
  Key(fmx::Keys::Right);
  Key(fmx::Keys::Left);
  EXPECT_EQ(X(4), 10) << "a key shows what Backspace would take";
}

TEST_F(EditCorrections, APressBesideTheBoxMeansWhatIsNotSeenThere) {
  Correct(AllCorrections);
  Show(u"abcdefgh", TTextAlign::Leading, 40);
  Key(fmx::Keys::End);
  EXPECT_EQ(Edit().View().GetCaretPosition(-19), 2);
  EXPECT_EQ(Edit().View().GetCaretPosition(-1e9F), 0);
  EXPECT_EQ(Edit().View().GetCaretPosition(1e9F), 8);
  Show(u"\u0633\u0644\u0645", TTextAlign::Trailing, 100);
  EXPECT_EQ(Edit().View().GetCaretPosition(-1e9F), 3);
  EXPECT_EQ(Edit().View().GetCaretPosition(1e9F), 0);
}

TEST_F(EditCorrections, DotsScrollByPixels) {
  Show(u"abcdef", TTextAlign::Leading, 25);
  Model().SetPassword(true);
  Key(fmx::Keys::End);
  EXPECT_EQ(Edit().PasswordDots().front(), (TRectF{0, 12.5F, 5, 17.5F}));
  EXPECT_EQ(X(6), 24);
  Correct(AllCorrections);
  EXPECT_EQ(Edit().View().FirstVisibleChar(), 2);
  EXPECT_EQ(Edit().PasswordDots().front(), (TRectF{-5, 12.5F, 0, 17.5F})) << "some of its cell is seen";
  EXPECT_EQ(X(6), 25);
  EXPECT_EQ(Edit().View().GetCaretPosition(2), 2);
  Model().TextSettings().SetHorzAlign(TTextAlign::Trailing);
  EXPECT_EQ(X(6), 25);
  Model().SetText(u"ab");
  EXPECT_EQ(Edit().PasswordDots().front().Left, 13);
}

TEST_F(EditCorrections, TheInputMethodsWindowStandsAtTheCaret) {
  Show(u"\u0633\u0644\u0645", TTextAlign::Trailing, 100);
  At(1);
  EXPECT_EQ(Edit().GetTargetClausePointF().X, 10) << "as if the text began at the left";
  Correct({TOrvCorrection::PixelScroll});
  EXPECT_EQ(Edit().GetTargetClausePointF().X, 90);
}

TEST_F(EditCorrections, AnEmptyBoxKeepsItsCaret) {
  for (const TTextAlign align : {TTextAlign::Leading, TTextAlign::Center, TTextAlign::Trailing}) {
    Correct({});
    Show(u"", align, 100);
    const float place = X(0);
    Correct(AllCorrections);
    EXPECT_EQ(X(0), place);
  }
}

// --- CaretSide ---

TEST_F(EditCorrections, ACaretAtASeamStandsBehindTheCharacterBeforeIt) {
  Show(u"abc \u0633\u0644");
  EXPECT_EQ(CaretsUpTo(6), (std::vector<float>{0, 10, 20, 30, 30, 45, 45}));
  Correct({TOrvCorrection::CaretSide});
  EXPECT_EQ(CaretsUpTo(6), (std::vector<float>{0, 10, 20, 30, 35, 45, 35}));
  Correct({TOrvCorrection::PixelScroll});
  EXPECT_EQ(CaretsUpTo(6), (std::vector<float>{0, 10, 20, 30, 35, 45, 35})) << "by pixels in any case";
}

TEST_F(EditCorrections, ACaretWithinALigatureStandsAtItsTrailingEdge) {
  Correct(AllCorrections);
  Show(u"\u0633\u0644\u0627", TTextAlign::Trailing, 100);
  EXPECT_EQ(CaretsUpTo(3), (std::vector<float>{100, 90, 80, 80}));
}

// --- Direction and NeutralDirection ---

TEST_F(EditCorrections, ADirectionFollowsTheAlignmentAndNeverSticks) {
  Show(u"\u0633\u0644\u0645");
  Model().SetText(u"abc \u0633\u0644");
  EXPECT_EQ(X(2), 40) << "measured from right to left since the text before it was";
  Correct({TOrvCorrection::Direction});
  EXPECT_EQ(X(2), 20);
  Model().SetText(u"\u0633\u0644\u0645");
  Model().SetText(u"abc \u0633\u0644");
  EXPECT_EQ(X(2), 20);
}

TEST_F(EditCorrections, WhatIsMeasuredIsWhatIsDrawnInEveryDirection) {
  Correct({TOrvCorrection::Direction, TOrvCorrection::CaretSide});
  for (const TTextAlign align : {TTextAlign::Leading, TTextAlign::Center})
    for (const std::u16string_view text : {u"abc \u0633\u0644", u"\u0633\u0644 abc", u"12 \u0633 a"}) {
      Show(text, align);
      for (const auto& letter : FBox.DrawnLetters())  // glyphs stand on whole pixels
        EXPECT_NEAR(X(letter.Unit + 1), letter.RightToLeft ? letter.Box.Left : letter.Box.Right, 0.5F);
    }
}

TEST_F(EditCorrections, ASentenceOfTheOtherDirectionKeepsItsOrderInALeadingBox) {
  Correct(AllCorrections);
  Show(u"\u0633\u0644 abc");
  EXPECT_EQ(Seen(), u"abc \u0644\u0633");
  Show(u"abc \u0633\u0644");
  EXPECT_EQ(Seen(), u"abc \u0644\u0633");
}

TEST_F(EditCorrections, CentredTextReadsAsItsFirstLetterOrItsForm) {
  Correct(AllCorrections);
  const auto isRightToLeft = [&](std::u16string_view text, TBiDiMode form) {
    FBox.Form().SetBiDiMode(form);
    Show(u"");
    Show(text, TTextAlign::Center);
    return FBox.DrawnLine().RightToLeft;
  };
  EXPECT_TRUE(isRightToLeft(u"\u0633 a", TBiDiMode::LeftToRight));
  EXPECT_FALSE(isRightToLeft(u"a \u0633", TBiDiMode::RightToLeft));
  EXPECT_TRUE(isRightToLeft(u"12?", TBiDiMode::RightToLeft));
  EXPECT_FALSE(isRightToLeft(u"12?", TBiDiMode::LeftToRight));
}

TEST_F(EditCorrections, NeutralsReadAsTheirBoxDoes) {
  Show(u"(...");
  EXPECT_EQ(Seen(), u"...(") << "and mirrored";
  Correct({TOrvCorrection::NeutralDirection});
  EXPECT_EQ(Seen(), u"(...");
  Show(u"(...", TTextAlign::Trailing);
  EXPECT_EQ(Seen(), u"...(");
}

TEST_F(EditCorrections, DigitsInTheMiddleReadAsTheForm) {
  Show(u"12 (", TTextAlign::Center);
  EXPECT_EQ(Seen(), u"( 12");
  Correct({TOrvCorrection::NeutralDirection});
  EXPECT_EQ(Seen(), u"12 (");
}

// --- SelectionRegions ---

TEST_F(EditCorrections, ASelectionIsFilledWhereItsCharactersAreDrawn) {
  Show(u"ab \u0633\u0644\u0645");
  Model().SetSelStart(1);
  Model().SetSelLength(3);
  EXPECT_EQ(Edit().SelectionFillRects(), (fmx::TRegion{{10, 4, 45, 26}}));
  Correct({TOrvCorrection::SelectionRegions});
  EXPECT_EQ(Edit().SelectionFillRects(), (fmx::TRegion{{10, 4, 25, 26}, {45, 4, 55, 26}}));
  Correct(AllCorrections);
  EXPECT_EQ(Edit().SelectionFillRects(), (fmx::TRegion{{10, 4, 25, 26}, {45, 4, 55, 26}}));
}

TEST_F(EditCorrections, ByCharactersTheFillScrollsWithTheText) {
  Correct({TOrvCorrection::SelectionRegions});
  Show(u"abcdefgh", TTextAlign::Leading, 40);
  Key(fmx::Keys::End);
  Model().SetSelStart(5);
  Model().SetSelLength(2);
  EXPECT_EQ(Edit().View().FirstVisibleChar(), 5);
  EXPECT_EQ(Edit().SelectionFillRects(), (fmx::TRegion{{10, 4, 30, 26}}));
}

TEST_F(EditCorrections, PlainTextInAWideBoxShowsTheSameEitherWay) {
  for (const bool corrected : {false, true}) {
    Correct(corrected ? AllCorrections : TOrvCorrections{});
    Show(u"plain text");
    Key(fmx::Keys::End);
    Key(fmx::Keys::Left, Shift);
    EXPECT_EQ(CaretsUpTo(10), (std::vector<float>{0, 10, 20, 30, 40, 50, 55, 65, 75, 85, 95}));
    EXPECT_EQ(Edit().SelectionFillRects(), (fmx::TRegion{{85, 4, 95, 26}}));
    EXPECT_EQ(Edit().View().FirstVisibleChar(), 1);
    EXPECT_EQ(Edit().View().GetCaretPosition(37), 4);
  }
}

// --- Any of them ---

TEST_F(EditCorrections, AnyOfThemMayBeSwitchedAtAnyTime) {
  std::mt19937 random(7);
  const auto below = [&](std::uint32_t n) { return random() % n; };
  constexpr std::u16string_view alphabet = u"ab \u0633\u0644\u0627\u0661 1?.(\u064E\u200D\n";
  constexpr fmx::Keys::TCode keys[] = {fmx::Keys::Left, fmx::Keys::Right,  fmx::Keys::Home,
                                       fmx::Keys::End,  fmx::Keys::Delete, fmx::Keys::Backspace};
  for (int step = 0; step < 20000; ++step) {
    if (below(4) == 0) {
      TOrvCorrections corrections;
      for (auto c = 0U; c <= static_cast<unsigned>(TOrvCorrection::AutoDirectionAlways); ++c)
        if (below(2) == 0) corrections.Include(static_cast<TOrvCorrection>(c));
      Correct(corrections);
    }
    std::u16string text;
    for (auto left = below(5); left > 0; --left) text += alphabet[below(alphabet.size())];
    switch (below(9)) {
      case 0:
        Show(text, static_cast<TTextAlign>(below(3)), static_cast<float>(below(60)), static_cast<float>(below(40)));
        break;
      case 1:
        Press(static_cast<float>(below(80)) - 10);
        break;
      case 2:
        FBox.Edit().MouseMove({fmx::TMouseButton::Left, {}, {static_cast<float>(below(80)) - 10, 10}});
        Release(0);
        break;
      case 3:
        Model().SetPassword(below(3) == 0);
        FBox.Form().SetBiDiMode(static_cast<TBiDiMode>(below(2)));
        break;
      case 4:
        Edit().GetTextService()->SetMarkedText(text, static_cast<std::int32_t>(below(3)));
        Edit().IMEStateUpdated();
        break;
      case 5:
        FBox.DrawnLetters();
        break;
      case 6:
        Key(keys[below(6)], below(3) == 0 ? Shift : None);
        break;
      default:
        Type(text);
    }
    ASSERT_TRUE(std::isfinite(X(static_cast<std::int32_t>(below(8))))) << step;
    for (const TRectF& rect : Edit().SelectionFillRects()) ASSERT_TRUE(rect.IsFinite() && rect.Width() >= 0) << step;
    ASSERT_GE(Edit().View().FirstVisibleChar(), 1) << step;
    ASSERT_GE(Edit().GetOriginCaretPosition(), 0) << step;
    ASSERT_LE(Edit().GetOriginCaretPosition(), static_cast<std::int32_t>(Edit().GetText().size())) << step;
  }
}

}  // namespace
}  // namespace orv::testing
