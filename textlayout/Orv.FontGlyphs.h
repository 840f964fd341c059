// Where the glyphs of the layouts come from: one character, its metrics, picture and outline.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "fmx/FontGlyph.h"
#include "fmx/FontGlyphManager.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv {

// A character for a glyph manager: its code points and a terminating 0, so that a single one takes two entries.
using TGlyphChars = std::span<const UCS4Char>;

// The first entry; 0 for an empty array. Whether there is exactly one character.
UCS4Char GetAsChar(TGlyphChars chars);
bool IsChar(TGlyphChars chars);

enum class TRightToLeftOption : std::uint8_t {
  LeftToRight = 0,
  RightToLeft = 1,
  ByContextDefaultLeftToRight = 2,
  ByContextDefaultRightToLeft = 3
};

// Metrics that outlive their glyph.
struct TFontGlyphAdvanceInfo {
  explicit TFontGlyphAdvanceInfo(const fmx::TFontGlyph& glyph)
      : FOrigin(glyph.Origin), FAdvance(glyph.Advance), FVerticalAdvance(glyph.VerticalAdvance) {}
  fmx::TPoint FOrigin;
  float FAdvance;
  float FVerticalAdvance;
};

enum class TOrvResourceType : std::uint8_t { AppResource = 0, File = 1, ResFile = 2 };

// Makes glyphs with one font loaded at a time, and decides by the registered handlers which characters keep colours of
// their own. A platform derives from it. One thread.
class TFontGlyphManagerOrv {
 public:
  // A font that the application brought along.
  struct TOrvFontResInfo {
    TOrvResourceType ResourceType = TOrvResourceType::AppResource;
    std::u16string ResString;
    bool RequireFontRenderer = false;
  };

  // Whether the character is colourful.
  using TCharacterHandleFunction = bool (*)(TGlyphChars);
  struct TMethodDescriptor {
    TCharacterHandleFunction Method = nullptr;
    bool OverrideValue = false;  // its answer stands in the place of those before, instead of joining them

    static TMethodDescriptor Create(TCharacterHandleFunction method, bool overrideValue) {
      return {method, overrideValue};
    }
  };

  virtual ~TFontGlyphManagerOrv() = default;
  TFontGlyphManagerOrv(const TFontGlyphManagerOrv&) = delete;
  TFontGlyphManagerOrv& operator=(const TFontGlyphManagerOrv&) = delete;

  // The manager of the process. Without one set, it is made at the first call of the back end that is registered with
  // the framework, anew when another one is registered there; raises fmx::ENotRegistered where there is none. The
  // reference holds up to the next SetCurrent or registration.
  static TFontGlyphManagerOrv& Current();
  // Takes its place; null goes back to the registered back end.
  static void SetCurrent(std::unique_ptr<TFontGlyphManagerOrv> manager);
  // Changes whenever Current is another manager: glyphs kept from before are out of date.
  static std::uint64_t Generation();

  // Lengths in device pixels at the scale. The font is loaded where it is not the one of the request before: families
  // are equal without regard to case, sizes within 0.01, scales within 0.0001.
  fmx::TFontGlyph GetGlyph(TGlyphChars chars, const fmx::TFont& font, float scale, fmx::TFontGlyphSettings settings);
  float GetBaseline(const fmx::TFont& font, float scale);

  // False for white space in an array of less than three entries.
  static bool HasGlyph(TGlyphChars chars);

  // Whether runs in that font are shaped by the internal text layout of the platform instead of glyph by glyph. False
  // here; over a back end its answer, and true for a font that was registered so.
  virtual bool FontRendererRequired(const fmx::TFont& font) const;

  // Whether the platform has such an engine, and its work; the request's font is that font at that scale.
  virtual bool CanShape() const { return false; }
  virtual fmx::TShapedText Shape(fmx::TShapeRequest, const fmx::TFont&, float /*scale*/) { return {}; }

  static void RegisterCharacterHandleMethod(TCharacterHandleFunction method, bool overrideValue);
  // Deletes the first handler that differs from the method: callers are used to that.
  static void UnRegisterCharacterHandleMethod(TCharacterHandleFunction method);
  static std::span<const TMethodDescriptor> Methods() { return FMethods; }

  // Fonts by family: what the application brought along. A family is looked for here first.
  static std::map<std::u16string, TOrvFontResInfo>& FontsList();
  // The entry of a family, without regard to letter case; null where there is none.
  static const TOrvFontResInfo* FindFont(std::u16string_view family);

  void UnInitialize() {}

 protected:
  TFontGlyphManagerOrv() = default;

  // For the destructor of each derived class, whose FreeResource is gone later.
  void FreeLoaded();

  // Loads FCurrentSettings; frees what is loaded. A manager makes glyphs of the loaded font by these rules: an advance
  // of 0 for U+FC5E to U+FC62 and U+FE70 to U+FE7D; a character of two units has the advance of its extent and no
  // bearing; any other has the sum of its bearings and its ink. Pictures are white with the coverage as alpha, or, as
  // grey, the coverage in all four parts.
  virtual void LoadResource() = 0;
  virtual void FreeResource() = 0;
  virtual fmx::TFontGlyph DoGetGlyph(TGlyphChars chars, fmx::TFontGlyphSettings settings, bool colorful) = 0;
  virtual float DoGetBaseline() = 0;
  // The handlers' word, in their order.
  virtual bool IsColorfulCharacter(TGlyphChars chars) const;

  const fmx::TFontSettings& CurrentSettings() const { return FCurrentSettings; }

 private:
  void Load(const fmx::TFont& font, float scale);

  fmx::TFontSettings FCurrentSettings;
  bool FLoaded = false;

  static inline std::vector<TMethodDescriptor> FMethods;
};

// A manager over one of the framework's glyph back ends, such as the platform's rasteriser or fmx::TFixedGlyphs.
class TBackEndFontGlyphManager : public TFontGlyphManagerOrv {
 public:
  explicit TBackEndFontGlyphManager(std::unique_ptr<fmx::TFontGlyphBackEnd> backEnd) : FBackEnd(std::move(backEnd)) {}
  ~TBackEndFontGlyphManager() override { FreeLoaded(); }
  bool FontRendererRequired(const fmx::TFont& font) const override;
  bool CanShape() const override { return FBackEnd->CanShape(); }
  fmx::TShapedText Shape(fmx::TShapeRequest request, const fmx::TFont& font, float scale) override;

 protected:
  void LoadResource() override { FBackEnd->LoadResource(CurrentSettings()); }
  void FreeResource() override { FBackEnd->FreeResource(); }
  fmx::TFontGlyph DoGetGlyph(TGlyphChars chars, fmx::TFontGlyphSettings settings, bool colorful) override;
  float DoGetBaseline() override { return FBackEnd->DoGetBaseline(); }

 private:
  std::unique_ptr<fmx::TFontGlyphBackEnd> FBackEnd;
  // The last answer for an installed font: layouts ask for each run.
  mutable std::optional<std::u16string> FAskedFamily;
  mutable bool FAskedAnswer = false;
};

}  // namespace orv
