// The forms that what the markup readers find takes in answers.
#pragma once

#include "formatted/Orv.StdCtrls.HTML.h"
#include "formatted/Orv.StdCtrls.RTF.h"
#include "tools/orv/eval/Eval.h"

namespace orv::eval {

// A tag by itself, without its children: its type, its own text, its attributes as pairs.
TJson TagFields(const THTMLText::THTMLTag& tag);
// A tag with everything under it. Takes no more stack for a deep tree than for a flat one.
TJson TagValue(const THTMLText::THTMLTag& root);

TJson RangeValue(const TRTFText::TRTFTextRange& range);
TJson DocumentValue(const TRTFText::TRTFData& data);

}  // namespace orv::eval
