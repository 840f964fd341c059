#include "runtime/Orv.Controls.h"

#include <gtest/gtest.h>

#include <vector>

#include "editing/Orv.FMXServices.h"
#include "runtime/OrvLibs.ExSysUtils.h"
#include "runtime/OrvSystem.MarshaledUtils.h"
#include "tests/support/Hosts.h"
#include "textlayout/Orv.FontGlyphs.h"

namespace orv::testing {
namespace {

using TSettings = TOrvGlobalSettings;

// --- The component ---

class Marzel : public ::testing::Test {
 protected:
  void TearDown() override {
    TSettings::ArabicDigitType = TSettings::TArabicDigitType::ArabicDigitType1;
    TSettings::EquationOrder = TSettings::TMathOrder::LeftToRight;
    TSettings::Options = {};
  }
  TMarzel FMarzel;
};

TEST_F(Marzel, ReadsAndWritesTheSettingsOfTheProcess) {
  FMarzel.SetDigitTypes(TSettings::TArabicDigitType::ArabicDigitType2);
  FMarzel.SetEquationOrder(TSettings::TMathOrder::ArabicRightToLeft);
  FMarzel.SetOrvGlobalOptions({TOrvGlobalOption::RTLDate, TOrvGlobalOption::WeakFollowLineDirection});
  EXPECT_EQ(TSettings::ArabicDigitType, TSettings::TArabicDigitType::ArabicDigitType2);
  EXPECT_TRUE(TSettings::RTLMath());
  EXPECT_TRUE(TSettings::RTLDate());
  EXPECT_EQ(FMarzel.OrvGlobalOptions().Bits(), 1U << 8 | 1U << 10);
}

TEST_F(Marzel, ASecondOneSharesTheStateOfTheFirst) {
  TMarzel second;
  second.SetDigitTypes(TSettings::TArabicDigitType::Latin);
  second.SetEquationOrder(TSettings::TMathOrder::ArabicRightToLeft);
  EXPECT_EQ(FMarzel.DigitTypes(), TSettings::TArabicDigitType::Latin);
  EXPECT_EQ(FMarzel.EquationOrder(), TSettings::TMathOrder::ArabicRightToLeft);
}

TEST_F(Marzel, ArabicDigitsReadsFalseWithLatinOnes) {
  EXPECT_TRUE(FMarzel.ArabicDigits());
  FMarzel.SetDigitTypes(TSettings::TArabicDigitType::ArabicDigitType2);
  EXPECT_TRUE(FMarzel.ArabicDigits());
  FMarzel.SetDigitTypes(TSettings::TArabicDigitType::Latin);
  EXPECT_FALSE(FMarzel.ArabicDigits());
}

TEST_F(Marzel, WritingArabicDigitsChangesNothing) {
  FMarzel.SetArabicDigits(false);
  EXPECT_TRUE(FMarzel.ArabicDigits());
  FMarzel.SetDigitTypes(TSettings::TArabicDigitType::Latin);
  FMarzel.SetArabicDigits(true);
  EXPECT_EQ(FMarzel.DigitTypes(), TSettings::TArabicDigitType::Latin);
}

TEST_F(Marzel, IsAComponentThatAFormOwns) {
  fmx::TComponent form;
  form.InsertComponent(std::make_unique<TMarzel>());
  EXPECT_EQ(form.ComponentCount(), 1);
}

// --- Fonts ---

class TFolders : public fmx::IFolderService {
 public:
  std::u16string GetDocumentsFolder() override { return u"/papers/mine"; }
};

class Fonts : public ::testing::Test {
 protected:
  void SetUp() override {
    fmx::TPlatformServices::SetCurrent(std::make_unique<fmx::TPlatformServices>());
    fmx::TPlatformServices::Current()->AddPlatformService(fmx::IFolderService::Guid, std::make_shared<TFolders>());
  }
  void TearDown() override {
    TFontGlyphManagerOrv::FontsList().clear();
    fmx::TPlatformServices::SetCurrent(nullptr);
  }
  static const TFontGlyphManagerOrv::TOrvFontResInfo& Info(const char16_t* family) {
    return TFontGlyphManagerOrv::FontsList().at(family);
  }
};

TEST_F(Fonts, AreRegisteredUnderTheirFamily) {
  RegisterFont(u"Nazli", u"fonts/nazli.ttf", true);
  EXPECT_EQ(TFontGlyphManagerOrv::FontsList().size(), 1U);
  EXPECT_EQ(Info(u"Nazli").ResourceType, TOrvResourceType::File);
  EXPECT_TRUE(Info(u"Nazli").RequireFontRenderer);
}

TEST_F(Fonts, APathWithASlashStaysAsItIs) {
  for (const char16_t* path : {u"/usr/share/nazli.ttf", u"fonts/nazli.ttf", u"../nazli.ttf", u"/"}) {
    RegisterFont(u"Nazli", path, false);
    EXPECT_EQ(Info(u"Nazli").ResString, path);
  }
}

TEST_F(Fonts, AFileNameAloneIsOneOfTheDocuments) {
  RegisterFont(u"Nazli", u"nazli.ttf", false);
  EXPECT_EQ(Info(u"Nazli").ResString, u"/papers/mine/nazli.ttf");
  RegisterFont(u"Nazli", u"dos\\nazli.ttf", false);
  EXPECT_EQ(Info(u"Nazli").ResString, u"/papers/mine/dos\\nazli.ttf");
}

TEST_F(Fonts, WithoutAFolderAFileNameStaysAsItIs) {
  fmx::TPlatformServices::SetCurrent(nullptr);
  RegisterFont(u"Nazli", u"nazli.ttf", false);
  EXPECT_EQ(Info(u"Nazli").ResString, u"nazli.ttf");
}

TEST_F(Fonts, TheLastFileOfAFamilyHolds) {
  RegisterFont(u"Nazli", u"a/a.ttf", true);
  RegisterFont(u"Nazli", u"b/b.ttf", false);
  EXPECT_EQ(Info(u"Nazli").ResString, u"b/b.ttf");
  EXPECT_FALSE(Info(u"Nazli").RequireFontRenderer);
}

TEST(AssignFont, CopiesWhatTheFilterNames) {
  fmx::TFont source(u"Nazli", 20, {fmx::TFontStyle::Underline});
  source.SetWeight(fmx::TFontWeight::UltraBold);
  source.SetSlant(fmx::TFontSlant::Oblique);
  for (unsigned bits = 0; bits < 8; ++bits) {
    TOrvFontFilterOption filter;
    for (const auto item : {TOrvFontFilterItem::Family, TOrvFontFilterItem::Size, TOrvFontFilterItem::Style})
      if ((bits >> static_cast<unsigned>(item) & 1) != 0) filter.Include(item);
    fmx::TFont target(u"Amiri", 12);
    int changes = 0;
    target.SetOnChanged([&] { ++changes; });
    AssignFont(target, source, filter);
    EXPECT_EQ(target.Family(), (bits & 1) != 0 ? u"Nazli" : u"Amiri");
    EXPECT_EQ(target.Size(), (bits & 2) != 0 ? 20 : 12);
    EXPECT_EQ(target.Weight(), (bits & 4) != 0 ? fmx::TFontWeight::UltraBold : fmx::TFontWeight::Regular);
    EXPECT_EQ(target.Slant(), (bits & 4) != 0 ? fmx::TFontSlant::Oblique : fmx::TFontSlant::Regular);
    EXPECT_EQ(target.Style().Contains(fmx::TFontStyle::Underline), (bits & 4) != 0);
    EXPECT_EQ(changes, bits == 0 ? 0 : 1);
  }
}

TEST(AssignFont, CopiesAllWithoutAFilter) {
  const fmx::TFont source(u"Nazli", 20, {fmx::TFontStyle::Bold});
  fmx::TFont target;
  AssignFont(target, source);
  EXPECT_EQ(target, source);
}

// --- Controls ---

class TPanel : public fmx::TStyledControl {
 public:
  fmx::TFont* OwnFont() override { return &FFont; }

