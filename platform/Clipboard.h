// The clipboard of the system.
#pragma once

#include <string>
#include <string_view>

#include "fmx/Services.h"

namespace orv::platform {

// By SDL, once there is a window; a clipboard of the process's own before that. Between UTF-16 here and UTF-8 there,
// what is ill-formed becomes U+FFFD, and so does U+0000, behind which nothing would be left.
class TClipboardService : public fmx::IFMXClipboardService {
 public:
  std::u16string GetText() override;
  void SetText(std::u16string_view text) override;

 private:
  std::u16string FOwn;
};

}  // namespace orv::platform
