// What the installation does to the edits and text services of an application that knows nothing of it.
#include <gtest/gtest.h>

#include "editing/Orv.Edit.Style.h"
#include "editing/Orv.Text.h"
#include "fmx/FixedGlyphs.h"
#include "fmx/Form.h"
#include "fmx/StyledEdit.h"
#include "runtime/Marzel.h"
#include "tests/support/Hosts.h"
#include "textlayout/Orv.FontGlyphs.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv::testing {
namespace {

// Two edits, as an application puts them on a form of its own.
class TAddressForm : public fmx::TCustomForm {
 public:
  TAddressForm() {
    for (fmx::TEdit* edit : {&Name, &City}) {
      edit->SetRoot(this);
      edit->SetSize({200, 30});
    }
    Name.SetText(u"نام من");
    City.SetText(u"تهران");
  }
  fmx::TEdit Name;
  fmx::TEdit City;
};

std::string Shown(fmx::TEdit& edit) {
  return std::string(edit.Presentation()->ClassName());
}

// An application's own text service: writes down what it is given to draw.
class TOwnTextService : public fmx::TTextService {
 public:
  static constexpr int SlotCount = fmx::TTextService::SlotCount;
  static TClass Class() {
    return CompiledClass<TOwnTextService, fmx::TTextService, FillNew<TSlots::Create, TOwnTextService>,
                         Fill<TSlots::DrawSingleLineText, &TOwnTextService::Tell>>("Application", "TOwnTextService");
  }
  explicit TOwnTextService(bool multiLine, TClass aClass = Class()) : TTextService(multiLine, aClass) {}
  void Tell(fmx::TCanvas&, std::u16string_view text, const fmx::TSingleLineDrawing&) { Drawn = text; }

