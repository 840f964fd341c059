// The single-line box, step by step: the state after the setup and after each step.
#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "fmx/Timer.h"
#include "tools/orv/eval/Arguments.h"
#include "tools/orv/eval/EditBox.h"
#include "tools/orv/eval/Geometry.h"

namespace orv::eval {
namespace {

using fmx::Keys;

constexpr TNamed<fmx::TBiDiMode> BiDiModeNames[] = {{"LeftToRight", fmx::TBiDiMode::LeftToRight},
                                                    {"RightToLeft", fmx::TBiDiMode::RightToLeft}};
constexpr TNamed<fmx::TCharCase> CharCaseNames[] = {{"Normal", fmx::TCharCase::Normal},
                                                    {"UpperCase", fmx::TCharCase::UpperCase},
                                                    {"LowerCase", fmx::TCharCase::LowerCase}};
constexpr TNamed<fmx::TShiftItem> ShiftNames[] = {{"Shift", fmx::TShiftItem::Shift},
                                                  {"Ctrl", fmx::TShiftItem::Ctrl},
                                                  {"Alt", fmx::TShiftItem::Alt},
                                                  {"Command", fmx::TShiftItem::Command}};
constexpr Keys::TCode F4 = 115;
constexpr TNamed<Keys::TCode> KeyNames[] = {{"Left", Keys::Left},
                                            {"Right", Keys::Right},
                                            {"Up", Keys::Up},
                                            {"Down", Keys::Down},
                                            {"Home", Keys::Home},
                                            {"End", Keys::End},
                                            {"PageUp", Keys::PageUp},
                                            {"PageDown", Keys::PageDown},
                                            {"Insert", Keys::Insert},
                                            {"Delete", Keys::Delete},
                                            {"Backspace", Keys::Backspace},
                                            {"Return", Keys::Return},
                                            {"Esc", Keys::Escape},
                                            {"Tab", Keys::Tab},
                                            {"F4", F4},
                                            {"Shift", Keys::Shift},
                                            {"Control", Keys::Control}};

enum class TMouseStep : std::uint8_t { Down, DoubleClick, Move, Up };
constexpr TNamed<TMouseStep> MouseNames[] = {{"down", TMouseStep::Down},
                                             {"doubleclick", TMouseStep::DoubleClick},
                                             {"move", TMouseStep::Move},
                                             {"up", TMouseStep::Up}};
enum class THandleStep : std::uint8_t { Down, Move, Up };
constexpr TNamed<THandleStep> HandleNames[] = {
    {"down", THandleStep::Down}, {"move", THandleStep::Move}, {"up", THandleStep::Up}};
constexpr TNamed<TSelectionPointType> SideNames[] = {{"left", TSelectionPointType::Left},
                                                     {"right", TSelectionPointType::Right}};
constexpr TNamed<fmx::TGestureId> GestureNames[] = {{"longtap", fmx::LongTapGesture},
                                                    {"doubletap", fmx::DoubleTapGesture}};
enum class TImeStep : std::uint8_t { Start, Update, End };
constexpr TNamed<TImeStep> ImeNames[] = {
    {"start", TImeStep::Start}, {"update", TImeStep::Update}, {"end", TImeStep::End}};
enum class TCommand : std::uint8_t { Cut, Copy, Paste, Delete, SelectAll, Undo };
constexpr TNamed<TCommand> CommandNames[] = {
    {"Cut", TCommand::Cut},       {"Copy", TCommand::Copy},           {"Paste", TCommand::Paste},
    {"Delete", TCommand::Delete}, {"SelectAll", TCommand::SelectAll}, {"Undo", TCommand::Undo}};

// --- Reading ---

// A string, or code units under "units".
std::u16string ReadText(std::string_view name, const TJson& value) {
  if (value.is_string()) return FromUtf8(value.get_ref<const std::string&>());
  if (!value.is_object()) throw BadRequest("'" + std::string(name) + "' must be a text");
  return TArguments(value).Text();
}

fmx::TPointF ReadPoint(const TArguments& step) {
  const auto numbers = Floats<2>("at", step.At("at"));
  return {numbers[0], numbers[1]};
}

fmx::TShiftState ReadShift(const TArguments& step) {
  fmx::TShiftState shift;
  if (!step.Has("shift")) return shift;
  for (const TJson& name : Array("shift", step.At("shift"))) shift.Include(Named("shift", name, ShiftNames));
  return shift;
}

Keys::TCode ReadKey(const TArguments& step) {
  const std::string name = step.String("key");
  const bool isLetterOrDigit =
      name.size() == 1 && ((name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= '0' && name[0] <= '9'));
  if (isLetterOrDigit) return static_cast<Keys::TCode>(name[0]);
  return Named("key", step.At("key"), KeyNames);
}

void ExpectMembers(const TJson& step, std::initializer_list<std::string_view> allowed) {
  for (const auto& [name, value] : step.items())
    if (std::find(allowed.begin(), allowed.end(), name) == allowed.end())
      throw BadRequest("a step has no member '" + name + "' here");
}

// --- Properties ---

using TSetter = void (*)(TEditBox& box, const TArguments& values, std::string_view name);
struct TProperty {
  std::string_view Name;
  bool InSet;  // whether a step may assign it too
  TSetter Set;
};

// In the order in which they are assigned.
const TProperty Properties[] = {
    {"Size", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       const auto size = Floats<2>(name, values.At(name));
       box.Edit().SetSize({size[0], size[1]});
     }},
    {"FontSize", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().TextSettings().Font().SetSize(Positive(name, values.At(name)));
     }},
    {"HorzAlign", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().TextSettings().SetHorzAlign(values.Enum(name, AlignNames));
     }},
    {"VertAlign", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().TextSettings().SetVertAlign(values.Enum(name, AlignNames));
     }},
    {"BiDiMode", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Form().SetBiDiMode(values.Enum(name, BiDiModeNames));
     }},
    {"AutoDirection", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Presentation().SetAutoDirection(values.Bool(name));
     }},
    {"InputSupport", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().SetInputSupport(values.Bool(name));
     }},
    {"ReadOnly", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().SetReadOnly(values.Bool(name));
     }},
    {"Password", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().SetPassword(values.Bool(name));
     }},
    {"FilterChar", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().SetFilterChar(ReadText(name, values.At(name)));
     }},
    {"CharCase", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().SetCharCase(values.Enum(name, CharCaseNames));
     }},
    {"MaxLength", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().SetMaxLength(values.Int32(name));
     }},
    {"KillFocusByReturn", false,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().SetKillFocusByReturn(values.Bool(name));
     }},
    {"Handles", false, [](TEditBox&, const TArguments& values, std::string_view name) { values.Bool(name); }},
    {"Clipboard", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Clipboard().SetText(ReadText(name, values.At(name)));
     }},
    {"Text", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().SetText(ReadText(name, values.At(name)));
     }},
};
const TProperty ModelProperties[] = {
    {"Caret", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().SetCaretPosition(values.Int32(name));
     }},
    {"SelStart", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().SetSelStart(values.Int32(name));
     }},
    {"SelLength", true,
     [](TEditBox& box, const TArguments& values, std::string_view name) {
       box.Edit().Model().SetSelLength(values.Int32(name));
     }},
};

