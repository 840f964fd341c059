// Words and the dictionaries that are installed (packages.txt).
#include "platform/Spelling.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "rtl/Utf8.h"

namespace orv::platform {
namespace {

TWordScript ScriptOf(std::u16string_view word) {
  return WordToCheck(word).Script;
}

TEST(WordToCheck, GoesByTheScript) {
  EXPECT_EQ(ScriptOf(u"hello"), TWordScript::Latin);
  EXPECT_EQ(ScriptOf(u"don't"), TWordScript::Latin);
  EXPECT_EQ(ScriptOf(u"café"), TWordScript::Latin);
  EXPECT_EQ(ScriptOf(u"שלום"), TWordScript::Hebrew);
  EXPECT_EQ(ScriptOf(u"سلام"), TWordScript::PersianOrArabic);
  EXPECT_EQ(ScriptOf(u"کتاب"), TWordScript::Persian);
  EXPECT_EQ(ScriptOf(u"می\u200Cروم"), TWordScript::Persian);
  EXPECT_EQ(ScriptOf(u"كتاب"), TWordScript::Arabic);
  EXPECT_EQ(ScriptOf(u"مدرسة"), TWordScript::Arabic);
}

TEST(WordToCheck, LeavesOutWhatNoDictionaryKnows) {
  for (const char16_t* word : {u"", u" ", u"...", u"12", u"۱۲", u"a1", u"سal", u"привет", u"\U0001F600", u"a/b", u"کa"})
    EXPECT_EQ(ScriptOf(word), TWordScript::None) << rtl::ToUtf8(word);
  EXPECT_EQ(ScriptOf(std::u16string(65, u'a')), TWordScript::None);
  EXPECT_EQ(ScriptOf(std::u16string(1, char16_t{0xD800})), TWordScript::None);
}

TEST(WordToCheck, KeepsWhatStandsAroundItAndDropsMarks) {
  const TCheckedWord quoted = WordToCheck(u"(سَلامٌ)!");
  EXPECT_EQ(quoted.Before, u"(");
  EXPECT_EQ(quoted.Word, u"سلام");
  EXPECT_EQ(quoted.Behind, u")!");
  EXPECT_EQ(WordToCheck(u"שָׁלוֹם").Word, u"שלום");
  EXPECT_EQ(WordToCheck(u"کتـــاب").Word, u"کتاب");
}

TEST(WordToCheck, TakesEveryUnit) {
  for (int unit = 0; unit <= 0xFFFF; ++unit) {
    const std::u16string alone(1, static_cast<char16_t>(unit));
    const TCheckedWord checked = WordToCheck(alone);
    EXPECT_EQ(checked.Script == TWordScript::None || checked.Word == alone, true) << unit;
    WordToCheck(u"a" + alone + u"b");
  }
}

class Spelling : public ::testing::Test {
 protected:
  bool IsRight(std::u16string_view word) { return FChecker.CheckSpelling(word).empty(); }
  bool Suggests(std::u16string_view word, std::u16string_view suggestion) {
    const auto found = FChecker.CheckSpelling(word);
    return std::find(found.begin(), found.end(), suggestion) != found.end();
  }
  TSpellChecker FChecker;
};

TEST_F(Spelling, English) {
  EXPECT_TRUE(IsRight(u"sentence"));
  EXPECT_TRUE(IsRight(u"don't"));
  EXPECT_TRUE(Suggests(u"sentense", u"sentence"));
  EXPECT_TRUE(Suggests(u"(sentense).", u"(sentence)."));
  EXPECT_LE(FChecker.CheckSpelling(u"sentense").size(), TSpellChecker::MaxSuggestions);
}

TEST_F(Spelling, Persian) {
  for (const char16_t* word : {u"سلام", u"کتاب", u"می\u200Cروم", u"دنیا", u"کتابِ"})
    EXPECT_TRUE(IsRight(word)) << rtl::ToUtf8(word);
  EXPECT_FALSE(IsRight(u"کتااب"));
  EXPECT_TRUE(Suggests(u"کتااب", u"کتاب"));
}

TEST_F(Spelling, Arabic) {
  for (const char16_t* word : {u"مدرسة", u"السلام", u"كِتاب"}) EXPECT_TRUE(IsRight(word)) << rtl::ToUtf8(word);
  EXPECT_TRUE(Suggests(u"مدررسة", u"مدرسة"));
}

TEST_F(Spelling, Hebrew) {
  for (const char16_t* word : {u"שלום", u"ספר", u"שָׁלוֹם"}) EXPECT_TRUE(IsRight(word)) << rtl::ToUtf8(word);
  EXPECT_FALSE(IsRight(u"ספפר"));
}

TEST_F(Spelling, AnAnswerIsTheSameTheSecondTime) {
  const auto first = FChecker.CheckSpelling(u"sentense");
  EXPECT_EQ(FChecker.CheckSpelling(u"sentense"), first);
}

// --- Without installed dictionaries ---

// Knows what it is told.
class TWords : public IDictionary {
 public:
  TWords(std::vector<std::u16string> known, std::vector<std::u16string> suggested)
      : FKnown(std::move(known)), FSuggested(std::move(suggested)) {}
  bool Knows(std::u16string_view word) override {
    ++Asked;
    return std::find(FKnown.begin(), FKnown.end(), word) != FKnown.end();
  }
  std::vector<std::u16string> Suggest(std::u16string_view) override { return FSuggested; }
  static inline int Asked = 0;

