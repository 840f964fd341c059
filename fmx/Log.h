// The framework's debug log: fixed lines that name the stages of layout and drawing. Off until a sink is set.
#pragma once

#include <functional>
#include <string_view>

#include "fmx/Format.h"

namespace fmx {

// A holder of process-wide state without instances. Set the sink while no other thread logs.
class Log {
 public:
  using TSink = std::function<void(std::string_view line)>;

  // Writes the line (see Format). Without a sink this is one test of a flag: nothing is formatted.
  // Example: Log::d("DoRenderLayout: -- LineIndex: %d", line).
  template <typename... Values>
  static void d(std::string_view format, const Values&... values) {
    if (FEnabled) [[unlikely]]
      Write(format, {TFormatArg(values)...});
  }

  // Sends what follows to the sink, which gets each line without its end; an empty sink switches the log off. The sink
  // must not log. What it raises reaches the caller of d.
  static void SetSink(TSink sink);
  static bool IsEnabled() { return FEnabled; }

 private:
  static void Write(std::string_view format, std::initializer_list<TFormatArg> values);

  static inline bool FEnabled = false;
};

}  // namespace fmx
