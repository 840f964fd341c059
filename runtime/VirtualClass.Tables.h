// The packed tables behind a record's slots: written once, when the class is made. Numbers stand in the machine's own
// byte order; addresses take 8 bytes on every machine. Nothing in a table is aligned.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "runtime/VirtualClass.h"

namespace orv::tables {

inline constexpr std::size_t NameLimit = 255;  // bytes: a name's length is one byte
inline constexpr std::size_t NameRoom = 1 + NameLimit;

// Raises EAssertionFailed unless condition holds, in every build: what would be written otherwise is no table.
void Require(bool condition, const char* message);

// Takes away the tables that a copied header names and that are another class's alone: the one of interfaces, of
// automated methods, of managed fields, of published fields and of dynamic methods.
void ClearOwnTables(TVmt& vmt);

// Writes one value behind the other into borrowed memory. Raises EAssertionFailed for what would not fit and for a name
// over NameLimit.
class TWriter {
 public:
  explicit TWriter(std::span<std::byte> room) : FRoom(room) {}

  std::byte* Cursor() const { return FRoom.data(); }
  void U8(std::uint8_t value);
  void U16(std::uint16_t value);
  void Address(std::uint64_t value);
  void Pointer(const void* value) { Address(reinterpret_cast<std::uintptr_t>(value)); }
  void ShortString(std::string_view utf8);
  void Zeros(std::size_t count);

 private:
  void Put(const void* bytes, std::size_t size);

  std::span<std::byte> FRoom;
};

// A class's type record.
struct TTypeRecord {
  std::string_view ClassName;  // UTF-8
  TClass Class;
  const PTypeInfo* ParentInfo;  // the parent's TypeInfo field; null for a root
  std::uint16_t PropertyCount;  // the parent's: no class adds any
  std::string_view UnitName;    // UTF-8
};
inline constexpr std::size_t TypeRecordRoom = 1 + NameRoom + 8 + 8 + 2 + NameRoom + 8;
void WriteTypeRecord(TWriter& writer, const TTypeRecord& record);

// Of a length-prefixed name, and of a type record. Views of the table; the arguments are not null.
std::string_view ReadShortString(const void* name);
std::string_view ReadUnitName(PTypeInfo info);
std::uint16_t ReadPropertyCount(PTypeInfo info);

}  // namespace orv::tables
