// A call of a replaceable operation, through a slot of the object's class record, beside a C++ virtual call with the
// same body: over objects of one class, and over objects of four classes in a scattered order.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "bench/Rooms.h"
#include "bench/support/Measure.h"
#include "runtime/RewritableClass.h"

namespace orv::bench {
namespace {

// --- Through the record ---

class TCounter : public TRewritableObject {
 public:
  struct Create : TSlot<0, std::unique_ptr<TCounter>(TClass)> {};
  struct Count : TSlot<1, std::uint32_t(TCounter&, std::uint32_t)> {};
  static constexpr int SlotCount = 2;
  static TClass Class() {
    return CompiledClass<TCounter, TNoParent, FillNew<Create, TCounter>, FillAbstract<Count>>("Bench", "TCounter");
  }
  explicit TCounter(TClass aClass = Class()) : TRewritableObject(aClass) {}

  std::uint32_t DoCount(std::uint32_t value) { return Record(ClassType()).Slot<Count>()(*this, value); }

 protected:
  std::uint32_t FState = 1;
};

template <std::uint32_t Step>
class TStepCounter : public TCounter {
 public:
  static constexpr int SlotCount = TCounter::SlotCount;
  static TClass Class() {
    return CompiledClass<TStepCounter, TCounter, FillNew<Create, TStepCounter>, Fill<Count, &TStepCounter::CountStep>>(
        "Bench", "TStepCounter");
  }
  explicit TStepCounter(TClass aClass = Class()) : TCounter(aClass) {}

 private:
  std::uint32_t CountStep(std::uint32_t value) { return FState += value * Step; }
};

// --- The same with the compiler's vtable ---

class TVirtualCounter {
 public:
  virtual ~TVirtualCounter() = default;
  virtual std::uint32_t DoCount(std::uint32_t value) = 0;

 protected:
  std::uint32_t FState = 1;
};

template <std::uint32_t Step>
class TVirtualStepCounter : public TVirtualCounter {
 public:
  std::uint32_t DoCount(std::uint32_t value) override { return FState += value * Step; }
};

// --- Objects ---

constexpr std::size_t ObjectCount = 1024;

// The same sequence of classes for both: one of four numbers, by the high bits of a multiplicative generator.
template <typename TMake>
auto Objects(bool isOneClass, TMake make) {
  std::vector<decltype(make(0))> objects;
  std::uint32_t random = 20240321;
  for (std::size_t i = 0; i < ObjectCount; ++i) {
    random = random * 1664525 + 1013904223;
    objects.push_back(make(isOneClass ? 1 : random >> 30));
  }
  return objects;
}

std::unique_ptr<TCounter> MakeCounter(std::uint32_t number) {
  const TClass classes[] = {TStepCounter<3>::Class(), TStepCounter<5>::Class(), TStepCounter<7>::Class(),
                            TStepCounter<11>::Class()};
  return Record(classes[number]).Slot<TCounter::Create>()(classes[number]);
}

std::unique_ptr<TVirtualCounter> MakeVirtual(std::uint32_t number) {
  switch (number) {
    case 0:
      return std::make_unique<TVirtualStepCounter<3>>();
    case 1:
      return std::make_unique<TVirtualStepCounter<5>>();
    case 2:
      return std::make_unique<TVirtualStepCounter<7>>();
    default:
      return std::make_unique<TVirtualStepCounter<11>>();
  }
}

template <typename TMake>
void AddDispatchRow(const std::string& name, bool isOneClass, TMake make) {
  AddRow(name, ObjectCount, [isOneClass, make](benchmark::State& state) {
    const auto objects = Objects(isOneClass, make);
    std::uint32_t value = 1;
    for (auto iteration : state) {
      for (const auto& object : objects) value = object->DoCount(value);
      benchmark::DoNotOptimize(value);
    }
  });
}

}  // namespace

void RegisterDispatch() {
  for (const bool isOneClass : {true, false}) {
    const std::string group = isOneClass ? "dispatch/one-class/" : "dispatch/four-classes/";
    AddDispatchRow(group + "orv", isOneClass, MakeCounter);
    AddDispatchRow(group + "virtual", isOneClass, MakeVirtual);
  }
}

}  // namespace orv::bench
