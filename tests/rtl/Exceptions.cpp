#include "rtl/Exceptions.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

namespace {

static_assert(std::is_base_of_v<std::runtime_error, rtl::Exception>);
static_assert(std::is_base_of_v<rtl::Exception, rtl::EAssertionFailed>);
static_assert(std::is_base_of_v<rtl::Exception, rtl::EConvertError>);
static_assert(!std::is_base_of_v<rtl::EConvertError, rtl::EAssertionFailed>);

// What a caller learns that knows only the base.
template <typename Raised>
std::string ReportOf(const std::string& message) {
  try {
    throw Raised(message);
  } catch (const rtl::Exception& e) {
    return std::string(e.ClassName()) + ": " + e.what();
  }
}

TEST(Exceptions, TheBaseTellsTheClassNameAndTheMessage) {
  EXPECT_EQ(ReportOf<rtl::Exception>("a"), "Exception: a");
  EXPECT_EQ(ReportOf<rtl::EAssertionFailed>("b"), "EAssertionFailed: b");
  EXPECT_EQ(ReportOf<rtl::EConvertError>("'31/02' is not a date"), "EConvertError: '31/02' is not a date");
  EXPECT_EQ(ReportOf<rtl::EConvertError>(""), "EConvertError: ");
}

TEST(Exceptions, ClassNamesOutliveTheException) {
  auto e = std::make_unique<rtl::EConvertError>("x");
  const std::string_view name = e->ClassName();
  e.reset();
  EXPECT_EQ(name, "EConvertError");
}

TEST(Exceptions, AreStandardExceptions) {
  EXPECT_THROW(throw rtl::EConvertError("x"), std::runtime_error);
}

}  // namespace
