#include "fmx/Translate.h"

#include <gtest/gtest.h>

#include "fmx/ResourceStrings.h"

namespace {

class Translate : public testing::Test {
 protected:
  ~Translate() override { fmx::SetTranslator(nullptr); }
};

TEST_F(Translate, LeavesTextsAsTheyAreWithoutATranslator) {
  EXPECT_EQ(fmx::Translate(fmx::SEditCut), u"Cut");
  EXPECT_EQ(fmx::Translate(u""), u"");
}

TEST_F(Translate, GivesTheTranslatorsText) {
  fmx::SetTranslator([](std::u16string_view text) {
    return text == fmx::SEditCopy ? std::u16string(u"\u0631\u0648\u0646\u0648\u0634\u062A") : std::u16string(text);
  });
  EXPECT_EQ(fmx::Translate(fmx::SEditCopy), u"\u0631\u0648\u0646\u0648\u0634\u062A");
  EXPECT_EQ(fmx::Translate(fmx::SMenuSeparator), u"-");
  fmx::SetTranslator(nullptr);
  EXPECT_EQ(fmx::Translate(fmx::SEditCopy), u"Copy");
}

TEST_F(Translate, MayReplaceItsTranslatorMeanwhile) {
  const std::u16string kept(4, u'k');
  fmx::SetTranslator([kept](std::u16string_view) {
    fmx::SetTranslator(nullptr);
    return kept;
  });
  EXPECT_EQ(fmx::Translate(u"a"), u"kkkk");
  EXPECT_EQ(fmx::Translate(u"a"), u"a");
}

}  // namespace
