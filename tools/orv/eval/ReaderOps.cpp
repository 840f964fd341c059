// The markup reader, step by step.
#include <limits>
#include <vector>

#include "formatted/Orv.StdCtrls.Markup.h"
#include "tools/orv/eval/Arguments.h"

namespace orv::eval {
namespace {

using TReader = TMarkupText::TMarkupTextReaderUnicode;

// A reader with the places it was told to remember.
struct TSession {
  explicit TSession(UnicodeString text) : Reader(std::move(text)) {}
  TReader Reader;
  std::vector<std::ptrdiff_t> Positions;
  std::vector<TMarkupText::TReaderState> States;
};

// One step: [member, ...arguments]. Argument 0 is the first behind the member.
class TStep {
 public:
  explicit TStep(const TJson& step) : FStep(step) {
    if (!step.is_array() || step.empty() || !step[0].is_string())
      throw BadRequest("a step must be [member, ...arguments]");
  }

  std::string Member() const { return FStep[0].get<std::string>(); }
  bool Has(std::size_t index) const { return index + 1 < FStep.size(); }
  // The argument, wrapped so that it is read with the checks of any request.
  template <typename TRead>
  auto Argument(std::size_t index, TRead read) const {
    if (!Has(index)) throw BadRequest("'" + Member() + "' needs more arguments");
    const TJson wrapped = {{Member(), FStep[index + 1]}};
    return read(TArguments(wrapped), Member());
  }

  UnicodeString Text(std::size_t index) const {
    return Argument(index, [](const TArguments& a, const std::string& name) { return FromUtf8(a.String(name)); });
  }
  char16_t Char(std::size_t index) const {
    return Argument(index, [](const TArguments& a, const std::string& name) { return a.CodeUnit(name); });
  }
  bool Bool(std::size_t index) const {
    return Argument(index, [](const TArguments& a, const std::string& name) { return a.Bool(name); });
  }
  std::ptrdiff_t Integer(std::size_t index) const {
    return Argument(index, [](const TArguments& a, const std::string& name) {
      using TLimits = std::numeric_limits<std::ptrdiff_t>;
      return static_cast<std::ptrdiff_t>(a.Integer(name, TLimits::min(), TLimits::max()));
    });
  }
  std::vector<UnicodeString> Names(std::size_t index) const {
    const TJson& names = Argument(index, [](const TArguments& a, const std::string& name) { return a.At(name); });
    if (!names.is_array()) throw BadRequest("'" + Member() + "' needs an array of names");
    std::vector<UnicodeString> texts;
    for (const TJson& name : names) {
      if (!name.is_string()) throw BadRequest("'" + Member() + "' needs an array of names");
      texts.push_back(FromUtf8(name.get<std::string>()));
    }
    return texts;
  }

