// A small family of rewritable classes for the tests: a root with a constructor slot, two operations and one that only
// descendants supply, and two descendants.
#pragma once

#include <memory>
#include <string>

#include "runtime/RewritableClass.h"

namespace orv::testing {

class TShape : public TRewritableObject {
 public:
  struct Create : TSlot<0, std::unique_ptr<TShape>(TClass, int)> {};
  struct Draw : TSlot<1, void(TShape&, std::string&)> {};
  struct Corners : TSlot<2, int(const TShape&)> {};
  struct Area : TSlot<3, double(const TShape&)> {};
  static constexpr int SlotCount = 4;

  static TClass Class() {
    return CompiledClass<TShape, TNoParent, FillNew<Create, TShape>, Fill<Draw, &TShape::DrawPlainly>,
                         Fill<Corners, &TShape::NoCorners>, FillAbstract<Area>>("Tests.Shapes", "TShape");
  }
  explicit TShape(int size, TClass aClass = Class()) : TRewritableObject(aClass), Size(size) { ++Alive; }
  ~TShape() override { --Alive; }

  void DoDraw(std::string& out) { Record(ClassType()).Slot<Draw>()(*this, out); }
  int DoCorners() const { return Record(ClassType()).Slot<Corners>()(*this); }
  double DoArea() const { return Record(ClassType()).Slot<Area>()(*this); }

  const int Size;
  static inline int Alive = 0;

 protected:
  void DrawPlainly(std::string& out) { out += "shape"; }

 private:
  int NoCorners() const { return 0; }
};

// Replaces operations and adds one behind its parent's.
class TSquare : public TShape {
 public:
  struct Side : TSlot<TShape::SlotCount, int(const TSquare&)> {};
  static constexpr int SlotCount = TShape::SlotCount + 1;

  static TClass Class() {
    return CompiledClass<TSquare, TShape, FillNew<Create, TSquare>, Fill<Draw, &TSquare::DrawSquare>,
                         Fill<Corners, &TSquare::FourCorners>, Fill<Area, &TSquare::SquareArea>,
                         Fill<Side, &TSquare::SideOf>>("Tests.Squares", "TSquare");
  }
  explicit TSquare(int size, TClass aClass = Class()) : TShape(size, aClass) {}

  int DoSide() const { return Record(ClassType()).Slot<Side>()(*this); }

 protected:
  void DrawSquare(std::string& out) {
    DrawPlainly(out);  // inherited
    out += " square" + FName;
  }

 private:
  int FourCorners() const noexcept { return 4; }
  double SquareArea() const { return static_cast<double>(Size) * Size; }
  int SideOf() const { return Size; }

  std::string FName = "!";  // a field that needs its constructor and its destructor
};

// Replaces one operation alone.
class TTile : public TSquare {
 public:
  static constexpr int SlotCount = TSquare::SlotCount;

  static TClass Class() {
    return CompiledClass<TTile, TSquare, FillNew<Create, TTile>, Fill<Side, &TTile::SideWithGap>>("Tests.Squares",
                                                                                                  "TTile");
  }
  explicit TTile(int size, TClass aClass = Class()) : TSquare(size, aClass) {}

 private:
  int SideWithGap() const { return Size + 1; }
};

}  // namespace orv::testing
