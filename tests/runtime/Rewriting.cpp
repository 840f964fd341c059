// A compiled class rewritten at run time: the replacement wraps the method that it replaces.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "rtl/Utf8.h"
#include "runtime/RewritableClass.h"
#include "runtime/VirtualClassGenerator.h"
#include "tests/runtime/Shapes.h"

namespace orv {
namespace {

using testing::TShape;
using testing::TSquare;
using testing::TTile;

// Collects the replacements; no object of it is ever made.
class TSquareOrvFake : public TShape {
 public:
  struct TFields {
    int Draws;
    double Total;
  };
  static constexpr int SlotCount = TShape::SlotCount;
  static TClass Class() {
    return CompiledClass<TSquareOrvFake, TShape, Fill<Draw, &DrawMirrored>, Fill<Corners, &CountCorners>>(
        "Tests.Mirrored", "TSquareOrvFake");
  }

  static void DrawMirrored(TShape& self, std::string& out) {
    ++FieldsOf<TFields>(self, TSquare::Class()).Draws;
    out += "[";
    KeptDraw(self, out);
    out += "]";
  }
  static int CountCorners(const TShape& self) { return KeptCorners(self) + 100; }

  static inline Draw::TFunction KeptDraw = nullptr;
  static inline Corners::TFunction KeptCorners = nullptr;
};

// The slot of a replacement, by its identity. What the target has there is kept.
template <typename TFill>
TVirtualClassGenerator::TOverrideMethodInfo Wrap(TClass target, typename TFill::TSlotTag::TFunction& kept) {
  const TMethodAddress replacement = TFill::Address();
  const std::int32_t slot = TVmt::GetVMT(TSquareOrvFake::Class())->GetMethodIndex(replacement);
  kept = MethodAs<typename TFill::TSlotTag>(TVmt::GetVMT(target)->GetMethod(slot));
  return {slot, replacement};
}

TClass Mirrored(TClass target) {
  using TFake = TSquareOrvFake;
  const TVirtualClassGenerator::TOverrideMethodInfo overrides[] = {
      Wrap<Fill<TShape::Draw, &TFake::DrawMirrored>>(target, TFake::KeptDraw),
      Wrap<Fill<TShape::Corners, &TFake::CountCorners>>(target, TFake::KeptCorners)};
  return TVirtualClassGenerator::CreateNewClass(
      target, rtl::FromUtf8(UnitName(TFake::Class())), rtl::FromUtf8(std::string(ClassName(target)) + "Orv"), overrides,
      {}, {}, static_cast<std::int32_t>(GrownInstanceSize<TFake::TFields>(target)));
}

// A framework's own table of what to make.
class TRegistry {
 public:
  void Register(TClass aClass) { FClass = aClass; }
  std::unique_ptr<TShape> Make(int size) const { return Record(FClass).Slot<TShape::Create>()(FClass, size); }

 private:
  TClass FClass = TSquare::Class();
};

class Rewriting : public ::testing::Test {
 protected:
  void SetUp() override {
    FMirrored = Mirrored(TSquare::Class());
    FRegistry.Register(FMirrored);
  }
  static std::string Drawn(TShape& shape) {
    std::string out;
    shape.DoDraw(out);
    return out;
  }

