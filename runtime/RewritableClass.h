// Classes that can be rewritten while the program runs: C++ classes whose replaceable operations go through the slots
// of a class record (runtime/VirtualClass.h) instead of the compiler's vtable. Everything else about them is plain C++.
//
// 1. A class declares its replaceable operations in the order of the slots, fills them from its member functions, and
//    calls them through the record of the object's class:
//
//      class TLayout : public orv::TRewritableObject {
//       public:
//        struct Create : orv::TSlot<0, std::unique_ptr<TLayout>(orv::TClass, TCanvas*)> {};  // a virtual constructor
//        struct Render : orv::TSlot<1, void(TLayout&, int)> {};
//        struct Width : orv::TSlot<2, float(const TLayout&)> {};
//        static constexpr int SlotCount = 3;
//
//        static orv::TClass Class() {
//          return orv::CompiledClass<TLayout, orv::TNoParent, orv::FillNew<Create, TLayout>,
//                                    orv::Fill<Render, &TLayout::RenderPlainly>, orv::FillAbstract<Width>>(
//              "Host.Layout", "TLayout");
//        }
//        explicit TLayout(TCanvas* canvas, orv::TClass aClass = Class());  // hands aClass to TRewritableObject
//
//        void DoRender(int depth) { orv::Record(ClassType()).Slot<Render>()(*this, depth); }
//
//       protected:
//        void RenderPlainly(int depth);  // may be private too; a descendant calls it as "inherited"
//      };
//
// 2. A compiled descendant names its parent and what it replaces; slots it adds go on from its parent's count:
//
//      class TGpuLayout : public TLayout {
//       public:
//        static constexpr int SlotCount = TLayout::SlotCount;
//        static orv::TClass Class() {
//          return orv::CompiledClass<TGpuLayout, TLayout, orv::FillNew<Create, TGpuLayout>,
//                                    orv::Fill<Render, &TGpuLayout::RenderQuads>, ...>("Host.Gpu", "TGpuLayout");
//        }
//
// 3. Code that holds a class value makes objects of it, whether it was compiled or generated:
//
//      std::unique_ptr<TLayout> layout = orv::Record(aClass).Slot<TLayout::Create>()(aClass, canvas);
//
// 4. TVirtualClassGenerator makes a class out of such a record at run time, with other methods in some slots. A method
//    that goes into a compiled class of someone else's is no member of it: it is a function with the slot's own type,
//    void(TLayout&, int), for instance a static member of the class that collects the replacements.
//
// What does not compile: a method that does not fit its slot, a slot of another class, a new slot left unfilled, a
// descendant that overlaps its parent's slots. Thunks are plain functions of exactly the slot's type, so calls are
// clean under every sanitizer and optimiser. A call costs two loads and an indirect jump, as a C++ virtual call does.
//
// As in any class, a constructor does not call its own replaceable operations: what descends from it is not made yet.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>

#include "rtl/Exceptions.h"
#include "runtime/VirtualClass.h"

namespace orv {

// An operation that no class of the object's line has supplied.
class EAbstractError : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EAbstractError"; }
};

inline constexpr const char* SAbstractError = "Abstract Error";

// --- Slots ---

// A replaceable operation: the number of its slot, 0-based, and the type of the function in it. The function's first
// argument is the object, as a reference to the class that declares the slot; that of a constructor is the class of the
// object to be made.
template <int SlotNumber, typename TSignature>
struct TSlot;

template <int SlotNumber, typename R, typename TSelf, typename... TArgs>
struct TSlot<SlotNumber, R(TSelf&, TArgs...)> {
  static_assert(SlotNumber >= 0);
  static constexpr int Number = SlotNumber;
  using TFunction = R (*)(TSelf&, TArgs...);
  using TOwner = std::remove_const_t<TSelf>;

  // The member function as a plain function of the slot's type.
  template <auto Member, typename TMemberOwner>
  static R Thunk(TSelf& self, TArgs... args) {
    using TOwn = std::conditional_t<std::is_const_v<TSelf>, const TMemberOwner, TMemberOwner>;
    return (static_cast<TOwn&>(self).*Member)(std::forward<TArgs>(args)...);
  }
  static R Abstract(TSelf&, TArgs...) { throw EAbstractError(SAbstractError); }
};

