#include "runtime/RewritableClass.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "rtl/Assertions.h"
#include "runtime/VirtualClass.Tables.h"

namespace orv {
namespace {

static_assert(CompiledRecordRoom(0) == TVmt::HeaderSize + 6 + tables::NameRoom + tables::TypeRecordRoom);

// Slots of the parent first, then what the class fills itself.
void WriteSlots(TClass slots, TClass parent, std::span<const TFilledSlot> filled) {
  if (parent != nullptr) std::copy_n(parent, TVmt::GetUserMethodCount(parent), slots);
  for (const TFilledSlot& slot : filled) slots[slot.Number].Method = slot.Method;
}

}  // namespace

TClass MakeCompiledRecord(std::span<std::byte> room, const TCompiledClass& compiled,
                          std::span<const TFilledSlot> slots) {
  const auto slotCount = static_cast<std::size_t>(compiled.SlotCount);
  auto* vmt = ::new (room.data()) TVmt{};
  const TClass made = reinterpret_cast<TClass>(room.data() + TVmt::HeaderSize);
  std::uninitialized_value_construct_n(made, slotCount);
  TVmt* parent = compiled.Parent == nullptr ? nullptr : TVmt::GetVMT(compiled.Parent);
  if (parent != nullptr) *vmt = *parent;
  tables::ClearOwnTables(*vmt);  // they are the parent's, and found through it
  WriteSlots(made, compiled.Parent, slots);

  tables::TWriter writer(room.subspan(TVmt::HeaderSize + slotCount * sizeof(TVirtualSlot)));
  vmt->SelfPtr = made;
  vmt->MethodTable = writer.Cursor();
  writer.Zeros(6);  // no published methods
  vmt->ClassName = reinterpret_cast<PShortString>(writer.Cursor());
  writer.ShortString(compiled.ClassName);
  vmt->TypeInfo = writer.Cursor();
  tables::WriteTypeRecord(
      writer, {compiled.ClassName, made, parent == nullptr ? nullptr : &parent->TypeInfo, 0, compiled.UnitName});
  vmt->InstanceSize = static_cast<std::int64_t>(compiled.InstanceSize);
  vmt->Parent = parent == nullptr ? nullptr : &parent->SelfPtr;
  return made;
}

TRewritableObject::TRewritableObject(TClass aClass) : FClass(aClass) {
  ORV_ASSERT(aClass != nullptr, "An object without a class");
}

void* TRewritableObject::operator new(std::size_t size, TClass aClass) {
  const auto told = static_cast<std::size_t>(std::max<std::int64_t>(InstanceSize(aClass), 0));
  auto* object = static_cast<std::byte*>(::operator new(std::max(size, told)));
  if (told > size) std::memset(object + size, 0, told - size);
  return object;
}

void* TRewritableObject::operator new(std::size_t size) {
  return ::operator new(size);
}

// Neither names the object's size, which its C++ type does not tell.
void TRewritableObject::operator delete(void* object) noexcept {
  ::operator delete(object);
}

void TRewritableObject::operator delete(void* object, TClass) noexcept {
  ::operator delete(object);
}

}  // namespace orv
