// The arguments of a request, read with their types and ranges checked, and the forms that answers take.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "rtl/Exceptions.h"
#include "rtl/Strings.h"
#include "tools/orv/eval/Eval.h"

namespace orv::eval {

// A request that cannot be read: the message names the argument and what it must be.
class BadRequest : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "BadRequest"; }
};

// A name and the enumeration value it stands for.
template <typename E>
using TNamed = std::pair<std::string_view, E>;

// The enumeration value that a word of the argument called name stands for.
template <typename E, std::size_t N>
E Named(std::string_view name, const TJson& word, const TNamed<E> (&names)[N]) {
  if (!word.is_string()) throw BadRequest("'" + std::string(name) + "' must be a name");
  const auto& wanted = word.get_ref<const std::string&>();
  for (const auto& [known, value] : names)
    if (known == wanted) return value;
  throw BadRequest("'" + std::string(name) + "' has no value named '" + wanted + "'");
}

// A borrowed view of one request object. Readers without a default raise BadRequest where the argument is missing.
class TArguments {
 public:
  explicit TArguments(const TJson& request) : FRequest(request) {}

  bool Has(std::string_view name) const { return FRequest.contains(name); }
  const TJson& At(std::string_view name) const;

  std::int64_t Integer(std::string_view name, std::int64_t low, std::int64_t high) const;
  std::int32_t Int32(std::string_view name) const;
  double Number(std::string_view name) const;
  bool Bool(std::string_view name) const;
  std::string String(std::string_view name) const;
  // A string of exactly one UTF-16 code unit.
  char16_t CodeUnit(std::string_view name) const;
  // The argument called text: a string under that name, or code units under "units".
  rtl::UnicodeString Text() const;
  std::vector<std::uint32_t> CodePoints(std::string_view name) const;

  template <typename E, std::size_t N>
  E Enum(std::string_view name, const TNamed<E> (&names)[N]) const {
    return Named(name, At(name), names);
  }

 private:
  const TJson& FRequest;
};

// The name of an enumeration value; empty when the table has none.
template <typename E, std::size_t N>
std::string_view NameOf(E value, const TNamed<E> (&names)[N]) {
  for (const auto& [name, known] : names)
    if (known == value) return name;
  return {};
}

// UTF-8 to UTF-16 and back. A text that is not well-formed has no UTF-8 form.
rtl::UnicodeString FromUtf8(std::string_view utf8);
std::optional<std::string> ToUtf8(std::u16string_view text);

// A text as an answer holds it: a string, or {"units": [...]} where it is not well-formed UTF-16.
TJson TextValue(std::u16string_view text);

}  // namespace orv::eval