void Assign(TEditBox& box, const TJson& object, bool isSetup) {
  const TArguments values(object);
  std::size_t known = 0;
  const auto assign = [&](const TProperty& property) {
    if (!values.Has(property.Name)) return;
    ++known;
    property.Set(box, values, property.Name);
  };
  for (const TProperty& property : Properties)
    if (isSetup || property.InSet) assign(property);
  if (!isSetup)
    for (const TProperty& property : ModelProperties) assign(property);
  if (known != object.size()) throw BadRequest("a property that the box does not have");
}

// --- Queries ---

TJson HandlesValue(TOrvStyledEdit& presentation) {
  TJson handles = TJson::array();
  for (const auto type : {TSelectionPointType::Left, TSelectionPointType::Right}) {
    const fmx::TSelectionPoint* const point = presentation.SelectionPoint(type);
    if (point == nullptr) return nullptr;
    handles.push_back(TJson::array({point->Visible(), Number(point->Position().X)}));
  }
  handles.push_back(presentation.AreHandlersCrossed());
  return handles;
}

TJson SelRectValue(TOrvStyledEdit& presentation) {
  bool swapped = false;
  TJson rect = Rect(presentation.GetSelRect(swapped));
  rect.push_back(swapped);
  return rect;
}

TJson SelFillValue(TOrvStyledEdit& presentation) {
  const fmx::TRegion rects = presentation.SelectionFillRects();
  fmx::TRectF whole;
  for (const fmx::TRectF& rect : rects) whole = whole.Union(rect);
  return rects.empty() ? TJson(nullptr) : Rect(whole);
}

TJson DrawnLettersValue(TEditBox& box) {
  TJson letters = TJson::array();
  for (const TDrawnLetter& letter : box.DrawnLetters())
    letters.push_back(TJson::array({letter.Unit, Rect(letter.Box), letter.IsSeen}));
  return letters;
}

