// What the system puts under the platform's pieces: a text service that cuts scrolled text by its direction.
//
// The other piece, that a key with a printable character goes on as a character without a key code, is a rule of the
// framework's for every platform (fmx::NormalizeKey).
#pragma once

#include "fmx/TextService.h"

namespace orv {

// The replacement; no object is made of it.
class TTextServiceOrvFake : public fmx::TTextService {
 public:
  TTextServiceOrvFake() = delete;
  static constexpr int SlotCount = fmx::TTextService::SlotCount;
  static TClass Class();

  // Draws the combined text as CutTextForView (editing/Orv.Text.h) leaves it.
  static void DrawSingleLine(fmx::TTextService& self, fmx::TCanvas& canvas, const fmx::TSingleLineDrawing& drawing);
};

// The class of the replacement, and the method of it that goes into the host's.
TClass GetPlatformFakeTextServiceClass(TMethodAddress& method);

}  // namespace orv
