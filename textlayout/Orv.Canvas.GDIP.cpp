#include "textlayout/Orv.Canvas.GDIP.h"

#include "textlayout/Orv.Canvas.Patched.h"
#include "textlayout/Orv.Canvas.Wrapped.h"

namespace orv {
namespace {

using TSlots = fmx::TTextLayout::TSlots;
using TRender = Fill<TSlots::DoRenderLayout, &TTextLayoutGDIPlusOrvFake::DoRenderLayout>;

}  // namespace

TClass TTextLayoutGDIPlusOrvFake::Class() {
  return CompiledClass<TTextLayoutGDIPlusOrvFake, fmx::TTextLayout, TRender>("Orv.Canvas.GDIP",
                                                                             "TTextLayoutGDIPlusOrvFake");
}

void TTextLayoutGDIPlusOrvFake::DoRenderLayout(fmx::TTextLayout& self) {
  const TClass wrapped = WrappedClass<TSlots::DoRenderLayout>(self.ClassType(), &DoRenderLayout);
  UpdatePatchedDirection(self, wrapped);
  Record(wrapped).Slot<TSlots::DoRenderLayout>()(self);
}

namespace gdip {

void RegisterTextLayout(TClass canvasClass, TClass layoutClass) {
  const TFilledSlot replaced[] = {{TSlots::DoRenderLayout::Number, TRender::Address()}};
  RegisterPatchedLayout(canvasClass, layoutClass, TTextLayoutGDIPlusOrvFake::Class(), replaced);
}

}  // namespace gdip
}  // namespace orv
