#include "fmx/EditServices.h"

#include <gtest/gtest.h>

#include "fmx/Form.h"
#include "fmx/Loupe.h"
#include "fmx/Services.h"
#include "fmx/WindowServices.h"

namespace {

using fmx::TPlatformServices;

class EditServices : public testing::Test {
 protected:
  EditServices() { TPlatformServices::SetCurrent(std::make_unique<TPlatformServices>()); }
  ~EditServices() override { TPlatformServices::SetCurrent(nullptr); }

  template <typename T, typename TImplementation>
  std::shared_ptr<TImplementation> Add() {
    auto service = std::make_shared<TImplementation>();
    TPlatformServices::Current()->AddPlatformService(T::Guid, service);
    return service;
  }
};

static_assert(fmx::IWindowService::Guid == fmx::TGuid::Of("{26C42398-9AFC-4D09-9541-9C71E769FC35}"));
static_assert(fmx::IApplicationService::Guid == fmx::TGuid::Of("{EFBE3310-D103-4E9E-A8E1-4E45AB46D0D8}"));

class TMouse : public fmx::IMouseService {
 public:
  fmx::TPointF GetMousePos() override { return {30, 40}; }
};

class TSpeller : public fmx::IFMXSpellCheckerService {
 public:
  std::vector<std::u16string> CheckSpelling(std::u16string_view word) override {
    return word == u"teh" ? std::vector<std::u16string>{u"the", u"ten"} : std::vector<std::u16string>();
  }
};

class TDevice : public fmx::IDeviceService {
 public:
  fmx::TDeviceFeatures GetFeatures() override { return Features; }
  fmx::TDeviceFeatures Features;
};

class THints : public fmx::IStyleHintService {
 public:
  std::optional<bool> GetHint(std::string_view name, std::string_view className) override {
    if (name != "NeedSetFocusAfterButtonClick" || className != "TComboEdit") return std::nullopt;
    return false;
  }
};

void ExpectDefaults() {
  EXPECT_EQ(fmx::MousePosition(), std::nullopt);
  EXPECT_TRUE(fmx::SpellingSuggestions(u"teh").empty());
  EXPECT_FALSE(fmx::HasTouchScreen());
  EXPECT_TRUE(fmx::NeedSetFocusAfterButtonClick("TComboEdit"));
  EXPECT_EQ(fmx::FindService<fmx::ILoupeService>(), nullptr);
  EXPECT_EQ(fmx::FindService<fmx::IWindowService>(), nullptr);
  EXPECT_EQ(fmx::FindService<fmx::IApplicationService>(), nullptr);
  EXPECT_EQ(fmx::FindService<fmx::IFMXClipboardService>(), nullptr);
}

TEST_F(EditServices, MayEveryOneBeAbsent) {
  ExpectDefaults();
  TPlatformServices::SetCurrent(nullptr);
  ExpectDefaults();
}

TEST_F(EditServices, AreAskedWherePresent) {
  Add<fmx::IMouseService, TMouse>();
  Add<fmx::IFMXSpellCheckerService, TSpeller>();
  Add<fmx::IStyleHintService, THints>();
  EXPECT_EQ(fmx::MousePosition(), (fmx::TPointF{30, 40}));
  EXPECT_EQ(fmx::SpellingSuggestions(u"teh"), (std::vector<std::u16string>{u"the", u"ten"}));
  EXPECT_TRUE(fmx::SpellingSuggestions(u"the").empty());
  EXPECT_FALSE(fmx::NeedSetFocusAfterButtonClick("TComboEdit"));
  EXPECT_TRUE(fmx::NeedSetFocusAfterButtonClick("TSearchBox"));
}

TEST_F(EditServices, TouchIsTheFirstFeatureOfADevice) {
  const auto device = Add<fmx::IDeviceService, TDevice>();
  for (unsigned bits = 0; bits < 256; ++bits) {
    device->Features = fmx::TDeviceFeatures::FromBits(static_cast<std::uint8_t>(bits));
    EXPECT_EQ(fmx::HasTouchScreen(), (bits & 1) != 0);
  }
}

// A platform's windows and its message loop.
class TWindows : public fmx::IWindowService, public fmx::IApplicationService {
 public:
  fmx::TWindowHandle CreateWindow(fmx::IRoot& form) override {
    Form = &form;
    return 7;
  }
  bool HandleMessage() override { return Messages > 0 && Messages-- > 0; }
  void Terminate() override { Terminated = true; }

