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

// Makes a class out of the host's text service, of its name with "Orv" behind it, that draws single lines in the
// system's way. Raises EAssertionFailed for a class that is no text service. Main thread.
TClass GenerateTextServiceClass(TClass hostClass);

// From now on edit controls make text services of such a class: out of the one that the platform names, or of the
// framework's own. Nothing without platform services, and nothing where it is so already. Main thread.
void SwapTextService();

}  // namespace orv
