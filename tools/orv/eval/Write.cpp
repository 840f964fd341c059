#include "tools/orv/eval/Write.h"

#include <vector>

namespace orv::eval {
namespace {

std::string WrittenLeaf(const TJson& value) {
  return value.dump(-1, ' ', false, TJson::error_handler_t::replace);
}

// An array or object that is being written, and its next element.
struct TOpen {
  const TJson* Value;
  TJson::const_iterator Next;
};

}  // namespace

std::string Written(const TJson& value) {
  std::string text;
  std::vector<TOpen> open;
  const auto write = [&](const TJson& part) {
    if (!part.is_structured()) {
      text += WrittenLeaf(part);
      return;
    }
    text += part.is_object() ? '{' : '[';
    open.push_back({&part, part.begin()});
  };
  write(value);
  while (!open.empty()) {
    TOpen& part = open.back();
    if (part.Next == part.Value->end()) {
      text += part.Value->is_object() ? '}' : ']';
      open.pop_back();
      continue;
    }
    if (part.Next != part.Value->begin()) text += ',';
    if (part.Value->is_object()) text += WrittenLeaf(part.Next.key()) + ':';
    write(*part.Next++);
  }
  return text;
}

}  // namespace orv::eval
