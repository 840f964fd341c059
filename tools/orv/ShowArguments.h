// The arguments of orv show that stand for values of the layout. All raise CLI::ValidationError, naming the argument.
#pragma once

#include <optional>
#include <string>

#include "tools/orv/show/Page.h"

namespace orv::command {

inline constexpr double SmallestPointSize = 4;
inline constexpr double LargestPointSize = 400;

void CheckBetween(const std::string& argument, double value, double least, double most);

// leading, center or trailing; nothing for auto.
std::optional<fmx::TTextAlign> AlignOf(const std::string& argument, const std::string& word);
fmx::TTextTrimming TrimmingOf(const std::string& argument, const std::string& word);

// START-END=COLOR[,bold,italic,underline,strike,size=N]
show::TAttribute AttributeOf(const std::string& argument, const std::string& word);

}  // namespace orv::command