 private:
  fmx::TFont FFont{u"Nazli", 20};
};

TEST(ControlHelper, APlainControlReadsFromLeftToRightWhateverItIsTold) {
  fmx::TControl control;
  TControlHelper helper(control);
  helper.SetBidiMode(fmx::TBiDiMode::RightToLeft);
  EXPECT_EQ(helper.GetBidiMode(), fmx::TBiDiMode::LeftToRight);
  EXPECT_FALSE(helper.IsRightToLeft());
}

TEST(ControlHelper, FindsTheFontOfTheNearestControlAround) {
  TPanel panel;
  TPanel own;
  fmx::TControl between;
  EXPECT_EQ(TControlHelper(own).GetParentFont(), nullptr) << "its own font is not its parent's";
  between.SetParent(&panel);
  own.SetParent(&between);
  EXPECT_EQ(TControlHelper(own).GetParentFont(), panel.OwnFont());
  EXPECT_EQ(TControlHelper(panel).GetParentFont(), nullptr);
}

TEST(ControlHelper, SizesObjectsThatAreControls) {
  fmx::TStyledControl control;
  fmx::TComponent component;
  TControlHelper::SetSizeOfObject(&control, 30, 40);
  TControlHelper::SetSizeOfObject(&component, 30, 40);
  TControlHelper::SetSizeOfObject(nullptr, 30, 40);
  EXPECT_EQ(control.Size(), (fmx::TSizeF{30, 40}));
}

class TNotified : public fmx::TStyledControl, public IOrvBidiModeNotification {
 public:
  void BidiModeChanged(fmx::TBiDiMode mode) override { Modes.push_back(mode); }
  std::vector<fmx::TBiDiMode> Modes;
};

TEST(SetBidiMode, TellsTheControlsThatWantToKnow) {
  fmx::TStyledControl plain;
  TNotified first;
  TNotified second;
  fmx::TStyledControl* const controls[] = {&first, &plain, &second};
  SetBidiMode(controls, fmx::TBiDiMode::RightToLeft);
  SetBidiMode({}, fmx::TBiDiMode::LeftToRight);
  EXPECT_EQ(first.Modes, (std::vector{fmx::TBiDiMode::RightToLeft}));
  EXPECT_EQ(second.Modes, (std::vector{fmx::TBiDiMode::RightToLeft}));
}

TEST(InternalError, KnowsItsName) {
  try {
    throw EInternalError("Error in Hyperlink Range Index");
  } catch (const rtl::Exception& error) {
    EXPECT_EQ(error.ClassName(), "EInternalError");
  }
}

// --- Small helpers ---

TEST(ExSysUtils, PosModHasNoSign) {
  EXPECT_EQ(PosMod(-1, 7), 6);
  EXPECT_EQ(PosMod(5, 0), 0);
  EXPECT_EQ(PosMod(INT32_MIN, -1), 0);
  EXPECT_EQ(PosMod(INT32_MIN, INT32_MIN), 0);
  EXPECT_EQ(PosMod(INT32_MAX, INT32_MIN), INT32_MAX);
  EXPECT_EQ(PosMod(-1, INT32_MIN), INT32_MAX);
  for (std::int32_t a = -40; a <= 40; ++a)
    for (std::int32_t b = -9; b <= 9; ++b) {
      if (b == 0) continue;
      const std::int32_t rest = PosMod(a, b);
      EXPECT_TRUE(rest >= 0 && rest < std::abs(b) && (a - rest) % b == 0) << a << " " << b;
    }
}

TEST(ExSysUtils, SwitchExchanges) {
  std::int32_t a = 1;
  std::int32_t b = -2;
  Switch(a, b);
  EXPECT_EQ(a, -2);
  EXPECT_EQ(b, 1);
  Switch(a, a);
  EXPECT_EQ(a, -2);
}

TEST(ExSysUtils, FillsNeverGoBeyondTheBuffer) {
  for (std::int64_t count = -2; count < 7; ++count) {
    std::vector<std::byte> bytes(4, std::byte{9});
    std::vector<std::uint16_t> words(4, 9);
    FillZero(bytes, count);
    FillWord(words, 0x1234, count);
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(bytes[static_cast<std::size_t>(i)], i < count ? std::byte{0} : std::byte{9});
      EXPECT_EQ(words[static_cast<std::size_t>(i)], i < count ? 0x1234 : 9);
    }
  }
}

TEST(MarshaledUtils, HexDigitsAreThoseTwentyTwo) {
  const std::u16string digits = u"0123456789ABCDEFabcdef";
  for (std::uint32_t c = 0; c <= 0xFFFF; ++c) {
    const bool expected = digits.find(static_cast<char16_t>(c)) != std::u16string::npos;
    EXPECT_EQ(IsHexDigit(static_cast<char16_t>(c)), expected) << c;
    if (c <= 0xFF) {
      EXPECT_EQ(IsHexDigit(static_cast<std::uint8_t>(c)), expected) << c;
    }
  }
}

}  // namespace
}  // namespace orv::testing
