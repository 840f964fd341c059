// Tables on standard output.
#pragma once

#include <string>
#include <vector>

namespace orv::command {

using TRow = std::vector<std::string>;

// The rows, the first of them the headings; all of one length. Every column but the last is as wide as its widest cell:
// the last holds text, whose width no one knows.
void PrintTable(const std::vector<TRow>& rows);

}  // namespace orv::command
