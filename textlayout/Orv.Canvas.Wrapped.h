// What a replacement in a generated class wraps.
#pragma once

#include "runtime/RewritableClass.h"

namespace orv {

// The class out of which the one with the replacement was generated: the nearest ancestor that has another method in
// the slot. Looked up and not kept, so that any number of classes may carry one replacement, a class generated out of a
// generated one too: that one is wrapped once. The class has the replacement in its slot.
template <typename TTag>
TClass WrappedClass(TClass aClass, typename TTag::TFunction replacement) {
  TClass wrapped = aClass;
  while (Record(wrapped).Slot<TTag>() == replacement) wrapped = ClassParent(wrapped);
  return wrapped;
}

}  // namespace orv
