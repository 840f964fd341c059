#include "fmx/PlatformServices.h"

#include <gtest/gtest.h>

#include <memory>

#include "fmx/Services.h"

namespace {

using fmx::TPlatformServices;

class TScreen : public fmx::IScreenService {
 public:
  explicit TScreen(float scale) : FScale(scale) {}
  float GetScreenScale() override { return FScale; }
  fmx::TBiDiMode GetActiveFormBiDiMode() override { return fmx::TBiDiMode::RightToLeft; }

 private:
  float FScale;
};

class TFonts : public fmx::IFontService {
 public:
  std::u16string GetDefaultFontFamilyName() override { return u"Serif"; }
  float GetDefaultFontSize() override { return 15; }
};

class PlatformServices : public testing::Test {
 protected:
  ~PlatformServices() override { TPlatformServices::SetCurrent(nullptr); }
};

constexpr auto ScreenGuid = fmx::IScreenService::Guid;

static_assert(fmx::TGuid::Of("{476E5E53-A77A-4ADA-93E3-CA66A8956059}").Bytes[0] == 0x47);
static_assert(fmx::TGuid::Of("{476E5E53-A77A-4ADA-93E3-CA66A8956059}").Bytes[15] == 0x59);
static_assert(fmx::TGuid::Of("{476e5e53-a77a-4ada-93e3-ca66a8956059}") == fmx::ICanvasService::Guid);
static_assert(fmx::ICanvasService::Guid != fmx::ITextServiceClassService::Guid);

TEST_F(PlatformServices, WithoutAnyWhatDependsOnThemHasItsDefault) {
  EXPECT_EQ(TPlatformServices::Current(), nullptr);
  EXPECT_EQ(fmx::FindService<fmx::IScreenService>(), nullptr);
  EXPECT_EQ(fmx::ScreenScale(), 1);
  EXPECT_EQ(fmx::ActiveFormBiDiMode(), fmx::TBiDiMode::LeftToRight);
  EXPECT_EQ(fmx::DefaultFontFamily(), u"");
  EXPECT_EQ(fmx::DefaultFontSize(), 12);
}

TEST_F(PlatformServices, AreFoundByName) {
  TPlatformServices::SetCurrent(std::make_unique<TPlatformServices>());
  EXPECT_EQ(fmx::ScreenScale(), 1);
  TPlatformServices::Current()->AddPlatformService(ScreenGuid, std::make_shared<TScreen>(1.5F));
  TPlatformServices::Current()->AddPlatformService(fmx::IFontService::Guid, std::make_shared<TFonts>());
  EXPECT_EQ(fmx::ScreenScale(), 1.5F);
  EXPECT_EQ(fmx::ActiveFormBiDiMode(), fmx::TBiDiMode::RightToLeft);
  EXPECT_EQ(fmx::DefaultFontFamily(), u"Serif");
  EXPECT_EQ(fmx::DefaultFontSize(), 15);
  TPlatformServices::Current()->RemovePlatformService(ScreenGuid);
  EXPECT_EQ(fmx::ScreenScale(), 1);
}

TEST_F(PlatformServices, AScaleThatIsNoneCountsAsOne) {
  TPlatformServices::SetCurrent(std::make_unique<TPlatformServices>());
  for (const float scale :
       {0.0F, -2.0F, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
    TPlatformServices::Current()->AddPlatformService(ScreenGuid, std::make_shared<TScreen>(scale));
    EXPECT_EQ(fmx::ScreenScale(), 1);
  }
}

TEST_F(PlatformServices, AServiceOfAnotherContractIsNotFoundUnderTheName) {
  TPlatformServices::SetCurrent(std::make_unique<TPlatformServices>());
  TPlatformServices::Current()->AddPlatformService(ScreenGuid, std::make_shared<TFonts>());
  EXPECT_EQ(fmx::FindService<fmx::IScreenService>(), nullptr);
  EXPECT_NE(TPlatformServices::Current()->GetPlatformService(ScreenGuid), nullptr);
}

// A service that takes another one's place and goes on asking it.
class TDoubled : public fmx::IScreenService {
 public:
  explicit TDoubled(std::shared_ptr<fmx::IScreenService> kept) : FKept(std::move(kept)) {}
  float GetScreenScale() override { return 2 * FKept->GetScreenScale(); }
  fmx::TBiDiMode GetActiveFormBiDiMode() override { return FKept->GetActiveFormBiDiMode(); }

 private:
  std::shared_ptr<fmx::IScreenService> FKept;
};

TEST_F(PlatformServices, CanBeReplacedByOneThatForwards) {
  TPlatformServices::SetCurrent(std::make_unique<TPlatformServices>());
  TPlatformServices* services = TPlatformServices::Current();
  services->AddPlatformService(ScreenGuid, std::make_shared<TScreen>(1.5F));
  const auto kept = fmx::FindService<fmx::IScreenService>();
  services->RemovePlatformService(ScreenGuid);
  services->AddPlatformService(ScreenGuid, std::make_shared<TDoubled>(kept));
  EXPECT_EQ(fmx::ScreenScale(), 3);
}

}  // namespace
