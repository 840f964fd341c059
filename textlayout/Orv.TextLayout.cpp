#include "textlayout/Orv.TextLayout.h"

#include <optional>
#include <string>

#include "fmx/Services.h"
#include "rtl/Assertions.h"
#include "rtl/Unicode.h"
#include "runtime/RewritableClass.h"
#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv {
namespace {

constexpr bool IsIn(char16_t c, char16_t low, char16_t high) {
  return c >= low && c <= high;
}

constexpr bool DecidesRightToLeft(char16_t c) {
  return c == 0x200F || c == 0x2E2E || IsIn(c, 0x2035, 0x2037) || IsIn(c, 0x0591, 0x065F) || IsIn(c, 0x066E, 0x06EF) ||
         IsIn(c, 0x06FA, 0x06FF);
}

bool DecidesLeftToRight(char16_t c) {
  return c == 0x200E || rtl::IsLetter(c);
}

// Whether the first unit that decides says right to left; nothing where none decides. Right to left is asked first,
// because Arabic and Hebrew letters are letters, too.
std::optional<bool> ScanDirection(std::u16string_view text) {
  for (const char16_t c : text) {
    if (DecidesRightToLeft(c)) return true;
    if (DecidesLeftToRight(c)) return false;
  }
  return std::nullopt;
}

TTextLayoutNGOrv* AsOwn(fmx::TTextLayout& layout) {
  return layout.InheritsFrom(TTextLayoutNGOrv::Class()) ? static_cast<TTextLayoutNGOrv*>(&layout) : nullptr;
}

// The fields of the generated class; null for a class of another name, and for one that was made without them.
TPatchedLayoutFields* AsPatched(fmx::TTextLayout& layout) {
  if (layout.ClassName() != TOrvTextLayoutHelper::PatchedLayoutName) return nullptr;
  const TClass parent = ClassParent(layout.ClassType());
  if (parent == nullptr || InstanceSize(layout.ClassType()) < GrownInstanceSize<TPatchedLayoutFields>(parent))
    return nullptr;
  return &FieldsOf<TPatchedLayoutFields>(layout, parent);
}

[[noreturn]] void RaiseNotDefined(const char* what, const fmx::TTextLayout& layout) {
  throw rtl::Exception(std::string(what) + " for " + std::string(layout.ClassName()) + " layout is not defined");
}

// The layout has no such state, and inventing some would hide the mistake of asking for it.
[[noreturn]] void RaiseNotServed(const char* what, const fmx::TTextLayout& layout) {
  ORV_ASSERT(false, std::string(what) + " is not served by " + std::string(layout.ClassName()));
  RaiseNotDefined(what, layout);
}

}  // namespace

TBidiSelectionType TOrvTextLayoutHelper::GetManualBidi() const {
  if (const auto* own = AsOwn(FLayout)) return own->BidiSelectionType();
  if (const auto* patched = AsPatched(FLayout)) return patched->FBidiSelectionType;
  RaiseNotDefined("BidiSelectionType", FLayout);
}

void TOrvTextLayoutHelper::SetManualBidi(TBidiSelectionType type) const {
  if (auto* own = AsOwn(FLayout))
    own->SetBidiSelectionType(type);
  else if (auto* patched = AsPatched(FLayout))
    patched->FBidiSelectionType = type;
}

float TOrvTextLayoutHelper::GetTabSize() const {
  if (const auto* own = AsOwn(FLayout)) return own->TabSize();
  if (const auto* patched = AsPatched(FLayout)) return patched->FTabSize;
  RaiseNotDefined("TabSize", FLayout);
}

void TOrvTextLayoutHelper::SetTabSize(float size) const {
  if (auto* own = AsOwn(FLayout)) {
    own->SetTabSize(size);
  } else if (auto* patched = AsPatched(FLayout)) {
    RequireFinite(size, "TabSize");
    patched->FTabSize = size;
  }
}

TTextResizeMode TOrvTextLayoutHelper::GetResizeMode() const {
  if (AsOwn(FLayout) != nullptr) RaiseNotServed("ResizeMode", FLayout);
  if (const auto* patched = AsPatched(FLayout)) return patched->FResizeMode;
  RaiseNotDefined("ResizeMode", FLayout);
}

void TOrvTextLayoutHelper::SetResizeMode(TTextResizeMode mode) const {
  if (AsOwn(FLayout) != nullptr) RaiseNotServed("ResizeMode", FLayout);
  if (auto* patched = AsPatched(FLayout)) patched->FResizeMode = mode;
}

fmx::TSizeF TOrvTextLayoutHelper::GetDefaultSize() const {
  if (AsOwn(FLayout) != nullptr) RaiseNotServed("DefaultSize", FLayout);
  if (const auto* patched = AsPatched(FLayout)) return {patched->FDefaultWidth, patched->FDefaultHeight};
  return {};
}

void TOrvTextLayoutHelper::SetDefaultSize(fmx::TSizeF size) const {
  if (AsOwn(FLayout) != nullptr) RaiseNotServed("DefaultSize", FLayout);
  if (auto* patched = AsPatched(FLayout)) {
    patched->FDefaultWidth = size.Width;
    patched->FDefaultHeight = size.Height;
  }
}

TDirectionContext TOrvTextLayoutHelper::GetDirectionContext(std::u16string_view text) {
  return ScanDirection(text).value_or(false) ? TDirectionContext::RightToLeft : TDirectionContext::LeftToRight;
}

void TOrvTextLayoutHelper::UpdateRightToLeft(TBidiSelectionType type) const {
  if (type == TBidiSelectionType::btManual) return;
  const bool byForm = fmx::ActiveFormBiDiMode() != fmx::TBiDiMode::LeftToRight;
  FLayout.StoreRightToLeft(ScanDirection(FLayout.Text()).value_or(byForm));
}

}  // namespace orv
