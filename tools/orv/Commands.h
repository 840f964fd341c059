#pragma once

namespace CLI {
class App;
}

namespace orv::command {

void AddCalCommand(CLI::App& app);
void AddDateCommand(CLI::App& app);

}  // namespace orv::command