  fmx::IRoot* Form = nullptr;
  int Messages = 2;
  bool Terminated = false;
};

// Stands in for both services, and asks those it replaced.
class TForwarding : public fmx::IWindowService, public fmx::IApplicationService {
 public:
  TForwarding() : FWindows(fmx::FindService<IWindowService>()), FApplication(fmx::FindService<IApplicationService>()) {}
  fmx::TWindowHandle CreateWindow(fmx::IRoot& form) override { return FLast = FWindows->CreateWindow(form); }
  bool HandleMessage() override { return FApplication->HandleMessage(); }
  void Terminate() override { FApplication->Terminate(); }
  fmx::TWindowHandle Last() const { return FLast; }

 private:
  std::shared_ptr<fmx::IWindowService> FWindows;
  std::shared_ptr<fmx::IApplicationService> FApplication;
  fmx::TWindowHandle FLast = 0;
};

template <typename T>
void AddBoth(const std::shared_ptr<T>& service) {
  TPlatformServices& services = *TPlatformServices::Current();
  services.RemovePlatformService(fmx::IWindowService::Guid);
  services.RemovePlatformService(fmx::IApplicationService::Guid);
  services.AddPlatformService(fmx::IWindowService::Guid, std::static_pointer_cast<fmx::IWindowService>(service));
  services.AddPlatformService(fmx::IApplicationService::Guid,
                              std::static_pointer_cast<fmx::IApplicationService>(service));
}

TEST_F(EditServices, OneObjectMayReplaceWindowsAndLoopAndForward) {
  const auto platform = std::make_shared<TWindows>();
  AddBoth(platform);
  const auto forwarding = std::make_shared<TForwarding>();
  AddBoth(forwarding);

  fmx::TCustomForm form;
  EXPECT_EQ(fmx::FindService<fmx::IWindowService>()->CreateWindow(form), 7U);
  EXPECT_EQ(platform->Form, &form);
  EXPECT_EQ(forwarding->Last(), 7U);
  const auto application = fmx::FindService<fmx::IApplicationService>();
  EXPECT_TRUE(application->HandleMessage());
  EXPECT_TRUE(application->HandleMessage());
  EXPECT_FALSE(application->HandleMessage());
  application->Terminate();
  EXPECT_TRUE(platform->Terminated);
}

// A magnifier that keeps what it is told.
class TLoupe : public fmx::ILoupeService {
 public:
  fmx::TSizeF GetSize() override { return {100, 60}; }
  void SetMode(fmx::TLoupeMode mode) override { Mode = mode; }
  void SetZoom(float factor) override { Zoom = factor; }
  void SetPosition(fmx::TPointF topLeft) override { Position = topLeft; }
  void SetMagnifiedPoint(fmx::TPointF point) override { Point = point; }
  void ShowLoupe(fmx::TComponent& control) override { Control = &control; }
  void HideLoupe() override { Control = nullptr; }

  fmx::TLoupeMode Mode = fmx::TLoupeMode::Selection;
  float Zoom = 1;
  fmx::TPointF Position, Point;
  fmx::TComponent* Control = nullptr;
};

TEST_F(EditServices, TheLoupeIsToldWhereAndWhat) {
  const auto loupe = Add<fmx::ILoupeService, TLoupe>();
  const auto found = fmx::FindService<fmx::ILoupeService>();
  fmx::TComponent control;
  found->SetMode(fmx::TLoupeMode::Caret);
  found->SetZoom(1.4F);
  found->SetMagnifiedPoint({200, 90});
  found->SetPosition({200 - found->GetSize().Width / 2, 90 - found->GetSize().Height});
  found->ShowLoupe(control);
  EXPECT_EQ(static_cast<int>(loupe->Mode), 0);
  EXPECT_EQ(loupe->Zoom, 1.4F);
  EXPECT_EQ(loupe->Position, (fmx::TPointF{150, 30}));
  EXPECT_EQ(loupe->Point, (fmx::TPointF{200, 90}));
  EXPECT_EQ(loupe->Control, &control);
  found->HideLoupe();
  EXPECT_EQ(loupe->Control, nullptr);
}

}  // namespace
