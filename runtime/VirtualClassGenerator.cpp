#include "runtime/VirtualClassGenerator.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <string>
#include <utility>

#include "rtl/Utf8.h"
#include "runtime/VirtualClass.Tables.h"

namespace orv {
namespace {

using TGenerator = TVirtualClassGenerator;
using TBlock = TGenerator::TAllocatedClassRec;
using tables::Require;
using tables::TWriter;

static_assert(sizeof(TBlock) == TBlock::VmtOffset);

constexpr std::uint8_t EntryVersion = 3;
constexpr std::uint16_t NoAttributes = 2;  // the length of an empty attribute block
constexpr std::size_t IndexEntrySize = 8 + 2 + 2;

// --- What is to be written, with its names in UTF-8 ---

struct TMethodPlan {
  const TGenerator::TPublishedMethod* Method;
  std::string Name;
  std::vector<std::string> ParamNames;
  std::size_t EntrySize;
};

struct TPlan {
  TVmt* Parent;
  std::size_t VmtSize;
  std::size_t NewSlotsSize;
  std::string ClassName;
  std::string UnitName;
  std::vector<TMethodPlan> Methods;
};

std::string NameOf(std::u16string_view name) {
  std::string utf8 = rtl::ToUtf8(name);
  Require(utf8.size() <= tables::NameLimit, "A name is longer than 255 bytes");
  return utf8;
}

TMethodPlan PlanMethod(const TGenerator::TPublishedMethod& method) {
  Require(method.Params.size() <= std::numeric_limits<std::uint8_t>::max(), "A method has more than 255 parameters");
  TMethodPlan plan{&method, NameOf(method.MethodName), {}, 0};
  plan.EntrySize = 2 + 8 + 1 + plan.Name.size() + 1 + 1 + 8 + 2 + 1 + 2;
  for (const TGenerator::TMethodParam& param : method.Params) {
    plan.ParamNames.push_back(NameOf(param.Name));
    plan.EntrySize += 1 + 8 + 1 + 1 + plan.ParamNames.back().size() + 2;
  }
  Require(plan.EntrySize <= std::numeric_limits<std::uint16_t>::max(), "A method's entry is longer than 65535 bytes");
  return plan;
}

std::vector<TMethodPlan> PlanMethods(std::span<const TGenerator::TPublishedMethod> methods) {
  Require(methods.size() <= std::numeric_limits<std::uint16_t>::max(), "A class has more than 65535 methods");
  std::vector<TMethodPlan> plans;
  for (const TGenerator::TPublishedMethod& method : methods) plans.push_back(PlanMethod(method));
  return plans;
}

void CheckOverrides(std::span<const TGenerator::TOverrideMethodInfo> overrides, std::size_t slotCount) {
  for (const TGenerator::TOverrideMethodInfo& each : overrides)
    Require(each.Index >= 0 && static_cast<std::size_t>(each.Index) < slotCount, "No slot has this index");
}

// --- Sizes ---

std::size_t MethodTableSize(const TPlan& plan) {
  std::size_t size = 2 + 2 + 2;
  for (const TMethodPlan& method : plan.Methods) size += IndexEntrySize + method.EntrySize;
  return size;
}

// What the block takes, from its first byte to the end of the type record.
std::size_t BytesWritten(const TPlan& plan) {
  const std::size_t typeRecord = 1 + 1 + plan.ClassName.size() + 8 + 8 + 2 + 1 + plan.UnitName.size() + 8;
  return TBlock::VmtOffset + plan.VmtSize + plan.NewSlotsSize + MethodTableSize(plan) + 1 + plan.ClassName.size() +
         typeRecord;
}

// The block's size as the format counts it. It counts names by their UTF-16 units, so for names outside ASCII it can
// fall below the bytes written.
std::size_t NominalSize(const TPlan& plan, std::size_t classNameUnits, std::size_t unitNameUnits) {
  std::size_t methodTable = 6;
  for (const TMethodPlan& method : plan.Methods) {
    methodTable += method.Method->MethodName.size() + 44;
    for (const TGenerator::TMethodParam& param : method.Method->Params) methodTable += param.Name.size() + 20;
  }
  const std::size_t typeInfo = classNameUnits + unitNameUnits + 29;
  return plan.VmtSize + classNameUnits + plan.NewSlotsSize + methodTable + typeInfo + 2 + 206;
}

// The field that tells the size is a word, and wraps for larger blocks; what is reserved never does.
std::uint16_t StoredSize(std::size_t nominalSize) {
  return static_cast<std::uint16_t>(nominalSize);
}

// --- Memory ---

// The block made last. Every block knows the one before it, so all stay reachable to the end of the process, whatever
// becomes of the list.
void* lastAllocation = nullptr;

// Before a block: the allocation before it, and what brings the record at byte 6 to an 8-byte boundary.
constexpr std::size_t LinkSize = 8;
constexpr std::size_t BlockOffset = LinkSize + 8 - TBlock::VmtOffset;

TBlock* Allocate(std::size_t reserved, std::uint16_t storedSize) {
  auto* allocation = static_cast<std::byte*>(::operator new(BlockOffset + reserved));
  std::memset(allocation, 0, BlockOffset + reserved);
  std::memcpy(allocation, &lastAllocation, sizeof lastAllocation);
  lastAllocation = allocation;
  return ::new (allocation + BlockOffset) TBlock(storedSize);
}

TGenerator::TVirtualClassList& ClassList() {
  static TGenerator::TVirtualClassList classes;
  return classes;
}

// --- Tables ---

void WriteEntry(TWriter& writer, const TMethodPlan& plan) {
  const TGenerator::TPublishedMethod& method = *plan.Method;
  writer.U16(static_cast<std::uint16_t>(plan.EntrySize));
  writer.Pointer(method.Address);
  writer.ShortString(plan.Name);
  writer.U8(EntryVersion);
  writer.U8(method.CC);
  writer.Pointer(method.ResultType);
  writer.U16(method.ParOff);
  writer.U8(static_cast<std::uint8_t>(method.Params.size()));
  for (std::size_t i = 0; i < method.Params.size(); ++i) {
    const TGenerator::TMethodParam& param = method.Params[i];
    writer.U8(param.Flags);
    writer.Pointer(param.ParamType);
    writer.U8(param.ParOff);
    writer.ShortString(plan.ParamNames[i]);
    writer.U16(NoAttributes);
  }
  writer.U16(NoAttributes);
}

void WriteMethodTable(TWriter& writer, const std::vector<TMethodPlan>& methods) {
  writer.U16(0);  // no entries in the old form
  writer.U16(static_cast<std::uint16_t>(methods.size()));
  const std::byte* entry = writer.Cursor() + methods.size() * IndexEntrySize + 2;
  for (const TMethodPlan& plan : methods) {
    writer.Pointer(entry);
    writer.U16(plan.Method->Flags.Flags);
    writer.U16(static_cast<std::uint16_t>(plan.Method->VirtualIndex));
    entry += plan.EntrySize;
  }
  writer.U16(0);
  for (const TMethodPlan& plan : methods) WriteEntry(writer, plan);
}

std::uint16_t PropertyCount(const TVmt& vmt) {
  return vmt.TypeInfo == nullptr ? std::uint16_t{0} : tables::ReadPropertyCount(vmt.TypeInfo);
}

// --- The record ---

void CopyRecord(TVmt* vmt, const TPlan& plan) {
  std::memcpy(static_cast<void*>(vmt), plan.Parent, plan.VmtSize);
  vmt->SelfPtr = reinterpret_cast<TClass>(reinterpret_cast<std::byte*>(vmt) + TVmt::HeaderSize);
  tables::ClearOwnTables(*vmt);
}

void WriteTables(TVmt* vmt, TWriter writer, const TPlan& plan) {
  vmt->MethodTable = writer.Cursor();
  WriteMethodTable(writer, plan.Methods);
  vmt->ClassName = reinterpret_cast<PShortString>(writer.Cursor());
  writer.ShortString(plan.ClassName);
  vmt->TypeInfo = writer.Cursor();
  tables::WriteTypeRecord(
      writer, {plan.ClassName, vmt->SelfPtr, &plan.Parent->TypeInfo, PropertyCount(*plan.Parent), plan.UnitName});
}

}  // namespace

TVirtualClassGenerator::TMethodParam TVirtualClassGenerator::TMethodParam::Create(rtl::UnicodeString name,
                                                                                  std::uint8_t flags,
                                                                                  const PTypeInfo* paramType,
                                                                                  std::uint8_t parOff) {
  return {std::move(name), flags, paramType, parOff};
}

std::int32_t TVirtualClassGenerator::TAllocatedClassRec::Reference() const {
  std::int32_t reference = 0;
  std::memcpy(&reference, FReference, sizeof reference);
  return reference;
}

const TVirtualClassGenerator::TVirtualClassList& TVirtualClassGenerator::Classes() {
  return ClassList();
}

void TVirtualClassGenerator::DestroyClassList() {
  ClassList() = {};
}

TVirtualClassGenerator::TPublishedMethod TVirtualClassGenerator::TPublishedMethod::Create(
    rtl::UnicodeString methodName, TMethodAddress address, std::uint8_t cc, std::int16_t virtualIndex,
    TMethodFlags flags, const PTypeInfo* resultType, std::uint16_t parOff, std::vector<TMethodParam> params) {
  return {std::move(methodName), address, cc, virtualIndex, flags, resultType, parOff, std::move(params)};
}

TVirtualClassGenerator::TPublishedMethod TVirtualClassGenerator::TPublishedMethod::Create(
    rtl::UnicodeString methodName, TMethodAddress address, std::uint8_t cc, std::int16_t virtualIndex,
    TMethodFlags flags, const PTypeInfo* resultType, std::uint16_t parOff) {
  return Create(std::move(methodName), address, cc, virtualIndex, flags, resultType, parOff, {});
}

TClass TVirtualClassGenerator::CreateNewClass(TClass parentClass, std::u16string_view unitName,
                                              std::u16string_view className,
                                              std::span<const TOverrideMethodInfo> overrides,
                                              std::span<const TPublishedMethod> publishedMethods,
                                              std::span<const TMethodAddress> newVirtuals, std::int32_t instanceSize) {
  Require(parentClass != nullptr, "A class is made out of another one");
  TVmt* parent = TVmt::GetVMT(parentClass);
  Require(parent->GetSize() >= static_cast<std::int64_t>(TVmt::HeaderSize), "A record ends inside its header");
  const std::int32_t parentSlots = parent->GetUserMethodCount();
  CheckOverrides(overrides, static_cast<std::size_t>(parentSlots) + newVirtuals.size());
  const TPlan plan{parent,
                   static_cast<std::size_t>(parent->GetSize()),
                   newVirtuals.size() * sizeof(TVirtualSlot),
                   NameOf(className),
                   NameOf(unitName),
                   PlanMethods(publishedMethods)};
  const std::size_t nominal = NominalSize(plan, className.size(), unitName.size());
  const std::size_t reserved = std::max(nominal, BytesWritten(plan));

  TBlock* block = Allocate(reserved, StoredSize(nominal));
  ClassList().Add(block);
  TVmt* vmt = block->Tail();
  CopyRecord(vmt, plan);
  auto* bytes = reinterpret_cast<std::byte*>(block);
  WriteTables(vmt, TWriter(std::span(bytes, reserved).subspan(TBlock::VmtOffset + plan.VmtSize + plan.NewSlotsSize)),
              plan);
  vmt->InstanceSize = std::max<std::int64_t>(vmt->InstanceSize, instanceSize);
  vmt->Parent = &parent->SelfPtr;  // the record's first field is the cell

  for (const TOverrideMethodInfo& each : overrides) vmt->SetMethod(each.Index, each.Address);
  for (std::size_t i = 0; i < newVirtuals.size(); ++i)
    vmt->SetMethod(parentSlots + static_cast<std::int32_t>(i), newVirtuals[i]);
  return vmt->SelfPtr;
}

}  // namespace orv
