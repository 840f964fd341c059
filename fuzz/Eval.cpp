// The JSON-lines port: any line is answered by one line of JSON.
#include "tools/orv/eval/Eval.h"
#include "fuzz/Input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string line(reinterpret_cast<const char*>(data), size);
  const std::string answer = orv::eval::Answer(line);
  orv::fuzz::Require(answer.find('\n') == std::string::npos, "an answer is one line");
  orv::fuzz::Require(orv::eval::TJson::accept(answer), "an answer is JSON");
  return 0;
}
