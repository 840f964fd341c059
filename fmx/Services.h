// The platform services that drawing and layout ask for. A platform implements those it has and adds them to
// TPlatformServices.
#pragma once

#include <string>
#include <string_view>

#include "fmx/PlatformServices.h"
#include "fmx/TextTypes.h"
#include "runtime/VirtualClass.h"

namespace fmx {

// Registers the platform's canvas classes with TCanvasManager, and their layouts with TTextLayoutManager.
class ICanvasService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{476E5E53-A77A-4ADA-93E3-CA66A8956059}");
  virtual void RegisterCanvasClasses() = 0;
  virtual void UnregisterCanvasClasses() = 0;
};

// Names the class of the text service that edit controls make for themselves.
class ITextServiceClassService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{A5FECE29-9A9C-4E8A-8794-89271EC71F1A}");
  virtual orv::TClass GetTextServiceClass() = 0;
};

class IScreenService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{5A0B3B0A-3A9E-4F0E-9A71-0C5D9B6A4E11}");
  // Device pixels of a logical unit, above 0.
  virtual float GetScreenScale() = 0;
  // The direction of the active form; LeftToRight without one. A host whose forms are not known to TScreen
  // (fmx/Screen.h) answers for them.
  virtual TBiDiMode GetActiveFormBiDiMode();
};

class IFontService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{C7C2F7E2-6A55-4D43-8D5C-2F3E0A9B7D22}");
  virtual std::u16string GetDefaultFontFamilyName() = 0;
  virtual float GetDefaultFontSize() = 0;
};

class IFolderService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{6E0C9A57-2B41-4E63-9D27-58A1C3F0B714}");
  // The folder of the application's documents, without a '/' at its end; empty where there is none.
  virtual std::u16string GetDocumentsFolder() = 0;
};

class IFMXClipboardService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{1F6D8C41-92B4-4C0D-B5E7-7E4A1D3C9F33}");
  // Empty where the clipboard holds no text.
  virtual std::u16string GetText() = 0;
  virtual void SetText(std::u16string_view text) = 0;
};

// What the services say, or what holds without them: scale 1, the direction of TScreen's active form, the family
// "", 12, no folder.
float ScreenScale();
TBiDiMode ActiveFormBiDiMode();
std::u16string DefaultFontFamily();
float DefaultFontSize();
std::u16string DocumentsFolder();

}  // namespace fmx
