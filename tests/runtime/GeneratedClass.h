// A generated class as its bytes tell it, and random arguments to make one from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/VirtualClassGenerator.h"
#include "tests/runtime/TableReader.h"

namespace orv::testing {

using TGenerator = TVirtualClassGenerator;

// A copy of a block, header and slots and tables, up to the end of its type record.
class TGeneratedBytes {
 public:
  explicit TGeneratedBytes(TClass aClass) {
    const auto* block = reinterpret_cast<const std::uint8_t*>(TGenerator::TAllocatedClassRec::Of(aClass));
    Base = reinterpret_cast<std::uintptr_t>(block);
    constexpr std::size_t header = 206;
    Bytes.assign(block, block + header);
    // One name after the other tells how far to read.
    const std::size_t typeInfo = Field(32);
    std::size_t end = typeInfo + 1;
    end += 1U + block[end] + 8 + 8 + 2;
    end += 1U + block[end] + 8;
    Bytes.assign(block, block + end);
    MethodTable = ReadMethodTable(Bytes, Field(48), Base);
    ClassName = ReadName(Bytes, Field(64));
    TypeRecord = ReadTypeRecord(Bytes, typeInfo);
  }

  // A field of the class record by its offset: as it stands, and as a distance from the block's start.
  std::uint64_t RawField(std::size_t offset) const { return ReadWord(Bytes, 6 + offset, 8); }
  std::size_t Field(std::size_t offset) const { return static_cast<std::size_t>(RawField(offset) - Base); }
  std::uint64_t Slot(std::size_t index) const { return RawField(200 + 8 * index); }
  unsigned AllocationSize() const { return static_cast<unsigned>(ReadWord(Bytes, 0, 2)); }
  std::uint64_t Reference() const { return ReadWord(Bytes, 2, 4); }

  std::uint64_t Base = 0;
  std::vector<std::uint8_t> Bytes;
  TReadMethodTable MethodTable{};
  std::string ClassName;
  TReadTypeRecord TypeRecord{};
};

inline std::uint64_t Number(const void* address) {
  return reinterpret_cast<std::uintptr_t>(address);
}

// A made-up address that nothing reads from.
inline TMethodAddress MadeUp(std::uint64_t number) {
  return reinterpret_cast<TMethodAddress>(static_cast<std::uintptr_t>(number));
}
inline const PTypeInfo* MadeUpType(std::uint64_t number) {
  return reinterpret_cast<const PTypeInfo*>(static_cast<std::uintptr_t>(number));
}

// Everything that a class is made from.
struct TRequest {
  std::u16string UnitName;
  std::u16string ClassName;
  std::vector<TGenerator::TOverrideMethodInfo> Overrides;
  std::vector<TGenerator::TPublishedMethod> Methods;
  std::vector<TMethodAddress> NewVirtuals;
  std::int32_t InstanceSize = 0;

  TClass Make(TClass parent) const {
    return TGenerator::CreateNewClass(parent, UnitName, ClassName, Overrides, Methods, NewVirtuals, InstanceSize);
  }
};

class TRequests {
 public:
  explicit TRequests(std::uint32_t seed) : FRandom(seed) {}

  std::uint32_t UpTo(std::uint32_t last) { return static_cast<std::uint32_t>(FRandom()) % (last + 1); }

  // Of one to three bytes a unit in UTF-8, so of at most 255 bytes.
  std::u16string Name() {
    constexpr std::u16string_view units = u"aZ_9\u0633\u0645\u05D0\u0905\uFEFB";
    std::u16string name(UpTo(UpTo(3) == 0 ? 85 : 10), u' ');
    for (char16_t& unit : name) unit = units[UpTo(static_cast<std::uint32_t>(units.size()) - 1)];
    return name;
  }

  TRequest Next(std::int32_t parentSlots) {
    TRequest request{Name(), Name(), {}, {}, {}, static_cast<std::int32_t>(UpTo(400)) - 100};
    for (auto left = UpTo(4); left > 0; --left) request.NewVirtuals.push_back(Address());
    const auto slots = static_cast<std::uint32_t>(parentSlots) + static_cast<std::uint32_t>(request.NewVirtuals.size());
    for (auto left = slots == 0 ? 0 : UpTo(4); left > 0; --left)
      request.Overrides.push_back({static_cast<std::int32_t>(UpTo(slots - 1)), Address()});
    for (auto left = UpTo(4); left > 0; --left) request.Methods.push_back(Method());
    return request;
  }

 private:
  std::uint64_t Word() { return std::uint64_t{UpTo(0xFFFFFFFE)} << 16 | UpTo(0xFFFF); }
  TMethodAddress Address() { return MadeUp(Word()); }
  TGenerator::TPublishedMethod Method() {
    TGenerator::TPublishedMethod method{Name(),
                                        Address(),
                                        static_cast<std::uint8_t>(UpTo(255)),
                                        static_cast<std::int16_t>(static_cast<int>(UpTo(65535)) - 32768),
                                        {static_cast<std::uint16_t>(UpTo(65535))},
                                        MadeUpType(Word()),
                                        static_cast<std::uint16_t>(UpTo(65535)),
                                        {}};
    for (auto left = UpTo(5); left > 0; --left)
      method.Params.push_back(TGenerator::TMethodParam::Create(
          Name(), static_cast<std::uint8_t>(UpTo(255)), MadeUpType(Word()), static_cast<std::uint8_t>(UpTo(255))));
    return method;
  }

  std::mt19937 FRandom;
};

}  // namespace orv::testing
