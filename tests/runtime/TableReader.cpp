#include "tests/runtime/TableReader.h"

namespace orv::testing {
namespace {

using TBytes = std::vector<std::uint8_t>;

// A cursor over the bytes; numbers stand with their low byte first.
class TCursor {
 public:
  TCursor(const TBytes& bytes, std::size_t at) : FBytes(bytes), FAt(at) {}

  std::uint64_t Word(std::size_t size) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i) value |= std::uint64_t{FBytes.at(FAt + i)} << 8 * i;
    FAt += size;
    return value;
  }
  unsigned Byte() { return static_cast<unsigned>(Word(1)); }
  unsigned Half() { return static_cast<unsigned>(Word(2)); }
  std::string Name() {
    std::string name(Byte(), ' ');
    for (char& c : name) c = static_cast<char>(Byte());
    return name;
  }
  std::size_t At() const { return FAt; }

 private:
  const TBytes& FBytes;
  std::size_t FAt;
};

TReadParam ReadParam(TCursor& cursor) {
  TReadParam param{};
  param.Flags = cursor.Byte();
  param.ParamType = cursor.Word(8);
  param.ParOff = cursor.Byte();
  param.Name = cursor.Name();
  param.Attributes = cursor.Half();
  return param;
}

void ReadEntry(const TBytes& bytes, TReadMethod& method) {
  TCursor cursor(bytes, method.EntryAt);
  method.Length = cursor.Half();
  method.Address = cursor.Word(8);
  method.Name = cursor.Name();
  method.Version = cursor.Byte();
  method.CC = cursor.Byte();
  method.ResultType = cursor.Word(8);
  method.ParOff = cursor.Half();
  for (unsigned left = cursor.Byte(); left > 0; --left) method.Params.push_back(ReadParam(cursor));
  method.Attributes = cursor.Half();
  method.BytesRead = cursor.At() - method.EntryAt;
}

}  // namespace

TReadMethodTable ReadMethodTable(const TBytes& bytes, std::size_t at, std::uint64_t base) {
  TCursor cursor(bytes, at);
  TReadMethodTable table{};
  table.OldCount = cursor.Half();
  for (unsigned left = cursor.Half(); left > 0; --left) {
    TReadMethod method{};
    method.EntryAt = cursor.Word(8) - base;
    method.Flags = cursor.Half();
    method.VirtualIndex = cursor.Half();
    table.Methods.push_back(method);
  }
  table.SecondOldCount = cursor.Half();
  table.End = cursor.At();
  for (TReadMethod& method : table.Methods) {
    ReadEntry(bytes, method);
    table.End = method.EntryAt + method.BytesRead;
  }
  return table;
}

std::string ReadName(const TBytes& bytes, std::size_t at) {
  return TCursor(bytes, at).Name();
}

TReadTypeRecord ReadTypeRecord(const TBytes& bytes, std::size_t at) {
  TCursor cursor(bytes, at);
  TReadTypeRecord record{};
  record.Kind = cursor.Byte();
  record.ClassName = cursor.Name();
  record.Class = cursor.Word(8);
  record.ParentInfo = cursor.Word(8);
  record.PropertyCount = cursor.Half();
  record.UnitName = cursor.Name();
  record.PropertyBlock = cursor.Word(8);
  record.End = cursor.At();
  return record;
}

std::uint64_t ReadWord(const TBytes& bytes, std::size_t at, std::size_t size) {
  return TCursor(bytes, at).Word(size);
}

}  // namespace orv::testing
