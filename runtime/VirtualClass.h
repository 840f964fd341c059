// Class records: what a class is while the program runs. A record is a header of 200 bytes and, right behind it, the
// class's virtual slots, each the address of a method. A class value (TClass) points at the first slot, so a call
// through a slot costs what a C++ virtual call costs, and yet slots can be read, replaced and added at run time:
//
//     record   0  SelfPtr, tables, ClassName, InstanceSize, Parent
//             88  standard slots, reserved fields
//     TClass 200  slot 0
//            208  slot 1
//                 ...
//         VmtEnd  the first table, then the others and the name
//
// Records are made by runtime/RewritableClass.h (for classes compiled as C++) and by TVirtualClassGenerator (out of
// another record, at run time). They live to the end of the process. Nothing here reads or writes the compiler's own
// vtables. Not to be confused with those: an object that has a class value holds it in a member of its own.
//
// A record never changes once it is published, except by SetMethod; reading is free from any thread, SetMethod belongs
// to the main thread at start-up.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orv {

// The address of a method. Only the slot's number tells the method's type.
using TMethodAddress = void*;

// One slot. It takes 8 bytes on every machine, as all fields of a record do.
struct alignas(8) TVirtualSlot {
  TMethodAddress Method;
};
static_assert(sizeof(TVirtualSlot) == 8);

// A class value: the address of the first slot. Null is no class. Values are equal exactly for the same class.
using TClass = TVirtualSlot*;
using PClass = const TClass*;              // a cell that holds a class value
using PTypeInfo = const std::byte*;        // a type record, packed
using PShortString = const std::uint8_t*;  // a length byte and as many bytes of UTF-8

using PEquals = TMethodAddress;
using PGetHashCode = TMethodAddress;
using PToString = TMethodAddress;
using PSafeCallException = TMethodAddress;
using PAfterConstruction = TMethodAddress;
using PBeforeDestruction = TMethodAddress;
using PDispatch = TMethodAddress;
using PDefaultHandler = TMethodAddress;
using PNewInstance = TMethodAddress;
using PFreeInstance = TMethodAddress;
using PDestroy = TMethodAddress;

// The header of a record, and the questions it answers. The order and the width of the fields are fixed.
struct TVmt {
  alignas(8) TClass SelfPtr;  // the class value itself
  alignas(8) const void* IntfTable;
  alignas(8) const void* AutoTable;
  alignas(8) const void* InitTable;  // fields with managed values
  alignas(8) PTypeInfo TypeInfo;
  alignas(8) const void* FieldTable;    // published fields
  alignas(8) const void* MethodTable;   // published methods
  alignas(8) const void* DynamicTable;  // methods found by message number
  alignas(8) PShortString ClassName;
  alignas(8) std::int64_t InstanceSize;  // bytes
  alignas(8) PClass Parent;              // null for a root
  // Slots that every class has. A class that does not need one leaves it null.
  alignas(8) PEquals Equals;
  alignas(8) PGetHashCode GetHashCode;
  alignas(8) PToString ToString;
  alignas(8) PSafeCallException SafeCallException;
  alignas(8) PAfterConstruction AfterConstruction;
  alignas(8) PBeforeDestruction BeforeDestruction;
  alignas(8) PDispatch Dispatch;
  alignas(8) PDefaultHandler DefaultHandler;
  alignas(8) PNewInstance NewInstance;
  alignas(8) PFreeInstance FreeInstance;
  alignas(8) PDestroy Destroy;
  alignas(8) std::uintptr_t Reserved1;  // tells the count of slots where no table stands behind them
  alignas(8) const void* Reserved2;
  alignas(8) const void* Reserved3;

  static constexpr std::size_t HeaderSize = 200;

  // The record of a class, which is not null.
  static TVmt* GetVMT(TClass aClass) {
    return reinterpret_cast<TVmt*>(reinterpret_cast<std::byte*>(aClass) - HeaderSize);
  }
  // The record of an object's class. An object has a class value and answers it as ClassType().
  template <typename T>
  requires requires(const T& object) { TClass{object.ClassType()}; }
  static TVmt* GetVMT(const T& object) { return GetVMT(object.ClassType()); }

  // Slot 0.
  TClass UserDefinedVirtuals() const { return SelfPtr; }
  // The address right behind the last slot: that of the first table. InitTable where there is one, else FieldTable,
  // else MethodTable. Raises EAssertionFailed (in builds with assertions) for tables out of their order, which is
  // IntfTable, InitTable, FieldTable, MethodTable, then AutoTable, DynamicTable, ClassName. A record that has none of
  // the three ends by its own count of slots.
  const std::byte* VmtEnd() const;
  static const std::byte* VmtEnd(TClass aClass) { return GetVMT(aClass)->VmtEnd(); }

  // Bytes up to VmtEnd: from the record's start, from the first standard slot, from slot 0.
  std::int64_t GetSize() const;
  std::int64_t GetSizeMethodPartsOnly() const;
  std::int64_t GetSizeUserMethodsOnly() const;
  static std::int64_t GetSizeMethodPartsOnly(TClass aClass) { return GetVMT(aClass)->GetSizeMethodPartsOnly(); }
  static std::int64_t GetSizeUserMethodsOnly(TClass aClass) { return GetVMT(aClass)->GetSizeUserMethodsOnly(); }

  // How many 8-byte fields those are: all behind Parent, and the user-defined slots alone.
  std::int32_t GetMethodCount() const;
  std::int32_t GetUserMethodCount() const;
  static std::int32_t GetMethodCount(TClass aClass) { return GetVMT(aClass)->GetMethodCount(); }
  static std::int32_t GetUserMethodCount(TClass aClass) { return GetVMT(aClass)->GetUserMethodCount(); }

  // The content of a slot, 0-based. An index without a slot is a broken invariant; null where assertions are off.
  TMethodAddress GetMethod(std::int32_t index) const;
  // Writes a slot. An index without a slot is a broken invariant; writes nothing where assertions are off.
  void SetMethod(std::int32_t index, TMethodAddress address);
  // The first slot that holds the address. An address in no slot is a broken invariant; 0 where assertions are off.
  std::int32_t GetMethodIndex(TMethodAddress methodAddr) const;
};

// --- What a class value answers. The class is not null. ---

// UTF-8, of at most 255 bytes; lives as long as the class.
std::string_view ClassName(TClass aClass);
// The name of the unit that declared the class, from its type record; empty without one. As ClassName.
std::string_view UnitName(TClass aClass);
// Null for a root.
TClass ClassParent(TClass aClass);
// Bytes of an instance.
std::int64_t InstanceSize(TClass aClass);
// Whether the class is the ancestor or descends from it. False for a null ancestor.
bool InheritsFrom(TClass aClass, TClass ancestor);

}  // namespace orv
