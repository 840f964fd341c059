#include "runtime/Marzel.h"

#include <array>
#include <cstddef>

#include "calendar/StartUp.h"
#include "editing/Orv.Edit.Style.h"
#include "editing/Orv.Text.h"
#include "runtime/Orv.Controls.h"
#include "runtime/VirtualClassGenerator.h"
#include "textlayout/Orv.FontGlyphs.h"
#include "textlayout/Orv.TextLayout.Internal.Win.h"
#include "textlayout/Orv.TextLayout.Internal.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv {
namespace {

struct TUnit {
  std::string_view Name;
  void (*Start)() = nullptr;  // null: there is nothing to do but count
  void (*Stop)() = nullptr;
};

void StartFontGlyphs() {
  TFontGlyphManagerOrv::FontsList();  // made, so that fonts can be registered
}
void StartEngine() {
  TOrvGlobalSettings::EquationOrder = TOrvGlobalSettings::TMathOrder::LeftToRight;
}
void StartSettings() {
  TOrvGlobalSettings::EditorOptions = {};
}
void StartClassList() {
  TVirtualClassGenerator::Classes();
}
void StartInternalLayout() {
  TInternalTextLayout::RegisterDefaultInternalTextLayout(nullptr);
}

// The order matters: the engine's settings stand before anything is laid out, what is swapped stands before the editing
// controls that make layouts, and the calendars come last because they change the application's formats.
constexpr TUnit Table[] = {
    {"Orv.FontGlyphs", StartFontGlyphs},
    {"Unicode.Engine.Types", StartEngine},
    {"OrvSystem.GlobalSettings", StartSettings},
    {"VirtualClass", StartClassList, TVirtualClassGenerator::DestroyClassList},
    {"Orv.Platform.Win"},
    {"Orv.Text", SwapTextService},
    {"Orv.TextLayout.Internal.Win", StartInternalLayout},
    {"Orv.SearchBox.Style"},
    {"Orv.Edit.Style", RegisterEditStyle},
    {"Orv.Controls", OrvReady},
    {"Orv.ComboEdit.Style"},
    {"Orv.Memo.Style"},
    {"Orv.StdCtrls"},
    {"Orv.ListView.Appearances"},
    {"InitLocale", StartCalendars},
};
constexpr std::size_t UnitCount = std::size(Table);

std::array<TUnitState, UnitCount>& States() {
  static std::array<TUnitState, UnitCount> states = [] {
    std::array<TUnitState, UnitCount> made;
    for (std::size_t i = 0; i < UnitCount; ++i) made[i] = {Table[i].Name, 0, Table[i].Start != nullptr};
    return made;
  }();
  return states;
}

void Load(const TUnit& unit, std::int32_t& count) {
  if (count == 0 && unit.Start != nullptr) unit.Start();
  ++count;
}

void Unload(const TUnit& unit, std::int32_t& count) {
  if (count == 0 || --count > 0) return;
  if (unit.Stop != nullptr) unit.Stop();
}

}  // namespace

void Install() {
  for (std::size_t i = 0; i < UnitCount; ++i) Load(Table[i], States()[i].LoadCount);
}

void Uninstall() {
  for (std::size_t i = UnitCount; i-- > 0;) Unload(Table[i], States()[i].LoadCount);
}

std::span<const TUnitState> Units() {
  return States();
}

}  // namespace orv
