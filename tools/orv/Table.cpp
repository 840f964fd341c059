#include "tools/orv/Table.h"

#include <algorithm>
#include <iomanip>
#include <iostream>

namespace orv::command {

void PrintTable(const std::vector<TRow>& rows) {
  std::vector<std::size_t> widths(rows.front().size(), 0);
  for (const TRow& row : rows)
    for (std::size_t column = 0; column < row.size(); ++column)
      widths[column] = std::max(widths[column], row[column].size());
  for (const TRow& row : rows) {
    for (std::size_t column = 0; column + 1 < row.size(); ++column)
      std::cout << std::left << std::setw(static_cast<int>(widths[column]) + 2) << row[column];
    std::cout << row.back() << '\n';
  }
}

}  // namespace orv::command
