// A single-line box without window and style, for requests: a form that is at rest, glyphs of fixed size, a clipboard
// of its own, and no other service.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "editing/Orv.Edit.Style.h"
#include "fmx/Edit.h"
#include "fmx/Form.h"
#include "fmx/RecordingCanvas.h"
#include "tools/orv/eval/DrawnLetters.h"
#include "tools/orv/eval/Geometry.h"

namespace orv::eval {

// What the last drawing handed to the canvas.
struct TDrawnLine {
  std::u16string Text;
  bool RightToLeft = false;
};

class TEditBox {
 public:
  // The focus is in the box, which is empty. handles: both selection handles exist.
  explicit TEditBox(bool handles);
  ~TEditBox();
  TEditBox(const TEditBox&) = delete;
  TEditBox& operator=(const TEditBox&) = delete;

  fmx::TCustomForm& Form() { return FForm; }
  fmx::TEdit& Edit() { return *FEdit; }
  TOrvStyledEdit& Presentation() { return *FPresentation; }
  fmx::IFMXClipboardService& Clipboard() { return *FClipboard; }

  bool LastKeyHandled() const { return FHandled; }
  std::int32_t Typings() const { return FTypings; }

  void Key(fmx::TKeyEvent event);
  // Each unit as a key with that character.
  void Type(std::u16string_view text);
  void Paint();
  // What a paint would hand to the canvas.
  TDrawnLine DrawnLine();
  // Of the whole text, as a paint draws them; or the cells of a password's dots.
  std::vector<TDrawnLetter> DrawnLetters();

 private:
  class TServices;
  class TCanvases;
  void PaintWithGlyphs();

  TMetricsScope FMetrics{TMetrics::Fixed};
  std::unique_ptr<TCanvases> FCanvases;
  std::unique_ptr<TServices> FServices;
  std::shared_ptr<fmx::IFMXClipboardService> FClipboard;
  fmx::TRecordingCanvas FCanvas;
  fmx::TCustomForm FForm;
  std::unique_ptr<fmx::TEdit> FEdit;
  TOrvStyledEdit* FPresentation = nullptr;
  bool FHandled = false;
  std::int32_t FTypings = 0;
};

}  // namespace orv::eval
