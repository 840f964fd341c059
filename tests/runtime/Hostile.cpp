// Arguments that do not fit a class's record: refused before anything is made, in every build, or written whole.
#include <gtest/gtest.h>

#include <functional>

#include "rtl/Exceptions.h"
#include "rtl/Utf8.h"
#include "runtime/RewritableClass.h"
#include "tests/runtime/GeneratedClass.h"
#include "tests/runtime/HandRecord.h"
#include "tests/runtime/Shapes.h"

namespace orv {
namespace {

using testing::MadeUp;
using testing::TGeneratedBytes;
using testing::TGenerator;
using testing::THandRecord;
using testing::TRequest;
using testing::TShape;

void ExpectRefused(const TRequest& request, TClass parent = TShape::Class()) {
  const std::size_t before = TGenerator::Classes().Count();
  EXPECT_THROW(request.Make(parent), rtl::EAssertionFailed);
  EXPECT_EQ(TGenerator::Classes().Count(), before);
}

TGenerator::TPublishedMethod MethodWith(std::size_t paramCount, std::size_t nameLength) {
  TGenerator::TPublishedMethod method;
  method.MethodName = u"M";
  method.Params.assign(paramCount, TGenerator::TMethodParam::Create(std::u16string(nameLength, u'p'), 0, nullptr, 0));
  return method;
}

TEST(HostileClass, ANameHas255BytesAtMost) {
  const std::u16string longest(255, u'n');
  const std::u16string longestPersian(127, u'\u0633');
  for (const std::u16string& name : {longest, longestPersian}) {
    TRequest request{name, name, {}, {}, {}, 0};
    request.Methods.push_back(MethodWith(0, 0));
    request.Methods.back().MethodName = name;
    request.Methods.back().Params.push_back(TGenerator::TMethodParam::Create(name, 0, nullptr, 0));
    const TClass made = request.Make(TShape::Class());
    EXPECT_EQ(ClassName(made), rtl::ToUtf8(name));
    EXPECT_EQ(UnitName(made), rtl::ToUtf8(name));
    EXPECT_EQ(TGeneratedBytes(made).MethodTable.Methods.at(0).Params.at(0).Name, rtl::ToUtf8(name));

    const std::u16string tooLong = name + name.front();
    TRequest refused = request;
    refused.UnitName = tooLong;
    ExpectRefused(refused);
    refused = request;
    refused.ClassName = tooLong;
    ExpectRefused(refused);
    refused = request;
    refused.Methods[0].MethodName = tooLong;
    ExpectRefused(refused);
    refused = request;
    refused.Methods[0].Params[0].Name = tooLong;
    ExpectRefused(refused);
  }
}

// Such names take three bytes a unit, so the block is longer than its own count says.
TEST(HostileClass, NamesOutsideAsciiFitTheirBlock) {
  const std::u16string name(85, u'\u0905');
  TRequest request{name, name, {}, {}, {}, 0};
  request.Methods.assign(20, MethodWith(0, 0));
  for (auto& method : request.Methods) {
    method.MethodName = name;
    method.Params.assign(20, TGenerator::TMethodParam::Create(name, 1, nullptr, 2));
  }
  const TClass made = request.Make(TShape::Class());
  const TGeneratedBytes bytes(made);
  EXPECT_GT(bytes.Bytes.size(), bytes.AllocationSize());
  EXPECT_EQ(bytes.TypeRecord.UnitName, rtl::ToUtf8(name));
  EXPECT_EQ(bytes.MethodTable.Methods.at(19).Params.at(19).Name, rtl::ToUtf8(name));
}

TEST(HostileClass, ALoneSurrogateIsAReplacementCharacter) {
  const std::u16string name{u'T', char16_t{0xD800}};
  EXPECT_EQ(ClassName(TGenerator::CreateNewClass(TShape::Class(), u"U", name)), "T\xEF\xBF\xBD");
  ExpectRefused({u"U", std::u16string(86, char16_t{0xDC00}), {}, {}, {}, 0});
}

TEST(HostileClass, ANameMayHoldZeros) {
  const std::u16string_view name(u"T\0T", 3);
  EXPECT_EQ(ClassName(TGenerator::CreateNewClass(TShape::Class(), u"U", name)), std::string_view("T\0T", 3));
}

TEST(HostileClass, AnOverrideOutsideTheSlotsIsRefused) {
  for (const std::int32_t index : {-1, TShape::SlotCount + 1, 1000, INT32_MAX, INT32_MIN})
    ExpectRefused({u"U", u"T", {{0, MadeUp(1)}, {index, MadeUp(2)}}, {}, {MadeUp(3)}, 0});
  EXPECT_NO_THROW((TRequest{u"U", u"T", {{TShape::SlotCount, MadeUp(2)}}, {}, {MadeUp(3)}, 0}.Make(TShape::Class())));
  ExpectRefused({u"U", u"T", {{TShape::SlotCount, MadeUp(2)}}, {}, {}, 0});
  THandRecord empty(0);
  ExpectRefused({u"U", u"T", {{0, MadeUp(2)}}, {}, {}, 0}, empty.Class());
}

TEST(HostileClass, ThereIsNoClassWithoutParent) {
  ExpectRefused({u"U", u"T", {}, {}, {}, 0}, nullptr);
}

// Its tables stand before or inside the header, so nothing says how much of it there is to copy.
TEST(HostileClass, AParentWhoseRecordEndsInsideItsHeaderIsRefused) {
  for (const std::ptrdiff_t back :
       {std::ptrdiff_t{1}, std::ptrdiff_t{8}, std::ptrdiff_t{199}, std::ptrdiff_t{200}, std::ptrdiff_t{1000}}) {
    THandRecord parent(3);
    parent.Vmt().MethodTable = reinterpret_cast<const std::byte*>(parent.Class()) - back;
    ExpectRefused({u"U", u"T", {}, {}, {}, 0}, parent.Class());
    ExpectRefused({u"U", u"T", {}, {}, {MadeUp(3)}, 0}, parent.Class());
  }
  THandRecord empty(0);
  EXPECT_NO_THROW((TRequest{u"U", u"T", {}, {}, {}, 0}.Make(empty.Class())));
}

TEST(HostileClass, AMethodHas255ParametersAtMost) {
  const TClass made = TRequest{u"U", u"T", {}, {MethodWith(255, 1)}, {}, 0}.Make(TShape::Class());
  EXPECT_EQ(TGeneratedBytes(made).MethodTable.Methods.at(0).Params.size(), 255U);
  ExpectRefused({u"U", u"T", {}, {MethodWith(256, 1)}, {}, 0});
}

// An entry tells its own length in a word. With a name of one byte and 255 parameters it takes 27 + 255 * (13 + name)
// bytes, of which the word holds those with names of up to 243 bytes.
TEST(HostileClass, AMethodsEntryHas65535BytesAtMost) {
  const TClass made = TRequest{u"U", u"T", {}, {MethodWith(255, 243)}, {}, 0}.Make(TShape::Class());
  EXPECT_EQ(TGeneratedBytes(made).MethodTable.Methods.at(0).Length, 27U + 255 * (13 + 243));
  ExpectRefused({u"U", u"T", {}, {MethodWith(255, 244)}, {}, 0});
}

TEST(HostileClass, AClassHas65535PublishedMethodsAtMost) {
  TRequest request{u"U", u"T", {}, {}, {}, 0};
  request.Methods.assign(65535, MethodWith(0, 0));
  const TGeneratedBytes bytes(request.Make(TShape::Class()));
  EXPECT_EQ(bytes.MethodTable.Methods.size(), 65535U);
  EXPECT_EQ(bytes.MethodTable.Methods.back().Name, "M");
  request.Methods.push_back(MethodWith(0, 0));
  ExpectRefused(request);
}

// Around the greatest size that the block's word holds: the word wraps, the block is as long as it must be.
TEST(HostileClass, ABlockOverALengthWordIsReservedWholeAndTellsItsSizeModuloTheWord) {
  // Record and new slots, then name 1, method table 6, type record 31 and 208.
  constexpr std::size_t rest = 200 + 1 + 6 + 31 + 208;
  for (std::size_t count = (65535 - rest) / 8 - 1; count <= (65536 - rest) / 8 + 2; ++count) {
    std::vector<TMethodAddress> added;
    for (std::size_t i = 0; i < count; ++i) added.push_back(MadeUp(i + 1));
    THandRecord parent(0);
    const TClass made = TGenerator::CreateNewClass(parent.Class(), u"U", u"T", {}, {}, added);
    const TGeneratedBytes bytes(made);
    EXPECT_EQ(bytes.AllocationSize(), (rest + 8 * count) % 65536);
    ASSERT_EQ(TVmt::GetUserMethodCount(made), static_cast<std::int32_t>(count));
    for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(made[i].Method, MadeUp(i + 1));
    EXPECT_EQ(bytes.TypeRecord.UnitName, "U");
  }
}

TEST(HostileClass, ACompiledClassWithATooLongNameIsRefused) {
  struct alignas(8) TRoom {
    std::byte Bytes[CompiledRecordRoom(0)];
  };
  TRoom room;
  const std::string longest(255, 'n');
  EXPECT_EQ(ClassName(MakeCompiledRecord(room.Bytes, {longest, longest, nullptr, 8, 0}, {})), longest);
  const std::string tooLong(256, 'n');
  EXPECT_THROW(MakeCompiledRecord(room.Bytes, {"U", tooLong, nullptr, 8, 0}, {}), rtl::EAssertionFailed);
  EXPECT_THROW(MakeCompiledRecord(room.Bytes, {tooLong, "T", nullptr, 8, 0}, {}), rtl::EAssertionFailed);
}

}  // namespace
}  // namespace orv
