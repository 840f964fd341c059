// What an input method and a spell checker ask of an editing control.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fmx/Geometry.h"
#include "fmx/TextService.h"

namespace fmx {

// Main thread. An input method that composes sets the marked text of the text service and calls IMEStateUpdated.
class ITextInput {
 public:
  virtual ~ITextInput() = default;
  // Null where the control has none. Borrowed.
  virtual TTextService* GetTextService() = 0;
  // Where the input method's window belongs, in the coordinates of the root.
  virtual TPointF GetTargetClausePointF() = 0;
  // A composition begins, which may take the place of what is selected; getting the focus alone begins none.
  virtual void StartIMEInput() = 0;
  // It has ended: what came of it is typed.
  virtual void EndIMEInput() = 0;
  // The marked text, or its caret, is another one.
  virtual void IMEStateUpdated() = 0;
  virtual std::u16string GetSelText() = 0;
  // In the control's coordinates; it may be reversed.
  virtual TRectF GetSelRect() = 0;
  // Left and Right are the ends of the selection in the text, Right perhaps before Left; Top and Bottom are 0.
  virtual TRect GetSelectionBounds() = 0;
  virtual TSizeF GetSelectionPointSize() = 0;
  virtual bool HasText() = 0;
};

class ITextSpellCheck {
 public:
  virtual ~ITextSpellCheck() = default;
  virtual bool IsSpellCheckEnabled() = 0;
  // The word that the caret stands in.
  virtual bool IsCurrentWordWrong() = 0;
  virtual std::vector<std::u16string> GetListOfPrepositions() = 0;
  virtual void HighlightSpell() = 0;
  virtual void HideHighlightSpell() = 0;
};

class ITextSpellCheckActions {
 public:
  virtual ~ITextSpellCheckActions() = default;
  // Puts the word in the place of the one that the caret stands in.
  virtual void Spell(std::u16string_view word) = 0;
};

}  // namespace fmx
