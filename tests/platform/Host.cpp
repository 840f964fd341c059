// The platform that an application without a framework of its own starts with.
#include "platform/Host.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

#include "fmx/CanvasManager.h"
#include "fmx/Services.h"
#include "fmx/TextLayoutManager.h"
#include "platform/SoftwareCanvas.h"

namespace orv::platform {
namespace {

// Gives a variable of the environment back what it had.
class TKeptVariable {
 public:
  explicit TKeptVariable(const char* name) : FName(name) {
    if (const char* value = std::getenv(name)) FValue = value;
  }
  ~TKeptVariable() { Set(FValue ? FValue->c_str() : nullptr); }
  TKeptVariable(const TKeptVariable&) = delete;
  TKeptVariable& operator=(const TKeptVariable&) = delete;

  void Set(const char* value) const {
    if (value == nullptr)
      ::unsetenv(FName);
    else
      ::setenv(FName, value, 1);
  }

 private:
  const char* FName;
  std::optional<std::string> FValue;
};

class Host : public ::testing::Test {
 protected:
  void SetUp() override { Forget(); }
  void TearDown() override { Forget(); }

 private:
  static void Forget() {
    fmx::TPlatformServices::SetCurrent(nullptr);
    fmx::TCanvasManager::UnInitialize();
    fmx::TTextLayoutManager::UnInitialize();
  }
};

TEST_F(Host, StartsWithTheSoftwareCanvasAndThePlainLayout) {
  StartPlatform();
  EXPECT_EQ(fmx::TCanvasManager::DefaultCanvas(), TSoftwareCanvas::Class());
  EXPECT_EQ(ClassName(fmx::TTextLayoutManager::GetDefaultLayout()), "TGPUTextLayout");
  EXPECT_NE(fmx::FindService<fmx::ICanvasService>(), nullptr);
  EXPECT_EQ(fmx::DefaultFontFamily(), u"") << "the first of the chain";
  EXPECT_EQ(fmx::DefaultFontSize(), 14);
}

TEST_F(Host, LeavesServicesThatAreThereAsTheyAre) {
  fmx::TPlatformServices::SetCurrent(std::make_unique<fmx::TPlatformServices>());
  const auto* services = fmx::TPlatformServices::Current();
  StartPlatform();
  EXPECT_EQ(fmx::TPlatformServices::Current(), services);
  EXPECT_EQ(fmx::FindService<fmx::ICanvasService>(), nullptr);
  EXPECT_EQ(fmx::TCanvasManager::DefaultCanvas(), nullptr);
}

TEST_F(Host, FindsTheDocumentsByTheEnvironment) {
  const TKeptVariable documents("XDG_DOCUMENTS_DIR");
  const TKeptVariable home("HOME");
  StartPlatform();
  home.Set("/folk/me/");
  documents.Set("/papers/mine//");
  EXPECT_EQ(fmx::DocumentsFolder(), u"/papers/mine");
  for (const char* none : {"", static_cast<const char*>(nullptr)}) {
    documents.Set(none);
    EXPECT_EQ(fmx::DocumentsFolder(), u"/folk/me/Documents");
  }
  home.Set(nullptr);
  EXPECT_EQ(fmx::DocumentsFolder(), u"");
}

}  // namespace
}  // namespace orv::platform
