// Invariants. ORV_ASSERT(condition, message) raises rtl::EAssertionFailed with the message and the place in the source
// where ORV_ASSERTIONS is defined, and costs nothing (evaluates nothing) elsewhere. It states what no input can make
// false; what a user can get wrong raises a named exception instead.
#pragma once

#include <string_view>

namespace rtl {

// Raises EAssertionFailed with "MESSAGE (FILE, line LINE)". The build maps source paths to ones that start at the root
// of the tree, so the text is the same on every machine. For ORV_ASSERT alone.
[[noreturn]] void AssertionFailed(std::string_view message, const char* file, int line);

}  // namespace rtl

#ifdef ORV_ASSERTIONS
#define ORV_ASSERT(condition, message) \
  (static_cast<bool>(condition) ? static_cast<void>(0) : ::rtl::AssertionFailed((message), __FILE__, __LINE__))
#else
#define ORV_ASSERT(condition, message) static_cast<void>(sizeof(static_cast<bool>(condition)))
#endif
