// What a person may rely on in a box with every correction in force: the caret stands where the letter before it is
// drawn, clicks and selections mean the letters that are seen, and what is typed is seen.
//
// Where letters are drawn is read off the pictures that the canvas is handed, and held against carets, clicks and
// selections. Small texts are walked whole, long ones at random. ORV_EDIT_LENGTH asks for walks up to another length of
// text, ORV_EDIT_ROUNDS for another number of random scripts.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "rtl/Unicode.h"
#include "rtl/Utf8.h"
#include "tools/orv/eval/EditBox.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv::testing {
namespace {

using eval::TDrawnLetter;
using fmx::TBiDiMode;
using fmx::TRectF;
using fmx::TTextAlign;

constexpr float Near = 1e-3F;
constexpr TTextAlign Alignments[] = {TTextAlign::Leading, TTextAlign::Center, TTextAlign::Trailing};
constexpr TBiDiMode Directions[] = {TBiDiMode::LeftToRight, TBiDiMode::RightToLeft};

#ifdef ORV_ASSERTIONS
constexpr int UsualLength = 3;
constexpr int UsualRounds = 1500;
#else
constexpr int UsualLength = 4;
constexpr int UsualRounds = 10000;
#endif

int Wanted(const char* name, int usual) {
  const char* wanted = std::getenv(name);
  return wanted != nullptr ? std::atoi(wanted) : usual;
}

struct TSpan {
  float Left;
  float Right;
};

// The same places without overlaps and seams, from the left.
std::vector<TSpan> Joined(std::vector<TSpan> spans) {
  std::sort(spans.begin(), spans.end(), [](const TSpan& a, const TSpan& b) { return a.Left < b.Left; });
  std::vector<TSpan> joined;
  for (const TSpan& span : spans) {
    if (span.Right - span.Left < Near) continue;
    if (!joined.empty() && span.Left <= joined.back().Right + Near)
      joined.back().Right = std::max(joined.back().Right, span.Right);
    else
      joined.push_back(span);
  }
  return joined;
}

bool IsSame(const std::vector<TSpan>& a, const std::vector<TSpan>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const TSpan& x, const TSpan& y) {
    return std::fabs(x.Left - y.Left) < Near && std::fabs(x.Right - y.Right) < Near;
  });
}

class EditLaws : public ::testing::Test {
 protected:
  EditLaws() : FCorrections(TOrvGlobalSettings::Corrections) { TOrvGlobalSettings::Corrections = AllCorrections; }
  ~EditLaws() override { TOrvGlobalSettings::Corrections = FCorrections; }

  fmx::TCustomEditModel& Model() { return FBox.Edit().Model(); }
  TOrvStyledEdit& Edit() { return FBox.Presentation(); }
  TOrvEditView& View() { return Edit().View(); }
  std::int32_t Length() { return static_cast<std::int32_t>(Edit().GetText().size()); }
  std::int32_t Caret() { return Edit().GetCaretPosition(); }

  void Show(TTextAlign align, TBiDiMode direction, float width) {
    FBox.Form().SetBiDiMode(direction);
    FBox.Edit().SetSize({width, 30});
    Model().TextSettings().SetHorzAlign(align);
  }
  void Clear() {
    Model().SetSelLength(0);
    Model().SetText(u"");
    Model().SetCaretPosition(0);
    Model().SetSelStart(0);
  }

  std::string Told() {
    std::string text = "\"" + rtl::ToUtf8(Edit().GetText()) + "\" caret " + std::to_string(Caret()) + " width " +
                       std::to_string(FBox.Edit().Width()) + " align " +
                       std::to_string(static_cast<int>(Edit().HorizontalAlignment())) + " form " +
                       std::to_string(static_cast<int>(FBox.Form().GetBiDiMode())) +
                       (Model().Password() ? " dots" : "") + "\n  drawn";
    for (const TDrawnLetter& letter : FLetters)
      text += " " + std::to_string(letter.Unit) + ":" + std::to_string(static_cast<int>(letter.Box.Left)) + ".." +
              std::to_string(static_cast<int>(letter.Box.Right)) + (letter.RightToLeft ? "<" : ">");
    return text;
  }

  void Look() { FLetters = FBox.DrawnLetters(); }

  // The last letter before the position; null for none.
  const TDrawnLetter* LetterBefore(std::int32_t position) const {
    const TDrawnLetter* found = nullptr;
    for (const TDrawnLetter& letter : FLetters)
      if (letter.Unit < position) found = &letter;
    return found;
  }

  static float TrailingEdge(const TDrawnLetter& letter) {
    return letter.RightToLeft ? letter.Box.Left : letter.Box.Right;
  }
  static float LeadingEdge(const TDrawnLetter& letter) {
    return letter.RightToLeft ? letter.Box.Right : letter.Box.Left;
  }

