// Reads the bytes of a generated class back, from the description of the format alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orv::testing {

struct TReadParam {
  unsigned Flags;
  std::uint64_t ParamType;
  unsigned ParOff;
  std::string Name;
  unsigned Attributes;
};

struct TReadMethod {
  // The index's part.
  std::size_t EntryAt;  // from the start of the bytes
  unsigned Flags;
  unsigned VirtualIndex;
  // The entry's part.
  unsigned Length;
  std::size_t BytesRead;
  std::uint64_t Address;
  std::string Name;
  unsigned Version;
  unsigned CC;
  std::uint64_t ResultType;
  unsigned ParOff;
  std::vector<TReadParam> Params;
  unsigned Attributes;
};

struct TReadMethodTable {
  unsigned OldCount;
  std::vector<TReadMethod> Methods;
  unsigned SecondOldCount;
  std::size_t End;  // behind the last entry
};

struct TReadTypeRecord {
  unsigned Kind;
  std::string ClassName;
  std::uint64_t Class;
  std::uint64_t ParentInfo;
  unsigned PropertyCount;
  std::string UnitName;
  std::uint64_t PropertyBlock;
  std::size_t End;
};

// All raise std::out_of_range for bytes that end too early. A pointer to an entry is an address; base is that of
// bytes[0].
TReadMethodTable ReadMethodTable(const std::vector<std::uint8_t>& bytes, std::size_t at, std::uint64_t base);
std::string ReadName(const std::vector<std::uint8_t>& bytes, std::size_t at);
TReadTypeRecord ReadTypeRecord(const std::vector<std::uint8_t>& bytes, std::size_t at);
std::uint64_t ReadWord(const std::vector<std::uint8_t>& bytes, std::size_t at, std::size_t size);

}  // namespace orv::testing
