#include "tools/orv/eval/Eval.h"

#include <algorithm>
#include <iostream>
#include <vector>

#include "tools/orv/eval/Arguments.h"
#include "tools/orv/eval/Settings.h"
#include "tools/orv/eval/Write.h"

namespace orv::eval {
namespace {

// Deeper nesting than any request needs is refused, so that no line can exhaust the stack.
constexpr int DepthLimit = 64;

std::vector<std::span<const TOp>> OpTables() {
  return {TextOps(), CalendarOps(), ClassicOps(), MarkupOps(), ReaderOps(), ClassOps(), LayoutOps(), EditOps()};
}

const TOp* FindOp(std::string_view name) {
  for (const auto table : OpTables())
    for (const TOp& op : table)
      if (op.Name == name) return &op;
  return nullptr;
}

TJson ParseRequest(std::string_view line) {
  const auto limitDepth = [](int depth, TJson::parse_event_t, TJson&) {
    if (depth > DepthLimit) throw BadRequest("nested too deeply");
    return true;
  };
  TJson request = TJson::parse(line, limitDepth, false);
  if (!request.is_object()) throw BadRequest("not a JSON object");
  return request;
}

TJson Run(const TJson& request) {
  const TArguments arguments(request);
  const std::string name = arguments.String("op");
  const TOp* op = FindOp(name);
  if (op == nullptr) throw BadRequest("unknown op '" + name + "'");
  const TSettingsScope scope(arguments);
  return op->Run(arguments);
}

}  // namespace

std::string Answer(std::string_view line) {
  TJson answer = TJson::object();
  const auto fail = [&](std::string_view className, std::string_view message) {
    answer["ok"] = false;
    answer["error"] = {{"class", className}, {"message", message}};
  };
  try {
    const TJson request = ParseRequest(line);
    if (request.contains("id")) answer["id"] = request["id"];
    TJson result = Run(request);
    answer["ok"] = true;
    answer["result"] = std::move(result);
  } catch (const rtl::Exception& error) {
    fail(error.ClassName(), error.what());
  } catch (const std::exception& error) {
    fail("Exception", error.what());
  }
  return Written(answer);
}

void Serve(std::istream& in, std::ostream& out) {
  for (std::string line; std::getline(in, line);) out << Answer(line) << std::endl;
}

void List(std::ostream& out) {
  std::size_t width = 0;
  for (const auto table : OpTables())
    for (const TOp& op : table) width = std::max(width, op.Name.size());
  for (const auto table : OpTables())
    for (const TOp& op : table) out << op.Name << std::string(width + 2 - op.Name.size(), ' ') << op.Arguments << '\n';
}

}  // namespace orv::eval