  // Within a ligature no letter has a box of its own: there the caret stands at the ligature's trailing edge.
  void ExpectCaretsAtTheirLetters() {
    for (std::int32_t position = 0; position <= Length() && !FLetters.empty(); ++position) {
      const TDrawnLetter* before = LetterBefore(position);
      const float expected = before != nullptr ? TrailingEdge(*before) : LeadingEdge(FLetters.front());
      ASSERT_NEAR(View().GetCharX(position), expected, Near) << "position " << position << " of " << Told();
    }
  }

  void ExpectTheCaretInside() {
    const float x = Model().Caret().Position().X;
    ASSERT_GE(x, 0) << Told();
    ASSERT_LE(x, FBox.Edit().Width()) << Told();
    if (!FLetters.empty()) {
      ASSERT_NEAR(x, View().GetCharX(Caret()), Near) << Told();
    }
  }

  // Marks go with the letter before them, and a pair is one character.
  void ExpectClicksAtTheEnds() {
    const std::u16string text = Edit().GetText();
    for (const TDrawnLetter& letter : FLetters) {
      if (letter.Box.Width() < 1) continue;
      const std::int32_t position = View().GetCaretPosition((letter.Box.Left + letter.Box.Right) / 2);
      std::int32_t end = letter.Unit + (rtl::IsHighSurrogate(rtl::UnitAt(text, letter.Unit)) ? 2 : 1);
      const bool isSecondLetter = &letter != FLetters.data() && (&letter - 1)->Box == letter.Box;
      while (rtl::IsMark(rtl::UnitAt(text, end))) ++end;
      ASSERT_TRUE(position == letter.Unit || position == end || (isSecondLetter && position == letter.Unit - 1))
          << "unit " << letter.Unit << " answers " << position << " in " << Told();
    }
  }

  void ExpectNoFreeRoom() {
    float left = 0;
    float right = 0;
    for (const TDrawnLetter& letter : FLetters) {
      left = &letter == FLetters.data() ? letter.Box.Left : std::min(left, letter.Box.Left);
      right = &letter == FLetters.data() ? letter.Box.Right : std::max(right, letter.Box.Right);
    }
    const float room = FBox.Edit().Width();
    if (right - left > room) {
      ASSERT_LE(left, Near) << Told();
      ASSERT_GE(right, room - Near) << Told();
    } else if (!FLetters.empty() && !Model().Password()) {
      ASSERT_GE(left, -Near) << Told();
      ASSERT_LE(right, room + Near) << Told();
    }
  }

  // Also the rectangles do not overlap, so that nothing is filled twice.
  void ExpectSelectionOf(std::int32_t start, std::int32_t end) {
    Model().SetSelStart(start);
    Model().SetSelLength(end - start);
    Look();
    std::vector<TSpan> letters;
    for (const TDrawnLetter& letter : FLetters)
      if (letter.Unit >= start && letter.Unit < end) letters.push_back({letter.Box.Left, letter.Box.Right});
    const std::u16string text = Edit().GetText();
    const bool hasMarks = std::any_of(text.begin(), text.end(), [](char16_t c) { return rtl::IsMark(c); });
    std::vector<TSpan> filled;
    float sum = 0;
    for (const TRectF& rect : Edit().SelectionFillRects()) {
      filled.push_back({rect.Left, rect.Right});
      sum += rect.Width();
      for (const TDrawnLetter& letter : FLetters) {
        if (hasMarks) continue;  // they stand above and below
        ASSERT_LE(rect.Top, letter.Box.Top);
        ASSERT_GE(rect.Bottom, letter.Box.Bottom);
      }
    }
    const std::vector<TSpan> joined = Joined(filled);
    ASSERT_TRUE(IsSame(joined, Joined(letters))) << start << " to " << end << " of " << Told();
    for (const TSpan& span : joined) sum -= span.Right - span.Left;
    ASSERT_NEAR(sum, 0, Near) << start << " to " << end << " of " << Told();
  }

  void ExpectSelections() {
    for (std::int32_t start = 0; start < Length(); ++start)
      for (std::int32_t end = start + 1; end <= Length(); ++end) ASSERT_NO_FATAL_FAILURE(ExpectSelectionOf(start, end));
    Model().SetSelLength(0);
  }

  void ExpectWhatWasTypedSeen() {
    const TDrawnLetter* typed = LetterBefore(Caret());
    ASSERT_NE(typed, nullptr) << Told();
    ASSERT_EQ(typed->Unit, Caret() - 1) << Told();
    ASSERT_TRUE(typed->IsSeen || typed->Box.Width() < 1) << Told();
    if (typed->Box.Width() > FBox.Edit().Width()) return;
    ASSERT_GE(typed->Box.Left, -Near) << Told();
    ASSERT_LE(typed->Box.Right, FBox.Edit().Width() + Near) << Told();
  }

