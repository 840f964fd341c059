// The swap of the text service.
#include <memory>
#include <string>

#include "editing/Orv.Platform.h"
#include "editing/Orv.Text.h"
#include "fmx/Services.h"
#include "rtl/Assertions.h"
#include "rtl/Utf8.h"
#include "runtime/VirtualClassGenerator.h"

namespace orv {
namespace {

// Programs that keep the number of the slot rely on it.
constexpr std::int32_t DrawSingleLineIndex = 20;

// Names the class instead of the service that it takes the place of.
class TOrvTextServiceClass : public fmx::ITextServiceClassService {
 public:
  explicit TOrvTextServiceClass(TClass aClass) : FClass(aClass) {}
  TClass GetTextServiceClass() override { return FClass; }

 private:
  TClass FClass;
};

}  // namespace

TClass GenerateTextServiceClass(TClass hostClass) {
  if (hostClass == nullptr || !InheritsFrom(hostClass, fmx::TTextService::Class()))
    throw rtl::EAssertionFailed("GenerateTextServiceClass: the class is no text service");
  TMethodAddress draw = nullptr;
  const TClass fake = GetPlatformFakeTextServiceClass(draw);
  const std::int32_t index = TVmt::GetVMT(fake)->GetMethodIndex(draw);
  ORV_ASSERT(index == DrawSingleLineIndex, std::to_string(index));
  const TVirtualClassGenerator::TOverrideMethodInfo overrides[] = {{index, draw}};
  return TVirtualClassGenerator::CreateNewClass(hostClass, u"Orv.Platform",
                                                rtl::FromUtf8(ClassName(hostClass)) + u"Orv", overrides);
}

void SwapTextService() {
  fmx::TPlatformServices* const services = fmx::TPlatformServices::Current();
  if (services == nullptr) return;
  const auto service = fmx::FindService<fmx::ITextServiceClassService>();
  if (dynamic_cast<TOrvTextServiceClass*>(service.get()) != nullptr) return;
  const TClass named = service != nullptr ? service->GetTextServiceClass() : nullptr;
  const TClass host = named != nullptr ? named : fmx::TTextService::Class();
  services->AddPlatformService(fmx::ITextServiceClassService::Guid,
                               std::make_shared<TOrvTextServiceClass>(GenerateTextServiceClass(host)));
}

}  // namespace orv
