// The table of start-up steps, row by row: what holds before a unit's step, what after, and in which order.
#include <gtest/gtest.h>

#include <map>

#include "calendar/Orv.Date.Factory.h"
#include "editing/Orv.Edit.Style.h"
#include "fmx/FixedGlyphs.h"
#include "fmx/Presentation.h"
#include "rtl/FormatSettings.h"
#include "runtime/Marzel.h"
#include "runtime/VirtualClassGenerator.h"
#include "tests/support/Hosts.h"
#include "textlayout/Orv.FontGlyphs.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "textlayout/Orv.TextLayout.Internal.Win.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv::testing {
namespace {

using TSettings = TOrvGlobalSettings;

std::vector<std::string> Names() {
  std::vector<std::string> names;
  for (const TUnitState& each : Units()) names.emplace_back(each.Name);
  return names;
}

std::map<std::string, int> Counts() {
  std::map<std::string, int> counts;
  for (const TUnitState& each : Units()) counts[std::string(each.Name)] = each.LoadCount;
  return counts;
}

// An internal layout of the test's own, in the place of the library's.
std::unique_ptr<TInternalTextLayout> NoLayout() {
  return nullptr;
}

class Install : public ::testing::Test {
 protected:
  void SetUp() override {
    ForgetHost();
    // What the steps are to change.
    TSettings::EquationOrder = TSettings::TMathOrder::ArabicRightToLeft;
    TSettings::EditorOptions.PasswordChar = u'*';
    TSettings::EditorOptions.CaretMinEdgeDistanceCoEfficient = 0;
    TSettings::EditorOptions.TextOverrunOption = TOrvTextOverrunOption::FollowCaret;
    TSettings::EditorOptions.SelectionTextDefaultColor = 0;
    TInternalTextLayout::RegisterDefaultInternalTextLayout(NoLayout);
  }
  void TearDown() override {
    while (Units()[0].LoadCount > 0) Uninstall();
    TSettings::EquationOrder = TSettings::TMathOrder::LeftToRight;
    TSettings::EditorOptions = {};
    ForgetHost();
  }
  static void SetUpGpuHost() {
    SetUpHost([] { RegisterDefault<THostGpu>(fmx::TGPUTextLayout::Class()); });
  }
};

// What is seen of the steps from within one of them: the host's canvas service is called by that of Orv.Controls.
struct TSeen {
  bool EngineStarted = false;
  bool SettingsStarted = false;
  bool InternalLayoutRegistered = false;
  rtl::UnicodeString Morning;
  std::map<std::string, int> Counts;

