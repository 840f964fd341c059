// The orv command.
#include <CLI/CLI.hpp>
#include <iostream>

#include "tools/orv/Commands.h"
#include "tools/orv/eval/Eval.h"

int main(int argc, char** argv) {
  CLI::App app("orv: right-to-left text and calendars at the command line", "orv");
  app.require_subcommand(1);

  CLI::App* eval = app.add_subcommand("eval", "Answer JSON requests, one a line, on standard input");
  orv::command::AddCalCommand(app);
  orv::command::AddDateCommand(app);
  bool list = false;
  eval->add_flag("--list", list, "Print every op with its arguments");

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : 2;
  }
  if (!*eval) return 0;
  if (list)
    orv::eval::List(std::cout);
  else
    orv::eval::Serve(std::cin, std::cout);
  return 0;
}
