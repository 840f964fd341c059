#include "bench/support/EditBoxes.h"

#include <QApplication>
#include <QKeyEvent>
#include <limits>
#include <set>

#include "bench/support/Layouts.h"
#include "editing/Orv.Edit.Style.h"
#include "editing/Orv.Text.h"
#include "fmx/CanvasManager.h"
#include "fmx/PlatformServices.h"
#include "fmx/TextLayoutManager.h"
#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv::bench {

namespace {

constexpr int TextLeft = 10;
constexpr int TextRight = EditWidth - 10;

template <typename F>
bool HasColors(F pixelAt) {
  std::set<std::uint32_t> colors;
  for (int x = TextLeft; x < TextRight; ++x) colors.insert(pixelAt(x));
  return colors.size() > 1;
}

}  // namespace

// --- The house ---

TOrvBox::TOrvBox(std::u16string_view text, std::int32_t caret) : FPicture(EditWidth, EditHeight) {
  UseGlyphs();
  fmx::TCanvasManager::UnInitialize();
  fmx::TTextLayoutManager::UnInitialize();
  fmx::TCanvasManager::RegisterCanvas(platform::TSoftwareCanvas::Class(), true, false);
  fmx::TTextLayoutManager::RegisterTextLayout(TTextLayoutNGOrv::Class(), platform::TSoftwareCanvas::Class());
  fmx::TPlatformServices::SetCurrent(std::make_unique<fmx::TPlatformServices>());
  SwapTextService();
  RegisterEditStyle();
  FCanvas = std::make_unique<platform::TSoftwareCanvas>(
      fmx::TCanvasTarget{fmx::TCanvasTarget::TKind::Bitmap, &FPicture, nullptr, EditWidth, EditHeight, 1});
  FForm.SetCanvas(FCanvas.get());
  FEdit = std::make_unique<fmx::TEdit>();
  FEdit->SetRoot(&FForm);
  FEdit->SetSize({EditWidth, EditHeight});
  fmx::TCustomEditModel& model = FEdit->Model();
  model.TextSettingsInfo().SetStyledSettings({});
  model.TextSettings().Font().Assign({u"DejaVu Sans", FontPixels});
  FEdit->SetText(text);
  FEdit->SetFocus();
  model.SetSelLength(0);
  model.SetCaretPosition(caret);
}

TOrvBox::~TOrvBox() {
  FEdit = nullptr;
  FForm.SetCanvas(nullptr);
  FCanvas = nullptr;
  fmx::TPlatformServices::SetCurrent(nullptr);
  fmx::TCanvasManager::UnInitialize();
  fmx::TTextLayoutManager::UnInitialize();
}

void TOrvBox::Press(TEditKey key) {
  constexpr fmx::TKeyEvent events[] = {{fmx::Keys::None, TypedLetter, {}},
                                       {fmx::Keys::Backspace, 0, {}},
                                       {fmx::Keys::Left, 0, {}},
                                       {fmx::Keys::Right, 0, {}}};
  fmx::TKeyEvent event = events[static_cast<std::size_t>(key)];
  FForm.KeyDown(event);
}

void TOrvBox::Paint() {
  FCanvas->BeginScene();
  TTextLayoutNGOrv::BeginRender();
  FEdit->PaintTo(*FCanvas);
  TTextLayoutNGOrv::EndRender();
  FCanvas->EndScene();
}

bool TOrvBox::ShowsText() const {
  const auto row = FPicture.Surface().Scanline(EditHeight / 2);
  return HasColors([&](int x) { return static_cast<std::uint32_t>(row[static_cast<std::size_t>(x)]); });
}

// --- Qt ---

TQtBox::TQtBox(std::u16string_view text, std::int32_t caret)
    : FPicture(EditWidth, EditHeight, QImage::Format_ARGB32_Premultiplied) {
  const QFont font = QtFont();  // Qt is there from now on
  FEdit = std::make_unique<QLineEdit>();
  FEdit->setFont(font);
  FEdit->resize(EditWidth, EditHeight);
  FEdit->setMaxLength(std::numeric_limits<int>::max());
  FEdit->setText(ToQt(text));
  FEdit->show();
  FEdit->activateWindow();
  FEdit->setFocus();
  QApplication::processEvents();
  FEdit->deselect();
  FEdit->setCursorPosition(caret);
}

void TQtBox::Press(TEditKey key) {
  constexpr int keys[] = {0, Qt::Key_Backspace, Qt::Key_Left, Qt::Key_Right};
  QKeyEvent event(QEvent::KeyPress, keys[static_cast<std::size_t>(key)], Qt::NoModifier,
                  key == TEditKey::Letter ? QString(QChar(TypedLetter)) : QString());
  QApplication::sendEvent(FEdit.get(), &event);
}

void TQtBox::Paint() {
  FEdit->render(&FPicture);
}

bool TQtBox::ShowsText() const {
  return HasColors([&](int x) { return static_cast<std::uint32_t>(FPicture.pixel(x, EditHeight / 2)); });
}

}  // namespace orv::bench
