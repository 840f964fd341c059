#include "runtime/VirtualClass.h"

#include <type_traits>

#include "rtl/Assertions.h"
#include "runtime/VirtualClass.Tables.h"

namespace orv {
namespace {

// The header is read by other code of the runtime, at these very offsets.
static_assert(std::is_standard_layout_v<TVmt> && std::is_trivially_copyable_v<TVmt>);
static_assert(sizeof(TVmt) == TVmt::HeaderSize && alignof(TVmt) == 8);
static_assert(offsetof(TVmt, SelfPtr) == 0 && offsetof(TVmt, IntfTable) == 8 && offsetof(TVmt, AutoTable) == 16);
static_assert(offsetof(TVmt, InitTable) == 24 && offsetof(TVmt, TypeInfo) == 32 && offsetof(TVmt, FieldTable) == 40);
static_assert(offsetof(TVmt, MethodTable) == 48 && offsetof(TVmt, DynamicTable) == 56);
static_assert(offsetof(TVmt, ClassName) == 64 && offsetof(TVmt, InstanceSize) == 72 && offsetof(TVmt, Parent) == 80);
static_assert(offsetof(TVmt, Equals) == 88 && offsetof(TVmt, GetHashCode) == 96 && offsetof(TVmt, ToString) == 104);
static_assert(offsetof(TVmt, SafeCallException) == 112 && offsetof(TVmt, AfterConstruction) == 120);
static_assert(offsetof(TVmt, BeforeDestruction) == 128 && offsetof(TVmt, Dispatch) == 136);
static_assert(offsetof(TVmt, DefaultHandler) == 144 && offsetof(TVmt, NewInstance) == 152);
static_assert(offsetof(TVmt, FreeInstance) == 160 && offsetof(TVmt, Destroy) == 168);
static_assert(offsetof(TVmt, Reserved1) == 176 && offsetof(TVmt, Reserved2) == 184 && offsetof(TVmt, Reserved3) == 192);

std::uintptr_t Number(const void* address) {
  return reinterpret_cast<std::uintptr_t>(address);
}

// The number wraps: no table at all is the highest place, so that every address lies below it.
[[maybe_unused]] bool LiesBelow(const void* address, const void* table) {
  return Number(address) < Number(table) - 1;
}

[[maybe_unused]] bool LiesAbove(const void* address, const void* table) {
  return Number(address) > Number(table);
}

void CheckOrder([[maybe_unused]] const TVmt& vmt) {
  ORV_ASSERT(vmt.InitTable == nullptr || LiesBelow(vmt.InitTable, vmt.FieldTable), "InitTable behind FieldTable");
  ORV_ASSERT(LiesBelow(vmt.MethodTable, vmt.DynamicTable), "MethodTable behind DynamicTable");
  ORV_ASSERT(LiesAbove(vmt.MethodTable, vmt.IntfTable), "MethodTable before IntfTable");
  ORV_ASSERT(LiesBelow(vmt.MethodTable, vmt.AutoTable), "MethodTable behind AutoTable");
  ORV_ASSERT(LiesAbove(vmt.MethodTable, vmt.InitTable), "MethodTable before InitTable");
  ORV_ASSERT(LiesAbove(vmt.MethodTable, vmt.FieldTable), "MethodTable before FieldTable");
  ORV_ASSERT(Number(vmt.MethodTable) < Number(vmt.ClassName), "MethodTable behind ClassName");
}

bool HasNoTable(const TVmt& vmt) {
  return vmt.InitTable == nullptr && vmt.FieldTable == nullptr && vmt.MethodTable == nullptr;
}

const void* FirstTable(const TVmt& vmt) {
  if (vmt.InitTable != nullptr) return vmt.InitTable;
  return vmt.FieldTable != nullptr ? vmt.FieldTable : vmt.MethodTable;
}

const std::byte* Bytes(const void* address) {
  return static_cast<const std::byte*>(address);
}

// From a to b, in whatever blocks they lie.
std::int64_t Distance(const void* a, const void* b) {
  return static_cast<std::int64_t>(Number(b) - Number(a));
}

constexpr std::size_t MethodParts = offsetof(TVmt, Parent) + sizeof(TVirtualSlot);

std::int32_t SlotsIn(std::int64_t size) {
  return static_cast<std::int32_t>(size / static_cast<std::int64_t>(sizeof(TVirtualSlot)));
}

}  // namespace

const std::byte* TVmt::VmtEnd() const {
  if (HasNoTable(*this)) return Bytes(SelfPtr + Reserved1);
  CheckOrder(*this);
  return Bytes(FirstTable(*this));
}

std::int64_t TVmt::GetSize() const {
  return Distance(this, VmtEnd());
}

std::int64_t TVmt::GetSizeMethodPartsOnly() const {
  return GetSize() - static_cast<std::int64_t>(MethodParts);
}

std::int64_t TVmt::GetSizeUserMethodsOnly() const {
  return Distance(SelfPtr, VmtEnd());
}

std::int32_t TVmt::GetMethodCount() const {
  return SlotsIn(GetSizeMethodPartsOnly());
}

std::int32_t TVmt::GetUserMethodCount() const {
  return SlotsIn(GetSizeUserMethodsOnly());
}

TMethodAddress TVmt::GetMethod(std::int32_t index) const {
  const bool isSlot = index >= 0 && index < GetUserMethodCount();
  ORV_ASSERT(isSlot, "No slot has this index");
  return isSlot ? SelfPtr[index].Method : nullptr;
}

void TVmt::SetMethod(std::int32_t index, TMethodAddress address) {
  const bool isSlot = index >= 0 && index < GetUserMethodCount();
  ORV_ASSERT(isSlot, "No slot has this index");
  if (isSlot) SelfPtr[index].Method = address;
}

std::int32_t TVmt::GetMethodIndex(TMethodAddress methodAddr) const {
  const std::int32_t count = GetUserMethodCount();
  for (std::int32_t index = 0; index < count; ++index)
    if (SelfPtr[index].Method == methodAddr) return index;
  ORV_ASSERT(false, "The address is in no slot");
  return 0;
}

std::string_view ClassName(TClass aClass) {
  return tables::ReadShortString(TVmt::GetVMT(aClass)->ClassName);
}

std::string_view UnitName(TClass aClass) {
  const PTypeInfo info = TVmt::GetVMT(aClass)->TypeInfo;
  return info == nullptr ? std::string_view() : tables::ReadUnitName(info);
}

TClass ClassParent(TClass aClass) {
  const PClass parent = TVmt::GetVMT(aClass)->Parent;
  return parent == nullptr ? nullptr : *parent;
}

std::int64_t InstanceSize(TClass aClass) {
  return TVmt::GetVMT(aClass)->InstanceSize;
}

bool InheritsFrom(TClass aClass, TClass ancestor) {
  for (TClass each = aClass; each != nullptr; each = ClassParent(each))
    if (each == ancestor) return true;
  return false;
}

}  // namespace orv
