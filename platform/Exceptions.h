// What the adapters raise. The messages name the thing that failed and may be shown as they stand.
#pragma once

#include <string_view>

#include "rtl/Exceptions.h"

namespace orv::platform {

// A font family that was asked for by name is not installed.
class EFontNotFound : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EFontNotFound"; }
};

// The font libraries cannot start, or no usable font is installed.
class EFontError : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EFontError"; }
};

// There is no display on which a person could see a window.
class ENoDisplay : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "ENoDisplay"; }
};

// The display is there, but the window cannot be opened or painted.
class EWindowError : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EWindowError"; }
};

// A picture file cannot be written or read.
class EPictureError : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EPictureError"; }
};

}  // namespace orv::platform
