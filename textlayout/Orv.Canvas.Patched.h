// Layout classes generated out of a framework's layout, which keep its shaping and take the system's direction.
#pragma once

#include <span>

#include "runtime/RewritableClass.h"
#include "runtime/VirtualClassGenerator.h"
#include "textlayout/Orv.TextLayout.h"

namespace orv {

// Makes a class out of the layout class, named after it with "Orv" behind, with the methods of fake in those slots and
// with TPatchedLayoutFields behind its fields, and registers it for the canvas class. A layout class that has the
// first of the methods already is registered as it stands. Raises EAssertionFailed for a class that is no layout. Main
// thread.
void RegisterPatchedLayout(TClass canvasClass, TClass layoutClass, TClass fake, std::span<const TFilledSlot> replaced);

// Sets the direction of a layout of such a class by its selection type. WrappedClass tells of which class.
void UpdatePatchedDirection(fmx::TTextLayout& layout, TClass wrapped);

}  // namespace orv
