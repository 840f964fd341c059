// The exceptions of the system. Each knows its class name, so that a caller can report it without type information:
//
//   try { ... } catch (const rtl::Exception& e) { Report(e.ClassName(), e.what()); }
//
// Catch by reference, or the class name is lost. what() is UTF-8.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace rtl {

// Base of everything the system raises. The message is a fixed text that may be shown as it stands.
class Exception : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;

  // The name of the most derived class, for example "EConvertError". Static storage.
  virtual std::string_view ClassName() const noexcept { return "Exception"; }
};

// A broken invariant, raised by ORV_ASSERT in builds with assertions.
class EAssertionFailed : public Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EAssertionFailed"; }
};

// A value that cannot be converted: a number, a date or a time text that does not hold one.
class EConvertError : public Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EConvertError"; }
};

// A marked-up text that the readers do not take.
class EParseError : public Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EParseError"; }
};

}  // namespace rtl
