// Where glyphs come from.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

#include "fmx/FontGlyph.h"
#include "fmx/ShapedText.h"

namespace fmx {

// What a platform supplies to have text: a maker of glyphs with one font loaded at a time. Belongs to the thread that
// lays out and paints.
class TFontGlyphBackEnd {
 public:
  virtual ~TFontGlyphBackEnd() = default;

  // Loads the font, in place of the one before. A family that is not there, or is empty, falls back to another one:
  // every request gives some font.
  virtual void LoadResource(const TFontSettings& settings) = 0;
  virtual void FreeResource() = 0;

  // The glyph of the characters, code points without a terminator: one of them, in ordinary use. What no font has is a
  // box. colorful is set where the glyph should keep its own colours. Rules of the advance: 0 for the marks that stand
  // on the letter before them, U+FC5E to U+FC62 and U+FE70 to U+FE7D; otherwise the sum of the left bearing, the ink
  // and the right bearing. The bitmap's origin is (Trunc(left bearing), 0), and (0, 0) for a character of two UTF-16
  // units, whose advance is its extent; the second figure is below 0 where the ink begins above the line. Raises
  // EBitmapSizeTooBig for a bitmap beyond fmx/Limits.h, as at a huge scale: the plain layout then draws nothing for the
  // character. A font is loaded when it is called.
  virtual TFontGlyph DoGetGlyph(std::span<const std::uint32_t> chars, TFontGlyphSettings settings, bool colorful) = 0;

  // From the top of the line to the base line, whole device pixels. A font is loaded when it is called.
  virtual float DoGetBaseline() = 0;

  // Whether runs in the font are to be shaped as a whole by the platform's own text engine, instead of glyph by glyph.
  // May be called while no font is loaded, or another one; leaves it as it is.
  virtual bool FontRendererRequired(const TFontSettings&) { return false; }
  // Whether there is such an engine, and its work, in any font: clusters of nothing where there is none.
  virtual bool CanShape() const { return false; }
  virtual TShapedText Shape(const TShapeRequest&) { return {}; }
};

using TFontGlyphBackEndFactory = std::function<std::unique_ptr<TFontGlyphBackEnd>()>;

// Glyphs for the plain layout of this framework, by a back end that keeps its font loaded as long as it is asked for
// the same one. One thread.
class TFontGlyphManager {
 public:
  // The makers of back ends; each manager has a back end of its own. Takes the place of the factory before; an empty
  // one takes it away. The current manager is made anew.
  static void RegisterBackEnd(TFontGlyphBackEndFactory factory);
  // Raises ENotRegistered without a factory.
  static std::unique_ptr<TFontGlyphBackEnd> MakeBackEnd();

  // The manager of the process, made at the first call. Raises ENotRegistered. The reference holds up to the next
  // RegisterBackEnd.
  static TFontGlyphManager& Current();

  // Counts the calls of RegisterBackEnd: what was kept of glyphs made before is out of date.
  static std::uint64_t Generation();

  explicit TFontGlyphManager(std::unique_ptr<TFontGlyphBackEnd> backEnd) : FBackEnd(std::move(backEnd)) {}
  ~TFontGlyphManager();
  TFontGlyphManager(const TFontGlyphManager&) = delete;
  TFontGlyphManager& operator=(const TFontGlyphManager&) = delete;

  TFontGlyph GetGlyph(std::uint32_t character, const TFont& font, float scale, TFontGlyphSettings settings);
  float GetBaseline(const TFont& font, float scale);

 private:
  void Load(const TFont& font, float scale);

  std::unique_ptr<TFontGlyphBackEnd> FBackEnd;
  TFontSettings FSettings;
  bool FLoaded = false;
};

}  // namespace fmx
