// An application over the host framework that ends as soon as it has started.
#include "platform/Host.h"

int main() {
  orv::platform::StartPlatform();
}
