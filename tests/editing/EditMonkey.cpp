// Random keys, texts, presses, drags, handles, pastes, sizes, settings and compositions.
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "tests/editing/EditFixture.h"
#include "tests/editing/PlainBox.h"

namespace orv::testing {
namespace {

using fmx::Keys;
using fmx::TShiftItem;
using fmx::TShiftState;
using fmx::TTextAlign;

constexpr int Steps = 100000;

class TMonkey {
 public:
  TMonkey(TBoxInUse& box, std::uint32_t seed) : FBox(box), FRandom(seed) {}

  // One step, in both boxes. Answers what it was.
  std::string Step();
  TPlainBox& Plain() { return FPlain; }
  std::uint32_t Below(std::size_t n) { return static_cast<std::uint32_t>(FRandom() % n); }

 private:
  bool OneIn(std::uint32_t n) { return Below(n) == 0; }
  std::u16string Text(std::uint32_t longest);
  std::int32_t Number();
  float X() { return static_cast<float>(Below(500)) / 2 - 25; }
  TShiftState SomeShift();
  TOrvStyledEdit& Edit() { return FBox.Edit(); }

  std::string Key();
  std::string Type();
  std::string Press();
  std::string Drag();
  std::string Handle();
  std::string Command();
  std::string Assign();
  std::string SetLook();
  std::string SetBehaviour();
  std::string Compose();