TJson AnswerTo(TEditBox& box, const TArguments& step) {
  const std::string name = step.String("query");
  const TJson args = step.Has("args") ? Array("args", step.At("args")) : TJson::array();
  const auto expect = [&](std::size_t count) {
    if (args.size() != count) throw BadRequest("'" + name + "' takes " + std::to_string(count) + " arguments");
  };
  const auto integer = [&](std::size_t index) {
    const TJson holder = {{"args", args[index]}};
    return TArguments(holder).Int32("args");
  };
  TOrvStyledEdit& presentation = box.Presentation();
  if (name == "GetCharX") {
    expect(1);
    return Number(presentation.View().GetCharX(integer(0)));
  }
  if (name == "HitTest") {
    expect(1);
    return presentation.HitPosition(Float("args", args[0]));
  }
  if (name == "TextWidth") {
    expect(2);
    return Number(presentation.View().TextWidth(integer(0), integer(1)));
  }
  expect(0);
  if (name == "InvisibleTextWidth") return Number(presentation.View().InvisibleTextWidth());
  if (name == "Line") return TJson::array({Number(presentation.LineTop()), Number(presentation.LineHeight())});
  if (name == "SelRect") return SelRectValue(presentation);
  if (name == "SelFill") return SelFillValue(presentation);
  if (name == "SelRects") return Region(presentation.SelectionFillRects());
  if (name == "DrawnLetters") return DrawnLettersValue(box);
  if (name == "SelectedText") return TextValue(box.Edit().Model().SelectedText());
  if (name == "Clipboard") return TextValue(box.Clipboard().GetText());
  if (name == "CombinedText") return TextValue(presentation.GetText());
  if (name == "DrawnText") {
    const TDrawnLine drawn = box.DrawnLine();
    return TJson::array({TextValue(drawn.Text), drawn.RightToLeft});
  }
  if (name == "PasswordDots") return Region(presentation.PasswordDots());
  if (name == "Handles") return HandlesValue(presentation);
  if (name == "Handled") return box.LastKeyHandled();
  if (name == "Typings") return box.Typings();
  if (name == "TargetClausePoint") return Point(presentation.GetTargetClausePointF());
  if (name == "SelectionMode") return static_cast<int>(presentation.SelectionMode());
  if (name == "Focused") return box.Edit().IsFocused();
  if (name == "CaretHidden") return box.Edit().Model().Caret().TemporarilyHidden();
  throw BadRequest("'query' has no query named '" + name + "'");
}

// --- Steps ---

void MouseStep(TEditBox& box, const TArguments& step) {
  const TMouseStep kind = step.Enum("mouse", MouseNames);
  const fmx::TMouseEvent event{fmx::TMouseButton::Left, ReadShift(step), ReadPoint(step),
                               kind == TMouseStep::DoubleClick};
  if (kind == TMouseStep::Move) return box.Edit().MouseMove(event);
  if (kind == TMouseStep::Up) return box.Edit().MouseUp(event);
  box.Edit().MouseDown(event);
}

void HandleStep(TEditBox& box, const TArguments& step) {
  fmx::TSelectionPoint* const point = box.Presentation().SelectionPoint(step.Enum("handle", SideNames));
  const THandleStep kind = step.Enum("do", HandleNames);
  const bool isMove = kind == THandleStep::Move;
  const fmx::TPointF at = isMove || step.Has("at") ? ReadPoint(step) : fmx::TPointF{};
  if (point == nullptr) return;
  if (isMove) return point->MouseMove({fmx::TMouseButton::Left, {}, at - point->Position()});
  if (kind == THandleStep::Down) return point->MouseDown({});
  point->MouseUp({});
}

void ImeStep(TEditBox& box, const TArguments& step) {
  TOrvStyledEdit& presentation = box.Presentation();
  fmx::TTextService& service = *presentation.GetTextService();
  switch (step.Enum("ime", ImeNames)) {
    case TImeStep::Start:
      return presentation.StartIMEInput();
    case TImeStep::Update:
      service.SetMarkedText(ReadText("marked", step.At("marked")), step.Int32("caret"));
      return presentation.IMEStateUpdated();
    case TImeStep::End:
      service.SetMarkedText({}, 0);
      presentation.IMEStateUpdated();
      presentation.EndIMEInput();
      if (step.Has("marked")) box.Type(ReadText("marked", step.At("marked")));
      return;
  }
}

