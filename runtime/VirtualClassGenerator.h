// Makes classes at run time: a copy of a class's record with some slots replaced, some added, and a name, a type record
// and published methods of its own. It slips other behaviour under a class without touching that class or its objects;
// whoever makes objects is told to use the new class. The pattern, with a class T of a host framework:
//
// 1. A class TFake, compiled against T's base, collects the replacements as static members of the slots' types. No
//    object is ever made of it.
// 2. The slot of each replacement is found in TFake's record by the replacement's identity (TVmt::GetMethodIndex).
// 3. What T has in that slot (TVmt::GetMethod) is kept, so that the replacement can call it: it wraps the method.
// 4. CreateNewClass makes the class out of T, with TFake's unit name, T's name with "Orv" behind it, the replacements
//    as overrides, and T's instance size grown by the fields that the replacements need. It is then registered.
//
// docs/class-records.md shows the pattern as code. Everything here belongs to the main thread and takes no lock.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "rtl/Strings.h"
#include "runtime/VirtualClass.h"

namespace orv {

class TVirtualClassGenerator {
 public:
  // A slot to replace: its 0-based number, and the method to put there.
  struct TOverrideMethodInfo {
    std::int32_t Index;
    TMethodAddress Address;
  };

  // What a published method's flags word tells. Values that do not fit their bits are cut to them.
  struct TMethodFlags {
    enum class TSpecialMethod : std::uint8_t { smNone, smConstructor, smDestructor, smOperatorOverload };
    static constexpr std::uint8_t SpecialKind = 4;  // the method kind of constructors, destructors and operators

    // Calls the four setters in this order.
    static constexpr TMethodFlags Create(std::uint8_t kind, TSpecialMethod special, std::uint8_t dispatch,
                                         std::uint8_t visibility);

    // Bits 0, 1 and 7; or SpecialKind, which bit 2 marks.
    constexpr std::uint8_t GetMethodKind() const;
    constexpr void SetMethodKind(std::uint8_t kind);
    // Bits 0 and 1 of a special method. Reads smNone from, and writes nothing to, a method of another kind.
    constexpr TSpecialMethod GetSpecialMethod() const;
    constexpr void SetSpecialMethod(TSpecialMethod special);
    // Bits 3 and 4.
    constexpr std::uint8_t GetDispatchKind() const;
    constexpr void SetDispatchKind(std::uint8_t dispatch);
    // Bits 5 and 6.
    constexpr std::uint8_t GetMemberVisibility() const;
    constexpr void SetMemberVisibility(std::uint8_t visibility);

    std::uint16_t Flags = 0;
  };

  // A parameter of a published method.
  struct TMethodParam {
    rtl::UnicodeString Name;
    std::uint8_t Flags = 0;
    const PTypeInfo* ParamType = nullptr;  // the cell of its type record
    std::uint8_t ParOff = 0;

    static TMethodParam Create(rtl::UnicodeString name, std::uint8_t flags, const PTypeInfo* paramType,
                               std::uint8_t parOff);
  };

  // A method that can be found by its name.
  struct TPublishedMethod {
    rtl::UnicodeString MethodName;
    TMethodAddress Address = nullptr;
    std::uint8_t CC = 0;  // the number of its calling convention
    std::int16_t VirtualIndex = 0;
    TMethodFlags Flags;
    const PTypeInfo* ResultType = nullptr;  // the cell of its type record
    std::uint16_t ParOff = 0;
    std::vector<TMethodParam> Params;

    // Without parameters, and with them.
    static TPublishedMethod Create(rtl::UnicodeString methodName, TMethodAddress address, std::uint8_t cc,
                                   std::int16_t virtualIndex, TMethodFlags flags, const PTypeInfo* resultType,
                                   std::uint16_t parOff);
    static TPublishedMethod Create(rtl::UnicodeString methodName, TMethodAddress address, std::uint8_t cc,
                                   std::int16_t virtualIndex, TMethodFlags flags, const PTypeInfo* resultType,
                                   std::uint16_t parOff, std::vector<TMethodParam> params);
  };

  // The start of the memory of a generated class. The record stands at byte 6 and is 8-byte aligned there, so the block
  // itself is not; the slots and the tables follow the record.
  class TAllocatedClassRec {
   public:
    static constexpr std::size_t VmtOffset = 6;

    explicit TAllocatedClassRec(std::uint16_t allocationSize) : AllocationSize(allocationSize) {}

    // Bytes of the block, as CreateNewClass counts them, modulo 65536.
    const std::uint16_t AllocationSize;
    // Nothing ever sets it.
    std::int32_t Reference() const;
    // The block of a class that CreateNewClass made.
    static TAllocatedClassRec* Of(TClass aClass) {
      return reinterpret_cast<TAllocatedClassRec*>(reinterpret_cast<std::byte*>(TVmt::GetVMT(aClass)) - VmtOffset);
    }
    // The class record.
    TVmt* Tail() { return reinterpret_cast<TVmt*>(reinterpret_cast<std::byte*>(this) + VmtOffset); }

   private:
    const std::byte FReference[sizeof(std::int32_t)] = {};
  };

