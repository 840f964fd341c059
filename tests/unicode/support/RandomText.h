// Texts and settings drawn from a seed: the same on every machine.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv::testing {

// A small generator of our own: the standard distributions differ from library to library.
class TRandom {
 public:
  explicit TRandom(std::uint64_t seed) : FState(seed * 0x9E3779B97F4A7C15ULL + 0x1234567ULL) {}

  std::uint64_t Next();
  std::uint32_t Below(std::uint32_t bound);  // 0 to bound - 1
  bool OneIn(std::uint32_t count) { return Below(count) == 0; }

 private:
  std::uint64_t FState;
};

// A text to try the engine with: now drawn unit by unit from classes weighted so that every rule is met, now from a
// handful of units only, now put together from phrases that the number rules know, now prose with a few exceptions.
// Mostly short; every hundredth a few hundred units long.
std::u16string RandomText(TRandom& random);

// A text of about that length.
std::u16string RandomText(TRandom& random, std::size_t length);

// One unit of every class that the rules tell apart, for walking short strings whole.
std::span<const char16_t> ClassRepresentatives();

// Any paragraph kind, also the values that only the flags make.
TParagraphBidi RandomParagraph(TRandom& random);

// The process-wide settings as a value.
struct TSettings {
  TOrvGlobalSettings::TMathOrder EquationOrder = TOrvGlobalSettings::TMathOrder::LeftToRight;
  TOrvGlobalSettings::TArabicDigitType ArabicDigitType = TOrvGlobalSettings::TArabicDigitType::ArabicDigitType1;
  TOrvGlobalOptions Options = {};
  TOrvCorrections Corrections = {};
  char16_t DateSeparator = u'/';
};
std::string Shown(const TSettings& settings);

// Any settings, without corrections.
TSettings RandomSettings(TRandom& random);
TOrvCorrections RandomCorrections(TRandom& random);

// Holds the process-wide settings at a value while it lives, and puts the former ones back. Without an argument: the
// defaults with no correction, which is what a test of a rule wants.
class TSettingsGuard {
 public:
  TSettingsGuard() : TSettingsGuard(TSettings{}) {}
  explicit TSettingsGuard(const TSettings& settings);
  ~TSettingsGuard();
  TSettingsGuard(const TSettingsGuard&) = delete;
  TSettingsGuard& operator=(const TSettingsGuard&) = delete;

 private:
  TSettings FFormer;
};

// A text with its units readable: ASCII as it is, everything else as \uXXXX.
std::string Shown(std::u16string_view text);
std::string Shown(const TDirectionalRuns& runs);

// The shortest text that still fails, found by leaving units out.
std::u16string Shrink(std::u16string text, const std::function<bool(std::u16string_view)>& fails);

// How often to repeat a random trial: many where the code runs at full speed, fewer under the sanitizers.
int Trials(int atFullSpeed);

}  // namespace orv::testing
