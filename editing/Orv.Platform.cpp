#include "editing/Orv.Platform.h"

#include <memory>
#include <string>

#include "editing/Orv.Text.h"
#include "fmx/Services.h"
#include "rtl/Assertions.h"
#include "rtl/Utf8.h"
#include "runtime/VirtualClassGenerator.h"

namespace orv {
namespace {

using TSlots = fmx::TTextService::TSlots;
using TDraw = Fill<TSlots::DrawSingleLine, &TTextServiceOrvFake::DrawSingleLine>;
// Programs that keep the number of the slot rely on it.
constexpr std::int32_t DrawSingleLineIndex = 20;

// Names the class instead of the service that it keeps.
class TOrvTextServiceClass : public fmx::ITextServiceClassService {
 public:
  explicit TOrvTextServiceClass(TClass aClass) : FClass(aClass) {}
  TClass GetTextServiceClass() override { return FClass; }

 private:
  TClass FClass;
};

}  // namespace

TClass TTextServiceOrvFake::Class() {
  return CompiledClass<TTextServiceOrvFake, fmx::TTextService, TDraw>("Orv.Platform", "TTextServiceOrvFake");
}

void TTextServiceOrvFake::DrawSingleLine(fmx::TTextService& self, fmx::TCanvas& canvas,
                                         const fmx::TSingleLineDrawing& drawing) {
  const bool rightToLeft = drawing.Flags.Contains(fmx::TFillTextFlag::RightToLeft);
  self.DrawSingleLineText(canvas, CutTextForView(self.CombinedText(), rightToLeft, drawing.FirstVisibleChar - 1),
                          drawing);
}

TClass GenerateTextServiceClass(TClass hostClass) {
  if (hostClass == nullptr || !InheritsFrom(hostClass, fmx::TTextService::Class()))
    throw rtl::EAssertionFailed("GenerateTextServiceClass: the class is no text service");
  const TVmt* fake = TVmt::GetVMT(TTextServiceOrvFake::Class());
  const std::int32_t index = fake->GetMethodIndex(TDraw::Address());
  ORV_ASSERT(index == DrawSingleLineIndex, std::to_string(index));
  const TVirtualClassGenerator::TOverrideMethodInfo overrides[] = {{index, TDraw::Address()}};
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