void CommandStep(TEditBox& box, const TArguments& step) {
  TOrvStyledEdit& presentation = box.Presentation();
  switch (step.Enum("command", CommandNames)) {
    case TCommand::Cut:
      return presentation.DoCut();
    case TCommand::Copy:
      return presentation.DoCopy();
    case TCommand::Paste:
      return presentation.DoPaste();
    case TCommand::Delete:
      return presentation.DoDelete();
    case TCommand::SelectAll:
      return presentation.DoSelectAll();
    case TCommand::Undo:
      return;
  }
}

void FocusStep(TEditBox& box, const TArguments& step) {
  if (step.Bool("focus"))
    box.Edit().SetFocus();
  else
    box.Form().SetFocused(nullptr);
}

using TStepRunner = void (*)(TEditBox& box, const TArguments& step);
struct TStepKind {
  std::string_view Name;
  std::initializer_list<std::string_view> Members;
  TStepRunner Run;
};
const TStepKind StepKinds[] = {
    {"key",
     {"key", "shift"},
     [](TEditBox& box, const TArguments& step) {
       box.Key({ReadKey(step), 0, ReadShift(step)});
     }},
    {"type", {"type"}, [](TEditBox& box, const TArguments& step) { box.Type(ReadText("type", step.At("type"))); }},
    {"set", {"set"}, [](TEditBox& box, const TArguments& step) { Assign(box, Object("set", step.At("set")), false); }},
    {"mouse", {"mouse", "at", "shift"}, MouseStep},
    {"gesture",
     {"gesture", "at"},
     [](TEditBox& box, const TArguments& step) {
       box.Edit().CMGesture({step.Enum("gesture", GestureNames), ReadPoint(step), {}});
     }},
    {"handle", {"handle", "do", "at"}, HandleStep},
    {"ime", {"ime", "marked", "caret"}, ImeStep},
    {"command", {"command"}, CommandStep},
    {"focus", {"focus"}, FocusStep},
    {"paint",
     {"paint"},
     [](TEditBox& box, const TArguments& step) {
       if (!step.Bool("paint")) throw BadRequest("'paint' must be true");
       box.Paint();
     }},
    {"tick", {"tick"}, [](TEditBox&, const TArguments& step) { fmx::TTimer::Advance(step.Int32("tick")); }},
};

TJson State(TEditBox& box) {
  const fmx::TCustomEditModel& model = box.Edit().Model();
  TOrvStyledEdit& presentation = box.Presentation();
  return {{"Text", TextValue(model.Text())},
          {"Caret", presentation.GetOriginCaretPosition()},
          {"SelStart", model.SelStart()},
          {"SelLength", model.SelLength()},
          {"FirstVisibleChar", presentation.View().FirstVisibleChar()},
          {"CaretX", Number(box.Edit().Model().Caret().Position().X)},
          {"HorzAlign", NameOf(presentation.HorizontalAlignment(), AlignNames)},
          {"RightToLeft", presentation.IsRightToLeft()}};
}

TJson AfterStep(TEditBox& box, const TJson& object) {
  const TArguments step(Object("steps", object));
  for (const TStepKind& kind : StepKinds) {
    if (!step.Has(kind.Name)) continue;
    ExpectMembers(object, kind.Members);
    kind.Run(box, step);
    return State(box);
  }
  if (!step.Has("query")) throw BadRequest("a step that the box does not know");
  ExpectMembers(object, {"query", "args"});
  TJson answer = AnswerTo(box, step);
  TJson state = State(box);
  state["Answer"] = std::move(answer);
  return state;
}

TJson Edit(const TArguments& arguments) {
  const TJson setup = arguments.Has("setup") ? Object("setup", arguments.At("setup")) : TJson::object();
  const TArguments values(setup);
  TEditBox box(values.Has("Handles") && values.Bool("Handles"));
  constexpr float width = 200;
  constexpr float height = 30;
  if (!values.Has("Size")) box.Edit().SetSize({width, height});
  Assign(box, setup, true);
  box.Presentation().Realign();  // as when a form is shown
  TJson states = TJson::array({State(box)});
  if (arguments.Has("steps"))
    for (const TJson& step : Array("steps", arguments.At("steps"))) states.push_back(AfterStep(box, step));
  return {{"States", std::move(states)}};
}

constexpr TOp Ops[] = {
    {"edit", "setup?, steps?: a single-line box; its state after the setup and after each step", Edit},
};

}  // namespace

std::span<const TOp> EditOps() {
  return Ops;
}

}  // namespace orv::eval
