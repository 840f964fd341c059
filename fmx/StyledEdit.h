// What single-line edits look like, and how they answer keys and clicks, before anything better is installed.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fmx/Edit.h"
#include "fmx/TextLayout.h"

namespace fmx {

// Text that reads from left to right, whatever its letters: the caret stands behind the character before it, Left goes
// one character back, and a selection is the room between its two ends. The application's layout measures and draws.
// Caret, selection and text are those of the model. Positions are UTF-16 code units; they never come to stand within a
// surrogate pair. Main thread.
class TStyledEdit : public TStyledPresentation {
 public:
  // For a TCustomEdit; raises EInvalidOperation for another control.
  explicit TStyledEdit(TPresentedControl& control);
  ~TStyledEdit() override;
  std::string_view ClassName() const override { return "TStyledEdit"; }

  TCustomEdit& GetEdit() const { return FEdit; }
  TCustomEditModel& Model() const { return FEdit.Model(); }

  // The room of the text, and the caret before the character of that number, in the control's coordinates.
  TRectF ContentRect() const;
  float GetCharX(std::int32_t index);
  // The position nearest to that x.
  std::int32_t GetCaretPosition(float x);
  // What is filled for the selection; empty without the focus or a selection.
  TRectF SelectionRect();

  void Dispatch(TMessage& message) override;
  void DoEnter() override;
  void DoExit() override;
  void KeyDown(TKeyEvent& event) override;
  void MouseDown(const TMouseEvent& event) override;
  void MouseMove(const TMouseEvent& event) override;
  void MouseUp(const TMouseEvent& event) override;
  // The application's menu; there is none of its own.
  bool ShowContextMenu(TPointF point) override;

 protected:
  void ApplyStyle() override;
  void FreeStyle() override;
  void DoRealign() override;
  void PaintOver(TCanvas& canvas) override;

 private:
  bool IsEditable() const { return !Model().ReadOnly() && Model().InputSupport(); }
  const TTextSettings& Settings() const { return Model().TextSettingsInfo().Resulting(); }
  std::int32_t Caret() const;

  // Text
  void TakeText();
  void TakeSettings();
  void BeforeExit();
  // Puts the text in the place of the range, and the caret behind it.
  void Replace(TTextRange range, std::u16string_view text);
  void Insert(std::u16string_view text);
  void TypeCharacter(char16_t c);

  // Keys; each answers whether it has acted on the key.
  bool MoveByKey(const TKeyEvent& event, bool ctrl);
  bool DeleteByKey(const TKeyEvent& event, bool ctrl);
  bool CommandByKey(const TKeyEvent& event, bool ctrl);
  void Cut();
  void Return();
  void Typed();

  // Caret
  void MoveTo(std::int32_t position, bool selects);
  // Brings the caret into view, and shows it there.
  void ShowCaret();
  void Scroll();

  void PaintContent(TCanvas& canvas, const TRectF& rect);
  void ShowPrompt();

  TCustomEdit& FEdit;
  std::unique_ptr<TTextLayout> FLayout;  // of what is shown: the text, or a dot for each of its units
  // Of the style; borrowed.
  TControl* FContent = nullptr;
  TControl* FPrompt = nullptr;
  float FScrolled = 0;  // how much of the text stands left of the content
  bool FSelecting = false;
  char16_t FHighSurrogate = 0;  // waits for its other half; 0 for none
};

}  // namespace fmx
