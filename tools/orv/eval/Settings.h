// The settings of a request: laid over the defaults for that request alone.
#pragma once

#include <optional>

#include "rtl/Clock.h"
#include "rtl/FormatSettings.h"
#include "tools/orv/eval/Arguments.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv::eval {

// Holds the process-wide settings at the request's values while it lives, and puts the former ones back. Raises
// BadRequest, changing nothing, when the request's settings cannot be read.
class TSettingsScope {
 public:
  explicit TSettingsScope(const TArguments& request);
  ~TSettingsScope();
  TSettingsScope(const TSettingsScope&) = delete;
  TSettingsScope& operator=(const TSettingsScope&) = delete;

 private:
  struct TState {
    TOrvGlobalSettings::TMathOrder EquationOrder = TOrvGlobalSettings::TMathOrder::LeftToRight;
    TOrvGlobalSettings::TArabicDigitType ArabicDigitType = TOrvGlobalSettings::TArabicDigitType::ArabicDigitType1;
    TOrvGlobalOptions Options;
    TOrvEditorOptions EditorOptions;
    TOrvCorrections Corrections = AllCorrections;
    rtl::TFormatSettings FormatSettings = SettingsAtStart();
    std::optional<rtl::TDateTime> Today;  // the clock; the computer's own when empty
  };
  // What the library's start-up leaves in force.
  static rtl::TFormatSettings SettingsAtStart();
  static TState Current();
  static void Put(const TState& state);
  static TState Read(const TJson& settings);

  TState FFormer;
  std::optional<rtl::TClockScope> FClock;
};

}  // namespace orv::eval