  void ExpectPlaces() {
    Look();
    ASSERT_NO_FATAL_FAILURE(ExpectCaretsAtTheirLetters());
    ASSERT_NO_FATAL_FAILURE(ExpectTheCaretInside());
    ASSERT_NO_FATAL_FAILURE(ExpectClicksAtTheEnds());
    ASSERT_NO_FATAL_FAILURE(ExpectNoFreeRoom());
  }

  // Typed key by key, then walked through from its end.
  void WalkText(std::u16string_view text) {
    Clear();
    for (std::size_t i = 0; i < text.size(); ++i) {
      FBox.Type(text.substr(i, 1));
      if (i + 1 < text.size()) continue;  // shorter texts have their own walk
      Look();
      ASSERT_NO_FATAL_FAILURE(ExpectWhatWasTypedSeen());
    }
    for (std::int32_t position = Length(); position >= 0; --position) {
      Model().SetCaretPosition(position);
      ASSERT_NO_FATAL_FAILURE(ExpectPlaces());
    }
    ASSERT_NO_FATAL_FAILURE(ExpectSelections());
  }

  eval::TEditBox FBox{false};
  std::vector<TDrawnLetter> FLetters;

 private:
  TOrvCorrections FCorrections;
};

// All texts up to the length.
std::vector<std::u16string> TextsOf(std::u16string_view alphabet, int length) {
  std::vector<std::u16string> texts = {u""};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i].size() == static_cast<std::size_t>(length)) break;
    for (const char16_t c : alphabet) texts.push_back(texts[i] + c);
  }
  return texts;
}

TEST_F(EditLaws, HoldForEverySmallText) {
  const auto texts = TextsOf(u"ab\u0633\u0644\u0627 1?.(", Wanted("ORV_EDIT_LENGTH", UsualLength));
  for (const TTextAlign align : Alignments)
    for (const TBiDiMode direction : Directions)
      for (const float width : {12.0F, 25.0F, 200.0F}) {
        Show(align, direction, width);
        for (const std::u16string& text : texts) ASSERT_NO_FATAL_FAILURE(WalkText(text));
      }
}

TEST_F(EditLaws, HoldForDots) {
  Model().SetPassword(true);
  for (const TTextAlign align : Alignments)
    for (const float width : {5.0F, 12.0F, 14.0F, 60.0F}) {
      Show(align, TBiDiMode::LeftToRight, width);
      Clear();
      for (int i = 0; i < 7; ++i) {
        FBox.Type(u"\u0633");
        Look();
        ASSERT_NO_FATAL_FAILURE(ExpectWhatWasTypedSeen());
      }
      for (std::int32_t position = Length(); position >= 0; --position) {
        Model().SetCaretPosition(position);
        Look();
        ASSERT_NO_FATAL_FAILURE(ExpectTheCaretInside());
        ASSERT_NO_FATAL_FAILURE(ExpectClicksAtTheEnds());
        for (const TDrawnLetter& dot : FLetters)
          ASSERT_NEAR(View().GetCharX(dot.Unit + 1), dot.Box.Right, Near) << Told();
        // Dots before the first one that is seen are not drawn.
        const float room = FBox.Edit().Width();
        const float all = static_cast<float>(Length()) * 6;
        ASSERT_FALSE(FLetters.empty());
        if (all > room) {
          ASSERT_LE(FLetters.front().Box.Left, Near) << Told();
          ASSERT_GE(FLetters.back().Box.Right, room - Near) << Told();
        }
      }
    }
}

// --- Random scripts ---

class TScripts {
 public:
  explicit TScripts(std::uint32_t seed) : FRandom(seed) {}
  std::int32_t Below(std::int32_t n) { return static_cast<std::int32_t>(FRandom() % static_cast<std::uint32_t>(n)); }

  std::u16string Text(std::int32_t pieces) {
    static const std::u16string all[] = {u"a",
                                         u"bc",
                                         u"word ",
                                         u"\u0633",
                                         u"\u0644\u0627",
                                         u"\u0633\u0644\u0627\u0645 ",
                                         u" ",
                                         u"1",
                                         u"12.5",
                                         u"?",
                                         u".",
                                         u"(",
                                         u")",
                                         u"[x]",
                                         u"\u06F1\u06F2",
                                         u"-",
                                         u"\u05E9\u05DC\u05D5\u05DD",
                                         u"\u05D0\u05B7",
                                         u"\u0628\u064E\u062A\u0651",
                                         u"\u0644\u064E\u0627",
                                         u"\u0628\u0652",
                                         u"\U0001F600",
                                         u"\u200C",
                                         u"\u200D",
                                         u"%",
                                         u"\u00AB",
                                         u"\u00BB",
                                         u"\u0640",
                                         u"\u0647\u200D",
                                         u",",
                                         u"\t"};
    std::u16string text;
    for (std::int32_t left = Below(pieces) + 1; left > 0; --left)
      text += all[static_cast<std::size_t>(Below(static_cast<std::int32_t>(std::size(all))))];
    return text;
  }

