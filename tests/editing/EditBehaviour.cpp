// What the corrections of the box change for the one who types in it: the same steps by the rules, and with one
// correction in force. Texts show the caret as "|" and the other end of a selection as "^".
#include <memory>
#include <random>
#include <utility>
#include <vector>

#include "fmx/EditServices.h"
#include "tests/editing/EditFixture.h"

namespace orv::testing {
namespace {

using fmx::Keys;
using fmx::TTextAlign;
using enum TOrvCorrection;

template <typename TScript>
auto BothWays(TOrvCorrections corrections, TScript script) {
  const auto with = [&](TOrvCorrections inForce) {
    TBoxInUse box(inForce);
    return script(box);
  };
  const auto byTheRules = with({});
  return std::pair{byTheRules, with(corrections)};
}

using TSeen = std::pair<std::u16string, std::u16string>;
constexpr auto Shift = TBoxInUse::Shift;
constexpr auto Ctrl = TBoxInUse::Ctrl;

// --- Words ---

TEST(EditBehaviour, MarksAndJoinersBelongToTheirWord) {
  struct TCase {
    std::u16string Text;
    std::int32_t Caret;
    Keys::TCode Key;
    TSeen Seen;
  };
  const TCase cases[] = {
      {u"ab\u0301cd ef", 5, Keys::Left, {u"ab\u0301|cd ef", u"|ab\u0301cd ef"}},
      {u"ab\u0301cd ef", 0, Keys::Right, {u"ab\u0301|cd ef", u"ab\u0301cd |ef"}},
      {u"x می\u200Cخواهم", 10, Keys::Left, {u"x می\u200C|خواهم", u"x |می\u200Cخواهم"}},
      {u"x می\u200Cخواهم", 10, Keys::Backspace, {u"x می\u200C|", u"x |"}},
      {u"ه\u200D ب", 0, Keys::Delete, {u"ه\u200D |ب", u"ه\u200D |ب"}},
      {u"x ب\u064E", 3, Keys::Left, {u"x |ب\u064E", u"x |ب\u064E"}},
      {u"ab \u0301cd", 0, Keys::Right, {u"ab \u0301|cd", u"ab \u0301|cd"}},
      {u"\u0301ab", 0, Keys::Right, {u"\u0301|ab", u"\u0301|ab"}},
  };
  for (const TCase& c : cases) {
    EXPECT_EQ(BothWays({Words},
                       [&](TBoxInUse& box) {
                         box.Show(c.Text);
                         box.At(c.Caret);
                         box.Key(c.Key, Ctrl);
                         return box.Seen();
                       }),
              c.Seen);
  }
}

TEST(EditBehaviour, ADoublePressSelectsAWordWithItsMarks) {
  EXPECT_EQ(BothWays({Words},
                     [](TBoxInUse& box) {
                       box.Show(u"xy a\u200Cbc d");
                       box.Press(56, {}, true);
                       return box.Seen();
                     }),
            TSeen(u"xy a\u200C^bc| d", u"xy ^a\u200Cbc| d"));
  EXPECT_EQ(BothWays({Words},
                     [](TBoxInUse& box) {
                       box.Show(u"ab\u0301c");
                       box.At(2);
                       box.FBox.Edit().SelectWord();
                       return box.Seen();
                     }),
            TSeen(u"ab^\u0301|c", u"^ab\u0301c|"));
}

class TListeningSpeller : public fmx::IFMXSpellCheckerService {
 public:
  std::vector<std::u16string> CheckSpelling(std::u16string_view word) override {
    Heard.emplace_back(word);
    return {u"longer"};
  }
  std::vector<std::u16string> Heard;
};

TEST(EditBehaviour, TheSpellerHearsWholeWords) {
  const auto heard = BothWays({Words}, [](TBoxInUse& box) {
    const auto speller = std::make_shared<TListeningSpeller>();
    fmx::TPlatformServices::Current()->AddPlatformService(fmx::IFMXSpellCheckerService::Guid, speller);
    box.Show(u"a\u200Cb c");
    box.Model().SetCheckSpelling(true);
    box.FBox.Paint();
    box.Edit().GetListOfPrepositions();
    fmx::TPlatformServices::Current()->RemovePlatformService(fmx::IFMXSpellCheckerService::Guid);
    return speller->Heard;
  });
  EXPECT_EQ(heard.first, (std::vector<std::u16string>{u"a", u"\u200C", u"b", u" ", u"c", u"a"}));
  EXPECT_EQ(heard.second, (std::vector<std::u16string>{u"a\u200Cb", u" ", u"c", u"a\u200Cb"}));
}

// --- InsertRoom ---

TEST(EditBehaviour, WhatIsTypedOrPastedTakesTheRoomThatIsLeft) {
  struct TCase {
    std::u16string Text;
    std::int32_t Caret;
    std::u16string Pasted;
    std::int32_t MaxLength;
    std::u16string Filter;
    TSeen Seen;
  };
  const TCase cases[] = {
      {u"abcde", 2, u"X", 5, u"", {u"abX|cd", u"ab|cde"}},
      {u"abc", 1, u"12345", 5, u"", {u"a1234|", u"a12|bc"}},
      {u"99", 1, u"1a2", 0, u"0123456789", {u"9129|", u"912|9"}},
      {u"99", 1, u"x1a2", 3, u"0123456789", {u"912|", u"91|9"}},
      {u"abc", 3, u"d\U0001F600", 5, u"", {u"abcd\xD83D|", u"abcd|"}},
      {u"abc", 1, u"\xD83Dx\xDE00", 0, u"", {u"a\xD83Dx\xDE00|bc", u"ax|bc"}},
      {u"", 0, u"\U0001F600\U0001F601", 0, u"\U0001F601", {u"\xD83D\U0001F601|", u"\U0001F601|"}},
  };
  for (const TCase& c : cases) {
    EXPECT_EQ(BothWays({InsertRoom},
                       [&](TBoxInUse& box) {
                         box.Show(c.Text);
                         box.At(c.Caret);
                         box.Model().SetFilterChar(c.Filter);
                         box.Model().SetMaxLength(c.MaxLength);
                         box.Paste(c.Pasted);
                         return box.Seen();
                       }),
              c.Seen);
  }
}

TEST(EditBehaviour, ASelectionMakesRoomForWhatIsTyped) {
  EXPECT_EQ(BothWays({InsertRoom},
                     [](TBoxInUse& box) {
                       box.Model().SetMaxLength(4);
                       box.Show(u"abcd");
                       box.At(1);
                       box.Key(Keys::Right, Shift);
                       box.Type(u"XY");
                       return box.Seen();
                     }),
            TSeen(u"aXY|c", u"aX|cd"));
}

TEST(EditBehaviour, FilterCaseAndLimitHoldForWhatIsWrittenAlone) {
  const auto edit = [](TBoxInUse& box) {
    box.Show(u"a1b2c");
    box.Model().SetFilterChar(u"0123456789x");
    box.Model().SetCharCase(fmx::TCharCase::UpperCase);
    box.At(2);
  };
  EXPECT_EQ(BothWays({InsertRoom},
                     [&](TBoxInUse& box) {
                       edit(box);
                       box.Type(u"x");
                       return box.Seen();
                     }),
            TSeen(u"1X2|", u"a1X|b2c"));
  EXPECT_EQ(BothWays({InsertRoom},
                     [&](TBoxInUse& box) {
                       edit(box);
                       box.Key(Keys::Backspace);
                       return box.Seen();
                     }),
            TSeen(u"2|", u"a|b2c"));
  EXPECT_EQ(BothWays({InsertRoom},
                     [&](TBoxInUse& box) {
                       edit(box);
                       box.Model().SetFilterChar(u"");
                       box.Model().SetCharCase(fmx::TCharCase::Normal);
                       box.Model().SetMaxLength(2);
                       box.Key(Keys::Right, Shift);
                       box.Edit().DoDelete();
                       return box.Seen();
                     }),
            TSeen(u"a1|", u"a1|2c"));
}

TEST(EditBehaviour, AHalfOfAPairIsNeverTyped) {
  EXPECT_EQ(BothWays({InsertRoom},
                     [](TBoxInUse& box) {
                       box.Type(
                           u"a\xDE00"
                           u"b\xD83D\xD83D\xDE00\xD83D"
                           u"c");
                       return box.Seen();
                     }),
            TSeen(u"a\xDE00"
                  u"b\xD83D\xD83D\xDE00\xD83D"
                  u"c|",
                  u"ab\U0001F600c|"));
}

TEST(EditBehaviour, AnyOtherActionDropsAHalfThatWaits) {
  using TAction = void (*)(TBoxInUse & box);
  const std::pair<const char*, TAction> actions[] = {
      {"a key", [](TBoxInUse& box) { box.Key(Keys::Up); }},
      {"a press", [](TBoxInUse& box) { box.Press(11); }},
      {"a long press", [](TBoxInUse& box) { box.LongTap(11); }},
      {"a copy", [](TBoxInUse& box) { box.Edit().DoCopy(); }},
      {"a caret", [](TBoxInUse& box) { box.At(0); }},
      {"a selection", [](TBoxInUse& box) { box.Model().SetSelLength(1); }},
      {"a text", [](TBoxInUse& box) { box.Model().SetText(u"abcd"); }},
      {"an alignment", [](TBoxInUse& box) { box.Model().TextSettings().SetHorzAlign(TTextAlign::Center); }},
      {"a size",
       [](TBoxInUse& box) {
         box.FBox.Edit().SetSize({100, 30});
       }},
      {"leaving", [](TBoxInUse& box) { box.FBox.Form().SetFocused(nullptr); }},
      {"a composition", [](TBoxInUse& box) { box.Edit().StartIMEInput(); }},
      {"a key that is filtered", [](TBoxInUse& box) {
         box.Model().SetFilterChar(u"0");
         box.Type(u"z");
         box.Model().SetFilterChar(u"");
       }}};
  for (const auto& [name, action] : actions) {
    const auto text = BothWays({InsertRoom}, [&, &act = action](TBoxInUse& box) {
      box.Show(u"abc");
      box.At(3);
      box.Type(u"\xD83D");
      act(box);
      box.Type(u"\xDE00");
      return box.Model().Text().find(u'\xDE00') != std::u16string::npos;
    });
    EXPECT_TRUE(text.first) << name;
    EXPECT_FALSE(text.second) << name;
  }
  TBoxInUse box({InsertRoom});
  box.Type(u"\xD83D");
  box.FBox.Paint();
  box.Move(5);
  box.Type(u"\xDE00");
  EXPECT_EQ(box.Seen(), u"\U0001F600|") << "a paint and a passing pointer are no actions";
}

TEST(EditBehaviour, NoCaretStandsInsideOfAPair) {
  EXPECT_EQ(BothWays({InsertRoom},
                     [](TBoxInUse& box) {
                       box.Show(u"\U0001F600b");
                       box.Model().SetPassword(true);
                       box.Press(7);
                       return box.Edit().GetOriginCaretPosition();
                     }),
            std::pair(1, 0));
  EXPECT_EQ(BothWays({InsertRoom},
                     [](TBoxInUse& box) {
                       box.Show(u"a\U0001F600b");
                       box.At(2);
                       return box.Edit().GetOriginCaretPosition();
                     }),
            std::pair(2, 1));
  EXPECT_EQ(BothWays({InsertRoom},
                     [](TBoxInUse& box) {
                       box.Show(u"a\U0001F600", TTextAlign::Leading, 15);
                       box.Model().SetPassword(true);
                       box.Press(7);
                       box.Move(16);
                       return box.Seen();
                     }),
            TSeen(u"a^\U0001F600|", u"a^\U0001F600|"));
}

TEST(EditBehaviour, ASetTextIsCutBetweenCharacters) {
  EXPECT_EQ(BothWays({InsertRoom},
                     [](TBoxInUse& box) {
                       box.Model().SetMaxLength(2);
                       box.Model().SetText(u"a\U0001F600");
                       return box.Model().Text();
                     }),
            TSeen(u"a\xD83D", u"a"));
}

TEST(EditBehaviour, LoneHalvesOfASetTextAreCharactersOfTheirOwn) {
  EXPECT_EQ(BothWays({InsertRoom},
                     [](TBoxInUse& box) {
                       box.Show(u"ab\xDE00");
                       box.At(3);
                       box.Key(Keys::Backspace);
                       return box.Seen();
                     }),
            TSeen(u"a|", u"ab|"));
  EXPECT_EQ(BothWays({InsertRoom},
                     [](TBoxInUse& box) {
                       box.Show(
                           u"\xD83D"
                           u"ab");
                       box.Key(Keys::Delete);
                       return box.Seen();
                     }),
            TSeen(u"|b", u"|ab"));
}

TEST(EditBehaviour, ACorrectedWordTakesTheRoomThatIsLeft) {
  EXPECT_EQ(BothWays({InsertRoom},
                     [](TBoxInUse& box) {
                       box.Model().SetMaxLength(8);
                       box.Show(u"ab cd ef");
                       box.At(4);
                       box.Edit().Spell(u"longer");
                       return box.Seen();
                     }),
            TSeen(u"ab longe|", u"ab lo| ef"));
}

// --- FreshCaret ---

TEST(EditBehaviour, TheCaretFollowsWhatTheApplicationChanges) {
  using TChange = void (*)(TBoxInUse & box);
  struct TCase {
    const char* Name;
    TChange Change;
    std::pair<float, float> X;
  };
  const TCase cases[] = {
      {"alignment", [](TBoxInUse& box) { box.Model().TextSettings().SetHorzAlign(TTextAlign::Center); }, {20, 105}},
      {"password", [](TBoxInUse& box) { box.Model().SetPassword(true); }, {12, 12}},
      {"size of the font",
       [](TBoxInUse& box) {
         box.Model().SetPassword(true);
         box.Model().TextSettings().Font().SetSize(20);
       },
       {12, 20}},
      {"size",
       [](TBoxInUse& box) {
         box.Model().TextSettings().SetHorzAlign(TTextAlign::Center);
         box.FBox.Edit().SetSize({100, 30});
       },
       {55, 55}},
      {"text", [](TBoxInUse& box) { box.Model().SetText(u"a"); }, {10, 10}},
      {"start of the selection", [](TBoxInUse& box) { box.Model().SetSelStart(1); }, {20, 10}},
  };
  for (const TCase& c : cases) {
    EXPECT_EQ(BothWays({FreshCaret},
                       [&](TBoxInUse& box) {
                         box.Show(u"abc");
                         box.At(2);
                         c.Change(box);
                         return box.Model().Caret().Position().X;
                       }),
              c.X)
        << c.Name;
  }
}

TEST(EditBehaviour, ASetTextIsNotSelected) {
  const auto replace = [](TBoxInUse& box) {
    box.Show(u"abcdef");
    box.At(1);
    for (int i = 0; i < 3; ++i) box.Key(Keys::Right, Shift);
    box.Model().SetText(u"uvwxyz");
  };
  EXPECT_EQ(BothWays({FreshCaret},
                     [&](TBoxInUse& box) {
                       replace(box);
                       return box.Seen();
                     }),
            TSeen(u"u^vwx|yz", u"uvwx|yz"));
  EXPECT_EQ(BothWays({FreshCaret},
                     [&](TBoxInUse& box) {
                       replace(box);
                       box.Type(u"!");
                       return box.Seen();
                     }),
            TSeen(u"u!|yz", u"uvwx!|yz"));
}

TEST(EditBehaviour, WhatIsTypedGoesWhereTheCaretIsSeen) {
  EXPECT_EQ(BothWays({FreshCaret},
                     [](TBoxInUse& box) {
                       box.Show(u"abcdef");
                       box.At(1);
                       box.Model().SetSelStart(4);
                       const std::u16string seen = box.Seen();
                       box.Type(u"X");
                       return seen + u" " + box.Seen();
                     }),
            TSeen(u"a|bcdef abcdX|ef", u"abcd|ef abcdX|ef"));
  EXPECT_EQ(BothWays({FreshCaret},
                     [](TBoxInUse& box) {
                       box.Show(u"ab cd");
                       box.At(5);
                       box.Edit().Spell(u"word");
                       box.Model().SetCaretPosition(2);
                       box.Edit().SetText(u"xy zz");
                       box.Type(u"!");
                       return box.Seen();
                     }),
            TSeen(u"!|xy zz", u"xy!| zz"));
}

TEST(EditBehaviour, ASelectionThatTheApplicationSetsIsHeldInTheText) {
  const auto select = [](TBoxInUse& box) {
    box.Show(u"abc");
    box.Model().SetSelStart(2);
    box.Model().SetSelLength(100);
    return box.Seen() + (box.Model().SelEnd() > 3 ? u" and beyond" : u"");
  };
  EXPECT_EQ(BothWays({FreshCaret}, select), TSeen(u"|abc^ and beyond", u"ab|c^"));
  EXPECT_EQ(BothWays({FreshCaret},
                     [](TBoxInUse& box) {
                       box.Show(u"abc");
                       box.At(-1);
                       box.Key(Keys::Backspace);
                       return box.Model().SelStart();
                     }),
            std::pair(-1, 0));
}

TEST(EditBehaviour, ACaretThatTheApplicationSetsSelectsNothing) {
  EXPECT_EQ(BothWays({FreshCaret},
                     [](TBoxInUse& box) {
                       box.Show(u"abcdef");
                       box.FBox.Edit().SelectAll();
                       box.At(2);
                       return box.Seen();
                     }),
            TSeen(u"^ab|cdef", u"ab|cdef"));
  TBoxInUse box({FreshCaret});
  box.Show(u"abc def");
  box.FBox.Edit().SelectAll();
  EXPECT_EQ(box.Seen(), u"^abc def|");
  box.At(5);
  box.FBox.Edit().SelectWord();
  EXPECT_EQ(box.Seen(), u"abc ^def|");
  box.Edit().DoDelete();
  EXPECT_EQ(box.Seen(), u"abc |");
}

TEST(EditBehaviour, ANewPresentationTakesCaretAndSelectionOver) {
  EXPECT_EQ(BothWays({FreshCaret},
                     [](TBoxInUse& box) {
                       box.FBox.Edit().FreePresentation();
                       box.Model().SetText(u"abcdef");
                       box.Model().SetSelStart(4);
                       box.Model().SetSelLength(-2);
                       auto& edit = static_cast<TOrvStyledEdit&>(*box.FBox.Edit().Presentation());
                       return edit.GetOriginCaretPosition();
                     }),
            std::pair(0, 4));
}

// --- LongPress ---

TEST(EditBehaviour, ALongPressDropsTheSelection) {
  EXPECT_EQ(BothWays({LongPress},
                     [](TBoxInUse& box) {
                       box.Show(u"abcdef");
                       box.FBox.Edit().SelectAll();
                       box.LongTap(31);
                       box.Move(31);
                       box.Release(31);
                       box.Type(u"X");
                       return box.Seen();
                     }),
            TSeen(u"X|", u"abcX|def"));
  TBoxInUse box({LongPress});
  box.Show(u"abcdef");
  box.Press(1);
  box.Move(31);
  box.LongTap(31);
  EXPECT_EQ(box.Seen(), u"^abc|def") << "a drag goes on";
}

// --- Handles ---

class THandle {
 public:
  THandle(TBoxInUse& box, TSelectionPointType type) : FPoint(*box.Edit().SelectionPoint(type)) {}
  void DragTo(float x) {
    FPoint.MouseDown({});
    FPoint.MouseMove({fmx::TMouseButton::Left, {}, fmx::TPointF{x, 0} - FPoint.Position()});
    FPoint.MouseUp({});
  }

