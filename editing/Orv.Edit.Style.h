// The presentation of single-line edits: caret, keys, selection, scrolling, input methods, spelling and painting for
// text of both directions.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "editing/Orv.Edit.View.h"
#include "fmx/Edit.h"
#include "fmx/EditServices.h"
#include "fmx/Loupe.h"
#include "fmx/Menu.h"
#include "fmx/Services.h"
#include "fmx/Style.h"
#include "fmx/TextInput.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv {

// What the pointer is doing.
enum class TSelectionMode : std::uint8_t { None = 0, Selecting = 1, PlacingCaret = 2 };

// Which handle, or which edge of the selection.
enum class TSelectionPointType : std::uint8_t { Left, Right };

// Moves the caret by positions in the text, never by places along the line. The paragraph direction follows the
// horizontal alignment: trailing text reads from the right. A selection is one rectangle between two carets, or those
// of the characters that it holds (TOrvCorrection::SelectionRegions). Positions are UTF-16 code units, lengths logical
// units in the coordinates of the content. Main thread.
class TOrvStyledEdit : public fmx::TStyledPresentation,
                       public fmx::ITextInput,
                       public fmx::ITextSpellCheck,
                       public fmx::ITextSpellCheckActions,
                       private IEditBox {
 public:
  // For a TCustomEdit; raises EInvalidOperation for another control.
  explicit TOrvStyledEdit(fmx::TPresentedControl& control);
  ~TOrvStyledEdit() override;
  std::string_view ClassName() const override { return "TOrvStyledEdit"; }

  fmx::TCustomEdit& GetEdit() const { return FEdit; }
  fmx::TCustomEditModel& Model() const { return FEdit.Model(); }

  // --- Direction ---

  bool IsRightToLeft() const override;
  fmx::TBiDiMode BidiMode() const { return FBidiMode; }
  // Holds until the next paint takes it from the alignment again.
  void SetBidiMode(fmx::TBiDiMode mode);
  void ToggleBidiMode();
  // Whether the alignment follows the first strong character of what is typed. Off at first.
  bool AutoDirection() const { return FAutoDirection; }
  void SetAutoDirection(bool automatic);
  // Takes the direction from the alignment, and tells how to fill a text now.
  fmx::TFillTextFlags FillTextFlags();

  // --- Text and caret ---

  // Marked text included.
  std::u16string GetText() const override { return FTextService->CombinedText(); }
  bool HasText() override { return !GetText().empty(); }
  void SetText(std::u16string_view text);
  void InsertText(std::u16string_view text);
  // In the text without the marked text.
  std::int32_t GetOriginCaretPosition() const { return FTextService->CaretPosition().X; }
  // In the whole text.
  std::int32_t GetCaretPosition() const override { return FTextService->TargetClausePosition().X; }
  void SetCaretPosition(std::int32_t value);

  // --- Places ---

  fmx::TRectF ContentRect() const override;
  fmx::TTextAlign HorizontalAlignment() const override;
  float LineTop() const override { return FLineTop; }
  float LineHeight() const override { return FLineHeight; }
  // How the box sees its text, by the corrections in force. The reference holds until others are.
  TOrvEditView& View();
  // Stored reversed: Left is the right edge and Right the left one. swapped: the selection runs from left to right.
  fmx::TRectF GetSelRect(bool& swapped);
  fmx::TRectF GetSelRect() override;
  // What a paint fills for the selection, in the content's coordinates; empty without the focus or a selection.
  fmx::TRegion SelectionFillRects();
  // How a paint would draw the text in the content now, the direction taken from the alignment.
  fmx::TSingleLineDrawing SingleLine();
  // A square for each dot in the box.
  std::vector<fmx::TRectF> PasswordDots() { return View().PasswordDots(); }
  TSelectionMode SelectionMode() const { return FSelectionMode; }
  fmx::TSelectionPoint* SelectionPoint(TSelectionPointType type) const {
    return type == TSelectionPointType::Left ? FLeftSelPt : FRightSelPt;
  }
  // The position that a press at x gives.
  std::int32_t HitPosition(float x);
  // Whether each handle moves the other edge.
  bool AreHandlersCrossed() const { return FHandlersCrossed; }

  // --- The control's business ---

  void Dispatch(fmx::TMessage& message) override;
  void DoEnter() override;
  void DoExit() override;
  void KeyDown(fmx::TKeyEvent& event) override;
  void MouseDown(const fmx::TMouseEvent& event) override;
  void MouseMove(const fmx::TMouseEvent& event) override;
  void MouseUp(const fmx::TMouseEvent& event) override;
  void CMGesture(const fmx::TGestureEvent& event) override;
  bool ShowContextMenu(fmx::TPointF point) override;

  // --- Input methods ---

  fmx::TTextService* GetTextService() override { return FTextService.get(); }
  fmx::TPointF GetTargetClausePointF() override;
  void StartIMEInput() override;
  void EndIMEInput() override;
  void IMEStateUpdated() override;
  std::u16string GetSelText() override { return Model().SelectedText(); }
  fmx::TRect GetSelectionBounds() override;
  fmx::TSizeF GetSelectionPointSize() override;

  // --- Spelling ---

  bool IsSpellCheckEnabled() override { return Model().CheckSpelling(); }
  bool IsCurrentWordWrong() override;
  std::vector<std::u16string> GetListOfPrepositions() override;
  void HighlightSpell() override;
  void HideHighlightSpell() override;
  void Spell(std::u16string_view word) override;
  // In the content's coordinates, unscrolled; made by the paint.
  const fmx::TRegion& SpellingRegions() const { return FSpellingRegions; }

  // --- Menu ---

  // Made at the first call. Borrowed.
  fmx::TPopupMenu& GetEditPopupMenu();
  fmx::TMenuItem* FindContextMenuItem(std::string_view name);
  void DoCut();
  void DoCopy();
  void DoPaste();
  void DoDelete();
  void DoSelectAll();

 protected:
  void ApplyStyle() override;
  void FreeStyle() override;
  void DoRealign() override;
  void Resize() override;
  void Paint(fmx::TCanvas& canvas) override;
  void PaintOver(fmx::TCanvas& canvas) override;

  virtual void Change() {}
  virtual void DoChangeTracking() { UpdateSpelling(); }
  virtual void SetTextInternal(std::u16string_view text);
  virtual void DoTyping();
  virtual void RealignContent();
  virtual void RealignButtonsContainer();
  virtual std::unique_ptr<fmx::TPopupMenu> CreatePopupMenu();
  virtual void UpdatePopupMenuItems();

 private:
  struct TKeyStroke;  // one key on its way through KeyDown

  // IEditBox
  bool HasContent() const override { return FContent != nullptr; }
  fmx::TBounds ContentPadding() const override;
  float ContentLeft() const override { return FContent != nullptr ? FContent->Position().X : 0; }
  fmx::TTextAlign VerticalAlignment() const override { return ResultingSettings().VertAlign(); }
  bool IsFormRightToLeft() const override;
  bool IsPointed() const override { return Pressed() || FSelectionMode != TSelectionMode::None; }
  bool IsPassword() const override { return Model().Password(); }
  float GetPasswordCharWidth() const override;
  float GetFlasherWidth() const override;
  fmx::TTextLayout& TextLayout() override { return *FTextLayout; }

  bool IsFocused() const { return FEdit.IsFocused(); }
  bool IsEditable() const { return !Model().ReadOnly() && Model().InputSupport(); }
  const fmx::TTextSettings& ResultingSettings() const { return Model().TextSettingsInfo().Resulting(); }
  void UpdateDirection(std::u16string_view text);
  float CaretPlace();
  void UpdateCaretPosition();
  void RepaintEdit();
  void ShowPrompt();

  // Messages
  void TextChanged(std::u16string_view text);
  void CaretPositionChanged(std::int32_t position);
  void SelectionChanged();
  void TextSettingsChanged(bool isSizeChange);
  void PasswordChanged();
  void ImeModeChanged();
  void PromptTextChanged();
  void CheckSpellingChanged(bool check);
  void Init();
  void BeforeExit();

  // Departures from the plain rules; by them, where its correction is not in force, each does nothing or what they say
  static fmx::TEditRules RulesInForce();
  static bool IsBehindPair(std::u16string_view text, std::int32_t position);
  static bool IsBeforePair(std::u16string_view text, std::int32_t position);
  std::int32_t Held(std::int32_t position) const;
  std::u16string Insertable(std::u16string_view text, std::int32_t staying) const;
  void DropWaitingHalf();
  void PlaceCaretAnew();
  void SelectNothingAt(std::int32_t caret);
  void TakeSelection();
  void TakeFormerText();
  void TakeFormerCaret();
  void DropSelectionForLongPress();
  bool KeepsPassword() const;
  void PlaceHandles();
  void DragEnd(float& x, float& y, TSelectionPointType type);
  void SettleText();
  bool LeaveComposition();
  bool RefusesComposition();
  void MakeRoomForComposition();
  std::int32_t PressedPosition(float x);

  // How the model gets a text that the presentation has made.
  enum class TStoring : std::uint8_t { AsItComes, AsRest };
  void StoreText(std::u16string_view text, TStoring storing);
  void ReplaceText(std::u16string_view text);

  // Keys
  bool AskEditLink(const fmx::TKeyEvent& event);
  void ActOnKey(TKeyStroke& stroke);
  void MoveLeft(TKeyStroke& stroke);
  void MoveRight(TKeyStroke& stroke);
  void Backspace(TKeyStroke& stroke);
  void Delete(TKeyStroke& stroke);
  void Return();
  void DeleteSelectedText();
  void CutSelectedText();
  void RemoveTyped(std::int32_t position, std::int32_t count);
  void RemoveSelection(TKeyStroke& stroke, bool cuts);
  bool RemoveToWord(TKeyStroke& stroke, std::int32_t caret, std::int32_t word);
  void SelectByKey(bool shift, std::int32_t old);
  void TypeCharacter(char16_t c);

  // Pointer
  // In the whole text.
  fmx::TTextRange SelectedRange() const;
  std::int32_t DragPosition(float x);
  void BeginSelection();
  void EndSelection();
  void SetSelectionMode(TSelectionMode mode);
  void LongTap(fmx::TPointF point);
  void UpdateSelectionPointPositions();
  void CrossHandles(bool crossed);
  void BindSelectionPoint(fmx::TSelectionPoint& point, TSelectionPointType type);
  void DoSelPtChangePosition(float& x, float& y, TSelectionPointType type);
  void DragEdge(float& x, float& y, TSelectionPointType type);
  void DoSelPtMouseDown(TSelectionPointType type);
  void SetLoupePosition(TSelectionPointType type);
  void SetLoupePosition(fmx::TPointF point);
  void ShowLoupe();
  void HideLoupe();

  // Painting
  void DoContentPaint(fmx::TCanvas& canvas, const fmx::TRectF& rect);
  void PaintText(fmx::TCanvas& canvas);
  void PaintSelection(fmx::TCanvas& canvas);
  void PaintSpelling(fmx::TCanvas& canvas);
  void UpdateTextHeight();
  void UpdateTextLayout();
  void PickView();
  void UpdatePromptTextSettings();
  void TakeStyle(fmx::TTextSettings& settings);

  // Spelling and menu
  void UpdateSpelling();
  void FindMisspeltWords();
  void ForgetSpellMenuItems();
  void UpdateSpellPopupMenu(fmx::TPointF point);
  void SpellFixContextMenuHandler(fmx::TMenuItem& sender);

  fmx::TCustomEdit& FEdit;
  std::unique_ptr<fmx::TTextService> FTextService;
  std::unique_ptr<fmx::TTextLayout> FTextLayout;
  std::unique_ptr<TOrvEditView> FView;
  TOrvCorrections FViewCorrections;  // that it was picked for
  TSelectionMode FSelectionMode = TSelectionMode::None;
  fmx::TBrush FCursorFill{fmx::TAlphaColors::Black};
  // Of the style; borrowed.
  fmx::TControl* FContent = nullptr;
  fmx::TControl* FLeftLayout = nullptr;
  fmx::TControl* FButtonsLayout = nullptr;
  fmx::TControl* FPrompt = nullptr;
  fmx::TSelectionPoint* FLeftSelPt = nullptr;
  fmx::TSelectionPoint* FRightSelPt = nullptr;
  bool FHandlersCrossed = false;
  float FTextHeight = 0;
  float FLineHeight = 0;
  float FLineTop = 0;
  std::u16string FCharsBuffer;  // a high surrogate that waits for its other half
  bool FWritesText = false;     // the model's text changes by this presentation's doing
  std::shared_ptr<fmx::ILoupeService> FLoupeService;
  std::shared_ptr<fmx::IFMXSpellCheckerService> FSpellService;
  std::shared_ptr<fmx::IFMXClipboardService> FClipboardSvc;
  bool FUpdateSpelling = false;
  fmx::TRegion FSpellingRegions;
  std::vector<fmx::TMenuItem*> FSpellMenuItems;  // of the menu
  fmx::TRectF FSpellHightlightRect;
  fmx::TBrush FSpellFill{0xFFFF0000};
  fmx::TStrokeBrush FSpellUnderlineBrush{0xFFFF0000, 1, fmx::TStrokeDash::Dot};
  std::unique_ptr<fmx::TPopupMenu> FEditPopupMenu;
  fmx::TBiDiMode FBidiMode = fmx::TBiDiMode::LeftToRight;
  fmx::TAlphaColor FSelectionColor = 0;
  bool FAutoDirection = false;
  fmx::Keys::TCode FLastKey = 0;
  char16_t FLastChar = 0;
};

// Makes every TEdit from now on use this presentation.
void RegisterEditStyle();

}  // namespace orv
