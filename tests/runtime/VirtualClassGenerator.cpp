// Classes made at run time, read back from their bytes.
#include "runtime/VirtualClassGenerator.h"

#include <gtest/gtest.h>

#include "rtl/Utf8.h"
#include "tests/runtime/GeneratedClass.h"
#include "tests/runtime/HandRecord.h"
#include "tests/runtime/Shapes.h"

namespace orv {
namespace {

using testing::MadeUp;
using testing::MadeUpType;
using testing::Number;
using testing::TGeneratedBytes;
using testing::TGenerator;
using testing::THandRecord;
using testing::TRequest;
using testing::TRequests;
using testing::TShape;
using testing::TSquare;
using testing::TTile;

TEST(VirtualClassGenerator, AClassWithoutChangesIsItsParentUnderAnotherName) {
  const TClass parent = TSquare::Class();
  const TClass made = TGenerator::CreateNewClass(parent, u"Tests.Orv", u"TSquareOrv");
  const TVmt& old = *TVmt::GetVMT(parent);
  const TVmt& vmt = *TVmt::GetVMT(made);
  EXPECT_NE(made, parent);
  ASSERT_EQ(vmt.GetUserMethodCount(), old.GetUserMethodCount());
  for (std::int32_t i = 0; i < old.GetUserMethodCount(); ++i) EXPECT_EQ(vmt.GetMethod(i), old.GetMethod(i));
  EXPECT_EQ(vmt.InstanceSize, old.InstanceSize);
  EXPECT_EQ(ClassName(made), "TSquareOrv");
  EXPECT_EQ(UnitName(made), "Tests.Orv");
  EXPECT_EQ(ClassName(parent), "TSquare");
}

TEST(VirtualClassGenerator, StandardSlotsAreInheritedAndTablesAreCleared) {
  THandRecord record(2);
  TVmt& old = record.Vmt();
  old.IntfTable = old.InitTable = old.FieldTable = record.Place(0);
  old.InitTable = record.Place(0);
  old.FieldTable = record.Place(1);
  old.MethodTable = record.Place(2);
  old.AutoTable = old.DynamicTable = record.Place(4);
  TMethodAddress* const standard[] = {&old.Equals,
                                      &old.GetHashCode,
                                      &old.ToString,
                                      &old.SafeCallException,
                                      &old.AfterConstruction,
                                      &old.BeforeDestruction,
                                      &old.Dispatch,
                                      &old.DefaultHandler,
                                      &old.NewInstance,
                                      &old.FreeInstance,
                                      &old.Destroy};
  for (std::size_t i = 0; i < std::size(standard); ++i) *standard[i] = MadeUp(1000 + i);
  old.Reserved2 = MadeUp(2000);
  old.Reserved3 = MadeUp(2001);

  const TGeneratedBytes made(TGenerator::CreateNewClass(record.Class(), u"U", u"T"));
  for (const std::size_t cleared : {8U, 16U, 24U, 40U, 56U}) EXPECT_EQ(made.RawField(cleared), 0U) << cleared;
  for (std::size_t i = 0; i < std::size(standard); ++i) EXPECT_EQ(made.RawField(88 + 8 * i), 1000 + i);
  EXPECT_EQ(made.RawField(184), 2000U);
  EXPECT_EQ(made.RawField(192), 2001U);
}

TEST(VirtualClassGenerator, TheRecordStandsAtByteSixOfItsBlock) {
  const TClass made = TGenerator::CreateNewClass(TShape::Class(), u"U", u"T");
  TGenerator::TAllocatedClassRec* block = TGenerator::TAllocatedClassRec::Of(made);
  EXPECT_EQ(TVmt::GetVMT(made), block->Tail());
  EXPECT_EQ(Number(block->Tail()) - Number(block), 6U);
  EXPECT_EQ(Number(block->Tail()) % 8, 0U);
  EXPECT_EQ(block->Reference(), 0);
  // 232 bytes of record, name 1, method table 6, type record 1 + 1 + 29, and 2 + 206.
  EXPECT_EQ(block->AllocationSize, 232 + 1 + 6 + 31 + 208);
}

TEST(VirtualClassGenerator, TheClassListHoldsEveryBlockInOrder) {
  const std::size_t before = TGenerator::Classes().Count();
  const TClass first = TGenerator::CreateNewClass(TShape::Class(), u"U", u"T1");
  const TClass second = TGenerator::CreateNewClass(first, u"U", u"T2");
  ASSERT_EQ(TGenerator::Classes().Count(), before + 2);
  EXPECT_EQ(TGenerator::Classes()[before], TGenerator::TAllocatedClassRec::Of(first));
  EXPECT_EQ(TGenerator::Classes()[before + 1], TGenerator::TAllocatedClassRec::Of(second));
}

TEST(VirtualClassGenerator, ClassesOutliveTheListThatHeldThem) {
  const TClass made = TGenerator::CreateNewClass(TShape::Class(), u"U", u"TKept");
  { TGenerator::TVirtualClassList{}.Add(TGenerator::TAllocatedClassRec::Of(made)); }
  EXPECT_EQ(ClassName(made), "TKept");
}

TEST(VirtualClassGenerator, TheInstanceSizeGrowsAndNeverShrinks) {
  const std::int64_t size = InstanceSize(TSquare::Class());
  for (const std::int64_t wanted : {size - 1, std::int64_t{0}, std::int64_t{-1}, std::int64_t{INT32_MIN}, size}) {
    const auto made =
        TGenerator::CreateNewClass(TSquare::Class(), u"U", u"T", {}, {}, {}, static_cast<std::int32_t>(wanted));
    EXPECT_EQ(InstanceSize(made), size);
  }
  const auto made =
      TGenerator::CreateNewClass(TSquare::Class(), u"U", u"T", {}, {}, {}, static_cast<std::int32_t>(size + 1));
  EXPECT_EQ(InstanceSize(made), size + 1);
}

TEST(VirtualClassGenerator, NewVirtualsFollowTheParentsLastSlot) {
  const std::int32_t count = TVmt::GetUserMethodCount(TTile::Class());
  const TMethodAddress added[] = {MadeUp(11), MadeUp(12)};
  const TClass made = TGenerator::CreateNewClass(TTile::Class(), u"U", u"T", {}, {}, added);
  EXPECT_EQ(TVmt::GetUserMethodCount(made), count + 2);
  EXPECT_EQ(TVmt::GetVMT(made)->GetMethod(count), MadeUp(11));
  EXPECT_EQ(TVmt::GetVMT(made)->GetMethod(count + 1), MadeUp(12));
  EXPECT_EQ(TVmt::GetVMT(made)->GetMethod(count - 1), TVmt::GetVMT(TTile::Class())->GetMethod(count - 1));
}

TEST(VirtualClassGenerator, OfOverridesOfOneSlotTheLastStays) {
  const TGenerator::TOverrideMethodInfo overrides[] = {{1, MadeUp(1)}, {0, MadeUp(2)}, {1, MadeUp(3)}};
  const TClass made = TGenerator::CreateNewClass(TShape::Class(), u"U", u"T", overrides);
  EXPECT_EQ(TVmt::GetVMT(made)->GetMethod(0), MadeUp(2));
  EXPECT_EQ(TVmt::GetVMT(made)->GetMethod(1), MadeUp(3));
}

TEST(VirtualClassGenerator, AnOverrideOfANewVirtualGivesWayToIt) {
  const TGenerator::TOverrideMethodInfo overrides[] = {{TShape::SlotCount, MadeUp(1)}};
  const TMethodAddress added[] = {MadeUp(2)};
  const TClass made = TGenerator::CreateNewClass(TShape::Class(), u"U", u"T", overrides, {}, added);
  EXPECT_EQ(TVmt::GetVMT(made)->GetMethod(TShape::SlotCount), MadeUp(2));
}

TEST(VirtualClassGenerator, TheParentStaysAsItWas) {
  const auto bytesOf = [](TClass aClass) {
    const auto* start = reinterpret_cast<const char*>(TVmt::GetVMT(aClass));
    return std::string(start, start + CompiledRecordRoom(TSquare::SlotCount));
  };
  const std::string before = bytesOf(TSquare::Class());
  const TGenerator::TOverrideMethodInfo overrides[] = {{0, MadeUp(1)}};
  const TMethodAddress added[] = {MadeUp(2)};
  TGenerator::CreateNewClass(TSquare::Class(), u"U", u"T", overrides, {}, added, 10000);
  EXPECT_EQ(bytesOf(TSquare::Class()), before);
}

TEST(VirtualClassGenerator, TheParentsAreReachedOneByOne) {
  const TClass first = TGenerator::CreateNewClass(TTile::Class(), u"U", u"T1");
  const TClass second = TGenerator::CreateNewClass(first, u"U", u"T2");
  std::vector<std::string_view> names;
  for (TClass each = second; each != nullptr; each = ClassParent(each)) names.push_back(ClassName(each));
  EXPECT_EQ(names, (std::vector<std::string_view>{"T2", "T1", "TTile", "TSquare", "TShape"}));
  EXPECT_TRUE(InheritsFrom(second, TShape::Class()));
  EXPECT_FALSE(InheritsFrom(first, second));
  EXPECT_FALSE(InheritsFrom(TTile::Class(), first));
}

TEST(VirtualClassGenerator, TheTypeRecordNamesItsParentsAndItsPropertyCount) {
  THandRecord parent(1);
  // Kind, name "P", class, parent's cell, 513 properties, unit "".
  const std::byte type[] = {
      std::byte{7}, std::byte{1}, std::byte{'P'}, {},           {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {},
      {},           std::byte{1}, std::byte{2},   std::byte{0}, {}, {}, {}, {}, {}, {}, {}, {}};
  parent.Vmt().TypeInfo = type;
  const TClass made = TGenerator::CreateNewClass(parent.Class(), u"Unit", u"TName");
  const testing::TReadTypeRecord record = TGeneratedBytes(made).TypeRecord;
  EXPECT_EQ(record.PropertyCount, 513U);
  EXPECT_EQ(record.ParentInfo, Number(&parent.Vmt().TypeInfo));
  EXPECT_EQ(record.Class, Number(made));
  const TClass heir = TGenerator::CreateNewClass(made, u"Unit", u"THeir");
  EXPECT_EQ(TGeneratedBytes(heir).TypeRecord.PropertyCount, 513U);
}

TEST(VirtualClassGenerator, AParentWithoutTypeRecordHasNoProperties) {
  THandRecord parent(1);
  const TClass made = TGenerator::CreateNewClass(parent.Class(), u"Unit", u"TName");
  EXPECT_EQ(TGeneratedBytes(made).TypeRecord.PropertyCount, 0U);
}

TEST(VirtualClassGenerator, AParentWithoutTablesTellsItsSlotsItself) {
  THandRecord parent(3);
  parent.Vmt().MethodTable = nullptr;
  parent.Vmt().Reserved1 = 3;
  const TClass made = TGenerator::CreateNewClass(parent.Class(), u"U", u"T");
  EXPECT_EQ(TVmt::GetUserMethodCount(made), 3);
  EXPECT_EQ(TVmt::GetVMT(made)->GetMethod(2), THandRecord::Method(3));
}

// --- Whatever the arguments are, the bytes say the same ---

void ExpectMethod(const testing::TReadMethod& read, const TGenerator::TPublishedMethod& method) {
  EXPECT_EQ(read.Length, read.BytesRead);
  EXPECT_EQ(read.Name, rtl::ToUtf8(method.MethodName));
  EXPECT_EQ(read.Address, Number(method.Address));
  EXPECT_EQ(read.Flags, method.Flags.Flags);
  EXPECT_EQ(read.VirtualIndex, static_cast<std::uint16_t>(method.VirtualIndex));
  EXPECT_EQ(read.Version, 3U);
  EXPECT_EQ(read.CC, method.CC);
  EXPECT_EQ(read.ResultType, Number(method.ResultType));
  EXPECT_EQ(read.ParOff, method.ParOff);
  EXPECT_EQ(read.Attributes, 2U);
  ASSERT_EQ(read.Params.size(), method.Params.size());
  for (std::size_t i = 0; i < read.Params.size(); ++i) {
    EXPECT_EQ(read.Params[i].Name, rtl::ToUtf8(method.Params[i].Name));
    EXPECT_EQ(read.Params[i].Flags, method.Params[i].Flags);
    EXPECT_EQ(read.Params[i].ParamType, Number(method.Params[i].ParamType));
    EXPECT_EQ(read.Params[i].ParOff, method.Params[i].ParOff);
    EXPECT_EQ(read.Params[i].Attributes, 2U);
  }
}

// The tables follow each other without a gap, from the last slot on.
void ExpectTables(const TGeneratedBytes& bytes, const TRequest& request, std::size_t slotCount) {
  const testing::TReadMethodTable& table = bytes.MethodTable;
  EXPECT_EQ(bytes.Field(0), 206U);
  EXPECT_EQ(bytes.Field(48), 206 + 8 * slotCount);
  EXPECT_EQ(table.OldCount, 0U);
  EXPECT_EQ(table.SecondOldCount, 0U);
  ASSERT_EQ(table.Methods.size(), request.Methods.size());
  std::size_t at = bytes.Field(48) + 6 + 12 * request.Methods.size();
  for (std::size_t i = 0; i < request.Methods.size(); ++i) {
    EXPECT_EQ(table.Methods[i].EntryAt, at);
    at += table.Methods[i].Length;
    ExpectMethod(table.Methods[i], request.Methods[i]);
  }
  EXPECT_EQ(bytes.Field(64), table.End);
  EXPECT_EQ(bytes.Field(32), table.End + 1 + bytes.ClassName.size());
}

void ExpectNames(const TGeneratedBytes& bytes, const TRequest& request, TClass parent) {
  EXPECT_EQ(bytes.ClassName, rtl::ToUtf8(request.ClassName));
  EXPECT_EQ(bytes.TypeRecord.Kind, 7U);
  EXPECT_EQ(bytes.TypeRecord.ClassName, bytes.ClassName);
  EXPECT_EQ(bytes.TypeRecord.Class, bytes.RawField(0));
  EXPECT_EQ(bytes.TypeRecord.ParentInfo, Number(TVmt::GetVMT(parent)) + 32);
  EXPECT_EQ(bytes.TypeRecord.UnitName, rtl::ToUtf8(request.UnitName));
  EXPECT_EQ(bytes.TypeRecord.PropertyBlock, 0U);
  EXPECT_EQ(bytes.RawField(80), Number(TVmt::GetVMT(parent)));
}

void ExpectSlots(const TGeneratedBytes& bytes, const TRequest& request, TClass parent) {
  std::vector<TMethodAddress> slots;
  for (std::int32_t i = 0; i < TVmt::GetUserMethodCount(parent); ++i) slots.push_back(parent[i].Method);
  const std::size_t first = slots.size();
  slots.resize(first + request.NewVirtuals.size());
  for (const auto& each : request.Overrides) slots[static_cast<std::size_t>(each.Index)] = each.Address;
  std::copy(request.NewVirtuals.begin(), request.NewVirtuals.end(), slots.begin() + static_cast<std::ptrdiff_t>(first));
  for (std::size_t i = 0; i < slots.size(); ++i) EXPECT_EQ(bytes.Slot(i), Number(slots[i])) << i;
}

std::size_t CountedSize(const TRequest& request, TClass parent) {
  std::size_t size = 200 + 8 * static_cast<std::size_t>(TVmt::GetUserMethodCount(parent));
  size += request.ClassName.size() + 8 * request.NewVirtuals.size() + 6;
  for (const auto& method : request.Methods) {
    size += method.MethodName.size() + 44;
    for (const auto& param : method.Params) size += param.Name.size() + 20;
  }
  return size + request.ClassName.size() + request.UnitName.size() + 29 + 2 + 206;
}

TEST(VirtualClassGenerator, TheBytesTellTheArgumentsBack) {
  TRequests requests(20240321);
  const TClass roots[] = {TShape::Class(), TSquare::Class(), TTile::Class()};
  TClass parent = nullptr;
  for (int round = 0; round < 3000; ++round) {
    if (round % 7 == 0) parent = roots[round % 3];  // then each is the parent of the next
    const std::int32_t parentSlots = TVmt::GetUserMethodCount(parent);
    const TRequest request = requests.Next(parentSlots);
    const TClass made = request.Make(parent);
    const TGeneratedBytes bytes(made);
    EXPECT_EQ(bytes.AllocationSize(), CountedSize(request, parent));
    EXPECT_EQ(bytes.Reference(), 0U);
    EXPECT_EQ(static_cast<std::int64_t>(bytes.RawField(72)),
              std::max<std::int64_t>(InstanceSize(parent), request.InstanceSize));
    ExpectTables(bytes, request, static_cast<std::size_t>(parentSlots) + request.NewVirtuals.size());
    ExpectNames(bytes, request, parent);
    ExpectSlots(bytes, request, parent);
    ASSERT_FALSE(HasFailure()) << "round " << round;
    parent = made;
  }
}

// --- Parts of the arguments ---

TEST(VirtualClassGenerator, APublishedMethodIsMadeWithAndWithoutParameters) {
  static const PTypeInfo resultType = nullptr;
  const auto flags = TGenerator::TMethodFlags::Create(1, TGenerator::TMethodFlags::TSpecialMethod::smNone, 2, 3);
  const auto plain = TGenerator::TPublishedMethod::Create(u"Plain", testing::MadeUp(1), 4, -5, flags, &resultType, 6);
  EXPECT_EQ(plain.MethodName, u"Plain");
  EXPECT_EQ(plain.Address, testing::MadeUp(1));
  EXPECT_EQ(plain.CC, 4);
  EXPECT_EQ(plain.VirtualIndex, -5);
  EXPECT_EQ(plain.Flags.Flags, flags.Flags);
  EXPECT_EQ(plain.ResultType, &resultType);
  EXPECT_EQ(plain.ParOff, 6);
  EXPECT_TRUE(plain.Params.empty());
  const auto taking =
      TGenerator::TPublishedMethod::Create(u"Taking", testing::MadeUp(2), 4, -5, flags, &resultType, 6,
                                           {TGenerator::TMethodParam::Create(u"first", 1, nullptr, 2),
                                            TGenerator::TMethodParam::Create(u"second", 3, &resultType, 4)});
  EXPECT_EQ(taking.MethodName, u"Taking");
  EXPECT_EQ(taking.ParOff, 6);
  ASSERT_EQ(taking.Params.size(), 2U);
  EXPECT_EQ(taking.Params[1].Name, u"second");
  EXPECT_EQ(taking.Params[1].ParamType, &resultType);
}

TEST(VirtualClassGenerator, TheFlagsWordKeepsItsPartsApart) {
  using TFlags = TGenerator::TMethodFlags;
  using TSpecial = TFlags::TSpecialMethod;
  for (unsigned word = 0; word <= 0xFFFF; ++word) {
    const TFlags flags{static_cast<std::uint16_t>(word)};
    const bool isSpecial = (word >> 2 & 1) != 0;
    ASSERT_EQ(flags.GetMethodKind(), isSpecial ? 4U : (word & 0x83)) << word;
    ASSERT_EQ(static_cast<unsigned>(flags.GetSpecialMethod()), isSpecial ? word & 3 : 0U) << word;
    ASSERT_EQ(flags.GetDispatchKind(), word >> 3 & 3) << word;
    ASSERT_EQ(flags.GetMemberVisibility(), word >> 5 & 3) << word;
    for (unsigned value = 0; value < 4; ++value) {
      TFlags changed = flags;
      changed.SetDispatchKind(static_cast<std::uint8_t>(value));
      ASSERT_EQ(changed.Flags, (word & ~0x18U) | value << 3);
      changed = flags;
      changed.SetMemberVisibility(static_cast<std::uint8_t>(value));
      ASSERT_EQ(changed.Flags, (word & ~0x60U) | value << 5);
      changed = flags;
      changed.SetSpecialMethod(static_cast<TSpecial>(value));
      ASSERT_EQ(changed.Flags, isSpecial ? (word & ~3U) | value : word);
    }
  }
}

TEST(VirtualClassGenerator, SettingTheKindClearsAllItsBits) {
  using TFlags = TGenerator::TMethodFlags;
  for (const unsigned kind : {0U, 1U, 2U, 3U, 4U, 0x80U, 0x81U}) {
    TFlags flags{0xFFFF};
    flags.SetMethodKind(static_cast<std::uint8_t>(kind));
    EXPECT_EQ(flags.Flags, 0xFF78 | kind);
    EXPECT_EQ(flags.GetMethodKind(), kind);
  }
}

TEST(VirtualClassGenerator, AKindThatIsNotSpecialTakesNoSpecialMethod) {
  using TFlags = TGenerator::TMethodFlags;
  using TSpecial = TFlags::TSpecialMethod;
  EXPECT_EQ(TFlags::Create(4, TSpecial::smDestructor, 1, 2).Flags, 4 | 2 | 1 << 3 | 2 << 5);
  EXPECT_EQ(TFlags::Create(1, TSpecial::smDestructor, 2, 0).Flags, 1 | 2 << 3);
  EXPECT_EQ(TFlags::Create(1, TSpecial::smDestructor, 2, 0).GetSpecialMethod(), TSpecial::smNone);
}

TEST(VirtualClassGenerator, ParametersAreEightBytesApartFromSixteenOn) {
  EXPECT_EQ(TGenerator::ParOff(0, 0, 0, 0, 0, 0), 16);
  EXPECT_EQ(TGenerator::ParOff(1, 2, 3, 4, 5, 7), 15 * 8 + 7 + 16);
  EXPECT_EQ(TGenerator::ParOff(0, -1, 0, 0, 0, -9), -1);
  EXPECT_EQ(TGenerator::ParOff(INT32_MAX, 1, 0, 0, 0, 0), 16);  // wraps
}

}  // namespace
}  // namespace orv
