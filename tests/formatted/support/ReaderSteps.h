// Any step of a markup reader, from three numbers, for tests that take random ones.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "formatted/Orv.StdCtrls.Markup.h"

namespace orv::testing {

struct TReaderStep {
  unsigned Kind;
  std::ptrdiff_t Number;
  char16_t Char;
};

inline constexpr unsigned ReaderStepKinds = 22;

// Runs the step and answers what the reader answered, as text. Raises nothing that the reader does not.
template <typename TReader>
std::u16string Run(TReader& reader, const TReaderStep& step) {
  using TDirection = TMarkupText::TDirection;
  constexpr std::array<std::u16string_view, 3> names = {u"aZ", u"", u"F"};
  const auto flag = [](bool value) { return std::u16string(value ? u"yes" : u"no"); };
  const auto number = [](auto value) { return value ? rtl::FromUtf8(std::to_string(*value)) : u"none"; };
  const bool odd = step.Number % 2 != 0;
  const bool backward = reader.SaveState().Direction == TDirection::Backward;
  switch (step.Kind % ReaderStepKinds) {
    case 0:
      return flag(reader.Read(std::u16string_view(&step.Char, 1)));
    case 1:
      return flag(reader.ReadToken(step.Char));
    case 2:
      return flag(reader.ReadToken(std::u16string_view(u"aZ{}<")));
    case 3:
      return number(reader.ReadInteger());
    case 4:
      return number(reader.ReadHex());
    case 5:
      return number(reader.ReadHexByte());
    case 6:
      return number(reader.ReadHexWord());
    case 7:
      return reader.CopyText(u"<>=");
    case 8:
      return reader.CopyTextTill(step.Char);
    case 9:
      return flag(reader.FindChar(step.Char, odd));
    case 10:
      return flag(reader.FindAny(u"\"/", odd).has_value());
    case 11:
      reader.SkipSpaces(odd);
      return {};
    case 12:
      reader.Skip(step.Number);
      return {};
    case 13:
      reader.StepBack(step.Number);
      return {};
    case 14:
      reader.SetPos(step.Number);
      return {};
    case 15:
      return number(std::optional(reader.SetEnd(step.Number)));
    case 16:
      reader.SetDirection(odd ? TDirection::Forward : TDirection::Backward);
      return {};
    case 17:
      return reader.ReadQuotedString().value_or(u"none");
    case 18:
      return reader.ReadDigits() + reader.ReadHexDigits();
    case 19:
      return flag(reader.Eof()) + std::u16string(1, reader.Token());
    case 20:
      return backward ? u"" : number(reader.ReadEnumIndex(names));
    default:
      return backward ? u"" : reader.ReadIdent().value_or(u"none");
  }
}

}  // namespace orv::testing
