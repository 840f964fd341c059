#include "examples/gallery/Switches.h"

#include <cctype>
#include <string_view>

#include "tools/orv/eval/Names.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace gallery {
namespace {

using TSettings = orv::TOrvGlobalSettings;

template <typename T>
TSwitch Choice(const char16_t* caption, T& setting, T value) {
  return {caption, true, [&setting, value] { return setting == value; }, [&setting, value] { setting = value; }};
}

template <typename TSet, typename TItem>
TSwitch Toggle(std::string_view name, TSet& set, TItem item) {
  return {Spoken(name), false, [&set, item] { return set.Contains(item); },
          [&set, item] {
            if (set.Contains(item))
              set.Exclude(item);
            else
              set.Include(item);
          }};
}

TGroup Pages(TLook& look) {
  return {u"Page", {Choice(u"Text", look.Page, TPageName::Text), Choice(u"Edit boxes", look.Page, TPageName::Edit)}};
}

TGroup Looks(TLook& look) {
  return {u"Look", {Choice(u"Light", look.IsDark, false), Choice(u"Dark", look.IsDark, true)}};
}

TGroup Ways() {
  return {u"Way",
          {Choice(u"By the rules", TSettings::Corrections, orv::TOrvCorrections{}),
           Choice(u"Corrected", TSettings::Corrections, orv::AllCorrections)}};
}

TGroup Equations() {
  using TOrder = TSettings::TMathOrder;
  return {u"Equations",
          {Choice(u"Left to right", TSettings::EquationOrder, TOrder::LeftToRight),
           Choice(u"Right to left", TSettings::EquationOrder, TOrder::ArabicRightToLeft)}};
}

TGroup Digits() {
  using TType = TSettings::TArabicDigitType;
  return {u"Digits",
          {Choice(u"Arabic", TSettings::ArabicDigitType, TType::ArabicDigitType1),
           Choice(u"Persian", TSettings::ArabicDigitType, TType::ArabicDigitType2),
           Choice(u"Latin", TSettings::ArabicDigitType, TType::Latin)}};
}

TGroup Options() {
  TGroup group{u"Options", {}};
  for (const auto& [name, option] : orv::eval::OptionNames)
    group.Switches.push_back(Toggle(name, TSettings::Options, option));
  return group;
}

// The corrections from PixelScroll on are those of the edit box.
TGroup Corrections(const char16_t* title, TPageName page) {
  TGroup group{title, {}};
  for (const auto& [name, correction] : orv::eval::CorrectionNames)
    if ((correction >= orv::TOrvCorrection::PixelScroll) == (page == TPageName::Edit))
      group.Switches.push_back(Toggle(name, TSettings::Corrections, correction));
  return group;
}

}  // namespace

std::u16string Spoken(std::string_view name) {
  const auto isUpper = [name](std::size_t i) {
    return i < name.size() && std::isupper(static_cast<unsigned char>(name[i])) != 0;
  };
  std::u16string spoken;
  for (std::size_t i = 0; i < name.size(); ++i) {
    // A word begins with an upper letter behind a lower one, or with the last of several before a lower one.
    const bool begins = i > 0 && isUpper(i) && (!isUpper(i - 1) || (i + 1 < name.size() && !isUpper(i + 1)));
    const bool inAcronym = isUpper(i) && (isUpper(i + 1) || (i > 0 && isUpper(i - 1) && !begins));
    if (begins) spoken += u' ';
    const auto c = static_cast<unsigned char>(name[i]);
    spoken += static_cast<char16_t>(i == 0 || inAcronym ? c : std::tolower(c));
  }
  return spoken;
}

std::vector<TGroup> MakeSwitches(TLook& look) {
  std::vector<TGroup> groups{Pages(look), Looks(look), Ways()};
  const bool edits = look.Page == TPageName::Edit;
  if (edits) groups.push_back(Corrections(u"Corrections of the boxes", TPageName::Edit));
  for (TGroup (*make)() : {Equations, Digits, Options}) groups.push_back(make());
  groups.push_back(Corrections(edits ? u"Corrections of the text" : u"Corrections", TPageName::Text));
  return groups;
}

}  // namespace gallery
