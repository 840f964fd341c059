#include "fmx/Log.h"

#include <utility>

namespace fmx {
namespace {

// Made at its first use, so that logging works however early it begins.
Log::TSink& Sink() {
  static Log::TSink sink;
  return sink;
}

}  // namespace

void Log::SetSink(TSink sink) {
  FEnabled = static_cast<bool>(sink);
  Sink() = std::move(sink);
}

void Log::Write(std::string_view format, std::initializer_list<TFormatArg> values) {
  Sink()(Format(format, values));
}

}  // namespace fmx
