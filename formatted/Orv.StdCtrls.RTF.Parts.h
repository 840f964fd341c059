// Private to the RTF reader: its two stages.
#pragma once

#include "formatted/Orv.StdCtrls.RTF.h"

namespace orv::rtf {

// The header: its items, the font table and the colour table, into the fields of data that they fill. The cursor stands
// behind the "{" of the document and ends at the first thing that is no header.
template <typename TUnit>
void ReadHeader(TMarkupTextReader<TUnit>& reader, TRTFText::TRTFData& data);

// The body up to the "}" of the document, into FText and Ranges.
template <typename TUnit>
void ReadBody(TMarkupTextReader<TUnit>& reader, TRTFText::TRTFData& data);

extern template void ReadHeader(TMarkupTextReader<char16_t>&, TRTFText::TRTFData&);
extern template void ReadHeader(TMarkupTextReader<char>&, TRTFText::TRTFData&);
extern template void ReadBody(TMarkupTextReader<char16_t>&, TRTFText::TRTFData&);
extern template void ReadBody(TMarkupTextReader<char>&, TRTFText::TRTFData&);

}  // namespace orv::rtf
