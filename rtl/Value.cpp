#include "rtl/Value.h"

#include <cstddef>
#include <iterator>

namespace rtl {
namespace {

template <typename T, typename TData>
const T& Get(const TData& data) {
  if (const T* value = std::get_if<T>(&data)) return *value;
  throw EInvalidCast(SInvalidCast);
}

}  // namespace

std::string_view TValue::TypeName() const {
  constexpr std::string_view names[] = {"", "Boolean", "Integer", "Double", "TDate", "TTime", "TDateTime", "string"};
  static_assert(std::size(names) == static_cast<std::size_t>(TValueType::String) + 1);
  return names[static_cast<std::size_t>(FType)];
}

bool TValue::AsBoolean() const {
  return Get<bool>(FData);
}

std::int64_t TValue::AsInteger() const {
  return Get<std::int64_t>(FData);
}

double TValue::AsDouble() const {
  if (const auto* whole = std::get_if<std::int64_t>(&FData)) return static_cast<double>(*whole);
  return Get<double>(FData);
}

const UnicodeString& TValue::AsString() const {
  return Get<UnicodeString>(FData);
}

}  // namespace rtl