  static TSeen Now() {
    return {TSettings::EquationOrder == TSettings::TMathOrder::LeftToRight,
            TSettings::EditorOptions.PasswordChar == u'\u2022',
            TInternalTextLayout::CreateInternalTextLayout() != nullptr, rtl::FormatSettings().TimeAMString,
            testing::Counts()};
  }
};

// The first test of the program, since the calendars start once in a process.
TEST_F(Install, TheStepsRunInTheOrderOfTheTable) {
  EXPECT_EQ(Names(),
            (std::vector<std::string>{"Orv.FontGlyphs", "Unicode.Engine.Types", "OrvSystem.GlobalSettings",
                                      "VirtualClass", "Orv.Platform.Win", "Orv.Text", "Orv.TextLayout.Internal.Win",
                                      "Orv.SearchBox.Style", "Orv.Edit.Style", "Orv.Controls", "Orv.ComboEdit.Style",
                                      "Orv.Memo.Style", "Orv.StdCtrls", "Orv.ListView.Appearances", "InitLocale"}));
  std::vector<TSeen> seen;
  SetUpHost([&] {
    seen.push_back(TSeen::Now());
    RegisterDefault<THostGpu>(fmx::TGPUTextLayout::Class());
  });
  orv::Install();
  ASSERT_EQ(seen.size(), 2U) << "the canvas service was called by one step, twice";
  EXPECT_TRUE(seen[0].EngineStarted);
  EXPECT_TRUE(seen[0].SettingsStarted);
  EXPECT_TRUE(seen[0].InternalLayoutRegistered);
  EXPECT_EQ(seen[0].Morning, u"AM") << "the calendars come last";
  EXPECT_NE(TSeen::Now().Morning, u"AM");
  bool before = true;
  for (const std::string& name : Names()) {
    if (name == "Orv.Controls") before = false;
    EXPECT_EQ(seen[0].Counts[name], before ? 1 : 0) << name;
    EXPECT_EQ(Counts()[name], 1) << name;
  }
}

TEST_F(Install, TheEngineBeginsWithEquationsFromTheLeft) {
  orv::Install();
  EXPECT_EQ(TSettings::EquationOrder, TSettings::TMathOrder::LeftToRight);
  EXPECT_FALSE(TSettings::RTLMath());
}

TEST_F(Install, TheEditorOptionsAreTheDefaults) {
  orv::Install();
  EXPECT_EQ(TSettings::EditorOptions.PasswordChar, u'\u2022');
  EXPECT_EQ(TSettings::EditorOptions.CaretMinEdgeDistanceCoEfficient, 0.4F);
  EXPECT_EQ(TSettings::EditorOptions.TextOverrunOption, TOrvTextOverrunOption::ControlByCaret);
  EXPECT_EQ(TSettings::EditorOptions.SelectionTextDefaultColor, 0xFFFFFFFF);
}

TEST_F(Install, TheInternalLayoutIsTheDesktops) {
  EXPECT_EQ(TInternalTextLayout::CreateInternalTextLayout(), nullptr);
  orv::Install();
  EXPECT_NE(dynamic_cast<TInternalTextLayoutWin*>(TInternalTextLayout::CreateInternalTextLayout().get()), nullptr);
}

TEST_F(Install, TheCanvasAndItsLayoutAreSwapped) {
  SetUpGpuHost();
  EXPECT_EQ(TVirtualClassGenerator::Classes().Count(), 0U);
  orv::Install();
  EXPECT_EQ(ClassParent(fmx::TCanvasManager::DefaultCanvas()), THostGpu::Class());
  EXPECT_EQ(fmx::TTextLayoutManager::GetDefaultLayout(), TTextLayoutNGOrv::Class());
  EXPECT_EQ(TVirtualClassGenerator::Classes().Count(), 2U) << "the text service's is the other";
}

TEST_F(Install, TheCalendarsAreThereAndTheFormatsPersian) {
  orv::Install();
  for (const char16_t* name : {u"Jalali", u"IslamicTabular", u"Custom", u"Gregorian"})
    EXPECT_NO_THROW(TOrvCalendarCalcFactory::Current().GetCalendarCalcSystem(name));
  EXPECT_EQ(rtl::FormatSettings().LongMonthNames[1], u"فروردین");
  EXPECT_EQ(rtl::FormatSettings().ShortDateFormat, u"yy/m/d");
}

TEST_F(Install, UnitsThatOnlyCountHaveNoStep) {
  std::vector<std::string> counting;
  for (const TUnitState& each : Units())
    if (!each.HasStep) counting.emplace_back(each.Name);
  EXPECT_EQ(counting, (std::vector<std::string>{"Orv.Platform.Win", "Orv.SearchBox.Style", "Orv.ComboEdit.Style",
                                                "Orv.Memo.Style", "Orv.StdCtrls", "Orv.ListView.Appearances"}));
}

TEST_F(Install, EditsGetTheSystemsPresentation) {
  TFontGlyphManagerOrv::SetCurrent(std::make_unique<TBackEndFontGlyphManager>(std::make_unique<fmx::TFixedGlyphs>()));
  orv::Install();
  fmx::TEdit edit;
  EXPECT_NE(dynamic_cast<TOrvStyledEdit*>(edit.Presentation()), nullptr);
  EXPECT_TRUE(fmx::TPresentationProxyFactory::Current().IsRegistered("Edit-ide-platform"));
  TFontGlyphManagerOrv::SetCurrent(nullptr);
}

TEST_F(Install, TextServicesCutScrolledTextByItsDirection) {
  SetUpGpuHost();
  orv::Install();
  const auto service = fmx::TTextService::NewDefault(false);
  EXPECT_EQ(service->ClassName(), "TTextServiceOrv");
  const TClass named = fmx::FindService<fmx::ITextServiceClassService>()->GetTextServiceClass();
  orv::Install();
  EXPECT_EQ(fmx::FindService<fmx::ITextServiceClassService>()->GetTextServiceClass(), named) << "swapped once";
}

TEST_F(Install, WithoutAPlatformNothingIsSwappedAndNothingIsSaid) {
  RegisterDefault<THostGpu>(fmx::TGPUTextLayout::Class());
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  EXPECT_NO_THROW(orv::Install());
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(fmx::TCanvasManager::DefaultCanvas(), THostGpu::Class());
  EXPECT_EQ(Units().back().LoadCount, 1) << "all else is loaded";
}

TEST_F(Install, APlatformThatComesLaterIsNotSwapped) {
  orv::Install();
  SetUpGpuHost();
  RegisterDefault<THostGpu>(fmx::TGPUTextLayout::Class());
  orv::Install();
  EXPECT_EQ(fmx::TCanvasManager::DefaultCanvas(), THostGpu::Class());
  EXPECT_EQ(fmx::TTextLayoutManager::GetDefaultLayout(), fmx::TGPUTextLayout::Class());
}

TEST_F(Install, ANestedLoadOnlyCounts) {
  SetUpGpuHost();
  orv::Install();
  const TClass canvas = fmx::TCanvasManager::DefaultCanvas();
  TSettings::EquationOrder = TSettings::TMathOrder::ArabicRightToLeft;
  TSettings::EditorOptions.PasswordChar = u'*';
  TInternalTextLayout::RegisterDefaultInternalTextLayout(NoLayout);
  rtl::FormatSettings().DateSeparator = u'!';
  orv::Install();
  EXPECT_EQ(fmx::TCanvasManager::DefaultCanvas(), canvas);
  EXPECT_EQ(TSettings::EquationOrder, TSettings::TMathOrder::ArabicRightToLeft);
  EXPECT_EQ(TSettings::EditorOptions.PasswordChar, u'*');
  EXPECT_EQ(TInternalTextLayout::CreateInternalTextLayout(), nullptr);
  EXPECT_EQ(rtl::FormatSettings().DateSeparator, u'!');
  rtl::FormatSettings().DateSeparator = u'/';
  for (const auto& [name, count] : Counts()) EXPECT_EQ(count, 2) << name;
}

TEST_F(Install, UnloadingTakesNoRegistrationBack) {
  SetUpGpuHost();
  orv::Install();
  orv::Install();
  const TClass canvas = fmx::TCanvasManager::DefaultCanvas();
  Uninstall();
  EXPECT_EQ(TVirtualClassGenerator::Classes().Count(), 2U) << "still loaded once";
  Uninstall();
  EXPECT_EQ(TVirtualClassGenerator::Classes().Count(), 0U) << "the list alone goes";
  EXPECT_EQ(fmx::TCanvasManager::DefaultCanvas(), canvas);
  EXPECT_EQ(fmx::TTextLayoutManager::GetDefaultLayout(), TTextLayoutNGOrv::Class());
  fmx::TBitmap bitmap(4, 4);
  const auto made = fmx::TCanvasManager::CreateFromBitmap(bitmap);
  EXPECT_TRUE(made->BeginScene());
  EXPECT_TRUE(TGlyphAtlas::IsRendering());
  made->EndScene();
  EXPECT_EQ(TSettings::EquationOrder, TSettings::TMathOrder::LeftToRight);
}

TEST_F(Install, UnloadingMoreOftenThanLoadingDoesNothing) {
  Uninstall();
  for (const auto& [name, count] : Counts()) EXPECT_EQ(count, 0) << name;
  orv::Install();
  EXPECT_EQ(TSettings::EquationOrder, TSettings::TMathOrder::LeftToRight) << "the next load does the work";
}

TEST_F(Install, AHostThatIsNoCanvasStopsTheLoadingThere) {
  // A layout class that a host has registered as its canvas, under the name of one.
  static const TClass strange =
      TVirtualClassGenerator::CreateNewClass(fmx::TGPUTextLayout::Class(), u"Host", u"TCanvasGpu");
  SetUpHost([] { fmx::TCanvasManager::RegisterCanvas(strange, true, false); });
  fmx::TCanvasManager::RegisterCanvas(THostPrinter::Class(), false, true);
  EXPECT_THROW(orv::Install(), rtl::EAssertionFailed);
  EXPECT_EQ(Counts()["Orv.Edit.Style"], 1);
  EXPECT_EQ(Counts()["Orv.Controls"], 0);
  EXPECT_EQ(Counts()["InitLocale"], 0);
  EXPECT_EQ(fmx::TCanvasManager::DefaultCanvas(), strange) << "the host goes on with what it has";
  EXPECT_EQ(fmx::TCanvasManager::DefaultPrinterCanvas(), THostPrinter::Class());
  EXPECT_TRUE(fmx::TCanvasManager::SoftwareCanvasEnabled());
}

}  // namespace
}  // namespace orv::testing
