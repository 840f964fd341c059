// The rules of the RTF reader written plainly, apart from the library: the text becomes a list of events, and the
// ranges are cut from it afterwards.
#pragma once

#include <optional>
#include <string_view>

#include "formatted/Orv.StdCtrls.RTF.h"

namespace orv::plain {

// The document; nothing where it is refused.
std::optional<TRTFText::TRTFData> ParsePlainRtf(std::u16string_view text);

// Whether two documents are the same in every field.
bool Same(const TRTFText::TRTFData& a, const TRTFText::TRTFData& b);

}  // namespace orv::plain
