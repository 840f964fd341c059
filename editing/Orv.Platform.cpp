#include "editing/Orv.Platform.h"

#include "editing/Orv.Text.h"

namespace orv {
namespace {

using TDraw = Fill<fmx::TTextService::TSlots::DrawSingleLine, &TTextServiceOrvFake::DrawSingleLine>;

}  // namespace

TClass TTextServiceOrvFake::Class() {
  return CompiledClass<TTextServiceOrvFake, fmx::TTextService, TDraw>("Orv.Platform", "TTextServiceOrvFake");
}

void TTextServiceOrvFake::DrawSingleLine(fmx::TTextService& self, fmx::TCanvas& canvas,
                                         const fmx::TSingleLineDrawing& drawing) {
  const bool rightToLeft = drawing.Flags.Contains(fmx::TFillTextFlag::RightToLeft);
  self.DrawSingleLineText(canvas, CutTextForView(self.CombinedText(), rightToLeft, drawing.FirstVisibleChar - 1),
                          drawing);
}

TClass GetPlatformFakeTextServiceClass(TMethodAddress& method) {
  method = TDraw::Address();
  return TTextServiceOrvFake::Class();
}

}  // namespace orv
