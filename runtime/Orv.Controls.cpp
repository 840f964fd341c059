#include "runtime/Orv.Controls.h"

#include <functional>
#include <string>
#include <utility>

#include "editing/Orv.FMXServices.h"
#include "fmx/CanvasManager.h"
#include "fmx/Services.h"
#include "fmx/TextLayoutManager.h"
#include "textlayout/Orv.Canvas.D2D.h"
#include "textlayout/Orv.Canvas.GDIP.h"
#include "textlayout/Orv.Canvas.GPU.h"
#include "textlayout/Orv.FontGlyphs.h"

namespace orv {

bool TMarzel::ArabicDigits() const {
  return TOrvGlobalSettings::ArabicDigitType != TOrvGlobalSettings::TArabicDigitType::Latin;
}

// --- The swap ---

namespace {

constexpr std::string_view GpuCanvasName = "TCanvasGpu";

bool IsNamed(TClass aClass, std::string_view name) {
  return aClass != nullptr && ClassName(aClass) == name;
}

// A generated class bears the name of its parent.
bool IsSwapped(TClass gpuCanvas) {
  return IsNamed(ClassParent(gpuCanvas), GpuCanvasName);
}

// Takes away what is registered, for what comes first stays in force, registers anew by the function, and lets the
// service follow. A host that the function raises over has its own registrations again.
void Swap(fmx::ICanvasService& service, const std::function<void()>& registerAnew) {
  const bool softwareEnabled = fmx::TCanvasManager::SoftwareCanvasEnabled();
  fmx::TCanvasManager::UnInitialize();
  fmx::TTextLayoutManager::UnInitialize();
  fmx::TCanvasManager::EnableSoftwareCanvas(false);
  try {
    registerAnew();
  } catch (...) {
    fmx::TCanvasManager::EnableSoftwareCanvas(softwareEnabled);
    service.RegisterCanvasClasses();
    throw;
  }
  service.RegisterCanvasClasses();
}

void SwapCanvas(fmx::ICanvasService& service, TClass canvas) {
  Swap(service, [canvas] { gpu::RegisterCanvasClasses(canvas); });
}

// A canvas without a layout has nothing to patch.
void SwapLayout(fmx::ICanvasService& service, TClass canvas, void (*registerPatched)(TClass canvas, TClass layout)) {
  const TClass layout = fmx::TTextLayoutManager::TextLayoutByCanvas(canvas);
  if (layout != nullptr) Swap(service, [=] { registerPatched(canvas, layout); });
}

void SwapByName(fmx::ICanvasService& service, TClass canvas) {
  if (IsNamed(canvas, GpuCanvasName)) {
    if (!IsSwapped(canvas)) SwapCanvas(service, canvas);
  } else if (IsNamed(canvas, "TCanvasD2D")) {
    SwapLayout(service, canvas, d2d::RegisterTextLayout);
  } else if (IsNamed(canvas, "TCanvasGdiPlus")) {
    SwapLayout(service, canvas, gdip::RegisterTextLayout);
  }
}

// The resets lose a printer canvas that the service does not know.
void KeepPrinter(TClass printer) {
  if (printer != nullptr && fmx::TCanvasManager::DefaultPrinterCanvas() == nullptr)
    fmx::TCanvasManager::RegisterCanvas(printer, false, true);
}

}  // namespace

void OrvReady() {
  const auto service = fmx::FindService<fmx::ICanvasService>();
  if (service == nullptr) return;
  service->RegisterCanvasClasses();
  const TClass printer = fmx::TCanvasManager::DefaultPrinterCanvas();
  try {
    SwapByName(*service, fmx::TCanvasManager::DefaultCanvas());
  } catch (...) {
    KeepPrinter(printer);
    throw;
  }
  KeepPrinter(printer);
}

// --- Fonts ---

void RegisterFont(std::u16string_view familyName, std::u16string_view fileName, bool flag) {
  std::u16string path(fileName);
  const std::u16string folder = fmx::DocumentsFolder();
  if (path.find(u'/') == std::u16string::npos && !folder.empty()) path = folder + u'/' + path;
  TFontGlyphManagerOrv::FontsList().insert_or_assign(
      std::u16string(familyName), TFontGlyphManagerOrv::TOrvFontResInfo{TOrvResourceType::File, std::move(path), flag});
}

void AssignFont(fmx::TFont& target, const fmx::TFont& source, TOrvFontFilterOption filter) {
  fmx::TFont wanted = target;
  if (filter.Contains(TOrvFontFilterItem::Family)) wanted.SetFamily(source.Family());
  if (filter.Contains(TOrvFontFilterItem::Size)) wanted.SetSize(source.Size());
  if (filter.Contains(TOrvFontFilterItem::Style)) {
    wanted.SetStyle(source.Style());
    wanted.SetWeight(source.Weight());
    wanted.SetSlant(source.Slant());
  }
  target.Assign(wanted);
}

// --- Controls ---

const fmx::TFont* TControlHelper::GetParentFont() const {
  for (fmx::TControl* each = FControl.Parent(); each != nullptr; each = each->Parent())
    if (const fmx::TFont* font = each->OwnFont()) return font;
  return nullptr;
}

void TControlHelper::SetSizeOfObject(fmx::TComponent* object, float width, float height) {
  if (auto* control = dynamic_cast<fmx::TControl*>(object)) control->SetSize({width, height});
}

void SetBidiMode(std::span<fmx::TStyledControl* const> controls, fmx::TBiDiMode mode) {
  for (fmx::TStyledControl* control : controls) {
    TControlHelper(*control).SetBidiMode(mode);
    if (auto* notified = dynamic_cast<IOrvBidiModeNotification*>(control)) notified->BidiModeChanged(mode);
  }
}

}  // namespace orv