  static inline std::u16string Drawn;
};

class TOwnTextServiceClass : public fmx::ITextServiceClassService {
 public:
  TClass GetTextServiceClass() override { return TOwnTextService::Class(); }
};

// The text without its first four units.
std::u16string DrawnScrolled(std::u16string_view text) {
  const auto service = fmx::TTextService::NewDefault(false);
  service->SetText(text);
  fmx::TNullCanvas canvas({fmx::TCanvasTarget::TKind::Window, nullptr, nullptr, 10, 10, 1});
  fmx::TSingleLineDrawing drawing;
  drawing.FirstVisibleChar = 5;
  service->DrawSingleLine(canvas, drawing);
  return TOwnTextService::Drawn;
}

class InstalledEdits : public ::testing::Test {
 protected:
  void SetUp() override {
    ForgetHost();
    SetUpHost([] { RegisterDefault<THostGpu>(fmx::TGPUTextLayout::Class()); });
    fmx::TCanvasManager::RegisterCanvas(THostGpu::Class(), true, false);
    fmx::TFixedGlyphs::Register();
    TFontGlyphManagerOrv::SetCurrent(std::make_unique<TBackEndFontGlyphManager>(std::make_unique<fmx::TFixedGlyphs>()));
    // Another test may have installed: this is what the framework begins with.
    fmx::TPresentationProxyFactory::Current().Replace("TEdit", fmx::TControlType::Styled,
                                                      &fmx::TStyledPresentationProxy<fmx::TStyledEdit>::Make);
  }
  void TearDown() override {
    while (Units()[0].LoadCount > 0) Uninstall();
    TFontGlyphManagerOrv::SetCurrent(nullptr);
    fmx::TFontGlyphManager::RegisterBackEnd({});
    ForgetHost();
  }
};

TEST_F(InstalledEdits, AFormGetsTheSystemsEditsWithoutAChangeToIt) {
  {
    TAddressForm before;
    EXPECT_EQ(Shown(before.Name), "TStyledEdit");
  }
  orv::Install();
  TAddressForm after;
  EXPECT_EQ(Shown(after.Name), "TOrvStyledEdit");
  EXPECT_EQ(Shown(after.City), "TOrvStyledEdit");
  EXPECT_EQ(static_cast<TOrvStyledEdit*>(after.City.Presentation())->GetText(), u"تهران");
}

TEST_F(InstalledEdits, WhatIsShownAlreadyStaysUntilItIsShownAnew) {
  TAddressForm form;
  EXPECT_EQ(Shown(form.Name), "TStyledEdit");
  form.Name.SetFocus();
  form.Name.ResetSelection();
  form.Name.Model().SetCaretPosition(3);
  orv::Install();
  EXPECT_EQ(Shown(form.City), "TOrvStyledEdit") << "not shown before";
  EXPECT_EQ(Shown(form.Name), "TStyledEdit");
  form.Name.FreePresentation();
  EXPECT_EQ(Shown(form.Name), "TOrvStyledEdit");
  EXPECT_EQ(form.Name.Text(), u"نام من");
  EXPECT_TRUE(form.Name.IsFocused());
}

TEST_F(InstalledEdits, BothAnswerTheSameKeys) {
  const auto typed = [] {
    TAddressForm form;
    form.Name.SetFocus();
    for (const char16_t c : std::u16string_view(u"سلام ab")) {
      fmx::TKeyEvent event{fmx::Keys::None, c, {}};
      form.KeyDown(event);
    }
    fmx::TKeyEvent event{fmx::Keys::Backspace, 0, {}};
    form.KeyDown(event);
    return form.Name.Text();
  };
  const std::u16string before = typed();
  orv::Install();
  EXPECT_EQ(before, u"سلام a") << "what was selected on entering is replaced";
  EXPECT_EQ(typed(), before);
}

TEST_F(InstalledEdits, AnApplicationsOwnTextServiceDrawsScrolledTextByItsDirection) {
  fmx::TPlatformServices::Current()->AddPlatformService(fmx::ITextServiceClassService::Guid,
                                                        std::make_shared<TOwnTextServiceClass>());
  EXPECT_EQ(DrawnScrolled(u"ab سلام"), u"لام") << "the start of the run has scrolled away";
  orv::Install();
  EXPECT_EQ(DrawnScrolled(u"ab سلام"), u" سل") << "the end of it has";
  const auto service = fmx::TTextService::NewDefault(false);
  EXPECT_EQ(service->ClassName(), "TOwnTextServiceOrv");
  EXPECT_EQ(ClassParent(service->ClassType()), TOwnTextService::Class());
}

TEST_F(InstalledEdits, AnEditDrawsWithTheApplicationsTextService) {
  const TOrvCorrections corrections = std::exchange(TOrvGlobalSettings::Corrections, {});
  fmx::TPlatformServices::Current()->AddPlatformService(fmx::ITextServiceClassService::Guid,
                                                        std::make_shared<TOwnTextServiceClass>());
  orv::Install();
  TAddressForm form;
  form.City.SetSize({52, 30});  // room for four characters between the margins
  form.City.SetText(u"ab سلام");
  auto& edit = dynamic_cast<TOrvStyledEdit&>(*form.City.Presentation());
  form.City.Model().SetCaretPosition(7);
  fmx::TBitmap bitmap(60, 40);
  const auto canvas = fmx::TCanvasManager::CreateFromBitmap(bitmap);
  ASSERT_TRUE(canvas->BeginScene());
  form.City.PaintTo(*canvas);
  canvas->EndScene();
  EXPECT_EQ(TOwnTextService::Drawn, CutTextForView(u"ab سلام", false, edit.SingleLine().FirstVisibleChar - 1));
  EXPECT_GT(edit.SingleLine().FirstVisibleChar, 1);
  TOrvGlobalSettings::Corrections = corrections;
}

TEST_F(InstalledEdits, ServicesMadeBeforeStayAsTheyAre) {
  const auto before = fmx::TTextService::NewDefault(false);
  orv::Install();
  EXPECT_EQ(before->ClassType(), fmx::TTextService::Class());
  EXPECT_EQ(fmx::TTextService::NewDefault(false)->ClassName(), "TTextServiceOrv");
}

TEST_F(InstalledEdits, AServiceThatNamesNoTextServiceStopsTheLoadingThere) {
  class TWrong : public fmx::ITextServiceClassService {
   public:
    TClass GetTextServiceClass() override { return THostGpu::Class(); }
  };
  fmx::TPlatformServices::Current()->AddPlatformService(fmx::ITextServiceClassService::Guid,
                                                        std::make_shared<TWrong>());
  EXPECT_THROW(orv::Install(), rtl::EAssertionFailed);
  EXPECT_EQ(fmx::TTextService::NewDefault(false)->ClassType(), fmx::TTextService::Class());
  for (const TUnitState& unit : Units()) {
    if (unit.Name == "Orv.Text") break;
    EXPECT_EQ(unit.LoadCount, 1) << unit.Name;
  }
}

}  // namespace
}  // namespace orv::testing
