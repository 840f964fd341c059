// The commands of orv. Each lives in a file of its own and adds itself, with its options, to the command line.
#pragma once

namespace CLI {
class App;
}

namespace orv::command {

void AddEvalCommand(CLI::App& app);
void AddRunsCommand(CLI::App& app);
void AddShapeCommand(CLI::App& app);
void AddShowCommand(CLI::App& app);
void AddTextCommand(CLI::App& app);
void AddCalCommand(CLI::App& app);
void AddDateCommand(CLI::App& app);

}  // namespace orv::command
