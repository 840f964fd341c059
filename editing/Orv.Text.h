// Text services of the editing controls.
#pragma once

#include <cstdint>
#include <string_view>

#include "fmx/TextLayout.h"
#include "fmx/TextService.h"
#include "rtl/Strings.h"

namespace orv {

// The text to show when the first index code units of a line have scrolled out of its box. Where the unit at the cut
// runs against rightToLeft, the far end of its run is what scrolls away, so the run's end is dropped instead of its
// start. index is a 0-based code-unit index, at or past the end for the empty text; a negative one counts as 0. Any
// thread.
rtl::UnicodeString CutTextForView(std::u16string_view text, bool rightToLeft, std::int32_t index);

// What CutTextForView takes out of the text: Length units from Start on, and those from Rest on.
struct TViewCut {
  std::size_t Start = 0;
  std::size_t Length = 0;
  std::size_t Rest = 0;
};
TViewCut ViewCutOf(std::u16string_view text, bool rightToLeft, std::int32_t index);

// Where carets stand at a position: two where its neighbours read in different directions.
struct TCaretInfo {
  std::int32_t CharIndex = 0;  // as given
  fmx::TPointF MainFlasherPosition;
  // That of the main one where there is one caret; left as it is for an empty text.
  fmx::TPointF SecondFlasherPosition;
  bool DoubleFlasher = false;
};

// Services for applications that draw carets of their own; the editing controls place theirs by their own rules.
class TTextServiceHelper {
 public:
  TTextServiceHelper() = delete;

  // The carets at the position of the layout's text, which is held in the text; rect is the editing box. By
  // TOrvEditorOptions::FlasherOption and CaretPositioning. The thread of the layout.
  static void GetCaretInfo(fmx::TTextLayout& layout, const fmx::TRectF& rect, std::int32_t position, TCaretInfo& info);

  // Draws the layout within the rectangle, and lines under what the service's input method is composing. Needs a scene.
  static void DrawSingleLine(const fmx::TTextService& service, fmx::TTextLayout& layout, fmx::TCanvas& canvas,
                             const fmx::TRectF& rect);
};

// --- The swap ---

// Makes a class out of the host's text service, of its name with "Orv" behind it, that draws single lines in the
// system's way and is the host's in all else. Raises EAssertionFailed for a class that is no text service. Main thread.
TClass GenerateTextServiceClass(TClass hostClass);

// From now on edit controls make text services of such a class: out of the one that the platform names, or of the
// framework's own. Services made before stay as they are. Nothing without platform services, and nothing where it is
// so already. Main thread.
void SwapTextService();

}  // namespace orv