  TBoxInUse& FBox;
  TPlainBox FPlain;
  std::mt19937 FRandom;
};

std::u16string TMonkey::Text(std::uint32_t longest) {
  // Cased letters are ASCII ones, so that anyone can map them.
  static const std::u16string alphabet[] = {u"a",          u"b",
                                            u"c",          u"A",
                                            u"B",          u" ",
                                            u" ",          u"س",
                                            u"ل",          u"ا",
                                            u"م",          u"ב",
                                            u"1",          u"9",
                                            u"٢",          u"۳",
                                            u"?",          u".",
                                            u",",          u"(",
                                            u"+",          u"-",
                                            u"\u064E",     u"\u0301",
                                            u"\u200C",     u"\u200D",
                                            u"\U0001F600", u"\U0001F600",
                                            u"\xD83D",     u"\xDE00",
                                            u"\r\n",       u"\n",
                                            u"\u2028",     u"\u0085",

                                            u"\u0001",     std::u16string(1, u'\0')};
  constexpr std::size_t ordinary = 28;
  const bool isOdd = OneIn(3);
  // By the rules a tab that a narrow box cuts off is an error of the layout.
  const bool hasTabs = TOrvGlobalSettings::Corrections == AllCorrections;
  std::u16string made;
  for (auto left = Below(longest + 1); left > 0; --left) {
    const std::u16string& next = alphabet[Below(isOdd ? std::size(alphabet) : ordinary)];
    made += hasTabs && OneIn(40) ? u"\t" : next;
  }
  return made;
}

std::int32_t TMonkey::Number() {
  if (OneIn(20)) return OneIn(2) ? std::numeric_limits<std::int32_t>::max() : std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(Below(16)) - 3;
}

TShiftState TMonkey::SomeShift() {
  static constexpr TShiftState states[] = {{}, {}, {TShiftItem::Shift}, {TShiftItem::Shift}, {TShiftItem::Ctrl}};
  return OneIn(3) ? TShiftState::FromBits(static_cast<std::uint8_t>(Below(16))) : states[Below(std::size(states))];
}

std::string TMonkey::Key() {
  constexpr Keys::TCode keys[] = {
      Keys::Left,   Keys::Right,  Keys::Left, Keys::Right,  Keys::Home,  Keys::End,  Keys::Up,    Keys::Backspace,
      Keys::Delete, Keys::Insert, 'A',        'C',          'V',         'X',        'Z',         'Q',
      Keys::Tab,    Keys::Return, Keys::Down, Keys::Escape, Keys::Shift, Keys::None, Keys::PageUp};
  const Keys::TCode key = keys[Below(std::size(keys))];
  const TShiftState shift = SomeShift();
  Keys::TCode acts = key;
  if (Edit().IsRightToLeft() && !FPlain.Password) {
    if (key == Keys::Left) acts = Keys::Right;
    if (key == Keys::Right) acts = Keys::Left;
  }
  FPlain.Key(acts, shift);
  FBox.Key(key, shift);
  return "key " + std::to_string(key) + " shift " + std::to_string(shift.Bits());
}

std::string TMonkey::Type() {
  const TShiftState shift = OneIn(4) ? SomeShift() : TShiftState{};
  for (const char16_t c : Text(4)) {
    FPlain.Type(c, shift);
    FBox.FBox.Key({Keys::None, c, shift});
  }
  return "type";
}

std::string TMonkey::Press() {
  FPlain.Enter();
  FBox.FBox.Edit().SetFocus();
  const float x = X();
  const TShiftState shift = SomeShift();
  const bool isDouble = OneIn(4);
  FPlain.Press(Edit().HitPosition(x), shift.Contains(TShiftItem::Shift), isDouble);
  FBox.Press(x, shift, isDouble);
  return "press at " + std::to_string(x) + (isDouble ? " twice" : "");
}

std::string TMonkey::Drag() {
  const float x = X();
  switch (Below(4)) {
    case 0:
      FPlain.Mode = TPlainBox::TMode::None;
      FBox.Release(x);
      return "release";
    case 1:
      FPlain.LongTap();
      FBox.LongTap(x);
      return "long tap";
    default:
      break;
  }
  // What is under the pointer moves as a composition goes.
  if (!FPlain.Marked.empty()) return "";
  const std::int32_t hit = Edit().HitPosition(x);
  FPlain.Drag(x > Edit().ContentRect().Right ? FPlain.Behind(hit) : hit);
  FBox.Move(x);
  return "move to " + std::to_string(x);
}

std::string TMonkey::Handle() {
  if (!FPlain.Marked.empty()) return "";
  const bool isLeft = OneIn(2);
  fmx::TSelectionPoint& point = *Edit().SelectionPoint(isLeft ? TSelectionPointType::Left : TSelectionPointType::Right);
  if (OneIn(2)) {
    FPlain.Waiting = 0;
    FPlain.Mode = TPlainBox::TMode::Selecting;
    point.MouseDown({});
  }
  float x = X();
  float y = 5;
  FPlain.DragHandle(isLeft, Edit().HitPosition(x));
  point.OnChangePosition(point, x, y);
  if (OneIn(2)) {
    FPlain.Mode = TPlainBox::TMode::None;
    point.MouseUp({});
  }
  return isLeft ? "left handle" : "right handle";
}

std::string TMonkey::Command() {
  FPlain.Waiting = 0;
  switch (Below(7)) {
    case 0:
      FPlain.Cut();
      Edit().DoCut();
      return "cut";
    case 1:
      FPlain.Copy();
      Edit().DoCopy();
      return "copy";
    case 2:
      FPlain.Paste();
      Edit().DoPaste();
      return "paste";
    case 3:
      FPlain.Delete();
      Edit().DoDelete();
      return "delete";
    case 4:
      FPlain.SelectAll();
      Edit().DoSelectAll();
      return "select all";
    case 5:
      FPlain.SelectWord();
      FBox.FBox.Edit().CMGesture({fmx::DoubleTapGesture, {X(), 5}, {}});
      return "select word";
    default:
      const std::u16string word = Text(4);
      FPlain.Spell(word);
      Edit().Spell(word);
      return "spell";
  }
}

std::string TMonkey::Assign() {
  const std::int32_t number = Number();
  switch (Below(5)) {
    case 0:
      FPlain.SetCaret(number);
      FBox.Model().SetCaretPosition(number);
      return "caret " + std::to_string(number);
    case 1:
      FPlain.SetSelStart(number);
      FBox.Model().SetSelStart(number);
      return "start " + std::to_string(number);
    case 2:
      FPlain.SetSelLength(number);
      FBox.Model().SetSelLength(number);
      return "length " + std::to_string(number);
    case 3:
      FPlain.Clipboard = Text(6);
      FBox.FBox.Clipboard().SetText(FPlain.Clipboard);
      return "clipboard";
    default:
      const std::u16string text = Text(OneIn(10) ? 200 : 12);
      FPlain.SetText(text);
      FBox.Model().SetText(text);
      return "text";
  }
}

std::string TMonkey::SetLook() {
  FPlain.Waiting = 0;  // every one of these is followed by a size, which is another one
  switch (Below(6)) {
    case 0:
      FBox.Model().TextSettings().SetHorzAlign(static_cast<TTextAlign>(Below(3)));
      break;
    case 1:
      FBox.Model().TextSettings().Font().SetSize(static_cast<float>(8 + Below(10)));
      break;
    case 2:
      Edit().SetAutoDirection(OneIn(2));
      break;
    case 3:
      FBox.FBox.Form().SetBiDiMode(OneIn(2) ? fmx::TBiDiMode::LeftToRight : fmx::TBiDiMode::RightToLeft);
      break;
    case 4:
      FBox.FBox.Paint();
      break;
    default:
      break;
  }
  const fmx::TSizeF size = FBox.FBox.Edit().Size();
  const float width = static_cast<float>(Below(OneIn(2) ? 150 : 400));
  FBox.FBox.Edit().SetSize({width == size.Width ? width + 1 : width, static_cast<float>(Below(60))});
  return "looks";
}

std::string TMonkey::SetBehaviour() {
  static const std::u16string filters[] = {u"", u"", u"ab19 ", u"aAس\U0001F600", u"\U0001F601"};
  fmx::TCustomEditModel& model = FBox.Model();
  const bool on = OneIn(4);
  const auto set = [&]<typename T>(T& plain, T value) {
    if (plain == value) return;
    plain = value;
    FPlain.Waiting = 0;
  };
  switch (Below(6)) {
    case 0:
      set(FPlain.Filter, filters[Below(std::size(filters))]);
      model.SetFilterChar(FPlain.Filter);
      return "filter";
    case 1:
      set(FPlain.CharCase, static_cast<fmx::TCharCase>(Below(3)));
      model.SetCharCase(FPlain.CharCase);
      return "case";
    case 2:
      set(FPlain.MaxLength, static_cast<std::int32_t>(OneIn(3) ? Below(12) : 0));
      model.SetMaxLength(FPlain.MaxLength);
      return "limit";
    case 3:
      if (on != FPlain.ReadOnly) FPlain.LeaveComposition();
      set(FPlain.ReadOnly, on);
      model.SetReadOnly(on);
      return "read-only";
    case 4:
      if (on != FPlain.Password) FPlain.LeaveComposition();
      set(FPlain.Password, on);
      model.SetPassword(on);
      return "password";
    default:
      FPlain.InputSupport = !on;
      model.SetInputSupport(!on);
      return "input support";
  }
}

std::string TMonkey::Compose() {
  switch (Below(4)) {
    case 0:
      FPlain.StartComposition();
      Edit().StartIMEInput();
      return "start of a composition";
    case 1: {
      const std::u16string committed = Text(3);
      FPlain.Compose(u"");
      FBox.Compose(u"", 0);
      Edit().EndIMEInput();
      for (const char16_t c : committed) {
        FPlain.Type(c, {});
        FBox.FBox.Key({Keys::None, c, {}});
      }
      return "end of a composition";
    }
    default:
      const std::u16string marked = Text(4);
      FPlain.Compose(marked);
      FBox.Compose(marked, Number());
      return "composition";
  }
}

std::string TMonkey::Step() {
  switch (Below(20)) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
      return Key();
    case 5:
    case 6:
    case 7:
      return Type();
    case 8:
      return Press();
    case 9:
    case 10:
      return Drag();
    case 11:
      return Handle();
    case 12:
    case 13:
      return Command();
    case 14:
    case 15:
      return Assign();
    case 16:
      return SetLook();
    case 17:
      return SetBehaviour();
    case 18:
      if (OneIn(2)) {
        FPlain.Enter();
        FBox.FBox.Edit().SetFocus();
        return "enter";
      }
      FPlain.Leave();
      FBox.FBox.Form().SetFocused(nullptr);
      return "leave";
    default:
      return Compose();
  }
}

// What holds in any case.
void ExpectSafe(TBoxInUse& box) {
  const auto length = static_cast<std::int32_t>(box.Edit().GetText().size());
  ASSERT_GE(box.Edit().GetOriginCaretPosition(), 0);
  ASSERT_LE(box.Edit().GetOriginCaretPosition(), length);
  ASSERT_GE(box.Edit().View().FirstVisibleChar(), 1);
  ASSERT_TRUE(box.Edit().GetSelRect().IsFinite());
  ASSERT_GE(box.FBox.Edit().GetSelStart(), 0);
  ASSERT_LE(box.FBox.Edit().GetSelStart() + box.FBox.Edit().GetSelLength(),
            static_cast<std::int32_t>(box.Model().Text().size()));
}

TEST(EditMonkey, ACorrectedBoxIsAPlainOne) {
  TBoxInUse box(AllCorrections);
  TMonkey monkey(box, 20240320);
  const TPlainBox& plain = monkey.Plain();
  int selected = 0;
  int composing = 0;
  int scrolled = 0;
  for (int step = 0; step < Steps; ++step) {
    const std::u16string before = box.Seen();
    const std::string name = monkey.Step();
    SCOPED_TRACE("step " + std::to_string(step) + ": " + name + ", at " + ::testing::PrintToString(before));
    ASSERT_NO_FATAL_FAILURE(ExpectSafe(box));
    ASSERT_EQ(box.Model().Text(), plain.Shown());
    ASSERT_EQ(box.Edit().GetTextService()->Text(), plain.Text);
    ASSERT_EQ(box.Edit().GetOriginCaretPosition(), plain.Caret);
    ASSERT_EQ(box.Model().SelStart(), plain.Caret);
    ASSERT_EQ(box.Model().SelEnd(), plain.Anchor);
    ASSERT_EQ(plain.Held(plain.Caret), plain.Caret) << "inside of a character";
    ASSERT_EQ(plain.Held(plain.Anchor), plain.Anchor) << "inside of a character";
    ASSERT_EQ(box.FBox.Clipboard().GetText(), plain.Clipboard);
    selected += plain.Caret != plain.Anchor ? 1 : 0;
    composing += plain.Marked.empty() ? 0 : 1;
    scrolled += box.Edit().View().FirstVisibleChar() > 1 ? 1 : 0;
  }
  EXPECT_GT(selected, Steps / 10);
  EXPECT_GT(composing, Steps / 50);
  EXPECT_GT(scrolled, Steps / 20);
}

TEST(EditMonkey, ABoxByTheRulesIsSafe) {
  TBoxInUse box;
  TMonkey monkey(box, 7);
  for (int step = 0; step < Steps; ++step) {
    const std::string name = monkey.Step();
    SCOPED_TRACE("step " + std::to_string(step) + ": " + name);
    ASSERT_NO_FATAL_FAILURE(ExpectSafe(box));
  }
}

TEST(EditMonkey, AnySubsetOfTheCorrectionsIsSafe) {
  TBoxInUse box;
  TMonkey monkey(box, 11);
  for (int step = 0; step < Steps; ++step) {
    if (step % 50 == 0) {
      box.Model().SetText(u"");
      const std::uint64_t bits = (std::uint64_t{monkey.Below(1U << 31)} << 20) ^ monkey.Below(1U << 31);
      TOrvGlobalSettings::Corrections = TOrvCorrections::FromBits(bits) * AllCorrections;
    }
    const std::string name = monkey.Step();
    SCOPED_TRACE("step " + std::to_string(step) + ": " + name);
    ASSERT_NO_FATAL_FAILURE(ExpectSafe(box));
  }
}

}  // namespace
}  // namespace orv::testing