 private:
  std::vector<std::u16string> FKnown;
  std::vector<std::u16string> FSuggested;
};

using TTexts = std::vector<std::u16string>;

TEST(SpellChecker, WithoutDictionariesEveryWordIsRight) {
  TSpellChecker checker([](TSpellingLanguage) { return nullptr; });
  for (const char16_t* word : {u"sentense", u"کتااب", u"مدررسة", u"ספפר", u"سلاام"})
    EXPECT_TRUE(checker.CheckSpelling(word).empty()) << rtl::ToUtf8(word);
}

TEST(SpellChecker, OpensADictionaryOnceAndForItsFirstWord) {
  std::vector<TSpellingLanguage> opened;
  TSpellChecker checker([&opened](TSpellingLanguage language) {
    opened.push_back(language);
    return std::make_unique<TWords>(TTexts{u"a"}, TTexts{u"b"});
  });
  checker.CheckSpelling(u"12");
  EXPECT_TRUE(opened.empty());
  EXPECT_EQ(checker.CheckSpelling(u"x"), TTexts{u"b"});
  EXPECT_EQ(checker.CheckSpelling(u"y"), TTexts{u"b"});
  EXPECT_EQ(opened, (std::vector{TSpellingLanguage::English}));
}

TEST(SpellChecker, AsksForAWordOnce) {
  TSpellChecker checker([](TSpellingLanguage) { return std::make_unique<TWords>(TTexts{}, TTexts{u"b"}); });
  TWords::Asked = 0;
  for (int i = 0; i < 3; ++i) EXPECT_EQ(checker.CheckSpelling(u"x"), TTexts{u"b"});
  EXPECT_EQ(TWords::Asked, 1);
}

TSpellChecker OfTwoLanguages() {
  return TSpellChecker([](TSpellingLanguage language) -> std::unique_ptr<IDictionary> {
    if (language == TSpellingLanguage::Persian)
      return std::make_unique<TWords>(TTexts{u"کتاب", u"ها"}, TTexts{u"ف", u"ف۲", u"ف۳", u"ف۴", u"ف۵"});
    if (language == TSpellingLanguage::Arabic) return std::make_unique<TWords>(TTexts{u"درس"}, TTexts{u"ع", u"ف"});
    return nullptr;
  });
}

TEST(SpellChecker, AWordOfArabicLettersIsRightInEitherLanguage) {
  TSpellChecker checker = OfTwoLanguages();
  EXPECT_EQ(checker.CheckSpelling(u"درس"), TTexts{});
  EXPECT_EQ(checker.CheckSpelling(u"کتاب"), TTexts{});
  EXPECT_EQ(checker.CheckSpelling(u"کتاب\u200Cها"), TTexts{});
  EXPECT_EQ(checker.CheckSpelling(u"\u200Cکتاب\u200C"), TTexts{});
  EXPECT_NE(checker.CheckSpelling(u"کتاب\u200Cهاا"), TTexts{});
}

TEST(SpellChecker, LettersOfOneLanguageDecideWhoseSuggestionsCome) {
  TSpellChecker checker = OfTwoLanguages();
  EXPECT_EQ(checker.CheckSpelling(u"پپ"), (TTexts{u"ف", u"ف۲", u"ف۳", u"ف۴", u"ف۵"}));
  EXPECT_EQ(checker.CheckSpelling(u"ةة"), (TTexts{u"ع", u"ف"}));
  EXPECT_EQ(checker.CheckSpelling(u"سس"), (TTexts{u"ف", u"ف۲", u"ف۳", u"ف۴", u"ع"}));
  EXPECT_EQ(checker.CheckSpelling(u"«ةة»"), (TTexts{u"«ع»", u"«ف»"}));
}

}  // namespace
}  // namespace orv::platform
