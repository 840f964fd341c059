// A window where there is no display to see it on. The window itself is tested under a virtual X server.
#include "platform/Window.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/Exceptions.h"

namespace orv::platform {
namespace {

class WithoutDisplay : public testing::Test {
 protected:
  void SetUp() override {
    ::unsetenv("DISPLAY");
    ::unsetenv("WAYLAND_DISPLAY");
    ::unsetenv("SDL_VIDEODRIVER");
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);  // else the library starts a message bus
  }
  void TearDown() override { SetUp(); }
};

TEST_F(WithoutDisplay, AWindowSaysSo) {
  EXPECT_THROW(TWindow("title", 100, 100), ENoDisplay);
}

TEST_F(WithoutDisplay, DriversThatNobodySeesDoNotCount) {
  for (const char* driver : {"offscreen", "dummy"}) {
    ::setenv("SDL_VIDEODRIVER", driver, 1);
    EXPECT_THROW(TWindow("title", 100, 100), ENoDisplay) << driver;
  }
}

TEST_F(WithoutDisplay, ADisplayThatDoesNotAnswerIsNone) {
  ::setenv("DISPLAY", ":59999", 1);
  EXPECT_THROW(TWindow("title", 100, 100), ENoDisplay);
}

TEST_F(WithoutDisplay, TheEnvironmentNamesADisplayOrNot) {
  EXPECT_FALSE(DisplayIsNamed());
  ::setenv("DISPLAY", "", 1);
  EXPECT_FALSE(DisplayIsNamed());
  ::setenv("DISPLAY", ":0", 1);
  EXPECT_TRUE(DisplayIsNamed());
}

}  // namespace
}  // namespace orv::platform
