#include "runtime/VirtualClass.Tables.h"

#include <algorithm>
#include <cstring>

#include "rtl/Exceptions.h"

namespace orv::tables {
namespace {

constexpr std::uint8_t ClassKind = 7;
constexpr std::size_t EmptyPropertyBlock = 8;

const std::byte* BehindClassName(PTypeInfo info) {
  const std::byte* name = info + 1;
  return name + 1 + std::to_integer<std::size_t>(*name);
}

const std::byte* PropertyCountOf(PTypeInfo info) {
  return BehindClassName(info) + 8 + 8;
}

}  // namespace

void Require(bool condition, const char* message) {
  if (!condition) throw rtl::EAssertionFailed(message);
}

void ClearOwnTables(TVmt& vmt) {
  vmt.IntfTable = nullptr;
  vmt.AutoTable = nullptr;
  vmt.InitTable = nullptr;
  vmt.FieldTable = nullptr;
  vmt.DynamicTable = nullptr;
}

void TWriter::Put(const void* bytes, std::size_t size) {
  Require(size <= FRoom.size(), "A class's tables do not fit their block");
  if (size > 0) std::memcpy(FRoom.data(), bytes, size);
  FRoom = FRoom.subspan(size);
}

void TWriter::U8(std::uint8_t value) {
  Put(&value, sizeof value);
}

void TWriter::U16(std::uint16_t value) {
  Put(&value, sizeof value);
}

void TWriter::Address(std::uint64_t value) {
  Put(&value, sizeof value);
}

void TWriter::ShortString(std::string_view utf8) {
  Require(utf8.size() <= NameLimit, "A name is longer than 255 bytes");
  U8(static_cast<std::uint8_t>(utf8.size()));
  Put(utf8.data(), utf8.size());
}

void TWriter::Zeros(std::size_t count) {
  Require(count <= FRoom.size(), "A class's tables do not fit their block");
  std::fill_n(FRoom.data(), count, std::byte{0});
  FRoom = FRoom.subspan(count);
}

void WriteTypeRecord(TWriter& writer, const TTypeRecord& record) {
  writer.U8(ClassKind);
  writer.ShortString(record.ClassName);
  writer.Pointer(record.Class);
  writer.Pointer(record.ParentInfo);
  writer.U16(record.PropertyCount);
  writer.ShortString(record.UnitName);
  writer.Zeros(EmptyPropertyBlock);
}

std::string_view ReadShortString(const void* name) {
  const char* text = static_cast<const char*>(name);
  return {text + 1, static_cast<unsigned char>(*text)};
}

std::string_view ReadUnitName(PTypeInfo info) {
  return ReadShortString(PropertyCountOf(info) + sizeof(std::uint16_t));
}

std::uint16_t ReadPropertyCount(PTypeInfo info) {
  std::uint16_t count = 0;
  std::memcpy(&count, PropertyCountOf(info), sizeof count);
  return count;
}

}  // namespace orv::tables
