// The orv command. Exit status: 0 done, 1 it could not be done, 2 the command line is wrong.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "tools/orv/Commands.h"

namespace {

// "orv runs": the command as far as it was understood.
std::string CommandName(const CLI::App& app) {
  for (const CLI::App* command : app.get_subcommands()) return app.get_name() + " " + command->get_name();
  return app.get_name();
}

// A message is one line, whatever an argument holds.
void Complain(const CLI::App& app, std::string message) {
  for (char& c : message)
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
  std::cerr << CommandName(app) << ": " << message << '\n';
}

int Run(CLI::App& app, int argc, const char* const* argv) {
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& help) {
    return app.exit(help);
  } catch (const CLI::ParseError& error) {
    const std::vector<std::string> rest = app.remaining();
    const bool unknown = app.get_subcommands().empty() && !rest.empty();
    Complain(app, unknown ? "there is no command or option '" + rest.front() + "'" : error.what());
    return 2;
  } catch (const std::exception& error) {
    Complain(app, error.what());
    return 1;
  }
  std::cout.flush();
  if (std::cout) return 0;
  Complain(app, "standard output cannot be written");
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("orv: right-to-left text and calendars at the command line", "orv");
  app.set_version_flag("--version", "orv " ORV_VERSION, "Print the version");
  app.require_subcommand(1);
  app.footer(
      "orv COMMAND --help tells the arguments of a command.\n"
      "Exit status: 0 done, 1 it could not be done, 2 the command line is wrong.");
  orv::command::AddShowCommand(app);
  orv::command::AddRunsCommand(app);
  orv::command::AddShapeCommand(app);
  orv::command::AddTextCommand(app);
  orv::command::AddDateCommand(app);
  orv::command::AddCalCommand(app);
  orv::command::AddEvalCommand(app);
  return Run(app, argc, argv);
}