  // The blocks of generated classes, in the order in which the classes were made. Destroying the list leaves the blocks
  // in memory, where they stay to the end of the process.
  class TVirtualClassList {
   public:
    void Add(TAllocatedClassRec* block) { FBlocks.push_back(block); }
    std::size_t Count() const { return FBlocks.size(); }
    TAllocatedClassRec* operator[](std::size_t index) const { return FBlocks[index]; }

   private:
    std::vector<TAllocatedClassRec*> FBlocks;
  };
  // All classes that CreateNewClass has made.
  static const TVirtualClassList& Classes();
  // Empties that list. The classes stay in force.
  static void DestroyClassList();

  // Makes a class out of parentClass and answers its class value.
  // - The class has all slots of its parent, standard ones included, then newVirtuals. Overrides are applied in their
  //   order, before the new virtuals are written.
  // - It has no interfaces, managed fields, published fields and dynamic methods of its own; of published methods it
  // has
  //   those given. All these are found through ClassParent.
  // - instanceSize is in bytes; below the parent's it is the parent's.
  // - Names are UTF-16, and stored as UTF-8. The arguments are read during the call and not kept.
  // Raises EAssertionFailed, in every build and before anything is made, for a null parent, one whose record ends
  // inside its header, an override outside the slots, a name of more than 255 bytes, more than 255 parameters of a
  // method or 65535 methods, and a method whose entry takes more than 65535 bytes. Raises std::bad_alloc where memory
  // is short.
  static TClass CreateNewClass(TClass parentClass, std::u16string_view unitName, std::u16string_view className,
                               std::span<const TOverrideMethodInfo> overrides = {},
                               std::span<const TPublishedMethod> publishedMethods = {},
                               std::span<const TMethodAddress> newVirtuals = {}, std::int32_t instanceSize = 0);

  // The offset of a parameter in a published method's record: 8 for each of the arguments counted by the first five,
  // and 16, and the sixth. Wraps as 32-bit numbers do.
  static constexpr std::int32_t ParOff(std::int32_t a, std::int32_t b, std::int32_t c, std::int32_t d, std::int32_t e,
                                       std::int32_t last) {
    const auto word = [](std::int32_t value) { return static_cast<std::uint32_t>(value); };
    return static_cast<std::int32_t>((word(a) + word(b) + word(c) + word(d) + word(e)) * 8 + word(last) + 16);
  }
};

// --- Flags ---

namespace flagbits {

inline constexpr std::uint16_t Kind = 0x0087;
inline constexpr std::uint16_t Special = 0x0003;
inline constexpr int DispatchShift = 3;
inline constexpr int VisibilityShift = 5;
inline constexpr std::uint16_t TwoBits = 3;

constexpr std::uint16_t With(std::uint16_t flags, std::uint16_t mask, int bits) {
  return static_cast<std::uint16_t>((flags & ~mask) | (bits & mask));
}

}  // namespace flagbits

constexpr std::uint8_t TVirtualClassGenerator::TMethodFlags::GetMethodKind() const {
  if ((Flags & SpecialKind) != 0) return SpecialKind;
  return static_cast<std::uint8_t>(Flags & flagbits::Kind);
}

constexpr void TVirtualClassGenerator::TMethodFlags::SetMethodKind(std::uint8_t kind) {
  Flags = flagbits::With(Flags, flagbits::Kind, kind);
}

constexpr auto TVirtualClassGenerator::TMethodFlags::GetSpecialMethod() const -> TSpecialMethod {
  if (GetMethodKind() != SpecialKind) return TSpecialMethod::smNone;
  return static_cast<TSpecialMethod>(Flags & flagbits::Special);
}

constexpr void TVirtualClassGenerator::TMethodFlags::SetSpecialMethod(TSpecialMethod special) {
  if (GetMethodKind() == SpecialKind) Flags = flagbits::With(Flags, flagbits::Special, static_cast<int>(special));
}

constexpr std::uint8_t TVirtualClassGenerator::TMethodFlags::GetDispatchKind() const {
  return static_cast<std::uint8_t>(Flags >> flagbits::DispatchShift & flagbits::TwoBits);
}

constexpr void TVirtualClassGenerator::TMethodFlags::SetDispatchKind(std::uint8_t dispatch) {
  Flags = flagbits::With(Flags, flagbits::TwoBits << flagbits::DispatchShift, dispatch << flagbits::DispatchShift);
}

constexpr std::uint8_t TVirtualClassGenerator::TMethodFlags::GetMemberVisibility() const {
  return static_cast<std::uint8_t>(Flags >> flagbits::VisibilityShift & flagbits::TwoBits);
}

constexpr void TVirtualClassGenerator::TMethodFlags::SetMemberVisibility(std::uint8_t visibility) {
  Flags =
      flagbits::With(Flags, flagbits::TwoBits << flagbits::VisibilityShift, visibility << flagbits::VisibilityShift);
}

constexpr auto TVirtualClassGenerator::TMethodFlags::Create(std::uint8_t kind, TSpecialMethod special,
                                                            std::uint8_t dispatch, std::uint8_t visibility)
    -> TMethodFlags {
  TMethodFlags flags;
  flags.SetMethodKind(kind);
  flags.SetSpecialMethod(special);
  flags.SetDispatchKind(dispatch);
  flags.SetMemberVisibility(visibility);
  return flags;
}

}  // namespace orv
