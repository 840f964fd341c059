// The text service: the text of an editing control together with what an input method is composing in it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fmx/Canvas.h"
#include "fmx/Font.h"
#include "fmx/TextLayout.h"
#include "fmx/TextTypes.h"
#include "rtl/Sets.h"
#include "runtime/RewritableClass.h"

namespace fmx {

enum class TCharCase : std::uint8_t { Normal = 0, UpperCase = 1, LowerCase = 2 };
// What the input method is to do; the first three by their numbers.
enum class TImeMode : std::uint8_t { DontCare = 0, Disable = 1, Close = 2, Open = 3 };

enum class TFillTextFlag : std::uint8_t { RightToLeft };
using TFillTextFlags = rtl::TSet<TFillTextFlag, std::uint8_t>;

// How a part of a text is being composed; the input method's numbers.
enum class TCompositionAttribute : std::uint8_t {
  Input = 0,
  TargetConverted = 1,
  Converted = 2,
  TargetNotConverted = 3,
  InputError = 4
};

// A single line to draw.
struct TSingleLineDrawing {
  TRectF Rect;
  std::int32_t FirstVisibleChar = 1;  // 1-based
  const TFont* Font = nullptr;        // borrowed; null for the canvas's
  float Opacity = 1;
  TFillTextFlags Flags;
  TTextAlign HorzAlign = TTextAlign::Leading;
  TTextAlign VertAlign = TTextAlign::Center;
  bool WordWrap = false;
  // Holds the text, laid out for that rectangle: it draws where the canvas takes layouts of its class, so that what is
  // seen is what it measures. Borrowed; null for a layout of the service's own.
  TTextLayout* Layout = nullptr;
  // What a layout of the service's own is to be told before it lays the text out; may be empty.
  std::function<void(TTextLayout&)> SetUp;
};

// Positions are UTF-16 code units of the text without the marked text, where nothing else is said; as a point X is the
// unit and Y the line, which is 0 in a single-line text. They are kept as they come, also outside of the text. One
// thread, which is that of all controls.
//
// Its operations are called through the slots of the object's class record; a class that replaces one fills the slot.
class TTextService : public orv::TRewritableObject {
 public:
  struct TSlots {
    struct GetText : orv::TSlot<0, std::u16string(const TTextService&)> {};
    struct SetText : orv::TSlot<1, void(TTextService&, std::u16string_view)> {};
    struct GetCaretPosition : orv::TSlot<2, TPoint(const TTextService&)> {};
    struct SetCaretPosition : orv::TSlot<3, void(TTextService&, TPoint)> {};
    struct SetMaxLength : orv::TSlot<4, void(TTextService&, std::int32_t)> {};
    struct SetCharCase : orv::TSlot<5, void(TTextService&, TCharCase)> {};
    struct SetFilterChar : orv::TSlot<6, void(TTextService&, std::u16string_view)> {};
    struct SetImeMode : orv::TSlot<7, void(TTextService&, TImeMode)> {};
    struct GetImeMode : orv::TSlot<8, TImeMode(const TTextService&)> {};
    struct HasMarkedText : orv::TSlot<9, bool(const TTextService&)> {};
    struct GetMarkedText : orv::TSlot<10, std::u16string(const TTextService&)> {};
    struct GetMarkedTextAttributes : orv::TSlot<11, std::vector<TCompositionAttribute>(const TTextService&)> {};
    struct SetMarkedText
        : orv::TSlot<12, void(TTextService&, std::u16string_view, std::int32_t, std::vector<TCompositionAttribute>)> {};
    struct SetMarkedTextPosition : orv::TSlot<13, void(TTextService&, TPoint)> {};
    struct GetMarkedTextPosition : orv::TSlot<14, TPoint(const TTextService&)> {};
    struct CombinedText : orv::TSlot<15, std::u16string(const TTextService&)> {};
    struct TargetClausePosition : orv::TSlot<16, TPoint(const TTextService&)> {};
    struct BeginSelection : orv::TSlot<17, void(TTextService&)> {};
    struct EndSelection : orv::TSlot<18, void(TTextService&)> {};
    struct Create : orv::TSlot<19, std::unique_ptr<TTextService>(orv::TClass, bool)> {};
    struct DrawSingleLine : orv::TSlot<20, void(TTextService&, TCanvas&, const TSingleLineDrawing&)> {};
    struct DrawSingleLineText
        : orv::TSlot<21, void(TTextService&, TCanvas&, std::u16string_view, const TSingleLineDrawing&)> {};
  };
  static constexpr int SlotCount = 22;
  static orv::TClass Class();

 protected:
  template <typename TTag, typename... TArgs>
  decltype(auto) Call(TArgs&&... args) {
    return orv::Record(ClassType()).template Slot<TTag>()(*this, std::forward<TArgs>(args)...);
  }
  template <typename TTag, typename... TArgs>
  decltype(auto) Call(TArgs&&... args) const {
    return orv::Record(ClassType()).template Slot<TTag>()(*this, std::forward<TArgs>(args)...);
  }

 public:
  // Makes a service of the class.
  static std::unique_ptr<TTextService> New(orv::TClass aClass, bool supportsMultiLine);
  // Of the class that the platform names (ITextServiceClassService), or of this one.
  static std::unique_ptr<TTextService> NewDefault(bool supportsMultiLine);

  explicit TTextService(bool supportsMultiLine, orv::TClass aClass = Class());
  ~TTextService() override;

  bool SupportsMultiLine() const { return FSupportsMultiLine; }

