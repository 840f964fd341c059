// Answers as text.
#pragma once

#include <string>

#include "tools/orv/eval/Eval.h"

namespace orv::eval {

// The JSON text of value on one line, without blanks. Takes no more stack for a deep value than for a flat one, as a
// tree that a document describes may be as deep as the document is long.
std::string Written(const TJson& value);

}  // namespace orv::eval
