// The generator of sample data that form designers put on a form.
#pragma once

namespace orv {

// A component without behaviour of its own: what it generates is the host framework's.
class TPrototypeBindSourceOrvDataGenerator {
 public:
  virtual ~TPrototypeBindSourceOrvDataGenerator() = default;
};

}  // namespace orv
