// One function for each file of benchmarks: it registers the rows of that file.
#pragma once

namespace orv::bench {

void RegisterProperties();   // rtl_Unicode.cpp
void RegisterSplit();        // unicode_split.cpp
void RegisterAdversarial();  // unicode_adversarial.cpp
void RegisterShape();        // unicode_shape.cpp
void RegisterDays();         // calendar_days.cpp
void RegisterDateText();     // calendar_text.cpp
void RegisterHtml();         // markup_html.cpp
void RegisterRtf();          // markup_rtf.cpp
void RegisterBinPack();      // fmx_BinPack.cpp
void RegisterDispatch();     // runtime_Dispatch.cpp
void RegisterQuads();        // platform_Quads.cpp
void RegisterLayouts();      // textlayout_Paragraphs.cpp
void RegisterHitTests();     // textlayout_HitTests.cpp
void RegisterDrawing();      // textlayout_Drawing.cpp
void RegisterEditKeys();     // editing_Keys.cpp

}  // namespace orv::bench