template <int SlotNumber, typename R, typename... TArgs>
struct TSlot<SlotNumber, R(TClass, TArgs...)> {
  static_assert(SlotNumber >= 0);
  static constexpr int Number = SlotNumber;
  using TFunction = R (*)(TClass, TArgs...);
  using TOwner = void;  // told by what is made

  // Makes an object T(args..., aClass), of the size that aClass tells.
  template <typename T>
  static R New(TClass aClass, TArgs... args) {
    return R(new (aClass) T(std::forward<TArgs>(args)..., aClass));
  }
  static R Abstract(TClass, TArgs...) { throw EAbstractError(SAbstractError); }
};

// The function in a slot, or kept from one, and back. The address was taken from a slot of that number and kind.
template <typename TTag>
typename TTag::TFunction MethodAs(TMethodAddress address) {
  return reinterpret_cast<typename TTag::TFunction>(address);
}
template <typename TTag>
TMethodAddress AddressOf(typename TTag::TFunction method) {
  return reinterpret_cast<TMethodAddress>(method);
}

// --- What a compiled class puts into its slots ---

template <typename T>
struct TMemberOwner;
template <typename TMember, typename T>
struct TMemberOwner<TMember T::*> {
  using TType = T;
};

// Method is a member function, or a function of exactly the slot's type. Fill<Render, &T::M>::Address() is also the
// method's identity: it finds the slot again (TVmt::GetMethodIndex).
template <typename TTag, auto Method>
struct Fill {
  using TSlotTag = TTag;
  static TMethodAddress Address() {
    if constexpr (std::is_member_function_pointer_v<decltype(Method)>) {
      using TOwn = typename TMemberOwner<decltype(Method)>::TType;
      return AddressOf<TTag>(&TTag::template Thunk<Method, TOwn>);
    } else {
      return AddressOf<TTag>(Method);
    }
  }
};

// Fills a constructor slot with T(args..., aClass).
template <typename TTag, typename T>
struct FillNew {
  using TSlotTag = TTag;
  static TMethodAddress Address() { return AddressOf<TTag>(&TTag::template New<T>); }
};

// Fills a slot with a function that raises EAbstractError.
template <typename TTag>
struct FillAbstract {
  using TSlotTag = TTag;
  static TMethodAddress Address() { return AddressOf<TTag>(&TTag::Abstract); }
};

// --- Compiled classes ---

// The parent of a root.
struct TNoParent {
  static constexpr int SlotCount = 0;
  static TClass Class() { return nullptr; }
};

struct TFilledSlot {
  int Number;
  TMethodAddress Method;
};

// A compiled class, told to MakeCompiledRecord. Names are UTF-8.
struct TCompiledClass {
  std::string_view UnitName;
  std::string_view ClassName;
  TClass Parent;  // null for a root
  std::size_t InstanceSize;
  int SlotCount;
};

// Room for the header, the slots, and the tables behind them.
constexpr std::size_t CompiledRecordRoom(int slotCount) {
  constexpr std::size_t methodTable = 6;
  constexpr std::size_t name = 256;
  constexpr std::size_t typeRecord = 1 + name + 8 + 8 + 2 + name + 8;
  return TVmt::HeaderSize + static_cast<std::size_t>(slotCount) * sizeof(TVirtualSlot) + methodTable + name +
         typeRecord;
}

// Writes a record into room, which is 8-byte aligned, has CompiledRecordRoom bytes and lives as long as the class.
// Slots that are not filled are the parent's. Raises EAssertionFailed for a name over 255 bytes. For CompiledClass
// alone.
TClass MakeCompiledRecord(std::span<std::byte> room, const TCompiledClass& compiled,
                          std::span<const TFilledSlot> slots);

// Whether every number from first up to count is among those of the fills.
template <typename... TFills>
constexpr bool FillsEach(int first, int count) {
  for (int number = first; number < count; ++number)
    if (!((TFills::TSlotTag::Number == number) || ...)) return false;
  return true;
}

// Whether the slots of a tag belong to objects of class T.
template <typename TTag, typename T>
inline constexpr bool IsSlotOf = std::is_void_v<typename TTag::TOwner> || std::is_base_of_v<typename TTag::TOwner, T>;

