// The JSON-lines port: one request a line, one answer a line. docs/eval.md is its contract.
#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>

namespace orv::eval {

using TJson = nlohmann::ordered_json;
class TArguments;

// One operation of the port. Run answers the result, or raises an rtl::Exception, which becomes the answer's error.
struct TOp {
  std::string_view Name;
  std::string_view Arguments;  // one line for --list
  TJson (*Run)(const TArguments&);
};

// The operations of each subsystem, one table a file.
std::span<const TOp> TextOps();
std::span<const TOp> CalendarOps();
std::span<const TOp> ClassicOps();
std::span<const TOp> MarkupOps();
std::span<const TOp> ReaderOps();
std::span<const TOp> ClassOps();
std::span<const TOp> LayoutOps();
std::span<const TOp> EditOps();

// The answer to one request line, without a line end. Never raises.
std::string Answer(std::string_view line);

// Reads requests until the end of in, flushing every answer.
void Serve(std::istream& in, std::ostream& out);

// Prints every operation with its arguments.
void List(std::ostream& out);

}  // namespace orv::eval
