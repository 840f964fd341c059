// The class generator: makes a class out of a parent that the request describes, and shows its record. Methods are
// names; a name's place in a list stands in its slot as the address.
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "runtime/RewritableClass.h"
#include "runtime/VirtualClassGenerator.h"
#include "tools/orv/eval/Arguments.h"

namespace orv::eval {
namespace {

using TGenerator = TVirtualClassGenerator;

// Generated classes are never freed, and neither are their parents: a limit for each.
constexpr std::int64_t SlotLimit = 65535;

const TJson& Array(const TArguments& arguments, std::string_view name) {
  const TJson& value = arguments.At(name);
  if (!value.is_array()) throw BadRequest("'" + std::string(name) + "' must be an array");
  return value;
}

// One element of an array that must hold objects.
TArguments Object(std::string_view name, const TJson& value) {
  if (!value.is_object()) throw BadRequest("'" + std::string(name) + "' must hold objects");
  return TArguments(value);
}

template <typename T>
T Number(const TArguments& arguments, std::string_view name) {
  using TLimits = std::numeric_limits<T>;
  return static_cast<T>(arguments.Integer(name, TLimits::min(), TLimits::max()));
}

std::uintptr_t AddressIn(const TArguments& arguments, std::string_view name) {
  return static_cast<std::uintptr_t>(arguments.Integer(name, 0, std::numeric_limits<std::int64_t>::max()));
}

const PTypeInfo* TypeCell(const TArguments& arguments, std::string_view name) {
  return reinterpret_cast<const PTypeInfo*>(AddressIn(arguments, name));
}

// --- The methods in slots ---

class TMethodNames {
 public:
  TMethodAddress AddressOf(std::string name) {
    FNames.push_back(std::move(name));
    return reinterpret_cast<TMethodAddress>(FNames.size());
  }
  const std::string& NameOf(TMethodAddress address) const {
    return FNames.at(reinterpret_cast<std::uintptr_t>(address) - 1);
  }

 private:
  std::vector<std::string> FNames;
};

std::string MethodName(std::string_view argument, const TJson& value) {
  if (!value.is_string()) throw BadRequest("'" + std::string(argument) + "' must name methods");
  return value.get<std::string>();
}

// --- The arguments of CreateNewClass ---

std::span<std::byte> RoomForGood(int slotCount) {
  using TRow = std::unique_ptr<TVirtualSlot[]>;
  static std::vector<TRow> rooms;
  const std::size_t size = CompiledRecordRoom(slotCount);
  rooms.push_back(std::make_unique<TVirtualSlot[]>(size / sizeof(TVirtualSlot) + 1));
  return {reinterpret_cast<std::byte*>(rooms.back().get()), size};
}

TClass Parent(const TArguments& parent, TMethodNames& names) {
  const auto slotCount = static_cast<int>(parent.Integer("slots", 0, SlotLimit));
  const auto size = static_cast<std::size_t>(parent.Integer("instanceSize", 0, std::numeric_limits<int>::max()));
  const std::string className = parent.String("className");
  std::vector<TFilledSlot> slots;
  slots.reserve(static_cast<std::size_t>(slotCount));
  for (int i = 0; i < slotCount; ++i) slots.push_back({i, names.AddressOf("P" + std::to_string(i))});
  return MakeCompiledRecord(RoomForGood(slotCount), {"", className, nullptr, size, slotCount}, slots);
}

std::vector<TGenerator::TOverrideMethodInfo> Overrides(const TJson& values, TMethodNames& names) {
  std::vector<TGenerator::TOverrideMethodInfo> overrides;
  for (const TJson& value : values) {
    if (!value.is_array() || value.size() != 2) throw BadRequest("'overrides' must hold pairs of an index and a name");
    const TJson index = {{"overrides", value[0]}};
    overrides.push_back({TArguments(index).Int32("overrides"), names.AddressOf(MethodName("overrides", value[1]))});
  }
  return overrides;
}

std::vector<TMethodAddress> NewVirtuals(const TJson& values, TMethodNames& names) {
  if (values.size() > static_cast<std::size_t>(SlotLimit)) throw BadRequest("'newVirtuals' holds too many names");
  std::vector<TMethodAddress> addresses;
  addresses.reserve(values.size());
  for (const TJson& value : values) addresses.push_back(names.AddressOf(MethodName("newVirtuals", value)));
  return addresses;
}

TGenerator::TMethodParam Param(const TArguments& param) {
  return TGenerator::TMethodParam::Create(FromUtf8(param.String("name")), Number<std::uint8_t>(param, "flags"),
                                          TypeCell(param, "type"), Number<std::uint8_t>(param, "parOff"));
}

TGenerator::TPublishedMethod Method(const TArguments& method) {
  TGenerator::TPublishedMethod result{
      FromUtf8(method.String("name")),          reinterpret_cast<TMethodAddress>(AddressIn(method, "address")),
      Number<std::uint8_t>(method, "cc"),       Number<std::int16_t>(method, "virtualIndex"),
      {Number<std::uint16_t>(method, "flags")}, TypeCell(method, "resultType"),
      Number<std::uint16_t>(method, "parOff"),  {}};
  for (const TJson& param : Array(method, "params")) result.Params.push_back(Param(Object("params", param)));
  return result;
}

std::vector<TGenerator::TPublishedMethod> PublishedMethods(const TJson& values) {
  std::vector<TGenerator::TPublishedMethod> methods;
  for (const TJson& value : values) methods.push_back(Method(Object("published", value)));
  return methods;
}

// --- The record as an answer ---

// The block of a class. An address inside it is told by its distance from the start.
class TBlockView {
 public:
  explicit TBlockView(TClass aClass) : FVmt(TVmt::GetVMT(aClass)), FBlock(TGenerator::TAllocatedClassRec::Of(aClass)) {}

