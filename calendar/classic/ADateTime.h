// The Arabic (tabular Islamic) calendar as a list of functions, each named like the platform's Gregorian one.
//
//   ADateTime::EncodeDate({1446, 9, 20})   // 45736: 20 March 2025
//   ADateTime::DaysInAMonth(1446, 12)      // 29
//
// Days and weeks are numbered as in PDateTime. Years run from 1 to 9999. In encoding, months and days beyond their
// bounds count on within the year, and what leads out of it is refused. IncAMonth steps the year whenever the months
// do. Failures raise EConvertError; Try... answers nothing instead. Threads as in PDateTime.
#pragma once

#include "calendar/classic/ClassicUnit.h"

namespace orv {

using ADateTime = classic::TClassicUnit<classic::TIslamicCore>;

}  // namespace orv
