#include "textlayout/Orv.Canvas.Patched.h"

#include <string>
#include <vector>

#include "fmx/TextLayoutManager.h"
#include "rtl/Exceptions.h"
#include "rtl/Utf8.h"

namespace orv {
namespace {

TClass MakePatchedLayout(TClass layoutClass, TClass fake, std::span<const TFilledSlot> replaced) {
  std::vector<TVirtualClassGenerator::TOverrideMethodInfo> overrides;
  for (const TFilledSlot& each : replaced)
    overrides.push_back({TVmt::GetVMT(fake)->GetMethodIndex(each.Method), each.Method});
  return TVirtualClassGenerator::CreateNewClass(
      layoutClass, rtl::FromUtf8(UnitName(fake)), rtl::FromUtf8(std::string(ClassName(layoutClass)) + "Orv"), overrides,
      {}, {}, static_cast<std::int32_t>(GrownInstanceSize<TPatchedLayoutFields>(layoutClass)));
}

}  // namespace

void RegisterPatchedLayout(TClass canvasClass, TClass layoutClass, TClass fake, std::span<const TFilledSlot> replaced) {
  if (layoutClass == nullptr || !InheritsFrom(layoutClass, fmx::TTextLayout::Class()))
    throw rtl::EAssertionFailed("RegisterTextLayout: the class is no text layout");
  const bool patched = layoutClass[replaced[0].Number].Method == replaced[0].Method;
  const TClass made = patched ? layoutClass : MakePatchedLayout(layoutClass, fake, replaced);
  fmx::TTextLayoutManager::RegisterTextLayout(made, canvasClass);
}

void UpdatePatchedDirection(fmx::TTextLayout& layout, TClass wrapped) {
  const auto& fields = FieldsOf<TPatchedLayoutFields>(layout, wrapped);
  TOrvTextLayoutHelper(layout).UpdateRightToLeft(fields.FBidiSelectionType);
}

}  // namespace orv
