#include "fmx/EditModel.h"

#include <algorithm>

#include "rtl/Unicode.h"

namespace fmx {
namespace {

// Unit by unit; a mapping that is not one unit to one unit is left out.
char16_t Mapped(char16_t c, TCharCase charCase) {
  if (charCase == TCharCase::Normal) return c;
  const std::uint32_t mapped = charCase == TCharCase::UpperCase ? rtl::ToUpper(c) : rtl::ToLower(c);
  return mapped <= 0xFFFF ? static_cast<char16_t>(mapped) : c;
}

std::u16string FilteredUnits(std::u16string_view text, std::u16string_view filter) {
  std::u16string filtered;
  for (const char16_t c : text)
    if (filter.empty() || filter.find(c) != std::u16string_view::npos) filtered.push_back(c);
  return filtered;
}

}  // namespace

TCustomEditModel::TCustomEditModel() {
  FTextSettingsInfo.Resulting().SetOnChanged(
      [this] { Send(MMTextSettingsChanged, FTextSettingsInfo.Resulting().IsSizeChange()); });
}

// --- Text ---

std::u16string TCustomEditModel::Cased(std::u16string text) const {
  for (char16_t& c : text) c = Mapped(c, FCharCase);
  return text;
}

std::u16string TCustomEditModel::Validated(std::u16string_view text) const {
  const TEditRules rules = Rules();
  const std::u16string line = rules.Contains(TEditRule::OneLine) ? InOneLine(text) : std::u16string(text);
  if (rules.Contains(TEditRule::WholeCharacters)) return Admitted(line, 0);
  std::u16string valid = Cased(FilteredUnits(line, FFilterChar));
  if (FMaxLength > 0 && std::cmp_greater(valid.size(), FMaxLength)) valid.resize(static_cast<std::size_t>(FMaxLength));
  return valid;
}

std::u16string TCustomEditModel::Admitted(std::u16string_view text, std::int32_t staying) const {
  const std::u16string allowed = Cased(FilteredCharacters(text, FFilterChar));
  if (FMaxLength <= 0) return allowed;
  return std::u16string(CutAtCharacter(allowed, SaturatedDifference(FMaxLength, staying)));
}

void TCustomEditModel::SetRest(std::u16string_view text) {
  if (Rules().Contains(TEditRule::WholeCharacters))
    SetTextWithoutValidation(text);
  else
    SetText(text);
}

void TCustomEditModel::SetText(std::u16string_view text) {
  SetTextWithoutValidation(Validated(text));
}

void TCustomEditModel::SetTextWithoutValidation(std::u16string_view text) {
  if (text == FText) return;
  Send(MMTextChanging, std::u16string(text));
  FText = text;
  Send(MMTextChanged, FText);
}

void TCustomEditModel::SetCharCase(TCharCase charCase) {
  if (charCase == FCharCase) return;
  FCharCase = charCase;
  Send(MMCharCaseChanged, static_cast<std::int32_t>(charCase));
}

// --- Selection ---

TTextRange TCustomEditModel::Selection() const {
  const std::int64_t start = FSelStart;
  const auto length = static_cast<std::int64_t>(FText.size());
  const auto low = std::clamp<std::int64_t>(std::min(start, start + FSelLength), 0, length);
  const auto high = std::clamp<std::int64_t>(std::max(start, start + FSelLength), 0, length);
  return {static_cast<std::int32_t>(low), static_cast<std::int32_t>(high - low)};
}

std::u16string TCustomEditModel::SelectedText() const {
  const TTextRange range = Selection();
  return FText.substr(static_cast<std::size_t>(range.Pos), static_cast<std::size_t>(range.Length));
}

// --- Behaviour ---

void TCustomEditModel::SetReadOnly(bool readOnly) {
  FCaret.SetReadOnly(readOnly);
  Change(FReadOnly, readOnly, MMReadOnlyChanged);
}

void TCustomEditModel::SetImeMode(TImeMode mode) {
  if (mode == FImeMode) return;
  FImeMode = mode;
  Send(MMImeModeChanged);
}

void TCustomEditModel::Change() {
  if (const auto event = OnChange) event();
}

std::int32_t TCustomEditModel::GetCaretPositionByPoint(TPointF point) {
  const TMessageValue answer = Send(MMGetCaretPositionByPoint, point);
  const auto* position = std::get_if<std::int32_t>(&answer);
  return position != nullptr ? *position : FCaretPosition;
}

}  // namespace fmx
