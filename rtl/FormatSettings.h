// The process-wide format settings of the platform.
#pragma once

namespace rtl {

struct TFormatSettings {
  char16_t DateSeparator = u'/';
};

// The settings in force for the whole process. Main thread; change them between calls only.
TFormatSettings& FormatSettings();

}  // namespace rtl
