#include "textlayout/Orv.FontGlyphs.h"

#include <algorithm>

#include "rtl/Unicode.h"

namespace orv {
namespace {

struct TCurrentManager {
  std::unique_ptr<TFontGlyphManagerOrv> Manager;
  bool IsDefault = true;     // of the framework's back end
  std::uint64_t MadeAt = 0;  // the framework's generation of a default one
  std::uint64_t Changes = 0;
};

TCurrentManager& State() {
  static TCurrentManager state;
  return state;
}

}  // namespace

UCS4Char GetAsChar(TGlyphChars chars) {
  return chars.empty() ? 0 : chars.front();
}

bool IsChar(TGlyphChars chars) {
  return chars.size() == 2;
}

// --- The manager of the process ---

TFontGlyphManagerOrv& TFontGlyphManagerOrv::Current() {
  TCurrentManager& state = State();
  if (!state.Manager || (state.IsDefault && state.MadeAt != fmx::TFontGlyphManager::Generation())) {
    state.Manager = std::make_unique<TBackEndFontGlyphManager>(fmx::TFontGlyphManager::MakeBackEnd());
    state.IsDefault = true;
    state.MadeAt = fmx::TFontGlyphManager::Generation();
    ++state.Changes;
  }
  return *state.Manager;
}

void TFontGlyphManagerOrv::SetCurrent(std::unique_ptr<TFontGlyphManagerOrv> manager) {
  TCurrentManager& state = State();
  state.IsDefault = !manager;
  state.Manager = std::move(manager);
  ++state.Changes;
}

std::uint64_t TFontGlyphManagerOrv::Generation() {
  return State().Changes + fmx::TFontGlyphManager::Generation();  // both only ever grow
}

// --- The current font ---

namespace {

bool IsSameFamily(std::u16string_view a, std::u16string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char16_t x, char16_t y) { return x == y || rtl::ToLower(x) == rtl::ToLower(y); });
}

// With the file of a family that the application brought along.
fmx::TFontSettings SettingsOf(const fmx::TFont& font, float scale) {
  fmx::TFontSettings settings = fmx::TFontSettings::Of(font, scale);
  const auto* own = TFontGlyphManagerOrv::FindFont(font.Family());
  if (own != nullptr && own->ResourceType != TOrvResourceType::AppResource) settings.File = own->ResString;
  return settings;
}

}  // namespace

void TFontGlyphManagerOrv::Load(const fmx::TFont& font, float scale) {
  fmx::TFontSettings settings = SettingsOf(font, scale);
  if (FLoaded && settings.IsSameAs(FCurrentSettings)) return;
  FreeLoaded();
  FCurrentSettings = std::move(settings);
  LoadResource();
  FLoaded = true;
}

void TFontGlyphManagerOrv::FreeLoaded() {
  if (!FLoaded) return;
  FLoaded = false;
  FreeResource();
}

fmx::TFontGlyph TFontGlyphManagerOrv::GetGlyph(TGlyphChars chars, const fmx::TFont& font, float scale,
                                               fmx::TFontGlyphSettings settings) {
  Load(font, scale);
  return DoGetGlyph(chars, settings, IsColorfulCharacter(chars));
}

float TFontGlyphManagerOrv::GetBaseline(const fmx::TFont& font, float scale) {
  Load(font, scale);
  return DoGetBaseline();
}

bool TFontGlyphManagerOrv::HasGlyph(TGlyphChars chars) {
  return !(chars.size() < 3 && rtl::IsWhiteSpace(GetAsChar(chars)));
}

bool TFontGlyphManagerOrv::FontRendererRequired(const fmx::TFont&) const {
  return false;
}

std::map<std::u16string, TFontGlyphManagerOrv::TOrvFontResInfo>& TFontGlyphManagerOrv::FontsList() {
  static std::map<std::u16string, TOrvFontResInfo> fonts;
  return fonts;
}

const TFontGlyphManagerOrv::TOrvFontResInfo* TFontGlyphManagerOrv::FindFont(std::u16string_view family) {
  const auto& fonts = FontsList();
  const auto found =
      std::find_if(fonts.begin(), fonts.end(), [&](const auto& each) { return IsSameFamily(each.first, family); });
  return found == fonts.end() ? nullptr : &found->second;
}

// --- Handlers ---

void TFontGlyphManagerOrv::RegisterCharacterHandleMethod(TCharacterHandleFunction method, bool overrideValue) {
  if (method != nullptr) FMethods.push_back(TMethodDescriptor::Create(method, overrideValue));
}

void TFontGlyphManagerOrv::UnRegisterCharacterHandleMethod(TCharacterHandleFunction method) {
  const auto other = std::find_if(FMethods.begin(), FMethods.end(),
                                  [method](const TMethodDescriptor& each) { return each.Method != method; });
  if (other != FMethods.end()) FMethods.erase(other);
}

bool TFontGlyphManagerOrv::IsColorfulCharacter(TGlyphChars chars) const {
  bool colorful = false;
  for (const TMethodDescriptor& each : FMethods) {
    const bool answer = each.Method(chars);
    colorful = each.OverrideValue ? answer : colorful || answer;
  }
  return colorful;
}

// --- Over a back end ---

bool TBackEndFontGlyphManager::FontRendererRequired(const fmx::TFont& font) const {
  if (const TOrvFontResInfo* own = FindFont(font.Family()))
    return own->RequireFontRenderer || FBackEnd->FontRendererRequired(SettingsOf(font, 1));
  if (FAskedFamily != font.Family()) {
    FAskedAnswer = FBackEnd->FontRendererRequired(SettingsOf(font, 1));
    FAskedFamily = font.Family();
  }
  return FAskedAnswer;
}

fmx::TShapedText TBackEndFontGlyphManager::Shape(fmx::TShapeRequest request, const fmx::TFont& font, float scale) {
  request.Font = SettingsOf(font, scale);
  return FBackEnd->Shape(request);
}

fmx::TFontGlyph TBackEndFontGlyphManager::DoGetGlyph(TGlyphChars chars, fmx::TFontGlyphSettings settings,
                                                     bool colorful) {
  if (!chars.empty()) chars = chars.first(chars.size() - 1);  // back ends do without the terminator
  return FBackEnd->DoGetGlyph(chars, settings, colorful);
}

}  // namespace orv