  // Without the marked text.
  std::u16string Text() const { return Call<TSlots::GetText>(); }
  void SetText(std::u16string_view text) { Call<TSlots::SetText>(text); }
  TPoint CaretPosition() const { return Call<TSlots::GetCaretPosition>(); }
  void SetCaretPosition(TPoint position) { Call<TSlots::SetCaretPosition>(position); }

  // The text with the marked text at its place.
  std::u16string CombinedText() const { return Call<TSlots::CombinedText>(); }
  // The caret, in the combined text: within the marked text while there is one.
  TPoint TargetClausePosition() const { return Call<TSlots::TargetClausePosition>(); }

  bool HasMarkedText() const { return Call<TSlots::HasMarkedText>(); }
  std::u16string MarkedText() const { return Call<TSlots::GetMarkedText>(); }
  // One for each unit of the marked text, or none.
  std::vector<TCompositionAttribute> MarkedTextAttributes() const { return Call<TSlots::GetMarkedTextAttributes>(); }
  // What an input method is composing, with its caret in it, which is held within. "" ends it.
  void SetMarkedText(std::u16string_view text, std::int32_t caret, std::vector<TCompositionAttribute> attributes = {}) {
    Call<TSlots::SetMarkedText>(text, caret, std::move(attributes));
  }
  // Where it stands in the text.
  TPoint MarkedTextPosition() const { return Call<TSlots::GetMarkedTextPosition>(); }
  void SetMarkedTextPosition(TPoint position) { Call<TSlots::SetMarkedTextPosition>(position); }

  // What the input method has to know of the box.
  void SetMaxLength(std::int32_t length) { Call<TSlots::SetMaxLength>(length); }
  void SetCharCase(TCharCase charCase) { Call<TSlots::SetCharCase>(charCase); }
  void SetFilterChar(std::u16string_view filter) { Call<TSlots::SetFilterChar>(filter); }
  TImeMode ImeMode() const { return Call<TSlots::GetImeMode>(); }
  void SetImeMode(TImeMode mode) { Call<TSlots::SetImeMode>(mode); }
  // A selection is being drawn by the pointer; the input method keeps still.
  void BeginSelection() { Call<TSlots::BeginSelection>(); }
  void EndSelection() { Call<TSlots::EndSelection>(); }
  bool IsSelecting() const { return FIsSelecting; }

  // Draws the combined text without what has scrolled away, in the colour of the canvas's fill.
  void DrawSingleLine(TCanvas& canvas, const TSingleLineDrawing& drawing) {
    Call<TSlots::DrawSingleLine>(canvas, drawing);
  }
  // Draws that text, and lines under what of the marked text is in it.
  void DrawSingleLineText(TCanvas& canvas, std::u16string_view text, const TSingleLineDrawing& drawing) {
    Call<TSlots::DrawSingleLineText>(canvas, text, drawing);
  }

  // The layout that this drawing on the canvas is done with; null where none is registered for the canvas.
  TTextLayout* LayoutFor(TCanvas& canvas, const TSingleLineDrawing& drawing);

 private:
  std::u16string DoGetText() const { return FText; }
  void DoSetText(std::u16string_view text) { FText = text; }
  TPoint DoGetCaretPosition() const { return FCaretPosition; }
  void DoSetCaretPosition(TPoint position) { FCaretPosition = position; }
  void DoSetMaxLength(std::int32_t length) { FMaxLength = length; }
  void DoSetCharCase(TCharCase charCase) { FCharCase = charCase; }
  void DoSetFilterChar(std::u16string_view filter) { FFilterChar = filter; }
  void DoSetImeMode(TImeMode mode) { FImeMode = mode; }
  TImeMode DoGetImeMode() const { return FImeMode; }
  bool DoHasMarkedText() const { return !FMarkedText.empty(); }
  std::u16string DoGetMarkedText() const { return FMarkedText; }
  std::vector<TCompositionAttribute> DoGetMarkedTextAttributes() const { return FAttributes; }
  void DoSetMarkedText(std::u16string_view text, std::int32_t caret, std::vector<TCompositionAttribute> attributes);
  void DoSetMarkedTextPosition(TPoint position) { FMarkedTextPosition = position; }
  TPoint DoGetMarkedTextPosition() const { return FMarkedTextPosition; }
  std::u16string DoCombinedText() const;
  TPoint DoTargetClausePosition() const;
  void DoBeginSelection() { FIsSelecting = true; }
  void DoEndSelection() { FIsSelecting = false; }
  void DoDrawSingleLine(TCanvas& canvas, const TSingleLineDrawing& drawing);
  void DoDrawSingleLineText(TCanvas& canvas, std::u16string_view text, const TSingleLineDrawing& drawing);
  void DrawLayout(TCanvas& canvas, TTextLayout& layout, const TSingleLineDrawing& drawing);

  bool FSupportsMultiLine;
  bool FIsSelecting = false;
  std::u16string FText;
  TPoint FCaretPosition;
  std::u16string FMarkedText;
  TPoint FMarkedTextPosition;
  std::int32_t FMarkedCaret = 0;
  std::vector<TCompositionAttribute> FAttributes;
  std::int32_t FMaxLength = 0;
  TCharCase FCharCase = TCharCase::Normal;
  std::u16string FFilterChar;
  TImeMode FImeMode = TImeMode::DontCare;
  std::unique_ptr<TTextLayout> FLayout;  // of the class for the canvas it was last drawn on
};

// Draws the lines under a text that is being composed: units from base on of the layout, by their attributes. The
// canvas's fill gives the colour. Needs a scene.
void DrawCompositionLines(TCanvas& canvas, TTextLayout& layout, std::int32_t base,
                          const std::vector<TCompositionAttribute>& attributes);

}  // namespace fmx
