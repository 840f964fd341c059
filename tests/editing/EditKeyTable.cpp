// Every key with every set of modifiers, in both directions, and every event in every mode of the pointer, by the
// rules. Texts show the caret as "|" and the other end of a selection as "^".
#include <map>
#include <span>
#include <string>

#include "tests/editing/EditFixture.h"

namespace orv::testing {
namespace {

using fmx::Keys;
using fmx::TShiftItem;
using fmx::TShiftState;
using fmx::TTextAlign;

class EditPlacesOfSigns : public EditTest {};

// What keys tell modifiers apart by.
enum class TColumn : std::uint8_t { Plain, ShiftAlone, ShiftAndAlt, Ctrl, CtrlAndAlt, CtrlAndShift, Direction };

TColumn ColumnOf(TShiftState shift) {
  const bool isShift = shift.Contains(TShiftItem::Shift);
  const bool isAlt = shift.Contains(TShiftItem::Alt);
  const bool isCtrl = shift.Contains(TShiftItem::Ctrl) || shift.Contains(TShiftItem::Command);
  if (shift == TShiftState{TShiftItem::Shift, TShiftItem::Ctrl}) return TColumn::Direction;
  if (isCtrl) return isShift ? TColumn::CtrlAndShift : isAlt ? TColumn::CtrlAndAlt : TColumn::Ctrl;
  if (!isShift) return TColumn::Plain;
  return isAlt ? TColumn::ShiftAndAlt : TColumn::ShiftAlone;
}

// An outcome is the text seen, "-" behind it where the key goes on to others, "t" where it was typing, and what the
// clipboard got. Empty: as in the column before it.
struct TRow {
  Keys::TCode Key;
  std::u16string Plain, ShiftAlone, ShiftAndAlt, Ctrl, CtrlAndAlt, CtrlAndShift;
};

constexpr std::u16string_view Before = u"abc de|fg h";
const TRow Rows[] = {
    {Keys::Insert, u"abc de|fg h -", u"abc dezz|fg h t", u"abc de|fg h -", u"abc de|fg h", {}, {}},
    {Keys::Home, u"|abc defg h", u"|abc de^fg h", {}, u"|abc defg h", {}, u"|abc de^fg h"},
    {Keys::End, u"abc defg h|", u"abc de^fg h|", {}, u"abc defg h|", {}, u"abc de^fg h|"},
    {Keys::Left, u"abc d|efg h", u"abc d|e^fg h", {}, u"abc |defg h", {}, u"abc |de^fg h"},
    {Keys::Right, u"abc def|g h", u"abc de^f|g h", {}, u"abc defg |h", {}, u"abc de^fg |h"},
    {Keys::Backspace, u"abc d|fg h t", {}, {}, u"abc |fg h t", {}, {}},
    {Keys::Delete, u"abc de|g h t", {}, {}, u"abc defg |h t", {}, {}},
    {Keys::Return, u"abc de|fg h -", {}, {}, {}, {}, {}},
    {'A', u"abc de|fg h -", {}, {}, u"^abc defg h|", u"abc de|fg h -", {}},
    {'C', u"abc de|fg h -", {}, {}, u"abc de|fg h", {}, {}},
    {'V', u"abc de|fg h -", {}, {}, u"abc dezz|fg h t", {}, {}},
    {'X', u"abc de|fg h -", {}, {}, u"abc de|fg h t", {}, {}},
    {'Z', u"abc de|fg h -", {}, {}, u"abc de|fg h", {}, {}},
    {'B', u"abc de|fg h -", {}, {}, {}, {}, {}},
    {Keys::Up, u"abc de|fg h -", {}, {}, {}, {}, {}},
    {Keys::Down, u"abc de|fg h -", {}, {}, {}, {}, {}},
    {Keys::PageUp, u"abc de|fg h -", {}, {}, {}, {}, {}},
    {Keys::Escape, u"abc de|fg h -", {}, {}, {}, {}, {}},
    {Keys::Tab, u"abc de|fg h -", {}, {}, {}, {}, {}},
    {Keys::Shift, u"abc de|fg h -", {}, {}, {}, {}, {}},
    {Keys::Control, u"abc de|fg h -", {}, {}, {}, {}, {}},
};

constexpr std::u16string_view BeforeSelected = u"abc |de^fg h";
const TRow RowsSelected[] = {
    {Keys::Insert, u"abc |de^fg h -", u"abc zz|fg h t", u"abc |de^fg h -", u"abc |de^fg h (de)", {}, {}},
    {Keys::Home, u"|abc defg h", u"|abc de^fg h", {}, u"|abc defg h", {}, u"|abc de^fg h"},
    {Keys::End, u"abc defg h|", u"abc de^fg h|", {}, u"abc defg h|", {}, u"abc de^fg h|"},
    {Keys::Left, u"abc| defg h", u"abc| de^fg h", {}, u"|abc defg h", {}, u"|abc de^fg h"},
    {Keys::Right, u"abc d|efg h", u"abc d|e^fg h", {}, u"abc defg |h", {}, u"abc de^fg |h"},
    {Keys::Backspace, u"abc |fg h t", {}, {}, {}, {}, {}},
    {Keys::Delete, u"abc |fg h t", u"abc |fg h t (de)", u"abc |fg h t", {}, {}, {}},
    {Keys::Return, u"abc |de^fg h -", {}, {}, {}, {}, {}},
    {'A', u"abc |de^fg h -", {}, {}, u"^abc defg h|", u"abc |de^fg h -", {}},
    {'C', u"abc |de^fg h -", {}, {}, u"abc |de^fg h (de)", {}, {}},
    {'V', u"abc |de^fg h -", {}, {}, u"abc zz|fg h t", {}, {}},
    {'X', u"abc |de^fg h -", {}, {}, u"abc |fg h t (de)", {}, {}},
    {'Z', u"abc |de^fg h -", {}, {}, u"abc |de^fg h", {}, {}},
    {Keys::Up, u"abc |de^fg h -", {}, {}, {}, {}, {}},
    {Keys::Down, u"abc |de^fg h -", {}, {}, {}, {}, {}},
};

std::u16string ExpectedOf(const TRow& row, TColumn column) {
  const std::u16string* const columns[] = {&row.Plain, &row.ShiftAlone, &row.ShiftAndAlt,
                                           &row.Ctrl,  &row.CtrlAndAlt, &row.CtrlAndShift};
  const std::u16string* expected = columns[0];
  for (std::size_t i = 0; i <= static_cast<std::size_t>(column); ++i)
    if (!columns[i]->empty()) expected = columns[i];
  return *expected;
}

Keys::TCode Exchanged(Keys::TCode key) {
  if (key == Keys::Left) return Keys::Right;
  return key == Keys::Right ? Keys::Left : key;
}

// Of the key in a new box, whose direction a paint has taken.
std::u16string OutcomeOf(Keys::TCode key, TShiftState shift, bool rightToLeft, bool selected) {
  TBoxInUse box;
  box.FBox.Clipboard().SetText(u"zz");
  box.Show(u"abc defg h", rightToLeft ? TTextAlign::Trailing : TTextAlign::Leading);
  box.FBox.Paint();
  EXPECT_EQ(box.Edit().IsRightToLeft(), rightToLeft);
  box.At(selected ? 4 : 6);
  if (selected) box.Model().SetSelLength(2);
  EXPECT_EQ(box.Seen(), selected ? BeforeSelected : Before);
  box.Key(key, shift);
  std::u16string outcome = box.Seen();
  if (!box.FBox.LastKeyHandled()) outcome += u" -";
  if (box.FBox.Typings() == 1) outcome += u" t";
  if (box.FBox.Clipboard().GetText() != u"zz") outcome += u" (" + box.FBox.Clipboard().GetText() + u")";
  if (ColumnOf(shift) == TColumn::Direction && box.Edit().IsRightToLeft() != rightToLeft) outcome += u" turned";
  return outcome;
}

void ExpectRowsHold(std::span<const TRow> rows, bool selected) {
  for (const bool rightToLeft : {false, true})
    for (const TRow& row : rows)
      for (std::uint8_t bits = 0; bits < 16; ++bits) {
        const auto shift = TShiftState::FromBits(bits);
        const TColumn column = ColumnOf(shift);
        const std::u16string expected = column == TColumn::Direction
                                            ? std::u16string(selected ? BeforeSelected : Before) + u" - turned"
                                            : ExpectedOf(row, column);
        const Keys::TCode pressed = rightToLeft ? Exchanged(row.Key) : row.Key;
        EXPECT_EQ(OutcomeOf(pressed, shift, rightToLeft, selected), expected)
            << "key " << pressed << " with modifiers " << int{bits} << (rightToLeft ? " right to left" : "");
      }
}

TEST(EditKeyTable, HoldsWithoutASelection) {
  ExpectRowsHold(Rows, false);
}

TEST(EditKeyTable, HoldsWithASelection) {
  ExpectRowsHold(RowsSelected, true);
}

// --- Read-only boxes ---

TEST(EditKeyTable, AReadOnlyBoxMovesSelectsAndCopies) {
  const std::map<Keys::TCode, std::u16string> outcomes = {
      {Keys::Backspace, u"abc |de^fg h -"},
      {Keys::Delete, u"abc |de^fg h -"},
      {'X', u"abc |de^fg h -"},
      {'V', u"abc |de^fg h t"},
      {'C', u"abc |de^fg h (de)"},
      {'A', u"^abc defg h|"},
      {Keys::Left, u"|abc defg h"},
      {Keys::End, u"abc defg h|"},
  };
  for (const auto& [key, expected] : outcomes) {
    TBoxInUse box;
    box.FBox.Clipboard().SetText(u"zz");
    box.Show(u"abc defg h");
    box.Model().SetReadOnly(true);
    box.At(4);
    box.Model().SetSelLength(2);
    box.Key(key, TBoxInUse::Ctrl);
    std::u16string outcome = box.Seen();
    if (!box.FBox.LastKeyHandled()) outcome += u" -";
    if (box.FBox.Typings() == 1) outcome += u" t";
    if (box.FBox.Clipboard().GetText() != u"zz") outcome += u" (" + box.FBox.Clipboard().GetText() + u")";
    EXPECT_EQ(outcome, expected) << key;
  }
}

// --- Modes of the pointer ---

using TMode = TSelectionMode;
using TEvent = void (*)(TBoxInUse& box);
struct TModeRow {
  const char* Event;
  TEvent Do;
  TMode FromNone, FromSelecting, FromPlacing;
};

void Enter(TBoxInUse& box, TMode mode) {
  box.Show(u"abc def");
  if (mode == TMode::Selecting) box.Press(21);
  if (mode == TMode::PlacingCaret) box.LongTap(21);
  ASSERT_EQ(box.Edit().SelectionMode(), mode);
}

TEST(EditKeyTable, EachEventOfThePointerLeadsToItsMode) {
  const TModeRow rows[] = {
      {"press", [](TBoxInUse& box) { box.Press(1); }, TMode::Selecting, TMode::Selecting, TMode::Selecting},
      {"shifted press", [](TBoxInUse& box) { box.Press(1, TBoxInUse::Shift); }, TMode::Selecting, TMode::Selecting,
       TMode::Selecting},
      {"double press", [](TBoxInUse& box) { box.Press(1, {}, true); }, TMode::None, TMode::None, TMode::None},
      {"press of another button",
       [](TBoxInUse& box) {
         box.FBox.Edit().MouseDown({fmx::TMouseButton::Right, {}, {1, 10}});
       },
       TMode::None, TMode::Selecting, TMode::PlacingCaret},
      {"move", [](TBoxInUse& box) { box.Move(31); }, TMode::None, TMode::Selecting, TMode::PlacingCaret},
      {"release", [](TBoxInUse& box) { box.Release(31); }, TMode::None, TMode::None, TMode::None},
      {"long press", [](TBoxInUse& box) { box.LongTap(31); }, TMode::PlacingCaret, TMode::Selecting,
       TMode::PlacingCaret},
      {"double tap",
       [](TBoxInUse& box) {
         box.FBox.Edit().CMGesture({fmx::DoubleTapGesture, {31, 10}, {}});
       },
       TMode::None, TMode::Selecting, TMode::PlacingCaret},
      {"press of a handle", [](TBoxInUse& box) { box.Edit().SelectionPoint(TSelectionPointType::Left)->MouseDown({}); },
       TMode::Selecting, TMode::Selecting, TMode::Selecting},
      {"release of a handle",
       [](TBoxInUse& box) { box.Edit().SelectionPoint(TSelectionPointType::Right)->MouseUp({}); }, TMode::None,
       TMode::None, TMode::None},
      {"key", [](TBoxInUse& box) { box.Key(Keys::Right); }, TMode::None, TMode::Selecting, TMode::PlacingCaret},
  };
  for (const TModeRow& row : rows) {
    const std::pair<TMode, TMode> ways[] = {
        {TMode::None, row.FromNone}, {TMode::Selecting, row.FromSelecting}, {TMode::PlacingCaret, row.FromPlacing}};
    for (const auto& [from, to] : ways) {
      TBoxInUse box;
      ASSERT_NO_FATAL_FAILURE(Enter(box, from));
      row.Do(box);
      EXPECT_EQ(box.Edit().SelectionMode(), to) << row.Event << " in mode " << static_cast<int>(from);
    }
  }
}

TEST(EditKeyTable, ABoxWithoutInputTakesNoPress) {
  TBoxInUse box;
  box.Show(u"abc");
  box.Model().SetInputSupport(false);
  box.Press(21);
  EXPECT_EQ(box.Seen(), u"|abc");
  EXPECT_EQ(box.Edit().SelectionMode(), TMode::None);
}

// --- Handles ---

TEST(EditKeyTable, EitherHandleKeepsOneCharacterOfTheSelection) {
  struct TCase {
    TSelectionPointType Type;
    float To;
    std::int32_t SelStart, SelLength;
  };
  // By the rules the handles of text from left to right are crossed.
  const TCase cases[] = {{TSelectionPointType::Left, 1, 2, 1},   {TSelectionPointType::Left, 45, 2, 2},
                         {TSelectionPointType::Left, 51, 2, 3},  {TSelectionPointType::Right, 59, 4, 1},
                         {TSelectionPointType::Right, 51, 4, 1}, {TSelectionPointType::Right, 1, 0, 5}};
  for (const TCase& c : cases) {
    TBoxInUse box;
    box.Show(u"abcdef");
    box.At(5);
    for (int i = 0; i < 3; ++i) box.Key(Keys::Left, TBoxInUse::Shift);
    float x = c.To;
    float y = 0;
    fmx::TSelectionPoint& point = *box.Edit().SelectionPoint(c.Type);
    point.OnChangePosition(point, x, y);
    EXPECT_EQ(box.Model().SelStart(), c.SelStart) << c.To;
    EXPECT_EQ(box.Model().SelLength(), c.SelLength) << c.To;
  }
}

// --- Places ---

TEST_F(EditPlacesOfSigns, ATextWithoutLettersStandsAsItsBoxDoes) {
  Show(u"12", TTextAlign::Trailing);
  EXPECT_EQ(Edit().View().GetCharX(0), 190) << "the right edge of the first digit: it counts as right-to-left";
  Show(u"ab", TTextAlign::Trailing);
  EXPECT_EQ(Edit().View().GetCharX(0), 180) << "the left end of the text";
  Show(u"12 3", TTextAlign::Leading);
  EXPECT_EQ(Edit().View().GetCharX(0), 0);
}

// Between right-to-left letters some signs leave the caret before them at the right of the character that it follows;
// other signs, letters and presentation forms at its left.
TEST_F(EditPlacesOfSigns, SomeSignsHaveTheCaretAtTheFarEdge) {
  for (const char16_t sign : std::u16string_view(u",?;")) {
    Show(u"بت" + std::u16string(1, sign) + u"ث", TTextAlign::Trailing, 100);
    EXPECT_EQ(Edit().View().GetCharX(2), 90) << static_cast<int>(sign);
  }
  for (const char16_t sign : std::u16string_view(u"!.\uFE91\uFB1Dث")) {
    Show(u"بت" + std::u16string(1, sign) + u"ث", TTextAlign::Trailing, 100);
    EXPECT_EQ(Edit().View().GetCharX(2), 80) << static_cast<int>(sign);
  }
}

}  // namespace
}  // namespace orv::testing
