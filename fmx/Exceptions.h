// The framework's exceptions.
#pragma once

#include "rtl/Exceptions.h"

namespace fmx {

// A layout has no answer: no text position lies at a point.
class ETextLayoutException : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "ETextLayoutException"; }
};

// An object was asked for that is not there.
class EArgumentNilException : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EArgumentNilException"; }
};

// An operation that the state of things does not allow.
class EInvalidOperation : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EInvalidOperation"; }
};

// A bitmap or surface of a size that is not allowed (fmx/Limits.h).
class EBitmapSizeTooBig : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EBitmapSizeTooBig"; }
};

// Nothing is registered that could make a canvas, a layout or a glyph.
class ENotRegistered : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "ENotRegistered"; }
};

// An operation that the class does not have.
class ENotImplemented : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "ENotImplemented"; }
};

}  // namespace fmx
