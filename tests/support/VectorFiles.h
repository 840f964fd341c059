// Vector files: NAME.jsonl holds requests of the JSON-lines port, NAME.expected.jsonl the answers, line for line.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "tools/orv/eval/Eval.h"

namespace orv::testing {

struct TVector {
  std::size_t Line;      // 1-based
  std::string Request;   // may be no JSON at all
  std::string Expected;  // one answer
  std::string Op;        // empty where the request names none
};

// The vectors of tests/vectors/NAME, for example "engine/engine". Raises std::runtime_error for a missing file or files
// of different lengths.
std::vector<TVector> ReadVectors(const std::filesystem::path& name);

// Whether two answers agree: id and ok equal, results equal with numbers to the tolerance, errors by class alone; the
// date-time beside a false Result is not compared. Answers the first difference as a path and both values, or an empty
// text.
std::string Difference(const eval::TJson& expected, const eval::TJson& actual, double tolerance = 1e-9);

// Answers every request with that op (all of them for an empty op) through orv::eval::Answer and fails the running test
// for each answer that differs. On a difference writes all answers to NAME.expected.jsonl.new in the build folder, to
// be looked at and, where the change is meant, moved over the old file. Fails when no vector has that op.
void ExpectVectorsHold(const std::filesystem::path& name, const std::string& op = {}, double tolerance = 1e-9);

// The ops that occur, each once, in the order of their names.
std::vector<std::string> OpsOf(const std::filesystem::path& name);

}  // namespace orv::testing
