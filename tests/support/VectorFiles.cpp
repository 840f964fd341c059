#include "tests/support/VectorFiles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <set>
#include <stdexcept>

namespace orv::testing {
namespace {

using eval::TJson;

constexpr std::size_t MostReports = 10;

std::vector<std::string> ReadLines(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path.string());
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::filesystem::path PathOf(const std::filesystem::path& name, const char* ending) {
  return std::filesystem::path(ORV_SOURCE_DIR) / "tests" / "vectors" / (name.string() + ending);
}

std::string OpOf(const std::string& request) {
  const TJson json = TJson::parse(request, nullptr, false);
  if (!json.is_object() || !json.contains("op") || !json["op"].is_string()) return {};
  return json["op"].get<std::string>();
}

bool AgreeAsNumbers(const TJson& a, const TJson& b, double tolerance) {
  if (a.is_number_float() || b.is_number_float()) {
    const double x = a.get<double>(), y = b.get<double>();
    return x == y || std::fabs(x - y) <= tolerance;
  }
  return a == b;
}

std::string Shown(const TJson& value) {
  return value.dump(-1, ' ', true, TJson::error_handler_t::replace);
}

// The first difference below path.
std::string DifferenceAt(const std::string& path, const TJson& expected, const TJson& actual, double tolerance) {
  const auto different = [&] { return path + ": expected " + Shown(expected) + ", got " + Shown(actual); };
  if (expected.is_number() && actual.is_number()) return AgreeAsNumbers(expected, actual, tolerance) ? "" : different();
  if (expected.is_array() && actual.is_array()) {
    if (expected.size() != actual.size()) return different();
    for (std::size_t i = 0; i < expected.size(); ++i)
      if (auto inner = DifferenceAt(path + "[" + std::to_string(i) + "]", expected[i], actual[i], tolerance);
          !inner.empty())
        return inner;
    return {};
  }
  if (expected.is_object() && actual.is_object()) {
    if (expected.size() != actual.size()) return different();
    for (const auto& [key, value] : expected.items()) {
      if (!actual.contains(key)) return different();
      if (auto inner = DifferenceAt(path + "." + key, value, actual[key], tolerance); !inner.empty()) return inner;
    }
    return {};
  }
  return expected == actual ? "" : different();
}

void WriteNew(const std::filesystem::path& name) {
  const std::filesystem::path path =
      std::filesystem::path(ORV_BUILD_DIR) / (name.filename().string() + ".expected.jsonl.new");
  std::ofstream out(path, std::ios::binary);
  for (const TVector& vector : ReadVectors(name)) out << eval::Answer(vector.Request) << '\n';
  ADD_FAILURE() << "all answers are in " << path;
}

}  // namespace

std::vector<TVector> ReadVectors(const std::filesystem::path& name) {
  const std::vector<std::string> requests = ReadLines(PathOf(name, ".jsonl"));
  const std::vector<std::string> answers = ReadLines(PathOf(name, ".expected.jsonl"));
  if (requests.size() != answers.size())
    throw std::runtime_error(name.string() + ": requests and answers differ in count");
  std::vector<TVector> vectors;
  for (std::size_t i = 0; i < requests.size(); ++i)
    vectors.push_back({i + 1, requests[i], answers[i], OpOf(requests[i])});
  return vectors;
}

namespace {

// A result that is false has no date-time: what stands in its place is not compared.
TJson WithoutDateTime(TJson result) {
  if (!result.is_object() || !result.contains("Result") || result["Result"] != false) return result;
  for (const char* name : {"ADateTime", "AResult"})
    if (result.contains(name)) result[name] = nullptr;
  return result;
}

}  // namespace

std::string Difference(const TJson& expected, const TJson& actual, double tolerance) {
  const auto part = [](const TJson& answer, const char* name) {
    return answer.contains(name) ? WithoutDateTime(answer[name]) : TJson();
  };
  for (const char* name : {"id", "ok", "result"})
    if (auto difference = DifferenceAt(name, part(expected, name), part(actual, name), tolerance); !difference.empty())
      return difference;
  return DifferenceAt("error.class", part(part(expected, "error"), "class"), part(part(actual, "error"), "class"),
                      tolerance);
}

void ExpectVectorsHold(const std::filesystem::path& name, const std::string& op, double tolerance) {
  std::size_t tried = 0, failed = 0;
  for (const TVector& vector : ReadVectors(name)) {
    if (!op.empty() && vector.Op != op) continue;
    ++tried;
    const std::string difference =
        Difference(TJson::parse(vector.Expected), TJson::parse(eval::Answer(vector.Request)), tolerance);
    if (difference.empty() || ++failed > MostReports) continue;
    ADD_FAILURE() << name.string() << " line " << vector.Line << "\n  " << vector.Request << "\n  " << difference;
  }
  EXPECT_GT(tried, 0U) << name << " has no vector of op '" << op << "'";
  EXPECT_EQ(failed, 0U) << "of " << tried;
  if (failed > 0) WriteNew(name);
}

std::vector<std::string> OpsOf(const std::filesystem::path& name) {
  std::set<std::string> ops;
  for (const TVector& vector : ReadVectors(name))
    if (!vector.Op.empty()) ops.insert(vector.Op);
  return {ops.begin(), ops.end()};
}

}  // namespace orv::testing
