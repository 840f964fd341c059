// The fonts that are installed, as fontconfig knows them.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "fmx/Font.h"

namespace orv::platform {

// One face in a font file.
struct TFontFile {
  std::string Path;
  int Index = 0;  // the face's number in the file, with the instance of a variable font in the upper 16 bits
  std::string Family;
  bool Heavy = false;    // semi-bold or more
  bool Slanted = false;  // italic or oblique

  friend bool operator==(const TFontFile&, const TFontFile&) = default;
};

// Reads the installed fonts once, when it is made; fonts installed later are not seen. Holds a configuration of its
// own, so that catalogs and other users of the library do not meet. Its operations may be called from any thread.
class TFontCatalog {
 public:
  TFontCatalog();  // raises EFontError where the configuration cannot be read
  ~TFontCatalog();
  TFontCatalog(TFontCatalog&&) noexcept;
  TFontCatalog& operator=(TFontCatalog&&) noexcept;

  // The face of that family, upright or, where asked and there is one, slanted, with the nearest weight; nothing when
  // no such family is installed. Letter case is ignored. "sans-serif", "serif" and "monospace" name what the system
  // shows for them.
  std::optional<TFontFile> Find(const std::string& family, fmx::TFontWeight weight = fmx::TFontWeight::Regular,
                                fmx::TFontSlant slant = fmx::TFontSlant::Regular) const;

  // Every outline font, nearest to the family first; fonts that add no character to those before them are left out.
  // Takes some milliseconds.
  std::vector<TFontFile> Nearest(const std::string& family, fmx::TFontWeight weight = fmx::TFontWeight::Regular) const;

 private:
  struct TState;
  std::unique_ptr<TState> FState;
};

}  // namespace orv::platform
