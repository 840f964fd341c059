// orv eval: the JSON-lines port.
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "platform/FontGlyphs.h"
#include "tools/orv/Commands.h"
#include "tools/orv/eval/Eval.h"

namespace orv::command {

void AddEvalCommand(CLI::App& app) {
  CLI::App* eval = app.add_subcommand("eval", "Answer JSON requests, one a line, on standard input");
  eval->footer(
      "Example:\n"
      "  echo '{\"op\": \"isRTLText\", \"text\": \"abc\", \"default\": true}' | orv eval");
  const auto list = std::make_shared<bool>(false);
  eval->add_flag("--list", *list, "Print every op with its arguments, then end");
  eval->callback([list] {
    if (*list) {
      orv::eval::List(std::cout);
    } else {
      platform::RegisterFontGlyphs();  // for layouts that ask for them; opens no font
      orv::eval::Serve(std::cin, std::cout);
    }
  });
}

}  // namespace orv::command
