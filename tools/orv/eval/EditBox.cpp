#include "tools/orv/eval/EditBox.h"

#include <span>
#include <utility>
#include <vector>

#include "editing/Orv.Text.h"
#include "fmx/CanvasManager.h"
#include "fmx/GlyphsManager.h"
#include "fmx/Style.h"
#include "fmx/TextLayoutManager.h"
#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv::eval {
namespace {

constexpr std::string_view StyleName = "boxwithoutstyle";
constexpr std::string_view PresentationName = "BoxOfRequests";
constexpr std::int32_t CanvasSide = 64;  // nothing is drawn

// Writes down what is drawn, and draws it where it is told to.
class TRecordingTextService : public fmx::TTextService {
 public:
  static constexpr int SlotCount = fmx::TTextService::SlotCount;
  static TClass Class() {
    return CompiledClass<TRecordingTextService, fmx::TTextService, FillNew<TSlots::Create, TRecordingTextService>,
                         Fill<TSlots::DrawSingleLineText, &TRecordingTextService::Record>>("Eval.Edit",
                                                                                           "TRecordingTextService");
  }
  explicit TRecordingTextService(bool supportsMultiLine, TClass aClass = Class())
      : TTextService(supportsMultiLine, aClass) {}

  void Record(fmx::TCanvas& canvas, std::u16string_view text, const fmx::TSingleLineDrawing& drawing) {
    TDrawn& drawn = Drawn();
    drawn.Line = {std::u16string(text), drawing.Flags.Contains(fmx::TFillTextFlag::RightToLeft)};
    if (!drawn.Draws) return;
    // Once as the box has it, and once on a canvas that leaves nothing out.
    auto& clipped = static_cast<fmx::TRecordingCanvas&>(canvas);
    const auto draw = orv::Record(fmx::TTextService::Class()).Slot<TSlots::DrawSingleLineText>();
    const std::size_t before = clipped.Calls().size();
    draw(*this, clipped, text, drawing);
    fmx::TRecordingCanvas whole(CanvasSide, CanvasSide);
    whole.BeginScene();
    draw(*this, whole, text, drawing);
    whole.EndScene();
    if (const auto* layout = dynamic_cast<const TTextLayoutNGOrv*>(LayoutFor(canvas, drawing)))
      drawn.Letters =
          LettersDrawn(*layout, drawing.Rect.TopLeft(), whole.Calls(), std::span(clipped.Calls()).subspan(before));
  }

  struct TDrawn {
    TDrawnLine Line;
    bool Draws = false;
    std::vector<TDrawnLetter> Letters;
  };
  static TDrawn& Drawn() {
    static TDrawn drawn;
    return drawn;
  }
};

class TTextServiceClass : public fmx::ITextServiceClassService {
 public:
  TClass GetTextServiceClass() override {
    static const TClass made = GenerateTextServiceClass(TRecordingTextService::Class());
    return made;
  }
};

class TClipboard : public fmx::IFMXClipboardService {
 public:
  std::u16string GetText() override { return FText; }
  void SetText(std::u16string_view text) override { FText = text; }

 private:
  std::u16string FText;
};

// Keeps its content as large as itself.
class TContentAlone : public fmx::TControl {
 public:
  explicit TContentAlone(bool handles) {
    Add(FContent, "content");
    if (!handles) return;
    fmx::TSelectionPoint* point = nullptr;
    Add(point, "leftselectionpoint");
    Add(point, "rightselectionpoint");
  }

 protected:
  void Resize() override { FContent->SetSize(Size()); }

 private:
  template <typename T>
  void Add(T*& part, std::string_view name) {
    part = &InsertComponent(std::make_unique<T>());
    part->SetStyleName(name);
    part->SetParent(this);
  }

  fmx::TControl* FContent = nullptr;
};

}  // namespace

// In the place of the platform's, which come back.
class TEditBox::TServices {
 public:
  explicit TServices(std::shared_ptr<fmx::IFMXClipboardService> clipboard) {
    FOwn = fmx::TPlatformServices::Current() == nullptr;
    if (FOwn) fmx::TPlatformServices::SetCurrent(std::make_unique<fmx::TPlatformServices>());
    Put<fmx::IFMXClipboardService>(std::move(clipboard));
    Put<fmx::ITextServiceClassService>(std::make_shared<TTextServiceClass>());
  }
  ~TServices() {
    if (FOwn) {
      fmx::TPlatformServices::SetCurrent(nullptr);
      return;
    }
    fmx::TPlatformServices& services = *fmx::TPlatformServices::Current();
    for (auto& [guid, service] : FFormer) {
      services.RemovePlatformService(guid);
      if (service != nullptr) services.AddPlatformService(guid, service);
    }
  }
  TServices(const TServices&) = delete;
  TServices& operator=(const TServices&) = delete;

 private:
  template <typename T>
  void Put(std::shared_ptr<T> service) {
    fmx::TPlatformServices& services = *fmx::TPlatformServices::Current();
    FFormer.emplace_back(T::Guid, services.GetPlatformService(T::Guid));
    services.AddPlatformService(T::Guid, std::move(service));
  }

