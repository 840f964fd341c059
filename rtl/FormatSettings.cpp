#include "rtl/FormatSettings.h"

#include <utility>

namespace rtl {
namespace {

const ILocaleSource*& Source() {
  static const ILocaleSource* source = nullptr;
  return source;
}

}  // namespace

TFormatSettings TFormatSettings::Create(std::u16string_view localeName) {
  if (Source() != nullptr)
    if (auto settings = Source()->FindLocale(localeName)) return *std::move(settings);
  return BuiltInLocale(localeName).value_or(Invariant());
}

const ILocaleSource* SetLocaleSource(const ILocaleSource* source) {
  const ILocaleSource* former = Source();
  Source() = source;
  return former;
}

TFormatSettings& FormatSettings() {
  static TFormatSettings settings;
  return settings;
}

}  // namespace rtl
