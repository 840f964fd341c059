#include "fmx/Control.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "fmx/Exceptions.h"
#include "fmx/Presentation.h"

namespace {

using fmx::TControl;
using fmx::TPresentationProxyFactory;

class TCounted : public TControl {
 public:
  int Resizes = 0;

 protected:
  void Resize() override { ++Resizes; }
};

TEST(Control, StandsInNoOtherAtFirst) {
  const TControl control;
  EXPECT_EQ(control.Parent(), nullptr);
  EXPECT_EQ(control.Size(), (fmx::TSizeF{0, 0}));
}

TEST(Control, ForgetsAParentThatGoes) {
  TControl child;
  {
    TControl parent;
    child.SetParent(&parent);
    EXPECT_EQ(child.Parent(), &parent);
  }
  EXPECT_EQ(child.Parent(), nullptr);
}

TEST(Control, AParentForgetsAChildThatGoesOrLeaves) {
  auto parent = std::make_unique<TControl>();
  TControl other;
  auto leaves = std::make_unique<TControl>();
  {
    TControl goes;
    goes.SetParent(parent.get());
  }
  leaves->SetParent(parent.get());
  leaves->SetParent(&other);
  parent.reset();  // would write into what it still held
  EXPECT_EQ(leaves->Parent(), &other);
  leaves->SetParent(nullptr);
  EXPECT_EQ(leaves->Parent(), nullptr);
}

TEST(Control, NeverStandsInItself) {
  TControl outer;
  TControl inner;
  inner.SetParent(&outer);
  EXPECT_THROW(outer.SetParent(&outer), fmx::EInvalidOperation);
  EXPECT_THROW(outer.SetParent(&inner), fmx::EInvalidOperation);
  EXPECT_EQ(outer.Parent(), nullptr);
}

TEST(Control, TellsOfAnotherSizeOnce) {
  TCounted control;
  control.SetSize({10, 20});
  control.SetSize({10, 20});
  EXPECT_EQ(control.Resizes, 1);
  EXPECT_EQ(control.Size(), (fmx::TSizeF{10, 20}));
}

TEST(Control, HoldsASizeThatCannotBeAtNothing) {
  TCounted control;
  control.SetSize({-1, std::numeric_limits<float>::infinity()});
  control.SetSize({NAN, 0});
  EXPECT_EQ(control.Size(), (fmx::TSizeF{0, 0}));
  EXPECT_EQ(control.Resizes, 0);
}

// --- Presentations ---

class TPlain : public fmx::TPresentationProxy {
 public:
  std::string_view ClassName() const override { return "TPlain"; }
};
class TBetter : public fmx::TPresentationProxy {
 public:
  std::string_view ClassName() const override { return "TBetter"; }
};
template <typename T>
std::unique_ptr<fmx::TPresentationProxy> Make(TControl&) {
  return std::make_unique<T>();
}

class Presentations : public testing::Test {
 protected:
  std::string Made(std::string_view name) {
    return std::string(FFactory.CreatePresentationProxy(name, FControl)->ClassName());
  }
  TPresentationProxyFactory FFactory;
  TControl FControl;
};

TEST_F(Presentations, AreNamedAfterTheControl) {
  EXPECT_EQ(TPresentationProxyFactory::NameOf("TEdit", fmx::TControlType::Styled), "Edit-style");
  EXPECT_EQ(TPresentationProxyFactory::NameOf("TEdit", fmx::TControlType::Platform), "Edit-native");
  EXPECT_EQ(TPresentationProxyFactory::NameOf("Edit", fmx::TControlType::Styled), "Edit-style");
  EXPECT_EQ(TPresentationProxyFactory::NameOf("", fmx::TControlType::Styled), "-style");
}

TEST_F(Presentations, TakeThePlaceOfThoseRegistered) {
  FFactory.Register("Edit-style", Make<TPlain>);
  EXPECT_EQ(Made("Edit-style"), "TPlain");
  FFactory.Replace("TEdit", fmx::TControlType::Styled, Make<TBetter>);
  EXPECT_EQ(Made("Edit-style"), "TBetter");
}

TEST_F(Presentations, AreReplacedByNameWhereThereWasNone) {
  FFactory.Replace("Edit-ide-platform", Make<TBetter>);
  EXPECT_EQ(Made("Edit-ide-platform"), "TBetter");
}

TEST_F(Presentations, AreRegisteredOnce) {
  FFactory.Register("Edit-style", Make<TPlain>);
  EXPECT_THROW(FFactory.Register("Edit-style", Make<TBetter>), fmx::EInvalidOperation);
  EXPECT_EQ(Made("Edit-style"), "TPlain");
  FFactory.Unregister("Edit-style");
  FFactory.Unregister("Edit-style");
  EXPECT_THROW(Made("Edit-style"), fmx::ENotRegistered);
}

TEST_F(Presentations, AreMadeForTheControl) {
  TControl* seen = nullptr;
  FFactory.Register("Edit-style", [&](TControl& control) {
    seen = &control;
    return Make<TPlain>(control);
  });
  Made("Edit-style");
  EXPECT_EQ(seen, &FControl);
  FFactory.Replace("Edit-style", nullptr);
  EXPECT_THROW(Made("Edit-style"), fmx::ENotRegistered);
}

TEST_F(Presentations, OneFactoryServesTheProcess) {
  EXPECT_EQ(&TPresentationProxyFactory::Current(), &TPresentationProxyFactory::Current());
}

}  // namespace