  TClass FMirrored = nullptr;
  TRegistry FRegistry;
};

TEST_F(Rewriting, AReplacementWrapsTheMethodOfTheCompiledClass) {
  const auto made = FRegistry.Make(3);
  EXPECT_EQ(Drawn(*made), "[shape square!]");
  EXPECT_EQ(made->DoCorners(), 104);
}

TEST_F(Rewriting, WhatIsNotReplacedIsTheCompiledClasss) {
  const auto made = FRegistry.Make(3);
  EXPECT_EQ(made->DoArea(), 9);
  EXPECT_EQ(made->Size, 3);
  ASSERT_NE(dynamic_cast<TSquare*>(made.get()), nullptr);
  EXPECT_EQ(dynamic_cast<TSquare&>(*made).DoSide(), 3);
}

TEST_F(Rewriting, ObjectsOfTheCompiledClassAreNotTouched) {
  TSquare square(2);
  EXPECT_EQ(Drawn(square), "shape square!");
  EXPECT_EQ(square.DoCorners(), 4);
  EXPECT_EQ(square.ClassName(), "TSquare");
}

TEST_F(Rewriting, TheObjectKnowsItsGeneratedClass) {
  const auto made = FRegistry.Make(3);
  EXPECT_EQ(made->ClassType(), FMirrored);
  EXPECT_EQ(made->ClassName(), "TSquareOrv");
  EXPECT_EQ(UnitName(made->ClassType()), "Tests.Mirrored");
  EXPECT_EQ(ClassParent(made->ClassType()), TSquare::Class());
  EXPECT_TRUE(made->InheritsFrom(TSquare::Class()));
  EXPECT_TRUE(made->InheritsFrom(TShape::Class()));
  EXPECT_FALSE(made->InheritsFrom(TTile::Class()));
  EXPECT_FALSE(made->InheritsFrom(TSquareOrvFake::Class()));
}

TEST_F(Rewriting, EveryObjectHasFieldsOfItsOwnThatStartAsZeros) {
  EXPECT_GE(InstanceSize(FMirrored),
            InstanceSize(TSquare::Class()) + static_cast<std::int64_t>(sizeof(TSquareOrvFake::TFields)));
  const auto first = FRegistry.Make(3);
  const auto second = FRegistry.Make(3);
  const auto fieldsOf = [](TShape& shape) -> TSquareOrvFake::TFields& {
    return FieldsOf<TSquareOrvFake::TFields>(shape, TSquare::Class());
  };
  EXPECT_EQ(fieldsOf(*first).Draws, 0);
  EXPECT_EQ(fieldsOf(*first).Total, 0);
  Drawn(*first);
  Drawn(*first);
  fieldsOf(*second).Total = 1.5;
  EXPECT_EQ(fieldsOf(*first).Draws, 2);
  EXPECT_EQ(fieldsOf(*first).Total, 0);
  EXPECT_EQ(fieldsOf(*second).Draws, 0);
  EXPECT_EQ(Drawn(*first), "[shape square!]");
}

TEST_F(Rewriting, AGeneratedClassIsGeneratedFromLikeACompiledOne) {
  const auto slot = TVmt::GetVMT(FMirrored)->GetMethodIndex(AddressOf<TShape::Corners>(&TSquareOrvFake::CountCorners));
  const TVirtualClassGenerator::TOverrideMethodInfo overrides[] = {
      {slot, AddressOf<TShape::Corners>([](const TShape&) { return 7; })}};
  const TClass twice = TVirtualClassGenerator::CreateNewClass(FMirrored, u"U", u"TTwice", overrides);
  EXPECT_EQ(InstanceSize(twice), InstanceSize(FMirrored));
  const auto made = Record(twice).Slot<TShape::Create>()(twice, 1);
  EXPECT_EQ(made->DoCorners(), 7);
  EXPECT_EQ(Drawn(*made), "[shape square!]");
  EXPECT_TRUE(made->InheritsFrom(FMirrored));
}

TEST_F(Rewriting, AnAddedSlotIsCalledLikeAnyOther) {
  struct TName : TSlot<TSquare::SlotCount, std::string(const TShape&)> {};
  const TMethodAddress added[] = {
      AddressOf<TName>([](const TShape& self) { return "size " + std::to_string(self.Size); })};
  const TClass named = TVirtualClassGenerator::CreateNewClass(TSquare::Class(), u"U", u"TNamed", {}, {}, added);
  const auto made = Record(named).Slot<TShape::Create>()(named, 8);
  EXPECT_EQ(Record(named).Slot<TName>()(*made), "size 8");
}

TEST_F(Rewriting, ObjectsOfManyClassesAreDestroyedWhole) {
  const int before = TShape::Alive;
  std::vector<std::unique_ptr<TShape>> shapes;
  for (const TClass aClass : {FMirrored, TSquare::Class(), TTile::Class(), TSquareOrvFake::Class()})
    shapes.push_back(Record(aClass).Slot<TShape::Create>()(aClass, 1));
  EXPECT_EQ(TShape::Alive, before + 4);
  shapes.clear();
  EXPECT_EQ(TShape::Alive, before);
}

// A constructor that raises gives the memory back; the leak checker watches.
class TRefusing : public TShape {
 public:
  static constexpr int SlotCount = TShape::SlotCount;
  static TClass Class() {
    return CompiledClass<TRefusing, TShape, FillNew<Create, TRefusing>>("Tests.Shapes", "TRefusing");
  }
  explicit TRefusing(int size, TClass aClass = Class()) : TShape(size, aClass) { throw EAbstractError(SAbstractError); }
};

TEST_F(Rewriting, AConstructorThatRaisesLeavesNothing) {
  const int before = TShape::Alive;
  const TClass aClass = TVirtualClassGenerator::CreateNewClass(TRefusing::Class(), u"U", u"T", {}, {}, {}, 4096);
  EXPECT_THROW(Record(aClass).Slot<TShape::Create>()(aClass, 1), EAbstractError);
  EXPECT_EQ(TShape::Alive, before);
}

}  // namespace
}  // namespace orv
