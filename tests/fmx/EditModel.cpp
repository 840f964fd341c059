#include "fmx/EditModel.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using fmx::TCharCase;
using fmx::TCustomEditModel;

class TListener : public fmx::IMessageReceiver {
 public:
  void Dispatch(fmx::TMessage& message) override {
    Ids.push_back(message.Id);
    if (message.Id == fmx::MMGetCaretPositionByPoint) message.Value = std::int32_t{7};
  }
  std::vector<fmx::TMessageId> Ids;
};

class EditModel : public ::testing::Test {
 protected:
  EditModel() { FModel.SetReceiver(&FListener); }

  TListener FListener;
  TCustomEditModel FModel;
};

TEST_F(EditModel, ATextIsFilteredThenMappedThenCut) {
  FModel.SetFilterChar(u"abc\u00DF");
  FModel.SetCharCase(TCharCase::UpperCase);
  FModel.SetMaxLength(3);
  FModel.SetText(u"xa1b\u00DFcc");
  EXPECT_EQ(FModel.Text(), u"AB\u00DF") << "a letter that has no capital of one unit stays";
  FModel.SetTextWithoutValidation(u"xyz12");
  EXPECT_EQ(FModel.Text(), u"xyz12");
}

// --- Rules of a presentation ---

TEST_F(EditModel, WithWholeCharactersFilterAndLimitTakePairsWhole) {
  FModel.SetFilterChar(u"ab\U0001F600\U0001F601");
  FModel.SetCharCase(TCharCase::UpperCase);
  FModel.SetMaxLength(4);
  FModel.SetText(u"xa\U0001F600\U0001F601");
  EXPECT_EQ(FModel.Text(), u"A\U0001F600\xD83D");
  FModel.SetRules([] { return fmx::TEditRules{fmx::TEditRule::WholeCharacters}; });
  FModel.SetText(u"xa\U0001F600\U0001F601");
  EXPECT_EQ(FModel.Text(), u"A\U0001F600");
  EXPECT_EQ(FModel.Admitted(u"ab\U0001F600", 1), u"AB") << "the pair has no room";
  EXPECT_EQ(FModel.Admitted(u"ab", 100), u"");
  FModel.SetMaxLength(0);
  EXPECT_EQ(FModel.Admitted(u"abab", 100), u"ABAB");
}

TEST_F(EditModel, WhatIsLeftOfATextIsATextLikeAnyOtherUnlessCharactersAreTakenWhole) {
  FModel.SetTextWithoutValidation(u"abcd");
  FModel.SetMaxLength(2);
  FModel.SetRules([] { return fmx::TEditRules{fmx::TEditRule::WholeCharacters}; });
  FModel.SetRest(u"abc");
  EXPECT_EQ(FModel.Text(), u"abc");
  FModel.SetRules(nullptr);
  FModel.SetRest(u"abcd");
  EXPECT_EQ(FModel.Text(), u"ab");
}

TEST_F(EditModel, InOneLineATextHasBlanksForItsLineEnds) {
  FModel.SetMaxLength(3);
  FModel.SetText(u"a\r\nb");
  EXPECT_EQ(FModel.Text(), u"a\r\n");
  FModel.SetRules([] { return fmx::TEditRules{fmx::TEditRule::OneLine}; });
  FModel.SetText(u"a\r\nb");
  EXPECT_EQ(FModel.Text(), u"a b");
}

TEST_F(EditModel, AChangeIsToldOnceAndNoChangeNever) {
  FModel.SetText(u"a");
  FModel.SetText(u"a");
  FModel.SetSelStart(1);
  FModel.SetSelStart(1);
  FModel.SetPassword(true);
  FModel.SetPassword(true);
  EXPECT_EQ(FListener.Ids, (std::vector<fmx::TMessageId>{fmx::MMTextChanging, fmx::MMTextChanged,
                                                         fmx::MMSelStartChanged, fmx::MMPasswordChanged}));
}

TEST_F(EditModel, WhatChangesInABracketIsNeverTold) {
  FModel.BeginUpdate();
  FModel.BeginUpdate();
  FModel.SetText(u"a");
  FModel.EndUpdate();
  FModel.SetCaretPosition(1);
  FModel.EndUpdate();
  EXPECT_TRUE(FListener.Ids.empty());
  FModel.EndUpdate();
  FModel.SetSelLength(-1);
  EXPECT_EQ(FListener.Ids, std::vector<fmx::TMessageId>{fmx::MMSelLengthChanged});
}

TEST_F(EditModel, PositionsAreKeptAsTheyComeButReadWithinTheText) {
  FModel.SetText(u"abcdef");
  FModel.SetSelStart(-1);
  FModel.SetSelLength(4);
  EXPECT_EQ(FModel.SelStart(), -1);
  EXPECT_EQ(FModel.Selection(), (fmx::TTextRange{0, 3}));
  EXPECT_EQ(FModel.SelectedText(), u"abc");
  FModel.SetSelStart(5);
  FModel.SetSelLength(-2);
  EXPECT_EQ(FModel.SelectedText(), u"de");
  FModel.SetSelStart(2147483647);
  FModel.SetSelLength(2147483647);
  EXPECT_EQ(FModel.Selection(), (fmx::TTextRange{6, 0}));
}

TEST_F(EditModel, AQuestionIsAnsweredByThePresentation) {
  EXPECT_EQ(FModel.GetCaretPositionByPoint({3, 4}), 7);
  FModel.SetReceiver(nullptr);
  FModel.SetCaretPosition(2);
  EXPECT_EQ(FModel.GetCaretPositionByPoint({3, 4}), 2);
}

TEST_F(EditModel, TheStyleGivesWhatTheApplicationLeavesToIt) {
  auto& info = FModel.TextSettingsInfo();
  info.Defaults().Font().SetSize(20);
  info.Defaults().SetFontColor(0xFF112233);
  info.Own().Font().SetSize(30);
  info.Own().SetHorzAlign(fmx::TTextAlign::Trailing);
  EXPECT_EQ(info.Resulting().Font().Size(), 20);
  EXPECT_EQ(info.Resulting().FontColor(), 0xFF112233);
  EXPECT_EQ(info.Resulting().HorzAlign(), fmx::TTextAlign::Trailing) << "always the application's";
  info.SetStyledSettings({fmx::TStyledSetting::FontColor});
  EXPECT_EQ(info.Resulting().Font().Size(), 30);
  EXPECT_EQ(info.Resulting().FontColor(), 0xFF112233);
}

TEST_F(EditModel, ABracketOfSettingsIsOneChange) {
  fmx::TTextSettings settings;
  int changes = 0;
  bool isSizeChange = false;
  settings.SetOnChanged([&] {
    ++changes;
    isSizeChange = settings.IsSizeChange();
  });
  settings.SetFontColor(1);
  EXPECT_EQ(changes, 1);
  EXPECT_FALSE(isSizeChange);
  settings.BeginUpdate();
  settings.SetFontColor(2);
  settings.Font().SetSize(40);
  settings.SetFontColor(2);
  EXPECT_EQ(changes, 1);
  settings.EndUpdate();
  EXPECT_EQ(changes, 2);
  EXPECT_TRUE(isSizeChange);
}

}  // namespace