 private:
  const TJson& FStep;
};

// --- Answers: a value, or null where there is none ---

TJson ValueOf(bool value) {
  return value;
}
TJson ValueOf(char16_t c) {
  return TextValue(std::u16string_view(&c, 1));
}
TJson ValueOf(const UnicodeString& text) {
  return TextValue(text);
}
template <typename TNumber>
requires std::is_integral_v<TNumber> TJson ValueOf(TNumber number) {
  return number;
}
template <typename TValue>
TJson ValueOf(const std::optional<TValue>& value) {
  return value ? ValueOf(*value) : TJson();
}

// Runs a member that takes no argument, or a text, a character, a set, or an integer.
template <auto TMember>
TJson Plain(TSession& session, const TStep&) {
  if constexpr (std::is_void_v<decltype((session.Reader.*TMember)())>) {
    (session.Reader.*TMember)();
    return nullptr;
  } else {
    return ValueOf((session.Reader.*TMember)());
  }
}

TJson Check(TSession& session, const TStep& step) {
  session.Reader.Check(step.Text(0));
  return nullptr;
}

TJson CheckToken(TSession& session, const TStep& step) {
  session.Reader.CheckToken(step.Char(0));
  return nullptr;
}

TJson FindChar(TSession& session, const TStep& step) {
  return session.Reader.FindChar(step.Char(0), step.Bool(1));
}

TJson FindAny(TSession& session, const TStep& step) {
  return ValueOf(session.Reader.FindAny(step.Text(0), step.Bool(1)));
}

TJson Skip(TSession& session, const TStep& step) {
  session.Reader.Skip(step.Integer(0));
  return nullptr;
}

TJson StepBack(TSession& session, const TStep& step) {
  session.Reader.StepBack(step.Integer(0));
  return nullptr;
}

TJson SkipSpaces(TSession& session, const TStep& step) {
  session.Reader.SkipSpaces(step.Bool(0));
  return nullptr;
}

TJson CopyText(TSession& session, const TStep& step) {
  return ValueOf(session.Reader.CopyText(step.Has(0) ? step.Text(0) : UnicodeString()));
}

TJson CopyTextTill(TSession& session, const TStep& step) {
  return ValueOf(session.Reader.CopyTextTill(step.Char(0)));
}

TJson Read(TSession& session, const TStep& step) {
  return session.Reader.Read(step.Text(0));
}

TJson ReadStill(TSession& session, const TStep& step) {
  return session.Reader.ReadStill(step.Text(0));
}

TJson ReadToken(TSession& session, const TStep& step) {
  return session.Reader.ReadToken(step.Text(0));
}

TJson ReadTokenStill(TSession& session, const TStep& step) {
  return ValueOf(session.Reader.ReadTokenStill(step.Text(0)));
}

// Runs one of the members that take a table of names.
template <auto TMember>
TJson Enumerate(TSession& session, const TStep& step) {
  const std::vector<UnicodeString> names = step.Names(0);
  const std::vector<std::u16string_view> views(names.begin(), names.end());
  return ValueOf((session.Reader.*TMember)(views));
}

TJson SavePosition(TSession& session, const TStep&) {
  session.Positions.push_back(session.Reader.SavePosition());
  return nullptr;
}

TJson RestorePosition(TSession& session, const TStep&) {
  if (session.Positions.empty()) throw BadRequest("'RestorePosition' without 'SavePosition'");
  session.Reader.RestorePosition(session.Positions.back());
  session.Positions.pop_back();
  return nullptr;
}

TJson SaveState(TSession& session, const TStep&) {
  session.States.push_back(session.Reader.SaveState());
  return nullptr;
}

TJson RestoreState(TSession& session, const TStep&) {
  if (session.States.empty()) throw BadRequest("'RestoreState' without 'SaveState'");
  session.Reader.RestoreState(session.States.back());
  session.States.pop_back();
  return nullptr;
}

TJson SetPos(TSession& session, const TStep& step) {
  session.Reader.SetPos(step.Integer(0));
  return nullptr;
}

TJson SetEnd(TSession& session, const TStep& step) {
  return session.Reader.SetEnd(step.Integer(0));
}

TJson SetDirection(TSession& session, const TStep& step) {
  const std::ptrdiff_t direction = step.Integer(0);
  if (direction != 1 && direction != -1) throw BadRequest("'SetDirection' must be 1 or -1");
  session.Reader.SetDirection(direction > 0 ? TMarkupText::TDirection::Forward : TMarkupText::TDirection::Backward);
  return nullptr;
}

using TRunStep = TJson (*)(TSession&, const TStep&);
constexpr TNamed<TRunStep> Members[] = {
    {"Check", Check},
    {"CheckToken", CheckToken},
    {"CopyText", CopyText},
    {"CopyTextTill", CopyTextTill},
    {"EnumIndex", Enumerate<&TReader::EnumIndex>},
    {"Eof", Plain<&TReader::Eof>},
    {"FindAny", FindAny},
    {"FindChar", FindChar},
    {"HexByte", Plain<&TReader::HexByte>},
    {"HexWord", Plain<&TReader::HexWord>},
    {"Ident", Plain<&TReader::Ident>},
    {"Integer", Plain<&TReader::Integer>},
    {"QuotedString", Plain<&TReader::QuotedString>},
    {"Read", Read},
    {"ReadDigits", Plain<&TReader::ReadDigits>},
    {"ReadDigitsStill", Plain<&TReader::ReadDigitsStill>},
    {"ReadEnumIndex", Enumerate<&TReader::ReadEnumIndex>},
    {"ReadEnumIndexStill", Enumerate<&TReader::ReadEnumIndexStill>},
    {"ReadHex", Plain<&TReader::ReadHex>},
    {"ReadHexByte", Plain<&TReader::ReadHexByte>},
    {"ReadHexDigits", Plain<&TReader::ReadHexDigits>},
    {"ReadHexStill", Plain<&TReader::ReadHexStill>},
    {"ReadHexWord", Plain<&TReader::ReadHexWord>},
    {"ReadIdent", Plain<&TReader::ReadIdent>},
    {"ReadInteger", Plain<&TReader::ReadInteger>},
    {"ReadIntegerStill", Plain<&TReader::ReadIntegerStill>},
    {"ReadQuotedString", Plain<&TReader::ReadQuotedString>},
    {"ReadStill", ReadStill},
    {"ReadToken", ReadToken},
    {"ReadTokenStill", ReadTokenStill},
    {"RestorePosition", RestorePosition},
    {"RestoreState", RestoreState},
    {"SavePosition", SavePosition},
    {"SaveState", SaveState},
    {"SetDirection", SetDirection},
    {"SetEnd", SetEnd},
    {"SetPos", SetPos},
    {"Skip", Skip},
    {"SkipDigits", Plain<&TReader::SkipDigits>},
    {"SkipSpaces", SkipSpaces},
    {"StepBack", StepBack},
    {"Token", Plain<&TReader::Token>},
};

TJson Reader(const TArguments& arguments) {
  TSession session(arguments.Text());
  const TJson& steps = arguments.At("steps");
  if (!steps.is_array()) throw BadRequest("'steps' must be an array");
  TJson answers = TJson::array();
  for (const TJson& element : steps) {
    const TStep step(element);
    const TJson member = {{"member", step.Member()}};
    TJson value = TArguments(member).Enum("member", Members)(session, step);
    answers.push_back({{"value", std::move(value)}, {"pos", session.Reader.Position()}});
  }
  return answers;
}

constexpr TOp Ops[] = {
    {"reader", "text, steps: each [member, ...arguments]; the value of each and the cursor's offset after it", Reader},
};

}  // namespace

std::span<const TOp> ReaderOps() {
  return Ops;
}

}  // namespace orv::eval
