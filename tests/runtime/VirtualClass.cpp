// What a class record answers about itself.
#include "runtime/VirtualClass.h"

#include <gtest/gtest.h>

#include "rtl/Exceptions.h"
#include "tests/runtime/HandRecord.h"
#include "tests/runtime/Shapes.h"

namespace orv {
namespace {

using testing::THandRecord;
using testing::TShape;
using testing::TSquare;

TEST(VirtualClass, AClassValueStandsRightBehindItsHeader) {
  THandRecord record(3);
  EXPECT_EQ(TVmt::GetVMT(record.Class()), &record.Vmt());
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(record.Class()) - reinterpret_cast<std::uintptr_t>(&record.Vmt()), 200U);
  EXPECT_EQ(record.Vmt().UserDefinedVirtuals(), record.Class());
}

TEST(VirtualClass, AnObjectHasTheRecordOfItsClass) {
  const TSquare square(1);
  const TShape& shape = square;
  EXPECT_EQ(TVmt::GetVMT(shape), TVmt::GetVMT(TSquare::Class()));
}

TEST(VirtualClass, WithoutOtherTablesTheMethodTableEndsTheSlots) {
  THandRecord record(3);
  EXPECT_EQ(static_cast<const void*>(record.Vmt().VmtEnd()), record.Place(0));
  EXPECT_EQ(TVmt::VmtEnd(record.Class()), record.Vmt().VmtEnd());
}

TEST(VirtualClass, TheFieldTableEndsTheSlotsBeforeTheMethodTable) {
  THandRecord record(3);
  record.Vmt().FieldTable = record.Place(0);
  record.Vmt().MethodTable = record.Place(1);
  EXPECT_EQ(static_cast<const void*>(record.Vmt().VmtEnd()), record.Place(0));
  EXPECT_EQ(record.Vmt().GetUserMethodCount(), 3);
}

TEST(VirtualClass, TheTableOfManagedFieldsEndsTheSlotsBeforeAnyOther) {
  THandRecord record(3);
  record.Vmt().InitTable = record.Place(0);
  record.Vmt().MethodTable = record.Place(1);
  EXPECT_EQ(static_cast<const void*>(record.Vmt().VmtEnd()), record.Place(0));
  record.Vmt().FieldTable = record.Place(1);
  record.Vmt().MethodTable = record.Place(2);
  EXPECT_EQ(static_cast<const void*>(record.Vmt().VmtEnd()), record.Place(0));
}

TEST(VirtualClass, ARecordWithoutTablesEndsByItsOwnCount) {
  THandRecord record(3);
  record.Vmt().MethodTable = nullptr;
  EXPECT_EQ(record.Vmt().GetUserMethodCount(), 0);
  record.Vmt().Reserved1 = 3;
  EXPECT_EQ(record.Vmt().GetUserMethodCount(), 3);
  EXPECT_EQ(record.Vmt().GetMethod(2), THandRecord::Method(3));
}

TEST(VirtualClass, SizesAndCountsFollowFromTheEnd) {
  for (std::size_t slotCount = 0; slotCount <= 100; ++slotCount) {
    THandRecord record(slotCount);
    const auto count = static_cast<std::int32_t>(slotCount);
    EXPECT_EQ(record.Vmt().GetSize(), 200 + 8 * count);
    EXPECT_EQ(record.Vmt().GetSizeMethodPartsOnly(), 112 + 8 * count);
    EXPECT_EQ(record.Vmt().GetSizeUserMethodsOnly(), 8 * count);
    EXPECT_EQ(record.Vmt().GetMethodCount(), 14 + count);
    EXPECT_EQ(record.Vmt().GetUserMethodCount(), count);
    EXPECT_EQ(TVmt::GetSizeMethodPartsOnly(record.Class()), 112 + 8 * count);
    EXPECT_EQ(TVmt::GetSizeUserMethodsOnly(record.Class()), 8 * count);
    EXPECT_EQ(TVmt::GetMethodCount(record.Class()), 14 + count);
    EXPECT_EQ(TVmt::GetUserMethodCount(record.Class()), count);
  }
}

TEST(VirtualClass, SlotsAreReadAndWrittenFromTheFirstToTheLast) {
  THandRecord record(3);
  for (std::int32_t i = 0; i < 3; ++i)
    EXPECT_EQ(record.Vmt().GetMethod(i), THandRecord::Method(static_cast<std::size_t>(i) + 1));
  record.Vmt().SetMethod(1, THandRecord::Method(9));
  EXPECT_EQ(record.Vmt().GetMethod(0), THandRecord::Method(1));
  EXPECT_EQ(record.Vmt().GetMethod(1), THandRecord::Method(9));
  EXPECT_EQ(record.Vmt().GetMethod(2), THandRecord::Method(3));
}

TEST(VirtualClass, AnAddressInTwoSlotsIsFoundInTheFirst) {
  THandRecord record(4);
  record.Vmt().SetMethod(3, THandRecord::Method(2));
  EXPECT_EQ(record.Vmt().GetMethodIndex(THandRecord::Method(2)), 1);
  EXPECT_EQ(record.Vmt().GetMethodIndex(THandRecord::Method(3)), 2);
}

#ifdef ORV_ASSERTIONS

TEST(VirtualClass, AnAddressInNoSlotIsABrokenInvariant) {
  THandRecord record(3);
  EXPECT_THROW(record.Vmt().GetMethodIndex(THandRecord::Method(9)), rtl::EAssertionFailed);
  EXPECT_THROW(THandRecord(0).Vmt().GetMethodIndex(nullptr), rtl::EAssertionFailed);
}

TEST(VirtualClass, AnIndexWithoutASlotIsABrokenInvariant) {
  THandRecord record(3);
  for (const std::int32_t index : {-1, 3, 25, INT32_MIN, INT32_MAX}) {
    EXPECT_THROW(record.Vmt().GetMethod(index), rtl::EAssertionFailed);
    EXPECT_THROW(record.Vmt().SetMethod(index, nullptr), rtl::EAssertionFailed);
  }
}

// The order is IntfTable, InitTable, FieldTable, MethodTable, then AutoTable, DynamicTable, ClassName. Every table at
// every place beside the method table in the middle: only the right side is taken, and a missing table always.
TEST(VirtualClass, TablesOutOfTheirOrderAreABrokenInvariant) {
  constexpr std::size_t middle = 3;
  constexpr std::size_t end = THandRecord::Places;
  const auto isTaken = [](const void* TVmt::*table, std::size_t place) {
    THandRecord record(2);
    record.Vmt().MethodTable = record.Place(middle);
    if (place < end) record.Vmt().*table = record.Place(place);
    try {
      record.Vmt().VmtEnd();
      return true;
    } catch (const rtl::EAssertionFailed&) {
      return false;
    }
  };
  for (const auto table : {&TVmt::IntfTable, &TVmt::InitTable, &TVmt::FieldTable}) {
    for (std::size_t place = 0; place < end; ++place) EXPECT_EQ(isTaken(table, place), place < middle) << place;
    EXPECT_TRUE(isTaken(table, end));
  }
  for (const auto table : {&TVmt::AutoTable, &TVmt::DynamicTable}) {
    for (std::size_t place = 0; place < end; ++place) EXPECT_EQ(isTaken(table, place), place > middle) << place;
    EXPECT_TRUE(isTaken(table, end));
  }
}

TEST(VirtualClass, ATableMayNotBeginOneByteBeforeTheNext) {
  THandRecord record(2);
  record.Vmt().FieldTable = record.Place(1);
  record.Vmt().MethodTable = record.Place(3);
  const auto* fields = static_cast<const std::byte*>(record.Place(1));
  record.Vmt().InitTable = fields - 2;
  EXPECT_NO_THROW(record.Vmt().VmtEnd());
  record.Vmt().InitTable = fields - 1;
  EXPECT_THROW(record.Vmt().VmtEnd(), rtl::EAssertionFailed);
  record.Vmt().InitTable = nullptr;
  record.Vmt().AutoTable = static_cast<const std::byte*>(record.Place(3)) + 2;
  EXPECT_NO_THROW(record.Vmt().VmtEnd());
  record.Vmt().AutoTable = static_cast<const std::byte*>(record.Place(3)) + 1;
  EXPECT_THROW(record.Vmt().VmtEnd(), rtl::EAssertionFailed);
}

TEST(VirtualClass, TheNameStandsBehindTheMethodTable) {
  THandRecord record(2);
  record.Vmt().ClassName = reinterpret_cast<PShortString>(record.Class());
  EXPECT_THROW(record.Vmt().VmtEnd(), rtl::EAssertionFailed);
  record.Vmt().ClassName = static_cast<PShortString>(record.Vmt().MethodTable);
  EXPECT_THROW(record.Vmt().VmtEnd(), rtl::EAssertionFailed);
}

#else

TEST(VirtualClass, WithoutAssertionsBrokenInvariantsHaveSafeAnswers) {
  THandRecord record(3);
  EXPECT_EQ(record.Vmt().GetMethodIndex(THandRecord::Method(9)), 0);
  for (const std::int32_t index : {-1, 3, 25, INT32_MIN, INT32_MAX}) {
    EXPECT_EQ(record.Vmt().GetMethod(index), nullptr);
    record.Vmt().SetMethod(index, nullptr);
  }
  for (std::int32_t i = 0; i < 3; ++i) EXPECT_NE(record.Vmt().GetMethod(i), nullptr);
  EXPECT_EQ(static_cast<const void*>(record.Vmt().VmtEnd()), record.Place(0));
}

#endif

}  // namespace
}  // namespace orv