  const TVmt& Vmt() const { return *FVmt; }
  std::uint16_t AllocationSize() const { return FBlock->AllocationSize; }
  std::uint64_t Offset(std::uint64_t address) const {
    return address == 0 ? 0 : address - reinterpret_cast<std::uintptr_t>(FBlock);
  }
  std::uint64_t Offset(const void* address) const { return Offset(reinterpret_cast<std::uintptr_t>(address)); }

 private:
  const TVmt* FVmt;
  const TGenerator::TAllocatedClassRec* FBlock;
};

TJson Fields(const TBlockView& block) {
  const TVmt& vmt = block.Vmt();
  return {{"SelfPtr", block.Offset(vmt.SelfPtr)},         {"IntfTable", block.Offset(vmt.IntfTable)},
          {"AutoTable", block.Offset(vmt.AutoTable)},     {"InitTable", block.Offset(vmt.InitTable)},
          {"TypeInfo", block.Offset(vmt.TypeInfo)},       {"FieldTable", block.Offset(vmt.FieldTable)},
          {"MethodTable", block.Offset(vmt.MethodTable)}, {"DynamicTable", block.Offset(vmt.DynamicTable)},
          {"ClassName", block.Offset(vmt.ClassName)},     {"InstanceSize", vmt.InstanceSize},
          {"Parent", ClassName(ClassParent(vmt.SelfPtr))}};
}

TJson Slots(const TVmt& vmt, const TMethodNames& names) {
  TJson slots = TJson::array();
  for (std::int32_t i = 0; i < vmt.GetUserMethodCount(); ++i) slots.push_back(names.NameOf(vmt.GetMethod(i)));
  return slots;
}

std::size_t NameSize(const std::byte* name) {
  return 1 + std::to_integer<std::size_t>(*name);
}

// Replaces the 8-byte address at that place of the tables.
void Put(std::vector<std::byte>& tables, std::size_t at, std::uint64_t value) {
  std::memcpy(tables.data() + at, &value, sizeof value);
}

std::uint64_t AddressAt(const std::vector<std::byte>& tables, std::size_t at) {
  std::uint64_t value = 0;
  std::memcpy(&value, tables.data() + at, sizeof value);
  return value;
}

std::string Hex(const std::vector<std::byte>& bytes) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string hex;
  for (const std::byte each : bytes) {
    hex += digits[std::to_integer<std::size_t>(each >> 4)];
    hex += digits[std::to_integer<std::size_t>(each & std::byte{15})];
  }
  return hex;
}

// The bytes from the method table to the end of the type record.
TJson Tables(const TBlockView& block, std::size_t methodCount) {
  const TVmt& vmt = block.Vmt();
  const auto* start = static_cast<const std::byte*>(vmt.MethodTable);
  const std::byte* self = vmt.TypeInfo + 1 + NameSize(vmt.TypeInfo + 1);
  const std::byte* unitName = self + 8 + 8 + 2;
  std::vector<std::byte> tables(start, unitName + NameSize(unitName) + 8);
  for (std::size_t i = 0; i < methodCount; ++i) Put(tables, 4 + 12 * i, block.Offset(AddressAt(tables, 4 + 12 * i)));
  const auto selfAt = static_cast<std::size_t>(self - start);
  Put(tables, selfAt, block.Offset(AddressAt(tables, selfAt)));
  Put(tables, selfAt + 8, 0);  // the parent's, which lies outside
  return Hex(tables);
}

TJson ClassGen(const TArguments& arguments) {
  TMethodNames names;
  const TArguments parentArguments = Object("parent", arguments.At("parent"));
  const rtl::UnicodeString unitName = FromUtf8(arguments.String("unit"));
  const rtl::UnicodeString className = FromUtf8(arguments.String("name"));
  const std::int32_t instanceSize = arguments.Int32("instanceSize");
  const auto overrides = Overrides(Array(arguments, "overrides"), names);
  const auto newVirtuals = NewVirtuals(Array(arguments, "newVirtuals"), names);
  const auto methods = PublishedMethods(Array(arguments, "published"));
  const TClass parent = Parent(parentArguments, names);

  const TBlockView block(
      TGenerator::CreateNewClass(parent, unitName, className, overrides, methods, newVirtuals, instanceSize));
  return {{"AllocationSize", block.AllocationSize()},
          {"Fields", Fields(block)},
          {"Slots", Slots(block.Vmt(), names)},
          {"Tables", Tables(block, methods.size())}};
}

constexpr TOp Ops[] = {
    {"classgen",
     "parent {slots, instanceSize, className}, unit, name, overrides [[index, name]..], newVirtuals, published, "
     "instanceSize",
     ClassGen},
};

}  // namespace

std::span<const TOp> ClassOps() {
  return Ops;
}

}  // namespace orv::eval