 private:
  std::mt19937 FRandom;
};

class EditScripts : public EditLaws {
 protected:
  void Type(const std::u16string& text) {
    for (const char16_t c : text) {
      FBox.Type({&c, 1});
      if (rtl::IsHighSurrogate(c) || c < 32 || Model().Password()) continue;
      Look();
      const TDrawnLetter* typed = LetterBefore(Caret());
      const bool isDrawn = typed != nullptr && typed->Unit == Caret() - (rtl::IsLowSurrogate(c) ? 2 : 1);
      if (!isDrawn) continue;
      ASSERT_TRUE(typed->IsSeen || typed->Box.Width() < 1) << Told();
    }
  }

  void Step(TScripts& script) {
    const fmx::TPointF at{static_cast<float>(script.Below(200)) - 30, 15};
    switch (script.Below(12)) {
      case 0:
      case 1:
      case 2:
        return Type(script.Text(4));
      case 3:
      case 4: {
        constexpr fmx::Keys::TCode keys[] = {fmx::Keys::Left, fmx::Keys::Right,     fmx::Keys::Home,
                                             fmx::Keys::End,  fmx::Keys::Backspace, fmx::Keys::Delete};
        const auto shift = static_cast<std::uint8_t>(script.Below(3) == 0 ? 1 : 0);
        for (std::int32_t times = script.Below(4) + 1; times > 0; --times)
          FBox.Key({keys[script.Below(6)], 0, fmx::TShiftState::FromBits(shift)});
        return;
      }
      case 5:
        return FBox.Edit().MouseDown({fmx::TMouseButton::Left, {}, at});
      case 6:
        FBox.Edit().MouseMove({fmx::TMouseButton::Left, {}, at});
        return FBox.Edit().MouseUp({fmx::TMouseButton::Left, {}, at});
      case 7:
        return Model().SetText(script.Text(8));
      case 8:
        Model().TextSettings().SetHorzAlign(static_cast<TTextAlign>(script.Below(3)));
        return FBox.Form().SetBiDiMode(static_cast<TBiDiMode>(script.Below(2)));
      case 9:
        return FBox.Edit().SetSize({static_cast<float>(script.Below(120) + 1), 30});
      case 10:
        if (script.Below(4) == 0) Model().SetPassword(!Model().Password());
        return FBox.Paint();
      default: {
        Edit().StartIMEInput();
        const std::u16string marked = script.Text(2);
        Edit().GetTextService()->SetMarkedText(marked, script.Below(static_cast<std::int32_t>(marked.size()) + 1));
        Edit().IMEStateUpdated();
        Look();
        if (!Model().Password()) {
          ASSERT_NO_FATAL_FAILURE(ExpectCaretsAtTheirLetters());
        }
        Edit().GetTextService()->SetMarkedText(u"", 0);
        Edit().IMEStateUpdated();
        Edit().EndIMEInput();
      }
    }
  }
};

TEST_F(EditScripts, KeepTheLaws) {
  const int rounds = Wanted("ORV_EDIT_ROUNDS", UsualRounds);
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE("script " + std::to_string(round));
    TScripts script(static_cast<std::uint32_t>(round));
    Model().SetPassword(false);
    Show(static_cast<TTextAlign>(script.Below(3)), static_cast<TBiDiMode>(script.Below(2)),
         static_cast<float>(script.Below(100) + 10));
    Clear();
    for (int step = 0; step < 8; ++step) {
      ASSERT_NO_FATAL_FAILURE(Step(script));
      if (Model().Password()) continue;
      ASSERT_NO_FATAL_FAILURE(ExpectPlaces());
    }
    if (Model().Password()) continue;
    const std::u16string text = Edit().GetText();
    const auto place = [&](std::int32_t at) { return at + (rtl::IsLowSurrogate(rtl::UnitAt(text, at)) ? 1 : 0); };
    const std::int32_t start = place(script.Below(Length() + 1));
    const std::int32_t end = place(start + script.Below(Length() - start + 1));
    if (start < end) {
      ASSERT_NO_FATAL_FAILURE(ExpectSelectionOf(start, end));
    }
  }
}

}  // namespace
}  // namespace orv::testing
