#include "tools/orv/eval/Settings.h"

#include "calendar/classic/InitLocale.h"
#include "tools/orv/eval/Names.h"

namespace orv::eval {
namespace {

template <typename TSetType, typename E, std::size_t N>
TSetType ReadSet(std::string_view setting, const TJson& names, const TNamed<E> (&table)[N]) {
  if (!names.is_array()) throw BadRequest("'" + std::string(setting) + "' must be an array of names");
  TSetType set;
  for (const TJson& name : names) set.Include(Named(setting, name, table));
  return set;
}

TOrvCorrections ReadCorrections(const TJson& value) {
  if (value == "all") return AllCorrections;
  if (value == "none") return {};
  return ReadSet<TOrvCorrections>("Corrections", value, CorrectionNames);
}

TOrvEditorOptions ReadEditorOptions(const TJson& value) {
  if (!value.is_object()) throw BadRequest("'EditorOptions' must be an object");
  TOrvEditorOptions options;
  const TArguments fields(value);
  for (const auto& [name, field] : value.items()) {
    if (name == "DirectionSelection") {
      options.DirectionSelection = fields.Enum(name, DirectionSelectionNames);
    } else if (name == "FlasherOption") {
      options.FlasherOption = fields.Enum(name, FlasherOptionNames);
    } else if (name == "CaretPositioning") {
      options.CaretPositioning = fields.Enum(name, CaretPositioningNames);
    } else if (name == "CaretMinEdgeDistanceCoEfficient") {
      options.CaretMinEdgeDistanceCoEfficient = static_cast<float>(fields.Number(name));
    } else if (name == "TextOverrunOption") {
      options.TextOverrunOption = fields.Enum(name, TextOverrunNames);
    } else if (name == "PasswordChar") {
      options.PasswordChar = fields.CodeUnit(name);
    } else if (name == "SelectionTextDefaultColor") {
      options.SelectionTextDefaultColor = static_cast<std::uint32_t>(fields.Integer(name, 0, 0xFFFFFFFF));
    } else {
      throw BadRequest("'EditorOptions' has no field named '" + name + "'");
    }
  }
  return options;
}

}  // namespace

TSettingsScope::TSettingsScope(const TArguments& request) : FFormer(Current()) {
  const TState state = request.Has("settings") ? Read(request.At("settings")) : TState();
  Put(state);
  if (state.Today) FClock.emplace(*state.Today);
}

TSettingsScope::~TSettingsScope() {
  Put(FFormer);
}

rtl::TFormatSettings TSettingsScope::SettingsAtStart() {
  rtl::TFormatSettings settings;
  MakePersian(settings);
  return settings;
}

TSettingsScope::TState TSettingsScope::Current() {
  using S = TOrvGlobalSettings;
  return {S::EquationOrder, S::ArabicDigitType,    S::Options, S::EditorOptions,
          S::Corrections,   rtl::FormatSettings(), {}};
}

void TSettingsScope::Put(const TState& state) {
  using S = TOrvGlobalSettings;
  S::EquationOrder = state.EquationOrder;
  S::ArabicDigitType = state.ArabicDigitType;
  S::Options = state.Options;
  S::EditorOptions = state.EditorOptions;
  S::Corrections = state.Corrections;
  rtl::FormatSettings() = state.FormatSettings;
}

TSettingsScope::TState TSettingsScope::Read(const TJson& settings) {
  if (!settings.is_object()) throw BadRequest("'settings' must be an object");
  TState state;
  const TArguments fields(settings);
  for (const auto& [name, value] : settings.items()) {
    if (name == "EquationOrder") {
      state.EquationOrder = fields.Enum(name, MathOrderNames);
    } else if (name == "ArabicDigitType") {
      state.ArabicDigitType = fields.Enum(name, DigitTypeNames);
    } else if (name == "Options") {
      state.Options = ReadSet<TOrvGlobalOptions>(name, value, OptionNames);
    } else if (name == "EditorOptions") {
      state.EditorOptions = ReadEditorOptions(value);
    } else if (name == "Corrections") {
      state.Corrections = ReadCorrections(value);
    } else if (name == "DateSeparator") {
      state.FormatSettings.DateSeparator = fields.CodeUnit(name);
    } else if (name == "Today") {
      state.Today = fields.Number(name);
    } else {
      throw BadRequest("'settings' has no member named '" + name + "'");
    }
  }
  return state;
}

}  // namespace orv::eval