// The class value of T, which descends from TParent; the record is made at the first call. T has a SlotCount, its
// parent's slots included, and calls this from its own Class(). The names are UTF-8 literals. Any thread.
template <typename T, typename TParent, typename... TFills>
TClass CompiledClass(std::string_view unitName, std::string_view className) {
  static_assert(std::is_same_v<TParent, TNoParent> || std::is_base_of_v<TParent, T>);
  static_assert(T::SlotCount >= TParent::SlotCount, "A class has its parent's slots");
  static_assert(((TFills::TSlotTag::Number < T::SlotCount) && ...), "SlotCount counts all slots");
  static_assert((IsSlotOf<typename TFills::TSlotTag, T> && ...), "A slot of another class");
  static_assert(FillsEach<TFills...>(TParent::SlotCount, T::SlotCount), "Every new slot is filled");
  // Plain bytes, which no destructor takes away from objects that die late.
  alignas(8) static std::byte room[CompiledRecordRoom(T::SlotCount)];
  static const TClass made = [=] {
    const TFilledSlot slots[] = {TFilledSlot{TFills::TSlotTag::Number, TFills::Address()}..., TFilledSlot{-1, nullptr}};
    return MakeCompiledRecord(room, {unitName, className, TParent::Class(), sizeof(T), T::SlotCount},
                              std::span(slots).first(sizeof...(TFills)));
  }();
  return made;
}

// --- Objects ---

// The base of every class that can be rewritten: holds the class value.
class TRewritableObject {
 public:
  virtual ~TRewritableObject() = default;
  // A copy would lack the fields that a generated class adds.
  TRewritableObject(const TRewritableObject&) = delete;
  TRewritableObject& operator=(const TRewritableObject&) = delete;

  // The class of the object, compiled or generated; never null.
  TClass ClassType() const { return FClass; }
  // Its name, UTF-8.
  std::string_view ClassName() const { return orv::ClassName(FClass); }
  bool InheritsFrom(TClass ancestor) const { return orv::InheritsFrom(FClass, ancestor); }

  // An object made through a class value takes as many bytes as the class tells. What goes beyond the C++ object is
  // zero at first. Raises std::bad_alloc.
  static void* operator new(std::size_t size, TClass aClass);
  static void* operator new(std::size_t size);
  static void operator delete(void* object) noexcept;
  static void operator delete(void* object, TClass) noexcept;

 protected:
  // The class is not null: that of the most derived C++ class, or one generated out of it.
  explicit TRewritableObject(TClass aClass);

 private:
  TClass FClass;
};

// --- Calls ---

// A class value's record, to call through. A value as small as the class value.
class TRecord {
 public:
  explicit TRecord(TClass aClass) : FClass(aClass) {}

  // The function in the slot. It takes the object first: Record(aClass).Slot<Render>()(object, depth).
  template <typename TTag>
  typename TTag::TFunction Slot() const {
    return MethodAs<TTag>(FClass[TTag::Number].Method);
  }

 private:
  TClass FClass;
};

inline TRecord Record(TClass aClass) {
  return TRecord(aClass);
}

// --- Fields that a generated class adds ---

// Where the fields of a class generated out of parent begin: bytes from the start of the object.
template <typename TFields>
std::int64_t FieldsOffset(TClass parent) {
  static_assert(std::is_trivially_default_constructible_v<TFields> && std::is_trivially_copyable_v<TFields> &&
                    alignof(TFields) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__,
                "No constructor and no destructor is run for them: they start as zeros");
  constexpr auto alignment = static_cast<std::int64_t>(alignof(TFields));
  return (InstanceSize(parent) + alignment - 1) / alignment * alignment;
}

// The size of an instance of parent that has such fields behind it.
template <typename TFields>
std::int64_t GrownInstanceSize(TClass parent) {
  return FieldsOffset<TFields>(parent) + static_cast<std::int64_t>(sizeof(TFields));
}

// The fields of an object made through a class that was generated out of parent with
// GrownInstanceSize<TFields>(parent).
template <typename TFields, typename TObject>
TFields& FieldsOf(TObject& object, TClass parent) {
  static_assert(std::is_base_of_v<TRewritableObject, TObject>);
  // The object starts where its allocation does, whichever of its bases the reference names.
  auto* start = static_cast<std::byte*>(dynamic_cast<void*>(&object));
  return *std::launder(reinterpret_cast<TFields*>(start + FieldsOffset<TFields>(parent)));
}

}  // namespace orv
