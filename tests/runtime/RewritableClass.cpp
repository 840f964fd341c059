// Compiled classes whose operations go through the slots of a record.
#include "runtime/RewritableClass.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <type_traits>

#include "tests/runtime/HandRecord.h"
#include "tests/runtime/Shapes.h"

namespace orv {
namespace {

using testing::TShape;
using testing::TSquare;
using testing::TTile;

std::string Drawn(TShape& shape) {
  std::string out;
  shape.DoDraw(out);
  return out;
}

TEST(RewritableClass, CallsReachTheMethodsOfTheObjectsClass) {
  TShape shape(3);
  TSquare square(3);
  EXPECT_EQ(Drawn(shape), "shape");
  EXPECT_EQ(Drawn(square), "shape square!");
  EXPECT_EQ(shape.DoCorners(), 0);
  EXPECT_EQ(square.DoCorners(), 4);
  EXPECT_EQ(square.DoArea(), 9);
  EXPECT_EQ(square.DoSide(), 3);
}

TEST(RewritableClass, SlotsThatADescendantDoesNotFillAreItsParents) {
  TTile tile(5);
  EXPECT_EQ(Drawn(tile), "shape square!");
  EXPECT_EQ(tile.DoCorners(), 4);
  EXPECT_EQ(tile.DoSide(), 6);
}

TEST(RewritableClass, AnOperationThatNobodySuppliesRaises) {
  const TShape shape(3);
  try {
    shape.DoArea();
    FAIL() << "no error";
  } catch (const rtl::Exception& error) {
    EXPECT_EQ(error.ClassName(), "EAbstractError");
    EXPECT_STREQ(error.what(), "Abstract Error");
  }
}

TEST(RewritableClass, AClassValueMakesObjectsOfItsClass) {
  for (const TClass aClass : {TShape::Class(), TSquare::Class(), TTile::Class()}) {
    const auto made = Record(aClass).Slot<TShape::Create>()(aClass, 7);
    EXPECT_EQ(made->ClassType(), aClass);
    EXPECT_EQ(made->Size, 7);
    EXPECT_EQ(TShape::Alive, 1);
  }
  EXPECT_EQ(TShape::Alive, 0);
  const auto tile = Record(TTile::Class()).Slot<TShape::Create>()(TTile::Class(), 7);
  EXPECT_NE(dynamic_cast<TTile*>(tile.get()), nullptr);
}

TEST(RewritableClass, TheRecordTellsWhatTheClassIs) {
  EXPECT_EQ(ClassName(TTile::Class()), "TTile");
  EXPECT_EQ(UnitName(TTile::Class()), "Tests.Squares");
  EXPECT_EQ(UnitName(TShape::Class()), "Tests.Shapes");
  EXPECT_EQ(ClassParent(TTile::Class()), TSquare::Class());
  EXPECT_EQ(ClassParent(TSquare::Class()), TShape::Class());
  EXPECT_EQ(ClassParent(TShape::Class()), nullptr);
  EXPECT_EQ(InstanceSize(TSquare::Class()), static_cast<std::int64_t>(sizeof(TSquare)));
  EXPECT_TRUE(InheritsFrom(TTile::Class(), TShape::Class()));
  EXPECT_TRUE(InheritsFrom(TTile::Class(), TTile::Class()));
  EXPECT_FALSE(InheritsFrom(TSquare::Class(), TTile::Class()));
  EXPECT_FALSE(InheritsFrom(TShape::Class(), nullptr));
  EXPECT_EQ(TTile(1).ClassName(), "TTile");
  EXPECT_TRUE(TTile(1).InheritsFrom(TSquare::Class()));
}

TEST(RewritableClass, ACompiledDescendantHasNoneOfItsParentsTables) {
  testing::THandRecord parent(2);
  parent.Vmt().FieldTable = parent.Place(0);
  parent.Vmt().MethodTable = parent.Place(1);
  parent.Vmt().AutoTable = parent.Place(2);
  parent.Vmt().DynamicTable = parent.Place(3);
  parent.Vmt().Destroy = testing::THandRecord::Method(77);
  struct alignas(8) TRoom {
    std::byte Bytes[CompiledRecordRoom(2)];
  };
  for (const bool withFirstTables : {false, true}) {
    if (withFirstTables) {
      parent.Vmt().IntfTable = parent.Class();
      parent.Vmt().InitTable = parent.Place(0);
      parent.Vmt().FieldTable = nullptr;
    }
    TRoom room;
    const TClass made = MakeCompiledRecord(room.Bytes, {"U", "T", parent.Class(), 8, 2}, {});
    const TVmt& vmt = *TVmt::GetVMT(made);
    EXPECT_EQ(vmt.IntfTable, nullptr);
    EXPECT_EQ(vmt.AutoTable, nullptr);
    EXPECT_EQ(vmt.InitTable, nullptr);
    EXPECT_EQ(vmt.FieldTable, nullptr);
    EXPECT_EQ(vmt.DynamicTable, nullptr);
    EXPECT_EQ(vmt.Destroy, testing::THandRecord::Method(77)) << "standard slots are inherited";
    EXPECT_EQ(vmt.GetUserMethodCount(), 2);
    EXPECT_EQ(vmt.GetMethod(1), testing::THandRecord::Method(2));
  }
}

TEST(RewritableClass, AMethodIsFoundByItsIdentity) {
  const TVmt* vmt = TVmt::GetVMT(TSquare::Class());
  EXPECT_EQ(TVmt::GetUserMethodCount(TShape::Class()), 4);
  EXPECT_EQ(vmt->GetUserMethodCount(), 5);
  const TMethodAddress draw = AddressOf<TShape::Draw>(Record(TSquare::Class()).Slot<TShape::Draw>());
  EXPECT_EQ(vmt->GetMethodIndex(draw), TShape::Draw::Number);
  EXPECT_NE(vmt->GetMethod(TShape::Draw::Number), TVmt::GetVMT(TShape::Class())->GetMethod(TShape::Draw::Number));
  EXPECT_EQ(TVmt::GetVMT(TTile::Class())->GetMethod(TShape::Draw::Number), draw);
}

TEST(RewritableClass, AnOldMethodKeptFromASlotCanBeCalled) {
  const auto kept = MethodAs<TShape::Corners>(TVmt::GetVMT(TSquare::Class())->GetMethod(TShape::Corners::Number));
  EXPECT_EQ(kept(TSquare(1)), 4);
}

TEST(RewritableClass, AReplacedSlotIsCalledByObjectsThatExistAlready) {
  TSquare square(2);
  TVmt* vmt = TVmt::GetVMT(square);
  const TMethodAddress old = vmt->GetMethod(TShape::Corners::Number);
  vmt->SetMethod(TShape::Corners::Number, AddressOf<TShape::Corners>([](const TShape&) { return 5; }));
  EXPECT_EQ(square.DoCorners(), 5);
  vmt->SetMethod(TShape::Corners::Number, old);
  EXPECT_EQ(square.DoCorners(), 4);
}

TEST(RewritableClass, ObjectsAreNotCopied) {
  static_assert(!std::is_copy_constructible_v<TShape> && !std::is_copy_assignable_v<TShape>);
  static_assert(!std::is_move_constructible_v<TSquare>);
}

}  // namespace
}  // namespace orv