 private:
  fmx::TSelectionPoint& FPoint;
};

TEST(EditBehaviour, HandlesStandAtTheEndsThatTheyMove) {
  for (const bool backwards : {true, false}) {
    const auto places = BothWays({Handles}, [&](TBoxInUse& box) {
      box.Show(u"abcdef");
      box.At(backwards ? 4 : 2);
      for (int i = 0; i < 2; ++i) box.Key(backwards ? Keys::Left : Keys::Right, Shift);
      const auto& left = *box.Edit().SelectionPoint(TSelectionPointType::Left);
      const auto& right = *box.Edit().SelectionPoint(TSelectionPointType::Right);
      return std::vector<float>{left.Position().X, right.Position().X, box.Edit().AreHandlersCrossed() ? 1.0F : 0.0F,
                                left.Visible() ? 1.0F : 0.0F, right.Visible() ? 1.0F : 0.0F};
    });
    const float seen = backwards ? 1 : 0;
    EXPECT_EQ(places.first, (std::vector<float>{20, 40, 1, seen, seen}));
    EXPECT_EQ(places.second, (std::vector<float>{20, 40, 0, 1, 1}));
  }
}

TEST(EditBehaviour, AHandleTakesItsEndAndTheCaretWithIt) {
  struct TCase {
    bool Backwards;
    TSelectionPointType Type;
    float To;
    std::u16string Corrected;
  };
  const TCase cases[] = {
      {true, TSelectionPointType::Left, 11, u"a|bcd^ef"},    {true, TSelectionPointType::Left, 31, u"abc|d^ef"},
      {true, TSelectionPointType::Left, 59, u"abc|d^ef"},    {true, TSelectionPointType::Right, 59, u"ab^cdef|"},
      {true, TSelectionPointType::Right, 1, u"ab^c|def"},    {false, TSelectionPointType::Left, 11, u"a|bcd^ef"},
      {false, TSelectionPointType::Right, 51, u"ab^cde|f"},  {false, TSelectionPointType::Right, -20, u"ab^c|def"},
      {false, TSelectionPointType::Left, 1000, u"abc|d^ef"},
  };
  for (const TCase& c : cases) {
    TBoxInUse box({Handles, HitPlace, InsertRoom});
    box.Show(u"abcdef");
    box.At(c.Backwards ? 4 : 2);
    for (int i = 0; i < 2; ++i) box.Key(c.Backwards ? Keys::Left : Keys::Right, Shift);
    THandle(box, c.Type).DragTo(c.To);
    EXPECT_EQ(box.Seen(), c.Corrected);
    EXPECT_EQ(box.Model().SelStart(), box.Edit().GetOriginCaretPosition());
    EXPECT_EQ(box.Edit().SelectionPoint(c.Type)->Position().X, box.Edit().View().GetCharX(box.Model().SelStart()));
  }
}

TEST(EditBehaviour, ByTheRulesAHandleLeavesTheCaretBehind) {
  EXPECT_EQ(BothWays({Handles},
                     [](TBoxInUse& box) {
                       box.Show(u"abcdef");
                       box.At(4);
                       for (int i = 0; i < 2; ++i) box.Key(Keys::Left, Shift);
                       THandle(box, TSelectionPointType::Left).DragTo(11);
                       return box.Edit().GetOriginCaretPosition();
                     }),
            std::pair(2, 1));
}

TEST(EditBehaviour, AHandleKeepsOneWholeCharacter) {
  TBoxInUse box({Handles, InsertRoom, FreshCaret});
  box.Show(u"a\U0001F600b");
  box.FBox.Edit().SelectAll();
  THandle(box, TSelectionPointType::Left).DragTo(1000);
  EXPECT_EQ(box.Seen(), u"a\U0001F600|b^");
  box.At(1);
  box.Key(Keys::Right, Shift);
  THandle(box, TSelectionPointType::Right).DragTo(-50);
  EXPECT_EQ(box.Seen(), u"a^\U0001F600|b");
  box.At(1);
  THandle(box, TSelectionPointType::Right).DragTo(30);
  EXPECT_EQ(box.Seen(), u"a|\U0001F600b") << "without a selection there is no handle";
}

TEST(EditBehaviour, InTextFromTheRightTheLeftHandleIsTheStartsToo) {
  TBoxInUse box(AllCorrections);
  box.Show(u"سلام", TTextAlign::Trailing);
  box.FBox.Paint();
  box.Model().SetSelStart(1);
  box.Model().SetSelLength(2);
  const auto& left = *box.Edit().SelectionPoint(TSelectionPointType::Left);
  const auto& right = *box.Edit().SelectionPoint(TSelectionPointType::Right);
  EXPECT_TRUE(left.Visible() && right.Visible());
  EXPECT_FALSE(box.Edit().AreHandlersCrossed());
  EXPECT_GT(left.Position().X, right.Position().X) << "the text begins at the right";
  THandle(box, TSelectionPointType::Left).DragTo(199);
  EXPECT_EQ(box.Seen(), u"|سلا^م");
  THandle(box, TSelectionPointType::Right).DragTo(100);
  EXPECT_EQ(box.Seen(), u"^سلام|");
}

// --- PasswordKeys ---

TEST(EditBehaviour, NothingIsCutOutOfAPasswordBox) {
  using TCut = void (*)(TBoxInUse & box);
  const TCut cuts[] = {[](TBoxInUse& box) { box.Key('X', Ctrl); }, [](TBoxInUse& box) { box.Key(Keys::Delete, Shift); },
                       [](TBoxInUse& box) { box.Edit().DoCut(); }};
  for (const TCut cut : cuts) {
    EXPECT_EQ(BothWays({PasswordKeys},
                       [&](TBoxInUse& box) {
                         box.FBox.Clipboard().SetText(u"z");
                         box.Show(u"abc");
                         box.Model().SetPassword(true);
                         box.FBox.Edit().SelectAll();
                         cut(box);
                         return box.Seen() + box.FBox.Clipboard().GetText();
                       }),
              TSeen(u"|z", u"^abc|z"));
    TBoxInUse box({PasswordKeys});
    box.Show(u"abc");
    box.FBox.Edit().SelectAll();
    cut(box);
    EXPECT_EQ(box.Seen() + box.FBox.Clipboard().GetText(), u"|abc") << "another box is cut from as ever";
  }
  TBoxInUse box({PasswordKeys});
  box.Show(u"abc");
  box.Model().SetPassword(true);
  box.Key(Keys::Delete, Shift);
  EXPECT_EQ(box.Seen(), u"|bc") << "without a selection that is no cut";
}

TEST(EditBehaviour, TheArrowsOfAPasswordBoxFollowItsDots) {
  EXPECT_EQ(BothWays({PasswordKeys},
                     [](TBoxInUse& box) {
                       box.Show(u"abc", TTextAlign::Trailing);
                       box.FBox.Paint();  // takes the direction
                       box.Model().SetPassword(true);
                       box.At(1);
                       box.Key(Keys::Right);
                       return box.Seen();
                     }),
            TSeen(u"|abc", u"ab|c"));
}

// --- Composition ---

TEST(EditBehaviour, ACompositionTakesTheSelectionsPlace) {
  for (const bool starts : {true, false}) {
    EXPECT_EQ(BothWays({Composition},
                       [&](TBoxInUse& box) {
                         box.Show(u"abcdef");
                         box.At(1);
                         for (int i = 0; i < 3; ++i) box.Key(Keys::Right, Shift);
                         if (starts) box.Edit().StartIMEInput();
                         box.Compose(u"XY", 2);
                         std::u16string seen = box.Model().Text() + u" ";
                         box.Compose(u"", 0);
                         box.Edit().EndIMEInput();
                         box.Type(u"Z");
                         return seen + box.Seen();
                       }),
              TSeen(u"abcdXYef aZ|ef", u"aXYef aZ|ef"));
  }
}

TEST(EditBehaviour, TheInputMethodsWindowStandsAtTheCaret) {
  EXPECT_EQ(BothWays({Composition},
                     [](TBoxInUse& box) {
                       box.Show(u"abc", TTextAlign::Trailing);
                       box.FBox.Paint();
                       box.At(2);
                       return box.Edit().GetTargetClausePointF().X;
                     }),
            std::pair(20.0F, 190.0F));
  TBoxInUse box({Composition});
  for (const TTextAlign align : {TTextAlign::Leading, TTextAlign::Center, TTextAlign::Trailing})
    for (const char16_t* text : {u"", u"abc", u"سلام", u"abcdefghijklmnop"})
      for (const std::int32_t caret : {0, 1, 3}) {
        box.Show(text, align, 60);
        box.At(caret);
        box.Compose(u"xy", 1);
        EXPECT_EQ(box.Edit().GetTargetClausePointF().X, box.Model().Caret().Position().X);
        box.Compose(u"", 0);
      }
}

TEST(EditBehaviour, AReadOnlyBoxComposesNothing) {
  for (const bool readOnly : {true, false}) {
    EXPECT_EQ(BothWays({Composition},
                       [&](TBoxInUse& box) {
                         box.Show(u"abc");
                         if (readOnly)
                           box.Model().SetReadOnly(true);
                         else
                           box.Model().SetInputSupport(false);
                         box.FBox.Edit().SelectAll();
                         box.Edit().StartIMEInput();
                         box.Compose(u"XY", 1);
                         return box.Seen() + (box.FBox.Typings() > 0 ? u" typed" : u"");
                       }),
              TSeen(u"^abc|XY typed", u"^abc|"));
  }
  TBoxInUse box({Composition});
  box.Show(u"abc");
  box.Compose(u"XY", 1);
  box.Model().SetReadOnly(true);
  EXPECT_EQ(box.Model().Text(), u"abc") << "what is being composed goes when the box is closed to it";
}

TEST(EditBehaviour, WhatElseHappensTakesTheCompositionOut) {
  using TAction = void (*)(TBoxInUse & box);
  const std::pair<TAction, TSeen> actions[] = {
      {[](TBoxInUse& box) { box.Key(Keys::Left); }, {u"aXY|Zbc", u"|abc"}},
      {[](TBoxInUse& box) { box.Type(u"!"); }, {u"a!|XYZbc", u"a!|bc"}},
      {[](TBoxInUse& box) { box.Paste(u"!"); }, {u"a!|XYZbc", u"a!|bc"}},
      {[](TBoxInUse& box) { box.Press(51); }, {u"aXYZb|c", u"ab|c"}},
      {[](TBoxInUse& box) { box.Press(31); }, {u"aXY|Zbc", u"a|bc"}},
      {[](TBoxInUse& box) { box.Model().SetText(u"abc"); }, {u"a|bc", u"a|bc"}},
      {[](TBoxInUse& box) { box.Edit().DoSelectAll(); }, {u"^aXYZbc|", u"^abc|"}},
      {[](TBoxInUse& box) { box.FBox.Form().SetFocused(nullptr); }, {u"a|XYZbc", u"a|bc"}},
      {[](TBoxInUse& box) { box.Key(Keys::Shift, Shift); }, {u"a|XYZbc", u"a|XYZbc"}},
      {[](TBoxInUse& box) {
         box.FBox.Edit().SetSize({150, 30});
       },
       {u"a|XYZbc", u"a|XYZbc"}},
  };
  int number = 0;
  for (const auto& [action, seen] : actions) {
    const auto result = BothWays({Composition, FreshCaret}, [&, &act = action](TBoxInUse& box) {
      box.Show(u"abc");
      box.At(1);
      box.Compose(u"XYZ", 3);
      act(box);
      return box.Seen();
    });
    EXPECT_EQ(result.second, seen.second) << number;
    EXPECT_EQ(result.first, seen.first) << number;
    ++number;
  }
}

// --- LineBreaks ---

TEST(EditBehaviour, EachLineEndBecomesOneBlank) {
  const std::pair<std::u16string, std::u16string> texts[] = {
      {u"a\r\nb", u"a b"},
      {u"a\nb", u"a b"},
      {u"a\rb", u"a b"},
      {u"a\n\rb", u"a  b"},
      {u"a\r\n\r\nb", u"a  b"},
      {u"a\u000Bb", u"a b"},
      {u"a\u000Cb", u"a b"},
      {u"a\u0085"
       u"b",
       u"a b"},
      {u"a\u2028b", u"a b"},
      {u"a\u2029b\n", u"a b "},
      {u"\r\r\n\n", u"   "},
      {u"a\tb", u"a\tb"},
  };
  for (const auto& [broken, line] : texts) {
    const auto& given = broken;
    EXPECT_EQ(BothWays({LineBreaks},
                       [&](TBoxInUse& box) {
                         box.Model().SetText(given);
                         return box.Model().Text();
                       }),
              TSeen(broken, line));
    EXPECT_EQ(BothWays({LineBreaks},
                       [&](TBoxInUse& box) {
                         box.Show(u"<>");
                         box.At(1);
                         box.Paste(given);
                         return box.Seen();
                       }),
              TSeen(u"<" + broken + u"|>", u"<" + line + u"|>"));
    EXPECT_EQ(BothWays({LineBreaks},
                       [&](TBoxInUse& box) {
                         box.FBox.Edit().FreePresentation();
                         box.Model().SetText(given);
                         box.FBox.Edit().Presentation();
                         return box.Model().Text();
                       }),
              TSeen(broken, line))
        << "a text that was there first";
  }
}

TEST(EditBehaviour, ALineEndCountsAsTheBlankThatItBecomes) {
  TBoxInUse box({LineBreaks, InsertRoom});
  box.Model().SetMaxLength(3);
  box.Model().SetFilterChar(u"ab ");
  box.Model().SetText(u"a\r\nb");
  EXPECT_EQ(box.Model().Text(), u"a b");
  box.Model().SetText(u"");
  box.Paste(u"\r\nb\r\nbb");
  EXPECT_EQ(box.Seen(), u" b |");
}

// --- AutoDirectionAlways ---

TEST(EditBehaviour, AutomaticDirectionLooksAtEveryText) {
  using TGive = void (*)(TBoxInUse & box);
  const std::pair<const char*, TGive> ways[] = {
      {"set",
       [](TBoxInUse& box) {
         box.Edit().SetAutoDirection(true);
         box.Model().SetText(u"1 سلام");
       }},
      {"present",
       [](TBoxInUse& box) {
         box.Model().SetText(u"1 سلام");
         box.Edit().SetAutoDirection(true);
       }},
  };
  for (const auto& [name, give] : ways) {
    EXPECT_EQ(BothWays({AutoDirectionAlways},
                       [&, &act = give](TBoxInUse& box) {
                         act(box);
                         return box.Edit().HorizontalAlignment();
                       }),
              std::pair(TTextAlign::Leading, TTextAlign::Trailing))
        << name;
  }
  TBoxInUse box({AutoDirectionAlways});
  box.Model().TextSettings().SetHorzAlign(TTextAlign::Trailing);
  box.Edit().SetAutoDirection(true);
  EXPECT_EQ(box.Edit().HorizontalAlignment(), TTextAlign::Trailing) << "an empty box has no text to look at";
  box.Model().SetText(u"abc");
  EXPECT_EQ(box.Edit().HorizontalAlignment(), TTextAlign::Leading);
  box.Model().TextSettings().SetHorzAlign(TTextAlign::Center);
  box.Model().SetText(u"سلام");
  EXPECT_EQ(box.Edit().HorizontalAlignment(), TTextAlign::Center) << "the middle has no direction";
  box.Edit().SetAutoDirection(false);
  box.Model().TextSettings().SetHorzAlign(TTextAlign::Leading);
  box.Model().SetText(u"سل");
  EXPECT_EQ(box.Edit().HorizontalAlignment(), TTextAlign::Leading);
}

// --- Where there is nothing to correct ---

// Any but those that turn the direction, which by the rules stays turned for places.
fmx::TShiftState SomeShift(std::uint32_t bits) {
  const auto shift = fmx::TShiftState::FromBits(static_cast<std::uint8_t>(bits));
  return shift == Shift + Ctrl ? Shift : shift;
}

// Steps of a person in Latin letters, since a text without any has a direction of its own: keys, presses, drags, the
// clipboard.
void StepInLatin(TBoxInUse& box, std::mt19937& random) {
  const auto below = [&](std::uint32_t n) { return static_cast<std::uint32_t>(random() % n); };
  constexpr Keys::TCode keys[] = {Keys::Left,   Keys::Right,  Keys::Home, Keys::End, Keys::Backspace,
                                  Keys::Delete, Keys::Insert, 'A',        'C',       'V',
                                  'X',          Keys::Return};
  const float x = static_cast<float>(below(160));
  switch (below(8)) {
    case 0:
    case 1:
    case 2:
      return box.Key(keys[below(std::size(keys))], SomeShift(below(16)));
    case 3:
      return box.Press(x, below(2) == 0 ? Shift : TBoxInUse::None, below(4) == 0);
    case 4:
      return box.Move(x);
    case 5:
      return box.Release(x);
    default:
      if (box.Model().Text().size() < 12) box.Type(std::u16string(1, u"abcde"[below(5)]));
  }
}

TEST(EditBehaviour, LatinTextInAWideBoxIsEditedAsByTheRules) {
  for (std::uint32_t seed = 0; seed < 60; ++seed) {
    const auto [byTheRules, corrected] = BothWays(AllCorrections, [&](TBoxInUse& box) {
      std::mt19937 random(seed);
      box.Show(u"abcde", TTextAlign::Leading, 400);
      std::vector<std::u16string> seen;
      for (int step = 0; step < 40; ++step) {
        StepInLatin(box, random);
        box.FBox.Paint();
        const int place = static_cast<int>(box.Model().Caret().Position().X);
        seen.push_back(box.Seen() + std::u16string(static_cast<std::size_t>(place) / 5, u'.'));
      }
      return seen;
    });
    ASSERT_EQ(byTheRules, corrected) << seed;
  }
}

}  // namespace
}  // namespace orv::testing