  bool FOwn = false;
  std::vector<std::pair<fmx::TGuid, std::shared_ptr<fmx::IPlatformService>>> FFormer;
};

// A canvas and a layout for the sizes of texts.
class TEditBox::TCanvases {
 public:
  TCanvases() {
    fmx::TCanvasManager::UnInitialize();
    fmx::TTextLayoutManager::UnInitialize();
    fmx::TCanvasManager::RegisterCanvas(fmx::TRecordingCanvas::Class(), true, false);
    fmx::TTextLayoutManager::RegisterTextLayout(TTextLayoutNGOrv::Class(), fmx::TRecordingCanvas::Class());
  }
  ~TCanvases() {
    fmx::TCanvasManager::UnInitialize();
    fmx::TTextLayoutManager::UnInitialize();
    if (const auto service = fmx::FindService<fmx::ICanvasService>()) service->RegisterCanvasClasses();
  }
  TCanvases(const TCanvases&) = delete;
  TCanvases& operator=(const TCanvases&) = delete;
};

TEditBox::TEditBox(bool handles)
    : FCanvases(std::make_unique<TCanvases>()),
      FClipboard(std::make_shared<TClipboard>()),
      FCanvas(CanvasSide, CanvasSide) {
  FServices = std::make_unique<TServices>(FClipboard);
  fmx::TPresentationProxyFactory::Current().Replace(PresentationName,
                                                    &fmx::TStyledPresentationProxy<TOrvStyledEdit>::Make);
  fmx::TStyleManager::Register(StyleName, [handles] { return std::make_unique<TContentAlone>(handles); });
  FForm.SetCanvas(&FCanvas);
  FEdit = std::make_unique<fmx::TEdit>();
  FEdit->SetRoot(&FForm);
  FEdit->SetStyleLookup(StyleName);
  FEdit->SetPresentationName(PresentationName);
  FEdit->Model().TextSettingsInfo().SetStyledSettings({});
  FEdit->Model().OnTyping = [this] { ++FTypings; };
  FPresentation = static_cast<TOrvStyledEdit*>(FEdit->Presentation());
  FEdit->SetFocus();
}

TEditBox::~TEditBox() {
  FEdit = nullptr;
  FForm.SetCanvas(nullptr);
  fmx::TStyleManager::Register(StyleName, nullptr);
  fmx::TPresentationProxyFactory::Current().Unregister(PresentationName);
}

void TEditBox::Key(fmx::TKeyEvent event) {
  FEdit->KeyDown(event);  // also in a box without the focus
  FHandled = event.IsHandled();
}

void TEditBox::Type(std::u16string_view text) {
  for (const char16_t c : text)
    if (c >= 32) Key({fmx::Keys::None, c, {}});
}

void TEditBox::Paint() {
  FCanvas.BeginScene();
  FEdit->PaintTo(FCanvas);
  FCanvas.EndScene();
  FCanvas.Forget();
}

TDrawnLine TEditBox::DrawnLine() {
  FPresentation->GetTextService()->DrawSingleLine(FCanvas, FPresentation->SingleLine());
  return TRecordingTextService::Drawn().Line;
}

void TEditBox::PaintWithGlyphs() {
  TTextLayoutNGOrv::BeginRender();
  const bool populates = !std::exchange(fmx::TGlyphsManager::DisableGlyphPopulation, true);
  FCanvas.Forget();
  FCanvas.BeginScene();
  FEdit->PaintTo(FCanvas);
  FCanvas.EndScene();
  TTextLayoutNGOrv::EndRender();
  fmx::TGlyphsManager::DisableGlyphPopulation = !populates;
}

std::vector<TDrawnLetter> TEditBox::DrawnLetters() {
  auto& drawn = TRecordingTextService::Drawn();
  drawn = {};
  drawn.Draws = true;
  PaintWithGlyphs();
  drawn.Draws = false;
  TOrvEditView& view = FPresentation->View();
  if (FEdit->Model().Password()) {
    auto dots = DotsDrawn(view.FirstVisibleChar() - 1, FEdit->Model().TextSettingsInfo().Resulting().Font().Size() / 2,
                          FCanvas.Calls());
    FCanvas.Forget();
    return dots;
  }
  FCanvas.Forget();
  // What has scrolled away by characters was cut off the text that was drawn.
  const fmx::TSingleLineDrawing drawing = FPresentation->SingleLine();
  const TViewCut cut = ViewCutOf(FPresentation->GetText(), drawn.Line.RightToLeft, drawing.FirstVisibleChar - 1);
  for (TDrawnLetter& letter : drawn.Letters) {
    const auto unit = static_cast<std::size_t>(letter.Unit);
    letter.Unit = static_cast<std::int32_t>(unit < cut.Length ? cut.Start + unit : cut.Rest + unit - cut.Length);
  }
  return std::move(drawn.Letters);
}

}  // namespace orv::eval
