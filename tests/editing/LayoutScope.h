// Glyphs of fixed sizes, a recording canvas as the default, and the system's layout for it, while it lives.
#pragma once

#include <memory>

#include "fmx/CanvasManager.h"
#include "fmx/FixedGlyphs.h"
#include "fmx/GlyphsManager.h"
#include "fmx/RecordingCanvas.h"
#include "fmx/TextLayoutManager.h"
#include "textlayout/Orv.FontGlyphs.h"
#include "textlayout/Orv.TextLayout.GPU.h"
#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv::testing {

class TLayoutScope {
 public:
  TLayoutScope() : FCorrections(TOrvGlobalSettings::Corrections), FEditorOptions(TOrvGlobalSettings::EditorOptions) {
    TOrvGlobalSettings::Corrections = {};
    TFontGlyphManagerOrv::SetCurrent(std::make_unique<TBackEndFontGlyphManager>(std::make_unique<fmx::TFixedGlyphs>()));
    fmx::TCanvasManager::RegisterCanvas(fmx::TRecordingCanvas::Class(), true, false);
    fmx::TTextLayoutManager::RegisterTextLayout(TTextLayoutNGOrv::Class(), fmx::TRecordingCanvas::Class());
  }
  ~TLayoutScope() {
    fmx::TCanvasManager::UnInitialize();
    fmx::TTextLayoutManager::UnInitialize();
    TFontGlyphManagerOrv::SetCurrent(nullptr);
    TOrvGlobalSettings::Corrections = FCorrections;
    TOrvGlobalSettings::EditorOptions = FEditorOptions;
  }
  TLayoutScope(const TLayoutScope&) = delete;
  TLayoutScope& operator=(const TLayoutScope&) = delete;

 private:
  TOrvCorrections FCorrections;
  TOrvEditorOptions FEditorOptions;
};

}  // namespace orv::testing
